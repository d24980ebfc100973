#include "embed/conforming/editable_dict.h"

#include <gtest/gtest.h>

#include "support/byte_text.h"
#include "support/cff_builder.h"

namespace QXFontService_NS::embed::conforming {
namespace {

using qxtest::bytesOf;
using qxtest::DictBuilder;

EditableDict dictOf(const DictBuilder& dict) {
  return EditableDict({dict.str().data(), dict.str().size()});
}

TEST(EditableDict, ComesBackAsItWas) {
  const DictBuilder dict = DictBuilder()
                               .numbers({391, 392, 0})
                               .op(0x0C1E)
                               .real("0.001")
                               .op(0x0C07)
                               .op(5)
                               .entry(17, 2000);
  EXPECT_EQ(dictOf(dict).bytes(), dict.str());
}

TEST(EditableDict, DropsReservedBytesAndOperandsWithoutAnOperator) {
  EXPECT_EQ(dictOf(DictBuilder().raw("\x1F\xFF").entry(17, 5).numbers({1, 2})).bytes(),
            DictBuilder().entry(17, 5).str());
}

TEST(EditableDict, TellsTheLastOperands) {
  const EditableDict dict =
      dictOf(DictBuilder().numbers({7, 40, 3000}).op(18).entry(17, 1).real("12.7").op(17).op(15));
  EXPECT_TRUE(dict.has(18));
  EXPECT_EQ(dict.last(18), 3000);
  EXPECT_EQ(dict.beforeLast(18), 40);
  EXPECT_EQ(dict.last(17), 12);  // of the second
  EXPECT_EQ(dict.beforeLast(17), 0);
  EXPECT_TRUE(dict.has(15));
  EXPECT_EQ(dict.last(15), 0);
  EXPECT_FALSE(dict.has(16));
  EXPECT_EQ(dict.last(16), 0);
}

TEST(EditableDict, ReplacesOperandsByFiveByteNumbers) {
  EditableDict dict = dictOf(DictBuilder().entry(17, 5).numbers({1, 2}).op(18).entry(0x0C24, 9));
  dict.set(17, {0x01020304});
  dict.set(18, {7, 0xFFFFFFFF});
  dict.set(0x0C24, {0});
  dict.set(15, {5});  // not there
  EXPECT_EQ(dict.bytes(), bytesOf({29,  1,   2,   3,   4,  17, 29, 0, 0, 0, 7,  29,
                                   255, 255, 255, 255, 18, 29, 0,  0, 0, 0, 12, 36}));
}

}  // namespace
}  // namespace QXFontService_NS::embed::conforming
