// THeldOutput: the items of a PRINT# or WRITE# that are still to come go out with the last one, by
// one call of the host. What is held never outlives its statement.
#pragma once

#include <string>
#include <string_view>

#include "run/screen/file.h"

namespace zoka {

/// Used by the machine's thread only.
class THeldOutput {
 public:
  /// Adds to what is held; what is held for another file goes out first. False if that failed.
  bool Add(TZokaFile* file, std::string_view text) {
    const bool isWritten = file == mFile || Flush();
    mFile = file;
    mText.append(text);
    return isWritten;
  }
  /// More than this is not worth holding.
  bool IsFull() const { return mText.size() >= MOST_HELD; }
  /// Writes what is held, if anything is. False on any failure; nothing is held afterwards.
  bool Flush() {
    if (mFile == nullptr) return true;
    const bool isWritten = mFile->Write(mText);
    mFile = nullptr;
    mText.clear();
    return isWritten;
  }

 private:
  static constexpr size_t MOST_HELD = 4096;

  TZokaFile* mFile = nullptr;
  std::string mText;
};

}  // namespace zoka
