// A list of words on the left, a page on the right.
#include "editor/window/keyword_window.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QKeyEvent>

#include "common/window/menu_label.h"
#include "editor/keyword_help.h"

namespace zoka {
namespace {

constexpr int WIDTH = 660;
constexpr int HEIGHT = 360;
constexpr int LIST_WIDTH = 150;

QString text_of(const std::string& text) {
  return QString::fromStdString(text);
}

}  // namespace

TKeywordWindow::TKeywordWindow(QWidget* parent, const TEngineContext& context)
    : QDialog(parent),
      mContext(context),
      mLabel(new QLabel(this)),
      mWanted(new QLineEdit(this)),
      mWords(new QListWidget(this)),
      mPage(new QTextBrowser(this)) {
  setObjectName("KeywordWindow");
  auto* const grid = new QGridLayout(this);
  grid->addWidget(mLabel, 0, 0);
  grid->addWidget(mWanted, 0, 1);
  grid->addWidget(mWords, 1, 0);
  grid->addWidget(mPage, 1, 1);
  grid->setColumnStretch(1, 1);
  mLabel->setBuddy(mWanted);
  mWords->setFixedWidth(LIST_WIDTH);
  mWanted->installEventFilter(this);
  resize(WIDTH, HEIGHT);
  for (const TKeywordHelp& help : keyword_help_entries()) mWords->addItem(text_of(help.word));
  connect(mWanted, &QLineEdit::textChanged, this, [this] { Filter(); });
  connect(mWords, &QListWidget::currentRowChanged, this, [this] { ShowWord(); });
  SetLabels();
}

void TKeywordWindow::SetLabels() {
  setWindowTitle(localized(mContext, "Words of the Language"));
  mLabel->setText(menu_label(mContext, mContext.catalogue->GetString("Word: "), "W"));
  mWanted->setAccessibleName(localized(mContext, "Word: "));
  mWords->setAccessibleName(localized(mContext, "Words of the Language"));
  mPage->setAccessibleName(localized(mContext, "Help"));
  ShowWord();
}

void TKeywordWindow::Appear(const std::string& word) {
  mWanted->clear();
  const QList<QListWidgetItem*> found = mWords->findItems(text_of(word), Qt::MatchFixedString);
  mWords->setCurrentItem(found.isEmpty() ? mWords->item(0) : found.first());
  mWords->scrollToItem(mWords->currentItem(), QAbstractItemView::PositionAtCenter);
  show();
  raise();
  activateWindow();
  mWanted->setFocus();
}

void TKeywordWindow::Filter() {
  const QString wanted = mWanted->text().trimmed();
  QListWidgetItem* first = nullptr;
  for (int row = 0; row < mWords->count(); ++row) {
    QListWidgetItem* const item = mWords->item(row);
    item->setHidden(!item->text().startsWith(wanted, Qt::CaseInsensitive));
    if (first == nullptr && !item->isHidden()) first = item;
  }
  if (!wanted.isEmpty()) mWords->setCurrentItem(first);
}

void TKeywordWindow::ShowWord() {
  const QListWidgetItem* const item = mWords->currentItem();
  const TKeywordHelp* const help =
      item != nullptr ? find_keyword_help(item->text().toStdString()) : nullptr;
  if (help == nullptr) return mPage->clear();
  QString page = "<h3>" + text_of(help->word).toHtmlEscaped() + "</h3>";
  const TLanguage language = mContext.catalogue->Language();
  const std::string syntax = help->Syntax(language);
  for (std::string_view form : syntax_forms(syntax)) {
    page += "<p style='margin-top:2px;margin-bottom:2px'><code>" +
            text_of(std::string(form)).toHtmlEscaped() + "</code></p>";
  }
  page += "<p>" + text_of(help->Text(language)).toHtmlEscaped() + "</p>";
  mPage->setHtml(page);
}

bool TKeywordWindow::eventFilter(QObject* object, QEvent* event) {
  // The list is moved in from the field of the word, too.
  if (event->type() == QEvent::KeyPress) {
    switch (static_cast<const QKeyEvent*>(event)->key()) {
      case Qt::Key_Up:
      case Qt::Key_Down:
      case Qt::Key_PageUp:
      case Qt::Key_PageDown:
        QCoreApplication::sendEvent(mWords, event);
        return true;
      default:
        break;
    }
  }
  return QDialog::eventFilter(object, event);
}

}  // namespace zoka
