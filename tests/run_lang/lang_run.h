// Runs one language test and says how it differs from what is expected of it.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/run_lang/lang_case.h"

namespace zoka {

/// Runs the test through the console tool at `zoka` and returns one text for each difference;
/// none means that it passed. The program runs in a folder of its own, which is drive 1.
///
/// Without `.args` the command is `run NAME.bas --lang keys --no-wait --config none --timeout 60`.
/// `.keys`, `.png` and `.midi` add `--type`, `--screenshot` and `--midi` to it. Standard output is
/// compared if there is `.out`. Standard error must be as in `.err`, and without it empty, unless a
/// status other than 0 is expected. `.code` is compared with the output of `zoka code NAME.bas`;
/// where it is the only expectation, the program is not run.
std::vector<std::string> run_case(const TLangCase& test, const std::filesystem::path& zoka);

/// The arguments in the text of an `.args` file; `program` replaces the word FILE.
std::vector<std::string> split_arguments(const std::string& text, const std::string& program);

/// The first difference of two texts in words, or an empty text.
std::string compare_texts(const std::string& expected, const std::string& actual);

/// The first differing pixel of two PNG files in words, or an empty text.
std::string compare_pictures(const std::filesystem::path& expected,
                             const std::filesystem::path& actual);

}  // namespace zoka
