// Statements of the picture that are read by hand, and WIDTH: forms and faults.
#include "compile_rows.h"

namespace zoka {
namespace {

#define POINT(x, y) INT(x) SEP INT(y)
#define PLAIN(x, y) "BPushBool 0" SEP POINT(x, y)
#define STEPPED(x, y) "BPushBool 1" SEP POINT(x, y)

constexpr TCompileRow COLOR[] = {
    {"COLOR", "InitColorPalette"},
    {"COLOR 7", INT(7) SEP "ColorProc1 1"},
    {"COLOR ,,,,2", OMIT SEP OMIT SEP OMIT SEP OMIT SEP INT(2) SEP "ColorProc1 5"},
    {"COLOR 7,", INT(7) SEP "ColorProc1 1"},
    {"COLOR=(1,2)", INT(1) SEP INT(2) SEP "ColorProc2"},
    {"COLOR=(1,2):BEEP", INT(1) SEP INT(2) SEP "ColorProc2" SEP "Beep 0"},
    {"COLOR 1,2,3,4,5,6", ILL_CALL},
    {"COLOR=(1)", ILL_CALL},
    {"COLOR=(1,2,3)", ILL_CALL},
    {"COLOR=1", NO_LPAR},
    {"COLOR=(1,2", NO_RPAR},
    {"COLOR ?", SYNTAX},
};

constexpr TCompileRow LINE[] = {
    {"LINE(1,2)-(3,4)", PLAIN(1, 2) SEP PLAIN(3, 4) SEP "Line 0"},
    {"LINE-(3,4)", OMIT SEP PLAIN(3, 4) SEP "Line 0"},
    {"LINE STEP(1,2)-STEP(3,4)", STEPPED(1, 2) SEP STEPPED(3, 4) SEP "Line 0"},
    {"LINE-(3,4),5", OMIT SEP PLAIN(3, 4) SEP INT(5) SEP "Line 1"},
    {"LINE-(3,4),5,B", OMIT SEP PLAIN(3, 4) SEP INT(5) SEP "StrokeRect 1"},
    {"LINE-(3,4),,BF", OMIT SEP PLAIN(3, 4) SEP OMIT SEP "FillRect 1"},
    {"LINE-(3,4),5,BF,2", OMIT SEP PLAIN(3, 4) SEP INT(5) SEP INT(2) SEP "FillRect 2"},
    {"LINE-(3,4),5,B,T$", OMIT SEP PLAIN(3, 4) SEP INT(5) SEP LOAD("T$") SEP "StrokeRect 2"},
    {"LINE-(3,4),5,BOX", OMIT SEP PLAIN(3, 4) SEP INT(5) SEP "StrokeRect 1"},
    {"LINE-(3,4),5,,&HFF", OMIT SEP PLAIN(3, 4) SEP INT(5) SEP INT(255) SEP "Line 2"},
    {"LINE-(3,4),5,B,", OMIT SEP PLAIN(3, 4) SEP INT(5) SEP "StrokeRect 1"},
    {"LINE-(3,4),", OMIT SEP PLAIN(3, 4) SEP "Line 0"},
    {"LINE-(3,4),5,", OMIT SEP PLAIN(3, 4) SEP INT(5) SEP "Line 1"},
    {"LINE-(3,4),,", OMIT SEP PLAIN(3, 4) SEP OMIT SEP "Line 1"},
    {"LINE-(3,4),BF", OMIT SEP PLAIN(3, 4) SEP LOAD("BF!") SEP "Line 1"},  // a colour's place
    {"LINE", NO_LPAR},
    {"LINE 1,2", NO_LPAR},
    {"LINE(1,2)-3", NO_LPAR},
    {"LINE(1,2)(3,4)", NO_MINUS},
    {"LINE(1,2", NO_RPAR},
    {"LINE(1,2)-(3,4", NO_RPAR},
    {"LINE(1)-(3,4)", ILL_CALL},
    {"LINE-(3,4,5)", ILL_CALL},
    {"LINE-(3,4),\"A\"", MISMATCH},
    {"LINE-(3,4),5,C", SYNTAX},
    {"LINE-(3,4),5,1", SYNTAX},
    {"LINE-(3,4),5,\"B\"", SYNTAX},
    {"LINE-(3,4),5,B,1,2", ILL_CALL},
    {"LINE \"INPUT\"", NO_LPAR},
};

constexpr TCompileRow CIRCLE[] = {
    {"CIRCLE(1,2),3", PLAIN(1, 2) SEP INT(3) SEP "StrokeEllipse 0"},
    {"CIRCLE STEP(1,2),3,4", STEPPED(1, 2) SEP INT(3) SEP INT(4) SEP "StrokeEllipse 1"},
    {"CIRCLE(1,2),3,4,.5",
     PLAIN(1, 2) SEP INT(3) SEP INT(4) SEP "BPushFloat 0.5" SEP "StrokeArc 2"},
    {"CIRCLE(1,2),3,,,6", PLAIN(1, 2) SEP INT(3) SEP OMIT SEP OMIT SEP INT(6) SEP "StrokeArc 3"},
    {"CIRCLE(1,2),3,,,,2",
     PLAIN(1, 2) SEP INT(3) SEP OMIT SEP OMIT SEP OMIT SEP INT(2) SEP "StrokeEllipse 4"},
    {"CIRCLE(1,2),3,4,,,,F",
     PLAIN(1, 2) SEP INT(3) SEP INT(4) SEP OMIT SEP OMIT SEP OMIT SEP "FillEllipse 4"},
    {"CIRCLE(1,2),3,4,1,2,,F,5",
     PLAIN(1, 2) SEP INT(3) SEP INT(4) SEP INT(1) SEP INT(2) SEP OMIT SEP INT(5) SEP "FillArc 5"},
    {"CIRCLE(1,2),3,4,,,,,5",
     PLAIN(1, 2) SEP INT(3) SEP INT(4) SEP OMIT SEP OMIT SEP OMIT SEP INT(5) SEP "StrokeEllipse 5"},
    {"CIRCLE(1,2),3,", PLAIN(1, 2) SEP INT(3) SEP "StrokeEllipse 0"},
    {"CIRCLE(1,2),3,4,,", PLAIN(1, 2) SEP INT(3) SEP INT(4) SEP OMIT SEP "StrokeEllipse 2"},
    {"CIRCLE(1,2),,4", PLAIN(1, 2) SEP OMIT SEP INT(4) SEP "StrokeEllipse 1"},
    {"CIRCLE(1,2),", PLAIN(1, 2) SEP OMIT SEP "StrokeEllipse 0"},
    {"CIRCLE", NO_LPAR},
    {"CIRCLE(1,2)", NO_COMMA},
    {"CIRCLE(1),3", ILL_CALL},
    {"CIRCLE(1,2", NO_RPAR},
    {"CIRCLE(1,2),3,4,,,,G", SYNTAX},
    {"CIRCLE(1,2),3,4,,,,\"F\"", SYNTAX},
    {"CIRCLE(1,2),3,4,,,,F,5,6", ILL_CALL},
};

constexpr TCompileRow GET_PUT[] = {
    {"GET@(1,2)-(3,4),A%", POINT(1, 2) SEP POINT(3, 4) SEP REF("A%") SEP "GetAt 0"},
    {"GET(1,2)-STEP(3,4),A%(5)",
     POINT(1, 2) SEP POINT(3, 4) SEP INT(-1) SEP INT(5) SEP "BPushVar var:A%" SEP "GetAt 1"},
    {"GET@ STEP(1,2)-(3,4),A%", POINT(1, 2) SEP POINT(3, 4) SEP REF("A%") SEP "GetAt 0"},
    {"GET @(1,2)-(3,4),A%", POINT(1, 2) SEP POINT(3, 4) SEP REF("A%") SEP "GetAt 0"},
    {"GET #1,2", ""},
    {"GET", ""},
    {"PUT@(1,2),A%", POINT(1, 2) SEP REF("A%") SEP "PutAtProc1 0"},
    {"PUT(1,2),A%(3),PSET",
     POINT(1, 2) SEP INT(-1) SEP INT(3) SEP "BPushVar var:A%" SEP INT(0) SEP "PutAtProc1 1"},
    {"PUT @(1,2),A%,PRESET", POINT(1, 2) SEP REF("A%") SEP INT(1) SEP "PutAtProc1 1"},
    {"PUT@(1,2),A%,OR", POINT(1, 2) SEP REF("A%") SEP INT(2) SEP "PutAtProc1 1"},
    {"PUT@(1,2),A%,AND", POINT(1, 2) SEP REF("A%") SEP INT(3) SEP "PutAtProc1 1"},
    {"PUT@(1,2),A%,XOR", POINT(1, 2) SEP REF("A%") SEP INT(4) SEP "PutAtProc1 1"},
    {"PUT@(1,2),A%,,7", POINT(1, 2) SEP REF("A%") SEP INT(4) SEP INT(7) SEP "PutAtProc1 2"},
    {"PUT@(1,2),A%,", POINT(1, 2) SEP REF("A%") SEP "PutAtProc1 0"},
    {"PUT@(1,2),KANJI(65)", POINT(1, 2) SEP INT(65) SEP "PutAtProc2 0"},
    {"PUT@(1,2),KANJI(&H3021),PSET,7,0",
     POINT(1, 2) SEP INT(12321) SEP INT(0) SEP INT(7) SEP INT(0) SEP "PutAtProc2 3"},
    {"PUT@(1,2),KANJI(65),OR,,1",
     POINT(1, 2) SEP INT(65) SEP INT(2) SEP OMIT SEP INT(1) SEP "PutAtProc2 3"},
    {"PUT #1,2", ""},
    {"GET@ 1", NO_LPAR},
    {"GET@(1)-(3,4),A", ILL_CALL},
    {"GET@(1,2)-(3),A", ILL_CALL},
    {"GET@(1,2)(3,4),A", NO_MINUS},
    {"GET@(1,2)-3,4,A", NO_LPAR},
    {"GET@(1,2)-(3,4)", NO_COMMA},
    {"GET@(1,2)-(3,4),5", SYNTAX},
    {"GET@(1,2)-(3,4),", SYNTAX},
    {"PUT@ 1", NO_LPAR},
    {"PUT@ STEP(1,2),A", NO_LPAR},
    {"PUT@(1),A", ILL_CALL},
    {"PUT@(1,2)", NO_COMMA},
    {"PUT@(1,2),5", SYNTAX},
    {"PUT@(1,2),A,FOO", SYNTAX},
    {"PUT@(1,2),A,\"OR\"", SYNTAX},
    {"PUT@(1,2),KANJI 5", NO_LPAR},
    {"PUT@(1,2),KANJI(\"A\")", MISMATCH},
    {"PUT@(1,2),KANJI(5", NO_RPAR},
    {"PUT@(1,2),KANJI(65),,7,0,1", ILL_CALL},
};

constexpr TCompileRow OTHERS[] = {
    {"ROLL 10", INT(10) SEP "Roll 1"},
    {"ROLL ,5", OMIT SEP INT(5) SEP "Roll 2"},
    {"ROLL 1,2,Y", INT(1) SEP INT(2) SEP INT(89) SEP "Roll 3"},
    {"ROLL ,,N", OMIT SEP OMIT SEP INT(78) SEP "Roll 3"},
    {"ROLL 1,", INT(1) SEP "Roll 1"},
    {"ROLL 1,2,", INT(1) SEP INT(2) SEP "Roll 2"},
    {"ROLL", ILL_CALL},
    {"ROLL A$", MISMATCH},
    {"ROLL 1,A$", MISMATCH},
    {"ROLL 1,2,X", ILL_CALL},
    {"ROLL 1,2,\"Y\"", ILL_CALL},
    {"ROLL 1,2,3", ILL_CALL},
    {"ROLL 1,2,Y,1", ILL_CALL},
    {"ROLL 1 2", NO_COMMA},
    {"ROLL ?", NO_COMMA},
    {"WIDTH 80", INT(80) SEP "WidthProc1 0"},
    {"WIDTH 80,25", INT(80) SEP INT(25) SEP "WidthProc1 1"},
    {"WIDTH #1,80", ""},
    {"WIDTH \"SCRN:\",80", ""},
    {"WIDTH A$,80", ""},
    {"WIDTH", MISSING},
    {"WIDTH ,25", MISSING},
    {"WIDTH 1,2,3", ILL_CALL},
    {"WIDTH ?", SYNTAX},
};

TEST(StatementsGraphics, Color) {
  check_rows(COLOR);
}

TEST(StatementsGraphics, Line) {
  check_rows(LINE);
}

TEST(StatementsGraphics, Circle) {
  check_rows(CIRCLE);
}

TEST(StatementsGraphics, GetAndPut) {
  check_rows(GET_PUT);
}

TEST(StatementsGraphics, RollAndWidth) {
  check_rows(OTHERS);
}

}  // namespace
}  // namespace zoka
