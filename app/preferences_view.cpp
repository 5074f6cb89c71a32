// The preferences dialog's values and buttons. Its controls are made in preferences_tabs.cpp.
#include "app/preferences_view.h"

#include <QSignalBlocker>
#include <utility>

#include "app/font_families.h"
#include "app/settings/prefs_choices.h"
#include "common/window/menu_label.h"
#include "sound/synth_consumer.h"

namespace zoka {
namespace {

/// The names of connected outputs are cut off at this width, in pixels.
constexpr int MIDI_NAME_WIDTH = 300;

}  // namespace

TPrefsView::TPrefsView(const TWindowContext& context, TMidiRoster& roster,
                       std::function<void()> closed, QWidget* parent)
    : QWidget(parent),
      mContext(context),
      mRoster(roster),
      mClosed(std::move(closed)),
      mDelaySender(*context.engine.clock, context.registry),
      mEdit(*context.engine.prefs,
            [this](const TMessage& message, bool delayed) { NotifyPrefChange(message, delayed); }) {
  setObjectName("TPrefsView");
  mDelaySender.SetDelay(PREFS_DELAY);
  mDelaySender.SetTarget(mContext.app);
  CreateControls();
  SetViewLabel();
}

void TPrefsView::Open() {
  mEdit.Open();
  FillFonts();
  RecreateMenuMidiOut();
  UpdateCompos();
}

QString TPrefsView::Text(const char* key) const {
  return localized(mContext.engine, key);
}

void TPrefsView::SetViewLabel() {
  for (const auto& setText : mLabels) setText();
  UpdateMenuMidiOut();
}

void TPrefsView::UpdateCompos() {
  for (size_t i = 0; i < PREFS_FONT_COUNT; ++i) {
    const QSignalBlocker blocker(mFonts[i]);
    const auto& family = mEdit.FontFamily(static_cast<TPrefsFont>(i));
    // A family that is not there leaves the field with its placeholder.
    mFonts[i]->setCurrentIndex(mFonts[i]->findText(QString::fromStdString(family)));
  }
  for (size_t i = 0; i < PREFS_NUMBER_COUNT; ++i) {
    const QSignalBlocker blocker(mTexts[i]);
    mTexts[i]->setText(QString::fromStdString(mEdit.NumberText(static_cast<TPrefsNumber>(i))));
  }
  for (size_t i = 0; i < PREFS_FLAG_COUNT; ++i) {
    mBoxes[i]->setChecked(mEdit.Flag(static_cast<TPrefsFlag>(i)));
  }
  const QSignalBlocker encoding(mEncoding);
  const QSignalBlocker compat(mCompat);
  const QSignalBlocker slider(mSlider);
  mEncoding->setCurrentIndex(mEdit.Prefs().DEnc.load());
  mCompat->setCurrentIndex(mEdit.Prefs().CmpM.load());
  mSlider->setValue(mEdit.Slider());
  UpdateMenuMidiOut();
  UpdateEnabled();
}

void TPrefsView::UpdateEnabled() {
  const auto box = [this](TPrefsFlag flag) { return mBoxes[static_cast<size_t>(flag)]; };
  const auto text = [this](TPrefsNumber number) { return mTexts[static_cast<size_t>(number)]; };
  box(TPrefsFlag::ConvertPc98)->setEnabled(may_have_pc98_characters(mEdit.Prefs().DEnc.load()));
  text(TPrefsNumber::AutoSaveInterval)->setEnabled(mEdit.Flag(TPrefsFlag::AutoSaveRegular));
  const bool controlled = mEdit.Flag(TPrefsFlag::SpeedControl);
  mSlider->setEnabled(controlled);
  text(TPrefsNumber::SpeedInterval)->setEnabled(controlled);
}

void TPrefsView::FillFonts() {
  for (QComboBox* menu : mFonts) {
    const QSignalBlocker blocker(menu);
    menu->clear();
    menu->addItems(fixed_pitch_families());
  }
}

void TPrefsView::SliderMoved(int position) {
  mEdit.SetSlider(position);
  QLineEdit* const text = mTexts[static_cast<size_t>(TPrefsNumber::SpeedInterval)];
  const QSignalBlocker blocker(text);
  text->setText(QString::fromStdString(mEdit.NumberText(TPrefsNumber::SpeedInterval)));
}

void TPrefsView::NumberTyped(TPrefsNumber number, const QString& text) {
  mEdit.SetNumber(number, text.toStdString());
  if (number != TPrefsNumber::SpeedInterval) return;
  const QSignalBlocker blocker(mSlider);
  mSlider->setValue(mEdit.Slider());
}

void TPrefsView::RecreateMenuMidiOut() {
  mMidiMenu->clear();
  for (const auto& consumer : mRoster.Consumers()) {
    const int32_t id = consumer->ID();
    QAction* const item = mMidiMenu->addAction(QString());
    item->setCheckable(true);
    item->setData(QString::fromStdString(consumer->Name()));
    connect(item, &QAction::triggered, this, [this, id] { MFieldMidiOutChanged(id); });
  }
  UpdateMenuMidiOut();
}

void TPrefsView::UpdateMenuMidiOut() {
  QStringList connected;
  for (QAction* item : mMidiMenu->actions()) {
    const QString name = item->data().toString();
    const QString shown = name == BUILT_IN_SYNTH_NAME ? Text("Built-in Synthesizer") : name;
    item->setText(plain_label(shown.toStdString()));
    item->setChecked(mEdit.IsMidiOutWanted(name.toStdString()));
    if (item->isChecked()) connected << shown;
  }
  const QString names = connected.join(", ");
  const QString shown = mMidiOut->fontMetrics().elidedText(names, Qt::ElideRight, MIDI_NAME_WIDTH);
  mMidiOut->setText(names.isEmpty() ? Text("Ports...") : plain_label(shown.toStdString()));
  mMidiOut->setAccessibleDescription(names);
}

void TPrefsView::MFieldMidiOutChanged(int32_t id) {
  const auto consumer = mRoster.FindConsumer(id);
  if (consumer && consumer->IsValid()) mEdit.ToggleMidiOut(id, consumer->Name());
  UpdateMenuMidiOut();
}

void TPrefsView::NotifyPrefChange(const TMessage& message, bool delayed) {
  if (delayed) return mDelaySender.SendMessage(message);
  mContext.registry.Post(mContext.app, message);
}

void TPrefsView::ButtonOKClicked() {
  mClosed();
  mEdit.Ok();
}

void TPrefsView::ButtonCancelClicked() {
  mClosed();
  mEdit.Cancel();
  UpdateCompos();
}

void TPrefsView::ButtonDefaultsClicked() {
  mEdit.Defaults();
  UpdateCompos();
}

void TPrefsView::ButtonHelpClicked() {
  mContext.registry.Post(mContext.app, TMessage("_hlp"));
}

}  // namespace zoka
