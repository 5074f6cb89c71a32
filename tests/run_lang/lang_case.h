// The files of a language test: a BASIC program and what is expected of it, found by folder. What
// running one means is not here but in lang_run.h.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zoka {

/// A program of the test tree with its sidecars, the files beside it that have its name.
///
/// Inputs: `.args` (all arguments after `zoka`, split at white space, double quotes keep blanks,
/// FILE stands for the program) and `.keys` (a text for `--type`). Expectations: `.out` `.err`
/// `.exit` `.code` `.png` `.midi`. A folder NAME.d holds data files for the program's drive.
struct TLangCase {
  /// "AREA/NAME".
  std::string name;
  std::filesystem::path program;
  /// Path of each sidecar that is present, by its extension with the dot.
  std::map<std::string, std::filesystem::path> sidecars;
  /// The data folder, or empty.
  std::filesystem::path data;
  /// What is wrong with the files themselves; such a test fails without being run.
  std::vector<std::string> problems;

  bool Has(const std::string& extension) const { return sidecars.count(extension) != 0; }
};

/// All tests below `root`, in the order of their names.
std::vector<TLangCase> find_cases(const std::filesystem::path& root);

/// The test "AREA/NAME"; nothing if there is no such program.
std::optional<TLangCase> find_case(const std::filesystem::path& root, const std::string& name);

/// Everything below `root` that belongs to no test, and all problems of the tests themselves.
std::vector<std::string> check_tree(const std::filesystem::path& root);

/// The whole content of a file; throws std::runtime_error if it cannot be read.
std::string read_file(const std::filesystem::path& path);

}  // namespace zoka
