// Files that the user may not read or write. All modes of OPEN want both.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "common/exception.h"
#include "run/screen/file.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/temp_folder.h"

namespace zoka {
namespace {

constexpr int32_t MODES[] = {OPEN_INPUT, OPEN_OUTPUT, OPEN_APPEND, OPEN_RANDOM};

class FileRights : public testing::Test {
 protected:
  FileRights() {
    mTemp.Write("X", "old");
    mDrives.SetFolder(0, mTemp.Path());
    chmod(mTemp.Path().c_str(), 0755);
  }
  void SetRights(const std::string& name, mode_t rights) {
    ASSERT_EQ(chmod(mTemp.Path(name).c_str(), rights), 0);
  }
  /// True if OPEN of that name raises the key for a user without rights, in the mode.
  bool Raises(const std::string& name, int32_t mode, const char* key) {
    return as_ordinary_user([&] {
      TFileTable table;
      try {
        table.Open(mDrives, name, 1, mode);
      } catch (const TException& fault) {
        return std::string(fault.key) == key && table.Find(1) == nullptr;
      }
      return false;
    });
  }

  TTempFolder mTemp;
  TDriveFolders mDrives;
};

TEST_F(FileRights, AReadOnlyFileCannotBeOpenedEvenForInput) {
  SetRights("X", 0444);
  for (const int32_t mode : MODES)
    EXPECT_TRUE(Raises("X", mode, "@Runtime_Err_Cannot_Open_File@")) << mode;
  EXPECT_EQ(mTemp.Read("X"), "old");
}

TEST_F(FileRights, NorCanAFileThatMayOnlyBeWritten) {
  SetRights("X", 0222);
  for (const int32_t mode : MODES)
    EXPECT_TRUE(Raises("X", mode, "@Runtime_Err_Cannot_Open_File@")) << mode;
}

TEST_F(FileRights, NoFileIsMadeInAClosedFolder) {
  EXPECT_TRUE(Raises("NEW", OPEN_OUTPUT, "@Runtime_Err_Cannot_Open_File@"));
  EXPECT_TRUE(Raises("NEW", OPEN_RANDOM, "@Runtime_Err_Cannot_Open_File@"));
  EXPECT_TRUE(Raises("NEW", OPEN_INPUT, "@Runtime_Err_File_Not_Found@"));
  EXPECT_FALSE(std::filesystem::exists(mTemp.Path("NEW")));
}

TEST_F(FileRights, AFolderThatCannotBeEnteredHoldsNothingToOpen) {
  mTemp.MakeFolder("CLOSED");
  mTemp.Write("CLOSED/Y", "y");
  SetRights("CLOSED", 0);
  EXPECT_TRUE(Raises("CLOSED/Y", OPEN_INPUT, "@Runtime_Err_Cannot_Open_File@"));
  const std::string closed = mTemp.Path("CLOSED");
  EXPECT_TRUE(as_ordinary_user([&] { return list_folder(closed).empty(); }));
  SetRights("CLOSED", 0755);
}

}  // namespace
}  // namespace zoka
