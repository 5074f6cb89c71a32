// A writer of the old DISK-BASIC's tokenised form for tests, so that the decoder can be tried on
// any program. It writes what it is told and checks nothing.
#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>

namespace zoka {

/// A reserved word and its code; 0xFF00 is added to those behind the prefix.
struct TBinSaveWord {
  int32_t code;
  std::string_view word;
};

/// All of them, written down anew and not taken from the decoder.
inline constexpr TBinSaveWord BIN_SAVE_WORDS[] = {
    // clang-format off
    {0x80, "AUTO"}, {0x81, "BSAVE"}, {0x82, "BLOAD"}, {0x83, "BEEP"}, {0x84, "CONSOLE"},
    {0x85, "COPY"}, {0x86, "CLOSE"}, {0x87, "CONT"}, {0x88, "CLEAR"}, {0x89, "CALL"},
    {0x8A, "COMMON"}, {0x8B, "CHAIN"}, {0x8C, "COM"}, {0x8D, "CIRCLE"}, {0x8E, "COLOR"},
    {0x8F, "CLS"}, {0x90, "DELETE"}, {0x91, "DATA"}, {0x92, "DIM"}, {0x93, "DEFSTR"},
    {0x94, "DEFINT"}, {0x95, "DEFSNG"}, {0x96, "DEFDBL"}, {0x97, "DSKO$"}, {0x98, "DEF"},
    {0x99, "ELSE"}, {0x9A, "END"}, {0x9B, "ERASE"}, {0x9C, "EDIT"}, {0x9D, "ERROR"}, {0x9E, "FOR"},
    {0x9F, "FIELD"}, {0xA0, "FILES"}, {0xA1, "FN"}, {0xA2, "DRAW"}, {0xA3, "GOTO"}, {0xA4, "GOSUB"},
    {0xA5, "GET"}, {0xA6, "HELP"}, {0xA7, "INPUT"}, {0xA8, "IF"}, {0xA9, "KEY"}, {0xAA, "KILL"},
    {0xAB, "KANJI"}, {0xAC, "LOCATE"}, {0xAD, "LPRINT"}, {0xAE, "LLIST"}, {0xAF, "LET"},
    {0xB0, "LINE"}, {0xB1, "LOAD"}, {0xB2, "LSET"}, {0xB3, "LFILES"}, {0xB4, "MOTOR"},
    {0xB5, "MERGE"}, {0xB6, "MON"}, {0xB7, "NEXT"}, {0xB8, "NAME"}, {0xB9, "NEW"}, {0xBA, "NOT"},
    {0xBB, "OPEN"}, {0xBC, "OUT"}, {0xBD, "ON"}, {0xBE, "OPTION"}, {0xBF, "OFF"}, {0xC0, "PRINT"},
    {0xC1, "PUT"}, {0xC2, "POKE"}, {0xC3, "PSET"}, {0xC4, "PRESET"}, {0xC5, "PAINT"},
    {0xC6, "RETURN"}, {0xC7, "READ"}, {0xC8, "RUN"}, {0xC9, "RESTORE"}, {0xCB, "RESUME"},
    {0xCC, "RSET"}, {0xCD, "RENUM"}, {0xCE, "RANDOMIZE"}, {0xCF, "ROLL"}, {0xD0, "SCREEN"},
    {0xD1, "STOP"}, {0xD2, "SWAP"}, {0xD3, "SAVE"}, {0xD4, "SPC"}, {0xD5, "STEP"}, {0xD6, "THEN"},
    {0xD7, "TRON"}, {0xD8, "TROFF"}, {0xD9, "TAB"}, {0xDA, "TO"}, {0xDB, "TERM"}, {0xDC, "USING"},
    {0xDD, "USR"}, {0xDE, "WIDTH"}, {0xDF, "WAIT"}, {0xE0, "WHILE"}, {0xE1, "WEND"},
    {0xE2, "WRITE"}, {0xE3, "LIST"}, {0xE4, "SEG"}, {0xE5, "SET"}, {0xE6, "KINPUT"}, {0xE7, "SRQ"},
    {0xE8, "CMD"}, {0xE9, "IRESET"}, {0xEA, "ISET"}, {0xEB, "POLL"}, {0xEC, "RBYTE"},
    {0xED, "WBYTE"}, {0xEE, "KPLOAD"}, {0xF0, ">"}, {0xF1, "="}, {0xF2, "<"}, {0xF3, "+"},
    {0xF4, "-"}, {0xF5, "*"}, {0xF6, "/"}, {0xF7, "^"}, {0xF8, "AND"}, {0xF9, "OR"}, {0xFA, "XOR"},
    {0xFB, "EQV"}, {0xFC, "IMP"}, {0xFD, "MOD"}, {0xFE, "\\"}, {0xFF80, "DATE$"}, {0xFF81, "MID$"},
    {0xFF82, "POINT"}, {0xFF83, "PEN"}, {0xFF84, "TIME$"}, {0xFF85, "VIEW"}, {0xFF86, "WINDOW"},
    {0xFF90, "ABS"}, {0xFF91, "ATN"}, {0xFF92, "ASC"}, {0xFF93, "ATTR$"}, {0xFF94, "CSRLIN"},
    {0xFF95, "CINT"}, {0xFF96, "CSNG"}, {0xFF97, "CDBL"}, {0xFF98, "CVI"}, {0xFF99, "CVS"},
    {0xFF9A, "CVD"}, {0xFF9B, "COS"}, {0xFF9C, "CHR$"}, {0xFF9D, "DSKF"}, {0xFF9E, "ERL"},
    {0xFF9F, "ERR"}, {0xFFA0, "EXP"}, {0xFFA1, "EOF"}, {0xFFA2, "FIX"}, {0xFFA3, "FPOS"},
    {0xFFA4, "HEX$"}, {0xFFA5, "INSTR"}, {0xFFA6, "INT"}, {0xFFA7, "INP"}, {0xFFA8, "INKEY$"},
    {0xFFA9, "LPOS"}, {0xFFAA, "LOG"}, {0xFFAB, "LOC"}, {0xFFAC, "LEN"}, {0xFFAD, "LEFT$"},
    {0xFFAE, "LOF"}, {0xFFAF, "MKI$"}, {0xFFB0, "MKS$"}, {0xFFB1, "MKD$"}, {0xFFB2, "MAP"},
    {0xFFB3, "OCT$"}, {0xFFB4, "POS"}, {0xFFB5, "PEEK"}, {0xFFB6, "RIGHT$"}, {0xFFB7, "RND"},
    {0xFFB8, "SEARCH"}, {0xFFB9, "SGN"}, {0xFFBA, "SQR"}, {0xFFBB, "SIN"}, {0xFFBC, "STR$"},
    {0xFFBD, "STRING$"}, {0xFFBE, "SPACE$"}, {0xFFBF, "TAN"}, {0xFFC0, "VAL"}, {0xFFC1, "DSKI$"},
    {0xFFC2, "FRE"}, {0xFFC3, "VARPTR"}, {0xFFC4, "INPUT$"}, {0xFFC5, "JIS$"}, {0xFFC6, "KNJ$"},
    {0xFFC7, "KTYPE"}, {0xFFC8, "KLEN"}, {0xFFC9, "KMID$"}, {0xFFCA, "KEXT$"}, {0xFFCB, "KINSTR"},
    {0xFFCC, "AKCNV$"}, {0xFFCD, "KACNV$"}, {0xFFCE, "IEEE"}, {0xFFCF, "STATUS"},
    // clang-format on
};

/// Builds a file item by item. Texts are the old machine's bytes.
class TBinSaveWriter {
 public:
  void BeginLine(uint16_t number) {
    mLine = number;
    mBody.clear();
  }

  /// 1 to 9 blanks.
  void Blanks(int count) { Put(static_cast<unsigned>(count)); }

  void Word(const TBinSaveWord& word) {
    if (word.code > 0xFF) Put(0xFF);
    Put(static_cast<unsigned>(word.code) & 0xFF);
  }

  /// A variable or label: a capital letter and up to 255 more bytes.
  void Name(std::string_view name) {
    Raw(name.substr(0, 1));
    Put(static_cast<unsigned>(name.size() - 1));
    Raw(name.substr(1));
  }

  /// A whole number of 0 to 32767 in its shortest form.
  void Integer(unsigned value) {
    if (value <= 9) {
      Put(0x10 + value);
    } else if (value <= 255) {
      Put(0x0F);
      Put(value);
    } else {
      Put(0x1C);
      Put16(&mBody, value);
    }
  }

  void LineNumber(uint16_t value) {
    Put(0x0E);
    Put16(&mBody, value);
  }

  void Hex(uint16_t value) {
    Put(0x0C);
    Put16(&mBody, value);
  }

  /// A positive number in Microsoft's binary format.
  void Single(float value) {
    const uint32_t bits = std::bit_cast<uint32_t>(value);
    Put(0x1D);
    Put16(&mBody, bits & 0xFFFF);
    Put(bits >> 16 & 0x7F);
    Put((bits >> 23) + 2);
  }

  void Double(double value) {
    const uint64_t bits = std::bit_cast<uint64_t>(value);
    const uint64_t mantissa = (bits & 0xFFFFFFFFFFFFFu) << 3;
    Put(0x1F);
    for (int shift = 0; shift < 56; shift += 8) Put(static_cast<unsigned>(mantissa >> shift));
    Put(static_cast<unsigned>(bits >> 52) - 894);
  }

  /// Bytes that stand for themselves: digits, punctuation, quoted text, the text behind DATA.
  void Raw(std::string_view bytes) { mBody += bytes; }

  /// The rest of the line as it is.
  void Remark(std::string_view text) {
    Put(0);
    Raw(text);
  }

  /// With the colon that is stored before it.
  void Else() {
    Put(':');
    Put(0x99);
  }

  void EndLine() {
    Put16(&mFile, static_cast<unsigned>(mBody.size() + 5));
    Put16(&mFile, mLine);
    mFile += mBody;
    mFile.push_back('\0');
  }

  /// The file, its last byte included.
  std::string Finish() const { return mFile + '\0'; }

 private:
  void Put(unsigned byte) { mBody.push_back(static_cast<char>(byte)); }

  static void Put16(std::string* target, unsigned value) {
    target->push_back(static_cast<char>(value));
    target->push_back(static_cast<char>(value >> 8));
  }

  std::string mFile = "\xFE";
  std::string mBody;
  uint16_t mLine = 0;
};

}  // namespace zoka
