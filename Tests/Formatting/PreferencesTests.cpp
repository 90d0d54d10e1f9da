#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "Foundation/Json.h"
#include "TavrineCore/Evaluation/PostEvaluation/ResultConversionRule.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"
#include "TavrineCore/Parsing/Primitives/UnitType.h"
#include "TavrineCore/ResultFormatting/FormattingPreferences.h"

namespace tavrine {
namespace {

using Change = std::function<void(FormattingPreferences&)>;

FormattingPreferences changed(const Change& change) {
  FormattingPreferences preferences;
  if (change) change(preferences);
  return preferences;
}

std::optional<FormattingPreferences> read(std::string_view text) {
  const foundation::JsonParseResult json = Json::parse(text);
  if (!json) {
    ADD_FAILURE() << "no JSON: " << text;
    return std::nullopt;
  }
  return FormattingPreferences::fromArchive(*json.value);
}

TEST(FormattingPreferencesArchive, WritesWhatDiffersFromTheDefaultsInItsOrder) {
  struct Case {
    Change change;
    std::string_view want;
  };
  const Case cases[] = {
      {nullptr, "{}"},
      {[](auto& p) { p.dp = 4; }, R"({"precision":4})"},
      {[](auto& p) { p.dp = 0; }, R"({"precision":0})"},
      {[](auto& p) { p.currencyFormattingPreferences.useCurrencySymbols = false; },
       R"({"currencyFormattingPreferences":{"useCurrencySymbols":false,"roundResults":true,"showTrailingZeros":true}})"},
      {[](auto& p) { p.notationPreferences = NotationPreferences::off; }, R"({"disableNotation":true})"},
      {[](auto& p) { p.notationPreferences.notationStyle = NotationPreferences::NotationStyle::on; }, "{}"},
      {[](auto& p) {
         p.dp = 2;
         p.thousandsSeparatorDisabled = true;
         p.referencesTakeFormattedValue = true;
         p.notationPreferences = NotationPreferences::off;
         p.currencyFormattingPreferences = CurrencyFormattingPreferences::disabled();
       },
       R"({"currencyFormattingPreferences":{"useCurrencySymbols":false,"roundResults":false,"showTrailingZeros":false},)"
       R"("disableThousandsSeparator":true,"referencesTakeFormattedValue":true,"disableNotation":true,"precision":2})"},
      // No part of the archive.
      {[](auto& p) {
         p.minimumFractionDigits = 2;
         p.resultConversionBehavior = ResultConversionBehavior::automatic();
         p.notationPreferences.upperNotationThreshold = SIThreshold::billion;
       },
       "{}"},
  };
  for (const Case& c : cases) {
    const FormattingPreferences preferences = changed(c.change);
    EXPECT_EQ(preferences.archived().compact(), c.want);
  }
}

TEST(FormattingPreferencesArchive, ReadsWhatItFinds) {
  struct Case {
    std::string_view text;
    Change want;
  };
  const Case cases[] = {
      {"{}", nullptr},
      {R"({"precision":3,"somethingElse":[1]})", [](auto& p) { p.dp = 3; }},
      {R"({"precision":3.0})", [](auto& p) { p.dp = 3; }},
      {R"({"precision":null,"disableNotation":null})", nullptr},
      {R"({"precision":1e300})", [](auto& p) { p.dp = 2147483647; }},
      {R"({"disableNotation":false})", nullptr},
      // The style comes back without the threshold that goes with `NotationPreferences::off`.
      {R"({"disableNotation":true})",
       [](auto& p) { p.notationPreferences.notationStyle = NotationPreferences::NotationStyle::off; }},
      {R"({"disableThousandsSeparator":true,"referencesTakeFormattedValue":true})",
       [](auto& p) {
         p.thousandsSeparatorDisabled = true;
         p.referencesTakeFormattedValue = true;
       }},
      // Documents of earlier days know one switch for money.
      {R"({"disableCurrenciesFormatting":true})",
       [](auto& p) {
         p.currencyFormattingPreferences = {true, false, true};
       }},
      {R"({"disableCurrenciesFormatting":false})", nullptr},
      {R"({"disableCurrenciesFormatting":true,"currencyFormattingPreferences":)"
       R"({"useCurrencySymbols":false,"roundResults":true,"showTrailingZeros":false}})",
       [](auto& p) {
         p.currencyFormattingPreferences = {false, true, false};
       }},
  };
  for (const Case& c : cases) {
    const auto preferences = read(c.text);
    ASSERT_TRUE(preferences.has_value()) << c.text;
    EXPECT_EQ(*preferences, changed(c.want)) << c.text;
  }
}

TEST(FormattingPreferencesArchive, RefusesWhatIsNotItsOwn) {
  for (const std::string_view text : {
           "[]",
           "null",
           R"({"precision":"3"})",
           R"({"precision":2.5})",
           R"({"disableNotation":1})",
           R"({"disableThousandsSeparator":"yes"})",
           R"({"disableCurrenciesFormatting":0})",
           R"({"currencyFormattingPreferences":true})",
           R"({"currencyFormattingPreferences":{"useCurrencySymbols":true,"roundResults":true}})",
           R"({"currencyFormattingPreferences":{"useCurrencySymbols":true,"roundResults":1,"showTrailingZeros":true}})",
       }) {
    EXPECT_FALSE(read(text).has_value()) << text;
  }
}

TEST(FormattingPreferences, EveryFieldCounts) {
  const auto rules = [](UnitIdentifier target) {
    return ResultConversionBehavior::customRules(
        {ResultConversionRule::tokenOf(TokenType::number, TokenType::percentage),
         ResultConversionRule::unitExpressionOf(UnitType::length, target)});
  };
  const Change changes[] = {
      [](auto& p) { p.dp = 9; },
      [](auto& p) { p.thousandsSeparatorDisabled = true; },
      [](auto& p) { p.currencyFormattingPreferences.useCurrencySymbols = false; },
      [](auto& p) { p.currencyFormattingPreferences.roundResults = false; },
      [](auto& p) { p.currencyFormattingPreferences.showTrailingZeros = false; },
      [](auto& p) { p.notationPreferences.notationStyle = NotationPreferences::NotationStyle::on; },
      [](auto& p) { p.notationPreferences.upperNotationThreshold = SIThreshold::million; },
      [](auto& p) { p.referencesTakeFormattedValue = true; },
      [](auto& p) { p.resultConversionBehavior = ResultConversionBehavior::automatic(); },
      [](auto& p) { p.resultConversionBehavior = ResultConversionBehavior::customRules({}); },
      [&](auto& p) { p.resultConversionBehavior = rules(UnitIdentifier::miles); },
      [&](auto& p) { p.resultConversionBehavior = rules(UnitIdentifier::feet); },
      [](auto& p) { p.minimumFractionDigits = 1; },
  };
  std::vector<FormattingPreferences> all{FormattingPreferences()};
  for (const Change& change : changes) all.push_back(changed(change));
  for (std::size_t i = 0; i < all.size(); ++i) {
    for (std::size_t j = 0; j < all.size(); ++j) {
      EXPECT_EQ(all[i] == all[j], i == j) << i << ' ' << j;
      EXPECT_EQ(all[i].hash() == all[j].hash(), i == j) << i << ' ' << j;
    }
  }
  // Rules that were made apart are equal by what they say.
  EXPECT_EQ(rules(UnitIdentifier::miles), rules(UnitIdentifier::miles));
  EXPECT_EQ(rules(UnitIdentifier::miles).hash(), rules(UnitIdentifier::miles).hash());
}

TEST(FormattingPreferences, TakesTheProcessWideStandardOfItsMaking) {
  const CurrencyFormattingPreferences before = CurrencyFormattingPreferences::standard();
  const FormattingPreferences early;
  CurrencyFormattingPreferences::setStandard({false, true, false});
  const FormattingPreferences late;
  EXPECT_TRUE(early.currencyFormattingPreferences.useCurrencySymbols);
  EXPECT_EQ(late.currencyFormattingPreferences, (CurrencyFormattingPreferences{false, true, false}));
  EXPECT_EQ(late.archived().compact(), "{}");
  CurrencyFormattingPreferences::setStandard(before);
  EXPECT_EQ(FormattingPreferences(), early);
}

}  // namespace
}  // namespace tavrine
