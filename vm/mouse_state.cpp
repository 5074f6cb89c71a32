// The mouse's state: rounding, the range, and the counters of clicks.
#include "vm/mouse_state.h"

#include <algorithm>
#include <utility>

#include "vm/stack_data.h"

namespace zoka {
namespace {

int32_t rounded(const std::atomic<float>& position) {
  return round_off(static_cast<double>(position.load()));
}

/// Wraps: a program may set any range.
int32_t distance(int32_t now, int32_t before) {
  return static_cast<int32_t>(static_cast<uint32_t>(now) - static_cast<uint32_t>(before));
}

}  // namespace

void TMouseState::TClicks::Add(TPoint point) {
  x.store(point.x);
  y.store(point.y);
  count.fetch_add(1);
}

void TMouseState::SetMousePosCurrent(TPoint point, int grphYScale) {
  mX.store(point.x);
  mY.store(point.y / static_cast<float>(grphYScale));
}

void TMouseState::SetMouseButtonLeftState(int32_t state, TPoint point) {
  mLeftState.store(state);
  (state == -1 ? mLeftDowns : mLeftUps).Add(point);
}

void TMouseState::SetMouseButtonRightState(int32_t state, TPoint point) {
  mRightState.store(state);
  (state == -1 ? mRightDowns : mRightUps).Add(point);
}

int32_t TMouseState::MousePosCurrentX() {
  return std::clamp(rounded(mX), mMinX.load(), mMaxX.load());
}

int32_t TMouseState::MousePosCurrentY() {
  // SCREEN may have put the lower edge above the range's upper one.
  const int32_t maxY = mMaxY.load();
  return std::clamp(rounded(mY), std::min(mMinY.load(), maxY), maxY);
}

int32_t TMouseState::MouseDistanceX() {
  const int32_t now = MousePosCurrentX();
  return distance(now, std::exchange(mLastReadX, now));
}

int32_t TMouseState::MouseDistanceY() {
  const int32_t now = MousePosCurrentY();
  return distance(now, std::exchange(mLastReadY, now));
}

int32_t TMouseState::Read(TMouseRead what) {
  switch (what) {
    case TMouseRead::PosX:
      return MousePosCurrentX();
    case TMouseRead::PosY:
      return MousePosCurrentY();
    case TMouseRead::DistanceX:
      return MouseDistanceX();
    case TMouseRead::DistanceY:
      return MouseDistanceY();
    case TMouseRead::LeftState:
      return MouseButtonLeftState();
    case TMouseRead::RightState:
      return MouseButtonRightState();
    case TMouseRead::LeftDowns:
      return mLeftDowns.Take();
    case TMouseRead::LeftDownX:
      return rounded(mLeftDowns.x);
    case TMouseRead::LeftDownY:
      return rounded(mLeftDowns.y);
    case TMouseRead::LeftUps:
      return mLeftUps.Take();
    case TMouseRead::LeftUpX:
      return rounded(mLeftUps.x);
    case TMouseRead::LeftUpY:
      return rounded(mLeftUps.y);
    case TMouseRead::RightDowns:
      return mRightDowns.Take();
    case TMouseRead::RightDownX:
      return rounded(mRightDowns.x);
    case TMouseRead::RightDownY:
      return rounded(mRightDowns.y);
    case TMouseRead::RightUps:
      return mRightUps.Take();
    case TMouseRead::RightUpX:
      return rounded(mRightUps.x);
    case TMouseRead::RightUpY:
      return rounded(mRightUps.y);
  }
  return 0;
}

void TMouseState::SetMouseRangeX(int32_t a, int32_t b) {
  mMinX.store(std::min(a, b));
  mMaxX.store(std::max(a, b));
}

void TMouseState::SetMouseRangeY(int32_t a, int32_t b) {
  mMinY.store(std::min(a, b));
  mMaxY.store(std::max(a, b));
}

}  // namespace zoka
