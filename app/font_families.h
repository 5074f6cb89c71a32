// Which font families of the system are offered where columns must stand under each other.
#pragma once

#include <QStringList>

namespace zoka {

/// The families whose Latin characters are all of one width, sorted, with names that the
/// preferences can hold. Japanese families rarely call themselves fixed, so widths are measured.
/// Window thread; measured once a process.
const QStringList& fixed_pitch_families();

}  // namespace zoka
