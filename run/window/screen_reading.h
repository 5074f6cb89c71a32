// TScreenReading: the text of the simulated screen as readers of the screen walk it, and where each
// of its characters stands. It knows no toolkit but its strings, and no pixels.
#pragma once

#include <QString>
#include <cstdint>
#include <vector>

#include "run/screen/basic_rsrc.h"

namespace zoka {

/// The cells that a character covers.
struct TReadPlace {
  int32_t cell = 0;
  int32_t cells = 1;  // 2 for a wide character
  bool operator==(const TReadPlace&) const = default;
};

/// A copy: nothing of the screen is held. Offsets count the toolkit's characters (UTF-16).
class TScreenReading {
 public:
  TScreenReading() = default;
  explicit TScreenReading(const TTxtSnapshot& screen);

  /// The rows without their trailing empty cells, a line feed after each.
  const QString& Text() const { return mText; }
  /// Where the character at `offset` stands; line feeds stand behind their row's text. Offsets
  /// outside the text count as its ends.
  TReadPlace PlaceOf(int offset) const;
  /// The character that covers a cell, or the line feed of its row; cells outside the screen count
  /// as its ends.
  int OffsetOf(int32_t cell) const;
  /// The offset of the cursor.
  int Cursor() const { return mCursor; }

 private:
  void ReadRow(const TTxtSnapshot& screen, int32_t row);

  QString mText;
  std::vector<TReadPlace> mPlaces;  // of each character of mText
  std::vector<int> mRowStarts;      // offsets, and the text's end
  int32_t mCols = 1;
  int mCursor = 0;
};

/// What must be done to one text to get another: at `start`, `removed` goes and `added` comes. Both
/// are empty for equal texts.
struct TTextChange {
  int start = 0;
  QString removed;
  QString added;
};

/// The smallest single change; no pair of surrogates is torn.
TTextChange text_change(const QString& before, const QString& after);

}  // namespace zoka
