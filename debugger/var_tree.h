// TVarTree: the variables of a program as the debug view shows them: one item a variable, sorted by
// name, and below an array its elements, which exist as soon as it is expanded but cost nothing
// until they are looked at. Not locked: the model's lock guards it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/mid_code.h"

namespace zoka {

/// Bytes of a text value that are shown at most.
constexpr size_t MAX_SHOWN_BYTES = 4096;
/// Values whose changes from stop to stop are watched at most.
constexpr size_t MAX_WATCHED_VALUES = 4096;

/// A number as STR$ gives it, but without the blank in front.
std::string shown_number(double number);
/// "A! : " for slot 0, "A!(2,1) : " for an element: its subscripts in the order in which they are
/// stored, the last one of the source first. The variables' lock is held.
std::string var_label(const TVarInfo& var, int32_t slot);
/// The value of a slot: numbers as shown_number gives them, texts as they are. Empty
/// if there is no such slot. The variables' lock is held.
std::string value_text(const TVarInfo& var, int32_t slot);

/// Whether the variable has that slot: 0, or an element's. The variables' lock is held, or the
/// machine stands.
bool has_slot(const TVarInfo& var, int32_t slot);

/// What a row shows.
struct TVarRow {
  std::string label;
  std::string value;
  /// The value is another than at the stop before.
  bool changed = false;
  /// Stands below an array that has not been expanded yet; nothing else is drawn of it.
  bool isDummy = false;
  bool operator==(const TVarRow&) const = default;
};

/// Items count from 0, in order of their names; slots as in TVarInfo.
class TVarTree {
 public:
  /// An item for each variable.
  void Set(TMidCode* program);
  void Clear();

  size_t Count() const { return mItems.size(); }
  TVarInfo* Info(size_t item) const { return mItems[item].info; }
  /// Rows below an item: 0 without dimensions, 1 (the dummy) before it is expanded, then one an
  /// element.
  int32_t ChildCount(size_t item) const;
  bool IsExpanded(size_t item) const { return mItems[item].expanded; }
  /// Expanding makes the elements; collapsing keeps them. Nothing happens to a plain variable.
  void ExpandOrCollapse(size_t item, bool expand);

  TVarRow Row(size_t item);
  /// `child` counts from 0. While the program stands a row that is looked at is watched from then
  /// on.
  TVarRow ChildRow(size_t item, int32_t child, bool stands);

  /// The variable was dimensioned: its elements go, it is collapsed and has its expander. Returns
  /// its item, or Count() if there is none.
  size_t Reset(const TVarInfo* var);
  /// The program stands: which of the watched values have changed.
  void NoteStop();

 private:
  struct TItem {
    TVarInfo* info;
    int32_t children = 0;  // elements made
    bool isArray = false;
    bool made = false;
    bool expanded = false;
  };
  struct TSeen {
    std::string text;
    bool changed = false;
  };
  using TPlace = std::pair<size_t, int32_t>;  // item and slot

  TVarRow SlotRow(size_t item, int32_t slot, bool watch);

  TMidCode* mProgram = nullptr;
  std::vector<TItem> mItems;
  std::unordered_map<const TVarInfo*, size_t> mPlaces;
  std::map<TPlace, TSeen> mSeen;
};

}  // namespace zoka
