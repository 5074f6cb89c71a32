// Editing the preferences.
#include "app/settings/prefs_edit.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "app/settings/prefs_choices.h"
#include "app/settings/speed_slider.h"
#include "common/text/number.h"

namespace zoka {
namespace {

constexpr double MICROSECONDS_A_MILLISECOND = 1000;

// The range of each number of the record.
#define ZOKA_RANGE_NONE(key, value)
#define ZOKA_RANGE(type, key, value, least, greatest) \
  constexpr type key##_LEAST = least;                 \
  constexpr type key##_GREATEST = greatest;
ZOKA_PREFS_FIELDS(ZOKA_RANGE_NONE, ZOKA_RANGE_NONE, ZOKA_RANGE, ZOKA_RANGE_NONE)
#undef ZOKA_RANGE_NONE
#undef ZOKA_RANGE

/// The shortest text that gives the number back; never with an exponent.
template <typename T>
std::string number_text(T value) {
  if constexpr (std::is_integral_v<T>) {
    return std::to_string(value);
  } else {
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::fixed);
    return {buffer.data(), end.ptr};
  }
}

/// How a number is stored: its range in the unit of the record, how many of these make one of the
/// typed unit, and the notice of its change.
struct TNumberRow {
  double least;
  double greatest;
  double unit;
  const char* notice;
  bool delayed;
  void (*store)(TPrefs& prefs, double value);
  std::string (*text)(const TPrefs& prefs, double unit);
};

#define ZOKA_NUMBER_ROW(key, unit, notice, delayed)                                               \
  TNumberRow {                                                                                    \
    static_cast<double>(key##_LEAST), static_cast<double>(key##_GREATEST), unit, notice, delayed, \
        [](TPrefs& prefs, double value) {                                                         \
          prefs.key = static_cast<decltype(prefs.key.load())>(value);                             \
        },                                                                                        \
        [](const TPrefs& prefs, double perUnit) {                                                 \
          if (perUnit == 1) return number_text(prefs.key.load());                                 \
          return number_text(static_cast<double>(prefs.key.load()) / perUnit);                    \
        }                                                                                         \
  }

constexpr std::array<TNumberRow, PREFS_NUMBER_COUNT> NUMBERS{
    ZOKA_NUMBER_ROW(MWFS, 1, "pmfc", true),
    ZOKA_NUMBER_ROW(RWFS, 1, "prfc", true),
    ZOKA_NUMBER_ROW(DWFS, 1, "pdfc", true),
    ZOKA_NUMBER_ROW(ASvI, 1, "parc", false),
    ZOKA_NUMBER_ROW(MDly, MICROSECONDS_A_MILLISECOND, nullptr, false),
    ZOKA_NUMBER_ROW(SVol, 1, nullptr, false),
    ZOKA_NUMBER_ROW(SpCI, 1, nullptr, false)};
#undef ZOKA_NUMBER_ROW

struct TFlagRow {
  std::atomic<bool> TPrefs::*field;
  const char* notice;
};

constexpr std::array<TFlagRow, PREFS_FLAG_COUNT> FLAGS{{{&TPrefs::Cv98, nullptr},
                                                        {&TPrefs::WdWp, "pwwc"},
                                                        {&TPrefs::ASvR, "parc"},
                                                        {&TPrefs::ASBR, nullptr},
                                                        {&TPrefs::SSls, nullptr},
                                                        {&TPrefs::BrkS, nullptr},
                                                        {&TPrefs::USpC, "pusc"}}};

struct TFontRow {
  std::string TPrefs::*family;
  std::atomic<float> TPrefs::*size;
  const char* notice;
};

constexpr std::array<TFontRow, PREFS_FONT_COUNT> FONTS{{{&TPrefs::MWFF, &TPrefs::MWFS, "pmfc"},
                                                        {&TPrefs::RWFF, &TPrefs::RWFS, "prfc"},
                                                        {&TPrefs::DWFF, &TPrefs::DWFS, "pdfc"}}};

template <typename TRows, typename TIndex>
auto& row(const TRows& rows, TIndex index) {
  return rows[static_cast<size_t>(index)];
}

}  // namespace

void TPrefsEdit::Open() {
  mKept = mPrefs;
  mSaveCount = mPrefs.SaveCount();
}

void TPrefsEdit::Ok() {
  Open();
  mPrefs.SaveToFile();
  mSaveCount = mPrefs.SaveCount();
  Notify("prcd", false);
}

void TPrefsEdit::Cancel() {
  const TPrefs aside(mPrefs);
  mPrefs = mKept;
  NotifyPrefDiffe(aside, mPrefs);
  if (mPrefs.SaveCount() == mSaveCount) return;
  mPrefs.SaveToFile();
  mSaveCount = mPrefs.SaveCount();
}

void TPrefsEdit::Defaults() {
  const TPrefs aside(mPrefs);
  mPrefs.SetDefaults();
  NotifyPrefDiffe(aside, mPrefs);
}

void TPrefsEdit::Notify(const char* code, bool delayed) {
  if (code != nullptr) mNotify(TMessage(code), delayed);
}

void TPrefsEdit::NotifyPrefDiffe(const TPrefs& before, const TPrefs& after) {
  for (const TFontRow& font : FONTS) {
    const bool differs = before.*font.family != after.*font.family ||
                         (before.*font.size).load() != (after.*font.size).load();
    if (differs) Notify(font.notice, false);
  }
  if (before.DEnc.load() != after.DEnc.load()) Notify("pdec", false);
  if (before.WdWp.load() != after.WdWp.load()) Notify("pwwc", false);
  if (before.ASvR.load() != after.ASvR.load() || before.ASvI.load() != after.ASvI.load()) {
    Notify("parc", false);
  }
  if (before.CoMO != after.CoMO) Notify("pmoc", false);
  if (before.USpC.load() != after.USpC.load() || before.SpCI.load() != after.SpCI.load()) {
    Notify("pusc", false);
  }
}

void TPrefsEdit::SetNumber(TPrefsNumber number, std::string_view text) {
  const TNumberRow& found = row(NUMBERS, number);
  double value = parse_double(text) * found.unit;
  // 1.001 milliseconds come out as a little less than 1001 microseconds.
  if (found.unit != 1) value = std::round(value);
  AdjustValue(&value, found.least, found.greatest);
  found.store(mPrefs, value);
  Notify(found.notice, found.delayed);
}

std::string TPrefsEdit::NumberText(TPrefsNumber number) const {
  const TNumberRow& found = row(NUMBERS, number);
  return found.text(mPrefs, found.unit);
}

void TPrefsEdit::SetFlag(TPrefsFlag flag, bool on) {
  const TFlagRow& found = row(FLAGS, flag);
  (mPrefs.*found.field) = on;
  Notify(found.notice, false);
}

bool TPrefsEdit::Flag(TPrefsFlag flag) const {
  return (mPrefs.*row(FLAGS, flag).field).load();
}

void TPrefsEdit::SetFontFamily(TPrefsFont font, const std::string& family) {
  if (family.size() > MAX_FONT_FAMILY) return;
  const TFontRow& found = row(FONTS, font);
  mPrefs.*found.family = family;
  Notify(found.notice, false);
}

const std::string& TPrefsEdit::FontFamily(TPrefsFont font) const {
  return mPrefs.*row(FONTS, font).family;
}

void TPrefsEdit::SetEncoding(int32_t place) {
  if (place < 0 || place > MAX_ENCODING || place == ENCODING_SEPARATOR) return;
  mPrefs.DEnc = place;
  Notify("pdec", false);
}

void TPrefsEdit::SetCompatMode(int32_t place) {
  if (place == COMPAT_AUTO || place == COMPAT_DISK || place == COMPAT_DOS) mPrefs.CmpM = place;
}

void TPrefsEdit::SetSlider(int32_t position) {
  mPrefs.SpCI = interval_of_slider(position);
}

int32_t TPrefsEdit::Slider() const {
  return slider_of_interval(mPrefs.SpCI.load());
}

void TPrefsEdit::ToggleMidiOut(int32_t id, const std::string& name) {
  const bool wanted = IsMidiOutWanted(name);
  if (wanted) {
    std::erase(mPrefs.CoMO, name);
  } else {
    mPrefs.CoMO.push_back(name);
  }
  TMessage message("pmoc");
  message.AddInt32("be:id", id);
  message.AddBool("MODis", wanted);
  mNotify(message, false);
}

bool TPrefsEdit::IsMidiOutWanted(const std::string& name) const {
  return std::find(mPrefs.CoMO.begin(), mPrefs.CoMO.end(), name) != mPrefs.CoMO.end();
}

}  // namespace zoka
