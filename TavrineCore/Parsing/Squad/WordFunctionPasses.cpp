// Phrases become calls: "20% of 50" → one `wordFunction` over the percentage, the word and the number.
//
// A list is looked through from its end to its start, and at each token the phrases that end there are tried by rank,
// so that in "half of 20% of 50" the phrase on the right is a token before the one on the left takes it as its
// argument. Cheap questions come first: whether the list can hold a phrase at all, which phrases have all their words
// in it, which of those have the values that they want; what is left is matched token by token, ends first.

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Functions/CustomFunctionsList.h"
#include "TavrineCore/Customization/Functions/FunctionList.h"
#include "TavrineCore/Parsing/ParsingLimits.h"
#include "TavrineCore/Parsing/Prototypes/PrototypeMatching.h"
#include "TavrineCore/Parsing/Prototypes/PrototypeSequenceCache.h"
#include "TavrineCore/Parsing/Squad/Nesting.h"
#include "TavrineCore/Parsing/Squad/NumberTokens.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Squad/UnitTokens.h"
#include "TavrineCore/Parsing/Tokens/EvaluationSeam.h"
#include "TavrineCore/Parsing/Tokens/FunctionMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"

namespace tavrine {

namespace {

using Sequences = std::vector<PrototypeSequenceRef>;

/// Tokens whose inside is a line of its own.
constexpr TokenTypeSet kListsWithPhrases{TokenType::subexpression, TokenType::functionExpression, TokenType::list,
                                         TokenType::conditionalExpression};

constexpr FunctionIdentifierSet kLoans = FunctionIdentifierSet::fromTo(FunctionIdentifier::totalInterestOnLoanRepayment,
                                                                       FunctionIdentifier::monthlyLoanRepayment);

constexpr TokenTypeSet kConjunctions{TokenType::conjunctionWord};

/// The type that a phrase sees: a variable counts as what it stands for.
TokenType effectiveTypeOf(const Token& token) {
  if (!token.is(TokenType::variable)) return token.type;
  const std::optional<Variable> variable = token.variable();
  const std::optional<Token> value = variable ? tokenOfDefinition(*variable) : std::nullopt;
  return value ? value->type : token.type;
}

/// "15% less than 200": the operator is a phrase too.
bool hasOperatorOfWords(const TokenList& list) {
  return list.typePrecheck(TokenType::operator_) && std::any_of(list.begin(), list.end(), [](const Token& token) {
           return token.is(TokenType::operator_) && token.stringValue.find(' ') != std::string::npos;
         });
}

bool worthScanningForWordFunctionsIn(const TokenList& list) {
  if (hasOperatorOfWords(list)) return true;
  if (!list.anyTypesHaveBeenPresentIn(TokenTypeSet::typesInWordOperators)) return false;
  if (list.onlyTypesHaveBeenPresentIn(TokenTypeSet::wordCommentAndWhitespace)) return false;
  if (list.count() == 1 && TokenTypeSet::validAnswerProducingTypes.contains(list[0].type)) return false;
  return !std::all_of(list.begin(), list.end(), [](const Token& token) {
    return TokenTypeSet::definitelyNotAWordFunctionIfOnlyTheseTypesPresent.contains(effectiveTypeOf(token));
  });
}

/// The phrases of hosts: few, so that each is asked for its words.
void appendCustomSequences(const TokenList& list, const CustomFunctionsList& functions, Sequences& sequences) {
  std::vector<CustomFunction> worthScanning;
  for (const CustomFunction& function : functions.customFunctions()) {
    const auto& prerequisites = function.prerequisiteTypes();
    if (prerequisites == nullptr || list.allTypesHaveBeenPresentIn(*prerequisites)) worthScanning.push_back(function);
  }
  if (worthScanning.empty()) return;
  const StringSet& words = list.allStrings(/*lowercased=*/true);
  for (PrototypeSequenceRef& sequence : PrototypeSequenceCache::sequencesFor(worthScanning)) {
    const bool saysAll = std::all_of(sequence->wordsPresent().begin(), sequence->wordsPresent().end(),
                                     [&words](const std::string& word) { return words.contains(word); });
    if (saysAll) sequences.push_back(std::move(sequence));
  }
}

/// The phrases whose words stand in a list.
struct Candidates {
  std::vector<const Function*> functions;
  Sequences custom;

  [[nodiscard]] bool isEmpty() const { return functions.empty() && custom.empty(); }

  /// Those that can match now: enough tokens, and the types that the gaps want.
  [[nodiscard]] Sequences thatFit(const TokenList& list) const {
    Sequences sequences = PrototypeSequenceCache::sequencesFor(functions, &list);
    std::copy_if(custom.begin(), custom.end(), std::back_inserter(sequences),
                 [&list](const PrototypeSequenceRef& sequence) { return sequence->typesWereIn(list); });
    std::erase_if(sequences, [&list](const PrototypeSequenceRef& sequence) {
      return sequence->prototypes().size() > list.count();
    });
    return sequences;
  }
};

/// Finds and wraps the calls of one list.
class CallWrapper {
 public:
  /// `depth` is the nesting around the list.
  CallWrapper(TokenList& list, const PassContext& context, std::size_t depth)
      : list_(list), context_(context), depth_(depth) {}

  /// Whether there was any.
  bool wrap(const Candidates& candidates) {
    bool hasWrapped = false;
    Sequences sequences = candidates.thatFit(list_);
    mayAskForLoan_ = std::any_of(candidates.functions.begin(), candidates.functions.end(),
                                 [](const Function* function) { return kLoans.contains(function->identifier); });
    for (std::size_t end = list_.count(); end > 0 && !sequences.empty();) {
      PrototypeSequenceMatcher matcher(list_);
      std::optional<PrototypeSequenceMatcher::Match> match;
      for (; end > 0 && !match; --end) match = matcher.findSliceMatching(sequences, end - 1);
      if (!match) break;
      giveWayToHost(matcher, sequences, *match);
      if (!isMeant(*match) || !replace(*match)) continue;
      hasWrapped = true;
      // A call may be what a gap of another phrase wanted: "3 days after 5 days ago".
      const std::optional<FunctionIdentifier> called = match->sequence->functionIdentifier();
      if (called && returnTypeOf(*called)) {
        sequences = candidates.thatFit(list_);
      } else {
        std::erase_if(sequences,
                      [this](const auto& sequence) { return sequence->prototypes().size() > list_.count(); });
      }
      // Nothing has changed for phrases that end farther right than one that begins with the new token reaches.
      end = std::min(list_.count(), match->slice.startIndex + longestOf(sequences));
    }
    if (hasWrapped) rebuildTypesCache();
    return hasWrapped;
  }

 private:
  /// A built-in phrase goes before a host's, but not where the host's says more: "area of 5 m by 3 m" holds "5 m by
  /// 3 m".
  static void giveWayToHost(PrototypeSequenceMatcher& matcher, const Sequences& sequences,
                            PrototypeSequenceMatcher::Match& match) {
    if (!match.sequence->functionIdentifier()) return;
    Sequences ofHost;
    std::copy_if(sequences.begin(), sequences.end(), std::back_inserter(ofHost),
                 [](const PrototypeSequenceRef& sequence) { return !sequence->functionIdentifier(); });
    if (ofHost.empty()) return;
    std::optional<PrototypeSequenceMatcher::Match> wider = matcher.findSliceMatching(ofHost, match.slice.endIndex);
    if (wider && wider->slice.startIndex < match.slice.startIndex) match = *std::move(wider);
  }

  [[nodiscard]] static std::size_t longestOf(const Sequences& sequences) {
    std::size_t longest = 1;
    for (const PrototypeSequenceRef& sequence : sequences) longest = std::max(longest, sequence->prototypes().size());
    return longest + 2 * kMaximumPhraseWords;  // a place may have many words
  }

  /// A host that has a phrase wants to hear of it wherever it is said; the built-in ones mind what stands around them.
  [[nodiscard]] bool isMeant(const PrototypeSequenceMatcher::Match& match) const {
    if (!match.sequence->functionIdentifier()) return true;
    return !isExclamation(match) && !isPriceOfRate(match) && !isOfPart(match) && !isTimeElsewhere(match) &&
           !isPartOfProse(match);
  }

  /// A few words without a gap, such as "week number" or "timestamp", ask for something where they stand for
  /// themselves. In "the best day of the year" they don't, and in "today in timestamp" they name what to convert into.
  [[nodiscard]] bool isPartOfProse(const PrototypeSequenceMatcher::Match& match) const {
    constexpr std::size_t mostTokens = 7;
    const auto& prototypes = match.sequence->prototypes();
    if (prototypes.size() > mostTokens) return false;
    const bool hasGap = std::any_of(prototypes.begin(), prototypes.end(), [&match](const auto& prototype) {
      const auto at = static_cast<std::size_t>(&prototype - match.sequence->prototypes().data());
      const bool isBlank = at < match.slice.tokens.size() && match.slice.tokens[at].is(TokenType::whitespace);
      return prototype->kind() != TokenPrototype::Kind::literal && !isBlank;
    });
    if (hasGap) return false;
    const Token* before = list_.tokenBefore(match.slice.startIndex, /*ignoreWhitespace=*/true);
    if (before != nullptr && before->is(TokenType::converterSymbol)) return true;
    const auto isWord = [](const Token& token) { return token.is(TokenType::wordComment); };
    const auto words = std::count_if(list_.begin(), list_.end(), isWord);
    return words > std::count_if(match.slice.tokens.begin(), match.slice.tokens.end(), isWord);
  }

  /// "monthly repayment on half of $600,000 over 30 years at 4%": the repayment is on the half.
  [[nodiscard]] bool isOfPart(const PrototypeSequenceMatcher::Match& match) const {
    if (!mayAskForLoan_ || match.sequence->functionIdentifier() != FunctionIdentifier::compoundInterest) return false;
    const auto of = list_.indexBefore(match.slice.startIndex, /*ignoreWhitespace=*/true);
    if (!of || !list_[*of].is(TokenType::prepositionWord, TokenSubType::prepositionWordOf)) return false;
    const Token* part = list_.tokenBefore(*of, /*ignoreWhitespace=*/true);
    return part != nullptr && (part->is(TokenType::percentage) || part->is(TokenType::fraction) ||
                               lowercased(part->stringValue) == "half");
  }

  /// "3pm London time in Tokyo": another time is to be told there than that of now.
  [[nodiscard]] bool isTimeElsewhere(const PrototypeSequenceMatcher::Match& match) const {
    if (match.sequence->functionIdentifier() != FunctionIdentifier::timeInTimezone) return false;
    const auto before =
        list_.indexBefore(match.slice.startIndex, /*ignoreWhitespace=*/true, TokenTypeSet::wordCommentsSet);
    return before && list_[*before].is(TokenType::datestamp) && match.slice.tokens.back().is(TokenType::timezone);
  }

  /// "5 tickets at $3" costs $15, but "5 pears at $3 / apple" is no purchase.
  [[nodiscard]] bool isPriceOfRate(const PrototypeSequenceMatcher::Match& match) const {
    if (match.sequence->functionIdentifier() != FunctionIdentifier::multipliedBy) return false;
    const Token* behind = list_.tokenAfter(match.slice.endIndex, /*ignoreWhitespace=*/true);
    return behind != nullptr && behind->is(TokenType::operator_, TokenSubType::divisionOperator) &&
           match.slice.tokens.back().is(TokenType::unitExpression) && match.slice.tokens.size() > 2 &&
           match.slice.tokens[2].is(TokenType::wordComment);
  }

  /// "we won 5!" is glad of the 5; "5! / 3!" and "(2 + 1)!" are factorials.
  [[nodiscard]] bool isExclamation(const PrototypeSequenceMatcher::Match& match) const {
    if (match.slice.tokens.size() != 2 || match.slice.tokens[1].stringValue != "!") return false;
    const Token& value = match.slice.tokens[0];
    if (!value.is(TokenType::number) && !value.is(TokenType::subexpression)) return true;
    return std::any_of(list_.begin(), list_.end(), [](const Token& token) {
      return token.is(TokenType::wordComment) && isAlphabetic(decodeScalar(token.stringValue, 0).scalar);
    });
  }

  /// Whether the call could be made: it can't where calls would nest too deep.
  bool replace(const PrototypeSequenceMatcher::Match& match) {
    std::size_t inside = 0;
    for (const Token& token : match.slice.tokens) inside = std::max(inside, nestingOf(token));
    if (depth_ + inside + 2 > kMaximumNesting) return false;

    Token call(TokenType::wordFunction, TokenSubType::builtInWordFunction, match.slice.stringValue(),
               match.slice.range(), TokenList::frozen(match.slice.tokens));
    const auto& metadata = *match.sequence->metadata();
    if (const auto* function = std::get_if<Function>(&metadata)) {
      call.metadata =
          std::make_shared<const WordFunctionTokenMetadata>(*function, match.sequence, context_.customization);
    } else {
      call.subType = TokenSubType::customWordFunction;
      call.metadata = std::make_shared<const CustomFunctionTokenMetadata>(std::get<CustomFunction>(metadata),
                                                                          match.sequence, context_.customization);
    }
    list_.replaceRun(match.slice.startIndex, match.slice.endIndex, std::move(call));
    rememberReturnTypeOf(match.sequence->functionIdentifier());
    return true;
  }

  void rememberReturnTypeOf(std::optional<FunctionIdentifier> identifier) {
    const std::optional<TokenType> returned = identifier ? returnTypeOf(*identifier) : std::nullopt;
    if (!returned) return;
    TokenTypeSet types = list_.typesEverPresent();
    types.insert(*returned);
    list_.replaceTypesCache(types);
  }

  void rebuildTypesCache() {
    TokenTypeSet types;
    for (const Token& token : list_) {
      types.insert(token.type);
      types.insert(effectiveTypeOf(token));
      const std::optional<FunctionIdentifier> identifier = token.functionIdentifier();
      if (const auto returned = identifier ? returnTypeOf(*identifier) : std::nullopt) types.insert(*returned);
    }
    list_.replaceTypesCache(types);
  }

  TokenList& list_;
  const PassContext& context_;
  const std::size_t depth_;
  bool mayAskForLoan_ = false;
};

/// "three and nine": fused into a number, but one that nobody says, for in English "and" joins to hundreds and more.
bool joinsTwoNumbers(const Token& token) {
  if (!token.is(TokenType::number) || !token.subtokens || token.subtokens->count() < 3) return false;
  const Token* first = token.subtokens->first();
  const Token* last = token.subtokens->last();
  return first != nullptr && first->hasDecimalValue() && first->decimalValue() < Decimal(100) &&
         last->is(TokenType::number) && token.subtokens->firstTokenOfType(TokenType::conjunctionWord) != nullptr;
}

/// Tries the phrases on "larger of three and nine" with two numbers in it; the list stays as it is where none wants
/// them both. Whether one does.
bool wrapWithNumbersApart(TokenList& list, const Candidates& candidates, const PassContext& context,
                          std::size_t depth) {
  if (std::none_of(list.begin(), list.end(), joinsTwoNumbers)) return false;
  TokenList apart;
  for (const Token& token : list) {
    if (!joinsTwoNumbers(token)) {
      apart.append(token);
    } else {
      for (const Token& part : *token.subtokens) apart.append(part);
    }
  }
  apart.replaceTypesCache(list.typesEverPresent());
  if (!CallWrapper(apart, context, depth).wrap(candidates)) return false;
  const auto isJoint = [](const Token& token) { return token.is(TokenType::conjunctionWord); };
  const auto conjunctionsIn = [&](const TokenList& tokens) {
    return std::count_if(tokens.begin(), tokens.end(), isJoint);
  };
  if (conjunctionsIn(apart) > conjunctionsIn(list)) return false;
  list = std::move(apart);
  return true;
}

using CandidatesFor = Candidates (*)(const TokenList& list, const PassContext& context);

Candidates allCandidatesFor(const TokenList& list, const PassContext& context) {
  Candidates candidates;
  if (!worthScanningForWordFunctionsIn(list)) return candidates;
  const auto& mapper = context.content.functionList->numericalKeywordMapper();
  candidates.functions = mapper.wordFunctionsWorthScanningForIn(list, context.features);
  if (!context.customization.customFunctions().empty()) {
    appendCustomSequences(list, *context.content.customFunctionsList, candidates.custom);
  }
  return candidates;
}

Candidates candidatesWithConjunctionsFor(const TokenList& list, const PassContext& context) {
  Candidates candidates;
  if (!list.anyTypesHaveBeenPresentIn(kConjunctions) || !worthScanningForWordFunctionsIn(list)) return candidates;
  appendCustomSequences(list, *context.content.customFunctionsList, candidates.custom);
  std::erase_if(candidates.custom, [](const PrototypeSequenceRef& sequence) {
    return !sequence->typesPresent().containsTypesFrom(kConjunctions);
  });
  return candidates;
}

/// The amount at the index whose number is the lower half of a fraction: "3/4 cup". In "6 / 3/4 cup" the strokes divide
/// in turn, and "$4" has its number behind the unit.
const UnitExpressionTokenMetadata* denominatorAt(const TokenList& list, std::size_t index) {
  if (index < 2 || !list[index].is(TokenType::unitExpression) || !list[index].subtokens) return nullptr;
  const Token* first = list[index].subtokens->first();
  if (first == nullptr || !first->is(TokenType::number) || !list[index - 2].is(TokenType::number)) return nullptr;
  const Token& stroke = list[index - 1];
  if (!stroke.is(TokenType::operator_, TokenSubType::divisionOperator) || stroke.stringValue != "/") return nullptr;
  const auto before = list.indexBefore(index - 2, /*ignoreWhitespace=*/true);
  if (before && list[*before].is(TokenType::operator_, TokenSubType::divisionOperator)) return nullptr;
  return list[index].metadataAs<UnitExpressionTokenMetadata>();
}

/// "3/4 cup" → 0.75 cups, so that it can stand at the gap of a phrase.
void joinFractionsOfUnits(TokenList& list) {
  if (!list.typesPrecheck({TokenType::unitExpression, TokenType::operator_, TokenType::number})) return;
  for (std::size_t i = list.count(); i-- > 2;) {
    const UnitExpressionTokenMetadata* denominator = denominatorAt(list, i);
    if (denominator == nullptr || denominator->unitExpression().value.isZero()) continue;
    const Decimal value = numberIn(list[i - 2]) / denominator->unitExpression().value;
    list.replaceRun(i - 2, i,
                    unitExpressionToken(list.slice(i - 2, i), denominator->unitMetaData.underlyingTCUnit,
                                        NumberTokenMetadata(value), denominator->prefersCompoundFormatting));
    i -= 2;
  }
}

/// "half a cup of sugar" → 0.5 cups of it.
void joinHalvesOfSubstances(TokenList& list) {
  if (!list.typesPrecheck({TokenType::substance, TokenType::unit})) return;
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!list[i].is(TokenType::substance)) continue;
    auto unit = list.indexBefore(i, /*ignoreWhitespace=*/true);
    if (unit && list[*unit].is(TokenType::prepositionWord, TokenSubType::prepositionWordOf)) {
      unit = list.indexBefore(*unit, /*ignoreWhitespace=*/true);
    }
    if (!unit || !list[*unit].is(TokenType::unit)) continue;
    const auto article = list.indexBefore(*unit, /*ignoreWhitespace=*/true);
    if (!article || (list[*article].stringValue != "a" && list[*article].stringValue != "an")) continue;
    const auto half = list.indexBefore(*article, /*ignoreWhitespace=*/true);
    if (!half || lowercased(list[*half].stringValue) != "half") continue;
    const std::size_t first = *half;
    const std::optional<TCUnit> counted = list[*unit].unitValue();
    if (!counted) continue;
    list.replaceRun(
        first, *unit,
        unitExpressionToken(list.slice(first, *unit), *counted, NumberTokenMetadata(Decimal(1) / Decimal(2)),
                            /*prefersCompound=*/false));
    i = first;
  }
}

/// "(5 + 10)%" → one value, the percentage that the brackets come to, so that it can stand at the gap of a phrase.
void joinPercentsOfBrackets(TokenList& list, std::size_t depth) {
  if (!list.typesPrecheck({TokenType::subexpression, TokenType::percentageSymbol})) return;
  for (std::size_t i = list.count(); i-- > 0;) {
    const auto brackets = list.indexBefore(i, /*ignoreWhitespace=*/true);
    if (!list[i].is(TokenType::percentageSymbol) || !brackets || !list[*brackets].is(TokenType::subexpression))
      continue;
    if (depth + nestingOf(list[*brackets]) + 2 > kMaximumNesting) continue;
    TokenSlice slice = list.slice(*brackets, i);
    Token& sign = slice.tokens.back();
    Token converter = TokenFactory::converterThatAppliesPercent();
    converter.stringValue = sign.stringValue;
    converter.range = sign.range;
    converter.subtokens = TokenList::frozen({sign});
    sign = std::move(converter);
    list.replaceRun(*brackets, i, std::move(slice).embedInContainerToken(TokenType::subexpression));
    TokenTypeSet types = list.typesEverPresent();
    types.insert(TokenType::percentage);
    list.replaceTypesCache(types);
    i = *brackets;
  }
}

void wrapCallsIn(TokenList& list, const PassContext& context, CandidatesFor candidatesFor, std::size_t depth);

/// Wraps the calls of the lists inside of the list. A call that is there already has its words, but what stands in
/// brackets at its gaps is looked through.
void wrapCallsInside(TokenList& list, const PassContext& context, CandidatesFor candidatesFor, std::size_t depth) {
  for (std::size_t i = list.count(); i-- > 0;) {
    const Token& token = list[i];
    const bool isCall = token.is(TokenType::wordFunction);
    if (!token.subtokens || !(isCall || kListsWithPhrases.contains(token.type))) continue;
    TokenList inside = *token.subtokens;
    const std::uint64_t before = inside.modificationCount();
    (isCall ? wrapCallsInside : wrapCallsIn)(inside, context, candidatesFor, depth + 1);
    if (inside.modificationCount() == before) continue;
    Token edited = token;
    edited.subtokens = TokenList::frozen(std::move(inside));
    list.replaceAt(i, std::move(edited));
  }
}

/// Wraps the calls of the list and of those inside of it, inner lists first.
void wrapCallsIn(TokenList& list, const PassContext& context, CandidatesFor candidatesFor, std::size_t depth) {
  wrapCallsInside(list, context, candidatesFor, depth);
  const Candidates candidates = candidatesFor(list, context);
  if (candidates.isEmpty()) return;
  joinFractionsOfUnits(list);
  joinHalvesOfSubstances(list);
  joinPercentsOfBrackets(list, depth);
  if (wrapWithNumbersApart(list, candidates, context, depth)) return;
  CallWrapper(list, context, depth).wrap(candidates);
}

}  // namespace

namespace passes {

void identifyCustomWordFunctionsWithConjunctionWordsBeforeListsAreIdentified(TokenList& list,
                                                                             const PassContext& context) {
  if (context.customization.customFunctions().empty()) return;
  wrapCallsIn(list, context, candidatesWithConjunctionsFor, 0);
}

void identifyWordFunctionsIn(TokenList& list, const PassContext& context) {
  wrapCallsIn(list, context, allCandidatesFor, 0);
}

}  // namespace passes

}  // namespace tavrine
