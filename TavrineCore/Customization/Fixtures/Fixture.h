#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "TavrineCore/Parsing/Tokens/TokenType.h"
#include "TavrineCore/Utility/EnumSet.h"

namespace tavrine {

/// A fixed word or symbol of the engine ("+", "to", "today"), whatever the language spells it like.
enum class Fixture : std::uint8_t {
#define FIXTURE(name, raw, type, subType) name,
#include "TavrineCore/Customization/Fixtures/Fixture.def"
};

inline constexpr std::size_t kFixtureCount = 0
#define FIXTURE(name, raw, type, subType) +1
#include "TavrineCore/Customization/Fixtures/Fixture.def"
    ;
static_assert(kFixtureCount == 125);

/// The universal spelling ("+", "mod"); the fixture's own name where it has none.
std::string_view rawValue(Fixture fixture);

/// The type of the token that a word of this fixture becomes; absent where the fixture alone decides nothing ("√").
std::optional<TokenType> relatedTokenType(Fixture fixture);

/// The subtype of that token.
TokenSubType relatedTokenSubType(Fixture fixture);

/// A set of fixtures.
using FixtureSet = EnumSet<Fixture, kFixtureCount>;

namespace detail {
inline constexpr TokenType kFixtureTokenTypes[] = {
#define FIXTURE(name, raw, type, subType) TokenType::type,
#include "TavrineCore/Customization/Fixtures/Fixture.def"
};

constexpr FixtureSet fixturesOfType(TokenType type) {
  FixtureSet result;
  for (std::size_t i = 0; i < kFixtureCount; ++i) {
    if (kFixtureTokenTypes[i] == type) result.insert(static_cast<Fixture>(i));
  }
  return result;
}
}  // namespace detail

/// Groups of fixtures that rules ask for by kind.
namespace fixtureSets {
inline constexpr FixtureSet operatorTypes = detail::fixturesOfType(TokenType::operator_);
/// "to", "as", "in", and the converter word of a language that is none of them.
inline constexpr FixtureSet converterWordTypes = {Fixture::converterWordTo, Fixture::converterWordAs,
                                                  Fixture::converterWordIn, Fixture::converterSymbol};
inline constexpr FixtureSet conjunctionWordTypes = detail::fixturesOfType(TokenType::conjunctionWord);
inline constexpr FixtureSet conditionalWordTypes = detail::fixturesOfType(TokenType::conditionalKeyword);
inline constexpr FixtureSet statisticWordTypes = detail::fixturesOfType(TokenType::statisticType);
inline constexpr FixtureSet typeTypes = detail::fixturesOfType(TokenType::typeName);
inline constexpr FixtureSet dateWordFixtures = detail::fixturesOfType(TokenType::dateWord);
}  // namespace fixtureSets

}  // namespace tavrine
