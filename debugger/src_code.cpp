// The lines of the source, by number and in order.
#include "debugger/src_code.h"

#include "common/text/number.h"

namespace zoka {

void TSrcCode::Set(std::string_view text) {
  mItems.clear();
  mLines.clear();
  mBreaking.reset();
  while (!text.empty()) {
    const size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    TSrcCodeItem item;
    item.text = line;
    item.line = parse_long(line);
    // The first of two lines with one number counts here, although jumps take the later one.
    mLines.try_emplace(item.line, mItems.size());
    mItems.push_back(std::move(item));
    if (end == text.npos) return;
    text.remove_prefix(end + 1);
  }
}

std::optional<size_t> TSrcCode::Find(int32_t line) const {
  const auto found = mLines.find(line);
  if (found == mLines.end()) return std::nullopt;
  return found->second;
}

std::string TSrcCode::Line(int32_t line) const {
  const std::optional<size_t> index = Find(line);
  return index ? mItems[*index].text : std::string();
}

void TSrcCode::Break(int32_t line) {
  Unbreak();
  mBreaking = Find(line);
  if (mBreaking) mItems[*mBreaking].breaking = true;
}

void TSrcCode::Unbreak() {
  if (mBreaking) mItems[*mBreaking].breaking = false;
  mBreaking.reset();
}

}  // namespace zoka
