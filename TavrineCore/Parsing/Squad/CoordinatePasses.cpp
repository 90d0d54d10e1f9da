// Angles in degrees, minutes and seconds, and places on the earth.

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "TavrineCore/Parsing/Primitives/DegreesMinutesSeconds.h"
#include "TavrineCore/Parsing/Primitives/GPSCoordinates.h"
#include "TavrineCore/Parsing/Squad/AngleReading.h"
#include "TavrineCore/Parsing/Squad/NumberTokens.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Squad/UnitTokens.h"
#include "TavrineCore/Parsing/Tokens/PlaceMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine::passes {

namespace {

using Direction = DegreesMinutesSeconds::CardinalDirection;

// The marks for minutes and seconds are also those for feet and inches.
bool isMinuteLike(const Token& token) {
  return isUnitWith(token, UnitIdentifier::arcMinutes) || isUnitWith(token, UnitIdentifier::minutes) ||
         isUnitWith(token, UnitIdentifier::feet);
}
bool isSecondLike(const Token& token) {
  return isUnitWith(token, UnitIdentifier::arcSeconds) || isUnitWith(token, UnitIdentifier::seconds) ||
         isUnitWith(token, UnitIdentifier::inches);
}
bool isDegrees(const Token& token) { return isExpressionWith(token, UnitIdentifier::degrees); }

std::vector<const Token*> amountsIn(const Token& compound) {
  std::vector<const Token*> result;
  if (!compound.subtokens) return result;
  for (const Token& token : *compound.subtokens) {
    if (token.is(TokenType::unitExpression)) result.push_back(&token);
  }
  return result;
}

// --- Angles ---------------------------------------------------------------------------------------------------------

/// What stands behind the mark of seconds, as the N of "″N" does; nothing where the text doesn't begin with one.
std::optional<std::string_view> textBehindMarkOfSeconds(std::string_view text) {
  static constexpr std::array<std::string_view, 5> kMarks{"\"", "″", "”", "''", "’’"};
  for (const std::string_view mark : kMarks) {
    if (text.starts_with(mark)) return text.substr(mark.size());
  }
  return std::nullopt;
}

/// An angle in the making: its parts, and the tokens that tell it.
struct Angle {
  DegreesMinutesSeconds value;
  std::size_t first;
  std::size_t last;
};

/// The letter behind the angle is its direction.
void takeDirection(const TokenList& list, Angle& angle) {
  const auto next = list.indexAfter(angle.last, /*ignoreWhitespace=*/true);
  if (!next) return;
  angle.value.cardinalDirection = cardinalDirectionNamed(list[*next].stringValue);
  if (angle.value.cardinalDirection) angle.last = *next;
}

void wrapAngle(TokenList& list, const Angle& angle) {
  list.replaceRun(angle.first, angle.last,
                  list.slice(angle.first, angle.last)
                      .embedInContainerToken(TokenType::degreesMinutesSeconds, TokenSubType::notSpecified,
                                             std::make_shared<const DMSTokenMetadata>(angle.value)));
}

/// 40° 26' and, apart from it, 46" or 46 N.
std::optional<Angle> angleWithLooseSeconds(const TokenList& list, std::size_t index, DegreesMinutesSeconds value) {
  const auto seconds = list.indexAfter(index, /*ignoreWhitespace=*/true);
  if (!seconds) return std::nullopt;
  const Token& token = list[*seconds];
  value.seconds = numberIn(token);
  if (token.is(TokenType::unitExpression)) {
    // "46 N" was read as a force.
    const Token* unit = token.subtokens ? token.subtokens->lastTokenOfType(TokenType::unit) : nullptr;
    if (unit == nullptr) return std::nullopt;
    value.cardinalDirection = cardinalDirectionNamed(unit->stringValue);
    if (value.cardinalDirection) return Angle{value, index, *seconds};
    return std::nullopt;
  }
  if (!token.is(TokenType::number)) return std::nullopt;
  static constexpr TokenTypeSet kMarkTypes{TokenType::quotationMark, TokenType::unidentified, TokenType::unit};
  const auto mark = list.indexAfter(*seconds, /*ignoreWhitespace=*/true);
  if (!mark || !kMarkTypes.contains(list[*mark].type)) return std::nullopt;
  Angle angle{value, index, *mark};
  angle.value.cardinalDirection = cardinalDirectionNamed(list[*mark].stringValue);
  if (angle.value.cardinalDirection) return angle;
  const auto textBehindMark = textBehindMarkOfSeconds(list[*mark].stringValue);
  if (!textBehindMark) return std::nullopt;
  angle.value.cardinalDirection = cardinalDirectionNamed(*textBehindMark);
  if (!angle.value.cardinalDirection) takeDirection(list, angle);
  return angle;
}

std::optional<Angle> angleInDegrees(const TokenList& list, std::size_t index) {
  const std::vector<const Token*> parts = amountsIn(list[index]);
  if (parts.size() < 2 || !isDegrees(*parts[0]) || !isMinuteLike(*parts[1])) return std::nullopt;
  DegreesMinutesSeconds value{numberIn(*parts[0]), numberIn(*parts[1]), Decimal(), std::nullopt};
  if (parts.size() == 2) return angleWithLooseSeconds(list, index, value);
  if (parts.size() > 3 || !isSecondLike(*parts[2])) return std::nullopt;
  value.seconds = numberIn(*parts[2]);
  Angle angle{value, index, index};
  takeDirection(list, angle);
  return angle;
}

/// 26' 46" behind degrees that stand apart.
std::optional<Angle> angleInFeet(const TokenList& list, std::size_t index) {
  const std::vector<const Token*> parts = amountsIn(list[index]);
  if (parts.size() != 2 || !isMinuteLike(*parts[0]) || !isSecondLike(*parts[1])) return std::nullopt;
  const auto degrees = list.indexBefore(index, /*ignoreWhitespace=*/true);
  if (!degrees || !isDegrees(list[*degrees])) return std::nullopt;
  Angle angle{{numberIn(list[*degrees]), numberIn(*parts[0]), numberIn(*parts[1]), std::nullopt}, *degrees, index};
  takeDirection(list, angle);
  return angle;
}

void wrapAngles(TokenList& list) {
  for (std::size_t i = list.count(); i-- > 0;) {
    const auto* compound = list[i].metadataAs<CompoundUnitExpressionTokenMetadata>();
    if (compound == nullptr || !list[i].is(TokenType::compoundUnitExpression)) continue;
    const UnitIdentifier primary = compound->primaryUnitMetadata.underlyingTCUnit.identifier();
    std::optional<Angle> angle;
    if (primary == UnitIdentifier::degrees) angle = angleInDegrees(list, i);
    if (primary == UnitIdentifier::feet) angle = angleInFeet(list, i);
    if (!angle) continue;
    wrapAngle(list, *angle);
    i = angle->first;
  }
}

// --- Places ---------------------------------------------------------------------------------------------------------

void wrapCoordinates(TokenList& list, std::size_t first, std::size_t last, const GPSCoordinates& coordinates) {
  list.replaceRun(first, last,
                  list.slice(first, last)
                      .embedInContainerToken(TokenType::gpsCoordinates, TokenSubType::notSpecified,
                                             std::make_shared<const GPSCoordinatesTokenMetadata>(coordinates)));
}

void wrapPairsOfAngles(TokenList& list) {
  for (std::size_t i = list.count(); i-- > 0;) {
    const auto* longitude = list[i].metadataAs<DMSTokenMetadata>();
    if (longitude == nullptr) continue;
    const auto before = list.indexBefore(i, /*ignoreWhitespace=*/true, TokenTypeSet::randomWords);
    const auto* latitude = before ? list[*before].metadataAs<DMSTokenMetadata>() : nullptr;
    if (latitude == nullptr) continue;
    if (const auto coordinates = GPSCoordinates::make(latitude->dms, longitude->dms)) {
      wrapCoordinates(list, *before, i, *coordinates);
      i = *before;
    }
  }
}

}  // namespace

void identifyDMS(TokenList& list) {
  if (!list.typePrecheck(TokenType::compoundUnitExpression)) return;
  if (!list.unitTypesCache().contains(UnitType::angle)) return;
  wrapAngles(list);
  if (list.typePrecheck(TokenType::degreesMinutesSeconds)) wrapPairsOfAngles(list);
}

void identifyGPSCoordinatesIn(TokenList& list, const PassContext&) {
  if (!list.unitTypesCache().contains(UnitType::angle)) return;
  list.performEditsToListsWith(
      TokenType::unitExpression, /*recalculateRangesAfterEdit=*/false,
      [](const Token& longitude, TokenList& tokens, const Token*) {
        if (!isDegrees(longitude)) return;
        const auto index = tokens.indexOf(longitude);
        const auto comma = index ? tokens.indexBefore(*index, /*ignoreWhitespace=*/true) : std::nullopt;
        if (!comma || !tokens[*comma].is(TokenType::comma)) return;
        const auto latitude = tokens.indexBefore(*comma, /*ignoreWhitespace=*/true);
        if (!latitude || !isDegrees(tokens[*latitude])) return;
        const auto coordinates = GPSCoordinates::make(numberIn(tokens[*latitude]), numberIn(longitude));
        if (coordinates) wrapCoordinates(tokens, *latitude, *index, *coordinates);
      });
}

}  // namespace tavrine::passes
