// The reserved words of the tokenised format. The format has its own table: it also gives codes to
// operators and to words that our language does not know.
#pragma once

#include <cstdint>
#include <string_view>

namespace zoka {

/// The word of a code: 0x80 to 0xFE, or 0xFF00 plus the byte behind 0xFF. Empty if there is none.
std::string_view bin_save_word(int32_t code);

}  // namespace zoka
