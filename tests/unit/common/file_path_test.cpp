// Parts of paths.
#include "common/file_path.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

TEST(FilePath, NameAndFolder) {
  EXPECT_EQ(extract_file_name("/a/b.bas"), "b.bas");
  EXPECT_EQ(extract_file_name("b.bas"), "b.bas");
  EXPECT_EQ(extract_file_name("/a/"), "");
  EXPECT_EQ(extract_file_folder_path_kernel("/a/b.bas"), "/a");
  EXPECT_EQ(extract_file_folder_path_kernel("/b.bas"), "/");
  EXPECT_EQ(extract_file_folder_path_kernel("b.bas"), ".");
}

TEST(FilePath, BodyAndExtension) {
  EXPECT_EQ(extract_file_body("/x.y/DATA.TXT"), "DATA");
  EXPECT_EQ(extract_file_ext("/x.y/DATA.TXT"), "TXT");
  EXPECT_EQ(extract_file_body("/x.y/DATA"), "DATA");
  EXPECT_EQ(extract_file_ext("/x.y/DATA"), "");
  EXPECT_EQ(extract_file_body("A.B.C"), "A.B");
  EXPECT_EQ(extract_file_ext("A.B.C"), "C");
  EXPECT_EQ(extract_file_body(".profile"), "");
  EXPECT_EQ(extract_file_ext(".profile"), "profile");
}

TEST(FilePath, AddExtension) {
  EXPECT_EQ(add_ext("GAME", "bas"), "GAME.bas");
  EXPECT_EQ(add_ext("GAME.BAS", "bas"), "GAME.BAS");
  EXPECT_EQ(add_ext("/my.games/GAME", "bas"), "/my.games/GAME.bas");
}

}  // namespace
}  // namespace zoka
