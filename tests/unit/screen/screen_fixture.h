// What the tests of the simulated screen share: a screen on a simulated clock, and an owner that
// writes down what it is asked.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "common/clock.h"
#include "run/screen/basic_rsrc.h"

namespace zoka {

class TRecordingOwner : public TScreenOwner {
 public:
  void UpdateScreenRqtd() override { ++updates; }
  int32_t SetOnTimeDl(const char* hhmmss) override {
    alarm = hhmmss;
    return 0;
  }
  void SetFDDAccessLamp(int32_t driveIdx, int32_t change) override {
    lamps.emplace_back(driveIdx, change);
  }
  void TranscriptRow(const std::string& row) override { rows.push_back(row); }
  void KeyWaitBegins(bigtime_t deadline) override {
    keyWaits.push_back(deadline);
    if (onKeyWait) onKeyWait();
  }
  void KeyBufHasRoom() override { ++rooms; }

  int updates = 0;
  int rooms = 0;
  std::string alarm;
  std::vector<std::pair<int32_t, int32_t>> lamps;
  std::vector<std::string> rows;
  std::vector<bigtime_t> keyWaits;
  std::function<void()> onKeyWait;
};

class TScreenTest : public ::testing::Test {
 protected:
  TScreenTest() : clock(make_simulated_clock()), rsrc(*clock) {
    // The test plays the machine's thread: without it the simulated time stands still.
    clock->EnterThread(clock->PrepareThread(TActorClass::Machine));
    rsrc.SetOwner(&owner);
    rsrc.TakeModifiedRect();
  }
  ~TScreenTest() override { clock->LeaveThread(); }

  /// The screen's rows up to the last that holds something, each without trailing blanks.
  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (int32_t i = 0; i < rsrc.TxtRows(); ++i) rows.push_back(rsrc.RowText(i));
    while (!rows.empty() && rows.back().empty()) rows.pop_back();
    return rows;
  }
  std::string CellText(int32_t cell) const { return rsrc.Cell(cell).text; }
  void PrintLine(const std::string& text) {
    rsrc.Print(text);
    rsrc.DoCRLF();
  }

  std::unique_ptr<TClock> clock;
  TRecordingOwner owner;
  TBasicRsrc rsrc;
};

}  // namespace zoka
