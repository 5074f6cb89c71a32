// PLAY, BEEP and PLAY ALLOC.
#include "sound/mml_player.h"
#include "vm/handlers.h"
#include "vm/vmachine.h"

namespace zoka {

static_assert(PLAY_INTERRUPT_MASK == TRAP_PLAY, "the player raises the machine's own event");

namespace {

/// The machine as the player's waits see it.
class TCallerTarget final : public TPlayEventTarget {
 public:
  explicit TCallerTarget(TVMachine& m) : mMachine(m) {}
  void HappenInterrupt(int32_t mask) override {
    mMachine.HappenInterrupt(static_cast<uint32_t>(mask));
  }
  bool IsTerminated() const override { return mMachine.IsTerminated(); }

 private:
  TVMachine& mMachine;
};

/// Pops the strings, the last channel's first, and compiles each.
void compile_strings(TVMachine& m, int32_t count, const TPlayCaller& caller) {
  for (int32_t channel = count; channel >= 1; --channel) {
    TOwnedData text(m.Pop());
    if (text->kind == TStackKind::Abbrev) continue;
    if (text->kind != TStackKind::String) throw m.RuntimeException2(ERR_TYPE_MISMATCH);
    m.mPlayer->SetMml(static_cast<int16_t>(channel), text->View(), caller);
  }
}

/// Waits for foreground music, what was printed being shown first.
void wait_for_music(TVMachine& m, const TPlayCaller& caller) {
  m.mHost->FlushOutput();
  m.NoteWait();
  m.mPlayer->MfBlocking(caller);
}

}  // namespace

void ExeBasicPlay(TVMachine& m, const TVMCode* code) {
  TCallerTarget target(m);
  TPlayCaller caller{m.Wake(), target};
  m.mPlayer->ClearCompileLastTick();
  try {
    compile_strings(m, code->lval(), caller);
  } catch (const TMmlError& error) {
    // What came before the fault is played.
    m.mPlayer->Resume();
    throw m.RuntimeException2(error.key);
  } catch (const TException&) {
    m.mPlayer->Resume();
    throw;
  }
  m.mPlayer->Resume();
  wait_for_music(m, caller);
}

void ExeBasicBeep(TVMachine& m, const TVMCode* code) {
  TCallerTarget target(m);
  TPlayCaller caller{m.Wake(), target};
  const char* text = BEEP_SHORT;
  if (code->bval()) text = m.PopInt() == 0 ? BEEP_OFF : BEEP_ON;
  m.mPlayer->ClearCompileLastTick();
  m.mPlayer->SetMml(0, text, caller);
  m.mPlayer->Resume();
  if (!code->bval()) wait_for_music(m, caller);
}

void ExeBasicPlayAlloc(TVMachine& m, const TVMCode* code) {
  for (int32_t i = 0; i < code->lval(); ++i) m.Drop();
  m.mPlayer->Clear();
  m.mPlayer->BroadcastMidiInit();
}

}  // namespace zoka
