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
/// `timeout`, in tenths of a second for each key, may be null; below 0 it is one look, like 0.
/// Returns false if the time ran out. If the machine is asked to stop before anything is typed,
/// `items` stays empty.
bool InputFromUser(TVMachine& m, std::list<std::string>* items, bool asLine,
                   const int32_t* timeout);

/// Collects key presses until `count` is reached: a key of one byte counts 1, a longer one 2. Not
/// echoed.
std::string InputDlFromUser(TVMachine& m, int32_t count);

/// The items of a typed line: all that stands between commas, untrimmed; quotes mean nothing.
std::list<std::string> split_items(std::string_view line);

}  // namespace zoka
