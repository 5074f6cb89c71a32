// What a statement holds back for its files, and when it goes out.
#include "vm/held_output.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/temp_folder.h"

namespace zoka {
namespace {

/// An empty file, open, in a folder of its own: tests run side by side.
struct TOpenFile {
  TOpenFile() { EXPECT_EQ(file.SetTo(folder.Path("file"), O_RDWR | O_CREAT | O_TRUNC), 0); }
  std::string Content() const { return folder.Read("file"); }
  TTempFolder folder;
  TZokaFile file;
};

TEST(HeldOutput, GoesOutWhenFlushed) {
  TOpenFile one;
  THeldOutput held;
  EXPECT_TRUE(held.Flush()) << "nothing is held";
  EXPECT_TRUE(held.Add(&one.file, "ab"));
  EXPECT_TRUE(held.Add(&one.file, "c"));
  EXPECT_EQ(one.Content(), "");
  EXPECT_TRUE(held.Flush());
  EXPECT_EQ(one.Content(), "abc");
  EXPECT_TRUE(held.Flush());
  EXPECT_EQ(one.Content(), "abc");
}

TEST(HeldOutput, AnotherFileSendsItOut) {
  TOpenFile one;
  TOpenFile two;
  THeldOutput held;
  EXPECT_TRUE(held.Add(&one.file, "first"));
  EXPECT_TRUE(held.Add(&two.file, "second"));
  EXPECT_EQ(one.Content(), "first");
  EXPECT_EQ(two.Content(), "");
  EXPECT_TRUE(held.Flush());
  EXPECT_EQ(two.Content(), "second");
}

TEST(HeldOutput, IsFullAfterAFewKilobytes) {
  TOpenFile one;
  THeldOutput held;
  EXPECT_TRUE(held.Add(&one.file, std::string(4095, 'x')));
  EXPECT_FALSE(held.IsFull());
  EXPECT_TRUE(held.Add(&one.file, "x"));
  EXPECT_TRUE(held.IsFull());
  EXPECT_TRUE(held.Flush());
  EXPECT_FALSE(held.IsFull());
}

}  // namespace
}  // namespace zoka
