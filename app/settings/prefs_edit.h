// TPrefsEdit: the preferences while the user edits them: ranges, who is told of a change, and the
// way back. The dialog with its controls is elsewhere.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "app/settings/prefs.h"
#include "common/message.h"

namespace zoka {

/// Brings `*value` into the range; true if it was outside.
template <typename T>
bool AdjustValue(T* value, T min, T max) {
  const T given = *value;
  if (!(given >= min)) *value = min;
  if (given > max) *value = max;
  return *value != given;
}

/// The name of a message's field with the roster's number of an output.
constexpr const char MIDI_OUT_ID[] = "be:id";
/// True in a message about an output that is no longer connected.
constexpr const char MIDI_OUT_DISCONNECTED[] = "MODis";

/// The numbers that are typed.
enum class TPrefsNumber : uint8_t {
  MainFontSize,
  RunFontSize,
  DebugFontSize,
  AutoSaveInterval,
  MidiLatency,  // in milliseconds
  SsgVolume,
  SpeedInterval
};
constexpr size_t PREFS_NUMBER_COUNT = 7;

/// The boxes.
enum class TPrefsFlag : uint8_t {
  ConvertPc98,
  WordWrap,
  AutoSaveRegular,
  AutoSaveBeforeRun,
  SplashWindow,
  BreakAtStart,
  SpeedControl
};
constexpr size_t PREFS_FLAG_COUNT = 7;

/// The windows whose font is chosen.
enum class TPrefsFont : uint8_t { Main, Run, Debug };
constexpr size_t PREFS_FONT_COUNT = 3;

/// Edits the preferences in place, so that the whole system follows at once; Cancel therefore puts
/// back what was changed. One thread, the host's.
class TPrefsEdit {
 public:
  /// Takes a notice for the application: at once, or `delayed` until the typing has ended.
  using TNotify = std::function<void(const TMessage& message, bool delayed)>;

  /// `prefs` outlives it.
  TPrefsEdit(TPrefs& prefs, TNotify notify) : mPrefs(prefs), mNotify(std::move(notify)) {}

  /// The dialog opens: what holds now is what Cancel goes back to.
  void Open();
  /// Saves, and says that the preferences have changed (prcd).
  void Ok();
  /// Goes back. What was saved meanwhile, as a changed MIDI connection is, is saved again.
  void Cancel();
  /// All values of a new installation. Cancel still goes back to before.
  void Defaults();

  /// Takes what was typed, brought into the range; what is no number counts as 0.
  void SetNumber(TPrefsNumber number, std::string_view text);
  std::string NumberText(TPrefsNumber number) const;
  void SetFlag(TPrefsFlag flag, bool on);
  bool Flag(TPrefsFlag flag) const;
  /// Longer names than the record can hold are refused.
  void SetFontFamily(TPrefsFont font, const std::string& family);
  const std::string& FontFamily(TPrefsFont font) const;
  /// Places of the menus; a separator changes nothing.
  void SetEncoding(int32_t place);
  void SetCompatMode(int32_t place);
  void SetSlider(int32_t position);
  int32_t Slider() const;
  /// Connects an output that is not connected, and the other way round: `id` is the roster's number
  /// of it.
  void ToggleMidiOut(int32_t id, const std::string& name);
  bool IsMidiOutWanted(const std::string& name) const;

  const TPrefs& Prefs() const { return mPrefs; }

 private:
  void Notify(const char* code, bool delayed);
  void NotifyPrefDiffe(const TPrefs& before, const TPrefs& after);

  TPrefs& mPrefs;
  TNotify mNotify;
  TPrefs mKept;
  uint32_t mSaveCount = 0;  // of the record, when mKept was taken
};

}  // namespace zoka
