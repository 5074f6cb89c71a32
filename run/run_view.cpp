// The run view: compilation, the life of a run, events, drives and what the screen asks of its
// owner. Its start-up text stands in boot_text.cpp.
#include "run/run_view.h"

#include <charconv>
#include <utility>

#include "app/settings/exit_states.h"
#include "app/settings/prefs.h"
#include "common/file_path.h"
#include "debugger/debug_model.h"
#include "debugger/debugger.h"
#include "run/key_feeder.h"
#include "run/live_inputs.h"
#include "sound/music_end.h"

namespace zoka {
namespace {

constexpr int32_t MACHINE_PRIORITY = 15;
constexpr int32_t SECONDS_PER_DAY = 86400;
constexpr bigtime_t MICROSECONDS_PER_SECOND = 1'000'000;

/// Platform bytes and key codes with a meaning of their own.
constexpr char FUNCTION_KEY_BYTE = 0x10;
constexpr char END_KEY_BYTE = 0x04;
constexpr int32_t FIRST_FUNCTION_KEY_CODE = 2;
/// Function keys that have a text, and those that have a trap.
constexpr int32_t TEXT_FUNCTION_KEYS = 10;
constexpr int32_t TRAP_FUNCTION_KEYS = 12;

/// Seconds since midnight of "hh:mm:ss", or -1 if it is anything else.
int32_t parse_time_of_day(std::string_view text) {
  if (text.size() != 8 || text[2] != ':' || text[5] != ':') return -1;
  int32_t parts[3];
  constexpr int32_t LIMITS[3] = {24, 60, 60};
  for (int i = 0; i < 3; ++i) {
    const char* begin = text.data() + i * 3;
    if (*begin < '0' || *begin > '9') return -1;
    auto [end, error] = std::from_chars(begin, begin + 2, parts[i]);
    if (error != std::errc() || end != begin + 2 || parts[i] >= LIMITS[i]) return -1;
  }
  return (parts[0] * 60 + parts[1]) * 60 + parts[2];
}

}  // namespace

/// Compiles on the stack of an engine thread.
class TRunView::TCompileThread final : public TThread {
 public:
  TCompileThread(TRunView& view, std::string text, std::function<void()> ended)
      : TThread("Compiler", MACHINE_PRIORITY, *view.mContext.clock, TActorClass::Machine),
        mView(view),
        mText(std::move(text)),
        mEnded(std::move(ended)) {}

 protected:
  int32_t Execute() override {
    TCompiler compiler(mView.mContext, &mView.mMidCode, &mView.mCancelCompile);
    int32_t compatiMode = mView.mCompatiMode.load();
    TCompileResult result = compiler.Compile(mText.c_str(), &compatiMode);
    mView.mCompatiMode.store(compatiMode);
    mView.mCompileFault = compiler.Fault();
    if (mEnded) mEnded();
    return static_cast<int32_t>(result);
  }

 private:
  TRunView& mView;
  const std::string mText;
  const std::function<void()> mEnded;
};

/// Waits for the music as an engine's thread does, on either kind of clock.
class TRunView::TDrainThread final : public TThread, private TPlayEventTarget {
 public:
  TDrainThread(TRunView& view, bigtime_t tail)
      : TThread("Drain", MACHINE_PRIORITY, *view.mContext.clock, TActorClass::Machine),
        mView(view),
        mTail(tail) {}

 protected:
  int32_t Execute() override {
    wait_for_music(mView.mPlayer, mTail, TPlayCaller{mWake, *this});
    return 0;
  }

 private:
  void HappenInterrupt(int32_t) override {}
  bool IsTerminated() const override { return mView.mStopRequested.load(); }

  TRunView& mView;
  const bigtime_t mTail;
};

/// The machine as the player sees it: events, and whether the run is to end.
class TRunView::TPlayTarget final : public TPlayEventTarget {
 public:
  explicit TPlayTarget(std::shared_ptr<TInterruptPort> port) : mPort(std::move(port)) {}
  void HappenInterrupt(int32_t mask) override {
    mPort->HappenInterrupt(static_cast<uint32_t>(mask));
  }
  bool IsTerminated() const override { return mPort->mStopped.load(); }

 private:
  std::shared_ptr<TInterruptPort> mPort;
};

TRunView::TRunView(TEngineContext& context, TRunHost& host)
    : mContext(context),
      mHost(host),
      mRsrc(*context.clock),
      mProducer(*context.clock, std::string(APP_NAME) + " OUT"),
      mPlayer(*context.clock, TSoundSettings{context.prefs->SVol, context.prefs->MDly}),
      mInputs(std::make_unique<TLiveInputs>(context, mRsrc, host, mProducer)) {
  int32_t preferred = context.prefs->CmpM.load();
  if (preferred != 0) mCompatiMode.store(preferred);
  mRsrc.SetFontFamilyAndSize(context.prefs->RWFF, context.prefs->RWFS.load());
  mRsrc.SetOwner(this);
  mPlayer.SetProducer(&mProducer);
}

TRunView::~TRunView() {
  DetachedFromWindow();
  CancelCompile();
  FinishCompile();
  QuitBasic();
  if (mDebugModel != nullptr) mDebugModel->ClearVar();
  ClearTimeDlRunner();
  mRsrc.SetOwner(nullptr);
}

TCompileResult TRunView::CompileBasic(const char* text) {
  StartCompile(text, nullptr);
  return FinishCompile();
}

void TRunView::StartCompile(std::string text, std::function<void()> ended) {
  FinishCompile();
  if (mDebugModel != nullptr) mDebugModel->ClearVar();
  mCancelCompile.store(false);
  // A stop by force that came just before counts.
  if (mStopRequested.load()) CancelCompile();
  mCompileThread = std::make_unique<TCompileThread>(*this, std::move(text), std::move(ended));
  mCompileThread->Resume();
}

TCompileResult TRunView::FinishCompile() {
  if (!mCompileThread) return TCompileResult::Cancelled;
  int32_t result = 0;
  mCompileThread->Wait(&result);
  mCompileThread.reset();
  return static_cast<TCompileResult>(result);
}

void TRunView::ForgetDebugger() {
  if (mDebugger != nullptr) mDebugModel->ForgetVMachine(mDebugger);
  mDebugger = nullptr;
}

void TRunView::MakeMachine() {
  ForgetDebugger();
  TMachineParts parts;
  parts.context = &mContext;
  parts.midCode = &mMidCode;
  parts.rsrc = &mRsrc;
  parts.player = &mPlayer;
  parts.inputs = mInputs.get();
  parts.host = this;
  parts.memoryLimit = mMemoryLimit;
  parts.plain = mPlain;
  if (mDebugModel != nullptr && mContext.exitStates->UDbg.load()) {
    auto debugger = std::make_unique<TDebugger>("Debugger", parts, mDebugModel, mRunNumber);
    mDebugger = debugger.get();
    mMachine = std::move(debugger);
  } else {
    mMachine = std::make_unique<TVMachine>("Virtual Machine", parts);
  }
}

bool TRunView::ReadyBasic() {
  ++mRunNumber;
  {
    TLock lock(mRequestLock);
    mHasRequest = false;
  }
  MakeMachine();
  mMachine->SetRuntimeCompatiMode(CompatiMode());
  SetPort(mMachine->Port());
  mPlayTarget = std::make_unique<TPlayTarget>(mMachine->Port());
  mPlayer.SetVMachine(mPlayTarget.get());
  ClearTimeDlRunner();
  SetWinTitle();
  // Keys of a script that were handed over but not read belong to the next run.
  if (mKeyFeeder.load() == nullptr) mRsrc.ClearKeyBuf();
  SetUseSpeedControl();
  return true;
}

bool TRunView::RunBasic(const TMessage& start) {
  if (!mMachine || !mMachine->SetStartPos(start)) return false;
  if (TKeyFeeder* feeder = mKeyFeeder.load()) feeder->Begin();
  mMachine->Resume();
  return true;
}

bool TRunView::QuitBasic(TVMachine* which) {
  if (!mMachine || (which != nullptr && which != mMachine.get())) return false;
  mPlayer.SetVMachine(nullptr);
  mMachine->Terminate();
  PreventInputBlock();
  if (TKeyFeeder* feeder = mKeyFeeder.load()) feeder->End();
  mMachine->Wait(nullptr);
  ForgetDebugger();
  mMachine.reset();
  SetPort(nullptr);
  mPlayTarget.reset();
  return true;
}

bool TRunView::KillBasic() {
  mContext.privacy.killed.store(true);
  CancelCompile();
  return QuitBasic();
}

bool TRunView::ClearBasic() {
  if (mDebugModel != nullptr) mDebugModel->ClearVar();
  mMidCode.Clear();
  mRsrc.SetScrModifiedAll2();
  mRsrc.UpdateScreen();
  return true;
}

int32_t TRunView::WaitForEnd() {
  int32_t status = 0;
  if (mMachine) mMachine->Wait(&status);
  return status;
}

void TRunView::DrainMusic(bigtime_t tail) {
  TDrainThread thread(*this, tail);
  thread.Resume();
  thread.Wait(nullptr);
}

void TRunView::ForceStop() {
  mStopRequested.store(true);
  CancelCompile();
  if (auto port = Port()) port->Terminate();
  // The machine may stand still for keys that never come.
  if (TKeyFeeder* feeder = mKeyFeeder.load()) feeder->End();
}

void TRunView::PreventInputBlock() {
  mRsrc.PushToKeyBuf("\x0A", 1);
}

void TRunView::SetKeyFeeder(TKeyFeeder* feeder) {
  mKeyFeeder.store(feeder);
  mInputs->SetKeyFeeder(feeder);
}

std::shared_ptr<TInterruptPort> TRunView::Port() const {
  TLock lock(mPortLock);
  return mPort;
}

void TRunView::SetPort(std::shared_ptr<TInterruptPort> port) {
  TLock lock(mPortLock);
  mPort.swap(port);
}

void TRunView::RaiseInterrupt(uint32_t mask) {
  if (auto port = Port()) port->HappenInterrupt(mask);
}

void TRunView::KeyDown(std::string_view bytes, int32_t key) {
  if (bytes.empty()) return;
  if (bytes[0] == FUNCTION_KEY_BYTE) {
    int32_t index = key - FIRST_FUNCTION_KEY_CODE;
    if (index < 0 || index >= TRAP_FUNCTION_KEYS) return;
    uint32_t mask = IR_KEY_1 << index;
    if (index < TEXT_FUNCTION_KEYS) {
      mRsrc.PushFuncKey(index, [port = Port(), mask] {
        if (port) port->HappenInterrupt(mask);
      });
    } else {
      RaiseInterrupt(mask);
    }
    return;
  }
  mRsrc.PushToKeyBuf(bytes.data(), static_cast<int32_t>(bytes.size()));
  if (bytes[0] == END_KEY_BYTE) RaiseInterrupt(IR_HELP_KEY);
}

void TRunView::CtrlKeyDown(char byte) {
  if (byte == 'C' || byte == 'c') {
    RaiseInterrupt(IR_STOP_KEY);
  } else {
    KeyDown(std::string_view(&byte, 1));
  }
}

void TRunView::MouseDown(TPoint point, uint32_t buttons) {
  if (!mMachine) return;
  if (buttons & LEFT_BUTTON) {
    mMachine->Mouse().SetMouseButtonLeftState(-1, point);
    RaiseInterrupt(IR_MOUSE_LEFT_DOWN);
  }
  if (buttons & RIGHT_BUTTON) {
    mMachine->Mouse().SetMouseButtonRightState(-1, point);
    RaiseInterrupt(IR_MOUSE_RIGHT_DOWN);
  }
  mHost.CapturePointer(true);
}

void TRunView::MouseUp(TPoint point, uint32_t buttons) {
  if (!mMachine) return;
  if (buttons & LEFT_BUTTON) {
    mMachine->Mouse().SetMouseButtonLeftState(0, point);
    RaiseInterrupt(IR_MOUSE_LEFT_UP);
  }
  if (buttons & RIGHT_BUTTON) {
    mMachine->Mouse().SetMouseButtonRightState(0, point);
    RaiseInterrupt(IR_MOUSE_RIGHT_UP);
  }
  mHost.CapturePointer(false);
}

void TRunView::MouseMoved(TPoint point) {
  if (!mMachine) return;
  mMachine->Mouse().SetMousePosCurrent(point, mRsrc.GrphYScale());
  RaiseInterrupt(IR_MOUSE_MOVED);
}

void TRunView::SetUseSpeedControl() {
  auto port = Port();
  if (!port) return;
  if (mContext.prefs->USpC.load()) {
    port->HappenInterrupt(IR_SPEED_CONTROL);
  } else {
    port->UnhappenInterrupt(IR_SPEED_CONTROL);
  }
}

int32_t TRunView::SetOnTimeDl(const char* hhmmss) {
  int32_t wanted = parse_time_of_day(hhmmss);
  if (wanted < 0) return -1;
  ClearTimeDlRunner();
  TLocalTime now = mContext.clock->local_time();
  int32_t seconds = wanted - ((now.hour * 60 + now.minute) * 60 + now.second);
  if (seconds < 0) seconds += SECONDS_PER_DAY;
  mOnTimeTimer.store(
      mContext.clock->StartTimer(seconds * MICROSECONDS_PER_SECOND, false, [port = Port()] {
        if (port) port->HappenInterrupt(IR_TIME);
      }));
  return 0;
}

void TRunView::ClearTimeDlRunner() {
  TTimerId timer = mOnTimeTimer.exchange(0);
  if (timer != 0) mContext.clock->CancelTimer(timer);
}

void TRunView::SetDriveFolder(int32_t index, const std::string& path) {
  mRsrc.DrvFolderRefs().SetFolder(index, path);
  if (index < LAMP_COUNT) SendUpdateMenuDrvFolder(index);
}

void TRunView::SendUpdateMenuDrvFolder(int32_t index) {
  const std::string path = DriveFolder(index);
  mHost.DriveChanged(
      index, path,
      path.empty() ? mContext.catalogue->GetString("(Empty)") : extract_file_name(path));
}

std::string TRunView::DriveFolder(int32_t index) const {
  return mRsrc.DrvFolderRefs().Folder(index);
}

void TRunView::SetFDDAccessLamp(int32_t driveIdx, int32_t change) {
  mHost.Lamp(driveIdx, change);
}

void TRunView::TranscriptRow(const std::string& row) {
  mHost.TranscriptRow(row);
}

void TRunView::KeyWaitBegins(bigtime_t deadline) {
  FlushOutput();
  if (TKeyFeeder* feeder = mKeyFeeder.load()) feeder->WaitBegins(deadline);
}

void TRunView::KeyBufHasRoom() {
  if (TKeyFeeder* feeder = mKeyFeeder.load()) feeder->HasRoom();
}

void TRunView::SendRunRequest(const TMessage& message) {
  TLock lock(mRequestLock);
  mHasRequest = true;
  mRequest = message;
}

void TRunView::FlushOutput() {
  FlushPicture();
  mHost.FlushOutput();
}

void TRunView::MachineEnded(int32_t exitStatus) {
  FlushPicture();
  bool hasRequest;
  TMessage request;
  {
    TLock lock(mRequestLock);
    hasRequest = std::exchange(mHasRequest, false);
    request = mRequest;
  }
  mHost.RunEnded(mRunNumber, exitStatus, hasRequest ? &request : nullptr);
}

}  // namespace zoka
