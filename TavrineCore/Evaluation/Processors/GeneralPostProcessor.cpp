#include "TavrineCore/Evaluation/Processors/GeneralPostProcessor.h"

namespace tavrine {

namespace {

constexpr TokenTypeSet kHiddenInside{TokenType::converter, TokenType::rate, TokenType::timespan, TokenType::datestamp};

}  // namespace

TokenListProfile::TokenListProfile(const TokenList& list) { add(list, true); }

void TokenListProfile::add(const TokenList& list, bool isInLine) {
  for (const Token& token : list) {
    subTypesAnywhere.insert(token.subType);
    if (isInLine) {
      types.insert(token.type);
      subTypes.insert(token.subType);
    }
    if (token.is(TokenType::operator_) && token.stringValue == "√") hasSquareRootSign = true;
    if (token.subtokens) add(*token.subtokens, isInLine && !kHiddenInside.contains(token.type));
  }
}

void GeneralPostProcessor::process(EditableTokenList& list) {
  // Describes the list as the parser left it. What an earlier step may have brought in is asked of the list.
  const TokenListProfile profile(list.list());
  const EngineFeatureFlags& flags = customization().featureFlags();
  const auto holdsNow = [&](TokenType type) { return list->typesEverPresentAtAnyDepth().contains(type); };
  using namespace processing;

  if (holdsNow(TokenType::datestamp) || holdsNow(TokenType::datespan)) deidentifyUnwantedDatestampsAndSpans(list);
  if (holdsNow(TokenType::operator_) || profile.subTypes.contains(TokenSubType::negativeNumber)) {
    processNumbersAndOperators(list, profile, flags.bitwiseOperators);
  }
  processConstants(list, profile);
  if (holdsNow(TokenType::fraction)) replaceFractions(list);
  applyFractionTransformations(list, profile);
  addImplicitAsPercentageConvertersAfterFractions(list, profile);
  addExplicitMultiplicationBetweenSubexpressions(list);
  processSqrtChar(list, profile);
  if (profile.types.contains(TokenType::number)) addImplicitMultiplicationBetweenFunctionsAndNumbers(list);
  addExplicitConverters(list, profile, flags.seeksFutureDate);
  if (profile.types.contains(TokenType::unit)) {
    if (profile.types.contains(TokenType::compoundUnitExpression)) processCompoundUnits(list);
    handleOverSpecifiedUnits(list);
  }
  if (profile.types.contains(TokenType::unitExpression)) insertExplicitOperatorsBetweenUnitExpressions(list);
  convertUnitExpressionDivisionToRateBeforeIntoRateConverters(list, profile);
  bracketRatesAndRateDivisionsAfterMultiplication(list, profile);
}

}  // namespace tavrine
