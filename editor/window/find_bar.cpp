// Searching by the component's own search, whose offsets are bytes.
#include "editor/window/find_bar.h"

#include <QGridLayout>
#include <QKeyEvent>

#include "common/window/menu_label.h"

namespace zoka {
namespace {

using S = QsciScintillaBase;

unsigned long place(long position) {
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
      mCount(new QLabel(this)) {
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
  connect(mNext, &QPushButton::clicked, this, [this] { FindNext(); });
  connect(mPrevious, &QPushButton::clicked, this, [this] { FindPrevious(); });
  connect(mReplaceOne, &QPushButton::clicked, this, [this] { ReplaceOne(); });
  connect(mReplaceAll, &QPushButton::clicked, this, [this] { ReplaceAll(); });
  connect(mClose, &QPushButton::clicked, this, [this] {
    hide();
    mEdit.setFocus();
  });
  connect(mFind, &QLineEdit::textChanged, this, [this] { ShowCount(); });
  for (QCheckBox* box : {mCase, mWord, mRegex}) {
    connect(box, &QCheckBox::toggled, this, [this] { ShowCount(); });
  }
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
  ShowCount();
}

int TFindBar::SearchFlags() const {
  int flags = 0;
  if (mCase->isChecked()) flags |= S::SCFIND_MATCHCASE;
  if (mWord->isChecked()) flags |= S::SCFIND_WHOLEWORD;
  if (mRegex->isChecked()) flags |= S::SCFIND_REGEXP | S::SCFIND_CXX11REGEX;
  return flags;
}

bool TFindBar::Search(long from, long to, long* begin, long* end) const {
  const std::string wanted = mFind->text().toStdString();
  if (wanted.empty()) return false;
  mEdit.SendScintilla(S::SCI_SETSEARCHFLAGS, SearchFlags());
  mEdit.SendScintilla(S::SCI_SETTARGETRANGE, place(from), to);
  if (mEdit.SendScintilla(S::SCI_SEARCHINTARGET, place(static_cast<long>(wanted.size())),
                          wanted.c_str()) < 0) {
    return false;
  }
  *begin = mEdit.SendScintilla(S::SCI_GETTARGETSTART);
  *end = mEdit.SendScintilla(S::SCI_GETTARGETEND);
  return true;
}

bool TFindBar::Find(bool forward) {
  const long length = mEdit.SendScintilla(S::SCI_GETLENGTH);
  const long from =
      mEdit.SendScintilla(forward ? S::SCI_GETSELECTIONEND : S::SCI_GETSELECTIONSTART);
  long begin = 0;
  long end = 0;
  const bool found = forward ? Search(from, length, &begin, &end) || Search(0, from, &begin, &end)
                             : Search(from, 0, &begin, &end) || Search(length, from, &begin, &end);
  if (found) {
    mEdit.SendScintilla(S::SCI_SETSEL, place(begin), end);
    mEdit.SendScintilla(S::SCI_VERTICALCENTRECARET);
  }
  ShowCount();
  return found;
}

void TFindBar::ReplaceTarget(long begin, long end, long* newEnd) {
  const std::string with = mReplace->text().toStdString();
  mEdit.SendScintilla(S::SCI_SETTARGETRANGE, place(begin), end);
  const long length =
      mEdit.SendScintilla(mRegex->isChecked() ? S::SCI_REPLACETARGETRE : S::SCI_REPLACETARGET,
                          place(static_cast<long>(with.size())), with.c_str());
  *newEnd = begin + length;
}

void TFindBar::ReplaceOne() {
  const long selBegin = mEdit.SendScintilla(S::SCI_GETSELECTIONSTART);
  const long selEnd = mEdit.SendScintilla(S::SCI_GETSELECTIONEND);
  long begin = 0;
  long end = 0;
  if (Search(selBegin, selEnd, &begin, &end) && begin == selBegin && end == selEnd && begin < end) {
    long newEnd = 0;
    ReplaceTarget(begin, end, &newEnd);
    mEdit.SendScintilla(S::SCI_SETSEL, place(newEnd), newEnd);
  }
  FindNext();
}

int TFindBar::ReplaceAll() {
  int count = 0;
  long at = 0;
  long begin = 0;
  long end = 0;
  mEdit.beginUndoAction();
  while (Search(at, mEdit.SendScintilla(S::SCI_GETLENGTH), &begin, &end)) {
    ReplaceTarget(begin, end, &at);
    ++count;
    // An empty occurrence would be found for ever.
    if (begin == end) at = mEdit.SendScintilla(S::SCI_POSITIONAFTER, place(at));
    if (at >= mEdit.SendScintilla(S::SCI_GETLENGTH)) break;
  }
  mEdit.endUndoAction();
  ShowCount();
  return count;
}

int TFindBar::Count() const {
  int count = 0;
  long begin = 0;
  long end = 0;
  const long length = mEdit.SendScintilla(S::SCI_GETLENGTH);
  for (long at = 0; at < length && Search(at, length, &begin, &end); ++count) {
    at = begin < end ? end : mEdit.SendScintilla(S::SCI_POSITIONAFTER, place(end));
  }
  return count;
}

void TFindBar::ShowCount() {
  mCount->setText(QString::fromStdString(replace_placeholder(
      mContext.catalogue->GetString("Found: %Num%"), "%Num%", std::to_string(Count()))));
}

void TFindBar::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return mClose->click();
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter) return QWidget::keyPressEvent(event);
  if (mReplace->hasFocus()) return ReplaceOne();
  Find((event->modifiers() & Qt::ShiftModifier) == 0);
}

}  // namespace zoka
