// Comparisons of texts and pictures that end in a sentence for people.
#include <png.h>

#include <cstdio>
#include <stdexcept>

#include "tests/run_lang/lang_run.h"

namespace zoka {

namespace {

/// A line with its control characters made visible.
std::string visible(const std::string& line) {
  std::string text;
  for (const char character : line) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte >= ' ' && byte != 0x7F) {
      text += character;
    } else {
      char code[8];
      std::snprintf(code, sizeof code, "\\x%02X", unsigned{byte});
      text += code;
    }
  }
  return text;
}

/// The line that begins at `pos`, or a word for the end of the text. Moves `pos` behind it.
std::string next_line(const std::string& text, size_t& pos) {
  if (pos >= text.size()) {
    return "(end)";
  }
  const size_t end = text.find('\n', pos);
  const bool complete = end != std::string::npos;
  const std::string line = text.substr(pos, complete ? end - pos : end);
  pos = complete ? end + 1 : text.size();
  return '|' + visible(line) + (complete ? "|" : "| without a line end");
}

struct TPicture {
  png_uint_32 width = 0;
  png_uint_32 height = 0;
  std::vector<png_byte> rgb;
};

TPicture read_picture(const std::filesystem::path& path) {
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_file(&image, path.c_str()) == 0) {
    throw std::runtime_error(path.string() + ": " + image.message);
  }
  image.format = PNG_FORMAT_RGB;
  TPicture picture = {image.width, image.height, std::vector<png_byte>(PNG_IMAGE_SIZE(image))};
  if (png_image_finish_read(&image, nullptr, picture.rgb.data(), 0, nullptr) == 0) {
    throw std::runtime_error(path.string() + ": " + image.message);
  }
  return picture;
}

std::string describe_pixel(const TPicture& expected, const TPicture& actual, size_t pixel) {
  const png_byte* want = &expected.rgb[pixel * 3];
  const png_byte* have = &actual.rgb[pixel * 3];
  char text[96];
  std::snprintf(text, sizeof text, "pixel %zu,%zu: expected #%02X%02X%02X, is #%02X%02X%02X",
                pixel % expected.width, pixel / expected.width, unsigned{want[0]},
                unsigned{want[1]}, unsigned{want[2]}, unsigned{have[0]}, unsigned{have[1]},
                unsigned{have[2]});
  return text;
}

}  // namespace

std::string compare_texts(const std::string& expected, const std::string& actual) {
  if (expected == actual) {
    return "";
  }
  size_t expectedPos = 0;
  size_t actualPos = 0;
  for (int line = 1;; ++line) {
    const std::string want = next_line(expected, expectedPos);
    const std::string have = next_line(actual, actualPos);
    if (want != have) {
      return "line " + std::to_string(line) + "\n  expected " + want + "\n  is       " + have;
    }
  }
}

std::string compare_pictures(const std::filesystem::path& expected,
                             const std::filesystem::path& actual) {
  const TPicture want = read_picture(expected);
  const TPicture have = read_picture(actual);
  if (want.width != have.width || want.height != have.height) {
    return "expected " + std::to_string(want.width) + " by " + std::to_string(want.height) +
           " pixels, is " + std::to_string(have.width) + " by " + std::to_string(have.height);
  }
  for (size_t pixel = 0; pixel < want.rgb.size() / 3; ++pixel) {
    if (!std::equal(&want.rgb[pixel * 3], &want.rgb[pixel * 3] + 3, &have.rgb[pixel * 3])) {
      return describe_pixel(want, have, pixel);
    }
  }
  return "";
}

}  // namespace zoka
