// Fuzz target: arbitrary bytes as a program list, compiled and run for a bounded time with two
// lines of keys and an empty folder in drive 1.
#include <cctype>
#include <filesystem>
#include <string>

#include "tests/fuzz/fuzz_engine.h"

namespace {

using namespace zoka;

bool is_octal_digit(char c) {
  return c >= '0' && c <= '7';
}

/// Octal numbers that the compiler reads without end, until it is cancelled, lose their "&".
void end_octal_numbers(std::string* text) {
  for (size_t i = 0; i + 2 < text->size(); ++i) {
    const char first = (*text)[i + 1];
    const bool isOctal = first == 'O' || first == 'o' || (first >= '0' && first <= '9');
    if ((*text)[i] == '&' && isOctal && is_octal_digit((*text)[i + 2])) (*text)[i] = ' ';
  }
}

/// A folder of this process, emptied for each input.
class TScratchFolder {
 public:
  TScratchFolder() {
    std::string pattern = std::filesystem::temp_directory_path() / "zoka_fuzz_XXXXXX";
    require(mkdtemp(pattern.data()) != nullptr);
    mPath = pattern;
  }
  ~TScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(mPath, ignored);
  }
  const std::string& Emptied() {
    for (const auto& entry : std::filesystem::directory_iterator(mPath)) {
      std::filesystem::remove_all(entry.path());
    }
    return mPath;
  }

 private:
  std::string mPath;
};

std::deque<TFeedItem> two_lines() {
  std::deque<TFeedItem> keys;
  std::string error;
  require(parse_key_text("1,\xE3\x82\xA2{LEFT}\\rA{DEL}\\r", &keys, &error));
  return keys;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static TScratchFolder folder;
  std::string list(reinterpret_cast<const char*>(data), size);
  end_octal_numbers(&list);
  TFuzzEngine engine;
  engine.View().SetDriveFolder(0, folder.Emptied());
  engine.Type(two_lines());
  engine.RunList(std::move(list), ENCODING_UTF8);
  return 0;
}
