// Marking mnemonics.
#include "common/window/menu_label.h"

#include "app/settings/inter_app_prefs.h"
#include "common/label.h"

namespace zoka {
namespace {

/// `text` with each & doubled, and a single one in front of the byte at `mark` (npos: nowhere).
QString escaped(std::string_view text, size_t mark) {
  std::string result;
  for (size_t i = 0; i < text.size(); ++i) {
    if (i == mark) result += '&';
    result += text[i];
    if (text[i] == '&') result += '&';
  }
  return QString::fromStdString(result);
}

/// Where in `merged` the key stands that the format put into `text`; npos if nowhere.
size_t key_position(const std::string& format, std::string_view key, const std::string& text,
                    const std::string& merged) {
  const std::string_view pattern = std::string_view(format).substr(1);
  const size_t keyInPattern = pattern.find('a');
  if (keyInPattern == pattern.npos) return std::string::npos;
  const size_t length = merged.size() - text.size();
  for (size_t at = 0; at + length <= merged.size(); ++at) {
    if (merged.substr(0, at) + merged.substr(at + length) != text) continue;
    const size_t place = at + keyInPattern;
    if (std::string_view(merged).substr(place).starts_with(key)) return place;
  }
  return std::string::npos;
}

}  // namespace

QString plain_label(const std::string& text) {
  return escaped(text, std::string::npos);
}

QString menu_label(const TEngineContext& context, const std::string& text, std::string_view key) {
  const std::string format = context.interAppPrefs ? context.interAppPrefs->AccKeyFormat()
                                                   : std::string(DEFAULT_ACC_KEY_FORMAT);
  const std::string merged = merge_accelerator_key(format, key, text);
  if (key.size() != 1 || merged.size() <= text.size()) return plain_label(merged);
  return escaped(merged, key_position(format, key, text, merged));
}

QString marked_label(const std::string& merged) {
  const char letter = short_cut_from_label(merged);
  if (letter == 0) return plain_label(merged);
  const size_t open = merged.rfind('(');
  if (open != merged.npos && open + 2 < merged.size() && merged[open + 2] == ')') {
    return escaped(merged, open + 1);
  }
  return escaped(merged, 0);
}

QString localized(const TEngineContext& context, const char* key) {
  return QString::fromStdString(context.catalogue->GetString(key));
}

}  // namespace zoka
