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

/// Each statement's and function's number, which is fixed: lists of code show it.
struct THandlerNumber {
  uint32_t number;
  const char* name;
};
constexpr THandlerNumber HANDLERS[] = {
    {0x83, "Beep"},
    {0x84, "Console"},
    {0x86, "Close"},
    {0x8B, "Chain"},
    {0x8E, "Color"},
    {0x8F, "Cls"},
    {0x91, "Data"},
    {0x92, "Dim"},
    {0x9A, "End"},
    {0xA0, "Files"},
    {0xA3, "Goto"},
    {0xA4, "Gosub"},
    {0xA7, "Input"},
    {0xA9, "Key"},
    {0xAC, "Locate"},
    {0xAF, "Let"},
    {0xB0, "Line"},
    {0xBB, "Open"},
    {0xBD, "On"},
    {0xBE, "Option"},
    {0xC0, "Print"},
    {0xC3, "PSet"},
    {0xC4, "PReset"},
    {0xC5, "Paint"},
    {0xC6, "Return"},
    {0xC7, "Read"},
    {0xC8, "Run"},
    {0xC9, "Restore"},
    {0xCE, "Randomize"},
    {0xCF, "Roll"},
    {0xD0, "Screen"},
    {0xD1, "Stop"},
    {0xD2, "Swap"},
    {0xD4, "Spc"},
    {0xD9, "Tab"},
    {0xE2, "Write"},
    {0xE6, "Kinput"},
    {0x1068, "CallMouse"},
    {0x1069, "Base"},
    {0x106A, "ColorAt"},
    {0x106B, "ColorProc1"},
    {0x106C, "ColorProc2"},
    {0x106D, "DefSeg"},
    {0x106E, "FillArc"},
    {0x106F, "FillEllipse"},
    {0x1070, "FillRect"},
    {0x1071, "GetAt"},
    {0x1072, "InitColorPalette"},
    {0x1073, "InputSh"},
    {0x1074, "InputWait"},
    {0x1075, "LineInput"},
    {0x1076, "LineInputSh"},
    {0x1077, "LineInputWait"},
    {0x1078, "MidDlFunc"},
    {0x1079, "MidDlProc"},
    {0x107B, "MouseFunc"},
    {0x107C, "MouseProc"},
    {0x107D, "OptionBase"},
    {0x1080, "Play"},
    {0x1081, "PlayAlloc"},
    {0x1082, "PointFunc1"},
    {0x1083, "PointFunc2"},
    {0x1084, "PointProc"},
    {0x1085, "PrintSh"},
    {0x1086, "PrintUsing"},
    {0x1088, "PutAtProc1"},
    {0x1089, "PutAtProc2"},
    {0x108B, "RunCur"},
    {0x108C, "RunSpecify"},
    {0x108D, "SetIrState"},
    {0x108E, "SetIrTgt"},
    {0x108F, "StrokeArc"},
    {0x1090, "StrokeEllipse"},
    {0x1091, "StrokeRect"},
    {0x1093, "WriteSh"},
    {0x1095, "WidthProc1"},
    {0x109A, "OnGosubGoto"},
    {0x109B, "XZokaversionDl"},
    {0x109C, "XSleep"},
    {0x109D, "XSystemtime"},
    {0xFF80, "DateDl"},
    {0xFF81, "MidDl"},
    {0xFF84, "TimeDl"},
    {0xFF90, "Abs"},
    {0xFF91, "Atn"},
    {0xFF92, "Asc"},
    {0xFF94, "Csrlin"},
    {0xFF95, "Cint"},
    {0xFF96, "Csng"},
    {0xFF97, "Cdbl"},
    {0xFF9B, "Cos"},
    {0xFF9C, "ChrDl"},
    {0xFFA0, "Exp"},
    {0xFFA1, "Eof"},
    {0xFFA2, "Fix"},
    {0xFFA4, "HexDl"},
    {0xFFA5, "Instr"},
    {0xFFA6, "Int"},
    {0xFFA7, "Inp"},
    {0xFFA8, "InkeyDl"},
    {0xFFAA, "Log"},
    {0xFFAC, "Len"},
    {0xFFAD, "LeftDl"},
    {0xFFB3, "OctDl"},
    {0xFFB4, "Pos"},
    {0xFFB5, "Peek"},
    {0xFFB6, "RightDl"},
    {0xFFB7, "Rnd"},
    {0xFFB8, "Search"},
    {0xFFB9, "Sgn"},
    {0xFFBA, "Sqr"},
    {0xFFBB, "Sin"},
    {0xFFBC, "StrDl"},
    {0xFFBD, "StringDl"},
    {0xFFBE, "SpaceDl"},
    {0xFFBF, "Tan"},
    {0xFFC0, "Val"},
    {0xFFC4, "InputDl"},
    {0xFFC5, "JisDl"},
    {0xFFC6, "KnjDl"},
    {0xFFC8, "Klen"},
    {0xFFC9, "KmidDl"},
    {0xFFCA, "KextDl"},
    {0xFFCB, "Kinstr"},
    {0xFFCC, "AkcnvDl"},
    {0xFFCD, "KacnvDl"},
};

TEST(Operations, NumbersOfAllHandlers) {
  for (const auto& [number, name] : HANDLERS) {
    const TOperationRow* row = find_operation(static_cast<TVMCodeCmd>(number));
    ASSERT_NE(row, nullptr) << name;
    EXPECT_STREQ(row->name, name);
  }
}

TEST(Operations, AGeneratorWithoutAWordHasItsNumber) {
  EXPECT_STREQ(find_operation(static_cast<TVMCodeCmd>(0xB6))->name, "Mon");
}

}  // namespace
}  // namespace zoka
