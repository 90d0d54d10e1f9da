#include "TavrineCore/Customization/Fixtures/Fixture.h"

#include <array>

namespace tavrine {

namespace {

struct Row {
  std::string_view raw;
  TokenSubType subType;
};

constexpr std::array<Row, kFixtureCount> kRows = {{
#define FIXTURE(name, raw, type, subType) {raw, TokenSubType::subType},
#include "TavrineCore/Customization/Fixtures/Fixture.def"
}};

}  // namespace

std::string_view rawValue(Fixture fixture) { return kRows[static_cast<std::size_t>(fixture)].raw; }

std::optional<TokenType> relatedTokenType(Fixture fixture) {
  const TokenType type = detail::kFixtureTokenTypes[static_cast<std::size_t>(fixture)];
  if (type == TokenType::unidentified) return std::nullopt;
  return type;
}

TokenSubType relatedTokenSubType(Fixture fixture) { return kRows[static_cast<std::size_t>(fixture)].subType; }

}  // namespace tavrine
