#pragma once

#include <expat.h>

#include <cstddef>
#include <deque>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace QXCommonNS::xml {

/// A start or an end tag; texts are UTF-8.
struct TagEvent {
  bool isStart = false;
  std::string name;
  std::vector<std::pair<std::string, std::string>> attributes;
};

/// Makes the tags of a document, one as it is asked for.
///
/// expat stops for good at an end tag that does not match. Such a tag is told as it is written
/// and closes the innermost element; a fresh parser is then told the elements that are still
/// open, and goes on behind the tag.
class ExpatReader {
 public:
  /// `document` is UTF-8 without document type; see `cutDoctype`.
  explicit ExpatReader(std::string document);
  ExpatReader(const ExpatReader&) = delete;
  ExpatReader& operator=(const ExpatReader&) = delete;

  /// Gives the next tag; false at the end of the document, or where its first other fault stands.
  bool next(TagEvent& out);

 private:
  struct ParserDeleter {
    void operator()(XML_ParserStruct* parser) const { XML_ParserFree(parser); }
  };

  static void XMLCALL onStart(void* reader, const XML_Char* name, const XML_Char** attributes);
  static void XMLCALL onEnd(void* reader, const XML_Char* name);
  static void XMLCALL onDoctype(void* reader, const XML_Char*, const XML_Char*, const XML_Char*,
                                int);

  void makeParser();
  void proceed();
  XML_Status feed();
  void judge(XML_Status status);
  void takeWrongEndTag();
  void goOnFrom(std::size_t position);
  void takeStart(std::string_view name, const XML_Char** attributes);
  void takeEnd(std::string_view name);
  void give(TagEvent event);
  void stop();
  template <class Work>
  void guarded(Work work);

  std::string document_;
  std::unique_ptr<XML_ParserStruct, ParserDeleter> parser_;
  std::deque<TagEvent> events_;    // at most two: an empty element gives both at once
  std::vector<std::string> open_;  // the open elements, outermost first
  std::size_t fed_ = 0;            // of the document
  std::size_t piece_;              // bytes fed next
  std::size_t parserStart_ = 0;    // where in the document this parser began
  std::size_t retoldLength_ = 0;   // what it was told before that
  std::size_t retoldToSkip_ = 0;   // start tags of it that are still to come
  std::size_t retoldInAll_ = 0;
  int wrongEndTags_ = 0;
  bool suspended_ = false;
  bool stopped_ = false;  // by a limit; expat still tells the end of an empty element
  bool ended_ = false;
  std::exception_ptr failure_;  // thrown by a handler: may not cross the C code
};

}  // namespace QXCommonNS::xml
