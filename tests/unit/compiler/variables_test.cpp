// Variables: which record a name means, its type, subscripts, DEFINT and its kin.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/code_listing.h"

namespace zoka {
namespace {

using test::code_of;
using test::TCompiling;
using testing::ElementsAre;

constexpr char SYNTAX[] = "@Compile_Err_Syntax_Err@";
constexpr char ILL_DEF[] = "@Compile_Err_Ill_Def_Var_Type@";

std::string load(const std::string& name) {
  return "BPushInt -1; BLoadArray var:" + name;
}

std::vector<std::string> names_in(TCompiling* compiling) {
  std::vector<std::string> names;
  compiling->code.EnumerateVars([&](const std::string& name, TVarInfo&) { names.push_back(name); });
  return names;
}

TEST(Variables, NamesEndInTheirSuffix) {
  TCompiling compiling;
  ASSERT_EQ(compiling.Compile("10 A=1:A!=2:A%=3:A#=4:A$=\"\":A(1)=2"), TCompileResult::Runnable);
  EXPECT_THAT(names_in(&compiling), ElementsAre("A!", "A#", "A$", "A%"));
  EXPECT_EQ(compiling.code.FindVar("A%")->kind, ttInt);
  EXPECT_EQ(compiling.code.FindVar("A!")->kind, ttSng);
  EXPECT_EQ(compiling.code.FindVar("A#")->kind, ttDbl);
  EXPECT_EQ(compiling.code.FindVar("A$")->kind, ttStr);
  EXPECT_EQ(compiling.code.FindVar("A!")->slotCount, 2);
}

TEST(Variables, TypeIsSettledWhereTheNameStands) {
  EXPECT_EQ(code_of("A:DEFINT A:A"), load("A!") + "; " + load("A%"));
  EXPECT_EQ(code_of("DEFDBL A-C:B:D"), load("B#") + "; " + load("D!"));
  EXPECT_EQ(code_of("DEFSTR S,T-U:S:T:U:V"),
            load("S$") + "; " + load("T$") + "; " + load("U$") + "; " + load("V!"));
  EXPECT_EQ(code_of("DEFINT A-Z:DEFSNG B:A:B:C"),
            load("A%") + "; " + load("B!") + "; " + load("C%"));
  EXPECT_EQ(code_of("DEFINT A-Z:Z"), load("Z%"));
  EXPECT_EQ(code_of("DEFINT A:A!"), load("A!"));
  // In the order of the text, whatever the order of execution.
  TCompiling compiling;
  ASSERT_EQ(compiling.Compile("10 GOTO 30\n20 DEFINT A\n30 A=2.5"), TCompileResult::Runnable);
  EXPECT_THAT(names_in(&compiling), ElementsAre("A%"));
}

TEST(Variables, EachCompilationStartsWithSingles) {
  TCompiling compiling;
  ASSERT_EQ(compiling.Compile("10 DEFINT A:A"), TCompileResult::Runnable);
  ASSERT_EQ(compiling.Compile("10 A"), TCompileResult::Runnable);
  EXPECT_THAT(names_in(&compiling), ElementsAre("A!"));
}

TEST(Variables, OddEndsTakeTheFirstLettersType) {
  EXPECT_EQ(code_of("A_"), load("A_!"));
  EXPECT_EQ(code_of("DEFINT A:A_"), load("A_%"));
  EXPECT_EQ(code_of("DEFINT A:A."), load("A.%"));
  EXPECT_EQ(code_of("DEFINT A:A1"), load("A1%"));
  EXPECT_EQ(code_of("DEFINT A-Z:_A"), load("_A!"));
  EXPECT_EQ(code_of("_"), load("_!"));
}

TEST(Variables, DefinedLetters) {
  EXPECT_EQ(code_of("DEFINT ABC:A:B"), load("A%") + "; " + load("B!"));
  EXPECT_EQ(code_of("DEFINT Z-A:A:Z:M"), load("A!") + "; " + load("Z!") + "; " + load("M!"));
  EXPECT_EQ(code_of("DEFINT a-b:B"), load("B%"));
  EXPECT_EQ(code_of("DEFINT LEN"), ILL_DEF);
  EXPECT_EQ(code_of("DEFINT A-LEN"), ILL_DEF);
  EXPECT_EQ(code_of("DEFINT"), ILL_DEF);
  EXPECT_EQ(code_of("DEFINT A,"), ILL_DEF);
  EXPECT_EQ(code_of("DEFINT 1"), ILL_DEF);
  EXPECT_EQ(code_of("DEFINT FNA"), ILL_DEF);
}

TEST(Variables, KeywordsStayKeywords) {
  EXPECT_EQ(code_of("DEFSTR T:TIME=\"A\":TIME$ ON"),
            "BPushInt -1; BPushVar var:TIME$; BPushString \"A\"; BAssignArray; "
            "BPushInt 32; BPushInt 2; SetIrState");
}

TEST(Variables, Subscripts) {
  EXPECT_EQ(code_of("A(1,2)=3"),
            "BPushInt -1; BPushInt 1; BPushInt 2; BPushVar var:A!; BPushInt 3; BAssignArray");
  EXPECT_EQ(code_of("A (1)"), "BPushInt -1; BPushInt 1; BLoadArray var:A!");
  EXPECT_EQ(code_of("A[1]"), "BPushInt -1; BPushInt 1; BLoadArray var:A!");
  EXPECT_EQ(code_of("A(1]"), "BPushInt -1; BPushInt 1; BLoadArray var:A!");
  EXPECT_EQ(code_of("A[1)"), "BPushInt -1; BPushInt 1; BLoadArray var:A!");
  EXPECT_EQ(code_of("A(B(1))"),
            "BPushInt -1; BPushInt -1; BPushInt 1; BLoadArray var:B!; BLoadArray var:A!");
  EXPECT_EQ(code_of("A(1"), "@Compile_Err_No_RPar@");
  EXPECT_EQ(code_of("A(1:"), "@Compile_Err_No_RPar@");
}

TEST(Variables, AnyNumberOfSubscriptsCompiles) {
  std::string source = "A(1";
  std::string expected = "BPushInt -1; BPushInt 1; ";
  for (int i = 0; i < 299; ++i) {
    source += ",1";
    expected += "BPushInt 1; ";
  }
  EXPECT_EQ(code_of(source + ")"), expected + "BLoadArray var:A!");
}

TEST(Variables, Lists) {
  EXPECT_EQ(code_of("READ A,B$(1)"),
            "BPushInt -1; BPushVar var:A!; BPushInt -1; BPushInt 1; BPushVar var:B$; Read 2");
  EXPECT_EQ(code_of("READ 1"), SYNTAX);
  EXPECT_EQ(code_of("READ LEN"), SYNTAX);
}

TEST(Variables, ParametersComeFirstInTheirFunction) {
  const std::string code = code_of("DEF FNA(X,Y%)=X+Y%+Z:X=1");
  EXPECT_NE(code.find("BLoadUserFuncParam 0; BLoadUserFuncParam 1; BAddFloat; " + load("Z!")),
            std::string::npos)
      << code;
  EXPECT_NE(code.find("BPushInt -1; BPushVar var:X!"), std::string::npos) << code;
  // Names are compared with their suffixes.
  EXPECT_NE(code_of("DEF FNA(X)=X%").find(load("X%")), std::string::npos);
  EXPECT_NE(code_of("DEF FNA(X!)=X").find("BLoadUserFuncParam 0"), std::string::npos);
}

}  // namespace
}  // namespace zoka
