#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

class PrototypeSequence;
class TokenList;
class TokenTypeSet;

/// What stood at a gap of a phrase, and what it comes to.
struct CustomFunctionArgument {
  Token matchedToken;
  EvaluationResult functionArgument;
};

/// Whether the words at gaps for any word are arguments. Those of hosts' phrases are none: a word is no value.
enum class WordArguments : std::uint8_t { passed, leftOut };

/// Takes the arguments out of a phrase that has been matched.
struct CustomFunctionSubstitutionUtility {
  /// What never is an argument: the words and signs that a phrase is made of.
  static const TokenTypeSet illegalArgumentTokenTypes;

  /// Nothing for a token that is no call of a host's function.
  [[nodiscard]] static std::optional<std::vector<CustomFunctionArgument>> functionArgumentsFor(
      const Token& customFunctionToken);

  /// The arguments in the order of the gaps; what comes to nothing is left out. None where the tokens aren't the
  /// phrase.
  [[nodiscard]] static std::vector<CustomFunctionArgument> functionArgumentsFor(
      const TokenList& tokenList, const PrototypeSequence& matchedSequence,
      WordArguments words = WordArguments::leftOut);
};

}  // namespace tavrine
