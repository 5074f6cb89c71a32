// Finds the language tests of a tree and judges their files.
#include "tests/run_lang/lang_case.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>

namespace zoka {

namespace fs = std::filesystem;

namespace {

const std::set<std::string> INPUTS = {".args", ".keys"};
const std::set<std::string> EXPECTATIONS = {".out", ".err", ".exit", ".code", ".png", ".midi"};
const char PROGRAM_EXTENSION[] = ".bas";
const char DATA_EXTENSION[] = ".d";

/// A file name up to its first dot.
std::string test_name_of(const fs::path& path) {
  const std::string file = path.filename().string();
  return file.substr(0, file.find('.'));
}

/// A file name from its first dot on.
std::string extension_of(const fs::path& path) {
  const std::string file = path.filename().string();
  const size_t dot = file.find('.');
  return dot == std::string::npos ? "" : file.substr(dot);
}

/// What lies in a folder, by name; nothing if there is no such folder.
std::vector<fs::path> sorted_entries(const fs::path& folder) {
  std::vector<fs::path> entries;
  if (!fs::exists(folder)) {
    return entries;
  }
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    entries.push_back(entry.path());
  }
  std::sort(entries.begin(), entries.end());
  return entries;
}

void add_sidecar(TLangCase& test, const fs::path& path) {
  const std::string extension = extension_of(path);
  if (extension == PROGRAM_EXTENSION) {
    return;
  }
  if (extension == DATA_EXTENSION && fs::is_directory(path)) {
    test.data = path;
  } else if (INPUTS.count(extension) != 0 || EXPECTATIONS.count(extension) != 0) {
    test.sidecars[extension] = path;
  } else {
    test.problems.push_back("unknown sidecar " + path.filename().string());
  }
}

TLangCase load_case(const fs::path& program) {
  TLangCase test;
  const std::string stem = test_name_of(program);
  test.name = program.parent_path().filename().string() + "/" + stem;
  test.program = program;
  for (const fs::path& path : sorted_entries(program.parent_path())) {
    if (test_name_of(path) == stem) {
      add_sidecar(test, path);
    }
  }
  const bool expects = std::any_of(EXPECTATIONS.begin(), EXPECTATIONS.end(),
                                   [&](const std::string& name) { return test.Has(name); });
  if (!expects) {
    test.problems.push_back("nothing is expected of this program");
  }
  return test;
}

/// True for the file names that belong to a program of the same folder.
bool has_program(const fs::path& path) {
  return fs::exists(path.parent_path() / (test_name_of(path) + PROGRAM_EXTENSION));
}

void check_area(const fs::path& area, std::vector<std::string>& problems) {
  for (const fs::path& path : sorted_entries(area)) {
    if (!has_program(path)) {
      problems.push_back(path.string() + ": belongs to no program");
    } else if (extension_of(path) == PROGRAM_EXTENSION) {
      const TLangCase test = load_case(path);
      for (const std::string& problem : test.problems) {
        problems.push_back(test.name + ": " + problem);
      }
    }
  }
}

}  // namespace

std::vector<TLangCase> find_cases(const fs::path& root) {
  std::vector<TLangCase> cases;
  for (const fs::path& area : sorted_entries(root)) {
    if (!fs::is_directory(area)) {
      continue;
    }
    for (const fs::path& path : sorted_entries(area)) {
      if (extension_of(path) == PROGRAM_EXTENSION) {
        cases.push_back(load_case(path));
      }
    }
  }
  return cases;
}

std::optional<TLangCase> find_case(const fs::path& root, const std::string& name) {
  const fs::path program = root / (name + PROGRAM_EXTENSION);
  if (!fs::exists(program)) {
    return std::nullopt;
  }
  return load_case(program);
}

std::vector<std::string> check_tree(const fs::path& root) {
  std::vector<std::string> problems;
  for (const fs::path& area : sorted_entries(root)) {
    if (fs::is_directory(area)) {
      check_area(area, problems);
    } else {
      problems.push_back(area.string() + ": lies outside the areas");
    }
  }
  return problems;
}

std::string read_file(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  if (!stream) {
    throw std::runtime_error("cannot read " + path.string());
  }
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace zoka
