// The compiling half of TMmlPlayer: each token's handler consumes what belongs to it, appends
// events to the channel's queue and returns the token behind. It runs on the thread that executes
// PLAY.
#include <algorithm>

#include "common/text/ascii.h"
#include "sound/mml_player.h"
#include "sound/mml_tables.h"

namespace zoka {

namespace {

constexpr int32_t MAX_LENGTH = 64;
constexpr int32_t MAX_QUANTIZE = 8;
constexpr int32_t MAX_OCTAVE = 8;
// The steps "<" and ">" go further than O does.
constexpr int8_t LOWEST_OCTAVE = -1;
constexpr int8_t HIGHEST_OCTAVE = 9;
constexpr int32_t MIN_TEMPO = 32;
constexpr int32_t MAX_TEMPO = 255;
constexpr int32_t MAX_VOLUME = 15;
constexpr int32_t MAX_VELOCITY = 127;

constexpr bigtime_t BEEP_SPAN = 500000;
constexpr bigtime_t BEEP_SWITCH_SPAN = 1000;
constexpr bigtime_t BEEP_THROTTLE = 1000;

// Ticks beyond this stand still, so that no text, however long its ties, overflows the times made
// of them: a tick has at most 406 microseconds.
constexpr int64_t MAX_TICK = int64_t{1} << 50;

}  // namespace

const std::array<TMmlPlayer::TCompileFunc, MML_TOKEN_KINDS> TMmlPlayer::funcTable = {
    nullptr,  // a number
    &TMmlPlayer::CompileFuncPitch,
    &TMmlPlayer::CompileFuncM,
    &TMmlPlayer::CompileFuncS,
    &TMmlPlayer::CompileFuncV,
    &TMmlPlayer::CompileFuncL,
    &TMmlPlayer::CompileFuncQ,
    &TMmlPlayer::CompileFuncO,
    &TMmlPlayer::CompileFuncLt,
    &TMmlPlayer::CompileFuncGt,
    &TMmlPlayer::CompileFuncK,
    &TMmlPlayer::CompileFuncT,
    &TMmlPlayer::CompileFuncR,
    &TMmlPlayer::CompileFuncPlus,
    &TMmlPlayer::CompileFuncMinus,
    &TMmlPlayer::CompileFuncPeriod,
    nullptr,  // ","
    &TMmlPlayer::CompileFuncHat,
    &TMmlPlayer::CompileFuncLseq,
    &TMmlPlayer::CompileFuncRseq,
    &TMmlPlayer::CompileFuncAt,
    &TMmlPlayer::CompileFuncY,
    &TMmlPlayer::CompileFuncAtV,
    nullptr,  // "@W"
    &TMmlPlayer::CompileFuncTrans,
    &TMmlPlayer::CompileFuncLfo,
    &TMmlPlayer::CompileFuncBeep,
    &TMmlPlayer::CompileFuncStar,
    &TMmlPlayer::CompileFuncZ,
    &TMmlPlayer::CompileFuncMf,
    &TMmlPlayer::CompileFuncMb,
    nullptr,  // the end
};

bool TMmlPlayer::SetMml(int16_t ch, std::string_view text, const TPlayCaller& caller) {
  if (text.empty() || ch < 0 || ch >= MML_CHANNELS) return false;
  mText = to_upper(text);
  mScanner = TMmlScanner(mText);
  curCh = ch;
  mCaller = &caller;
  mAbandoned = false;
  Compile();
  return true;
}

void TMmlPlayer::Compile() {
  TMmlToken token = Token();
  while (token.kind != TMmlTokenKind::End && !mAbandoned) {
    const TCompileFunc func = funcTable[static_cast<size_t>(token.kind)];
    if (!func) throw TMmlError{};
    token = (this->*func)(token);
  }
}

void TMmlPlayer::ClearCompileLastTick() {
  for (size_t ch = 0; ch < queues.size(); ++ch) {
    const TLock lock(queues[ch].lock);
    if (!queues[ch].heap.IsEmpty()) continue;
    lastTick[ch] = std::max(lastTick[ch].load(), curTick.load());
  }
}

TMmlToken TMmlPlayer::SkipTokens(const TMmlToken&, int count) {
  for (int i = 0; i < count; ++i) Token();
  return Token();
}

void TMmlPlayer::CheckIntRange(const TMmlToken& token, int32_t low, int32_t high) {
  const int32_t number = token.Number();
  if (number < low || number > high) throw TMmlError{};
}

// The number behind a command.
int32_t TMmlPlayer::TokenInRange(int32_t low, int32_t high) {
  const TMmlToken token = Token();
  if (token.kind != TMmlTokenKind::Number) throw TMmlError{};
  CheckIntRange(token, low, high);
  return token.Number();
}

// Reads the length behind a note, a rest or a tuplet. A dot anywhere in a tie lengthens the whole
// sum, once; this is meant. If it throws, `*ticks` is the length read so far.
TMmlToken TMmlPlayer::CompileTick(int64_t* ticks) {
  const auto lengthOf = [](int32_t n) { return int64_t{TICKS_PER_QUARTER / n} * 4; };
  bool dotted = false;
  *ticks = lengthOf(defLength[static_cast<size_t>(curCh)]);
  TMmlToken token = Token();
  if (token.kind == TMmlTokenKind::Number) {
    *ticks = 0;
    while (true) {
      if (token.kind == TMmlTokenKind::Number) {
        if (token.Number() == 0) throw TMmlError{};
        *ticks += lengthOf(token.Number());
        token = Token();
        if (token.kind != TMmlTokenKind::Period) continue;
        dotted = true;
        token = Token();
      } else if (token.kind == TMmlTokenKind::Hat) {
        token = Token();
      } else {
        break;
      }
    }
  } else if (token.kind == TMmlTokenKind::Period) {
    dotted = true;
    token = Token();
  }
  if (dotted) *ticks = (*ticks * 3 + 1) / 2;
  return token;
}

int16_t TMmlPlayer::PitchFromToken(const TMmlToken& token) const {
  const int32_t pitch = (octave[static_cast<size_t>(curCh)] * 3 + 6) * 4 + token.Number();
  return static_cast<int16_t>(pitch);
}

// One note: on, off when its sounding part is over, and a mark at its end. Both parts are cut to
// whole ticks, so that they may fall one short of the note's length together.
void TMmlPlayer::SoundNote(int16_t pitch, int64_t ticks) {
  const auto ch = static_cast<size_t>(curCh);
  AddMidiCmd(TPlayMidiCmd::NoteOn, pitch, velocity[ch]);
  AdvanceLastTick(ticks * quantize[ch] / 8);
  AddMidiCmd(TPlayMidiCmd::NoteOff, pitch, velocity[ch]);
  AdvanceLastTick(ticks * (8 - quantize[ch]) / 8);
  AddMidiCmd(TPlayMidiCmd::Nothing, 0, 0);
}

// A note with a fault behind it is still played, and whole: none may be left hanging.
TMmlToken TMmlPlayer::CompileFuncPitch(const TMmlToken& token) {
  const int16_t pitch = PitchFromToken(token);
  int64_t ticks = 0;
  try {
    TMmlToken next = CompileTick(&ticks);
    SoundNote(pitch, ticks);
    return next;
  } catch (const TMmlError&) {
    SoundNote(pitch, ticks);
    throw;
  }
}

TMmlToken TMmlPlayer::CompileFuncR(const TMmlToken&) {
  AddMidiCmd(TPlayMidiCmd::Nothing, 0, 0);
  int64_t ticks = 0;
  TMmlToken next = CompileTick(&ticks);
  AdvanceLastTick(ticks);
  AddMidiCmd(TPlayMidiCmd::Nothing, 0, 0);
  return next;
}

// A tuplet keeps its notes only: all else inside, also rests, is dropped without a word.
TMmlToken TMmlPlayer::CompileFuncLseq(const TMmlToken&) {
  std::vector<int16_t> pitches;
  for (TMmlToken token = Token(); token.kind != TMmlTokenKind::Rseq; token = Token()) {
    if (token.kind == TMmlTokenKind::End || token.kind == TMmlTokenKind::Lseq) throw TMmlError{};
    if (token.kind == TMmlTokenKind::Pitch) pitches.push_back(PitchFromToken(token));
  }
  if (pitches.empty()) throw TMmlError{};
  int64_t total = 0;
  TMmlToken next = CompileTick(&total);
  for (const int16_t pitch : pitches)
    SoundNote(pitch, total / static_cast<int64_t>(pitches.size()));
  return next;
}

TMmlToken TMmlPlayer::CompileFuncL(const TMmlToken&) {
  defLength[static_cast<size_t>(curCh)] = static_cast<uint8_t>(TokenInRange(1, MAX_LENGTH));
  return Token();
}

TMmlToken TMmlPlayer::CompileFuncQ(const TMmlToken&) {
  quantize[static_cast<size_t>(curCh)] = static_cast<uint8_t>(TokenInRange(1, MAX_QUANTIZE));
  return Token();
}

TMmlToken TMmlPlayer::CompileFuncO(const TMmlToken&) {
  octave[static_cast<size_t>(curCh)] = static_cast<int8_t>(TokenInRange(1, MAX_OCTAVE));
  return Token();
}

TMmlToken TMmlPlayer::CompileFuncLt(const TMmlToken&) {
  int8_t& o = octave[static_cast<size_t>(curCh)];
  if (o > LOWEST_OCTAVE) --o;
  return Token();
}

TMmlToken TMmlPlayer::CompileFuncGt(const TMmlToken&) {
  int8_t& o = octave[static_cast<size_t>(curCh)];
  if (o < HIGHEST_OCTAVE) ++o;
  return Token();
}

TMmlToken TMmlPlayer::CompileFuncT(const TMmlToken&) {
  AddMidiCmd(TPlayMidiCmd::TempoChange, static_cast<int16_t>(TokenInRange(MIN_TEMPO, MAX_TEMPO)),
             0);
  return Token();
}

// The velocity as a channel plays it: the SSG channels have a volume of their own.
uint8_t TMmlPlayer::ScaledVelocity(int16_t ch, int32_t value) const {
  int64_t scaled = value;
  if (ch >= MML_FIRST_SSG_CHANNEL) scaled = scaled * mSettings.SVol.load() / 100;
  return static_cast<uint8_t>(std::clamp<int64_t>(scaled, 0, MAX_VELOCITY));
}

TMmlToken TMmlPlayer::CompileFuncV(const TMmlToken&) {
  const int32_t value = TokenInRange(0, MAX_VOLUME) * MAX_VELOCITY / MAX_VOLUME;
  velocity[static_cast<size_t>(curCh)] = ScaledVelocity(curCh, value);
  return Token();
}

TMmlToken TMmlPlayer::CompileFuncAtV(const TMmlToken&) {
  const int32_t value = TokenInRange(0, MAX_VELOCITY);
  velocity[static_cast<size_t>(curCh)] = ScaledVelocity(curCh, value);
  return Token();
}

TMmlToken TMmlPlayer::CompileFuncAt(const TMmlToken&) {
  const int32_t voice = TokenInRange(0, static_cast<int32_t>(VOICE_TABLE.size()) - 1);
  AddMidiCmd(TPlayMidiCmd::ProgramChange, VOICE_TABLE[static_cast<size_t>(voice)], 0);
  return Token();
}

TMmlToken TMmlPlayer::CompileFuncS(const TMmlToken&) {
  const int32_t shape = TokenInRange(0, static_cast<int32_t>(SSG_TABLE.size()) - 1);
  AddMidiCmd(TPlayMidiCmd::ProgramChange, SSG_TABLE[static_cast<size_t>(shape)], 0);
  return Token();
}

TMmlToken TMmlPlayer::CompileFuncMf(const TMmlToken&) {
  background[static_cast<size_t>(curCh)] = false;
  return Token();
}

TMmlToken TMmlPlayer::CompileFuncMb(const TMmlToken&) {
  background[static_cast<size_t>(curCh)] = true;
  return Token();
}

// The beep. A text of PLAY that holds a double quote is refused: on a channel of music the beep's
// switches would leave notes hanging.
TMmlToken TMmlPlayer::CompileFuncBeep(const TMmlToken&) {
  if (curCh != 0) throw TMmlError{};
  const int64_t tickTime = timePerTick.load();
  const int32_t number = TokenInRange(0, 2);
  if (number == 0) {
    if (IsThrottled(&saLastTime0)) return Token();
    AddMidiCmd(TPlayMidiCmd::NoteOff, BEEP_NOTE, MAX_VELOCITY);
    AdvanceLastTick(BEEP_SWITCH_SPAN / tickTime);
  } else if (number == 1) {
    if (IsThrottled(&saLastTime1)) return Token();
    BeepOn();
    AdvanceLastTick(BEEP_SWITCH_SPAN / tickTime);
  } else {
    BeepOn();
    AdvanceLastTick(BEEP_SPAN / tickTime);
    AddMidiCmd(TPlayMidiCmd::NoteOff, BEEP_NOTE, MAX_VELOCITY);
  }
  return Token();
}

void TMmlPlayer::BeepOn() {
  AddMidiCmdBeepPgmChange();
  AddMidiCmd(TPlayMidiCmd::NoteOn, BEEP_NOTE, MAX_VELOCITY);
}

void TMmlPlayer::AddMidiCmdBeepPgmChange() {
  if (beepPgmSent) return;
  AddMidiCmd(TPlayMidiCmd::ProgramChange, program[0], 0);
  AdvanceLastTick(1);
  beepPgmSent = true;
}

// A switch of the beep that repeats the last one of its value too soon is ignored.
bool TMmlPlayer::IsThrottled(bigtime_t* lastTime) {
  const bigtime_t now = Clock().system_time();
  if (now - *lastTime <= BEEP_THROTTLE) return true;
  *lastTime = now;
  return false;
}

void TMmlPlayer::AdvanceLastTick(int64_t ticks) {
  std::atomic<int64_t>& tick = lastTick[static_cast<size_t>(curCh)];
  tick = std::min(tick.load() + std::min(ticks, MAX_TICK), MAX_TICK);
}

// A program change comes a tick early, so that it precedes a note of the same tick.
void TMmlPlayer::AddMidiCmd(TPlayMidiCmd cmd, int16_t data1, int16_t data2) {
  if (!WaitForRoom()) return;
  TChannelQueue& queue = queues[static_cast<size_t>(curCh)];
  const TLock lock(queue.lock);
  TPlayData data;
  data.ch = curCh;
  data.data1 = data1;
  data.data2 = data2;
  data.id = mi8MasterID++;
  data.tick = lastTick[static_cast<size_t>(curCh)];
  if (cmd == TPlayMidiCmd::ProgramChange) --data.tick;
  data.cmd = cmd;
  queue.heap.Push(data);
}

// A text may be longer than memory should hold: beyond a bound the player gets ahead first.
bool TMmlPlayer::WaitForRoom() {
  if (mAbandoned) return false;
  while (QueuedEvents(curCh) >= MAX_CHANNEL_EVENTS) {
    Resume();
    if (!SnoozeGrid(*mCaller)) {
      mAbandoned = true;
      return false;
    }
  }
  return true;
}

}  // namespace zoka
