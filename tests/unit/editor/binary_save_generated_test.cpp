// The decoder on thousands of generated lists, and on damaged ones.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "editor/binary_save.h"
#include "editor/encoding.h"
#include "tests/support/bin_save_writer.h"

namespace zoka {
namespace {

constexpr int LISTS = 5000;

/// Writes a random list twice: as text and as a tokenised file.
class TGenerator {
 public:
  explicit TGenerator(unsigned seed) : mRandom(seed) {}

  void Generate() {
    const int lines = Number(0, 12);
    int line = 0;
    for (int i = 0; i < lines; ++i) {
      line = std::min(65535, line + Number(1, 6000));
      mWriter.BeginLine(static_cast<uint16_t>(line));
      mText += std::to_string(line);
      const int items = Number(0, 14);
      for (int k = 0; k < items; ++k) Item();
      if (Number(0, 3) == 0) Tail();
      mWriter.EndLine();
      mText += '\n';
    }
  }

  const std::string& Text() const { return mText; }
  std::string File() const { return mWriter.Finish(); }

 private:
  int Number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(mRandom); }

  void Item() {
    switch (Number(0, 9)) {
      case 0:
        return Blanks();
      case 1:
        return Name();
      case 2:
        return Quoted();
      case 3:
        return Integer();
      case 4:
        return Hex();
      case 5:
        return Single();
      case 6:
        return Double();
      case 7:
        return LineNumber();
      case 8:
        return Else();
      default:
        return Word();
    }
  }

  void Blanks() {
    const int count = Number(1, 9);
    mWriter.Blanks(count);
    mText.append(static_cast<size_t>(count), ' ');
  }

  void Word() {
    const auto& word = BIN_SAVE_WORDS[static_cast<size_t>(
        Number(0, static_cast<int>(std::size(BIN_SAVE_WORDS)) - 1))];
    if (word.word == "DATA" || word.word == "ELSE") return;
    mWriter.Word(word);
    mText += word.word;
  }

  void Name() {
    std::string name(1, static_cast<char>(Number('A', 'Z')));
    const int more = Number(0, 40);
    for (int i = 0; i < more; ++i) name.push_back("ABC019.$%!#_"[Number(0, 11)]);
    mWriter.Name(name);
    mText += name;
  }

  void Quoted() {
    static constexpr std::string_view PIECES[] = {
        "A", ":", "\x1BK$\"%:\x1BH", "\xB1\xDF", ",", "\xFF", "C0", "\x01",
    };
    std::string text = "\"";
    for (int i = Number(0, 6); i > 0; --i) text += PIECES[Number(0, 7)];
    Same(text + "\"");
  }

  void Integer() {
    const int value = Number(0, 1) == 0 ? Number(0, 300) : Number(0, 32767);
    mWriter.Integer(static_cast<unsigned>(value));
    mText += std::to_string(value);
  }

  void LineNumber() {
    const int value = Number(0, 65535);
    mWriter.LineNumber(static_cast<uint16_t>(value));
    mText += std::to_string(value < 32768 ? value : value - 65536);
  }

  void Hex() {
    const int value = Number(0, 65535);
    mWriter.Hex(static_cast<uint16_t>(value));
    std::string digits;
    for (int shift = 12; shift >= 0; shift -= 4) {
      const int digit = value >> shift & 15;
      if (digit != 0 || !digits.empty() || shift == 0) digits += "0123456789ABCDEF"[digit];
    }
    mText += "&H" + digits;
  }

  /// Sixteenths have four decimals at most and are exact in both formats.
  void Single() {
    const int sixteenths = Number(1, 900000);
    mWriter.Single(static_cast<float>(sixteenths) / 16);
    const bool isShort = sixteenths % 16 == 0 && sixteenths / 16 <= 32767;
    mText += Sixteenths(sixteenths) + (isShort ? "!" : "");
  }

  void Double() {
    const int sixteenths = Number(1, 2000000000);
    mWriter.Double(sixteenths / 16.0);
    mText += Sixteenths(sixteenths) + "#";
  }

  static std::string Sixteenths(int value) {
    std::string text = value >= 16 ? std::to_string(value / 16) : "";
    int rest = value % 16;
    if (rest > 0) text += ".";
    for (; rest > 0; rest = rest * 10 % 16) text += static_cast<char>('0' + rest * 10 / 16);
    return text;
  }

  void Else() {
    mWriter.Else();
    mText += "ELSE";
  }

  /// What may stand last in a line: DATA, a remark, or both.
  void Tail() {
    if (Number(0, 1) == 0) {
      mWriter.Word({0x91, "DATA"});
      mText += "DATA";
      Same(" 1,\"a:b\",\x1BK$:$\"\x1BH,x");
    }
    if (Number(0, 1) == 0) {
      mWriter.Remark("'\xC0\x91 \"remark: \x0B");
      mText += "'\xC0\x91 \"remark: \x0B";
    }
  }

  void Same(std::string_view bytes) {
    mWriter.Raw(bytes);
    mText += bytes;
  }

  std::mt19937 mRandom;
  TBinSaveWriter mWriter;
  std::string mText;
};

TEST(BinSaveGenerated, RoundTrips) {
  for (unsigned seed = 0; seed < LISTS; ++seed) {
    TGenerator generator(seed);
    generator.Generate();
    std::string buf = generator.File();
    ASSERT_EQ(BinSaveToAsciiSave(&buf), 0) << seed;
    ASSERT_EQ(buf, generator.Text()) << seed;
  }
}

TEST(BinSaveGenerated, EveryTruncationIsRefused) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    TGenerator generator(seed);
    generator.Generate();
    const std::string file = generator.File();
    int good = 0;
    for (size_t length = 0; length < file.size(); ++length) {
      std::string buf = file.substr(0, length);
      buf.shrink_to_fit();
      if (BinSaveToAsciiSave(&buf) != 0) continue;
      ++good;
      // Only a cut one byte behind a record leaves a file of its own, with the first lines.
      ASSERT_TRUE(generator.Text().starts_with(buf)) << seed << ' ' << length;
    }
    const auto lines = std::count(generator.Text().begin(), generator.Text().end(), '\n');
    ASSERT_EQ(good, lines) << seed;
  }
}

TEST(BinSaveGenerated, DamagedFilesDoNoHarm) {
  std::mt19937 random(1);
  int good = 0;
  for (unsigned seed = 0; seed < LISTS; ++seed) {
    TGenerator generator(seed);
    generator.Generate();
    std::string file = generator.File();
    for (int i = 0; i < 3; ++i) {
      const size_t at = std::uniform_int_distribution<size_t>(1, file.size() - 1)(random);
      file[at] = static_cast<char>(random());
    }
    TListText list;
    const TListFault fault = list_from_bytes(file, ENCODING_AUTO, true, &list);
    if (fault == TListFault::None) ++good;
    ASSERT_NE(fault, TListFault::CannotLoad);
  }
  EXPECT_GT(good, LISTS / 100);  // both ways have been walked
  EXPECT_LT(good, LISTS);
}

TEST(ListGenerated, AnyBytesDoNoHarm) {
  // What the state machines look for: escape sequences, halves of pairs, ends.
  constexpr std::string_view MARKS("\x1B\x1B\x1BKH$B@(JI\n\0\x20\x21\x7E\x82\xA0\xB1\xFC\x2D\x2A",
                                   22);
  std::mt19937 random(2);
  for (int round = 0; round < 20000; ++round) {
    std::string bytes(random() % 200, '\0');
    const bool isMarks = round % 3 == 0;
    for (char& byte : bytes)
      byte = isMarks ? MARKS[random() % MARKS.size()] : static_cast<char>(random());
    if (!bytes.empty() && round % 3 == 1) bytes[0] = BIN_SAVE_MAGIC;
    for (const int32_t encoding : {ENCODING_AUTO, ENCODING_UTF8, ENCODING_SJIS, ENCODING_JIS}) {
      TListText list;
      ASSERT_NE(list_from_bytes(bytes, encoding, true, &list), TListFault::CannotLoad);
    }
  }
}

}  // namespace
}  // namespace zoka
