// The slider of the speed control, the menus known by their places, and the way of the preferences
// through the dialog.
#include "app/settings/prefs_edit.h"

#include <gtest/gtest.h>

#include <limits>

#include "app/settings/prefs_choices.h"
#include "app/settings/speed_slider.h"
#include "tests/support/temp_folder.h"

namespace zoka {
namespace {

TEST(SpeedSlider, PositionsAreNineADecade) {
  const std::pair<int32_t, bigtime_t> rows[] = {
      {1, 100},     {2, 200},     {9, 900},     {10, 1000},    {11, 2000},    {18, 9000},
      {19, 10'000}, {20, 20'000}, {27, 90'000}, {28, 100'000}, {36, 900'000}, {37, 1'000'000}};
  for (const auto& [position, interval] : rows) {
    EXPECT_EQ(interval_of_slider(position), interval) << position;
    EXPECT_EQ(slider_of_interval(interval), position) << interval;
  }
  EXPECT_EQ(interval_of_slider(0), 100);
  EXPECT_EQ(interval_of_slider(38), 1'000'000);
}

TEST(SpeedSlider, IntervalsBetweenAndBeyondTheSteps) {
  const std::pair<bigtime_t, int32_t> rows[] = {{199, 1},
                                                {999, 9},
                                                {1999, 10},
                                                {25'000, 20},
                                                {999'999, 36},
                                                {5'000'000, 37},
                                                {std::numeric_limits<bigtime_t>::max(), 37},
                                                {0, 1},
                                                {-1, 1}};
  for (const auto& [interval, position] : rows) {
    EXPECT_EQ(slider_of_interval(interval), position) << interval;
  }
}

TEST(PrefsChoices, PlacesAreTheStoredValues) {
  EXPECT_STREQ(COMPAT_ITEMS[0], "Auto Detect");
  EXPECT_EQ(COMPAT_ITEMS[1], nullptr);
  EXPECT_STREQ(COMPAT_ITEMS[2], "DISK-BASIC");
  EXPECT_STREQ(COMPAT_ITEMS[3], "DOS-BASIC");
  EXPECT_EQ(ENCODING_ITEMS[1], nullptr);
  EXPECT_STREQ(ENCODING_ITEMS[2], "UTF-8 (BeOS)");
  EXPECT_STREQ(ENCODING_ITEMS[4], "JIS / NEC JIS (DISK-BASIC)");
  EXPECT_TRUE(may_have_pc98_characters(0));
  EXPECT_FALSE(may_have_pc98_characters(2));
  EXPECT_FALSE(may_have_pc98_characters(3));
  EXPECT_TRUE(may_have_pc98_characters(4));
}

TEST(AdjustValue, Clamps) {
  int32_t value = 0;
  EXPECT_TRUE(AdjustValue(&value, 1, 99));
  EXPECT_EQ(value, 1);
  value = 100;
  EXPECT_TRUE(AdjustValue(&value, 1, 99));
  EXPECT_EQ(value, 99);
  EXPECT_FALSE(AdjustValue(&value, 1, 99));
  double none = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(AdjustValue(&none, 5.0, 50.0));
  EXPECT_EQ(none, 5);
}

/// The preferences with a file of their own; the notices are written down as codes, with a "~" in
/// front of delayed ones.
class PrefsEdit : public testing::Test {
 protected:
  PrefsEdit() {
    place.root = folder.Path();
    edit.Open();
  }
  void Took(const TMessage& message, bool delayed) {
    last = message;
    std::string code;
    for (int shift = 24; shift >= 0; shift -= 8) code += static_cast<char>(message.what >> shift);
    notices += (notices.empty() ? "" : " ") + std::string(delayed ? "~" : "") + code;
  }
  std::string TakeNotices() { return std::exchange(notices, ""); }

  TTempFolder folder;
  TSettingsPlace place;
  TPrefs prefs{&place};
  std::string notices;
  TMessage last;
  TPrefsEdit edit{prefs, [this](const TMessage& message, bool delayed) { Took(message, delayed); }};
};

TEST_F(PrefsEdit, TypedNumbersAreBroughtIntoTheirRanges) {
  edit.SetNumber(TPrefsNumber::AutoSaveInterval, "0");
  EXPECT_EQ(prefs.ASvI, 1);
  edit.SetNumber(TPrefsNumber::AutoSaveInterval, "100");
  EXPECT_EQ(prefs.ASvI, 99);
  edit.SetNumber(TPrefsNumber::SsgVolume, "250");
  EXPECT_EQ(prefs.SVol, 200);
  edit.SetNumber(TPrefsNumber::SsgVolume, "-1");
  EXPECT_EQ(prefs.SVol, 0);
  edit.SetNumber(TPrefsNumber::MainFontSize, "4");
  EXPECT_EQ(prefs.MWFS, 5);
  edit.SetNumber(TPrefsNumber::RunFontSize, "50.5");
  EXPECT_EQ(prefs.RWFS, 50);
  edit.SetNumber(TPrefsNumber::DebugFontSize, "11.5");
  EXPECT_EQ(prefs.DWFS, 11.5F);
  edit.SetNumber(TPrefsNumber::MidiLatency, "12");
  EXPECT_EQ(prefs.MDly, 12'000);
  edit.SetNumber(TPrefsNumber::MidiLatency, "3001");
  EXPECT_EQ(prefs.MDly, 3'000'000);
  edit.SetNumber(TPrefsNumber::SpeedInterval, "99");
  EXPECT_EQ(prefs.SpCI, 100);
  edit.SetNumber(TPrefsNumber::SpeedInterval, "10000001");
  EXPECT_EQ(prefs.SpCI, 10'000'000);
}

TEST_F(PrefsEdit, EachMicrosecondCanBeTypedInMilliseconds) {
  for (const char* text : {"1.001", "1.005", "4.035", "2999.999"}) {
    edit.SetNumber(TPrefsNumber::MidiLatency, text);
    EXPECT_EQ(edit.NumberText(TPrefsNumber::MidiLatency), text);
  }
  for (int64_t latency = 0; latency <= 3'000'000; latency += 37) {
    prefs.MDly = latency;
    edit.SetNumber(TPrefsNumber::MidiLatency, edit.NumberText(TPrefsNumber::MidiLatency));
    ASSERT_EQ(prefs.MDly, latency);
  }
}

TEST_F(PrefsEdit, NonsenseIsTheLeastValue) {
  for (const char* text : {"", "abc", "nan", "-", "-99999999999999999999999"}) {
    edit.SetNumber(TPrefsNumber::AutoSaveInterval, text);
    EXPECT_EQ(prefs.ASvI, 1) << text;
  }
  edit.SetNumber(TPrefsNumber::SpeedInterval, "1e999");
  EXPECT_EQ(prefs.SpCI, 10'000'000);
}

TEST_F(PrefsEdit, NumbersAsText) {
  EXPECT_EQ(edit.NumberText(TPrefsNumber::MainFontSize), "11");
  EXPECT_EQ(edit.NumberText(TPrefsNumber::MidiLatency), "50");
  EXPECT_EQ(edit.NumberText(TPrefsNumber::SpeedInterval), "20000");
  prefs.SpCI = 10'000'000;
  EXPECT_EQ(edit.NumberText(TPrefsNumber::SpeedInterval), "10000000");
  prefs.MWFS = 10.1F;
  EXPECT_EQ(edit.NumberText(TPrefsNumber::MainFontSize), "10.1");
  prefs.MDly = 12'345;
  EXPECT_EQ(edit.NumberText(TPrefsNumber::MidiLatency), "12.345");
}

TEST_F(PrefsEdit, EachChangeHasItsNotice) {
  edit.SetNumber(TPrefsNumber::MainFontSize, "12");
  edit.SetNumber(TPrefsNumber::RunFontSize, "12");
  edit.SetNumber(TPrefsNumber::DebugFontSize, "12");
  edit.SetNumber(TPrefsNumber::AutoSaveInterval, "9");
  EXPECT_EQ(TakeNotices(), "~pmfc ~prfc ~pdfc parc");
  edit.SetNumber(TPrefsNumber::MidiLatency, "9");
  edit.SetNumber(TPrefsNumber::SsgVolume, "9");
  edit.SetNumber(TPrefsNumber::SpeedInterval, "900");
  EXPECT_EQ(TakeNotices(), "");
  edit.SetFontFamily(TPrefsFont::Main, "M");
  edit.SetFontFamily(TPrefsFont::Run, "R");
  edit.SetFontFamily(TPrefsFont::Debug, "D");
  EXPECT_EQ(TakeNotices(), "pmfc prfc pdfc");
  EXPECT_EQ(prefs.MWFF + prefs.RWFF + prefs.DWFF, "MRD");
  for (size_t i = 0; i < PREFS_FLAG_COUNT; ++i) {
    const auto flag = static_cast<TPrefsFlag>(i);
    edit.SetFlag(flag, !edit.Flag(flag));
  }
  EXPECT_EQ(TakeNotices(), "pwwc parc pusc");
  EXPECT_FALSE(prefs.Cv98);
  EXPECT_TRUE(prefs.WdWp);
  EXPECT_FALSE(prefs.ASvR);
  EXPECT_FALSE(prefs.ASBR);
  EXPECT_FALSE(prefs.SSls);
  EXPECT_FALSE(prefs.BrkS);
  EXPECT_TRUE(prefs.USpC);
  edit.SetEncoding(2);
  EXPECT_EQ(TakeNotices(), "pdec");
}

TEST_F(PrefsEdit, SeparatorsAndPlacesBeyondAreNoChoices) {
  edit.SetEncoding(3);
  edit.SetCompatMode(COMPAT_DOS);
  for (int32_t at : {-1, 1, 5}) edit.SetEncoding(at);
  for (int32_t at : {-1, 1, 4}) edit.SetCompatMode(at);
  EXPECT_EQ(prefs.DEnc, 3);
  EXPECT_EQ(prefs.CmpM, 3);
}

TEST_F(PrefsEdit, AFamilyHasAtMost62Bytes) {
  edit.SetFontFamily(TPrefsFont::Main, std::string(62, 'x'));
  EXPECT_EQ(prefs.MWFF, std::string(62, 'x'));
  edit.SetFontFamily(TPrefsFont::Main, std::string(63, 'y'));
  EXPECT_EQ(prefs.MWFF, std::string(62, 'x'));
}

TEST_F(PrefsEdit, SliderAndText) {
  edit.SetSlider(10);
  EXPECT_EQ(prefs.SpCI, 1000);
  edit.SetNumber(TPrefsNumber::SpeedInterval, "25000");
  EXPECT_EQ(edit.Slider(), 20);
  EXPECT_EQ(prefs.SpCI, 25'000);
  edit.SetNumber(TPrefsNumber::SpeedInterval, "7000000");
  EXPECT_EQ(edit.Slider(), 37);
  EXPECT_EQ(edit.NumberText(TPrefsNumber::SpeedInterval), "7000000");
}

TEST_F(PrefsEdit, TogglesMidiOutputs) {
  prefs.CoMO = {"A", "B"};
  edit.ToggleMidiOut(7, "A");
  EXPECT_EQ(prefs.CoMO, std::vector<std::string>{"B"});
  int32_t id = 0;
  bool disconnected = false;
  EXPECT_TRUE(last.FindInt32("be:id", &id));
  EXPECT_TRUE(last.FindBool("MODis", &disconnected));
  EXPECT_EQ(id, 7);
  EXPECT_TRUE(disconnected);
  edit.ToggleMidiOut(8, "C");
  EXPECT_EQ(prefs.CoMO, (std::vector<std::string>{"B", "C"}));
  EXPECT_TRUE(last.FindBool("MODis", &disconnected));
  EXPECT_FALSE(disconnected);
  EXPECT_EQ(TakeNotices(), "pmoc pmoc");
}

TEST_F(PrefsEdit, CancelGoesBackAndTellsWhatDiffers) {
  edit.SetFontFamily(TPrefsFont::Main, "Other");
  edit.SetNumber(TPrefsNumber::SsgVolume, "9");
  edit.SetFlag(TPrefsFlag::WordWrap, true);
  edit.SetSlider(1);
  TakeNotices();
  edit.Cancel();
  EXPECT_EQ(prefs.MWFF, "IPAGothic");
  EXPECT_EQ(prefs.SVol, 80);
  EXPECT_FALSE(prefs.WdWp);
  EXPECT_EQ(prefs.SpCI, 20'000);
  EXPECT_EQ(TakeNotices(), "pmfc pwwc pusc");
  edit.Cancel();
  EXPECT_EQ(TakeNotices(), "");
  EXPECT_FALSE(prefs.HasFile());
}

TEST_F(PrefsEdit, CancelSavesAgainWhatWasSavedMeanwhile) {
  edit.SetNumber(TPrefsNumber::SsgVolume, "9");
  prefs.SaveToFile();
  edit.Cancel();
  TPrefs loaded(&place);
  ASSERT_EQ(loaded.LoadFromFile(), 0);
  EXPECT_EQ(loaded.SVol, 80);
}

TEST_F(PrefsEdit, OkSavesAndIsWhatTheNextCancelGoesBackTo) {
  edit.SetNumber(TPrefsNumber::SsgVolume, "9");
  edit.Ok();
  EXPECT_EQ(TakeNotices(), "prcd");
  TPrefs loaded(&place);
  ASSERT_EQ(loaded.LoadFromFile(), 0);
  EXPECT_EQ(loaded.SVol, 9);
  edit.SetNumber(TPrefsNumber::SsgVolume, "10");
  edit.Cancel();
  EXPECT_EQ(prefs.SVol, 9);
}

TEST_F(PrefsEdit, CancelGoesBackFromDefaultsToo) {
  prefs.CoMO = {"A"};
  prefs.DEnc = 3;
  prefs.ASvI = 60;
  prefs.RWFS = 20;
  prefs.DWFF = "D";
  edit.Open();
  edit.Defaults();
  EXPECT_EQ(TakeNotices(), "prfc pdfc pdec parc pmoc");
  EXPECT_TRUE(prefs.CoMO.empty());
  EXPECT_EQ(prefs.DEnc, 0);
  EXPECT_EQ(prefs.ASvI, 5);
  edit.Cancel();
  EXPECT_EQ(TakeNotices(), "prfc pdfc pdec parc pmoc");
  EXPECT_EQ(prefs.CoMO, std::vector<std::string>{"A"});
  EXPECT_EQ(prefs.ASvI, 60);
}

TEST_F(PrefsEdit, DefaultsKeepWhatOtherVersionsStored) {
  TMessage stored;
  stored.AddString("New1", "kept");
  folder.MakeFolder("ZokaBASIC");
  folder.Write("ZokaBASIC/ZokaBASIC_Prefs.arc", stored.Flatten());
  ASSERT_EQ(prefs.LoadFromFile(), 0);
  edit.Open();
  edit.Defaults();
  edit.Ok();
  TMessage saved;
  ASSERT_TRUE(saved.Unflatten(folder.Read("ZokaBASIC/ZokaBASIC_Prefs.arc")));
  std::string text;
  EXPECT_TRUE(saved.FindString("New1", &text));
  EXPECT_EQ(text, "kept");
}

TEST_F(PrefsEdit, DamagedFilesAreSetAsideAndCountedOnce) {
  constexpr const char FILE[] = "ZokaBASIC/ZokaBASIC_Prefs.arc";
  folder.MakeFolder("ZokaBASIC");
  folder.Write(FILE, "not a message");
  EXPECT_EQ(prefs.LoadFromFile(), -1);
  EXPECT_EQ(folder.Read(std::string(FILE) + ".damaged"), "not a message");
  EXPECT_FALSE(prefs.HasFile());
  EXPECT_EQ(prefs.LoadFromFile(), -1);
  EXPECT_EQ(*place.damaged, 1);
  folder.Write(FILE, "");
  EXPECT_EQ(prefs.LoadFromFile(), -1);
  EXPECT_TRUE(prefs.HasFile());
  EXPECT_EQ(*place.damaged, 1);
}

TEST_F(PrefsEdit, ADamagedFileDoesNotReplaceTheOneBefore) {
  const std::string path = "ZokaBASIC/ZokaBASIC_Prefs.arc";
  folder.MakeFolder("ZokaBASIC");
  for (int i = 1; i <= MAX_SET_ASIDE + 1; ++i) {
    folder.Write(path, "nonsense " + std::to_string(i));
    EXPECT_EQ(prefs.LoadFromFile(), -1);
    EXPECT_EQ(*place.damaged, i);
  }
  EXPECT_EQ(folder.Read(path + ".damaged"), "nonsense 1");
  for (int i = 2; i < MAX_SET_ASIDE; ++i) {
    const std::string number = std::to_string(i);
    EXPECT_EQ(folder.Read(path + ".damaged" + number), "nonsense " + number);
  }
  // There is an end to it: the last name is used again.
  EXPECT_EQ(folder.Read(path + ".damaged9"), "nonsense 10");
}

TEST_F(PrefsEdit, NothingIsSetAsideWhereNothingMayBeWritten) {
  place.readOnly = true;
  folder.MakeFolder("ZokaBASIC");
  folder.Write("ZokaBASIC/ZokaBASIC_Prefs.arc", "not a message");
  EXPECT_EQ(prefs.LoadFromFile(), -1);
  EXPECT_TRUE(prefs.HasFile());
  EXPECT_EQ(*place.damaged, 0);
}

}  // namespace
}  // namespace zoka
