// Tables and the like that are made once and never taken down.
#pragma once

#include <utility>

namespace zoka {

/// Makes an object for `static auto& name = immortal<T>(...)` that lives as long as the process.
/// A thread of an engine may still use it while exit(), which may come from the toolkit at any
/// moment, destroys what is static.
template <typename T, typename... TArguments>
T& immortal(TArguments&&... arguments) {
  return *new T(std::forward<TArguments>(arguments)...);
}

}  // namespace zoka
