// Finding texts and regular expressions in a list.
#include "editor/window/text_search.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

using TPlaces = std::vector<std::pair<int64_t, int64_t>>;

TPlaces places(const TSearchWish& wish, std::string_view text) {
  TPlaces found;
  for (const TFound& one : TTextSearch(wish).All(text)) found.emplace_back(one.begin, one.end);
  return found;
}
TPlaces plain(const char* wanted, std::string_view text) {
  return places({QString::fromUtf8(wanted)}, text);
}
TPlaces regex(const char* wanted, std::string_view text) {
  TSearchWish wish{QString::fromUtf8(wanted)};
  wish.regex = true;
  return places(wish, text);
}
TPlaces words(const char* wanted, std::string_view text) {
  TSearchWish wish{QString::fromUtf8(wanted)};
  wish.wholeWords = true;
  return places(wish, text);
}
std::string replaced(const char* wanted, const char* with, std::string_view text, bool isRegex) {
  TSearchWish wish{QString::fromUtf8(wanted)};
  wish.regex = isRegex;
  const auto found = TTextSearch(wish).All(text, QString::fromUtf8(with));
  if (found.empty()) return std::string(text);
  return std::string(text.substr(0, static_cast<size_t>(found.front().begin))) +
         replaced_range(text, found) +
         std::string(text.substr(static_cast<size_t>(found.back().end)));
}

TEST(TextSearch, PlainTexts) {
  EXPECT_EQ(plain("a", "Aba"), (TPlaces{{0, 1}, {2, 3}}));
  EXPECT_EQ(plain("aa", "aaaa"), (TPlaces{{0, 2}, {2, 4}}));
  EXPECT_EQ(plain(".*", "a.*b"), (TPlaces{{1, 3}}));
  EXPECT_EQ(plain("", "abc"), TPlaces{});
  TSearchWish wish{"a"};
  wish.matchCase = true;
  EXPECT_EQ(places(wish, "Aba"), (TPlaces{{2, 3}}));
}

TEST(TextSearch, OffsetsAreBytes) {
  EXPECT_EQ(plain("あ", "いあ😀あ"), (TPlaces{{3, 6}, {10, 13}}));
  EXPECT_EQ(plain("b", "é\r\nb"), (TPlaces{{4, 5}}));
  EXPECT_EQ(plain("b", std::string_view("a\0b", 3)), (TPlaces{{2, 3}}));
  EXPECT_EQ(plain("a",
                  "\xEF\xBB\xBF"
                  "a"),
            (TPlaces{{3, 4}}));
}

TEST(TextSearch, TextThatIsNoUtf8IsSearchedByBytes) {
  EXPECT_EQ(plain("b",
                  "\xFF\x80"
                  "b\xE3\x81"),
            (TPlaces{{2, 3}}));
  EXPECT_EQ(plain("あ", "\xFF\xE3\x81\x82"), (TPlaces{{1, 4}}));
  EXPECT_EQ(plain("x", "\xE3\x81x"), (TPlaces{{2, 3}}));
}

TEST(TextSearch, WholeWordsAreThoseOfTheLanguage) {
  EXPECT_EQ(words("A", "A A$ BA A1 (A)"), (TPlaces{{0, 1}, {12, 13}}));
  EXPECT_EQ(words("A$", "A A$ A$B"), (TPlaces{{2, 4}}));
}

TEST(TextSearch, RegularExpressionsKeepToLines) {
  EXPECT_EQ(regex("^[0-9]+", "10 A\n20 B\r\n30 C\r40"),
            (TPlaces{{0, 2}, {5, 7}, {11, 13}, {16, 18}}));
  EXPECT_EQ(regex("A.*", "10 AB\nC"), (TPlaces{{3, 5}}));
  EXPECT_EQ(regex("B$", "10 B\r\n20 B"), (TPlaces{{3, 4}, {9, 10}}));
  EXPECT_EQ(regex("", "abc"), TPlaces{});
}

TEST(TextSearch, WhatIsNoExpressionFindsNothing) {
  for (const char* bad : {"[", "(", "*", "a{2,1}", "(?<", "\\"}) {
    EXPECT_EQ(regex(bad, "[(*a\\"), TPlaces{}) << bad;
  }
}

TEST(TextSearch, EmptyOccurrencesEnd) {
  EXPECT_EQ(regex("x*", "axb").size(), 4U);
  EXPECT_EQ(regex("^", "a\nb\n").size(), 2U);
}

TEST(TextSearch, BadExpressionsOnLongLinesEnd) {
  const std::string line(1'000'000, 'A');
  EXPECT_EQ(regex("A*", line).size(), 2U);
  EXPECT_EQ(regex("(A|B)*C", line), TPlaces{});
  EXPECT_EQ(regex("(A*)*B", line), TPlaces{});
  EXPECT_EQ(regex("(A|AA)+$", line + "!"), TPlaces{});
}

TEST(TextSearch, Replaces) {
  EXPECT_EQ(replaced("a", "xx", "bab a", false), "bxxb xx");
  EXPECT_EQ(replaced("a", "\\0", "bab", false), "b\\0b");
  EXPECT_EQ(replaced("z", "x", "abc", false), "abc");
  EXPECT_EQ(replaced("([A-Z])([0-9])", "\\2\\1", "A1 B2", true), "1A 2B");
  EXPECT_EQ(replaced("b", "\\0\\0\\\\\\t\\n\\q", "abc", true), "abb\\\t\nc");
  EXPECT_EQ(replaced("b", "漢😀\\", "abc", true), "a漢😀c");
  EXPECT_EQ(replaced("(あ)", "<\\1>", "いあ", true), "い<あ>");
}

}  // namespace
}  // namespace zoka
