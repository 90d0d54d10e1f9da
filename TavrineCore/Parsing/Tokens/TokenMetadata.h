#pragma once

#include <cstdint>
#include <memory>

namespace tavrine {

/// Which of the derived metadata this is.
enum class TokenMetadataKind : std::uint8_t {
  number,
  hex,
  octal,
  binary,
  fraction,
  multiplier,
  percentage,
  salesTax,
  decimalRate,
  percentageRate,
  unitRate,
  unit,
  unitExpression,
  compoundUnitExpression,
  unitRange,
  customUnit,
  unitDeclaration,
  substance,
  datestamp,
  datespan,
  timestamp,
  timespan,
  laptime,
  frametime,
  dateComponents,
  dateWord,
  specialDay,
  timezone,
  gpsCoordinates,
  dms,
  pitch,
  resolution,
  dpQuantity,
  statisticType,
  variable,
  variableDeclaration,
  conditionalVariableDeclaration,
  hashtag,
  subsheet,
  quotationComment,
  url,
  wordFunction,
  customFunction,
  javascriptFunction,
  customType,
};

/// What a token is worth: the parsed value behind its text. Immutable and shared between the copies of a token, so
/// that copying a token copies no value. Each kind is a small struct of its own, in the header of its subject.
class TokenMetadata {
 public:
  TokenMetadata(const TokenMetadata&) = default;
  TokenMetadata& operator=(const TokenMetadata&) = delete;

  [[nodiscard]] TokenMetadataKind kind() const noexcept { return kind_; }

  /// The metadata as `Metadata` if it is one, otherwise null.
  template <class Metadata>
  [[nodiscard]] const Metadata* as() const noexcept {
    return kind_ == Metadata::kKind ? static_cast<const Metadata*>(this) : nullptr;
  }

 protected:
  explicit constexpr TokenMetadata(TokenMetadataKind kind) noexcept : kind_(kind) {}
  /// Not virtual: a shared pointer deletes what it was made with.
  ~TokenMetadata() = default;

 private:
  TokenMetadataKind kind_;
};

using TokenMetadataRef = std::shared_ptr<const TokenMetadata>;

/// The base of the metadata of one kind.
template <TokenMetadataKind metadataKind>
struct TokenMetadataOf : TokenMetadata {
  static constexpr TokenMetadataKind kKind = metadataKind;

 protected:
  constexpr TokenMetadataOf() noexcept : TokenMetadata(metadataKind) {}
  ~TokenMetadataOf() = default;
};

}  // namespace tavrine
