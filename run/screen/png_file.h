// PNG files of the simulated screen: writing screenshots, reading pictures to compare with.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "run/screen/compose.h"

namespace zoka {

/// Writes 640 by 400 pixels without alpha. False if the file can't be written, also when only its
/// last bytes could not.
bool write_png(const std::string& path, const TFrameBuffer& frame);

/// A picture as 0xFFRRGGBB, row by row.
struct TPicture {
  int32_t width = 0;
  int32_t height = 0;
  std::vector<uint32_t> pixels;
};

/// Reads any PNG file; false if it is missing or damaged.
bool read_png(const std::string& path, TPicture* picture);

}  // namespace zoka
