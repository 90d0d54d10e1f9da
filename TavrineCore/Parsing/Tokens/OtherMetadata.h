#pragma once

#include <string>
#include <utility>

#include "TavrineCore/Parsing/Primitives/Pitch.h"
#include "TavrineCore/Parsing/Primitives/Resolution.h"
#include "TavrineCore/Parsing/Primitives/StatisticType.h"
#include "TavrineCore/Parsing/Tokens/TokenMetadata.h"

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
