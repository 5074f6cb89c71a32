// TRandom on the C library's re-entrant generator.
#include "common/random.h"

#include <cstring>

namespace zoka {

TRandom::TRandom() {
  // The library wants the record cleared; rand() begins as if seeded with 1.
  std::memset(&mData, 0, sizeof mData);
  initstate_r(1, mState, sizeof mState, &mData);
}

void TRandom::Seed(uint32_t seed) {
  srandom_r(seed, &mData);
}

int32_t TRandom::Next() {
  int32_t value = 0;
  random_r(&mData, &value);
  return value;
}

}  // namespace zoka
