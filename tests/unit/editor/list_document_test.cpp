// The document without a window: its states, files, and the way into a run.
#include "editor/list_document.h"

#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"
#include "tests/unit/run/run_rig.h"

namespace zoka {
namespace {

using S = TDocumentState;
using E = TDocumentEvent;
using TRows = std::vector<std::string>;

struct TStateRow {
  E event;
  S from[5];  // what becomes of Idle, Loading, Compiling, Running, Ending
};

TEST(DocumentState, Table) {
  constexpr S ALL[5] = {S::Idle, S::Loading, S::Compiling, S::Running, S::Ending};
  const TStateRow rows[] = {
      {E::Run, {S::Compiling, S::Compiling, S::Compiling, S::Compiling, S::Compiling}},
      {E::Load, {S::Loading, S::Loading, S::Loading, S::Running, S::Ending}},
      {E::Loaded, {S::Idle, S::Idle, S::Compiling, S::Running, S::Ending}},
      {E::LoadFailed, {S::Idle, S::Idle, S::Compiling, S::Running, S::Ending}},
      {E::Compiled, {S::Idle, S::Loading, S::Running, S::Running, S::Ending}},
      {E::CompileFailed, {S::Idle, S::Loading, S::Idle, S::Running, S::Ending}},
      {E::Kill, {S::Idle, S::Loading, S::Ending, S::Ending, S::Ending}},
      {E::Ended, {S::Idle, S::Loading, S::Compiling, S::Idle, S::Idle}},
  };
  for (const TStateRow& row : rows) {
    for (int i = 0; i < 5; ++i) {
      EXPECT_EQ(next_document_state(ALL[i], row.event), row.from[i])
          << "state " << i << " event " << static_cast<int>(row.event);
    }
  }
}

TEST(RunStart, LineLabelOrNothing) {
  auto startOf = [](std::string_view text) {
    TMessage message("run");
    add_run_start(text, &message);
    int32_t line = 0;
    if (message.FindInt32("LineNum", &line)) return "line " + std::to_string(line);
    std::string label;
    return message.FindString("Label", &label) ? "label " + label : std::string("none");
  };
  EXPECT_EQ(startOf(""), "none");
  EXPECT_EQ(startOf("100"), "line 100");
  EXPECT_EQ(startOf("0"), "line 0");
  EXPECT_EQ(startOf("12abc"), "line 12");
  EXPECT_EQ(startOf("99999999999"), "line 2147483647");
  EXPECT_EQ(startOf("*loop"), "label LOOP");
  EXPECT_EQ(startOf("*"), "label ");
  EXPECT_EQ(startOf("loop"), "label LOOP");
  EXPECT_EQ(startOf("*あa"), "label あA");
  EXPECT_EQ(startOf("-5"), "label -5");
}

/// Answers as the test says, and writes down what it is told.
class TAskedHost final : public TDocumentHost {
 public:
  TSaveAnswer AskSave(const std::string& fileName) override {
    asked.push_back(fileName);
    return answer;
  }
  void SetStatBarStr(const std::string& text) override { status.push_back(text); }
  void SetWinTitle() override { ++titles; }
  void AddHistory(const std::string& path) override { history.push_back(path); }
  void ShowRun() override { ++shown; }

  TSaveAnswer answer = TSaveAnswer::No;
  TRows asked, status, history;
  int titles = 0;
  int shown = 0;
};

class ListDocument : public ::testing::Test {
 protected:
  ListDocument() : document(rig.context, *rig.view, text, host) {}

  /// Runs to the end; the outcome.
  TRunOutcome Run(const TMessage& request = TMessage("run")) {
    TRunOutcome outcome = document.RunBasic(request);
    if (outcome == TRunOutcome::Started) rig.view->WaitForEnd();
    return outcome;
  }
  TMessage RequestOf(const std::string& path, bool merge = false) const {
    TMessage request("vmrr");
    request.AddString("FileName", path);
    request.AddBool("Merge", merge);
    return request;
  }

  TTempFolder folder;
  TRunRig rig;
  TStringText text;
  TAskedHost host;
  TListDocument document;
};

TEST_F(ListDocument, IsNewAtFirst) {
  EXPECT_EQ(document.CurPath(), "");
  EXPECT_EQ(document.CurERefName(), "(New List)");
  EXPECT_EQ(document.State(), S::Idle);
  EXPECT_FALSE(document.IsModified());
}

TEST_F(ListDocument, OpensAFile) {
  folder.Write("a.bas", "10 PRINT 1\n");
  document.SetModified(true);
  EXPECT_TRUE(document.OpenList(folder.Path("a.bas"), 0));
  EXPECT_EQ(text.Get(), "10 PRINT 1\n");
  EXPECT_EQ(document.CurERefName(), "a.bas");
  EXPECT_FALSE(document.IsModified());
  EXPECT_EQ(rig.view->DriveFolder(0), folder.Path());
  EXPECT_EQ(host.history, TRows{folder.Path("a.bas")});
  EXPECT_EQ(host.titles, 1);
  EXPECT_EQ(host.status, (TRows{"Opening…", ""}));
}

TEST_F(ListDocument, AFileThatCannotBeLoadedChangesNothing) {
  folder.Write("a.bas", "10 PRINT 1\n");
  document.OpenList(folder.Path("a.bas"), 0);
  document.SetModified(true);
  EXPECT_FALSE(document.OpenList(folder.Path("none"), 0));
  EXPECT_FALSE(document.OpenList(folder.Path(), 0));
  EXPECT_EQ(text.Get(), "10 PRINT 1\n");
  EXPECT_EQ(document.CurERefName(), "a.bas");
  EXPECT_TRUE(document.IsModified());
  EXPECT_EQ(document.State(), S::Idle);
  EXPECT_EQ(rig.host.alerts.size(), 2u);
}

TEST_F(ListDocument, OpensBytesWithoutAFile) {
  EXPECT_TRUE(document.OpenBytes("10 PRINT \"\x93\xFA\"\n", 3, "-"));  // Shift-JIS
  EXPECT_EQ(text.Get(), "10 PRINT \"日\"\n");
  EXPECT_EQ(document.CurPath(), "");
  EXPECT_EQ(rig.view->DriveFolder(0), "");
}

TEST_F(ListDocument, InsertsAndMerges) {
  folder.Write("a.bas", "20 B\n");
  text.Set("10 A\n");
  EXPECT_TRUE(document.MergeList(folder.Path("a.bas"), 0));
  EXPECT_EQ(text.Get(), "10 A\n20 B\n");
  EXPECT_TRUE(document.IsModified());
  EXPECT_TRUE(document.AddList(folder.Path("a.bas"), 0));
  EXPECT_EQ(text.Get(), "20 B\n10 A\n20 B\n");
  EXPECT_EQ(document.CurPath(), "");
  EXPECT_FALSE(document.MergeList(folder.Path("none"), 0));
  EXPECT_EQ(host.status, (TRows{"Merging…", "", "Inserting…", "", "Merging…", ""}));
}

TEST_F(ListDocument, Saves) {
  text.Set("10 A\n");
  document.SetModified(true);
  EXPECT_TRUE(document.SaveList(folder.Path("auto"), true));
  EXPECT_TRUE(document.IsModified());
  EXPECT_TRUE(document.SaveList(folder.Path("b.bas"), false));
  EXPECT_FALSE(document.IsModified());
  EXPECT_EQ(folder.Read("b.bas"), "10 A\n");
  document.SetModified(true);
  EXPECT_FALSE(document.SaveList(folder.Path("no/such"), false));
  EXPECT_TRUE(document.IsModified());
}

TEST_F(ListDocument, Runs) {
  text.Set("10 PRINT \"A\"\n");
  EXPECT_EQ(Run(), TRunOutcome::Started);
  EXPECT_EQ(rig.Screen(), (TRows{"A", "Ok"}));
  EXPECT_EQ(host.shown, 1);
  EXPECT_EQ(document.State(), S::Running);
  EXPECT_EQ(host.status, (TRows{"Compiling…", ""}));
}

TEST_F(ListDocument, RunsWithoutComingToTheFront) {
  text.Set("10 PRINT \"A\"\n");
  TMessage request("vmrr");
  request.AddBool("NotFore", true);
  EXPECT_EQ(Run(request), TRunOutcome::Started);
  EXPECT_EQ(host.shown, 0);
}

TEST_F(ListDocument, NumbersAListWithoutNumbers) {
  text.Set("PRINT \"A\"\nPRINT \"B\"\n");
  EXPECT_EQ(Run(), TRunOutcome::Started);
  EXPECT_EQ(rig.Screen(), (TRows{"A", "B", "Ok"}));
  EXPECT_EQ(text.Get(), "PRINT \"A\"\nPRINT \"B\"\n");
  EXPECT_TRUE(document.FormattedSource().IsNumberedHere());
}

TEST_F(ListDocument, WhatDoesNotRun) {
  EXPECT_EQ(Run(), TRunOutcome::NothingToRun);
  EXPECT_TRUE(rig.host.alerts.empty());
  text.Set("10 NEXT\n");
  EXPECT_EQ(Run(), TRunOutcome::CompileFailed);
  EXPECT_EQ(rig.host.alerts.size(), 1u);
  EXPECT_EQ(document.State(), S::Idle);
  EXPECT_EQ(host.shown, 0);
  EXPECT_EQ(rig.Screen(), TRows{});
}

TEST_F(ListDocument, ARunEndsTheOneBefore) {
  text.Set("10 GOTO 10\n");
  EXPECT_EQ(document.RunBasic(TMessage("run")), TRunOutcome::Started);
  text.Set("10 PRINT \"B\"\n");
  EXPECT_EQ(Run(), TRunOutcome::Started);
  TRows rows = rig.Screen();
  // The stop may have come before the first line.
  EXPECT_EQ(rows[0].substr(0, 24), "@Runtime_Err_Stop_Break@");
  rows.erase(rows.begin());
  EXPECT_EQ(rows, (TRows{"Ok", "B", "Ok"}));
}

TEST_F(ListDocument, AProgramAsksForAnother) {
  folder.Write("B", "10 PRINT \"B\"\n");
  text.Set("10 PRINT \"A\"\n");
  Run();
  EXPECT_EQ(document.VMachineRunRqtd(RequestOf(folder.Path("B"))), TRunOutcome::Started);
  rig.view->WaitForEnd();
  EXPECT_EQ(rig.Screen(), (TRows{"A", "Ok", "B", "Ok"}));
  EXPECT_EQ(document.CurERefName(), "B");
  EXPECT_TRUE(host.asked.empty());
}

TEST_F(ListDocument, AProgramAsksForAMerge) {
  folder.Write("B", "20 PRINT \"B\"\n");
  text.Set("10 PRINT \"A\"\n");
  EXPECT_EQ(Run(RequestOf(folder.Path("B"), true)), TRunOutcome::Started);
  EXPECT_EQ(rig.Screen(), (TRows{"A", "B", "Ok"}));
  EXPECT_EQ(text.Get(), "10 PRINT \"A\"\n20 PRINT \"B\"\n");
  EXPECT_TRUE(document.IsModified());
}

TEST_F(ListDocument, AModifiedListIsAskedFor) {
  folder.Write("B", "10 PRINT \"B\"\n");
  text.Set("10 PRINT \"A\"\n");
  document.SetModified(true);
  host.answer = TSaveAnswer::Cancel;
  EXPECT_EQ(Run(RequestOf(folder.Path("B"))), TRunOutcome::LoadFailed);
  EXPECT_EQ(text.Get(), "10 PRINT \"A\"\n");
  host.answer = TSaveAnswer::No;
  EXPECT_EQ(Run(RequestOf(folder.Path("B"))), TRunOutcome::Started);
  EXPECT_EQ(host.asked, (TRows{"(New List)", "(New List)"}));
}

TEST_F(ListDocument, ARequestForAMissingFile) {
  text.Set("10 PRINT \"A\"\n");
  EXPECT_EQ(Run(RequestOf(folder.Path("none"))), TRunOutcome::LoadFailed);
  EXPECT_EQ(rig.host.alerts.size(), 1u);
  EXPECT_EQ(text.Get(), "10 PRINT \"A\"\n");
}

TEST_F(ListDocument, KillEndsARun) {
  text.Set("10 GOTO 10\n");
  document.RunBasic(TMessage("run"));
  document.Kill();
  EXPECT_EQ(document.State(), S::Idle);
  EXPECT_EQ(rig.view->VMachine(), nullptr);
  EXPECT_TRUE(rig.context.privacy.killed.load());
  text.Set("10 PRINT \"A\"\n");
  EXPECT_EQ(Run(), TRunOutcome::Started);
  EXPECT_FALSE(rig.context.privacy.killed.load());
}

TEST_F(ListDocument, AnAutoBackupHasAName) {
  document.SetCurERef(folder.Path("x.bas"));
  EXPECT_EQ(document.CurERefName(), "x.bas");
  document.SetCurERef("");
  EXPECT_EQ(document.CurERefName(), "(New List)");
  EXPECT_EQ(host.history, TRows{folder.Path("x.bas")});
}

}  // namespace
}  // namespace zoka
