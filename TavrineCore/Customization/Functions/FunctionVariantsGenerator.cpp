#include "TavrineCore/Customization/Functions/FunctionVariantsGenerator.h"

#include <algorithm>
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
constexpr FunctionIdentifierSet kInterests =
    FunctionIdentifierSet::fromTo(totalInterestOnLoanRepayment, monthlyInterestOnLoanRepayment);
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
    {kInterests, {"repayment", "loan", "mortgage"}},
    {kCompounds, {"compounding", "compounded", "compound"}},
    {kCompounds, {"annually", "yearly"}},
    {kCompounds, {"every", "each"}},
    {{exponentialGrowth}, {"growing", "increasing", "rising"}},
    {{exponentialDecay}, {"shrinking", "decreasing", "falling", "declining", "depreciating"}},
    {{timeRequiredForExponentialChange, timeRequiredForLinearChange},
     {"get", "go", "grow", "increase", "rise", "shrink", "fall", "drop", "decrease"}},
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

// The weather can be asked for with the place before or behind what is asked, with and without a day. A day beside a
// place ("Paris tomorrow", "tomorrow in Paris") is read as one date that tells both.
constexpr std::string_view kPlaceOfWeather = " in __timezone";
constexpr auto kTailsOfWeather = std::to_array<std::string_view>({
    " for __timezone",
    " at __timezone",
    " of __timezone",
    " near __timezone",
    " __timezone",
    " in __timezone __datestamp",
    " in __timezone on __datestamp",
    " in __timezone at __datestamp",
    " for __timezone on __datestamp",
    " for __timezone at __datestamp",
    " __datestamp in __timezone",
    " on __datestamp in __timezone",
    " at __datestamp in __timezone",
    " in __datestamp",
    " for __datestamp",
    " at __datestamp",
    " on __datestamp",
    " __datestamp",
});
constexpr std::string_view kPlaceBeforeWeather = "__timezone ";
constexpr auto kTailsOfWeatherBehindPlace = std::to_array<std::string_view>({
    "",
    " __datestamp",
    " on __datestamp",
    " at __datestamp",
    " for __datestamp",
});

/// Whose weather it is, where the day isn't told by a date: "tomorrow's weather in Paris".
constexpr auto kOwnersOfWeather = std::to_array<std::string_view>({
    "today's ",
    "tomorrow's ",
    "today’s ",
    "tomorrow’s ",
});

/// Whether the words can stand behind a name: "Paris humidity", but not "Paris is it humid".
bool isNounOfWeather(std::string_view words) {
  constexpr auto kQuestions = std::to_array<std::string_view>({"is", "does", "will", "do", "how", "it", "when"});
  return std::none_of(kQuestions.begin(), kQuestions.end(),
                      [&](std::string_view question) { return findWord(words, question) != std::string_view::npos; });
}

void appendWeatherVariants(const Function& function, std::vector<Function>& variants) {
  std::string_view words = function.prototypeExpression;
  if (!words.ends_with(kPlaceOfWeather)) return;
  words.remove_suffix(kPlaceOfWeather.size());
  // "Paris high tomorrow" before "high tomorrow", which is in it.
  if (isNounOfWeather(words)) {
    for (const std::string_view tail : kTailsOfWeatherBehindPlace) {
      variants.push_back({std::string(kPlaceBeforeWeather).append(words).append(tail), function.identifier});
    }
  }
  for (const std::string_view tail : kTailsOfWeather) {
    variants.push_back({std::string(words).append(tail), function.identifier});
  }
}

}  // namespace

void FunctionVariantsGenerator::appendFormsOf(const Function& function, std::vector<Function>& forms) {
  const std::string_view phrase = function.prototypeExpression;
  if (weatherFunctionIdentifiers.contains(function.identifier) && phrase.ends_with(kPlaceOfWeather) &&
      isNounOfWeather(phrase)) {
    for (const std::string_view owner : kOwnersOfWeather) {
      forms.push_back({std::string(owner).append(phrase), function.identifier});
    }
  }
  forms.push_back(function);
  if (weatherFunctionIdentifiers.contains(function.identifier)) appendWeatherVariants(function, forms);
}

std::vector<Function> FunctionVariantsGenerator::variantsOf(const Function& function) {
  std::vector<Function> variants{function};
  for (const WordGroup& group : kWordGroups) {
    if (!group.functions.contains(function.identifier)) continue;
    const std::string_view original = group.words.front();
    if (findWord(function.prototypeExpression, original) == std::string_view::npos) continue;
    const std::size_t count = variants.size();
    for (const std::string_view word : std::span(group.words).subspan(1)) {
      for (std::size_t i = 0; i < count && !word.empty() && variants.size() < kMaximumVariants; ++i) {
        std::string phrase = variants[i].prototypeExpression.string();
        phrase.replace(findWord(phrase, original), original.size(), word);
        variants.push_back({std::move(phrase), function.identifier});
      }
    }
  }
  return variants;
}

void FunctionVariantsGenerator::forEachReplacement(
    FunctionRef<void(std::string_view word, std::string_view original)> visit) {
  for (const WordGroup& group : kWordGroups) {
    for (const std::string_view word : std::span(group.words).subspan(1)) {
      if (!word.empty()) visit(word, group.words.front());
    }
  }
}

}  // namespace tavrine
