// The list of generators against the keyword rows, and every keyword through the compiler.
#include <algorithm>
#include <set>

#include "compile_rows.h"

namespace zoka {
namespace {

using TNames = std::multiset<std::string>;

TEST(GeneratorTables, ListAgreesWithTheKeywords) {
  std::set<std::string> statements;
  std::set<std::string> functions;
#define ZOKA_BOTH(spelling, operation, statement, function) \
  statements.insert(#statement);                            \
  functions.insert(#function);
#define ZOKA_STATEMENT(spelling, operation, generator) statements.insert(#generator);
#define ZOKA_FUNCTION(spelling, operation, generator) functions.insert(#generator);
#include "core/keywords.def"
  statements.erase("Missing");  // no generator of its own
  TNames listedStatements;
  TNames listedFunctions;
#define ZOKA_STATEMENT_GENERATOR(generator) listedStatements.insert(#generator);
#define ZOKA_FUNCTION_GENERATOR(generator) listedFunctions.insert(#generator);
#include "compiler/generators.def"
  EXPECT_EQ(listedStatements, TNames(statements.begin(), statements.end()));
  EXPECT_EQ(listedFunctions, TNames(functions.begin(), functions.end()));
}

// Functions of the rows are functions of the keywords, once each.
TEST(GeneratorTables, FunctionRowsAreKeywords) {
  TNames rows;
#define ZOKA_MATH(name) rows.insert(#name);
#define ZOKA_ONE_ARG(name, ...) rows.insert(#name);
#define ZOKA_NO_ARG(name, ...) rows.insert(#name);
#define ZOKA_INSTR(name) rows.insert(#name);
#define ZOKA_MID(name, ...) rows.insert(#name);
#define ZOKA_TWO_ARGS(name, ...) rows.insert(#name);
#define ZOKA_OPTIONAL_ARG(name, ...) rows.insert(#name);
#define ZOKA_ZERO(name) rows.insert(#name);
#define ZOKA_EMPTY(name) rows.insert(#name);
#include "compiler/functions.def"
  for (const char* byHand : {"Erl", "Err", "Mouse", "Point", "Rnd", "Search"}) rows.insert(byHand);
  TNames listed;
#define ZOKA_FUNCTION_GENERATOR(generator) listed.insert(#generator);
#include "compiler/generators.def"
  EXPECT_EQ(rows, listed);
}

// No keyword runs into an empty place of the tables, whatever follows it.
TEST(GeneratorTables, EveryKeywordEndsInCodeOrAFault) {
  std::vector<std::string> words;
#define ZOKA_CONTROL_WORD(spelling, kind) words.push_back(spelling);
#define ZOKA_BOTH(spelling, ...) words.push_back(spelling);
#define ZOKA_FUNCTION(spelling, ...) words.push_back(spelling);
#define ZOKA_STATEMENT(spelling, ...) words.push_back(spelling);
#include "core/keywords.def"
  constexpr const char* TAILS[] = {
      "",       " ",      "?",   " ?",    "(",     " )",      " ,",      " ;",    " :",
      " 1",     " \"A\"", " A",  " *",    " *L",   " =",      "=",       " -",    " #1",
      " #1,",   " STEP",  " @",  " FOR",  " TO",   " THEN",   " ELSE",   " NEXT", " GOTO",
      " PRINT", " (1,2)", " &H", " \xE3", " \x7F", " (1,2)-", " (1,2),", " ON"};
  for (const std::string& word : words) {
    for (const std::string tail : TAILS) {
      for (const char* head : {"10 ", "10 A="}) {
        const TCompilation compilation(head + word + tail);
        const bool failed = compilation.result == TCompileResult::Failed;
        EXPECT_EQ(failed, !compilation.key.empty()) << head << word << tail;
      }
    }
  }
}

}  // namespace
}  // namespace zoka
