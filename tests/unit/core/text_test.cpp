// Texts: growth in place, sharing, the budget.
#include "core/text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <new>
#include <stdexcept>
#include <string>

namespace zoka {
namespace {

/// A budget for the length of a test.
class TScopedBudget {
 public:
  explicit TScopedBudget(int64_t limit) {
    mBudget.limit = limit;
    TTextBlock::SetBudget(&mBudget);
  }
  ~TScopedBudget() { TTextBlock::SetBudget(nullptr); }
  int64_t Used() const { return mBudget.used; }

 private:
  TMemoryBudget mBudget;
};

TEST(Text, EndsAtTheFirstNul) {
  EXPECT_EQ(TText(std::string_view("A\0B", 3)).View(), "A");
  EXPECT_EQ(TText(std::string_view("\0B", 2)).Length(), 0u);
}

TEST(Text, ZeroedMemoryIsAnEmptyText) {
  alignas(TText) char memory[sizeof(TText)] = {};
  auto* text = reinterpret_cast<TText*>(memory);
  EXPECT_EQ(text->View(), "");
  EXPECT_EQ(text->Block(), TTextBlock::Empty());
  *text = TText("X");
  EXPECT_EQ(text->View(), "X");
  text->~TText();
}

TEST(Text, MovedFromIsEmpty) {
  TText a("A");
  const TText b(std::move(a));
  EXPECT_EQ(b.View(), "A");
  EXPECT_EQ(a.View(), "");
}

TEST(Text, ConcatenationExtendsInPlace) {
  TText a = TText::Concatenate(TText("AB"), "CD");
  const TTextBlock* block = a.Block();
  a = TText::Concatenate(std::move(a), "EF");
  EXPECT_EQ(a.View(), "ABCDEF");
  EXPECT_EQ(a.Block(), block);
}

TEST(Text, ConcatenationLeavesSharersAlone) {
  const TText a = TText::Concatenate(TText("A"), "B");
  const TText b = TText::Concatenate(a, "1");
  const TText c = TText::Concatenate(a, "2");
  EXPECT_EQ(a.View(), "AB");
  EXPECT_EQ(b.View(), "AB1");
  EXPECT_EQ(c.View(), "AB2");
  EXPECT_EQ(b.Block(), a.Block());
  EXPECT_NE(c.Block(), a.Block());
}

TEST(Text, ConcatenationOfATextWithItself) {
  TText a("AB");
  for (int i = 0; i < 3; ++i) {
    const TText right = a;
    a = TText::Concatenate(a, right.View());
  }
  EXPECT_EQ(a.View(), "ABABABABABABABAB");
}

TEST(Text, BuildingALongTextIsLinear) {
  TText a;
  int moves = 0;
  for (int i = 0; i < 100000; ++i) {
    const TTextBlock* block = a.Block();
    a = TText::Concatenate(std::move(a), "x");
    if (a.Block() != block) ++moves;
  }
  EXPECT_EQ(a.Length(), 100000u);
  EXPECT_LT(moves, 40);
}

TEST(Text, EmptyAndLiteralNeverExtend) {
  EXPECT_FALSE(TTextBlock::Empty()->Extend(0, "A"));
  TTextBlock* literal = TTextBlock::CreateLiteral("LIT");
  EXPECT_FALSE(literal->Extend(3, "A"));
  EXPECT_EQ(TText::Concatenate(TText(literal, 3), "A").View(), "LITA");
  EXPECT_EQ(literal->View(), "LIT");
  TTextBlock::FreeLiteral(literal);
}

TEST(Text, LiteralsAreImmortal) {
  TTextBlock* literal = TTextBlock::CreateLiteral("LIT");
  for (int i = 0; i < 3; ++i) TText(literal, 3);
  EXPECT_EQ(literal->View(), "LIT");
  TTextBlock::FreeLiteral(literal);
  TTextBlock::FreeLiteral(TTextBlock::Empty());
}

TEST(Text, OneAsciiCharacterIsShared) {
  const TScopedBudget budget(1000);
  const TText a("A");
  EXPECT_EQ(a.View(), "A");
  EXPECT_EQ(a.Block(), TText("A").Block());
  EXPECT_EQ(TText::Concatenate(a, "B").View(), "AB");
  EXPECT_EQ(a.View(), "A");
  EXPECT_EQ(TText("\x7F").View(), "\x7F");
  EXPECT_EQ(TText("\x80").View(), "\x80") << "no character, a text as any other";
  EXPECT_EQ(budget.Used(), 0) << "nothing is allocated";
}

TEST(Text, DetachGivesTheCountAway) {
  TText a("AB");
  TTextBlock* block = a.Detach();
  EXPECT_EQ(a.View(), "");
  const TText b(block, 2);
  EXPECT_EQ(b.View(), "AB");
  EXPECT_EQ(TText().Detach(), TTextBlock::Empty());
}

TEST(Text, BeyondTheLongestTextIsRefused) {
  static const char byte = 'x';
  // Only the length is looked at before the refusal.
  const std::string_view huge(&byte, MAX_TEXT_BYTES);
  EXPECT_THROW(TText::Concatenate(TText("A"), huge), std::length_error);
}

TEST(Text, BudgetCountsAndRefuses) {
  const TScopedBudget budget(1000);
  {
    const TText a(std::string(500, 'a'));
    EXPECT_EQ(budget.Used(), 516);
    EXPECT_THROW(TText(std::string(469, 'b')), std::bad_alloc);
    EXPECT_EQ(budget.Used(), 516);
    const TText b(std::string(468, 'b'));
    EXPECT_EQ(budget.Used(), 1000);
  }
  EXPECT_EQ(budget.Used(), 0);
}

TEST(Text, UncountedBlocksDoNotGiveBack) {
  TText before(std::string(500, 'a'));
  const TScopedBudget budget(1000);
  before = TText();
  EXPECT_EQ(budget.Used(), 0);
}

TEST(Text, MayOutliveItsBudget) {
  TText text;
  {
    const TScopedBudget budget(1000);
    text = TText("AB");
  }
  EXPECT_EQ(text.View(), "AB");
}

}  // namespace
}  // namespace zoka
