// The random numbers of the language: the C library's rand() sequence, kept per engine.
#pragma once

#include <cstdint>
#include <cstdlib>

namespace zoka {

/// rand() and srand() on a state of its own: random_r on 128 bytes gives the same numbers. One
/// thread at a time.
class TRandom {
 public:
  TRandom();
  TRandom(const TRandom&) = delete;
  TRandom& operator=(const TRandom&) = delete;

  void Seed(uint32_t seed);
  /// 0 to 2,147,483,647.
  int32_t Next();

 private:
  char mState[128];
  random_data mData;
};

}  // namespace zoka
