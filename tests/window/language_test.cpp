// The language changes while everything is open: each text of each window is the one of the
// catalogue in the new language, at the same place.
#include <QRegularExpression>
#include <algorithm>

#include "common/catalogue.h"
#include "tests/window/shown_texts.h"
#include "tests/window/walk_rig.h"

namespace zoka {
namespace {

/// The catalogue's texts as patterns: what stands for a placeholder may be anything.
class TBothLanguages {
 public:
  TBothLanguages() {
    const auto english = parse_catalogue(CATALOGUE_EN);
    for (const auto& [key, text] : parse_catalogue(CATALOGUE_JA)) {
      const auto found = english.find(key);
      // What is a placeholder and nothing else would match anything.
      if (found == english.end() || std::string_view(key) == "%AppAuthor%") continue;
      mPatterns.push_back({Pattern(found->second), Pattern(text)});
    }
  }

  /// True if some entry has the one text in English and the other in Japanese, with the same
  /// things for its placeholders.
  bool Translates(const QString& english, const QString& japanese) const {
    return std::any_of(mPatterns.begin(), mPatterns.end(), [&](const auto& pattern) {
      const auto left = pattern.first.match(english);
      const auto right = pattern.second.match(japanese);
      return left.hasMatch() && right.hasMatch() && Values(left) == Values(right);
    });
  }

 private:
  static QRegularExpression Pattern(const std::string& text) {
    static const QRegularExpression PLACEHOLDER("%([A-Za-z0-9]+)%");
    const QString plain = plain_text(QString::fromStdString(text));
    QString pattern;
    qsizetype at = 0;
    for (auto found = PLACEHOLDER.globalMatch(plain); found.hasNext();) {
      const auto match = found.next();
      pattern += QRegularExpression::escape(plain.mid(at, match.capturedStart() - at));
      pattern += "(.+)";
      at = match.capturedEnd();
    }
    pattern += QRegularExpression::escape(plain.mid(at));
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                              QRegularExpression::DotMatchesEverythingOption);
  }
  static QStringList Values(const QRegularExpressionMatch& match) {
    QStringList values = match.capturedTexts().mid(1);
    values.sort();
    return values;
  }

  std::vector<std::pair<QRegularExpression, QRegularExpression>> mPatterns;
};

bool has_letters(const QString& text) {
  return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
}

/// Names that are the same in all languages.
bool is_name(const QString& text) {
  static const QRegularExpression NAMES(
      "^((\\* )?Zoka-BASIC( .*)?|Built-in "
      "Synthesizer|[a-z0-9-]+(\\.bas)?|.*zoka-test-.*|\\(\\*.*\\)|"
      "a\\)|a・|a -)$");
  return NAMES.match(text).hasMatch();
}

/// Texts that are put together of several.
QStringList parts_of(const QString& text) {
  static const QRegularExpression SEAMS(" - |\\n\\n|(?<=Zoka-BASIC) | (?=\\(\\*| *\\[|\\.\\.\\.$)");
  return text.split(SEAMS);
}

bool is_translated(const TBothLanguages& catalogue, const QString& english,
                   const QString& japanese) {
  if (catalogue.Translates(english, japanese)) return true;
  if (english == japanese && (!has_letters(english) || is_name(english))) return true;
  const QStringList left = parts_of(english);
  const QStringList right = parts_of(japanese);
  if (left.size() < 2 || left.size() != right.size()) return false;
  for (qsizetype i = 0; i < left.size(); ++i) {
    if (!is_translated(catalogue, left[i].trimmed(), right[i].trimmed())) return false;
  }
  return true;
}

/// Where two windows that should be alike stop being so.
std::string first_difference(const std::vector<TShownText>& a, const std::vector<TShownText>& b) {
  for (size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
    if (a[i].place == b[i].place) continue;
    return (a[i].place + ": " + a[i].text + " | " + b[i].place + ": " + b[i].text).toStdString();
  }
  return "at the end";
}

class LanguageChange : public TWalkRig {
 protected:
  /// All windows are made, and those that may stay open together are.
  void OpenAll() {
    ForEachWindow([](const TWalkedWindow&, QWidget&) {});
  }
  using TTextsOfWindows = std::map<std::string, std::vector<TShownText>>;
  TTextsOfWindows Texts() {
    TTextsOfWindows texts;
    ForEachWindow([&](const TWalkedWindow& walked, QWidget& window) {
      texts[walked.name] = shown_texts(window);
    });
    return texts;
  }
};

TEST_F(LanguageChange, ReachesEveryTextOfEveryWindow) {
  const TBothLanguages catalogue;
  OpenAll();
  const TTextsOfWindows english = Texts();
  Speak(TLanguage::Japanese);
  const TTextsOfWindows japanese = Texts();
  size_t count = 0;
  for (const auto& [name, texts] : english) {
    SCOPED_TRACE(name);
    const std::vector<TShownText>& others = japanese.at(name);
    ASSERT_EQ(texts.size(), others.size()) << first_difference(texts, others);
    for (size_t i = 0; i < texts.size(); ++i) {
      EXPECT_EQ(texts[i].place.toStdString(), others[i].place.toStdString());
      EXPECT_TRUE(is_translated(catalogue, plain_text(texts[i].text), plain_text(others[i].text)))
          << texts[i].place.toStdString() << ": " << texts[i].text.toStdString() << " | "
          << others[i].text.toStdString();
      ++count;
    }
  }
  EXPECT_GT(count, 300U);
  // And all the way back.
  Speak(TLanguage::English);
  for (const auto& [name, texts] : Texts()) {
    const std::vector<TShownText>& before = english.at(name);
    ASSERT_EQ(texts.size(), before.size()) << name;
    for (size_t i = 0; i < texts.size(); ++i) {
      EXPECT_EQ(texts[i].text.toStdString(), before[i].text.toStdString())
          << name << " " << texts[i].place.toStdString();
    }
  }
}

TEST_F(LanguageChange, ReachesWhatIsOnTheScreen) {
  // Not closed and opened again: what stays open must change where it stands.
  std::vector<std::pair<const TWalkedWindow*, QWidget*>> open;
  for (const TWalkedWindow& walked : walked_windows()) {
    // The question stops the others, and the first page covers the main window.
    const std::string_view name = walked.name;
    if (name == "question" || name == "first-start") continue;
    open.emplace_back(&walked, open_walked_window(walked, mWalked));
    ASSERT_NE(open.back().second, nullptr) << walked.name;
  }
  Speak(TLanguage::Japanese);
  for (const auto& [walked, window] : open) {
    const auto shown = shown_texts(*window);
    close_walked_window(*window, mWalked);
    const auto anew = shown_texts(*open_walked_window(*walked, mWalked));
    ASSERT_EQ(shown.size(), anew.size()) << walked->name;
    for (size_t i = 0; i < shown.size(); ++i) {
      EXPECT_EQ(shown[i].text.toStdString(), anew[i].text.toStdString())
          << walked->name << shown[i].place.toStdString();
    }
  }
}

TEST_F(LanguageChange, TheFormatWithoutLettersStaysPlainInBothLanguages) {
  OpenAll();
  ASSERT_TRUE(mEngine->Context().interAppPrefs->SetString(ACC_KEY_FORMAT_ITEM, ""));
  mApp->PostMessage(TMessage(IAP_CHANGED_CODE));
  static const QRegularExpression LETTER("\\((&?[A-Z0-9]|F1)\\)");
  for (const TLanguage language : {TLanguage::English, TLanguage::Japanese, TLanguage::English}) {
    Speak(language);
    for (const auto& [name, texts] : Texts()) {
      // File panels have letters of the toolkit.
      if (name == "open" || name == "save" || name == "folder") continue;
      for (const TShownText& text : texts) {
        EXPECT_FALSE(LETTER.match(text.text).hasMatch())
            << name << " " << text.place.toStdString() << ": " << text.text.toStdString();
      }
    }
  }
}

TEST_F(LanguageChange, OtherFormatsReachEveryLabelToo) {
  OpenAll();
  ASSERT_TRUE(mEngine->Context().interAppPrefs->SetString(ACC_KEY_FORMAT_ITEM,
                                                          "\x01"
                                                          "a - "));
  mApp->PostMessage(TMessage(IAP_CHANGED_CODE));
  run_event_rounds();
  const auto has = [](const std::vector<TShownText>& texts, const char* text) {
    return std::any_of(texts.begin(), texts.end(),
                       [text](const TShownText& shown) { return shown.text == text; });
  };
  const TTextsOfWindows texts = Texts();
  EXPECT_TRUE(has(texts.at("main"), "&F - File"));
  EXPECT_TRUE(has(texts.at("run"), "&W - Window"));
  EXPECT_TRUE(has(texts.at("preferences"), "&D - Defaults"));
  EXPECT_TRUE(has(texts.at("common"), "&D - Defaults"));
  EXPECT_TRUE(has(texts.at("go-to-line"), "&G - Go"));
  EXPECT_TRUE(has(texts.at("run-line"), "&R - Run"));
  EXPECT_TRUE(has(texts.at("renumber"), "&S - Step: "));
  // Alerts know their letters only in parentheses or in front of a dot.
  EXPECT_TRUE(has(texts.at("question"), "Y - Yes"));
}

}  // namespace
}  // namespace zoka
