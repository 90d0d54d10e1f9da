#include "TavrineCore/Customization/Functions/FunctionVariantsGenerator.h"

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"

namespace tavrine {

namespace {

using enum FunctionIdentifier;

/// How many phrases one phrase may become.
constexpr std::size_t kMaximumVariants = 48;

/// Words that mean the same in the phrases of some functions: the first is how the resource file spells it.
struct WordGroup {
  FunctionIdentifierSet functions;
  std::array<std::string_view, 9> words;
};

constexpr FunctionIdentifierSet kPercentFunctions = FunctionIdentifierSet::fromTo(percentOf, reversedPercentOff);
constexpr FunctionIdentifierSet kRepayments = FunctionIdentifierSet::fromTo(totalLoanRepayment, monthlyLoanRepayment);
constexpr FunctionIdentifierSet kCompounds =
    FunctionIdentifierSet::fromTo(compoundInterest, compoundInterestCompoundingQuarterly);

constexpr FunctionIdentifierSet kLoans =
    FunctionIdentifierSet::fromTo(totalInterestOnLoanRepayment, monthlyLoanRepayment);

constexpr auto kWordGroups = std::to_array<WordGroup>({
    {kPercentFunctions, {"%", "percent", "percentage"}},
    {{xToYIsWhatPercentage}, {"%", "percent", "percentage"}},
    {kRepayments, {"repayment", "repayments", "payment", "payments"}},
    {{annualLoanRepayment, annualInterestOnLoanRepayment}, {"annual", "yearly"}},
    {{returnOnInvestmentAfter}, {"annual", "yearly", "annualized"}},
    {kLoans, {"over", "for"}},
    {kCompounds, {"compounding", "compounded", "compound"}},
    {kCompounds, {"annually", "yearly"}},
    {kCompounds, {"every", "each"}},
    {{exponentialGrowth}, {"growing", "increasing", "rising"}},
    {{exponentialDecay}, {"shrinking", "decreasing", "falling", "declining", "depreciating"}},
    {{squareRoot}, {"square", "squared"}},
    {{cubedRoot}, {"cube", "cubed", "cubic"}},
    {{nthLog, nthLogReversed}, {"log", "logarithm"}},
    {{lesserOf}, {"smaller", "smallest", "lesser", "lower", "lowest", "least", "cheaper", "shorter", "lighter"}},
    {{greaterOf}, {"larger", "largest", "greater", "greatest", "higher", "highest", "bigger", "biggest", "longer"}},
    {{toNearestX}, {"nearest", "closest"}},
    {{exponentialGrowth, exponentialDecay, timeRequiredForExponentialChange, growthOverExponentialChange,
      timeRequiredForLinearChange},
     {"every", "each", "per"}},
    {{isWhatMultiplierOf, isWhatMultiplierOn, isWhatMultiplierOff, xToYIsWhatMultiplier}, {"multiplier", "multiple"}},
    {{multipliedBy}, {"multiplied", "multiply"}},
});

/// Where the phrase holds the whole word first.
std::size_t findWord(std::string_view phrase, std::string_view word) {
  for (std::size_t at = phrase.find(word); at != std::string_view::npos; at = phrase.find(word, at + 1)) {
    const std::size_t behind = at + word.size();
    const bool starts = at == 0 || phrase[at - 1] == ' ';
    const bool ends = behind == phrase.size() || phrase[behind] == ' ';
    if (starts && ends) return at;
  }
  return std::string_view::npos;
}

}  // namespace

std::vector<Function> FunctionVariantsGenerator::variantsOf(const Function& function) {
  std::vector<Function> variants{function};
  for (const WordGroup& group : kWordGroups) {
    if (!group.functions.contains(function.identifier)) continue;
    const std::string_view original = group.words.front();
    if (findWord(function.prototypeExpression, original) == std::string_view::npos) continue;
    const std::size_t count = variants.size();
    for (const std::string_view word : std::span(group.words).subspan(1)) {
      for (std::size_t i = 0; i < count && !word.empty() && variants.size() < kMaximumVariants; ++i) {
        std::string phrase = variants[i].prototypeExpression;
        phrase.replace(findWord(phrase, original), original.size(), word);
        variants.push_back({std::move(phrase), function.identifier});
      }
    }
  }
  return variants;
}

}  // namespace tavrine
