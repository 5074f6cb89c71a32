// The machine's memory and ports, as far as programs of this kind look at them: one byte that tells
// of the sound board, the keyboard's matrix, two counters.
#include <cstdint>

#include "vm/handlers.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

/// Programs look at this byte to see whether there is a sound board.
constexpr int64_t SOUND_BOARD_ADDRESS = 0xA3FEE;
constexpr int32_t SOUND_BOARD_PRESENT = 8;

constexpr int32_t MAX_PORT = 0x7FFF;
constexpr int32_t FIRST_MATRIX_PORT = 0xE0;
constexpr int32_t MATRIX_ROWS = 13;
constexpr int32_t FAST_COUNTER_PORT = 0x5D;
constexpr int32_t SLOW_COUNTER_PORT = 0x5F;
/// Microseconds of a step of the two counters.
constexpr bigtime_t FAST_COUNTER_STEP = 0x341;
constexpr bigtime_t SLOW_COUNTER_STEP = 0x34100;

/// Bits without a key: always 0, or always 1.
constexpr uint8_t LOW = 0x80;
constexpr uint8_t HIGH = 0x81;

/// The key of each bit, bit 7 first.
constexpr uint8_t MATRIX[MATRIX_ROWS][8] = {
    {0x37, 0x4A, 0x49, 0x48, 0x5A, 0x59, 0x58, 0x64},
    {0x47, 0x65, HIGH, HIGH, 0x3A, 0x24, 0x39, 0x38},
    {0x40, 0x3F, 0x29, 0x3E, 0x4E, 0x50, 0x3C, 0x31},
    {0x2F, 0x51, 0x52, 0x44, 0x43, 0x42, 0x2E, 0x41},
    {0x28, 0x4F, 0x2D, 0x2B, 0x3D, 0x2A, 0x27, 0x30},
    {0x1C, 0x1D, 0x33, 0x6A, 0x32, 0x4C, 0x2C, 0x4D},
    {0x18, 0x17, 0x16, 0x15, 0x14, 0x13, 0x12, 0x1B},
    {LOW, 0x55, 0x54, 0x53, 0x45, 0x46, 0x1A, 0x19},
    {0x5C, 0x4B, 0x6E, 0x5D, 0x34, 0x63, 0x57, 0x20},
    {0x01, 0x5E, 0x06, 0x05, 0x04, 0x03, 0x02, 0x5C},
    {LOW, 0x23, 0x25, 0x0E, 0x35, 0x61, 0x62, 0x26},
    {HIGH, HIGH, HIGH, HIGH, HIGH, HIGH, 0x21, 0x36},
    {0x1F, 0x0B, 0x0A, 0x09, 0x08, 0x07, 0x6D, 0x1E},
};

/// The numeric pad's Enter shares its bit with Return.
constexpr uint8_t KEY_RETURN = 0x47;
constexpr uint8_t KEY_ENTER = 0x5B;

bool is_bit_set(TVMachine& m, uint8_t key) {
  if (key == LOW) return false;
  if (key == HIGH) return true;
  if (key == KEY_RETURN && m.mInputs->IsKeyDown(KEY_ENTER)) return false;
  return !m.mInputs->IsKeyDown(key);
}

int32_t matrix_row(TVMachine& m, int32_t row) {
  int32_t bits = 0;
  for (uint8_t key : MATRIX[row]) bits = bits << 1 | (is_bit_set(m, key) ? 1 : 0);
  return bits;
}

int32_t counter(TVMachine& m, bigtime_t step) {
  return static_cast<int32_t>(m.SystemTime() / step & 0xFF);
}

int32_t read_port(TVMachine& m, int32_t port) {
  if (port == FAST_COUNTER_PORT) return counter(m, FAST_COUNTER_STEP);
  if (port == SLOW_COUNTER_PORT) return counter(m, SLOW_COUNTER_STEP);
  const int32_t row = port - FIRST_MATRIX_PORT;
  return row >= 0 && row < MATRIX_ROWS ? matrix_row(m, row) : 0;
}

}  // namespace

void ExeBasicDefSeg(TVMachine& m, const TVMCode*) {
  const int32_t segment = m.PopInt();
  if (segment < 0) throw m.RuntimeException2(ERR_ILL_FUNC_CALL);
  m.mRsrc->SetDefSeg(segment);
}

void ExeBasicPeek(TVMachine& m, const TVMCode*) {
  const int64_t address = static_cast<int64_t>(m.mRsrc->DefSeg()) * 16 + m.PopInt();
  const bool present = address == SOUND_BOARD_ADDRESS && m.mInputs->ProducerConnections() != 0;
  m.PushInt(present ? SOUND_BOARD_PRESENT : 0);
}

void ExeBasicInp(TVMachine& m, const TVMCode*) {
  const int32_t port = m.PopInt();
  if (port < 0 || port > MAX_PORT) throw m.RuntimeException2(ERR_ILL_FUNC_CALL);
  m.PushInt(read_port(m, port));
}

}  // namespace zoka
