// Reading ahead into a buffer that any write to the same file makes stale; positions are our own,
// the system's is not used.
#include "common/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <map>
#include <utility>

#include "common/immortal.h"
#include "common/mutex.h"

namespace zoka {

namespace {

constexpr size_t BUFFER_BYTES = 64 * 1024;
constexpr mode_t NEW_FILE_MODE = 0666;
constexpr char TYPE_ATTRIBUTE[] = "user.mime_type";

/// 0 for a regular file, else the errno that refuses it.
int refuse_irregular(const struct stat& status) {
  if (S_ISREG(status.st_mode)) return 0;
  return S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
}

/// Looks before opening, since the mere opening of a device may have effects.
int check_before_opening(const char* path) {
  struct stat status;
  return stat(path, &status) == 0 ? refuse_irregular(status) : 0;
}

/// Opens for good; never waits for a pipe's other end should one have come in between.
int open_file(const char* path, int flags, struct stat* status) {
  int descriptor = -1;
  do {
    descriptor = open(path, flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, NEW_FILE_MODE);
  } while (descriptor < 0 && errno == EINTR);
  if (descriptor < 0) return -errno;
  const int error = fstat(descriptor, status) == 0 ? refuse_irregular(*status) : errno;
  if (error == 0) return descriptor;
  close(descriptor);
  return -error;
}

}  // namespace

std::shared_ptr<TBasicFile::TWriteCount> TBasicFile::SharedCount(dev_t device, ino_t inode) {
  static auto& lock = immortal<TMutex>(TLockRank::Leaf);
  using TCounts = std::map<std::pair<dev_t, ino_t>, std::weak_ptr<TWriteCount>>;
  static auto& counts = immortal<TCounts>();
  TLock hold(lock);
  std::erase_if(counts, [](const auto& entry) { return entry.second.expired(); });
  std::weak_ptr<TWriteCount>& entry = counts[{device, inode}];
  std::shared_ptr<TWriteCount> count = entry.lock();
  if (!count) {
    count = std::make_shared<TWriteCount>(0);
    entry = count;
  }
  return count;
}

int TBasicFile::SetTo(const std::string& path, int flags) {
  Unset();
  const int refusal = check_before_opening(path.c_str());
  if (refusal != 0) return refusal;
  struct stat status;
  const int descriptor = open_file(path.c_str(), flags, &status);
  if (descriptor < 0) return -descriptor;
  mDescriptor = descriptor;
  mAppends = (flags & O_APPEND) != 0;
  mWrites = SharedCount(status.st_dev, status.st_ino);
  if ((flags & O_TRUNC) != 0) mWrites->fetch_add(1, std::memory_order_release);
  mWritesSeen = mWrites->load(std::memory_order_acquire);
  if (mAppends) Seek(status.st_size);
  return 0;
}

void TBasicFile::Unset() {
  if (mDescriptor >= 0) close(mDescriptor);
  mDescriptor = -1;
  mWrites.reset();
  mBuffer.reset();
  StartBufferAt(0);
}

void TBasicFile::Seek(int64_t position) {
  // What is in the buffer stays: one byte back, behind a look ahead, must not cost a reading.
  if (position >= mBufferStart && position - mBufferStart < static_cast<int64_t>(mFilled)) {
    mNext = static_cast<size_t>(position - mBufferStart);
    return;
  }
  StartBufferAt(position);
}

void TBasicFile::StartBufferAt(int64_t position) {
  mBufferStart = position;
  mNext = 0;
  mFilled = 0;
}

bool TBasicFile::Fill() {
  if (!mBuffer) mBuffer = std::make_unique<char[]>(BUFFER_BYTES);
  StartBufferAt(Position());
  mWritesSeen = mWrites->load(std::memory_order_acquire);
  ssize_t count = -1;
  do {
    count = pread(mDescriptor, mBuffer.get(), BUFFER_BYTES, mBufferStart);
  } while (count < 0 && errno == EINTR);
  if (count <= 0) return false;
  mFilled = static_cast<size_t>(count);
  return true;
}

bool TBasicFile::ReadByteSlowly(char* byte) {
  if (!Fill()) return false;
  *byte = mBuffer[mNext++];
  return true;
}

bool TBasicFile::ReadLine(std::string* line, size_t limit) {
  line->clear();
  char byte = 0;
  bool any = false;
  while (line->size() < limit && ReadByte(&byte)) {
    any = true;
    if (byte == '\n') break;
    line->push_back(byte);
  }
  return any || (limit == 0 && !Eof());
}

bool TBasicFile::Write(std::string_view bytes) {
  int64_t position = Position();
  bool isWhole = true;
  while (!bytes.empty()) {
    const ssize_t count = mAppends ? write(mDescriptor, bytes.data(), bytes.size())
                                   : pwrite(mDescriptor, bytes.data(), bytes.size(), position);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) {
      isWhole = false;
      break;
    }
    position += count;
    bytes.remove_prefix(static_cast<size_t>(count));
  }
  mWrites->fetch_add(1, std::memory_order_release);
  StartBufferAt(mAppends ? Size() : position);
  return isWhole;
}

bool TBasicFile::WriteLine(std::string_view line) {
  std::string whole;
  whole.reserve(line.size() + 1);
  whole.append(line).push_back('\n');
  return Write(whole);
}

bool TBasicFile::Eof() {
  if (mNext < mFilled && !IsStale()) return false;
  return Position() >= Size();
}

int64_t TBasicFile::Size() const {
  struct stat status;
  return fstat(mDescriptor, &status) == 0 ? status.st_size : 0;
}

void TBasicFile::SetTypeIfNone(const char* mimeType) {
  // XATTR_CREATE leaves an attribute alone that is there.
  static_cast<void>(
      fsetxattr(mDescriptor, TYPE_ATTRIBUTE, mimeType, std::strlen(mimeType), XATTR_CREATE) == 0);
}

}  // namespace zoka
