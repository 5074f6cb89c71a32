// Makes the text that is compiled and keeps account of where its bytes came from.
#include "editor/format_source.h"

#include <algorithm>

#include "editor/renumber.h"

namespace zoka {

namespace {

/// Walks through the editor's text and counts its line ends; asked for ascending offsets.
class TLineCounter {
 public:
  explicit TLineCounter(std::string_view text) : mText(text) {}

  int32_t LineAt(size_t offset) {
    for (; mAt < offset && mAt < mText.size(); ++mAt) {
      const bool pair = mText[mAt] == '\r' && mAt + 1 < mText.size() && mText[mAt + 1] == '\n';
      if (mText[mAt] == '\n' || (mText[mAt] == '\r' && !pair)) ++mLine;
    }
    return mLine;
  }

 private:
  std::string_view mText;
  size_t mAt = 0;
  int32_t mLine = 0;
};

}  // namespace

TFmtSrc CreateFmtSrc(std::string_view text) {
  text = text.substr(0, text.find('\0'));
  TFmtSrc source;
  source.mText = text;
  source.mEditorSize = text.size();
  std::replace(source.mText.begin(), source.mText.end(), '\r', '\n');
  std::replace(source.mText.begin(), source.mText.end(), END_MARK, '\n');
  source.Number();
  source.CutLines();
  source.MapLines(text);
  return source;
}

void TFmtSrc::Number() {
  if (is_numbered(mText)) return;
  const std::vector<TRenumEdit> edits = renumber_edits(mText, 1, 1, 1);
  mInserts.reserve(edits.size());
  size_t growth = 0;  // only wraps in between: a line may lose digits before it gains a number
  for (const TRenumEdit& edit : edits) {
    const size_t length = std::to_string(edit.number).size() + (edit.blank ? 1 : 0);
    mInserts.push_back({edit.position + growth, length, edit.position, edit.removed});
    growth += length - edit.removed;
  }
  mText = apply_renumber(mText, edits);
}

void TFmtSrc::CutLines() {
  size_t column = 0;
  for (char& c : mText) {
    if (c == '\n') {
      column = 0;
    } else if (column++ >= MAX_LINE_BYTES) {
      c = '\n';
    }
  }
}

void TFmtSrc::MapLines(std::string_view editorText) {
  TLineCounter counter(editorText);
  mEditorLines.push_back(0);
  for (size_t at = mText.find('\n'); at != std::string::npos; at = mText.find('\n', at + 1))
    mEditorLines.push_back(counter.LineAt(EditorOffset(at + 1)));
}

size_t TFmtSrc::EditorOffset(size_t offset) const {
  const auto after =
      std::upper_bound(mInserts.begin(), mInserts.end(), offset,
                       [](size_t value, const TInsert& insert) { return value < insert.begin; });
  if (after == mInserts.begin()) return std::min(offset, mEditorSize);
  const TInsert& insert = after[-1];
  const size_t inside = offset - insert.begin;
  if (inside < insert.length) return insert.editorBegin;
  const size_t behind = insert.editorBegin + insert.editorLength + (inside - insert.length);
  return std::min(behind, mEditorSize);
}

int32_t TFmtSrc::EditorLine(int32_t line) const {
  const int32_t last = static_cast<int32_t>(mEditorLines.size()) - 1;
  return mEditorLines[static_cast<size_t>(std::clamp(line, 0, last))];
}

int32_t TFmtSrc::FormattedLine(int32_t editorLine) const {
  const auto found = std::lower_bound(mEditorLines.begin(), mEditorLines.end(), editorLine);
  if (found == mEditorLines.end() || *found != editorLine) return -1;
  return static_cast<int32_t>(found - mEditorLines.begin());
}

}  // namespace zoka
