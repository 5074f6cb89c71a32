// The debug view's life: what it shows when, and what its buttons do.
#include "debugger/window/debug_view.h"

#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/settings/inter_app_prefs.h"
#include "app/settings/prefs.h"
#include "common/window/menu_label.h"
#include "common/window/tool_tip.h"
#include "debugger/window/debug_commands.h"
#include "debugger/window/debug_images.h"

namespace zoka {
namespace {

/// Milliseconds from one painting to the next: one frame of the host's screen.
constexpr int FRAME_MS = 16;
/// Shares of the window: source and the rest; call stack and variables.
constexpr int SOURCE_SHARE = 3;
constexpr int SIDE_SHARE = 2;
constexpr int CALL_STACK_SHARE = 1;
constexpr int VARIABLES_SHARE = 3;
constexpr int ICON_PIXELS = 20;
constexpr int LABEL_MARGIN = 3;

struct TToolButtonRow {
  const char* name;
  const char* code;
  const char* image;
  const char* tip;  // key of the catalogue
};

constexpr TToolButtonRow BUTTONS[] = {
    {"TBRun", DEBUG_RUN, "ImgRun", "Run"},
    {"TBPause", DEBUG_PAUSE, "ImgPause", "Pause"},
    {"TBStepOver", DEBUG_STEP_OVER, "ImgStepOver", "Step Over"},
    {"TBStepIn", DEBUG_STEP_IN, "ImgStepIn", "Step In"},
    {"TBStepOut", DEBUG_STEP_OUT, "ImgStepOut", "Step Out"},
    {"TBKill", DEBUG_KILL, "ImgKill", "Kill"},
};

/// A list in a frame, below its label if it has one.
QWidget* framed(QWidget* parent, const char* name, QLabel* label, QWidget* list) {
  auto* column = new QWidget(parent);
  auto* rows = new QVBoxLayout(column);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  if (label != nullptr) {
    label->setParent(column);
    label->setMargin(LABEL_MARGIN);
    label->setBuddy(list);
    rows->addWidget(label);
  }
  auto* frame = new QFrame(column);
  frame->setObjectName(name);
  frame->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | QFrame::Sunken);
  auto* inner = new QVBoxLayout(frame);
  inner->setContentsMargins(0, 0, 0, 0);
  inner->addWidget(list);
  rows->addWidget(frame, 1);
  return column;
}

}  // namespace

TDebugView::TDebugView(TBasicWindow& window, TEngineContext& context)
    : TBasicView(&window),
      mWindow(window),
      mContext(context),
      mModel(context, *this),
      mToolBar(new QToolBar(this)),
      mSrcCode(new TSrcCodeView(this, mModel)),
      mCallStackLabel(new QLabel(this)),
      mCallStack(new TCallStackView(this, mModel)),
      mVarsLabel(new QLabel(this)),
      mVars(new TVarView(this, mModel)),
      mRuleDialog(new TBreakRuleDialog(this, context)) {
  setObjectName("DebugView");
  mCallStackLabel->setObjectName("StrViewCallStack");
  mVarsLabel->setObjectName("StrViewVar");
  CreateToolBar();
  LayoutCompos();
  mSrcCode->SetCalls({[this](size_t item, int x) { ClickSrcLine(item, x); },
                      [this](size_t, QPoint place) { SrcCodeMenu(place); }});
  mVars->SetMenu([this](QPoint place) { VarMenu(place); });
  mFrame.setSingleShot(true);
  mFrame.setInterval(FRAME_MS);
  connect(&mFrame, &QTimer::timeout, this, [this] {
    if (mRefreshWanted) Refresh();
  });
  SetFontFamilyAndSize();
  SetToolBarStyle();
  SetViewLabel();
  mCallStack->RowsChanged();
  setFocusProxy(mSrcCode);
}

void TDebugView::CreateToolBar() {
  mToolBar->setObjectName("ToolBar");
  mToolBar->setIconSize(QSize(ICON_PIXELS, ICON_PIXELS));
  for (size_t i = 0; i < BUTTON_COUNT; ++i) {
    mButtons[i] = mToolBar->addAction(QString());
    QWidget* const button = mToolBar->widgetForAction(mButtons[i]);
    button->setObjectName(BUTTONS[i].name);
    button->setFocusPolicy(Qt::TabFocus);
    new TToolTip(button);
    connect(mButtons[i], &QAction::triggered, this,
            [this, code = BUTTONS[i].code] { mWindow.PostMessage(TMessage(code)); });
  }
  SetImages();
  UpdateButtons();
}

void TDebugView::SetImages() {
  for (size_t i = 0; i < BUTTON_COUNT; ++i) {
    mButtons[i]->setIcon(GetBitmap(BUTTONS[i].image, palette()));
  }
}

void TDebugView::LayoutCompos() {
  auto* side = new QSplitter(Qt::Vertical, this);
  side->addWidget(framed(side, "ScrlViewCallStack", mCallStackLabel, mCallStack));
  side->addWidget(framed(side, "ScrlViewVar", mVarsLabel, mVars));
  side->setStretchFactor(0, CALL_STACK_SHARE);
  side->setStretchFactor(1, VARIABLES_SHARE);
  auto* whole = new QSplitter(Qt::Horizontal, this);
  whole->addWidget(framed(whole, "ScrlViewSrcCode", nullptr, mSrcCode));
  whole->addWidget(side);
  whole->setStretchFactor(0, SOURCE_SHARE);
  whole->setStretchFactor(1, SIDE_SHARE);
  whole->setChildrenCollapsible(false);
  side->setChildrenCollapsible(false);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(mToolBar);
  column->addWidget(whole, 1);
  setTabOrder(mSrcCode, mCallStack);
  setTabOrder(mCallStack, mVars);
}

QWidget* TDebugView::Button(const char* name) const {
  return mToolBar->findChild<QWidget*>(name);
}

void TDebugView::SetViewLabel() {
  for (size_t i = 0; i < BUTTON_COUNT; ++i) {
    const QString tip = localized(mContext, BUTTONS[i].tip);
    mButtons[i]->setText(tip);
    mButtons[i]->setToolTip(tip);
    mToolBar->widgetForAction(mButtons[i])->setAccessibleName(tip);
  }
  mToolBar->setAccessibleName(localized(mContext, "Debugger"));
  mSrcCode->setAccessibleName(localized(mContext, "Source"));
  mSrcCode->SetReadTexts(localized(mContext, "Breakpoint"), localized(mContext, "Stopped here"));
  mCallStackLabel->setText(localized(mContext, "Call Stack"));
  mCallStack->setAccessibleName(localized(mContext, "Call Stack"));
  mVarsLabel->setText(localized(mContext, "Variables"));
  mVars->setAccessibleName(localized(mContext, "Variables"));
  mVars->SetReadText(localized(mContext, "Changed"));
  mRuleDialog->SetLabels();
  mCallStack->viewport()->update();
}

void TDebugView::SetToolBarStyle() {
  bool flat = true;
  if (mContext.interAppPrefs != nullptr) {
    mContext.interAppPrefs->GetBool(FLAT_TOOL_BAR_ITEM, &flat);
  }
  for (QAction* action : mButtons) {
    static_cast<QToolButton*>(mToolBar->widgetForAction(action))->setAutoRaise(flat);
  }
}

void TDebugView::SetFontFamilyAndSize() {
  const std::string& family = mContext.prefs->DWFF;
  const float points = mContext.prefs->DWFS.load();
  mSrcCode->SetFontFamilyAndSize(family, points);
  mCallStack->SetFontFamilyAndSize(family, points);
  mVars->SetFontFamilyAndSize(family, points);
}

void TDebugView::DebugModelChanged() {
  QMetaObject::invokeMethod(
      this, [this] { RefreshSoon(); }, Qt::QueuedConnection);
}

void TDebugView::RefreshSoon() {
  mRefreshWanted = true;
  if (!mFrame.isActive()) Refresh();
}

void TDebugView::Refresh() {
  mRefreshWanted = false;
  const TDebugChanges changes = mModel.TakeChanges();
  mFrame.start();
  if (changes.source) mSrcCode->SetSrcCode();
  if (changes.marks) mSrcCode->viewport()->update();
  if (changes.scrollTo) mSrcCode->ScrollToTop(static_cast<int64_t>(*changes.scrollTo));
  if (changes.callStack) mCallStack->StackChanged();
  if (changes.variables || !changes.resetVars.empty()) mVars->ItemsChanged();
  if (changes.values || changes.marks) mVars->ValuesChanged();
  UpdateButtons();
  // Who has gone on already wants to see the run window.
  const bool stands = mModel.RunMode() == TDebugRunMode::Breaked;
  if (changes.breaked && stands) Appear();
  if (mCalls.changed) mCalls.changed();
}

void TDebugView::UpdateButtons() {
  const bool has = mModel.HasDebugger();
  // Run shows the run window at least.
  for (size_t i = 1; i < BUTTON_COUNT; ++i) mButtons[i]->setEnabled(has);
}

bool TDebugView::MessageReceived(const TMessage& message) {
  switch (message.what) {
    case message_code(DEBUG_RUN):
      MItemRunClicked();
      return true;
    case message_code(DEBUG_RUN_OR_GO_ON):
      MItemRunOrGoOnClicked();
      return true;
    case message_code(DEBUG_STEP_OVER):
      MItemStepOverClicked();
      return true;
    case message_code(DEBUG_STEP_IN):
      MItemStepInClicked();
      return true;
    case message_code(DEBUG_STEP_OUT):
      MItemStepOutClicked();
      return true;
    case message_code(DEBUG_PAUSE):
      MItemStopClicked();
      return true;
    case message_code(DEBUG_KILL):
      MItemKillClicked();
      return true;
    case message_code(DEBUG_RUN_TO_CURSOR):
      RunToCursor();
      return true;
    case message_code(DEBUG_TOGGLE_BREAK_POINT):
      ToggleBreakPoint();
      return true;
    case message_code(DEBUG_BREAK_RULE):
      AskBreakRule();
      return true;
    case message_code("pdfc"):
      SetFontFamilyAndSize();
      return true;
    default:
      return false;
  }
}

void TDebugView::MItemRunClicked() {
  if (mCalls.showRunWindow) mCalls.showRunWindow();
  mModel.Run();
}

void TDebugView::MItemRunOrGoOnClicked() {
  if (mModel.HasDebugger()) return MItemRunClicked();
  if (mCalls.run) mCalls.run();
}

void TDebugView::MItemKillClicked() {
  if (mModel.HasDebugger() && mCalls.kill) mCalls.kill();
}

void TDebugView::RunToCursor() {
  const int64_t row = mSrcCode->CurrentRow();
  if (row == TRowView::NO_ROW) return;
  mModel.RunToCursor(mModel.SrcLine(static_cast<size_t>(row)).line);
}

void TDebugView::TellBreakPoint(size_t item) {
  // Without a run a mark is for display only.
  if (mModel.HasDebugger() && mCalls.breakPointChanged) mCalls.breakPointChanged(item);
}

void TDebugView::ClickSrcLine(size_t item, int x) {
  if (mModel.ClickSrcLine(item, x)) TellBreakPoint(item);
}

void TDebugView::ToggleBreakPoint() {
  const int64_t row = mSrcCode->CurrentRow();
  if (row != TRowView::NO_ROW) ClickSrcLine(static_cast<size_t>(row), 0);
}

void TDebugView::AskBreakRule() {
  const int64_t row = mSrcCode->CurrentRow();
  if (row == TRowView::NO_ROW) return;
  const auto item = static_cast<size_t>(row);
  const TSrcCodeItem source = mModel.SrcLine(item);
  mRuleDialog->Ask(QString::fromStdString(source.text), source.rule,
                   [this, item, source](const TBreakRule& rule) {
                     // The list may be another one by now.
                     if (mModel.SrcLine(item).text != source.text) return;
                     mModel.SetBreakRule(item, rule);
                     TellBreakPoint(item);
                   });
}

void TDebugView::SrcCodeMenu(QPoint place) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const auto chosen = [this](const char* code) { mWindow.PostMessage(TMessage(code)); };
  for (const TDebugCommand& command : debug_break_commands()) {
    add_debug_command(menu, mContext, command, chosen);
  }
  menu->addSeparator();
  add_debug_command(menu, mContext, debug_run_commands().back(), chosen)
      ->setEnabled(mModel.HasDebugger());
  menu->popup(place);
}

void TDebugView::VarMenu(QPoint place) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  QAction* const edit =
      menu->addAction(menu_label(mContext, mContext.catalogue->GetString("Change Value"), "V"),
                      [this] { mVars->EditValue(); });
  edit->setShortcut(Qt::Key_F2);
  edit->setEnabled(mVars->CanEdit());
  menu->popup(place);
}

void TDebugView::changeEvent(QEvent* event) {
  TBasicView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && mButtons[0] != nullptr) SetImages();
}

}  // namespace zoka
