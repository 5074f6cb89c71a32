// The statements of event traps: targets (ON ... GOSUB) and states (ON, OFF, STOP).
#include <bit>
#include <string>

#include "sound/mml_player.h"
#include "vm/handlers.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

/// Bits 3 to 15, 18, and 21 to 25: the events that a program may switch.
constexpr uint32_t TRAP_BITS = 0x03E4FFF8;

uint32_t shifted_mask(int32_t base, int32_t shift) {
  return shift < IR_SLOT_COUNT ? static_cast<uint32_t>(base) << shift : 0;
}

/// The mask of an event as programs name it: a key or a mouse event by its number behind the base,
/// up to the next event's mask; anything else is a mask already. 0 if it is no single event.
uint32_t event_mask(int32_t event) {
  auto mask = static_cast<uint32_t>(event);
  if (event > TRAP_KEY && event < TRAP_PLAY) {
    mask = shifted_mask(TRAP_KEY, event - TRAP_KEY - 1);
  } else if (event > TRAP_MOUSE && event < static_cast<int32_t>(IR_MOUSE_LEFT_DOWN)) {
    mask = shifted_mask(TRAP_MOUSE, event - TRAP_MOUSE - 1);
  }
  return std::has_single_bit(mask) && (mask & TRAP_BITS) != 0 ? mask : 0;
}

/// Pops a target into a slot; one that was left out keeps the old target.
void pop_target(TVMachine& m, int slot) {
  const TStackData target = m.Pop();
  if (target.kind == TStackKind::Abbrev) return;
  m.mIrTargets[slot].Release();
  m.mIrTargets[slot] = target;
  const uint32_t bit = 1u << slot;
  if (target.kind != TStackKind::Gap) {
    m.mPort->mHasTarget.fetch_or(bit);
  } else {
    m.mPort->mHasTarget.fetch_and(~bit);
  }
}

void set_key_targets(TVMachine& m) {
  const int first = num_shifts(IR_KEY_1);
  for (int slot = first + TRAP_KEY_COUNT - 1; slot >= first; --slot) pop_target(m, slot);
}

void set_mouse_target(TVMachine& m) {
  TStackData target = m.Pop();
  const TOwnedData owned(target);
  const int32_t number = m.PopInt();
  if (number < 1 || number > TRAP_MOUSE_COUNT) throw m.RuntimeException2(ERR_ILL_FUNC_CALL);
  m.mStack.Push(target.Share());
  pop_target(m, num_shifts(IR_MOUSE_MOVED) + number - 1);
}

void set_time(TVMachine& m) {
  const TText time = m.PopText();
  if (m.mRsrc->SetOnTimeDl(std::string(time.View()).c_str()) != 0) {
    throw m.RuntimeException2(ERR_ILL_FUNC_CALL);
  }
}

void set_play_options(TVMachine& m) {
  const int32_t byte = m.PopInt();
  if (m.mPlayer != nullptr) m.mPlayer->SetIrOptByte(byte);
  const int32_t channel = m.PopInt();
  if (channel >= MML_CHANNELS) throw m.RuntimeException2(ERR_ILL_FUNC_CALL);
  if (m.mPlayer != nullptr) m.mPlayer->SetIrOptCh(channel);
}

}  // namespace

void ExeBasicSetIrState(TVMachine& m, const TVMCode*) {
  const int32_t state = m.PopInt();
  const uint32_t mask = event_mask(m.PopInt());
  if (mask == 0) return;
  switch (state) {
    case static_cast<int32_t>(TIrState::Off):
    case static_cast<int32_t>(TIrState::Stop):
      // What is held stays held.
      m.mPort->mIrStates[num_shifts(mask)].store(static_cast<TIrState>(state));
      break;
    case static_cast<int32_t>(TIrState::On):
      m.mPort->TurnOnInterrupt(mask);
      break;
    default:
      break;
  }
}

void ExeBasicSetIrTgt(TVMachine& m, const TVMCode* code) {
  const auto mask = static_cast<uint32_t>(code->lval());
  const int slot = num_shifts(mask);
  switch (mask) {
    case IR_KEY_1:
      set_key_targets(m);
      break;
    case IR_MOUSE_MOVED:
      set_mouse_target(m);
      break;
    default:
      pop_target(m, slot);
      break;
  }
  if (mask == IR_TIME) set_time(m);
  if (mask == IR_PLAY) set_play_options(m);
}

}  // namespace zoka
