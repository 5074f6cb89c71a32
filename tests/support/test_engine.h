// What every test of an engine needs around it: a clock, messages as their keys, settings with
// their defaults, and the context that holds them together.
#pragma once

#include <memory>
#include <utility>

#include "app/settings/exit_states.h"
#include "app/settings/prefs.h"
#include "common/catalogue.h"
#include "common/clock.h"
#include "common/context.h"

namespace zoka {

/// A base of rigs, so that it outlives whatever they make. Alerts go to nobody until a rig sets a
/// host for them.
struct TTestEngine {
  explicit TTestEngine(std::unique_ptr<TClock> clockToUse = make_simulated_clock())
      : clock(std::move(clockToUse)) {
    context.clock = clock.get();
    context.catalogue = &catalogue;
    context.prefs = &prefs;
    context.exitStates = &exitStates;
  }
  TTestEngine(const TTestEngine&) = delete;
  TTestEngine& operator=(const TTestEngine&) = delete;

  std::unique_ptr<TClock> clock;
  TCatalogue catalogue{TLanguage::Keys};
  TPrefs prefs;
  TExitStates exitStates;
  TEngineContext context;
};

}  // namespace zoka
