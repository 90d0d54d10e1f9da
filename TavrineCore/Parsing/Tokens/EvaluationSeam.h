#pragma once

#include <optional>

#include "TavrineCore/Parsing/Tokens/Token.h"

/// Where tokens ask for what only the evaluators can tell. Declared on this floor, defined on the one above, as are
/// `Token::evaluated` and `Token::evaluationResult`.
namespace tavrine {

/// The token that the list comes to; the blank token where it comes to nothing.
[[nodiscard]] Token evaluate(const TokenList& list);

/// The token that the result is worth.
[[nodiscard]] Token tokenOf(const EvaluationResult& result);

/// The stored result of the variable as a token; nothing where none is stored.
[[nodiscard]] std::optional<Token> tokenOfDefinition(const Variable& variable);

/// The result of the subsheet as a token; nothing where it has none.
[[nodiscard]] std::optional<Token> tokenOfResult(const Subsheet& subsheet);

/// The variable that the evaluation of a declaration gives.
[[nodiscard]] std::optional<Variable> declaredVariableOf(const Token& declaration);

}  // namespace tavrine
