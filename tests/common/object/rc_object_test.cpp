#include "qxcommon/rc_object.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "qxcommon/ptr.h"

namespace QXCommonNS {
namespace {

/// Counts how many of its kind are alive.
class Thing : public QXRCObject {
 public:
  explicit Thing(int& alive) : alive_(alive) { ++alive_; }
  int number = 7;

 protected:
  ~Thing() override { --alive_; }

 private:
  int& alive_;
};

class SpecialThing : public Thing {
 public:
  using Thing::Thing;

 protected:
  ~SpecialThing() override = default;
};

TEST(QXRCObject, IsBornWithoutReferences) {
  int alive = 0;
  auto* thing = new Thing(alive);
  EXPECT_EQ(thing->refCount.load(), 0);
  thing->refCount.fetch_add(1);
  EXPECT_EQ(thing->release(), 0);
  EXPECT_EQ(alive, 0);
}

TEST(QXRCObject, ReleaseGivesTheNewCountAndDeletesAtZero) {
  int alive = 0;
  auto* thing = new Thing(alive);
  thing->refCount.fetch_add(2);
  EXPECT_EQ(thing->release(), 1);
  EXPECT_EQ(alive, 1);
  EXPECT_EQ(thing->release(), 0);
  EXPECT_EQ(alive, 0);
}

TEST(QXRCObject, KnowsItsClassAndAncestors) {
  int alive = 0;
  const QXPtr<Thing> thing(new Thing(alive));
  EXPECT_EQ(thing->getClassID(), 0xD18D040Au);
  EXPECT_EQ(thing->getClassName(), UnicodeString(u"QXRCObject"));
  EXPECT_TRUE(thing->isKindOf(0xD18D040Au));
  EXPECT_TRUE(thing->isKindOf(0xDF537371u));
  EXPECT_FALSE(thing->isKindOf(0x523A46D6u));
  EXPECT_FALSE(thing->isKindOf(0u));
}

TEST(QXObjectBase, KnowsItsClass) {
  class Plain : public QXObjectBase {
   public:
    ~Plain() override = default;
  };
  const Plain plain;
  EXPECT_EQ(plain.getClassID(), 0xDF537371u);
  EXPECT_EQ(plain.getClassName(), UnicodeString(u"QXObjectBase"));
  EXPECT_TRUE(plain.isKindOf(0xDF537371u));
  EXPECT_FALSE(plain.isKindOf(0xD18D040Au));
}

TEST(QXRCObject, IsCountedAcrossThreads) {
  int alive = 0;
  const QXPtr<Thing> thing(new Thing(alive));
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([thing] {
      for (int round = 0; round < 2000; ++round) {
        const QXPtr<Thing> own(thing);
        ASSERT_GE(own->refCount.load(), 2);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  threads.clear();
  EXPECT_EQ(thing->refCount.load(), 1);
  EXPECT_EQ(alive, 1);
}

TEST(QXPtr, IsEmptyWithoutAnObject) {
  const QXPtr<Thing> none;
  EXPECT_FALSE(none);
  EXPECT_EQ(none.get(), nullptr);
  EXPECT_FALSE(QXPtr<Thing>(nullptr));
}

TEST(QXPtr, HoldsOneReferenceACopy) {
  int alive = 0;
  {
    QXPtr<Thing> one(new Thing(alive));
    EXPECT_EQ(one->refCount.load(), 1);
    {
      const QXPtr<Thing> two(one);
      EXPECT_EQ(one->refCount.load(), 2);
      EXPECT_TRUE(one == two);
    }
    EXPECT_EQ((*one).refCount.load(), 1);
    const QXPtr<Thing> moved(std::move(one));
    EXPECT_EQ(moved->refCount.load(), 1);
    EXPECT_EQ(moved->number, 7);
  }
  EXPECT_EQ(alive, 0);
}

TEST(QXPtr, AssignmentLetsTheOldObjectGo) {
  int alive = 0;
  QXPtr<Thing> pointer(new Thing(alive));
  pointer = new Thing(alive);
  EXPECT_EQ(alive, 1);
  const QXPtr<Thing>& same = pointer;
  pointer = same;
  EXPECT_EQ(pointer->refCount.load(), 1);
  pointer = nullptr;
  EXPECT_EQ(alive, 0);
}

TEST(QXPtr, OfADerivedClassServesAsOneOfTheBase) {
  int alive = 0;
  {
    const QXPtr<SpecialThing> special(new SpecialThing(alive));
    const QXPtr<Thing> thing = special;
    EXPECT_EQ(thing->refCount.load(), 2);
  }
  EXPECT_EQ(alive, 0);
  static_assert(!std::is_convertible_v<QXPtr<Thing>, QXPtr<SpecialThing>>);
}

}  // namespace
}  // namespace QXCommonNS
