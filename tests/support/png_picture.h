// Reads PNG files for tests. It knows nothing of the engine, whose pictures it is to judge.
#pragma once

#include <png.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace zoka {

/// A picture as 0xFFRRGGBB, row by row.
struct TPicture {
  size_t width = 0;
  size_t height = 0;
  std::vector<uint32_t> pixels;
};

/// Throws std::runtime_error, with the file's name, if it is missing or damaged.
inline TPicture read_picture(const std::string& path) {
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  std::vector<png_byte> bytes;
  bool isRead = png_image_begin_read_from_file(&image, path.c_str()) != 0;
  if (isRead) {
    image.format = PNG_FORMAT_RGB;
    bytes.resize(PNG_IMAGE_SIZE(image));
    isRead = png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr) != 0;
  }
  if (!isRead) throw std::runtime_error(path + ": " + image.message);
  TPicture picture = {image.width, image.height, {}};
  for (size_t i = 0; i < bytes.size(); i += 3) {
    const uint32_t red = bytes[i], green = bytes[i + 1], blue = bytes[i + 2];
    picture.pixels.push_back(0xFF000000 | red << 16 | green << 8 | blue);
  }
  return picture;
}

}  // namespace zoka
