// Runs a program of the test tree in a folder of its own and compares what came out.
#include "tests/run_lang/lang_run.h"

#include <stdlib.h>

#include <charconv>
#include <stdexcept>

#include "tests/run_lang/process.h"
#include "tests/run_lang/smf_listing.h"

namespace zoka {

namespace fs = std::filesystem;

namespace {

/// The tool's own limit is `--timeout 60`; this one is for a tool that does not keep it.
constexpr unsigned HARD_LIMIT_SECONDS = 150;
const char COMMON_OPTIONS[] = "--lang keys --config none --timeout 60";
const char SCREEN_FILE[] = "screen.png";
const char MUSIC_FILE[] = "music.mid";

/// A folder that exists as long as this object.
class TScratchFolder {
 public:
  TScratchFolder() {
    std::string pattern = (fs::temp_directory_path() / "zoka-lang-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
      throw std::runtime_error("cannot make " + pattern);
    }
    mPath = pattern;
  }
  ~TScratchFolder() {
    std::error_code ignored;
    fs::remove_all(mPath, ignored);
  }
  TScratchFolder(const TScratchFolder&) = delete;
  TScratchFolder& operator=(const TScratchFolder&) = delete;

  const fs::path& Path() const { return mPath; }

 private:
  fs::path mPath;
};

/// One run of one test: its folders, and the differences found so far.
class TLangRun {
 public:
  TLangRun(const TLangCase& test, const fs::path& zoka)
      : mTest(test), mZoka(fs::absolute(zoka)), mDrive(mScratch.Path() / "drive") {
    fs::create_directory(mDrive);
    if (!test.data.empty()) {
      fs::copy(test.data, mDrive, fs::copy_options::recursive);
    }
    fs::copy_file(test.program, mDrive / Program(), fs::copy_options::overwrite_existing);
  }

  std::vector<std::string> Run() {
    if (mTest.Has(".code")) {
      CheckCode();
    }
    if (!mTest.Has(".code") || ExpectsRun()) {
      CheckRun();
    }
    return mDifferences;
  }

 private:
  std::string Program() const { return mTest.program.filename().string(); }
  std::string Sidecar(const std::string& name) const { return read_file(mTest.sidecars.at(name)); }

  bool ExpectsRun() const {
    for (const char* name : {".out", ".err", ".exit", ".png", ".midi"}) {
      if (mTest.Has(name)) {
        return true;
      }
    }
    return false;
  }

  TProcessResult Call(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), mZoka.string());
    return run_process(arguments, mDrive, mScratch.Path(), HARD_LIMIT_SECONDS);
  }

  void Compare(const std::string& what, const std::string& expected, const std::string& actual) {
    const std::string difference = compare_texts(expected, actual);
    if (!difference.empty()) {
      mDifferences.push_back(what + ": " + difference);
    }
  }

  void CompareStatus(int expected, const TProcessResult& result) {
    if (result.status != expected) {
      mDifferences.push_back("exit status: expected " + std::to_string(expected) + ", is " +
                             std::to_string(result.status) + "\n" + result.err);
    }
  }

  void CheckCode() {
    const TProcessResult result =
        Call(split_arguments(std::string("code FILE ") + COMMON_OPTIONS, Program()));
    Compare("code", Sidecar(".code"), result.out);
    CompareStatus(0, result);
  }

  std::vector<std::string> RunArguments() const {
    const std::string text =
        mTest.Has(".args") ? Sidecar(".args") : std::string("run FILE --no-wait ") + COMMON_OPTIONS;
    std::vector<std::string> arguments = split_arguments(text, Program());
    const auto add = [&](const char* option, const std::string& value) {
      arguments.insert(arguments.end(), {option, value});
    };
    if (mTest.Has(".keys")) {
      std::string keys = Sidecar(".keys");
      if (!keys.empty() && keys.back() == '\n') {
        keys.pop_back();
      }
      add("--type", keys);
    }
    if (mTest.Has(".png")) {
      add("--screenshot", (mScratch.Path() / SCREEN_FILE).string());
    }
    if (mTest.Has(".midi")) {
      add("--midi", (mScratch.Path() / MUSIC_FILE).string());
    }
    return arguments;
  }

  int ExpectedStatus() const {
    if (!mTest.Has(".exit")) {
      return 0;
    }
    const std::string text = Sidecar(".exit");
    int status = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), status);
    const std::string rest(end, text.data() + text.size());
    if (error != std::errc() || (!rest.empty() && rest != "\n")) {
      throw std::runtime_error(".exit holds no number");
    }
    return status;
  }

  void CheckRun() {
    const int status = ExpectedStatus();
    const TProcessResult result = Call(RunArguments());
    CompareStatus(status, result);
    if (mTest.Has(".out")) {
      Compare("standard output", Sidecar(".out"), result.out);
    }
    if (mTest.Has(".err")) {
      Compare("standard error", Sidecar(".err"), result.err);
    } else if (status == 0) {
      Compare("standard error", "", result.err);
    }
    CheckFiles();
  }

  void CheckFiles() {
    if (mTest.Has(".midi")) {
      Compare("music", Sidecar(".midi"), list_midi(read_file(mScratch.Path() / MUSIC_FILE)));
    }
    if (mTest.Has(".png")) {
      const std::string difference =
          compare_pictures(mTest.sidecars.at(".png"), mScratch.Path() / SCREEN_FILE);
      if (!difference.empty()) {
        mDifferences.push_back("screen: " + difference);
      }
    }
  }

  const TLangCase& mTest;
  const fs::path mZoka;
  const TScratchFolder mScratch;
  const fs::path mDrive;
  std::vector<std::string> mDifferences;
};

}  // namespace

std::vector<std::string> run_case(const TLangCase& test, const fs::path& zoka) {
  if (!test.problems.empty()) {
    return test.problems;
  }
  try {
    return TLangRun(test, zoka).Run();
  } catch (const std::exception& error) {
    return {error.what()};
  }
}

std::vector<std::string> split_arguments(const std::string& text, const std::string& program) {
  std::vector<std::string> words;
  std::string word;
  bool quoted = false;
  bool inWord = false;
  const auto finish = [&] {
    if (inWord) {
      words.push_back(word == "FILE" ? program : word);
    }
    word.clear();
    inWord = false;
  };
  for (const char character : text) {
    if (character == '"') {
      quoted = !quoted;
      inWord = true;
    } else if (!quoted && (character == ' ' || character == '\n' || character == '\t')) {
      finish();
    } else {
      word += character;
      inWord = true;
    }
  }
  finish();
  return words;
}

}  // namespace zoka
