// Files by number: order of the tests, modes, independence.
#include "run/screen/file.h"

#include <gtest/gtest.h>

#include "common/exception.h"
#include "tests/support/temp_folder.h"

namespace zoka {
namespace {

class FileTable : public testing::Test {
 protected:
  FileTable() { mDrives.SetFolder(0, mTemp.Path()); }

  std::string Open(std::string_view name, int32_t number, int32_t mode) {
    try {
      mTable.Open(mDrives, name, number, mode);
    } catch (const TException& fault) {
      return fault.key;
    }
    return "";
  }
  std::string Close(int32_t number) {
    try {
      mTable.Close(number);
    } catch (const TException& fault) {
      return fault.key;
    }
    return "";
  }
  std::string Rest(int32_t number) {
    std::string bytes;
    for (char byte = 0; mTable.Find(number)->ReadByte(&byte);) bytes.push_back(byte);
    return bytes;
  }

  TTempFolder mTemp;
  TDriveFolders mDrives;
  TFileTable mTable;
};

TEST_F(FileTable, TestsInOrder) {
  EXPECT_EQ(Open("", 99, OPEN_INPUT), "@Runtime_Err_File_Not_Found@");
  EXPECT_EQ(Open(std::string_view("\0X", 2), 99, OPEN_INPUT), "@Runtime_Err_File_Not_Found@");
  EXPECT_EQ(Open("3:X", 99, OPEN_INPUT), "@Runtime_Err_Bad_File_Number@");
  for (int32_t number : {0, 16, -1, INT32_MIN, INT32_MAX})
    EXPECT_EQ(Open("X", number, OPEN_RANDOM), "@Runtime_Err_Bad_File_Number@");
  EXPECT_EQ(Open("3:X", 1, OPEN_INPUT), "@Runtime_Err_Disk_Offline@");
  EXPECT_EQ(Open("X", 1, OPEN_OUTPUT), "");
  EXPECT_EQ(Open("3:X", 1, OPEN_INPUT), "@Runtime_Err_File_Already_Open@");
  EXPECT_EQ(Open("", 1, OPEN_INPUT), "@Runtime_Err_File_Not_Found@");
}

TEST_F(FileTable, ModesThatDoNotCreate) {
  EXPECT_EQ(Open("NONE", 1, OPEN_INPUT), "@Runtime_Err_File_Not_Found@");
  EXPECT_EQ(Open("NONE", 1, OPEN_APPEND), "@Runtime_Err_File_Not_Found@");
  EXPECT_EQ(Open("nofolder/NEW", 1, OPEN_OUTPUT), "@Runtime_Err_File_Not_Found@");
  EXPECT_EQ(mTable.Find(1), nullptr);
  EXPECT_EQ(Open("NEW", 1, OPEN_RANDOM), "");
  EXPECT_EQ(Open("NEW2", 2, OPEN_OUTPUT), "");
}

TEST_F(FileTable, OutputEmptiesAtOnce) {
  mTemp.Write("X", "old");
  EXPECT_EQ(Open("X", 1, OPEN_OUTPUT), "");
  EXPECT_EQ(mTemp.Read("X"), "");
}

TEST_F(FileTable, RandomKeepsTheText) {
  mTemp.Write("X", "old");
  EXPECT_EQ(Open("X", 1, OPEN_RANDOM), "");
  EXPECT_EQ(Rest(1), "old");
}

TEST_F(FileTable, TwoNumbersTwoPositions) {
  mTemp.Write("X", "abcd");
  EXPECT_EQ(Open("X", 1, OPEN_RANDOM), "");
  EXPECT_EQ(Open("X", 2, OPEN_RANDOM), "");
  char byte = 0;
  EXPECT_TRUE(mTable.Find(1)->ReadByte(&byte));
  EXPECT_EQ(Rest(2), "abcd");
  EXPECT_EQ(Rest(1), "bcd");
}

TEST_F(FileTable, KeepsTheDriveForItsLamp) {
  mTemp.MakeFolder("b");
  mDrives.SetFolder(1, mTemp.Path("b"));
  EXPECT_EQ(Open("X", 1, OPEN_OUTPUT), "");
  EXPECT_EQ(Open("2:Y", 15, OPEN_OUTPUT), "");
  EXPECT_EQ(mTable.Find(1)->DrvIdx(), 0);
  EXPECT_EQ(mTable.Find(15)->DrvIdx(), 1);
  mDrives.SetFolder(1, "");  // an open file works on without its disk
  EXPECT_TRUE(mTable.Find(15)->Write("z"));
  EXPECT_EQ(mTemp.Read("b/Y"), "z");
}

TEST_F(FileTable, Closing) {
  EXPECT_EQ(Open("X", 1, OPEN_OUTPUT), "");
  EXPECT_EQ(Open("Y", 2, OPEN_OUTPUT), "");
  EXPECT_EQ(Close(1), "");
  EXPECT_EQ(Close(1), "");
  EXPECT_EQ(mTable.Find(1), nullptr);
  EXPECT_NE(mTable.Find(2), nullptr);
  EXPECT_EQ(Close(0), "@Runtime_Err_Ill_Func_Call@");
  EXPECT_EQ(Close(16), "@Runtime_Err_Ill_Func_Call@");
  mTable.CloseAll();
  EXPECT_EQ(mTable.Find(2), nullptr);
  EXPECT_EQ(Open("X", 1, OPEN_INPUT), "");
}

TEST_F(FileTable, NothingOutsideIsCreated) {
  mTemp.MakeFolder("disk");
  mDrives.SetFolder(0, mTemp.Path("disk"));
  EXPECT_EQ(Open("../NEW", 1, OPEN_OUTPUT), "@Runtime_Err_Cannot_Open_File@");
  EXPECT_FALSE(std::filesystem::exists(mTemp.Path("NEW")));
}

}  // namespace
}  // namespace zoka
