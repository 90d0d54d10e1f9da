#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

class TokenList;

/// How tightly an operator or converter binds: the larger value binds tighter.
enum class PrecedencePriority : std::uint8_t {
  trailingConverterPriority,  ///< "in cm" at the end of a line: converts whatever stands before it
  logicalPriority,            ///< and, or
  comparisonPriority,         ///< <, >=, ==
  bitwisePriority,            ///< &, |, <<
  additivePriority,           ///< +, -, lesser of, not, and every operator without a place of its own
  multiplicativePriority,     ///< *, /, mod
  powerPriority,              ///< ^, and a converter that something follows
};

/// An operand in a tree: nothing, a token of the list, or another node.
struct Evaluatable {
  static constexpr std::uint32_t kNoNode = UINT32_MAX;

  const Token* token = nullptr;
  std::uint32_t node = kNoNode;

  [[nodiscard]] bool isPresent() const noexcept { return isLeaf() || isNode(); }
  [[nodiscard]] bool isLeaf() const noexcept { return token != nullptr; }
  [[nodiscard]] bool isNode() const noexcept { return node != kNoNode; }
};

/// One operation of a tree with its operands.
struct EvaluationNode {
  enum class Type : std::uint8_t {
    infix,           ///< an operator between two operands
    prefix,          ///< a sign or a "not" before its operand
    postfix,         ///< a converter behind its operand
    selfEvaluating,  ///< a token that is an expression by itself: a bracket, a function
    unhandled,       ///< an operator without the operands that it needs
  };

  const Token* operationToken = nullptr;
  Evaluatable leftArgument;
  Evaluatable rightArgument;
  PrecedencePriority precedence{};
  /// The node whose left argument this is, so that an evaluation climbs a long chain without recursion.
  std::uint32_t parent = Evaluatable::kNoNode;

  static constexpr TokenSubTypeSet validPrefixOperators{
      TokenSubType::subtractionOperator, TokenSubType::additionOperator, TokenSubType::logicalNotOperator,
      TokenSubType::bitwiseNotOperator};
  static constexpr TokenTypeSet selfEvaluatingTypes{
      TokenType::subexpression,         TokenType::functionExpression,
      TokenType::conditionalExpression, TokenType::conditionalVariableDeclaration,
      TokenType::variableDeclaration,   TokenType::unitDeclaration,
      TokenType::wordFunction,          TokenType::remoteQuery};

  [[nodiscard]] Type nodeType() const noexcept;
};

/// The operators and converters of a list in reading order, and who stands beside them.
class PrecedenceStack {
 public:
  /// A position in the list; `kNone` where there is none.
  using Index = std::size_t;
  static constexpr Index kNone = SIZE_MAX;

  static constexpr TokenTypeSet validPrecedenceTokens{TokenType::operator_, TokenType::converter};

  explicit PrecedenceStack(const TokenList& list);

  /// The next operator or converter.
  Index popNextPrecedential() noexcept;
  /// The nearest token towards the start that can be an operand: white space and filler words are stepped over; a
  /// lone bracket or an equals sign stands for none.
  [[nodiscard]] Index leftArgumentFor(Index token) const noexcept;
  /// The same towards the end, where an equals sign doesn't stop.
  [[nodiscard]] Index rightArgumentFor(Index token) const noexcept;
  [[nodiscard]] PrecedencePriority precedenceOf(const Token& token) const;

  [[nodiscard]] const Token& at(Index token) const noexcept { return tokens_[token]; }

 private:
  const Token* tokens_;
  std::size_t count_;
  Index next_ = 0;
  const Token* trailingConverter_;
};

/// A sign before a sign: "3 - -2". Two equal signs act as a plus, two different ones as a minus.
class OperatorMixingRules {
 public:
  static constexpr TokenSubTypeSet validSubtypes{TokenSubType::additionOperator, TokenSubType::subtractionOperator};

  /// Nothing unless both are signs.
  [[nodiscard]] static std::optional<OperatorMixingRules> make(const Token& operator1, const Token* operator2);
  /// The one sign that stands for the two; lives as long as the program.
  [[nodiscard]] const Token& evaluate() const;

 private:
  explicit OperatorMixingRules(bool areEqual) : areEqual_(areEqual) {}
  bool areEqual_;
};

/// The operations of a flat list, nested by precedence: "1 + 2 * 3" is 1 + (2 * 3). Operators of equal precedence
/// associate to the left, the power included.
///
/// The nodes lie side by side, and only right arguments nest (no deeper than there are precedences), so that a line of
/// ten thousand operators costs neither stack nor more than its length. Refers to the tokens of the list, which has to
/// live and stay as it is meanwhile.
class EvaluationTree {
 public:
  /// The tree of the list; nothing where the list has neither an operator nor a converter, nor ends in a token that is
  /// an expression by itself.
  [[nodiscard]] static std::optional<EvaluationTree> headNode(const TokenList& list);

  [[nodiscard]] const EvaluationNode& head() const { return nodes_[head_]; }
  [[nodiscard]] const EvaluationNode& node(std::uint32_t index) const { return nodes_[index]; }

  /// Reduces the tree to one token.
  [[nodiscard]] Token evaluate() const { return evaluate(head_); }

  /// "(1 + (2 * 3))".
  [[nodiscard]] std::string ASTDescription() const { return ASTDescription(head_); }

 private:
  class Operand;

  EvaluationTree() = default;

  std::uint32_t add(const Token& operation, Evaluatable left, Evaluatable right, PrecedencePriority precedence);
  void insert(const Token& operation, Evaluatable left, Evaluatable right, PrecedencePriority precedence);
  [[nodiscard]] bool startsAnew(Evaluatable left) const;

  [[nodiscard]] Token evaluate(std::uint32_t root) const;
  [[nodiscard]] Operand evaluate(const EvaluationNode& node, Operand left) const;
  [[nodiscard]] Operand evaluate(Evaluatable argument) const;
  [[nodiscard]] std::string ASTDescription(std::uint32_t root) const;

  std::vector<EvaluationNode> nodes_;
  std::uint32_t head_ = Evaluatable::kNoNode;
};

}  // namespace tavrine
