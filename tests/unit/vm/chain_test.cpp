// What CHAIN and RUN "file" ask of whoever loads lists.
#include "tests/support/temp_folder.h"
#include "tests/unit/vm/machine_rig.h"

namespace zoka {
namespace {

using enum TVMCodeCmd;

class Chaining : public ::testing::Test {
 protected:
  Chaining() {
    mTemp.Write("B", "10 END\n");
    rig.rsrc.DrvFolderRefs().SetFolder(0, mTemp.Path());
  }
  /// Runs to the end; the fields of the request, a line each, "" for none.
  std::string Request() {
    EXPECT_EQ(rig.Run(), 0);
    if (rig.host.requests.empty()) return "";
    EXPECT_EQ(rig.host.requests.size(), 1u);
    const TMessage& message = rig.host.requests[0];
    EXPECT_EQ(message.what, message_code("vmrr"));
    std::string fields, text;
    int32_t number = 0;
    bool flag = false;
    if (message.FindString("FileName", &text)) {
      EXPECT_EQ(text, mTemp.Path("B"));
      fields += "FileName\n";
    }
    if (message.FindBool("Merge", &flag)) fields += flag ? "Merge\n" : "no Merge\n";
    if (message.FindBool("ROpt", &flag)) fields += flag ? "ROpt\n" : "no ROpt\n";
    if (message.FindInt32("LineNum", &number)) fields += "line " + std::to_string(number) + "\n";
    if (message.FindString("Label", &text)) fields += "label " + text + "\n";
    return fields;
  }
  TMachineRig& Named(bool merge, const char* name = "B") {
    return rig.Line(10).OpBool(BPushBool, merge).Text(name);
  }

  TTempFolder mTemp;
  TMachineRig rig;
};

TEST_F(Chaining, NameAndFlag) {
  Named(false).OpLong(Chain, 2).Op(Stop);
  EXPECT_EQ(Request(), "FileName\nno Merge\n");
  EXPECT_EQ(rig.Screen(), "Ok");  // and not the fault of the statement behind it
}

TEST_F(Chaining, AStartLineIsRounded) {
  Named(true, "1:B").Float(99.5f).OpLong(Chain, 3);
  EXPECT_EQ(Request(), "FileName\nMerge\nline 100\n");
}

TEST_F(Chaining, AStartLabel) {
  Named(false).Text("L").OpLong(Chain, 3);
  EXPECT_EQ(Request(), "FileName\nno Merge\nlabel L\n");
}

TEST_F(Chaining, AnOmittedStartAndAnIgnoredFourthOperand) {
  Named(false).Abbrev().Int(20).OpLong(Chain, 4);
  EXPECT_EQ(Request(), "FileName\nno Merge\n");
}

TEST_F(Chaining, RunOfAFileHasTheROption) {
  rig.Line(10).Text("B").OpBool(RunSpecify, true).Op(Stop);
  EXPECT_EQ(Request(), "FileName\nROpt\n");
  EXPECT_EQ(rig.Screen(), "Ok");
}

TEST_F(Chaining, RunOfAFileWithoutTheROption) {
  rig.Line(10).Text("B").OpBool(RunSpecify, false);
  EXPECT_EQ(Request(), "FileName\nno ROpt\n");
}

TEST_F(Chaining, NothingIsAskedOfAnApplicationThatQuits) {
  rig.context.privacy.quitting = true;
  Named(false, "NONE").OpLong(Chain, 2);
  EXPECT_EQ(Request(), "");
}

TEST_F(Chaining, NorByARunOfAFile) {
  rig.context.privacy.quitting = true;
  rig.Line(10).Text("").OpBool(RunSpecify, false);
  EXPECT_EQ(Request(), "");
}

}  // namespace
}  // namespace zoka
