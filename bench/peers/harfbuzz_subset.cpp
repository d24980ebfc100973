#include "peers/harfbuzz_subset.h"

#include <algorithm>
#include <array>

namespace qxbench {
namespace {

constexpr std::array<hb_tag_t, 8> kPassedOn{HB_TAG('O', 'S', '/', '2'), HB_TAG('c', 'v', 't', ' '),
                                            HB_TAG('f', 'p', 'g', 'm'), HB_TAG('h', 'h', 'e', 'a'),
                                            HB_TAG('h', 'm', 't', 'x'), HB_TAG('m', 'a', 'x', 'p'),
                                            HB_TAG('p', 'o', 's', 't'), HB_TAG('p', 'r', 'e', 'p')};
constexpr std::array<hb_tag_t, 4> kSubset{HB_TAG('g', 'l', 'y', 'f'), HB_TAG('l', 'o', 'c', 'a'),
                                          HB_TAG('C', 'F', 'F', ' '), HB_TAG('h', 'e', 'a', 'd')};

template <class Tags>
bool has(const Tags& tags, hb_tag_t tag) {
  return std::find(tags.begin(), tags.end(), tag) != tags.end();
}

void chooseTables(hb_face_t* face, hb_subset_input_t* input) {
  std::array<hb_tag_t, 64> tags{};
  unsigned count = tags.size();
  hb_face_get_table_tags(face, 0, &count, tags.data());
  hb_set_t* dropped = hb_subset_input_set(input, HB_SUBSET_SETS_DROP_TABLE_TAG);
  hb_set_t* passed = hb_subset_input_set(input, HB_SUBSET_SETS_NO_SUBSET_TABLE_TAG);
  hb_set_clear(dropped);
  for (unsigned i = 0; i < count; ++i) {
    if (has(kSubset, tags[i])) continue;
    hb_set_add(has(kPassedOn, tags[i]) ? passed : dropped, tags[i]);
  }
}

}  // namespace

HarfBuzz<hb_blob_t> subsetWithHarfBuzz(hb_blob_t* font, const std::vector<unsigned short>& glyphs) {
  const HarfBuzz<hb_face_t> face(hb_face_create(font, 0));
  hb_subset_input_t* input = hb_subset_input_create_or_fail();
  if (input == nullptr) return {};
  for (const unsigned short glyph : glyphs) hb_set_add(hb_subset_input_glyph_set(input), glyph);
  hb_subset_input_set_flags(input, HB_SUBSET_FLAGS_RETAIN_GIDS | HB_SUBSET_FLAGS_NOTDEF_OUTLINE);
  chooseTables(face.get(), input);
  const HarfBuzz<hb_face_t> subset(hb_subset_or_fail(face.get(), input));
  hb_subset_input_destroy(input);
  return HarfBuzz<hb_blob_t>(subset ? hb_face_reference_blob(subset.get()) : nullptr);
}

}  // namespace qxbench
