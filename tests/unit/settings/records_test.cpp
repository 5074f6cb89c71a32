// The settings records and their files.
#include <gtest/gtest.h>

#include <limits>

#include "app/settings/exit_states.h"
#include "app/settings/mruf.h"
#include "app/settings/prefs.h"
#include "common/context.h"
#include "tests/support/temp_folder.h"

namespace zoka {
namespace {

constexpr char PREFS[] = "ZokaBASIC/ZokaBASIC_Prefs.arc";
constexpr char EXIT_STATES[] = "ZokaBASIC/ZokaBASIC_ExitStates.arc";

class Settings : public testing::Test {
 protected:
  Settings() { place.root = folder.Path(); }

  /// Writes a settings file as another version might have.
  void WriteFile(const char* name, const TMessage& message) {
    folder.MakeFolder("ZokaBASIC");
    folder.Write(name, message.Flatten());
  }
  TMessage ReadFile(const char* name) {
    TMessage message;
    EXPECT_TRUE(message.Unflatten(folder.Read(name))) << name;
    return message;
  }

  TTempFolder folder;
  TSettingsPlace place;
};

void expect_default_prefs(const TPrefs& prefs) {
  EXPECT_TRUE(prefs.BrkS);
  EXPECT_TRUE(prefs.ASBR);
  EXPECT_TRUE(prefs.ASvR);
  EXPECT_TRUE(prefs.Cv98);
  EXPECT_TRUE(prefs.SSls);
  EXPECT_FALSE(prefs.USpC);
  EXPECT_FALSE(prefs.WdWp);
  EXPECT_EQ(prefs.DWFF, "IPAGothic");
  EXPECT_EQ(prefs.MWFF, "IPAGothic");
  EXPECT_EQ(prefs.RWFF, "Unifont-JP");
  EXPECT_EQ(prefs.ASvI, 5);
  EXPECT_EQ(prefs.DEnc, 0);
  EXPECT_EQ(prefs.CmpM, 0);
  EXPECT_EQ(prefs.SVol, 80);
  EXPECT_EQ(prefs.DWFS, 11.0F);
  EXPECT_EQ(prefs.MWFS, 11.0F);
  EXPECT_EQ(prefs.RWFS, 14.0F);
  EXPECT_EQ(prefs.MDly, 50'000);
  EXPECT_EQ(prefs.SpCI, 20'000);
  EXPECT_TRUE(prefs.CoMO.empty());
}

TEST_F(Settings, PrefsDefaults) {
  expect_default_prefs(TPrefs());
}

TEST_F(Settings, PrefsAreWrittenInOrder) {
  TPrefs prefs;
  prefs.CoMO = {"B", "A", "C"};
  TMessage message;
  EXPECT_EQ(prefs.Archive(&message), 0);
  std::string keys;
  for (const auto& field : message.Fields()) keys += field.name + " ";
  EXPECT_EQ(keys,
            "CoMO BrkS ASBR ASvR Cv98 SSls USpC WdWp DWFF MWFF RWFF ASvI DEnc CmpM SVol DWFS MWFS "
            "RWFS MDly SpCI ");
}

TEST_F(Settings, PrefsComeBack) {
  TPrefs prefs(&place);
  prefs.BrkS = prefs.ASBR = prefs.ASvR = prefs.Cv98 = prefs.SSls = false;
  prefs.USpC = prefs.WdWp = true;
  prefs.DWFF = "D";
  prefs.MWFF = "M";
  prefs.RWFF = "R";
  prefs.ASvI = 99;
  prefs.DEnc = 4;
  prefs.CmpM = 3;
  prefs.SVol = 200;
  prefs.DWFS = 5;
  prefs.MWFS = 50;
  prefs.RWFS = 7.5F;
  prefs.MDly = 3'000'000;
  prefs.SpCI = 100;
  prefs.CoMO = {"third", "first", "second"};
  EXPECT_EQ(prefs.SaveToFile(), 0);
  TPrefs loaded(&place);
  EXPECT_EQ(loaded.LoadFromFile(), 0);
  TMessage before;
  TMessage after;
  prefs.Archive(&before);
  loaded.Archive(&after);
  EXPECT_EQ(before.Flatten(), after.Flatten());
  EXPECT_EQ(loaded.CoMO, (std::vector<std::string>{"third", "first", "second"}));
  EXPECT_EQ(loaded.RWFS, 7.5F);
}

TEST_F(Settings, MissingFieldsKeepTheirDefaults) {
  TMessage message;
  message.AddInt32("SVol", 33);
  WriteFile(PREFS, message);
  TPrefs prefs(&place);
  EXPECT_EQ(prefs.LoadFromFile(), 0);
  EXPECT_EQ(prefs.SVol, 33);
  prefs.SVol = 80;
  expect_default_prefs(prefs);
}

TEST_F(Settings, WrongTypeCountsAsMissing) {
  TMessage message;
  message.AddInt64("SVol", 33);
  message.AddInt32("MDly", 1);
  message.AddString("BrkS", "false");
  message.AddDouble("RWFS", 20);
  message.AddBool("CoMO", true);
  message.AddInt32("RWFF", 1);
  WriteFile(PREFS, message);
  TPrefs prefs(&place);
  EXPECT_EQ(prefs.LoadFromFile(), 0);
  expect_default_prefs(prefs);
}

TEST_F(Settings, NumbersAreBroughtIntoTheirRanges) {
  const auto load = [&](const TMessage& message) {
    WriteFile(PREFS, message);
    auto prefs = std::make_unique<TPrefs>(&place);
    EXPECT_EQ(prefs->LoadFromFile(), 0);
    return prefs;
  };
  TMessage low;
  TMessage high;
  for (const char* key : {"ASvI", "SVol"}) {
    low.AddInt32(key, std::numeric_limits<int32_t>::min());
    high.AddInt32(key, std::numeric_limits<int32_t>::max());
  }
  for (const char* key : {"MDly", "SpCI"}) {
    low.AddInt64(key, std::numeric_limits<int64_t>::min());
    high.AddInt64(key, std::numeric_limits<int64_t>::max());
  }
  for (const char* key : {"DWFS", "MWFS", "RWFS"}) {
    low.AddFloat(key, -1e30F);
    high.AddFloat(key, 1e30F);
  }
  const auto least = load(low);
  EXPECT_EQ(least->ASvI, 1);
  EXPECT_EQ(least->SVol, 0);
  EXPECT_EQ(least->MDly, 0);
  EXPECT_EQ(least->SpCI, 100);
  EXPECT_EQ(least->DWFS, 5.0F);
  EXPECT_EQ(least->MWFS, 5.0F);
  EXPECT_EQ(least->RWFS, 5.0F);
  const auto greatest = load(high);
  EXPECT_EQ(greatest->ASvI, 99);
  EXPECT_EQ(greatest->SVol, 200);
  EXPECT_EQ(greatest->MDly, 3'000'000);
  EXPECT_EQ(greatest->SpCI, 10'000'000);
  EXPECT_EQ(greatest->DWFS, 50.0F);
  EXPECT_EQ(greatest->MWFS, 50.0F);
  EXPECT_EQ(greatest->RWFS, 50.0F);
  TMessage odd;
  odd.AddFloat("RWFS", std::numeric_limits<float>::quiet_NaN());
  odd.AddFloat("MWFS", std::numeric_limits<float>::infinity());
  expect_default_prefs(*load(odd));
}

TEST_F(Settings, CompatibilityModesAndEncodings) {
  const auto load = [&](const char* key, int32_t value) {
    TMessage message;
    message.AddInt32(key, value);
    TPrefs prefs;
    prefs.Unarchive(message);
    return std::string(key) == "CmpM" ? prefs.CmpM.load() : prefs.DEnc.load();
  };
  EXPECT_EQ(load("CmpM", 0), 0);
  EXPECT_EQ(load("CmpM", 1), 2);  // how old files say DISK-BASIC
  EXPECT_EQ(load("CmpM", 2), 2);
  EXPECT_EQ(load("CmpM", 3), 3);
  EXPECT_EQ(load("CmpM", 4), 0);
  EXPECT_EQ(load("CmpM", -1), 0);
  EXPECT_EQ(load("DEnc", 1), 0);
  EXPECT_EQ(load("DEnc", 2), 2);
  EXPECT_EQ(load("DEnc", 4), 4);
  EXPECT_EQ(load("DEnc", 5), 0);
  EXPECT_EQ(load("DEnc", -1), 0);
}

TEST_F(Settings, FontFamiliesAreCut) {
  const auto load = [](const std::string& family) {
    TMessage message;
    message.AddString("RWFF", family);
    TPrefs prefs;
    prefs.Unarchive(message);
    return prefs.RWFF;
  };
  EXPECT_EQ(load(std::string(62, 'x')), std::string(62, 'x'));
  EXPECT_EQ(load(std::string(63, 'x')), std::string(62, 'x'));
  EXPECT_EQ(load(std::string("ab\0cd", 5)), "ab");
  // The character that does not fit goes whole.
  EXPECT_EQ(load(std::string(60, 'x') + "あ"), std::string(60, 'x'));
  EXPECT_EQ(load(std::string(59, 'x') + "あ"), std::string(59, 'x') + "あ");
  EXPECT_EQ(load(std::string(100, '\x80')), "");
}

TEST_F(Settings, UnusableFilesLeaveAll) {
  folder.MakeFolder("ZokaBASIC");
  TPrefs prefs(&place);
  EXPECT_EQ(prefs.LoadFromFile(), -1);  // none
  TMessage message;
  message.AddInt32("SVol", 33);
  for (const std::string& bytes :
       {std::string(), std::string("not a message"), message.Flatten() + "x"}) {
    folder.Write(PREFS, bytes);
    EXPECT_EQ(prefs.LoadFromFile(), -1);
    expect_default_prefs(prefs);
  }
  EXPECT_EQ(prefs.SaveToFile(), 0);
  EXPECT_EQ(prefs.LoadFromFile(), 0);
  expect_default_prefs(prefs);
}

TEST_F(Settings, UnknownFieldsAreKept) {
  TMessage message;
  message.AddString("Futr", "one");
  message.AddString("Futr", "two");
  message.AddInt64("SVol", 1);  // known, of a wrong type
  message.AddString("CoMO", "gone");
  WriteFile(PREFS, message);
  TPrefs prefs(&place);
  EXPECT_EQ(prefs.LoadFromFile(), 0);
  prefs.CoMO.clear();
  EXPECT_EQ(prefs.SaveToFile(), 0);
  const TMessage saved = ReadFile(PREFS);
  std::string text;
  EXPECT_TRUE(saved.FindString("Futr", &text, 1));
  EXPECT_EQ(text, "two");
  int32_t volume = 0;
  EXPECT_TRUE(saved.FindInt32("SVol", &volume));
  EXPECT_EQ(volume, 80);
  EXPECT_FALSE(saved.HasField("CoMO"));
}

TEST_F(Settings, UnknownFieldsAreKeptUpToALimit) {
  constexpr size_t MAX_UNKNOWN_FIELDS = 1000;
  TMessage own;
  TPrefs().Archive(&own);
  for (const size_t count : {MAX_UNKNOWN_FIELDS, MAX_UNKNOWN_FIELDS + 1, size_t{30'000}}) {
    // Put together by hand, since adding a field looks through all others.
    std::string fields;
    for (size_t i = 0; i < count; ++i) {
      TMessage one;
      one.AddBool("Futr" + std::to_string(i), true);
      fields += one.Flatten().substr(8);
    }
    TMessage known;
    known.AddInt32("SVol", 33);
    std::string bytes = TMessage().Flatten() + fields + known.Flatten().substr(8);
    for (size_t i = 0; i < 4; ++i) bytes[4 + i] = static_cast<char>((count + 1) >> 8 * i);
    folder.MakeFolder("ZokaBASIC");
    folder.Write(PREFS, bytes);
    TPrefs prefs(&place);
    ASSERT_EQ(prefs.LoadFromFile(), 0) << count;
    EXPECT_EQ(prefs.SVol, 33);
    EXPECT_EQ(prefs.SaveToFile(), 0);
    const TMessage saved = ReadFile(PREFS);
    EXPECT_EQ(saved.Fields().size(), own.Fields().size() + MAX_UNKNOWN_FIELDS) << count;
    EXPECT_TRUE(saved.HasField("Futr" + std::to_string(MAX_UNKNOWN_FIELDS - 1)));
  }
}

TEST_F(Settings, FilesHaveALimitOfSize) {
  TMessage message;
  message.AddInt32("SVol", 33);
  message.AddString("Futr", "");
  const std::string filling(MAX_SETTINGS_BYTES - message.Flatten().size(), 'x');
  message.ReplaceString("Futr", filling);
  WriteFile(PREFS, message);
  TPrefs prefs(&place);
  EXPECT_EQ(prefs.LoadFromFile(), 0);
  EXPECT_EQ(prefs.SVol, 33);
  EXPECT_EQ(*place.damaged, 0);
  message.ReplaceString("Futr", filling + "x");
  WriteFile(PREFS, message);
  TPrefs other(&place);
  EXPECT_EQ(other.LoadFromFile(), -1);
  EXPECT_EQ(other.SVol, 80);
  EXPECT_EQ(*place.damaged, 1);
  EXPECT_EQ(folder.Read(std::string(PREFS) + ".damaged"), message.Flatten());
}

TEST_F(Settings, CopiesHaveTheirOwnValues) {
  TPrefs prefs(&place);
  prefs.SVol = 10;
  prefs.RWFF = "X";
  prefs.CoMO = {"A"};
  const TPrefs kept(prefs);
  prefs = TPrefs();
  expect_default_prefs(prefs);
  EXPECT_EQ(kept.SVol, 10);
  EXPECT_EQ(kept.RWFF, "X");
  EXPECT_EQ(kept.CoMO.size(), 1u);
  EXPECT_EQ(prefs.SaveToFile(), 0);  // still in its own place
  EXPECT_TRUE(ReadFile(PREFS).HasField("SVol"));
}

TEST_F(Settings, NowhereNothingHappens) {
  TPrefs prefs;
  EXPECT_EQ(prefs.SaveToFile(), -1);
  EXPECT_EQ(prefs.LoadFromFile(), -1);
  place.root.clear();
  TPrefs placed(&place);
  EXPECT_EQ(placed.SaveToFile(), -1);
  EXPECT_EQ(placed.LoadFromFile(), -1);
}

TEST_F(Settings, ReadOnlyPlaceIsOnlyRead) {
  place.readOnly = true;
  TPrefs prefs(&place);
  EXPECT_EQ(prefs.LoadFromFile(), -1);
  EXPECT_EQ(prefs.SaveToFile(), -1);
  EXPECT_FALSE(std::filesystem::exists(folder.Path("ZokaBASIC")));
  TMessage message;
  message.AddInt32("SVol", 33);
  WriteFile(PREFS, message);
  EXPECT_EQ(prefs.LoadFromFile(), 0);
  EXPECT_EQ(prefs.SVol, 33);
  place.modifiers = [] { return RESET_MODIFIERS; };
  EXPECT_EQ(prefs.LoadFromFile(), -1);
  EXPECT_TRUE(std::filesystem::exists(folder.Path(PREFS)));
}

TEST_F(Settings, FourModifiersGetRidOfTheFile) {
  TPrefs prefs(&place);
  prefs.SVol = 33;
  EXPECT_EQ(prefs.SaveToFile(), 0);
  uint32_t held = 71;
  place.modifiers = [&held] { return held; };
  const std::string before = folder.Read(PREFS);
  prefs.SVol = 44;
  EXPECT_EQ(prefs.SaveToFile(), -1);
  EXPECT_EQ(folder.Read(PREFS), before);
  for (uint32_t three : {70u, 69u, 67u, 7u}) {
    held = three;
    TPrefs loaded(&place);
    EXPECT_EQ(loaded.LoadFromFile(), 0) << three;
    EXPECT_EQ(loaded.SVol, 33);
  }
  held = 71 | 0x80;  // other keys do not matter
  TPrefs loaded(&place);
  EXPECT_EQ(loaded.LoadFromFile(), -1);
  expect_default_prefs(loaded);
  EXPECT_FALSE(std::filesystem::exists(folder.Path(PREFS)));
}

/// A record that cannot be put together.
class TBrokenRecord : public TArchivable {
 public:
  int32_t Archive(TMessage* message) const override {
    message->AddBool("half", true);
    return 1;
  }
};

TEST_F(Settings, FailedArchiveLeavesAnEmptyFile) {
  folder.Write("record", "old");
  EXPECT_EQ(TBrokenRecord().Save(folder.Path("record")), -1);
  EXPECT_EQ(folder.Read("record"), "");
  TArchivable plain;
  EXPECT_EQ(plain.Save(folder.Path("none/record")), -1);
  EXPECT_EQ(plain.Save(folder.Path("record")), 0);
  EXPECT_EQ(plain.Load(folder.Path("record")), 0);
}

TEST_F(Settings, ExitStatesDefaultsAndOrder) {
  TExitStates states;
  EXPECT_FALSE(states.RptR);
  EXPECT_TRUE(states.MBrS);
  EXPECT_FALSE(states.UDbg);
  EXPECT_EQ(states.WFr, (TFrame{5, 24, 500, 300}));
  EXPECT_EQ(states.RWFr, (TFrame{25, 44, 520, 320}));
  EXPECT_EQ(states.DWFr, (TFrame{45, 64, 540, 340}));
  const auto keys = [&] {
    TMessage message;
    EXPECT_EQ(states.Archive(&message), 0);
    std::string text;
    for (const auto& field : message.Fields()) text += field.name + " ";
    return text;
  };
  EXPECT_EQ(keys(), "RptR MBrS UDbg _Ver DWFr _WFr RWFr ");
  states.MWPF = "/a";
  states.RWPF = "/b";
  EXPECT_EQ(keys(), "RptR MBrS UDbg _Ver MWPF RWPF DWFr _WFr RWFr ");
}

TEST_F(Settings, ExitStatesComeBack) {
  TExitStates states(&place);
  states.RptR = states.UDbg = true;
  states.MBrS = false;
  states.MWPF = "/list";
  states.RWPF = "/run\xFF";
  states.DWFr = {1, 2, 3, 4};
  states.WFr = {-10, -20, 30, 40};
  states.RWFr = {0.5F, 1, 2, 3};
  states.Ver = "an old one";
  EXPECT_EQ(states.SaveToFile(), 0);
  TExitStates loaded(&place);
  EXPECT_EQ(loaded.LoadFromFile(), 0);
  EXPECT_TRUE(loaded.RptR);
  EXPECT_FALSE(loaded.MBrS);
  EXPECT_TRUE(loaded.UDbg);
  EXPECT_EQ(loaded.MWPF, "/list");
  EXPECT_EQ(loaded.RWPF, "/run\xFF");
  EXPECT_EQ(loaded.DWFr, states.DWFr);
  EXPECT_EQ(loaded.WFr, states.WFr);
  EXPECT_EQ(loaded.RWFr, states.RWFr);
  EXPECT_EQ(loaded.Ver, APP_VERSION);
}

TEST_F(Settings, EmptiedFolderDoesNotComeBack) {
  TExitStates states(&place);
  states.MWPF = "/list";
  EXPECT_EQ(states.SaveToFile(), 0);
  EXPECT_EQ(states.LoadFromFile(), 0);
  states.MWPF.clear();
  EXPECT_EQ(states.SaveToFile(), 0);
  EXPECT_FALSE(ReadFile(EXIT_STATES).HasField("MWPF"));
}

TEST_F(Settings, ImpossibleFramesCountAsMissing) {
  constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
  for (const TFrame& frame :
       {TFrame{0, 0, NOT_A_NUMBER, 1}, TFrame{0, 0, std::numeric_limits<float>::infinity(), 1},
        TFrame{5, 0, 5, 1}, TFrame{0, 9, 1, 8}}) {
    TMessage message;
    message.AddRect("_WFr", frame);
    TExitStates states;
    states.Unarchive(message);
    EXPECT_EQ(states.WFr, DEFAULT_MAIN_FRAME);
  }
}

TEST_F(Settings, UsersPlace) {
  const auto root = [](const char* config, const char* home) {
    setenv("XDG_CONFIG_HOME", config, 1);
    setenv("HOME", home, 1);
    return TSettingsPlace::OfUser().root;
  };
  const char* const home = getenv("HOME");
  const std::string oldHome = home != nullptr ? home : "";
  EXPECT_EQ(root("/config", "/home-of-user"), "/config/KORUNE");
  EXPECT_EQ(root("", "/home-of-user"), "/home-of-user/.config/KORUNE");
  EXPECT_EQ(root("relative", "/home-of-user"), "/home-of-user/.config/KORUNE");
  EXPECT_EQ(root("", ""), "");
  setenv("HOME", oldHome.c_str(), 1);
  unsetenv("XDG_CONFIG_HOME");
}

TEST_F(Settings, EntriesAndTheirFolders) {
  place.root = folder.Path("deep/er");
  std::string path;
  EXPECT_EQ(get_settings_entry(place, "Shared", "X.arc", false, &path), 0);
  EXPECT_EQ(path, folder.Path("deep/er/Shared/X.arc"));
  EXPECT_FALSE(std::filesystem::exists(folder.Path("deep")));
  EXPECT_EQ(get_settings_entry(place, "Shared", "X.arc", true, &path), 0);
  EXPECT_TRUE(std::filesystem::is_directory(folder.Path("deep/er/Shared")));
  folder.Write("file", "");
  place.root = folder.Path("file");
  EXPECT_EQ(get_settings_entry(place, "Shared", "X.arc", true, &path), -1);
}

std::string joined(const TMRUF& history) {
  std::string text;
  for (int32_t i = 0; i < history.CountMRUFs(); ++i) text += history.MRUFAt(i) + " ";
  return text;
}

TEST(Mruf, NewestFirstAndEachOnce) {
  TMRUF history;
  for (const char* path : {"/e", "/d", "/c", "/b", "/a"}) history.AddMRUF(path);
  EXPECT_EQ(joined(history), "/a /b /c /d /e ");
  history.AddMRUF(history.MRUFAt(3));
  EXPECT_EQ(joined(history), "/d /a /b /c /e ");
  history.AddMRUF("/d");
  EXPECT_EQ(joined(history), "/d /a /b /c /e ");
  EXPECT_EQ(history.FindMRUF("/b"), 2);
  EXPECT_EQ(history.FindMRUF("/none"), -1);
  EXPECT_EQ(history.MRUFAt(5), "");
  EXPECT_EQ(history.MRUFAt(-1), "");
  history.RemoveMRUF("/a");
  history.RemoveMRUF("/none");
  EXPECT_EQ(joined(history), "/d /b /c /e ");
  history.ClearMRUF();
  EXPECT_EQ(history.CountMRUFs(), 0);
}

TEST(Mruf, HoldsTenUnlessToldOtherwise) {
  TMRUF history;
  for (int i = 0; i < 12; ++i) history.AddMRUF("/" + std::to_string(i));
  EXPECT_EQ(history.CountMRUFs(), 10);
  EXPECT_EQ(history.MRUFAt(0), "/11");
  EXPECT_EQ(history.MRUFAt(9), "/2");
  history.SetMaxMRUF(2);
  EXPECT_EQ(history.CountMRUFs(), 10);
  history.AddMRUF("/x");
  EXPECT_EQ(joined(history), "/x /11 ");
  history.SetMaxMRUF(-1);
  history.AddMRUF("/y");
  EXPECT_EQ(history.CountMRUFs(), 0);
}

TEST(Mruf, FileHasTheOldestFirst) {
  TMRUF history;
  for (const char* path : {"/b", "/a"}) history.AddMRUF(path);
  TMessage message;
  EXPECT_EQ(history.Archive(&message), 0);
  std::string path;
  EXPECT_TRUE(message.FindString("MRUF", &path));
  EXPECT_EQ(path, "/b");
  TMRUF loaded;
  loaded.AddMRUF("/old");
  loaded.Unarchive(message);
  EXPECT_EQ(joined(loaded), "/a /b ");
}

TEST(Mruf, LoadingTrimsNothingButTheNextAddDoes) {
  TMessage message;
  for (int i = 0; i < 12; ++i) message.AddString("MRUF", "/" + std::to_string(i));
  TMRUF history;
  history.Unarchive(message);
  EXPECT_EQ(history.CountMRUFs(), 12);
  EXPECT_EQ(history.MRUFAt(0), "/11");
  history.AddMRUF("/11");
  EXPECT_EQ(history.CountMRUFs(), 10);
}

TEST(Mruf, ReadsNoEndlessFile) {
  TMessage message;
  for (size_t i = 0; i <= MAX_STORED_MRUF; ++i) message.AddString("MRUF", std::to_string(i));
  TMRUF history;
  history.Unarchive(message);
  EXPECT_EQ(history.CountMRUFs(), static_cast<int32_t>(MAX_STORED_MRUF));
}

}  // namespace
}  // namespace zoka
