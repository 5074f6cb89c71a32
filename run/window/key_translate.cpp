// Tables of keys.
#include "run/window/key_translate.h"

#include <array>

#include "run/screen/host_keys.h"

namespace zoka {
namespace {

struct TSpecialKey {
  int key;
  char byte;
};
constexpr TSpecialKey SPECIAL_KEYS[] = {
    {Qt::Key_Home, HOST_KEY_HOME},      {Qt::Key_End, HOST_KEY_END},
    {Qt::Key_Insert, HOST_KEY_INSERT},  {Qt::Key_Backspace, HOST_KEY_BACKSPACE},
    {Qt::Key_Tab, HOST_KEY_TAB},        {Qt::Key_Backtab, HOST_KEY_TAB},
    {Qt::Key_Return, HOST_KEY_ENTER},   {Qt::Key_Enter, HOST_KEY_ENTER},
    {Qt::Key_PageUp, HOST_KEY_PAGE_UP}, {Qt::Key_PageDown, HOST_KEY_PAGE_DOWN},
    {Qt::Key_Escape, HOST_KEY_ESCAPE},  {Qt::Key_Left, HOST_KEY_LEFT},
    {Qt::Key_Right, HOST_KEY_RIGHT},    {Qt::Key_Up, HOST_KEY_UP},
    {Qt::Key_Down, HOST_KEY_DOWN},      {Qt::Key_Delete, HOST_KEY_DELETE},
};

/// Kernel key codes that stand at `first` and on for matrix codes that do the same.
struct TMatrixRow {
  uint8_t code;
  uint8_t kernelCode;
  uint8_t count = 1;
};
constexpr TMatrixRow MATRIX_ROWS[] = {
    {0x01, 1},     {0x02, 59, 10}, {0x0C, 87, 2},  {0x0E, 99},     {0x12, 2, 10},  {0x1C, 12},
    {0x1D, 13},    {0x1E, 14},     {0x1F, 110},    {0x20, 102},    {0x21, 104},    {0x23, 98},
    {0x24, 55},    {0x25, 74},     {0x26, 15},     {0x27, 16, 12}, {0x33, 43},     {0x34, 111},
    {0x35, 107},   {0x36, 109},    {0x37, 71, 3},  {0x3A, 78},     {0x3C, 30, 11}, {0x47, 28},
    {0x48, 75, 3}, {0x4B, 42},     {0x4C, 44, 10}, {0x57, 103},    {0x58, 79, 3},  {0x5B, 96},
    {0x5C, 29},    {0x5D, 56},     {0x5E, 57},     {0x61, 105},    {0x62, 108},    {0x63, 106},
    {0x64, 82},    {0x65, 83},     {0x6A, 124},    {0x6D, 92},     {0x6E, 93},
};
constexpr uint32_t X11_KEY_OFFSET = 8;
constexpr size_t KERNEL_KEYS = 128;

/// Matrix code by kernel code; 0 for none.
constexpr std::array<uint8_t, KERNEL_KEYS> make_matrix() {
  std::array<uint8_t, KERNEL_KEYS> codes{};
  for (const TMatrixRow& row : MATRIX_ROWS) {
    for (size_t i = 0; i < row.count; ++i) {
      codes[row.kernelCode + i] = static_cast<uint8_t>(row.code + i);
    }
  }
  return codes;
}
constexpr std::array<uint8_t, KERNEL_KEYS> MATRIX = make_matrix();

std::optional<TKeyPress> special_key(int key) {
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) {
    return TKeyPress{std::string(1, HOST_KEY_FUNCTION), key - Qt::Key_F1 + FIRST_FUNCTION_KEY_CODE};
  }
  for (const TSpecialKey& special : SPECIAL_KEYS) {
    if (special.key == key) return TKeyPress{std::string(1, special.byte)};
  }
  return std::nullopt;
}

/// The plain character of a key that is held together with Ctrl.
std::optional<TKeyPress> command_key(int key, Qt::KeyboardModifiers modifiers) {
  if (key < Qt::Key_Space || key > Qt::Key_AsciiTilde) return std::nullopt;
  auto byte = static_cast<char>(key);
  if (byte >= 'A' && byte <= 'Z' && !(modifiers & Qt::ShiftModifier)) byte += 'a' - 'A';
  return TKeyPress{std::string(1, byte), 0, true};
}

}  // namespace

std::vector<TKeyPress> translate_key(int key, Qt::KeyboardModifiers modifiers,
                                     const QString& text) {
  if (auto press = special_key(key)) {
    press->isCommand = modifiers.testFlag(Qt::ControlModifier);
    return {*press};
  }
  if (modifiers & Qt::ControlModifier) {
    const auto press = command_key(key, modifiers);
    return press ? std::vector{*press} : std::vector<TKeyPress>{};
  }
  return translate_text(text);
}

std::vector<TKeyPress> translate_text(const QString& text) {
  std::vector<TKeyPress> presses;
  for (const char32_t character : text.toStdU32String()) {
    presses.push_back({QString::fromUcs4(&character, 1).toStdString()});
  }
  return presses;
}

std::optional<uint8_t> matrix_code(uint32_t nativeScanCode) {
  const uint32_t kernelCode = nativeScanCode - X11_KEY_OFFSET;
  if (nativeScanCode < X11_KEY_OFFSET || kernelCode >= KERNEL_KEYS) return std::nullopt;
  const uint8_t code = MATRIX[kernelCode];
  return code != 0 ? std::optional(code) : std::nullopt;
}

}  // namespace zoka
