// TEngineContext: what an engine is given instead of process globals. Two engines with two contexts
// live in one process without touching each other.
#pragma once

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "common/alert.h"
#include "common/catalogue.h"
#include "common/clock.h"
#include "common/random.h"

namespace zoka {

class TInterAppPrefs;
class TPrefs;
class TExitStates;

/// The application's name as it stands in titles ("%AppName%"), and its version.
constexpr const char APP_NAME[] = "Zoka-BASIC";
constexpr const char APP_VERSION[] = "Ver 8.18";

/// The flags that every part of the application may read.
struct TZokaAppPrivacy {
  /// The user stopped the program by the Kill command; cleared by the next run.
  std::atomic<bool> killed{false};
  /// The application is going away: runs end without their exit text.
  std::atomic<bool> quitting{false};
};

/// Services and shared state of one engine. The front end owns it and keeps it alive for as long as
/// anything of the engine lives. Pointers are not owned and, but where said, never null.
struct TEngineContext {
  TClock* clock = nullptr;
  TCatalogue* catalogue = nullptr;
  TPrefs* prefs = nullptr;
  TExitStates* exitStates = nullptr;
  /// May be null: the shared preferences then have their defaults.
  TInterAppPrefs* interAppPrefs = nullptr;
  /// May be null: alerts are then answered by nobody.
  TAlertHost* alertHost = nullptr;
  TZokaAppPrivacy privacy;
  /// Number of the next internal label "@L<n>"; never reset, so that no name is used twice.
  std::atomic<int32_t> labelCounter{0};
  TRandom random;
  /// The last value of RND; like the random numbers it survives runs. The machine's thread's own.
  float sfRand = 0;
};

}  // namespace zoka
