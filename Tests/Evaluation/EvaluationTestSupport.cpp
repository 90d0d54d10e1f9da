#include "EvaluationTestSupport.h"

#include <array>
#include <charconv>
#include <memory>
#include <optional>
#include <utility>

#include "Foundation/Decimal.h"
#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Processors/Preprocessors.h"
#include "TavrineCore/Evaluation/TokenListEvaluator.h"
#include "TavrineCore/Parsing/Tokens/EvaluationSeam.h"
#include "TavrineCore/Parsing/Tokens/NumberMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine::testing {

namespace {

struct Word {
  std::string_view text;
  TokenType type;
  TokenSubType subType;
};

using enum TokenType;
using Sub = TokenSubType;

// Longer texts first, where one begins another.
constexpr auto kSymbols = std::to_array<Word>({
    {"<<", operator_, Sub::bitwiseLeftShiftOperator},
    {">>", operator_, Sub::bitwiseRightShiftOperator},
    {"<=", operator_, Sub::lessThanOrEqualTo},
    {">=", operator_, Sub::greaterThanOrEqualTo},
    {"==", operator_, Sub::equalTo},
    {"!=", operator_, Sub::notEqualTo},
    {"<", operator_, Sub::lessThan},
    {">", operator_, Sub::greaterThan},
    {"+", operator_, Sub::additionOperator},
    {"-", operator_, Sub::subtractionOperator},
    {"*", operator_, Sub::multiplicationOperator},
    {"/", operator_, Sub::divisionOperator},
    {"^", operator_, Sub::powerOperator},
    {"&", operator_, Sub::bitwiseAndOperator},
    {"|", operator_, Sub::bitwiseOrOperator},
    {"~", operator_, Sub::bitwiseNotOperator},
    {"√", operator_, Sub::squareRootSymbol},
    {"(", bracket, Sub::openBracket},
    {")", bracket, Sub::closeBracket},
    {"%", percentageSymbol, Sub::notSpecified},
    {"=", equals, Sub::notSpecified},
    {",", comma, Sub::notSpecified},
});

constexpr auto kWords = std::to_array<Word>({
    {"mod", operator_, Sub::modOperator},
    {"xor", operator_, Sub::bitwiseXorOperator},
    {"and", operator_, Sub::logicalAndOperator},
    {"or", operator_, Sub::logicalOrOperator},
    {"not", operator_, Sub::logicalNotOperator},
    {"lesser", operator_, Sub::lesserOf},
    {"greater", operator_, Sub::greaterOf},
    {"into", operator_, Sub::reverseDivisionOperator},
    {"from", operator_, Sub::reverseSubtractionOperator},
    {"true", boolean, Sub::true_},
    {"false", boolean, Sub::false_},
    {"innumber", converter, Sub::numberConverter},
    {"inhex", converter, Sub::hexadecimalConverter},
    {"inbinary", converter, Sub::binaryConverter},
    {"inoctal", converter, Sub::octalConverter},
    {"inpercent", converter, Sub::percentageConverter},
    {"infraction", converter, Sub::fractionConverter},
    {"inmultiplier", converter, Sub::multiplierConveter},
    {"inscientific", converter, Sub::scientificNotationConverter},
    {"rounded", converter, Sub::roundingConverter},
    {"roundedup", converter, Sub::roundingUpConverter},
    {"roundeddown", converter, Sub::roundingDownConverter},
    {"indate", converter, Sub::dateConverter},
    {"oops", error, Sub::unitMismatchError},
    {"wait", pending, Sub::notSpecified},
    {"lost", failed, Sub::notSpecified},
});

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// Cuts tokens off the front of a text.
class Cutter {
 public:
  explicit Cutter(std::string_view text) : text_(text) {}

  std::vector<Token> run() {
    while (position_ < text_.size()) next();
    return std::move(tokens_);
  }

 private:
  template <class Accept>
  std::size_t endOfRun(std::size_t from, Accept accept) const {
    while (from < text_.size() && accept(text_[from])) ++from;
    return from;
  }

  void add(Token token, std::size_t end) {
    token.stringValue = std::string(text_.substr(position_, end - position_));
    const auto length = static_cast<std::uint32_t>(utf16Length(token.stringValue));
    token.range = {location_, length};
    location_ += length;
    position_ = end;
    tokens_.push_back(std::move(token));
  }

  const Token* lastThing() const {
    for (auto token = tokens_.rbegin(); token != tokens_.rend(); ++token) {
      if (!token->is(whitespace)) return &*token;
    }
    return nullptr;
  }

  /// A sign directly before a digit, with no value directly before the sign.
  bool beginsNegativeNumber() const {
    if (text_[position_] != '-' || position_ + 1 >= text_.size() || !isDigit(text_[position_ + 1])) return false;
    const Token* last = lastThing();
    if (last == nullptr || last->is(operator_) || last->is(bracket, Sub::openBracket)) return true;
    return tokens_.back().is(whitespace);
  }

  bool cutBaseNumber() {
    const std::string_view rest = text_.substr(position_);
    const int base = rest.starts_with("0x") ? 16 : rest.starts_with("0b") ? 2 : rest.starts_with("0o") ? 8 : 0;
    if (base == 0) return false;
    const std::size_t end = endOfRun(position_ + 2, [](char c) { return isDigit(c) || isLetter(c); });
    std::uint64_t value = 0;
    std::from_chars(text_.data() + position_ + 2, text_.data() + end, value, base);
    add(base == 16  ? TokenFactory::hexWith(value)
        : base == 2 ? TokenFactory::binaryWith(value)
                    : TokenFactory::octalWith(value),
        end);
    return true;
  }

  void cutNumber() {
    const std::size_t end = endOfRun(position_ + 1, [](char c) { return isDigit(c) || c == '.'; });
    const Decimal value = *Decimal::parse(text_.substr(position_, end - position_));
    if (end < text_.size() && text_[end] == '%')
      return add(TokenFactory::percentageWith(value / Decimal(100)), end + 1);
    if (end < text_.size() && text_[end] == 'k') return add(TokenFactory::numberWith(value, "k"), end + 1);
    add(TokenFactory::numberWith(value), end);
  }

  void cutWord() {
    const std::size_t end = endOfRun(position_, isLetter);
    const std::string_view word = text_.substr(position_, end - position_);
    if (word == "pi") {
      return add(Token(number, Sub::pi, "", {}, nullptr,
                       std::make_shared<NumberTokenMetadata>(NumberTokenMetadata::forConstant(Sub::pi))),
                 end);
    }
    if (word == "indp") {
      Token token(converter, Sub::roundingToDpConverter, "", {},
                  TokenList::frozen({TokenFactory::numberWith(Decimal(2))}));
      return add(std::move(token), end);
    }
    for (const Word& known : kWords) {
      if (known.text == word) return add(Token(known.type, known.subType, "", {}), end);
    }
    add(Token(wordComment, "", {}), end);
  }

  void next() {
    const char c = text_[position_];
    if (c == ' ') return add(Token(whitespace, "", {}), endOfRun(position_, [](char d) { return d == ' '; }));
    if (cutBaseNumber()) return;
    if (isDigit(c) || beginsNegativeNumber()) return cutNumber();
    for (const Word& symbol : kSymbols) {
      if (text_.substr(position_).starts_with(symbol.text)) {
        return add(Token(symbol.type, symbol.subType, "", {}), position_ + symbol.text.size());
      }
    }
    if (isLetter(c)) return cutWord();
    add(Token(unidentified, "", {}), position_ + 1);
  }

  std::string_view text_;
  std::size_t position_ = 0;
  std::uint32_t location_ = 0;
  std::vector<Token> tokens_;
};

void print(const TokenList& list, std::string& out) {
  for (const Token& token : list) {
    if (token.is(whitespace) || token.is(bracket)) continue;
    if (!out.empty() && out.back() != '(') out += ' ';
    if (token.is(subexpression) || token.is(functionExpression)) {
      out += '(';
      print(*token.subtokens, out);
      out += ')';
    } else {
      out += token.is(operator_) || token.is(error) ? token.stringValue : describeResult(token.evaluationResult());
    }
  }
}

constexpr std::array<std::string_view, 11> kErrorNames = {"UnitMismatch",
                                                          "UnsupportedUnitMultiplication",
                                                          "UnsupportedRate",
                                                          "UnsupportedExponentOperation",
                                                          "Infinity",
                                                          "ImaginaryNumber",
                                                          "DivideByZero",
                                                          "BadDivision",
                                                          "ImpreciseResult",
                                                          "SilentError",
                                                          "Other"};

}  // namespace

TokenList tokensOf(std::string_view text) {
  TokenList list(Cutter(text).run());
  list.wrapBracketsInSubexpressions();
  return list;
}

std::string describeResult(const EvaluationResult& result) {
  std::string text(toString(result.kind()));
  if (const auto* error = result.as<EvaluationResultCase::error>()) {
    return text + " " + std::string(kErrorNames[static_cast<std::size_t>(*error)]);
  }
  if (result.is(EvaluationResultCase::decimal)) text.clear();
  const std::optional<std::string> value = result.stringValue();
  if (!value) return text;
  return text.empty() ? *value : text + " " + *value;
}

EvaluationResult evaluated(std::string_view text) {
  static const TokenListEvaluator evaluator(EngineCustomization::basic());
  return evaluator.evaluate(tokensOf(text));
}

EvaluationResult evaluatedAsItStands(std::string_view text) {
  return tavrine::evaluate(tokensOf(text)).evaluationResult();
}

std::string rewritten(std::string_view text) {
  const TokenList list = tokensOf(text);
  EditableTokenList editable(list);
  preprocess(editable, EngineCustomization::basic());
  std::string out;
  print(editable.list(), out);
  return out;
}

}  // namespace tavrine::testing
