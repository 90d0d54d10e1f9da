#include "Foundation/JsonEvents.h"

#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <optional>
#include <system_error>
#include <vector>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "Foundation/Text.h"

namespace tavrine::foundation {

namespace {

/// Walks a text in order and stops at the first fault, without a word about it. Most of a file of resources is strings
/// without escapes: these are handed on where they stand, and their end is looked for eight or sixteen bytes at a time.
class Walk {
 public:
  Walk(std::string_view text, JsonEventHandler& handler) : text_(text), handler_(handler) {}

  bool all() {
    do {
      if (!value()) return false;
    } while (!open_.empty());
    skipBlanks();
    return at_ == text_.size();
  }

 private:
  enum class Bracket : std::uint8_t { array, object };

  /// A value that isn't divided, or the beginning of one that is; then all ends behind it, up to the next value.
  bool value() {
    skipBlanks();
    if (at_ == text_.size()) return false;
    switch (text_[at_]) {
      case '{':
        handler_.objectBegins(at_++);
        open_.push_back(Bracket::object);
        skipBlanks();
        return skip('}') ? endsBehind(Bracket::object) : key();
      case '[':
        handler_.arrayBegins();
        ++at_;
        open_.push_back(Bracket::array);
        skipBlanks();
        return skip(']') ? endsBehind(Bracket::array) : true;
      case '"': {
        const auto read = string();
        if (!read) return false;
        handler_.string(*read, at_);
        break;
      }
      case 'n':
        if (!literal("null", /*isNull=*/true)) return false;
        break;
      case 't':
        if (!literal("true", /*isNull=*/false)) return false;
        break;
      case 'f':
        if (!literal("false", /*isNull=*/false)) return false;
        break;
      default:
        if (!number()) return false;
    }
    return behindValue();
  }

  bool endsBehind(Bracket bracket) {
    open_.pop_back();
    if (bracket == Bracket::object) {
      handler_.objectEnds(at_);
    } else {
      handler_.arrayEnds();
    }
    return behindValue();
  }

  /// Up to the next value, through all brackets that end here.
  bool behindValue() {
    while (!open_.empty()) {
      skipBlanks();
      const bool isObject = open_.back() == Bracket::object;
      if (skip(',')) return isObject ? key() : true;
      if (!skip(isObject ? '}' : ']')) return false;
      open_.pop_back();
      if (isObject) {
        handler_.objectEnds(at_);
      } else {
        handler_.arrayEnds();
      }
    }
    return true;
  }

  bool key() {
    skipBlanks();
    if (at_ == text_.size() || text_[at_] != '"') return false;
    const auto name = string();
    if (!name) return false;
    handler_.key(*name);
    skipBlanks();
    return skip(':');
  }

  bool literal(std::string_view word, bool isNull) {
    if (text_.substr(at_, word.size()) != word) return false;
    at_ += word.size();
    handler_.literal(isNull);
    return true;
  }

  bool number() {
    const std::size_t start = at_;
    skip('-');
    if (!skip('0') && digits() == 0) return false;
    if (skip('.') && digits() == 0) return false;
    bool hasExponent = false;
    bool isTiny = false;
    if (skip('e') || skip('E')) {
      hasExponent = true;
      isTiny = skip('-');
      if (!isTiny) skip('+');
      if (digits() == 0) return false;
    }
    const std::string_view text = text_.substr(start, at_ - start);
    constexpr std::size_t kAlwaysInRange = 300;
    if ((hasExponent || text.size() > kAlwaysInRange) && !isTiny && isBeyondFloatingPoint(text)) return false;
    handler_.number(text);
    return true;
  }

  /// Such a number is refused.
  static bool isBeyondFloatingPoint(std::string_view number) {
    double value = 0;
    const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
    return read.ec == std::errc::result_out_of_range;
  }

  std::size_t digits() {
    const std::size_t start = at_;
    while (at_ < text_.size() && text_[at_] >= '0' && text_[at_] <= '9') ++at_;
    return at_ - start;
  }

  /// The text behind the quotation mark here; nothing for a faulty one.
  std::optional<std::string_view> string() {
    const std::size_t start = ++at_;
    skipPlainText();
    if (at_ < text_.size() && text_[at_] == '"') return text_.substr(start, at_++ - start);
    decoded_.assign(text_.substr(start, at_ - start));
    while (at_ < text_.size()) {
      if (skip('"')) return decoded_;
      if (!skip('\\') || !escape()) return std::nullopt;
      const std::size_t plain = at_;
      skipPlainText();
      decoded_.append(text_.substr(plain, at_ - plain));
    }
    return std::nullopt;
  }

  /// Up to a quotation mark, an escape, a control character or the end.
  void skipPlainText() {
#ifdef __SSE2__
    constexpr std::size_t kBytes = sizeof(__m128i);
    for (; at_ + kBytes <= text_.size(); at_ += kBytes) {
      const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text_.data() + at_));
      const __m128i mark = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('"'));
      const __m128i escape = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\\'));
      const __m128i control = _mm_cmpeq_epi8(_mm_max_epu8(bytes, _mm_set1_epi8(' ' - 1)), _mm_set1_epi8(' ' - 1));
      const int ends = _mm_movemask_epi8(_mm_or_si128(_mm_or_si128(mark, escape), control));
      if (ends == 0) continue;
      at_ += static_cast<std::size_t>(std::countr_zero(static_cast<unsigned>(ends)));
      return;
    }
#endif
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    std::uint64_t bytes = 0;
    for (; at_ + sizeof bytes <= text_.size(); at_ += sizeof bytes) {
      std::memcpy(&bytes, text_.data() + at_, sizeof bytes);
      const std::uint64_t mark = bytes ^ kOnes * '"';
      const std::uint64_t escape = bytes ^ kOnes * '\\';
      // A high bit where a byte is small enough for the subtraction to borrow: right up to the first one, at least.
      const std::uint64_t ends =
          (((mark - kOnes) & ~mark) | ((escape - kOnes) & ~escape) | ((bytes - kOnes * ' ') & ~bytes)) & kHighBits;
      if (ends == 0) continue;
      if constexpr (std::endian::native == std::endian::little) {
        at_ += static_cast<std::size_t>(std::countr_zero(ends)) / 8;
        return;
      }
      break;
    }
    while (at_ < text_.size() && text_[at_] != '"' && text_[at_] != '\\' &&
           static_cast<unsigned char>(text_[at_]) >= ' ')
      ++at_;
  }

  bool escape() {
    if (at_ == text_.size()) return false;
    const char sign = text_[at_++];
    switch (sign) {
      case '"':
      case '\\':
      case '/':
        decoded_ += sign;
        return true;
      case 'b':
        decoded_ += '\b';
        return true;
      case 'f':
        decoded_ += '\f';
        return true;
      case 'n':
        decoded_ += '\n';
        return true;
      case 'r':
        decoded_ += '\r';
        return true;
      case 't':
        decoded_ += '\t';
        return true;
      case 'u':
        return scalar();
      default:
        return false;
    }
  }

  bool scalar() {
    auto unit = codeUnit();
    if (!unit || (*unit >= 0xDC00 && *unit < 0xE000)) return false;
    if (*unit >= 0xD800 && *unit < 0xDC00) {
      if (!skip('\\') || !skip('u')) return false;
      const auto low = codeUnit();
      if (!low || *low < 0xDC00 || *low >= 0xE000) return false;
      unit = 0x10000 + ((*unit - 0xD800) << 10) + (*low - 0xDC00);
    }
    appendScalar(decoded_, *unit);
    return true;
  }

  std::optional<char32_t> codeUnit() {
    constexpr std::size_t kDigits = 4;
    const std::string_view text = text_.substr(at_, kDigits);
    std::uint32_t value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (text.size() < kDigits || read.ptr != text.data() + kDigits) return std::nullopt;
    at_ += kDigits;
    return value;
  }

  void skipBlanks() {
    while (at_ < text_.size() &&
           (text_[at_] == ' ' || text_[at_] == '\n' || text_[at_] == '\r' || text_[at_] == '\t')) {
      ++at_;
    }
  }
  bool skip(char c) {
    if (at_ == text_.size() || text_[at_] != c) return false;
    ++at_;
    return true;
  }

  std::string_view text_;
  JsonEventHandler& handler_;
  std::size_t at_ = 0;
  std::vector<Bracket> open_;
  std::string decoded_;
};

/// What the reader of values has to say about a text.
std::string faultOf(std::string_view text) {
  rapidjson::MemoryStream stream(text.data(), text.size());
  rapidjson::BaseReaderHandler<> deaf;
  constexpr unsigned kFlags = rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag;
  const rapidjson::ParseResult result = rapidjson::Reader().Parse<kFlags>(stream, deaf);
  const rapidjson::ParseErrorCode code = result.IsError() ? result.Code() : rapidjson::kParseErrorTermination;
  const std::size_t offset = result.IsError() ? result.Offset() : stream.Tell();
  return std::string(rapidjson::GetParseError_En(code)) + " at byte " + std::to_string(offset);
}

}  // namespace

std::string readJsonEvents(std::string_view text, JsonEventHandler& handler) {
  return Walk(text, handler).all() ? std::string() : faultOf(text);
}

}  // namespace tavrine::foundation
