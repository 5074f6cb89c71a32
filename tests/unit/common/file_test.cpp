// Reading, writing and the freshness of what is read.
#include "common/file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <cerrno>

#include "tests/support/temp_folder.h"

namespace zoka {
namespace {

std::string rest_of(TBasicFile* file) {
  std::string bytes;
  char byte = 0;
  while (file->ReadByte(&byte)) bytes.push_back(byte);
  return bytes;
}

TEST(BasicFile, IsClosedAtFirst) {
  TBasicFile file;
  EXPECT_FALSE(file.IsOpen());
  file.Unset();
  EXPECT_FALSE(file.IsOpen());
}

TEST(BasicFile, ReportsWhyItCannotOpen) {
  TTempFolder folder;
  TBasicFile file;
  EXPECT_EQ(file.SetTo(folder.Path("NONE"), O_RDWR), ENOENT);
  EXPECT_EQ(file.SetTo(folder.Path(), O_RDONLY), EISDIR);
  EXPECT_EQ(file.SetTo("/dev/null", O_RDWR), EINVAL);
  ASSERT_EQ(mkfifo(folder.Path("PIPE").c_str(), 0600), 0);
  EXPECT_EQ(file.SetTo(folder.Path("PIPE"), O_RDWR), EINVAL);
  EXPECT_EQ(file.SetTo(folder.Path(std::string(300, 'N')), O_RDWR | O_CREAT), ENAMETOOLONG);
  EXPECT_FALSE(file.IsOpen());
}

TEST(BasicFile, FailureClosesWhatWasOpen) {
  TTempFolder folder;
  folder.Write("A", "x");
  TBasicFile file;
  ASSERT_EQ(file.SetTo(folder.Path("A"), O_RDWR), 0);
  EXPECT_EQ(file.SetTo(folder.Path("NONE"), O_RDWR), ENOENT);
  EXPECT_FALSE(file.IsOpen());
}

TEST(BasicFile, ReadsLines) {
  TTempFolder folder;
  folder.Write("A", "one\n\ntwo\r\nlast");
  TBasicFile file;
  ASSERT_EQ(file.SetTo(folder.Path("A"), O_RDWR), 0);
  std::string line;
  EXPECT_TRUE(file.ReadLine(&line));
  EXPECT_EQ(line, "one");
  EXPECT_TRUE(file.ReadLine(&line));
  EXPECT_EQ(line, "");
  EXPECT_TRUE(file.ReadLine(&line, 2));
  EXPECT_EQ(line, "tw");
  EXPECT_TRUE(file.ReadLine(&line));
  EXPECT_EQ(line, "o\r");
  EXPECT_FALSE(file.Eof());
  EXPECT_TRUE(file.ReadLine(&line));
  EXPECT_EQ(line, "last");
  EXPECT_TRUE(file.Eof());
  EXPECT_FALSE(file.ReadLine(&line));
  EXPECT_EQ(line, "");
}

TEST(BasicFile, WritesLines) {
  TTempFolder folder;
  TBasicFile file;
  ASSERT_EQ(file.SetTo(folder.Path("A"), O_RDWR | O_CREAT | O_TRUNC), 0);
  EXPECT_TRUE(file.Eof());
  EXPECT_TRUE(file.WriteLine("one"));
  EXPECT_TRUE(file.Write("two"));
  EXPECT_EQ(folder.Read("A"), "one\ntwo");  // before it is closed
  EXPECT_EQ(file.Position(), 7);
  EXPECT_TRUE(file.Eof());
}

TEST(BasicFile, ReadingAndWritingShareThePosition) {
  TTempFolder folder;
  folder.Write("A", "abcdef");
  TBasicFile file;
  ASSERT_EQ(file.SetTo(folder.Path("A"), O_RDWR), 0);
  char byte = 0;
  EXPECT_TRUE(file.ReadByte(&byte));
  EXPECT_TRUE(file.Write("XY"));
  EXPECT_EQ(rest_of(&file), "def");
  EXPECT_EQ(folder.Read("A"), "aXYdef");
  file.Seek(4);
  EXPECT_EQ(rest_of(&file), "ef");
}

TEST(BasicFile, SeeksWithinWhatItHasReadAhead) {
  TTempFolder folder;
  folder.Write("A", "abcdef");
  TBasicFile file;
  ASSERT_EQ(file.SetTo(folder.Path("A"), O_RDWR), 0);
  EXPECT_EQ(rest_of(&file), "abcdef");
  file.Seek(2);
  EXPECT_EQ(file.Position(), 2);
  EXPECT_FALSE(file.Eof());
  EXPECT_EQ(rest_of(&file), "cdef");
  file.Seek(6);
  EXPECT_TRUE(file.Eof());
  file.Seek(0);
  TBasicFile writer;
  ASSERT_EQ(writer.SetTo(folder.Path("A"), O_RDWR), 0);
  EXPECT_TRUE(writer.Write("AB"));
  EXPECT_EQ(rest_of(&file), "ABcdef");
  file.Seek(1);
  EXPECT_TRUE(file.Write("x"));
  EXPECT_EQ(file.Position(), 2);
  file.Seek(0);
  EXPECT_EQ(rest_of(&file), "Axcdef");
}

TEST(BasicFile, ForgetsWhatItHadReadOfAFormerFile) {
  TTempFolder folder;
  folder.Write("A", "abcdef");
  folder.Write("B", "xy");
  TBasicFile file;
  ASSERT_EQ(file.SetTo(folder.Path("A"), O_RDWR), 0);
  char byte = 0;
  EXPECT_TRUE(file.ReadByte(&byte));
  ASSERT_EQ(file.SetTo(folder.Path("B"), O_RDWR), 0);
  EXPECT_EQ(rest_of(&file), "xy");
}

TEST(BasicFile, AppendsAtTheEnd) {
  TTempFolder folder;
  folder.Write("A", "abc");
  TBasicFile file;
  ASSERT_EQ(file.SetTo(folder.Path("A"), O_RDWR | O_APPEND), 0);
  EXPECT_EQ(file.Position(), 3);
  EXPECT_TRUE(file.Eof());
  file.Seek(0);
  EXPECT_TRUE(file.Write("de"));
  EXPECT_EQ(file.Position(), 5);
  EXPECT_EQ(folder.Read("A"), "abcde");
}

TEST(BasicFile, SeesWhatAnotherWrites) {
  TTempFolder folder;
  folder.Write("A", "abcdef");
  TBasicFile reader;
  TBasicFile writer;
  ASSERT_EQ(reader.SetTo(folder.Path("A"), O_RDWR), 0);
  ASSERT_EQ(writer.SetTo(folder.Path("A"), O_RDWR), 0);
  char byte = 0;
  EXPECT_TRUE(reader.ReadByte(&byte));  // all is in the reader's buffer now
  writer.Seek(1);
  EXPECT_TRUE(writer.Write("BCDEFGH"));
  EXPECT_EQ(rest_of(&reader), "BCDEFGH");
  EXPECT_TRUE(reader.Eof());
  EXPECT_TRUE(writer.Write("!"));
  EXPECT_FALSE(reader.Eof());
  EXPECT_EQ(rest_of(&reader), "!");
}

TEST(BasicFile, SeesThatAnotherEmptiesTheFile) {
  TTempFolder folder;
  folder.Write("A", "abcdef");
  TBasicFile reader;
  TBasicFile writer;
  ASSERT_EQ(reader.SetTo(folder.Path("A"), O_RDWR), 0);
  char byte = 0;
  EXPECT_TRUE(reader.ReadByte(&byte));
  ASSERT_EQ(writer.SetTo(folder.Path("A"), O_RDWR | O_CREAT | O_TRUNC), 0);
  EXPECT_TRUE(reader.Eof());
  EXPECT_FALSE(reader.ReadByte(&byte));
}

TEST(BasicFile, ReadsBeyondOneBuffer) {
  TTempFolder folder;
  std::string bytes;
  for (int i = 0; i < 200000; ++i) bytes.push_back(static_cast<char>(i * 7));
  folder.Write("A", bytes);
  TBasicFile file;
  ASSERT_EQ(file.SetTo(folder.Path("A"), O_RDWR), 0);
  EXPECT_TRUE(rest_of(&file) == bytes);
  EXPECT_EQ(file.Position(), 200000);
}

TEST(BasicFile, FullDiskIsReported) {
  TTempFolder folder;
  folder.Write("A", "abc");
  TBasicFile file;
  ASSERT_EQ(file.SetTo(folder.Path("A"), O_RDONLY), 0);  // a write that can't succeed
  EXPECT_FALSE(file.Write("x"));
  EXPECT_EQ(file.Position(), 0);
}

TEST(BasicFile, SetsTheTypeOnlyOnce) {
  TTempFolder folder;
  TBasicFile file;
  ASSERT_EQ(file.SetTo(folder.Path("A"), O_RDWR | O_CREAT), 0);
  file.SetTypeIfNone("text/plain");
  file.SetTypeIfNone("text/other");
  char type[32] = {};
  const ssize_t length = getxattr(folder.Path("A").c_str(), "user.mime_type", type, sizeof type);
  if (length < 0) GTEST_SKIP() << "no attributes here";
  EXPECT_EQ(std::string(type, static_cast<size_t>(length)), "text/plain");
}

}  // namespace
}  // namespace zoka
