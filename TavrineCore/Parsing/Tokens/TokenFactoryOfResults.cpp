// Tokens that take the evaluators to make.

#include <memory>
#include <utility>

#include "TavrineCore/Parsing/Tokens/EvaluationSeam.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

namespace tavrine {

Token TokenFactory::variable(const Variable& variable) {
  return {TokenType::variable,
          TokenSubType::notSpecified,
          variable.name,
          NSRange::zero,
          nullptr,
          std::make_shared<const VariableTokenMetadata>(variable)};
}

Token TokenFactory::unitExpressionWith(const EvaluationResult& unitCalculationResult, bool prefersCompoundFormatting) {
  Token result = tokenOf(unitCalculationResult);
  if (const auto* it = result.metadataAs<UnitExpressionTokenMetadata>()) {
    return unitExpressionWith(it->numericValue.decimalValue, it->unitMetaData.underlyingTCUnit,
                              prefersCompoundFormatting);
  }
  std::string text = result.stringValue;
  return {TokenType::customInternal,
          TokenSubType::notSpecified,
          std::move(text),
          NSRange::zero,
          TokenList::frozen({std::move(result)}),
          nullptr};
}

}  // namespace tavrine
