// Widths of a file panel's columns.
#include "common/window/panel_columns.h"

#include <QDateTime>
#include <QEvent>
#include <QHeaderView>
#include <QListView>
#include <QLocale>
#include <QSplitter>
#include <QTreeView>
#include <algorithm>

namespace zoka {
namespace {

/// Columns of the toolkit's model of files.
constexpr int NAME_COLUMN = 0;
constexpr int SIZE_COLUMN = 1;
constexpr int TYPE_COLUMN = 2;
constexpr int DATE_COLUMN = 3;
/// Around the text of a cell or a place: margins, an icon.
constexpr int CELL_ROOM = 16;
constexpr int PLACE_ROOM = 24;
/// No panel gives more than this part of itself to its places.
constexpr int MAX_PLACES = 3;

/// Texts as wide as most that stand in a column.
QString usual_text(int column) {
  constexpr qint64 LONG_SIZE = 999'990'000;
  switch (column) {
    case SIZE_COLUMN:
      return QLocale::system().formattedDataSize(LONG_SIZE);
    case TYPE_COLUMN:
      return "BASIC Source Code";
    default:
      return QLocale::system().toString(QDateTime({2028, 12, 28}, {22, 58}), QLocale::ShortFormat);
  }
}

}  // namespace

TPanelColumns::TPanelColumns(QFileDialog* panel) : QObject(panel), mPanel(panel) {
  panel->installEventFilter(this);
}

bool TPanelColumns::eventFilter(QObject* object, QEvent* event) {
  const bool comes = event->type() == QEvent::Show || event->type() == QEvent::Resize;
  // The panel lays itself out first.
  if (comes)
    QMetaObject::invokeMethod(
        this, [this] { Fit(); }, Qt::QueuedConnection);
  return QObject::eventFilter(object, event);
}

void TPanelColumns::Fit() {
  auto* const files = mPanel->findChild<QTreeView*>("treeView");
  auto* const places = mPanel->findChild<QListView*>("sidebar");
  auto* const splitter = mPanel->findChild<QSplitter*>("splitter");
  if (files == nullptr || places == nullptr || splitter == nullptr) return;
  const int width = splitter->width();
  const int side = std::min(places->sizeHintForColumn(0) + PLACE_ROOM, width / MAX_PLACES);
  splitter->setSizes({side, width - side});
  int rest = files->viewport()->width();
  for (const int column : {SIZE_COLUMN, TYPE_COLUMN, DATE_COLUMN}) {
    const int text = files->fontMetrics().horizontalAdvance(usual_text(column)) + CELL_ROOM;
    files->setColumnWidth(column, std::max(text, files->header()->sectionSizeHint(column)));
    rest -= files->columnWidth(column);
  }
  files->setColumnWidth(NAME_COLUMN, std::max(rest, files->header()->sectionSizeHint(NAME_COLUMN)));
}

}  // namespace zoka
