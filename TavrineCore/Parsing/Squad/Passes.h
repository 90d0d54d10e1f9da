#pragma once

namespace tavrine {
class TokenList;
struct PassContext;
}  // namespace tavrine

/// The passes of the chain, one line each, under the names and in the order in which Stages.cpp lists them. A pass
/// edits the list it is given and leaves alone what it can't apply to.
namespace tavrine::passes {

// SimpleTokenPasses.cpp
/// The line becomes lexemes (in the scratch).
void lexemesFor(TokenList& list, const PassContext& context);
/// Lexemes become the first tokens; "#" and "tag" fuse, and so do "5", " ", "½".
void tokensForLexemes(TokenList& list, const PassContext& context);

// NumberPasses.cpp
/// Where the locale groups by blanks, "1 000 000" becomes one number. Numbers beside a colon are times: "12 30:00"
/// stays two numbers.
void gatherWhitespacedSeparatedNumbers(TokenList& list, const PassContext& context);
/// "5k" becomes one number with a scalar. The letter has to stand directly behind: in "5 k" it is a word. Behind a
/// bracket or a variable it is taken for a function's name.
void applyScalarsToNumbers(TokenList& list, const PassContext& context);
/// "2e5" and "2e-5" become one number; "2e" and "2 e5" keep their words.
void identifyScientificNotation(TokenList& list, const PassContext& context);
/// "0b101", "0xFF" and "0o17" become numbers of their bases; "0xFG" stays a zero and a word. Counts on 64 bits being
/// enough.
void identifyOtherBaseNumbersIn(TokenList& list, const PassContext& context);

// NumericClusterPasses.cpp
/// A word of letters and digits falls apart where its parts mean something: "x2" into an operator (or the variable x)
/// and a number, "C4" into a pitch. "abc2" stays a word.
void identifyNumericClustersIn(TokenList& list, const PassContext& context);

// NumberGroupPasses.cpp
/// "2 dp" becomes a `dpSpecifier` over the number and the word.
void identifyDecimalPointSpecifiers(TokenList& list, const PassContext& context);
/// A minus directly before a number joins it where nothing stands in front to subtract from: "-5" and "3 * -5", but
/// not "3 -5". Counts on the dates having taken their dashes.
void identifyUnaryMinusNumbersIn(TokenList& list, const PassContext& context);

// PlacePasses.cpp
/// "Paris", "New York", "JFK", "PST", "GMT+5" → `timezone`; "christmas", "new year's eve" → `specialDay`. A name that
/// is an ordinary word as well has to look like a name: "Nice", "LAX", "time in nice".
void identifyTimezonesInAndSpecialDaysIn(TokenList& list, const PassContext& context);
/// "here" → the calendar's own `timezone`.
void identifyRelativePlacesIn(TokenList& list, const PassContext& context);

// DateComponentPasses.cpp
/// "March 5", "3pm", "2020-03-05", "next week", "christmas 2025" → `dateComponents`, piece by piece. Digits that may be
/// something else are read as dates only where the line names a duration. Counts on units, zones and special days
/// being known, and runs before numbers pair with units.
void identifyDateComponentsIn(TokenList& list, const PassContext& context);
/// "2024-03-05T14:30:00Z" → `datestamp`.
void transformComponentsIntoIsoDatesIn(TokenList& list, const PassContext& context);

// ZonePasses.cpp
/// "3pm pt" and "3pm et" → `timezone`; "pacific time" alone → the time there. Counts on dates being read in pieces:
/// without a time or a zone in the line "pt" stays the unit.
void handleUSNamedTimezones(TokenList& list, const PassContext& context);

// DateComponentPasses.cpp
/// The pieces of dates with what stands beside them → `datestamp`, `datespan`: "Friday at 3pm in Tokyo" is one moment.
/// What makes none goes back to words.
void transformComponentsIntoDatesIn(TokenList& list, const PassContext& context);

// NumberWordPasses.cpp
/// "two hundred and five" becomes one number, and so does "3 thousand". A word among words stays a word: "five apples",
/// "five-star".
void transformNumberWordsAndApplyToNumbersWhereRequired(TokenList& list, const PassContext& context);

// NumberGroupPasses.cpp
/// "10%", "10 %" and "10 percent" become percentages. "5 % 3" is left: a number behind the sign makes it a modulo.
void identifyPercentages(TokenList& list, const PassContext& context);
/// A percent sign between two operands becomes the modulo operator.
void identifyPercentSymbolAsModIn(TokenList& list, const PassContext& context);
/// "1920x1080" becomes a resolution, for the sake of screens. Runs only where the line holds a value with a unit; the
/// processors take back what no screen wants.
void identifyResolutionsIn(TokenList& list, const PassContext& context);
/// "3/4" becomes a fraction. "3 / 4" doesn't, and neither does what belongs to more: the "1/3" of "2^1/3", the "1/2" of
/// "3 1/2", the "4/2" of "8/4/2".
void identifyFractionsIn(TokenList& list, const PassContext& context);

// OperatorPasses.cpp
/// "*" and "*" → "**", where the vocabulary knows it.
void identifyMultiCharacterOperatorsInAsterisks(TokenList& list, const PassContext& context);
/// "=" and its neighbour → "==", "<=", ">=", "!=". An "=" beside anything else stays.
void identifyMultiCharacterOperatorsAtEquals(TokenList& list, const PassContext& context);
/// "and" and "or" become operators in a line that compares: "1 > 0 and 2 > 1", but not "5 and 6". A doubled sign
/// becomes one operator: "&&", "||", "<<", ">>".
void identifyConjunctionsAsLogicalOperatorsIn(TokenList& list, const PassContext& context);
/// "!" before a bracket or a truth value. Counts on: "!" has become a comment word, brackets are folded.
void identifyLogicalNotOperatorIn(TokenList& list, const PassContext& context);

// FixturePasses.cpp
/// "greater than" → one operator: the longest phrase of the vocabulary that begins at a word.
void identifyMultiWordFixturesAndCustomTypesIn(TokenList& list, const PassContext& context);
/// Words that are cut too long or too short where no white space parts them.
void identifyExtraFixturesInChinese(TokenList& list, const PassContext& context);

// VariablePasses.cpp
/// "monthly rent" → one `variable`, where there is one of that name. Longer names win.
void identifyMultiWordVariablesIn(TokenList& list, const PassContext& context);
/// Variables give way to their values, so that "x km" is a quantity. The name in front of "=" stays.
void expandVariables(TokenList& list, const PassContext& context);
/// The names come back. Counts on the scratch: what stood where.
void unexpandVariables(TokenList& list, const PassContext& context);

// UnitPasses.cpp
/// "km", "nautical mile", "m^2", the marks of feet and inches → `unit`; "m", "oz" and "pounds" by what else the line
/// measures. Counts on labels having taken their words. Leaves "1st" and, on their own, "in" and "to".
void identifyUnitsIn(TokenList& list, const PassContext& context);

// LaptimePasses.cpp
/// "3:45:32.431" → `laptime`, "01:30:15:10" → `frametime`. "3:45" is left to the dates.
void identifyLaptimesAndFrametimesIn(TokenList& list, const PassContext& context);

// SubstancePasses.cpp
/// "flour", "olive oil" → `substance`.
void identifySubstancesIn(TokenList& list, const PassContext& context);

// UnitExpressionPasses.cpp
/// "30 km", "$5" → `unitExpression`; "5 ft 3 in" → `compoundUnitExpression`; "5 - 10 km" → `unitRange`; 40° 26' 46" →
/// `degreesMinutesSeconds`. The "a" of "10 km a day" becomes a stroke, the "in" of "5 ft 3 in" inches. Counts on
/// numbers having their signs.
void identifyUnitExpressionsIn(TokenList& list, const PassContext& context);

// TimespanPasses.cpp
/// "3 weeks", "1:30 hours" → `timespan` over the amount, so that dates can be moved by it.
void identifyTimespansIn(TokenList& list, const PassContext& context);
/// "2 hours 5 min" → `timespan`; with seconds and frames → `frametime`.
void identifyTimespansInCompounds(TokenList& list, const PassContext& context);
/// What was read from one amount becomes that amount again, except in phrases, which ask for durations.
void transformTimespansOutsideCalendarMathExpressionsBackIntoUnitExpressions(TokenList& list,
                                                                             const PassContext& context);

// DatespanPasses.cpp
/// "3 - 5 March", "March 3 to 5" → `datespan`; "today - 2020" is a calculation with a year.
void identifyDatespans(TokenList& list, const PassContext& context);
/// Two dates around a minus make an interval: one that tells no year moves to the right side of the other.
void sanityCheckDatestampIntervals(TokenList& list, const PassContext& context);
/// The same for the dates of phrases: "days between Friday and Monday", "days to Friday".
void sanityCheckDatestampsInWordFunctionsIn(TokenList& list, const PassContext& context);

// RatePasses.cpp
/// "$20 / hour", "5 apples / day", "5% / year" → `rate`.
void identifyRatesIn(TokenList& list, const PassContext& context);
/// The "at" of "5 apples at $3 / apple" becomes a sign for times. Counts on the things being comments by now.
void identifyImplicitRatesIn(TokenList& list, const PassContext& context);
/// "at" and "for" beside a rate become operators: "2 hours at 50 km/h" multiplies, "100 km at 50 km/h" divides.
void identifyPrepositionalOperatorsAroundRatesIn(TokenList& list, const PassContext& context);

// CoordinatePasses.cpp
/// "45.5°, 120.3°" → `gpsCoordinates`.
void identifyGPSCoordinatesIn(TokenList& list, const PassContext& context);

// CommentPasses.cpp
/// "// …" to the end of the line → `slashComment`. Not behind a colon, and not without white space behind the slashes.
void identifySlashCommentsIn(TokenList& list, const PassContext& context);
/// The same where "//" is one word.
void identifySlashCommentsInWords(TokenList& list, const PassContext& context);
/// What nothing has recognised → `wordComment`; "#food" → `hashtag`.
void transformUnidentifiedTokensIntoWordComments(TokenList& list, const PassContext& context);
/// Text between two quotation marks → `legacyQuotationComment`; a mark without a partner stays.
void identifyLegacyQuotationComments(TokenList& list, const PassContext& context);
/// "food" → `hashtag`, where "#food" is a tag: statistics take the plain word for it.
void identifyUnhashedTagsIn(TokenList& list, const PassContext& context);
/// "(some words)", "(5 km)" → `bracketComment`; not "($5)", "2 * (a b)". Counts on the clean-up.
void identifyBracketCommentsIn(TokenList& list, const PassContext& context);

// LabelPasses.cpp
/// "Rent" and ":" → `label`.
void identifyLabelsIn(TokenList& list, const PassContext& context);
/// All up to the last label → `labelExpression`: "5 apples: 3" is 3.
void identifyLabelExpressionsIn(TokenList& list, const PassContext& context);

// ListPasses.cpp
/// "1, 2 and 3" behind a word that works on lists → `list`. One value alone is none.
void identifyLists(TokenList& list, const PassContext& context);

// WordFunctionPasses.cpp
/// Phrases of hosts that hold "and" or "or", before a list is made of what stands around these words.
void identifyCustomWordFunctionsWithConjunctionWordsBeforeListsAreIdentified(TokenList& list,
                                                                             const PassContext& context);
/// "20% of 50" → `wordFunction`, in every list. Counts on all values being tokens of their types, and on converters
/// not having taken "in" and "to".
void identifyWordFunctionsIn(TokenList& list, const PassContext& context);

// ConverterPasses.cpp
/// "in km", "as a fraction" → `converter`, where something stands to convert. Counts on: phrases that hold "in" or "to"
/// are functions by now.
void identifyConvertersIn(TokenList& list, const PassContext& context);

// DeclarationPasses.cpp
/// "x = 5" → `variableDeclaration`, "x = ?" → `remoteQuery`. Counts on everything that can stand on the right side.
void identifyVariableDeclarations(TokenList& list, const PassContext& context);

// ConditionalPasses.cpp
/// From the first "if" or "unless" on → `conditionalExpression`, if there is a "then" or an "else"; with a declaration
/// in front, both → `conditionalVariableDeclaration`.
void identifyConditionalExpressionsIn(TokenList& list, const PassContext& context);

// CleanUpPasses.cpp
/// What was recognised and not used → back to comments.
void deidentifyStragglers(TokenList& list, const PassContext& context);

// StructurePasses.cpp
/// Balanced brackets become `subexpression` tokens.
void wrapBracketsInSubexpressions(TokenList& list, const PassContext& context);
/// A declaration hides its right side from the list's type cache: the cache is rebuilt from all depths.
void updateTypesCacheIfNecessary(TokenList& list, const PassContext& context);
/// The net behind all passes: a list that no longer is the line gives way to its simple tokens, or to one comment.
void ensureTokensTileTheLine(TokenList& list, const PassContext& context);

// FunctionPasses.cpp
/// "sqrt(16)", "sqrt 16" → one `functionExpression` over the name and a subexpression of its argument; "12 k", where
/// the host has a function "k", likewise. Leaves names without an argument ("round the corner"), and with
/// `functionsRequireParentheses` those without brackets. Counts on wrapped brackets: only those behind a name are left.
void identifyFunctionExpressionsIn(TokenList& list, const PassContext& context);
/// The same for the functions that the host implements; their arguments stay as they are, a `list` of them included.
void identifyJavascriptFunctionsIn(TokenList& list, const PassContext& context);

}  // namespace tavrine::passes
