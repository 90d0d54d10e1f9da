#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Range.h"
#include "Foundation/StringMap.h"

/// Text is UTF-8 throughout. Unless told otherwise the functions take valid UTF-8 (see `sanitizedUtf8`), and read
/// invalid bytes as U+FFFD rather than fail. Cases are mapped by the rules of no particular language.
namespace tavrine::foundation {

// --- Encoding --------------------------------------------------------------------------------------------------

inline constexpr char32_t kReplacementScalar = 0xFFFD;

/// One scalar and the number of bytes it was read from (1 to 4; 0 only at the end of the text).
struct DecodedScalar {
  char32_t scalar = 0;
  std::uint8_t length = 0;
};

/// The scalar that begins at byte `offset`. Bytes that are no UTF-8 read as U+FFFD, one for each longest beginning of
/// a sequence.
[[nodiscard]] DecodedScalar decodeScalar(std::string_view text, std::size_t offset) noexcept;

/// The first scalar of the text; 0 for an empty text.
[[nodiscard]] char32_t firstScalar(std::string_view text) noexcept;

/// The scalar when the text is exactly one scalar.
[[nodiscard]] std::optional<char32_t> singleScalar(std::string_view text) noexcept;

/// Appends `scalar` as UTF-8; a surrogate or a value above U+10FFFF is appended as U+FFFD.
void appendScalar(std::string& text, char32_t scalar);
[[nodiscard]] std::string stringFromScalar(char32_t scalar);
[[nodiscard]] std::u32string scalarsOf(std::string_view text);

[[nodiscard]] bool isAscii(std::string_view text) noexcept;
[[nodiscard]] bool isValidUtf8(std::string_view text) noexcept;

/// A copy in which what is no UTF-8 has become U+FFFD. Texts of a host pass through here once, at the edge; ask
/// `isValidUtf8` first where the copy matters.
[[nodiscard]] std::string sanitizedUtf8(std::string_view text);

// --- UTF-16 measures -------------------------------------------------------------------------------------------

/// The number of UTF-16 code units that the text has: "a" 1, "é" 1, "😀" 2.
[[nodiscard]] std::size_t utf16Length(std::string_view text) noexcept;

/// The byte offset of the UTF-16 position, at most the size of the text. A position inside a surrogate pair gives the
/// start of its scalar.
[[nodiscard]] std::size_t utf8OffsetFromUtf16(std::string_view text, std::size_t utf16Offset) noexcept;

/// The part of the text in `range` (UTF-16 units), cut to the text. Walks from the start: keep byte offsets where many
/// slices are taken.
[[nodiscard]] std::string_view sliceUtf16(std::string_view text, NSRange range) noexcept;

// --- Characters (extended grapheme clusters) -------------------------------------------------------------------

/// The byte offset at which the cluster beginning at `offset` ends. `offset` must be the start of a cluster. Linear in
/// the length of that cluster. "\r\n", a flag, a family emoji and a letter with its marks are one cluster each.
[[nodiscard]] std::size_t clusterEnd(std::string_view text, std::size_t offset) noexcept;

/// Walks the clusters of a text, front to back.
class ClusterIterator {
 public:
  explicit ClusterIterator(std::string_view text) noexcept : text_(text) { step(); }

  [[nodiscard]] bool atEnd() const noexcept { return offset_ >= text_.size(); }
  /// Byte offset and length of the current cluster.
  [[nodiscard]] std::size_t offset() const noexcept { return offset_; }
  [[nodiscard]] std::size_t length() const noexcept { return end_ - offset_; }
  [[nodiscard]] std::string_view cluster() const noexcept { return text_.substr(offset_, length()); }
  void advance() noexcept {
    offset_ = end_;
    step();
  }

 private:
  void step() noexcept {
    if (atEnd()) return;
    // Between two ASCII characters there is nothing to look up, and of nothing else do most texts consist.
    const bool betweenAscii = offset_ + 1 < text_.size() && ((text_[offset_] | text_[offset_ + 1]) & 0x80) == 0;
    end_ = betweenAscii && text_[offset_] != '\r' ? offset_ + 1 : clusterEnd(text_, offset_);
  }

  std::string_view text_;
  std::size_t offset_ = 0;
  std::size_t end_ = 0;
};

/// Calls `visit(cluster, byteOffset)` for each cluster in turn.
template <class Visit>
void forEachCluster(std::string_view text, Visit&& visit) {
  for (ClusterIterator it(text); !it.atEnd(); it.advance()) visit(it.cluster(), it.offset());
}

[[nodiscard]] std::size_t clusterCount(std::string_view text) noexcept;
/// The clusters as views into the text.
[[nodiscard]] std::vector<std::string_view> clustersOf(std::string_view text);
/// The first and the last cluster; empty for an empty text.
[[nodiscard]] std::string_view firstCluster(std::string_view text) noexcept;
[[nodiscard]] std::string_view lastCluster(std::string_view text) noexcept;
/// Whether the text is exactly one cluster.
[[nodiscard]] bool isSingleCluster(std::string_view text) noexcept;

// --- Properties of a scalar ------------------------------------------------------------------------------------

/// The property White_Space, line ends included; U+200B is none.
[[nodiscard]] bool isWhitespace(char32_t scalar) noexcept;
/// Whether the scalar has a numeric type: digits of any script, but also "½", "²", "Ⅳ", "五".
[[nodiscard]] bool hasNumericType(char32_t scalar) noexcept;
/// The property Alphabetic; true for "五" and "ª" as well.
[[nodiscard]] bool isAlphabetic(char32_t scalar) noexcept;
/// General category Sm, Sc, Sk or So.
[[nodiscard]] bool isSymbol(char32_t scalar) noexcept;
/// General category Pc, Pd, Ps, Pe, Pi, Pf or Po.
[[nodiscard]] bool isPunctuation(char32_t scalar) noexcept;
/// General category Ll.
[[nodiscard]] bool isLowercaseLetter(char32_t scalar) noexcept;
/// General category Lu.
[[nodiscard]] bool isUppercaseLetter(char32_t scalar) noexcept;
/// 0 to 9 for a decimal digit of any script, else -1.
[[nodiscard]] int decimalDigitValue(char32_t scalar) noexcept;
/// '0' to '9' alone.
[[nodiscard]] constexpr bool isAsciiDigit(char32_t scalar) noexcept { return scalar >= U'0' && scalar <= U'9'; }

/// Whether at least one scalar of the text is a lower-case letter.
[[nodiscard]] bool containsLowercaseLetter(std::string_view text) noexcept;

// --- Case and accents ------------------------------------------------------------------------------------------

/// Whether `lowercased` would give the text back: a check without a copy.
[[nodiscard]] bool isLowercased(std::string_view text) noexcept;
[[nodiscard]] std::string lowercased(std::string_view text);
[[nodiscard]] std::string uppercased(std::string_view text);
/// The first character in upper case, the rest as it is: "heute" → "Heute".
[[nodiscard]] std::string capitalizedFirst(std::string_view text);
/// Without accents: "Zürich" → "Zurich". Letters that are no base with an accent stay ("ø", "ß").
[[nodiscard]] std::string strippingDiacritics(std::string_view text);

/// Below 0, 0 or above 0. Compares by case folding, scalar by scalar: "STRASSE" equals "straße".
[[nodiscard]] int caseInsensitiveCompare(std::string_view left, std::string_view right);
[[nodiscard]] bool equalsIgnoringCase(std::string_view left, std::string_view right);

// --- Cutting and joining ---------------------------------------------------------------------------------------

/// Without white space (line ends included) at either end.
[[nodiscard]] std::string_view trimmed(std::string_view text) noexcept;
[[nodiscard]] std::string_view trimmedStart(std::string_view text) noexcept;
[[nodiscard]] std::string_view trimmedEnd(std::string_view text) noexcept;

enum class EmptyParts : bool { drop, keep };

/// The parts between the separators, as views into the text.
[[nodiscard]] std::vector<std::string_view> split(std::string_view text, char separator,
                                                  EmptyParts emptyParts = EmptyParts::keep);
/// The parts between runs of white space; none of them empty.
[[nodiscard]] std::vector<std::string_view> splitAtWhitespace(std::string_view text);

/// Each occurrence of `target`, left to right, replaced. An empty target replaces nothing.
[[nodiscard]] std::string replacingAll(std::string_view text, std::string_view target, std::string_view replacement);

[[nodiscard]] std::string joined(std::span<const std::string> parts, std::string_view separator);
[[nodiscard]] std::string joined(std::span<const std::string_view> parts, std::string_view separator);

}  // namespace tavrine::foundation
