#pragma once

#include <unicode/unistr.h>

#include <functional>
#include <string>
#include <vector>

#include "qxfontservice/font_info.h"

#include "qxfont/specimen/characters.h"

namespace qxfont {

/// A text that shows a script.
struct SampleText {
  std::string script;  ///< as people call it
  icu::UnicodeString text;
};

/// The sentences that characters can set, one a script, in the order of the table: Latin is the
/// first.
std::vector<SampleText> sentencesOf(const Characters& characters);

/// The first characters of which something is to be seen, as many as make a line; of a face with
/// many blank ones no more are looked at than make sense.
/// @param isDrawn whether the glyph of a character is not blank.
icu::UnicodeString firstOf(const Characters& characters, const std::function<bool(int)>& isDrawn);

/// What shows a face: its sentences. A symbolic one, in which letters are something else, and one
/// that can set none has one text of its first characters; one without anything to be seen has
/// none.
std::vector<SampleText> sampleTexts(const QXFontService_NS::FS_FontInfo& font,
                                    const Characters& characters);

/// A row of the table of sentences.
struct SentenceRow {
  const char* script;
  const char* text;  ///< UTF-8
};

/// The table. A script may have further rows for faces that lack some of its letters.
const std::vector<SentenceRow>& sentences();

}  // namespace qxfont
