// Classes of a line's bytes, shown as a letter each.
#include "editor/highlight.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace zoka {
namespace {

/// One letter a byte: the styles in their order.
std::string styles(std::string_view line) {
  std::vector<TTextStyle> found;
  style_line(line, &found);
  std::string text;
  for (TTextStyle style : found) text += "-lkfnsc*o"[static_cast<size_t>(style)];
  return text;
}

TEST(StyleLine, StatementsAndExpressions) {
  EXPECT_EQ(styles("10 PRINT \"A:B\";X%+1.5"), "ll-kkkkk-ssssso--onnn");
  EXPECT_EQ(styles("FOR I=1 TO ABS(X)"), "kkk--on-kk-fffo-o");
  EXPECT_EQ(styles("A=&H1F:B=&17"), "-onnnno-onnn");
  EXPECT_EQ(styles(""), "");
}

TEST(StyleLine, CommentsTakeTheRest) {
  EXPECT_EQ(styles("10 REM A:B"), "ll-ccccccc");
  EXPECT_EQ(styles("A=1'B"), "-oncc");
  EXPECT_EQ(styles("rem\xE6\xBC\xA2"), "cccccc");
  EXPECT_EQ(styles("REMARK"), "------");
}

TEST(StyleLine, DataEndsAtAColonOutsideOfQuotes) {
  EXPECT_EQ(styles("DATA 1,\":\",X:CLS"), "kkkkssssssssokkk");
  EXPECT_EQ(styles("DATA"), "kkkk");
}

TEST(StyleLine, LabelsAreNoProducts) {
  EXPECT_EQ(styles("*TOP:A=B*C"), "****o-o-o-");
  EXPECT_EQ(styles("GOTO *TOP"), "kkkk-****");
  EXPECT_EQ(styles("GO TO *X"), "kkkkk-**");
  EXPECT_EQ(styles("10 *X"), "ll-**");
  EXPECT_EQ(styles("GOSUB *A,*B"), "kkkkk-**o**");
}

TEST(StyleLine, OpenStringsAndOddBytesEndWithTheLine) {
  EXPECT_EQ(styles("\"ABC"), "ssss");
  EXPECT_EQ(styles("\xFF\x80?"), "--o");
}

TEST(LanguageWords, AreSortedAndKnown) {
  const auto& words = language_words();
  EXPECT_TRUE(std::is_sorted(words.begin(), words.end()));
  EXPECT_TRUE(std::binary_search(words.begin(), words.end(), "PRINT"));
  EXPECT_EQ(style_of_word("print"), TTextStyle::Keyword);
  EXPECT_EQ(style_of_word("chr$"), TTextStyle::Function);
  EXPECT_EQ(style_of_word("FOO"), TTextStyle::Plain);
}

}  // namespace
}  // namespace zoka
