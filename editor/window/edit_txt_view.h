// TEditTxtView: the editor of the one list: bytes in and out, keys, colours, marks. It knows
// nothing of files and runs.
#pragma once

#include <Qsci/qsciscintilla.h>

#include <functional>
#include <string>
#include <string_view>

#include "app/settings/prefs.h"
#include "editor/list_document.h"
#include "editor/window/break_marks.h"
#include "editor/window/edit_readers.h"
#include "editor/window/list_lexer.h"

namespace zoka {

/// The indicator under jumps that lead nowhere.
constexpr int UNDEFINED_INDICATOR = 8;
/// The indicator around what is looked for.
constexpr int FOUND_INDICATOR = 9;

/// True for files that were dragged from another application: `source` is null then.
bool is_foreign_drop(const QObject* source, const QMimeData& data);

/// What the editor tells; all are set before it is used.
struct TEditCalls {
  /// The user, or an insertion, has changed the text.
  std::function<void()> edited;
  /// Files were dropped from another application.
  std::function<void(const QMimeData&)> dropped;
};

/// Window thread. Text is bytes: what is no UTF-8 is shown as it can be, and kept.
class TEditTxtView final : public QsciScintilla, public TEditText {
 public:
  explicit TEditTxtView(QWidget* parent);

  void SetCalls(TEditCalls calls) { mCalls = std::move(calls); }

  std::string Get() const override;
  void Set(const std::string& text) override;
  void Replace(const std::string& text) override;
  void Insert(const std::string& text) override;
  void Append(const std::string& text) override;

  void SetFontFamilyAndSize(const std::string& family, float points);
  void SetWordWrap(bool wrap);
  /// The cursor goes to the line of that offset, which comes into view.
  void GoToOffset(size_t offset);
  /// Marks a physical line as the place of a fault, and goes there; -1 takes the mark away.
  void MarkFault(int line);
  /// The marked line, or -1.
  int FaultLine() const;
  /// Breakpoints, and the line at which a program stands.
  TBreakMarks& BreakMarks() { return *mBreakMarks; }
  const TEditReaders& Readers() const { return mReaders; }
  /// Deletes the selection.
  void ClearSelection();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void SetKeys();
  void SetMarks();
  bool ReplaceLines(std::string_view text);
  void ApplyColours();
  /// The line of the cursor is lit up, or has the colour of a fault if it is marked as one.
  void ColourCaretLine();
  /// As many digits as the last line has, in the present size of the font.
  void FitNumberMargin();

  TEditReaders mReaders{*this};
  TEditCalls mCalls;
  TListLexer* mLexer;
  TBreakMarks* mBreakMarks = nullptr;
  bool mSetting = false;  // the text is being replaced as a whole: no edit
};

}  // namespace zoka
