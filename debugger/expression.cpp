// Recursive descent over the text of an expression; the value is made on the way.
#include "debugger/expression.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <vector>

#include "common/text/ascii.h"
#include "vm/stack_data.h"

namespace zoka {
namespace {

/// Deepest nesting of parentheses and signs.
constexpr int MAX_NESTING = 200;

constexpr std::string_view SUFFIXES = "%!#$";
/// Where a name without a suffix is looked for, in this order.
constexpr std::string_view SUFFIX_ORDER = "!%#$";

/// Ends the evaluation; never leaves this file.
struct TNoValue {};

TExprValue number_value(double number) {
  return {false, number, {}};
}

TExprValue truth(bool flag) {
  return number_value(flag ? -1 : 0);
}

double number_of(const TExprValue& value) {
  if (value.isText) throw TNoValue{};
  return value.number;
}

int32_t int_of(const TExprValue& value) {
  return round_off(number_of(value));
}

class TEvaluator {
 public:
  TEvaluator(std::string_view text, TMidCode& program) : mText(text), mProgram(program) {}

  TExprValue Whole() {
    TExprValue value = Xor();
    SkipBlanks();
    if (mPos != mText.size()) throw TNoValue{};
    return value;
  }

 private:
  void SkipBlanks() {
    while (mPos < mText.size() && is_space(mText[mPos])) ++mPos;
  }
  char Next() {
    SkipBlanks();
    return mPos < mText.size() ? mText[mPos] : '\0';
  }
  bool Take(char c) {
    if (Next() != c) return false;
    ++mPos;
    return true;
  }
  static bool IsNameChar(char c) { return is_letter(c) || is_digit(c) || c == '_'; }
  /// Takes a whole word, in upper case or not.
  bool TakeWord(std::string_view word) {
    SkipBlanks();
    if (mText.size() - mPos < word.size()) return false;
    for (size_t i = 0; i < word.size(); ++i) {
      if (to_upper(mText[mPos + i]) != word[i]) return false;
    }
    const size_t end = mPos + word.size();
    if (end < mText.size() && IsNameChar(mText[end])) return false;
    mPos = end;
    return true;
  }

  TExprValue Xor() {
    TExprValue left = Or();
    while (TakeWord("XOR")) left = number_value(int_of(left) ^ int_of(Or()));
    return left;
  }
  TExprValue Or() {
    TExprValue left = And();
    while (TakeWord("OR")) left = number_value(int_of(left) | int_of(And()));
    return left;
  }
  TExprValue And() {
    TExprValue left = Not();
    while (TakeWord("AND")) left = number_value(int_of(left) & int_of(Not()));
    return left;
  }
  TExprValue Not() {
    if (!TakeWord("NOT")) return Comparison();
    const TNesting nesting(*this);
    return number_value(~int_of(Not()));
  }

  TExprValue Comparison() {
    TExprValue left = Sum();
    for (std::string op = TakeComparison(); !op.empty(); op = TakeComparison()) {
      left = truth(Compare(left, op, Sum()));
    }
    return left;
  }
  std::string TakeComparison() {
    std::string op;
    for (char c = Next(); op.size() < 2 && (c == '<' || c == '=' || c == '>'); c = Next()) {
      op += c;
      ++mPos;
    }
    return op;
  }
  static bool Compare(const TExprValue& left, const std::string& op, const TExprValue& right) {
    if (left.isText != right.isText) throw TNoValue{};
    const int order = left.isText ? left.text.compare(right.text)
                                  : (left.number > right.number) - (left.number < right.number);
    if (op == "=") return order == 0;
    if (op == "<") return order < 0;
    if (op == ">") return order > 0;
    if (op == "<>" || op == "><") return order != 0;
    if (op == "<=" || op == "=<") return order <= 0;
    if (op == ">=" || op == "=>") return order >= 0;
    throw TNoValue{};
  }

  TExprValue Sum() {
    TExprValue left = Mod();
    for (;;) {
      if (Take('+')) {
        left = Add(left, Mod());
      } else if (Take('-')) {
        left = number_value(number_of(left) - number_of(Mod()));
      } else {
        return left;
      }
    }
  }
  static TExprValue Add(const TExprValue& left, const TExprValue& right) {
    if (left.isText != right.isText) throw TNoValue{};
    if (left.isText) return {true, 0, left.text + right.text};
    return number_value(left.number + right.number);
  }
  TExprValue Mod() {
    TExprValue left = IntQuotient();
    while (TakeWord("MOD")) {
      const int64_t dividend = int_of(left);
      const int64_t rest = dividend % Divisor(IntQuotient());
      left = number_value(static_cast<double>(rest));
    }
    return left;
  }
  TExprValue IntQuotient() {
    TExprValue left = Product();
    while (Take('\\')) {
      const int64_t dividend = int_of(left);
      const int64_t quotient = dividend / Divisor(Product());
      left = number_value(static_cast<double>(quotient));
    }
    return left;
  }
  static int64_t Divisor(const TExprValue& value) {
    const int32_t divisor = int_of(value);
    if (divisor == 0) throw TNoValue{};
    return divisor;
  }
  TExprValue Product() {
    TExprValue left = Sign();
    for (;;) {
      if (Take('*')) {
        left = number_value(number_of(left) * number_of(Sign()));
      } else if (Take('/')) {
        const double divisor = number_of(Sign());
        if (divisor == 0) throw TNoValue{};
        left = number_value(number_of(left) / divisor);
      } else {
        return left;
      }
    }
  }
  TExprValue Sign() {
    const TNesting nesting(*this);
    if (Take('-')) return number_value(-number_of(Sign()));
    if (Take('+')) return number_value(number_of(Sign()));
    return Power();
  }
  TExprValue Power() {
    TExprValue base = Operand();
    while (Take('^')) {
      const bool negative = Take('-');
      const double exponent = number_of(Operand());
      base = number_value(std::pow(number_of(base), negative ? -exponent : exponent));
    }
    return base;
  }

  TExprValue Operand() {
    const char c = Next();
    if (c == '(') return InParentheses();
    if (c == '"') return Quoted();
    if (is_digit(c) || c == '.' || c == '&') return Number();
    if (is_letter(c)) return Variable();
    throw TNoValue{};
  }
  TExprValue InParentheses() {
    const TNesting nesting(*this);
    ++mPos;
    TExprValue value = Xor();
    if (!Take(')')) throw TNoValue{};
    return value;
  }
  TExprValue Quoted() {
    const size_t end = std::min(mText.find('"', mPos + 1), mText.size());
    TExprValue value{true, 0, std::string(mText.substr(mPos + 1, end - mPos - 1))};
    mPos = std::min(end + 1, mText.size());
    return value;
  }
  TExprValue Number() {
    const size_t begin = mPos;
    if (mText[mPos] == '&') ++mPos;
    while (mPos < mText.size() && IsNumberChar(begin)) ++mPos;
    const std::optional<double> number = whole_number(mText.substr(begin, mPos - begin));
    if (!number) throw TNoValue{};
    return number_value(*number);
  }
  bool IsNumberChar(size_t begin) const {
    const char c = mText[mPos];
    if (mText[begin] == '&') return is_letter(c) || is_digit(c);
    const bool sign = c == '+' || c == '-';
    if (sign) return mPos > begin && to_upper(mText[mPos - 1]) == 'E';
    return is_digit(c) || c == '.' || to_upper(c) == 'E';
  }

  TExprValue Variable() {
    std::string name;
    for (; mPos < mText.size() && IsNameChar(mText[mPos]); ++mPos) name += to_upper(mText[mPos]);
    if (mPos < mText.size() && SUFFIXES.find(mText[mPos]) != SUFFIXES.npos) name += mText[mPos++];
    const TVarInfo* var = FindVariable(name);
    std::vector<int32_t> subscripts;
    if (Take('(')) subscripts = Subscripts();
    const TLock lock(mProgram.VariablesLock());
    return SlotValue(*var, SlotOf(*var, subscripts));
  }
  const TVarInfo* FindVariable(const std::string& name) {
    if (const TVarInfo* var = mProgram.FindVar(name)) return var;
    for (char suffix : SUFFIX_ORDER) {
      if (const TVarInfo* var = mProgram.FindVar(name + suffix)) return var;
    }
    throw TNoValue{};
  }
  std::vector<int32_t> Subscripts() {
    const TNesting nesting(*this);
    std::vector<int32_t> subscripts;
    do {
      subscripts.push_back(int_of(Xor()));
    } while (Take(','));
    if (!Take(')')) throw TNoValue{};
    return subscripts;
  }
  static int32_t SlotOf(const TVarInfo& var, const std::vector<int32_t>& subscripts) {
    const auto count = static_cast<int32_t>(subscripts.size());
    if (count == 0) return 0;
    if (count != var.dimCount) throw TNoValue{};
    int64_t element = 0;
    for (int32_t i = 0; i < count; ++i) {
      const int32_t subscript = subscripts[static_cast<size_t>(count - 1 - i)];
      if (subscript < 0 || subscript >= var.dims[i]) throw TNoValue{};
      element += int64_t{subscript} * var.strides[i];
    }
    return static_cast<int32_t>(element) + 1;
  }
  static TExprValue SlotValue(const TVarInfo& var, int32_t slot) {
    if (var.data == nullptr || slot >= var.slotCount) throw TNoValue{};
    switch (var.kind) {
      case ttInt:
        return number_value(var.ints[slot]);
      case ttSng:
        return number_value(static_cast<double>(var.floats[slot]));
      case ttDbl:
        return number_value(var.doubles[slot]);
      case ttStr:
        return {true, 0, std::string(var.texts[slot].View())};
      default:
        throw TNoValue{};
    }
  }

  /// One level deeper for as long as it lives.
  class TNesting {
   public:
    explicit TNesting(TEvaluator& owner) : mOwner(owner) {
      if (++mOwner.mNesting > MAX_NESTING) throw TNoValue{};
    }
    ~TNesting() { --mOwner.mNesting; }
    TNesting(const TNesting&) = delete;
    TNesting& operator=(const TNesting&) = delete;

   private:
    TEvaluator& mOwner;
  };

  std::string_view mText;
  TMidCode& mProgram;
  size_t mPos = 0;
  int mNesting = 0;
};

}  // namespace

std::optional<TExprValue> evaluate_expression(std::string_view text, TMidCode& program) {
  try {
    return TEvaluator(text, program).Whole();
  } catch (const TNoValue&) {
    return std::nullopt;
  }
}

std::optional<bool> condition_holds(std::string_view text, TMidCode& program) {
  const std::optional<TExprValue> value = evaluate_expression(text, program);
  if (!value || value->isText) return std::nullopt;
  return value->number != 0;
}

std::optional<double> whole_number(std::string_view text) {
  while (!text.empty() && is_space(text.front())) text.remove_prefix(1);
  while (!text.empty() && is_space(text.back())) text.remove_suffix(1);
  const char* const end = text.data() + text.size();
  if (text.size() > 2 && text[0] == '&' && to_upper(text[1]) == 'H') {
    uint32_t bits = 0;
    const auto [stop, error] = std::from_chars(text.data() + 2, end, bits, 16);
    if (error != std::errc() || stop != end) return std::nullopt;
    return static_cast<double>(static_cast<int32_t>(bits));
  }
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return std::nullopt;
  }
  double number = 0;
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || !std::isfinite(number)) return std::nullopt;
  return number;
}

}  // namespace zoka
