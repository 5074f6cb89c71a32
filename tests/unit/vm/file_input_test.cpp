// Items and characters from files.
#include "vm/file_input.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include "app/settings/compat_mode.h"
#include "tests/support/temp_folder.h"
#include "tests/unit/vm/machine_rig.h"

namespace zoka {
namespace {

using TItems = std::vector<std::string>;

class FileInput : public ::testing::Test {
 protected:
  /// A file with these bytes, open at its start.
  TBasicFile& Open(std::string_view bytes) {
    file.Unset();
    std::string path = folder.Path("T");
    EXPECT_EQ(file.SetTo(path, O_RDWR | O_CREAT | O_TRUNC), 0);
    EXPECT_TRUE(file.Write(bytes));
    file.Seek(0);
    return file;
  }
  TItems Items(std::string_view bytes, int32_t count, bool asLine = false) {
    std::list<std::string> items;
    InputFromFile(Open(bytes), count, &items, asLine);
    return {items.begin(), items.end()};
  }
  TItems Lines(std::string_view bytes, int32_t count) { return Items(bytes, count, true); }
  /// The text of INPUT$, or "!" at the end of the file.
  std::string Characters(std::string_view bytes, int32_t count, int32_t mode) {
    std::string text;
    return InputDlFromFile(Open(bytes), count, mode, &text) ? text : "!";
  }

  TTempFolder folder;
  TBasicFile file;
};

TEST_F(FileInput, EachDelimiterClosesAnItem) {
  EXPECT_EQ(Items("a b;c,d\re\nf\r\ng", 9), (TItems{"a", "b", "c", "d", "e", "f", "g"}));
}

TEST_F(FileInput, DelimitersInARowGiveEmptyItems) {
  EXPECT_EQ(Items("a,,b", 3), (TItems{"a", "", "b"}));
  EXPECT_EQ(Items(" 5 \r\n 6 \r\n", 2), (TItems{"5", ""}));
  EXPECT_EQ(Items("\r\n\n\r", 9), (TItems{"", "", ""}));
}

TEST_F(FileInput, LeadingBlanksGo) {
  EXPECT_EQ(Items("   a,   b", 2), (TItems{"a", "b"}));
  EXPECT_EQ(Items("   ", 1), TItems{});
  EXPECT_EQ(Items("\ta", 1), (TItems{"\ta"}));
}

TEST_F(FileInput, QuotesHoldDelimiters) {
  EXPECT_EQ(Items("\"a,b;c d\r\n\",e", 2), (TItems{"a,b;c d\r\n", "e"}));
  EXPECT_EQ(Items("  \"a\"b,c", 2), (TItems{"ab", "c"}));
  EXPECT_EQ(Items("a\"b,c", 2), (TItems{"a\"b", "c"}));
  EXPECT_EQ(Items("\"\",x", 2), (TItems{"", "x"}));
  EXPECT_EQ(Items("\"open,x", 2), (TItems{"open,x"}));
  EXPECT_EQ(Items("\"", 1), (TItems{""}));
}

TEST_F(FileInput, TheEndClosesAnOpenItemOnly) {
  EXPECT_EQ(Items("a", 2), TItems{"a"});
  EXPECT_EQ(Items("a,", 2), TItems{"a"});
  EXPECT_EQ(Items("", 1), TItems{});
  EXPECT_EQ(Items("a,b", 0), TItems{});
  EXPECT_EQ(Items("a,b", -1), TItems{});
}

TEST_F(FileInput, ReadsNoFurtherThanItMust) {
  std::list<std::string> items;
  TBasicFile& open = Open("a\rb\r\nc\n\rd");
  InputFromFile(open, 1, &items, false);
  EXPECT_EQ(open.Position(), 2);
  InputFromFile(open, 1, &items, false);
  EXPECT_EQ(open.Position(), 5);
  InputFromFile(open, 1, &items, false);
  EXPECT_EQ(open.Position(), 7);
  EXPECT_EQ(items, std::list<std::string>{"c"});
}

TEST_F(FileInput, LinesEndAtLineEndsOnly) {
  EXPECT_EQ(Lines("a, b; c\r\nd\re\n\nf", 9), (TItems{"a, b; c", "d", "e", "", "f"}));
  // Blanks and quotes in front go all the same.
  EXPECT_EQ(Lines("  \"A\",B\r\n", 1), TItems{"A,B"});
  EXPECT_EQ(Lines("  \r\nx", 1), TItems{""});
}

TEST_F(FileInput, AnyBytesAreKept) {
  std::string bytes;
  for (int value = 0; value < 256; ++value) {
    if (std::string_view(" ;,\r\n\"").find(static_cast<char>(value)) == std::string_view::npos) {
      bytes += static_cast<char>(value);
    }
  }
  EXPECT_EQ(Items(bytes, 1), TItems{bytes});
}

TEST_F(FileInput, CharactersByPositions) {
  constexpr int32_t DOS = COMPAT_DOS;
  EXPECT_EQ(Characters("A\r\nB", 4, DOS), "A\r\nB");
  EXPECT_EQ(Characters("ｱｲ", 2, DOS), "ｱｲ");
  EXPECT_EQ(Characters("｡ﾟA", 2, DOS), "｡ﾟ");  // the first and the last kana
  EXPECT_EQ(Characters("あい", 2, DOS), "あ");
  EXPECT_EQ(Characters("あい", 3, DOS), "あい");
  EXPECT_EQ(Characters("あい", 5, DOS), "!");
  EXPECT_EQ(Characters("", 1, DOS), "!");
  EXPECT_EQ(Characters("A", 0, DOS), "");
  EXPECT_EQ(Characters("A", -5, DOS), "");
}

TEST_F(FileInput, CharactersWithShiftsUnderDisk) {
  constexpr int32_t DISK = COMPAT_DISK;
  EXPECT_EQ(Characters("あい", 6, DISK), "あ");
  EXPECT_EQ(Characters("あい", 7, DISK), "あい");
  EXPECT_EQ(Characters("あい", 8, DISK), "あい");
  EXPECT_EQ(Characters("あい", 9, DISK), "!");
  EXPECT_EQ(Characters("Aあ", 7, DISK), "Aあ");
}

TEST_F(FileInput, HalfACharacterAtTheEnd) {
  EXPECT_EQ(Characters("A\xE3\x81", 2, COMPAT_DOS), "A\xE3\x81");
  EXPECT_EQ(Characters("\xFF", 1, COMPAT_DOS), "\xFF");
  // No character has more than four bytes.
  EXPECT_EQ(Characters("\xFFxyz12", 2, COMPAT_DOS), "\xFFxyz");
}

TEST_F(FileInput, ItemsMayHaveTheBytesThatMemoryAllows) {
  const auto itemsWithin = [this](std::string_view bytes, int32_t count, int64_t room) {
    std::list<std::string> items;
    InputFromFile(Open(bytes), count, &items, false, {room});
    return TItems(items.begin(), items.end());
  };
  EXPECT_EQ(itemsWithin("abc,d", 1, 3), TItems{"abc"});
  EXPECT_EQ(itemsWithin("  \"abc\",d", 1, 3), TItems{"abc"});  // blanks and quotes are not kept
  EXPECT_EQ(itemsWithin("ab,c", 2, 3), (TItems{"ab", "c"}));
  EXPECT_THROW(itemsWithin("abcd", 1, 3), std::bad_alloc);
  EXPECT_THROW(itemsWithin("\"abcd\"", 1, 3), std::bad_alloc);
  EXPECT_THROW(itemsWithin("ab,cd", 2, 3), std::bad_alloc);
  std::string text;
  EXPECT_TRUE(InputDlFromFile(Open("abcd"), 3, COMPAT_DISK, &text, {3}));
  EXPECT_THROW(InputDlFromFile(Open("abcd"), 4, COMPAT_DISK, &text, {3}), std::bad_alloc);
  EXPECT_TRUE(InputDlFromFile(Open("abcd"), 4, COMPAT_DISK, &text));
}

TEST_F(FileInput, ReadingEndsSoonAfterAStop) {
  TMachineRig rig;
  rig.Machine().Terminate();
  const TFileInputBounds bounds{INT64_MAX, &rig.Machine()};
  constexpr size_t LONG = 1 << 20;
  for (const char byte : {' ', 'x'}) {
    std::list<std::string> items;
    InputFromFile(Open(std::string(LONG, byte)), 9, &items, true, bounds);
    EXPECT_LE(file.Position(), 1 << 16) << byte;
    // Once it has ended nothing more is read.
    EXPECT_EQ(items.size(), byte == 'x' ? 1u : 0u);
  }
  std::string text;
  TBasicFile& bytes = Open(std::string(LONG, 'x'));
  EXPECT_FALSE(InputDlFromFile(bytes, LONG, COMPAT_DISK, &text, bounds));
  EXPECT_LE(file.Position(), 1 << 16);
}

TEST_F(FileInput, ALineMayTakeHalfOfWhatIsLeftOfTheRunsMemory) {
  constexpr int64_t LIMIT = 1'000'000;
  struct TCase {
    int64_t used;
    size_t bytes;
    std::string fault;
  };
  const TCase cases[] = {
      {0, 450'000, ""},
      {0, 550'000, "@Runtime_Err_Ill_Func_Call@"},
      {600'000, 150'000, ""},
      {600'000, 250'000, "@Runtime_Err_Ill_Func_Call@"},
  };
  for (const TCase& c : cases) {
    TMachineRig rig;
    rig.memoryLimit = LIMIT;
    // NULs end a text, but have to be read first.
    folder.Write("X", std::string(c.bytes, '\0'));
    rig.rsrc.DrvFolderRefs().SetFolder(0, folder.Path());
    rig.rsrc.Files().Open(rig.rsrc.DrvFolderRefs(), "X", 1, OPEN_INPUT);
    rig.Line(10).Int(1).Ref("A$").OpLong(TVMCodeCmd::LineInputSh, 1);
    rig.Machine().mBudget.used += c.used;
    EXPECT_EQ(rig.Run(), c.fault.empty() ? 0 : 1);
    EXPECT_EQ(rig.FaultKey(), c.fault) << c.used << " " << c.bytes;
  }
}

}  // namespace
}  // namespace zoka
