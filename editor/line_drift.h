// TLineDrift: where the lines of a text have gone since it was last looked at, told from the edits.
// It keeps no text.
#pragma once

#include <cstdint>
#include <vector>

namespace zoka {

/// Lines are physical ones, counted from 0.
class TLineDrift {
 public:
  /// The text is looked at now.
  void Reset();
  /// `removed` lines from `first` on have gone, and `added` new ones stand in their place.
  void Note(int32_t first, int32_t removed, int32_t added);
  /// It is another text altogether.
  void LoseAll() { mLost = true; }
  /// Where a line of then stands now, or -1 if it is gone.
  int32_t Now(int32_t line) const;
  /// Where a line of now stood then, or -1 if it was not there.
  int32_t Then(int32_t line) const;

 private:
  struct TEdit {
    int32_t first;
    int32_t removed;
    int32_t added;
  };

  std::vector<TEdit> mEdits;
  bool mLost = false;
};

}  // namespace zoka
