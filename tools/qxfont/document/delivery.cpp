#include "qxfont/document/delivery.h"

#include <fmt/format.h>

#include <cstdio>

#include "qxfont/cli/output.h"
#include "qxfont/cli/output_file.h"
#include "qxfont/cli/text.h"
#include "qxfont/embed/rights.h"
#include "qxfont/typeset/used_glyphs.h"

namespace qxfont {
namespace {

Json fontJson(const fs::FS_FontInfo& font, const UsedGlyphs& used,
              const WrittenDocument::Font& written) {
  Json json;
  json["family"] = utf8(font.getFamilyNameEx());
  json["postscript_name"] = utf8(font.getPostScriptName(fs::QXLang::LANGID_DEFAULT));
  json["file"] = utf8(font.getFontFileName().getLocalPath(true));
  json["form"] = written.form;
  json["glyphs"] = used.texts.size();
  json["bytes"] = written.bytes;
  return json;
}

Json summaryOf(const WrittenDocument& written, const std::vector<UsedGlyphs>& used,
               const FontSet& fonts, const std::set<int>& missing) {
  Json json;
  json["pages"] = written.pages;
  json["fonts"] = Json::array();
  for (std::size_t i = 0; i < used.size(); ++i)
    json["fonts"].push_back(fontJson(fonts.font(used[i].face), used[i], written.fonts[i]));
  json["missing"] = Json::array();
  for (const int codePoint : missing) json["missing"].push_back(codePointName(codePoint));
  return json;
}

void printSummary(const std::string& out, const Json& summary) {
  const auto pages = summary["pages"].get<int>();
  fmt::print("{}: {} {}\n", shown(out), pages, pages == 1 ? "page" : "pages");
  TextTable table({"font", "glyphs", "bytes", "file"});
  for (const Json& font : summary["fonts"]) {
    const Json& name = font["postscript_name"];
    table.add({name == "" ? font["family"] : name, font["glyphs"].dump(), font["bytes"].dump(),
               font["file"]});
  }
  table.print();
}

void tellMissing(const std::set<int>& missing, const std::string& hint) {
  if (missing.empty()) return;
  std::vector<std::string> names;
  for (const int codePoint : missing) names.push_back(codePointName(codePoint));
  fmt::print(stderr, "qxfont: no font has {}\n", fmt::join(names, ", "));
  fmt::print(stderr, "hint: {}\n", hint);
}

}  // namespace

void deliver(const Delivery& delivery, const std::vector<Page>& pages, const FontSet& fonts,
             const std::set<int>& missing) {
  std::vector<UsedGlyphs> used = documentFonts(pages, fonts);
  for (const UsedGlyphs& one : used)
    if (!delivery.allowRestricted) requireRights(fonts.font(one.face), true);
  const WrittenDocument written = writeDocument(delivery.kind, delivery.frame, pages, used, fonts);
  const Json summary = summaryOf(written, used, fonts, missing);
  OutputFiles files;
  files.add(delivery.out, written.bytes);
  tellMissing(missing, delivery.missingHint);
  if (delivery.json) {
    printJson(summary);
  } else {
    printSummary(delivery.out, summary);
  }
  flushOutput();
  files.commit();
}

}  // namespace qxfont
