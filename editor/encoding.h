// The one road from a list file's bytes to the editor's text, which is UTF-8 with line feeds: plain
// text of three encodings, or a tokenised list.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "app/settings/prefs.h"
#include "common/catalogue.h"

namespace zoka {

/// The longest file that is taken for a list: far above any list, and small enough to be converted.
constexpr size_t MAX_LIST_BYTES = 64 * 1024 * 1024;

/// A list as it was read.
struct TListText {
  /// UTF-8, but for bytes that are shown as they are because they could not be converted whole.
  std::string text;
  /// CHARSET_UTF8 if the text was taken as it is; never that for a tokenised list.
  int32_t charset = 0;
  /// Characters of the PC-98 that were replaced, and NULs that became blanks.
  int64_t replacedCount = 0;
  int64_t blankedCount = 0;
};

/// What prevents the reading of a list.
enum class TListFault : uint8_t { None, CannotLoad, BadBinSave };

/// Makes text of the bytes of a list file. `encoding` is a value of the Encoding menu; any other
/// one takes the text as it is. `cv98`: replace what only the PC-98 has. On a fault
/// `list` stays as it was.
TListFault list_from_bytes(std::string bytes, int32_t encoding, bool cv98, TListText* list);

/// The same for a file. Anything but a regular file that can be read, and a file above
/// MAX_LIST_BYTES, cannot be loaded.
TListFault CreateListCtt(const std::string& path, int32_t encoding, bool cv98, TListText* list);

/// What is to be said about a list that was read: a sentence each for characters replaced and
/// characters blanked. The status line shows one behind the other.
std::vector<std::string> list_report(const TListText& list, const TCatalogue& catalogue);

/// The alert's text of a fault.
std::string list_fault_text(TListFault fault, std::string_view path, const TCatalogue& catalogue);

}  // namespace zoka
