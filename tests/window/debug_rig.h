// What the tests of the debug window share: the application with Use Debugger on, the ways to its
// lists by mouse and keys, and waits for where the program stands.
#pragma once

#include <QScrollBar>
#include <algorithm>

#include "app/settings/exit_states.h"
#include "app/settings/prefs.h"
#include "debugger/debugger.h"
#include "tests/window/window_rig.h"

namespace zoka {

class TDebugWindowRig : public TWindowRig {
 protected:
  TDebugWindowRig() {
    mEngine->Context().exitStates->UDbg.store(true);
    mEngine->Context().prefs->BrkS.store(false);
    Debug().Appear();
  }

  TDebugWindow& Debug() { return mApp->DebugWindow(); }
  TDebugView& DebugView() { return Debug().DebugView(); }
  TDebugModel& Model() { return DebugView().Model(); }
  TSrcCodeView& Source() { return DebugView().SrcCode(); }
  TCallStackView& Calls() { return DebugView().CallStack(); }
  TVarView& Vars() { return DebugView().Vars(); }
  TEditTxtView& Edit() { return mApp->MainWindow().View().Edit(); }
  TBreakMarks& Marks() { return Edit().BreakMarks(); }
  TDebugLink& Link() { return *mApp->MainWindow().View().DebugLink(); }

  bool IsAt(int32_t line) {
    return Model().RunMode() == TDebugRunMode::Breaked && Model().CurLine() == line;
  }
  /// The program stands at a line, and the windows show it.
  testing::AssertionResult StandsAt(int32_t line) {
    if (!Until([&] { return IsAt(line); })) {
      return testing::AssertionFailure()
             << "not at " << line << " but at " << Model().CurLine() << "\n"
             << Screen();
    }
    DebugView().Refresh();
    return testing::AssertionSuccess();
  }
  testing::AssertionResult Ended() {
    return Until([&] { return !Model().HasDebugger() && IsIdle() && Marks().StopLine() < 0; });
  }
  std::string LastCall() {
    DebugView().Refresh();
    return Calls().RowText(Calls().Rows() - 1).toStdString();
  }
  /// The list in the editor is run.
  void RunList() { mApp->MainWindow().Run(); }
  void RunList(const std::string& text) {
    Edit().Set(text);
    RunList();
  }
  /// With a breakpoint in the margin at an editor's line.
  void RunToStop(const std::string& text, int editorLine, int32_t line) {
    Edit().Set(text);
    Marks().Set(editorLine, {});
    RunList();
    ASSERT_TRUE(StandsAt(line));
  }

  static void Click(TRowView& view, int64_t row, int x, Qt::MouseButton button = Qt::LeftButton) {
    view.ScrollToTop(row);
    QTest::mouseClick(view.viewport(), button, {}, QPoint(x, view.RowRect(row).center().y()));
  }
  /// A key for a window that has the keyboard.
  void Key(QWidget& window, Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
    window.activateWindow();
    ASSERT_TRUE(Until([&] { return window.isActiveWindow(); }));
    QTest::keyClick(&window, key, held);
  }
  void DebugKey(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
    Key(Debug(), key, held);
  }
  void EditKey(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
    mApp->MainWindow().activateWindow();
    Edit().setFocus();
    Key(mApp->MainWindow(), key, held);
  }
  void Press(const char* name) {
    QWidget* const button = DebugView().Button(name);
    // They follow the program with the next frame.
    ASSERT_TRUE(Until([&] { return button->isEnabled(); })) << name;
    QTest::mouseClick(button, Qt::LeftButton);
  }
  void ClickMargin(int line, Qt::MouseButton button = Qt::LeftButton) {
    const long position =
        Edit().SendScintilla(QsciScintilla::SCI_POSITIONFROMLINE, static_cast<unsigned long>(line));
    const long y = Edit().SendScintilla(QsciScintilla::SCI_POINTYFROMPOSITION, 0UL, position);
    QTest::mouseClick(Edit().viewport(), button, {},
                      QPoint(Edit().marginWidth(0) + 4, static_cast<int>(y) + 4));
  }

  size_t Item(const std::string& name) {
    for (size_t i = 0; i < Model().VarCount(); ++i) {
      if (Model().VarRow(i).label == name + " : ") return i;
    }
    ADD_FAILURE() << name;
    return 0;
  }
  std::string Value(const std::string& name) { return Model().VarRow(Item(name)).value; }
  std::vector<int> MarkedLines() {
    std::vector<int> lines;
    for (const TBreakMarks::TMark& mark : Marks().All()) lines.push_back(mark.line);
    return lines;
  }
};

}  // namespace zoka
