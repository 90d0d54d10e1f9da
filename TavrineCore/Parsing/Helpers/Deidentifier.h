#pragma once

#include <cstddef>
#include <optional>

#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

class EngineCustomization;
class MeaningScan;
class TokenList;
class Token;
struct DeidentifierAction;
class VariableList;

/// Cleans up behind the passes: what one of them recognised and nothing used is a plain word of the text. "5abc",
/// "hello in the world", a unit without a number.
class Deidentifier {
 public:
  /// One of these in the line, and a bare unit may mean something.
  static constexpr TokenTypeSet deidentifyUnitIfNotPresent{TokenType::subexpression, TokenType::unitExpression,
                                                           TokenType::variable,      TokenType::converter,
                                                           TokenType::percentage,    TokenType::operator_};
  /// One of these beside it, and it does.
  static constexpr TokenTypeSet validNeighboursStoppingUnitDeidentification{
      TokenType::subexpression, TokenType::unitExpression, TokenType::variable,
      TokenType::converter,     TokenType::percentage,     TokenType::unit};

  /// Edits the list in place.
  Deidentifier(const EngineCustomization& engineCustomization, TokenList& tokenList, const VariableList& variableList)
      : engineCustomization_(engineCustomization), tokenList_(tokenList), variableList_(variableList) {}

  void deidentifyStragglers();

 private:
  /// The list with its stragglers deidentified, inner tokens before outer ones; absent where there are none.
  [[nodiscard]] std::optional<TokenList> cleaned(const TokenList& list, const Token* parent, MeaningScan& scan) const;
  void process(const DeidentifierAction& action, TokenList& list, std::size_t index) const;

  const EngineCustomization& engineCustomization_;
  TokenList& tokenList_;
  const VariableList& variableList_;
};

}  // namespace tavrine
