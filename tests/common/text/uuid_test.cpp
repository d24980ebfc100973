#include "qxcommon/uuid.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <thread>

namespace QXCommonNS {
namespace {

std::string text(const QXUUID& uuid) {
  std::string narrow;
  return uuid.toString().toUTF8String(narrow);
}

TEST(QXUUID, HasTheFormOfARandomIdentifier) {
  for (int i = 0; i < 50; ++i) {
    const std::string id = text(QXUUID());
    ASSERT_EQ(id.size(), 36u);
    for (std::size_t at = 0; at < id.size(); ++at) {
      const bool hyphen = at == 8 || at == 13 || at == 18 || at == 23;
      EXPECT_EQ(id[at] == '-', hyphen) << id;
      EXPECT_TRUE(hyphen || std::string("0123456789abcdef").find(id[at]) != std::string::npos)
          << id;
    }
    EXPECT_EQ(id[14], '4') << id;
    EXPECT_NE(std::string("89ab").find(id[19]), std::string::npos) << id;
  }
}

TEST(QXUUID, BeginsWithItsFirstWord) {
  const QXUUID uuid;
  EXPECT_EQ(std::stoul(text(uuid).substr(0, 8), nullptr, 16), uuid.getFirstWord());
}

TEST(QXUUID, IsNewEachTime) {
  std::set<std::string> seen;
  for (int i = 0; i < 1000; ++i) seen.insert(text(QXUUID()));
  EXPECT_EQ(seen.size(), 1000u);
}

TEST(QXUUID, IsNewOnEachThread) {
  std::string here = text(QXUUID());
  std::string there;
  std::thread([&there] { there = text(QXUUID()); }).join();
  EXPECT_NE(here, there);
}

}  // namespace
}  // namespace QXCommonNS
