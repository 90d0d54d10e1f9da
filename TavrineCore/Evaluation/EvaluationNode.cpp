#include "TavrineCore/Evaluation/EvaluationNode.h"

#include <algorithm>
#include <utility>

#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/TokenAndOperatorPairFactory.h"
#include "TavrineCore/Evaluation/Support/Converters/TokenConverterFactory.h"
#include "TavrineCore/Evaluation/TokenEvaluation.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

using enum PrecedencePriority;

PrecedencePriority precedenceOfOperator(TokenSubType subtype) {
  switch (subtype) {
    case TokenSubType::powerOperator:
      return powerPriority;
    case TokenSubType::multiplicationOperator:
    case TokenSubType::divisionOperator:
    case TokenSubType::reverseDivisionOperator:
    case TokenSubType::modOperator:
      return multiplicativePriority;
    case TokenSubType::bitwiseAndOperator:
    case TokenSubType::bitwiseOrOperator:
    case TokenSubType::bitwiseXorOperator:
    case TokenSubType::bitwiseLeftShiftOperator:
    case TokenSubType::bitwiseRightShiftOperator:
      return bitwisePriority;
    case TokenSubType::greaterThan:
    case TokenSubType::greaterThanOrEqualTo:
    case TokenSubType::lessThan:
    case TokenSubType::lessThanOrEqualTo:
    case TokenSubType::equalTo:
    case TokenSubType::notEqualTo:
      return comparisonPriority;
    case TokenSubType::logicalAndOperator:
    case TokenSubType::logicalOrOperator:
      return logicalPriority;
    default:  // most subtypes name no operator at all
      return additivePriority;
  }
}

constexpr TokenTypeSet kStepsOver = TokenTypeSet::randomWords | TokenTypeSet::whitespaceSet;

const Token& sign(bool isMinus) {
  static const Token plus = operatorToken(TokenSubType::additionOperator, "+");
  static const Token minus = operatorToken(TokenSubType::subtractionOperator, "-");
  return isMinus ? minus : plus;
}

}  // namespace

EvaluationNode::Type EvaluationNode::nodeType() const noexcept {
  const bool hasLeft = leftArgument.isPresent();
  const bool hasRight = rightArgument.isPresent();
  if (operationToken->is(TokenType::operator_) && hasRight) {
    if (hasLeft) return Type::infix;
    if (validPrefixOperators.contains(operationToken->subType)) return Type::prefix;
  }
  if (operationToken->is(TokenType::converter) && hasLeft) return Type::postfix;
  if (!hasLeft && !hasRight && selfEvaluatingTypes.contains(operationToken->type)) return Type::selfEvaluating;
  return Type::unhandled;
}

// ---------------------------------------------------------------------------------------------------------------------

PrecedenceStack::PrecedenceStack(const TokenList& list)
    : tokens_(list.tokens().data()), count_(list.count()), trailingConverter_(list.trailingConverter()) {}

PrecedenceStack::Index PrecedenceStack::popNextPrecedential() noexcept {
  while (next_ < count_) {
    const Index candidate = next_++;
    if (validPrecedenceTokens.contains(tokens_[candidate].type)) return candidate;
  }
  return kNone;
}

PrecedenceStack::Index PrecedenceStack::leftArgumentFor(Index token) const noexcept {
  while (token-- > 0) {
    const TokenType type = tokens_[token].type;
    if (kStepsOver.contains(type)) continue;
    return type == TokenType::bracket || type == TokenType::equals ? kNone : token;
  }
  return kNone;
}

PrecedenceStack::Index PrecedenceStack::rightArgumentFor(Index token) const noexcept {
  while (++token < count_) {
    const TokenType type = tokens_[token].type;
    if (kStepsOver.contains(type)) continue;
    return type == TokenType::bracket ? kNone : token;
  }
  return kNone;
}

PrecedencePriority PrecedenceStack::precedenceOf(const Token& token) const {
  if (!token.is(TokenType::converter)) return precedenceOfOperator(token.subType);
  return trailingConverter_ != nullptr && *trailingConverter_ == token ? trailingConverterPriority : powerPriority;
}

std::optional<OperatorMixingRules> OperatorMixingRules::make(const Token& operator1, const Token* operator2) {
  if (operator2 == nullptr || !operator1.is(TokenType::operator_) || !operator2->is(TokenType::operator_) ||
      !validSubtypes.contains(operator1.subType) || !validSubtypes.contains(operator2->subType)) {
    return std::nullopt;
  }
  return OperatorMixingRules(operator1.subType == operator2->subType);
}

const Token& OperatorMixingRules::evaluate() const { return sign(!areEqual_); }

// ---------------------------------------------------------------------------------------------------------------------

std::optional<EvaluationTree> EvaluationTree::headNode(const TokenList& list) {
  EvaluationTree tree;
  if (list.anyTypesHaveBeenPresentIn(PrecedenceStack::validPrecedenceTokens)) {
    const auto operations = std::count_if(list.tokens().begin(), list.tokens().end(), [](const Token& token) {
      return PrecedenceStack::validPrecedenceTokens.contains(token.type);
    });
    tree.nodes_.reserve(static_cast<std::size_t>(operations));

    PrecedenceStack stack(list);
    const auto leaf = [&](PrecedenceStack::Index index) {
      return index == PrecedenceStack::kNone ? Evaluatable{} : Evaluatable{.token = &stack.at(index)};
    };
    for (auto index = stack.popNextPrecedential(); index != PrecedenceStack::kNone;
         index = stack.popNextPrecedential()) {
      const Token* operation = &stack.at(index);
      const Evaluatable left = leaf(stack.leftArgumentFor(index));
      Evaluatable right = leaf(stack.rightArgumentFor(index));
      while (const auto mixing = OperatorMixingRules::make(*operation, right.token)) {
        // The next operation is the sign that stands here as the right argument.
        operation = &mixing->evaluate();
        right = leaf(stack.rightArgumentFor(stack.popNextPrecedential()));
      }
      tree.insert(*operation, left, right, stack.precedenceOf(*operation));
    }
  }

  if (tree.head_ == Evaluatable::kNoNode) {
    const Token* last = list.lastMeaningfulToken();
    if (last == nullptr || !EvaluationNode::selfEvaluatingTypes.contains(last->type)) return std::nullopt;
    tree.head_ = tree.add(*last, {}, {}, {});
  }
  return tree;
}

std::uint32_t EvaluationTree::add(const Token& operation, Evaluatable left, Evaluatable right,
                                  PrecedencePriority precedence) {
  const auto index = static_cast<std::uint32_t>(nodes_.size());
  if (left.isNode()) nodes_[left.node].parent = index;
  nodes_.push_back({&operation, left, right, precedence});
  return index;
}

/// Whether the operator begins an expression that isn't joined to the one so far: in "1 + 2 later 3 * 4" the operand
/// left of the second operator isn't the one that the first one ended with.
bool EvaluationTree::startsAnew(Evaluatable left) const {
  if (!left.isLeaf() || left.token->is(TokenType::operator_)) return false;
  const Evaluatable& end = head().rightArgument;
  return head().nodeType() == EvaluationNode::Type::infix && end.isLeaf() && end.token != left.token;
}

void EvaluationTree::insert(const Token& operation, Evaluatable left, Evaluatable right,
                            PrecedencePriority precedence) {
  if (head_ == Evaluatable::kNoNode) {
    head_ = add(operation, left, right, precedence);
    return;
  }
  if (operation.is(TokenType::converter)) {
    head_ = add(operation, {.node = head_}, {}, precedence);
    return;
  }
  if (startsAnew(left)) {
    head_ = add(operation, left, right, precedence);
    return;
  }
  if (precedence <= nodes_[head_].precedence) {
    head_ = add(operation, {.node = head_}, right, precedence);
    return;
  }

  // The operation belongs below the last node on the right spine that it binds tighter than. Precedence rises along
  // the spine, which is therefore short.
  std::uint32_t above = head_;
  while (nodes_[above].rightArgument.isNode() && precedence > nodes_[nodes_[above].rightArgument.node].precedence) {
    above = nodes_[above].rightArgument.node;
  }
  const Evaluatable existing = nodes_[above].rightArgument;
  const std::uint32_t below = add(operation, existing.isNode() ? existing : left, right, precedence);
  nodes_[above].rightArgument = {.node = below};
}

// ---------------------------------------------------------------------------------------------------------------------

/// A token that an evaluation came to: borrowed from the list where it is a token of the list itself.
class EvaluationTree::Operand {
 public:
  Operand() = default;
  explicit Operand(const Token* borrowed) : borrowed_(borrowed) {}
  explicit Operand(Token owned) : owned_(std::move(owned)) {}

  [[nodiscard]] bool isPresent() const { return borrowed_ != nullptr || owned_.has_value(); }
  const Token& operator*() const { return borrowed_ != nullptr ? *borrowed_ : *owned_; }
  Token take() && { return borrowed_ != nullptr ? *borrowed_ : std::move(*owned_); }

 private:
  const Token* borrowed_ = nullptr;
  std::optional<Token> owned_;
};

namespace {

Token signedOperand(const Token& signToken, const Token& operand) {
  if (const auto mixing = OperatorMixingRules::make(signToken, &operand)) return mixing->evaluate();
  const bool isMinus = signToken.subType == TokenSubType::subtractionOperator;
  const Token factor = TokenFactory::numberWith(isMinus ? Decimal(-1) : Decimal(1));
  return evaluatedPair(operand, factor, operatorToken(TokenSubType::multiplicationOperator, "*"));
}

/// The complement in 64 bits without sign: ~0 has 64 ones.
Token bitwiseNot(const Token& operand) {
  const std::optional<Token> complement = tokenInBase(operand.type, ~unsignedWhole(operand.decimalValue()));
  return complement ? *complement : Token();
}

Token prefixed(const Token& operation, const Token& operand) {
  if (pendingOrFailureToken({&operand, 1}) != nullptr) return operand;
  switch (operation.subType) {
    case TokenSubType::subtractionOperator:
    case TokenSubType::additionOperator:
      return signedOperand(operation, operand);
    case TokenSubType::logicalNotOperator:
      return TokenFactory::booleanWith(!isTrue(operand));
    case TokenSubType::bitwiseNotOperator:
      return isInBase(operand) ? bitwiseNot(operand) : Token();
    default:
      return Token();
  }
}

}  // namespace

Token EvaluationTree::evaluate(std::uint32_t root) const {
  std::uint32_t index = root;
  while (nodes_[index].leftArgument.isNode()) index = nodes_[index].leftArgument.node;

  Operand value = evaluate(nodes_[index], evaluate(nodes_[index].leftArgument));
  while (index != root) {
    index = nodes_[index].parent;
    value = evaluate(nodes_[index], std::move(value));
  }
  return std::move(value).take();
}

/// An argument that isn't the left one of a node: those are reached by climbing.
EvaluationTree::Operand EvaluationTree::evaluate(Evaluatable argument) const {
  if (argument.isNode()) return Operand(evaluate(argument.node));
  if (!argument.isLeaf()) return {};
  return evaluatesToItself(*argument.token) ? Operand(argument.token) : Operand(argument.token->evaluated());
}

EvaluationTree::Operand EvaluationTree::evaluate(const EvaluationNode& node, Operand left) const {
  const Token& operation = *node.operationToken;
  switch (node.nodeType()) {
    case EvaluationNode::Type::infix:
      return Operand(evaluatedPair(*left, *evaluate(node.rightArgument), operation));
    case EvaluationNode::Type::prefix:
      return Operand(prefixed(operation, *evaluate(node.rightArgument)));
    case EvaluationNode::Type::postfix: {
      std::optional<Token> converted = TokenConverterFactory::converted(*left, operation);
      return converted ? Operand(std::move(*converted)) : std::move(left);
    }
    case EvaluationNode::Type::selfEvaluating:
      return Operand(operation.evaluated());
    case EvaluationNode::Type::unhandled:
      break;
  }
  return left.isPresent() ? std::move(left) : Operand(errorToken(EvaluationError::SilentError));
}

std::string EvaluationTree::ASTDescription(std::uint32_t root) const {
  const auto describe = [&](const Evaluatable& argument) {
    return argument.isNode() ? ASTDescription(argument.node) : argument.token->stringValue;
  };
  std::uint32_t index = root;
  std::size_t depth = 1;
  for (; nodes_[index].leftArgument.isNode(); ++depth) index = nodes_[index].leftArgument.node;

  std::string result(depth, '(');
  if (nodes_[index].leftArgument.isLeaf()) result += describe(nodes_[index].leftArgument) + " ";
  while (true) {
    const EvaluationNode& node = nodes_[index];
    result += node.operationToken->stringValue;
    if (node.rightArgument.isPresent()) result.append(" ").append(describe(node.rightArgument));
    result += ")";
    if (index == root) return result;
    index = node.parent;
    result += " ";
  }
}

}  // namespace tavrine
