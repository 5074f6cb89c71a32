// The rarest forms of lists: places left out in a row and at the ends, separators that nothing
// follows, arguments without any, parentheses round arguments; and functions of the user whose
// type comes from the letter F.
#include "compile_rows.h"

namespace zoka {
namespace {

#define OMIT2 OMIT SEP OMIT
#define OMIT4 OMIT2 SEP OMIT2

// An argument left out at the end is not pushed; one in front of a further separator is.
constexpr TCompileRow TABLE_STATEMENTS[] = {
    {"BEEP ,", OMIT SEP "Beep 1"},
    {"CLS ,", OMIT SEP "Cls 1"},
    {"FILES ,", OMIT SEP "Files 1"},
    {"RANDOMIZE ,", OMIT SEP "Randomize 1"},
    {"SLEEP 1,", TOO_MANY},
    {"LOCATE ,", OMIT SEP "Locate 1"},
    {"LOCATE ,,0", OMIT2 SEP INT(0) SEP "Locate 3"},
    {"LOCATE 1,,", INT(1) SEP OMIT SEP "Locate 2"},
    {"LOCATE 1,2,", INT(1) SEP INT(2) SEP "Locate 2"},
    {"LOCATE 1,2,3,", TOO_MANY},
    {"LOCATE (1),(2)", INT(1) SEP INT(2) SEP "Locate 2"},
    {"CONSOLE ,,,,", OMIT4 SEP "Console 4"},
    {"CONSOLE ,,,,,", OMIT4 SEP OMIT SEP "Console 5"},
    {"CONSOLE ,,,,,,", TOO_MANY},
    {"SCREEN ,,", OMIT2 SEP "Screen 2"},
    {"CLOSE 1,,2", INT(1) SEP OMIT SEP INT(2) SEP "Close 3"},
    {"MOUSE ,,", OMIT2 SEP "MouseProc 2"},
    {"MOUSE 1,,,,", INT(1) SEP OMIT2 SEP OMIT SEP "MouseProc 4"},
    {"COLOR@(0,1)-(2,3),", INT(0) SEP INT(1) SEP INT(2) SEP INT(3) SEP "ColorAt 0"},
    {"COLOR@(0,1)-(2,3),,", INT(0) SEP INT(1) SEP INT(2) SEP INT(3) SEP OMIT SEP "ColorAt 1"},
    {"COLOR@(0 1)-(2;3)5", INT(0) SEP INT(1) SEP INT(2) SEP INT(3) SEP INT(5) SEP "ColorAt 1"},
    {"PSET((1),(2))", INT(1) SEP INT(2) SEP OMIT SEP "PSet 0"},
    {"PSET(1,2),,", INT(1) SEP INT(2) SEP OMIT SEP "PSet 0"},
    {"PSET(1,2),,,", TOO_MANY},
    {"PSET STEP(-1,-2),-3",
     INT(1) SEP "BNegaInt" SEP INT(2) SEP "BNegaInt" SEP INT(3) SEP "BNegaInt" SEP "PSet 1"},
    {"PSET STEP(1", MISSING},
    {"PSET STEP 1,2", MISMATCH},
    {"PSET(STEP 1,2)", SYNTAX},
    {"PSET(1,2)STEP", SYNTAX},
    {"PRESET STEP(1,2),", INT(1) SEP INT(2) SEP "PReset 1"},
    {"PAINT(1,2),,", INT(1) SEP INT(2) SEP OMIT2 SEP "Paint 0"},
    {"PAINT(1,2),,,", INT(1) SEP INT(2) SEP OMIT2 SEP "Paint 0"},
    {"PAINT STEP(1,2),,4", INT(1) SEP INT(2) SEP OMIT SEP INT(4) SEP "Paint 1"},
};

#define PLAIN(x, y)        \
  "BPushBool 0" SEP INT(x) \
  SEP INT(y)

constexpr TCompileRow OTHER_STATEMENTS[] = {
    {"COLOR ,", OMIT SEP "ColorProc1 1"},
    {"COLOR ,,", OMIT2 SEP "ColorProc1 2"},
    {"PLAY ,,", OMIT2 SEP "Play 2"},
    {"PLAY \"A\",", STR("A") SEP "Play 1"},
    {"PLAY #1", "Play 0"},
    {"PLAY #1;\"A\"", STR("A") SEP "Play 1"},
    {"ROLL ,", OMIT SEP "Roll 1"},
    {"ROLL ,,", OMIT2 SEP "Roll 2"},
    {"WIDTH 80,", INT(80) SEP "WidthProc1 0"},
    {"KEY ,\"A\"", OMIT SEP STR("A") SEP "Key"},
    {"KEY 1,", ILL_CALL},
    {"MID$(A$,,2)=\"X\"", REF("A$") SEP OMIT SEP INT(2) SEP STR("X") SEP "MidDlProc 1"},
    {"MID$(A$,1,)=\"X\"", REF("A$") SEP INT(1) SEP STR("X") SEP "MidDlProc 0"},
    {"READ A,", REF("A!") SEP "Read 1"},
    {"READ ,A", SYNTAX},
    {"DIM A(1)B(,2)", INT(-1) SEP INT(1) SEP "BPushVar var:A!" SEP INT(-1) SEP OMIT SEP INT(2) SEP
     "BPushVar var:B!" SEP "Dim 2"},
    {"SWAP A B,", REF("A!") SEP REF("B!") SEP "Swap 2"},
    {"CALL MOUSE()", "CallMouse 0"},
    {"CALL MOUSE(A,)", REF("A!") SEP "CallMouse 1"},
    {"LINE(1,2)-(,3)", PLAIN(1, 2) SEP "BPushBool 0" SEP OMIT SEP INT(3) SEP "Line 0"},
    {"LINE-(3,4),,,7", OMIT SEP PLAIN(3, 4) SEP OMIT SEP INT(7) SEP "Line 2"},
    {"LINE-(3,4),5,BF,,", OMIT SEP PLAIN(3, 4) SEP INT(5) SEP OMIT SEP "FillRect 2"},
    {"CIRCLE(1,2),3,,-1",
     PLAIN(1, 2) SEP INT(3) SEP OMIT SEP INT(1) SEP "BNegaInt" SEP "StrokeArc 2"},
    {"CIRCLE(1,2),3,,,", PLAIN(1, 2) SEP INT(3) SEP OMIT2 SEP "StrokeEllipse 2"},
    {"CIRCLE(1,2),3,,,,,F", PLAIN(1, 2) SEP INT(3) SEP OMIT4 SEP "FillEllipse 4"},
    {"PUT@(1,2),A%,PSET,", INT(1) SEP INT(2) SEP REF("A%") SEP INT(0) SEP "PutAtProc1 1"},
    {"PUT@(1,2),A%,,", INT(1) SEP INT(2) SEP REF("A%") SEP INT(4) SEP "PutAtProc1 1"},
};

#define PRINTED(code) code SEP "Print 0" SEP "BUpdateScreen"

constexpr TCompileRow FUNCTIONS[] = {
    {"PRINT INSTR(,A$,B$);", PRINTED(OMIT SEP LOAD("A$") SEP LOAD("B$") SEP "Instr 1")},
    {"PRINT INSTR(A$,B$,);", PRINTED(LOAD("A$") SEP LOAD("B$") SEP "Instr 0")},
    {"PRINT MID$(A$,2,);", PRINTED(LOAD("A$") SEP INT(2) SEP "MidDlFunc 0")},
    {"PRINT MID$(A$,2,,);", PRINTED(LOAD("A$") SEP INT(2) SEP OMIT SEP "MidDlFunc 1")},
    {"PRINT MID$(A$,,2);", MISSING},
    {"PRINT KMID$(A$ 2 3);", PRINTED(LOAD("A$") SEP INT(2) SEP INT(3) SEP "KmidDl 1")},
    {"PRINT LEFT$((A$),(1));", PRINTED(LOAD("A$") SEP INT(1) SEP "LeftDl")},
    {"PRINT STRING$(3\"A\");", PRINTED(INT(3) SEP STR("A") SEP "StringDl")},
    {"PRINT LEN(A$,);", PRINTED(LOAD("A$") SEP "Len")},
    {"PRINT LEN(,);", MISSING},
    {"PRINT KLEN(A$,);", PRINTED(LOAD("A$") SEP "Klen 0")},
    {"PRINT KLEN(A$,,);", PRINTED(LOAD("A$") SEP OMIT SEP "Klen 1")},
    {"PRINT INPUT$(3;#1);", PRINTED(INT(3) SEP INT(1) SEP "InputDl 1")},
    {"PRINT POINT(1,);", PRINTED(INT(1) SEP "PointFunc1")},
    {"PRINT POINT(1,,);", PRINTED(INT(1) SEP OMIT SEP "PointFunc2")},
    {"PRINT POINT(,1);", MISSING},
    {"PRINT MOUSE(2,,);", PRINTED(INT(2) SEP OMIT SEP "MouseFunc 1")},
    {"PRINT SIN ((1));", PRINTED(INT(1) SEP "Sin")},
    {"PRINT RND (1);", PRINTED(INT(1) SEP "Rnd")},
    {"PRINT CVI (1);", PRINTED(INT(0))},
    {"PRINT SEARCH(A%,,,2);", PRINTED(REF("A%") SEP OMIT2 SEP INT(2) SEP "Search")},
    {"PRINT SEARCH(A%,5,);", PRINTED(REF("A%") SEP INT(5) SEP OMIT2 SEP "Search")},
    {"PRINT SEARCH(A%,,);", PRINTED(REF("A%") SEP OMIT2 SEP OMIT SEP "Search")},
    {"PRINT FNA();", PRINTED("BPushSpecial 17" SEP "BCallUserFunc \"FNA\"")},
    {"PRINT FNA (1,);", PRINTED("BPushSpecial 17" SEP INT(1) SEP "BCallUserFunc \"FNA\"")},
};

#define CALL_FNA "BPushSpecial 17" SEP "BCallUserFunc \"FNA\""
#define DEF_FN(body) JMP("@L0") SEP "@L1:" SEP body SEP "BRetFromUserFunc" SEP "@L0:"

// A name without a suffix has the type that its first letter, F, stands for at that place.
constexpr TCompileRow USER_FUNCTIONS[] = {
    {"DEFINT F:PRINT FNA+1;", PRINTED(CALL_FNA SEP INT(1) SEP "BAddInt")},
    {"DEFDBL F:PRINT FNA+1;", PRINTED(CALL_FNA SEP INT(1) SEP "BAddDouble")},
    {"DEFSTR F:PRINT FNA+\"x\";", PRINTED(CALL_FNA SEP STR("x") SEP "BAddString")},
    {"DEFSTR F:PRINT FNA+1;", "@Compile_Err_Type_Mismatch_Calc@"},
    {"DEFSTR A-E,G-Z:PRINT FNA+1;", PRINTED(CALL_FNA SEP INT(1) SEP "BAddFloat")},
    {"DEFINT F:DEF FNA=1.5", DEF_FN("BPushFloat 1.5" SEP "Cint")},
    {"DEFDBL F:DEF FNA=1", DEF_FN(INT(1) SEP "Cdbl")},
    {"DEFINT F:DEF FNA!=1", DEF_FN(INT(1) SEP "Csng")},
    {"DEFSTR F:DEF FNA=\"x\"", DEF_FN(STR("x"))},
    {"DEFSTR F:DEF FNA=1", ASSIGN_MISMATCH},
    {"DEFINT X:DEF FNA(X)=X+X!",
     DEF_FN("BLoadUserFuncParam 0" SEP LOAD("X!") SEP "BAddFloat" SEP "Csng")},
};

TEST(RareForms, StatementsOfTheTable) {
  check_rows(TABLE_STATEMENTS);
}

TEST(RareForms, StatementsReadByHand) {
  check_rows(OTHER_STATEMENTS);
}

TEST(RareForms, Functions) {
  check_rows(FUNCTIONS);
}

TEST(RareForms, TypesOfUserFunctions) {
  check_rows(USER_FUNCTIONS);
}

// Five places with nothing in them are not the fifth argument that only the one dialect has.
TEST(RareForms, EmptyPlacesTellNoDialect) {
  EXPECT_EQ(TCompilation("10 CONSOLE ,,,,,").mode, COMPAT_DISK);
}

}  // namespace
}  // namespace zoka
