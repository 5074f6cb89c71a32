// Drives, path rules and listings.
#include "run/screen/file_drives.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "common/exception.h"
#include "tests/support/temp_folder.h"

namespace zoka {
namespace {

constexpr char BAD_DRIVE[] = "@Runtime_Err_Bad_Drive_Number@";
constexpr char OFFLINE[] = "@Runtime_Err_Disk_Offline@";
constexpr char NOT_FOUND[] = "@Runtime_Err_File_Not_Found@";
constexpr char CANNOT_OPEN[] = "@Runtime_Err_Cannot_Open_File@";

template <class TCall>
std::string key_of(TCall call) {
  try {
    call();
  } catch (const TException& fault) {
    EXPECT_EQ(fault.fault, TFault::Runtime);
    return fault.key;
  }
  return "none";
}

std::string drive_key(std::string_view name) {
  return key_of([&] { DriveNumber(name); });
}

TEST(DriveNumber, PrefixOrOne) {
  EXPECT_EQ(DriveNumber("DATA"), 1);
  EXPECT_EQ(DriveNumber(""), 1);
  EXPECT_EQ(DriveNumber("1:X"), 1);
  EXPECT_EQ(DriveNumber("2:DATA.TXT"), 2);
  EXPECT_EQ(DriveNumber("14:X"), 14);
  EXPECT_EQ(DriveNumber(" 3:X"), 3);
  EXPECT_EQ(DriveNumber("+3:X"), 3);
  EXPECT_EQ(DriveNumber("2X:Y"), 2);  // a colon anywhere makes the start a number
  EXPECT_EQ(DriveNumber("5ABC:DEF:"), 5);
  EXPECT_EQ(DriveNumber(std::string_view("X\0"
                                         "9:",
                                         4)),
            1);
}

TEST(DriveNumber, RefusesOthers) {
  for (const char* name : {"0:X", "15:X", "-1:X", "A:X", ":X", "99999999999999999999:X"})
    EXPECT_EQ(drive_key(name), BAD_DRIVE) << name;
}

class FullPath : public testing::Test {
 protected:
  FullPath() {
    mTemp.MakeFolder("disk");
    mTemp.MakeFolder("disk/sub");
    mTemp.MakeFolder("diskette");
    mTemp.Write("disk/DATA", "x");
    mTemp.Write("disk/sub/DEEP", "x");
    mTemp.Write("diskette/OTHER", "x");
    mDrives.SetFolder(0, mTemp.Path("disk"));
  }
  std::string Path(std::string_view name, bool mustExist = false) {
    return mDrives.FullPathFName(name, mustExist);
  }
  std::string Key(std::string_view name, bool mustExist = false) {
    return key_of([&] { Path(name, mustExist); });
  }

  TTempFolder mTemp;
  TDriveFolders mDrives;
};

TEST_F(FullPath, FolderSlashName) {
  EXPECT_EQ(Path("DATA"), mTemp.Path("disk/DATA"));
  EXPECT_EQ(Path("1:DATA", true), mTemp.Path("disk/DATA"));
  EXPECT_EQ(Path("data"), mTemp.Path("disk/data"));
  EXPECT_EQ(Path("1:A:B"), mTemp.Path("disk/A:B"));
  EXPECT_EQ(Path("sub/DEEP", true), mTemp.Path("disk/sub/DEEP"));
  EXPECT_EQ(Path("sub/../DATA", true), mTemp.Path("disk/sub/../DATA"));
  EXPECT_EQ(Path("\xFF\x01 *?"), mTemp.Path("disk/\xFF\x01 *?"));
  EXPECT_EQ(Path(std::string_view("DATA\0/../..", 11)), mTemp.Path("disk/DATA"));
  mDrives.SetFolder(13, mTemp.Path("diskette"));
  EXPECT_EQ(Path("14:OTHER", true), mTemp.Path("diskette/OTHER"));
}

TEST_F(FullPath, EmptyDriveComesBeforeTheName) {
  EXPECT_EQ(Key("3:X", true), OFFLINE);
  EXPECT_EQ(Key("3:../X"), OFFLINE);
  EXPECT_EQ(Key("15:X"), BAD_DRIVE);
  mDrives.SetFolder(0, "");
  EXPECT_EQ(Key("DATA"), OFFLINE);
}

TEST_F(FullPath, MissingFile) {
  EXPECT_EQ(Key("NONE", true), NOT_FOUND);
  EXPECT_EQ(Key("NONE", false), "none");
  EXPECT_EQ(Key("nofolder/NONE", true), NOT_FOUND);
  EXPECT_EQ(Key("nofolder/NONE", false), "none");
}

TEST_F(FullPath, NothingOutsideTheFolder) {
  EXPECT_EQ(Key("../diskette/OTHER"), CANNOT_OPEN);
  EXPECT_EQ(Key("../NEW"), CANNOT_OPEN);
  EXPECT_EQ(Key("sub/../../NEW"), CANNOT_OPEN);
  EXPECT_EQ(Key("/etc/passwd"), "none");  // a name below the folder like any other
  EXPECT_EQ(Path("/etc/passwd"), mTemp.Path("disk//etc/passwd"));
  EXPECT_EQ(Key("../disk/DATA"), "none");
}

TEST_F(FullPath, LinksAreFollowedFirst) {
  mTemp.MakeLink("disk/inside", "sub/DEEP");
  mTemp.MakeLink("disk/absolute", mTemp.Path("disk/DATA"));
  mTemp.MakeLink("disk/outside", mTemp.Path("diskette/OTHER"));
  mTemp.MakeLink("disk/up", "..");
  mTemp.MakeLink("disk/loop", "loop");
  EXPECT_EQ(Path("inside", true), mTemp.Path("disk/inside"));
  EXPECT_EQ(Path("absolute", true), mTemp.Path("disk/absolute"));
  EXPECT_EQ(Key("outside"), CANNOT_OPEN);
  EXPECT_EQ(Key("up/diskette/OTHER"), CANNOT_OPEN);
  EXPECT_EQ(Key("up/NEW"), CANNOT_OPEN);
  EXPECT_EQ(Key("loop"), CANNOT_OPEN);
}

TEST_F(FullPath, LinksToWhatDoesNotExistYet) {
  mTemp.MakeLink("disk/new_inside", "sub/NEW");
  mTemp.MakeLink("disk/new_outside", mTemp.Path("diskette/NEW"));
  mTemp.MakeLink("disk/new_outside2", "new_outside");
  EXPECT_EQ(Key("new_inside"), "none");
  EXPECT_EQ(Key("new_outside"), CANNOT_OPEN);
  EXPECT_EQ(Key("new_outside2"), CANNOT_OPEN);
}

TEST_F(FullPath, AsManyLinksAreFollowedAsTheSystemFollows) {
  // link1 leads to link2 and so on, the last one out of the folder or to a new file in it.
  const auto name = [](char kind, int number) { return kind + std::to_string(number); };
  for (const auto& [kind, target] :
       {std::pair{'i', std::string("n")}, {'o', mTemp.Path("diskette/NEW")}}) {
    mTemp.MakeLink("disk/" + name(kind, 41), target);
    for (int i = 1; i < 41; ++i) mTemp.MakeLink("disk/" + name(kind, i), name(kind, i + 1));
  }
  EXPECT_EQ(Key("i2"), "none");
  EXPECT_EQ(Key("i1"), CANNOT_OPEN);
  EXPECT_EQ(Key("o2"), CANNOT_OPEN);
  // The shortest name of a link is a name, too.
  mTemp.MakeLink("disk/n", mTemp.Path("diskette/NEW"));
  EXPECT_EQ(Key("i40"), CANNOT_OPEN);
}

TEST_F(FullPath, TheDriveItselfMayBeALink) {
  mTemp.MakeLink("link", "disk");
  mDrives.SetFolder(0, mTemp.Path("link"));
  EXPECT_EQ(Path("DATA", true), mTemp.Path("link/DATA"));
  EXPECT_EQ(Key("../diskette/OTHER"), CANNOT_OPEN);
}

TEST_F(FullPath, FoldersDevicesAndLongNames) {
  ASSERT_EQ(mkfifo(mTemp.Path("disk/PIPE").c_str(), 0600), 0);
  EXPECT_EQ(Key("sub"), CANNOT_OPEN);
  EXPECT_EQ(Key("PIPE"), CANNOT_OPEN);
  EXPECT_EQ(Key("1:"), CANNOT_OPEN);
  EXPECT_EQ(Key("."), CANNOT_OPEN);
  EXPECT_EQ(Key(".."), CANNOT_OPEN);
  EXPECT_EQ(Key("DATA/X"), CANNOT_OPEN);
  EXPECT_EQ(Key(std::string(4096, 'N')), CANNOT_OPEN);
}

TEST(ListFolder, AllEntriesInByteOrder) {
  TTempFolder folder;
  folder.Write("b", "12345");
  folder.Write("B.TXT", std::string(2048, 'x'));
  folder.Write(".hidden", "");
  folder.Write("あ", "1");
  folder.MakeFolder("a_folder");
  const std::vector<TFolderEntry> entries = list_folder(folder.Path());
  ASSERT_EQ(entries.size(), 5u);
  EXPECT_EQ(entries[0].name, ".hidden");
  EXPECT_EQ(entries[1].name, "B.TXT");
  EXPECT_EQ(entries[1].size, 2048);
  EXPECT_EQ(entries[2].name, "a_folder");
  EXPECT_EQ(entries[2].size, 0);
  EXPECT_EQ(entries[3].name, "b");
  EXPECT_EQ(entries[3].size, 5);
  EXPECT_EQ(entries[4].name, "あ");
  EXPECT_TRUE(list_folder(folder.Path("none")).empty());
}

TEST(SizeInKbytes, OneUpTo1022) {
  EXPECT_EQ(size_in_kbytes(0), 0);
  EXPECT_EQ(size_in_kbytes(1), 1);
  EXPECT_EQ(size_in_kbytes(1022), 1);
  EXPECT_EQ(size_in_kbytes(1023), 0);
  EXPECT_EQ(size_in_kbytes(1024), 1);
  EXPECT_EQ(size_in_kbytes(2047), 1);
  EXPECT_EQ(size_in_kbytes(2048), 2);
}

}  // namespace
}  // namespace zoka
