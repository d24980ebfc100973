#include "embed/conforming/private_dicts.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/cff_builder.h"

namespace QXFontService_NS::embed::conforming {
namespace {

using QXCommonNS::bytes::ByteWriter;
using qxtest::cffIndex;
using qxtest::DictBuilder;
using qxtest::DictForm;

std::string text(const ByteWriter& out) {
  return {static_cast<const char*>(static_cast<const void*>(out.view().data())), out.size()};
}

TEST(PrivateDicts, PutTheSubrsRightBehindTheDict) {
  const std::string dict = DictBuilder().entry(20, 500).entry(19, 10).str();
  const std::string subrs = cffIndex({"ab", "c"});
  std::string source = "?" + dict;
  source.resize(11, '?');
  source += subrs;
  std::istringstream stream(source);
  const cff::CffTable table{&stream, 0, 0};
  PrivateDicts privates(table);
  ASSERT_TRUE(privates.add(1, static_cast<int>(dict.size())));
  ByteWriter out;
  out.u8(9);
  privates.write(out);
  const std::string expected =
      DictBuilder().entry(20, 500).number(9, DictForm::fourBytes).op(19).str();
  EXPECT_EQ(text(out), "\x09" + expected + subrs);
  const PrivateDicts::Place place = privates.placeOf(1, static_cast<int>(dict.size()));
  EXPECT_EQ(place.size, expected.size());
  EXPECT_EQ(place.offset, 1u);
  EXPECT_EQ(privates.placeOf(5, 5).size, 0u);
}

TEST(PrivateDicts, WritesEachOnce) {
  const std::string dict = DictBuilder().entry(20, 500).str();
  std::istringstream stream(dict);
  const cff::CffTable table{&stream, 0, 0};
  PrivateDicts privates(table);
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(privates.add(0, static_cast<int>(dict.size())));
  ByteWriter out;
  privates.write(out);
  EXPECT_EQ(text(out), dict);
}

TEST(PrivateDicts, RefusesWhatIsNotThereAndWhatIsTooMuch) {
  std::istringstream stream(std::string(100000, '\x8B'));
  const cff::CffTable table{&stream, 0, 0};
  PrivateDicts privates(table);
  EXPECT_FALSE(privates.add(-1, 5));
  EXPECT_FALSE(privates.add(0, -5));
  EXPECT_FALSE(privates.add(99999, 2));
  EXPECT_TRUE(privates.add(0, 0));
  int added = 0;
  while (added < 100 && privates.add(added + 1, 90000)) ++added;
  EXPECT_LT(added, 12);
}

}  // namespace
}  // namespace QXFontService_NS::embed::conforming
