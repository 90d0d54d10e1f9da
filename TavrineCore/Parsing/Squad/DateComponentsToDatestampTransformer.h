#pragma once

#include <cstddef>
#include <optional>

#include "Foundation/Calendar.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/DatestampType.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

/// Merges one piece of a date with the pieces, the zone and the qualifier beside it, and puts the moment in their
/// place: "Friday", "at", "3pm", "Tokyo" → one `datestamp`.
///
/// Holds indices into the list, so each object serves for one edit.
class DateComponentsToDatestampTransformer {
 public:
  /// `mainComponents`: the index of a token of date components. Both references must outlive the object.
  DateComponentsToDatestampTransformer(const EngineCustomization& engineCustomization, TokenList& tokenList,
                                       std::size_t mainComponents);

  /// Puts a `datestamp` or `datespan` in the place of the pieces, or turns them into words where they make no date.
  void transform();

 private:
  struct Piece {
    std::size_t index;
    const DateComponentsTokenMetadata* metadata;
  };

  void findSupplementaryComponents();
  void swapMainComponentsSupplementaryIfRequired();
  void addTimeZoneIfPresent();
  void addTimeIfPresent();
  void addQualifierIfPresent();

  [[nodiscard]] std::optional<Piece> pieceAt(std::optional<std::size_t> index) const;
  /// The piece that can be told of the same moment and stands left of the token, words aside.
  [[nodiscard]] std::optional<Piece> friendBefore(std::size_t index) const;
  [[nodiscard]] bool takeTimeZone(std::optional<std::size_t> index);
  void widenTo(std::size_t index);

  [[nodiscard]] DateComponents mergedComponents() const;
  [[nodiscard]] DatestampType typeOf(const DateComponents& components) const;
  /// The token for the moment; absent where there is none.
  [[nodiscard]] std::optional<Token> transformDateComponents() const;
  [[nodiscard]] std::optional<Date> weekdayNamedBy(const DateComponents& components, const Calendar& calendar,
                                                   Date now) const;
  [[nodiscard]] Token datestampToken(Date date, DatestampType type, const Calendar& calendar, Date now) const;
  void deidentifyPieces();

  const EngineCustomization& engineCustomization_;
  TokenList& tokenList_;
  Calendar defaultCalendar_;
  Piece mainComponents_;
  std::optional<Piece> supplementaryComponents_;
  std::optional<std::size_t> explicitTimeZone_;
  std::optional<Piece> explicitTime_;
  std::optional<std::size_t> qualifier_;
  /// The run that the moment takes.
  std::size_t first_;
  std::size_t last_;
};

}  // namespace tavrine
