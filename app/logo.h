// The application's pictures, drawn and not loaded: a screen of the 1980s with a prompt, for the
// splash window, the About window and icons.
#pragma once

#include <QImage>
#include <QPainter>
#include <QRectF>

namespace zoka {

/// Draws the logo, a screen on its stand, as large as fits into the middle of `place`.
void draw_logo(QPainter& painter, const QRectF& place);

/// The icons of the application and of lists, `size` pixels wide and high.
QImage app_icon(int size);
QImage doc_icon(int size);

}  // namespace zoka
