// Texts of variables, and the tree of their items.
#include "debugger/var_tree.h"

#include <algorithm>

#include "common/text/utf8.h"
#include "vm/print_text.h"

namespace zoka {
namespace {

/// The beginning of a long text, cut between two characters.
std::string shown_text(std::string_view text) {
  if (text.size() <= MAX_SHOWN_BYTES) return std::string(text);
  size_t end = 0;
  for (size_t next = 0; next <= MAX_SHOWN_BYTES;
       next += std::max<size_t>(char_length(text.substr(next)), 1)) {
    end = next;
  }
  return std::string(text.substr(0, end));
}

int32_t element_count(const TVarInfo& var) {
  return var.dimCount > 0 ? std::max(var.strides[var.dimCount], 0) : 0;
}

}  // namespace

std::string shown_number(double number) {
  std::string text = str_dl_text(number);
  if (text.starts_with(' ')) text.erase(0, 1);
  return text;
}

std::string var_label(const TVarInfo& var, int32_t slot) {
  if (slot == 0) return var.name + " : ";
  std::string label = var.name + "(";
  int32_t rest = slot - 1;
  for (int32_t i = 0; i < var.dimCount && var.dims[i] > 0; ++i) {
    if (i > 0) label += ",";
    label += std::to_string(rest % var.dims[i]);
    rest /= var.dims[i];
  }
  return label + ") : ";
}

bool has_slot(const TVarInfo& var, int32_t slot) {
  return var.data != nullptr && slot >= 0 && slot <= element_count(var) && slot < var.slotCount;
}

std::string value_text(const TVarInfo& var, int32_t slot) {
  if (!has_slot(var, slot)) return {};
  switch (var.kind) {
    case ttInt:
      return std::to_string(var.ints[slot]);
    case ttSng:
      return shown_number(static_cast<double>(var.floats[slot]));
    case ttDbl:
      return shown_number(var.doubles[slot]);
    case ttStr:
      return shown_text(var.texts[slot].View());
    default:
      return {};
  }
}

void TVarTree::Clear() {
  mProgram = nullptr;
  mItems.clear();
  mPlaces.clear();
  mSeen.clear();
}

void TVarTree::Set(TMidCode* program) {
  Clear();
  mProgram = program;
  program->EnumerateVars([this](const std::string&, TVarInfo& var) {
    mPlaces.emplace(&var, mItems.size());
    TItem item;
    item.info = &var;
    item.isArray = var.dimCount > 0;
    mItems.push_back(item);
  });
  const TLock lock(program->VariablesLock());
  for (size_t item = 0; item < std::min(mItems.size(), MAX_WATCHED_VALUES); ++item) {
    mSeen[{item, 0}] = {value_text(*mItems[item].info, 0), false};
  }
}

int32_t TVarTree::ChildCount(size_t item) const {
  const TItem& it = mItems[item];
  if (!it.isArray) return 0;
  return it.made ? it.children : 1;
}

void TVarTree::ExpandOrCollapse(size_t item, bool expand) {
  TItem& it = mItems[item];
  if (!it.isArray) return;
  it.expanded = expand;
  if (!expand || it.made) return;
  const TLock lock(mProgram->VariablesLock());
  it.made = true;
  it.children = element_count(*it.info);
}

TVarRow TVarTree::Row(size_t item) {
  return SlotRow(item, 0, false);
}

TVarRow TVarTree::ChildRow(size_t item, int32_t child, bool stands) {
  const TItem& it = mItems[item];
  if (!it.made || child < 0 || child >= it.children) {
    TVarRow dummy;
    dummy.isDummy = true;
    return dummy;
  }
  return SlotRow(item, child + 1, stands);
}

TVarRow TVarTree::SlotRow(size_t item, int32_t slot, bool watch) {
  TVarRow row;
  {
    const TLock lock(mProgram->VariablesLock());
    row.label = var_label(*mItems[item].info, slot);
    row.value = value_text(*mItems[item].info, slot);
  }
  const auto seen = mSeen.find({item, slot});
  if (seen != mSeen.end()) {
    row.changed = seen->second.changed;
  } else if (watch && mSeen.size() < MAX_WATCHED_VALUES) {
    mSeen[{item, slot}] = {row.value, false};
  }
  return row;
}

size_t TVarTree::Reset(const TVarInfo* var) {
  const auto place = mPlaces.find(var);
  if (place == mPlaces.end()) return Count();
  const size_t item = place->second;
  TItem fresh;
  fresh.info = mItems[item].info;
  fresh.isArray = true;
  mItems[item] = fresh;
  mSeen.erase(mSeen.upper_bound({item, 0}), mSeen.lower_bound({item + 1, 0}));
  return item;
}

void TVarTree::NoteStop() {
  if (mProgram == nullptr) return;
  const TLock lock(mProgram->VariablesLock());
  for (auto& [place, seen] : mSeen) {
    std::string now = value_text(*mItems[place.first].info, place.second);
    seen.changed = now != seen.text;
    seen.text = std::move(now);
  }
}

}  // namespace zoka
