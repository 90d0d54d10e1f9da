#include "TavrineCore/Parsing/Squad/Stages.h"

#include <algorithm>
#include <array>

#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Parsing/Helpers/DigitDetector.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

using enum TokenType;

constexpr TokenTypeSet kNothing{};
/// What a unit can be made of.
constexpr TokenTypeSet kUnitWords =
    TokenTypeSet::potentialUnitNamePrefixTypes | TokenTypeSet{unit, customUnit, quotationMark};

bool lineHolds(const PassContext& context, std::string_view text) {
  return context.rawExpression.find(text) != std::string_view::npos;
}

bool lineMayHoldScientificNotation(const TokenList&, const PassContext& context) {
  return lineHolds(context, Parser::sciNoteEChar) || lineHolds(context, Parser::uppercaseSciNoteEChar);
}
bool lineHoldsOtherBases(const TokenList&, const PassContext& context) {
  if (!context.features.hexAndBinary) return false;
  return lineHolds(context, Parser::binaryPrefix) || lineHolds(context, Parser::hexPrefix) ||
         lineHolds(context, Parser::octalPrefix);
}
bool lineHoldsAlternativeExponent(const TokenList&, const PassContext& context) {
  return lineHolds(context, Parser::alternativeExponent);
}
bool lineMayHoldClusters(const TokenList&, const PassContext& context) {
  return DigitDetector::containsDigit(context.rawExpression) || lineHolds(context, Parser::letterXAsTimes);
}
bool localeIsChinese(const TokenList&, const PassContext& context) {
  return context.customization.locale().isChinese();
}
bool slashCommentsInLine(const TokenList&, const PassContext& context) {
  return context.features.slashComments() && lineHolds(context, Parser::slash);
}
bool phrasesAreDeclared(const TokenList&, const PassContext& context) {
  return context.variables.hasMultiWordVariables();
}
bool quotationMarkComments(const TokenList&, const PassContext& context) {
  return context.features.quotationMarkComments();
}
bool labelComments(const TokenList&, const PassContext& context) { return context.features.labelComments(); }
bool variableDeclarations(const TokenList&, const PassContext& context) {
  return context.features.variableDeclarations;
}
bool tagsAreDeclared(const TokenList&, const PassContext& context) { return !context.variables.unhashedTags().empty(); }
bool calendarCalculations(const TokenList&, const PassContext& context) {
  return context.features.calendarCalculations;
}
bool units(const TokenList&, const PassContext& context) { return context.features.units; }
bool shortFormUSTimezones(const TokenList&, const PassContext& context) {
  return context.features.calendarCalculations && context.features.shortFormUSTimezones;
}
bool cookingSubstances(const TokenList&, const PassContext& context) { return context.features.cookingSubstances; }
bool bracketsFold(const TokenList&, const PassContext& context) { return context.features.subexpressions; }
bool gpsAndDms(const TokenList&, const PassContext& context) { return context.features.GPSAndDMS; }
bool bracketComments(const TokenList&, const PassContext& context) { return context.features.bracketComments(); }
bool noPercentageWasFound(const TokenList& list, const PassContext&) { return !list.typePrecheck(percentage); }
bool holdsMoreThanCommentWords(const TokenList& list, const PassContext&) {
  return !list.onlyTypesHaveBeenPresentIn(TokenTypeSet::wordCommentAndWhitespace);
}
bool variablesStandExpanded(const TokenList&, const PassContext& context) {
  return context.scratch.expansion != nullptr;
}

/// The chain. What a stage relies on:
/// - Labels (G2) go first: a word taken into a label is out of reach of units and dates.
/// - Dates (G8) run before units (G11): the digits of a date are gone when numbers pair with units.
/// - The unary minus (G9) runs behind the dates, which take their dashes first, and before the units, which pick up a
///   negative number.
/// - Behind G17 no `unidentified` token is left on the top level: functions match on comment words.
/// - G20 is the seam at which the flat list becomes a tree. Every pass before it works on one level and sees brackets
///   as plain tokens; every pass behind it must walk all lists.
/// - Word functions (G27) run before converters (G30): a phrase that holds "in" or "to" has taken it by then.
/// - Declarations (G34) come after everything that can stand on their right side.
constexpr auto kStages = std::to_array<Stage>({
    // name, pass, phase, needs all of, needs any of, also requires, run
    {"S1", "lexemesFor", ParsePhase::simple, kNothing, kNothing, nullptr, passes::lexemesFor},
    {"S2", "tokenFor", ParsePhase::simple, kNothing, kNothing, nullptr, passes::tokensForLexemes},
    {"S3",
     "gatherWhitespacedSeparatedNumbers",
     ParsePhase::simple,
     {number, whitespace},
     kNothing,
     nullptr,
     passes::gatherWhitespacedSeparatedNumbers},
    {"S4", "applyScalarsToNumbers", ParsePhase::simple, {scalar}, kNothing, nullptr, passes::applyScalarsToNumbers},
    {"S5",
     "identifyScientificNotation",
     ParsePhase::simple,
     {number, unidentified},
     kNothing,
     lineMayHoldScientificNotation,
     passes::identifyScientificNotation},
    {"S6",
     "identifyOtherBaseNumbersIn",
     ParsePhase::simple,
     {number, unidentified},
     kNothing,
     lineHoldsOtherBases,
     passes::identifyOtherBaseNumbersIn},
    {"S7",
     "identifyMultiCharacterOperators",
     ParsePhase::simple,
     {operator_},
     kNothing,
     lineHoldsAlternativeExponent,
     passes::identifyMultiCharacterOperatorsInAsterisks},
    {"S8",
     "identifyMultiCharacterOperators",
     ParsePhase::simple,
     {equals},
     kNothing,
     nullptr,
     passes::identifyMultiCharacterOperatorsAtEquals},
    {"S9",
     "identifyConjunctionsAsLogicalOperatorsIn",
     ParsePhase::simple,
     kNothing,
     {operator_, conjunctionWord},
     nullptr,
     passes::identifyConjunctionsAsLogicalOperatorsIn},
    {"S10",
     "identifyNumericClustersIn",
     ParsePhase::simple,
     {unidentified},
     kNothing,
     lineMayHoldClusters,
     passes::identifyNumericClustersIn},
    {"S11", "identifyMultiWordFixturesAndCustomTypesIn", ParsePhase::simple, kNothing,
     TokenTypeSet::typesInMultiWordFixtures, nullptr, passes::identifyMultiWordFixturesAndCustomTypesIn},
    {"S12",
     "identifyExtraFixturesInChinese",
     ParsePhase::simple,
     {unidentified},
     kNothing,
     localeIsChinese,
     passes::identifyExtraFixturesInChinese},

    {"V1", "identifyMultiWordVariablesIn", ParsePhase::variables, kNothing, kNothing, phrasesAreDeclared,
     passes::identifyMultiWordVariablesIn},
    {"V2", "expandVariables", ParsePhase::variables, kNothing, {variable, subsheet}, nullptr, passes::expandVariables},

    {"G1",
     "identifySlashCommentsIn",
     ParsePhase::groups,
     {operator_},
     kNothing,
     slashCommentsInLine,
     passes::identifySlashCommentsIn},
    {"G1",
     "identifySlashCommentsIn, in words",
     ParsePhase::groups,
     {operator_, unidentified},
     kNothing,
     slashCommentsInLine,
     passes::identifySlashCommentsInWords},
    {"G2", "identifyLabelsIn", ParsePhase::groups, {colon}, kNothing, nullptr, passes::identifyLabelsIn},
    {"G3", "identifyUnitsIn", ParsePhase::groups, kNothing, kUnitWords, units, passes::identifyUnitsIn},
    {"G4",
     "identifyLaptimesAndFrametimesIn",
     ParsePhase::groups,
     {number, colon},
     kNothing,
     nullptr,
     passes::identifyLaptimesAndFrametimesIn},
    {"G5",
     "identifyTimezonesInAndSpecialDaysIn",
     ParsePhase::groups,
     {unidentified},
     kNothing,
     calendarCalculations,
     passes::identifyTimezonesInAndSpecialDaysIn},
    {"G5",
     "identifyTimezonesInAndSpecialDaysIn, relative places",
     ParsePhase::groups,
     {relativePlaceWord},
     kNothing,
     calendarCalculations,
     passes::identifyRelativePlacesIn},
    {"G6",
     "identifySubstancesIn",
     ParsePhase::groups,
     {unidentified},
     kNothing,
     cookingSubstances,
     passes::identifySubstancesIn},
    {"G7",
     "identifyDecimalPointSpecifiers",
     ParsePhase::groups,
     {typeName, number},
     kNothing,
     nullptr,
     passes::identifyDecimalPointSpecifiers},
    {"G8",
     "identifyDateComponentsIn",
     ParsePhase::groups,
     kNothing,
     {number, dateWord, specialDay, dateQualifier},
     calendarCalculations,
     passes::identifyDateComponentsIn},
    {"G8",
     "transformComponentsIntoIsoDatesIn",
     ParsePhase::groups,
     {dateComponents},
     kNothing,
     calendarCalculations,
     passes::transformComponentsIntoIsoDatesIn},
    {"G8",
     "handleUSNamedTimezones",
     ParsePhase::groups,
     kNothing,
     {timezone, dateComponents},
     shortFormUSTimezones,
     passes::handleUSNamedTimezones},
    {"G8",
     "transformComponentsIntoDatesIn",
     ParsePhase::groups,
     {dateComponents},
     kNothing,
     calendarCalculations,
     passes::transformComponentsIntoDatesIn},
    {"G9",
     "identifyUnaryMinusNumbersIn",
     ParsePhase::groups,
     {operator_, number},
     kNothing,
     nullptr,
     passes::identifyUnaryMinusNumbersIn},
    {"G10",
     "transformNumberWordsAndApplyToNumbersWhereRequired",
     ParsePhase::groups,
     kNothing,
     {numberWord, conjunctionWord},
     nullptr,
     passes::transformNumberWordsAndApplyToNumbersWhereRequired},
    {"G11",
     "identifyUnitExpressionsIn",
     ParsePhase::groups,
     {number},
     {unit, converterSymbol},
     units,
     passes::identifyUnitExpressionsIn},
    {"G12",
     "identifyTimespansIn",
     ParsePhase::groups,
     {unitExpression},
     kNothing,
     nullptr,
     passes::identifyTimespansIn},
    {"G12",
     "identifyTimespansIn, compounds",
     ParsePhase::groups,
     {compoundUnitExpression},
     kNothing,
     nullptr,
     passes::identifyTimespansInCompounds},
    {"G13",
     "identifyPercentages",
     ParsePhase::groups,
     kNothing,
     {percentageSymbol, typeName},
     nullptr,
     passes::identifyPercentages},
    {"G14", "identifyRatesIn", ParsePhase::groups, {operator_, unit}, kNothing, nullptr, passes::identifyRatesIn},
    {"G15", "identifyDatespans", ParsePhase::groups, {datestamp, number}, kNothing, nullptr, passes::identifyDatespans},
    {"G16",
     "sanityCheckDatestampIntervals",
     ParsePhase::groups,
     {datestamp, operator_},
     kNothing,
     nullptr,
     passes::sanityCheckDatestampIntervals},
    {"G17",
     "transformUnidentifiedTokensIntoWordComments",
     ParsePhase::groups,
     {unidentified},
     kNothing,
     nullptr,
     passes::transformUnidentifiedTokensIntoWordComments},
    {"G18",
     "identifyLegacyQuotationComments",
     ParsePhase::groups,
     {quotationMark},
     kNothing,
     quotationMarkComments,
     passes::identifyLegacyQuotationComments},
    {"G19",
     "identifyUnhashedTagsIn",
     ParsePhase::groups,
     {statisticType, wordComment},
     kNothing,
     tagsAreDeclared,
     passes::identifyUnhashedTagsIn},
    {"G20",
     "wrapBracketsInSubexpressions",
     ParsePhase::groups,
     {bracket},
     kNothing,
     bracketsFold,
     passes::wrapBracketsInSubexpressions},
    {"G21",
     "identifyFunctionExpressionsIn",
     ParsePhase::groups,
     {functionName},
     kNothing,
     nullptr,
     passes::identifyFunctionExpressionsIn},
    {"G22",
     "identifyPercentSymbolAsModIn",
     ParsePhase::groups,
     {percentageSymbol},
     kNothing,
     noPercentageWasFound,
     passes::identifyPercentSymbolAsModIn},
    {"G23",
     "identifyLogicalNotOperatorIn",
     ParsePhase::groups,
     {wordComment},
     Parser::operandsOfLogicalNot,
     nullptr,
     passes::identifyLogicalNotOperatorIn},
    {"G24", "identifyLists", ParsePhase::groups, kNothing, Parser::listSupportingTypes, nullptr, passes::identifyLists},
    {"G25",
     "identifyJavascriptFunctionsIn",
     ParsePhase::groups,
     {javascriptFunctionName},
     kNothing,
     nullptr,
     passes::identifyJavascriptFunctionsIn},
    {"G26", "identifyCustomWordFunctionsWithConjunctionWordsBeforeListsAreIdentified", ParsePhase::groups, kNothing,
     kNothing, holdsMoreThanCommentWords,
     passes::identifyCustomWordFunctionsWithConjunctionWordsBeforeListsAreIdentified},
    {"G26",
     "identifyResolutionsIn",
     ParsePhase::groups,
     {unitExpression, operator_},
     kNothing,
     holdsMoreThanCommentWords,
     passes::identifyResolutionsIn},
    {"G26",
     "identifyFractionsIn",
     ParsePhase::groups,
     {operator_},
     kNothing,
     holdsMoreThanCommentWords,
     passes::identifyFractionsIn},
    {"G27", "identifyWordFunctionsIn", ParsePhase::groups, kNothing, kNothing, nullptr,
     passes::identifyWordFunctionsIn},
    {"G28",
     "sanityCheckDatestampsInWordFunctionsIn",
     ParsePhase::groups,
     {wordFunction},
     kNothing,
     nullptr,
     passes::sanityCheckDatestampsInWordFunctionsIn},
    {"G29",
     "transformTimespansOutsideCalendarMathExpressionsBackIntoUnitExpressions",
     ParsePhase::groups,
     {timespan},
     kNothing,
     nullptr,
     passes::transformTimespansOutsideCalendarMathExpressionsBackIntoUnitExpressions},
    {"G30",
     "identifyConvertersIn",
     ParsePhase::groups,
     kNothing,
     {converterSymbol, typeName},
     nullptr,
     passes::identifyConvertersIn},
    {"G31",
     "identifyImplicitRatesIn",
     ParsePhase::groups,
     {prepositionWord, operator_, wordComment},
     kNothing,
     nullptr,
     passes::identifyImplicitRatesIn},
    {"G32",
     "identifyPrepositionalOperatorsAroundRatesIn",
     ParsePhase::groups,
     {prepositionWord},
     TokenTypeSet::rateExpressable,
     nullptr,
     passes::identifyPrepositionalOperatorsAroundRatesIn},
    {"G33",
     "identifyGPSCoordinatesIn",
     ParsePhase::groups,
     {comma, unitExpression},
     kNothing,
     gpsAndDms,
     passes::identifyGPSCoordinatesIn},
    {"G34",
     "identifyVariableDeclarations",
     ParsePhase::groups,
     {equals},
     kNothing,
     variableDeclarations,
     passes::identifyVariableDeclarations},
    {"G35",
     "identifyConditionalExpressionsIn",
     ParsePhase::groups,
     {conditionalKeyword},
     kNothing,
     nullptr,
     passes::identifyConditionalExpressionsIn},
    {"G36",
     "identifyLabelExpressionsIn",
     ParsePhase::groups,
     {label},
     kNothing,
     labelComments,
     passes::identifyLabelExpressionsIn},
    {"G37",
     "updateTypesCacheIfNecessary",
     ParsePhase::groups,
     {variableDeclaration},
     kNothing,
     nullptr,
     passes::updateTypesCacheIfNecessary},

    {"V3", "unexpandVariables", ParsePhase::restoring, kNothing, kNothing, variablesStandExpanded,
     passes::unexpandVariables},

    {"C1", "deidentifyStragglers", ParsePhase::cleanUp, kNothing, kNothing, nullptr, passes::deidentifyStragglers},
    {"C2",
     "identifyBracketCommentsIn",
     ParsePhase::cleanUp,
     {subexpression},
     kNothing,
     bracketComments,
     passes::identifyBracketCommentsIn},

    {"L1", "ensureTokensTileTheLine", ParsePhase::guard, kNothing, kNothing, nullptr, passes::ensureTokensTileTheLine},
});

constexpr bool phasesAreInOrder() {
  return std::is_sorted(kStages.begin(), kStages.end(),
                        [](const Stage& left, const Stage& right) { return left.phase < right.phase; });
}
static_assert(phasesAreInOrder());

bool gateIsOpen(const Stage& stage, const TokenList& list, const PassContext& context) {
  if (!list.allTypesHaveBeenPresentIn(stage.needsAll)) return false;
  if (!stage.needsAny.isEmpty() && !list.anyTypesHaveBeenPresentIn(stage.needsAny)) return false;
  return stage.alsoRequires == nullptr || stage.alsoRequires(list, context);
}

}  // namespace

std::span<const Stage> parserStages() { return kStages; }

void runStages(ParsePhase first, ParsePhase last, TokenList& list, const PassContext& context,
               const StageObserver* observer) {
  for (const Stage& stage : kStages) {
    if (stage.phase < first) continue;
    if (stage.phase > last) break;
    const bool runs = stage.run != nullptr && gateIsOpen(stage, list, context);
    if (runs) stage.run(list, context);
    if (observer != nullptr) (*observer)(stage, list, runs);
  }
}

}  // namespace tavrine
