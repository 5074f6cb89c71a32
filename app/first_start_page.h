// TFirstStartPage: what a user finds who starts the application for the first time: the language,
// three samples with their pictures, and an empty list. It covers the editor and asks nothing.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QWidget>
#include <array>
#include <functional>
#include <string>

#include "common/context.h"

namespace zoka {

/// What the page's controls do.
struct TFirstStartCalls {
  std::function<void(TLanguage)> language;
  /// A sample, by the path of its file.
  std::function<void(const std::string& path)> sample;
  /// An empty list: the page is left.
  std::function<void()> newList;
};

/// Window thread. It lies over its parent's whole area.
class TFirstStartPage final : public QWidget {
 public:
  static constexpr size_t SAMPLE_COUNT = 3;

  TFirstStartPage(QWidget* parent, const TEngineContext& context, TFirstStartCalls calls);

  /// All texts again, in the language of the catalogue.
  void SetLabels();
  /// Covers the parent, and takes the keyboard.
  void Appear();

  QRadioButton* Language(TLanguage language);
  QToolButton* Sample(size_t index) { return mSamples.at(index); }
  QPushButton* NewButton() { return mNew; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  /// The keyboard stays on the page: the editor below it is not to be seen.
  bool focusNextPrevChild(bool next) override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  QWidget* MakeLanguages();
  QWidget* MakeSamples();
  void PutTogether();

  const TEngineContext& mContext;
  TFirstStartCalls mCalls;
  QLabel* mTitle;
  QLabel* mLanguageLabel;
  QRadioButton* mEnglish;
  QRadioButton* mJapanese;
  QLabel* mSamplesLabel;
  std::array<QToolButton*, SAMPLE_COUNT> mSamples{};
  QPushButton* mNew;
};

}  // namespace zoka
