// TRunMenuBar: the run window's menu bar: the titles of drives light up while a drive is used.
#pragma once

#include <QMenuBar>
#include <QProxyStyle>
#include <set>

namespace zoka {

/// Window thread. Alt alone doesn't open it: the running program may use that key.
class TRunMenuBar final : public QMenuBar {
 public:
  explicit TRunMenuBar(QWidget* parent);

  /// Lights a menu's title or puts its light out.
  void SetAccessing(QAction* title, bool accessing);
  bool IsAccessing(QAction* title) const { return mAccessing.contains(title); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// The host's style, but without the key that leads into the menu bar.
  class TQuietStyle final : public QProxyStyle {
   public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
  };

  TQuietStyle mStyle;
  std::set<QAction*> mAccessing;
};

}  // namespace zoka
