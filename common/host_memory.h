// The memory of the host's machine.
#pragma once

#include <cstdint>
#include <optional>

namespace zoka {

/// What the host could give to programs now without swapping, in KBytes; nothing if it does not
/// say. Any thread.
std::optional<int64_t> available_memory_kbytes();

}  // namespace zoka
