#include "common/xml/expat_reader.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "common/limits.h"

namespace QXCommonNS::xml {
namespace {

// What one wrong end tag lets be read in vain.
constexpr std::size_t kFirstPiece = std::size_t{64} << 10;

bool isTooLong(const XML_Char* value) {
  return std::strlen(value) > limits::kMostXmlAttributeBytes;
}

}  // namespace

ExpatReader::ExpatReader(std::string document)
    : document_(std::move(document)), piece_(kFirstPiece) {
  makeParser();
}

bool ExpatReader::next(TagEvent& out) {
  while (events_.empty() && !ended_) proceed();
  if (events_.empty()) return false;
  out = std::move(events_.front());
  events_.pop_front();
  return true;
}

// The encoding is given here, since the declaration still names that of the file.
void ExpatReader::makeParser() {
  parser_.reset(XML_ParserCreate("UTF-8"));
  if (!parser_) throw std::bad_alloc();
  XML_SetUserData(parser_.get(), this);
  XML_SetElementHandler(parser_.get(), onStart, onEnd);
  XML_SetStartDoctypeDeclHandler(parser_.get(), onDoctype);
}

void ExpatReader::proceed() {
  judge(suspended_ ? XML_ResumeParser(parser_.get()) : feed());
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

// In growing pieces: what is fed is copied, so little is fed at first, and a long token is looked
// at again with each piece, so pieces double as long as no tag comes.
XML_Status ExpatReader::feed() {
  const std::size_t count = std::min(piece_, document_.size() - fed_);
  const char* from = document_.data() + fed_;
  fed_ += count;
  piece_ *= 2;
  return XML_Parse(parser_.get(), from, static_cast<int>(count), fed_ == document_.size());
}

void ExpatReader::judge(XML_Status status) {
  suspended_ = status == XML_STATUS_SUSPENDED;
  if (status == XML_STATUS_OK) {
    ended_ = fed_ == document_.size();
  } else if (status == XML_STATUS_ERROR) {
    if (!failure_ && XML_GetErrorCode(parser_.get()) == XML_ERROR_TAG_MISMATCH) {
      takeWrongEndTag();
    } else {
      ended_ = true;
    }
  }
}

void ExpatReader::takeWrongEndTag() {
  const auto index = static_cast<std::size_t>(XML_GetCurrentByteIndex(parser_.get()));
  std::size_t name = parserStart_ + (index - retoldLength_);
  if (document_.compare(name, 2, "</") == 0) name += 2;
  const std::size_t nameEnd = document_.find_first_of(" \t\r\n>", name);
  const std::size_t tagEnd = document_.find('>', name);
  ended_ = tagEnd == std::string::npos || ++wrongEndTags_ > limits::kMostXmlWrongEndTags;
  if (ended_) return;
  events_.push_back({false, document_.substr(name, nameEnd - name), {}});
  open_.pop_back();
  goOnFrom(tagEnd + 1);
}

void ExpatReader::goOnFrom(std::size_t position) {
  std::string retold;
  for (const std::string& name : open_) retold.append("<").append(name).append(">");
  retoldInAll_ += retold.size();
  ended_ = open_.empty() || retoldInAll_ > limits::kMostXmlRetoldBytes;
  if (ended_) return;
  makeParser();
  retoldToSkip_ = open_.size();
  retoldLength_ = retold.size();
  parserStart_ = fed_ = position;
  piece_ = kFirstPiece;
  suspended_ = false;
  ended_ =
      XML_Parse(parser_.get(), retold.data(), static_cast<int>(retold.size()), 0) != XML_STATUS_OK;
}

void ExpatReader::takeStart(std::string_view name, const XML_Char** attributes) {
  if (retoldToSkip_ > 0) {
    --retoldToSkip_;
    return;
  }
  TagEvent event{true, std::string(name), {}};
  for (; attributes[0] != nullptr; attributes += 2) {
    if (isTooLong(attributes[1])) return stop();
    event.attributes.emplace_back(attributes[0], attributes[1]);
  }
  if (open_.size() >= limits::kMostXmlDepth) return stop();
  open_.emplace_back(name);
  give(std::move(event));
}

void ExpatReader::takeEnd(std::string_view name) {
  if (stopped_) return;
  open_.pop_back();
  give({false, std::string(name), {}});
}

void ExpatReader::give(TagEvent event) {
  events_.push_back(std::move(event));
  piece_ = kFirstPiece;
  XML_StopParser(parser_.get(), XML_TRUE);
}

void ExpatReader::stop() {
  stopped_ = true;
  XML_StopParser(parser_.get(), XML_FALSE);
}

template <class Work>
void ExpatReader::guarded(Work work) {
  try {
    work();
  } catch (...) {
    failure_ = std::current_exception();
    stop();
  }
}

void XMLCALL ExpatReader::onStart(void* reader, const XML_Char* name, const XML_Char** attributes) {
  auto& self = *static_cast<ExpatReader*>(reader);
  self.guarded([&] { self.takeStart(name, attributes); });
}

void XMLCALL ExpatReader::onEnd(void* reader, const XML_Char* name) {
  auto& self = *static_cast<ExpatReader*>(reader);
  self.guarded([&] { self.takeEnd(name); });
}

// The one of the prologue was cut out; a second one is a fault.
void XMLCALL ExpatReader::onDoctype(void* reader, const XML_Char*, const XML_Char*, const XML_Char*,
                                    int) {
  static_cast<ExpatReader*>(reader)->stop();
}

}  // namespace QXCommonNS::xml
