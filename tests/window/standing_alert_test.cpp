// What goes on while an alert stands: the messages of the window that stands in it wait, and only
// those; the line of a fault can be seen; nothing ends under an alert's feet.
#include <algorithm>

#include "tests/window/start_rig.h"

namespace zoka {
namespace {

/// Numbers in the order in which they come.
class TLog {
 public:
  TMessageQueue& Queue() { return mQueue; }
  void Post(int32_t number) {
    TMessage message("test");
    message.AddInt32("n", number);
    mQueue.PostMessage(message);
  }
  std::string Text() const { return mText; }
  std::function<void(int32_t)> handle;

 private:
  std::string mText;
  TMessageQueue mQueue{[this](const TMessage& message) {
    int32_t number = 0;
    message.FindInt32("n", &number);
    mText += "<" + std::to_string(number);
    if (handle) handle(number);
    mText += ">";
  }};
};

TEST(StandingQueue, TheNextMessageWaitsForTheOneThatStands) {
  TLog log, other;
  bool wasStanding = false;
  log.handle = [&](int32_t number) {
    if (number != 1) return;
    wasStanding = log.Queue().IsStanding();
    log.Post(3);
    other.Post(1);
    QApplication::processEvents();
    EXPECT_EQ(other.Text(), "<1>");
  };
  log.Post(1);
  log.Post(2);
  QApplication::processEvents();
  EXPECT_EQ(log.Text(), "<1><2><3>");
  EXPECT_TRUE(wasStanding);
  EXPECT_FALSE(log.Queue().IsStanding());
}

TEST(StandingQueue, AHeldOneGoesOnWhenItIsReleased) {
  TLog log;
  {
    const THeldQueue held(log.Queue());
    const THeldQueue onceMore(log.Queue());
    log.Post(1);
    QApplication::processEvents();
    EXPECT_EQ(log.Text(), "");
    EXPECT_TRUE(log.Queue().IsStanding());
  }
  EXPECT_FALSE(log.Queue().IsStanding());
  QApplication::processEvents();
  EXPECT_EQ(log.Text(), "<1>");
}

class TStandingAlert : public TStartRig {
 protected:
  /// A text that nobody has saved.
  void StartModified() {
    Start();
    QTest::keyClicks(&Edit(), "1");
    ASSERT_TRUE(Document().IsModified());
  }
  /// The status line for a fault that the alert tells.
  std::string ToldInOneLine() {
    std::string text = Alert()->text().toStdString();
    text.resize(text.find("\n\n* Zoka-BASIC *"));
    std::replace(text.begin(), text.end(), '\n', ' ');
    return " " + text;
  }
  int CursorLine() {
    int line = -1, column = -1;
    Edit().getCursorPosition(&line, &column);
    return line;
  }
  /// The program that runs now has ended, and wishes that the list be run.
  void WishForARun() {
    TMessage wish("vmrr");
    wish.AddBool("NotFore", true);
    TRunWindow& window = mApp->RunWindow();
    window.Host().RunEnded(window.RunView()->RunNumber(), 0, &wish);
  }
  /// Longer than a program's wish is put off.
  void LetTheWishComeUp() {
    bool over = false;
    QTimer::singleShot(100, &mAnswers, [&] { over = true; });
    ASSERT_TRUE(Until([&] { return over; }));
  }
};

TEST_F(TStandingAlert, MessagesOfTheMainWindowComeBehindItsAlertInTheirOrder) {
  StartModified();
  // Whichever window is active.
  mApp->RunWindow().Appear();
  ASSERT_TRUE(Until([this] { return mApp->RunWindow().isActiveWindow(); }));
  AnswerNext(Qt::Key_N, [this] {
    for (const char* code : {"SALL", "CCUT"}) Window().PostMessage(TMessage(code));
    TMessage list("_RRC");
    mFolder.Write("a.bas", "10 END\n");
    list.AddRef("refs", TPathRef{mFolder.Path("a.bas")});
    Window().PostMessage(list);
    QApplication::processEvents();
    EXPECT_EQ(Edit().Get(), "1");
  });
  Window().PostMessage(TMessage("_new"));
  ASSERT_TRUE(Until([this] { return !Document().CurPath().empty(); }));
  // Had they come in another order there would be a question, or no list.
  EXPECT_EQ(Edit().Get(), "10 END\n");
  EXPECT_EQ(mAsked, "Save the changes to \"(New List)\"?\n\n* Zoka-BASIC *");
}

TEST_F(TStandingAlert, OtherWindowsGoOn) {
  StartModified();
  const QString before = Window().menuBar()->actions()[0]->text();
  const auto debug_title = [this] { return mApp->DebugWindow().windowTitle(); };
  AnswerNext(Qt::Key_Escape, [&] {
    mApp->SetLanguage(TLanguage::Japanese);
    EXPECT_TRUE(Until([&] { return debug_title() == "Zoka-BASIC (デバッグウィンドウ)"; }));
    EXPECT_EQ(Window().menuBar()->actions()[0]->text(), before);
  });
  Window().PostMessage(TMessage("_new"));
  EXPECT_TRUE(Until([this] { return Window().menuBar()->actions()[0]->text() == "ファイル(&F)"; }));
  EXPECT_NE(mAsked, "");
}

TEST_F(TStandingAlert, TheQuestionAtTheEndHoldsTheMainWindow) {
  StartModified();
  AnswerNext(Qt::Key_Escape, [this] {
    Window().PostMessage(TMessage("SALL"));
    Window().PostMessage(TMessage("CCUT"));
    QApplication::processEvents();
    EXPECT_EQ(Edit().Get(), "1");
  });
  EXPECT_FALSE(mApp->QuitRequested());
  EXPECT_TRUE(Until([this] { return Edit().Get().empty(); }));
}

TEST_F(TStandingAlert, OneInsideAnotherLeavesTheOuterWindowStanding) {
  StartModified();
  AnswerNext(Qt::Key_Escape, [this] {
    QMessageBox* const outer = Alert();
    bool inner = false;
    // The application's own question.
    AnswerNext(Qt::Key_Escape, [&] {
      inner = Alert() != outer;
      Window().PostMessage(TMessage("SALL"));
      Window().PostMessage(TMessage("CCUT"));
    });
    mApp->PostMessage(TMessage("rmim"));
    EXPECT_TRUE(Until([&] { return inner && Alert() == outer; }));
    EXPECT_EQ(mAsked.substr(0, 8), "Register");
    QApplication::processEvents();
    EXPECT_EQ(Edit().Get(), "1");
    mAnswered = outer;
  });
  Window().PostMessage(TMessage("_new"));
  EXPECT_TRUE(Until([this] { return Edit().Get().empty(); }));
  EXPECT_EQ(Alert(), nullptr);
}

TEST_F(TStandingAlert, AnEndThatIsAskedForDuringOneComesBehindIt) {
  StartModified();
  AnswerNext(Qt::Key_Escape, [this] {
    const QMessageBox* const outer = Alert();
    Window().close();
    mApp->PostMessage(TMessage("_QRQ"));
    QApplication::processEvents();
    EXPECT_EQ(Alert(), outer) << "no question upon the question";
    // It was asked for twice, and so it is asked about twice.
    AnswerNext(Qt::Key_Escape, [this] { AnswerNext(Qt::Key_N); });
  });
  Window().PostMessage(TMessage("_new"));
  EXPECT_TRUE(Until([this] { return mEngine->Context().privacy.quitting.load(); }));
}

TEST_F(TStandingAlert, AProgramsWishForAnotherRunWaits) {
  StartModified();
  Edit().Set("10 CLS:PRINT \"ran\"\n");
  const TRunView& view = *mApp->RunWindow().RunView();
  const int64_t before = view.RunNumber();
  AnswerNext(Qt::Key_Escape, [&] {
    WishForARun();
    LetTheWishComeUp();
    EXPECT_EQ(view.RunNumber(), before);
  });
  Window().PostMessage(TMessage("_new"));
  EXPECT_TRUE(Until([&] {
    return view.RunNumber() == before + 1 && Document().State() == TDocumentState::Idle;
  }));
}

TEST_F(TStandingAlert, AKillMeanwhileTakesTheWishBack) {
  StartModified();
  Edit().Set("10 CLS:PRINT \"ran\"\n");
  const TRunView& view = *mApp->RunWindow().RunView();
  const int64_t before = view.RunNumber();
  AnswerNext(Qt::Key_Escape, [&] {
    WishForARun();
    LetTheWishComeUp();
    Window().Kill();
  });
  Window().PostMessage(TMessage("_new"));
  // Comes behind the wish.
  Window().PostMessage(TMessage("SALL"));
  EXPECT_TRUE(Until([this] { return Edit().hasSelectedText(); }));
  EXPECT_EQ(Document().State(), TDocumentState::Idle);
  EXPECT_EQ(view.RunNumber(), before);
}

TEST_F(TStandingAlert, TheLineOfACompileFaultIsShownBehindIt) {
  Start();
  Edit().Set("10 CLS\n20 PRINT 1.\n30 END\n");
  Post("run");
  ASSERT_TRUE(Until([this] { return Alert() != nullptr && Edit().FaultLine() == 1; }));
  EXPECT_EQ(CursorLine(), 1);
  EXPECT_EQ(Status(), ToldInOneLine());
  Alert()->reject();
  EXPECT_EQ(Edit().FaultLine(), 1);
}

TEST_F(TStandingAlert, TheLineOfARunTimeFaultIsShownBehindIt) {
  Start();
  Edit().Set("10 CLS\n20 A=0\n30 PRINT 1/A\n");
  Post("run");
  ASSERT_TRUE(Until([this] { return Alert() != nullptr; }));
  EXPECT_EQ(Document().State(), TDocumentState::Running) << "it waits for the answer";
  EXPECT_EQ(Edit().FaultLine(), 2);
  EXPECT_EQ(CursorLine(), 2);
  const std::string told = ToldInOneLine();
  EXPECT_EQ(told, " Runtime Error  Division by zero.  Line: 30 ");
  EXPECT_EQ(Status(), told);
  Alert()->reject();
  ASSERT_TRUE(Until([this] { return Document().State() == TDocumentState::Idle; }));
  EXPECT_EQ(Edit().FaultLine(), 2);
  EXPECT_EQ(Status(), told);
}

TEST_F(TStandingAlert, TheLineOfAFaultIsFoundWhereItHasGone) {
  Start();
  Edit().Set("10 A$=INPUT$(1)\n20 PRINT 1/0\n");
  Post("run");
  ASSERT_TRUE(Until([this] { return Document().State() == TDocumentState::Running; }));
  Edit().insertAt("5 '\n6 '\n", 0, 0);
  mApp->RunWindow().RunView()->KeyDown("x");
  ASSERT_TRUE(Until([this] { return Alert() != nullptr; }));
  EXPECT_EQ(Edit().FaultLine(), 3);
  Alert()->reject();
  ASSERT_TRUE(Until([this] { return Document().State() == TDocumentState::Idle; }));
  EXPECT_EQ(Edit().FaultLine(), 3);
}

TEST_F(TStandingAlert, AnotherListHasNoPartInTheFault) {
  Start();
  Edit().Set("10 A$=INPUT$(1)\n20 PRINT 1/0\n");
  Post("run");
  ASSERT_TRUE(Until([this] { return Document().State() == TDocumentState::Running; }));
  Document().OpenCopy("10 REM\n20 REM\n");
  mApp->RunWindow().RunView()->KeyDown("x");
  ASSERT_TRUE(Until([this] { return Alert() != nullptr; }));
  EXPECT_EQ(Status(), " Runtime Error  Division by zero.  Line: 20 ");
  EXPECT_EQ(Edit().FaultLine(), -1);
}

TEST_F(TStandingAlert, OneThatGoesWithItsWindowIsForgotten) {
  Start();
  Edit().Set("10 PRINT 1.\n");
  Post("run");
  ASSERT_TRUE(Until([this] { return Alert() != nullptr; }));
  mApp.reset();
  EXPECT_EQ(Alert(), nullptr);
}

}  // namespace
}  // namespace zoka
