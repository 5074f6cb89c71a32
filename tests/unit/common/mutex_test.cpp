// The ranked mutex: its ranks, who gets it next, and giving up.
#include "common/mutex.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace zoka {
namespace {

void await_wish(const TMutex& mutex) {
  while (!mutex.IsWanted()) std::this_thread::yield();
}

#if ZOKA_DEBUG
TEST(MutexDeathTest, RanksAscend) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  TMutex window(TLockRank::Window);
  TMutex screen(TLockRank::Screen);
  TMutex leaf(TLockRank::Leaf);
  TMutex otherLeaf(TLockRank::Leaf);
  {
    TLock first(window);
    TLock second(screen);
    TLock third(leaf);
  }
  TLock again(screen);  // all were given back
  EXPECT_DEATH({ TLock wrong(window); }, "lock of rank 0 taken while ranks 0x2 are held");
  TLock inner(leaf);
  EXPECT_DEATH({ TLock wrong(otherLeaf); }, "lock of rank 4 taken while ranks 0x12 are held");
}
#endif

TEST(Mutex, LetsOneIn) {
  TMutex mutex(TLockRank::Leaf);
  int64_t count = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int round = 0; round < 20'000; ++round) {
        TLock lock(mutex);
        ++count;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(count, 80'000);
  EXPECT_FALSE(mutex.IsWanted());
}

TEST(Mutex, BelongsToTheWaiterAtOnce) {
  TMutex mutex(TLockRank::Leaf);
  std::atomic<bool> isEnough = false;
  mutex.lock();
  std::thread waiter([&] {
    TLock lock(mutex);
    while (!isEnough) std::this_thread::yield();
  });
  await_wish(mutex);
  mutex.unlock();
  // The waiter may not have woken up yet: it is shut for the one that had it all the same.
  EXPECT_FALSE(mutex.lock_within(0));
  isEnough = true;
  mutex.lock();
  mutex.unlock();
  waiter.join();
}

TEST(Mutex, ServesAllThatWait) {
  TMutex mutex(TLockRank::Leaf);
  int served = 0;
  mutex.lock();
  std::vector<std::thread> waiters;
  for (int i = 0; i < 5; ++i) {
    waiters.emplace_back([&] {
      TLock lock(mutex);
      ++served;
    });
  }
  await_wish(mutex);
  mutex.unlock();
  for (std::thread& waiter : waiters) waiter.join();
  EXPECT_EQ(served, 5);
  EXPECT_TRUE(mutex.lock_within(0));
  mutex.unlock();
}

TEST(Mutex, WhoGaveUpIsNotServed) {
  TMutex mutex(TLockRank::Leaf);
  mutex.lock();
  std::thread([&] { EXPECT_FALSE(mutex.lock_within(0)); }).join();
  EXPECT_TRUE(mutex.IsWanted());
  mutex.unlock();
  EXPECT_FALSE(mutex.IsWanted());
  EXPECT_TRUE(mutex.lock_within(0));
  mutex.unlock();
}

}  // namespace
}  // namespace zoka
