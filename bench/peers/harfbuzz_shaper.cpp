#include "peers/harfbuzz_shaper.h"

#include <algorithm>

namespace qxbench {
namespace {

constexpr const char* kOwnChoice[] = {
    "liga", "clig", "calt", "ccmp", "rlig", "locl", "mark", "mkmk", "kern", "dist", "curs", "rclt",
    "abvm", "blwm", "init", "medi", "fina", "isol", "mset", "fin2", "fin3", "med2", "stch", "rvrn"};

}  // namespace

HarfBuzzShaper::HarfBuzzShaper(const std::string& font, hb_script_t script,
                               const std::vector<unsigned int>& on)
    : font_(font), script_(script), buffer_(hb_buffer_create()) {
  // Those that are wanted are not named: HarfBuzz turns them on itself, the forms of letters where
  // they belong, while a form asked for here would be given to every letter.
  for (const char* name : kOwnChoice) {
    const hb_tag_t tag = hb_tag_from_string(name, -1);
    if (std::find(on.begin(), on.end(), tag) == on.end())
      features_.push_back({tag, 0, 0, static_cast<unsigned>(-1)});
  }
}

hb_buffer_t* HarfBuzzShaper::shape(const icu::UnicodeString& text) {
  hb_buffer_t* buffer = buffer_.get();
  hb_buffer_clear_contents(buffer);
  const auto* units = static_cast<const std::uint16_t*>(static_cast<const void*>(text.getBuffer()));
  hb_buffer_add_utf16(buffer, units, text.length(), 0, text.length());
  hb_buffer_set_script(buffer, script_);
  hb_buffer_set_language(buffer, hb_language_from_string("en", -1));
  hb_buffer_set_direction(buffer, hb_script_get_horizontal_direction(script_));
  hb_shape(font_.font.get(), buffer, features_.data(), static_cast<unsigned>(features_.size()));
  return buffer;
}

}  // namespace qxbench
