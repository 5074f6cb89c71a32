// A stack of places.
#include "editor/jump_history.h"

#include <algorithm>

namespace zoka {

void TJumpHistory::Leave(int64_t place) {
  if (!mPlaces.empty() && mPlaces.back() == place) return;
  if (mPlaces.size() == MAX_PLACES) mPlaces.erase(mPlaces.begin());
  mPlaces.push_back(place);
}

std::optional<int64_t> TJumpHistory::Back() {
  if (mPlaces.empty()) return std::nullopt;
  const int64_t place = mPlaces.back();
  mPlaces.pop_back();
  return place;
}

void TJumpHistory::Inserted(int64_t at, int64_t length) {
  for (int64_t& place : mPlaces) {
    if (place >= at) place += length;
  }
}

void TJumpHistory::Deleted(int64_t at, int64_t length) {
  for (int64_t& place : mPlaces) {
    if (place > at) place = std::max(at, place - length);
  }
}

}  // namespace zoka
