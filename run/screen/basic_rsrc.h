// TBasicRsrc: the state of the simulated machine that outlives a run: text screen, graphic pages,
// palettes, function keys, key buffer, open files. It draws nothing on the host's screen: it
// records what has changed and asks its owner to repaint. What statements draw is in graphics.h,
// how it is painted in compose.h.
#pragma once

#include <array>
#include <atomic>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "common/clock.h"
#include "common/mutex.h"
#include "common/thread.h"
#include "common/types.h"
#include "run/screen/file.h"
#include "run/screen/flood_fill.h"
#include "run/screen/glyph_cache.h"
#include "run/screen/grph_page.h"
#include "run/screen/screen_owner.h"
#include "run/screen/screen_size.h"

namespace zoka {

/// One cell of the text screen: a character as UTF-8 with its NUL, or one of two marks.
struct TTxtCell {
  static constexpr char EMPTY = 1;
  static constexpr char RIGHT_HALF = 2;

  char text[5];

  bool IsEmpty() const { return text[0] == EMPTY; }
  /// The cell is covered by the wide character in the cell before it.
  bool IsRightHalf() const { return text[0] == RIGHT_HALF; }
};

constexpr TTxtCell EMPTY_CELL{{TTxtCell::EMPTY}};

/// A copy of the text screen for those who show it without pixels.
struct TTxtSnapshot {
  int32_t cols = 80;
  int32_t rows = 25;
  int32_t cursorPos = 0;
  bool cursorShown = false;
  std::vector<TTxtCell> cells;
  std::vector<int8_t> attrs;
};

/// Threads: the machine's thread is the one that changes the screen; the host's thread paints it.
/// All that both touch lies under one short mutex of rank Screen, which every operation here takes
/// by itself; so none may be called with it, or with a leaf lock, held. The plain accessors read
/// without it and are for the machine's thread (or for anybody while no machine runs). The key
/// buffer has a leaf lock of its own and serves any pusher and one popper.
class TBasicRsrc {
 public:
  explicit TBasicRsrc(TClock& clock);
  ~TBasicRsrc();
  TBasicRsrc(const TBasicRsrc&) = delete;
  TBasicRsrc& operator=(const TBasicRsrc&) = delete;

  /// Back to the state after construction. Not called between runs.
  void Init();
  /// `owner` outlives this object or is taken away with null; without one nothing is asked for.
  void SetOwner(TScreenOwner* newOwner);
  /// The run font as the settings have it; it is loaded when the first character is painted, and
  /// gives its height then. The whole screen is marked. Host's thread.
  void SetFontFamilyAndSize(std::string_view family, float size);
  /// Stores the run font's measures and computes the baseline from them.
  void SetFontHeight(const TFontHeight& height);

  // --- Text -------------------------------------------------------------------------------------

  /// Cell size and baseline from `txtCols`, `txtRows` and the font.
  void CalcTxtSize();
  /// Writes UTF-8 text, up to its end or a NUL, at the cursor. Scrolls once beforehand, as far as
  /// the text's width wants it. Does not repaint.
  void Print(std::string_view utf8);
  /// Cursor to the start of the next row, scrolling at the end of the console area.
  void DoCRLF();
  /// Moves the console area up by `rows`, 1 or more; the cursor goes with it and may become
  /// negative.
  void ScrollTxt2(int32_t rows);
  /// Moves the non-empty cells from `pos` on one cell to the left.
  void SlideTxtToLeft(int32_t pos);
  /// Empties the cells from fromRow*80 up to toRow*80 and puts the cursor on the first: 80 also on
  /// a screen of 40 columns, where this covers twice the rows.
  void ClearTxtBuf(int32_t fromRow, int32_t toRow);
  /// The text of cells `from` to `to` inclusive, an empty cell as a blank. Cut to the screen.
  std::string DisplayedTxt(int32_t from, int32_t to) const;

  /// A row's text without its trailing blanks, bytes that are no character as U+FFFD; nothing for a
  /// row off the screen. Any thread.
  std::string RowText(int32_t row) const;
  /// All rows as the clipboard gets them: trailing empty cells left out, a line feed after each.
  /// Any thread.
  std::string ScreenText() const;
  /// A copy of the text screen. Any thread.
  TTxtSnapshot TxtSnapshot() const;

  /// WIDTH: 40 or 80 columns, 20 or 25 rows; the console becomes all rows, the text is cleared.
  void SetTxtSize(int32_t cols, int32_t rows);
  /// CONSOLE: first row (-1: as before) and number of rows (-1: the end stays), cut to the screen.
  void SetConsole(int32_t startRow, int32_t rows);
  /// Puts the cursor on a cell as given, without a repaint.
  void SetCursorPos(int32_t pos);
  /// Shows or hides the line editor's cursor and marks its cell.
  void SetCursorShown(bool shown);
  /// The next phase of the blinking cursor; true if the cursor is shown. Host's thread.
  bool FlipCursorBlink();
  /// Colour of characters printed from now on, 0 to 7.
  void SetTxtColor(int8_t color);
  /// COLOR@: the colour of the cells of a rectangle, corners inclusive and inside the screen; the
  /// low three bits of `color` count. Nothing if a corner lies past the other.
  void SetTxtAttr(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t color);
  /// The attribute of one cell, 0 to 7; a cell outside the screen is ignored.
  void SetCellAttr(int32_t cell, int8_t color);

  int32_t CursorPos() const { return cursorPos; }
  /// Rows that ScrollTxt2 has moved since construction; those who hold cells count with it.
  int64_t ScrolledRows() const { return scrolledRows; }
  bool CursorShown() const { return cursorShown; }
  int32_t TxtCols() const { return txtCols; }
  int32_t TxtRows() const { return txtRows; }
  int32_t CellWidth() const { return cellWidth; }
  int32_t CellHeight() const { return cellHeight; }
  float TxtBaseline() const { return txtBaseline; }
  int32_t ConsoleTop() const { return consoleTop; }
  int32_t ConsoleBottom() const { return consoleBottom; }
  int8_t TxtColor() const { return txtColor; }
  /// Cell `pos`, 0 to MAX_TXT_CELLS - 1, and its attribute.
  const TTxtCell& Cell(int32_t pos) const { return txtCell[static_cast<size_t>(pos)]; }
  int8_t CellAttr(int32_t pos) const { return txtAttr[static_cast<size_t>(pos)]; }

  // --- Graphic pages and palettes ---------------------------------------------------------------

  /// Empties the active page with the background colour; `lastPoint` becomes (0,0).
  void ClearGrphBuf();
  /// Rebuilds the real plane of the page shown from its index plane, if the palette has changed
  /// since; in the 200-line modes the upper half only.
  void TransferGrphBmpPalToReal();
  /// Widens each nibble of 0xGRB to a byte.
  static TRgb BasColCodeToBeRGB(int32_t code);
  void InitGrphColPal();
  void InitTxtColPal();

  /// SCREEN's switch: whether graphics are painted under the text. Marks the whole screen.
  void SetGrphVisible(bool visible);
  /// SCREEN's mode: 2 for the 200-line modes, 1 for 400 lines, which have pages 0 and 1 only.
  /// Clears nothing; marks the whole screen.
  void SetGrphYScale(int8_t scale);
  /// SCREEN's pages: 0 to 3, and NO_PAGE for the one shown, whose real plane is brought up to date.
  void SetActivePage(int8_t page);
  void SetDisplayPage(int8_t page);
  void SetGrphForeColor(int8_t color);
  void SetGrphBackColor(int8_t color);
  /// COLOR's palette mode 0 to 2: also resets the palette, but rebuilds no picture.
  void SetColorMode(int8_t mode);
  /// COLOR=: changes palette entry 0 to 15 and rebuilds the page shown.
  void SetGrphPal(int32_t index, const TRgb& color);
  /// INIT COLOR: resets the palette and rebuilds the page shown.
  void InitColorPalette();

  void SetLastPoint(const TPoint& point) { lastPoint = point; }
  const TPoint& LastPoint() const { return lastPoint; }
  bool GrphVisible() const { return grphVisible; }
  int8_t GrphYScale() const { return grphYScale; }
  int8_t GrphForeColor() const { return grphForeColor; }
  int8_t GrphBackColor() const { return grphBackColor; }
  int8_t ActivePage() const { return activePage; }
  int8_t DisplayPage() const { return displayPage; }
  int8_t ColorMode() const { return colorMode; }
  bool PalStale(int8_t page) const { return palStale[static_cast<size_t>(page)]; }
  const TRgb& GrphPal(int32_t index) const { return grphPal[static_cast<size_t>(index & 15)]; }
  const TRgb& BasePal(int32_t index) const { return basePal[static_cast<size_t>(index & 7)]; }
  const TRgb& TxtPal(int32_t index) const { return txtPal[static_cast<size_t>(index & 7)]; }
  /// A page, for reading by the machine's thread.
  const TGrphPage& GrphBmp(int8_t page) const { return grphBitmap[static_cast<size_t>(page)]; }

  // --- Repaint bookkeeping ----------------------------------------------------------------------

  /// Rectangles have inclusive corners in device pixels and may lie anywhere.
  void SetScrModifiedKernel2(const TRect& r);
  /// A rectangle of graphic rows; ignored unless it is drawn on the page that is visible.
  void SetScrModifiedByGrph2(const TRect& r);
  /// The whole screen, on the same condition.
  void SetScrModifiedAll2();
  void SetScrModifiedByTxt2(int32_t from, int32_t to);
  /// Asks the owner to paint what has changed.
  void UpdateScreen();
  TRect ModifiedRect() const;
  /// Takes what has changed, leaving nothing: for owners that show nothing.
  TRect TakeModifiedRect();

  // --- Keys -------------------------------------------------------------------------------------

  /// Adds one key press, its first byte translated to the simulated keyboard's code. False if the
  /// buffer is full and the key lost. Any thread.
  bool PushToKeyBuf(const char* bytes, int32_t numBytes);
  /// The text of function key `index` (0 to 9; others push nothing), a byte a key press, and then
  /// `raise`, all as one step for the machine. `raise` may only set atomic flags: it runs inside
  /// the key buffer's lock. Host's thread.
  void PushFuncKey(int32_t index, const std::function<void()>& raise);
  /// Waits for a key and takes it. "" only if `waiter` was told to terminate (see WakeKeyWait).
  std::string PopFromKeyBuf(const TThread* waiter);
  /// As above for at most `timeout` microseconds, then "". Zero or less is one look, which counts
  /// as a poll of the clock if there is no key.
  std::string PopFromKeyBufWithTimeout(bigtime_t timeout, const TThread* waiter);
  /// Ends the wait of a machine that was told to terminate; its Terminate calls this. Any thread.
  void WakeKeyWait();
  void ClearKeyBuf();
  /// Takes all waiting keys, and puts them back in front of newer ones as far as there is room.
  std::deque<std::string> TakeKeyBuf();
  void PutBackKeys(const std::deque<std::string>& keys);
  /// Key presses waiting. Any thread.
  int32_t KeyBufCount() const;

  void InitFuncKeyStr();
  /// Text of function key `index` 0 to 9; of others, which have none, "". Any thread.
  std::string FuncKeyStr(int32_t index) const;
  void SetFuncKeyStr(int32_t index, std::string_view text);

  // --- Other ------------------------------------------------------------------------------------

  /// Arms ON TIME$; -1 for a malformed time.
  int32_t SetOnTimeDl(const char* hhmmss);
  /// Lights the lamp of drive index 0 or 1 for 200 ms, at most once in 100 ms; ignores others.
  void SetFDDAccessLampByDriveIndex(int32_t driveIdx);

  /// The same for the drive of an open file; ignores other numbers.
  void SetFDDAccessLampByFileDesc(int32_t fileNum);

  /// The files of BASIC's file numbers. Machine's thread.
  TFileTable& Files() { return files; }
  /// The folders that stand for the drives. Any thread.
  TDriveFolders& DrvFolderRefs() { return drvFolderRefs; }
  const TDriveFolders& DrvFolderRefs() const { return drvFolderRefs; }

  int8_t OptionBase() const { return optionBase; }
  void SetOptionBase(int8_t base) { optionBase = base; }
  int32_t DefSeg() const { return defSeg; }
  void SetDefSeg(int32_t segment) { defSeg = segment; }

 private:
  friend class TGraphics;
  friend class TScreenPainter;

  static constexpr bigtime_t LAMP_INTERVAL = 100'000;
  static constexpr bigtime_t LAMP_ON_TIME = 200'000;

  /// What the lamp of one drive needs to remember: the last access, and timers that may still run
  /// (two do, as a lamp is lit for two intervals, and one more that is late), the latest first.
  struct TLamp {
    bigtime_t lastTime = INT64_MIN / 2;
    std::array<TTimerId, 3> timers{};
  };

  // These want the screen mutex held.
  void InitFields();
  void CalcTxtSizeKernel();
  void LoadFont();
  void ClearTxtKernel(int32_t fromRow, int32_t toRow);
  void ClearGrphKernel();
  void TransferKernel();
  void ResetGrphPal();
  void MarkKernel(const TRect& r);
  void MarkGrph(const TRect& r);
  void MarkAll();
  /// Cells may lie anywhere.
  void MarkTxt(int64_t from, int64_t to);
  /// Cells `from` up to but not including `to`, well-formed.
  void AppendCells(int32_t from, int32_t to, std::string* text) const;

  int32_t CellCount() const { return txtRows * txtCols; }
  bool IsOnScreen(int64_t cell) const { return cell >= 0 && cell < CellCount(); }
  int32_t ConsoleHeight() const;
  bool IsInConsole(int64_t row) const { return row >= consoleTop && row < consoleBottom; }
  int32_t PrintWalk(std::string_view utf8, bool startedInside);
  void WriteChar(int64_t cell, std::string_view character, bool isWide);
  void ScrollForText(std::string_view utf8);
  void TranscriptRows(int32_t count);
  bool TryPopKey(std::string* key);
  bool AppendKey(const char* bytes, int32_t numBytes);
  std::string WaitForKey(bigtime_t deadline, const TThread* waiter);
  TPen PenOf(int8_t color) const;

  TClock& mClock;
  TScreenOwner* owner = nullptr;

  mutable TMutex mMutex{TLockRank::Screen};
  bool cursorBlink = false;
  bool cursorShown = false;
  bool grphVisible = true;
  std::array<bool, PAGE_COUNT> palStale{};
  std::array<TTxtCell, MAX_TXT_CELLS> txtCell;
  std::array<int8_t, MAX_TXT_CELLS> txtAttr{};
  std::atomic<int8_t> grphYScale{2};  // the host reads it for the mouse
  int8_t grphBackColor = 0;
  int8_t grphForeColor = 7;
  int8_t optionBase = 0;
  int8_t activePage = 0;
  int8_t displayPage = 0;
  int8_t colorMode = 0;
  int8_t consoleTop = 0;
  int8_t consoleBottom = 25;
  int8_t txtColor = 7;
  int8_t cellHeight = 16;
  int8_t txtRows = 25;
  int8_t txtCols = 80;
  int8_t cellWidth = 8;
  int32_t cursorPos = 0;
  int64_t scrolledRows = 0;
  int32_t defSeg = 0;
  float txtBaseline = 14;
  std::array<TRgb, GRPH_PAL_COLORS> grphPal;
  std::array<TRgb, TXT_PAL_COLORS> basePal;
  std::array<TRgb, TXT_PAL_COLORS> txtPal;
  TPoint lastPoint;
  TRect modifiedRect;
  std::array<TGrphPage, PAGE_COUNT> grphBitmap;
  TFontHeight fontHeight;
  TGlyphCache glyphs;
  TFloodFill mFloodFill;

  mutable TMutex mKeyMutex{TLockRank::Leaf};
  std::deque<std::string> keyBuf;
  std::array<std::string, FUNC_KEY_COUNT> funcKeyStr;
  TWake mKeyWake;

  TDriveFolders drvFolderRefs;
  TFileTable files;
  std::array<TLamp, LAMP_COUNT> mLamps;
};

}  // namespace zoka
