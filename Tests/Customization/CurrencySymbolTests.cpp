// The signs of money, by locale.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Locale.h"
#include "TavrineCore/Customization/Currencies/CurrencyList.h"
#include "TavrineCore/Customization/Units/UnitSymbolReplacement.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

using foundation::Locale;
using Rows = std::vector<UnitSymbolReplacement>;

/// What a reader of the list finds for the code: the sign of its first row.
std::string signOf(std::string_view code, const Rows& rows) {
  const auto found = std::ranges::find(rows, code, &UnitSymbolReplacement::originalSymbol);
  return found == rows.end() ? std::string() : found->replacementSymbol;
}

/// What a typed sign means: the last row holds.
std::string codeOf(std::string_view sign, const Rows& rows) {
  const auto found = std::find_if(rows.rbegin(), rows.rend(),
                                  [sign](const UnitSymbolReplacement& row) { return row.replacementSymbol == sign; });
  return found == rows.rend() ? std::string() : found->originalSymbol;
}

TEST(CurrencySymbolTest, StandardSignsBelongToKnownMoney) {
  const Rows& rows = UnitSymbolReplacement::standardSymbols();
  EXPECT_EQ(rows.size(), 38u);
  std::set<std::string> codes;
  for (const UnitSymbolReplacement& row : rows) {
    EXPECT_TRUE(CurrencyList::unitIdentifierFor(row.originalSymbol)) << row.originalSymbol;
    EXPECT_TRUE(codes.insert(row.originalSymbol).second) << row.originalSymbol;
  }
}

TEST(CurrencySymbolTest, PrintsTheSignsOfTheLocale) {
  struct Row {
    std::string_view locale;
    std::string_view code;
    std::string_view sign;
  };
  for (const auto& [locale, code, sign] :
       rowsOf<Row>("Customization/CurrencySymbolTests", "PrintsTheSignsOfTheLocale")) {
    EXPECT_EQ(signOf(code, UnitSymbolReplacement::standardCustomSymbolsFor(Locale(locale))), sign)
        << locale << " " << code;
  }
}

TEST(CurrencySymbolTest, SortsTheSignsAndGivesEachCurrencyOneRow) {
  for (const std::string_view locale : {"en_US", "en_CA", "de_DE", "ja_JP", "sv_SE", "zh_CN", "fr", "hu_HU", "xx"}) {
    const Rows rows = UnitSymbolReplacement::standardCustomSymbolsFor(Locale(locale));
    EXPECT_TRUE(std::ranges::is_sorted(rows, {}, &UnitSymbolReplacement::replacementSymbol)) << locale;
    std::set<std::string> codes;
    for (const UnitSymbolReplacement& row : rows) {
      EXPECT_TRUE(codes.insert(row.originalSymbol).second) << locale << " " << row.originalSymbol;
    }
  }
}

TEST(CurrencySymbolTest, PutsTheLocalesOwnSignInFront) {
  const Rows rows = UnitSymbolReplacement::standardCustomSymbolsFor(Locale("hu_HU"));
  const auto forint = std::ranges::find(rows, "HUF", &UnitSymbolReplacement::originalSymbol);
  ASSERT_NE(forint, rows.end());
  EXPECT_EQ(forint->position, UnitSymbolReplacementPosition::before);
}

TEST(CurrencySymbolTest, ReadsTheStandardSignsInEveryLocale) {
  struct Row {
    std::string_view locale;
    std::string_view sign;
    std::string_view code;
  };
  for (const auto& [locale, sign, code] :
       rowsOf<Row>("Customization/CurrencySymbolTests", "ReadsTheStandardSignsInEveryLocale")) {
    EXPECT_EQ(codeOf(sign, UnitSymbolReplacement::typedSymbolsFor(Locale(locale))), code) << locale << " " << sign;
  }
}

}  // namespace
}  // namespace tavrine
