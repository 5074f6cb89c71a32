// TMouseState: the mouse as a program sees it. The window's thread writes, the machine's thread
// reads; counters are atomic, so that no click is lost or counted twice.
#pragma once

#include <atomic>
#include <cstdint>

#include "common/types.h"

namespace zoka {

/// What a program can ask about the mouse. Of each kind of click: how many since the last look, and
/// where the last one was.
enum class TMouseRead : uint8_t {
  PosX,
  PosY,
  DistanceX,
  DistanceY,
  LeftState,
  RightState,
  LeftDowns,
  LeftDownX,
  LeftDownY,
  LeftUps,
  LeftUpX,
  LeftUpY,
  RightDowns,
  RightDownX,
  RightDownY,
  RightUps,
  RightUpX,
  RightUpY,
};

class TMouseState {
 public:
  /// Writers. `grphYScale` divides the row of the current position; the points of button events
  /// stay in device rows (this is meant).
  void SetMousePosCurrent(TPoint point, int grphYScale);
  void SetMouseButtonLeftState(int32_t state, TPoint point);
  void SetMouseButtonRightState(int32_t state, TPoint point);

  /// The reader: looks, and takes what a look uses up.
  int32_t Read(TMouseRead what);

  int32_t MousePosCurrentX();
  int32_t MousePosCurrentY();
  int32_t MouseDistanceX();
  int32_t MouseDistanceY();
  int32_t MouseButtonLeftState() const { return mLeftState.load(); }
  int32_t MouseButtonRightState() const { return mRightState.load(); }

  /// Stores the range, sorted.
  void SetMouseRangeX(int32_t a, int32_t b);
  void SetMouseRangeY(int32_t a, int32_t b);
  void SetMouseMaxY(int32_t maxY) { mMaxY = maxY; }

 private:
  /// A button event's counter and place.
  struct TClicks {
    std::atomic<int32_t> count{0};
    std::atomic<float> x{0};
    std::atomic<float> y{0};
    void Add(TPoint point);
    /// Reads the counter and takes what was read off it.
    int32_t Take() { return count.exchange(0); }
  };
  TClicks mLeftDowns, mLeftUps, mRightDowns, mRightUps;

  std::atomic<int32_t> mMaxX{639}, mMinX{0}, mMaxY{399}, mMinY{0};
  std::atomic<int32_t> mLeftState{0}, mRightState{0};
  std::atomic<float> mX{0}, mY{0};
  int32_t mLastReadX = 0, mLastReadY = 0;
};

}  // namespace zoka
