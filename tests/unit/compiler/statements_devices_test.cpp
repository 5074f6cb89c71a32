// Statements of files, sound and the mouse; those that are accepted without code; comments.
#include "compile_rows.h"

namespace zoka {
namespace {

constexpr TCompileRow FORMS[] = {
    {"OPEN \"A\" FOR INPUT AS #1", STR("A") SEP INT(1) SEP "Open 10"},
    {"OPEN A$ FOR OUTPUT AS 2", LOAD("A$") SEP INT(2) SEP "Open 11"},
    {"OPEN \"A\"+B$ FOR APPEND AS #1",
     STR("A") SEP LOAD("B$") SEP "BAddString" SEP INT(1) SEP "Open 12"},
    {"OPEN \"A\" AS N", STR("A") SEP LOAD("N!") SEP "Open 13"},
    {"OPEN \"A\" AS 1+1", STR("A") SEP INT(1) SEP INT(1) SEP "BAddInt" SEP "Open 13"},
    {"PLAY", "Play 0"},
    {"PLAY \"A\",B$", STR("A") SEP LOAD("B$") SEP "Play 2"},
    {"PLAY ,\"B\"", OMIT SEP STR("B") SEP "Play 2"},
    {"PLAY #1,\"A\"", STR("A") SEP "Play 1"},
    {"PLAY 1,2,3,4,5,6",
     INT(1) SEP INT(2) SEP INT(3) SEP INT(4) SEP INT(5) SEP INT(6) SEP "Play 6"},
    {"PLAY \"ON\"", STR("ON") SEP "Play 1"},
    {"PLAY ALLOC 1,2", INT(1) SEP INT(2) SEP "PlayAlloc 2"},
    {"PLAY ALLOC 1,2,3,4,5,6",
     INT(1) SEP INT(2) SEP INT(3) SEP INT(4) SEP INT(5) SEP INT(6) SEP "PlayAlloc 6"},
    {"PLAY ALLOC", "PlayAlloc 0"},
    {"PLAY ON", INT(262144) SEP INT(2) SEP "SetIrState"},
    {"PLAY OFF", INT(262144) SEP INT(0) SEP "SetIrState"},
    {"PLAY STOP", INT(262144) SEP INT(1) SEP "SetIrState"},
    {"CALL MOUSE(A,B(1))",
     REF("A!") SEP INT(-1) SEP INT(1) SEP "BPushVar var:B!" SEP "CallMouse 2"},
    {"CALL MOUSE(A):BEEP", REF("A!") SEP "CallMouse 1" SEP "Beep 0"},
    {"CALL X(1,\"A\")", ""},
    {"REM anything ( \" : BEEP", ""},
    {"BEEP 'anything ( \" : BEEP", "Beep 0"},
    {"NAME \"A\" AS \"B\":BEEP", "Beep 0"},
    {"FIELD #1,10 AS A$,20 AS B$:BEEP", "Beep 0"},
    {"ERROR 5 'x\n20 BEEP", "BLineBegin 20" SEP "Beep 0"},
    {"IF 1 THEN POKE 1,2 ELSE BEEP",
     STR("@L0") SEP INT(1) SEP "BFJmp" SEP JMP("@L1") SEP "@L0:" SEP "Beep 0" SEP "@L1:"},
};

constexpr TCompileRow FAULTS[] = {
    {"OPEN \"A\"", SYNTAX},
    {"OPEN \"A\" FOR READ AS #1", SYNTAX},
    {"OPEN \"A\" FOR INPUT #1", SYNTAX},
    {"OPEN \"A\" FOR \"INPUT\" AS #1", SYNTAX},
    {"OPEN 1 AS #1", MISMATCH},
    {"OPEN FOR INPUT AS #1", MISMATCH},
    {"OPEN \"A\" AS \"B\"", MISMATCH},
    {"OPEN \"A\" AS #1,2", SYNTAX},
    {"OPEN \"A\" AS#1", SYNTAX},
    {"OPEN \"A\" AS #N", SYNTAX},
    {"PLAY 1,2,3,4,5,6,7", ILL_CALL},
    {"PLAY ALLOC 1,2,3,4,5,6,7", ILL_CALL},
    {"PLAY ?", SYNTAX},
    {"PLAY FOO BAR,ON", SYNTAX},
    {"CALL MOUSE A", NO_LPAR},
    {"CALL MOUSE(1)", SYNTAX},
    {"CALL MOUSE(A", NO_RPAR},
    {"CALL X(1", NO_RPAR},
};

// Each takes any argument and yields no code.
constexpr const char* IGNORED[] = {
    "AUTO",   "BLOAD", "BSAVE", "CLEAR", "CMD",    "COM",    "COMMON", "CONT", "COPY",
    "DELETE", "DRAW",  "DSKO$", "EDIT",  "ERASE",  "ERROR",  "FIELD",  "KILL", "KPLOAD",
    "LFILES", "LIST",  "LLIST", "LOAD",  "LPRINT", "LSET",   "MERGE",  "NAME", "NEW",
    "OUT",    "PEN",   "POKE",  "RENUM", "RESUME", "RSET",   "SAVE",   "SET",  "TERM",
    "TROFF",  "TRON",  "VIEW",  "VOICE", "WAIT",   "WINDOW",
};

TEST(StatementsDevices, Forms) {
  check_rows(FORMS);
}

TEST(StatementsDevices, Faults) {
  check_rows(FAULTS);
}

TEST(StatementsDevices, IgnoredStatements) {
  for (const std::string word : IGNORED) {
    EXPECT_EQ(compiled(word), "") << word;
    EXPECT_EQ(compiled(word + " 1,\"A\";(B+(2)) PRINT:BEEP"), "Beep 0") << word;
    EXPECT_EQ(compiled(word + " (1"), NO_RPAR) << word;
    EXPECT_EQ(compiled(word + " 1)"), SYNTAX) << word;
    EXPECT_EQ(compiled(word + " \x01"), "@Compile_Err_Unknown_Symbol %Symbol%@") << word;
  }
}

}  // namespace
}  // namespace zoka
