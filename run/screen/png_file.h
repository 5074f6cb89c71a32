// Screenshots: PNG files of the simulated screen. Nothing reads them back.
#pragma once

#include <string>

#include "run/screen/compose.h"

namespace zoka {

/// Writes 640 by 400 pixels without alpha. False if the file can't be written, also when only its
/// last bytes could not.
bool write_png(const std::string& path, const TFrameBuffer& frame);

}  // namespace zoka
