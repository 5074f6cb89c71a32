// The decoder of tokenised program lists, as the old DISK-BASIC saves them. There is no writer: the
// system always saves text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zoka {

/// First byte of a tokenised file; all that it is recognised by.
constexpr char BIN_SAVE_MAGIC = '\xFE';

/// True if the bytes of a file are a tokenised list.
inline bool is_bin_save(std::string_view file) {
  return !file.empty() && file[0] == BIN_SAVE_MAGIC;
}

/// Turns a tokenised list into text in place: a line for each record, ended by a line feed, the
/// characters as the old machine's bytes. Returns 0; for a bad file, whatever its bytes, a value
/// that is not 0, and the buffer stays as it was.
int32_t BinSaveToAsciiSave(std::string* buf);

}  // namespace zoka
