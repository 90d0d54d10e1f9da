#include "Foundation/Text.h"

#include <algorithm>
#include <cstring>

namespace tavrine::foundation {

namespace {

constexpr unsigned byteAt(std::string_view text, std::size_t offset) noexcept {
  return static_cast<unsigned char>(text[offset]);
}

constexpr bool isContinuation(unsigned byte) noexcept { return (byte & 0xC0U) == 0x80U; }

/// What a lead byte promises: how many bytes, its payload, and the bounds of the second byte, by which overlong forms,
/// surrogates and values above U+10FFFF are kept out.
struct Lead {
  std::uint8_t length = 0;  // 0: no lead byte
  std::uint8_t payload = 0;
  std::uint8_t secondLow = 0x80;
  std::uint8_t secondHigh = 0xBF;
};

constexpr Lead leadOf(unsigned byte) noexcept {
  const auto bits = [byte](unsigned mask) { return static_cast<std::uint8_t>(byte & mask); };
  if (byte < 0xC2) return {};
  if (byte < 0xE0) return {2, bits(0x1F)};
  if (byte == 0xE0) return {3, bits(0x0F), 0xA0};
  if (byte == 0xED) return {3, bits(0x0F), 0x80, 0x9F};
  if (byte < 0xF0) return {3, bits(0x0F)};
  if (byte == 0xF0) return {4, bits(0x07), 0x90};
  if (byte < 0xF4) return {4, bits(0x07)};
  if (byte == 0xF4) return {4, bits(0x07), 0x80, 0x8F};
  return {};
}

template <class Parts>
std::string joinParts(const Parts& parts, std::string_view separator) {
  std::size_t size = 0;
  for (const auto& part : parts) size += part.size() + separator.size();
  std::string text;
  text.reserve(size);
  for (const auto& part : parts) {
    if (&part != &parts.front()) text += separator;
    text += part;
  }
  return text;
}

}  // namespace

DecodedScalar decodeScalar(std::string_view text, std::size_t offset) noexcept {
  if (offset >= text.size()) return {};
  const unsigned first = byteAt(text, offset);
  if (first < 0x80) return {first, 1};
  const Lead lead = leadOf(first);
  if (lead.length == 0) return {kReplacementScalar, 1};
  char32_t scalar = lead.payload;
  for (std::uint8_t i = 1; i < lead.length; ++i) {
    if (offset + i >= text.size()) return {kReplacementScalar, i};
    const unsigned byte = byteAt(text, offset + i);
    const bool fits = i == 1 ? byte >= lead.secondLow && byte <= lead.secondHigh : isContinuation(byte);
    if (!fits) return {kReplacementScalar, i};
    scalar = (scalar << 6) | (byte & 0x3FU);
  }
  return {scalar, lead.length};
}

char32_t firstScalar(std::string_view text) noexcept { return decodeScalar(text, 0).scalar; }

std::optional<char32_t> singleScalar(std::string_view text) noexcept {
  const DecodedScalar first = decodeScalar(text, 0);
  if (first.length == 0 || first.length != text.size()) return std::nullopt;
  return first.scalar;
}

void appendScalar(std::string& text, char32_t scalar) {
  if (scalar > 0x10FFFF || (scalar >= 0xD800 && scalar <= 0xDFFF)) scalar = kReplacementScalar;
  const auto append = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (scalar < 0x80) {
    append(scalar);
  } else if (scalar < 0x800) {
    append(0xC0 | (scalar >> 6));
    append(0x80 | (scalar & 0x3F));
  } else if (scalar < 0x10000) {
    append(0xE0 | (scalar >> 12));
    append(0x80 | ((scalar >> 6) & 0x3F));
    append(0x80 | (scalar & 0x3F));
  } else {
    append(0xF0 | (scalar >> 18));
    append(0x80 | ((scalar >> 12) & 0x3F));
    append(0x80 | ((scalar >> 6) & 0x3F));
    append(0x80 | (scalar & 0x3F));
  }
}

std::string stringFromScalar(char32_t scalar) {
  std::string text;
  appendScalar(text, scalar);
  return text;
}

std::u32string scalarsOf(std::string_view text) {
  std::u32string scalars;
  scalars.reserve(text.size());
  for (std::size_t offset = 0; offset < text.size();) {
    const DecodedScalar next = decodeScalar(text, offset);
    scalars.push_back(next.scalar);
    offset += next.length;
  }
  return scalars;
}

bool isAscii(std::string_view text) noexcept {
  constexpr std::uint64_t highBits = 0x8080808080808080ULL;
  std::uint64_t all = 0;
  std::size_t offset = 0;
  for (std::uint64_t eight = 0; offset + sizeof eight <= text.size(); offset += sizeof eight) {
    std::memcpy(&eight, text.data() + offset, sizeof eight);
    all |= eight;
  }
  for (; offset < text.size(); ++offset) all |= byteAt(text, offset);
  return (all & highBits) == 0;
}

bool isValidUtf8(std::string_view text) noexcept {
  if (isAscii(text)) return true;
  for (std::size_t offset = 0; offset < text.size();) {
    const DecodedScalar next = decodeScalar(text, offset);
    // A U+FFFD that the text itself holds is three bytes long; a broken sequence of three is not that one.
    if (next.scalar == kReplacementScalar && text.substr(offset, next.length) != "\xEF\xBF\xBD") return false;
    offset += next.length;
  }
  return true;
}

std::string sanitizedUtf8(std::string_view text) {
  if (isValidUtf8(text)) return std::string(text);
  std::string clean;
  clean.reserve(text.size() + 8);
  for (std::size_t offset = 0; offset < text.size();) {
    const DecodedScalar next = decodeScalar(text, offset);
    appendScalar(clean, next.scalar);
    offset += next.length;
  }
  return clean;
}

std::size_t utf16Length(std::string_view text) noexcept {
  if (isAscii(text)) return text.size();
  std::size_t units = 0;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    units += static_cast<std::size_t>(!isContinuation(byte)) + static_cast<std::size_t>(byte >= 0xF0);
  }
  return units;
}

std::size_t utf8OffsetFromUtf16(std::string_view text, std::size_t utf16Offset) noexcept {
  std::size_t units = 0;
  for (std::size_t offset = 0; offset < text.size(); ++offset) {
    const unsigned byte = byteAt(text, offset);
    if (isContinuation(byte)) continue;
    const std::size_t width = byte >= 0xF0 ? 2 : 1;
    if (units + width > utf16Offset) return offset;
    units += width;
  }
  return text.size();
}

std::string_view sliceUtf16(std::string_view text, NSRange range) noexcept {
  const std::size_t start = utf8OffsetFromUtf16(text, range.location);
  const std::size_t end = utf8OffsetFromUtf16(text, range.upperBound());
  return text.substr(start, end - start);
}

std::string_view trimmedStart(std::string_view text) noexcept {
  while (!text.empty()) {
    const DecodedScalar first = decodeScalar(text, 0);
    if (!isWhitespace(first.scalar)) break;
    text.remove_prefix(first.length);
  }
  return text;
}

std::string_view trimmedEnd(std::string_view text) noexcept {
  while (!text.empty()) {
    std::size_t start = text.size() - 1;
    while (start > 0 && text.size() - start < 4 && isContinuation(byteAt(text, start))) --start;
    const DecodedScalar last = decodeScalar(text, start);
    if (start + last.length != text.size() || !isWhitespace(last.scalar)) break;
    text = text.substr(0, start);
  }
  return text;
}

std::string_view trimmed(std::string_view text) noexcept { return trimmedEnd(trimmedStart(text)); }

std::vector<std::string_view> split(std::string_view text, char separator, EmptyParts emptyParts) {
  std::vector<std::string_view> parts;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find(separator, start), text.size());
    if (end > start || emptyParts == EmptyParts::keep) parts.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return parts;
}

std::vector<std::string_view> splitAtWhitespace(std::string_view text) {
  std::vector<std::string_view> parts;
  std::size_t start = 0;
  for (std::size_t offset = 0; offset < text.size();) {
    const DecodedScalar next = decodeScalar(text, offset);
    if (isWhitespace(next.scalar)) {
      if (offset > start) parts.push_back(text.substr(start, offset - start));
      start = offset + next.length;
    }
    offset += next.length;
  }
  if (start < text.size()) parts.push_back(text.substr(start));
  return parts;
}

std::string replacingAll(std::string_view text, std::string_view target, std::string_view replacement) {
  std::string replaced;
  std::size_t start = 0;
  if (!target.empty()) {
    for (std::size_t hit; (hit = text.find(target, start)) != std::string_view::npos; start = hit + target.size()) {
      replaced.append(text, start, hit - start);
      replaced += replacement;
    }
  }
  return replaced.append(text.substr(start));
}

std::string joined(std::span<const std::string> parts, std::string_view separator) {
  return joinParts(parts, separator);
}

std::string joined(std::span<const std::string_view> parts, std::string_view separator) {
  return joinParts(parts, separator);
}

}  // namespace tavrine::foundation
