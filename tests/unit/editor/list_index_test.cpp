// Definitions in the list, kept up change by change.
#include "editor/list_index.h"

#include <gtest/gtest.h>

#include <random>

namespace zoka {
namespace {

TPlaceName line_target(int32_t line) {
  TPlaceName target;
  target.line = line;
  return target;
}

TPlaceName label_target(const char* label) {
  TPlaceName target;
  target.label = label;
  return target;
}

TListIndex index_of(std::string_view text) {
  TListIndex index;
  index.SetText(text);
  return index;
}

TEST(SplitLines, EveryKindOfEnd) {
  using TLines = std::vector<std::string_view>;
  EXPECT_EQ(split_lines(""), TLines{""});
  EXPECT_EQ(split_lines("A\nB\r\nC\rD"), (TLines{"A", "B", "C", "D"}));
  EXPECT_EQ(split_lines("A\n"), (TLines{"A", ""}));
  EXPECT_EQ(split_lines("\r\r\n\n"), (TLines{"", "", "", ""}));
}

TEST(ListIndex, NumberedLists) {
  const TListIndex index = index_of("10 A\n20 GOTO 10\n10 *L:B\n*L\n");
  EXPECT_EQ(index.LineCount(), 5u);
  EXPECT_TRUE(index.IsDefined(line_target(10)));
  EXPECT_FALSE(index.IsDefined(line_target(1)));
  EXPECT_FALSE(index.IsDefined(line_target(0)));
  EXPECT_EQ(index.DefinitionOf(line_target(20)), 1);
  EXPECT_EQ(index.DefinitionOf(line_target(10)), 2) << "of equal numbers the last counts";
  EXPECT_EQ(index.DefinitionOf(line_target(30)), -1);
  EXPECT_EQ(index.DefinitionOf(label_target("L")), 3);
  EXPECT_EQ(index.DefinitionOf(label_target("M")), -1);
}

TEST(ListIndex, UnnumberedListsAreCounted) {
  const TListIndex index = index_of("PRINT\n\n70 PRINT\n\nGOTO 3\n");
  EXPECT_FALSE(index.IsDefined(line_target(0)));
  EXPECT_TRUE(index.IsDefined(line_target(3)));
  EXPECT_FALSE(index.IsDefined(line_target(4)));
  EXPECT_FALSE(index.IsDefined(line_target(70))) << "the run gives that line another number";
  EXPECT_EQ(index.DefinitionOf(line_target(1)), 0);
  EXPECT_EQ(index.DefinitionOf(line_target(2)), 2);
  EXPECT_EQ(index.DefinitionOf(line_target(3)), 4);
}

TEST(ListIndex, TheFirstByteDecides) {
  TListIndex index = index_of("\n10 A\n");
  EXPECT_TRUE(index.IsDefined(line_target(1)));
  EXPECT_FALSE(index.IsDefined(line_target(10)));
  index.ReplaceLines(0, 1, {"5 X"});
  EXPECT_FALSE(index.IsDefined(line_target(1)));
  EXPECT_TRUE(index.IsDefined(line_target(10)));
}

TEST(ListIndex, FollowsChanges) {
  TListIndex index = index_of("10 A\n20 B\n30 *L\n");
  index.ReplaceLines(1, 1, {"25 B"});
  EXPECT_FALSE(index.IsDefined(line_target(20)));
  EXPECT_TRUE(index.IsDefined(line_target(25)));
  index.ReplaceLines(1, 1, {"25 B", "26 *M"});
  EXPECT_EQ(index.LineCount(), 5u);
  EXPECT_EQ(index.DefinitionOf(label_target("L")), 3);
  index.ReplaceLines(1, 3, {""});
  EXPECT_EQ(index.LineCount(), 3u);
  EXPECT_FALSE(index.IsDefined(label_target("L")));
  EXPECT_FALSE(index.IsDefined(label_target("M")));
  index.ReplaceLines(99, 5, {"40 Z"});
  EXPECT_EQ(index.DefinitionOf(line_target(40)), 3);
}

TEST(ListIndex, OneOfTwoDefinitionsMayGo) {
  TListIndex index = index_of("10 A\n10 B\n");
  index.ReplaceLines(1, 1, {"20 B"});
  EXPECT_EQ(index.DefinitionOf(line_target(10)), 0);
  index.ReplaceLines(0, 1, {"15 A"});
  EXPECT_FALSE(index.IsDefined(line_target(10)));
}

TEST(ListIndex, TargetsAtAPlace) {
  const TListIndex index = index_of("10 GOTO 100:GOSUB *L");
  EXPECT_EQ(index.TargetAt(0, 7), nullptr);
  for (size_t column : {8u, 9u, 11u}) {
    ASSERT_NE(index.TargetAt(0, column), nullptr) << column;
    EXPECT_EQ(index.TargetAt(0, column)->line, 100);
  }
  EXPECT_EQ(index.TargetAt(0, 12), nullptr);
  ASSERT_NE(index.TargetAt(0, 19), nullptr);
  EXPECT_EQ(index.TargetAt(0, 19)->label, "L");
  EXPECT_EQ(index.TargetAt(7, 0), nullptr);
}

TEST(ListIndex, NamesAndLabelsByTheirBeginning) {
  TListIndex index = index_of("10 COUNT=1:COL=2:D=COUNT\n20 *COUNTER:*DONE\n");
  EXPECT_EQ(index.NamesWith("CO"), (std::vector<std::string>{"COL", "COUNT"}));
  EXPECT_EQ(index.NamesWith(""), (std::vector<std::string>{"COL", "COUNT", "D"}));
  EXPECT_EQ(index.LabelsWith("C"), std::vector<std::string>{"COUNTER"});
  index.ReplaceLines(0, 1, {"10 D=1"});
  EXPECT_TRUE(index.NamesWith("CO").empty());
}

/// What can be asked of two indexes is the same.
void expect_equal(const TListIndex& a, const TListIndex& b) {
  ASSERT_EQ(a.LineCount(), b.LineCount());
  EXPECT_EQ(a.NamesWith(""), b.NamesWith(""));
  EXPECT_EQ(a.LabelsWith(""), b.LabelsWith(""));
  for (int32_t line = 0; line <= 60; ++line) {
    EXPECT_EQ(a.IsDefined(line_target(line)), b.IsDefined(line_target(line))) << line;
    EXPECT_EQ(a.DefinitionOf(line_target(line)), b.DefinitionOf(line_target(line))) << line;
  }
}

TEST(ListIndex, ChangesLeadToTheSameAsReadingTheWhole) {
  const std::string_view pieces[] = {"10 A=1", "20 *L:GOTO 10", "", "30 GOSUB *L", "X=Y", "50"};
  std::mt19937 random(1);
  std::vector<std::string_view> lines{""};
  TListIndex index;
  for (int round = 0; round < 300; ++round) {
    const size_t first = random() % lines.size();
    const size_t removed = 1 + random() % std::min<size_t>(3, lines.size() - first);
    std::vector<std::string_view> added;
    for (size_t i = 0; i < 1 + random() % 3; ++i) added.push_back(pieces[random() % 6]);
    index.ReplaceLines(first, removed, added);
    const auto begin = lines.begin() + static_cast<std::ptrdiff_t>(first);
    lines.insert(lines.erase(begin, begin + static_cast<std::ptrdiff_t>(removed)), added.begin(),
                 added.end());
    std::string text;
    for (size_t i = 0; i < lines.size(); ++i) {
      if (i > 0) text += '\n';
      text += lines[i];
    }
    expect_equal(index, index_of(text));
  }
}

}  // namespace
}  // namespace zoka
