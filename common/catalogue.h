// The message catalogues: user-visible text by key, in English or Japanese. The texts lie in
// locale/<language>/*.txt and are compiled in.
#pragma once

#include <atomic>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zoka {

extern const char CATALOGUE_EN[];
extern const char CATALOGUE_JA[];

/// The language of messages. Keys shows each key as it stands.
enum class TLanguage : uint8_t { English, Japanese, Keys };

/// Looks texts up by key. A file's line is `key<TAB>text`, with \n, \t and \\ escapes in the text;
/// empty lines and lines that begin with `//` are skipped. A key without an entry yields itself.
/// Each language's texts are read once a process, when the first of them is looked up. Any thread.
class TCatalogue {
 public:
  explicit TCatalogue(TLanguage language = TLanguage::English) : mLanguage(language) {}

  TLanguage Language() const { return mLanguage.load(std::memory_order_relaxed); }
  /// Changes the language of the look-ups yet to come.
  void SetLanguage(TLanguage language) { mLanguage.store(language, std::memory_order_relaxed); }

  /// The text of `key` in the catalogue's language.
  std::string GetString(std::string_view key) const;

  /// The language that the environment asks for: LC_ALL, LC_MESSAGES, LANG; "ja..." is Japanese.
  static TLanguage FromEnvironment();

 private:
  std::atomic<TLanguage> mLanguage;
};

/// The texts of one catalogue file or of several put together, by key; the keys lie in `source`. Of
/// two equal keys the first counts. Lines without a tab are skipped.
std::unordered_map<std::string_view, std::string> parse_catalogue(std::string_view source);

/// `text` with every `placeholder` (such as "%Num%") replaced by `value`.
std::string replace_placeholder(std::string text, std::string_view placeholder,
                                std::string_view value);

}  // namespace zoka
