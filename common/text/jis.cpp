// The table of pairs, filled from ICU's windows-31j, which alone knows it; ICU sees whole pairs
// only, since it exchanges control codes and swallows half characters.
#include "common/text/jis.h"

#include <unicode/ucnv.h>

#include <array>
#include <unordered_map>

#include "common/immortal.h"

namespace zoka {

namespace {

constexpr unsigned FIRST_LEAD = 0x81;
constexpr unsigned FIRST_TRAIL = 0x40;
constexpr unsigned LAST_LEAD = 0xFC;
constexpr unsigned LAST_TRAIL = 0xFC;
constexpr UChar ICU_UNKNOWN = 0xFFFD;
constexpr UChar ICU_SUBSTITUTE = 0x001A;

struct TPair {
  unsigned char lead;
  unsigned char trail;
};

/// The Shift-JIS pair of a JIS code whose bytes are in range: two rows share a lead byte.
TPair sjis_pair(unsigned row, unsigned cell) {
  const unsigned lead = ((row - JIS_FIRST) >> 1) + 0x81;
  const bool odd = (row & 1) != 0;
  const unsigned trail = odd ? cell + (cell >= 0x60 ? 0x20 : 0x1F) : cell + 0x7E;
  return {static_cast<unsigned char>(lead > 0x9F ? lead + 0x40 : lead),
          static_cast<unsigned char>(trail)};
}

/// Both directions. Built once, never changed afterwards.
class TPairTable {
 public:
  TPairTable() {
    FillPairs();
    FillCodes();
  }

  char32_t Find(unsigned char lead, unsigned char trail) const {
    if (!is_sjis_lead(lead) || !is_sjis_trail(trail)) return 0;
    return mCharacters[lead - FIRST_LEAD][trail - FIRST_TRAIL];
  }

  uint32_t FindJis(char32_t code) const {
    const auto found = mCodes.find(code);
    return found == mCodes.end() ? 0 : found->second;
  }

 private:
  void FillPairs() {
    UErrorCode error = U_ZERO_ERROR;
    UConverter* converter = ucnv_open("windows-31j", &error);
    if (U_FAILURE(error)) return;
    for (unsigned lead = FIRST_LEAD; lead <= LAST_LEAD; ++lead) {
      if (!is_sjis_lead(static_cast<unsigned char>(lead))) continue;
      for (unsigned trail = FIRST_TRAIL; trail <= LAST_TRAIL; ++trail) {
        if (!is_sjis_trail(static_cast<unsigned char>(trail))) continue;
        mCharacters[lead - FIRST_LEAD][trail - FIRST_TRAIL] = Convert(converter, lead, trail);
      }
    }
    ucnv_close(converter);
  }

  static char16_t Convert(UConverter* converter, unsigned lead, unsigned trail) {
    const char bytes[] = {static_cast<char>(lead), static_cast<char>(trail)};
    UChar result[4] = {};
    UErrorCode error = U_ZERO_ERROR;
    const int32_t length = ucnv_toUChars(converter, result, 4, bytes, 2, &error);
    const bool known =
        U_SUCCESS(error) && length == 1 && result[0] != ICU_UNKNOWN && result[0] != ICU_SUBSTITUTE;
    return known ? result[0] : u'\0';
  }

  void FillCodes() {
    mCodes.reserve(8192);
    for (unsigned row = JIS_FIRST; row <= JIS_LAST; ++row) {
      for (unsigned cell = JIS_FIRST; cell <= JIS_LAST; ++cell) {
        const TPair pair = sjis_pair(row, cell);
        const char32_t code = Find(pair.lead, pair.trail);
        if (code != 0) mCodes.emplace(code, row << 8 | cell);  // the lowest code stays
      }
    }
  }

  std::array<std::array<char16_t, LAST_TRAIL - FIRST_TRAIL + 1>, LAST_LEAD - FIRST_LEAD + 1>
      mCharacters{};
  std::unordered_map<char32_t, uint32_t> mCodes;
};

const TPairTable& pair_table() {
  static const auto& TABLE = immortal<TPairTable>();
  return TABLE;
}

/// The character by which the table knows one that other systems write differently.
char32_t table_form(char32_t code) {
  switch (code) {
    case 0x301C:
      return 0xFF5E;  // wave dash
    case 0x2212:
      return 0xFF0D;  // minus sign
    case 0x2016:
      return 0x2225;  // double vertical line
    case 0x00A2:
      return 0xFFE0;  // cent sign
    case 0x00A3:
      return 0xFFE1;  // pound sign
    case 0x00AC:
      return 0xFFE2;  // not sign
    default:
      return code;
  }
}

}  // namespace

char32_t sjis_to_unicode(unsigned char lead, unsigned char trail) {
  return pair_table().Find(lead, trail);
}

char32_t jis_to_unicode(uint32_t jis) {
  const unsigned row = jis >> 8;
  const unsigned cell = jis & 0xFF;
  if (row < JIS_FIRST || row > JIS_LAST || cell < JIS_FIRST || cell > JIS_LAST) return 0;
  const TPair pair = sjis_pair(row, cell);
  return pair_table().Find(pair.lead, pair.trail);
}

uint32_t unicode_to_jis(char32_t code) {
  return pair_table().FindJis(table_form(code));
}

}  // namespace zoka
