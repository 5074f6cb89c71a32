// Keys in labels.
#include "common/label.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

TEST(Label, KeyBehind) {
  const char* format = "\x02(a)";
  EXPECT_EQ(merge_accelerator_key(format, "O", "Open..."), "Open(O)...");
  EXPECT_EQ(merge_accelerator_key(format, "1", "Size: "), "Size(1): ");
  EXPECT_EQ(merge_accelerator_key(format, "L", "MIDI Latency [ms]: "), "MIDI Latency (L)[ms]: ");
  EXPECT_EQ(merge_accelerator_key(format, "M", "メイン：1:"), "メイン(M)：1:");
  EXPECT_EQ(merge_accelerator_key(format, "F", "File"), "File(F)");
  EXPECT_EQ(merge_accelerator_key(format, "F1", "Help"), "Help(F1)");
  EXPECT_EQ(merge_accelerator_key(format, "X", ""), "(X)");
}

TEST(Label, KeyInFront) {
  EXPECT_EQ(merge_accelerator_key("\x01"
                                  "a) ",
                                  "Y", "Yes"),
            "Y) Yes");
  EXPECT_EQ(merge_accelerator_key("\x01"
                                  "a・",
                                  "Y", "Yes..."),
            "Y・Yes...");
  EXPECT_EQ(merge_accelerator_key("\x01"
                                  "a - ",
                                  "a", "Yes"),
            "a - Yes");
}

TEST(Label, NoKey) {
  EXPECT_EQ(merge_accelerator_key("", "O", "Open..."), "Open...");
  EXPECT_EQ(merge_accelerator_key("\x02(a)", "", "Open..."), "Open...");
  EXPECT_EQ(merge_accelerator_key("\x03(a)", "O", "Open..."), "Open...");
  EXPECT_EQ(merge_accelerator_key("\x02", "O", "Open..."), "Open...");
}

TEST(Label, ShortCuts) {
  EXPECT_EQ(short_cut_from_label("Yes(Y)"), 'y');
  EXPECT_EQ(short_cut_from_label("Y・Yes"), 'y');
  EXPECT_EQ(short_cut_from_label("Open(O)..."), 'o');
  EXPECT_EQ(short_cut_from_label("了解(U)"), 'u');
  EXPECT_EQ(short_cut_from_label("Size(1): "), '1');
  for (const char* label : {"", "Yes", "Y) Yes", "Y - Yes", "Help(F1)", "Run (with Line Number)",
                            "(Y)", "Yes(", "Yes(Y", "Yes()", "・Yes", "了・解"}) {
    EXPECT_EQ(short_cut_from_label(label), '\0') << label;
  }
}

}  // namespace
}  // namespace zoka
