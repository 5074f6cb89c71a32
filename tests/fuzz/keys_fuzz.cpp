// Fuzz target: key sequences into the line editor and the other ways of taking keys, on screens of
// both widths, inside and outside a console area. What is left on the text screen must be
// characters or marks.
#include <algorithm>
#include <string>

#include "tests/fuzz/fuzz_engine.h"

namespace {

using namespace zoka;

constexpr const char* SCREENS[] = {
    "WIDTH 80,25",
    "WIDTH 40,25",
    "WIDTH 80,20",
    "WIDTH 40,20",
    "CONSOLE 5,3",
    "WIDTH 40,20:CONSOLE 19,1",
    "CONSOLE 0,1",
    "CONSOLE 5,3:LOCATE 0,20",
    "WIDTH 40:CONSOLE 2,2:LOCATE 39,24",
    "LOCATE 79,24",
    "LOCATE 78,0",
    "KEY 1,\"\xE3\x82\xA2\"+CHR$(13)",
};

constexpr const char* READERS[] = {
    "INPUT A$",
    "INPUT A,B$",
    "LINE INPUT A$",
    "INPUT WAIT 3,A$",
    "KINPUT A$",
    "A$=INPUT$(3):PRINT A$",
    "A$=INKEY$:PRINT A$",
    "RANDOMIZE",
    "INPUT \"\xE6\xBC\xA2\";A%",
    "LINE INPUT WAIT 2,\"A\";A$",
    "ON KEY GOSUB 500,510:KEY ON:INPUT A$",
    "ON HELP GOSUB 500:HELP ON:LINE INPUT A$",
    "ON STOP GOSUB 510:STOP ON:INPUT A$",
};

/// Keys that do something other than writing a character.
constexpr const char* EDIT_KEYS[] = {
    "\x0A", "\x1C", "\x1D", "\x1E", "\x1F", "\x08", "\x7F", "\x01", "\x04",
    "\x05", "\x1B", "\x0B", "\x0C", ",",    "\"",   "\t",   " ",    "\x02",
};
constexpr const char* WIDE_KEYS[] = {
    "\xE3\x82\xA2", "\xEF\xBD\xB1", "\xF0\xA0\xAE\x9F", "\xC3\xA9", "\xE3\x82", "\x80", "\xFF",
};

TFeedItem next_key(TFuzzInput& input) {
  TFeedItem item;
  const uint8_t choice = input.Byte();
  if (choice < 0x60) {
    item.bytes = input.OneOf(EDIT_KEYS);
  } else if (choice < 0xA0) {
    item.bytes = input.OneOf(WIDE_KEYS);
  } else if (choice < 0xA8) {
    item.kind = TFeedItem::TKind::FunctionKey;
    item.number = 1 + input.Byte() % 12;
  } else if (choice < 0xAC) {
    item.kind = TFeedItem::TKind::Wait;
    item.delay = input.Byte() * 1000;
  } else if (choice == 0xAC) {
    item.kind = TFeedItem::TKind::Break;
  } else {
    item.bytes = std::string(1, static_cast<char>(std::max<uint8_t>(input.Byte(), 1)));
  }
  return item;
}

bool is_cell(const TTxtCell& cell) {
  if (cell.IsEmpty() || cell.IsRightHalf()) return true;
  return cell.text[0] != '\0' && cell.text[sizeof cell.text - 1] == '\0';
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  TFuzzInput input(data, size);
  TFuzzEngine engine;
  std::string list = "10 " + std::string(input.OneOf(SCREENS)) + "\n20 " + input.OneOf(READERS);
  list += "\n30 PRINT A$:" + std::string(input.OneOf(READERS));
  list += "\n40 " + std::string(input.OneOf(READERS)) + "\n50 PRINT A$;A;B$:GOTO 20";
  list += "\n500 PRINT \"T\":RETURN\n510 CLS:LOCATE 3,3:RETURN 20\n";
  std::deque<TFeedItem> keys;
  while (!input.IsEmpty()) keys.push_back(next_key(input));
  engine.Type(std::move(keys));
  engine.RunBytes(list);
  const TTxtSnapshot screen = engine.View().Rsrc().TxtSnapshot();
  require(std::all_of(screen.cells.begin(), screen.cells.end(), is_cell));
  return 0;
}
