// The editor component, as the list needs it.
#include "editor/window/edit_txt_view.h"

#include <Qsci/qscicommandset.h>

#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QRgb>
#include <algorithm>
#include <set>
#include <utility>

#include "common/window/fixed_font.h"

namespace zoka {
namespace {

constexpr int NUMBER_MARGIN = 0;
constexpr int MARK_MARGIN = 1;
constexpr int MIN_NUMBER_DIGITS = 4;
constexpr int MARK_MARGIN_WIDTH = 18;
constexpr int FAULT_MARK = 1;
constexpr int FAULT_LINE_MARK = 2;
/// How much of its colour a box around what is looked for has, of 255: inside, where the text must
/// stay as legible as it is, and at its edge.
constexpr long FOUND_ALPHA = 50;
constexpr long FOUND_EDGE_ALPHA = 255;

/// The keys of moving and typing. All others are left to the menus: none of the component's own may
/// delete a line where the user expects a menu.
const std::set<QsciCommand::Command>& kept_commands() {
  static const std::set<QsciCommand::Command> KEPT{
      QsciCommand::LineDown,
      QsciCommand::LineDownExtend,
      QsciCommand::LineUp,
      QsciCommand::LineUpExtend,
      QsciCommand::CharLeft,
      QsciCommand::CharLeftExtend,
      QsciCommand::CharRight,
      QsciCommand::CharRightExtend,
      QsciCommand::WordLeft,
      QsciCommand::WordLeftExtend,
      QsciCommand::WordRight,
      QsciCommand::WordRightExtend,
      QsciCommand::VCHome,
      QsciCommand::VCHomeExtend,
      QsciCommand::LineEnd,
      QsciCommand::LineEndExtend,
      QsciCommand::DocumentStart,
      QsciCommand::DocumentStartExtend,
      QsciCommand::DocumentEnd,
      QsciCommand::DocumentEndExtend,
      QsciCommand::PageUp,
      QsciCommand::PageUpExtend,
      QsciCommand::PageDown,
      QsciCommand::PageDownExtend,
      QsciCommand::Delete,
      QsciCommand::DeleteBack,
      QsciCommand::DeleteWordLeft,
      QsciCommand::DeleteWordRight,
      QsciCommand::Tab,
      QsciCommand::Backtab,
      QsciCommand::Newline,
      QsciCommand::EditToggleOvertype,
      QsciCommand::Cancel,
      QsciCommand::Undo,
      QsciCommand::Redo,
      QsciCommand::ZoomIn,
      QsciCommand::ZoomOut,
      QsciCommand::LineScrollDown,
      QsciCommand::LineScrollUp,
  };
  return KEPT;
}

/// Keys that never change a text, whatever they do.
bool is_moving_key(int key) {
  switch (key) {
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Insert:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Escape:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
      return true;
    default:
      return key >= Qt::Key_F1 && key <= Qt::Key_F35;
  }
}

/// The first line of a text, with its line feed if it has one.
std::string_view first_line(std::string_view text) {
  const size_t end = text.find('\n');
  return end == text.npos ? text : text.substr(0, end + 1);
}

bool has_foreign_files(const QDropEvent& event) {
  return is_foreign_drop(event.source(), *event.mimeData());
}

}  // namespace

bool is_foreign_drop(const QObject* source, const QMimeData& data) {
  return source == nullptr && data.hasUrls();
}

TEditTxtView::TEditTxtView(QWidget* parent) : QsciScintilla(parent), mLexer(new TListLexer(this)) {
  setObjectName("EditTxtView");
  setUtf8(true);
  setEolMode(EolUnix);
  setScrollWidth(1);
  setScrollWidthTracking(true);
  setCaretLineVisible(true);
  setTabWidth(8);
  setIndentationsUseTabs(true);
  setLexer(mLexer);
  SetKeys();
  SetMarks();
  ApplyColours();
  connect(this, &QsciScintilla::textChanged, this, [this] {
    if (mSetting) return;
    MarkFault(-1);
    if (mCalls.edited) mCalls.edited();
  });
  connect(this, &QsciScintilla::cursorPositionChanged, this, [this] { ColourCaretLine(); });
  connect(this, &QsciScintilla::linesChanged, this, [this] { FitNumberMargin(); });
  connect(this, &QsciScintillaBase::SCN_ZOOM, this, [this] { FitNumberMargin(); });
}

void TEditTxtView::SetKeys() {
  for (QsciCommand* command : standardCommands()->commands()) {
    if (kept_commands().contains(command->command())) continue;
    command->setKey(0);
    command->setAlternateKey(0);
  }
  QsciCommand* const redo = standardCommands()->find(QsciCommand::Redo);
  redo->setAlternateKey(static_cast<int>(Qt::CTRL) | static_cast<int>(Qt::SHIFT) | Qt::Key_Z);
}

void TEditTxtView::SetMarks() {
  setMarginType(NUMBER_MARGIN, NumberMargin);
  FitNumberMargin();
  setMarginType(MARK_MARGIN, SymbolMargin);
  setMarginWidth(MARK_MARGIN, MARK_MARGIN_WIDTH);
  setMarginMarkerMask(MARK_MARGIN, 1 << FAULT_MARK);
  markerDefine(RightArrow, FAULT_MARK);
  markerDefine(Background, FAULT_LINE_MARK);
  indicatorDefine(SquiggleIndicator, UNDEFINED_INDICATOR);
  indicatorDefine(StraightBoxIndicator, FOUND_INDICATOR);
  setIndicatorDrawUnder(true, FOUND_INDICATOR);
  SendScintilla(SCI_INDICSETOUTLINEALPHA, FOUND_INDICATOR, FOUND_EDGE_ALPHA);
  mBreakMarks = new TBreakMarks(*this, MARK_MARGIN);
}

void TEditTxtView::ApplyColours() {
  const TEditTheme theme = edit_theme(palette());
  const TEditColours& colours = edit_colours(theme);
  mLexer->SetTheme(theme);
  mLexer->setDefaultPaper(colours.paper);
  mLexer->setDefaultColor(colours.text[0]);
  for (int style = 0; style < TEXT_STYLE_COUNT; ++style) {
    mLexer->setColor(mLexer->defaultColor(style), style);
    mLexer->setPaper(colours.paper, style);
  }
  // The empty part of the view has a style of its own, which the lexer sets only once.
  SendScintilla(SCI_STYLESETBACK, STYLE_DEFAULT, colours.paper);
  SendScintilla(SCI_STYLESETFORE, STYLE_DEFAULT, colours.text[0]);
  setCaretForegroundColor(colours.text[0]);
  ColourCaretLine();
  setSelectionBackgroundColor(colours.selection);
  setSelectionForegroundColor(colours.selectedText);
  setMarginsBackgroundColor(colours.margin);
  setMarginsForegroundColor(colours.marginText);
  setMarkerBackgroundColor(colours.fault, FAULT_LINE_MARK);
  setMarkerBackgroundColor(colours.faultMark, FAULT_MARK);
  setMarkerForegroundColor(colours.faultMark, FAULT_MARK);
  setMatchedBraceBackgroundColor(colours.brace);
  setMatchedBraceForegroundColor(colours.text[0]);
  setIndicatorForegroundColor(colours.undefined, UNDEFINED_INDICATOR);
  setIndicatorForegroundColor(colours.selection, FOUND_INDICATOR);
  SendScintilla(SCI_INDICSETALPHA, FOUND_INDICATOR, FOUND_ALPHA);
}

void TEditTxtView::ColourCaretLine() {
  int line = 0;
  int column = 0;
  getCursorPosition(&line, &column);
  const TEditColours& colours = edit_colours(edit_theme(palette()));
  const QColor& wanted = FaultLine() == line ? colours.fault : colours.currentLine;
  // Setting a colour lays the whole text out anew; this is asked at each key.
  const QColor swapped(wanted.blue(), wanted.green(), wanted.red());
  const auto present = static_cast<QRgb>(SendScintilla(SCI_GETCARETLINEBACK));
  if ((swapped.rgb() & RGB_MASK) != (present & RGB_MASK)) setCaretLineBackgroundColor(wanted);
}

void TEditTxtView::SetFontFamilyAndSize(const std::string& family, float points) {
  QFont font(present_fixed_family(family));
  font.setPointSizeF(static_cast<qreal>(points));
  mLexer->setDefaultFont(font);
  for (int style = 0; style < TEXT_STYLE_COUNT; ++style) mLexer->setFont(font, style);
  setMarginsFont(font);
  FitNumberMargin();
}

void TEditTxtView::FitNumberMargin() {
  const int digits = static_cast<int>(std::to_string(lines()).size());
  setMarginWidth(NUMBER_MARGIN, QString(std::max(digits, MIN_NUMBER_DIGITS) + 1, '0'));
}

void TEditTxtView::SetWordWrap(bool wrap) {
  setWrapMode(wrap ? WrapCharacter : WrapNone);
}

std::string TEditTxtView::Get() const {
  const auto length = static_cast<size_t>(SendScintilla(SCI_GETLENGTH));
  const auto* text = static_cast<const char*>(SendScintillaPtrResult(SCI_GETCHARACTERPOINTER));
  return {text, length};
}

void TEditTxtView::Set(const std::string& text) {
  mSetting = true;
  mBreakMarks->Clear();
  SendScintilla(SCI_CLEARALL);
  SendScintilla(SCI_APPENDTEXT, static_cast<unsigned long>(text.size()), text.data());
  SendScintilla(SCI_EMPTYUNDOBUFFER);
  SendScintilla(SCI_GOTOPOS, 0UL);
  mSetting = false;
  MarkFault(-1);
}

void TEditTxtView::Replace(const std::string& text) {
  const long position = SendScintilla(SCI_GETCURRENTPOS);
  mSetting = true;
  beginUndoAction();
  if (!ReplaceLines(text)) {
    SendScintilla(SCI_TARGETWHOLEDOCUMENT);
    SendScintilla(SCI_REPLACETARGET, static_cast<unsigned long>(text.size()), text.data());
  }
  endUndoAction();
  mSetting = false;
  SendScintilla(SCI_GOTOPOS, static_cast<unsigned long>(position));
  MarkFault(-1);
  if (mCalls.edited) mCalls.edited();
}

/// Replaces what differs in each line, so that marks stay with their lines; false, and nothing is
/// done, if the texts have not the same number of lines.
bool TEditTxtView::ReplaceLines(std::string_view text) {
  const std::string old = Get();
  if (std::count(old.begin(), old.end(), '\n') != std::count(text.begin(), text.end(), '\n')) {
    return false;
  }
  size_t offset = 0;  // of the line in the text as it is by now
  for (std::string_view rest = old; !rest.empty() || !text.empty();) {
    const auto [before, now] = std::pair(first_line(rest), first_line(text));
    rest.remove_prefix(before.size());
    text.remove_prefix(now.size());
    const auto [same, sameNow] =
        std::mismatch(before.begin(), before.end(), now.begin(), now.end());
    const auto front = static_cast<size_t>(same - before.begin());
    const std::string_view oldTail = before.substr(front);
    const std::string_view newTail = now.substr(front);
    const auto [end, endNow] =
        std::mismatch(oldTail.rbegin(), oldTail.rend(), newTail.rbegin(), newTail.rend());
    const auto back = static_cast<size_t>(end - oldTail.rbegin());
    if (!oldTail.empty() || !newTail.empty()) {
      SendScintilla(SCI_SETTARGETRANGE, static_cast<unsigned long>(offset + front),
                    static_cast<long>(offset + before.size() - back));
      SendScintilla(SCI_REPLACETARGET, static_cast<unsigned long>(newTail.size() - back),
                    newTail.data());
    }
    offset += now.size();
  }
  return true;
}

void TEditTxtView::Insert(const std::string& text) {
  beginUndoAction();
  SendScintilla(SCI_REPLACESEL, "");
  SendScintilla(SCI_ADDTEXT, static_cast<unsigned long>(text.size()), text.data());
  endUndoAction();
}

void TEditTxtView::Append(const std::string& text) {
  SendScintilla(SCI_APPENDTEXT, static_cast<unsigned long>(text.size()), text.data());
}

void TEditTxtView::GoToOffset(size_t offset) {
  SendScintilla(SCI_GOTOPOS, static_cast<unsigned long>(offset));
  SendScintilla(SCI_VERTICALCENTRECARET);
  setFocus();
}

void TEditTxtView::MarkFault(int line) {
  markerDeleteAll(FAULT_MARK);
  markerDeleteAll(FAULT_LINE_MARK);
  if (line >= 0) {
    markerAdd(line, FAULT_MARK);
    markerAdd(line, FAULT_LINE_MARK);
    GoToOffset(
        static_cast<size_t>(SendScintilla(SCI_POSITIONFROMLINE, static_cast<unsigned long>(line))));
  }
  ColourCaretLine();
}

int TEditTxtView::FaultLine() const {
  return const_cast<TEditTxtView*>(this)->markerFindNext(0, 1U << FAULT_MARK);
}

void TEditTxtView::ClearSelection() {
  SendScintilla(SCI_REPLACESEL, "");
}

void TEditTxtView::keyPressEvent(QKeyEvent* event) {
  QsciScintilla::keyPressEvent(event);
  const bool single = event->text().size() == 1 && event->text()[0].unicode() < 0x80;
  const bool plain = (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
  // A key that deletes at the text's end counts as typing, too.
  if (single && plain && !is_moving_key(event->key()) && mCalls.edited) mCalls.edited();
}

void TEditTxtView::changeEvent(QEvent* event) {
  QsciScintilla::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && mLexer != nullptr) ApplyColours();
}

void TEditTxtView::dragEnterEvent(QDragEnterEvent* event) {
  if (has_foreign_files(*event)) return event->acceptProposedAction();
  QsciScintilla::dragEnterEvent(event);
}

void TEditTxtView::dragMoveEvent(QDragMoveEvent* event) {
  if (has_foreign_files(*event)) return event->acceptProposedAction();
  QsciScintilla::dragMoveEvent(event);
}

void TEditTxtView::dropEvent(QDropEvent* event) {
  if (!has_foreign_files(*event)) return QsciScintilla::dropEvent(event);
  event->acceptProposedAction();
  if (mCalls.dropped) mCalls.dropped(*event->mimeData());
}

}  // namespace zoka
