// String functions: lengths, parts, searches, conversions between numbers and texts.
#include <algorithm>

#include "common/text/ascii.h"
#include "common/text/number.h"
#include "common/text/utf8.h"
#include "vm/handler_args.h"
#include "vm/handlers.h"
#include "vm/jis_position.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

constexpr int32_t MAX_POSITION = 255;
constexpr int32_t MAX_BYTE = 255;
constexpr int32_t FIRST_KANA_CODE = 0xA1;
constexpr int32_t LAST_KANA_CODE = 0xDF;
constexpr int32_t FIRST_BLANK_CODE = 0x7F;
/// Range of HEX$ and OCT$.
constexpr int32_t MIN_WORD = -32768;
constexpr int32_t MAX_WORD = 65535;
/// VAL looks at this much of a text.
constexpr size_t MAX_VAL_BYTES = 500;

TJisCount bytes_count(const TVMachine& m) {
  return {m.mRuntimeCompatiMode, 2};
}
TJisCount characters_count(const TVMachine& m) {
  return {m.mRuntimeCompatiMode, 1};
}

/// The part of MID$ where positions are bytes.
std::string_view ascii_part(std::string_view text, int32_t start, int32_t length) {
  const size_t offset = std::min(static_cast<size_t>(start) - 1, text.size());
  return text.substr(offset, static_cast<size_t>(length));
}

/// Pops n (or takes 255), m and the text of MID$ or KMID$, and pushes the part.
void push_middle(TVMachine& m, bool hasLength, TJisCount count) {
  int32_t length = hasLength ? m.PopInt() : MAX_POSITION;
  int32_t start = m.PopInt();
  TText text = m.PopText();
  check_range(m, start, 1, MAX_POSITION);
  check_range(m, length, 0, MAX_POSITION);
  std::string_view view = text.View();
  // One byte more, since a kanji behind the part may count for it.
  if (begins_in_ascii(view, start + length)) return m.PushString(ascii_part(view, start, length));
  int64_t offset = JisPosToUtf8PosKernel(view, start - 1, count);
  int64_t bytes = JisLenToUtf8Len(view, start - 1, length, count);
  size_t at = std::min(static_cast<size_t>(offset), view.size());
  m.PushString(view.substr(at, static_cast<size_t>(bytes)));
}

/// Pops what INSTR or KINSTR is given, and pushes the position of what was found.
void push_found(TVMachine& m, bool hasStart, TJisCount count) {
  TText wanted = m.PopText();
  TText text = m.PopText();
  int32_t start = hasStart ? m.PopInt() : 1;
  if (start < 1) throw bad_call(m);
  int64_t offset = JisPosToUtf8PosKernel(text.View(), start - 1, count);
  if (offset > static_cast<int64_t>(text.Length())) return m.PushInt(0);
  size_t found = text.View().find(wanted.View(), static_cast<size_t>(offset));
  if (found == std::string_view::npos) return m.PushInt(0);
  int64_t position = Utf8PosToJisPosKernel(text.View(), static_cast<int64_t>(found), count);
  m.PushInt(static_cast<int32_t>(position + 1));
}

/// The text without the white space in front.
std::string_view without_white_space(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
}

int32_t count_characters(std::string_view text, bool kanji) {
  int32_t count = 0;
  for (size_t pos = 0; pos < text.size(); pos += char_length(text.substr(pos))) {
    if (is_kanji(text.substr(pos)) == kanji) ++count;
  }
  return count;
}

/// The number behind "&" in VAL; "O" may be left out. It wraps in 32 bits, as the machine's
/// integers do.
int32_t parse_based(TVMachine& m, std::string_view text) {
  const char form = text.empty() ? '\0' : to_upper(text[0]);
  if (form == 'H') return parse_hex(text.substr(1));
  return parse_strict_octal(m, form == 'O' ? text.substr(1) : text);
}

/// Pushes a number of HEX$ or OCT$ in that base, with capitals.
void push_based(TVMachine& m, int base) {
  int32_t value = m.PopInt();
  check_range(m, value, MIN_WORD, MAX_WORD);
  if (value < 0) value += 0x10000;
  m.PushString(digits_in_base(static_cast<uint32_t>(value), base));
}

}  // namespace

void ExeBasicLen(TVMachine& m, const TVMCode*) {
  TText text = m.PopText();
  m.PushInt(
      static_cast<int32_t>(Utf8PosToJisPosKernel(text.View(), text.Length(), bytes_count(m))));
}

void ExeBasicKlen(TVMachine& m, const TVMCode* code) {
  int32_t mode = code->bval() ? m.PopInt() : 0;
  TText text = m.PopText();
  check_range(m, mode, 0, 5);
  int32_t length = 0;
  if (mode == 0) {
    length = static_cast<int32_t>(
        Utf8PosToJisPosKernel(text.View(), text.Length(), characters_count(m)));
  } else if (mode <= 3) {
    length = count_characters(text.View(), mode != 1);
  }
  m.PushInt(length);
}

void ExeBasicLeftDl(TVMachine& m, const TVMCode*) {
  int32_t length = m.PopInt();
  TText text = m.PopText();
  check_range(m, length, 0, MAX_POSITION);
  int64_t bytes = JisPosToUtf8PosKernel(text.View(), length, bytes_count(m));
  const auto kept = static_cast<uint32_t>(std::min<int64_t>(bytes, text.Length()));
  // The part is a leading one, so it shares the text's block.
  m.PushText(TText(text.Detach(), kept));
}

void ExeBasicRightDl(TVMachine& m, const TVMCode*) {
  int32_t length = m.PopInt();
  TText text = m.PopText();
  check_range(m, length, 0, MAX_POSITION);
  int64_t bytes = JisPosToUtf8PosR(text.View(), length, m.mRuntimeCompatiMode);
  if (bytes >= text.Length()) return m.PushText(std::move(text));
  m.PushString(text.View().substr(text.Length() - static_cast<size_t>(bytes)));
}

void ExeBasicMidDlFunc(TVMachine& m, const TVMCode* code) {
  push_middle(m, code->bval(), bytes_count(m));
}

void ExeBasicKmidDl(TVMachine& m, const TVMCode* code) {
  push_middle(m, code->bval(), characters_count(m));
}

void ExeBasicMidDlProc(TVMachine& m, const TVMCode* code) {
  TText source = m.PopText();
  int32_t length = code->bval() ? m.PopInt() : MAX_POSITION;
  int32_t start = m.PopInt();
  TVarInfo* var = m.PopVar();
  int32_t slot = m.DimSuf(var);
  check_range(m, start, 1, MAX_POSITION);
  check_range(m, length, 0, MAX_POSITION);
  if (var->kind != ttStr) throw m.RuntimeException2(ERR_TYPE_MISMATCH);
  TJisCount count = bytes_count(m);
  std::string text(var->texts[slot].View());
  int64_t taken = JisLenToUtf8Len(source.View(), 0, length, count);
  int64_t replaced = std::max(taken, JisLenToUtf8Len(text, start - 1, length, count));
  int64_t offset = JisPosToUtf8PosKernel(text, start - 1, count);
  size_t at = std::min(static_cast<size_t>(offset), text.size());
  text.replace(at, static_cast<size_t>(replaced),
               source.View().substr(0, static_cast<size_t>(taken)));
  TText result{std::string_view(text)};
  uint32_t bytes = result.Length();
  m.StoreSlot(var, slot, TStackData::OfText(result.Detach(), bytes));
}

void ExeBasicInstr(TVMachine& m, const TVMCode* code) {
  push_found(m, code->bval(), bytes_count(m));
}

void ExeBasicKinstr(TVMachine& m, const TVMCode* code) {
  push_found(m, code->bval(), characters_count(m));
}

void ExeBasicKextDl(TVMachine& m, const TVMCode*) {
  int32_t mode = m.PopInt();
  TText text = m.PopText();
  check_range(m, mode, 0, 1);
  std::string kept;
  std::string_view view = text.View();
  for (size_t pos = 0; pos < view.size();) {
    size_t length = char_length(view.substr(pos));
    if (is_kanji(view.substr(pos)) == (mode == 1)) kept.append(view.substr(pos, length));
    pos += length;
  }
  m.PushString(kept);
}

void ExeBasicAsc(TVMachine& m, const TVMCode*) {
  TText text = m.PopText();
  m.PushInt(text.Length() == 0 ? 0 : static_cast<unsigned char>(text.View()[0]));
}

void ExeBasicChrDl(TVMachine& m, const TVMCode*) {
  int32_t code = m.PopInt();
  check_range(m, code, 0, MAX_BYTE);
  if (code < FIRST_BLANK_CODE) {
    char c = static_cast<char>(code);
    m.PushString(std::string(1, c));
  } else if (code >= FIRST_KANA_CODE && code <= LAST_KANA_CODE) {
    m.PushString(half_kana(code - FIRST_KANA_CODE));
  } else {
    m.PushString(" ");
  }
}

void ExeBasicHexDl(TVMachine& m, const TVMCode*) {
  push_based(m, 16);
}
void ExeBasicOctDl(TVMachine& m, const TVMCode*) {
  push_based(m, 8);
}

void ExeBasicVal(TVMachine& m, const TVMCode*) {
  TText text = m.PopText();
  std::string_view view = without_white_space(text.View()).substr(0, MAX_VAL_BYTES);
  if (view.starts_with('&')) {
    m.PushInt(parse_based(m, view.substr(1)));
  } else {
    m.PushDouble(parse_double(view));
  }
}

void ExeBasicSpaceDl(TVMachine& m, const TVMCode*) {
  int32_t count = m.PopInt();
  check_range(m, count, 0, MAX_POSITION);
  m.PushString(std::string(static_cast<size_t>(count), ' '));
}

void ExeBasicStringDl(TVMachine& m, const TVMCode*) {
  char c = '\0';
  if (m.TopKind() == TStackKind::String) {
    TText text = m.PopText();
    if (text.Length() > 0) c = text.View()[0];
  } else {
    int32_t code = m.PopInt();
    check_range(m, code, 0, MAX_BYTE);
    c = static_cast<char>(code);
  }
  // The count has 16 bits and is not tested; a negative one gives an empty text.
  auto count = static_cast<int16_t>(m.PopInt());
  m.PushString(std::string(static_cast<size_t>(std::max<int16_t>(count, 0)), c));
}

}  // namespace zoka
