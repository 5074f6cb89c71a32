// The playing half of TMmlPlayer: its thread, and what other threads ask of it.
#include "sound/mml_player.h"

#include <algorithm>
#include <limits>

#include "sound/mml_tables.h"

namespace zoka {

namespace {

constexpr char THREAD_NAME[] = "MML Player";
constexpr int32_t THREAD_PRIORITY = 120;

// The grid of all waits for the music.
constexpr bigtime_t POLL_SPAN = 20000;

constexpr int16_t DEFAULT_TEMPO = 120;
constexpr uint8_t DEFAULT_QUANTIZE = 7;
constexpr uint8_t DEFAULT_LENGTH = 4;
constexpr int8_t DEFAULT_OCTAVE = 4;
constexpr int32_t DEFAULT_VELOCITY = 64;
constexpr uint8_t BEEP_VELOCITY = 127;
constexpr int64_t MICROSECONDS_PER_MINUTE = 60000000;

constexpr bigtime_t MAX_LATENCY = 3000000;
constexpr int16_t MAX_NOTE = 127;
constexpr bigtime_t LONG_AGO = std::numeric_limits<bigtime_t>::min() / 2;

// The universal message "GM System On", without its frame.
constexpr std::string_view MIDI_NRT_GMSYSTEMON = "\x7E\x7F\x09\x01";

uint8_t default_program(int16_t ch) {
  if (ch == 0) return BEEP_PROGRAM;
  return ch < MML_FIRST_SSG_CHANNEL ? VOICE_TABLE[0] : SSG_TABLE[1];
}

}  // namespace

TMmlPlayer::TMmlPlayer(TClock& clock, const TSoundSettings& settings)
    : TThread(THREAD_NAME, THREAD_PRIORITY, clock, TActorClass::Player),
      mSettings(settings),
      saLastTime0(LONG_AGO),
      saLastTime1(LONG_AGO),
      mResumeWake(clock) {
  for (auto& channel : mSounding) {
    for (auto& stamp : channel) stamp = NOT_SOUNDING;
  }
  Clear();
}

TMmlPlayer::~TMmlPlayer() {
  Terminate();
  int32_t result = 0;
  Wait(&result);
}

void TMmlPlayer::Terminate() {
  TThread::Terminate();
  mResumeWake.Signal();
}

void TMmlPlayer::Resume() {
  const bool rested = mResting;
  mResumed = true;
  // Without a thread there is no music, and nobody must wait for it.
  if (!mStarted.exchange(true) && !TThread::Resume()) TThread::Terminate();
  mResumeWake.Signal();
  // The player is more urgent than whoever wakes it. On the simulated clock it is due now, so this
  // lets it have its turn before the caller goes on, and no time passes.
  if (rested && !IsTerminated()) Clock().RunningLong();
}

// `base` is the real time of `curTick`. While music goes on it grows by the events' distances and
// is not read from the clock, so that no error adds up.
int32_t TMmlPlayer::Execute() {
  bigtime_t base = Clock().system_time();
  while (!IsTerminated()) {
    mResumed = false;
    mResting = false;
    for (int16_t ch = 0; ch < MML_CHANNELS; ++ch) PlayDueEvents(ch, base);
    RaiseOnPlay();
    int64_t distance = 0;
    if (NextDistance(&distance)) {
      const bigtime_t span = distance * timePerTick;
      SnoozeUntil(base + span);
      base += span;
      curTick += distance;
    } else {
      Suspend();
      base = Clock().system_time();
    }
  }
  Clear();
  return 0;
}

void TMmlPlayer::PlayDueEvents(int16_t ch, bigtime_t base) {
  TPlayData data;
  uint32_t generation = 0;
  while (PopDueEvent(ch, &data, &generation)) {
    const bigtime_t offset = (data.tick - curTick) * timePerTick;
    Act(data, base + offset + Latency(), generation);
  }
}

// Pops the channel's next event if its tick has been reached; else notes how many notes are left.
bool TMmlPlayer::PopDueEvent(int16_t ch, TPlayData* data, uint32_t* generation) {
  const auto index = static_cast<size_t>(ch);
  TChannelQueue& queue = queues[index];
  const TLock lock(queue.lock);
  if (queue.heap.IsEmpty() || queue.heap.Top().tick > curTick) {
    mPending[index] = static_cast<int64_t>(queue.heap.Count() / 2);
    return false;
  }
  *data = ch == 0 ? queue.heap.OptimizedBeepQueuePop() : queue.heap.Pop();
  *generation = queue.generation;
  return true;
}

void TMmlPlayer::Act(const TPlayData& data, bigtime_t stamp, uint32_t generation) {
  TMidiLocalProducer* const out = producer;
  switch (data.cmd) {
    case TPlayMidiCmd::NoteOn:
      PlayNoteOn(data, stamp, generation);
      break;
    case TPlayMidiCmd::NoteOff:
      PlayNoteOff(data, stamp);
      break;
    case TPlayMidiCmd::ProgramChange:
      program[static_cast<size_t>(data.ch)] = static_cast<uint8_t>(data.data1);
      if (out) {
        NoteStamp(stamp);
        out->SprayProgramChange(static_cast<uint8_t>(data.ch), static_cast<uint8_t>(data.data1),
                                stamp);
      }
      break;
    case TPlayMidiCmd::TempoChange:
      SetTimePerTick(data.data1);
      break;
    case TPlayMidiCmd::Nothing:
      break;
  }
}

// Notes that MIDI does not have take their time but are not sent. If Clear came between the pop and
// the sending, nobody else would switch the note off.
void TMmlPlayer::PlayNoteOn(const TPlayData& data, bigtime_t stamp, uint32_t generation) {
  TMidiLocalProducer* const out = producer;
  if (!out || data.data1 < 0 || data.data1 > MAX_NOTE) return;
  const auto ch = static_cast<size_t>(data.ch);
  mSounding[ch][static_cast<size_t>(data.data1)] = stamp;
  NoteStamp(stamp);
  out->SprayNoteOn(static_cast<uint8_t>(ch), static_cast<uint8_t>(data.data1),
                   static_cast<uint8_t>(data.data2), stamp);
  bool cleared = false;
  {
    const TLock lock(queues[ch].lock);
    cleared = queues[ch].generation != generation;
  }
  if (cleared) PlayNoteOff(data, stamp);
}

// The beep's note off silences its channel first, at once: a beep cannot hang.
void TMmlPlayer::PlayNoteOff(const TPlayData& data, bigtime_t stamp) {
  TMidiLocalProducer* const out = producer;
  if (!out || data.data1 < 0 || data.data1 > MAX_NOTE) return;
  const auto ch = static_cast<uint8_t>(data.ch);
  if (ch == 0) out->SprayControlChange(ch, MIDI_ALL_NOTES_OFF, 0, 0);
  mSounding[ch][static_cast<size_t>(data.data1)] = NOT_SOUNDING;
  NoteStamp(stamp);
  out->SprayNoteOff(ch, static_cast<uint8_t>(data.data1), static_cast<uint8_t>(data.data2), stamp);
}

void TMmlPlayer::RaiseOnPlay() {
  const TLock lock(mMachineLock);
  if (vmachine && PendingCount() <= irOptByte) vmachine->HappenInterrupt(PLAY_INTERRUPT_MASK);
}

// The pending notes of the channel that ON PLAY looks at.
int64_t TMmlPlayer::PendingCount() const {
  const int32_t ch = irOptCh;
  if (ch >= MML_CHANNELS) return std::numeric_limits<int64_t>::max();
  if (ch > 0) return mPending[static_cast<size_t>(ch)];
  const auto ends = std::minmax_element(mPending.begin() + 1, mPending.end());
  return ch == 0 ? *ends.second : *ends.first;
}

// How far the nearest event of all channels is; false if there is none. One that was appended with
// a tick already passed is due now.
bool TMmlPlayer::NextDistance(int64_t* distance) {
  bool found = false;
  for (TChannelQueue& queue : queues) {
    const TLock lock(queue.lock);
    if (queue.heap.IsEmpty()) continue;
    const int64_t own = std::max<int64_t>(queue.heap.Top().tick - curTick, 0);
    if (!found || own < *distance) *distance = own;
    found = true;
  }
  return found;
}

// Ended early by Terminate only: events that come meanwhile wait for the next pass.
void TMmlPlayer::SnoozeUntil(bigtime_t deadline) {
  while (!IsTerminated() && Clock().Wait(deadline, mWake)) {
  }
}

// Rests until the next Resume. One that came since the present pass began counts.
void TMmlPlayer::Suspend() {
  mResting = true;
  while (!mResumed && !IsTerminated()) Clock().Wait(FOREVER, mResumeWake);
}

bigtime_t TMmlPlayer::Latency() const {
  return std::clamp<bigtime_t>(mSettings.MDly, 0, MAX_LATENCY);
}

void TMmlPlayer::NoteStamp(bigtime_t stamp) {
  bigtime_t last = mLastStamp;
  while (stamp > last && !mLastStamp.compare_exchange_weak(last, stamp)) {
  }
}

// Integer arithmetic makes every tempo slightly fast; this is meant.
void TMmlPlayer::SetTimePerTick(int16_t tempo) {
  timePerTick = static_cast<int32_t>(MICROSECONDS_PER_MINUTE / (tempo * TICKS_PER_QUARTER));
}

void TMmlPlayer::Clear() {
  beepPgmSent = false;
  irOptByte = 0;
  irOptCh = 0;
  SetTimePerTick(DEFAULT_TEMPO);
  for (int16_t ch = 0; ch < MML_CHANNELS; ++ch) {
    ResetChannel(ch);
    SilenceChannel(ch);
  }
}

void TMmlPlayer::ResetChannel(int16_t ch) {
  const auto index = static_cast<size_t>(ch);
  {
    const TLock lock(queues[index].lock);
    queues[index].heap.Clear();
    ++queues[index].generation;
  }
  background[index] = false;
  quantize[index] = DEFAULT_QUANTIZE;
  defLength[index] = DEFAULT_LENGTH;
  octave[index] = DEFAULT_OCTAVE;
  program[index] = default_program(ch);
  velocity[index] = ch == 0 ? BEEP_VELOCITY : ScaledVelocity(ch, DEFAULT_VELOCITY);
  lastTick[index] = 0;
}

// Notes that were stamped ahead begin after the control changes of now, so each open one also gets
// its note off.
void TMmlPlayer::SilenceChannel(int16_t ch) {
  TMidiLocalProducer* const out = producer;
  if (!out) return;
  const bigtime_t now = Clock().system_time();
  const auto channel = static_cast<uint8_t>(ch);
  for (const uint8_t control : MIDI_SILENCE) {
    out->SprayControlChange(channel, control, 0, now);
  }
  for (size_t note = 0; note < mSounding[channel].size(); ++note) {
    const bigtime_t begin = mSounding[channel][note].exchange(NOT_SOUNDING);
    if (begin == NOT_SOUNDING) continue;
    out->SprayNoteOff(channel, static_cast<uint8_t>(note), 0, std::max(begin, now));
  }
}

void TMmlPlayer::BroadcastMidiInit() {
  TMidiLocalProducer* const out = producer;
  if (!out) return;
  out->SpraySystemExclusive(MIDI_NRT_GMSYSTEMON, 0);
  const bigtime_t now = Clock().system_time();
  for (size_t ch = 0; ch < program.size(); ++ch) {
    out->SprayProgramChange(static_cast<uint8_t>(ch), program[ch], now);
  }
}

bool TMmlPlayer::SetVMachine(TPlayEventTarget* machine) {
  const TLock lock(mMachineLock);
  vmachine = machine;
  return true;
}

bool TMmlPlayer::SetProducer(TMidiLocalProducer* output) {
  producer = output;
  return true;
}

size_t TMmlPlayer::QueuedEvents(int16_t ch) {
  TChannelQueue& queue = queues[static_cast<size_t>(ch)];
  const TLock lock(queue.lock);
  return queue.heap.Count();
}

// A switch of the beep leaves lastTick ahead for ever; with nothing queued that is no music.
bool TMmlPlayer::IsBufferEmpty() {
  for (int16_t ch = 0; ch < MML_CHANNELS; ++ch) {
    const bool ahead = lastTick[static_cast<size_t>(ch)] > curTick;
    if (ahead && QueuedEvents(ch) > 0) return false;
  }
  return true;
}

bool TMmlPlayer::IsIdle() {
  if (!mStarted) return true;
  for (int16_t ch = 0; ch < MML_CHANNELS; ++ch) {
    if (QueuedEvents(ch) > 0) return false;
  }
  return mResting && !mResumed;
}

bool TMmlPlayer::IsForegroundQueued() {
  for (int16_t ch = 0; ch < MML_CHANNELS; ++ch) {
    if (!background[static_cast<size_t>(ch)] && QueuedEvents(ch) > 0) return true;
  }
  return false;
}

// One step of a wait; false once either side is asked to end.
bool TMmlPlayer::SnoozeGrid(const TPlayCaller& caller) {
  const bigtime_t deadline = Clock().system_time() + POLL_SPAN;
  do {
    if (caller.target.IsTerminated() || IsTerminated()) return false;
  } while (Clock().Wait(deadline, caller.wake));
  return !caller.target.IsTerminated() && !IsTerminated();
}

void TMmlPlayer::MfBlocking(const TPlayCaller& caller) {
  while (IsForegroundQueued() && SnoozeGrid(caller)) {
  }
}

void TMmlPlayer::Drain(const TPlayCaller& caller) {
  while (!IsIdle()) {
    if (!SnoozeGrid(caller)) return;
  }
  while (!caller.target.IsTerminated() && Clock().system_time() < LastStamp()) {
    Clock().Wait(LastStamp(), caller.wake);
  }
}

}  // namespace zoka
