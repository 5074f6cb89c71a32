// Saving whole or not at all.
#include "common/file_save.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>

#include "tests/support/ordinary_user.h"
#include "tests/support/temp_folder.h"

namespace zoka {
namespace {

class FileSave : public testing::Test {
 protected:
  mode_t Mode(const std::string& name) const {
    struct stat info {};
    stat(folder.Path(name).c_str(), &info);
    return info.st_mode & 07777;
  }
  /// Entries in the folder: no temporary file may stay behind.
  size_t Count() const {
    const std::filesystem::directory_iterator entries(folder.Path());
    return static_cast<size_t>(std::distance(begin(entries), end(entries)));
  }
  TTempFolder folder;
};

TEST_F(FileSave, NewFileGetsTheUmask) {
  const mode_t old = umask(027);
  EXPECT_TRUE(save_file_atomically(folder.Path("a"), "one"));
  umask(old);
  EXPECT_EQ(folder.Read("a"), "one");
  EXPECT_EQ(Mode("a"), 0640u);
  EXPECT_EQ(Count(), 1u);
}

TEST_F(FileSave, OldFileKeepsModeAndAttributes) {
  folder.Write("a", "a longer text than the new one");
  chmod(folder.Path("a").c_str(), 0751);
  const bool hasAttributes =
      setxattr(folder.Path("a").c_str(), "user.mime_type", "text/x", 6, 0) == 0;
  EXPECT_TRUE(save_file_atomically(folder.Path("a"), std::string("b\0c", 3)));
  EXPECT_EQ(folder.Read("a"), std::string("b\0c", 3));
  EXPECT_EQ(Mode("a"), 0751u);
  if (hasAttributes) {
    char value[16];
    ASSERT_EQ(getxattr(folder.Path("a").c_str(), "user.mime_type", value, sizeof value), 6);
    EXPECT_EQ(std::string(value, 6), "text/x");
  }
  EXPECT_EQ(Count(), 1u);
}

TEST_F(FileSave, OwnerIsKept) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can give a file away";
  folder.Write("a", "old");
  ASSERT_EQ(chown(folder.Path("a").c_str(), 12345, 54321), 0);
  chmod(folder.Path("a").c_str(), 04755);
  EXPECT_TRUE(save_file_atomically(folder.Path("a"), "new"));
  struct stat info {};
  stat(folder.Path("a").c_str(), &info);
  EXPECT_EQ(info.st_uid, 12345u);
  EXPECT_EQ(info.st_gid, 54321u);
  EXPECT_EQ(info.st_mode & 07777, 04755u);
}

TEST_F(FileSave, LinksAreFollowed) {
  folder.MakeFolder("sub");
  folder.MakeLink("link", "sub/real");
  folder.MakeLink("chain", folder.Path("link"));
  EXPECT_TRUE(save_file_atomically(folder.Path("chain"), "new"));  // it does not exist yet
  EXPECT_EQ(folder.Read("sub/real"), "new");
  EXPECT_TRUE(save_file_atomically(folder.Path("chain"), "newer"));
  EXPECT_EQ(folder.Read("sub/real"), "newer");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link")));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("chain")));
}

TEST_F(FileSave, ImpossiblePlacesAreRefused) {
  EXPECT_FALSE(save_file_atomically("", "x"));
  EXPECT_FALSE(save_file_atomically(folder.Path(), "x"));
  EXPECT_FALSE(save_file_atomically(folder.Path("none/a"), "x"));
  folder.Write("file", "whole");
  EXPECT_FALSE(save_file_atomically(folder.Path("file/a"), "x"));
  folder.MakeLink("one", "two");
  folder.MakeLink("two", "one");
  EXPECT_FALSE(save_file_atomically(folder.Path("one"), "x"));
  EXPECT_FALSE(save_file_atomically("/dev/null", "x"));
  EXPECT_EQ(folder.Read("file"), "whole");
}

TEST_F(FileSave, FullDiskLeavesTheOldFile) {
  folder.Write("a", "whole");
  // A limit on the size of files fails a write in the middle as a full disk does.
  rlimit old{};
  getrlimit(RLIMIT_FSIZE, &old);
  const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{4096, old.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  const bool saved = save_file_atomically(folder.Path("a"), std::string(10'000, 'x'));
  setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, oldHandler);
  EXPECT_FALSE(saved);
  EXPECT_EQ(folder.Read("a"), "whole");
  EXPECT_EQ(Count(), 1u);
}

TEST_F(FileSave, ReadOnlyFileIsNotReplaced) {
  folder.Write("a", "whole");
  chmod(folder.Path("a").c_str(), 0444);
  chmod(folder.Path().c_str(), 0777);
  const std::string path = folder.Path("a");
  EXPECT_TRUE(as_ordinary_user([&] { return !save_file_atomically(path, "new", "/tmp"); }));
  EXPECT_EQ(folder.Read("a"), "whole");
  EXPECT_EQ(Count(), 1u);
}

/// A file that all may write in a folder that none may, and a folder for rescue copies.
class ClosedFolder : public FileSave {
 protected:
  ClosedFolder() {
    folder.MakeFolder("closed");
    folder.MakeFolder("rescue");
    folder.Write("closed/a", "a long old text");
    chmod(folder.Path("closed/a").c_str(), 0666);
    chmod(folder.Path("closed").c_str(), 0555);
    chmod(folder.Path("rescue").c_str(), 0777);
    chmod(folder.Path().c_str(), 0755);
  }
  ~ClosedFolder() override { chmod(folder.Path("closed").c_str(), 0755); }
  const std::string path = folder.Path("closed/a");
};

TEST_F(ClosedFolder, WithoutARescueFolderTheSaveFails) {
  EXPECT_TRUE(as_ordinary_user([&] { return !save_file_atomically(path, "new"); }));
  EXPECT_EQ(folder.Read("closed/a"), "a long old text");
}

TEST_F(ClosedFolder, FileIsWrittenInPlace) {
  const std::string rescue = folder.Path("rescue");
  EXPECT_TRUE(as_ordinary_user([&] { return save_file_atomically(path, "new", rescue); }));
  EXPECT_EQ(folder.Read("closed/a"), "new");
  EXPECT_FALSE(std::filesystem::exists(folder.Path("rescue/Rescue-a")));
}

TEST_F(ClosedFolder, NothingIsTouchedWithoutTheRescueCopy) {
  const std::string rescue = folder.Path("none");
  EXPECT_TRUE(as_ordinary_user([&] { return !save_file_atomically(path, "new", rescue); }));
  EXPECT_EQ(folder.Read("closed/a"), "a long old text");
}

TEST_F(ClosedFolder, NewFileCannotBeMadeThere) {
  const std::string other = folder.Path("closed/b");
  const std::string rescue = folder.Path("rescue");
  EXPECT_TRUE(as_ordinary_user([&] { return !save_file_atomically(other, "new", rescue); }));
  EXPECT_FALSE(std::filesystem::exists(other));
}

TEST_F(FileSave, FileOfAnotherOwnerIsWrittenInPlace) {
  if (geteuid() != 0) GTEST_SKIP() << "needs a file of another owner";
  folder.Write("a", "a long old text");
  chmod(folder.Path("a").c_str(), 0666);
  chmod(folder.Path().c_str(), 0777);
  const std::string path = folder.Path("a");
  const std::string place = folder.Path();
  EXPECT_TRUE(as_ordinary_user([&] { return save_file_atomically(path, "new", place); }));
  EXPECT_EQ(folder.Read("a"), "new");
  struct stat info {};
  stat(path.c_str(), &info);
  EXPECT_EQ(info.st_uid, 0u);
  EXPECT_EQ(Count(), 1u);
}

TEST_F(FileSave, ReadsRegularFilesUpToTheLimit) {
  folder.Write("a", std::string(100'000, 'x'));
  std::string bytes = "kept";
  EXPECT_FALSE(read_file_whole(folder.Path("a"), 99'999, &bytes));
  EXPECT_FALSE(read_file_whole(folder.Path("none"), 1, &bytes));
  EXPECT_FALSE(read_file_whole(folder.Path(), 1 << 20, &bytes));
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(read_file_whole(folder.Path("pipe"), 1 << 20, &bytes));
  EXPECT_EQ(bytes, "kept");
  EXPECT_TRUE(read_file_whole(folder.Path("a"), 100'000, &bytes));
  EXPECT_EQ(bytes, std::string(100'000, 'x'));
}

}  // namespace
}  // namespace zoka
