// TRunView: the meeting place of a run, without a toolkit. It owns the compiled program, the
// simulated screen and the player for the life of the window, makes a compiler for each compilation
// and a machine for each run, and turns keys, mouse and time into key presses and events. A front
// end feeds it and shows what it says through TRunHost.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "app/settings/prefs.h"
#include "common/context.h"
#include "core/mid_code.h"
#include "run/compile_job.h"
#include "run/run_alarm.h"
#include "run/run_host.h"
#include "run/run_music.h"
#include "run/run_picture.h"
#include "run/screen/basic_rsrc.h"
#include "run/screen/screen_owner.h"
#include "vm/machine_host.h"
#include "vm/vmachine.h"

namespace zoka {

class TDebugger;
class TDebugModel;
class TKeyFeeder;
class TLiveInputs;

/// Threads: run control, keys and mouse are for the host's thread (one at a time); the overrides of
/// TScreenOwner and TMachineHost are called by the machine. The view waits for the machine only in
/// QuitBasic, and holds no lock there.
class TRunView final : public TScreenOwner, public TMachineHost {
 public:
  /// Nothing is owned; `host` and the context outlive the view.
  TRunView(TEngineContext& context, TRunHost& host);
  ~TRunView() override;
  TRunView(const TRunView&) = delete;
  TRunView& operator=(const TRunView&) = delete;

  // --- Run control.
  /// Compiles, and waits for the result.
  TCompileResult CompileBasic(const char* text);
  /// The same in two steps, as TCompileJob takes them. Nothing else of the program may be touched
  /// between them.
  void StartCompile(std::string text, std::function<void()> ended);
  TCompileResult FinishCompile() { return mCompileJob.Finish(); }
  /// Ends a compilation under way; its result is then Cancelled. Any thread.
  void CancelCompile() { mCompileJob.Cancel(); }
  /// The fault of the last failed compilation.
  const TException& CompileFault() const { return mCompileJob.Fault(); }
  /// Bytes of strings, arrays and stacks that each run from now on may hold; 0, as at first: half
  /// of what the host has.
  void SetMemoryLimit(int64_t bytes) { mMemoryLimit = bytes; }
  /// Runs that begin afterwards execute single instructions, never several as one.
  void SetPlain(bool plain) { mPlain = plain; }
  /// Makes the machine of the next run. Its requests (RUN, CHAIN) go to the host with RunEnded.
  bool ReadyBasic();
  /// Starts it: int32 "LineNum" or string "Label" of `start` says where.
  bool RunBasic(const TMessage& start);
  /// Stops and deletes the machine: `which`, or whichever there is if null. Waits for its thread.
  bool QuitBasic(TVMachine* which = nullptr);
  /// The Kill command.
  bool KillBasic();
  /// Empties the compiled program.
  bool ClearBasic();
  /// Waits for the end of the machine's thread, which stays until the next run, and returns the
  /// run's status; for hosts that do nothing meanwhile.
  int32_t WaitForEnd();
  /// Waits until the music of an ended program has sounded and then for `tail` microseconds. After
  /// ForceStop it silences the music instead.
  void DrainMusic(bigtime_t tail) { mMusic.Drain(tail, mStopRequested); }
  /// Asks the machine and the compiler to end at once, as by force; does not wait. It holds for
  /// what is started later, too: the process is about to end. Any thread.
  void ForceStop();

  /// Where debugged runs report to; null for none. Set between runs; not owned, outlives the view.
  /// With the option UDbg the machines of the runs to come are debuggers.
  void SetDebugModel(TDebugModel* model) { mDebugModel = model; }
  TDebugModel* DebugModel() { return mDebugModel; }
  /// The machine of the present run if it is a debugger, else null.
  TDebugger* Debugger() { return mDebugger; }

  TVMachine* VMachine() { return mMachine.get(); }
  TMidCode* MidCode() { return &mMidCode; }
  TBasicRsrc& Rsrc() { return mRsrc; }
  TMmlPlayer& Player() { return mMusic.Player(); }
  TMidiLocalProducer& Producer() { return mMusic.Producer(); }
  int32_t CompatiMode() const { return mCompatiMode.load(); }
  int64_t RunNumber() const { return mRunNumber; }

  // --- The screen.
  /// Prints the start-up text of the simulated machine.
  void ShowBootStr();
  /// The window's title for the present mode.
  std::string WinTitle() const;
  /// The view is shown from now on, or no longer: the title, the drives, the run font, the start-up
  /// text, and the cursor's blinking. Host's thread.
  void AttachedToWindow();
  void DetachedFromWindow();
  /// Family and size of the run font have changed in the preferences. Host's thread.
  void PrefRunWinFontChanged();
  /// Title and drive names in the language of the catalogue. Host's thread.
  void LanguageChanged();
  /// Composes what has changed and was held back. Host's thread.
  void FlushScreen() { mPicture.Flush(); }
  /// The picture, complete but for what FlushScreen would add. Read it with Lock() held.
  const TFrameBuffer& Frame() const { return mPicture.Frame(); }
  /// What keeps the picture whole between the threads. The host may hold it while it paints; never
  /// in a call of this class that waits.
  TWindowLock& Lock() { return mPicture.Lock(); }

  // --- The clipboard. Host's thread.
  void MItemCopyTextClicked();
  /// A page's own picture, 0 to 3, or -1 for the page shown.
  void MItemCopyGrphClicked(int32_t page);
  void MItemCopyCompositionClicked();

  // --- Keys and mouse.
  /// Keys that are typed by a script or a pipe rather than a person; null for none. Set between
  /// runs; not owned.
  void SetKeyFeeder(TKeyFeeder* feeder);
  /// A key press: its bytes as the host's platform codes them (see host_keys.h), and for
  /// HOST_KEY_FUNCTION the key code.
  void KeyDown(std::string_view bytes, int32_t key = 0);
  /// Command plus a key: C is the break key, others are typed plain.
  void CtrlKeyDown(char byte);
  /// `buttons`: those that changed; the point in device pixels.
  static constexpr uint32_t LEFT_BUTTON = 1;
  static constexpr uint32_t RIGHT_BUTTON = 2;
  void MouseDown(TPoint point, uint32_t buttons);
  void MouseUp(TPoint point, uint32_t buttons);
  void MouseMoved(TPoint point);
  /// Switches the speed control of a running program on or off as the preference says.
  void SetUseSpeedControl();

  // --- Drives.
  /// Sets the folder of drive `index`; empty ejects it. Other indices than 0 to DRIVE_COUNT - 1 are
  /// ignored.
  void SetDriveFolder(int32_t index, const std::string& path);
  std::string DriveFolder(int32_t index) const;

  // --- TScreenOwner
  void UpdateScreenRqtd() override;
  int32_t SetOnTimeDl(const char* hhmmss) override;
  void SetFDDAccessLamp(int32_t driveIdx, int32_t change) override;
  void TranscriptRow(const std::string& row) override;
  void KeyWaitBegins(bigtime_t deadline) override;
  void KeyBufHasRoom() override;

  // --- TMachineHost
  void SendRunRequest(const TMessage& message) override;
  void FlushOutput() override;
  void MachineEnded(int32_t exitStatus) override;

 private:
  void MakeMachine();
  void ForgetDebugger();
  std::shared_ptr<TInterruptPort> Port() const;
  void SetPort(std::shared_ptr<TInterruptPort> port);
  void RaiseInterrupt(uint32_t mask);
  void PreventInputBlock();
  void SetWinTitle();
  void SendUpdateMenuDrvFolder(int32_t index);

  TEngineContext& mContext;
  TRunHost& mHost;
  TBasicRsrc mRsrc;
  TMidCode mMidCode;
  TRunMusic mMusic;
  TRunPicture mPicture;
  TRunAlarm mAlarm;
  std::atomic<int32_t> mCompatiMode{COMPAT_DISK};  // the compiler stores it
  TCompileJob mCompileJob;
  std::unique_ptr<TLiveInputs> mInputs;
  std::unique_ptr<TVMachine> mMachine;
  TDebugger* mDebugger = nullptr;  // mMachine, if it is one
  TDebugModel* mDebugModel = nullptr;
  mutable TMutex mPortLock{TLockRank::Leaf};
  std::shared_ptr<TInterruptPort> mPort;  // the machine's, for events; under mPortLock
  std::atomic<TKeyFeeder*> mKeyFeeder{nullptr};
  std::atomic<bool> mStopRequested{false};
  int64_t mRunNumber = 0;
  int64_t mMemoryLimit = 0;
  bool mPlain = false;

  mutable TMutex mRequestLock{TLockRank::Leaf};
  bool mHasRequest = false;  // under mRequestLock
  TMessage mRequest;         // under mRequestLock
};

}  // namespace zoka
