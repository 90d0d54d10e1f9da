#include "TavrineCore/Evaluation/PostEvaluation/AmbiguousAnswerDeterminer.h"

#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

namespace {

enum class Rank : std::uint8_t { none, value, unitExpression, currency, error };

Rank rankOf(const Token& token) {
  if (token.is(TokenType::error)) return Rank::error;
  if (!TokenTypeSet::validAnswerProducingTypes.contains(token.type)) return Rank::none;
  if (!token.is(TokenType::unitExpression)) return Rank::value;
  const std::optional<TCUnit> unit = token.unitValue();
  return unit && unit->unitType() == UnitType::currency ? Rank::currency : Rank::unitExpression;
}

}  // namespace

Token AmbiguousAnswerDeterminer::finalValue() const {
  const Token* best = nullptr;
  Rank bestRank = Rank::none;
  for (const Token& token : tokenList_) {
    const Rank rank = rankOf(token);
    if (rank == Rank::none || rank < bestRank) continue;
    best = &token;
    bestRank = rank;
  }
  return best != nullptr ? best->evaluated() : Token();
}

}  // namespace tavrine
