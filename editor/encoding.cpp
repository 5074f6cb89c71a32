// Reads a list: decoding of tokens, choice of the character set, conversion, and the account of it.
#include "editor/encoding.h"

#include <algorithm>
#include <new>
#include <utility>

#include "common/file_save.h"
#include "common/text/charset.h"
#include "editor/binary_save.h"
#include "editor/encoding_convert.h"

namespace zoka {

namespace {

constexpr char REPORT_REPLACED[] = "Converted PC-98 peculiar %Num% characters to standbies.";
constexpr char REPORT_BLANKED[] = "Converted invalid %Num% characters to spaces.";
constexpr char CANNOT_LOAD[] = "@Err_Cannot_Load_List %FullPathName%@";
constexpr char BAD_BIN_SAVE[] = "@Err_Bad_Bin_Save@";

int32_t choose_charset(int32_t encoding, std::string_view text) {
  switch (encoding) {
    case ENCODING_AUTO:
      return detect_charset(text);
    case ENCODING_SJIS:
      return CHARSET_SJIS;
    case ENCODING_JIS:
      return CHARSET_JIS;
    default:
      return CHARSET_UTF8;
  }
}

/// Takes out every CR and every end mark, wherever they stand: lines end at LF from here on.
void compact(std::string* text) {
  std::erase_if(*text, [](char byte) { return byte == '\r' || byte == '\x1A'; });
}

/// A text that is not converted ends at its first NUL.
void cut_at_nul(std::string* text) {
  const size_t end = text->find('\0');
  if (end != std::string::npos) text->resize(end);
}

int64_t blank_nuls(std::string* text) {
  const int64_t count = std::count(text->begin(), text->end(), '\0');
  if (count > 0) std::replace(text->begin(), text->end(), '\0', ' ');
  return count;
}

/// Converts what is to be converted; `list->charset` is set.
void convert(std::string bytes, bool cv98, TListText* list) {
  if (list->charset == CHARSET_JIS) list->replacedCount = ConvertJisToJis(&bytes, cv98);
  if (list->charset != CHARSET_UTF8 && convert_to_utf8(list->charset, bytes, &list->text)) {
    list->blankedCount = blank_nuls(&list->text);
    return;
  }
  // Not to be converted, or not to be converted whole: the bytes as they are.
  list->text = std::move(bytes);
  cut_at_nul(&list->text);
}

TListFault read_list(std::string bytes, int32_t encoding, bool cv98, TListText* list) {
  const bool isTokenised = is_bin_save(bytes);
  if (!isTokenised) compact(&bytes);
  if (isTokenised && BinSaveToAsciiSave(&bytes) != 0) return TListFault::BadBinSave;
  TListText result;
  result.charset = choose_charset(encoding, bytes);
  convert(std::move(bytes), cv98, &result);
  // A tokenised file is never written back under its name as if it had been text.
  if (isTokenised && result.charset == CHARSET_UTF8) result.charset = CHARSET_JIS;
  *list = std::move(result);
  return TListFault::None;
}

std::string report_line(const char* key, int64_t count, const TCatalogue& catalogue) {
  return replace_placeholder(catalogue.GetString(key), "%Num%", std::to_string(count));
}

}  // namespace

TListFault list_from_bytes(std::string bytes, int32_t encoding, bool cv98, TListText* list) {
  if (bytes.size() > MAX_LIST_BYTES) return TListFault::CannotLoad;
  try {
    return read_list(std::move(bytes), encoding, cv98, list);
  } catch (const std::bad_alloc&) {
    return TListFault::CannotLoad;
  }
}

TListFault CreateListCtt(const std::string& path, int32_t encoding, bool cv98, TListText* list) {
  try {
    std::string bytes;
    if (!read_file_whole(path, MAX_LIST_BYTES, &bytes)) return TListFault::CannotLoad;
    return list_from_bytes(std::move(bytes), encoding, cv98, list);
  } catch (const std::bad_alloc&) {
    return TListFault::CannotLoad;
  }
}

std::vector<std::string> list_report(const TListText& list, const TCatalogue& catalogue) {
  std::vector<std::string> lines;
  if (list.replacedCount > 0)
    lines.push_back(report_line(REPORT_REPLACED, list.replacedCount, catalogue));
  if (list.blankedCount > 0)
    lines.push_back(report_line(REPORT_BLANKED, list.blankedCount, catalogue));
  return lines;
}

std::string list_fault_text(TListFault fault, std::string_view path, const TCatalogue& catalogue) {
  if (fault == TListFault::BadBinSave) return catalogue.GetString(BAD_BIN_SAVE);
  return replace_placeholder(catalogue.GetString(CANNOT_LOAD), "%FullPathName%", path);
}

}  // namespace zoka
