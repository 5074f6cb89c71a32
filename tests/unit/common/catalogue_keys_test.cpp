// The catalogues against each other and against the sources: both languages have the same keys,
// every key in the sources is among them, and none is there in vain.
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "common/catalogue.h"

namespace zoka {
namespace {

namespace fs = std::filesystem;

const char* const SOURCE_FOLDERS[] = {"common", "app",   "core",     "compiler", "vm",
                                      "run",    "sound", "debugger", "editor",   "console"};

std::string read_file(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

// ---- The words of a C++ source: names, punctuation, string literals; no comments.

struct TWord {
  enum class TKind { Name, Mark, Literal } kind;
  std::string text;
};

class TSource {
 public:
  explicit TSource(std::string text) : mText(std::move(text)) {
    while (mPos < mText.size()) Step();
  }
  const std::vector<TWord>& Words() const { return mWords; }

 private:
  bool At(std::string_view what) const {
    return std::string_view(mText).substr(mPos).starts_with(what);
  }
  void SkipTo(std::string_view end) {
    const size_t found = mText.find(end, mPos);
    mPos = found == std::string::npos ? mText.size() : found + end.size();
  }
  void Step() {
    const auto c = static_cast<unsigned char>(mText[mPos]);
    if (At("//")) return SkipTo("\n");
    if (At("/*")) return SkipTo("*/");
    if (At("R\"")) return RawLiteral();
    if (c == '"') return Literal();
    if (c == '\'') return Character();
    if (std::isalnum(c) || c == '_') return Name();
    if (!std::isspace(c)) mWords.push_back({TWord::TKind::Mark, std::string(1, mText[mPos])});
    ++mPos;
  }
  void Name() {
    const size_t begin = mPos;
    // A quote inside a number only groups its digits.
    const bool number = std::isdigit(static_cast<unsigned char>(mText[mPos]));
    while (mPos < mText.size() && (std::isalnum(static_cast<unsigned char>(mText[mPos])) ||
                                   mText[mPos] == '_' || (number && mText[mPos] == '\''))) {
      ++mPos;
    }
    mWords.push_back({TWord::TKind::Name, mText.substr(begin, mPos - begin)});
  }
  void Character() {
    for (++mPos; mPos < mText.size() && mText[mPos] != '\''; ++mPos) mPos += mText[mPos] == '\\';
    ++mPos;
  }
  void RawLiteral() {
    mPos += 2;
    const size_t open = mText.find('(', mPos);
    const std::string end = ")" + mText.substr(mPos, open - mPos) + "\"";
    mPos = open + 1;
    const size_t begin = mPos;
    SkipTo(end);
    AddLiteral(mText.substr(begin, mPos - end.size() - begin));
  }
  void Literal() {
    std::string text;
    for (++mPos; mPos < mText.size() && mText[mPos] != '"'; ++mPos) {
      if (mText[mPos] != '\\') {
        text += mText[mPos];
        continue;
      }
      const char escaped = mText[++mPos];
      text += escaped == 'n' ? '\n' : escaped == 't' ? '\t' : escaped;
    }
    ++mPos;
    AddLiteral(text);
  }
  /// Literals side by side are one.
  void AddLiteral(const std::string& text) {
    if (!mWords.empty() && mWords.back().kind == TWord::TKind::Literal) {
      mWords.back().text += text;
    } else {
      mWords.push_back({TWord::TKind::Literal, text});
    }
  }

  std::string mText;
  size_t mPos = 0;
  std::vector<TWord> mWords;
};

// ---- Keys in a source.

class TKeyFinder {
 public:
  explicit TKeyFinder(const std::vector<TWord>& words) : mWords(words) {
    for (size_t i = 0; i < mWords.size(); ++i) Look(i);
  }
  std::set<std::string> keys;      // what is surely looked up
  std::set<std::string> literals;  // all that may be

 private:
  bool Is(size_t at, std::string_view text) const {
    return at < mWords.size() && mWords[at].kind != TWord::TKind::Literal &&
           mWords[at].text == text;
  }
  bool IsLiteral(size_t at) const {
    return at < mWords.size() && mWords[at].kind == TWord::TKind::Literal;
  }
  void Look(size_t i) {
    if (IsLiteral(i)) {
      const std::string& text = mWords[i].text;
      literals.insert(text);
      // "@...@" is a key wherever it stands.
      if (text.size() > 2 && text.front() == '@' && text.back() == '@') keys.insert(text);
    }
    if (Is(i, "GetString") && Is(i + 1, "(") && Is(i + 3, ")")) Argument(i + 2);
    if (Is(i, "merged_label") && Is(i + 1, "(") && Is(i + 3, ",")) Argument(i + 4);
  }
  void Argument(size_t at) {
    if (IsLiteral(at)) {
      keys.insert(mWords[at].text);
    } else {
      Constant(mWords[at].text);
    }
  }
  /// A named constant of the same file: NAME = "..." or NAME[] = "...".
  void Constant(const std::string& name) {
    for (size_t i = 0; i < mWords.size(); ++i) {
      if (!Is(i, name)) continue;
      const size_t equals = Is(i + 1, "[") && Is(i + 2, "]") ? i + 3 : i + 1;
      if (Is(equals, "=") && IsLiteral(equals + 1)) keys.insert(mWords[equals + 1].text);
    }
  }

  const std::vector<TWord>& mWords;
};

TEST(CatalogueKeys, AreFoundInSources) {
  const TSource source(R"x(
    // "@Comment@" and GetString("comment")
    /* "@Other@" */
    constexpr char KEY[] = "constant"; const char* q = '"' ? "@A" " B@" : R"(@Raw@)";
    int n = 1'000'000; GetString("plain \"x\""); GetString(KEY); prefs.GetString("item", &x);
    merged_label(context, "label", "K"); f("@L"); f("@@");
  )x");
  const TKeyFinder found(source.Words());
  EXPECT_EQ(found.keys,
            (std::set<std::string>{"@A B@", "@Raw@", "constant", "label", "plain \"x\""}));
  EXPECT_TRUE(found.literals.contains("item"));
  EXPECT_FALSE(found.literals.contains("comment"));
}

// ---- The catalogues.

using TTexts = std::map<std::string, std::string>;

TTexts catalogue_texts(const char* source) {
  TTexts texts;
  for (const auto& [key, text] : parse_catalogue(source)) texts[std::string(key)] = text;
  return texts;
}

/// Names between percent signs, with how often they stand there.
std::map<std::string, int> placeholders(const std::string& text) {
  std::map<std::string, int> found;
  for (size_t i = text.find('%'); i != std::string::npos; i = text.find('%', i)) {
    size_t end = i + 1;
    while (end < text.size() && std::isalnum(static_cast<unsigned char>(text[end]))) ++end;
    const bool closed = end > i + 1 && end < text.size() && text[end] == '%';
    if (closed) ++found[text.substr(i, end + 1 - i)];
    i = closed ? end + 1 : i + 1;
  }
  return found;
}

TEST(CatalogueKeys, AreTheSameInBothLanguages) {
  const TTexts english = catalogue_texts(CATALOGUE_EN);
  const TTexts japanese = catalogue_texts(CATALOGUE_JA);
  EXPECT_GE(english.size(), 54u);
  for (const auto& [key, text] : english) EXPECT_TRUE(japanese.contains(key)) << key;
  for (const auto& [key, text] : japanese) EXPECT_TRUE(english.contains(key)) << key;
}

TEST(CatalogueKeys, TextsUseThePlaceholdersOfTheirKeys) {
  for (const char* source : {CATALOGUE_EN, CATALOGUE_JA}) {
    for (const auto& [key, text] : catalogue_texts(source)) {
      EXPECT_FALSE(text.empty()) << key;
      EXPECT_EQ(placeholders(text), placeholders(key)) << key;
    }
  }
}

TEST(CatalogueKeys, RuntimeTextsHaveNoFullStopOfTheirOwn) {
  for (const char* source : {CATALOGUE_EN, CATALOGUE_JA}) {
    for (const auto& [key, text] : catalogue_texts(source)) {
      if (!key.starts_with("@Runtime_Err_")) continue;
      EXPECT_FALSE(text.ends_with(".") || text.ends_with("。")) << key;
    }
  }
}

TEST(CatalogueKeys, StandOnceInEachLanguageAndInProperLines) {
  for (const char* language : {"en", "ja"}) {
    std::set<std::string> keys;
    const fs::path folder = fs::path(ZOKA_SOURCE_DIR) / "locale" / language;
    for (const auto& entry : fs::directory_iterator(folder)) {
      std::istringstream file(read_file(entry.path()));
      for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.starts_with("//")) continue;
        const size_t tab = line.find('\t');
        ASSERT_NE(tab, std::string::npos) << entry.path() << ": " << line;
        EXPECT_TRUE(keys.insert(line.substr(0, tab)).second) << entry.path() << ": " << line;
      }
    }
  }
}

struct TSourceKeys {
  std::map<std::string, std::string> keys;  // key and a file that has it
  std::set<std::string> literals;
};

TSourceKeys keys_of_sources() {
  TSourceKeys result;
  for (const char* folder : SOURCE_FOLDERS) {
    const fs::path root = fs::path(ZOKA_SOURCE_DIR) / folder;
    if (!fs::exists(root)) continue;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
      const std::string ext = entry.path().extension();
      if (ext != ".h" && ext != ".cpp" && ext != ".def") continue;
      const TSource source(read_file(entry.path()));
      const TKeyFinder found(source.Words());
      for (const std::string& key : found.keys) result.keys[key] = entry.path();
      result.literals.insert(found.literals.begin(), found.literals.end());
    }
  }
  return result;
}

TEST(CatalogueKeys, OfTheSourcesHaveTexts) {
  const TTexts texts = catalogue_texts(CATALOGUE_EN);
  const TSourceKeys sources = keys_of_sources();
  EXPECT_TRUE(sources.keys.contains("Compile Error"));
  for (const auto& [key, file] : sources.keys) {
    EXPECT_TRUE(texts.contains(key)) << key << " in " << file << " has no line in locale/";
  }
}

TEST(CatalogueKeys, AreAllUsed) {
  const std::set<std::string> used = keys_of_sources().literals;
  for (const auto& [key, text] : catalogue_texts(CATALOGUE_EN)) {
    EXPECT_TRUE(used.contains(key)) << key << " is in locale/ but nowhere in the sources";
  }
}

}  // namespace
}  // namespace zoka
