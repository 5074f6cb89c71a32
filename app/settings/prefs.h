// TPrefs: what the user sets in the preferences. One table makes the members, the file's fields and
// the ranges.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "app/settings/archivable.h"
#include "app/settings/compat_mode.h"

namespace zoka {

/// Bytes that a font family may have.
constexpr size_t MAX_FONT_FAMILY = 62;

/// Fixed-pitch families with Japanese. The run window's is drawn for its cell of 16 pixels; at the
/// sizes of the editor an outline font reads better.
constexpr const char DEFAULT_RUN_FONT[] = "Unifont-JP";
constexpr const char DEFAULT_EDIT_FONT[] = "IPAGothic";
/// Points; what fills the run window's cell.
constexpr float DEFAULT_RUN_FONT_SIZE = 14;

/// How a list is to be read: values of DEnc, which are the places in the Encoding menu.
constexpr int32_t ENCODING_AUTO = 0;
constexpr int32_t ENCODING_SEPARATOR = 1;  // a place, and no value
constexpr int32_t ENCODING_UTF8 = 2;
constexpr int32_t ENCODING_SJIS = 3;
constexpr int32_t ENCODING_JIS = 4;

// One row a field, in the order of the file: key (also the member's name), default, and for numbers
// the range. CHOICE rows have no range but a rule of their own, see prefs.cpp.
//
//   BrkS break at the first line when debugging   ASBR auto-save before each run
//   ASvR auto-save regularly                      Cv98 convert special characters on loading
//   SSls show the splash window                   USpC speed control of the run
//   WdWp wrap lines in the editor                 DWFF MWFF RWFF font of debug, edit, run window
//   ASvI auto-save interval, minutes              DEnc default of the Encoding menu
//   CmpM compatibility mode                       SVol volume of the SSG channels, percent
//   DWFS MWFS RWFS font sizes, points             MDly MIDI latency, microseconds
//   SpCI interval of the speed control, microseconds
#define ZOKA_PREFS_FIELDS(FLAG, FAMILY, NUMBER, CHOICE) \
  FLAG(BrkS, true)                                      \
  FLAG(ASBR, true)                                      \
  FLAG(ASvR, true)                                      \
  FLAG(Cv98, true)                                      \
  FLAG(SSls, true)                                      \
  FLAG(USpC, false)                                     \
  FLAG(WdWp, false)                                     \
  FAMILY(DWFF, DEFAULT_EDIT_FONT)                       \
  FAMILY(MWFF, DEFAULT_EDIT_FONT)                       \
  FAMILY(RWFF, DEFAULT_RUN_FONT)                        \
  NUMBER(int32_t, ASvI, 5, 1, 99)                       \
  CHOICE(DEnc, ENCODING_AUTO)                           \
  CHOICE(CmpM, COMPAT_AUTO)                             \
  NUMBER(int32_t, SVol, 80, 0, 200)                     \
  NUMBER(float, DWFS, 11, 5, 50)                        \
  NUMBER(float, MWFS, 11, 5, 50)                        \
  NUMBER(float, RWFS, DEFAULT_RUN_FONT_SIZE, 5, 50)     \
  NUMBER(int64_t, MDly, 50'000, 0, 3'000'000)           \
  NUMBER(int64_t, SpCI, 20'000, 100, 10'000'000)

/// The preferences. Numbers and flags are read on any thread; font families and the list of MIDI
/// outputs belong to the host's thread, which alone writes.
class TPrefs : public TKORUNEArchivable {
 public:
  explicit TPrefs(const TSettingsPlace* place = nullptr) : TKORUNEArchivable(place) {}
  TPrefs(const TPrefs& other) : TKORUNEArchivable(other) { CopyFields(other); }
  TPrefs& operator=(const TPrefs& other);

#define ZOKA_MEMBER_FLAG(key, value) std::atomic<bool> key{value};
#define ZOKA_MEMBER_FAMILY(key, value) std::string key{value};
#define ZOKA_MEMBER_NUMBER(type, key, value, least, greatest) std::atomic<type> key{value};
#define ZOKA_MEMBER_CHOICE(key, value) std::atomic<int32_t> key{value};
  ZOKA_PREFS_FIELDS(ZOKA_MEMBER_FLAG, ZOKA_MEMBER_FAMILY, ZOKA_MEMBER_NUMBER, ZOKA_MEMBER_CHOICE)
#undef ZOKA_MEMBER_FLAG
#undef ZOKA_MEMBER_FAMILY
#undef ZOKA_MEMBER_NUMBER
#undef ZOKA_MEMBER_CHOICE

  /// Names of the connected MIDI outputs, in list order.
  std::vector<std::string> CoMO;

  int32_t Archive(TMessage* message) const override;
  void Unarchive(const TMessage& message) override;
  bool KnowsField(std::string_view name) const override;

  /// Each returns 0 or -1.
  int32_t SaveToFile() const;
  int32_t LoadFromFile();
  /// How often SaveToFile was called: who holds values that may yet be taken back sees by it
  /// whether they have gone into the file.
  uint32_t SaveCount() const {
    return mSaveCount.load();
  }
  /// False before the first save, and after the file was removed or set aside.
  bool HasFile() const;

  /// All fields as in a new record; what the file holds for other versions stays.
  void SetDefaults() {
    CopyFields(TPrefs());
  }

 private:
  void CopyFields(const TPrefs& other);

  mutable std::atomic<uint32_t> mSaveCount{0};
};

}  // namespace zoka
