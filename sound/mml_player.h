// TMmlPlayer: compiles the MML of PLAY and BEEP into timed events, channel by channel, and plays
// them on a thread of its own through a MIDI producer. It makes no sound itself, and it knows the
// machine only as somebody to notify.
//
// The run view owns one player, which outlives every run: music of an ended program plays on. The
// thread sleeps until the next event and stamps it `MDly` microseconds ahead, so that a late
// wake-up is not heard.
//
// Who calls what:
//   PLAY        ClearCompileLastTick; SetMml for each string, the highest channel first; Resume;
//               MfBlocking. On TMmlError: Resume, then raise the key; what was compiled is played.
//   BEEP        ClearCompileLastTick; SetMml(0, BEEP_SHORT or BEEP_OFF or BEEP_ON); Resume; and
//               MfBlocking for the short one only.
//   PLAY ALLOC  Clear; BroadcastMidiInit.
//   ON PLAY     SetIrOptByte; SetIrOptCh.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>

#include "common/clock.h"
#include "common/mutex.h"
#include "common/thread.h"
#include "sound/midi.h"
#include "sound/mml_token.h"
#include "sound/play_data.h"

namespace zoka {

/// Channels of the player: 0 is BEEP, 1 to 3 the FM and 4 to 6 the SSG channels of PLAY. The number
/// is also the MIDI channel.
constexpr int16_t MML_CHANNELS = 7;
constexpr int16_t MML_FIRST_SSG_CHANNEL = 4;

/// The interrupt mask of ON PLAY.
constexpr int32_t PLAY_INTERRUPT_MASK = 0x40000;

/// A channel that holds this many events makes PLAY wait before it queues more.
constexpr size_t MAX_CHANNEL_EVENTS = 100000;

/// The texts that BEEP compiles on channel 0: without operand, with 0, with any other value.
constexpr const char BEEP_SHORT[] = "\"2";
constexpr const char BEEP_OFF[] = "\"0";
constexpr const char BEEP_ON[] = "\"1";

/// The machine as the player sees it.
class TPlayEventTarget {
 public:
  virtual ~TPlayEventTarget() = default;
  /// Raises a trap. Called on the player's thread with a lock of rank Variables held; must be short
  /// and must not call the player.
  virtual void HappenInterrupt(int32_t mask) = 0;
  /// True once the machine is asked to end: its waits inside the player end.
  virtual bool IsTerminated() const = 0;
};

/// The thread that executes PLAY or BEEP, for the waits inside them.
struct TPlayCaller {
  /// What ends the thread's waits early; signalled when it is asked to end.
  TWake& wake;
  const TPlayEventTarget& target;
};

/// What the player reads of the preferences, anew at each use.
struct TSoundSettings {
  /// Volume of the SSG channels in percent.
  const std::atomic<int32_t>& SVol;
  /// MIDI latency in microseconds.
  const std::atomic<int64_t>& MDly;
};

/// The player. SetMml, MfBlocking, Clear, BroadcastMidiInit and the setters are for one thread at a
/// time, the machine's; Resume, SetVMachine, SetProducer, Terminate and the questions are for any.
class TMmlPlayer final : public TThread {
 public:
  TMmlPlayer(TClock& clock, const TSoundSettings& settings);
  /// Ends the thread and waits for it. For a host's thread.
  ~TMmlPlayer() override;

  /// Compiles `text` on channel `ch`. Returns false and does nothing if the text is empty or there
  /// is no such channel. Throws TMmlError; the events before the fault stay queued. Waits while the
  /// channel holds MAX_CHANNEL_EVENTS; if the caller is asked to end meanwhile, returns true with
  /// the rest of the text not compiled.
  bool SetMml(int16_t ch, std::string_view text, const TPlayCaller& caller);

  /// Before each PLAY and BEEP: an idle channel goes on from the player's present tick, one that is
  /// still playing behind what it has queued.
  void ClearCompileLastTick();

  /// Wakes the thread (and starts it, the first time) to play what is queued. It never cuts a sleep
  /// between two events short.
  void Resume();

  /// Waits until no foreground channel has events left: looks at once, then every 20,000
  /// microseconds. Ends early when the caller is asked to end.
  void MfBlocking(const TPlayCaller& caller);

  /// Forgets all queued music and settings and silences all channels.
  void Clear();

  /// Sends GM System On and the channels' programs.
  void BroadcastMidiInit();

  /// True if no channel has events queued ahead of the present tick.
  bool IsBufferEmpty();

  /// True if nothing is queued and the thread rests: all that will be sent has been sent, the last
  /// of it stamped LastStamp.
  bool IsIdle();
  /// The latest stamp of any event sent so far.
  bigtime_t LastStamp() const { return mLastStamp.load(); }

  /// Waits until all queued music has sounded; for `zoka` at its end. Ends early like MfBlocking.
  void Drain(const TPlayCaller& caller);

  /// ON PLAY: the trap is raised on each pass of the player while the channel has at most `byte`
  /// notes pending; channel 0 stands for the fullest of 1 to 6, a negative one for the emptiest.
  void SetIrOptByte(int32_t byte) { irOptByte.store(byte); }
  void SetIrOptCh(int32_t ch) { irOptCh.store(ch); }

  /// Sets who is told of ON PLAY; null between runs. When it returns, the old one is not called any
  /// more. Always true.
  bool SetVMachine(TPlayEventTarget* machine);
  /// Sets the output; null plays to nobody. The producer must outlive the player or be replaced
  /// first. Always true.
  bool SetProducer(TMidiLocalProducer* producer);

  /// Ends the thread; its last act is Clear.
  void Terminate() override;

  /// Number of events queued on a channel.
  size_t QueuedEvents(int16_t ch);

 protected:
  int32_t Execute() override;

 private:
  using TCompileFunc = TMmlToken (TMmlPlayer::*)(const TMmlToken&);
  static const std::array<TCompileFunc, MML_TOKEN_KINDS> funcTable;

  // The compiling half.
  void Compile();
  TMmlToken Token() { return mScanner.Token(); }
  TMmlToken CompileFuncPitch(const TMmlToken& token);
  TMmlToken CompileFuncS(const TMmlToken& token);
  TMmlToken CompileFuncV(const TMmlToken& token);
  TMmlToken CompileFuncL(const TMmlToken& token);
  TMmlToken CompileFuncQ(const TMmlToken& token);
  TMmlToken CompileFuncO(const TMmlToken& token);
  TMmlToken CompileFuncLt(const TMmlToken& token);
  TMmlToken CompileFuncGt(const TMmlToken& token);
  TMmlToken CompileFuncT(const TMmlToken& token);
  TMmlToken CompileFuncR(const TMmlToken& token);
  TMmlToken CompileFuncLseq(const TMmlToken& token);
  TMmlToken CompileFuncAt(const TMmlToken& token);
  TMmlToken CompileFuncAtV(const TMmlToken& token);
  TMmlToken CompileFuncBeep(const TMmlToken& token);
  TMmlToken CompileFuncMf(const TMmlToken& token);
  TMmlToken CompileFuncMb(const TMmlToken& token);
  // Accepted and without effect.
  TMmlToken CompileFuncM(const TMmlToken& token) { return SkipTokens(token, 1); }
  TMmlToken CompileFuncK(const TMmlToken& token) { return SkipTokens(token, 1); }
  TMmlToken CompileFuncTrans(const TMmlToken& token) { return SkipTokens(token, 1); }
  TMmlToken CompileFuncY(const TMmlToken& token) { return SkipTokens(token, 3); }
  TMmlToken CompileFuncZ(const TMmlToken& token) { return SkipTokens(token, 3); }
  TMmlToken CompileFuncPlus(const TMmlToken& token) { return SkipTokens(token, 0); }
  TMmlToken CompileFuncMinus(const TMmlToken& token) { return SkipTokens(token, 0); }
  TMmlToken CompileFuncPeriod(const TMmlToken& token) { return SkipTokens(token, 0); }
  TMmlToken CompileFuncHat(const TMmlToken& token) { return SkipTokens(token, 0); }
  TMmlToken CompileFuncRseq(const TMmlToken& token) { return SkipTokens(token, 0); }
  TMmlToken CompileFuncLfo(const TMmlToken& token) { return SkipTokens(token, 0); }
  TMmlToken CompileFuncStar(const TMmlToken& token) { return SkipTokens(token, 0); }

  TMmlToken SkipTokens(const TMmlToken& token, int count);
  TMmlToken CompileTick(int64_t* ticks);
  int32_t TokenInRange(int32_t low, int32_t high);
  void CheckIntRange(const TMmlToken& token, int32_t low, int32_t high);
  int16_t PitchFromToken(const TMmlToken& token) const;
  uint8_t ScaledVelocity(int16_t ch, int32_t velocity) const;
  void SoundNote(int16_t pitch, int64_t ticks);
  void AdvanceLastTick(int64_t ticks);
  void AddMidiCmd(TPlayMidiCmd cmd, int16_t data1, int16_t data2);
  void AddMidiCmdBeepPgmChange();
  void BeepOn();
  bool IsThrottled(bigtime_t* lastTime);
  bool WaitForRoom();
  bool SnoozeGrid(const TPlayCaller& caller);
  bool IsForegroundQueued();
  void SetTimePerTick(int16_t tempo);
  void ResetChannel(int16_t ch);

  // The playing half.
  void PlayDueEvents(int16_t ch, bigtime_t base);
  bool PopDueEvent(int16_t ch, TPlayData* data, uint32_t* generation);
  void Act(const TPlayData& data, bigtime_t stamp, uint32_t generation);
  void PlayNoteOn(const TPlayData& data, bigtime_t stamp, uint32_t generation);
  void PlayNoteOff(const TPlayData& data, bigtime_t stamp);
  void RaiseOnPlay();
  int64_t PendingCount() const;
  bool NextDistance(int64_t* distance);
  void SnoozeUntil(bigtime_t deadline);
  void Suspend();
  void SilenceChannel(int16_t ch);
  void NoteStamp(bigtime_t stamp);
  bigtime_t Latency() const;

  const TSoundSettings mSettings;

  // The compiling half's own state; the machine's thread alone.
  std::string mText;
  TMmlScanner mScanner;
  const TPlayCaller* mCaller = nullptr;
  bool mAbandoned = false;  // the caller was asked to end while it waited for room
  int16_t curCh = 0;
  bool beepPgmSent = false;
  bigtime_t saLastTime0;
  bigtime_t saLastTime1;
  int64_t mi8MasterID = 0;
  std::array<bool, MML_CHANNELS> background{};
  std::array<uint8_t, MML_CHANNELS> quantize{};
  std::array<uint8_t, MML_CHANNELS> defLength{};
  std::array<int8_t, MML_CHANNELS> octave{};
  std::array<uint8_t, MML_CHANNELS> velocity{};

  // Shared by both halves.
  std::array<std::atomic<int64_t>, MML_CHANNELS> lastTick{};
  std::array<std::atomic<uint8_t>, MML_CHANNELS> program{};
  std::atomic<int32_t> timePerTick{0};
  std::atomic<int64_t> curTick{0};
  std::atomic<int32_t> irOptByte{0};
  std::atomic<int32_t> irOptCh{0};

  struct TChannelQueue {
    TMutex lock{TLockRank::Leaf};
    TPlayQueue heap;
    uint32_t generation = 0;  // counts Clear, so that a note popped before it is taken back
  };
  std::array<TChannelQueue, MML_CHANNELS> queues;

  // Notes that were switched on and not off again: the stamp of the switch, or NOT_SOUNDING.
  static constexpr bigtime_t NOT_SOUNDING = INT64_MIN;
  std::array<std::array<std::atomic<bigtime_t>, 128>, MML_CHANNELS> mSounding;

  std::array<int64_t, MML_CHANNELS> mPending{};  // the player's thread alone
  std::atomic<TMidiLocalProducer*> producer{nullptr};
  TMutex mMachineLock{TLockRank::Variables};
  TPlayEventTarget* vmachine = nullptr;  // under mMachineLock
  std::atomic<bigtime_t> mLastStamp{0};
  std::atomic<bool> mStarted{false};
  std::atomic<bool> mResumed{false};
  std::atomic<bool> mResting{true};
  TWake mResumeWake;
};

}  // namespace zoka
