// `zoka run`: one run after the other, from the list's first to the last that a program asks for.
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <utility>

#include "common/thread.h"
#include "common/write_all.h"
#include "console/commands.h"
#include "console/engine.h"
#include "console/stdin_keys.h"
#include "console/terminal.h"
#include "console/watch.h"
#include "editor/list_document.h"
#include "run/key_feeder.h"
#include "run/screen/png_file.h"
#include "sound/play_outputs.h"
#include "vm/engine_priority.h"

namespace zoka {
namespace {

/// True if the screen is shown live and the terminal's keys are typed into the run.
bool is_live(const TOptions& options) {
  return TTerminal::IsThere() && options.file != "-";
}

/// Keeps simulated time standing still, from its Resume to its destruction.
class TStandstill final : public TThread {
 public:
  explicit TStandstill(TClock& clock)
      : TThread("Standstill", MACHINE_PRIORITY, clock, TActorClass::Machine) {}
  ~TStandstill() override {
    Terminate();
    Wait(nullptr);
  }

 protected:
  int32_t Execute() override {
    Clock().RealWait(mWake);
    return 0;
  }
};

/// Everything of one `zoka run`, from set-up to exit status.
class TRunCommand {
 public:
  explicit TRunCommand(const TOptions& options)
      : mOptions(options),
        mEngine(options, mHost),
        mFeeder(*mEngine.Context().clock, mEngine.View()),
        mOutputs(*mEngine.Context().clock, mEngine.View().Producer(),
                 TPlayOutputOptions{options.midi, options.wav, options.noWait}),
        mWatch(
            options.timeoutSeconds, [this] { mEngine.View().ForceStop(); }, TTerminal::Restore) {
    mHost.SetOnFailure([this] { mEngine.View().ForceStop(); });
    mHost.SetOnRequest([this] { AwaitNextRun(); });
  }

  int Run() {
    if (!mEngine.Load()) return EXIT_NO_LIST;
    SetDrives();
    if (!StartKeys()) return EXIT_USAGE;
    if (mOptions.boot) mEngine.View().ShowBootStr();
    const bool wasLive = mTerminal != nullptr;
    int status = RunPrograms();
    mStdinKeys.reset();
    mTerminal.reset();
    mHost.SetLive(false);
    if (!wasLive) mHost.WriteScreen(mEngine.View().Rsrc());
    mHost.FlushOutput();
    WriteScreenshot();
    FinishMusic();
    mEngine.View().QuitBasic();
    return FinalStatus(status);
  }

 private:
  void SetDrives() {
    TRunView& view = mEngine.View();
    if (mOptions.file == "-") {
      char* folder = ::realpath(".", nullptr);
      if (folder != nullptr) view.SetDriveFolder(0, folder);
      std::free(folder);
    }
    for (const auto& [number, folder] : mOptions.drives) {
      char* path = ::realpath(folder.c_str(), nullptr);
      view.SetDriveFolder(number - 1, path != nullptr ? path : folder);
      std::free(path);
    }
  }

  bool StartKeys() {
    std::deque<TFeedItem> items;
    for (const std::string& text : mOptions.typed) {
      std::string error;
      if (!parse_key_text(text, &items, &error)) {
        write_all(STDERR_FILENO, "zoka: --type: " + error +
                                     ": accepted are \\r \\n \\\\ {{ and names in braces such as "
                                     "{LEFT} {F1} {BREAK} {WAIT 100} {MOVE 10,20}\n");
        return false;
      }
    }
    mEngine.View().SetKeyFeeder(&mFeeder);
    mFeeder.Add(std::move(items));
    if (is_live(mOptions)) {
      mFeeder.SetInteractive();
      mHost.SetLive(true);
      mTerminal = std::make_unique<TTerminal>(mEngine.View(), mFeeder);
    } else if (mOptions.typed.empty() && mOptions.file != "-" && !::isatty(STDIN_FILENO)) {
      mStdinKeys = std::make_unique<TStdinKeys>(mFeeder);
    } else {
      mFeeder.Finish();
    }
    return true;
  }

  /// On the machine's thread, whose program has ended and asked for another.
  void AwaitNextRun() {
    mHost.FlushOutput();
    TClock& clock = *mEngine.Context().clock;
    TWake wake(clock);
    clock.snooze(NEXT_RUN_DELAY, wake);
    if (!clock.IsSimulated()) return;
    // No time passes while no machine is there to take part in it.
    mStandstill = std::make_unique<TStandstill>(clock);
    mStandstill->Resume();
  }

  int RunPrograms() {
    TMessage request("run");
    add_run_start(mOptions.start, &request);
    TRunOutcome outcome = mEngine.Document().RunBasic(request);
    for (;;) {
      if (outcome == TRunOutcome::CompileFailed) return EXIT_COMPILE_ERROR;
      if (outcome == TRunOutcome::LoadFailed) return EXIT_NO_LIST;
      if (outcome != TRunOutcome::Started) return EXIT_OK;
      // A stop that came before there was a machine is made up for.
      if (mWatch.Status() != 0) mEngine.View().ForceStop();
      int32_t status = mEngine.View().WaitForEnd();
      const std::unique_ptr<TStandstill> standstill = std::move(mStandstill);
      TMessage next;
      if (mWatch.Status() != 0 || mHost.OutputFailed() || !mHost.TakeRequest(&next)) return status;
      // A break that came too late for the one program is for the next.
      if (mEngine.View().VMachine()->IsTerminated()) return EXIT_STOPPED;
      outcome = mEngine.Document().VMachineRunRqtd(next);
    }
  }

  void WriteScreenshot() {
    if (mOptions.screenshot.empty()) return;
    TFrameBuffer picture;
    TScreenPainter(mEngine.View().Rsrc()).DrawComposition(picture);
    if (write_png(mOptions.screenshot, picture)) return;
    mUnwritten = report_unwritten(mOptions.screenshot);
  }

  /// Music of an ended program plays to its end, unless a signal or the time limit cuts it.
  void FinishMusic() {
    mEngine.View().DrainMusic(mOutputs.Tail());
    for (const std::string& path : mOutputs.Finish()) mUnwritten = report_unwritten(path);
  }

  int FinalStatus(int status) {
    if (mHost.ReaderGone()) return EXIT_PIPE;
    if (mWatch.Status() != 0) return mWatch.Status();
    if (mHost.OutputFailed()) return report_unwritten("standard output");
    if (mUnwritten != EXIT_OK) return mUnwritten;
    return status;
  }

  const TOptions& mOptions;
  TConsoleHost mHost;
  TConsoleEngine mEngine;
  TKeyFeeder mFeeder;
  TPlayOutputs mOutputs;
  TWatch mWatch;
  std::unique_ptr<TStdinKeys> mStdinKeys;
  std::unique_ptr<TTerminal> mTerminal;
  std::unique_ptr<TStandstill> mStandstill;  // of the machine's thread until that has ended
  int mUnwritten = EXIT_OK;
};

}  // namespace

int run_command(const TOptions& options) {
  if (is_live(options)) TTerminal::HoldSuspend();
  TRunCommand command(options);
  return command.Run();
}

}  // namespace zoka
