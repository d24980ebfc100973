#include "qxfont/cli/font_facts.h"

#include <array>
#include <cmath>
#include <string>

#include "qxfontservice/ext/inspect.h"
#include "qxfontservice/new_text_metric_ex.h"

#include "qxfont/cli/text.h"

namespace qxfont {
namespace {

namespace fs = QXFontService_NS;
using Language = fs::QXLang::LanguageID;

struct NameQuery {
  const char* key;
  fs::UnicodeString (fs::FS_FontInfo::*ask)(Language) const;
};

constexpr std::array kNames = {
    NameQuery{"family", &fs::FS_FontInfo::getFamilyName},
    NameQuery{"subfamily", &fs::FS_FontInfo::getSubFamilyName},
    NameQuery{"full", &fs::FS_FontInfo::getFullFontName},
    NameQuery{"postscript", &fs::FS_FontInfo::getPostScriptName},
    NameQuery{"preferred_family", &fs::FS_FontInfo::getPreferredFamily},
    NameQuery{"preferred_subfamily", &fs::FS_FontInfo::getPreferredSubFamily},
    NameQuery{"cid_findfont", &fs::FS_FontInfo::getPostScriptCIDFindfontName},
    NameQuery{"copyright", &fs::FS_FontInfo::getCopyright},
    NameQuery{"manufacturer", &fs::FS_FontInfo::getManufacturer},
    NameQuery{"license", &fs::FS_FontInfo::getLicenseDescription},
};

Json namesIn(const fs::FS_FontInfo& font, int language) {
  Json names = Json::object();
  for (const NameQuery& query : kNames) {
    const fs::UnicodeString name = (font.*query.ask)(static_cast<Language>(language));
    if (!name.isEmpty()) names[query.key] = utf8(name);
  }
  return names;
}

Json namesOf(const fs::FS_FontInfo& font) {
  Json names;
  names["0"] = namesIn(font, fs::QXLang::LANGID_DEFAULT);
  for (const int language : fs::ext::nameLanguages(font)) {
    if (language != fs::QXLang::LANGID_DEFAULT) {
      names[std::to_string(language)] = namesIn(font, language);
    }
  }
  return names;
}

Json styleOf(const fs::FS_FontInfo& font) {
  int weight = 0;
  bool italic = false;
  int stretch = 0;
  font.getFontStyle(&weight, &italic, &stretch);
  Json style;
  style["weight"] = weight;
  style["italic"] = italic;
  style["stretch"] = stretch;
  style["symbolic"] = font.isSymbolicFont();
  style["fixed_width"] = font.isFixedWidthFont();
  style["serif_like"] = font.isSerifLikeFont();
  style["script_like"] = font.isScriptLikeFont();
  return style;
}

Json embeddingOf(const fs::FS_FontInfo& font) {
  Json embedding;
  embedding["can_embed"] = font.canEmbedFont();
  embedding["status"] = static_cast<int>(font.getEmbedStatus());
  embedding["licence"] = static_cast<int>(font.getFontEmbeddingLicence());
  embedding["chars"] = font.getEmbedableCharCount();
  return embedding;
}

Json metricsOf(const fs::FS_FontInfo& font) {
  const fs::FS_NewTextMetricEx record = metricsInUnits(font);
  const int unitsPerEm = font.getUnitsPerEm();
  Json metrics;
  metrics["units_per_em"] = unitsPerEm;
  metrics["ascent"] = number(record.getAscent());
  metrics["descent"] = number(record.getDescent());
  metrics["cap_height"] = number(record.getCapHeight());
  metrics["x_height"] = number(std::round(static_cast<double>(font.getXHeight()) * unitsPerEm));
  metrics["typo_ascender"] = number(record.getTypoAscender());
  metrics["typo_descender"] = number(record.getTypoDescender());
  metrics["typo_line_gap"] = number(record.getTypoLineGap());
  metrics["external_leading"] = number(record.getExternalLeading());
  metrics["average_width"] = number(record.getAveCharWidth());
  metrics["maximum_width"] = number(record.getMaxCharWidth());
  metrics["italic_angle"] = number(italicAngle(font, record));
  metrics["bounds"] = {number(record.getBBoxLeft()), number(record.getBBoxBottom()),
                       number(record.getBBoxRight()), number(record.getBBoxTop())};
  return metrics;
}

}  // namespace

fs::FS_NewTextMetricEx metricsInUnits(const fs::FS_FontInfo& font) {
  fs::FS_NewTextMetricEx metrics;
  font.getOutlineTextMetrics(metrics, -font.getUnitsPerEm());  // an em of that size
  return metrics;
}

double italicAngle(const fs::FS_FontInfo& font, const fs::FS_NewTextMetricEx& metrics) {
  const auto angle = static_cast<double>(metrics.getItalicAngle());
  return font.isType1Font() ? angle : angle / 65536;  // of an sfnt it is in 16.16
}

Json fontFacts(const fs::FS_FontInfo& font) {
  Json facts;
  facts["names"] = namesOf(font);
  facts["style"] = styleOf(font);
  facts["embedding"] = embeddingOf(font);
  facts["metrics"] = metricsOf(font);
  return facts;
}

}  // namespace qxfont
