// The runner of language tests, tried on a tool that runs each "program" with the shell: right
// expectations pass, and every kind of wrong one fails.
#include "tests/run_lang/lang_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>
#include <stdlib.h>

#include <fstream>

namespace zoka {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

void write_file(const fs::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

void write_png(const fs::path& path, const std::vector<png_byte>& rgb) {
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(rgb.size() / 3);
  image.height = 1;
  image.format = PNG_FORMAT_RGB;
  ASSERT_NE(png_image_write_to_file(&image, path.c_str(), 0, rgb.data(), 0, nullptr), 0);
}

class TLangRunTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (fs::temp_directory_path() / "run-lang-test-XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    mFolder = pattern;
    fs::create_directories(mFolder / "tree/area");
    write_file(mFolder / "tool",
               "#!/bin/sh\n[ $1 = code ] && { echo '0 0x0000 -'; exit; }\n"
               "file=$2; shift 2; . ./$file\n");
    fs::permissions(mFolder / "tool", fs::perms::owner_all);
  }
  void TearDown() override { fs::remove_all(mFolder); }

  void Add(const std::string& file, const std::string& text) {
    write_file(mFolder / "tree/area" / file, text);
  }
  std::vector<std::string> Run() {
    return run_case(*find_case(mFolder / "tree", "area/test"), mFolder / "tool");
  }

  fs::path mFolder;
};

TEST_F(TLangRunTest, RightExpectationsPass) {
  Add("test.bas", "echo hello; echo oops >&2; exit 2");
  Add("test.out", "hello\n");
  Add("test.err", "oops\n");
  Add("test.exit", "2\n");
  Add("test.code", "0 0x0000 -\n");
  EXPECT_THAT(Run(), IsEmpty());
}

TEST_F(TLangRunTest, WrongOutputFails) {
  Add("test.bas", "echo one; echo two");
  Add("test.out", "one\nthree\n");
  EXPECT_THAT(Run(), ElementsAre("standard output: line 2\n  expected |three|\n  is       |two|"));
}

TEST_F(TLangRunTest, MissingLineEndFails) {
  Add("test.bas", "echo one");
  Add("test.out", "one");
  EXPECT_THAT(Run(), ElementsAre(HasSubstr("expected |one| without a line end")));
}

TEST_F(TLangRunTest, WrongErrorsFail) {
  Add("test.bas", "echo oops >&2");
  Add("test.err", "no\n");
  EXPECT_THAT(Run(), ElementsAre(HasSubstr("standard error: line 1")));
}

TEST_F(TLangRunTest, UnexpectedErrorsFailUnlessTheStatusIsExpectedToo) {
  Add("test.bas", "echo oops >&2; exit 1");
  Add("test.out", "");
  EXPECT_THAT(Run(), ElementsAre(HasSubstr("exit status: expected 0, is 1"),
                                 HasSubstr("standard error: line 1")));
  Add("test.exit", "1\n");
  EXPECT_THAT(Run(), IsEmpty());
}

TEST_F(TLangRunTest, WrongStatusFails) {
  Add("test.bas", "exit 3");
  Add("test.exit", "2\n");
  EXPECT_THAT(Run(), ElementsAre(HasSubstr("exit status: expected 2, is 3")));
}

TEST_F(TLangRunTest, StatusThatIsNoNumberFails) {
  Add("test.bas", "exit 3");
  Add("test.exit", "3 or so\n");
  EXPECT_THAT(Run(), ElementsAre(".exit holds no number"));
}

TEST_F(TLangRunTest, SignalsCountAsShellsCountThem) {
  Add("test.bas", "kill -9 $$");
  Add("test.exit", "137");
  EXPECT_THAT(Run(), IsEmpty());
}

TEST_F(TLangRunTest, WrongCodeFailsAndTheProgramIsNotRun) {
  Add("test.bas", "exit 9");
  Add("test.code", "0 0x0000 -\n1 0x105D BExit\n");
  EXPECT_THAT(Run(), ElementsAre("code: line 2\n  expected |1 0x105D BExit|\n  is       (end)"));
}

TEST_F(TLangRunTest, PicturesAreComparedByPixels) {
  Add("test.bas", "while [ \"$1\" != --screenshot ]; do shift; done; cp picture.png \"$2\"");
  fs::create_directory(mFolder / "tree/area/test.d");
  write_png(mFolder / "tree/area/test.png", {0, 0, 0, 255, 0, 255});
  write_png(mFolder / "tree/area/test.d/picture.png", {0, 0, 0, 255, 0, 255});
  EXPECT_THAT(Run(), IsEmpty());
  write_png(mFolder / "tree/area/test.d/picture.png", {0, 0, 0, 255, 0, 254});
  EXPECT_THAT(Run(), ElementsAre("screen: pixel 1,0: expected #FF00FF, is #FF00FE"));
  write_png(mFolder / "tree/area/test.d/picture.png", {0, 0, 0});
  EXPECT_THAT(Run(), ElementsAre("screen: expected 2 by 1 pixels, is 1 by 1"));
}

TEST_F(TLangRunTest, MusicThatIsMissingFails) {
  Add("test.bas", "true");
  Add("test.midi", "0 0 on 60 100\n");
  EXPECT_THAT(Run(), ElementsAre(HasSubstr("cannot read")));
}

TEST_F(TLangRunTest, TheUsualArgumentsAndKeys) {
  Add("test.bas", "printf '%s\\n' \"$*\"");
  Add("test.keys", "A{LEFT}\\r\n");
  Add("test.out", "--no-wait --lang keys --config none --timeout 60 --type A{LEFT}\\r\n");
  EXPECT_THAT(Run(), IsEmpty());
}

TEST_F(TLangRunTest, OwnArgumentsReplaceTheUsualOnes) {
  Add("test.bas", "echo $# $*");
  Add("test.args", "run FILE --drive \"2=a b\"\n");
  Add("test.out", "2 --drive 2=a b\n");
  EXPECT_THAT(Run(), IsEmpty());
}

TEST_F(TLangRunTest, FilesAreWrittenIntoAFolderThatGoesAway) {
  Add("test.bas", "echo x >made; ls");
  Add("test.out", "made\ntest.bas\n");
  EXPECT_THAT(Run(), IsEmpty());
  EXPECT_FALSE(fs::exists(mFolder / "tree/area/made"));
}

TEST_F(TLangRunTest, TestWithoutExpectationFails) {
  Add("test.bas", "true");
  Add("test.keys", "A");
  EXPECT_THAT(Run(), ElementsAre("nothing is expected of this program"));
}

TEST_F(TLangRunTest, UnknownSidecarFails) {
  Add("test.bas", "true");
  Add("test.out", "");
  Add("test.output", "");
  EXPECT_THAT(Run(), ElementsAre("unknown sidecar test.output"));
}

TEST_F(TLangRunTest, ToolThatCannotBeStartedFails) {
  Add("test.bas", "true");
  Add("test.out", "");
  EXPECT_THAT(run_case(*find_case(mFolder / "tree", "area/test"), mFolder / "none"),
              ElementsAre(HasSubstr("cannot start")));
}

TEST_F(TLangRunTest, TreeIsCheckedForStrayFiles) {
  Add("test.bas", "true");
  Add("test.out", "");
  EXPECT_THAT(check_tree(mFolder / "tree"), IsEmpty());
  Add("lost.out", "");
  write_file(mFolder / "tree/outside.bas", "");
  EXPECT_THAT(check_tree(mFolder / "tree"),
              ElementsAre(HasSubstr("lost.out: belongs to no program"),
                          HasSubstr("outside.bas: lies outside the areas")));
}

TEST_F(TLangRunTest, CasesAreFoundByFolder) {
  Add("b.bas", "true");
  Add("a.bas", "true");
  const std::vector<TLangCase> cases = find_cases(mFolder / "tree");
  ASSERT_EQ(cases.size(), 2u);
  EXPECT_EQ(cases[0].name, "area/a");
  EXPECT_EQ(cases[1].name, "area/b");
  EXPECT_FALSE(find_case(mFolder / "tree", "area/c").has_value());
}

TEST(SplitArguments, BlanksQuotesAndFile) {
  EXPECT_THAT(split_arguments(" run\tFILE --x \"a FILE\" \"\" FILES\n", "p.bas"),
              ElementsAre("run", "p.bas", "--x", "a FILE", "", "FILES"));
}

TEST(CompareTexts, ControlCharactersAreShown) {
  EXPECT_EQ(compare_texts("a\x07\n", "a\n"), "line 1\n  expected |a\\x07|\n  is       |a|");
}

}  // namespace
}  // namespace zoka
