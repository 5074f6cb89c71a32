// Files that are no good lists, opened through the real application: it says what it cannot read,
// shows the rest as well as it can, and never stands still.
#include <sys/stat.h>

#include <fstream>
#include <random>

#include "app/settings/prefs.h"
#include "tests/window/start_rig.h"

namespace zoka {
namespace {

class TBadInput : public TStartRig {
 protected:
  /// Runs the list to whatever end; alerts are answered.
  void RunToEnd() {
    Post("run");
    ASSERT_TRUE(Until([this] {
      if (Alert() != nullptr) Alert()->reject();
      return Document().State() == TDocumentState::Idle && Alert() == nullptr;
    }));
  }
};

TEST_F(TBadInput, RandomBytesInEveryEncoding) {
  std::mt19937 random(1985);
  std::string bytes(64 * 1024, ' ');
  for (char& c : bytes) c = static_cast<char>(random());
  bytes[0] = 'A';
  mFolder.Write("noise.bas", bytes);
  MakeEngine();
  Start();
  for (const int encoding : {0, 1, 2, 3, 4, 5, -1}) {
    TMessage message("_RRC");
    message.AddRef("refs", TPathRef{mFolder.Path("noise.bas")});
    message.AddInt32("Encoding", encoding);
    Post(message);
    EXPECT_EQ(Document().CurPath(), mFolder.Path("noise.bas")) << encoding;
    EXPECT_EQ(Edit().Get()[0], 'A') << encoding;
    RunToEnd();
  }
  EXPECT_EQ(mFolder.Read("noise.bas"), bytes);
}

TEST_F(TBadInput, ANulEndsTheTextOfAFileWithoutCharset) {
  mFolder.Write("nul.bas", std::string("10 END\n\0PNG\n", 12));
  Start(mFolder.Path("nul.bas"));
  EXPECT_EQ(Edit().Get(), "10 END\n");
  EXPECT_EQ(Document().Charset(), 0);
}

TEST_F(TBadInput, WhatIsNoFileIsRefused) {
  mFolder.MakeFolder("folder.bas");
  ASSERT_EQ(mkfifo(mFolder.Path("pipe.bas").c_str(), 0600), 0);
  mFolder.MakeLink("loop.bas", mFolder.Path("loop.bas"));
  Start();
  Edit().Set("10 END\n");
  for (const std::string& path :
       {mFolder.Path("folder.bas"), mFolder.Path("pipe.bas"), mFolder.Path("loop.bas"),
        mFolder.Path("none.bas"), std::string("/dev/zero"), std::string()}) {
    mAsked.clear();
    AnswerNext(Qt::Key_U);
    PostRefs(path);
    EXPECT_EQ(mAsked, "The program list \"" + path + "\" cannot be loaded.\n\n* Zoka-BASIC *");
    EXPECT_EQ(Edit().Get(), "10 END\n");
    EXPECT_EQ(Status(), "");
  }
  EXPECT_EQ(Window().History().CountMRUFs(), 0);
}

TEST_F(TBadInput, AFileOfAHundredMegabytesIsRefused) {
  mFolder.Write("huge.bas", "");
  std::filesystem::resize_file(mFolder.Path("huge.bas"), 100'000'000);
  Start();
  AnswerNext(Qt::Key_U);
  PostRefs(mFolder.Path("huge.bas"));
  EXPECT_EQ(mAsked, "The program list \"" + mFolder.Path("huge.bas") +
                        "\" cannot be loaded.\n\n* Zoka-BASIC *");
}

TEST_F(TBadInput, ALineOfAMegabyteIsShownKeptAndRun) {
  const std::string line = "10 REM " + std::string(1'000'000, 'x') + "\n20 END\n";
  mFolder.Write("long.bas", line);
  Start(mFolder.Path("long.bas"));
  EXPECT_EQ(Edit().Get(), line);
  QTest::keyClick(&Edit(), Qt::Key_End);
  QTest::keyClicks(&Edit(), "y");
  Post("_sav");
  EXPECT_EQ(mFolder.Read("long.bas"), "10 REM " + std::string(1'000'000, 'x') + "y\n20 END\n");
  RunToEnd();
}

TEST_F(TBadInput, MixedLineEndsBecomeOneKind) {
  mFolder.Write("mixed.bas", "10 A=1\r\n20 B=2\n30 C=3\r40 D=4\r\n\x1A");
  Start(mFolder.Path("mixed.bas"));
  // A return alone is no line end: the two lines become one.
  EXPECT_EQ(Edit().Get(), "10 A=1\n20 B=2\n30 C=340 D=4\n");
  QTest::keyClicks(&Edit(), "5");
  QTest::keyClick(&Edit(), Qt::Key_Return);
  EXPECT_EQ(Edit().Get(), "5\n10 A=1\n20 B=2\n30 C=340 D=4\n");
}

TEST_F(TBadInput, ManyLinesAreOpenedAndRun) {
  std::string lines;
  for (int i = 1; i <= 20'000; ++i) lines += std::to_string(i) + " A=A+1\n";
  mFolder.Write("many.bas", lines);
  Start(mFolder.Path("many.bas"));
  EXPECT_EQ(Edit().Get(), lines);
  RunToEnd();
}

TEST_F(TBadInput, NonsenseInEveryDialog) {
  Start();
  Edit().Set("10 END\n");
  const std::string nonsense = std::string(100'000, '9') + "\x80\xFF*\n\t\"";
  for (const char* code : {"gtlr", "rnlr"}) {
    TMessage message(code);
    message.AddString("SISmplIptTxt", nonsense);
    AnswerNext(Qt::Key_Escape);
    Post(message);
    ASSERT_TRUE(Until([this] { return Document().State() == TDocumentState::Idle; }));
  }
  TMessage renumber("rnmr");
  renumber.AddInt32("NewLine", INT32_MAX);
  renumber.AddInt32("OldLine", 1);
  renumber.AddInt32("Step", INT32_MAX);
  Post(renumber);
  EXPECT_EQ(Edit().Get(), "2147483647 END\n");
  Choose("rnmb");
  for (size_t i = 0; i < 3; ++i) mApp->RenumWindow().Field(i)->setText("-99999999999999999999x");
  mApp->RenumWindow().ApplyRenum();
  ASSERT_TRUE(Until([this] { return Edit().Get() == "1 END\n"; }));
  // Messages without what they need do nothing.
  for (const char* code : {"_RRC", "SAVE", "rnmr", "_smp", "_rhr"}) Post(code);
  EXPECT_EQ(Edit().Get(), "1 END\n");
}

}  // namespace
}  // namespace zoka
