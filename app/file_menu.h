// TFileMenu: a menu in which one item has a submenu and can nevertheless be chosen itself.
#pragma once

#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <functional>

namespace zoka {

/// A click or Return on the item calls the function; the arrow key, or resting on it, opens the
/// submenu.
class TFileMenu final : public QMenu {
 public:
  using QMenu::QMenu;

  void SetChoosable(QAction* item, std::function<void()> chosen) {
    mItem = item;
    mChosen = std::move(chosen);
  }

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override {
    if (mItem == nullptr || actionAt(event->pos()) != mItem) {
      return QMenu::mouseReleaseEvent(event);
    }
    Choose();
  }
  void keyPressEvent(QKeyEvent* event) override {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || mItem == nullptr || activeAction() != mItem) return QMenu::keyPressEvent(event);
    Choose();
  }

 private:
  void Choose() {
    if (mItem->menu() != nullptr) mItem->menu()->hide();
    hide();
    mChosen();
  }

  QAction* mItem = nullptr;
  std::function<void()> mChosen;
};

}  // namespace zoka
