#include "Fuzzing/FuzzSupport.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "Foundation/Clock.h"
#include "Foundation/RandomSource.h"
#include "Foundation/Text.h"
#include "TavrineCore/Calculator.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/ParsingController.h"
#include "Tests/Support/Tiling.h"

namespace tavrine::fuzzing {

namespace {

constexpr std::array kLocales{"en_US", "de_DE", "fr_FR", "es_ES", "ru_RU", "zh_CN", "en_IN", "de_CH", "ja_JP"};
constexpr double kNow = 1781083800;  // 2026-06-10T09:30:00Z

/// Every switch that is on or off, by the bits of `bits` from the lowest on.
EngineFeatureFlags flagsFrom(std::uint64_t bits) {
  EngineFeatureFlags flags;
  AdditionalOptions& more = flags.additionalOptions;
  CommentingOptions& comments = flags.commentingOptions;
  for (bool* flag : {&flags.units,
                     &flags.calendarCalculations,
                     &flags.wordFunctions,
                     &flags.variableDeclarations,
                     &flags.functionsRequireParentheses,
                     &flags.seeksFutureDate,
                     &flags.inAmbiguityPreferSomethingToNothing,
                     &flags.preserveAllParsedTokenTypes,
                     &flags.subexpressions,
                     &flags.bitwiseOperators,
                     &flags.hexAndBinary,
                     &flags.octal,
                     &flags.phiAndTau,
                     &flags.cookingSubstances,
                     &flags.musicalConversions,
                     &flags.GPSAndDMS,
                     &flags.specialDays,
                     &flags.dateTemplateFormatStrings,
                     &flags.shortFormUSTimezones,
                     &flags.dynamicPlaceLookup,
                     &more.includeVariableReferencingPreviousLine,
                     &more.includeVariablesReferencingLineNumbers,
                     &more.rawStringVariableDefinitions,
                     &more.unitDeclarations,
                     &more.remoteQueries,
                     &more.tripPlanning,
                     &more.generateTagVariablesFromLabels,
                     &comments.bracketComments,
                     &comments.quotationMarkComments,
                     &comments.slashComments,
                     &comments.labelComments,
                     &comments.hashTags}) {
    *flag = (bits & 1) != 0;
    bits >>= 1;
  }
  flags.misplacedThousandsSeparatorBehavior = static_cast<MisplacedThousandsSeparatorBehavior>((bits & 0xFF) % 3);
  flags.timezoneCodeAutocorrectionBehavior = static_cast<TimezoneCodeCorrectionBehavior>((bits >> 8 & 0xFF) % 3);
  return flags;
}

void checkTiling(const Calculator& calculator, std::string_view line) {
  const std::string valid = foundation::sanitizedUtf8(line);
  calculator.parsingController().parser().tokensFor(
      valid, VariableList(), [&](const Stage& stage, const TokenList& list, bool) {
        if (const auto fault = testing::tilingFault(list, valid, stage)) {
          fail(std::string(stage.name).append(" ").append(stage.pass).append(": ").append(*fault), line);
        }
      });
}

}  // namespace

std::uint8_t Input::byte() {
  if (rest_.empty()) return 0;
  const auto first = static_cast<std::uint8_t>(rest_.front());
  rest_.remove_prefix(1);
  return first;
}

std::uint64_t Input::word() {
  std::uint64_t result = 0;
  for (unsigned i = 0; i < 8; ++i) result |= static_cast<std::uint64_t>(byte()) << (8 * i);
  return result;
}

foundation::Environment stillWorld() {
  using namespace foundation;
  return Environment({.clock = std::make_shared<FixedClock>(Date(kNow)),
                      .timeZoneIdentifier = "UTC",
                      .locale = Locale("en_US"),
                      .random = seededRandomSource(1)});
}

EngineCustomization customizationFrom(Input& input) {
  EngineCustomization result = EngineCustomization::standardWith(Locale(kLocales[input.byte() % kLocales.size()]));
  switch (input.byte() % 4) {
    case 0:
      break;
    case 1:
      result.setFeatureFlags(flagsFrom(UINT64_MAX));
      break;
    case 2:
      result.setFeatureFlags(flagsFrom(0));
      break;
    default:
      result.setFeatureFlags(flagsFrom(input.word()));
  }
  return result;
}

void fail(std::string_view what, std::string_view line) {
  std::fprintf(stderr, "%.*s\nline: %.*s\n", static_cast<int>(what.size()), what.data(), static_cast<int>(line.size()),
               line.data());
  std::abort();
}

std::string checkedAnswer(const EngineCustomization& customization, std::string_view line) {
  const auto answerOf = [line](Calculator& calculator) {
    const foundation::ScopedEnvironment world(stillWorld());
    return calculator.calculate(line).stringValue;
  };
  Calculator calculator(customization);
  calculator.retainsHistoricalVariables = false;
  const std::string answer = answerOf(calculator);
  if (!foundation::isValidUtf8(answer)) fail("the answer is no UTF-8", line);
  if (answer.find('\n') != std::string::npos && line.find('\n') == std::string::npos) {
    fail("the answer has several lines", line);
  }
  if (const std::string again = answerOf(calculator); again != answer) {
    fail("the same calculator answers \"" + answer + "\", then \"" + again + "\"", line);
  }
  Calculator fresh(customization);
  if (const std::string other = answerOf(fresh); other != answer) {
    fail("a fresh calculator answers \"" + other + "\" instead of \"" + answer + "\"", line);
  }
  checkTiling(fresh, line);
  return answer;
}

}  // namespace tavrine::fuzzing
