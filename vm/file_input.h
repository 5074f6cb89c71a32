// How INPUT#, LINE INPUT# and INPUT$ take items and characters from a file.
#pragma once

#include <cstdint>
#include <list>
#include <string>

#include "common/file.h"

namespace zoka {

/// Reads up to `count` items. An item loses its leading blanks; one that begins with a quote goes
/// to the next quote, commas and all. A blank, a comma, a semicolon, CR, LF or CR LF closes it;
/// with `asLine` only the line ends do (but blanks and quotes in front go all the same; this is
/// meant).
void InputFromFile(TBasicFile& file, int32_t count, std::list<std::string>* items, bool asLine);

/// Reads whole characters until they make `count` positions; `mode` is the compatibility mode.
/// Returns false if the file ends before.
bool InputDlFromFile(TBasicFile& file, int32_t count, int32_t mode, std::string* text);

}  // namespace zoka
