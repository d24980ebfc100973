#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <memory>
#include <streambuf>
#include <vector>

#include "qxcommon/export.h"

namespace QXCommonNS {

/// The buffer of a `QXMemStream`: growable memory in blocks, with an optional source behind it.
///
/// Content that a source gives is read when it is asked for; a source that can seek is read in
/// the parts asked for only. Get and put position are two: the put position starts at the end of
/// the content, and a write beyond the end fills the gap with zero bytes.
///
/// Not to be used on two threads at once.
class QX_EXPORT QXMemStreamBuf : public std::streambuf {
 public:
  /// `source` may be null; with `own` the buffer deletes it. `blockSize` is a hint in bytes. With
  /// `keep` false, memory that the source can give again is freed once it was read.
  QXMemStreamBuf(std::istream* source, std::size_t blockSize, bool own, bool keep);
  QXMemStreamBuf(const QXMemStreamBuf&) = delete;
  QXMemStreamBuf& operator=(const QXMemStreamBuf&) = delete;
  ~QXMemStreamBuf() override;

  /// Makes the content that of `source`, from its first byte where it can seek, else from where
  /// it stands. What was held is dropped, and the get position is 0. Null leaves no content.
  void setSource(std::istream* source, bool own);
  /// Appends at most `count` bytes read from `from`, at the end of the content wherever the put
  /// position stands, and leaves the put position there. Gives how many bytes came.
  std::size_t copyStream(std::istream& from, std::size_t count);
  /// Appends `count` bytes like `copyStream`; gives how many were taken.
  std::size_t append(const char* data, std::size_t count);
  /// Moves the get position to the first byte of the next `text` (`length` bytes; 0 means up to
  /// its zero), one at the get position included. False when there is none: the position stays.
  bool searchSeek(const char* text, std::size_t length);
  /// Passes over `text` where it stands at the get position; else false and the position stays.
  bool skipSeek(const char* text, std::size_t length);
  /// Moves the get position behind the next line end (CR, LF or CR LF), else to the end.
  void seekEOL();
  /// False frees blocks that were read and that the source can give again; see the constructor.
  void setKeepMemory(bool keep);
  /// Forgets the memory that is held, without reading further. A source stays attached: what it
  /// can give again can be read again. Both positions are as after `setSource`.
  void abandonBuffer();
  /// The OpenType table checksum of the whole content, wherever the positions stand: the sum,
  /// modulo 2^32, of its big-endian 32-bit words, the last one filled up with zero bytes.
  unsigned int calcOTFTableChecksum();
  /// The number of bytes held or readable. Measures the source, by seeking where it can.
  std::size_t length();
  /// Drops content and source; both positions are 0.
  void remove();

 protected:
  int_type underflow() override;
  int_type pbackfail(int_type character) override;
  std::streamsize xsgetn(char* out, std::streamsize count) override;
  int_type overflow(int_type character) override;
  std::streamsize xsputn(const char* data, std::streamsize count) override;
  pos_type seekoff(off_type offset, std::ios_base::seekdir way,
                   std::ios_base::openmode which) override;
  pos_type seekpos(pos_type position, std::ios_base::openmode which) override;

 private:
  friend class QXMemStream;

  /// A block without memory stands for bytes that the source still gives, or for zero bytes.
  /// Behind the end of the content the bytes of a block are zero.
  struct Block {
    std::unique_ptr<char[]> bytes;
    bool written = false;
  };

  /// What the source can do is found out at the first need.
  enum class Source : unsigned char { none, untried, seekable, sequential };

  std::size_t indexOf(std::uint64_t position) const { return position >> blockBits_; }
  std::size_t offsetIn(std::uint64_t position) const { return position & (blockSize_ - 1); }
  std::uint64_t getPosition() const;
  std::uint64_t putPosition();
  void setGetPosition(std::uint64_t position);
  void leaveGetArea(std::uint64_t position);
  void setPutPosition(std::uint64_t position);
  bool openGetArea();
  bool openPutArea();
  void noteWritten();

  void trySource();
  void pullTo(std::uint64_t end);
  std::uint64_t knownEnd() const;
  std::size_t readSource(std::uint64_t position, char* out, std::size_t count);
  std::size_t readPastBlocks(char* out, std::size_t count);
  void dropSource();

  char* blockAt(std::size_t index);
  bool isHeld(std::size_t index) const;
  void release(std::size_t index);
  void forget();

  bool findByte(char byte);
  bool standsHere(const char* text, std::size_t length);
  void clearState();

  std::vector<Block> blocks_;
  std::size_t blockSize_;  // a power of two, whole words
  int blockBits_;
  std::unique_ptr<std::istream> owned_;
  std::istream* source_ = nullptr;
  std::ios* stream_ = nullptr;      // whose state bits the searching operations clear
  std::uint64_t heldEnd_ = 0;       // end of what was written, or pulled from the source
  std::uint64_t sourceLength_ = 0;  // of a source that can seek
  std::uint64_t getStart_ = 0;      // position of eback(), or the get position without an area
  std::uint64_t putStart_ = 0;      // position of pbase(), or the put position without an area
  bool putAtEnd_ = true;            // the put position has not been set yet
  bool keep_;
  Source sourceKind_ = Source::none;
};

}  // namespace QXCommonNS
