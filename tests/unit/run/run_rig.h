// What tests of the run view need around it: an engine on a clock of their choice, and a host that
// keeps what it is told.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "app/settings/exit_states.h"
#include "app/settings/prefs.h"
#include "common/context.h"
#include "run/run_view.h"

namespace zoka {

/// A host that shows nothing; its records are read when no machine runs.
class TRunLog final : public TRunHost, public TAlertHost {
 public:
  void TranscriptRow(std::string_view row) override { rows.emplace_back(row); }
  void CapturePointer(bool capture) override { captures.push_back(capture); }
  void SetTitle(const std::string& title) override { titles.push_back(title); }
  void DriveChanged(int32_t index, const std::string& path, const std::string& name) override {
    drives.push_back(std::to_string(index) + "|" + path + "|" + name);
  }
  void RunEnded(int64_t runNumber, int32_t exitStatus, const TMessage* request) override {
    ended.push_back(runNumber);
    endStatus = exitStatus;
    hasRequest = request != nullptr;
    if (request != nullptr) lastRequest = *request;
  }
  int64_t FreeMemoryKBytes() const override { return 12345; }
  int ShowAlert(const TAlert& alert, TThread*) override {
    alerts.push_back(alert.text);
    return 0;
  }

  std::vector<std::string> rows, titles, drives, alerts;
  std::vector<bool> captures;
  std::vector<int64_t> ended;
  int32_t endStatus = -1;
  bool hasRequest = false;
  TMessage lastRequest;
};

/// An engine with a run view, by default on a simulated clock.
class TRunRig {
 public:
  explicit TRunRig(std::unique_ptr<TClock> clockToUse = make_simulated_clock())
      : clock(std::move(clockToUse)), catalogue(TLanguage::Keys) {
    context.clock = clock.get();
    context.catalogue = &catalogue;
    context.prefs = &prefs;
    context.exitStates = &exitStates;
    context.alertHost = &host;
    view = std::make_unique<TRunView>(context, host);
  }

  /// Compiles and starts a program.
  void Start(const char* program, const TMessage& start = TMessage("run")) {
    view->QuitBasic();
    view->ClearBasic();
    ASSERT_EQ(view->CompileBasic(program), TCompileResult::Runnable);
    view->ReadyBasic();
    view->RunBasic(start);
  }
  /// Runs a program to its end; its status.
  int32_t Run(const char* program, const TMessage& start = TMessage("run")) {
    Start(program, start);
    return view->WaitForEnd();
  }
  /// The rows of the screen up to the last that holds something.
  std::vector<std::string> Screen() const {
    std::vector<std::string> rows;
    for (int32_t row = 0; row < view->Rsrc().TxtRows(); ++row) {
      rows.push_back(view->Rsrc().RowText(row));
    }
    while (!rows.empty() && rows.back().empty()) rows.pop_back();
    return rows;
  }

  std::unique_ptr<TClock> clock;
  TCatalogue catalogue;
  TPrefs prefs;
  TExitStates exitStates;
  TRunLog host;
  TEngineContext context;
  std::unique_ptr<TRunView> view;
};

}  // namespace zoka
