// What a stopwatch and a film editor show: "3:45:32.431", "01:30:15:10".

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>

#include "TavrineCore/Parsing/Primitives/LaptimeArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Prototypes/InternalParsingSequences.h"
#include "TavrineCore/Parsing/Prototypes/PrototypeMatching.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine::passes {

namespace {

using namespace foundation::literals;

constexpr std::size_t kMostParts = 4;
/// More than a thousand years of hours: what is longer is no reading of a clock.
constexpr Decimal kLargestPart = "1e10"_dec;

/// The numbers between the colons.
struct ColonParts {
  std::array<Decimal, kMostParts> numbers;
  std::size_t count = 0;

  [[nodiscard]] std::int64_t wholeAt(std::size_t index) const {
    return numbers[index].rounded(0, RoundingMode::plain).intValue();
  }
};

/// Absent where something else stands between the colons, or not just one colon between two numbers.
std::optional<ColonParts> partsOf(const TokenSlice& slice) {
  ColonParts parts;
  std::size_t colons = 0;
  for (const Token& token : slice.tokens) {
    if (token.is(TokenType::colon)) {
      ++colons;
      continue;
    }
    const auto number = token.ownDecimalValue();
    if (!number || number->isNaN() || number->magnitude() > kLargestPart || parts.count == kMostParts) {
      return std::nullopt;
    }
    parts.numbers[parts.count++] = *number;
  }
  return colons + 1 == parts.count ? std::optional(parts) : std::nullopt;
}

/// Without subtokens, which the walk adds.
Token tokenOver(const TokenSlice& slice, TokenType type, TokenMetadataRef metadata) {
  return {type, TokenSubType::notSpecified, slice.stringValue(), slice.range(), nullptr, std::move(metadata)};
}

std::optional<Token> frametimeOver(const TokenSlice& slice) {
  const auto parts = partsOf(slice);
  if (!parts || parts->count != 4) return std::nullopt;
  const Frametime frametime{Decimal(Frametime::defaultFps), parts->wholeAt(0), parts->wholeAt(1), parts->wholeAt(2),
                            parts->wholeAt(3)};
  return tokenOver(slice, TokenType::frametime, std::make_shared<const FrametimeTokenMetadata>(frametime));
}

std::optional<Token> laptimeOver(const TokenSlice& slice) {
  const auto parts = partsOf(slice);
  if (!parts || parts->count != 3) return std::nullopt;
  const Laptime laptime = laptimeFrom(dateComponentsFrom(parts->wholeAt(0), parts->wholeAt(1), parts->numbers[2]));
  return tokenOver(slice, TokenType::laptime, std::make_shared<const LaptimeTokenMetadata>(laptime));
}

using Reading = std::optional<Token> (*)(const TokenSlice& slice);

void wrap(TokenList& list, std::span<const PrototypeSequenceRef> sequences, Reading reading) {
  wrapMatchesFor(list, sequences, /*includeSubTokens=*/true,
                 [reading](const TokenSlice& slice, const PrototypeSequence&) { return reading(slice); });
}

}  // namespace

void identifyLaptimesAndFrametimesIn(TokenList& list, const PassContext&) {
  const InternalParsingSequences& sequences = InternalParsingSequences::shared();
  // The longer ones first: each time code begins like a reading of a stopwatch.
  wrap(list, sequences.frametimeSequences, frametimeOver);
  wrap(list, sequences.laptimeSequences, laptimeOver);
}

}  // namespace tavrine::passes
