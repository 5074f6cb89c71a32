// Collecting texts.
#include "tests/window/shown_texts.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTabBar>
#include <QTabWidget>

namespace zoka {
namespace {

class TCollector {
 public:
  void Window(const QWidget& window) {
    Add("title", window.windowTitle());
    Children(window, window.metaObject()->className());
  }
  std::vector<TShownText> Take() { return std::move(mTexts); }

 private:
  void Add(const QString& what, const QString& text) {
    if (!text.isEmpty()) mTexts.push_back({mPlace + " " + what, text});
  }

  void Children(const QWidget& parent, const QString& place) {
    int number = 0;
    for (QObject* child : parent.children()) {
      auto* const widget = qobject_cast<QWidget*>(child);
      if (widget == nullptr || widget->isWindow() || IsOfUser(*widget)) continue;
      const QString here =
          place + "/" + widget->metaObject()->className() + " " +
          (widget->objectName().isEmpty() ? QString::number(number++) : widget->objectName());
      mPlace = here;
      Widget(*widget);
      // Besides the menus a menu bar holds a button for those that have no room.
      if (auto* const bar = qobject_cast<const QMenuBar*>(widget)) {
        Actions(bar->actions(), here);
      } else {
        Children(*widget, here);
      }
    }
  }

  /// The places of a file panel are the user's folders. Tabs have hidden buttons for scrolling.
  static bool IsOfUser(const QWidget& widget) {
    return widget.objectName() == "sidebar" || widget.objectName() == "lookInCombo" ||
           qobject_cast<const QTabBar*>(widget.parentWidget()) != nullptr ||
           qobject_cast<const QAbstractItemView*>(widget.parentWidget()) != nullptr;
  }

  void Widget(const QWidget& widget) {
    Add("tool tip", widget.toolTip());
    Add("status tip", widget.statusTip());
    Add("help", widget.whatsThis());
    Add("name", widget.accessibleName());
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) Add("text", label->text());
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) Add("title", group->title());
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
      Add("text", button->text());
    }
    if (const auto* text = qobject_cast<const QLineEdit*>(&widget)) {
      Add("placeholder", text->placeholderText());
    }
    if (const auto* tabs = qobject_cast<const QTabWidget*>(&widget)) {
      for (int i = 0; i < tabs->count(); ++i) Add("tab", tabs->tabText(i));
    }
    if (const auto* menu = qobject_cast<const QComboBox*>(&widget)) Items(*menu);
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget)) Headers(*view);
    if (!qobject_cast<const QMenuBar*>(&widget)) Actions(widget.actions(), mPlace);
  }

  void Items(const QComboBox& menu) {
    Add("placeholder", menu.placeholderText());
    // Families of fonts are the system's.
    if (menu.objectName().endsWith("FontFamily")) return;
    for (int i = 0; i < menu.count(); ++i) Add("item", menu.itemText(i));
  }

  void Headers(const QAbstractItemView& view) {
    const QAbstractItemModel* const model = view.model();
    for (int i = 0; model != nullptr && i < model->columnCount(); ++i) {
      Add("column", model->headerData(i, Qt::Horizontal).toString());
    }
  }

  void Actions(const QList<QAction*>& actions, const QString& place) {
    for (qsizetype i = 0; i < actions.size(); ++i) {
      mPlace = place + "/item " + QString::number(i);
      const QAction& action = *actions[i];
      if (action.isSeparator()) continue;
      Add("text", action.text());
      // Without one of its own it has its text, and a recent file its path.
      if (action.data().isNull()) Add("tool tip", action.toolTip());
      if (action.menu() != nullptr) Actions(action.menu()->actions(), mPlace);
    }
    mPlace = place;
  }

  QString mPlace;
  std::vector<TShownText> mTexts;
};

}  // namespace

std::vector<TShownText> shown_texts(const QWidget& window) {
  TCollector collector;
  collector.Window(window);
  return collector.Take();
}

QString plain_text(QString text) {
  static const QRegularExpression LETTER("\\((?:[A-Za-z0-9]|F1)\\)(?=\\.\\.\\.$|：|:|\\[|$)");
  static const QRegularExpression MARK("&(.)");
  text.replace(MARK, "\\1");
  text.remove(LETTER);
  return text.trimmed();
}

}  // namespace zoka
