#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "TavrineCore/Parsing/Primitives/Pitch.h"
#include "TavrineCore/Parsing/Primitives/Resolution.h"
#include "TavrineCore/Parsing/Primitives/StatisticType.h"
#include "TavrineCore/Parsing/Tokens/TokenMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenType.h"

namespace tavrine {

/// "A#3".
struct PitchTokenMetadata final : TokenMetadataOf<TokenMetadataKind::pitch> {
  explicit PitchTokenMetadata(Pitch note) : pitch(note) {}
  Pitch pitch;
};

/// "1920x1080".
struct ResolutionTokenMetadata final : TokenMetadataOf<TokenMetadataKind::resolution> {
  explicit ResolutionTokenMetadata(Resolution resolution) : resolutionValue(std::move(resolution)) {}
  Resolution resolutionValue;
};

/// The subtypes of the words for statistics, in the order of `StatisticType`.
inline constexpr auto statisticSubTypes = std::to_array<TokenSubType>(
    {TokenSubType::statisticWordTotal, TokenSubType::statisticWordAverage, TokenSubType::statisticWordCount,
     TokenSubType::statisticWordMedian, TokenSubType::statisticWordLesser, TokenSubType::statisticWordGreater,
     TokenSubType::statisticWordLCM, TokenSubType::statisticWordGCD});
static_assert(statisticSubTypes[static_cast<std::size_t>(StatisticType::gcd)] == TokenSubType::statisticWordGCD);

[[nodiscard]] constexpr TokenSubType subTypeOf(StatisticType statistic) {
  return statisticSubTypes[static_cast<std::size_t>(statistic)];
}
[[nodiscard]] constexpr std::optional<StatisticType> statisticTypeOf(TokenSubType subType) {
  for (std::size_t i = 0; i < statisticSubTypes.size(); ++i) {
    if (statisticSubTypes[i] == subType) return static_cast<StatisticType>(i);
  }
  return std::nullopt;
}

/// "average".
struct StatisticTypeTokenMetadata final : TokenMetadataOf<TokenMetadataKind::statisticType> {
  explicit StatisticTypeTokenMetadata(StatisticType type) : statisticType(type) {}
  StatisticType statisticType;
};

/// The text between quotation marks.
struct QuotationCommentTokenMetadata final : TokenMetadataOf<TokenMetadataKind::quotationComment> {
  explicit QuotationCommentTokenMetadata(std::string text) : stringValue(std::move(text)) {}
  std::string stringValue;
};

/// A link, as text.
struct URLTokenMetadata final : TokenMetadataOf<TokenMetadataKind::url> {
  explicit URLTokenMetadata(std::string link) : url(std::move(link)) {}
  std::string url;
};

}  // namespace tavrine
