// The steps of an atomic save, on POSIX calls.
#include "common/file_save.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <vector>

#include "common/file_path.h"
#include "common/write_all.h"

namespace zoka {

namespace {

/// As many links in a row as the host itself follows.
constexpr int MAX_LINKS = 40;
/// Names that are tried for the temporary file.
constexpr int MAX_TEMP_NAMES = 1000;
constexpr mode_t MODE_BITS = 07777;
constexpr mode_t NEW_FILE_MODE = 0666;
constexpr mode_t PRIVATE_MODE = 0600;

/// Closes a descriptor at the end of its scope.
class TDescriptor {
 public:
  explicit TDescriptor(int fd = -1) : mFd(fd) {}
  ~TDescriptor() { Close(); }
  TDescriptor(const TDescriptor&) = delete;
  TDescriptor& operator=(const TDescriptor&) = delete;
  int Get() const { return mFd; }
  bool Close() {
    const int fd = mFd;
    mFd = -1;
    return fd < 0 || close(fd) == 0;
  }

 private:
  int mFd;
};

/// Follows links to the file that is meant, which need not exist. False for a circle of links.
bool resolve_links(std::string* path) {
  for (int i = 0; i < MAX_LINKS; ++i) {
    char target[PATH_MAX];
    const ssize_t length = readlink(path->c_str(), target, sizeof target);
    if (length < 0) return errno == EINVAL || errno == ENOENT;
    const std::string link(target, static_cast<size_t>(length));
    *path = link.starts_with('/') ? link : extract_file_folder_path_kernel(*path) + "/" + link;
  }
  return false;
}

/// Copies one attribute. Those outside of "user." belong to the system, which may keep them to
/// itself: they are carried over where it allows.
bool copy_attribute(const std::string& from, int to, const char* name) {
  const ssize_t size = getxattr(from.c_str(), name, nullptr, 0);
  std::vector<char> value(size > 0 ? static_cast<size_t>(size) : 0);
  const bool copied = size >= 0 &&
                      getxattr(from.c_str(), name, value.data(), value.size()) == size &&
                      fsetxattr(to, name, value.data(), value.size(), 0) == 0;
  return copied || !std::string_view(name).starts_with("user.");
}

bool copy_attributes(const std::string& from, int to) {
  const ssize_t size = listxattr(from.c_str(), nullptr, 0);
  if (size <= 0) return size == 0 || errno == ENOTSUP;
  std::vector<char> names(static_cast<size_t>(size));
  if (listxattr(from.c_str(), names.data(), names.size()) != size) return false;
  for (size_t at = 0; at < names.size(); at += std::string_view(&names[at]).size() + 1) {
    if (!copy_attribute(from, to, &names[at])) return false;
  }
  return true;
}

/// Gives the new file what the old one had.
bool copy_properties(const std::string& from, const struct stat& old, int to) {
  struct stat made {};
  if (fstat(to, &made) != 0) return false;
  if ((made.st_uid != old.st_uid || made.st_gid != old.st_gid) &&
      fchown(to, old.st_uid, old.st_gid) != 0) {
    return false;
  }
  // Behind the owner, whose change takes some of the bits away.
  return fchmod(to, old.st_mode & MODE_BITS) == 0 && copy_attributes(from, to);
}

/// Makes an empty file with a name of its own in `folder`.
int create_temp_file(const std::string& folder, mode_t mode, std::string* path) {
  for (int i = 0; i < MAX_TEMP_NAMES; ++i) {
    *path = folder + "/.zoka-" + std::to_string(getpid()) + "-" + std::to_string(i) + ".tmp";
    const int fd = open(path->c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
    if (fd >= 0 || errno != EEXIST) return fd;
  }
  return -1;
}

void sync_folder(const std::string& folder) {
  // The file is replaced already; a host that cannot do this has no better answer.
  TDescriptor fd(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (fd.Get() >= 0) fsync(fd.Get());
}

enum class TOutcome { Done, Failed, NotReplaceable };

bool is_refusal(int error) {
  return error == EACCES || error == EPERM || error == EROFS;
}

/// Writes a temporary file beside `target` and puts it in its place. `old` is null for a new file.
TOutcome replace_file(const std::string& target, std::string_view bytes, const struct stat* old) {
  const std::string folder = extract_file_folder_path_kernel(target);
  std::string temp;
  TDescriptor fd(create_temp_file(folder, old ? PRIVATE_MODE : NEW_FILE_MODE, &temp));
  if (fd.Get() < 0) return is_refusal(errno) ? TOutcome::NotReplaceable : TOutcome::Failed;
  TOutcome outcome = TOutcome::Failed;
  if (write_all(fd.Get(), bytes)) {
    if (old && !copy_properties(target, *old, fd.Get())) {
      outcome = TOutcome::NotReplaceable;
    } else if (fsync(fd.Get()) == 0 && fd.Close() && rename(temp.c_str(), target.c_str()) == 0) {
      outcome = TOutcome::Done;
    }
  }
  if (outcome == TOutcome::Done) {
    sync_folder(folder);
  } else {
    unlink(temp.c_str());
  }
  return outcome;
}

bool write_in_place(const std::string& target, std::string_view bytes) {
  TDescriptor fd(open(target.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW));
  return fd.Get() >= 0 && write_all(fd.Get(), bytes) &&
         ftruncate(fd.Get(), static_cast<off_t>(bytes.size())) == 0 && fsync(fd.Get()) == 0 &&
         fd.Close();
}

bool save_in_place(const std::string& target, std::string_view bytes,
                   const std::string& rescueFolder) {
  if (rescueFolder.empty()) return false;
  const std::string rescue = rescueFolder + "/" + RESCUE_PREFIX + extract_file_name(target);
  if (!save_file_atomically(rescue, bytes) || !write_in_place(target, bytes)) return false;
  unlink(rescue.c_str());
  return true;
}

}  // namespace

bool save_file_atomically(const std::string& path, std::string_view bytes,
                          const std::string& rescueFolder) {
  std::string target = path;
  if (path.empty() || !resolve_links(&target)) return false;
  struct stat old {};
  const bool exists = stat(target.c_str(), &old) == 0;
  if (exists ? !S_ISREG(old.st_mode) : errno != ENOENT) return false;
  // A file that may not be written stays as it is, although its folder would let it be replaced.
  if (exists && access(target.c_str(), W_OK) != 0) return false;
  const TOutcome outcome = replace_file(target, bytes, exists ? &old : nullptr);
  if (outcome == TOutcome::NotReplaceable && exists) {
    return save_in_place(target, bytes, rescueFolder);
  }
  return outcome == TOutcome::Done;
}

bool read_file_whole(const std::string& path, size_t limit, std::string* out) {
  // Without waiting, so that a pipe of that name holds nobody up.
  TDescriptor fd(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat info {};
  if (fd.Get() < 0 || fstat(fd.Get(), &info) != 0 || !S_ISREG(info.st_mode)) return false;
  std::string bytes;
  char piece[1 << 16];
  for (;;) {
    const ssize_t count = read(fd.Get(), piece, sizeof piece);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    if (count == 0) break;
    bytes.append(piece, static_cast<size_t>(count));
    if (bytes.size() > limit) return false;
  }
  *out = std::move(bytes);
  return true;
}

}  // namespace zoka
