#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

#include "TavrineCore/Parsing/Tokens/EvaluationSeam.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

TokenTypeSet typesBroughtBy(const Variable& variable) {
  if (!variable.definition) return {};
  const std::optional<Token> token = tokenOfDefinition(variable);
  return token ? TokenList({*token}).typesEverPresent() : TokenTypeSet();
}

}  // namespace

VariableTokenMetadata::VariableTokenMetadata(Variable named)
    : variable(std::move(named)), typesInDefinition(typesBroughtBy(variable)) {}

}  // namespace tavrine
