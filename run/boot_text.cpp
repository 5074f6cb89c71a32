// The start-up text of the simulated machine.
#include "run/run_view.h"

namespace zoka {
namespace {

/// Colours of the first two cells of a line that names a system.
constexpr int8_t FIRST_CELL_COLOR = 5;
constexpr int8_t SECOND_CELL_COLOR = 2;

void print_line(TBasicRsrc& rsrc, const std::string& text) {
  rsrc.Print(text);
  rsrc.DoCRLF();
}

/// Prints a line whose first two cells are coloured.
void print_name_line(TBasicRsrc& rsrc, const std::string& text) {
  int32_t start = rsrc.CursorPos();
  print_line(rsrc, text);
  // The line may have scrolled up by the line end behind it.
  int32_t row = rsrc.CursorPos() / rsrc.TxtCols() - 1;
  int32_t cell = row >= 0 ? row * rsrc.TxtCols() : start;
  rsrc.SetCellAttr(cell, FIRST_CELL_COLOR);
  rsrc.SetCellAttr(cell + 1, SECOND_CELL_COLOR);
}

}  // namespace

void TRunView::ShowBootStr() {
  const TCatalogue& texts = *mContext.catalogue;
  print_name_line(mRsrc, "BeOS Version");
  print_line(mRsrc, "How many files (0-15)? 15");
  print_name_line(mRsrc, std::string(APP_NAME) + "  " + APP_VERSION);
  print_line(mRsrc, replace_placeholder(texts.GetString("@Credit %AppAuthor%@"), "%AppAuthor%",
                                        texts.GetString("@App_Author@")));
  print_line(mRsrc, std::to_string(mHost.FreeMemoryKBytes()) + " KBytes free");
  print_line(mRsrc, "Ok");
  mRsrc.UpdateScreen();
}

}  // namespace zoka
