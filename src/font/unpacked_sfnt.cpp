#include "font/unpacked_sfnt.h"

#include <algorithm>
#include <array>
#include <streambuf>

#include "common/stream/stream_seek.h"

namespace QXFontService_NS {
namespace {

using QXCommonNS::QXMutex;

/// The largest block: no memory is taken for a size that the font only promises, and a block is
/// still in the cache when its bytes are written behind its zeros.
constexpr std::size_t kMostPromised = std::size_t{1} << 16;

class CursorBuf : public std::streambuf {
 public:
  explicit CursorBuf(std::shared_ptr<UnpackedSfnt> font) : font_(std::move(font)) {}

 protected:
  int_type underflow() override {
    const std::uint64_t from = position();
    const std::size_t count = font_->read(from, buffer_);
    fill(from, count);
    return count == 0 ? traits_type::eof() : traits_type::to_int_type(*gptr());
  }

  /// Reads of more than the buffer holds do not go through it.
  std::streamsize xsgetn(char* out, std::streamsize count) override {
    const auto wanted = static_cast<std::size_t>(std::max<std::streamsize>(count, 0));
    const std::size_t held = std::min(static_cast<std::size_t>(egptr() - gptr()), wanted);
    std::copy_n(gptr(), held, out);
    gbump(static_cast<int>(held));
    if (wanted == held) return count;
    if (wanted - held < buffer_.size()) return takeNext(out, held, wanted);
    const std::uint64_t from = position();
    const std::size_t came = font_->read(from, {out + held, wanted - held});
    fill(from + came, 0);
    return static_cast<std::streamsize>(held + came);
  }

  pos_type seekoff(off_type offset, std::ios_base::seekdir way, std::ios_base::openmode) override {
    std::uint64_t from = 0;
    if (way == std::ios_base::cur) from = position();
    if (way == std::ios_base::end) from = font_->length();
    const pos_type target = QXCommonNS::stream::sumPosition(from, offset);
    if (target != QXCommonNS::stream::kNoPosition) moveTo(static_cast<std::uint64_t>(target));
    return target;
  }

  pos_type seekpos(pos_type position, std::ios_base::openmode which) override {
    return seekoff(off_type(position), std::ios_base::beg, which);
  }

 private:
  [[nodiscard]] std::uint64_t position() const {
    return start_ + static_cast<std::uint64_t>(gptr() - eback());
  }
  void fill(std::uint64_t from, std::size_t count) {
    start_ = from;
    setg(buffer_.data(), buffer_.data(), buffer_.data() + count);
  }
  void moveTo(std::uint64_t target) {
    const auto held = static_cast<std::uint64_t>(egptr() - eback());
    if (target >= start_ && target - start_ <= held) {
      setg(eback(), eback() + (target - start_), egptr());
    } else {
      fill(target, 0);
    }
  }
  std::streamsize takeNext(char* out, std::size_t held, std::size_t wanted) {
    if (traits_type::eq_int_type(underflow(), traits_type::eof()))
      return static_cast<std::streamsize>(held);
    const std::size_t more = std::min(static_cast<std::size_t>(egptr() - gptr()), wanted - held);
    std::copy_n(gptr(), more, out + held);
    gbump(static_cast<int>(more));
    return static_cast<std::streamsize>(held + more);
  }

  std::shared_ptr<UnpackedSfnt> font_;
  std::array<char, 4096> buffer_;
  std::uint64_t start_ = 0;  // position of eback()
};

class Cursor : public std::istream {
 public:
  explicit Cursor(std::shared_ptr<UnpackedSfnt> font)
      : std::istream(nullptr), buffer_(std::move(font)) {
    rdbuf(&buffer_);
  }

 private:
  CursorBuf buffer_;
};

}  // namespace

UnpackedSfnt::UnpackedSfnt(std::size_t size)
    : content_(nullptr, std::min(size, kMostPromised), false, true) {}

std::unique_ptr<std::istream> UnpackedSfnt::cursor(std::shared_ptr<UnpackedSfnt> font) {
  return std::make_unique<Cursor>(std::move(font));
}

std::size_t UnpackedSfnt::read(std::uint64_t position, std::span<char> out) {
  QXMutex guard(&lock_);
  content_.clear();
  content_.seekg(static_cast<std::streamoff>(position));
  content_.read(out.data(), static_cast<std::streamsize>(out.size()));
  return static_cast<std::size_t>(content_.gcount());
}

std::uint64_t UnpackedSfnt::length() {
  QXMutex guard(&lock_);
  return content_.length();
}

}  // namespace QXFontService_NS
