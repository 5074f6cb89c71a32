// Recursive descent over the text of an expression; the value is made on the way.
#include "debugger/expression.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <vector>

#include "common/text/ascii.h"
#include "common/text/number.h"
#include "debugger/expression_at.h"
#include "vm/stack_data.h"

namespace zoka {
namespace {

/// Deepest nesting of parentheses and signs.
constexpr int MAX_NESTING = 200;

/// Suffixes of numbers, and the kinds that they mean.
constexpr std::string_view NUMBER_SUFFIXES = "%!#";
constexpr TTokenKind NUMBER_KINDS[] = {ttInt, ttSng, ttDbl};
/// Where a name without a suffix is looked for, in this order.
constexpr std::string_view SUFFIX_ORDER = "!%#$";

/// Sums of products of many subscripts and strides do not fit into 64 bits.
__extension__ using TWide = __int128;

/// Ends the evaluation; never leaves this file.
struct TNoValue {};

TExprValue int_value(int64_t number) {
  // Integers wrap.
  return {ttInt, static_cast<double>(static_cast<int32_t>(static_cast<uint32_t>(number))), {}};
}

/// A value of that kind; what a single cannot hold is rounded away.
TExprValue float_value(TTokenKind kind, double number) {
  return {kind, kind == ttSng ? static_cast<double>(static_cast<float>(number)) : number, {}};
}

TExprValue text_value(std::string text) {
  return {ttStr, 0, std::move(text)};
}

TExprValue truth(bool flag) {
  return int_value(flag ? -1 : 0);
}

double number_of(const TExprValue& value) {
  if (value.IsText()) throw TNoValue{};
  return value.number;
}

int32_t int_of(const TExprValue& value) {
  return round_off(number_of(value));
}

/// Logical operators work on the low 16 bits, as the language's do.
int32_t word_of(const TExprValue& value) {
  return static_cast<int16_t>(static_cast<uint16_t>(int_of(value)));
}

/// The wider of the kinds of two numbers.
TTokenKind common_kind(const TExprValue& left, const TExprValue& right) {
  if (left.IsText() || right.IsText()) throw TNoValue{};
  return std::max(left.kind, right.kind);
}

/// Calculates with two numbers in their common kind.
template <typename TOperator>
TExprValue calculate(const TExprValue& left, const TExprValue& right, TOperator op) {
  const TTokenKind kind = common_kind(left, right);
  if (kind == ttInt) return int_value(op(int64_t{int_of(left)}, int64_t{int_of(right)}));
  return float_value(
      kind, op(float_value(kind, left.number).number, float_value(kind, right.number).number));
}

/// Below, equal or above: -1, 0, 1. Texts by their bytes.
int order_of(const TExprValue& left, const TExprValue& right) {
  if (left.IsText() && right.IsText()) return left.text.compare(right.text);
  const TTokenKind kind = common_kind(left, right);
  const double a = float_value(kind, left.number).number;
  const double b = float_value(kind, right.number).number;
  return (a > b) - (a < b);
}

bool holds(int order, const std::string& op) {
  if (op == "=") return order == 0;
  if (op == "<") return order < 0;
  if (op == ">") return order > 0;
  if (op == "<>" || op == "><") return order != 0;
  if (op == "<=" || op == "=<") return order <= 0;
  if (op == ">=" || op == "=>") return order >= 0;
  throw TNoValue{};
}

class TEvaluator {
 public:
  TEvaluator(std::string_view text, TMidCode& program) : mText(text), mProgram(program) {}

  TExprValue Whole() {
    TExprValue value = Eqv();
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
  /// Takes a whole word, in upper case or not.
  bool TakeWord(std::string_view word) {
    SkipBlanks();
    if (mText.size() - mPos < word.size()) return false;
    for (size_t i = 0; i < word.size(); ++i) {
      if (to_upper(mText[mPos + i]) != word[i]) return false;
    }
    const size_t end = mPos + word.size();
    if (end < mText.size() && is_name_char(mText[end])) return false;
    mPos = end;
    return true;
  }

  TExprValue Eqv() {
    TExprValue left = Imp();
    while (TakeWord("EQV")) left = int_value(~(word_of(left) ^ word_of(Imp())));
    return left;
  }
  TExprValue Imp() {
    TExprValue left = Xor();
    while (TakeWord("IMP")) left = int_value(~word_of(left) | word_of(Xor()));
    return left;
  }
  TExprValue Xor() {
    TExprValue left = Or();
    while (TakeWord("XOR")) left = int_value(word_of(left) ^ word_of(Or()));
    return left;
  }
  TExprValue Or() {
    TExprValue left = And();
    while (TakeWord("OR")) left = int_value(word_of(left) | word_of(And()));
    return left;
  }
  TExprValue And() {
    TExprValue left = Not();
    while (TakeWord("AND")) left = int_value(word_of(left) & word_of(Not()));
    return left;
  }
  TExprValue Not() {
    if (!TakeWord("NOT")) return Comparison();
    const TNesting nesting(*this);
    return int_value(~word_of(Not()));
  }

  TExprValue Comparison() {
    TExprValue left = Sum();
    for (std::string op = TakeComparison(); !op.empty(); op = TakeComparison()) {
      left = truth(holds(order_of(left, Sum()), op));
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
  TExprValue Sum() {
    TExprValue left = Mod();
    for (;;) {
      if (Take('+')) {
        left = Add(left, Mod());
      } else if (Take('-')) {
        left = calculate(left, Mod(), [](auto a, auto b) { return a - b; });
      } else {
        return left;
      }
    }
  }
  static TExprValue Add(const TExprValue& left, const TExprValue& right) {
    if (left.IsText() && right.IsText()) return text_value(left.text + right.text);
    return calculate(left, right, [](auto a, auto b) { return a + b; });
  }
  TExprValue Mod() {
    TExprValue left = IntQuotient();
    while (TakeWord("MOD")) {
      const int64_t dividend = int_of(left);
      left = int_value(dividend % Divisor(IntQuotient()));
    }
    return left;
  }
  TExprValue IntQuotient() {
    TExprValue left = Product();
    while (Take('\\')) {
      const int64_t dividend = int_of(left);
      left = int_value(dividend / Divisor(Product()));
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
        left = calculate(left, Sign(), [](auto a, auto b) { return a * b; });
      } else if (Take('/')) {
        left = Quotient(left, Sign());
      } else {
        return left;
      }
    }
  }
  /// Never an integer.
  static TExprValue Quotient(const TExprValue& left, const TExprValue& right) {
    const TTokenKind kind = std::max(common_kind(left, right), ttSng);
    const double divisor = float_value(kind, right.number).number;
    if (divisor == 0) throw TNoValue{};
    return float_value(kind, float_value(kind, left.number).number / divisor);
  }
  TExprValue Sign() {
    const TNesting nesting(*this);
    if (Take('-')) return Negative(Sign());
    if (Take('+')) return Sign();
    return Power();
  }
  static TExprValue Negative(const TExprValue& value) {
    return calculate(int_value(0), value, [](auto, auto b) { return -b; });
  }
  TExprValue Power() {
    TExprValue base = Operand();
    while (Take('^')) {
      const bool negative = Take('-');
      const TExprValue exponent = negative ? Negative(Operand()) : Operand();
      const TTokenKind kind = std::max(common_kind(base, exponent), ttSng);
      base = float_value(kind, std::pow(float_value(kind, base.number).number,
                                        float_value(kind, exponent.number).number));
    }
    return base;
  }

  TExprValue Operand() {
    const char c = Next();
    if (c == '(') return InParentheses();
    if (c == '"') return Quoted();
    if (is_digit(c) || c == '.' || c == '&') return Number();
    if (is_name_begin(c)) return Variable();
    throw TNoValue{};
  }
  TExprValue InParentheses() {
    const TNesting nesting(*this);
    ++mPos;
    TExprValue value = Eqv();
    if (!Take(')')) throw TNoValue{};
    return value;
  }
  TExprValue Quoted() {
    const size_t end = std::min(mText.find('"', mPos + 1), mText.size());
    TExprValue value = text_value(std::string(mText.substr(mPos + 1, end - mPos - 1)));
    mPos = std::min(end + 1, mText.size());
    return value;
  }
  TExprValue Number() {
    const size_t begin = mPos;
    if (mText[mPos] == '&') ++mPos;
    while (mPos < mText.size() && IsNumberChar(begin)) ++mPos;
    const std::string_view digits = mText.substr(begin, mPos - begin);
    const std::optional<double> number = whole_number(digits);
    if (!number) throw TNoValue{};
    const TTokenKind kind = NumberKind(digits);
    if (kind == ttInt && !digits.starts_with('&')) return int_value(parse_long(digits));
    return float_value(kind, *number);
  }
  /// The kind that a number's suffix says, which is taken, or else its spelling.
  TTokenKind NumberKind(std::string_view digits) {
    if (digits.starts_with('&')) return ttInt;
    const size_t suffix = NUMBER_SUFFIXES.find(mPos < mText.size() ? mText[mPos] : ' ');
    if (suffix != NUMBER_SUFFIXES.npos) {
      ++mPos;
      return NUMBER_KINDS[suffix];
    }
    return digits.find_first_of(".eE") == std::string::npos ? ttInt : ttSng;
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
    for (; mPos < mText.size() && is_name_char(mText[mPos]); ++mPos) name += to_upper(mText[mPos]);
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
      subscripts.push_back(int_of(Eqv()));
    } while (Take(','));
    if (!Take(')')) throw TNoValue{};
    return subscripts;
  }
  static int32_t SlotOf(const TVarInfo& var, const std::vector<int32_t>& subscripts) {
    const auto count = static_cast<int32_t>(subscripts.size());
    if (count == 0) return 0;
    if (count != var.dimCount) throw TNoValue{};
    // As for the program only the sum counts: of DIM A(2,3) the element A(0,5) is A(1,1).
    TWide element = 0;
    for (int32_t i = 0; i < count; ++i) {
      element += TWide{subscripts[static_cast<size_t>(count - 1 - i)]} * var.strides[i];
    }
    if (element < 0 || element >= var.strides[count]) throw TNoValue{};
    return static_cast<int32_t>(element) + 1;
  }
  static TExprValue SlotValue(const TVarInfo& var, int32_t slot) {
    if (var.data == nullptr || slot >= var.slotCount) throw TNoValue{};
    switch (var.kind) {
      case ttInt:
        return int_value(var.ints[slot]);
      case ttSng:
        return float_value(ttSng, static_cast<double>(var.floats[slot]));
      case ttDbl:
        return float_value(ttDbl, var.doubles[slot]);
      case ttStr:
        return text_value(std::string(var.texts[slot].View()));
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
  if (!value || value->IsText()) return std::nullopt;
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
