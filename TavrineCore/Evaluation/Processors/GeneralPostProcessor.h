#pragma once

#include "TavrineCore/Evaluation/Processors/TokenListProcessor.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

/// What a list holds, found in one look at all its tokens: the gates of the steps below.
struct TokenListProfile {
  explicit TokenListProfile(const TokenList& list);

  /// What stands in the line itself: nothing from inside of converters, rates, timespans and dates.
  TokenTypeSet types;
  TokenSubTypeSet subTypes;
  /// The subtypes at every depth.
  TokenSubTypeSet subTypesAnywhere;
  bool hasSquareRootSign = false;

 private:
  void add(const TokenList& list, bool isInLine);
};

/// The last and largest rewriting before the tree is built: operators where the user wrote none, signs at the value
/// that they belong to, brackets where neighbours are one operand.
class GeneralPostProcessor final : public TokenListProcessor {
 public:
  using TokenListProcessor::TokenListProcessor;
  void process(EditableTokenList& list) override;
};

/// The steps of `GeneralPostProcessor` by family.
namespace processing {

// SignSteps.cpp
void processNumbersAndOperators(EditableTokenList& list, const TokenListProfile& profile, bool bitwiseOperatorsAreOn);

// FactorSteps.cpp
void processConstants(EditableTokenList& list, const TokenListProfile& profile);
void replaceFractions(EditableTokenList& list);
void applyFractionTransformations(EditableTokenList& list, const TokenListProfile& profile);
void addImplicitAsPercentageConvertersAfterFractions(EditableTokenList& list, const TokenListProfile& profile);
void addExplicitMultiplicationBetweenSubexpressions(EditableTokenList& list);
void processSqrtChar(EditableTokenList& list, const TokenListProfile& profile);
void addImplicitMultiplicationBetweenFunctionsAndNumbers(EditableTokenList& list);

// UnitSteps.cpp
void addExplicitConverters(EditableTokenList& list, const TokenListProfile& profile, bool seeksFutureDate);
void processCompoundUnits(EditableTokenList& list);
void handleOverSpecifiedUnits(EditableTokenList& list);
void insertExplicitOperatorsBetweenUnitExpressions(EditableTokenList& list);
void convertUnitExpressionDivisionToRateBeforeIntoRateConverters(EditableTokenList& list,
                                                                 const TokenListProfile& profile);
void bracketRatesAndRateDivisionsAfterMultiplication(EditableTokenList& list, const TokenListProfile& profile);

// DateSteps.cpp
void deidentifyUnwantedDatestampsAndSpans(EditableTokenList& list);

}  // namespace processing
}  // namespace tavrine
