// TKeywordWindow: the words of the language, each with its syntax and what it does.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTextBrowser>

#include "common/context.h"

namespace zoka {

/// Made once and shown again and again; not modal. Window thread.
class TKeywordWindow final : public QDialog {
 public:
  TKeywordWindow(QWidget* parent, const TEngineContext& context);

  /// Shows the window with that word, or with all of them for an unknown or empty one.
  void Appear(const std::string& word);
  void SetLabels();

  QLineEdit* Wanted() { return mWanted; }
  QListWidget* WordList() { return mWords; }
  QTextBrowser* Page() { return mPage; }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void Filter();
  void ShowWord();

  const TEngineContext& mContext;
  QLabel* mLabel;
  QLineEdit* mWanted;
  QListWidget* mWords;
  QTextBrowser* mPage;
};

}  // namespace zoka
