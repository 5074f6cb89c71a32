// Drawing the images, on a grid of 16 by 16.
#include "debugger/window/debug_images.h"

#include <QPainterPath>
#include <cstring>

#include "debugger/window/row_view.h"

namespace zoka {
namespace {

constexpr int GRID = 16;
/// Sizes in pixels of which an icon has a picture.
constexpr int SIZES[] = {16, 20, 24, 32, 48};

constexpr QRgb GO_COLOUR = 0xFF2E8B3D;
constexpr QRgb KILL_COLOUR = 0xFFC83228;
constexpr QRgb KILL_COLOUR_DARK = 0xFFF0685C;
constexpr QRgb GO_COLOUR_DARK = 0xFF66C878;

void polygon(QPainter& painter, std::initializer_list<QPointF> points) {
  painter.drawPolygon(points.begin(), static_cast<int>(points.size()));
}

/// An arrow's head that points to `tip`, along x or y.
void head(QPainter& painter, QPointF tip, QPointF back) {
  const QPointF along = back - tip;
  const QPointF across(-along.y(), along.x());
  polygon(painter, {tip, back + across * 0.8, back - across * 0.8});
}

void dot(QPainter& painter, QPointF centre) {
  painter.drawEllipse(centre, 2.2, 2.2);
}

void line_of(QPainter& painter, const QPainterPath& path) {
  painter.strokePath(path, QPen(painter.pen().color(), 1.8, Qt::SolidLine, Qt::FlatCap));
}

void draw_run(QPainter& painter) {
  polygon(painter, {{4, 2.5}, {13, 8}, {4, 13.5}});
}

void draw_pause(QPainter& painter) {
  painter.drawRect(QRectF(3.5, 3, 3.2, 10));
  painter.drawRect(QRectF(9.3, 3, 3.2, 10));
}

void draw_kill(QPainter& painter) {
  painter.drawRect(QRectF(3.5, 3.5, 9, 9));
}

void draw_step_over(QPainter& painter) {
  QPainterPath path(QPointF(2, 9));
  path.cubicTo(3, 2, 11, 2, 12.5, 6.5);
  line_of(painter, path);
  head(painter, {13.4, 10}, {12.2, 5.8});
  dot(painter, {7.5, 12.3});
}

void draw_step_in(QPainter& painter) {
  QPainterPath path(QPointF(8, 1.5));
  path.lineTo(8, 5.5);
  line_of(painter, path);
  head(painter, {8, 9.3}, {8, 4.9});
  dot(painter, {8, 12.6});
}

void draw_step_out(QPainter& painter) {
  QPainterPath path(QPointF(8, 9.3));
  path.lineTo(8, 5);
  line_of(painter, path);
  head(painter, {8, 1.2}, {8, 5.6});
  dot(painter, {8, 12.6});
}

struct TImage {
  const char* name;
  void (*draw)(QPainter&);
  QRgb colour;  // 0: the text's
  QRgb colourOnDark;
};

constexpr TImage IMAGES[] = {
    {"ImgRun", draw_run, GO_COLOUR, GO_COLOUR_DARK},
    {"ImgPause", draw_pause, 0, 0},
    {"ImgStepOver", draw_step_over, 0, 0},
    {"ImgStepIn", draw_step_in, 0, 0},
    {"ImgStepOut", draw_step_out, 0, 0},
    {"ImgKill", draw_kill, KILL_COLOUR, KILL_COLOUR_DARK},
};

QPixmap picture(const TImage& image, int size, const QColor& colour) {
  QPixmap pixmap(size, size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / static_cast<qreal>(GRID), size / static_cast<qreal>(GRID));
  painter.setBrush(colour);
  painter.setPen(QPen(colour, 0.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  image.draw(painter);
  return pixmap;
}

}  // namespace

QIcon GetBitmap(const char* name, const QPalette& palette) {
  const bool dark = is_dark(palette.color(QPalette::Button));
  QIcon icon;
  for (const TImage& image : IMAGES) {
    if (std::strcmp(image.name, name) != 0) continue;
    QColor colour = palette.color(QPalette::ButtonText);
    if (image.colour != 0) colour = QColor::fromRgb(dark ? image.colourOnDark : image.colour);
    const QColor faint = palette.color(QPalette::Disabled, QPalette::ButtonText);
    for (const int size : SIZES) {
      icon.addPixmap(picture(image, size, colour));
      icon.addPixmap(picture(image, size, faint), QIcon::Disabled);
    }
  }
  return icon;
}

void draw_break_point(QPainter& painter, const QRectF& place, const QColor& colour, bool hasRule) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const qreal thickness = place.width() / 5;
  painter.setPen(QPen(colour, thickness));
  painter.setBrush(hasRule ? QBrush(Qt::NoBrush) : QBrush(colour));
  painter.drawEllipse(place.adjusted(thickness / 2, thickness / 2, -thickness / 2, -thickness / 2));
  painter.restore();
}

void draw_break_arrow(QPainter& painter, const QRectF& place, const QColor& colour) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  const qreal middle = place.center().y();
  polygon(painter, {{place.left(), middle - place.height() / 6},
                    {place.center().x(), middle - place.height() / 6},
                    {place.center().x(), place.top()},
                    {place.right(), middle},
                    {place.center().x(), place.bottom()},
                    {place.center().x(), middle + place.height() / 6},
                    {place.left(), middle + place.height() / 6}});
  painter.restore();
}

}  // namespace zoka
