// The line editor of INPUT: the user moves freely over the text window, and what counts as the
// input is read back from the screen. And the other ways in which a program takes keys.
#pragma once

#include <cstdint>
#include <list>
#include <string>
#include <string_view>

namespace zoka {

class TVMachine;

/// Lets the user edit until Return. `asLine` yields one item, else the text is split at commas.
/// `timeout`, in tenths of a second for each key, may be null; when it runs out *timeout becomes
/// -1. If the machine is asked to stop before anything is typed, `items` stays empty.
void InputFromUser(TVMachine& m, std::list<std::string>* items, bool asLine, int32_t* timeout);

/// Collects key presses until `count` is reached: a key of one byte counts 1, a longer one 2. Not
/// echoed.
std::string InputDlFromUser(TVMachine& m, int32_t count);

/// The items of a typed line: all that stands between commas, untrimmed; quotes mean nothing.
std::list<std::string> split_items(std::string_view line);

}  // namespace zoka
