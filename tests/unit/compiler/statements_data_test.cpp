// Statements of variables and data: forms, faults, and what DATA takes for text.
#include "compile_rows.h"

namespace zoka {
namespace {

// The code of DEF FN around its body.
#define DEF_FN(body) JMP("@L0") SEP "@L1:" SEP body SEP "BRetFromUserFunc" SEP "@L0:"

constexpr TCompileRow FORMS[] = {
    {"LET A=1", REF("A!") SEP INT(1) SEP "BAssignArray"},
    {"LET A", LOAD("A!")},  // no more than A by itself
    {"DIM A(10)", INT(-1) SEP INT(10) SEP "BPushVar var:A!" SEP "Dim 1"},
    {"DIM A(1),B$(2,3)", INT(-1) SEP INT(1) SEP "BPushVar var:A!" SEP INT(-1) SEP INT(2) SEP INT(3)
                             SEP "BPushVar var:B$" SEP "Dim 2"},
    {"READ A,B$", REF("A!") SEP REF("B$") SEP "Read 2"},
    {"KINPUT A$", REF("A$") SEP "Kinput 1"},
    {"SWAP A,B(1)", REF("A!") SEP INT(-1) SEP INT(1) SEP "BPushVar var:B!" SEP "Swap 2"},
    {"RESTORE", "Restore 0"},
    {"RESTORE 100", INT(100) SEP "Restore 1"},
    {"RESTORE *L", STR("L") SEP "Restore 1"},
    {"DEF SEG=&HA000", INT(40960) SEP "DefSeg"},
    {"DEF USR=5", ""},
    {"DEF USR (1)=5", ""},
    {"DEFINT A-C:A=1:C=2:D=3", REF("A%") SEP INT(1) SEP "BAssignArray" SEP REF("C%") SEP INT(2) SEP
     "BAssignArray" SEP REF("D!") SEP INT(3) SEP "BAssignArray"},
    {"DEFSTR S:S=\"A\"", REF("S$") SEP STR("A") SEP "BAssignArray"},
    {"DEFDBL S:S=1", REF("S#") SEP INT(1) SEP "BAssignArray"},
    {"DEFDBL S:DEFSNG S:S=1", REF("S!") SEP INT(1) SEP "BAssignArray"},
    {"OPTION BASE 1", INT(1) SEP "OptionBase"},
    {"MID$(A$,2,3)=\"X\"", REF("A$") SEP INT(2) SEP INT(3) SEP STR("X") SEP "MidDlProc 1"},
    {"MID$(A$,2)=B$", REF("A$") SEP INT(2) SEP LOAD("B$") SEP "MidDlProc 0"},
    {"DEF FNA(X)=X*2", DEF_FN("BLoadUserFuncParam 0" SEP INT(2) SEP "BMulFloat" SEP "Csng")},
    {"DEF FNA=1", DEF_FN(INT(1) SEP "Csng")},
    {"DEF FNA()=1", DEF_FN(INT(1) SEP "Csng")},
    {"DEF FNA%(X%,Y$)=LEN(Y$)", DEF_FN("BLoadUserFuncParam 1" SEP "Len" SEP "Cint")},
    {"DEF FND#(X)=X", DEF_FN("BLoadUserFuncParam 0" SEP "Cdbl")},
    {"DEF FNS$(A$)=A$", DEF_FN("BLoadUserFuncParam 0")},
    {"DEF FNA(X!)=X+Y", DEF_FN("BLoadUserFuncParam 0" SEP LOAD("Y!") SEP "BAddFloat" SEP "Csng")},
    // Behind the definition the name is the variable again.
    {"DEF FNA(X)=X:X=1",
     DEF_FN("BLoadUserFuncParam 0" SEP "Csng") SEP REF("X!") SEP INT(1) SEP "BAssignArray"},
    {"PRINT FNA(1);",
     "BPushSpecial 17" SEP INT(1) SEP "BCallUserFunc \"FNA\"" SEP "Print 0" SEP "BUpdateScreen"},
};

constexpr TCompileRow FAULTS[] = {
    {"LET", SYNTAX},
    {"LET 1=2", UNLVALUE},
    {"DIM", SYNTAX},
    {"DIM 5", SYNTAX},
    {"DIM A(1", NO_RPAR},
    {"READ", SYNTAX},
    {"READ 1", SYNTAX},
    {"KINPUT", SYNTAX},
    {"KINPUT \"A\"", SYNTAX},
    {"SWAP", SYNTAX},
    {"SWAP A", SYNTAX},
    {"SWAP A,B,C", SYNTAX},
    {"SWAP A,1", SYNTAX},
    {"RESTORE PRINT", SYNTAX},
    {"DEF", SYNTAX},
    {"DEF A=1", SYNTAX},
    {"DEF \"SEG\"=1", SYNTAX},
    {"DEF SEG 1", NO_EQUAL},
    {"DEF SEG=\"A\"", MISMATCH},
    {"DEF FNA(X", NO_COMMA},
    {"DEF FNA(X Y)=1", NO_COMMA},
    {"DEF FNA(1)=1", SYNTAX},
    {"DEF FNA(X,)=1", SYNTAX},
    {"DEF FNA(X)", NO_EQUAL},
    {"DEF FNA(X)=\"A\"", ASSIGN_MISMATCH},
    {"DEF FNS$(X)=X", ASSIGN_MISMATCH},
    {"DEFINT", "@Compile_Err_Ill_Def_Var_Type@"},
    {"DEFINT A-", "@Compile_Err_Ill_Def_Var_Type@"},
    {"DEFSTR PRINT", "@Compile_Err_Ill_Def_Var_Type@"},
    {"DEFSNG 1", "@Compile_Err_Ill_Def_Var_Type@"},
    {"DEFDBL A,", "@Compile_Err_Ill_Def_Var_Type@"},
    {"OPTION", SYNTAX},
    {"OPTION 1", SYNTAX},
    {"OPTION \"BASE\" 1", SYNTAX},
    {"OPTION BASE \"A\"", MISMATCH},
    {"BASE 1", SYNTAX},
    {"MID$ A$", NO_LPAR},
    {"MID$(A,1)=\"X\"", MISMATCH},
    {"MID$(\"A\",1)=\"X\"", SYNTAX},
    {"MID$(A$)=\"X\"", NO_COMMA},
    {"MID$(A$,)=\"X\"", ILL_CALL},
    {"MID$(A$,1,2,3)=\"X\"", ILL_CALL},
    {"MID$(A$,1", NO_RPAR},
    {"MID$(A$,1)\"X\"", NO_EQUAL},
    {"MID$(A$,1)=5", ASSIGN_MISMATCH},
};

#define ITEM(text) "Data \"" text "\""

constexpr TCompileRow DATA[] = {
    {"DATA A,\"B C\", 3 ,", ITEM("A") SEP ITEM("B C") SEP ITEM("3") SEP ITEM("")},
    {"DATA", ITEM("")},
    {"DATA ,", ITEM("") SEP ITEM("")},
    {"DATA ,,A", ITEM("") SEP ITEM("") SEP ITEM("A")},
    {"DATA A@,1E5,&,1.,&O7,&HFF",
     ITEM("A@") SEP ITEM("1E5") SEP ITEM("&") SEP ITEM("1.") SEP ITEM("&O7") SEP ITEM("&HFF")},
    {"DATA   A  B  ", ITEM("A  B")},
    {"DATA lower Case", ITEM("lower Case")},
    {"DATA -1,+2", ITEM("-1") SEP ITEM("+2")},
    // Words that end other statements are text here.
    {"DATA IF A THEN B ELSE C AS D", ITEM("IF A THEN B ELSE C AS D")},
    {"DATA REM X,GO TO", ITEM("REM X") SEP ITEM("GO TO")},
    {"DATA A\"B,C\"D,E", ITEM("A\\\"B,C\\\"D") SEP ITEM("E")},
    {"DATA \"A:B\"", ITEM("A:B")},
    {"DATA \"open", ITEM("open")},
    {"DATA A:BEEP", ITEM("A") SEP "Beep 0"},
    {"DATA A,:BEEP", ITEM("A") SEP ITEM("") SEP "Beep 0"},
    {"DATA A 'comment, B", ITEM("A")},
    {"DATA \"A\" 'comment", ITEM("A")},
    {"DATA 'comment", ITEM("")},
    {"DATA A\n20 DATA B", ITEM("A") SEP "BLineBegin 20" SEP ITEM("B")},
    {"DATA A 'c\n20 DATA B", ITEM("A") SEP "BLineBegin 20" SEP ITEM("B")},
    {"IF 1 THEN DATA A ELSE B", STR("@L0") SEP INT(1) SEP "BFJmp" SEP ITEM("A ELSE B") SEP "@L0:"},
    {"DATA \xE3\x81\x82", ITEM("\xE3\x81\x82")},
    // Names are names again behind the statement.
    {"DATA A@:B@=1", SYNTAX},
    {"DATA \"A\"B,C", SYNTAX},
    {"DATA \x01", "@Compile_Err_Unknown_Symbol %Symbol%@"},
};

TEST(StatementsData, Forms) {
  check_rows(FORMS);
}

TEST(StatementsData, Faults) {
  check_rows(FAULTS);
}

TEST(StatementsData, DataItems) {
  check_rows(DATA);
}

TEST(StatementsData, UserFunctionKeepsItsParameters) {
  TCompilation compilation("10 DEFINT I:DEF FNA(X,I,S$,D#)=1");
  const TUserFuncInfo* info = compilation.code.FindUserFunc("FNA");
  ASSERT_NE(info, nullptr);
  EXPECT_EQ(info->params, (std::vector<std::string>{"X!", "I%", "S$", "D#"}));
  EXPECT_EQ(info->paramKinds, (std::vector<TTokenKind>{ttSng, ttInt, ttStr, ttDbl}));
  EXPECT_EQ(info->label, "@L1");
}

TEST(StatementsData, LaterUserFunctionWins) {
  TCompilation compilation("10 DEF FNA(X)=1\n20 DEF FNA(X,Y)=2");
  EXPECT_EQ(compilation.code.FindUserFunc("FNA")->params.size(), 2u);
  EXPECT_EQ(compilation.code.FindUserFunc("FNA")->label, "@L3");
  EXPECT_EQ(compilation.code.FindUserFunc("FN A"), nullptr);
}

}  // namespace
}  // namespace zoka
