#include <unicode/uclean.h>

#include <cstdlib>

#include "type1/pfm/char_set.h"
#include "type1/type1_fixture.h"

namespace QXFontService_NS {
namespace {

bool refusesMemory = false;

void* U_CALLCONV allocate(const void*, std::size_t size) {
  return refusesMemory ? nullptr : std::malloc(size);
}
void* U_CALLCONV reallocate(const void*, void* block, std::size_t size) {
  return refusesMemory ? nullptr : std::realloc(block, size);
}
void U_CALLCONV release(const void*, void* block) {
  std::free(block);
}

/// Leaves ICU without memory, so that it has no converter to give.
class WithoutConverters {
 public:
  WithoutConverters() {
    UErrorCode status = U_ZERO_ERROR;
    u_setMemoryFunctions(nullptr, &allocate, &reallocate, &release, &status);
    refusesMemory = U_SUCCESS(status);
  }
  ~WithoutConverters() { refusesMemory = false; }
};

class NoConverter : public qxtest::Type1Test {};

TEST_F(NoConverter, NothingIsWideAndTheFirstCharacterIsMissing) {
  auto& font = pfm(qxtest::PfmBuilder());
  const icu::UnicodeString text(u"!!");
  int missing = 7;
  ASSERT_EQ(font.getTextWidth(text, -1000, false, &missing, 0), 666);
  ASSERT_EQ(missing, -1);
  float width = 7;
  bool isOpen = true;
  {
    const WithoutConverters without;
    width = font.getTextWidth(text, -1000, false, &missing, 0);
    isOpen = type1::CharSetEncoder(0).isOpen();
  }
  ASSERT_FALSE(isOpen);
  EXPECT_EQ(width, 0);
  EXPECT_EQ(missing, 0);
  EXPECT_EQ(font.getTextWidth(text, -1000, false, &missing, 0), 666) << "as before";
}

}  // namespace
}  // namespace QXFontService_NS
