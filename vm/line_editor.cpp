// The keys of the line editor and their moves over the screen.
#include "vm/line_editor.h"

#include <algorithm>

#include "vm/vmachine.h"

namespace zoka {
namespace {

/// Keys by the first byte that they have in the key buffer.
enum TEditKey : unsigned char {
  KEY_BACKSPACE = 0x08,
  KEY_RETURN = 0x0D,
  KEY_RIGHT = 0x1C,
  KEY_LEFT = 0x1D,
  KEY_UP = 0x1E,
  KEY_DOWN = 0x1F,
  KEY_DELETE = 0x7F,
};

constexpr bigtime_t TENTH_OF_A_SECOND = 100'000;

/// One edit of a line: the range of cells that counts, and the moves that change it.
class TLineEditor {
 public:
  explicit TLineEditor(TBasicRsrc& rsrc)
      : mRsrc(rsrc), mLow(rsrc.CursorPos()), mHigh(rsrc.CursorPos()) {}

  void Key(const std::string& key) {
    int32_t before = Cursor();
    switch (static_cast<unsigned char>(key[0])) {
      case KEY_LEFT:
        MoveLeft();
        break;
      case KEY_RIGHT:
        MoveRight();
        break;
      case KEY_UP:
        MoveToRow(-1, 0, mRsrc.ConsoleTop());
        break;
      case KEY_DOWN:
        MoveToRow(1, mRsrc.TxtRows() - 1, mRsrc.ConsoleBottom() - 1);
        break;
      case KEY_BACKSPACE:
        DoBackspace();
        break;
      case KEY_DELETE:
        DoDelete();
        break;
      default:
        Type(key);
    }
    mRsrc.SetScrModifiedByTxt2(before, Cursor());
    mRsrc.UpdateScreen();
  }

  /// What stands on the screen in the range, typed or not.
  std::string Text() const { return mRsrc.DisplayedTxt(mLow, std::max(mHigh, Cursor()) - 1); }

 private:
  int32_t Cursor() const { return mRsrc.CursorPos(); }
  int32_t Cols() const { return mRsrc.TxtCols(); }
  int32_t LastCell() const { return mRsrc.TxtRows() * Cols() - 1; }
  int32_t Row() const { return Cursor() / Cols(); }
  int32_t FirstConsoleCell() const { return mRsrc.ConsoleTop() * Cols(); }
  int32_t LastConsoleCell() const { return mRsrc.ConsoleBottom() * Cols() - 1; }
  bool IsOutside() const { return Row() < mRsrc.ConsoleTop() || Row() >= mRsrc.ConsoleBottom(); }

  void MoveLeft() {
    if (Cursor() <= 0) return;
    if (!IsOutside() && Cursor() <= FirstConsoleCell()) return;
    mRsrc.SetCursorPos(Cursor() - 1);
    mLow = std::min(mLow, Cursor());
  }

  void MoveRight() {
    if (Cursor() >= LastCell()) return;
    if (!IsOutside() && Cursor() == LastConsoleCell()) return;
    mRsrc.SetCursorPos(Cursor() + 1);
    mHigh = std::max(mHigh, Cursor());
  }

  /// Up and down begin a new range: this is how a line on the screen is picked up again.
  void MoveToRow(int32_t change, int32_t edgeOfScreen, int32_t edgeOfConsole) {
    if (Row() == edgeOfScreen || (!IsOutside() && Row() == edgeOfConsole)) return;
    mRsrc.SetCursorPos(Cursor() + change * Cols());
    mLow = mHigh = Cursor();
  }

  void DoDelete() {
    if (Cursor() < LastCell()) mRsrc.SlideTxtToLeft(Cursor() + 1);
  }

  void DoBackspace() {
    bool isRowStart = Cursor() % Cols() == 0;
    if (Cursor() <= 0 || Cursor() == FirstConsoleCell() ||
        (isRowStart && mRsrc.Cell(Cursor() - 1).IsEmpty())) {
      DoDelete();
      return;
    }
    mRsrc.SlideTxtToLeft(Cursor());
    mRsrc.SetCursorPos(Cursor() - 1);
    // The low end stays, so that a prompt that is rubbed out does not become input.
    --mHigh;
  }

  void Type(const std::string& key) {
    int64_t scrolled = mRsrc.ScrolledRows();
    mRsrc.Print(key);
    auto rows = static_cast<int32_t>(mRsrc.ScrolledRows() - scrolled);
    if (rows > 0) {
      // The range goes up with the rows that scrolled.
      int32_t cells = rows * Cols();
      mLow = std::max(mLow - cells, FirstConsoleCell());
      mHigh = std::max(mHigh - cells, FirstConsoleCell());
    }
    // Backspaces may have taken the high end below the low one, where it stays.
    mHigh = std::max(mHigh, Cursor());
  }

  TBasicRsrc& mRsrc;
  int32_t mLow;
  int32_t mHigh;
};

/// The next key; empty if the wait ran out or the machine is to stop.
std::string next_key(TVMachine& m, const int32_t* timeout) {
  if (timeout == nullptr) return m.PopKey();
  return m.PopKeyWithTimeout(*timeout * TENTH_OF_A_SECOND);
}

}  // namespace

std::list<std::string> split_items(std::string_view line) {
  std::list<std::string> items;
  for (;;) {
    size_t comma = line.find(',');
    items.emplace_back(line.substr(0, comma));
    if (comma == line.npos) return items;
    line.remove_prefix(comma + 1);
  }
}

bool InputFromUser(TVMachine& m, std::list<std::string>* items, bool asLine,
                   const int32_t* timeout) {
  TBasicRsrc& rsrc = *m.mRsrc;
  items->clear();
  TLineEditor editor(rsrc);
  rsrc.SetCursorShown(true);
  rsrc.UpdateScreen();
  bool inTime = true;
  while (!m.IsTerminated()) {
    std::string key = next_key(m, timeout);
    inTime = timeout == nullptr || !key.empty();
    if (key.empty() || key[0] == KEY_RETURN) break;
    editor.Key(key);
  }
  std::string text = editor.Text();
  rsrc.SetCursorShown(false);
  rsrc.SetScrModifiedByTxt2(rsrc.CursorPos(), rsrc.CursorPos());
  rsrc.DoCRLF();
  rsrc.UpdateScreen();
  if (text.empty() && m.IsTerminated()) return inTime;
  if (asLine) {
    items->push_back(text);
  } else {
    *items = split_items(text);
  }
  return inTime;
}

std::string InputDlFromUser(TVMachine& m, int32_t count) {
  TBasicRsrc& rsrc = *m.mRsrc;
  rsrc.SetCursorShown(true);
  rsrc.UpdateScreen();
  std::string text;
  for (int32_t counted = 0; counted < count && !m.IsTerminated();) {
    std::string key = m.PopKey();
    if (key.empty()) break;
    counted += key.size() > 1 ? 2 : 1;
    text += key;
  }
  rsrc.SetCursorShown(false);
  rsrc.UpdateScreen();
  return text;
}

}  // namespace zoka
