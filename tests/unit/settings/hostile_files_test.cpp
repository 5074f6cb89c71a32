// Settings and item files of any bytes: random ones, and real ones with some bytes changed. None of
// them does harm, what is taken over lies in its range, and what is saved can be loaded again.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "app/settings/exit_states.h"
#include "app/settings/iap_board.h"
#include "app/settings/iap_wire.h"
#include "app/settings/inter_app_prefs.h"
#include "app/settings/mruf.h"
#include "app/settings/prefs.h"
#include "app/settings/prefs_choices.h"
#include "tests/support/temp_folder.h"

namespace zoka {
namespace {

constexpr uint32_t SEED = 1982;
constexpr int ROUNDS = 200;
constexpr size_t LONGEST_NOISE = 300;

/// Bytes that go wrong in the ways of disks and strangers, the same ones each time.
class TMutator {
 public:
  std::string Noise() {
    std::string bytes(Below(LONGEST_NOISE), '\0');
    for (char& byte : bytes) byte = Byte();
    return bytes;
  }
  std::string Mutate(std::string bytes) {
    for (size_t changes = 1 + Below(3); changes > 0 && !bytes.empty(); --changes) {
      const size_t at = Below(bytes.size());
      switch (Below(12)) {
        case 0:
          bytes.erase(at, 1 + Below(8));
          break;
        case 1:
          bytes.insert(at, 1 + Below(8), Byte());
          break;
        case 2:
          bytes.resize(at);
          break;
        case 3:
        case 4:
        case 5:
          bytes[at] = Byte();
          break;
        default:
          bytes[at] = static_cast<char>(bytes[at] ^ 1 << Below(8));
      }
    }
    return bytes;
  }

 private:
  size_t Below(size_t limit) { return mRandom() % limit; }
  char Byte() { return static_cast<char>(mRandom()); }

  std::mt19937 mRandom{SEED};
};

class HostileFiles : public testing::Test {
 protected:
  HostileFiles() {
    place.root = folder.Path();
    folder.MakeFolder(SETTINGS_FOLDER);
    folder.MakeFolder(SHARED_FOLDER);
  }

  /// Puts bytes of all kinds into the file and calls `look` each time.
  template <typename TLook>
  void ForAnyBytes(const char* file, const std::string& good, const TLook& look) {
    TMutator mutator;
    for (int round = 0; round < ROUNDS; ++round) {
      const std::string bytes = round % 4 == 0 ? mutator.Noise() : mutator.Mutate(good);
      folder.Write(file, bytes);
      SCOPED_TRACE(round);
      look();
      if (HasFailure()) return;
    }
  }

  TTempFolder folder;
  TSettingsPlace place;
};

void expect_possible(const TPrefs& prefs) {
  EXPECT_TRUE(prefs.ASvI >= 1 && prefs.ASvI <= 99) << prefs.ASvI;
  EXPECT_TRUE(prefs.SVol >= 0 && prefs.SVol <= 200) << prefs.SVol;
  EXPECT_TRUE(prefs.MDly >= 0 && prefs.MDly <= 3'000'000) << prefs.MDly;
  EXPECT_TRUE(prefs.SpCI >= 100 && prefs.SpCI <= 10'000'000) << prefs.SpCI;
  for (const auto* size : {&prefs.DWFS, &prefs.MWFS, &prefs.RWFS}) {
    EXPECT_TRUE(*size >= 5 && *size <= 50) << *size;
  }
  for (const auto* family : {&prefs.DWFF, &prefs.MWFF, &prefs.RWFF}) {
    EXPECT_LE(family->size(), MAX_FONT_FAMILY);
    EXPECT_EQ(family->find('\0'), std::string::npos);
  }
  EXPECT_NE(prefs.DEnc, ENCODING_SEPARATOR);
  EXPECT_TRUE(prefs.DEnc >= 0 && prefs.DEnc <= ENCODING_JIS) << prefs.DEnc;
  EXPECT_TRUE(prefs.CmpM == 0 || prefs.CmpM == 2 || prefs.CmpM == 3) << prefs.CmpM;
}

TEST_F(HostileFiles, Prefs) {
  TPrefs good(&place);
  good.CoMO = {"One", "Two"};
  ASSERT_EQ(good.SaveToFile(), 0);
  int taken = 0;
  ForAnyBytes("ZokaBASIC/ZokaBASIC_Prefs.arc", folder.Read("ZokaBASIC/ZokaBASIC_Prefs.arc"), [&] {
    TPrefs prefs(&place);
    if (prefs.LoadFromFile() == 0) ++taken;
    expect_possible(prefs);
    ASSERT_EQ(prefs.SaveToFile(), 0);
    TPrefs again(&place);
    ASSERT_EQ(again.LoadFromFile(), 0);
    TMessage before;
    TMessage after;
    prefs.Archive(&before);
    again.Archive(&after);
    EXPECT_EQ(before.Flatten(), after.Flatten());
  });
  // Some changes hit values only: the test sees both ways.
  EXPECT_GT(taken, ROUNDS / 20);
  EXPECT_LT(taken, ROUNDS);
}

TEST_F(HostileFiles, ExitStates) {
  TExitStates good(&place);
  good.MWPF = "/lists";
  ASSERT_EQ(good.SaveToFile(), 0);
  int taken = 0;
  ForAnyBytes("ZokaBASIC/ZokaBASIC_ExitStates.arc",
              folder.Read("ZokaBASIC/ZokaBASIC_ExitStates.arc"), [&] {
                TExitStates states(&place);
                if (states.LoadFromFile() == 0) ++taken;
                for (const TFrame& frame : {states.DWFr, states.WFr, states.RWFr}) {
                  EXPECT_TRUE(std::isfinite(frame.left) && std::isfinite(frame.bottom));
                  EXPECT_LT(frame.left, frame.right);
                  EXPECT_LT(frame.top, frame.bottom);
                }
                EXPECT_EQ(states.SaveToFile(), 0);
              });
  EXPECT_GT(taken, ROUNDS / 20);
}

TEST_F(HostileFiles, History) {
  TMRUF good;
  for (const char* path : {"/c", "/b", "/a"}) good.AddMRUF(path);
  const std::string path = folder.Path("history");
  ASSERT_EQ(good.Save(path), 0);
  ForAnyBytes("history", folder.Read("history"), [&] {
    TMRUF history;
    history.Load(path);
    EXPECT_LE(history.CountMRUFs(), static_cast<int32_t>(MAX_STORED_MRUF));
    history.AddMRUF("/new");
    EXPECT_EQ(history.MRUFAt(0), "/new");
    EXPECT_LE(history.CountMRUFs(), DEFAULT_MAX_MRUF);
  });
}

TEST_F(HostileFiles, Items) {
  TInterAppPrefs good(&place);
  ASSERT_TRUE(good.SetString(ACC_KEY_FORMAT_ITEM, ""));
  ASSERT_TRUE(good.SetString(THEME_ITEM, THEME_DARK));
  const std::string theme = folder.Read("Shared/Theme.arc");
  const std::string format = folder.Read("Shared/AccKeyFormat2.arc");
  TMutator other;
  int dark = 0;
  ForAnyBytes("Shared/Theme.arc", theme, [&] {
    folder.Write("Shared/AccKeyFormat2.arc", other.Mutate(format));
    TInterAppPrefs prefs(&place);
    std::string value;
    ASSERT_TRUE(prefs.GetString(THEME_ITEM, &value));
    EXPECT_TRUE(value == FOLLOW_SYSTEM || value == THEME_LIGHT || value == THEME_DARK ||
                value == THEME_CONTRAST)
        << value;
    dark += value == THEME_DARK;
    const std::string found = prefs.AccKeyFormat();
    EXPECT_TRUE(found.empty() || found[0] == '\x01' || found[0] == '\x02');
    // The same bytes while it runs.
    EXPECT_TRUE(prefs.Reload().empty());
    EXPECT_TRUE(prefs.SetString(THEME_ITEM, THEME_LIGHT));
  });
  EXPECT_GT(dark, ROUNDS / 20);
  EXPECT_LT(dark, ROUNDS);
}

TEST_F(HostileFiles, MessagesOfThePort) {
  TInterAppPrefs prefs;
  TIAPBoard own;
  own.AddItems(prefs);
  std::string frames;
  for (const TIAPComponent& component : own.Components()) {
    frames += iap_frame(message_of_component(component));
    frames += iap_frame(component.Value(TIAPValue::Current));
  }
  TMutator mutator;
  int whole = 0;
  for (int round = 0; round < ROUNDS; ++round) {
    TIAPFrameReader reader;
    TIAPBoard board;
    board.AddItems(prefs);
    const std::string bytes = mutator.Mutate(frames);
    TMessage message;
    for (size_t at = 0; at < bytes.size(); at += 100) {
      reader.Add(bytes.substr(at, 100));
      while (reader.Next(&message)) {
        ++whole;
        TIAPComponent component;
        if (component_of_message(message, &component)) board.AddComponent(component);
        board.Change(message);
        prefs.SetValue(message);
      }
    }
    EXPECT_LE(board.Components().size(), MAX_IAP_COMPONENTS);
    for (const TIAPComponent& component : board.Components()) {
      EXPECT_LE(component.configuration.label.size(), MAX_IAP_LABEL);
      EXPECT_LE(component.configuration.choices.size(), MAX_IAP_CHOICES);
    }
  }
  EXPECT_GT(whole, ROUNDS);
}

TEST_F(HostileFiles, WhatIsNoFileIsNoRecord) {
  TPrefs prefs(&place);
  folder.MakeFolder("ZokaBASIC/ZokaBASIC_Prefs.arc");
  EXPECT_EQ(prefs.LoadFromFile(), -1);
  EXPECT_EQ(prefs.SaveToFile(), -1);
  folder.MakeLink("Shared/Theme.arc", "Theme.arc");
  std::string value;
  EXPECT_TRUE(TInterAppPrefs(&place).GetString(THEME_ITEM, &value));
  EXPECT_EQ(value, FOLLOW_SYSTEM);
  EXPECT_EQ(*place.damaged, 0);
}

}  // namespace
}  // namespace zoka
