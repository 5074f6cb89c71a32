// IF, the jumps, the ends of a program, RUN and CHAIN: code shapes with their labels, and faults.
#include "compile_rows.h"

namespace zoka {
namespace {

constexpr char NO_THEN[] = "@Compile_Err_If_Without_Then@";

#define IF_A STR("@L0") SEP LOAD("A!") SEP "BFJmp"

constexpr TCompileRow IF[] = {
    {"IF A THEN 100", IF_A SEP INT(100) SEP "BJmp" SEP "@L0:"},
    {"IF A GOTO 100", IF_A SEP INT(100) SEP "BJmp" SEP "@L0:"},
    {"IF A THEN GOTO 100", IF_A SEP INT(100) SEP "BJmp" SEP "@L0:"},
    {"IF A THEN *L", IF_A SEP JMP("L") SEP "@L0:"},
    {"IF A GOTO *L", IF_A SEP JMP("L") SEP "@L0:"},
    {"IF A THEN B", IF_A SEP LOAD("B!") SEP "BJmp" SEP "@L0:"},  // a line number in B
    {"IF A THEN B=1", IF_A SEP REF("B!") SEP INT(1) SEP "BAssignArray" SEP "@L0:"},
    {"IF A THEN BEEP:CLS", IF_A SEP "Beep 0" SEP "Cls 0" SEP "@L0:"},
    // Only the first statement may be a line number.
    {"IF A THEN BEEP:100", SYNTAX},
    {"IF A THEN 100 ELSE 200",
     IF_A SEP INT(100) SEP "BJmp" SEP JMP("@L1") SEP "@L0:" SEP INT(200) SEP "BJmp" SEP "@L1:"},
    {"IF A THEN BEEP ELSE *L", IF_A SEP "Beep 0" SEP JMP("@L1") SEP "@L0:" SEP JMP("L") SEP "@L1:"},
    {"IF A THEN ELSE BEEP", IF_A SEP JMP("@L1") SEP "@L0:" SEP "Beep 0" SEP "@L1:"},
    // An ELSE belongs to the nearest IF.
    {"IF A THEN IF B THEN 1 ELSE 2", IF_A SEP STR("@L1") SEP LOAD("B!") SEP "BFJmp" SEP INT(1) SEP
     "BJmp" SEP JMP("@L2") SEP "@L1:" SEP INT(2) SEP "BJmp" SEP "@L0:" SEP "@L2:"},
    {"IF A THEN IF B THEN 1 ELSE 2 ELSE 3", IF_A SEP STR("@L1") SEP LOAD("B!") SEP
     "BFJmp" SEP INT(1) SEP "BJmp" SEP JMP("@L2") SEP "@L1:" SEP INT(2) SEP
     "BJmp" SEP "@L2:" SEP JMP("@L3") SEP "@L0:" SEP INT(3) SEP "BJmp" SEP "@L3:"},
    {"IF A THEN 1 ELSE 2 ELSE 3", DIRECT},
    {"IF A THEN BEEP\n20 CLS", IF_A SEP "Beep 0" SEP "@L0:" SEP "BLineBegin 20" SEP "Cls 0"},
    {"IF A THEN\n20 CLS", IF_A SEP "@L0:" SEP "BLineBegin 20" SEP "Cls 0"},
    {"IF A$=\"X\" THEN 1", STR("@L0") SEP LOAD("A$") SEP STR("X") SEP
     "BEqualString" SEP "BFJmp" SEP INT(1) SEP "BJmp" SEP "@L0:"},
    {"IF A", NO_THEN},
    {"IF A:BEEP", NO_THEN},
    {"IF A GO TO 20", NO_THEN},
    {"IF A GOSUB 20", NO_THEN},
    {"IF A \"GOTO\" 20", NO_THEN},
    {"IF A THEN 1=2", UNLVALUE},
    {"IF A THEN ?", SYNTAX},
    {"ELSE", DIRECT},
};

constexpr TCompileRow JUMPS[] = {
    {"GOTO 100", INT(100) SEP "BJmp"},
    {"GO TO 100", INT(100) SEP "BJmp"},
    {"GOTO *L", JMP("L")},
    {"GOTO A*10", LOAD("A!") SEP INT(10) SEP "BMulFloat" SEP "BJmp"},
    {"GOTO \"X\"", STR("X") SEP "BJmp"},
    {"GOTO", SYNTAX},
    {"GOTO PRINT", SYNTAX},
    {"GOTO100", LOAD("GOTO100!")},
    {"GOSUB 100", INT(100) SEP "BCall"},
    {"GOSUB *L", STR("L") SEP "BCall"},
    {"GOSUB", "BCall"},  // fails when it runs
    {"GOSUB PRINT", SYNTAX},
    {"RETURN", "BRet 1"},
    {"RETURN:BEEP", "BRet 1" SEP "Beep 0"},
    {"RETURN 100", INT(100) SEP "BRet 0"},
    {"RETURN *L", STR("L") SEP "BRet 0"},
    {"RETURN PRINT", SYNTAX},
    {"END", "BExit"},
    {"END 5", SYNTAX},
    {"STOP", "Stop"},
    {"STOP ON", INT(8) SEP INT(2) SEP "SetIrState"},
    {"STOP OFF", INT(8) SEP INT(0) SEP "SetIrState"},
    {"STOP STOP", INT(8) SEP INT(1) SEP "SetIrState"},
    {"STOP X", SYNTAX},
    {"STOP ,", SYNTAX},
    {"STOP \"ON\"", SYNTAX},
};

constexpr TCompileRow ON[] = {
    {"ON X GOTO 10,,30", LOAD("X!") SEP INT(10) SEP OMIT SEP INT(30) SEP "OnGoto 3"},
    {"ON X GO TO 10", LOAD("X!") SEP INT(10) SEP "OnGoto 1"},
    {"ON X+1 GOSUB *A,20",
     LOAD("X!") SEP INT(1) SEP "BAddFloat" SEP STR("A") SEP INT(20) SEP "OnGosub 2"},
    {"ON X GOTO ,10", LOAD("X!") SEP OMIT SEP INT(10) SEP "OnGoto 2"},
    {"ON X GOTO 10,", LOAD("X!") SEP INT(10) SEP "OnGoto 1"},
    {"ON X GOTO 10 20", LOAD("X!") SEP INT(10) SEP INT(20) SEP "OnGoto 2"},
    {"ON X GOTO 10:BEEP", LOAD("X!") SEP INT(10) SEP "OnGoto 1" SEP "Beep 0"},
    {"ON GOTO 10", INT(10) SEP "OnGoto 1"},
    {"ON X GOTO", SYNTAX},
    {"ON X GOTO :", SYNTAX},
    {"ON X", SYNTAX},
    {"ON X PRINT", SYNTAX},
    {"ON X \"GOTO\" 10", SYNTAX},
    {"ON X GOTO ?", SYNTAX},
    {"ON X GOTO 10;20", SYNTAX},
    {"ON X GOTO FOR", SYNTAX},
    {"ON X GOTO \xE3\x81\x82", SYNTAX},
    {"ON ERROR GOTO 100", ""},
    {"ON ERROR GOTO 0:BEEP", "Beep 0"},
    {"ON COM(1) GOSUB 100", ""},
    {"ON PEN GOSUB 100", ""},
};

constexpr TCompileRow RUN_CHAIN[] = {
    {"RUN", "RunCur 0"},
    {"RUN 100", INT(100) SEP "RunCur 1"},
    {"RUN *L", STR("L") SEP "RunCur 1"},
    {"RUN \"A\"", STR("A") SEP "RunSpecify 0"},
    {"RUN A$,R", LOAD("A$") SEP "RunSpecify 1"},
    {"RUN \"A\",X", SYNTAX},
    {"RUN \"A\",", SYNTAX},
    {"RUN \"A\",\"R\"", SYNTAX},
    {"RUN ?", SYNTAX},
    {"CHAIN \"A\"", "BPushBool 0" SEP STR("A") SEP "Chain 2"},
    {"CHAIN \"A\",", "BPushBool 0" SEP STR("A") SEP "Chain 2"},
    {"CHAIN MERGE \"A\",100", "BPushBool 1" SEP STR("A") SEP INT(100) SEP "Chain 3"},
    {"CHAIN \"A\",*L", "BPushBool 0" SEP STR("A") SEP STR("L") SEP "Chain 3"},
    {"CHAIN \"A\",,ALL", "BPushBool 0" SEP STR("A") SEP OMIT SEP "BPushBool 1" SEP "Chain 4"},
    {"CHAIN \"A\",100,", "BPushBool 0" SEP STR("A") SEP INT(100) SEP "BPushBool 0" SEP "Chain 4"},
    {"CHAIN MERGE \"A\",100,ALL,DELETE 10-20",
     "BPushBool 1" SEP STR("A") SEP INT(100) SEP "BPushBool 1" SEP "Chain 4"},
    {"CHAIN MERGE \"A\",100,,DELETE 10-20",
     "BPushBool 1" SEP STR("A") SEP INT(100) SEP "BPushBool 0" SEP "Chain 4"},
    {"CHAIN", MISMATCH},
    {"CHAIN 5", MISMATCH},
    {"CHAIN \"MERGE\" \"A\"", NO_COMMA},
    {"CHAIN \"A\" 5", NO_COMMA},
    {"CHAIN \"A\",1,FOO", ILL_CALL},
    {"CHAIN \"A\",1,\"ALL\"", ILL_CALL},
    {"CHAIN \"A\",1,ALL,FOO", ILL_CALL},
};

TEST(ControlFlow, If) {
  check_rows(IF);
}

TEST(ControlFlow, Jumps) {
  check_rows(JUMPS);
}

TEST(ControlFlow, On) {
  check_rows(ON);
}

TEST(ControlFlow, RunAndChain) {
  check_rows(RUN_CHAIN);
}

std::vector<int32_t> statement_begins(const std::string& text) {
  const TCompilation compilation(text);
  std::vector<int32_t> begins;
  for (int32_t i = 0; i < static_cast<int32_t>(compilation.code.mCodes.size()); ++i) {
    if (compilation.code.IsStatementBegin(i)) begins.push_back(i);
  }
  return begins;
}

TEST(ControlFlow, StatementBegins) {
  // 2 push else, 3-4 A, 5 jump, 6 BEEP, 7 the ELSE: push end, 8 jump, 9 CLS, 10 exit
  EXPECT_EQ(statement_begins("10 IF A THEN BEEP ELSE CLS"), (std::vector<int32_t>{2, 6, 7, 9}));
  // 2 push end, 3-4 A, 5 jump, 6 BEEP, 7 WEND: push top, 8 jump
  EXPECT_EQ(statement_begins("10 WHILE A:BEEP:WEND"), (std::vector<int32_t>{2, 6, 7}));
  // 2-5 I=1, 6-7 jump to the test, 8-14 increment, 15-21 test, 22 BEEP, 23 NEXT
  EXPECT_EQ(statement_begins("10 FOR I=1 TO 3:BEEP:NEXT"), (std::vector<int32_t>{2, 6, 22, 23}));
}

std::string repeated(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

TEST(ControlFlow, DeepNestingIsASyntaxError) {
  EXPECT_EQ(compiled_on_thread(repeated("IF A THEN ", 1999) + "BEEP").find("Compile_Err"),
            std::string::npos);
  EXPECT_EQ(compiled_on_thread(repeated("IF A THEN ", 10'000) + "BEEP"), SYNTAX);
  EXPECT_EQ(compiled_on_thread(repeated("WHILE A:", 10'000)), SYNTAX);
  EXPECT_EQ(compiled_on_thread(repeated("FOR I=1 TO 2:", 10'000)), SYNTAX);
  EXPECT_EQ(compiled_on_thread("ERROR " + repeated("(", 10'000)), SYNTAX);
  EXPECT_EQ(compiled_on_thread("PRINT " + repeated("LEN(", 10'000)), SYNTAX);
}

}  // namespace
}  // namespace zoka
