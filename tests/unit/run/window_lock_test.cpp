// The window's lock: who has it, for how long it is tried.
#include "run/window_lock.h"

#include <gtest/gtest.h>

#include <mutex>
#include <thread>
#include <vector>

namespace zoka {
namespace {

TEST(WindowLock, MayBeTakenAgainByItsHolder) {
  TWindowLock lock;
  ASSERT_TRUE(lock.LockFor(0));
  ASSERT_TRUE(lock.LockFor(0));
  lock.unlock();
  bool taken = true;
  std::thread([&] { taken = lock.LockFor(1000); }).join();
  EXPECT_FALSE(taken);
  lock.unlock();
  std::thread([&] {
    taken = lock.LockFor(1000);
    if (taken) lock.unlock();
  }).join();
  EXPECT_TRUE(taken);
}

TEST(WindowLock, IsHeldByOneThreadAtATime) {
  constexpr int THREADS = 4;
  constexpr int ROUNDS = 2000;
  TWindowLock lock;
  int count = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < THREADS; ++i) {
    threads.emplace_back([&] {
      for (int round = 0; round < ROUNDS; ++round) {
        const std::lock_guard held(lock);
        ++count;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(count, THREADS * ROUNDS);
}

}  // namespace
}  // namespace zoka
