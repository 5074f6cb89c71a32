// The pictures' shapes and colours.
#include "app/logo.h"

#include <QPainterPath>
#include <algorithm>

namespace zoka {
namespace {

constexpr QRgb CASE = 0xFFE7E1D2;
constexpr QRgb CASE_EDGE = 0xFFA79F8B;
constexpr QRgb STAND = 0xFFC9C1AD;
constexpr QRgb GLASS = 0xFF10241C;
constexpr QRgb GLASS_EDGE = 0xFF07110D;
constexpr QRgb GREEN = 0xFF59E08C;
constexpr QRgb LAMP = 0xFFE0563F;
constexpr QRgb PAPER = 0xFFFDFCF7;
constexpr QRgb PAPER_EDGE = 0xFF8A8574;
constexpr QRgb FOLD = 0xFFDDD7C6;
constexpr QRgb NUMBER = 0xFF2E8F57;
constexpr QRgb INK = 0xFF4A4A46;

/// The logo is laid out in a square of this many units.
constexpr qreal UNITS = 100;

/// A row of a program as it looks from afar: its line number and its text.
void draw_row(QPainter& painter, qreal x, qreal y, qreal height, qreal width, QRgb number,
              QRgb text) {
  const qreal numberWidth = height * 2.2;
  const qreal round = height / 2;
  painter.setBrush(QColor(number));
  painter.drawRoundedRect(QRectF(x, y, numberWidth, height), round, round);
  painter.setBrush(QColor(text));
  painter.drawRoundedRect(QRectF(x + numberWidth + height, y, width, height), round, round);
}

void draw_case(QPainter& painter) {
  painter.setPen(QPen(QColor(CASE_EDGE), 1.2));
  painter.setBrush(QColor(STAND));
  painter.drawRoundedRect(QRectF(30, 78, 40, 10), 3, 3);
  painter.drawRoundedRect(QRectF(20, 87, 60, 6), 3, 3);
  painter.setBrush(QColor(CASE));
  painter.drawRoundedRect(QRectF(6, 8, 88, 72), 7, 7);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(LAMP));
  painter.drawEllipse(QRectF(82, 72, 4, 4));
}

void draw_glass(QPainter& painter) {
  painter.setPen(QPen(QColor(GLASS_EDGE), 1.5));
  painter.setBrush(QColor(GLASS));
  painter.drawRoundedRect(QRectF(13, 15, 74, 54), 6, 6);
  painter.setPen(Qt::NoPen);
  draw_row(painter, 20, 22, 4, 36, GREEN, GREEN);
  draw_row(painter, 20, 31, 4, 26, GREEN, GREEN);
  draw_row(painter, 20, 40, 4, 42, GREEN, GREEN);
  draw_row(painter, 20, 49, 4, 18, GREEN, GREEN);
  // The cursor waits.
  painter.setBrush(QColor(GREEN));
  painter.drawRect(QRectF(20, 57, 5, 7));
}

QImage empty_image(int size) {
  QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

}  // namespace

void draw_logo(QPainter& painter, const QRectF& place) {
  const qreal size = std::min(place.width(), place.height());
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(place.center() - QPointF(size / 2, size / 2));
  painter.scale(size / UNITS, size / UNITS);
  draw_case(painter);
  draw_glass(painter);
  painter.restore();
}

QImage app_icon(int size) {
  QImage image = empty_image(size);
  QPainter painter(&image);
  draw_logo(painter, QRectF(0, 0, size, size));
  return image;
}

QImage doc_icon(int size) {
  QImage image = empty_image(size);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / UNITS, size / UNITS);
  QPainterPath sheet;
  sheet.moveTo(18, 5);
  sheet.lineTo(62, 5);
  sheet.lineTo(84, 27);
  sheet.lineTo(84, 95);
  sheet.lineTo(18, 95);
  sheet.closeSubpath();
  painter.setPen(QPen(QColor(PAPER_EDGE), 4));
  painter.setBrush(QColor(PAPER));
  painter.drawPath(sheet);
  painter.setBrush(QColor(FOLD));
  painter.drawPolygon(QPolygonF({QPointF(62, 5), QPointF(62, 27), QPointF(84, 27)}));
  painter.setPen(Qt::NoPen);
  draw_row(painter, 26, 38, 7, 22, NUMBER, INK);
  draw_row(painter, 26, 53, 7, 16, NUMBER, INK);
  draw_row(painter, 26, 68, 7, 26, NUMBER, INK);
  return image;
}

}  // namespace zoka
