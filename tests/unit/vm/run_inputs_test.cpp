// That a program sees nothing of the world but what its inputs tell it.
#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"
#include "tests/unit/vm/machine_rig.h"
#include "vm/interrupt_port.h"

namespace zoka {
namespace {

using enum TVMCodeCmd;

/// Another world than the real one.
class TOtherWorld final : public TTestInputs {
 public:
  using TTestInputs::TTestInputs;

  uint32_t PendingEvents(const TInterruptPort&, const TRunPosition& position) override {
    const bool isThere = position.jumps == stopJumps && position.codeIndex == stopIndex;
    return isThere ? uint32_t{IR_FORCED_STOP} : 0;
  }
  int32_t ReadMouse(TMouseRead what, TMouseState&) override {
    return 100 + static_cast<int32_t>(what);
  }
  std::string DriveFolder(const TDriveFolders&, int32_t index) override {
    return "folder " + std::to_string(index);
  }
  std::vector<TFolderEntry> ListFolder(const std::string& path) override {
    listed.push_back(path);
    return {{"GAME.BAS", 2048}};
  }
  std::string FilePath(const TDriveFolders&, std::string_view name, bool mustExist) override {
    return std::string(name) + (mustExist ? " is there" : " may be there");
  }
  void OpenFile(TFileTable& files, const TDriveFolders& drives, std::string_view name,
                int32_t number, int32_t mode) override {
    opened.emplace_back(name);
    files.Open(drives, "EMPTY", number, mode);
  }
  bool IsAtEnd(TZokaFile&) override { return false; }
  std::list<std::string> ReadItems(TZokaFile&, int32_t count, bool asLine,
                                   const TFileInputBounds&) override {
    return std::list<std::string>(static_cast<size_t>(count), asLine ? "line" : "item");
  }
  bool ReadCharacters(TZokaFile&, int32_t count, int32_t, std::string* text,
                      const TFileInputBounds&) override {
    text->assign(static_cast<size_t>(count), 'x');
    return true;
  }

  uint64_t stopJumps = UINT64_MAX;
  int32_t stopIndex = 0;
  std::vector<std::string> listed, opened;
};

struct TOtherRig : TMachineRig {
  TOtherRig() : world(*clock) { otherInputs = &world; }
  TOtherWorld world;
};

TEST(RunInputs, TheMouseIsTheirs) {
  TOtherRig rig;
  rig.Int(0).OpBool(MouseFunc, false).Int(10).OpBool(MouseFunc, false);
  rig.Int(2).Int(2).OpBool(MouseFunc, true).Int(6).Int(1).OpBool(MouseFunc, true);
  EXPECT_EQ(rig.Run(), 0);
  const std::vector<TStackData> values = rig.Values();
  ASSERT_EQ(values.size(), 4u);
  EXPECT_EQ(values[0].lval, 100);   // the position's x
  EXPECT_EQ(values[1].lval, 103);   // the way in y
  EXPECT_EQ(values[2].lval, -105);  // the right button's state, its sign turned
  EXPECT_EQ(values[3].lval, 109);   // how often the left button was let go
}

TEST(RunInputs, ListingsAreTheirs) {
  TOtherRig rig;
  rig.Int(3).OpBool(Files, true);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.world.listed, std::vector<std::string>{"folder 2"});
  EXPECT_EQ(rig.rsrc.RowText(0), "GAME  .BAS 2");
}

TEST(RunInputs, PathsOfListsAreTheirs) {
  TOtherRig rig;
  rig.Text("NEXT").OpBool(RunSpecify, false);
  EXPECT_EQ(rig.Run(), 0);
  ASSERT_EQ(rig.host.requests.size(), 1u);
  std::string path;
  EXPECT_TRUE(rig.host.requests[0].FindString("FileName", &path));
  EXPECT_EQ(path, "NEXT may be there");
}

TEST(RunInputs, FilesAreTheirs) {
  TTempFolder folder;
  folder.Write("EMPTY", "");
  TOtherRig rig;
  rig.rsrc.DrvFolderRefs().SetFolder(0, folder.Path());
  rig.Text("DATA").Int(1).OpLong(Open, OPEN_INPUT);
  rig.Int(1).Ref("A$").Ref("B$").OpLong(InputSh, 2).Int(1).Ref("C$").OpLong(LineInputSh, 1);
  rig.Int(1).Op(Eof).Int(3).Int(1).OpBool(InputDl, true);
  EXPECT_EQ(rig.Run(), 0) << rig.FaultKey();
  EXPECT_EQ(rig.world.opened, std::vector<std::string>{"DATA"});
  EXPECT_EQ(rig.Var("B$")->texts[0].View(), "item");
  EXPECT_EQ(rig.Var("C$")->texts[0].View(), "line");
  const std::vector<TStackData> values = rig.Values();
  ASSERT_EQ(values.size(), 2u);
  EXPECT_EQ(values[0].lval, 0);
  EXPECT_EQ(rig.TextOf(values[1]), "xxx");
}

TEST(RunInputs, EventsComeWhereTheySay) {
  TOtherRig rig;
  const int32_t loop = rig.Next();
  rig.Line(10).Ref("A%").Load("A%").Int(1).Op(BAddInt).Assign().Goto(10);
  rig.world.stopJumps = 3;
  rig.world.stopIndex = loop;
  // Something is pending all the time; what and when is for the inputs to say.
  rig.Machine().Port()->mIrFlags = IR_SPEED_CONTROL;
  EXPECT_EQ(rig.Run(), 1);
  EXPECT_EQ(rig.Var("A%")->ints[0], 3);
}

}  // namespace
}  // namespace zoka
