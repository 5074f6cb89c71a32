// PNG by libpng's simple interface.
#include "run/screen/png_file.h"

#include <png.h>

#include <cstdint>
#include <cstdio>
#include <vector>

namespace zoka {

namespace {

std::vector<uint8_t> rgb_bytes(const TFrameBuffer& frame) {
  std::vector<uint8_t> bytes;
  for (int32_t y = 0; y < SCREEN_HEIGHT; ++y) {
    for (int32_t x = 0; x < SCREEN_WIDTH; ++x) {
      const uint32_t pixel = frame.Row(y)[x];
      for (int shift : {16, 8, 0}) bytes.push_back(static_cast<uint8_t>(pixel >> shift));
    }
  }
  return bytes;
}

}  // namespace

bool write_png(const std::string& path, const TFrameBuffer& frame) {
  std::FILE* file = std::fopen(path.c_str(), "wbe");
  if (!file) return false;
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  image.width = SCREEN_WIDTH;
  image.height = SCREEN_HEIGHT;
  image.format = PNG_FORMAT_RGB;
  const std::vector<uint8_t> bytes = rgb_bytes(frame);
  const bool written = png_image_write_to_stdio(&image, file, 0, bytes.data(), 0, nullptr) != 0;
  png_image_free(&image);
  // A full disk may show only now.
  return (std::fclose(file) == 0) && written;
}

}  // namespace zoka
