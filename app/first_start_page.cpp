// The page's controls, and where they stand.
#include "app/first_start_page.h"

#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

#include "app/data_folder.h"
#include "common/window/menu_label.h"

namespace zoka {
namespace {

struct TSampleCard {
  const char* name;   // of the list and of its picture
  const char* title;  // key
};

constexpr std::array<TSampleCard, TFirstStartPage::SAMPLE_COUNT> CARDS{{
    {"aquarium", "Sample: Aquarium"},
    {"bricks", "Sample: Bricks"},
    {"torus", "Sample: Ring"},
}};

constexpr int PICTURE_WIDTH = 200;
constexpr int PICTURE_HEIGHT = 125;
constexpr int MARGIN = 24;
constexpr int GAP = 16;
constexpr qreal TITLE_SCALE = 1.8;

}  // namespace

TFirstStartPage::TFirstStartPage(QWidget* parent, const TEngineContext& context,
                                 TFirstStartCalls calls)
    : QWidget(parent),
      mContext(context),
      mCalls(std::move(calls)),
      mTitle(new QLabel(this)),
      mLanguageLabel(new QLabel(this)),
      mEnglish(new QRadioButton(this)),
      mJapanese(new QRadioButton(this)),
      mSamplesLabel(new QLabel(this)),
      mNew(new QPushButton(this)) {
  setObjectName("FirstStartPage");
  setAutoFillBackground(true);
  QFont large = font();
  large.setPointSizeF(large.pointSizeF() * TITLE_SCALE);
  mTitle->setFont(large);
  mNew->setObjectName("ButtonNew");
  mNew->setAutoDefault(true);
  connect(mNew, &QPushButton::clicked, this, [this] { mCalls.newList(); });
  PutTogether();
  SetLabels();
  parent->installEventFilter(this);
}

QWidget* TFirstStartPage::MakeLanguages() {
  auto* const row = new QWidget(this);
  auto* const line = new QHBoxLayout(row);
  line->setContentsMargins(0, 0, 0, 0);
  line->addWidget(mLanguageLabel);
  line->addWidget(mEnglish);
  line->addWidget(mJapanese);
  line->addStretch();
  // Each in its own language, whatever the present one is.
  mEnglish->setText("English");
  mJapanese->setText("日本語");
  (mContext.catalogue->Language() == TLanguage::Japanese ? mJapanese : mEnglish)->setChecked(true);
  connect(mEnglish, &QRadioButton::clicked, this, [this] { mCalls.language(TLanguage::English); });
  connect(mJapanese, &QRadioButton::clicked, this,
          [this] { mCalls.language(TLanguage::Japanese); });
  return row;
}

QWidget* TFirstStartPage::MakeSamples() {
  auto* const row = new QWidget(this);
  auto* const line = new QHBoxLayout(row);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(GAP);
  for (size_t i = 0; i < SAMPLE_COUNT; ++i) {
    auto* const card = new QToolButton(row);
    mSamples[i] = card;
    card->setObjectName(CARDS[i].name);
    card->setFocusPolicy(Qt::StrongFocus);
    card->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    card->setIconSize(QSize(PICTURE_WIDTH, PICTURE_HEIGHT));
    const QString name = CARDS[i].name;
    // Without its picture the button has its text alone.
    card->setIcon(QIcon(find_data_entry("resources/first_start/" + name + ".png")));
    const QString list = find_data_entry("samples/" + name + ".bas");
    card->setEnabled(!list.isEmpty());
    connect(card, &QToolButton::clicked, this,
            [this, path = QFile::encodeName(list).toStdString()] { mCalls.sample(path); });
    line->addWidget(card);
  }
  line->addStretch();
  return row;
}

void TFirstStartPage::PutTogether() {
  auto* const column = new QVBoxLayout;
  column->setSpacing(GAP);
  column->addWidget(mTitle);
  column->addWidget(MakeLanguages());
  column->addSpacing(GAP);
  column->addWidget(mSamplesLabel);
  column->addWidget(MakeSamples());
  column->addSpacing(GAP);
  column->addWidget(mNew, 0, Qt::AlignLeft);
  auto* const middle = new QHBoxLayout;
  middle->addStretch();
  middle->addLayout(column);
  middle->addStretch();
  auto* const whole = new QVBoxLayout(this);
  whole->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
  whole->addStretch();
  whole->addLayout(middle);
  whole->addStretch();
}

QRadioButton* TFirstStartPage::Language(TLanguage language) {
  return language == TLanguage::Japanese ? mJapanese : mEnglish;
}

void TFirstStartPage::SetLabels() {
  mTitle->setText(localized(mContext, "Welcome to %AppName%").replace("%AppName%", APP_NAME));
  mLanguageLabel->setText(localized(mContext, "Language"));
  mSamplesLabel->setText(localized(mContext, "Look at a sample:"));
  for (size_t i = 0; i < SAMPLE_COUNT; ++i) {
    mSamples[i]->setText(localized(mContext, CARDS[i].title));
    mSamples[i]->setAccessibleName(mSamples[i]->text());
  }
  mNew->setText(localized(mContext, "Begin a New List"));
}

void TFirstStartPage::Appear() {
  setGeometry(parentWidget()->rect());
  show();
  raise();
  mNew->setFocus();
}

void TFirstStartPage::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return mCalls.newList();
  QWidget* const focused = focusWidget();
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (auto* const button = qobject_cast<QAbstractButton*>(focused); enter && button != nullptr) {
    return button->click();
  }
  if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
    focusNextPrevChild(event->key() == Qt::Key_Right);
    return;
  }
  // Who just types begins a list: the page goes, and the key goes on to the editor.
  if (!event->text().isEmpty() && event->text()[0].isPrint()) mCalls.newList();
  QWidget::keyPressEvent(event);
}

bool TFirstStartPage::focusNextPrevChild(bool next) {
  std::vector<QWidget*> stops{mJapanese->isChecked() ? mJapanese : mEnglish};
  for (QToolButton* sample : mSamples) {
    if (sample->isEnabled()) stops.push_back(sample);
  }
  stops.push_back(mNew);
  const auto focused = std::ranges::find(stops, focusWidget());
  const auto place = static_cast<size_t>(focused - stops.begin()) % stops.size();
  const size_t step = next ? 1 : stops.size() - 1;
  stops[(place + step) % stops.size()]->setFocus(next ? Qt::TabFocusReason
                                                      : Qt::BacktabFocusReason);
  return true;
}

bool TFirstStartPage::eventFilter(QObject* object, QEvent* event) {
  if (object == parentWidget() && event->type() == QEvent::Resize) {
    setGeometry(parentWidget()->rect());
  }
  return QWidget::eventFilter(object, event);
}

}  // namespace zoka
