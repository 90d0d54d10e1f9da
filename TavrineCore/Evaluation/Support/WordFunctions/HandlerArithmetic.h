#pragma once

#include <optional>
#include <string_view>

#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

/// What the handlers of phrases calculate with.
namespace tavrine {

/// The two tokens under the operator, as if it had been typed between them: percentages, units, rates and dates behave
/// as they do there. An error in an operand is the answer.
[[nodiscard]] Token operated(const Token& left, TokenSubType operatorSubType, const Token& right,
                             std::string_view operatorText = "");
[[nodiscard]] Token sum(const Token& left, const Token& right);
[[nodiscard]] Token difference(const Token& left, const Token& right);
[[nodiscard]] Token product(const Token& left, const Token& right);
[[nodiscard]] Token quotient(const Token& left, const Token& right);

/// The token under a converter; the token itself where the converter can't do anything with it.
[[nodiscard]] Token converted(const Token& token, const Token& converter);
/// "20%" as 0.2.
[[nodiscard]] Token asNumber(const Token& token);
[[nodiscard]] Token asPercentage(const Token& token);
[[nodiscard]] Token asMultiplier(const Token& token);
/// The token in the unit, or as the rate, that the target is; unchanged for other targets.
[[nodiscard]] Token convertedInto(const Token& token, const Token& target);

/// The result of the token; nothing for the blank token.
[[nodiscard]] std::optional<EvaluationResult> resultOf(const Token& token);

/// The value in the shape of the token: 30 like "20%" is 30 as a percentage's fraction, like "$5" it is $30.00, like a
/// timespan it is so many seconds.
[[nodiscard]] EvaluationResult resultWith(const Decimal& value, const Token& matchingTypeOf);

/// The number that the token is worth; nothing for tokens that are worth none.
[[nodiscard]] std::optional<Decimal> decimalOf(const Token& token);

}  // namespace tavrine
