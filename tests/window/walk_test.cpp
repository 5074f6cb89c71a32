// Walks over all windows and dialogs in both languages: every control has a name, every text has
// room, every control is reached by the keyboard, no letter of the keyboard means two things.
#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>
#include <algorithm>
#include <map>
#include <set>

#include "tests/window/walk_rig.h"

namespace zoka {
namespace {

/// A part of one of the toolkit's controls, or a child of such a part.
bool is_inner(const QWidget& widget) {
  for (const QWidget* parent = widget.parentWidget(); parent; parent = parent->parentWidget()) {
    if (qobject_cast<const QComboBox*>(parent) || qobject_cast<const QMenuBar*>(parent) ||
        qobject_cast<const QHeaderView*>(parent) || qobject_cast<const QTabBar*>(parent)) {
      return true;
    }
    if (parent->isWindow()) break;
  }
  return false;
}

bool is_named_by_others(const QWidget& widget) {
  // The tool kit gives these their own roles; they have a text or a neighbour that names them.
  return qobject_cast<const QTabBar*>(&widget) || qobject_cast<const QTabWidget*>(&widget) ||
         qobject_cast<const QScrollBar*>(&widget);
}

}  // namespace

QList<QWidget*> visible_controls(QWidget& window) {
  QList<QWidget*> found;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->isVisibleTo(&window) && widget->window() == &window && !is_inner(*widget)) {
      found << widget;
    }
  }
  return found;
}

std::string name_of(const QWidget& widget) {
  const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
  const auto* const label = qobject_cast<const QLabel*>(&widget);
  const QString text = button ? button->text() : label ? label->text() : QString();
  return std::string(widget.metaObject()->className()) + " \"" + widget.objectName().toStdString() +
         "\" " + text.toStdString();
}

namespace {

class WindowWalk : public TWalkRig {};

TEST_F(WindowWalk, EveryControlHasAName) {
  ForEachWindowInBothLanguages([](const TWalkedWindow&, QWidget& window) {
    EXPECT_FALSE(window.windowTitle().isEmpty());
    for_each_page(window, [&](const QString&) {
      for (QWidget* widget : visible_controls(window)) {
        if (widget->focusPolicy() == Qt::NoFocus || is_named_by_others(*widget)) continue;
        QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(access, nullptr) << name_of(*widget);
        EXPECT_FALSE(access->text(QAccessible::Name).isEmpty()) << name_of(*widget);
      }
    });
  });
}

/// The room that a control's text takes; an empty size for those without one.
QSize needed_room(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    if (label->text().isEmpty() || label->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored) {
      return {};
    }
    if (label->wordWrap()) return {0, label->heightForWidth(label->width())};
    return label->sizeHint();
  }
  const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
  const bool measuresItself =
      (button && !button->text().isEmpty()) || qobject_cast<const QGroupBox*>(&widget);
  return measuresItself ? widget.minimumSizeHint() : QSize();
}

void expect_room(QWidget& widget) {
  const QSize room = needed_room(widget);
  EXPECT_GE(widget.width(), room.width()) << name_of(widget);
  EXPECT_GE(widget.height(), room.height()) << name_of(widget);
  if (const auto* menu = qobject_cast<QComboBox*>(&widget)) {
    // Families of the system and places of files may be longer than any window.
    const bool ownTexts = menu->sizeAdjustPolicy() == QComboBox::AdjustToContents;
    for (int i = 0; ownTexts && i < menu->count(); ++i) {
      const int text = menu->fontMetrics().horizontalAdvance(menu->itemText(i));
      const int arrow = menu->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
      EXPECT_GE(menu->width(), text + arrow) << menu->itemText(i).toStdString();
    }
  }
  if (const auto* text = qobject_cast<QLineEdit*>(&widget)) {
    const int margin = 2 * text->style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
    EXPECT_GE(text->width(),
              text->fontMetrics().horizontalAdvance(text->placeholderText()) + margin)
        << text->placeholderText().toStdString();
    EXPECT_GE(text->height(), text->fontMetrics().height()) << name_of(widget);
  }
  if (const auto* tabs = qobject_cast<QTabBar*>(&widget)) {
    for (const QToolButton* scroller : tabs->findChildren<QToolButton*>()) {
      EXPECT_FALSE(scroller->isVisible()) << "there are more tabs than have room";
    }
  }
  // Nothing hangs over the edge of what it stands in.
  const QWidget* const parent = widget.parentWidget();
  if (room.isValid() && parent && !widget.isWindow()) {
    EXPECT_TRUE(parent->rect().contains(widget.geometry())) << name_of(widget);
  }
}

void expect_menu_bar_room(QWidget& window) {
  auto* const frame = qobject_cast<QMainWindow*>(&window);
  if (frame == nullptr || !frame->menuWidget() || !frame->menuWidget()->isVisible()) return;
  auto* const bar = qobject_cast<QMenuBar*>(frame->menuWidget());
  for (QAction* title : bar->actions()) {
    const QRect place = bar->actionGeometry(title);
    EXPECT_FALSE(place.isEmpty()) << title->text().toStdString();
    EXPECT_TRUE(bar->rect().contains(place)) << title->text().toStdString();
  }
  for (const QToolButton* rest : bar->findChildren<QToolButton*>()) {
    EXPECT_FALSE(rest->isVisible()) << "there are more menus than have room";
  }
}

void expect_room_everywhere(QWidget& window) {
  for_each_page(window, [&](const QString& page) {
    SCOPED_TRACE(page.toStdString());
    for (QWidget* widget : visible_controls(window)) expect_room(*widget);
  });
  expect_menu_bar_room(window);
}

TEST_F(WindowWalk, NoTextIsCutOff) {
  constexpr QSize SMALL_SCREEN(1024, 740);
  ForEachWindowInBothLanguages([&](const TWalkedWindow&, QWidget& window) {
    expect_room_everywhere(window);
    EXPECT_LE(window.width(), SMALL_SCREEN.width());
    EXPECT_LE(window.height(), SMALL_SCREEN.height());
  });
}

/// The application's font in another size as long as it lives.
class TFontSize {
 public:
  explicit TFontSize(qreal factor) : mBefore(QApplication::font()) {
    QFont font = mBefore;
    font.setPointSizeF(font.pointSizeF() * factor);
    QApplication::setFont(font);
  }
  ~TFontSize() { QApplication::setFont(mBefore); }
  TFontSize(const TFontSize&) = delete;
  TFontSize& operator=(const TFontSize&) = delete;

 private:
  QFont mBefore;
};

struct TLargeFont {
  TFontSize size{1.5};
};

/// For users whose fonts are larger than usual from the start.
class WindowWalkInLargeFont : private TLargeFont, public TWalkRig {};

TEST_F(WindowWalkInLargeFont, NoTextIsCutOff) {
  ForEachWindowInBothLanguages([](const TWalkedWindow& walked, QWidget& window) {
    // The picture of a running program has its own measure, and its menu bar takes that over.
    if (std::string_view(walked.name) != "run") expect_room_everywhere(window);
  });
}

/// The controls that Tab leads to, from the one that has the focus on and until that comes again.
std::set<QWidget*> reached_by_tab(QWidget& window) {
  constexpr int MOST = 100;
  std::set<QWidget*> reached;
  for (int i = 0; i < MOST; ++i) {
    QWidget* const focus = QApplication::focusWidget();
    if (focus == nullptr || focus->window() != &window) break;
    if (!reached.insert(focus).second) break;
    QTest::keyClick(focus, Qt::Key_Tab);
  }
  return reached;
}

/// True if the control takes part in the tour of the Tab key. Of the main and the run window that
/// is the find bar alone: the editor and the running program have the key for themselves.
bool is_on_the_tour(const QWidget& widget, const QWidget& window) {
  if (!widget.isEnabled() || (widget.focusPolicy() & Qt::TabFocus) == 0) return false;
  if (widget.focusProxy() != nullptr) return false;
  return qobject_cast<const QMainWindow*>(&window) == nullptr || window.objectName() != "" ||
         dynamic_cast<const TFindBar*>(widget.parentWidget()) != nullptr;
}

TEST_F(WindowWalk, TabReachesEveryControl) {
  ForEachWindowInBothLanguages([](const TWalkedWindow&, QWidget& window) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for_each_page(window, [&](const QString& page) {
      SCOPED_TRACE(page.toStdString());
      QList<QWidget*> controls;
      for (QWidget* widget : visible_controls(window)) {
        if (is_on_the_tour(*widget, window)) controls << widget;
      }
      if (controls.isEmpty()) return;
      controls.front()->setFocus(Qt::TabFocusReason);
      const std::set<QWidget*> reached = reached_by_tab(window);
      for (QWidget* widget : controls) {
        // A panel may take its button away while nothing is chosen.
        EXPECT_TRUE(reached.contains(widget) || !widget->isEnabled()) << name_of(*widget);
      }
    });
  });
}

QString text_with_letter(const QWidget& widget) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text();
  if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) return group->title();
  const auto* const label = qobject_cast<const QLabel*>(&widget);
  return label && label->buddy() ? label->text() : QString();
}

/// Counts the letters of texts; an & before a letter makes it one.
class TLetters {
 public:
  void Add(const QString& text) {
    const QKeySequence letter = QKeySequence::mnemonic(text);
    if (!letter.isEmpty()) mTexts[letter.toString()] << text;
  }
  void ExpectEachOnce() const {
    for (const auto& [letter, texts] : mTexts) {
      EXPECT_EQ(texts.size(), 1) << letter.toStdString() << " is in "
                                 << texts.join(", ").toStdString();
    }
  }

 private:
  std::map<QString, QStringList> mTexts;
};

void expect_letters_of_menu(const QMenu& menu) {
  SCOPED_TRACE(menu.title().toStdString());
  TLetters letters;
  for (const QAction* item : menu.actions()) {
    if (!item->isVisible() || item->isSeparator()) continue;
    EXPECT_FALSE(item->text().isEmpty());
    letters.Add(item->text());
    if (item->menu() != nullptr) expect_letters_of_menu(*item->menu());
  }
  letters.ExpectEachOnce();
}

TEST_F(WindowWalk, EachLetterMeansOneThing) {
  ForEachWindowInBothLanguages([](const TWalkedWindow&, QWidget& window) {
    auto* const frame = qobject_cast<QMainWindow*>(&window);
    auto* const bar = frame ? qobject_cast<QMenuBar*>(frame->menuWidget()) : nullptr;
    for_each_page(window, [&](const QString& page) {
      SCOPED_TRACE(page.toStdString());
      TLetters letters;
      for (QWidget* widget : visible_controls(window)) letters.Add(text_with_letter(*widget));
      if (bar != nullptr) {
        for (const QAction* title : bar->actions()) letters.Add(title->text());
      }
      if (const auto* tabs = window.findChild<QTabWidget*>()) {
        for (int i = 0; i < tabs->count(); ++i) letters.Add(tabs->tabText(i));
      }
      letters.ExpectEachOnce();
    });
    if (bar == nullptr) return;
    for (const QAction* title : bar->actions()) expect_letters_of_menu(*title->menu());
  });
}

TEST_F(WindowWalk, ShortcutsOfAWindowAreUnambiguous) {
  ForEachWindow([](const TWalkedWindow&, QWidget& window) {
    std::map<QString, QStringList> items;
    for (const QAction* action : window.findChildren<QAction*>()) {
      for (const QKeySequence& keys : action->shortcuts()) {
        if (!keys.toString().isEmpty()) items[keys.toString()] << action->text();
      }
    }
    for (const auto& [keys, texts] : items) {
      EXPECT_EQ(texts.size(), 1) << keys.toStdString() << " is of "
                                 << texts.join(", ").toStdString();
    }
  });
}

}  // namespace
}  // namespace zoka
