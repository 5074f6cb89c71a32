// Lists from bytes and from files: the choice of the encoding, reports and faults.
#include "editor/encoding.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "common/text/charset.h"
#include "tests/support/hex.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/temp_folder.h"

namespace zoka {
namespace {

TListText list_of(std::string bytes, int32_t encoding = ENCODING_AUTO, bool cv98 = true) {
  TListText list;
  EXPECT_EQ(list_from_bytes(std::move(bytes), encoding, cv98, &list), TListFault::None);
  return list;
}

TListText hex_list(std::string_view hex, int32_t encoding = ENCODING_AUTO, bool cv98 = true) {
  return list_of(from_hex(hex), encoding, cv98);
}

std::vector<std::string> keys_report(const TListText& list) {
  return list_report(list, TCatalogue(TLanguage::Keys));
}

TEST(List, PureAsciiIsTakenAsItIs) {
  const TListText list = list_of("10 PRINT\n20 END\n");
  EXPECT_EQ(list.text, "10 PRINT\n20 END\n");
  EXPECT_EQ(list.charset, CHARSET_UTF8);
  EXPECT_TRUE(keys_report(list).empty());
}

TEST(List, EmptyFile) {
  for (const int32_t encoding : {ENCODING_AUTO, ENCODING_UTF8, ENCODING_SJIS, ENCODING_JIS})
    EXPECT_EQ(list_of("", encoding).text, "");
}

TEST(List, ReturnsAndEndMarksVanish) {
  EXPECT_EQ(list_of("10 A\r\n20 B\r\n\x1A").text, "10 A\n20 B\n");
  EXPECT_EQ(list_of("10 A\x1A\n20 \rB").text, "10 A\n20 B");
  EXPECT_EQ(list_of("10 A\r20 B\r").text, "10 A20 B");  // a list of CR alone becomes one line
}

TEST(List, UnconvertedTextEndsAtNul) {
  EXPECT_EQ(list_of(std::string("10 A\n\0\n20 B", 11)).text, "10 A\n");
}

TEST(List, EncodingByIndex) {
  EXPECT_EQ(hex_list("82A0").text, "あ");
  EXPECT_EQ(hex_list("82A0").charset, CHARSET_SJIS);
  EXPECT_EQ(hex_list("E38182").charset, CHARSET_UTF8);
  EXPECT_EQ(hex_list("1B2442 2422 1B284A").text, "あ");
  EXPECT_EQ(hex_list("1B2442 2422 1B284A").charset, CHARSET_JIS);
  EXPECT_EQ(hex_list("C4B1").text, "\xC4\xB1");  // could be UTF-8, so it is
  EXPECT_EQ(hex_list("C4B1", ENCODING_SJIS).text, "ﾄｱ");
  EXPECT_EQ(hex_list("C4B1", ENCODING_JIS).text, "ﾄｱ");
  for (const int32_t encoding : {1, ENCODING_UTF8, 5, -1}) {
    EXPECT_EQ(hex_list("82A0", encoding).text, "\x82\xA0");
    EXPECT_EQ(hex_list("82A0", encoding).charset, CHARSET_UTF8);
  }
}

TEST(List, OneEscapeMakesItJis) {
  const TListText list = hex_list("1B4B 82A0 1B48 82A0");
  EXPECT_EQ(list.charset, CHARSET_JIS);
}

TEST(List, WhatCannotBeConvertedWholeIsShownRaw) {
  EXPECT_EQ(hex_list("41 82", ENCODING_SJIS).text, "A\x82");
  EXPECT_EQ(hex_list("41 82", ENCODING_SJIS).charset, CHARSET_SJIS);
  // The PC-98's characters have been replaced by then, and are reported.
  const TListText list = hex_list("80 1B2442 24", ENCODING_JIS);
  EXPECT_EQ(list.text, "_\x1B$B$");
  EXPECT_EQ(list.replacedCount, 1);
  EXPECT_EQ(list.blankedCount, 0);
}

TEST(List, Pc98Text) {
  EXPECT_EQ(hex_list("5C 1B4B2422 1B48 5C B1").text, "\\あ\\ｱ");
  EXPECT_EQ(hex_list("1B4B 2D21 1B48").text, "１");
  EXPECT_EQ(hex_list("1B4B 2D21 1B48", ENCODING_AUTO, false).text, "①");
  EXPECT_EQ(hex_list("B1 85 E5", ENCODING_JIS).text, "ｱ#\\");
  EXPECT_EQ(hex_list("B1 85 E5", ENCODING_JIS, false).text, "ｱ\x1A\x1A");
}

TEST(List, NulsBecomeBlanks) {
  const TListText off = hex_list("1B4B 0041 1B48", ENCODING_AUTO, false);
  EXPECT_EQ(off.text, " \x1A");
  EXPECT_EQ(off.blankedCount, 1);
  const TListText odd = hex_list("1B4B 24");
  EXPECT_EQ(odd.text, "\x1A ");
  EXPECT_EQ(odd.blankedCount, 1);
}

TEST(List, Report) {
  const TListText list = hex_list("80 81 1B4B 24");
  EXPECT_EQ(list.replacedCount, 2);
  EXPECT_EQ(keys_report(list),
            (std::vector<std::string>{"Converted PC-98 peculiar 2 characters to standbies.",
                                      "Converted invalid 1 characters to spaces."}));
  EXPECT_TRUE(keys_report(hex_list("80 81 1B4B 2422 1B48", ENCODING_AUTO, false)).empty());
}

TEST(List, TokenisedIsNeverUtf8) {
  const TListText ascii = hex_list("FE 0C00 0A00 01 C0 01 22 41 42 22 00 | 00");
  EXPECT_EQ(ascii.text, "10 PRINT \"AB\"\n");
  EXPECT_EQ(ascii.charset, CHARSET_JIS);
  const TListText kana = hex_list("FE 0800 0A00 22 B1 22 00 | 00");
  EXPECT_EQ(kana.text, "10\"ｱ\"\n");
  EXPECT_EQ(kana.charset, CHARSET_SJIS);
  const TListText kanji = hex_list("FE 0D00 0A00 22 1B4B 2422 1B48 22 00 | 00");
  EXPECT_EQ(kanji.text, "10\"あ\"\n");
  EXPECT_EQ(kanji.charset, CHARSET_JIS);
  EXPECT_EQ(hex_list("FE 00").charset, CHARSET_JIS);
}

TEST(List, TokenisedKeepsReturnsAndEndMarks) {
  EXPECT_EQ(hex_list("FE 0900 0A00 22 0D 1A 22 00 | 00").text, "10\"\r\x1A\"\n");
}

TEST(List, BadTokenisedFile) {
  TListText list;
  list.text = "old";
  EXPECT_EQ(list_from_bytes("\xFE", ENCODING_AUTO, true, &list), TListFault::BadBinSave);
  EXPECT_EQ(list.text, "old");
}

TEST(List, CapOnTheSize) {
  TListText list;
  list.text = "old";
  std::string bytes(MAX_LIST_BYTES, '\r');
  EXPECT_EQ(list_from_bytes(bytes + "A", ENCODING_AUTO, true, &list), TListFault::CannotLoad);
  EXPECT_EQ(list.text, "old");
  EXPECT_EQ(list_from_bytes(std::move(bytes), ENCODING_AUTO, true, &list), TListFault::None);
  EXPECT_EQ(list.text, "");
}

class ListFile : public testing::Test {
 protected:
  TListFault Load(std::string_view name) {
    return CreateListCtt(mTemp.Path(name), ENCODING_AUTO, true, &mList);
  }

  TTempFolder mTemp;
  TListText mList;
};

TEST_F(ListFile, IsRead) {
  mTemp.Write("A.BAS", "10 PRINT\r\n");
  EXPECT_EQ(Load("A.BAS"), TListFault::None);
  EXPECT_EQ(mList.text, "10 PRINT\n");
}

TEST_F(ListFile, OnlyRegularFiles) {
  mTemp.MakeFolder("FOLDER");
  ASSERT_EQ(mkfifo(mTemp.Path("PIPE").c_str(), 0600), 0);
  EXPECT_EQ(Load("NONE"), TListFault::CannotLoad);
  EXPECT_EQ(Load("FOLDER"), TListFault::CannotLoad);
  EXPECT_EQ(Load("PIPE"), TListFault::CannotLoad);
  EXPECT_EQ(Load(std::string(4096, 'N')), TListFault::CannotLoad);
  EXPECT_EQ(CreateListCtt("/dev/zero", ENCODING_AUTO, true, &mList), TListFault::CannotLoad);
}

TEST_F(ListFile, TooGreatAFile) {
  mTemp.Write("BIG", "");
  ASSERT_EQ(truncate(mTemp.Path("BIG").c_str(), MAX_LIST_BYTES + 1), 0);
  EXPECT_EQ(Load("BIG"), TListFault::CannotLoad);
}

TEST_F(ListFile, AFileThatMayNotBeReadCannotBeLoaded) {
  mTemp.Write("A.BAS", "10 PRINT\n");
  ASSERT_EQ(chmod(mTemp.Path("A.BAS").c_str(), 0), 0);
  ASSERT_EQ(chmod(mTemp.Path().c_str(), 0755), 0);
  EXPECT_TRUE(as_ordinary_user([&] { return Load("A.BAS") == TListFault::CannotLoad; }));
}

TEST_F(ListFile, ZerosAreAnEmptyList) {
  mTemp.Write("ZEROS", std::string(100000, '\0'));
  EXPECT_EQ(Load("ZEROS"), TListFault::None);
  EXPECT_EQ(mList.text, "");
}

TEST(ListFault, Texts) {
  const TCatalogue keys(TLanguage::Keys);
  EXPECT_EQ(list_fault_text(TListFault::CannotLoad, "/a/b", keys), "@Err_Cannot_Load_List /a/b@");
  EXPECT_EQ(list_fault_text(TListFault::BadBinSave, "/a/b", keys), "@Err_Bad_Bin_Save@");
}

}  // namespace
}  // namespace zoka
