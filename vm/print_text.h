// How values become text: the formats of PRINT, WRITE, STR$ and PRINT USING. No screen, no file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vm/stack_data.h"

namespace zoka {

/// Columns of a print zone.
constexpr int32_t PRINT_ZONE_COLUMNS = 14;

/// The general floating-point format with six significant digits, as printf's %g.
std::string general_format(double value);

/// Cuts every "0" at the end of the text, then a "." at the end, if there is a "." at all.
/// Exponents are no exception: 1.5e+10 becomes 1.5e+1. That is meant.
void ElimZero(std::string* text);

/// A number as PRINT writes it: a blank for 0 and positive values, the number, a blank.
std::string GetPrintStrFromNum(double value);

/// An item as PRINT writes it; the comma becomes `pad` blanks.
std::string GetPrintStr(const TStackData& value, int32_t pad);

/// An item as WRITE writes it: integers with all their digits, texts in quotes, the comma as ",".
std::string GetWriteStr(const TStackData& value);

/// A number as STR$ gives it: like PRINT without the trailing blank.
std::string str_dl_text(double value);

/// A format of PRINT USING filled in: each run of n "#" is a field of n columns for the next of the
/// values, rounded; every other character stands for itself. A field without a value is blank.
std::string fill_using_format(std::string_view format, const std::vector<int32_t>& values);

}  // namespace zoka
