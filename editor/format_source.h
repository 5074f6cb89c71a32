// The text that is compiled, made from whatever the editor holds, and the way back from it to the
// editor's bytes and lines. The editor's own text is never changed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zoka {

/// Bytes of a line that are compiled; what stands beyond is lost without a message.
constexpr size_t MAX_LINE_BYTES = 500;

/// A formatted list with its map. Offsets are bytes, lines are physical lines counted from 0. The
/// editor's lines end at LF, at CR and at the pair of both; the formatted text's end at LF only.
class TFmtSrc {
 public:
  const std::string& Text() const { return mText; }

  /// True if the list had no line numbers and was given some.
  bool IsNumberedHere() const { return !mInserts.empty(); }

  /// The editor's offset of a byte of the formatted text. A number that was put in maps to the
  /// place where it would stand. Offsets beyond the text give the end of the editor's text.
  size_t EditorOffset(size_t offset) const;

  /// The editor's line of a line of the formatted text; the last one beyond the end.
  int32_t EditorLine(int32_t line) const;

  /// The first line of the formatted text that belongs to a line of the editor, or -1 if none does
  /// (beyond the end).
  int32_t FormattedLine(int32_t editorLine) const;

 private:
  friend TFmtSrc CreateFmtSrc(std::string_view text);

  /// Bytes that stand for other bytes of the editor: the formatted ones, then the editor's.
  struct TInsert {
    size_t begin;
    size_t length;
    size_t editorBegin;
    size_t editorLength;
  };

  void Number();
  void CutLines();
  void MapLines(std::string_view editorText);

  std::string mText;
  size_t mEditorSize = 0;
  std::vector<TInsert> mInserts;      // ascending
  std::vector<int32_t> mEditorLines;  // by formatted line; never descending
};

/// Normalises a list: each CR and each 0x1A becomes a line feed; a list whose first byte is no
/// digit gets the line numbers 1, 2, 3 and so on, in place of any numbers that its later lines
/// have; each byte of a line beyond MAX_LINE_BYTES becomes a line feed, also in the middle of a
/// character. The list ends at its first NUL.
TFmtSrc CreateFmtSrc(std::string_view text);

}  // namespace zoka
