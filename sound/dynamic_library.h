// A shared library that is loaded when it is first needed, so that programs without sound do not
// pay for it and run on machines without it.
#pragma once

#include <dlfcn.h>

namespace zoka {

/// Finds functions of a library by name. The library stays loaded to the end of the process.
class TDynamicLibrary {
 public:
  explicit TDynamicLibrary(const char* name) : mHandle(dlopen(name, RTLD_NOW | RTLD_LOCAL)) {}

  /// Sets `*function` to the function of that name; false if there is none, or no library.
  template <typename T>
  bool Find(const char* name, T** function) const {
    if (!mHandle) return false;
    *function = reinterpret_cast<T*>(dlsym(mHandle, name));
    return *function != nullptr;
  }

 private:
  void* mHandle;
};

}  // namespace zoka
