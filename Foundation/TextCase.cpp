// Upper and lower case, comparison without case, and accents: the parts of Text.h that map one text to another.

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/normalizer2.h>
#include <unicode/stringpiece.h>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <array>
#include <limits>

#include "Foundation/Text.h"

namespace tavrine::foundation {

namespace {

constexpr bool isAsciiUpper(char c) noexcept { return c >= 'A' && c <= 'Z'; }
constexpr bool isAsciiLower(char c) noexcept { return c >= 'a' && c <= 'z'; }
constexpr char asciiLowered(char c) noexcept { return isAsciiUpper(c) ? static_cast<char>(c + ('a' - 'A')) : c; }
constexpr char asciiUppered(char c) noexcept { return isAsciiLower(c) ? static_cast<char>(c - ('a' - 'A')) : c; }

/// ICU counts in 32-bit signed integers, and a mapping may make a text three times as long.
constexpr std::size_t kLongestMappedText = std::numeric_limits<std::int32_t>::max() / 4;

/// Maps the text by `map(piece, sink, status)`; gives it back as it is where that fails or it is too long to map.
template <class Map>
std::string mapped(std::string_view text, Map&& map) {
  if (text.size() > kLongestMappedText) return std::string(text);
  std::string result;
  icu::StringByteSink<std::string> sink(&result, static_cast<std::int32_t>(text.size()));
  UErrorCode status = U_ZERO_ERROR;
  map(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())), sink, status);
  return U_SUCCESS(status) ? result : std::string(text);
}

/// Maps byte by byte as long as the text is ASCII, and all of it by `mapAll` when it isn't.
template <class MapAll>
std::string mappedFromAscii(std::string_view text, char (*mapByte)(char) noexcept, MapAll&& mapAll) {
  if (!isAscii(text)) return mapped(text, mapAll);
  std::string result(text);
  for (char& c : result) c = mapByte(c);
  return result;
}

std::string folded(std::string_view text) {
  return mapped(text, [](icu::StringPiece piece, icu::ByteSink& sink, UErrorCode& status) {
    icu::CaseMap::utf8Fold(U_FOLD_CASE_DEFAULT, piece, sink, nullptr, status);
  });
}

/// Appends the scalar's full decomposition without its marks. A scalar that would be moved about when marks are put
/// in order is dropped with them: so no order has to be made, which takes quadratic time over a run of marks.
void appendWithoutMarks(std::string& text, char32_t scalar, const UNormalizer2* decomposer) {
  const auto appendUnlessMark = [&text](UChar32 c) {
    if (u_charType(c) != U_NON_SPACING_MARK && u_getCombiningClass(c) == 0) {
      appendScalar(text, static_cast<char32_t>(c));
    }
  };
  std::array<UChar, 32> units{};  // the longest canonical decomposition of a scalar has four scalars
  UErrorCode status = U_ZERO_ERROR;
  const std::int32_t count = unorm2_getDecomposition(decomposer, static_cast<UChar32>(scalar), units.data(),
                                                     static_cast<std::int32_t>(units.size()), &status);
  if (U_FAILURE(status) || count < 0) return appendUnlessMark(static_cast<UChar32>(scalar));
  for (std::int32_t i = 0; i < count;) {
    UChar32 c = 0;
    U16_NEXT(units.data(), i, count, c);
    appendUnlessMark(c);
  }
}

}  // namespace

bool isLowercased(std::string_view text) noexcept {
  for (std::size_t offset = 0; offset < text.size();) {
    const char c = text[offset];
    if (isAsciiUpper(c)) return false;
    if (static_cast<unsigned char>(c) < 0x80) {
      ++offset;
      continue;
    }
    const DecodedScalar next = decodeScalar(text, offset);
    const auto scalar = static_cast<UChar32>(next.scalar);
    if (u_tolower(scalar) != scalar) return false;
    offset += next.length;
  }
  return true;
}

std::string lowercased(std::string_view text) {
  return mappedFromAscii(text, asciiLowered, [](icu::StringPiece piece, icu::ByteSink& sink, UErrorCode& status) {
    icu::CaseMap::utf8ToLower("", 0, piece, sink, nullptr, status);
  });
}

std::string uppercased(std::string_view text) {
  return mappedFromAscii(text, asciiUppered, [](icu::StringPiece piece, icu::ByteSink& sink, UErrorCode& status) {
    icu::CaseMap::utf8ToUpper("", 0, piece, sink, nullptr, status);
  });
}

std::string capitalizedFirst(std::string_view text) {
  const std::string_view first = firstCluster(text);
  return uppercased(first).append(text.substr(first.size()));
}

std::string strippingDiacritics(std::string_view text) {
  if (isAscii(text)) return std::string(text);
  UErrorCode status = U_ZERO_ERROR;
  const UNormalizer2* decomposer = unorm2_getNFDInstance(&status);
  const icu::Normalizer2* composer = icu::Normalizer2::getNFCInstance(status);
  if (U_FAILURE(status)) return std::string(text);
  std::string bases;
  bases.reserve(text.size());
  for (std::size_t offset = 0; offset < text.size();) {
    const DecodedScalar next = decodeScalar(text, offset);
    appendWithoutMarks(bases, next.scalar, decomposer);
    offset += next.length;
  }
  if (isAscii(bases)) return bases;
  return mapped(bases, [composer](icu::StringPiece piece, icu::ByteSink& sink, UErrorCode& mapStatus) {
    composer->normalizeUTF8(0, piece, sink, nullptr, mapStatus);
  });
}

int caseInsensitiveCompare(std::string_view left, std::string_view right) {
  if (!isAscii(left) || !isAscii(right)) return folded(left).compare(folded(right));
  const std::size_t shared = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < shared; ++i) {
    const int difference = asciiLowered(left[i]) - asciiLowered(right[i]);
    if (difference != 0) return difference;
  }
  return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

bool equalsIgnoringCase(std::string_view left, std::string_view right) {
  // Most of what is compared differs at once.
  if (!left.empty() && !right.empty() && static_cast<unsigned char>(left.front() | right.front()) < 0x80 &&
      asciiLowered(left.front()) != asciiLowered(right.front())) {
    return false;
  }
  return caseInsensitiveCompare(left, right) == 0;
}

}  // namespace tavrine::foundation
