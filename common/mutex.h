// The engine's mutex: each has a rank, and a thread takes them in ascending rank only, which debug
// builds assert. It is no recursive lock and has no conditions: waits belong to TClock.
#pragma once

#include <cstdint>
#include <mutex>

namespace zoka {

/// The order in which locks are taken: outer ones first. At most one Leaf is held at a time, and
/// nothing is called while one is held.
enum class TLockRank : uint8_t { Window, Screen, Variables, Leaf };

/// A mutex with a rank. Meets BasicLockable, so std::lock_guard works with it.
class TMutex {
 public:
  explicit TMutex(TLockRank rank) : mRank(rank) {}
  TMutex(const TMutex&) = delete;
  TMutex& operator=(const TMutex&) = delete;

  void lock();
  void unlock();

 private:
  std::mutex mMutex;
  [[maybe_unused]] const TLockRank mRank;  // looked at by debug builds only
};

using TLock = std::lock_guard<TMutex>;

}  // namespace zoka
