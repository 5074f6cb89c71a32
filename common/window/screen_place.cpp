// Finding the screen of a place.
#include "common/window/screen_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "common/window/basic_window.h"

namespace zoka {
namespace {

/// No window stands farther from the screen's corner than this many pixels, or is larger.
constexpr float FAR = 1e6F;

/// Pixels between two spans; 0 where they overlap.
int64_t distance(int low, int high, int otherLow, int otherHigh) {
  return std::max({int64_t{0}, int64_t{otherLow} - high, int64_t{low} - otherHigh});
}

QSize size_of(const TFrame& frame) {
  const auto pixels = [](float v) { return static_cast<int>(std::clamp(v, 0.0F, FAR)); };
  return {pixels(frame.right - frame.left), pixels(frame.bottom - frame.top)};
}

}  // namespace

QRect nearest_area(const QRect& window, const QList<QRect>& areas) {
  // Of those that are equally near the one with most of the window, which are those it lies on.
  const auto rank = [&window](const QRect& area) {
    const int64_t x = distance(window.left(), window.right(), area.left(), area.right());
    const int64_t y = distance(window.top(), window.bottom(), area.top(), area.bottom());
    const QRect common = window.intersected(area);
    return std::pair(x + y, -int64_t{common.width()} * common.height());
  };
  return *std::ranges::min_element(areas, {}, rank);
}

QRect screen_area_of(const QRect& window) {
  QList<QRect> areas;
  for (const QScreen* screen : QGuiApplication::screens()) areas << screen->availableGeometry();
  return areas.empty() ? QRect() : nearest_area(window, areas);
}

QPoint corner_of(const TFrame& frame) {
  const auto pixel = [](float v) { return static_cast<int>(std::clamp(v, -FAR, FAR)); };
  return {pixel(frame.left), pixel(frame.top)};
}

void take_frame(TBasicWindow& window, const TFrame& frame, const TFrame& untouched, QSize first) {
  const QSize size = frame == untouched ? first : size_of(frame);
  window.resize(size.boundedTo(screen_area_of(QRect(corner_of(frame), size)).size()));
  window.MoveToFrame(frame);
}

}  // namespace zoka
