// TKeyFeeder: types keys into a run from a script (--type), a pipe or a terminal's reader instead
// of a person. It hands over in order, as soon as the key buffer has room, and counts waits from
// the moment they are reached.
#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

#include "common/clock.h"
#include "common/mutex.h"
#include "common/types.h"
#include "run/typed_keys.h"

namespace zoka {

class TRunView;

/// One thing that is typed or done.
struct TFeedItem {
  enum class TKind : uint8_t {
    Key,
    FunctionKey,
    Break,
    Wait,
    Move,
    LeftDown,
    LeftUp,
    RightDown,
    RightUp
  };
  TKind kind = TKind::Key;
  std::string bytes;    // Key: as the platform codes them
  int32_t number = 0;   // FunctionKey: 1 to 12
  bigtime_t delay = 0;  // Wait: microseconds
  TPoint point;         // mouse: device pixels
};

/// Parses the text of --type: `\r`, `\n` and `\\`, `{NAME}`, `{WAIT n}`, `{MOVE x,y}` and the like.
/// Returns false, with what is wrong in `*error`, for an unknown name or a bad number.
bool parse_key_text(std::string_view text, std::deque<TFeedItem>* items, std::string* error);

/// The feeder of one run view. Add may be called from any thread.
class TKeyFeeder {
 public:
  TKeyFeeder(TClock& clock, TRunView& view);
  ~TKeyFeeder();

  void Add(std::deque<TFeedItem> items);
  /// Keys are typed by a person: a program that looks for one does not stand still for it.
  void SetInteractive() { mInteractive = true; }
  /// Nothing will be added any more: a program that then waits for a key without limit is stopped
  /// as by the break key.
  void Finish();

  /// A run is about to begin. The program comes first: keys are handed over when it first waits,
  /// looks for a key or lets time pass, so that it can set its traps and key texts before.
  void Begin();
  /// The run has ended; nothing is handed over until the next one begins.
  void End();
  /// There is room in the key buffer.
  void HasRoom();
  /// The program looks whether there is a key. Keys of a pipe take no simulated time, so it stands
  /// still until they are there.
  void Look();
  /// True if the key of this matrix code was handed over a moment ago.
  bool IsKeyDown(uint8_t code) const { return mDown.IsDown(code, mClock.system_time()); }
  /// The machine is about to wait for a key, until `deadline`.
  void WaitBegins(bigtime_t deadline);

 private:
  void Release();
  void Pump();
  void AwaitKeys();
  void HandOver();
  bool TakeNext(TFeedItem* item);
  void Do(const TFeedItem& item);
  void StartWait(bigtime_t delay);
  void StopProgram();
  bool IsDry();
  bool IsStarved();

  TClock& mClock;
  TRunView& mView;
  TWake mAdded;
  TTypedKeys mDown;
  TMutex mMutex{TLockRank::Variables};
  std::deque<TFeedItem> mItems;  // under mMutex, like the rest
  bool mFinished = false;
  bool mInteractive = false;  // before the first run
  bool mActive = false;
  bool mStarving = false;  // the program waits for a key without limit, and none has come yet
  bool mHolding = false;   // the run has not come to its first key yet
  bool mPumping = false;
  bool mAgain = false;
  bool mWaitOver = false;
  TTimerId mTimer = 0;  // of a {WAIT}
  std::atomic<TTimerId> mStartTimer{0};
};

}  // namespace zoka
