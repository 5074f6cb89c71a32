// TJumpHistory: where the cursor came from when it followed jumps, so that it can go back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace zoka {

/// A place in the list: a line from 0, and a byte in it.
struct TListPlace {
  int64_t line = 0;
  int64_t column = 0;
  bool operator==(const TListPlace&) const = default;
};

/// Places are kept up when lines come and go above them. One thread.
class TJumpHistory {
 public:
  /// Older places than so many are forgotten.
  static constexpr size_t MAX_PLACES = 100;

  /// The cursor leaves `place` for the target of a jump.
  void Leave(const TListPlace& place);
  /// The last place that was left, which is forgotten with this; none if there is none.
  std::optional<TListPlace> Back();
  bool IsEmpty() const { return mPlaces.empty(); }
  void Clear() { mPlaces.clear(); }
  /// `removed` lines from `first` on have become `added`.
  void LinesReplaced(int64_t first, int64_t removed, int64_t added);

 private:
  std::vector<TListPlace> mPlaces;
};

}  // namespace zoka
