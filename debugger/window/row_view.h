// TRowView: the base of the debug window's lists: rows of one height, of which only those in sight
// are ever asked for, so that a million of them cost nothing. What a row holds is the derived
// view's.
#pragma once

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QFont>
#include <QPainter>
#include <QTextLayout>
#include <cstdint>
#include <string>

namespace zoka {

/// Colours of the lists under one palette. Light ones are fixed, others follow the theme.
struct TRowColours {
  QColor paper;
  QColor text;
  QColor breaking;  // paper of the line at which the program stands
  QColor frame;     // around a selected row
  QColor changed;   // text of a value that has changed
  QColor breakPoint;
};
TRowColours row_colours(const QPalette& palette);

/// True for a colour that light shapes are drawn on.
bool is_dark(const QColor& colour);

/// Lays a text out in one line, as it is painted: tabs reach to their stops.
QTextLine lay_out_row(QTextLayout& layout);
/// The pixels that a text takes when it is painted.
int text_width(const QString& text, const QFont& font);

/// Window thread. Rows count from 0; NO_ROW is none. The copy key copies the selected row's text.
class TRowView : public QAbstractScrollArea {
 public:
  static constexpr int64_t NO_ROW = -1;

  explicit TRowView(QWidget* parent);

  void SetFontFamilyAndSize(const std::string& family, float points);
  int64_t Rows() const { return mRows; }
  int64_t CurrentRow() const { return mCurrent; }
  /// Selects a row, and brings it into sight.
  void SetCurrentRow(int64_t row);
  /// Scrolls so that the row is the topmost one, as far as there are rows below it.
  void ScrollToTop(int64_t row);
  /// Where a row is in the viewport.
  QRect RowRect(int64_t row) const;
  /// The row at a place of the viewport.
  int64_t RowAt(QPoint place) const;
  /// What of the content is at that place of the viewport, in pixels from its left.
  int ContentX(int x) const;
  /// There may be other rows now.
  void RowsChanged();

  /// The text of a row.
  virtual QString RowText(int64_t row) const = 0;
  /// A row as it is read out.
  virtual QString ReadText(int64_t row) const { return RowText(row); }
  /// What else readers of the screen are told of a row; whether it is selected they know.
  virtual QAccessible::State RowState(int64_t) const { return {}; }
  /// List or Tree.
  virtual QAccessible::Role RowsRole() const { return QAccessible::List; }

 protected:
  virtual int64_t CountRows() const = 0;
  /// Draws a row and returns the width that all of it takes.
  virtual int PaintRow(QPainter& painter, int64_t row, const QRect& place) = 0;
  /// A button was pressed on a row, which is selected already. `x` as ContentX gives it.
  virtual void RowPressed(int64_t, int /*x*/) {}
  virtual void RowDoubleClicked(int64_t, int /*x*/) {}
  /// Return was pressed.
  virtual void RowActivated(int64_t) {}
  /// The text to show for the pointer; empty for none.
  virtual QString HoverText(int64_t, int /*x*/) const { return {}; }
  /// True if the key was the view's own.
  virtual bool RowKey(int64_t, QKeyEvent&) { return false; }
  /// The row's menu is wanted, at a place of the screen.
  virtual void RowMenu(int64_t, QPoint /*place*/) {}

  /// Selects a row without bringing it into sight: it is the one that was selected before.
  void KeepCurrentRow(int64_t row);
  /// The widest row is forgotten, and found anew.
  void ForgetWidth() { mWidest = 0; }
  void PaintSelection(QPainter& painter, int64_t row, const QRect& place) const;

  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  int64_t RowsInSight() const;
  int64_t MovedBy(int key) const;
  void UpdateBars();
  void TellReaders(QAccessible::Event what);

  int64_t mRows = 0;
  int64_t mCurrent = NO_ROW;
  int mRowHeight = 1;
  int mWidest = 0;
};

}  // namespace zoka
