// Functions: code of every form, type of the result, and faults.
#include "compile_rows.h"

namespace zoka {
namespace {

struct TFunctionRow {
  const char* call;
  const char* code;
  char type;  // suffix of the result's type
};

constexpr TFunctionRow FUNCTIONS[] = {
    {"ABS(1)", INT(1) SEP "Abs", '!'},
    {"ATN(1)", INT(1) SEP "Atn", '!'},
    {"COS(1)", INT(1) SEP "Cos", '!'},
    {"EXP(1)", INT(1) SEP "Exp", '!'},
    {"LOG(1)", INT(1) SEP "Log", '!'},
    {"SIN(1)", INT(1) SEP "Sin", '!'},
    {"SQR(1)", INT(1) SEP "Sqr", '!'},
    {"TAN(1)", INT(1) SEP "Tan", '!'},
    {"SIN(1.5)", "BPushFloat 1.5" SEP "Sin", '!'},
    {"SIN(1#)", "BPushDouble 1" SEP "Sin", '#'},
    {"ABS(A#)", LOAD("A#") SEP "Abs", '#'},
    {"AKCNV$(A$)", LOAD("A$") SEP "AkcnvDl", '$'},
    {"JIS$(A$)", LOAD("A$") SEP "JisDl", '$'},
    {"KACNV$(A$)", LOAD("A$") SEP "KacnvDl", '$'},
    {"KNJ$(A$)", LOAD("A$") SEP "KnjDl", '$'},
    {"ASC(A$)", LOAD("A$") SEP "Asc", '%'},
    {"LEN(A$)", LOAD("A$") SEP "Len", '%'},
    {"VAL(A$)", LOAD("A$") SEP "Val", '#'},
    {"CHR$(1)", INT(1) SEP "ChrDl", '$'},
    {"HEX$(1)", INT(1) SEP "HexDl", '$'},
    {"OCT$(1)", INT(1) SEP "OctDl", '$'},
    {"SPACE$(1)", INT(1) SEP "SpaceDl", '$'},
    {"STR$(A#)", LOAD("A#") SEP "StrDl", '$'},
    {"SPC(1)", INT(1) SEP "Spc", '$'},
    {"TAB(1)", INT(1) SEP "Tab", '$'},
    {"CINT(A#)", LOAD("A#") SEP "Cint", '%'},
    {"EOF(1)", INT(1) SEP "Eof", '%'},
    {"FIX(1.5)", "BPushFloat 1.5" SEP "Fix", '%'},
    {"INP(1)", INT(1) SEP "Inp", '%'},
    {"INT(A#)", LOAD("A#") SEP "Int", '%'},
    {"PEEK(1)", INT(1) SEP "Peek", '%'},
    {"POS(0)", INT(0) SEP "Pos", '%'},
    {"SGN(1)", INT(1) SEP "Sgn", '%'},
    {"CSNG(1)", INT(1) SEP "Csng", '!'},
    {"CDBL(1)", INT(1) SEP "Cdbl", '#'},
    {"CSRLIN", "Csrlin", '%'},
    {"DATE$", "DateDl", '$'},
    {"INKEY$", "InkeyDl", '$'},
    {"TIME$", "TimeDl", '$'},
    {"ZOKAVERSION$", "XZokaversionDl", '$'},
    {"SYSTEMTIME", "XSystemtime", '%'},
    {"INSTR(\"ABC\",\"B\")", STR("ABC") SEP STR("B") SEP "Instr 0", '%'},
    {"INSTR(2,\"ABC\",\"B\")", INT(2) SEP STR("ABC") SEP STR("B") SEP "Instr 1", '%'},
    {"KINSTR(A$,B$)", LOAD("A$") SEP LOAD("B$") SEP "Kinstr 0", '%'},
    {"KINSTR(2,A$,B$)", INT(2) SEP LOAD("A$") SEP LOAD("B$") SEP "Kinstr 1", '%'},
    {"MID$(A$,2)", LOAD("A$") SEP INT(2) SEP "MidDlFunc 0", '$'},
    {"MID$(A$,2,3)", LOAD("A$") SEP INT(2) SEP INT(3) SEP "MidDlFunc 1", '$'},
    {"KMID$(A$,2)", LOAD("A$") SEP INT(2) SEP "KmidDl 0", '$'},
    {"KMID$(A$,2,3)", LOAD("A$") SEP INT(2) SEP INT(3) SEP "KmidDl 1", '$'},
    {"LEFT$(A$,1)", LOAD("A$") SEP INT(1) SEP "LeftDl", '$'},
    {"RIGHT$(A$,1)", LOAD("A$") SEP INT(1) SEP "RightDl", '$'},
    {"KEXT$(A$,1)", LOAD("A$") SEP INT(1) SEP "KextDl", '$'},
    {"STRING$(3,\"A\")", INT(3) SEP STR("A") SEP "StringDl", '$'},
    {"STRING$(3,65)", INT(3) SEP INT(65) SEP "StringDl", '$'},
    {"INPUT$(3)", INT(3) SEP "InputDl 0", '$'},
    {"INPUT$(3,#1)", INT(3) SEP INT(1) SEP "InputDl 1", '$'},
    {"KLEN(A$)", LOAD("A$") SEP "Klen 0", '%'},
    {"KLEN(A$,1)", LOAD("A$") SEP INT(1) SEP "Klen 1", '%'},
    {"MOUSE(0)", INT(0) SEP "MouseFunc 0", '%'},
    {"MOUSE(2,1)", INT(2) SEP INT(1) SEP "MouseFunc 1", '%'},
    {"POINT(0)", INT(0) SEP "PointFunc1", '%'},
    {"POINT(1,2)", INT(1) SEP INT(2) SEP "PointFunc2", '%'},
    {"RND", INT(1) SEP "Rnd", '!'},
    {"RND(1)", INT(1) SEP "Rnd", '!'},
    {"RND(A#)", LOAD("A#") SEP "Rnd", '!'},
    {"SEARCH(A%,5)", REF("A%") SEP INT(5) SEP OMIT SEP OMIT SEP "Search", '%'},
    {"SEARCH(A%(2),5,1)",
     INT(-1) SEP INT(2) SEP "BPushVar var:A%" SEP INT(5) SEP INT(1) SEP OMIT SEP "Search", '%'},
    {"SEARCH(A%,5,,2)", REF("A%") SEP INT(5) SEP OMIT SEP INT(2) SEP "Search", '%'},
    {"FNA%(1,\"A\")", "BPushSpecial 17" SEP INT(1) SEP STR("A") SEP "BCallUserFunc \"FNA%\"", '%'},
    {"FNA", "BPushSpecial 17" SEP "BCallUserFunc \"FNA\"", '!'},
    {"FNA#(,1)", "BPushSpecial 17" SEP OMIT SEP INT(1) SEP "BCallUserFunc \"FNA#\"", '#'},
    {"FN A$(1)", "BPushSpecial 17" SEP INT(1) SEP "BCallUserFunc \"FN A$\"", '$'},
    {"ERL", INT(0), '%'},
    {"ERR", INT(0), '%'},
    {"FRE", INT(0), '%'},
    {"FRE(0)", INT(0), '%'},
    {"CVI(A$)", INT(0), '%'},  // the argument is never computed
    {"CVI((A$),(1))", INT(0), '%'},
};

// Not implemented: an argument is skipped.
constexpr const char* ZEROS[] = {"CVI",    "CVS", "CVD",    "DSKF", "FPOS",  "FRE",
                                 "KTYPE",  "LOC", "LOF",    "LPOS", "MAP",   "PEN",
                                 "STATUS", "USR", "VARPTR", "VIEW", "WINDOW"};
constexpr const char* EMPTIES[] = {"ATTR$", "DSKI$", "MKI$", "MKS$", "MKD$"};

const char* added(char type) {
  switch (type) {
    case '%':
      return "BAddInt";
    case '#':
      return "BAddDouble";
    default:
      return "BAddFloat";
  }
}

// "call + 1", or a string joined, shows the type that the call had.
void check_function(const std::string& call, const std::string& code, char type) {
  const bool isText = type == '$';
  const std::string statement = "PRINT " + call + (isText ? "+\"x\";" : "+1;");
  const std::string sum =
      isText ? " / BPushString \"x\" / BAddString" : std::string(" / BPushInt 1 / ") + added(type);
  EXPECT_EQ(compiled(statement), code + sum + " / Print 0 / BUpdateScreen") << statement;
}

TEST(Functions, FormsAndTypes) {
  for (const TFunctionRow& row : FUNCTIONS) check_function(row.call, row.code, row.type);
}

TEST(Functions, NotImplemented) {
  for (const std::string word : ZEROS) {
    check_function(word, "BPushInt 0", '%');
    check_function(word + "(1,\"A\")", "BPushInt 0", '%');
    EXPECT_EQ(compiled("A=" + word + "((1)"), NO_RPAR) << word;
  }
  for (const std::string word : EMPTIES) {
    check_function(word, "BPushString \"\"", '$');
    check_function(word + "(1,\"A\")", "BPushString \"\"", '$');
    EXPECT_EQ(compiled("A$=" + word + "((1)"), NO_RPAR) << word;
  }
}

constexpr const char* MATH[] = {"ABS", "ATN", "COS", "EXP", "LOG", "SIN", "SQR", "TAN"};
constexpr const char* ONE_TEXT[] = {"AKCNV$", "JIS$", "KACNV$", "KNJ$", "ASC", "LEN", "VAL"};
constexpr const char* ONE_NUMBER[] = {"CHR$", "HEX$", "OCT$", "SPACE$", "STR$", "SPC",
                                      "TAB",  "CINT", "EOF",  "FIX",    "INP",  "INT",
                                      "PEEK", "POS",  "SGN",  "CSNG",   "CDBL"};
constexpr const char* BARE[] = {"CSRLIN", "DATE$", "INKEY$", "TIME$", "ZOKAVERSION$", "SYSTEMTIME"};

TEST(Functions, FaultsOfMath) {
  for (const std::string word : MATH) {
    EXPECT_EQ(compiled("A=" + word), NO_LPAR) << word;
    EXPECT_EQ(compiled("A=" + word + "()"), ILL_CALL) << word;
    EXPECT_EQ(compiled("A=" + word + "(A$)"), MISMATCH) << word;
    EXPECT_EQ(compiled("A=" + word + "(1,2)"), NO_RPAR) << word;
  }
}

TEST(Functions, FaultsOfOneArgument) {
  const auto check = [](const std::string& word, const std::string& good, const std::string& bad) {
    EXPECT_EQ(compiled("PRINT " + word), NO_LPAR) << word;
    EXPECT_EQ(compiled("PRINT " + word + "()"), SYNTAX) << word;
    EXPECT_EQ(compiled("PRINT " + word + "(" + bad + ")"), MISMATCH) << word;
    EXPECT_EQ(compiled("PRINT " + word + "(" + good), MISSING) << word;
    EXPECT_EQ(compiled("PRINT " + word + "(" + good + "," + good + ")"), MISMATCH) << word;
    EXPECT_EQ(compiled("PRINT " + word + "(?)"), SYNTAX) << word;
  };
  for (const std::string word : ONE_TEXT) check(word, "A$", "1");
  for (const std::string word : ONE_NUMBER) check(word, "1", "A$");
}

TEST(Functions, NoParenthesesWhereNoneBelong) {
  for (const std::string word : BARE) {
    EXPECT_EQ(compiled("PRINT " + word + "()"), ILL_CALL) << word;
    EXPECT_EQ(compiled("PRINT " + word + "(1)"), ILL_CALL) << word;
  }
}

constexpr TCompileRow FAULTS[] = {
    {"LEN=1", SYNTAX},
    {"A=LEN", NO_LPAR},
    {"A=INSTR(A$)", SYNTAX},
    {"A=INSTR(2,A$)", SYNTAX},
    {"A=INSTR(A$,1)", MISMATCH},
    {"A=INSTR(1,2,A$)", MISMATCH},
    {"A=INSTR(1,A$,B$,C$)", MISMATCH},
    {"A=INSTR(A$,B$", NO_RPAR},
    {"A=KINSTR(A$)", SYNTAX},
    {"A=KINSTR(1,A$,B$,1)", MISMATCH},
    {"A$=MID$(A$)", SYNTAX},
    {"A$=MID$(1,2)", MISMATCH},
    {"A$=MID$(A$,B$)", MISMATCH},
    {"A$=MID$(A$,1,2,3)", MISMATCH},
    {"A$=MID$(A$,1,2", NO_RPAR},
    {"A$=MID$(A$,1", MISSING},
    {"A$=KMID$(A$)", SYNTAX},
    {"A$=KMID$(A$,B$)", MISMATCH},
    {"A$=LEFT$(A$)", SYNTAX},
    {"A$=LEFT$(1,A$)", MISMATCH},
    {"A$=LEFT$(A$,1,2)", MISMATCH},
    {"A$=LEFT$(,1)", MISSING},
    {"A$=RIGHT$(A$)", SYNTAX},
    {"A$=RIGHT$(A$,B$)", MISMATCH},
    {"A$=KEXT$(A$)", SYNTAX},
    {"A$=KEXT$(1,1)", MISMATCH},
    {"A$=STRING$(3)", SYNTAX},
    {"A$=STRING$(A$,3)", MISMATCH},
    {"A$=INPUT$()", SYNTAX},
    {"A$=INPUT$(A$)", MISMATCH},
    {"A$=INPUT$(1,2,3)", MISMATCH},
    {"A$=INPUT$(1,2", NO_RPAR},
    {"A=KLEN(1)", MISMATCH},
    {"A=KLEN(A$,B$)", MISMATCH},
    {"A=KLEN(A$,1", NO_RPAR},
    {"A=MOUSE", NO_LPAR},
    {"A=MOUSE()", SYNTAX},
    {"A=MOUSE(A$)", MISMATCH},
    {"A=MOUSE(1,2,3)", MISMATCH},
    {"A=POINT", NO_LPAR},
    {"A=POINT()", SYNTAX},
    {"A=POINT(1", MISSING},
    {"A=POINT(1,2", NO_RPAR},
    {"A=POINT(A$)", MISMATCH},
    {"A=POINT(1,2,3)", MISMATCH},
    {"A=RND(A$)", MISMATCH},
    {"A=RND(1", NO_RPAR},
    {"A=SEARCH", NO_LPAR},
    {"A=SEARCH(5,1)", SYNTAX},
    {"A=SEARCH(A$,1)", MISMATCH},
    {"A=SEARCH(A%)", NO_COMMA},
    {"A=SEARCH(A%,)", ILL_CALL},
    {"A=SEARCH(A%,1,2,3,4)", ILL_CALL},
    {"A=SEARCH(A%,1", NO_RPAR},
    {"A=FNA(1", NO_RPAR},
    {"A=FNA(?)", SYNTAX},
    {"A=ERR(1)", REF("A!") SEP INT(0) SEP INT(1) SEP "BAssignArray"},
};

TEST(Functions, Faults) {
  check_rows(FAULTS);
}

}  // namespace
}  // namespace zoka
