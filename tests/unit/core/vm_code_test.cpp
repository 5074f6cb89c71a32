// The instruction record and the operation table.
#include "core/vm_code.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "core/text.h"
#include "core/var_info.h"

namespace zoka {
namespace {

const TOperationRow* row_of(uint32_t number) {
  return find_operation(static_cast<TVMCodeCmd>(number));
}

/// Rows from `first` to `last` of a kind.
int count_rows(uint32_t first, uint32_t last, THandlerKind kind) {
  int count = 0;
  const TOperationRow* rows = operation_rows(&count);
  int found = 0;
  for (int i = 0; i < count; ++i) {
    const auto number = static_cast<uint32_t>(rows[i].cmd);
    if (number >= first && number <= last && rows[i].kind == kind) ++found;
  }
  return found;
}

TEST(VMCode, IsThreeWords) {
  EXPECT_EQ(sizeof(TVMCode), 12u);
}

TEST(VMCode, KeepsEachOperandWhole) {
  TVMCode code(TVMCodeCmd::BPushInt);
  EXPECT_EQ(code.SetLong(-2147483647 - 1).lval(), -2147483647 - 1);
  EXPECT_TRUE(code.SetBool(true).bval());
  EXPECT_FALSE(code.SetBool(false).bval());
  EXPECT_EQ(code.SetFloat(1.5f).fval(), 1.5f);
  TVarInfo var;
  EXPECT_EQ(code.SetVar(&var).varInfo(), &var);
  EXPECT_EQ(code.SetStr(TTextBlock::Empty()).str(), TTextBlock::Empty());
  EXPECT_EQ(code.Cmd(), TVMCodeCmd::BPushInt);
  EXPECT_EQ(code.Number(), 0x1051u);
}

TEST(VMCode, DoubleSurvivesCopyingWithTheVector) {
  const double odd = 1.0 + std::numeric_limits<double>::epsilon();
  std::vector<TVMCode> codes;
  for (int i = 0; i < 100; ++i) {
    codes.push_back(TVMCode(TVMCodeCmd::BPushDouble).SetDouble(odd + i));
  }
  const std::vector<TVMCode> copy = codes;
  EXPECT_EQ(copy[0].dval(), odd);
  EXPECT_EQ(copy[99].dval(), odd + 99);
}

TEST(Operations, CountsOfEachGroup) {
  EXPECT_EQ(count_rows(0x80, 0xEE, THandlerKind::Handler), 28);
  EXPECT_EQ(count_rows(0x80, 0xEE, THandlerKind::Empty), 9);
  // 50 keywords, and the number of a generator that no keyword reaches.
  EXPECT_EQ(count_rows(0x80, 0xEE, THandlerKind::Nothing), 51);
  EXPECT_EQ(count_rows(0x1000, 0x104F, THandlerKind::Handler), 65);
  EXPECT_EQ(count_rows(0x1000, 0x104F, THandlerKind::Empty), 15);
  EXPECT_EQ(count_rows(0x1050, 0x1067, THandlerKind::Handler), 21);
  EXPECT_EQ(count_rows(0x1050, 0x1067, THandlerKind::Empty), 1);
  EXPECT_EQ(count_rows(0x1068, 0x109A, THandlerKind::Handler), 40);
  EXPECT_EQ(count_rows(0x1068, 0x109A, THandlerKind::Empty), 1);
  EXPECT_EQ(count_rows(0x1068, 0x109A, THandlerKind::Nothing), 4);
  EXPECT_EQ(count_rows(0x109B, 0x109D, THandlerKind::Handler), 3);
  EXPECT_EQ(count_rows(0xFF80, 0xFFCF, THandlerKind::Handler), 45);
  EXPECT_EQ(count_rows(0xFF80, 0xFFCF, THandlerKind::Empty), 1);
  EXPECT_EQ(count_rows(0xFF80, 0xFFCF, THandlerKind::Nothing), 24);
  int count = 0;
  operation_rows(&count);
  EXPECT_EQ(count, 308);
}

TEST(Operations, OperatorBlockIsFourByTwenty) {
  const char* const NAMES[] = {"BAdd",  "BSub",   "BMul",   "BDiv", "BIdiv", "BMod", "BPow",
                               "BNega", "BEqual", "BNoteq", "BLt",  "BLe",   "BGt",  "BGe",
                               "BNot",  "BAnd",   "BOr",    "BXor", "BImp",  "BEqv"};
  const char* const TYPES[] = {"Int", "Float", "Double", "String"};
  for (uint32_t i = 0; i < 80; ++i) {
    const TOperationRow* row = row_of(0x1000 + i);
    ASSERT_NE(row, nullptr) << i;
    EXPECT_EQ(row->name, std::string(NAMES[i / 4]) + TYPES[i % 4]);
    EXPECT_EQ(row->operand, TOperandKind::None);
  }
}

TEST(Operations, EmptyOperatorsAreThoseThatNeverRun) {
  const std::vector<uint32_t> stringForms = {0x1000, 0x1020, 0x1024, 0x1028,
                                             0x102C, 0x1030, 0x1034};
  for (uint32_t base = 0x1000; base < 0x1050; base += 4) {
    const bool works = std::find(stringForms.begin(), stringForms.end(), base) != stringForms.end();
    EXPECT_EQ(row_of(base + 3)->kind, works ? THandlerKind::Handler : THandlerKind::Empty);
    const bool promoted = base == 0x100C || base == 0x1018;
    EXPECT_EQ(row_of(base)->kind, promoted ? THandlerKind::Empty : THandlerKind::Handler);
    EXPECT_EQ(row_of(base + 1)->kind, THandlerKind::Handler);
    EXPECT_EQ(row_of(base + 2)->kind, THandlerKind::Handler);
  }
}

TEST(Operations, FreeNumbersHaveNoRow) {
  for (uint32_t number :
       {0u,      1u,      0x7Fu,   0x99u,    0xEFu,    0xFFFu,     0x1057u, 0x105Au,
        0x107Eu, 0x107Fu, 0x1094u, 0x1096u,  0x1097u,  0x1098u,    0x109Eu, 0xFF7Fu,
        0xFF87u, 0xFFCEu, 0xFFD0u, 0x10000u, 0x11051u, 0xFFFFFFFFu}) {
    EXPECT_EQ(row_of(number), nullptr) << number;
  }
}

struct TExpectedRow {
  uint32_t number;
  const char* name;
  TOperandKind operand;
};

constexpr TExpectedRow EXPECTED[] = {
    {0x1050, "BCmpFor", TOperandKind::None},
    {0x1051, "BPushInt", TOperandKind::Long},
    {0x1052, "BPushFloat", TOperandKind::Float},
    {0x1053, "BPushDouble", TOperandKind::Double},
    {0x1054, "BPushString", TOperandKind::Str},
    {0x1055, "BPushBool", TOperandKind::Bool},
    {0x1056, "BPushVar", TOperandKind::Var},
    {0x1058, "BPushSpecial", TOperandKind::Long},
    {0x1059, "BPushAbbrev", TOperandKind::None},
    {0x105B, "BCall", TOperandKind::None},
    {0x105C, "BRet", TOperandKind::Bool},
    {0x105D, "BExit", TOperandKind::None},
    {0x105E, "BJmp", TOperandKind::None},
    {0x105F, "BTJmp", TOperandKind::None},
    {0x1060, "BFJmp", TOperandKind::None},
    {0x1061, "BLoadArray", TOperandKind::Var},
    {0x1062, "BAssignArray", TOperandKind::None},
    {0x1063, "BLineBegin", TOperandKind::Long},
    {0x1064, "BUpdateScreen", TOperandKind::None},
    {0x1065, "BCallUserFunc", TOperandKind::Str},
    {0x1066, "BLoadUserFuncParam", TOperandKind::Long},
    {0x1067, "BRetFromUserFunc", TOperandKind::None},
    {0x91, "Data", TOperandKind::Str},
    {0xC0, "Print", TOperandKind::Bool},
    {0x1099, "OnGosubGoto", TOperandKind::Long},
    {0x109A, "OnGosubGoto", TOperandKind::Long},
    {0x109C, "XSleep", TOperandKind::None},
    {0xFFCD, "KacnvDl", TOperandKind::None},
};

TEST(Operations, NamesAndOperands) {
  for (const TExpectedRow& expected : EXPECTED) {
    const TOperationRow* row = row_of(expected.number);
    ASSERT_NE(row, nullptr) << expected.name;
    EXPECT_STREQ(row->name, expected.name);
    EXPECT_EQ(row->operand, expected.operand) << expected.name;
  }
}

}  // namespace
}  // namespace zoka
