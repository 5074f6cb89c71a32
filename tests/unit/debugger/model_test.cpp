// The model of the debug view: source and marks, call stack, variables, values.
#include "tests/unit/debugger/debug_rig.h"

namespace zoka {
namespace {

using TLines = std::vector<std::string>;

constexpr int32_t ENDED = TDebugRig::ENDED;

// ---- Breakpoints of the engine.

TEST(BreakPoints, AreSortedAndSingle) {
  TBreakPoints points;
  for (int32_t line : {30, 10, 20, 10, -5}) points.Add(line);
  EXPECT_EQ(points.Lines(), (std::vector<int32_t>{-5, 10, 20, 30}));
}

// Removing a line that has none takes the next higher one; this is meant.
TEST(BreakPoints, RemovingTakesTheFirstThatIsNotBelow) {
  auto removed = [](const std::vector<int32_t>& lines, int32_t line) {
    TBreakPoints points;
    for (int32_t each : lines) points.Add(each);
    points.Remove(line);
    return points.Lines();
  };
  EXPECT_EQ(removed({20, 30}, 10), (std::vector<int32_t>{30}));
  EXPECT_EQ(removed({20, 30}, 25), (std::vector<int32_t>{20}));
  EXPECT_EQ(removed({20}, 21), (std::vector<int32_t>{20}));
  EXPECT_EQ(removed({20, 30}, 20), (std::vector<int32_t>{30}));
  EXPECT_EQ(removed({}, 20), (std::vector<int32_t>{}));
}

TEST(BreakPoints, ARuleGoesWithItsLine) {
  TBreakPoints points;
  points.SetRule(10, {"A=1", 2});
  std::string condition;
  EXPECT_TRUE(points.Find(10, &condition));
  EXPECT_EQ(condition, "A=1");
  EXPECT_FALSE(points.Passes(10));
  EXPECT_TRUE(points.Passes(10));
  points.Remove(10);
  points.Add(10);
  EXPECT_TRUE(points.Find(10, &condition));
  EXPECT_EQ(condition, "");
  EXPECT_TRUE(points.Passes(10));
}

// ---- Source.

TEST(DebugModel, TheFirstOfTwoLinesWithOneNumberCounts) {
  TDebugRig rig("10 A=1\n 20 B=1\n10 C=1\n");
  EXPECT_EQ(rig.model.SrcLineCount(), 3u);
  EXPECT_EQ(rig.model.FindSrcLine(10), 0u);
  EXPECT_EQ(rig.model.FindSrcLine(20), 1u);
  EXPECT_EQ(rig.model.FindSrcLine(30), std::nullopt);
  EXPECT_EQ(rig.model.SrcLine(2).text, "10 C=1");
  EXPECT_EQ(rig.model.SrcLine(2).line, 10);
  EXPECT_EQ(rig.model.SrcLine(3).text, "");
}

// An empty first line is line 0, and the break at the start is there.
TEST(DebugModel, TheBreakAtTheStartOfAnEmptyFirstLine) {
  TDebugRig rig("\n10 A=1\n", true);
  EXPECT_TRUE(rig.model.SrcLine(0).breakPoint);
  EXPECT_EQ(rig.model.SrcLine(0).line, 0);
  EXPECT_EQ(rig.debugger->BreakPoints().Lines(), std::vector<int32_t>{0});
  EXPECT_EQ(rig.NextStop(), 0);
  rig.model.Run();
  EXPECT_EQ(rig.NextStop(), ENDED);
}

TEST(DebugModel, AClickInTheMarginTogglesABreakpoint) {
  TDebugRig rig("10 A=1\n20 B=1\n");
  EXPECT_TRUE(rig.model.ClickSrcLine(1, 25));
  EXPECT_FALSE(rig.model.ClickSrcLine(0, 26));
  EXPECT_FALSE(rig.model.ClickSrcLine(2, 0));
  EXPECT_EQ(rig.model.BreakPointItems(), std::vector<size_t>{1});
  EXPECT_EQ(rig.debugger->BreakPoints().Lines(), std::vector<int32_t>{20});
  EXPECT_TRUE(rig.model.ClickSrcLine(1, 0));
  EXPECT_EQ(rig.debugger->BreakPoints().Lines(), std::vector<int32_t>{});
}

TEST(DebugModel, MarksWithoutADebuggerAreForDisplayOnly) {
  TDebugRig rig("10 A=1\n20 B=1\n");
  rig.model.SetVMachine(nullptr);
  EXPECT_TRUE(rig.model.ClickSrcLine(1, 0));
  EXPECT_TRUE(rig.model.SrcLine(1).breakPoint);
  EXPECT_EQ(rig.debugger->BreakPoints().Lines(), std::vector<int32_t>{});
  rig.model.SetSrcCode("10 A=1\n20 B=1\n");
  EXPECT_FALSE(rig.model.SrcLine(1).breakPoint);
}

TEST(DebugModel, AMarkKeepsItsRuleUntilItIsToggled) {
  TDebugRig rig("10 A=1\n");
  const TBreakRule rule{"A=1", 3};
  rig.model.SetBreakRule(0, rule);
  EXPECT_TRUE(rig.model.SrcLine(0).breakPoint);
  EXPECT_EQ(rig.model.SrcLine(0).rule, rule);
  rig.model.ToggleBreakPoint(0);
  EXPECT_FALSE(rig.model.SrcLine(0).breakPoint);
  EXPECT_EQ(rig.model.SrcLine(0).rule, TBreakRule());
}

TEST(DebugModel, TheStopIsMarkedAndScrolledTo) {
  TDebugRig rig("10 A=1\n20 B=1\n30 END\n");
  rig.BreakAt(20);
  EXPECT_EQ(rig.NextStop(), 20);
  EXPECT_TRUE(rig.model.SrcLine(1).breaking);
  EXPECT_EQ(rig.changes.scrollTo, 1u);
  rig.model.Run();
  EXPECT_FALSE(rig.model.SrcLine(1).breaking);
}

// ---- Call stack.

TEST(DebugModel, TheCallStackShowsCallingLinesAndTheCurrentOne) {
  TDebugRig rig("10 GOSUB 100\n20 END\n100 GOSUB 200\n110 RETURN\n200 RETURN\n");
  EXPECT_EQ(rig.model.CallStackCount(), 1u);
  EXPECT_EQ(rig.model.CallStackText(0), "");
  rig.BreakAt(200);
  EXPECT_EQ(rig.NextStop(), 200);
  ASSERT_EQ(rig.model.CallStackCount(), 3u);
  EXPECT_EQ(rig.model.CallStackText(0), "10 GOSUB 100");
  EXPECT_EQ(rig.model.CallStackText(1), "100 GOSUB 200");
  EXPECT_EQ(rig.model.CallStackText(2), "[Current] 200 RETURN");
  EXPECT_EQ(rig.model.CallStackText(3), "");
  EXPECT_TRUE(rig.model.ClickCallStack(1));
  EXPECT_EQ(rig.model.TakeChanges().scrollTo, rig.model.FindSrcLine(100));
  EXPECT_TRUE(rig.model.ClickCallStack(2));
  EXPECT_EQ(rig.model.TakeChanges().scrollTo, rig.model.FindSrcLine(200));
  EXPECT_FALSE(rig.model.ClickCallStack(3));
  rig.BreakAt(200);
  rig.model.Run();
  EXPECT_EQ(rig.NextStop(), ENDED);
  EXPECT_EQ(rig.model.CallStackText(0), "[Done]");
  EXPECT_FALSE(rig.model.ClickCallStack(0));
}

TEST(DebugModel, TheCallStackSpeaksTheLanguageOfTheMoment) {
  TDebugRig rig("10 END\n", true);
  EXPECT_EQ(rig.NextStop(), 10);
  rig.catalogue.SetLanguage(TLanguage::English);
  EXPECT_EQ(rig.model.CallStackText(0), "[Current] 10 END");
  rig.catalogue.SetLanguage(TLanguage::Japanese);
  EXPECT_EQ(rig.model.CallStackText(0), "[実行中] 10 END");
}

// ---- Variables.

TEST(DebugModel, VariablesAreSortedByName) {
  TDebugRig rig("10 C=1:A$=\"x\":B%=2\n");
  ASSERT_EQ(rig.model.VarCount(), 3u);
  EXPECT_EQ(rig.model.VarRow(0).label, "A$ : ");
  EXPECT_EQ(rig.model.VarRow(1).label, "B% : ");
  EXPECT_EQ(rig.model.VarRow(2).label, "C! : ");
  EXPECT_EQ(rig.model.VarRow(3), TVarRow());
}

TEST(DebugModel, ValuesPrintAsStrWithoutTheBlank) {
  TDebugRig rig(
      "10 A%=-5:B!=1.5:C#=1/3:D$=\"x y\":E!=1000000:F!=-2:G!=0:H%=7\n"
      "20 Z$=\"\"\n");
  EXPECT_EQ(rig.NextStop(), ENDED);
  EXPECT_EQ(rig.Value("A%"), "-5");
  EXPECT_EQ(rig.Value("B!"), "1.5");
  EXPECT_EQ(rig.Value("C#"), "0.333333");
  EXPECT_EQ(rig.Value("D$"), "x y");
  EXPECT_EQ(rig.Value("E!"), "1e+06");
  EXPECT_EQ(rig.Value("F!"), "-2");
  EXPECT_EQ(rig.Value("G!"), "0");
  EXPECT_EQ(rig.Value("H%"), "7");
  EXPECT_EQ(rig.Value("Z$"), "");
}

TEST(DebugModel, LongTextsAreCutBetweenCharacters) {
  TVarInfo var;
  var.name = "A$";
  var.CreateDefaultNonArray(ttStr);
  var.texts[0] = TText(std::string(MAX_SHOWN_BYTES - 1, 'x') + "あ");
  EXPECT_EQ(value_text(var, 0), std::string(MAX_SHOWN_BYTES - 1, 'x'));
  var.texts[0] = TText(std::string(MAX_SHOWN_BYTES, 'x'));
  EXPECT_EQ(value_text(var, 0).size(), MAX_SHOWN_BYTES);
}

TEST(DebugModel, AVariableWithoutStorageShowsNothing) {
  TVarInfo var;
  var.name = "A!";
  EXPECT_EQ(value_text(var, 0), "");
  EXPECT_EQ(var_label(var, 0), "A! : ");
}

// The subscripts of a label stand in the order of the storage, the last of the source first.
TEST(DebugModel, ElementsAreLabelledByTheirStorage) {
  TDebugRig rig("10 DIM A(2,3):A(1,2)=7\n20 END\n");
  rig.BreakAt(20);
  EXPECT_EQ(rig.NextStop(), 20);
  const size_t item = rig.Item("A!");
  EXPECT_EQ(rig.model.VarChildCount(item), 1);
  EXPECT_TRUE(rig.model.VarChildRow(item, 0).isDummy);
  rig.model.ExpandOrCollapseVar(item, true);
  ASSERT_EQ(rig.model.VarChildCount(item), 12);
  EXPECT_EQ(rig.model.VarChildRow(item, 0).label, "A!(0,0) : ");
  EXPECT_EQ(rig.model.VarChildRow(item, 6).label, "A!(2,1) : ");
  EXPECT_EQ(rig.model.VarChildRow(item, 6).value, "7");
  EXPECT_EQ(rig.model.VarChildRow(item, 11).label, "A!(3,2) : ");
  EXPECT_TRUE(rig.model.VarChildRow(item, 12).isDummy);
}

TEST(DebugModel, CollapsingKeepsTheElements) {
  TDebugRig rig("10 DIM A(999)\n20 END\n");
  rig.BreakAt(20);
  EXPECT_EQ(rig.NextStop(), 20);
  const size_t item = rig.Item("A!");
  EXPECT_FALSE(rig.model.IsVarExpanded(item));
  rig.model.ExpandOrCollapseVar(item, true);
  EXPECT_TRUE(rig.model.IsVarExpanded(item));
  EXPECT_EQ(rig.model.VarChildCount(item), 1000);
  rig.model.ExpandOrCollapseVar(item, false);
  EXPECT_FALSE(rig.model.IsVarExpanded(item));
  EXPECT_EQ(rig.model.VarChildCount(item), 1000);
}

TEST(DebugModel, APlainVariableDoesNotExpand) {
  TDebugRig rig("10 A=1\n");
  EXPECT_EQ(rig.model.VarChildCount(0), 0);
  rig.model.ExpandOrCollapseVar(0, true);
  EXPECT_FALSE(rig.model.IsVarExpanded(0));
}

TEST(DebugModel, AMillionElementsCostNothingUntilTheyAreShown) {
  TDebugRig rig("10 DIM A%(999999):A%(999999)=3\n20 END\n");
  rig.BreakAt(20);
  EXPECT_EQ(rig.NextStop(), 20);
  rig.model.ExpandOrCollapseVar(0, true);
  EXPECT_EQ(rig.model.VarChildCount(0), 1'000'000);
  EXPECT_EQ(rig.model.VarChildRow(0, 999'999).label, "A%(999999) : ");
  EXPECT_EQ(rig.model.VarChildRow(0, 999'999).value, "3");
}

// An array that is dimensioned again while it is expanded collapses and loses its elements.
TEST(DebugModel, DimensioningAgainCollapses) {
  TDebugRig rig("10 DIM A(1000):A=5\n20 DIM A(2)\n30 END\n");
  rig.BreakAt(20);
  EXPECT_EQ(rig.NextStop(), 20);
  const size_t item = rig.Item("A!");
  rig.model.ExpandOrCollapseVar(item, true);
  EXPECT_EQ(rig.model.VarChildRow(item, 1000).label, "A!(1000) : ");
  rig.changes = {};
  rig.model.StepIn();
  EXPECT_EQ(rig.NextStop(), 30);
  EXPECT_EQ(rig.changes.resetVars, std::vector<size_t>{item});
  EXPECT_FALSE(rig.model.IsVarExpanded(item));
  EXPECT_EQ(rig.model.VarChildCount(item), 1);
  EXPECT_TRUE(rig.model.VarChildRow(item, 0).isDummy);
  EXPECT_EQ(rig.model.VarRow(item).value, "5");  // the plain value stays
  rig.model.ExpandOrCollapseVar(item, true);
  EXPECT_EQ(rig.model.VarChildCount(item), 3);
}

TEST(DebugModel, ManyDimensionsInOneFrameCountAsAChangeOfAll) {
  TDebugRig rig("10 FOR I=1 TO 100\n20 DIM A(I)\n30 NEXT\n");
  rig.Start();
  rig.debugger->Wait(nullptr);
  const TDebugChanges changes = rig.model.TakeChanges();
  EXPECT_EQ(changes.resetVars.size(), MAX_TOLD_RESETS);
  EXPECT_TRUE(changes.variables);
}

TEST(DebugModel, AnArrayWithoutElementsExpandsToNone) {
  TDebugRig rig("10 DIM A(-5)\n20 END\n");
  rig.BreakAt(20);
  EXPECT_EQ(rig.NextStop(), 20);
  rig.model.ExpandOrCollapseVar(0, true);
  EXPECT_EQ(rig.model.VarChildCount(0), 0);
}

TEST(DebugModel, ValuesThatChangedSinceTheLastStopAreMarked) {
  TDebugRig rig("10 DIM A(5)\n20 B=1:A(2)=4\n30 READ C$\n40 A(2)=4:DATA x\n50 END\n", true);
  EXPECT_EQ(rig.NextStop(), 10);
  rig.model.StepIn();
  EXPECT_EQ(rig.NextStop(), 20);
  const size_t array = rig.Item("A!");
  rig.model.ExpandOrCollapseVar(array, true);
  EXPECT_FALSE(rig.model.VarChildRow(array, 2).changed);
  EXPECT_FALSE(rig.model.VarRow(rig.Item("B!")).changed);
  rig.model.StepIn();
  EXPECT_EQ(rig.NextStop(), 30);
  EXPECT_TRUE(rig.model.VarChildRow(array, 2).changed);
  EXPECT_TRUE(rig.model.VarRow(rig.Item("B!")).changed);
  EXPECT_FALSE(rig.model.VarRow(rig.Item("C$")).changed);
  rig.model.StepIn();
  EXPECT_EQ(rig.NextStop(), 40);
  EXPECT_FALSE(rig.model.VarChildRow(array, 2).changed);
  EXPECT_FALSE(rig.model.VarRow(rig.Item("B!")).changed);
  EXPECT_TRUE(rig.model.VarRow(rig.Item("C$")).changed);  // whatever has stored it
  rig.model.StepIn();
  EXPECT_EQ(rig.NextStop(), 50);
  EXPECT_FALSE(rig.model.VarChildRow(array, 2).changed);  // stored again, but the same
}

TEST(DebugModel, ValuesStayAfterTheEndUntilTheyAreCleared) {
  TDebugRig rig("10 A=3\n");
  EXPECT_EQ(rig.NextStop(), ENDED);
  rig.debugger->Wait(nullptr);
  EXPECT_EQ(rig.Value("A!"), "3");
  rig.model.ClearVar();
  EXPECT_EQ(rig.model.VarCount(), 0u);
  EXPECT_EQ(rig.model.ValueOf("A"), std::nullopt);
}

TEST(DebugModel, OnlyTheDebuggerThatGoesIsForgotten) {
  TDebugRig rig("10 A=3\n");
  rig.model.ForgetVMachine(nullptr);
  EXPECT_TRUE(rig.model.HasDebugger());
  rig.model.ForgetVMachine(rig.debugger.get());
  EXPECT_FALSE(rig.model.HasDebugger());
  EXPECT_FALSE(rig.model.Stop());
}

// ---- Editing values.

TEST(DebugModel, AValueEditedAtAStopIsTheProgramsOwn) {
  TDebugRig rig("10 A=1:B$=\"x\":DIM C%(3)\n20 A=A*2:B$=B$+\"!\":C%(0)=C%(2)+1\n30 END\n");
  rig.BreakAt(20);
  EXPECT_EQ(rig.NextStop(), 20);
  EXPECT_TRUE(rig.model.EditVar(rig.Item("A!"), 0, " 21 "));
  EXPECT_TRUE(rig.model.EditVar(rig.Item("B$"), 0, "hello"));
  EXPECT_TRUE(rig.model.EditVar(rig.Item("C%"), 3, "&H10"));
  rig.model.Run();
  EXPECT_EQ(rig.NextStop(), ENDED);
  EXPECT_EQ(rig.Value("A!"), "42");
  EXPECT_EQ(rig.Value("B$"), "hello!");
  EXPECT_EQ(rig.Var("C%").ints[1], 17);
}

TEST(DebugModel, AnEditIsCarriedOutWhileTheProgramStands) {
  TDebugRig rig("10 A%=1\n20 END\n");
  rig.BreakAt(20);
  EXPECT_EQ(rig.NextStop(), 20);
  EXPECT_TRUE(rig.model.EditVar(rig.Item("A%"), 0, "2.5"));
  while (rig.Value("A%") != "3") {
  }
  EXPECT_EQ(rig.model.RunMode(), TDebugRunMode::Breaked);
}

TEST(DebugModel, EditsThatCannotBeAreRefused) {
  TDebugRig rig("10 A=1:DIM B(2)\n20 END\n");
  EXPECT_FALSE(rig.model.EditVar(0, 0, "1"));  // not started yet
  rig.BreakAt(20);
  EXPECT_EQ(rig.NextStop(), 20);
  for (const char* text : {"", "x", "1x", "--1", "+-1", "1e999", "&HG", "&", "1 2", "nan", "inf"}) {
    EXPECT_FALSE(rig.model.EditVar(rig.Item("A!"), 0, text)) << text;
  }
  EXPECT_FALSE(rig.model.EditVar(rig.Item("A!"), 1, "1"));
  EXPECT_FALSE(rig.model.EditVar(rig.Item("B!"), 4, "1"));
  EXPECT_FALSE(rig.model.EditVar(rig.Item("B!"), -1, "1"));
  EXPECT_FALSE(rig.model.EditVar(2, 0, "1"));
  EXPECT_TRUE(rig.model.EditVar(rig.Item("B!"), 3, "-1.5E2"));
}

// ---- Expressions.

TEST(DebugExpression, Values) {
  TDebugRig rig("10 A=3:A%=4:B$=\"xy\":C#=.5:DIM D(2,3):D(1,2)=9:E%=8:E#=9\n");
  EXPECT_EQ(rig.NextStop(), ENDED);
  const std::vector<std::pair<const char*, const char*>> rows = {
      {"1+2*3", "7"},      {"(1+2)*3", "9"}, {"-2^2", "-4"},     {"2^-1", "0.5"},
      {"7\\2", "3"},       {"7 mod 4", "3"}, {"10\\4*2", "1"},   {"a", "3"},
      {"A%", "4"},         {"A!+A%", "7"},   {"b$", "xy"},       {"B", "xy"},
      {"B$+\"z\"", "xyz"}, {"C", "0.5"},     {"D(1,2)", "9"},    {"D(A-2,1+1)", "9"},
      {"E", "8"},          {"A=3", "-1"},    {"A<>3", "0"},      {"A>=4 OR C<1", "-1"},
      {"NOT 0", "-1"},     {"6 AND 3", "2"}, {"6 XOR 3", "5"},   {"B$=\"xy\"", "-1"},
      {"B$<\"y\"", "-1"},  {"&hFF", "255"},  {"1.5e2", "150"},   {"- - 1", "1"},
      {"1<2<3", "-1"},     {"A=>3", "-1"},   {"\"open", "open"}, {"  1  ", "1"},
  };
  for (const auto& [text, value] : rows) EXPECT_EQ(rig.model.ValueOf(text), value) << text;
}

// What a condition says is what the same text says in the program.
TEST(DebugExpression, TypesAreThoseOfTheLanguage) {
  TDebugRig rig("10 A=.1:B#=.1#:C%=2147483647:D%=1000000:E=1000000\n");
  EXPECT_EQ(rig.NextStop(), ENDED);
  const std::vector<std::pair<const char*, const char*>> rows = {
      {"A=.1", "-1"},
      {"A=.1#", "0"},
      {"A=B#", "0"},
      {"B#=.1#", "-1"},
      {"B#=.1", "0"},
      {"A+.2=.3", "-1"},
      {"5%", "5"},
      {"1.5%", "1"},
      {"2!/4", "0.5"},
      {"16777217!=16777216!", "-1"},
      {"16777217=16777216", "0"},
      // Integers wrap, and have all their digits.
      {"C%+1", "-2147483648"},
      {"-C%-1", "-2147483648"},
      {"C%*2", "-2"},
      {"9999999999", "2147483647"},
      {"D%", "1000000"},
      {"E", "1e+06"},
      // Logical operators see 16 bits.
      {"70000 AND 65535", "4464"},
      {"NOT 65535", "0"},
      {"0 IMP 0", "-1"},
      {"6 EQV 3", "-6"},
      {"1 EQV 0 IMP 0", "1"},
      {"7 XOR 2 IMP 0", "-6"},
      {"+\"x\"", "x"},
  };
  for (const auto& [text, value] : rows) EXPECT_EQ(rig.model.ValueOf(text), value) << text;
}

TEST(DebugExpression, NamesAreThoseOfTheLanguage) {
  TDebugRig rig("10 A.B=1:_X=2:A%B=3:A$C%=4:N1=5:D@E$=\"f\"\n");
  EXPECT_EQ(rig.NextStop(), ENDED);
  const std::vector<std::pair<const char*, const char*>> rows = {
      {"A.B", "1"},    {"_x", "2"},        {"A%B", "3"}, {"a%b!", "3"},
      {"A$C%+1", "5"}, {"N1*A.B*2", "10"}, {"D@E", "f"},
  };
  for (const auto& [text, value] : rows) EXPECT_EQ(rig.model.ValueOf(text), value) << text;
}

// Only the sum of subscripts and strides counts, as it does for the program.
TEST(DebugExpression, SubscriptsReachWhatTheProgramReaches) {
  TDebugRig rig("10 DIM A(2,3):A(1,1)=7:B=A(0,5)\n20 END\n");
  rig.BreakAt(20);
  EXPECT_EQ(rig.NextStop(), 20);
  EXPECT_EQ(rig.Value("B!"), "7");
  EXPECT_EQ(rig.model.ValueOf("A(0,5)"), "7");
  EXPECT_EQ(rig.model.ValueOf("A(2,-3)"), "7");
  EXPECT_EQ(rig.model.ValueOf("A(2,3)"), "0");
  EXPECT_EQ(rig.model.ValueOf("A(2,4)"), std::nullopt);
  EXPECT_EQ(rig.model.ValueOf("A(0,-1)"), std::nullopt);
}

TEST(DebugExpression, NothingOfWhatIsNone) {
  TDebugRig rig("10 A=3:B$=\"xy\":DIM D(2)\n");
  EXPECT_EQ(rig.NextStop(), ENDED);
  for (const char* text :
       {"",     "1+",   "(1",     "1)",      "A B",  "Z",     "A+B$",    "B$-B$",
        "-B$",  "1/0",  "1\\0",   "1 MOD 0", "D(3)", "D(-1)", "D(1,1)",  "D()",
        "A(0)", "A=B$", "1 == 2", "@",       "1..2", "NOT",   "PRINT 1", "\x80"}) {
    EXPECT_EQ(rig.model.ValueOf(text), std::nullopt) << text;
  }
  const std::string deep = std::string(100'000, '(') + "1" + std::string(100'000, ')');
  EXPECT_EQ(rig.model.ValueOf(deep), std::nullopt);
  EXPECT_EQ(rig.model.ValueOf(std::string(100'000, '-') + "1"), std::nullopt);
  std::string nots;
  for (int i = 0; i < 10'000; ++i) nots += "NOT ";
  EXPECT_EQ(rig.model.ValueOf(nots + "1"), std::nullopt);
}

}  // namespace
}  // namespace zoka
