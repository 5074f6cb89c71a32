// Finding lines of a list by their numbers. The text is bytes; nothing here knows the language.
#pragma once

#include <cstdint>
#include <string_view>

namespace zoka {

/// The offset of the first line that begins with the decimal digits of `lineNum`, or -1. What
/// follows the digits is not looked at: 5 finds a line numbered 50 that comes before it. A blank in
/// front or a leading zero hides a number. That is meant.
int64_t OffsetFromLineNum(std::string_view text, int32_t lineNum);

/// The first physical line (from 0) whose number is `lineNum`, blanks in front allowed, or -1.
int32_t line_with_number(std::string_view text, int32_t lineNum);

}  // namespace zoka
