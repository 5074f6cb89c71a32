// TIAPWindow: the window of the common preferences, a control for each item of TIAPBoard. Where
// changes go is TCommonPrefs' business.
#pragma once

#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <functional>
#include <map>
#include <string>

#include "app/settings/iap_board.h"
#include "common/window/basic_window.h"

namespace zoka {

/// Window thread, but for PostMessage. Each change counts at once, before OK; Cancel goes back to
/// what held when the window was opened.
class TIAPWindow final : public TBasicWindow {
 public:
  /// `changed` gets the message of each item that has another value now. The board outlives it.
  TIAPWindow(TWindowContext& context, TIAPBoard& board,
             std::function<void(const TMessage&)> changed);

  /// Shows it, or brings it to the front.
  void Open();
  /// Controls of items that are new on the board.
  void AddComponents();
  /// The current values into the controls.
  void SetComponents();

  void ButtonOKClicked();
  void ButtonCancelClicked();
  void ButtonDefaultsClicked();

  void LanguageChanged() override { SetViewLabel(); }
  void IAPChanged(const TMessage&) override { SetViewLabel(); }
  /// Closing is cancelling.
  bool QuitRequested() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct TControl {
    QWidget* widget = nullptr;
    std::function<void()> setLabel;
    std::function<void(const TMessage& value)> setValue;
  };

  TControl MakeConfigurationView(const TIAPComponent& component);
  TControl MakeMenu(const TIAPComponent& component);
  TControl MakeBox(const TIAPComponent& component);
  QPushButton* NewButton(const char* name, void (TIAPWindow::*clicked)());
  void CreateButtons(QVBoxLayout* whole);
  void SetViewLabel();
  void SetTabOrders();
  void ControlChanged(const TMessage& value);
  void Spread(const std::vector<TMessage>& values);
  QString Label(const std::string& text, const std::string& key) const;

  TIAPBoard& mBoard;
  std::function<void(const TMessage&)> mChanged;
  QGridLayout* mItems = nullptr;
  std::map<std::string, TControl> mControls;  // by the item's name
  QPushButton* mDefaults = nullptr;
  QPushButton* mCancel = nullptr;
  QPushButton* mOk = nullptr;
};

}  // namespace zoka
