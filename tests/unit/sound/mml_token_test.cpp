// The scanner: every token, white space, numbers of any length.
#include "sound/mml_token.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

using namespace zoka;

namespace {

struct TRow {
  const char* text;
  TMmlTokenKind kind;
  const char* token_text;
};

// A name that no run changes; quotes and blanks would trouble the list of tests.
void PrintTo(const TRow& row, std::ostream* out) {
  *out << "kind " << static_cast<int>(row.kind) << " of " << std::string(row.text).size();
}

class TokenRow : public testing::TestWithParam<TRow> {};

TEST_P(TokenRow, IsOneTokenAndThenTheEnd) {
  const std::string text = GetParam().text;
  TMmlScanner scanner(text);
  const TMmlToken token = scanner.Token();
  EXPECT_EQ(token.kind, GetParam().kind);
  EXPECT_EQ(token.text, GetParam().token_text);
  EXPECT_EQ(scanner.Token().kind, TMmlTokenKind::End);
  EXPECT_EQ(scanner.Token().kind, TMmlTokenKind::End);
}

using K = TMmlTokenKind;
INSTANTIATE_TEST_SUITE_P(
    All, TokenRow,
    testing::Values(TRow{"0", K::Number, "0"}, TRow{"4608", K::Number, "4608"},
                    TRow{"A", K::Pitch, "9"}, TRow{"B", K::Pitch, "11"}, TRow{"C", K::Pitch, "0"},
                    TRow{"D", K::Pitch, "2"}, TRow{"E", K::Pitch, "4"}, TRow{"F", K::Pitch, "5"},
                    TRow{"G", K::Pitch, "7"}, TRow{"A+", K::Pitch, "10"},
                    TRow{"A#", K::Pitch, "10"}, TRow{"A-", K::Pitch, "8"},
                    TRow{"B+", K::Pitch, "12"}, TRow{"C-", K::Pitch, "-1"},
                    TRow{"G#", K::Pitch, "8"}, TRow{"M", K::M, "M"}, TRow{"S", K::S, "S"},
                    TRow{"V", K::V, "V"}, TRow{"L", K::L, "L"}, TRow{"Q", K::Q, "Q"},
                    TRow{"O", K::O, "O"}, TRow{"<", K::Lt, "<"}, TRow{">", K::Gt, ">"},
                    TRow{"K", K::K, "K"}, TRow{"T", K::T, "T"}, TRow{"R", K::R, "R"},
                    TRow{"P", K::R, "P"}, TRow{"+", K::Plus, "+"}, TRow{"#", K::Plus, "#"},
                    TRow{"-", K::Minus, "-"}, TRow{".", K::Period, "."}, TRow{",", K::Comma, ","},
                    TRow{"^", K::Hat, "^"}, TRow{"{", K::Lseq, "{"}, TRow{"}", K::Rseq, "}"},
                    TRow{"@", K::At, "@"}, TRow{"Y", K::Y, "Y"}, TRow{"@V", K::AtV, "@V"},
                    TRow{"@W", K::AtW, "@W"}, TRow{"_", K::Trans, "_"}, TRow{"!", K::Lfo, "!"},
                    TRow{"\"", K::Beep, "\""}, TRow{"*", K::Star, "*"}, TRow{"Z", K::Z, "Z"},
                    TRow{"MF", K::Mf, "MF"}, TRow{"MB", K::Mb, "MB"}, TRow{"", K::End, ""},
                    TRow{" \t\r\n\v\f", K::End, ""}, TRow{"  C", K::Pitch, "0"}));

TEST(MmlScanner, NumbersOfTheKindsAreFixed) {
  EXPECT_EQ(static_cast<int>(K::Number), 0);
  EXPECT_EQ(static_cast<int>(K::Comma), 16);
  EXPECT_EQ(static_cast<int>(K::AtW), 23);
  EXPECT_EQ(static_cast<int>(K::End), 31);
}

TEST(MmlScanner, RefusesLettersWithoutAMeaning) {
  for (const char* text : {"H", "I", "J", "N", "U", "W", "X"}) {
    TMmlScanner scanner(text);
    EXPECT_THROW(scanner.Token(), TMmlError) << text;
  }
}

TEST(MmlScanner, RefusesEveryOtherByte) {
  const std::string known = "<>+#-.,^{}@_!\"*0123456789 \t\n\v\f\rABCDEFGKLMOPQRSTVYZ";
  for (int c = 1; c < 256; ++c) {
    const std::string text(1, static_cast<char>(c));
    TMmlScanner scanner(text);
    if (known.find(text) == std::string::npos) {
      EXPECT_THROW(scanner.Token(), TMmlError) << c;
    } else {
      EXPECT_NO_THROW(scanner.Token()) << c;
    }
  }
}

TEST(MmlScanner, ASignBelongsToANoteOnlyWithoutASpace) {
  TMmlScanner scanner("C +");
  EXPECT_EQ(scanner.Token().text, "0");
  EXPECT_EQ(scanner.Token().kind, K::Plus);
}

TEST(MmlScanner, ALetterBehindMOrAtBelongsToItOnlyWithoutASpace) {
  TMmlScanner scanner("M B@ V");
  EXPECT_EQ(scanner.Token().kind, K::M);
  EXPECT_EQ(scanner.Token().kind, K::Pitch);
  EXPECT_EQ(scanner.Token().kind, K::At);
  EXPECT_EQ(scanner.Token().kind, K::V);
}

TEST(MmlScanner, AZeroByteEndsTheText) {
  TMmlScanner scanner(std::string_view("C\0X", 3));
  EXPECT_EQ(scanner.Token().kind, K::Pitch);
  EXPECT_EQ(scanner.Token().kind, K::End);
}

TEST(MmlToken, NumbersSaturate) {
  EXPECT_EQ((TMmlToken{K::Number, "2147483647"}.Number()), 2147483647);
  EXPECT_EQ((TMmlToken{K::Number, "2147483648"}.Number()), 2147483647);
  EXPECT_EQ((TMmlToken{K::Number, std::string(100, '9')}.Number()), 2147483647);
  EXPECT_EQ((TMmlToken{K::Number, std::string(100, '0') + "7"}.Number()), 7);
  EXPECT_EQ((TMmlToken{K::Pitch, "-1"}.Number()), -1);
  EXPECT_EQ((TMmlToken{K::M, "M"}.Number()), 0);
}

}  // namespace
