// The About window's picture and texts.
#include "app/about_window.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "app/logo.h"
#include "common/window/menu_label.h"

namespace zoka {
namespace {

constexpr int PICTURE = 96;
constexpr int MARGIN = 20;
constexpr int TEXT_WIDTH = 340;
constexpr qreal NAME_SCALE = 1.6;

}  // namespace

TAboutWindow::TAboutWindow(QWidget* parent, const TEngineContext& context)
    : QDialog(parent),
      mContext(context),
      mPicture(new QLabel(this)),
      mText(new QLabel(this)),
      mClose(new QPushButton(this)) {
  setObjectName("AboutWindow");
  const qreal scale = devicePixelRatioF();
  QPixmap picture = QPixmap::fromImage(app_icon(static_cast<int>(PICTURE * scale)));
  picture.setDevicePixelRatio(scale);
  mPicture->setPixmap(picture);
  auto* const name = new QLabel(QString(APP_NAME) + " " + APP_VERSION, this);
  QFont large = name->font();
  large.setPointSizeF(large.pointSizeF() * NAME_SCALE);
  name->setFont(large);
  mText->setTextFormat(Qt::PlainText);
  mText->setWordWrap(true);
  mText->setMinimumWidth(TEXT_WIDTH);
  mText->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  mClose->setDefault(true);
  connect(mClose, &QPushButton::clicked, this, &QDialog::accept);
  auto* const texts = new QVBoxLayout;
  texts->addWidget(name);
  texts->addWidget(mText);
  texts->addStretch();
  auto* const upper = new QHBoxLayout;
  upper->setSpacing(MARGIN);
  upper->addWidget(mPicture, 0, Qt::AlignTop);
  upper->addLayout(texts);
  auto* const whole = new QVBoxLayout(this);
  whole->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
  whole->addLayout(upper);
  whole->addWidget(mClose, 0, Qt::AlignRight);
  SetLabels();
}

void TAboutWindow::SetLabels() {
  setWindowTitle(localized(mContext, "About"));
  mPicture->setAccessibleName(APP_NAME);
  mText->setText(localized(mContext, "@About@"));
  mText->setAccessibleName(localized(mContext, "About"));
  mClose->setText(localized(mContext, "Close"));
}

void TAboutWindow::Appear() {
  show();
  raise();
  activateWindow();
  mClose->setFocus();
}

}  // namespace zoka
