// What a process still does when a fault kills it: the terminal gets its mode back, instruments
// fall silent. It saves nothing and explains nothing.
#pragma once

#include <initializer_list>

namespace zoka {

/// Runs inside a signal's handler: may call nothing but what is safe there.
using TLastAct = void (*)();

/// Most acts that are kept.
constexpr int MAX_LAST_ACTS = 4;

/// Does `acts`, in this order, when SIGSEGV, SIGBUS, SIGFPE, SIGILL or SIGABRT ends the process,
/// which then dies by that signal as it would have anyway. They are done for an overflow of the
/// stack, too, on threads with a TSignalStack: those of the engine. Once a process, before it has
/// threads.
void do_in_crash(std::initializer_list<TLastAct> acts);

}  // namespace zoka
