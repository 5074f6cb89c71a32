// The language test runner's command line: which tests, how many at once, and what is said of them.
// It writes no expectations, on purpose: these are worked out by people.
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "tests/run_lang/lang_run.h"

namespace {

const char USAGE[] =
    "run_lang [OPTION...] TREE [FILTER]   run the tests of TREE whose name contains FILTER\n"
    "  --zoka PATH        the console tool under test\n"
    "  --exact AREA/NAME  this test only\n"
    "  --jobs N           tests at once (the number of processors)\n"
    "  --stop             start no more tests after one that failed\n"
    "  --check-tree       run nothing; report files that belong to no test\n";

struct TOptions {
  std::string zoka;
  std::string exact;
  unsigned jobs = std::max(1u, std::thread::hardware_concurrency());
  bool stop = false;
  bool checkTree = false;
  std::vector<std::string> words;
};

/// Reads the command line; false if it is wrong.
bool parse_options(int argc, char** argv, TOptions& options) {
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    const bool takesValue = word == "--zoka" || word == "--exact" || word == "--jobs";
    if (takesValue && i + 1 == argc) {
      return false;
    }
    if (word == "--zoka") {
      options.zoka = argv[++i];
    } else if (word == "--exact") {
      options.exact = argv[++i];
    } else if (word == "--jobs") {
      options.jobs = static_cast<unsigned>(std::max(1, std::atoi(argv[++i])));
    } else if (word == "--stop") {
      options.stop = true;
    } else if (word == "--check-tree") {
      options.checkTree = true;
    } else if (word.starts_with("--")) {
      return false;
    } else {
      options.words.push_back(word);
    }
  }
  const bool runnable = options.checkTree || !options.zoka.empty();
  return runnable && (options.words.size() == 1 || options.words.size() == 2);
}

int check_tree_of(const std::string& root) {
  const std::vector<std::string> problems = zoka::check_tree(root);
  for (const std::string& problem : problems) {
    std::printf("%s\n", problem.c_str());
  }
  return problems.empty() ? 0 : 1;
}

std::vector<zoka::TLangCase> choose_cases(const TOptions& options) {
  if (!options.exact.empty()) {
    const auto test = zoka::find_case(options.words[0], options.exact);
    return test ? std::vector{*test} : std::vector<zoka::TLangCase>();
  }
  std::vector<zoka::TLangCase> cases = zoka::find_cases(options.words[0]);
  if (options.words.size() == 2) {
    std::erase_if(cases, [&](const zoka::TLangCase& test) {
      return test.name.find(options.words[1]) == std::string::npos;
    });
  }
  return cases;
}

void report(const zoka::TLangCase& test, const std::vector<std::string>& differences) {
  if (!differences.empty()) {
    std::printf("FAILED %s\n", test.name.c_str());
  }
  for (const std::string& difference : differences) {
    std::printf("%s\n", difference.c_str());
  }
}

/// Runs all of them, several at once, and returns how many failed.
int run_all(const std::vector<zoka::TLangCase>& cases, const TOptions& options) {
  std::atomic<size_t> next = 0;
  std::atomic<int> failed = 0;
  std::mutex output;
  const auto work = [&] {
    for (size_t i = next++; i < cases.size(); i = next++) {
      if (options.stop && failed > 0) return;
      const std::vector<std::string> differences = zoka::run_case(cases[i], options.zoka);
      failed += differences.empty() ? 0 : 1;
      const std::lock_guard lock(output);
      report(cases[i], differences);
    }
  };
  std::vector<std::jthread> threads;
  for (size_t i = 1; i < std::min<size_t>(options.jobs, cases.size()); ++i) {
    threads.emplace_back(work);
  }
  work();
  threads.clear();
  return failed;
}

}  // namespace

int main(int argc, char** argv) {
  TOptions options;
  if (!parse_options(argc, argv, options)) {
    std::fputs(USAGE, stderr);
    return 64;
  }
  if (options.checkTree) {
    return check_tree_of(options.words[0]);
  }
  const std::vector<zoka::TLangCase> cases = choose_cases(options);
  if (cases.empty()) {
    std::printf("no such test\n");
    return 1;
  }
  const int failed = run_all(cases, options);
  std::printf("%zu run, %d failed\n", cases.size(), failed);
  return failed == 0 ? 0 : 1;
}
