// PNG by libpng's simple interface.
#include "run/screen/png_file.h"

#include <png.h>

#include <cstdio>
#include <cstring>

namespace zoka {

namespace {

constexpr size_t RGB_BYTES = 3;

png_image new_image(png_uint_32 width, png_uint_32 height) {
  png_image image;
  std::memset(&image, 0, sizeof image);
  image.version = PNG_IMAGE_VERSION;
  image.width = width;
  image.height = height;
  image.format = PNG_FORMAT_RGB;
  return image;
}

std::vector<uint8_t> rgb_bytes(const TFrameBuffer& frame) {
  std::vector<uint8_t> bytes;
  bytes.reserve(static_cast<size_t>(SCREEN_WIDTH) * SCREEN_HEIGHT * RGB_BYTES);
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
  png_image image = new_image(SCREEN_WIDTH, SCREEN_HEIGHT);
  const std::vector<uint8_t> bytes = rgb_bytes(frame);
  const bool written = png_image_write_to_stdio(&image, file, 0, bytes.data(), 0, nullptr) != 0;
  png_image_free(&image);
  // A full disk may show only now.
  return (std::fclose(file) == 0) && written;
}

bool read_png(const std::string& path, TPicture* picture) {
  png_image image = new_image(0, 0);
  if (!png_image_begin_read_from_file(&image, path.c_str())) return false;
  image.format = PNG_FORMAT_RGB;
  std::vector<uint8_t> bytes(PNG_IMAGE_SIZE(image));
  const bool isRead = png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr) != 0;
  png_image_free(&image);
  if (!isRead) return false;
  picture->width = static_cast<int32_t>(image.width);
  picture->height = static_cast<int32_t>(image.height);
  picture->pixels.clear();
  for (size_t i = 0; i < bytes.size(); i += RGB_BYTES) {
    const uint32_t red = bytes[i], green = bytes[i + 1], blue = bytes[i + 2];
    picture->pixels.push_back(0xFF000000 | red << 16 | green << 8 | blue);
  }
  return true;
}

}  // namespace zoka
