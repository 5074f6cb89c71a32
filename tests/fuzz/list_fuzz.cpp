// Reads arbitrary bytes as a list in each encoding and formats what comes of it. The rules that
// hold for every list are checked on the way.
#include <cstdlib>

#include "common/text/charset.h"
#include "common/text/utf8.h"
#include "editor/encoding.h"
#include "editor/encoding_convert.h"
#include "editor/format_source.h"
#include "editor/renumber.h"

namespace zoka {
namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

void check_conversion(std::string_view bytes) {
  for (const int32_t charset : {CHARSET_SJIS, CHARSET_JIS}) {
    std::string text;
    if (convert_to_utf8(charset, bytes, &text)) require(is_utf8(text));
  }
}

void check_formatting(const std::string& text) {
  const TFmtSrc source = CreateFmtSrc(text);
  size_t column = 0;
  size_t offset = 0;
  for (size_t at = 0; at < source.Text().size(); ++at) {
    const char c = source.Text()[at];
    require(c != '\r' && c != '\x1A' && c != '\0');
    column = c == '\n' ? 0 : column + 1;
    require(column <= MAX_LINE_BYTES);
    require(source.EditorOffset(at) >= offset);
    offset = source.EditorOffset(at);
    require(offset <= text.size());
  }
}

void check_list(std::string_view bytes) {
  for (const int32_t encoding : {ENCODING_AUTO, ENCODING_UTF8, ENCODING_SJIS, ENCODING_JIS}) {
    TListText list;
    if (list_from_bytes(std::string(bytes), encoding, true, &list) != TListFault::None) return;
    require(list.text.find('\0') == std::string::npos);
    check_formatting(list.text);
    Renumber(&list.text, 10, 100, 10, false);
  }
}

}  // namespace
}  // namespace zoka

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  zoka::check_conversion(bytes);
  zoka::check_list(bytes);
  return 0;
}
