// Finding fixed-pitch families.
#include "app/font_families.h"

#include <QFontDatabase>
#include <QFontMetricsF>

#include "app/settings/prefs.h"

namespace zoka {
namespace {

constexpr int MEASURED_PIXELS = 16;

bool has_one_width(const QString& family) {
  QFont font(family);
  font.setPixelSize(MEASURED_PIXELS);
  const QFontMetricsF metrics(font);
  const qreal narrow = metrics.horizontalAdvance('i');
  return narrow > 0 && narrow == metrics.horizontalAdvance('W') &&
         narrow == metrics.horizontalAdvance('.');
}

bool is_offered(const QString& family) {
  if (static_cast<size_t>(family.toUtf8().size()) > MAX_FONT_FAMILY) return false;
  if (QFontDatabase::isPrivateFamily(family)) return false;
  if (QFontDatabase::isFixedPitch(family)) return true;
  return QFontDatabase::writingSystems(family).contains(QFontDatabase::Latin) &&
         has_one_width(family);
}

QStringList find_families() {
  QStringList found;
  for (const QString& family : QFontDatabase::families()) {
    if (is_offered(family)) found << family;
  }
  return found;
}

}  // namespace

const QStringList& fixed_pitch_families() {
  static const QStringList families = find_families();
  return families;
}

}  // namespace zoka
