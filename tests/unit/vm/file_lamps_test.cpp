// The access lamps of the drives, statement by statement.
#include <utility>
#include <vector>

#include "run/screen/screen_owner.h"
#include "tests/support/temp_folder.h"
#include "tests/unit/vm/machine_rig.h"

namespace zoka {
namespace {

using enum TVMCodeCmd;
using TLit = std::vector<int32_t>;

/// Notes which drives' lamps go on.
class TLampOwner final : public TScreenOwner {
 public:
  void UpdateScreenRqtd() override {}
  int32_t SetOnTimeDl(const char*) override { return 0; }
  void SetFDDAccessLamp(int32_t driveIdx, int32_t change) override {
    if (change > 0) lit.push_back(driveIdx);
  }
  void TranscriptRow(const std::string&) override {}
  void KeyWaitBegins(bigtime_t) override {}
  void KeyBufHasRoom() override {}

  TLit lit;
};

class FileLamps : public ::testing::Test {
 protected:
  FileLamps() {
    mTemp.Write("X", "1 2 3");
    for (int32_t drive : {0, 1, 2}) rig.rsrc.DrvFolderRefs().SetFolder(drive, mTemp.Path());
    rig.rsrc.SetOwner(&mOwner);
  }
  ~FileLamps() override { rig.rsrc.SetOwner(nullptr); }

  /// Opens the file "X" of a drive without a statement.
  void OpenQuietly(const std::string& name, int32_t number) {
    rig.rsrc.Files().Open(rig.rsrc.DrvFolderRefs(), name, number, OPEN_RANDOM);
  }
  /// The drives whose lamps the program lit.
  TLit Lit() {
    rig.Run();
    return mOwner.lit;
  }

  TTempFolder mTemp;
  TLampOwner mOwner;
  TMachineRig rig;
};

TEST_F(FileLamps, OpenLightsTheFilesDrive) {
  rig.Text("2:X").Int(1).OpLong(Open, OPEN_INPUT);
  EXPECT_EQ(Lit(), TLit{1});
}

TEST_F(FileLamps, AnOpenThatFailsLightsNone) {
  rig.Text("2:NONE").Int(1).OpLong(Open, OPEN_INPUT);
  EXPECT_EQ(Lit(), TLit{});
}

TEST_F(FileLamps, EofLightsTheFilesDrive) {
  OpenQuietly("2:X", 7);
  rig.Int(7).Op(Eof);
  EXPECT_EQ(Lit(), TLit{1});
}

TEST_F(FileLamps, EofOfAClosedFileLightsNone) {
  rig.Int(7).Op(Eof);
  EXPECT_EQ(Lit(), TLit{});
}

TEST_F(FileLamps, FilesLightsItsDrive) {
  rig.Int(2).OpBool(Files, true);
  EXPECT_EQ(Lit(), TLit{1});
}

TEST_F(FileLamps, FilesWithoutADriveLightsTheFirst) {
  rig.OpBool(Files, false);
  EXPECT_EQ(Lit(), TLit{0});
}

TEST_F(FileLamps, OtherDrivesHaveNone) {
  rig.Int(3).OpBool(Files, true).Text("3:X").Int(1).OpLong(Open, OPEN_INPUT);
  EXPECT_EQ(Lit(), TLit{});
}

TEST_F(FileLamps, CloseLightsNone) {
  OpenQuietly("X", 1);
  rig.Int(1).OpLong(Close, 1).OpLong(Close, 0);
  EXPECT_EQ(Lit(), TLit{});
}

}  // namespace
}  // namespace zoka
