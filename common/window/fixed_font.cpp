// Looking a family up.
#include "common/window/fixed_font.h"

#include <QFontDatabase>
#include <QFontInfo>

#include "app/settings/prefs.h"

namespace zoka {

QString present_fixed_family(const std::string& family) {
  for (const std::string& name : {family, std::string(DEFAULT_EDIT_FONT)}) {
    QString wanted = QString::fromStdString(name);
    if (QFontDatabase::hasFamily(wanted)) return wanted;
  }
  return QFontInfo(QFontDatabase::systemFont(QFontDatabase::FixedFont)).family();
}

}  // namespace zoka
