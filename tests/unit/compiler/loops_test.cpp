// FOR and WHILE: code shapes, the lists of NEXT, and faults.
#include "compile_rows.h"

namespace zoka {
namespace {

constexpr char NO_NEXT[] = "@Compile_Err_For_Without_Next@";
constexpr char NO_TO[] = "@Compile_Err_For_Without_To@";
constexpr char NO_FOR[] = "@Compile_Err_Next_Without_For@";
constexpr char NO_WEND[] = "@Compile_Err_While_Without_Wend@";
constexpr char NO_WHILE[] = "@Compile_Err_Wend_Without_While@";

#define SET(name, value) REF(name) SEP INT(value) SEP "BAssignArray"
// A loop from its jump to the test, up to its body: labels loop, test and end; the pushes of the
// subscripts; the variable; limit and step.
#define HEAD_OF(loop, test, end, subscripts, name, limit, step)                                 \
  JMP(test)                                                                                     \
  SEP loop ":" SEP subscripts SEP "BPushVar var:" name SEP subscripts SEP                       \
           "BLoadArray var:" name SEP step SEP "BAddDouble" SEP "BAssignArray" SEP test ":" SEP \
           STR(end)                                                                             \
  SEP subscripts SEP "BLoadArray var:" name SEP limit SEP step SEP "BCmpFor" SEP "BFJmp"
#define HEAD(name, limit, step) HEAD_OF("@L0", "@L1", "@L2", INT(-1), name, limit, step)
#define INNER_HEAD(name, limit) HEAD_OF("@L3", "@L4", "@L5", INT(-1), name, limit, INT(1))
#define TAIL JMP("@L0") SEP "@L2:"
#define INNER_TAIL JMP("@L3") SEP "@L5:"
// FOR I=1 TO 2:FOR J=1 TO 3:
#define NESTED \
  SET("I!", 1) SEP HEAD("I!", INT(2), INT(1)) SEP SET("J!", 1) SEP INNER_HEAD("J!", INT(3))

// FOR I=1 TO 2:FOR J=1 TO 3:FOR K=1 TO 4:NEXT K,J,I
#define THREE_LOOPS                                                                       \
  NESTED SEP SET("K!", 1) SEP HEAD_OF("@L6", "@L7", "@L8", INT(-1), "K!", INT(4), INT(1)) \
      SEP LOAD("K!") SEP LOAD("J!") SEP LOAD("I!") SEP JMP("@L6") SEP                     \
      "@L8:" SEP INNER_TAIL SEP TAIL

constexpr TCompileRow FOR[] = {
    {"FOR I=1 TO 3:NEXT", SET("I!", 1) SEP HEAD("I!", INT(3), INT(1)) SEP TAIL},
    {"FOR I=1 TO 3\n20 NEXT",
     SET("I!", 1) SEP HEAD("I!", INT(3), INT(1)) SEP "BLineBegin 20" SEP TAIL},
    {"FOR I=1 TO 3 END NEXT", SET("I!", 1) SEP HEAD("I!", INT(3), INT(1)) SEP "BExit" SEP TAIL},
    // The names are read as expressions, and never compared.
    {"FOR I=1 TO 3:NEXT Z", SET("I!", 1) SEP HEAD("I!", INT(3), INT(1)) SEP LOAD("Z!") SEP TAIL},
    {"FOR I=1 TO 3:NEXT I:BEEP",
     SET("I!", 1) SEP HEAD("I!", INT(3), INT(1)) SEP LOAD("I!") SEP TAIL SEP "Beep 0"},
    {"FOR I=1 TO 10 STEP 0:NEXT", SET("I!", 1) SEP HEAD("I!", INT(10), INT(0)) SEP TAIL},
    {"FOR I#=1 TO N+1 STEP S%:NEXT",
     SET("I#", 1) SEP HEAD("I#", LOAD("N!") SEP INT(1) SEP "BAddFloat", LOAD("S%")) SEP TAIL},
    {"FOR I=1 TO VAL(\"9\") STEP VAL(\"2\"):NEXT",
     SET("I!", 1) SEP HEAD("I!", STR("9") SEP "Val", STR("2") SEP "Val") SEP TAIL},
    // Constant subscripts are repeated.
    {"FOR A(3,4)=1 TO 2:NEXT",
     INT(-1) SEP INT(3) SEP INT(4) SEP "BPushVar var:A!" SEP INT(1) SEP "BAssignArray" SEP HEAD_OF(
         "@L0", "@L1", "@L2", INT(-1) SEP INT(3) SEP INT(4), "A!", INT(2), INT(1)) SEP TAIL},
    // Any other subscript is not: with A(I) the loop even runs over I, with the two end marks.
    {"FOR A(I)=1 TO 2:NEXT", INT(-1) SEP LOAD("I!") SEP "BPushVar var:A!" SEP INT(1) SEP
     "BAssignArray" SEP HEAD_OF("@L0", "@L1", "@L2", INT(-1) SEP INT(-1), "I!", INT(2), INT(1))
         SEP TAIL},
    {"FOR A(1.5)=1 TO 2:NEXT", INT(-1) SEP "BPushFloat 1.5" SEP "BPushVar var:A!" SEP INT(1) SEP
     "BAssignArray" SEP HEAD("A!", INT(2), INT(1)) SEP TAIL},
    {"FOR A(1+2)=1 TO 2:NEXT", INT(-1) SEP INT(1) SEP INT(2) SEP
     "BAddInt" SEP "BPushVar var:A!" SEP INT(1) SEP "BAssignArray" SEP HEAD_OF(
         "@L0", "@L1", "@L2", INT(-1) SEP INT(1) SEP INT(2), "A!", INT(2), INT(1)) SEP TAIL},
    {"FOR I TO 3:NEXT", LOAD("I!") SEP HEAD("I!", INT(3), INT(1)) SEP TAIL},
    {"FOR 5 TO 9:NEXT", SYNTAX},
    {"FOR \"A\" TO 9:NEXT", SYNTAX},
    {"FOR TO 9:NEXT", SYNTAX},
    {"FOR I=1", NO_TO},
    {"FOR I=1:NEXT", NO_TO},
    {"FOR 5=1 TO 2", UNLVALUE},
    {"FOR I=1 TO 3", NO_NEXT},
    {"FOR I=1 TO 3\n20 BEEP\n", NO_NEXT},
    {"FOR I=1 TO 3:WEND", NO_NEXT},
    {"NEXT", NO_FOR},
    {"NEXT I", NO_FOR},
};

constexpr TCompileRow NEXT[] = {
    {"FOR I=1 TO 2:FOR J=1 TO 3:NEXT J,I",
     NESTED SEP LOAD("J!") SEP LOAD("I!") SEP INNER_TAIL SEP TAIL},
    {"FOR I=1 TO 2:FOR J=1 TO 3:NEXT:NEXT", NESTED SEP INNER_TAIL SEP TAIL},
    {"FOR I=1 TO 2:FOR J=1 TO 3:NEXT I:NEXT J",
     NESTED SEP LOAD("I!") SEP INNER_TAIL SEP LOAD("J!") SEP TAIL},
    {"FOR I=1 TO 2:FOR J=1 TO 3:NEXT J,I:BEEP",
     NESTED SEP LOAD("J!") SEP LOAD("I!") SEP INNER_TAIL SEP TAIL SEP "Beep 0"},
    {"FOR I=1 TO 2:FOR J=1 TO 3:NEXT J,I\n20 BEEP",
     NESTED SEP LOAD("J!") SEP LOAD("I!") SEP INNER_TAIL SEP TAIL SEP "BLineBegin 20" SEP "Beep 0"},
    {"FOR I=1 TO 2:FOR J=1 TO 3:NEXT J,I 'x\n20 BEEP",
     NESTED SEP LOAD("J!") SEP LOAD("I!") SEP INNER_TAIL SEP TAIL SEP "BLineBegin 20" SEP "Beep 0"},
    {"FOR I=1 TO 2:FOR J=1 TO 3:FOR K=1 TO 4:NEXT K,J,I:BEEP", THREE_LOOPS SEP "Beep 0"},
    {"FOR I=1 TO 2:FOR J=1 TO 3:FOR K=1 TO 4:NEXT K,J,I\n20 BEEP",
     THREE_LOOPS SEP "BLineBegin 20" SEP "Beep 0"},
    {"FOR I=1 TO 2:FOR J=1 TO 3:FOR K=1 TO 4:NEXT K,J", NO_NEXT},
    {"FOR I=1 TO 2:FOR J=1 TO 3:FOR K=1 TO 4:NEXT K,J,I,H", NO_FOR},
    // A place left out counts, a trailing comma doesn't.
    {"FOR I=1 TO 2:FOR J=1 TO 3:NEXT ,I", NESTED SEP OMIT SEP LOAD("I!") SEP INNER_TAIL SEP TAIL},
    {"FOR I=1 TO 2:FOR J=1 TO 3:NEXT J,", NO_NEXT},
    {"FOR I=1 TO 2:FOR J=1 TO 3:NEXT J,I,K", NO_FOR},
    {"FOR I=1 TO 2:NEXT I,J", NO_FOR},
    {"FOR I=1 TO 2:FOR J=1 TO 3:NEXT J", NO_NEXT},
    {"FOR I=1 TO 2:NEXT ?", SYNTAX},
    // The ELSE behind a list goes on to its IF.
    {"IF A THEN FOR I=1 TO 2:FOR J=1 TO 3:NEXT J,I ELSE BEEP", STR("@L0") SEP LOAD("A!") SEP
     "BFJmp" SEP SET("I!", 1) SEP HEAD_OF("@L1", "@L2", "@L3", INT(-1), "I!", INT(2), INT(1))
         SEP SET("J!", 1) SEP HEAD_OF("@L4", "@L5", "@L6", INT(-1), "J!", INT(3), INT(1))
             SEP LOAD("J!") SEP LOAD("I!") SEP JMP("@L4") SEP "@L6:" SEP JMP("@L1") SEP
     "@L3:" SEP JMP("@L7") SEP "@L0:" SEP "Beep 0" SEP "@L7:"},
    // A NEXT behind THEN ends the block that the IF stands in.
    {"FOR I=1 TO 3:IF A THEN NEXT\n20 BEEP",
     SET("I!", 1) SEP HEAD("I!", INT(3), INT(1)) SEP STR("@L3") SEP LOAD("A!") SEP
     "BFJmp" SEP "@L3:" SEP TAIL SEP "BLineBegin 20" SEP "Beep 0"},
};

constexpr TCompileRow WHILE[] = {
    {"WHILE 1:WEND", "@L0:" SEP STR("@L1") SEP INT(1) SEP "BFJmp" SEP JMP("@L0") SEP "@L1:"},
    {"WHILE A=1 BEEP\n20 WEND:CLS", "@L0:" SEP STR("@L1") SEP LOAD("A!") SEP INT(1) SEP
     "BEqualFloat" SEP "BFJmp" SEP "Beep 0" SEP "BLineBegin 20" SEP JMP("@L0") SEP "@L1:" SEP
                                                                                   "Cls 0"},
    {"WHILE 1:WHILE 2:WEND:WEND",
     "@L0:" SEP STR("@L1") SEP INT(1) SEP "BFJmp" SEP "@L2:" SEP STR("@L3") SEP INT(2) SEP
     "BFJmp" SEP JMP("@L2") SEP "@L3:" SEP JMP("@L0") SEP "@L1:"},
    {"WHILE 1", NO_WEND},
    {"WHILE 1:NEXT", NO_WEND},
    {"WHILE 1:WEND 5", SYNTAX},
    {"WEND", NO_WHILE},
    {"FOR I=1 TO 2:WHILE 1:NEXT:WEND", NO_WEND},
};

TEST(Loops, For) {
  check_rows(FOR);
}

TEST(Loops, NextLists) {
  check_rows(NEXT);
}

TEST(Loops, While) {
  check_rows(WHILE);
}

// The step's code stands twice in the program and shares its text.
TEST(Loops, StepTextIsShared) {
  const TCompilation compilation("10 FOR I=1 TO 2 STEP VAL(\"7\"):NEXT");
  std::vector<const TTextBlock*> texts;
  for (const TVMCode& code : compilation.code.mCodes) {
    if (code.Cmd() != TVMCodeCmd::BPushString || code.str()->View() != "7") continue;
    texts.push_back(code.str());
  }
  ASSERT_EQ(texts.size(), 2u);
  EXPECT_EQ(texts[0], texts[1]);
}

TEST(Loops, FaultNamesTheLastLine) {
  EXPECT_EQ(TCompilation("10 NEXT").line, "10");
  EXPECT_EQ(TCompilation("10 FOR I=1 TO 2\n20 BEEP\n").line, "20");
  EXPECT_EQ(TCompilation("10 WHILE 1\n0020 BEEP").line, "0020");
}

}  // namespace
}  // namespace zoka
