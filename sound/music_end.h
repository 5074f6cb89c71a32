// The end of music that goes on behind its program: what the console waits for before it leaves.
#pragma once

#include "sound/mml_player.h"

namespace zoka {

/// Waits until all queued music has sounded and then for `tail` microseconds, which the output
/// needs behind the last event. If the caller is asked to end, silences all channels instead. For a
/// thread of the engine.
void wait_for_music(TMmlPlayer& player, bigtime_t tail, const TPlayCaller& caller);

}  // namespace zoka
