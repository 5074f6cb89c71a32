// The bar's fields, and what its buttons do to the list.
#include "editor/window/find_bar.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <algorithm>

#include "common/window/menu_label.h"

namespace zoka {
namespace {

using S = QsciScintillaBase;

/// After the last key, so that counting does not get in the way of typing.
constexpr int COUNT_DELAY_MS = 200;

unsigned long place(int64_t position) {
  return static_cast<unsigned long>(position);
}

}  // namespace

TFindBar::TFindBar(QWidget* parent, const TEngineContext& context, TEditTxtView& edit)
    : QWidget(parent),
      mContext(context),
      mEdit(edit),
      mFind(new QLineEdit(this)),
      mReplace(new QLineEdit(this)),
      mCase(new QCheckBox(this)),
      mWord(new QCheckBox(this)),
      mRegex(new QCheckBox(this)),
      mNext(new QPushButton(this)),
      mPrevious(new QPushButton(this)),
      mReplaceOne(new QPushButton(this)),
      mReplaceAll(new QPushButton(this)),
      mClose(new QPushButton(this)),
      mCount(new QLabel(this)),
      mMarks(edit) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(4, 4, 4, 4);
  QWidget* const rows[2][6] = {{mFind, mPrevious, mNext, mCase, mWord, mRegex},
                               {mReplace, mReplaceOne, mReplaceAll, mCount, nullptr, mClose}};
  for (int row = 0; row < 2; ++row) {
    for (int column = 0; column < 6; ++column) {
      if (rows[row][column] != nullptr) grid->addWidget(rows[row][column], row, column);
    }
  }
  grid->setColumnStretch(0, 1);
  grid->setAlignment(mClose, Qt::AlignRight);
  connect(mNext, &QPushButton::clicked, this, [this] { FindNext(); });
  connect(mPrevious, &QPushButton::clicked, this, [this] { FindPrevious(); });
  connect(mReplaceOne, &QPushButton::clicked, this, [this] { ReplaceOne(); });
  connect(mReplaceAll, &QPushButton::clicked, this, [this] { ReplaceAll(); });
  connect(mClose, &QPushButton::clicked, this, [this] {
    hide();
    mEdit.setFocus();
  });
  connect(mFind, &QLineEdit::textChanged, this, [this] {
    // What is typed is looked for at once, below, which shows the count as well.
    if (!mFind->isModified()) ShowCount();
  });
  connect(mFind, &QLineEdit::textEdited, this, [this] { FindTyped(); });
  for (QCheckBox* box : {mCase, mWord, mRegex}) {
    connect(box, &QCheckBox::toggled, this, [this] { ShowCount(); });
  }
  mCountTimer.setSingleShot(true);
  mCountTimer.setInterval(COUNT_DELAY_MS);
  connect(&mCountTimer, &QTimer::timeout, this, [this] { ShowCount(); });
  connect(&mEdit, &QsciScintilla::textChanged, this, [this] {
    if (isVisible()) mCountTimer.start();
  });
  SetLabels();
  hide();
}

void TFindBar::SetLabels() {
  const auto text = [this](const char* key) { return localized(mContext, key); };
  mFind->setPlaceholderText(text("Find"));
  mFind->setAccessibleName(text("Find"));
  mReplace->setPlaceholderText(text("Replace by"));
  mReplace->setAccessibleName(text("Replace by"));
  mNext->setText(text("Next"));
  mPrevious->setText(text("Previous"));
  mReplaceOne->setText(text("Replace"));
  mReplaceAll->setText(text("Replace All"));
  mClose->setText(text("Close"));
  mCase->setText(text("Match Case"));
  mWord->setText(text("Whole Words"));
  mRegex->setText(text("Regular Expression"));
  ShowCount();
}

void TFindBar::Appear() {
  const QString selected = mEdit.selectedText();
  if (!selected.isEmpty() && !selected.contains('\n')) mFind->setText(selected);
  show();
  mFind->setFocus();
  mFind->selectAll();
  mOrigin = SelectionBegin();
  ShowCount();
}

void TFindBar::AppearToReplace() {
  Appear();
  if (!mFind->text().isEmpty()) mReplace->setFocus();
  mReplace->selectAll();
}

int64_t TFindBar::SelectionBegin() const {
  return mEdit.SendScintilla(S::SCI_GETSELECTIONSTART);
}

int64_t TFindBar::SelectionEnd() const {
  return mEdit.SendScintilla(S::SCI_GETSELECTIONEND);
}

std::vector<TFound> TFindBar::All() const {
  const TSearchWish wish{mFind->text(), mCase->isChecked(), mWord->isChecked(),
                         mRegex->isChecked()};
  return TTextSearch(wish).All(mEdit.Get(), mReplace->text());
}

bool TFindBar::Find(bool forward) {
  const std::vector<TFound> all = All();
  ShowFound(all);
  if (all.empty()) return false;
  const int64_t begin = SelectionBegin();
  const int64_t end = SelectionEnd();
  const TFound* next = forward ? &all.front() : &all.back();
  for (const TFound& found : all) {
    // An empty occurrence at the cursor is where the search comes from.
    const bool ahead = found.begin >= end && (found.begin < found.end || found.begin > end);
    const bool behind = found.end <= begin && (found.begin < found.end || found.end < begin);
    if (forward && ahead) {
      next = &found;
      break;
    }
    if (!forward && behind) next = &found;
  }
  mOrigin = next->begin;
  Select(*next);
  return true;
}

void TFindBar::FindTyped() {
  const std::vector<TFound> all = All();
  ShowFound(all);
  const auto ahead = std::find_if(all.begin(), all.end(),
                                  [this](const TFound& found) { return found.begin >= mOrigin; });
  if (ahead != all.end()) return Select(*ahead);
  // From the top again; without any, back to where it began.
  Select(all.empty() ? TFound{mOrigin, mOrigin, {}} : all.front());
}

void TFindBar::Select(const TFound& found) {
  mEdit.SendScintilla(S::SCI_SETSEL, place(found.begin), static_cast<long>(found.end));
  mEdit.SendScintilla(S::SCI_VERTICALCENTRECARET);
}

void TFindBar::Replace(int64_t begin, int64_t end, const std::string& with) {
  mEdit.SendScintilla(S::SCI_SETTARGETRANGE, place(begin), static_cast<long>(end));
  mEdit.SendScintilla(S::SCI_REPLACETARGET, static_cast<unsigned long>(with.size()), with.data());
}

void TFindBar::ReplaceOne() {
  const int64_t begin = SelectionBegin();
  const int64_t end = SelectionEnd();
  for (const TFound& found : All()) {
    if (found.begin != begin || found.end != end || begin == end) continue;
    Replace(begin, end, found.with);
    const auto behind = begin + static_cast<int64_t>(found.with.size());
    mEdit.SendScintilla(S::SCI_SETSEL, place(behind), static_cast<long>(behind));
    break;
  }
  FindNext();
}

int TFindBar::ReplaceAll() {
  const std::vector<TFound> all = All();
  if (!all.empty()) {
    // At once: the component's own work for each change grows with the text.
    mEdit.beginUndoAction();
    Replace(all.front().begin, all.back().end, replaced_range(mEdit.Get(), all));
    mEdit.endUndoAction();
  }
  ShowCount();
  return static_cast<int>(all.size());
}

int TFindBar::Count() const {
  return static_cast<int>(All().size());
}

void TFindBar::ShowFound(const std::vector<TFound>& all) {
  mCountTimer.stop();
  const std::string count = replace_placeholder(mContext.catalogue->GetString("Found: %Num%"),
                                                "%Num%", std::to_string(all.size()));
  // A number means something only if something is looked for.
  mCount->setText(mFind->text().isEmpty() ? QString() : QString::fromStdString(count));
  if (isVisible()) mMarks.Show(all);
}

void TFindBar::hideEvent(QHideEvent* event) {
  // Not when the whole window is put away.
  if (!event->spontaneous()) mMarks.Clear();
  QWidget::hideEvent(event);
}

void TFindBar::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return mClose->click();
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter) return QWidget::keyPressEvent(event);
  if (mReplace->hasFocus()) return ReplaceOne();
  Find((event->modifiers() & Qt::ShiftModifier) == 0);
}

}  // namespace zoka
