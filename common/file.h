// TBasicFile: a regular file that is read byte by byte and written at once. Several may be open on
// the same file: what one writes, the next read of any other sees.
#pragma once

#include <sys/types.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace zoka {

/// A file with one position, which reading and writing share. Not locked: one thread at a time.
class TBasicFile {
 public:
  TBasicFile() = default;
  ~TBasicFile() { Unset(); }
  TBasicFile(const TBasicFile&) = delete;
  TBasicFile& operator=(const TBasicFile&) = delete;

  /// Closes what was open and opens `path` with flags of open(2); new files get mode 0666 less the
  /// umask, and no started program inherits the file. The position is 0, or the end with O_APPEND.
  /// Returns 0 or an errno: anything but a regular file is refused without harm (EISDIR, EINVAL).
  int SetTo(const std::string& path, int flags);
  /// True between a successful SetTo and Unset. All that follows needs it.
  bool IsOpen() const { return mDescriptor >= 0; }
  void Unset();

  /// Reads one byte; false at the end of the file or on a failure.
  bool ReadByte(char* byte) {
    if (mNext >= mFilled || IsStale()) return ReadByteSlowly(byte);
    *byte = mBuffer[mNext++];
    return true;
  }
  /// Reads up to a line feed, which is taken but not stored, up to `limit` bytes or up to the end.
  /// False if the file was at its end.
  bool ReadLine(std::string* line, size_t limit = SIZE_MAX);

  /// Writes all of `bytes` at the position (with O_APPEND at the end) and moves it behind them.
  /// They have left the process on return. False on any failure, such as a full disk.
  bool Write(std::string_view bytes);
  /// The same with a line feed behind.
  bool WriteLine(std::string_view line);

  /// True if the position is at the end of the file or beyond.
  bool Eof();

  /// The position in bytes; Seek takes any that is not negative.
  int64_t Position() const { return mBufferStart + static_cast<int64_t>(mNext); }
  void Seek(int64_t position);

  /// Sets the file's type attribute unless it has one. Quietly nothing where there are none.
  void SetTypeIfNone(const char* mimeType);

 private:
  /// Counts the writes to one file of the disk, through whatever object.
  using TWriteCount = std::atomic<uint64_t>;

  static std::shared_ptr<TWriteCount> SharedCount(dev_t device, ino_t inode);

  bool IsStale() const { return mWrites->load(std::memory_order_acquire) != mWritesSeen; }
  /// Moves there with nothing in the buffer.
  void StartBufferAt(int64_t position);
  bool ReadByteSlowly(char* byte);
  bool Fill();
  int64_t Size() const;

  int mDescriptor = -1;
  bool mAppends = false;
  std::shared_ptr<TWriteCount> mWrites;
  uint64_t mWritesSeen = 0;
  std::unique_ptr<char[]> mBuffer;  // made by the first read
  int64_t mBufferStart = 0;         // where in the file the buffer's first byte lies
  size_t mNext = 0;                 // of the buffer; the position lies here
  size_t mFilled = 0;
};

}  // namespace zoka
