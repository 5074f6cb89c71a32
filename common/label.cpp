// Merging keys into labels and finding them there.
#include "common/label.h"

#include "common/catalogue.h"

namespace zoka {

namespace {

/// What closes a label, in the order in which it is looked for.
constexpr std::string_view CLOSINGS[] = {"...", "[", "：", ":"};

size_t closing_position(std::string_view label) {
  for (std::string_view closing : CLOSINGS) {
    if (const size_t at = label.rfind(closing); at != std::string_view::npos) return at;
  }
  return label.size();
}

/// The letter or digit in lower case; 0 for any other byte.
char key_of(char c) {
  if (c >= 'A' && c <= 'Z') return static_cast<char>(c - 'A' + 'a');
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ? c : '\0';
}

}  // namespace

std::string merge_accelerator_key(std::string_view format, std::string_view key,
                                  std::string_view label) {
  std::string merged(label);
  if (format.empty() || key.empty()) return merged;
  const std::string pattern = replace_placeholder(std::string(format.substr(1)), "a", key);
  if (format[0] == ACC_KEY_IN_FRONT) merged.insert(0, pattern);
  if (format[0] == ACC_KEY_BEHIND) merged.insert(closing_position(label), pattern);
  return merged;
}

char short_cut_from_label(std::string_view label) {
  const size_t open = label.rfind('(');
  if (open != std::string_view::npos && open > 0 && open + 2 < label.size() &&
      label[open + 2] == ')') {
    return key_of(label[open + 1]);
  }
  if (label.size() > 1 && label.substr(1).starts_with("・")) return key_of(label[0]);
  return '\0';
}

}  // namespace zoka
