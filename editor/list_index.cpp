// Counts of what lines say; every line is counted in when it comes and out when it goes.
#include "editor/list_index.h"

#include <algorithm>
#include <iterator>

namespace zoka {

std::vector<std::string_view> split_lines(std::string_view text) {
  std::vector<std::string_view> lines;
  for (;;) {
    const size_t end = text.find_first_of("\r\n");
    lines.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return lines;
    const bool pair = text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n';
    text.remove_prefix(end + (pair ? 2 : 1));
  }
}

TListIndex::TListIndex() {
  SetText("");
}

void TListIndex::SetText(std::string_view text) {
  mLines.clear();
  mFilled = 0;
  mNumbers.clear();
  mLabels.clear();
  mNames.clear();
  ReplaceLines(0, 0, split_lines(text));
}

void TListIndex::ReplaceLines(size_t first, size_t removed,
                              const std::vector<std::string_view>& lines) {
  first = std::min(first, mLines.size());
  removed = std::min(removed, mLines.size() - first);
  const auto begin = mLines.begin() + static_cast<std::ptrdiff_t>(first);
  const auto end = begin + static_cast<std::ptrdiff_t>(removed);
  for (auto line = begin; line != end; ++line) Count(**line, -1);
  std::vector<std::unique_ptr<const TLineFacts>> read;
  read.reserve(lines.size());
  for (std::string_view line : lines) {
    read.push_back(std::make_unique<const TLineFacts>(read_line_facts(line)));
    Count(*read.back(), 1);
  }
  // The usual case, a key within a line, moves nothing.
  const auto common = static_cast<std::ptrdiff_t>(std::min(removed, read.size()));
  std::move(read.begin(), read.begin() + common, begin);
  mLines.erase(begin + common, end);
  mLines.insert(mLines.begin() + static_cast<std::ptrdiff_t>(first) + common,
                std::make_move_iterator(read.begin() + common),
                std::make_move_iterator(read.end()));
}

void TListIndex::CountOne(TCounts* counts, const std::string& name, int32_t step) {
  const auto found = counts->try_emplace(name, 0).first;
  found->second += step;
  if (found->second == 0) counts->erase(found);
}

void TListIndex::Count(const TLineFacts& facts, int32_t step) {
  mFilled += facts.filled * step;
  for (int32_t number : facts.numbers) {
    if ((mNumbers[number] += step) == 0) mNumbers.erase(number);
  }
  for (const TPlaceName& label : facts.labels) CountOne(&mLabels, label.label, step);
  for (const std::string& name : facts.names) CountOne(&mNames, name, step);
}

const TLineFacts& TListIndex::Facts(size_t line) const {
  static const TLineFacts NONE;
  return line < mLines.size() ? *mLines[line] : NONE;
}

bool TListIndex::IsDefined(const TPlaceName& target) const {
  if (target.IsLabel()) return mLabels.contains(target.label);
  if (IsNumbered()) return mNumbers.contains(target.line);
  return target.line >= 1 && target.line <= mFilled;
}

int64_t TListIndex::DefinitionOf(const TPlaceName& target) const {
  if (!IsDefined(target)) return -1;
  const bool counted = !target.IsLabel() && !IsNumbered();
  int64_t found = -1;
  int64_t filled = 0;
  for (size_t i = 0; i < mLines.size(); ++i) {
    const TLineFacts& facts = *mLines[i];
    filled += facts.filled;
    if (counted && filled >= target.line) return static_cast<int64_t>(i);
    const bool here =
        target.IsLabel()
            ? std::any_of(facts.labels.begin(), facts.labels.end(),
                          [&](const TPlaceName& label) { return label.label == target.label; })
            : std::find(facts.numbers.begin(), facts.numbers.end(), target.line) !=
                  facts.numbers.end();
    if (here) found = static_cast<int64_t>(i);
  }
  return found;
}

const TPlaceName* TListIndex::TargetAt(size_t line, size_t column) const {
  for (const TPlaceName& target : Facts(line).jumps) {
    if (target.begin <= column && column <= target.end) return &target;
  }
  return nullptr;
}

std::vector<std::string> TListIndex::KeysWith(const TCounts& counts, std::string_view prefix) {
  std::vector<std::string> keys;
  for (auto at = counts.lower_bound(prefix); at != counts.end(); ++at) {
    if (!at->first.starts_with(prefix)) break;
    keys.push_back(at->first);
  }
  return keys;
}

std::vector<std::string> TListIndex::NamesWith(std::string_view prefix) const {
  return KeysWith(mNames, prefix);
}

std::vector<std::string> TListIndex::LabelsWith(std::string_view prefix) const {
  return KeysWith(mLabels, prefix);
}

}  // namespace zoka
