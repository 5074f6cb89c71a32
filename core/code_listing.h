// The listing of compiled code, a record a line: what `zoka code` prints and tests compare.
#pragma once

#include <cstdint>
#include <string>

#include "core/mid_code.h"

namespace zoka {

/// One record: code index, operation number, name, operand, separated by blanks; no line end. The
/// sentinel and free numbers have the name "-".
std::string code_record_text(int32_t index, const TVMCode& code);

/// All records of a program, each ended by a line feed.
std::string code_listing(const TMidCode& program);

}  // namespace zoka
