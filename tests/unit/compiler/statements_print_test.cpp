// PRINT, WRITE, PRINT USING and the INPUT family: forms and faults.
#include "compile_rows.h"

namespace zoka {
namespace {

#define UPDATE "BUpdateScreen"
#define ZONE "BPushSpecial 17"
#define QUESTION STR("? ") SEP "Print 0"

constexpr TCompileRow FORMS[] = {
    {"PRINT", "Print 1" SEP UPDATE},
    {"PRINT ;", UPDATE},
    {"PRINT 1;", INT(1) SEP "Print 0" SEP UPDATE},
    {"PRINT 1;2", INT(1) SEP "Print 0" SEP INT(2) SEP "Print 0" SEP "Print 1" SEP UPDATE},
    {"PRINT 1,2",
     INT(1) SEP "Print 0" SEP ZONE SEP "Print 0" SEP INT(2) SEP "Print 0" SEP "Print 1" SEP UPDATE},
    {"PRINT 1,", INT(1) SEP "Print 0" SEP ZONE SEP "Print 0" SEP UPDATE},
    {"PRINT ,1", ZONE SEP "Print 0" SEP INT(1) SEP "Print 0" SEP "Print 1" SEP UPDATE},
    {"PRINT \"A\"\"B\"",
     STR("A") SEP "Print 0" SEP STR("B") SEP "Print 0" SEP "Print 1" SEP UPDATE},
    {"PRINT \"USING\"", STR("USING") SEP "Print 0" SEP "Print 1" SEP UPDATE},
    {"PRINT -A;NOT B", LOAD("A!") SEP "BNegaFloat" SEP "Print 0" SEP LOAD("B!") SEP
     "BNotFloat" SEP "Print 0" SEP "Print 1" SEP UPDATE},
    {"PRINT +1.5", "BPushFloat 1.5" SEP "Print 0" SEP "Print 1" SEP UPDATE},
    {"PRINT 2.5#;(1)",
     "BPushDouble 2.5" SEP "Print 0" SEP INT(1) SEP "Print 0" SEP "Print 1" SEP UPDATE},
    {"PRINT TIME$;", "TimeDl" SEP "Print 0" SEP UPDATE},
    {"PRINT LEN(A$);", LOAD("A$") SEP "Len" SEP "Print 0" SEP UPDATE},
    {"PRINT:BEEP", "Print 1" SEP UPDATE SEP "Beep 0"},
    {"PRINT #1,\"A\"", INT(1) SEP STR("A") SEP "PrintSh 0" SEP INT(1) SEP "PrintSh 1"},
    {"PRINT #2,1,2;", INT(2) SEP INT(1) SEP "PrintSh 0" SEP INT(2) SEP ZONE SEP
     "PrintSh 0" SEP INT(2) SEP INT(2) SEP "PrintSh 0"},
    {"PRINT #1,", INT(1) SEP "PrintSh 1"},
    {"PRINT #99999999999,", INT(2147483647) SEP "PrintSh 1"},
    {"PRINT#1", LOAD("PRINT#1!")},  // one word, and so a variable
    {"WRITE", "Write 1" SEP UPDATE},
    {"WRITE 1,\"A\"", INT(1) SEP "Write 0" SEP ZONE SEP "Write 0" SEP STR("A") SEP
     "Write 0" SEP "Write 1" SEP UPDATE},
    {"WRITE #2,A", INT(2) SEP LOAD("A!") SEP "WriteSh 0" SEP INT(2) SEP "WriteSh 1"},
    {"PRINT USING \"#\";1", STR("#") SEP INT(1) SEP "BPushBool 1" SEP "PrintUsing 1"},
    {"PRINT USING F$;1,2;", LOAD("F$") SEP INT(1) SEP INT(2) SEP "BPushBool 0" SEP "PrintUsing 2"},
    {"PRINT USING \"#\";1,", STR("#") SEP INT(1) SEP "BPushBool 1" SEP "PrintUsing 1"},
    {"INPUT A", QUESTION SEP UPDATE SEP REF("A!") SEP "Input 1"},
    {"INPUT \"N\";A$", STR("N") SEP "Print 0" SEP QUESTION SEP UPDATE SEP REF("A$") SEP "Input 1"},
    {"INPUT \"N\",A,B(1)", STR("N") SEP "Print 0" SEP UPDATE SEP REF("A!") SEP INT(-1) SEP INT(1)
                               SEP "BPushVar var:B!" SEP "Input 2"},
    {"INPUT \"A\"+B$,C",
     STR("A") SEP LOAD("B$") SEP "BAddString" SEP "Print 0" SEP UPDATE SEP REF("C!") SEP "Input 1"},
    {"INPUT \"WAIT\";A",
     STR("WAIT") SEP "Print 0" SEP QUESTION SEP UPDATE SEP REF("A!") SEP "Input 1"},
    {"INPUT WAIT 10,A", INT(10) SEP QUESTION SEP UPDATE SEP REF("A!") SEP "InputWait 1"},
    {"INPUT WAIT 10,\"N\",A",
     INT(10) SEP STR("N") SEP "Print 0" SEP UPDATE SEP REF("A!") SEP "InputWait 1"},
    {"INPUT #1,A,B", INT(1) SEP REF("A!") SEP REF("B!") SEP "InputSh 2"},
    {"INPUT#1", LOAD("INPUT#1!")},
    {"LINE INPUT A$", UPDATE SEP REF("A$") SEP "LineInput 1"},
    {"LINE INPUT \"N\";A$", STR("N") SEP "Print 0" SEP UPDATE SEP REF("A$") SEP "LineInput 1"},
    {"LINE INPUT \"N\",A$", STR("N") SEP "Print 0" SEP UPDATE SEP REF("A$") SEP "LineInput 1"},
    {"LINE INPUT WAIT 5,A$", INT(5) SEP UPDATE SEP REF("A$") SEP "LineInputWait 1"},
    {"LINE INPUT #1,A$", INT(1) SEP REF("A$") SEP "LineInputSh 1"},
};

constexpr TCompileRow FAULTS[] = {
    {"PRINT #1", NO_COMMA},
    {"PRINT #1;2", NO_COMMA},
    {"PRINT 1,#2", SYNTAX},
    {"PRINT #1,#2", SYNTAX},
    {"PRINT ?", SYNTAX},
    {"PRINT )", SYNTAX},
    {"PRINT GOTO", SYNTAX},
    {"PRINT#1,2", SYNTAX},
    {"PRINT# 1,2", SYNTAX},
    {"WRITE# 1,2", SYNTAX},
    {"WRITE#1,2", SYNTAX},
    {"WRITE #2", NO_COMMA},
    {"WRITE USING \"#\";1", SYNTAX},
    {"WRITE ?", SYNTAX},
    {"PRINT USING 1;2", MISMATCH},
    {"PRINT USING", MISMATCH},
    {"PRINT USING \"#\",1", NO_SEMICOLON},
    {"PRINT USING \"#\";", ILL_CALL},
    {"INPUT", MISSING},
    {"INPUT 5", SYNTAX},
    {"INPUT \"N\"", SYNTAX},
    {"INPUT \"N\" A", SYNTAX},
    {"INPUT \"N\";", MISSING},
    {"INPUT WAIT A$,B", MISMATCH},
    {"INPUT WAIT 1 B", NO_COMMA},
    {"INPUT WAIT 1,#1,A", SYNTAX},
    {"INPUT #1 A", NO_COMMA},
    {"INPUT #1,", MISSING},
    {"INPUT# 1,A", SYNTAX},
    {"INPUT#1,A", SYNTAX},
    {"LINE INPUT", MISSING},
    {"LINE INPUT A$,B$", TOO_MANY},
    {"LINE INPUT \"N\"", SYNTAX},
};

TEST(StatementsPrint, Forms) {
  check_rows(FORMS);
}

TEST(StatementsPrint, Faults) {
  check_rows(FAULTS);
}

}  // namespace
}  // namespace zoka
