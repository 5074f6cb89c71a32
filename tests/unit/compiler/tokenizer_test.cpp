// The tokeniser, seen through the code of small statements.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/code_listing.h"

namespace zoka {
namespace {

using test::code_of;
using test::fault_of;
using test::listing_of;
using test::records_in;
using test::TCompiling;

constexpr char SYNTAX[] = "@Compile_Err_Syntax_Err@";

/// The code of `A=<expression>`.
std::string assigned(const std::string& pushed) {
  return "BPushInt -1; BPushVar var:A!; " + pushed + "; BAssignArray";
}

std::string loaded(const std::string& name) {
  return "BPushInt -1; BLoadArray var:" + name;
}

TEST(Words, MayHoldSigns) {
  EXPECT_EQ(code_of("A.B"), loaded("A.B!"));
  EXPECT_EQ(code_of("A_B"), loaded("A_B!"));
  EXPECT_EQ(code_of("_A"), loaded("_A!"));
  EXPECT_EQ(code_of("A%B"), loaded("A%B!"));
  EXPECT_EQ(code_of("A@B"), loaded("A@B!"));
  EXPECT_EQ(code_of("A1"), loaded("A1!"));
  EXPECT_EQ(code_of("A$=\"X\":B=1"),
            "BPushInt -1; BPushVar var:A$; BPushString \"X\"; BAssignArray; "
            "BPushInt -1; BPushVar var:B!; BPushInt 1; BAssignArray");
}

TEST(Words, AreUpperCase) {
  EXPECT_EQ(code_of("abc"), loaded("ABC!"));
  EXPECT_EQ(code_of("goto 10"), code_of("GOTO 10"));
}

TEST(Words, OfAnyLength) {
  const std::string name(5000, 'X');
  EXPECT_EQ(code_of(name), loaded(name + "!"));
}

TEST(Words, EndingInAtAreRefusedUnlessKeywords) {
  EXPECT_EQ(code_of("A@=1"), SYNTAX);
  EXPECT_EQ(code_of("B=A@"), SYNTAX);
  EXPECT_NE(code_of("COLOR@(0,0)-(1,1),2"), SYNTAX);
}

TEST(Words, GoToWithExactlyOneBlank) {
  const std::string jump = "BPushInt 10; BJmp";
  EXPECT_EQ(code_of("GOTO 10"), jump);
  EXPECT_EQ(code_of("GO TO 10"), jump);
  EXPECT_EQ(code_of("go to 10"), jump);
  EXPECT_EQ(code_of("Go tO10"), jump);
  EXPECT_EQ(code_of("GO  TO 10"), SYNTAX);
  EXPECT_EQ(code_of("GO\tTO 10"), SYNTAX);
  EXPECT_EQ(code_of("GO"), loaded("GO!"));
  EXPECT_EQ(code_of("GO T"), loaded("GO!") + "; " + loaded("T!"));
  EXPECT_EQ(records_in(listing_of("10 GO ")), "-; BLineBegin 10; " + loaded("GO!") + "; BExit");
  EXPECT_EQ(records_in(listing_of("10 GO T")),
            "-; BLineBegin 10; " + loaded("GO!") + "; " + loaded("T!") + "; BExit");
}

TEST(Words, FunctionsOfTheUser) {
  const std::string call = "BPushInt -1; BPushVar var:A!; BPushSpecial ";
  EXPECT_EQ(code_of("FNORD=1"), SYNTAX);
  EXPECT_NE(code_of("A=FNA(1)").find("BCallUserFunc \"FNA\""), std::string::npos);
  EXPECT_NE(code_of("A=FN A(1)").find("BCallUserFunc \"FN A\""), std::string::npos);
  EXPECT_NE(code_of("A=fn a(1)").find("BCallUserFunc \"FN A\""), std::string::npos);
  EXPECT_EQ(code_of("A=FNA(1)").substr(0, call.size()), call);
}

TEST(Numbers, Kinds) {
  EXPECT_EQ(code_of("A=1"), assigned("BPushInt 1"));
  EXPECT_EQ(code_of("A=1%"), assigned("BPushInt 1"));
  EXPECT_EQ(code_of("A=1!"), assigned("BPushFloat 1"));
  EXPECT_EQ(code_of("A=1#"), assigned("BPushDouble 1"));
  EXPECT_EQ(code_of("A=.5"), assigned("BPushFloat 0.5"));
  EXPECT_EQ(code_of("A=1.0"), assigned("BPushFloat 1"));
  EXPECT_EQ(code_of("A=1.25#"), assigned("BPushDouble 1.25"));
  EXPECT_EQ(code_of("A=1.5%"), assigned("BPushInt 1"));
  EXPECT_EQ(code_of("A=1!2"), assigned("BPushInt 1"));
  EXPECT_EQ(code_of("A=1.5.2"), assigned("BPushFloat 1.5"));
  EXPECT_EQ(code_of("A=1.23456789"), assigned("BPushFloat 1.2345678806304932"));
  EXPECT_EQ(code_of("A=1.23456789#"), assigned("BPushDouble 1.2345678899999999"));
}

TEST(Numbers, LargeOnesAreClamped) {
  EXPECT_EQ(code_of("A=1234567"), assigned("BPushInt 1234567"));
  EXPECT_EQ(code_of("A=2147483647"), assigned("BPushInt 2147483647"));
  EXPECT_EQ(code_of("A=3000000000"), assigned("BPushInt 2147483647"));
  EXPECT_EQ(code_of("A=" + std::string(1000, '9')), assigned("BPushInt 2147483647"));
  EXPECT_EQ(code_of("A=" + std::string(1000, '9') + "#"), assigned("BPushDouble inf"));
  EXPECT_EQ(code_of("A=." + std::string(1000, '0') + "1#"), assigned("BPushDouble 0"));
}

TEST(Numbers, Refused) {
  for (const char* text : {"A=1.", "A=.", "A=1E5", "A=1TO", "A=1D5", "A=1%A"}) {
    EXPECT_EQ(code_of(text), SYNTAX) << text;
  }
  EXPECT_EQ(code_of("A=1_B"), assigned("BPushInt 1") + "; " + loaded("_B!"));
}

TEST(Hexadecimal, Values) {
  EXPECT_EQ(code_of("A=&H10"), assigned("BPushInt 16"));
  EXPECT_EQ(code_of("A=&hfF"), assigned("BPushInt 255"));
  EXPECT_EQ(code_of("A=&HFFFF"), assigned("BPushInt 65535"));
  EXPECT_EQ(code_of("A=&HFFFFFFFF"), assigned("BPushInt -1"));
  EXPECT_EQ(code_of("A=&H123456789"), assigned("BPushInt 591751049"));
  EXPECT_EQ(code_of("A=&H"), assigned("BPushInt 0"));
  EXPECT_EQ(code_of("A=&HG"), assigned("BPushInt 0") + "; " + loaded("G!"));
}

TEST(Octal, Values) {
  EXPECT_EQ(code_of("A=&7"), assigned("BPushInt 7"));
  EXPECT_EQ(code_of("A=&0"), assigned("BPushInt 0"));
  EXPECT_EQ(code_of("A=&O"), assigned("BPushInt 0"));
  EXPECT_EQ(code_of("A=&o:END"), assigned("BPushInt 0") + "; BExit");
  for (const char* text : {"A=&8", "A=&9", "A=&O8", "A=&18", "A=&", "A=&G", "A=&&"}) {
    EXPECT_EQ(code_of(text), SYNTAX) << text;
  }
}

TEST(Strings, EndAtQuoteOrLine) {
  EXPECT_EQ(code_of("A$=\"AB\""), "BPushInt -1; BPushVar var:A$; BPushString \"AB\"; BAssignArray");
  EXPECT_EQ(code_of("A$=\"AB"), "BPushInt -1; BPushVar var:A$; BPushString \"AB\"; BAssignArray");
  EXPECT_EQ(records_in(listing_of("10 A$=\"AB\n20 A$=\"")),
            "-; BLineBegin 10; BPushInt -1; BPushVar var:A$; BPushString \"AB\"; BAssignArray; "
            "BLineBegin 20; BPushInt -1; BPushVar var:A$; BPushString \"\"; BAssignArray; BExit");
  EXPECT_EQ(code_of("A$=\"か:'\"'x"),
            "BPushInt -1; BPushVar var:A$; BPushString \"か:'\"; BAssignArray");
}

TEST(Strings, LongOnesAreKeptWhole) {
  const std::string text(10000, 'x');
  EXPECT_EQ(code_of("A$=\"" + text + "\""),
            "BPushInt -1; BPushVar var:A$; BPushString \"" + text + "\"; BAssignArray");
}

TEST(Sharp, NumbersBehindIt) {
  EXPECT_EQ(code_of("A=#12"), assigned("BPushInt 12"));
  EXPECT_EQ(code_of("A=#1.5"), assigned("BPushInt 1"));
  EXPECT_EQ(code_of("# 1"), SYNTAX);
}

TEST(Symbols, AllRelations) {
  const std::string operands = "BPushInt 1; BPushInt 2; ";
  const std::pair<const char*, const char*> rows[] = {
      {"=", "BEqualInt"}, {"<>", "BNoteqInt"}, {"><", "BNoteqInt"},
      {"<", "BLtInt"},    {"<=", "BLeInt"},    {"=<", "BLeInt"},
      {">", "BGtInt"},    {">=", "BGeInt"},    {"=>", "BGeInt"}};
  for (const auto& [sign, name] : rows) {
    EXPECT_EQ(code_of(std::string("A=1") + sign + "2"), assigned(operands + name)) << sign;
  }
  EXPECT_EQ(code_of("A=1< =2"), assigned("BPushInt 1; BLtInt; BPushInt 2; BEqualInt"));
}

TEST(Symbols, WithoutARole) {
  for (const char* text : {"!", "$", "%", "?", "@", "`", "{", "|", "}", "~"}) {
    EXPECT_EQ(code_of(text), SYNTAX) << text;
  }
}

TEST(Symbols, Unknown) {
  for (const char* text : {"\x01", "\x08", "\x0E", "\x1F", "\x7F"}) {
    EXPECT_EQ(code_of(text), "@Compile_Err_Unknown_Symbol %Symbol%@") << int{*text};
  }
}

TEST(Space, AllKindsButTheLineFeed) {
  EXPECT_EQ(code_of("A \t\r\f\v=\t1"), assigned("BPushInt 1"));
  EXPECT_EQ(listing_of("10 A=\n1 END"), listing_of("10 A=\n1 END\n"));
}

TEST(Comments, EndTheLine) {
  EXPECT_EQ(code_of("' comment : A=1"), "");
  EXPECT_EQ(code_of("A=1' B=2"), assigned("BPushInt 1"));
  EXPECT_EQ(code_of("REM A=1:B=2"), "");
  EXPECT_EQ(records_in(listing_of("10 'x\n20 END'x\n30 REM\n40 END")),
            "-; BLineBegin 10; BLineBegin 20; BExit; BLineBegin 30; BLineBegin 40; BExit; BExit");
}

TEST(Arguments, OfIgnoredStatementsAreReadPast) {
  EXPECT_EQ(code_of("NAME \"A\" AS \"B\""), "");
  EXPECT_EQ(code_of("FIELD #1,2 AS A$,3 AS B$:END"), "BExit");
  EXPECT_EQ(code_of("POKE (1+(2)),3:END"), "BExit");
  EXPECT_EQ(code_of("POKE (1"), "@Compile_Err_No_RPar@");
  EXPECT_EQ(code_of("POKE 1)"), SYNTAX);
  EXPECT_EQ(code_of("POKE 1,\x01"), "@Compile_Err_Unknown_Symbol %Symbol%@");
  EXPECT_EQ(code_of("IF A THEN POKE 1,2 ELSE END").find("POKE"), std::string::npos);
}

TEST(Arguments, OfIgnoredFunctionsAreReadPast) {
  EXPECT_EQ(code_of("A=FRE(0)"), assigned("BPushInt 0"));
  EXPECT_EQ(code_of("A=FRE"), assigned("BPushInt 0"));
  EXPECT_EQ(code_of("A=FRE((1),(2))+1"), assigned("BPushInt 0; BPushInt 1; BAddInt"));
  EXPECT_EQ(code_of("A=FRE((1)"), "@Compile_Err_No_RPar@");
}

}  // namespace
}  // namespace zoka
