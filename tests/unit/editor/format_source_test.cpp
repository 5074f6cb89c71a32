// The text that is compiled and the map back to the editor.
#include "editor/format_source.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

std::string formatted(std::string_view text) {
  return CreateFmtSrc(text).Text();
}

TEST(CreateFmtSrc, NumberedListsStay) {
  EXPECT_EQ(formatted("10 A\n20 B\n"), "10 A\n20 B\n");
  EXPECT_EQ(formatted("10 A\nB"), "10 A\nB");
}

TEST(CreateFmtSrc, UnnumberedListsGetNumbers) {
  EXPECT_EQ(formatted("A\nB\n"), "1 A\n2 B\n");
  EXPECT_EQ(formatted("A\n\n10 B\n7 C"), "1 A\n\n2 B\n3 C");
  EXPECT_EQ(formatted(" 10 A"), "1 10 A");
  EXPECT_EQ(formatted("\n10 A"), "\n1 A");
}

TEST(CreateFmtSrc, EmptyListStaysEmpty) {
  const TFmtSrc source = CreateFmtSrc("");
  EXPECT_EQ(source.Text(), "");
  EXPECT_EQ(source.EditorOffset(0), 0u);
  EXPECT_EQ(source.EditorLine(0), 0);
  EXPECT_EQ(source.FormattedLine(0), 0);
  EXPECT_EQ(source.FormattedLine(1), -1);
}

TEST(CreateFmtSrc, EachReturnAndEachEndMarkEndsALine) {
  EXPECT_EQ(formatted("10 A\r\n20 B\x1A"
                      "30 C\r"),
            "10 A\n\n20 B\n30 C\n");
}

TEST(CreateFmtSrc, EndsAtTheFirstNul) {
  EXPECT_EQ(formatted(std::string_view("10 A\0\n20 B", 10)), "10 A");
}

TEST(CreateFmtSrc, LongLinesAreCut) {
  const std::string line = "1 " + std::string(598, 'x');
  EXPECT_EQ(formatted(line), "1 " + std::string(498, 'x') + std::string(100, '\n'));
  const std::string exact = "1 " + std::string(498, 'x');
  EXPECT_EQ(formatted(exact + "\n2 Y"), exact + "\n2 Y");
  EXPECT_EQ(formatted(exact + "z\n2 Y"), exact + "\n\n2 Y");
}

TEST(CreateFmtSrc, NumbersCountForTheCut) {
  const std::string line(499, 'x');
  EXPECT_EQ(formatted(line), "1 " + std::string(498, 'x') + "\n");
}

TEST(CreateFmtSrc, TheCutMaySplitACharacter) {
  EXPECT_EQ(formatted("1 " + std::string(497, 'x') + "あ"),
            "1 " + std::string(497, 'x') + "\xE3\n\n");
}

TEST(FmtSrcMap, IdentityForNumberedLists) {
  const TFmtSrc source = CreateFmtSrc("10 A\n20 B");
  EXPECT_FALSE(source.IsNumberedHere());
  for (size_t at = 0; at <= 9; ++at) EXPECT_EQ(source.EditorOffset(at), at);
  EXPECT_EQ(source.EditorOffset(50), 9u);
  EXPECT_EQ(source.EditorLine(1), 1);
  EXPECT_EQ(source.EditorLine(-1), 0);
  EXPECT_EQ(source.EditorLine(9), 1);
}

TEST(FmtSrcMap, OffsetsBehindNumbersThatWerePutIn) {
  // editor:    A B \n 7 0   C        formatted: 1 _ A B \n 2 _ C
  const TFmtSrc source = CreateFmtSrc("AB\n70 C");
  ASSERT_EQ(source.Text(), "1 AB\n2 C");
  EXPECT_TRUE(source.IsNumberedHere());
  const size_t expected[] = {0, 0, 0, 1, 2, 3, 5, 6, 7};
  for (size_t at = 0; at < 9; ++at) EXPECT_EQ(source.EditorOffset(at), expected[at]) << at;
}

TEST(FmtSrcMap, NumberBehindDigitsThatStay) {
  const TFmtSrc source = CreateFmtSrc("X\n0 A");
  ASSERT_EQ(source.Text(), "1 X\n02 A");
  EXPECT_EQ(source.EditorOffset(4), 2u);  // the 0
  EXPECT_EQ(source.EditorOffset(5), 3u);  // the 2 that was put in
  EXPECT_EQ(source.EditorOffset(6), 3u);  // the blank
  EXPECT_EQ(source.EditorOffset(7), 4u);  // the A
}

TEST(FmtSrcMap, LinesOfAPairOfCrAndLf) {
  const TFmtSrc source = CreateFmtSrc("10 A\r\n20 B\r30 C\n40 D");
  ASSERT_EQ(source.Text(), "10 A\n\n20 B\n30 C\n40 D");
  EXPECT_EQ(source.EditorLine(0), 0);
  EXPECT_EQ(source.EditorLine(1), 0);  // between CR and LF
  EXPECT_EQ(source.EditorLine(2), 1);
  EXPECT_EQ(source.EditorLine(3), 2);
  EXPECT_EQ(source.EditorLine(4), 3);
  EXPECT_EQ(source.FormattedLine(0), 0);
  EXPECT_EQ(source.FormattedLine(1), 2);
  EXPECT_EQ(source.FormattedLine(2), 3);
  EXPECT_EQ(source.FormattedLine(3), 4);
  EXPECT_EQ(source.FormattedLine(4), -1);
}

TEST(FmtSrcMap, CutLinesBelongToTheirLine) {
  const TFmtSrc source = CreateFmtSrc("1 " + std::string(500, 'x') +
                                      "\n2 Y\x1A"
                                      "3 Z");
  EXPECT_EQ(source.EditorLine(0), 0);
  EXPECT_EQ(source.EditorLine(2), 0);
  EXPECT_EQ(source.EditorLine(3), 1);  // 2 Y
  EXPECT_EQ(source.EditorLine(4), 1);  // an end mark ends no line of the editor
  EXPECT_EQ(source.FormattedLine(1), 3);
}

TEST(FmtSrcMap, TenThousandUnnumberedLines) {
  std::string text;
  for (int i = 0; i < 10000; ++i) text += "PRINT\n";
  const TFmtSrc source = CreateFmtSrc(text);
  const size_t at = source.Text().find("10000 PRINT");
  ASSERT_NE(at, std::string::npos);
  EXPECT_EQ(source.EditorOffset(at), 6u * 9999);
  EXPECT_EQ(source.EditorOffset(at + 7), 6u * 9999 + 1);
  EXPECT_EQ(source.EditorLine(9999), 9999);
  EXPECT_EQ(source.FormattedLine(9999), 9999);
}

}  // namespace
}  // namespace zoka
