// Shows the words, and shares the editor's keys with it.
#include "editor/window/completion_popup.h"

#include <Qsci/qscilexer.h>

#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>

namespace zoka {
namespace {

using S = QsciScintillaBase;

constexpr int MAX_ROWS = 8;
/// Room of an item beside its text.
constexpr int ITEM_MARGIN = 12;

}  // namespace

TCompletionPopup::TCompletionPopup(TEditTxtView& edit, const TListWatch& watch)
    : QListWidget(&edit), mEdit(edit), mWatch(watch) {
  setObjectName("CompletionPopup");
  setFocusPolicy(Qt::NoFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setUniformItemSizes(true);
  setFrameStyle(QFrame::Box | QFrame::Plain);
  hide();
  mEdit.installEventFilter(this);
  connect(&mEdit, &QsciScintillaBase::SCN_CHARADDED, this,
          [this](int character) { Typed(character); });
  // The note comes in the middle of painting, when nothing may be shown or hidden.
  connect(
      &mEdit, &QsciScintillaBase::SCN_UPDATEUI, this, [this](int updated) { Moved(updated); },
      Qt::QueuedConnection);
  connect(this, &QListWidget::itemClicked, this, [this] { Accept(); });
}

QStringList TCompletionPopup::Words() const {
  QStringList words;
  for (int row = 0; isVisible() && row < count(); ++row) words.append(item(row)->text());
  return words;
}

void TCompletionPopup::Typed(int character) {
  if (character == '\n' || character == '\r') return hide();
  Update(isVisible());
}

void TCompletionPopup::Update(bool asked) {
  const int64_t position = edit_call(mEdit, S::SCI_GETCURRENTPOS);
  const TListPlace cursor = place_of(mEdit, position);
  const TCompletion completion = complete_word(
      mWatch.Line(cursor.line), static_cast<size_t>(cursor.column), mWatch.Index(), asked);
  mBegin = position - cursor.column + static_cast<int64_t>(completion.begin);
  if (mBegin != mDismissed) mDismissed = -1;
  const bool unwanted = mBegin == mDismissed && !asked;
  if (completion.words.empty() || unwanted || mEdit.isReadOnly() || mEdit.hasSelectedText()) {
    return hide();
  }
  Show(completion);
}

void TCompletionPopup::Show(const TCompletion& completion) {
  clear();
  setFont(mEdit.lexer()->font(0));
  for (const std::string& word : completion.words) addItem(QString::fromStdString(word));
  setCurrentRow(0);
  mMoved = false;
  mEnd = edit_call(mEdit, S::SCI_GETCURRENTPOS);
  Place();
  show();
  raise();
}

void TCompletionPopup::Place() {
  const QWidget& view = *mEdit.viewport();
  const int rows = std::min(count(), MAX_ROWS);
  const int border = 2 * frameWidth();
  const int bar = count() > MAX_ROWS ? verticalScrollBar()->sizeHint().width() : 0;
  resize(std::min(sizeHintForColumn(0) + ITEM_MARGIN + bar + border, view.width()),
         sizeHintForRow(0) * rows + border);
  const auto x = static_cast<int>(edit_call(mEdit, S::SCI_POINTXFROMPOSITION, 0, mBegin));
  const auto y = static_cast<int>(edit_call(mEdit, S::SCI_POINTYFROMPOSITION, 0, mBegin));
  const auto lineHeight = static_cast<int>(edit_call(mEdit, S::SCI_TEXTHEIGHT, 0));
  const int below = y + lineHeight;
  const QPoint corner(std::clamp(x, 0, view.width() - width()),
                      below + height() <= view.height() ? below : std::max(y - height(), 0));
  move(view.mapTo(&mEdit, corner));
}

void TCompletionPopup::Move(int rows) {
  mMoved = true;
  setCurrentRow(std::clamp(currentRow() + rows, 0, count() - 1));
}

void TCompletionPopup::Accept() {
  const std::string word = currentItem() != nullptr ? currentItem()->text().toStdString() : "";
  hide();
  if (word.empty()) return;
  const long end = edit_call(mEdit, S::SCI_GETCURRENTPOS);
  mEdit.beginUndoAction();
  edit_call(mEdit, S::SCI_SETTARGETRANGE, mBegin, end);
  mEdit.SendScintilla(S::SCI_REPLACETARGET, word.size(), word.c_str());
  mEdit.endUndoAction();
  edit_call(mEdit, S::SCI_GOTOPOS, mBegin + static_cast<int64_t>(word.size()));
}

bool TCompletionPopup::KeyPressed(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Escape:
      mDismissed = mBegin;
      hide();
      return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
      Move(event.key() == Qt::Key_Up ? -1 : 1);
      return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      Move(event.key() == Qt::Key_PageUp ? -MAX_ROWS : MAX_ROWS);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!mMoved) break;
      Accept();
      return true;
    case Qt::Key_Tab:
      Accept();
      return true;
    case Qt::Key_Backspace:
    case Qt::Key_Shift:
      // Moved looks at what has become of the word.
      return false;
    default:
      // A letter goes on with the word; Typed looks at what has become of it.
      if (event.text().size() == 1 && event.text()[0].isPrint()) return false;
      break;
  }
  hide();
  return false;
}

bool TCompletionPopup::eventFilter(QObject* object, QEvent* event) {
  // The list watches parts of its own, too.
  if (object != &mEdit || !isVisible()) return QListWidget::eventFilter(object, event);
  if (event->type() == QEvent::KeyPress) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const bool plain = (key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    if (plain && KeyPressed(key)) return true;
    if (!plain) hide();
  }
  if (event->type() == QEvent::FocusOut || event->type() == QEvent::Resize) hide();
  return QListWidget::eventFilter(object, event);
}

void TCompletionPopup::Moved(int updated) {
  if (!isVisible()) return;
  const bool scrolled = (updated & (S::SC_UPDATE_V_SCROLL | S::SC_UPDATE_H_SCROLL)) != 0;
  if (edit_call(mEdit, S::SCI_GETCURRENTPOS) != mEnd) {
    const int64_t begin = mBegin;
    Update(true);
    // The cursor has left the word.
    if (mBegin != begin) hide();
  } else if (scrolled) {
    Place();
  }
}

}  // namespace zoka
