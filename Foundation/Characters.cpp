// What a scalar is, and where a character ends: the parts of Text.h that stand on the Unicode tables.

#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <array>

#include "Foundation/Text.h"

namespace tavrine::foundation {

namespace {

// --- Properties ------------------------------------------------------------------------------------------------

enum Property : std::uint8_t {
  whitespace = 1U << 0,
  numeric = 1U << 1,
  alphabetic = 1U << 2,
  symbol = 1U << 3,
  punctuation = 1U << 4,
  lowercase = 1U << 5,
  uppercase = 1U << 6,
};

/// Properties of U+0000 to U+00FF. Nearly all text stays in here, and a load is a tenth of the cost of a look-up.
constexpr std::array<std::uint8_t, 256> kLatin1Properties = [] {
  std::array<std::uint8_t, 256> table{};
  const auto markRange = [&table](unsigned from, unsigned to, unsigned properties) {
    for (unsigned c = from; c <= to; ++c) table[c] = static_cast<std::uint8_t>(table[c] | properties);
  };
  const auto mark = [&markRange](std::string_view latin1, unsigned properties) {
    for (const char c : latin1) markRange(static_cast<unsigned char>(c), static_cast<unsigned char>(c), properties);
  };
  markRange(0x09, 0x0D, whitespace);
  mark("\x20\x85\xA0", whitespace);
  markRange('0', '9', numeric);
  mark("\xB2\xB3\xB9\xBC\xBD\xBE", numeric);
  markRange('A', 'Z', alphabetic | uppercase);
  markRange(0xC0, 0xDE, alphabetic | uppercase);
  markRange('a', 'z', alphabetic | lowercase);
  markRange(0xDF, 0xFF, alphabetic | lowercase);
  mark("\xB5", alphabetic | lowercase);
  mark("\xAA\xBA", alphabetic);
  table[0xD7] = table[0xF7] = symbol;  // × and ÷ lie among the letters
  mark("$+<=>^`|~", symbol);
  mark("\xA2\xA3\xA4\xA5\xA6\xA8\xA9\xAC\xAE\xAF\xB0\xB1\xB4\xB8", symbol);
  mark("!\"#%&'()*,-./:;?@[\\]_{}", punctuation);
  mark("\xA1\xA7\xAB\xB6\xB7\xBB\xBF", punctuation);
  return table;
}();

constexpr bool inTable(char32_t scalar) noexcept { return scalar < kLatin1Properties.size(); }

constexpr bool tableSays(char32_t scalar, unsigned properties) noexcept {
  return (kLatin1Properties[scalar] & properties) != 0;
}

UChar32 codePoint(char32_t scalar) noexcept { return static_cast<UChar32>(scalar); }

bool hasCategory(char32_t scalar, std::uint32_t mask) noexcept {
  return (U_GET_GC_MASK(codePoint(scalar)) & mask) != 0;
}

// --- Clusters --------------------------------------------------------------------------------------------------

/// Whether nothing joins the scalar to its neighbour but what the neighbour itself brings: printable ASCII and Latin
/// letters (without the soft hyphen and the two Latin-1 signs that can be emoji), and plain ideographs.
constexpr bool standsAlone(char32_t scalar) noexcept {
  if (scalar < 0x300) {
    return (scalar >= 0x20 && scalar < 0x7F) || (scalar >= 0xA0 && scalar != 0xA9 && scalar != 0xAD && scalar != 0xAE);
  }
  return scalar >= 0x3400 && scalar <= 0x9FFF;
}

UGraphemeClusterBreak breakPropertyOf(char32_t scalar) noexcept {
  return static_cast<UGraphemeClusterBreak>(u_getIntPropertyValue(codePoint(scalar), UCHAR_GRAPHEME_CLUSTER_BREAK));
}

/// The scripts in which a consonant, a virama and a consonant are read as one character.
bool joinsConsonants(char32_t scalar) noexcept {
  UErrorCode status = U_ZERO_ERROR;
  switch (uscript_getScript(codePoint(scalar), &status)) {
    case USCRIPT_BENGALI:
    case USCRIPT_DEVANAGARI:
    case USCRIPT_GUJARATI:
    case USCRIPT_MALAYALAM:
    case USCRIPT_ORIYA:
    case USCRIPT_TELUGU:
      return true;
    default:
      return false;
  }
}

/// Decides from left to right whether the next scalar still belongs to the cluster. What has gone by is kept as a few
/// flags, so a cluster of a million marks costs no more a mark than one of two.
class ClusterState {
 public:
  explicit ClusterState(char32_t first) noexcept : break_(breakPropertyOf(first)) { note(first); }

  bool continuesWith(char32_t scalar) noexcept {
    const UGraphemeClusterBreak next = breakPropertyOf(scalar);
    if (!joins(next, scalar)) return false;
    previous_ = break_;
    break_ = next;
    note(scalar);
    return true;
  }

 private:
  static bool isControl(UGraphemeClusterBreak property) noexcept {
    return property == U_GCB_CONTROL || property == U_GCB_CR || property == U_GCB_LF;
  }

  bool joins(UGraphemeClusterBreak next, char32_t scalar) const noexcept {
    if (break_ == U_GCB_CR) return next == U_GCB_LF;
    if (isControl(break_) || isControl(next)) return false;
    if (next == U_GCB_EXTEND || next == U_GCB_ZWJ || next == U_GCB_SPACING_MARK) return true;
    switch (break_) {
      case U_GCB_PREPEND:
        return true;
      case U_GCB_L:
        if (next == U_GCB_L || next == U_GCB_V || next == U_GCB_LV || next == U_GCB_LVT) return true;
        break;
      case U_GCB_LV:
      case U_GCB_V:
        if (next == U_GCB_V || next == U_GCB_T) return true;
        break;
      case U_GCB_LVT:
      case U_GCB_T:
        if (next == U_GCB_T) return true;
        break;
      case U_GCB_REGIONAL_INDICATOR:
        if (next == U_GCB_REGIONAL_INDICATOR) return oddIndicators_;
        break;
      case U_GCB_ZWJ:
        if (pictograph_ == Pictograph::joined && isPictographic(scalar)) return true;
        break;
      default:
        break;
    }
    return conjunct_ == Conjunct::viramaSeen && isLinkingConsonant(scalar);
  }

  void note(char32_t scalar) noexcept {
    oddIndicators_ = break_ == U_GCB_REGIONAL_INDICATOR && !(previous_ == U_GCB_REGIONAL_INDICATOR && oddIndicators_);

    const bool extends = break_ == U_GCB_EXTEND;
    if (break_ == U_GCB_ZWJ) {
      pictograph_ = pictograph_ == Pictograph::seen ? Pictograph::joined : Pictograph::none;
    } else if (!(extends && pictograph_ == Pictograph::seen)) {
      pictograph_ = !extends && isPictographic(scalar) ? Pictograph::seen : Pictograph::none;
    }

    if (isLinkingConsonant(scalar)) {
      conjunct_ = Conjunct::consonantSeen;
    } else if (conjunct_ != Conjunct::none) {
      if (isVirama(scalar)) {
        conjunct_ = Conjunct::viramaSeen;
      } else if (break_ != U_GCB_ZWJ && !(extends && u_getCombiningClass(codePoint(scalar)) != 0)) {
        conjunct_ = Conjunct::none;
      }
    }
  }

  static bool isPictographic(char32_t scalar) noexcept {
    return u_hasBinaryProperty(codePoint(scalar), UCHAR_EXTENDED_PICTOGRAPHIC) != 0;
  }
  static int syllabicCategory(char32_t scalar) noexcept {
    return u_getIntPropertyValue(codePoint(scalar), UCHAR_INDIC_SYLLABIC_CATEGORY);
  }
  static bool inIndicBlocks(char32_t scalar) noexcept { return scalar >= 0x0900 && scalar <= 0x1CFF; }
  static bool isLinkingConsonant(char32_t scalar) noexcept {
    return inIndicBlocks(scalar) && syllabicCategory(scalar) == U_INSC_CONSONANT && joinsConsonants(scalar);
  }
  static bool isVirama(char32_t scalar) noexcept {
    return inIndicBlocks(scalar) && syllabicCategory(scalar) == U_INSC_VIRAMA && joinsConsonants(scalar);
  }

  enum class Pictograph : std::uint8_t { none, seen, joined };
  enum class Conjunct : std::uint8_t { none, consonantSeen, viramaSeen };

  UGraphemeClusterBreak previous_ = U_GCB_OTHER;
  UGraphemeClusterBreak break_;
  bool oddIndicators_ = false;
  Pictograph pictograph_ = Pictograph::none;
  Conjunct conjunct_ = Conjunct::none;
};

}  // namespace

std::size_t clusterEnd(std::string_view text, std::size_t offset) noexcept {
  const DecodedScalar first = decodeScalar(text, offset);
  std::size_t end = offset + first.length;
  if (end >= text.size()) return end;
  DecodedScalar next = decodeScalar(text, end);
  if (first.scalar < 0x80 && next.scalar < 0x80) {
    return first.scalar == U'\r' && next.scalar == U'\n' ? end + 1 : end;
  }
  if (standsAlone(first.scalar) && standsAlone(next.scalar)) return end;

  ClusterState state(first.scalar);
  while (next.length != 0 && state.continuesWith(next.scalar)) {
    end += next.length;
    next = decodeScalar(text, end);
  }
  return end;
}

std::size_t clusterCount(std::string_view text) noexcept {
  std::size_t count = 0;
  for (ClusterIterator it(text); !it.atEnd(); it.advance()) ++count;
  return count;
}

std::vector<std::string_view> clustersOf(std::string_view text) {
  std::vector<std::string_view> clusters;
  clusters.reserve(text.size());
  forEachCluster(text, [&clusters](std::string_view cluster, std::size_t) { clusters.push_back(cluster); });
  return clusters;
}

std::string_view firstCluster(std::string_view text) noexcept {
  return text.empty() ? text : text.substr(0, clusterEnd(text, 0));
}

std::string_view lastCluster(std::string_view text) noexcept {
  std::string_view last;
  for (ClusterIterator it(text); !it.atEnd(); it.advance()) last = it.cluster();
  return last;
}

bool isSingleCluster(std::string_view text) noexcept { return !text.empty() && clusterEnd(text, 0) == text.size(); }

bool isWhitespace(char32_t scalar) noexcept {
  return inTable(scalar) ? tableSays(scalar, whitespace) : u_isUWhiteSpace(codePoint(scalar)) != 0;
}

bool hasNumericType(char32_t scalar) noexcept {
  if (inTable(scalar)) return tableSays(scalar, numeric);
  return u_getIntPropertyValue(codePoint(scalar), UCHAR_NUMERIC_TYPE) != U_NT_NONE;
}

bool isAlphabetic(char32_t scalar) noexcept {
  return inTable(scalar) ? tableSays(scalar, alphabetic) : u_isUAlphabetic(codePoint(scalar)) != 0;
}

bool isSymbol(char32_t scalar) noexcept {
  return inTable(scalar) ? tableSays(scalar, symbol) : hasCategory(scalar, U_GC_S_MASK);
}

bool isPunctuation(char32_t scalar) noexcept {
  return inTable(scalar) ? tableSays(scalar, punctuation) : hasCategory(scalar, U_GC_P_MASK);
}

bool isLowercaseLetter(char32_t scalar) noexcept {
  return inTable(scalar) ? tableSays(scalar, lowercase) : hasCategory(scalar, U_GC_LL_MASK);
}

bool isUppercaseLetter(char32_t scalar) noexcept {
  return inTable(scalar) ? tableSays(scalar, uppercase) : hasCategory(scalar, U_GC_LU_MASK);
}

int decimalDigitValue(char32_t scalar) noexcept {
  if (isAsciiDigit(scalar)) return static_cast<int>(scalar - U'0');
  return scalar < 0x80 ? -1 : u_charDigitValue(codePoint(scalar));
}

bool containsLowercaseLetter(std::string_view text) noexcept {
  for (std::size_t offset = 0; offset < text.size();) {
    const DecodedScalar next = decodeScalar(text, offset);
    if (isLowercaseLetter(next.scalar)) return true;
    offset += next.length;
  }
  return false;
}

}  // namespace tavrine::foundation
