// How INPUT#, LINE INPUT# and INPUT$ take items and characters from a file.
#pragma once

#include <cstdint>
#include <list>
#include <string>

#include "common/file.h"
#include "common/thread.h"

namespace zoka {

/// What bounds the reading of one statement: a file may be longer than memory, and take longer to
/// read than anybody waits.
struct TFileInputBounds {
  /// Bytes that all items together may have; std::bad_alloc is thrown for one more.
  int64_t bytes = INT64_MAX;
  /// Reading ends, as at the end of the file, soon after this thread has been told to terminate;
  /// null for none.
  const TThread* reader = nullptr;
};

/// Reads up to `count` items. An item loses its leading blanks; one that begins with a quote goes
/// to the next quote, commas and all. A blank, a comma, a semicolon, CR, LF or CR LF closes it;
/// with `asLine` only the line ends do (but blanks and quotes in front go all the same; this is
/// meant).
void InputFromFile(TBasicFile& file, int32_t count, std::list<std::string>* items, bool asLine,
                   const TFileInputBounds& bounds = {});

/// Reads whole characters until they make `count` positions; `mode` is the compatibility mode.
/// Returns false if the file ends before.
bool InputDlFromFile(TBasicFile& file, int32_t count, int32_t mode, std::string* text,
                     const TFileInputBounds& bounds = {});

}  // namespace zoka
