// ON for events and the switches of events: forms and faults.
#include "compile_rows.h"

namespace zoka {
namespace {

#define OMIT8 OMIT SEP OMIT SEP OMIT SEP OMIT SEP OMIT SEP OMIT SEP OMIT SEP OMIT
#define STATE(event, state) INT(event) SEP INT(state) SEP "SetIrState"

constexpr TCompileRow ON[] = {
    {"ON HELP GOSUB 100", INT(100) SEP "SetIrTgt 16"},
    {"ON STOP GOSUB *L", STR("L") SEP "SetIrTgt 8"},
    {"ON STOP GOSUB ,", OMIT SEP "SetIrTgt 8"},
    {"ON KEY GOSUB 100,200", INT(100) SEP INT(200) SEP OMIT8 SEP "SetIrTgt 64"},
    {"ON KEY GOSUB ,200", OMIT SEP INT(200) SEP OMIT8 SEP "SetIrTgt 64"},
    {"ON KEY GOSUB", OMIT SEP OMIT SEP OMIT8 SEP "SetIrTgt 64"},
    {"ON KEY GOSUB 1,2,3,4,5,6,7,8,9,10",
     INT(1) SEP INT(2) SEP INT(3) SEP INT(4) SEP INT(5) SEP INT(6) SEP INT(7) SEP INT(8) SEP INT(9)
         SEP INT(10) SEP "SetIrTgt 64"},
    {"ON TIME$=\"12:00:00\" GOSUB 100", STR("12:00:00") SEP INT(100) SEP "SetIrTgt 32"},
    {"ON PLAY(1) GOSUB 100", INT(1) SEP OMIT SEP INT(100) SEP "SetIrTgt 262144"},
    {"ON PLAY(1,2) GOSUB *L", INT(1) SEP INT(2) SEP STR("L") SEP "SetIrTgt 262144"},
    {"ON PLAY(,2) GOSUB 100", OMIT SEP INT(2) SEP INT(100) SEP "SetIrTgt 262144"},
    {"ON MOUSE(1) GOSUB 100", INT(1) SEP INT(100) SEP "SetIrTgt 2097152"},
    {"ON MOUSE=N GOSUB *L", LOAD("N!") SEP STR("L") SEP "SetIrTgt 2097152"},
    {"ON HELP GOSUB 100:BEEP", INT(100) SEP "SetIrTgt 16" SEP "Beep 0"},
    {"ON HELP GOSUB", ILL_CALL},
    {"ON HELP GOSUB 100,200", ILL_CALL},
    {"ON HELP GOSUB ?", SYNTAX},
    {"ON HELP GOTO 100", SYNTAX},
    {"ON HELP \"GOSUB\" 100", SYNTAX},
    {"ON HELP", SYNTAX},
    {"ON HELP(1) GOSUB 100", ILL_CALL},
    {"ON HELP=\"A\" GOSUB 100", ILL_CALL},
    {"ON HELP=1 GOSUB 100", MISMATCH},
    {"ON STOP GOSUB", ILL_CALL},
    {"ON KEY(1) GOSUB 100", ILL_CALL},
    {"ON KEY GOSUB 1,2,3,4,5,6,7,8,9,10,11", ILL_CALL},
    {"ON TIME$ GOSUB 100", ILL_CALL},
    {"ON TIME$=5 GOSUB 100", MISMATCH},
    {"ON TIME$(1) GOSUB 100", ILL_CALL},
    {"ON PLAY GOSUB 100", ILL_CALL},
    {"ON PLAY() GOSUB 100", ILL_CALL},
    {"ON PLAY(1,2,3) GOSUB 100", ILL_CALL},
    {"ON PLAY(1) GOSUB 1,2", ILL_CALL},
    {"ON PLAY(1", NO_RPAR},
    {"ON PLAY=\"A\" GOSUB 100", ILL_CALL},
    {"ON MOUSE GOSUB 100", ILL_CALL},
    {"ON MOUSE() GOSUB 100", ILL_CALL},
    {"ON MOUSE(A$) GOSUB 100", MISMATCH},
    {"ON MOUSE=A$ GOSUB 100", MISMATCH},
    {"ON MOUSE(1 GOSUB 100", NO_RPAR},
    {"ON MOUSE(1) GOSUB 1,2", ILL_CALL},
};

constexpr TCompileRow SWITCHES[] = {
    {"HELP ON", STATE(16, 2)},
    {"HELP OFF", STATE(16, 0)},
    {"HELP STOP", STATE(16, 1)},
    {"HELP ON:BEEP", STATE(16, 2) SEP "Beep 0"},
    {"TIME$ ON", STATE(32, 2)},
    {"TIME$ STOP", STATE(32, 1)},
    {"KEY(3) ON", INT(3) SEP INT(64) SEP "BAddInt" SEP INT(2) SEP "SetIrState"},
    {"KEY(N) STOP", LOAD("N!") SEP INT(64) SEP "BAddInt" SEP INT(1) SEP "SetIrState"},
    {"KEY(3) FOO", INT(3) SEP INT(64) SEP "BAddInt" SEP INT(0) SEP "SetIrState"},
    {"KEY(3) \"ON\"", INT(3) SEP INT(64) SEP "BAddInt" SEP INT(0) SEP "SetIrState"},
    {"KEY ON",
     STATE(65, 2) SEP STATE(66, 2) SEP STATE(67, 2) SEP STATE(68, 2) SEP STATE(69, 2)
         SEP STATE(70, 2) SEP STATE(71, 2) SEP STATE(72, 2) SEP STATE(73, 2) SEP STATE(74, 2)},
    {"KEY OFF:BEEP", STATE(65, 0) SEP STATE(66, 0) SEP STATE(67, 0) SEP STATE(68, 0)
                         SEP STATE(69, 0) SEP STATE(70, 0) SEP STATE(71, 0) SEP STATE(72, 0)
                             SEP STATE(73, 0) SEP STATE(74, 0) SEP "Beep 0"},
    {"KEY 1,\"A\"", INT(1) SEP STR("A") SEP "Key"},
    {"MOUSE(1) ON", INT(1) SEP INT(2097152) SEP "BAddInt" SEP INT(2) SEP "SetIrState"},
    {"MOUSE(1) OFF:BEEP",
     INT(1) SEP INT(2097152) SEP "BAddInt" SEP INT(0) SEP "SetIrState" SEP "Beep 0"},
    {"MOUSE STOP", STATE(2097153, 1) SEP STATE(2097154, 1) SEP STATE(2097155, 1)
                       SEP STATE(2097156, 1) SEP STATE(2097157, 1)},
    {"HELP", SYNTAX},
    {"HELP FOO", SYNTAX},
    {"HELP \"ON\"", SYNTAX},
    {"TIME$=\"00:00:00\"", SYNTAX},
    {"TIME$", SYNTAX},
    {"KEY", ILL_CALL},
    {"KEY 1", ILL_CALL},
    {"KEY 1,2,3", ILL_CALL},
    {"KEY \"ON\"", ILL_CALL},
    {"KEY(1 ON", NO_RPAR},
    {"KEY ?", SYNTAX},
    {"MOUSE(1) FOO", SYNTAX},
    {"MOUSE(1)", SYNTAX},
    {"MOUSE(1 ON", NO_RPAR},
    {"MOUSE \"ON\"", MISMATCH},
};

TEST(Traps, On) {
  check_rows(ON);
}

TEST(Traps, Switches) {
  check_rows(SWITCHES);
}

}  // namespace
}  // namespace zoka
