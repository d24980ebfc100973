#include "qxcommon/lock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

namespace QXCommonNS {
namespace {

/// Whether another thread gets the lock: it reports once it has it.
class Contender {
 public:
  explicit Contender(QXLock& lock)
      : thread_([this, &lock] {
          started_ = true;
          const QXMutex guard(&lock);
          entered_ = true;
        }) {
    while (!started_) std::this_thread::yield();
  }
  ~Contender() { join(); }

  bool entered() const { return entered_; }
  void join() {
    if (thread_.joinable()) thread_.join();
  }

 private:
  std::atomic<bool> started_{false};
  std::atomic<bool> entered_{false};
  std::thread thread_;
};

TEST(QXLock, IsTakenAgainByItsOwner) {
  QXLock lock;
  {
    const QXMutex outer(&lock);
    const QXMutex inner(&lock);
    const QXMutex third(&lock);
  }
  Contender contender(lock);  // given back as often as taken
  contender.join();
  EXPECT_TRUE(contender.entered());
}

TEST(QXLock, KeepsOthersOutUntilTheOutermostGuardEnds) {
  QXLock lock;
  auto outer = std::make_unique<QXMutex>(&lock);
  auto inner = std::make_unique<QXMutex>(&lock);
  Contender contender(lock);
  inner.reset();
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_FALSE(contender.entered());
  outer.reset();
  contender.join();
  EXPECT_TRUE(contender.entered());
}

TEST(QXLock, GuardsACounter) {
  QXLock lock;
  int counter = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&lock, &counter] {
      for (int round = 0; round < 5000; ++round) {
        const QXMutex guard(&lock);
        ++counter;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(counter, 20'000);
}

TEST(QXMutex, GivesTheLockBackWhenAnExceptionPasses) {
  QXLock lock;
  EXPECT_THROW(
      {
        const QXMutex guard(&lock);
        throw std::runtime_error("host");
      },
      std::runtime_error);
  Contender contender(lock);
  contender.join();
  EXPECT_TRUE(contender.entered());
}

TEST(QXMutex, GuardsNothingWithoutALock) {
  const QXMutex guard(nullptr);
}

}  // namespace
}  // namespace QXCommonNS
