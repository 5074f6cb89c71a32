// Images of the debug window: its tool bar's and the marks of the source. They are drawn, so that
// they are sharp at each size and have the colours of the theme.
#pragma once

#include <QIcon>
#include <QPainter>
#include <QPalette>

namespace zoka {

/// The image of that name ("ImgRun", "ImgPause", "ImgStepOver", "ImgStepIn", "ImgStepOut",
/// "ImgKill"); a null icon for any other.
QIcon GetBitmap(const char* name, const QPalette& palette);

/// The breakpoint's mark in a square; one with a condition or a count is an open ring.
void draw_break_point(QPainter& painter, const QRectF& place, const QColor& colour, bool hasRule);
/// The arrow at the line where the program stands.
void draw_break_arrow(QPainter& painter, const QRectF& place, const QColor& colour);

}  // namespace zoka
