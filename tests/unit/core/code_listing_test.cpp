// The listing of code: its exact form.
#include "core/code_listing.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

TEST(CodeListing, AssignmentAsDocumented) {
  TMidCode program;
  auto& codes = program.mCodes;
  codes.emplace_back();
  codes.push_back(TVMCode(TVMCodeCmd::BLineBegin).SetLong(10));
  codes.push_back(TVMCode(TVMCodeCmd::BPushInt).SetLong(-1));
  codes.push_back(TVMCode(TVMCodeCmd::BPushVar).SetVar(program.InsertVar("A!", ttSng)));
  codes.push_back(TVMCode(TVMCodeCmd::BPushInt).SetLong(1));
  codes.emplace_back(TVMCodeCmd::BAssignArray);
  codes.emplace_back(TVMCodeCmd::BExit);
  EXPECT_EQ(code_listing(program),
            "0 0x0000 -\n"
            "1 0x1063 BLineBegin 10\n"
            "2 0x1051 BPushInt -1\n"
            "3 0x1056 BPushVar var:A!\n"
            "4 0x1051 BPushInt 1\n"
            "5 0x1062 BAssignArray\n"
            "6 0x105D BExit\n");
}

TEST(CodeListing, Reals) {
  EXPECT_EQ(code_record_text(1, TVMCode(TVMCodeCmd::BPushFloat).SetFloat(1.1f)),
            "1 0x1052 BPushFloat 1.1000000238418579");
  EXPECT_EQ(code_record_text(1, TVMCode(TVMCodeCmd::BPushDouble).SetDouble(0.1)),
            "1 0x1053 BPushDouble 0.10000000000000001");
  EXPECT_EQ(code_record_text(1, TVMCode(TVMCodeCmd::BPushDouble).SetDouble(1e300)),
            "1 0x1053 BPushDouble 1.0000000000000001e+300");
  EXPECT_EQ(code_record_text(1, TVMCode(TVMCodeCmd::BPushDouble).SetDouble(2)),
            "1 0x1053 BPushDouble 2");
}

TEST(CodeListing, Bools) {
  EXPECT_EQ(code_record_text(7, TVMCode(TVMCodeCmd::Print).SetBool(true)), "7 0x00C0 Print 1");
  EXPECT_EQ(code_record_text(7, TVMCode(TVMCodeCmd::BRet).SetBool(false)), "7 0x105C BRet 0");
}

TEST(CodeListing, TextsAreEscaped) {
  TMidCode program;
  const TVMCode code = TVMCode(TVMCodeCmd::BPushString)
                           .SetStr(program.AddText("a\"b\\c\t\r\v\f\b\a\x01\x1B"
                                                   "7\x7F"
                                                   "か"));
  EXPECT_EQ(code_record_text(3, code),
            "3 0x1054 BPushString \"a\\\"b\\\\c\\t\\r\\v\\f\\b\\a\\001\\0337\\177か\"");
}

TEST(CodeListing, NumbersWithoutARow) {
  EXPECT_EQ(code_record_text(2, TVMCode(static_cast<TVMCodeCmd>(0x1057))), "2 0x1057 -");
  EXPECT_EQ(code_record_text(12345, TVMCode(TVMCodeCmd::OnGoto).SetLong(3)),
            "12345 0x109A OnGosubGoto 3");
}

}  // namespace
}  // namespace zoka
