// Places on the user's screens, of which there may be several: where a window that is to stand
// somewhere has room. What windows do about it is TBasicWindow's.
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

#include "common/types.h"

namespace zoka {

class TBasicWindow;

/// The area that `window` lies on, most of it if there are several, or else the one next to it.
/// `areas` is not empty.
QRect nearest_area(const QRect& window, const QList<QRect>& areas);
/// The part of that screen which windows may have.
QRect screen_area_of(const QRect& window);

/// The upper left corner of a stored frame, of which anything may have become.
QPoint corner_of(const TFrame& frame);
/// Gives a window the place and the size of a stored frame, as far as its screen has room. In place
/// of the size of `untouched`, which no user has ever set, it gets `first`.
void take_frame(TBasicWindow& window, const TFrame& frame, const TFrame& untouched, QSize first);

}  // namespace zoka
