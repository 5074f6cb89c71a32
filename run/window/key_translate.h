// What a key of the host's keyboard means to the simulated machine. Pure functions.
#pragma once

#include <QString>
#include <Qt>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zoka {

/// One key press as TRunView::KeyDown and CtrlKeyDown take it.
struct TKeyPress {
  std::string bytes;
  /// For a function key: F1 is 2.
  int32_t key = 0;
  /// The key was pressed together with Ctrl, which is the command key here.
  bool isCommand = false;
  bool operator==(const TKeyPress&) const = default;
};

/// The key presses of one event: none for keys that type nothing, such as Shift. With Ctrl the byte
/// is the plain one of the key, not the control code of `text`.
std::vector<TKeyPress> translate_key(int key, Qt::KeyboardModifiers modifiers, const QString& text);

/// A text from an input method: a key press for each character.
std::vector<TKeyPress> translate_text(const QString& text);

/// The code in the simulated keyboard's matrix of a key, by the number that X11 gives it (the
/// kernel's plus 8); nothing for keys that the simulated keyboard lacks.
std::optional<uint8_t> matrix_code(uint32_t nativeScanCode);

}  // namespace zoka
