// Comparisons of texts and pictures that end in a sentence for people.
#include <cstdio>

#include "tests/run_lang/lang_run.h"
#include "tests/support/png_picture.h"

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

std::string describe_pixel(const TPicture& expected, const TPicture& actual, size_t pixel) {
  char text[96];
  std::snprintf(text, sizeof text, "pixel %zu,%zu: expected #%06X, is #%06X",
                pixel % expected.width, pixel / expected.width,
                unsigned{expected.pixels[pixel] & 0xFFFFFF},
                unsigned{actual.pixels[pixel] & 0xFFFFFF});
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
  for (size_t pixel = 0; pixel < want.pixels.size(); ++pixel) {
    if (want.pixels[pixel] != have.pixels[pixel]) return describe_pixel(want, have, pixel);
  }
  return "";
}

}  // namespace zoka
