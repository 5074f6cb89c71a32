// Reading and looking up the message catalogues.
#include "common/catalogue.h"

#include <cstdlib>

#include "common/immortal.h"

namespace zoka {

namespace {

using TTexts = std::unordered_map<std::string_view, std::string>;

std::string unescape(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      result += text[i];
      continue;
    }
    const char escaped = text[++i];
    result += escaped == 'n' ? '\n' : escaped == 't' ? '\t' : escaped;
  }
  return result;
}

const TTexts& language_texts(TLanguage language) {
  static const auto& none = immortal<TTexts>();
  if (language == TLanguage::English) {
    static const auto& english = immortal<TTexts>(parse_catalogue(CATALOGUE_EN));
    return english;
  }
  if (language == TLanguage::Japanese) {
    static const auto& japanese = immortal<TTexts>(parse_catalogue(CATALOGUE_JA));
    return japanese;
  }
  return none;
}

}  // namespace

std::unordered_map<std::string_view, std::string> parse_catalogue(std::string_view source) {
  TTexts texts;
  while (!source.empty()) {
    const size_t end = source.find('\n');
    const std::string_view line = source.substr(0, end);
    source.remove_prefix(end == std::string_view::npos ? source.size() : end + 1);
    const size_t tab = line.find('\t');
    if (line.starts_with("//") || tab == std::string_view::npos) continue;
    texts.emplace(line.substr(0, tab), unescape(line.substr(tab + 1)));
  }
  return texts;
}

std::string TCatalogue::GetString(std::string_view key) const {
  const TTexts& texts = language_texts(Language());
  const auto it = texts.find(key);
  return it == texts.end() ? std::string(key) : it->second;
}

TLanguage TCatalogue::FromEnvironment() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (!value || !*value) continue;
    return std::string_view(value).starts_with("ja") ? TLanguage::Japanese : TLanguage::English;
  }
  return TLanguage::English;
}

std::string replace_placeholder(std::string text, std::string_view placeholder,
                                std::string_view value) {
  if (placeholder.empty()) return text;
  size_t at = 0;
  while ((at = text.find(placeholder, at)) != std::string::npos) {
    text.replace(at, placeholder.size(), value);
    at += value.size();
  }
  return text;
}

}  // namespace zoka
