// The tests' own reader of Standard MIDI Files, on files written here byte by byte.
#include "tests/run_lang/smf_listing.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zoka {
namespace {

using namespace std::string_literals;

std::string track(const std::string& events) {
  const std::string body = events + "\0\xFF\x2F\0"s;
  return "MTrk\0\0\0"s + static_cast<char>(body.size()) + body;
}

std::string file(const std::string& division, const std::string& tracks, char count = 1) {
  return "MThd\0\0\0\x06\0\x01\0"s + count + division + tracks;
}

TEST(SmfListing, EveryKindOfEvent) {
  const std::string events = "\0\x90\x3C\x64"s + "\0\x81\x3C\x40"s + "\0\xA2\x3C\x01"s +
                             "\0\xB3\x07\x7F"s + "\0\xC4\x05"s + "\0\xD5\x06"s + "\0\xE6\x01\x40"s +
                             "\0\xF0\x03\x7E\x09\xF7"s;
  EXPECT_EQ(list_midi(file("\0\x60"s, track(events))),
            "0 0 on 60 100\n"
            "0 1 off 60 64\n"
            "0 2 touch 60 1\n"
            "0 3 control 7 127\n"
            "0 4 program 5\n"
            "0 5 pressure 6\n"
            "0 6 bend 8193\n"
            "0 - sysex 7E 09 F7\n");
}

TEST(SmfListing, TimesFollowTheTempo) {
  // 96 ticks a quarter: one quarter at 120 a minute, then one at 60 a minute.
  const std::string events = "\x60\xFF\x51\x03\x0F\x42\x40"s + "\x60\x90\x3C\x64"s;
  EXPECT_EQ(list_midi(file("\0\x60"s, track(events))), "1500000 0 on 60 100\n");
}

TEST(SmfListing, RunningStatusAndLongDeltas) {
  // 0x81 0x40 are 192 ticks, two quarters.
  const std::string events = "\x81\x40\x90\x3C\x64"s + "\0\x3E\x65"s;
  EXPECT_EQ(list_midi(file("\0\x60"s, track(events))),
            "1000000 0 on 60 100\n1000000 0 on 62 101\n");
}

TEST(SmfListing, FrameDivisionCountsRealTime) {
  // 25 frames of 40 ticks a second: a tick is a millisecond, whatever the tempo.
  const std::string events = "\0\xFF\x51\x03\x0F\x42\x40"s + "\x07\x90\x3C\x64"s;
  EXPECT_EQ(list_midi(file("\xE7\x28"s, track(events))), "7000 0 on 60 100\n");
}

TEST(SmfListing, TracksAreMergedByTime) {
  const std::string tracks = track("\x60\x90\x3C\x64"s) + track("\x30\x91\x3C\x64"s);
  EXPECT_EQ(list_midi(file("\0\x60"s, tracks, 2)), "250000 1 on 60 100\n500000 0 on 60 100\n");
}

TEST(SmfListing, BadFilesAreRefused) {
  EXPECT_THROW(list_midi(""), std::runtime_error);
  EXPECT_THROW(list_midi("RIFF"), std::runtime_error);
  EXPECT_THROW(list_midi(file("\0\0"s, track(""))), std::runtime_error);
  EXPECT_THROW(list_midi(file("\0\x60"s, track("\0\x3C\x64"s))), std::runtime_error);
  EXPECT_THROW(list_midi(file("\0\x60"s, track("") + "x")), std::runtime_error);
  const std::string whole = file("\0\x60"s, track("\0\x90\x3C\x64"s));
  EXPECT_THROW(list_midi(whole.substr(0, whole.size() - 1)), std::runtime_error);
}

}  // namespace
}  // namespace zoka
