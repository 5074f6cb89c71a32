// Floating-point constants of the tokenised format, as text.
#pragma once

#include <string>
#include <string_view>

namespace zoka {

/// The text of a single in Microsoft's binary format, four bytes in the order of the file: six
/// decimals at most, no needless zeros, and "!" behind a whole number of 16 bits. A sign bit is not
/// moved to where a sign belongs but becomes part of the exponent; constants have none.
std::string bin_save_single(std::string_view bytes);

/// The same for a double of eight bytes, always with "#". Digits beyond the sixth decimal are lost.
std::string bin_save_double(std::string_view bytes);

}  // namespace zoka
