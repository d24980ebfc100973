#include "common/answer_or.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "qxcommon/error.h"

namespace QXCommonNS {
namespace {

TEST(AnswerOr, GivesTheAnswer) {
  EXPECT_EQ(answerOr(-1, [] { return 5; }), 5);
  EXPECT_TRUE(answerOr(false, [] { return true; }));
}

TEST(AnswerOr, GivesTheNeutralAnswerForAStandardException) {
  const std::vector<int> none;
  EXPECT_EQ(answerOr(-1, [&] { return none.at(3); }), -1);
  EXPECT_FALSE(answerOr(false, []() -> bool { throw std::length_error("too long"); }));
  EXPECT_EQ(answerOr(nullptr, []() -> int* { throw std::runtime_error("broken"); }), nullptr);
}

TEST(AnswerOr, LetsExhaustedMemoryPass) {
  EXPECT_THROW(answerOr(0, []() -> int { throw std::bad_alloc(); }), std::bad_alloc);
  EXPECT_THROW(answerOr(0, []() -> int { throw std::bad_array_new_length(); }), std::bad_alloc);
}

TEST(AnswerOr, LetsErrorsAndForeignExceptionsPass) {
  EXPECT_THROW(answerOr(0, []() -> int { throw QXError(1026, u"", u"", -1, -1, u""); }), QXError);
  EXPECT_THROW(answerOr(0, []() -> int { throw 42; }), int);
}

TEST(AnswerOr, GivesAReferenceToALastingNeutralAnswer) {
  const std::string neutral = "neutral";
  const std::string& answer =
      answerOr(neutral, []() -> const std::string& { throw std::out_of_range("index"); });
  EXPECT_EQ(&answer, &neutral);
}

TEST(AnswerOr, GivesTheAnswerOfAFunctionThatOnlyMoves) {
  const auto answer = answerOr(std::unique_ptr<int>(), [] { return std::make_unique<int>(3); });
  ASSERT_TRUE(answer);
  EXPECT_EQ(*answer, 3);
}

}  // namespace
}  // namespace QXCommonNS
