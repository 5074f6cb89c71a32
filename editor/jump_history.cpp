// A stack of places.
#include "editor/jump_history.h"

namespace zoka {

void TJumpHistory::Leave(const TListPlace& place) {
  if (!mPlaces.empty() && mPlaces.back() == place) return;
  if (mPlaces.size() == MAX_PLACES) mPlaces.erase(mPlaces.begin());
  mPlaces.push_back(place);
}

std::optional<TListPlace> TJumpHistory::Back() {
  if (mPlaces.empty()) return std::nullopt;
  const TListPlace place = mPlaces.back();
  mPlaces.pop_back();
  return place;
}

void TJumpHistory::LinesReplaced(int64_t first, int64_t removed, int64_t added) {
  for (TListPlace& place : mPlaces) {
    if (place.line >= first + removed) {
      place.line += added - removed;
    } else if (place.line >= first + added) {
      // Its own line is gone.
      place = {first, 0};
    }
  }
}

}  // namespace zoka
