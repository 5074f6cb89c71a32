// The document's messages without a window: questions, chains, dialogs' answers, programs' wishes.
#include "editor/list_requests.h"

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>

#include "app/settings/prefs.h"
#include "tests/support/temp_folder.h"
#include "tests/unit/run/run_rig.h"

namespace zoka {
namespace {

using TRows = std::vector<std::string>;

/// Presses the buttons that the test says, and keeps what was asked.
class TAnswers final : public TAlertHost {
 public:
  int ShowAlert(const TAlert& alert, TThread*) override {
    asked.push_back(alert.text);
    buttons.push_back(alert.buttons);
    escapeIndex = alert.escapeIndex;
    return answer;
  }

  int answer = 0;
  int escapeIndex = -2;
  TRows asked;
  std::vector<TRows> buttons;
};

/// A handler that keeps what it gets.
class TMailbox final : public THandler {
 public:
  void PostMessage(const TMessage& message) override { messages.push_back(message); }
  std::deque<TMessage> messages;
};

class TRequestLog final : public TListRequestHost, public TDocumentHost {
 public:
  THandlerId WindowId() const override { return windowId; }
  void PostToWindow(const TMessage& message) override { window.PostMessage(message); }
  void GoToOffset(size_t offset) override { offsets.push_back(offset); }
  void SaveFailed(const std::string& path) override { failedSaves.push_back(path); }
  void Saved() override { ++saves; }
  void SampleOpened() override { ++samples; }
  void SetWinTitle() override { ++titles; }
  void AddHistory(const std::string& path) override { history.push_back(path); }

  THandlerId windowId;
  TMailbox window;
  std::vector<size_t> offsets;
  TRows failedSaves, history;
  int titles = 0;
  int samples = 0;
  int saves = 0;
};

class ListRequests : public ::testing::Test {
 protected:
  static constexpr int CANCEL = 0;
  static constexpr int NO = 1;
  static constexpr int YES = 2;

  ListRequests()
      : document(rig.context, *rig.view, text, host),
        requests(rig.context, registry, document, text, host) {
    rig.context.alertHost = &answers;
    host.windowId = registry.Register(&host.window);
    otherId = registry.Register(&other);
  }
  ~ListRequests() override { document.Kill(); }

  std::deque<TMessage>& Posted() { return host.window.messages; }
  /// Codes of what was posted to the window.
  TRows PostedCodes() {
    TRows codes;
    for (const TMessage& message : Posted()) codes.push_back(code_of(message));
    return codes;
  }
  static std::string code_of(const TMessage& message) {
    std::string code;
    for (int shift = 24; shift >= 0; shift -= 8) {
      const char c = static_cast<char>(message.what >> shift & 0xFF);
      if (c != 0) code += c;
    }
    return code;
  }
  /// Gives the first message that was posted to the window back to the document, as it does.
  bool Deliver() {
    if (Posted().empty()) return false;
    const TMessage message = Posted().front();
    Posted().pop_front();
    return requests.MessageReceived(message);
  }
  TMessage Refs(std::string_view name) const {
    TMessage message("_RRC");
    message.AddRef("refs", TPathRef{folder.Path(name)});
    return message;
  }
  static TMessage Input(const char* code, const char* input) {
    TMessage message(code);
    message.AddString(INPUT_TEXT, input);
    return message;
  }
  TMessage SaveAs(const char* name) const {
    TMessage message("SAVE");
    message.AddRef("directory", TPathRef{folder.Path()});
    message.AddString("name", name);
    return message;
  }
  /// A message whose chain is a "next" for `other`.
  TMessage WithChain(TMessage message) {
    add_next_msg(&message, TMessage("next"), otherId);
    return message;
  }
  /// Runs what was compiled in the background, to its end.
  void FinishRun() {
    ASSERT_EQ(document.State(), TDocumentState::Compiling);
    int64_t compilation = 0;
    while (document.FinishRun(compilation) == TRunOutcome::Cancelled && compilation < 100) {
      ++compilation;
    }
    rig.view->WaitForEnd();
  }
  void Edit(const std::string& bytes) {
    text.Set(bytes);
    document.SetModified(true);
  }

  TTempFolder folder;
  TRunRig rig;
  THandlerRegistry registry;
  TAnswers answers;
  TRequestLog host;
  TMailbox other;
  THandlerId otherId;
  TStringText text;
  TListDocument document;
  TListRequests requests;
};

TEST_F(ListRequests, AnUnmodifiedListIsNotAskedFor) {
  EXPECT_TRUE(requests.AskSave(TMessage("next"), otherId));
  EXPECT_TRUE(answers.asked.empty());
}

TEST_F(ListRequests, TheQuestionHasThreeAnswers) {
  Edit("10 A\n");
  answers.answer = CANCEL;
  EXPECT_FALSE(requests.AskSave(TMessage("next"), otherId));
  EXPECT_TRUE(Posted().empty());
  EXPECT_EQ(answers.asked, TRows{"@Ask_Save (New List)@"});
  EXPECT_EQ(answers.buttons[0], (TRows{"Cancel", "No(N)", "Yes(Y)"}));
  EXPECT_EQ(answers.escapeIndex, CANCEL);
  answers.answer = NO;
  EXPECT_TRUE(requests.AskSave(TMessage("next"), otherId));
  EXPECT_TRUE(Posted().empty());
  answers.answer = YES;
  EXPECT_FALSE(requests.AskSave(TMessage("next"), otherId));
  EXPECT_EQ(PostedCodes(), TRows{"_sav"});
  EXPECT_TRUE(other.messages.empty());
}

TEST_F(ListRequests, YesGoesOnBehindTheSave) {
  folder.Write("a.bas", "10 A\n");
  ASSERT_TRUE(document.OpenList(folder.Path("a.bas"), 0));
  Edit("10 B\n");
  answers.answer = YES;
  EXPECT_FALSE(requests.AskSave(TMessage("next"), otherId));
  EXPECT_TRUE(Deliver());
  EXPECT_EQ(folder.Read("a.bas"), "10 B\n");
  EXPECT_FALSE(document.IsModified());
  ASSERT_EQ(other.messages.size(), 1u);
  EXPECT_EQ(code_of(other.messages[0]), "next");
}

TEST_F(ListRequests, AChainToAHandlerThatIsGoneLapses) {
  folder.Write("a.bas", "10 A\n");
  ASSERT_TRUE(document.OpenList(folder.Path("a.bas"), 0));
  const TMessage save = WithChain(TMessage("_sav"));
  registry.Unregister(otherId);
  EXPECT_TRUE(requests.MessageReceived(save));
  EXPECT_TRUE(other.messages.empty());
}

TEST_F(ListRequests, ASaveThatFailsEndsItsChain) {
  folder.Write("a.bas", "10 A\n");
  ASSERT_TRUE(document.OpenList(folder.Path("a.bas"), 0));
  Edit("10 B\n");
  std::filesystem::remove(folder.Path("a.bas"));
  folder.MakeFolder("a.bas");
  requests.MessageReceived(WithChain(TMessage("_sav")));
  EXPECT_TRUE(other.messages.empty());
  EXPECT_TRUE(document.IsModified());
  EXPECT_EQ(host.failedSaves, TRows{folder.Path("a.bas")});
  EXPECT_EQ(host.saves, 0);
  EXPECT_TRUE(answers.asked.empty()) << "a failed save shows no alert";
}

TEST_F(ListRequests, AListWithoutAFileAsksForItsNameWithTheChainInside) {
  Edit("10 A\n");
  requests.MessageReceived(WithChain(TMessage("_sav")));
  ASSERT_EQ(PostedCodes(), TRows{"_sva"});
  TMessage next;
  THandlerId target;
  EXPECT_TRUE(Posted()[0].FindMessage(NEXT_MSG, &next));
  EXPECT_TRUE(Posted()[0].FindHandler(NEXT_MSG_TGT, &target));
  EXPECT_EQ(code_of(next), "next");
  EXPECT_EQ(target, otherId);
}

TEST_F(ListRequests, AShiftJisListIsNeverWrittenBackUnderItsName) {
  folder.Write("sjis.bas", "10 PRINT \"\x82\xA0\"\n");
  ASSERT_TRUE(document.OpenList(folder.Path("sjis.bas"), 0));
  ASSERT_EQ(document.Charset(), 11);
  requests.MessageReceived(TMessage("_sav"));
  EXPECT_EQ(PostedCodes(), TRows{"_sva"});
  EXPECT_EQ(folder.Read("sjis.bas"), "10 PRINT \"\x82\xA0\"\n");
  requests.MessageReceived(SaveAs("utf8"));
  EXPECT_EQ(document.Charset(), 0);
  EXPECT_EQ(document.CurPath(), folder.Path("utf8.bas"));
  Edit("10 B\n");
  Posted().clear();
  requests.MessageReceived(TMessage("_sav"));
  EXPECT_TRUE(Posted().empty());
  EXPECT_EQ(folder.Read("utf8.bas"), "10 B\n");
  EXPECT_EQ(host.saves, 2);
}

TEST_F(ListRequests, InsertingUtf8KeepsAForeignCharset) {
  folder.Write("sjis.bas", "10 PRINT \"\x82\xA0\"\n");
  folder.Write("utf8.bas", "20 PRINT \"あ\"\n");
  ASSERT_TRUE(document.OpenList(folder.Path("sjis.bas"), 0));
  TMessage add = Refs("utf8.bas");
  add.AddBool("Add", true);
  EXPECT_TRUE(requests.RefsReceived(add));
  EXPECT_EQ(document.Charset(), 11);
}

TEST_F(ListRequests, ANewListKeepsTheCharset) {
  folder.Write("sjis.bas", "10 PRINT \"\x82\xA0\"\n");
  ASSERT_TRUE(document.OpenList(folder.Path("sjis.bas"), 0));
  requests.MessageReceived(TMessage("_new"));
  EXPECT_EQ(text.Get(), "");
  EXPECT_EQ(document.CurPath(), "");
  EXPECT_EQ(document.Charset(), 11);
}

TEST_F(ListRequests, TheSavePanelsAnswer) {
  Edit("10 A\n");
  requests.MessageReceived(WithChain(SaveAs("x")));
  EXPECT_EQ(folder.Read("x.bas"), "10 A\n");
  EXPECT_EQ(document.CurPath(), folder.Path("x.bas"));
  EXPECT_EQ(host.history, TRows{folder.Path("x.bas")});
  EXPECT_EQ(rig.view->DriveFolder(0), folder.Path());
  EXPECT_EQ(other.messages.size(), 1u);
  folder.MakeFolder("y.bas");
  requests.MessageReceived(WithChain(SaveAs("y.bas")));
  EXPECT_EQ(document.CurPath(), folder.Path("x.bas"));
  EXPECT_EQ(other.messages.size(), 1u);
  EXPECT_EQ(host.failedSaves, TRows{folder.Path("y.bas")});
  EXPECT_EQ(host.saves, 1);
}

TEST_F(ListRequests, ASaveAnswerWithoutANameIsNone) {
  requests.MessageReceived(WithChain(TMessage("SAVE")));
  EXPECT_TRUE(other.messages.empty());
  EXPECT_EQ(document.CurPath(), "");
}

TEST_F(ListRequests, NewAsksFirst) {
  Edit("10 A\n");
  answers.answer = CANCEL;
  requests.MessageReceived(TMessage("_new"));
  EXPECT_EQ(text.Get(), "10 A\n");
  answers.answer = NO;
  requests.MessageReceived(TMessage("_new"));
  EXPECT_EQ(text.Get(), "");
  EXPECT_FALSE(document.IsModified());
}

TEST_F(ListRequests, OpeningAsksFirstAndComesAgainBehindTheSave) {
  folder.Write("a.bas", "10 A\n");
  folder.Write("b.bas", "10 B\n");
  ASSERT_TRUE(document.OpenList(folder.Path("a.bas"), 0));
  Edit("10 CHANGED\n");
  answers.answer = YES;
  EXPECT_FALSE(requests.RefsReceived(Refs("b.bas")));
  EXPECT_EQ(text.Get(), "10 CHANGED\n");
  EXPECT_TRUE(Deliver());  // the save; its chain goes to the window
  ASSERT_EQ(PostedCodes(), TRows{"_RRC"});
  EXPECT_TRUE(Deliver());
  EXPECT_EQ(text.Get(), "10 B\n");
  EXPECT_EQ(folder.Read("a.bas"), "10 CHANGED\n");
  EXPECT_EQ(document.CurPath(), folder.Path("b.bas"));
}

TEST_F(ListRequests, EncodingsAreTheMessagesOwnOrThePreferences) {
  folder.Write("sjis.bas", "10 PRINT \"\x82\xA0\"\n");
  rig.prefs.DEnc.store(2);  // UTF-8
  EXPECT_TRUE(requests.RefsReceived(Refs("sjis.bas")));
  EXPECT_EQ(text.Get(), "10 PRINT \"\x82\xA0\"\n");
  TMessage message = Refs("sjis.bas");
  message.AddInt32("Encoding", 3);  // Shift-JIS
  EXPECT_TRUE(requests.RefsReceived(message));
  EXPECT_EQ(text.Get(), "10 PRINT \"あ\"\n");
}

TEST_F(ListRequests, AddAndMergeDoNotAsk) {
  folder.Write("b.bas", "20 B\n");
  Edit("10 A\n");
  TMessage merge = Refs("b.bas");
  merge.AddBool("Merge", true);
  EXPECT_TRUE(requests.RefsReceived(merge));
  EXPECT_EQ(text.Get(), "10 A\n20 B\n");
  TMessage held = Refs("b.bas");
  held.AddBool(OPTION_HELD, true);
  EXPECT_TRUE(requests.RefsReceived(WithChain(held)));
  EXPECT_EQ(text.Get(), "20 B\n10 A\n20 B\n");
  EXPECT_TRUE(answers.asked.empty());
  EXPECT_EQ(document.CurPath(), "");
  EXPECT_EQ(other.messages.size(), 1u);
}

TEST_F(ListRequests, ALoadThatFailsEndsItsChain) {
  for (const char* kind : {"", "Add", "Merge"}) {
    TMessage message = WithChain(Refs("none.bas"));
    if (*kind != 0) message.AddBool(kind, true);
    EXPECT_FALSE(requests.RefsReceived(message)) << kind;
  }
  EXPECT_TRUE(other.messages.empty());
  EXPECT_EQ(answers.asked.size(), 3u);
  EXPECT_FALSE(requests.RefsReceived(TMessage("_RRC")));
}

TEST_F(ListRequests, HistoryItemsAreRemovedWithControl) {
  folder.Write("a.bas", "10 A\n");
  TMessage message = WithChain(Refs("a.bas"));
  message.AddBool(CONTROL_HELD, true);
  answers.answer = 0;
  EXPECT_FALSE(requests.RefsReceived(message));
  EXPECT_TRUE(Posted().empty());
  EXPECT_TRUE(other.messages.empty());
  answers.answer = 1;
  EXPECT_TRUE(requests.RefsReceived(message));
  EXPECT_EQ(answers.buttons[1], (TRows{"Cancel", "Yes(Y)"}));
  ASSERT_EQ(PostedCodes(), TRows{"_rhr"});
  TPathRef ref;
  ASSERT_TRUE(Posted()[0].FindRef("refs", &ref));
  EXPECT_EQ(ref.bytes, folder.Path("a.bas"));
  EXPECT_EQ(other.messages.size(), 1u);
  EXPECT_EQ(text.Get(), "") << "the list is not loaded";
}

TEST_F(ListRequests, GoToLine) {
  text.Set("40 A\n50 B\n5 C\n0 D\n");
  requests.MessageReceived(Input("gtlr", "5"));
  requests.MessageReceived(Input("gtlr", "50"));
  requests.MessageReceived(Input("gtlr", "4"));
  // No number is 0.
  requests.MessageReceived(Input("gtlr", "abc"));
  EXPECT_EQ(host.offsets, (std::vector<size_t>{5, 5, 0, 14}));
  EXPECT_TRUE(answers.asked.empty());
}

TEST_F(ListRequests, GoToALineThatIsNotThere) {
  text.Set("010 X\n 20 Y\n");
  requests.MessageReceived(Input("gtlr", "10"));
  requests.MessageReceived(Input("gtlr", "20"));
  requests.MessageReceived(Input("gtlr", ""));
  requests.MessageReceived(TMessage("gtlr"));
  EXPECT_EQ(answers.asked,
            (TRows{"@Err_Specified_Line_Not_Found@", "@Err_Specified_Line_Not_Found@",
                   "@Err_Line_Not_Input@", "@Err_Line_Not_Input@"}));
  EXPECT_EQ(answers.buttons[0], TRows{"Understand(U)"});
  EXPECT_TRUE(host.offsets.empty());
}

TEST_F(ListRequests, RunFromALine) {
  text.Set("10 PRINT \"A\"\n20 PRINT \"B\"\n");
  requests.MessageReceived(Input("rnlr", "20"));
  FinishRun();
  EXPECT_EQ(rig.Screen(), (TRows{"B", "Ok"}));
}

TEST_F(ListRequests, RunFromALabelWithAndWithoutItsAsterisk) {
  text.Set("10 PRINT \"A\"\n20 *AB:PRINT \"B\"\n");
  requests.MessageReceived(Input("rnlr", "*ab"));
  FinishRun();
  EXPECT_EQ(rig.Screen(), (TRows{"B", "Ok"}));
  requests.MessageReceived(Input("rnlr", "Ab"));
  FinishRun();
  EXPECT_EQ(rig.Screen(), (TRows{"B", "Ok", "B", "Ok"}));
}

TEST_F(ListRequests, ABlankInFrontMakesANumberALabel) {
  text.Set("10 PRINT \"A\"\n");
  requests.MessageReceived(Input("rnlr", " 10"));
  FinishRun();
  ASSERT_EQ(answers.asked.size(), 1u);
  EXPECT_NE(answers.asked[0].find("@Runtime_Err_Undefined_Label@"), std::string::npos)
      << answers.asked[0];
}

TEST_F(ListRequests, RunFromNowhereDoesNotRun) {
  text.Set("10 PRINT \"A\"\n");
  requests.MessageReceived(Input("rnlr", ""));
  EXPECT_EQ(answers.asked, TRows{"@Err_Line_Not_Input@"});
  EXPECT_EQ(document.State(), TDocumentState::Idle);
}

TEST_F(ListRequests, RenumberNeedsAllItsFields) {
  text.Set("1 A\n2 GOTO 1\n");
  TMessage message("rnmr");
  message.AddInt32("NewLine", 100);
  message.AddInt32("OldLine", 1);
  requests.MessageReceived(message);
  EXPECT_EQ(text.Get(), "1 A\n2 GOTO 1\n");
  EXPECT_FALSE(document.IsModified());
  message.AddInt32("Step", 5);
  requests.MessageReceived(message);
  EXPECT_EQ(text.Get(), "100 A\n105 GOTO 1\n");
  EXPECT_TRUE(document.IsModified());
}

TEST_F(ListRequests, AProgramsWishForAnotherListComesBackBehindTheLoad) {
  folder.Write("b.bas", "10 PRINT \"B\"\n20 PRINT \"C\"\n");
  text.Set("10 PRINT \"A\"\n");
  TMessage wish("vmrr");
  wish.AddString("FileName", folder.Path("b.bas"));
  wish.AddInt32("LineNum", 20);
  requests.MessageReceived(wish);
  ASSERT_EQ(PostedCodes(), TRows{"_RRC"});
  EXPECT_TRUE(Deliver());
  EXPECT_EQ(document.CurPath(), folder.Path("b.bas"));
  ASSERT_EQ(PostedCodes(), TRows{"vmrr"});
  std::string name;
  EXPECT_FALSE(Posted()[0].FindString("FileName", &name));
  EXPECT_TRUE(Deliver());
  FinishRun();
  EXPECT_EQ(rig.Screen(), (TRows{"C", "Ok"}));
}

TEST_F(ListRequests, AProgramsWishForAnotherListAsksLikeAnyOther) {
  folder.Write("b.bas", "10 PRINT \"B\"\n");
  Edit("10 PRINT \"A\"\n");
  TMessage wish("vmrr");
  wish.AddString("FileName", folder.Path("b.bas"));
  requests.MessageReceived(wish);
  answers.answer = CANCEL;
  EXPECT_TRUE(Deliver());
  EXPECT_EQ(text.Get(), "10 PRINT \"A\"\n");
  EXPECT_TRUE(Posted().empty());
  EXPECT_EQ(document.State(), TDocumentState::Idle);
}

TEST_F(ListRequests, AProgramsWishForAMerge) {
  folder.Write("b.bas", "20 PRINT \"B\"\n");
  Edit("10 PRINT \"A\"\n");
  TMessage wish("vmrr");
  wish.AddString("FileName", folder.Path("b.bas"));
  wish.AddBool("Merge", true);
  requests.MessageReceived(wish);
  EXPECT_TRUE(Deliver());
  EXPECT_TRUE(Deliver());
  FinishRun();
  EXPECT_EQ(rig.Screen(), (TRows{"A", "B", "Ok"}));
  EXPECT_TRUE(answers.asked.empty());
}

TEST_F(ListRequests, ARunSavesTheAutoSaveListAlone) {
  folder.Write("a.bas", "10 A=1\n");
  ASSERT_TRUE(document.OpenList(folder.Path("a.bas"), 0));
  document.SetAutoSavePath(folder.Path("AutoSave.bas"));
  Edit("10 A=2\n");
  rig.prefs.ASBR.store(false);
  requests.MessageReceived(TMessage("run"));
  FinishRun();
  EXPECT_FALSE(std::filesystem::exists(folder.Path("AutoSave.bas")));
  rig.prefs.ASBR.store(true);
  requests.MessageReceived(TMessage("run"));
  FinishRun();
  EXPECT_EQ(folder.Read("AutoSave.bas"), "10 A=2\n");
  EXPECT_EQ(folder.Read("a.bas"), "10 A=1\n");
  EXPECT_TRUE(document.IsModified());
}

TEST_F(ListRequests, ABackupIsInsertedAsUtf8AndItsFileStays) {
  folder.Write("AutoSave.bas", "10 'あ\n");
  EXPECT_TRUE(document.RestoreBackup(folder.Path("AutoSave.bas")));
  EXPECT_EQ(text.Get(), "10 'あ\n");
  EXPECT_EQ(document.CurERefName(), "(Auto Backuped List)");
  EXPECT_TRUE(document.IsAutoBackup());
  EXPECT_TRUE(document.IsModified());
  EXPECT_EQ(document.CurPath(), "");
  EXPECT_EQ(host.titles, 1);
  EXPECT_EQ(folder.Read("AutoSave.bas"), "10 'あ\n");
  // It has no file of its own: saving asks for a name, and then it is a list like any other.
  requests.MessageReceived(TMessage("_sav"));
  EXPECT_EQ(PostedCodes(), TRows{"_sva"});
  requests.MessageReceived(SaveAs("x"));
  EXPECT_EQ(document.CurERefName(), "x.bas");
  EXPECT_FALSE(document.IsAutoBackup());
}

TEST_F(ListRequests, ABackupThatCannotBeReadLeavesANewList) {
  EXPECT_FALSE(document.RestoreBackup(folder.Path("none")));
  EXPECT_EQ(document.CurERefName(), "(New List)");
  EXPECT_FALSE(document.IsModified());
}

TEST_F(ListRequests, SamplesOpenAsUnnamedCopies) {
  folder.Write("sample.bas", "10 PRINT 1\n");
  TMessage message("_smp");
  message.AddRef("refs", TPathRef{folder.Path("sample.bas")});
  requests.MessageReceived(message);
  EXPECT_EQ(text.Get(), "10 PRINT 1\n");
  EXPECT_EQ(document.CurERefName(), "(New List)");
  EXPECT_FALSE(document.IsModified());
  EXPECT_EQ(host.samples, 1);
  TMessage missing("_smp");
  missing.AddRef("refs", TPathRef{folder.Path("none.bas")});
  requests.MessageReceived(missing);
  EXPECT_EQ(answers.asked.size(), 1u);
  EXPECT_EQ(text.Get(), "10 PRINT 1\n");
  EXPECT_EQ(host.samples, 1);
}

TEST_F(ListRequests, OtherMessagesAreNotItsOwn) {
  EXPECT_FALSE(requests.MessageReceived(TMessage("zzzz")));
}

}  // namespace
}  // namespace zoka
