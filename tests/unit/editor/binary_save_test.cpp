// Tokenised lists, item by item and file by file.
#include "editor/binary_save.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/support/bin_save_writer.h"
#include "tests/support/hex.h"

namespace zoka {
namespace {

constexpr char BAD[] = "(bad)";

/// The text of a file, or BAD, in which case the buffer must be as it was.
std::string decoded_file(const std::string& file) {
  std::string buf = file;
  if (BinSaveToAsciiSave(&buf) == 0) return buf;
  EXPECT_TRUE(buf == file);
  return BAD;
}

std::string decoded(std::string_view hex) {
  return decoded_file(from_hex(hex));
}

/// The text of the items of line 1, or BAD.
std::string items(std::string_view hex) {
  TBinSaveWriter writer;
  writer.BeginLine(1);
  writer.Raw(from_hex(hex));
  writer.EndLine();
  const std::string text = decoded_file(writer.Finish());
  return text == BAD ? text : text.substr(1, text.size() - 2);
}

TEST(BinSaveFile, WholeFiles) {
  EXPECT_EQ(decoded("FE 0C00 0A00 01 C0 01 22 41 42 22 00 | 00"), "10 PRINT \"AB\"\n");
  EXPECT_EQ(decoded("FE 1400 0A00 01 A8 01 41 00 F1 11 01 D6 01 11 3A 99 01 12 00 | 00"),
            "10 IF A=1 THEN 1ELSE 2\n");
  EXPECT_EQ(decoded("FE 0E00 0A00 01 41 02 42 24 F1 22 58 22 00 | 00"), "10 AB$=\"X\"\n");
  EXPECT_EQ(decoded("FE 0B00 409C 01 A3 01 0E 409C 00 | 00"), "40000 GOTO -25536\n");
  EXPECT_EQ(decoded("FE 1800 0A00 01 91 20 22 61 3A 62 22 2C 1B4B 3A 22 1B48 2C 63 3A C0 00 | 00"),
            "10 DATA \"a:b\",\x1BK:\"\x1BH,c:PRINT\n");
  EXPECT_EQ(decoded("FE 0E00 0A00 01 91 20 31 2C 32 00 27 78 00 | 00"), "10 DATA 1,2'x\n");
  EXPECT_EQ(decoded("FE 0600 0A00 C0 00 | 1A"), "10PRINT\n");
  EXPECT_EQ(decoded("FE 0500 0700 00 | 00"), "7\n");
  EXPECT_EQ(decoded("FE 0500 0700 FF 0500 FFFF 01 | 00"), "7\n65535\n");
}

TEST(BinSaveFile, NoRecordAtAll) {
  EXPECT_EQ(decoded("FE 00"), "");
  EXPECT_EQ(decoded("FE FF"), "");
}

TEST(BinSaveFile, ElseTakesTheByteBeforeIt) {
  EXPECT_EQ(decoded("FE 0700 0C00 99 11 00 | 00"), "1ELSE1\n");
}

TEST(BinSaveFile, TheEndMustBeExact) {
  EXPECT_EQ(decoded("FE"), BAD);
  EXPECT_EQ(decoded("FE 0600 0A00 C0 00"), BAD);
  EXPECT_EQ(decoded("FE 0600 0A00 C0 00 | 00 00"), BAD);
  EXPECT_EQ(decoded("FE 0600 0A00 C0 00 | 00 00 00"), BAD);
}

TEST(BinSaveFile, BadLinks) {
  EXPECT_EQ(decoded("FE 0000 0A00 C0 00 | 00"), BAD);
  EXPECT_EQ(decoded("FE 0400 0A00 C0 00 | 00"), BAD);
  EXPECT_EQ(decoded("FE 0500 0A00 C0 00 | 00"), BAD);
  EXPECT_EQ(decoded("FE 0700 0A00 C0 00 | 00"), BAD);
  EXPECT_EQ(decoded("FE FFFF 0A00 C0 00 | 00"), BAD);
}

TEST(BinSaveFile, TextIsNoTokenisedFile) {
  EXPECT_FALSE(is_bin_save(""));
  EXPECT_FALSE(is_bin_save("10 A"));
  EXPECT_TRUE(is_bin_save("\xFE"));
  EXPECT_EQ(decoded("31 30"), BAD);
  EXPECT_EQ(decoded(""), BAD);
}

TEST(BinSaveItem, BytesWithoutMeaning) {
  for (unsigned byte = 0; byte <= 0xFF; ++byte) {
    const bool isBad = byte == 0x0A || byte == 0x0B || (byte >= 0x5B && byte <= 0x7F) ||
                       byte == 0xCA || byte == 0xEF || byte == 0xFF;
    // Enough behind it for any form; 0x41 to 0x5A take the next byte as a length of 3.
    const std::string item = std::string(1, static_cast<char>(byte)) + "\x03" + "1234567";
    TBinSaveWriter writer;
    writer.BeginLine(1);
    writer.Raw(item);
    writer.EndLine();
    EXPECT_EQ(decoded_file(writer.Finish()) == BAD, isBad) << byte;
  }
}

TEST(BinSaveItem, Words) {
  std::set<int32_t> known;
  for (const TBinSaveWord& word : BIN_SAVE_WORDS) {
    known.insert(word.code);
    if (word.code == 0x91 || word.code == 0x99) continue;  // DATA and ELSE do more
    TBinSaveWriter writer;
    writer.BeginLine(1);
    writer.Word(word);
    writer.EndLine();
    EXPECT_EQ(decoded_file(writer.Finish()), "1" + std::string(word.word) + "\n");
  }
  EXPECT_EQ(known.size(), 125u + 71u);
  for (int32_t code = 0xFF00; code <= 0xFFFF; ++code) {
    TBinSaveWriter writer;
    writer.BeginLine(1);
    writer.Word({code, ""});
    writer.EndLine();
    EXPECT_EQ(decoded_file(writer.Finish()) == BAD, known.count(code) == 0) << code;
  }
}

TEST(BinSaveItem, BlanksAndCharacters) {
  EXPECT_EQ(items("01 02 09"), std::string(12, ' '));
  EXPECT_EQ(items("20 21 23 3A 40"), " !#:@");
  EXPECT_EQ(items("41 00 5A 03 41 42 24"), "AZAB$");
}

TEST(BinSaveItem, WholeNumbers) {
  EXPECT_EQ(items("0C FF FF"), "&HFFFF");
  EXPECT_EQ(items("0C 1F 00"), "&H1F");
  EXPECT_EQ(items("0C 00 00"), "&H0");
  EXPECT_EQ(items("0E 64 00"), "100");
  EXPECT_EQ(items("0E 40 9C"), "-25536");
  EXPECT_EQ(items("0F FF"), "255");
  EXPECT_EQ(items("0F 00"), "0");
  EXPECT_EQ(items("10"), "0");
  EXPECT_EQ(items("19"), "9");
  EXPECT_EQ(items("1C FF FF"), "-1");
  EXPECT_EQ(items("1C FF 7F"), "32767");
  EXPECT_EQ(items("0D 1A 1B 1E"), "");
}

TEST(BinSaveItem, Singles) {
  EXPECT_EQ(items("1D 00 00 00 81"), "1!");
  EXPECT_EQ(items("1D 00 00 20 83"), "5!");
  EXPECT_EQ(items("1D 00 00 00 80"), ".5");
  EXPECT_EQ(items("1D CD CC 4C 7D"), ".1");
  EXPECT_EQ(items("1D D0 0F 49 82"), "3.14159");
  EXPECT_EQ(items("1D 00 50 1A 8B"), "1234.5");
  EXPECT_EQ(items("1D 00 FE 7F 8F"), "32767!");
  EXPECT_EQ(items("1D 00 00 00 90"), "32768");
  EXPECT_EQ(items("1D 00 50 43 91"), "100000");
  EXPECT_EQ(items("1D 80 02 00 91"), "65541");
  EXPECT_EQ(items("1D F9 02 15 A2"), "10000000000");
  EXPECT_EQ(items("1D BD 37 06 6D"), ".000001");
  EXPECT_EQ(items("1D 95 BF 56 69"), "0");
}

TEST(BinSaveItem, OddSingles) {
  EXPECT_EQ(items("1D 00 00 80 82"), "4!");  // a sign bit becomes part of the exponent
  EXPECT_EQ(items("1D 00 00 A0 83"), "5!");
  EXPECT_EQ(items("1D 00 00 00 02"), "!");
  EXPECT_EQ(items("1D 00 00 00 01"), "-inf");
  EXPECT_EQ(items("1D 00 00 00 00"), "0");
  EXPECT_EQ(items("1D 12 34 D6 00"), "0");
}

TEST(BinSaveItem, Doubles) {
  EXPECT_EQ(items("1F 000000000000 00 81"), "1#");
  EXPECT_EQ(items("1F 000000000000 40 81"), "1.5#");
  EXPECT_EQ(items("1F 000000000000 00 80"), ".5#");
  EXPECT_EQ(items("1F 000000000000 48 87"), "100#");
  EXPECT_EQ(items("1F 000000000000 24 84"), "10.25#");
  EXPECT_EQ(items("1F 00 00 00 A4 A2 79 6B 9B"), "123456789.125#");
  EXPECT_EQ(items("1F C0 68 21 A2 DA 0F 49 82"), "3.141593#");
  EXPECT_EQ(items("1F D0 CC CC CC CC CC 4C 7D"), ".1#");
  EXPECT_EQ(items("1F 00 00 04 BF C9 1B 0E B6"), "10000000000000000#");
  EXPECT_EQ(items("1F 40 7A E5 D5 94 BF 56 69"), "#");
  EXPECT_EQ(items("1F 000000000000 00 00"), "0");
  EXPECT_EQ(items("1F 112233445566 77 00"), "0");
  EXPECT_EQ(items("1F 000000000000 80 82"), "4#");
}

TEST(BinSaveItem, OperandsMustLieWithinTheRecord) {
  EXPECT_EQ(items("0C FF"), BAD);
  EXPECT_EQ(items("0F"), BAD);
  EXPECT_EQ(items("1C 01"), BAD);
  EXPECT_EQ(items("1D 00 00 00"), BAD);
  EXPECT_EQ(items("1F 00 00 00 00 00 00 00"), BAD);
  EXPECT_EQ(items("41"), BAD);
  EXPECT_EQ(items("41 02 42"), BAD);
  EXPECT_EQ(items("FF"), BAD);
}

TEST(BinSaveItem, QuotedText) {
  EXPECT_EQ(items("22 22 C0"), "\"\"PRINT");
  EXPECT_EQ(items("22 0B 7F FF 22"), "\"\x0B\x7F\xFF\"");
  EXPECT_EQ(items("22 41 42"), "\"AB");  // to the record's end
  EXPECT_EQ(items("22 1B4B 22 41 1B48 22 C0"), "\"\x1BK\"A\x1BH\"PRINT");
  EXPECT_EQ(items("22 1B4B 22 41"), "\"\x1BK\"A");
}

TEST(BinSaveItem, DataText) {
  EXPECT_EQ(items("91 20 41 3A C0"), "DATA A:PRINT");
  EXPECT_EQ(items("91 22 3A 22 3A C0"), "DATA\":\":PRINT");
  EXPECT_EQ(items("91 22 41"), "DATA\"A");
  EXPECT_EQ(items("91 22 00 22 00 C0"), std::string("DATA\"\0\"\xC0", 8));
  EXPECT_EQ(items("91 1B4B 3A 00 1B48 3A C0"), std::string("DATA\x1BK:\0\x1BH:PRINT", 16));
  EXPECT_EQ(items("91"), "DATA");
}

TEST(BinSaveItem, RemarkIsRaw) {
  EXPECT_EQ(items("C0 00 27 C0 0B 00 22"), std::string("PRINT'\xC0\x0B\0\"", 10));
  EXPECT_EQ(items("00"), "");
}

}  // namespace
}  // namespace zoka
