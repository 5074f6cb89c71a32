// Statements whose syntax is a list of elements: every form's code, and the key of every wrong
// form.
#include <iterator>

#include "compile_rows.h"

namespace zoka {
namespace {

constexpr TCompileRow FORMS[] = {
    {"BEEP", "Beep 0"},
    {"BEEP 1", INT(1) SEP "Beep 1"},
    {"CLOSE", "Close 0"},
    {"CLOSE 1,2,3", INT(1) SEP INT(2) SEP INT(3) SEP "Close 3"},
    {"CLOSE #1,#2", INT(1) SEP INT(2) SEP "Close 2"},
    {"CLOSE ,1", OMIT SEP INT(1) SEP "Close 2"},
    {"CLOSE#1", LOAD("CLOSE#1!")},  // one word, and so a variable
    {"CLS", "Cls 0"},
    {"CLS 3", INT(3) SEP "Cls 1"},
    {"COLOR@(0,1)-(2,3)", INT(0) SEP INT(1) SEP INT(2) SEP INT(3) SEP "ColorAt 0"},
    {"COLOR@(0,1)-(2,3),5", INT(0) SEP INT(1) SEP INT(2) SEP INT(3) SEP INT(5) SEP "ColorAt 1"},
    {"CONSOLE 0,25", INT(0) SEP INT(25) SEP "Console 2"},
    {"CONSOLE 1", INT(1) SEP "Console 1"},
    {"CONSOLE ,10", OMIT SEP INT(10) SEP "Console 2"},
    {"CONSOLE 1,2,0,1,0", INT(1) SEP INT(2) SEP INT(0) SEP INT(1) SEP INT(0) SEP "Console 5"},
    {"FILES", "Files 0"},
    {"FILES 2", INT(2) SEP "Files 1"},
    {"LOCATE 1", INT(1) SEP "Locate 1"},
    {"LOCATE ,5", OMIT SEP INT(5) SEP "Locate 2"},
    {"LOCATE 1,2,0", INT(1) SEP INT(2) SEP INT(0) SEP "Locate 3"},
    {"LOCATE 1 2", INT(1) SEP INT(2) SEP "Locate 2"},  // no separator is demanded
    {"LOCATE 1;2", INT(1) SEP INT(2) SEP "Locate 2"},
    {"LOCATE 1,", INT(1) SEP "Locate 1"},
    {"MOUSE", "MouseProc 0"},
    {"MOUSE 0", INT(0) SEP "MouseProc 1"},
    {"MOUSE 4,1,2,3,4", INT(4) SEP INT(1) SEP INT(2) SEP INT(3) SEP INT(4) SEP "MouseProc 5"},
    {"MOUSE 2,,3,\"A\"", INT(2) SEP OMIT SEP INT(3) SEP STR("A") SEP "MouseProc 4"},
    {"MOUSE=1,2", ""},
    {"PAINT(1,2)", INT(1) SEP INT(2) SEP OMIT SEP OMIT SEP "Paint 0"},
    {"PAINT STEP(1,2),3", INT(1) SEP INT(2) SEP INT(3) SEP OMIT SEP "Paint 1"},
    {"PAINT(1,2),3,4", INT(1) SEP INT(2) SEP INT(3) SEP INT(4) SEP "Paint 0"},
    {"PAINT(1,2),,4", INT(1) SEP INT(2) SEP OMIT SEP INT(4) SEP "Paint 0"},
    {"PAINT(1,2),A$", INT(1) SEP INT(2) SEP LOAD("A$") SEP OMIT SEP "Paint 0"},
    {"POINT(1,2)", INT(1) SEP INT(2) SEP "PointProc 0"},
    {"POINT STEP(1,2)", INT(1) SEP INT(2) SEP "PointProc 1"},
    {"PRESET(1,2)", INT(1) SEP INT(2) SEP "PReset 0"},
    {"PRESET STEP(1,2)", INT(1) SEP INT(2) SEP "PReset 1"},
    {"PRESET(1,2),3", INT(1) SEP INT(2) SEP INT(3) SEP "PSet 0"},  // as PSET
    {"PRESET STEP(1,2),3", INT(1) SEP INT(2) SEP INT(3) SEP "PSet 1"},
    {"PSET(1,2)", INT(1) SEP INT(2) SEP OMIT SEP "PSet 0"},
    {"PSET STEP(1,2)", INT(1) SEP INT(2) SEP OMIT SEP "PSet 1"},
    {"PSET(1,2),3", INT(1) SEP INT(2) SEP INT(3) SEP "PSet 0"},
    {"PSET(1,2),", INT(1) SEP INT(2) SEP OMIT SEP "PSet 0"},
    {"PSET(1,2", INT(1) SEP INT(2) SEP OMIT SEP "PSet 0"},  // four elements are enough
    {"RANDOMIZE", "Randomize 0"},
    {"RANDOMIZE 5", INT(5) SEP "Randomize 1"},
    {"SCREEN 3", INT(3) SEP "Screen 1"},
    {"SCREEN ,,1,17", OMIT SEP OMIT SEP INT(1) SEP INT(17) SEP "Screen 4"},
    {"SLEEP 100", INT(100) SEP "XSleep"},
};

constexpr TCompileRow FAULTS[] = {
    {"BEEP 1,2", TOO_MANY},
    {"BEEP \"A\"", MISMATCH},
    {"BEEP )", SYNTAX},
    {"BEEP STEP", SYNTAX},
    {"BEEP ?", SYNTAX},
    {"BEEP FOR", SYNTAX},
    {"CLOSE \"A\"", MISMATCH},
    {"CLS 1,2", TOO_MANY},
    {"CLS \"A\"", MISMATCH},
    {"COLOR@(0,1)", MISSING},
    {"COLOR@(0,1)-(2,3),5,6", TOO_MANY},
    {"COLOR@ 0,1", MISMATCH},
    {"COLOR@(0,1)(2,3)", MISMATCH},
    {"COLOR@(0,\"A\")-(2,3)", MISMATCH},
    {"COLOR@(0,,1)", MISSING},
    {"CONSOLE", MISSING},
    {"CONSOLE 1,2,3,4,5,6", TOO_MANY},
    {"CONSOLE \"A\"", MISMATCH},
    {"FILES 1,2", TOO_MANY},
    {"FILES \"A\"", MISMATCH},
    {"LOCATE", MISSING},
    {"LOCATE 1,2,3,4", TOO_MANY},
    {"LOCATE A$", MISMATCH},
    {"LOCATE 1,2)", SYNTAX},
    {"LOCATE ()", MISMATCH},
    {"MOUSE 1,2,3,4,5,6", TOO_MANY},
    {"MOUSE \"A\"", MISMATCH},
    {"MOUSE 1,2,\"A\"", MISMATCH},
    {"MOUSE ?", SYNTAX},
    {"PAINT", MISSING},
    {"PAINT(1,2", MISSING},
    {"PAINT(1,2),3,4,5", TOO_MANY},
    {"PAINT(1,2),3,\"A\"", MISMATCH},
    {"POINT(1,2),3", TOO_MANY},
    {"POINT(1)", SYNTAX},
    {"POINT 1,2", MISMATCH},
    {"PRESET(1,2", MISSING},
    {"PRESET(1,2),3,4", TOO_MANY},
    {"PRESET(1,2),\"A\"", MISMATCH},
    {"PRESET(1,2),,", MISSING},
    {"PSET(1", MISSING},
    {"PSET(1,2,3)", MISMATCH},
    {"PSET(1,2),3,4", TOO_MANY},
    {"PSET(1,2),A$", MISMATCH},
    {"RANDOMIZE \"A\"", MISMATCH},
    {"RANDOMIZE 1,2", TOO_MANY},
    {"SCREEN", MISSING},
    {"SCREEN 1,2,3,4,5", TOO_MANY},
    {"SCREEN \"A\"", MISMATCH},
    {"SLEEP", MISSING},
    {"SLEEP ,", MISSING},
    {"SLEEP 1,2", TOO_MANY},
    {"SLEEP \"A\"", MISMATCH},
};

TEST(StatementsTable, Forms) {
  check_rows(FORMS);
}

TEST(StatementsTable, Faults) {
  check_rows(FAULTS);
}

TEST(StatementsTable, CloseTakesFiveHundredPlaces) {
  std::string list = "CLOSE 1";
  std::string code = INT(1);
  for (int i = 1; i < 500; ++i) {
    list += ",1";
    code += SEP INT(1);
  }
  EXPECT_EQ(compiled(list), code + " / Close 500");
  EXPECT_EQ(compiled(list + ",1"), TOO_MANY);
}

// The mode that Auto Detect finds: 2 without, 3 with a construct of the one dialect only.
TEST(StatementsTable, ModeOfTheList) {
  constexpr struct {
    const char* statement;
    int32_t mode;
  } ROWS[] = {
      {"CONSOLE 0,25", 2},  {"CONSOLE 0,25,0,1", 2}, {"CONSOLE 0,25,0,1,0", 3},
      {"CONSOLE ,,,,1", 2}, {"MOUSE 0", 3},          {"MOUSE=1", 3},
      {"MOUSE(1) ON", 3},   {"A=MOUSE(0)", 3},       {"ON MOUSE(1) GOSUB 10", 3},
      {"CALL MOUSE(A)", 2}, {"ON KEY GOSUB 10", 2},
  };
  for (const auto& row : ROWS) {
    EXPECT_EQ(TCompilation(std::string("10 ") + row.statement).mode, row.mode) << row.statement;
  }
}

TEST(StatementsTable, StoredModeWins) {
  TPrefs prefs;
  TCatalogue catalogue;
  TEngineContext context;
  context.prefs = &prefs;
  context.catalogue = &catalogue;
  prefs.CmpM = COMPAT_DISK;
  TMidCode code;
  TCompiler compiler(context, &code);
  int32_t mode = 0;
  EXPECT_EQ(compiler.Compile("10 MOUSE 0", &mode), TCompileResult::Runnable);
  EXPECT_EQ(mode, COMPAT_DISK);
}

}  // namespace
}  // namespace zoka
