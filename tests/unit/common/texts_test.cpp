// Catalogue, fault texts, alert bytes, random numbers.
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "common/alert.h"
#include "common/catalogue.h"
#include "common/exception.h"
#include "common/random.h"

namespace zoka {
namespace {

TEST(Catalogue, LooksTextsUp) {
  TCatalogue catalogue;
  EXPECT_EQ(catalogue.Language(), TLanguage::English);
  EXPECT_EQ(catalogue.GetString("@Runtime_Err_Div_By_Zero@"), "Division by zero");
  EXPECT_EQ(catalogue.GetString("No such key"), "No such key");
  catalogue.SetLanguage(TLanguage::Japanese);
  EXPECT_EQ(catalogue.GetString("Understand"), "了解");
  catalogue.SetLanguage(TLanguage::Keys);
  EXPECT_EQ(catalogue.GetString("@Runtime_Err_Div_By_Zero@"), "@Runtime_Err_Div_By_Zero@");
}

TEST(Catalogue, LinesAreParsed) {
  const auto texts = parse_catalogue(
      "// skipped\tline\n\nno tab\na key\tfirst\\nsecond\\t\\\\n; [x]\nempty\t\na key\tagain\n"
      "tail\tends\\");
  EXPECT_EQ(texts.size(), 3u);
  EXPECT_EQ(texts.at("a key"), "first\nsecond\t\\n; [x]");
  EXPECT_EQ(texts.at("empty"), "");
  EXPECT_EQ(texts.at("tail"), "ends\\");
}

TEST(Catalogue, PlaceholdersAreReplacedOnce) {
  EXPECT_EQ(replace_placeholder("%Num% of %Num%", "%Num%", "10"), "10 of 10");
  EXPECT_EQ(replace_placeholder("<%A%>", "%A%", "%A%%A%"), "<%A%%A%>");
  EXPECT_EQ(replace_placeholder("text", "", "x"), "text");
  EXPECT_EQ(replace_placeholder("text", "%A%", "x"), "text");
}

/// Sets the three variables and puts them back.
class TEnvironment {
 public:
  TEnvironment(const char* all, const char* messages, const char* lang) {
    Set("LC_ALL", all);
    Set("LC_MESSAGES", messages);
    Set("LANG", lang);
  }
  ~TEnvironment() {
    for (const auto& [name, value] : mOld) setenv(name.c_str(), value.c_str(), 1);
  }

 private:
  void Set(const char* name, const char* value) {
    const char* old = std::getenv(name);
    mOld.emplace_back(name, old ? old : "");
    setenv(name, value, 1);
  }
  std::vector<std::pair<std::string, std::string>> mOld;
};

TEST(Catalogue, LanguageOfTheEnvironment) {
  const auto language = [](const char* all, const char* messages, const char* lang) {
    TEnvironment environment(all, messages, lang);
    return TCatalogue::FromEnvironment();
  };
  EXPECT_EQ(language("", "", ""), TLanguage::English);
  EXPECT_EQ(language("", "", "ja_JP.UTF-8"), TLanguage::Japanese);
  EXPECT_EQ(language("", "C", "ja_JP.UTF-8"), TLanguage::English);
  EXPECT_EQ(language("ja", "C", "C"), TLanguage::Japanese);
  EXPECT_EQ(language("de_DE", "ja", "ja"), TLanguage::English);
}

TException compile_fault() {
  TException fault;
  fault.fault = TFault::Compile;
  fault.key = "@Compile_Err_Unknown_Symbol %Symbol%@";
  fault.arguments = {{"%Symbol%", "\\"}};
  fault.lineText = "0010";
  fault.ID = 10;
  return fault;
}

TEST(ExceptionText, CompileFault) {
  TException fault = compile_fault();
  EXPECT_EQ(exception_text(fault, TCatalogue(TLanguage::Keys)),
            "Compile Error\n\n@Compile_Err_Unknown_Symbol \\@\n\nLine: 0010\n");
  EXPECT_EQ(exception_text(fault, TCatalogue(TLanguage::English)),
            "Compile Error\n\nThe symbol \\ has no meaning here.\n\nLine: 0010\n");
  fault.lineText.clear();
  EXPECT_EQ(exception_text(fault, TCatalogue(TLanguage::Keys)),
            "Compile Error\n\n@Compile_Err_Unknown_Symbol \\@\n\nLine: \n");
}

TEST(ExceptionText, RuntimeFault) {
  TException fault;
  fault.key = "@Runtime_Err_Div_By_Zero@";
  fault.ID = 65000;
  EXPECT_EQ(exception_text(fault, TCatalogue(TLanguage::Keys)),
            "Runtime Error\n\n@Runtime_Err_Div_By_Zero@.\n\nLine: 65000\n");
  EXPECT_EQ(exception_text(fault, TCatalogue(TLanguage::Japanese)),
            "実行時エラー\n\n0 で除算しました.\n\n行: 65000\n");
  fault.ID = 0;
  EXPECT_EQ(exception_text(fault, TCatalogue(TLanguage::Keys)),
            "Runtime Error\n\n@Runtime_Err_Div_By_Zero@.\n\n");
}

TEST(Alert, BytesAreThoseOfTheWindow) {
  TAlert alert;
  alert.text = "Compile Error\n\nSyntax error.\n\nLine: 10\n";
  alert.title = "* Zoka-BASIC *";
  EXPECT_EQ(alert_bytes(alert), "Compile Error\n\nSyntax error.\n\nLine: 10\n\n\n* Zoka-BASIC *\n");
}

TEST(Random, SameNumbersAsTheLibrary) {
  for (unsigned seed : {0u, 1u, 42u, 0xFFFFFFFFu}) {
    TRandom random;
    random.Seed(seed);
    std::srand(seed);
    for (int i = 0; i < 1000; ++i) ASSERT_EQ(random.Next(), std::rand()) << seed << ' ' << i;
  }
}

TEST(Random, BeginsAsIfSeededWithOne) {
  TRandom fresh;
  TRandom seeded;
  seeded.Seed(1);
  for (int i = 0; i < 100; ++i) ASSERT_EQ(fresh.Next(), seeded.Next());
}

}  // namespace
}  // namespace zoka
