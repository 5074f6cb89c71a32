// TJumpHistory: where the cursor came from when it followed jumps, so that it can go back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace zoka {

/// Places are bytes of the text; they keep to their characters when text comes and goes in front of
/// them. One thread.
class TJumpHistory {
 public:
  /// Older places than so many are forgotten.
  static constexpr size_t MAX_PLACES = 100;

  /// The cursor leaves `place` for the target of a jump.
  void Leave(int64_t place);
  /// The last place that was left, which is forgotten with this; none if there is none.
  std::optional<int64_t> Back();
  bool IsEmpty() const { return mPlaces.empty(); }
  void Clear() { mPlaces.clear(); }
  /// So many bytes at `at` were put in, or taken out.
  void Inserted(int64_t at, int64_t length);
  void Deleted(int64_t at, int64_t length);

 private:
  std::vector<int64_t> mPlaces;
};

}  // namespace zoka
