#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <memory>
#include <span>
#include <streambuf>

namespace QXCommonNS::stream {

/// Bytes that can be read at any position, such as an open file.
class RandomSource {
 public:
  virtual ~RandomSource() = default;
  [[nodiscard]] virtual std::uint64_t size() const = 0;
  /// Reads from `offset` and gives how many bytes came; fewer than asked for only at the end, or
  /// where no more can be read.
  virtual std::size_t readAt(std::uint64_t offset, std::span<char> out) = 0;
};

/// Reads a `RandomSource` with few calls and few bytes.
///
/// A read behind a seek asks for 40 bytes besides its own, unless it is a large one, and at the
/// start of the source for 576 bytes. Reading on from there asks for as much again as was read
/// since the seek, up to 4 KiB: small fields in a row cost few calls, and never much more than
/// twice their bytes are asked for. Of a read that is larger than that, 64 bytes count.
class SourceStreamBuf final : public std::streambuf {
 public:
  explicit SourceStreamBuf(std::unique_ptr<RandomSource> source);

 protected:
  int_type underflow() override;
  std::streamsize xsgetn(char* out, std::streamsize count) override;
  pos_type seekoff(off_type offset, std::ios_base::seekdir way,
                   std::ios_base::openmode which) override;
  pos_type seekpos(pos_type position, std::ios_base::openmode which) override;

 private:
  [[nodiscard]] std::uint64_t position() const;
  [[nodiscard]] std::size_t sizeOfRead(std::size_t wanted) const;
  void moveTo(std::uint64_t position);
  std::size_t readHere(std::span<char> out);
  bool fillWindow(std::size_t size);
  std::size_t takeFromWindow(char* out, std::size_t count);

  std::unique_ptr<RandomSource> source_;
  std::unique_ptr<char[]> window_;  // made at the first need: whole tables go past it
  std::uint64_t start_ = 0;         // position of eback(), or the position without a window
  std::uint64_t run_ = 0;           // bytes read in sequence since the last seek
};

/// An input stream over a `RandomSource`; it can seek.
class SourceStream final : public std::istream {
 public:
  explicit SourceStream(std::unique_ptr<RandomSource> source);

 private:
  SourceStreamBuf buffer_;
};

}  // namespace QXCommonNS::stream
