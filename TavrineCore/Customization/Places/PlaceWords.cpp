#include "TavrineCore/Customization/Places/PlaceWords.h"

#include <bit>
#include <cstddef>
#include <optional>
#include <utility>

#include "Foundation/Json.h"

namespace tavrine {

namespace {

constexpr std::uint64_t kOffsetBasis = 0xCBF29CE484222325;
constexpr std::size_t kLettersInCode = 3;
constexpr unsigned kAlphabet = 26;
constexpr std::size_t kCodes = std::size_t{kAlphabet} * kAlphabet * kAlphabet;
constexpr unsigned kMaximumProbes = 16;

/// FNV-1a, continued from the hash of what stands before.
std::uint64_t hashOfBytes(std::string_view text, std::uint64_t hash = kOffsetBasis) {
  for (const char c : text) {
    hash ^= static_cast<unsigned char>(c);
    hash *= 0x100000001B3;
  }
  return hash;
}

int valueOfBase64(char c) {
  if (c >= 'A' && c <= 'Z') return c - 'A';
  if (c >= 'a' && c <= 'z') return c - 'a' + 26;
  if (c >= '0' && c <= '9') return c - '0' + 52;
  if (c == '+') return 62;
  if (c == '/') return 63;
  return -1;
}

std::optional<std::vector<std::uint8_t>> bytesOfBase64(std::string_view text) {
  while (text.ends_with('=')) text.remove_suffix(1);
  std::vector<std::uint8_t> result;
  result.reserve(text.size() / 4 * 3 + 3);
  unsigned bits = 0;
  int count = 0;
  for (const char c : text) {
    const int value = valueOfBase64(c);
    if (value < 0) return std::nullopt;
    bits = bits << 6 | static_cast<unsigned>(value);
    count += 6;
    if (count < 8) continue;
    count -= 8;
    result.push_back(static_cast<std::uint8_t>(bits >> count));
  }
  return result;
}

std::optional<std::vector<std::uint8_t>> bytesAt(const Json& object, std::string_view key) {
  const Json* const member = object.find(key);
  const std::string* const text = member == nullptr ? nullptr : member->asString();
  return text == nullptr ? std::nullopt : bytesOfBase64(*text);
}

std::optional<std::int64_t> integerAt(const Json& object, std::string_view key) {
  const Json* const member = object.find(key);
  return member == nullptr ? std::nullopt : member->asInteger();
}

bool bitAt(const std::vector<std::uint8_t>& bytes, std::size_t index) {
  return (bytes[index / 8] >> (index % 8) & 1) != 0;
}

}  // namespace

DecodedResource<PlaceWords> PlaceWords::from(std::string_view bytes) {
  const JsonParseResult parsed = Json::parse(bytes);
  if (!parsed) return {std::nullopt, parsed.error + " at byte " + std::to_string(parsed.errorOffset)};
  const std::optional<std::int64_t> filterBits = integerAt(*parsed.value, "filterBits");
  const std::optional<std::int64_t> probes = integerAt(*parsed.value, "filterProbes");
  std::optional<std::vector<std::uint8_t>> filter = bytesAt(*parsed.value, "places");
  if (!filter || filter->empty() || !std::has_single_bit(filter->size()) ||
      filterBits != static_cast<std::int64_t>(filter->size() * 8) || !probes || *probes < 1 ||
      *probes > kMaximumProbes) {
    return {std::nullopt, "no filter of \"filterBits\" and \"filterProbes\" under \"places\""};
  }
  std::optional<std::vector<std::uint8_t>> codes = bytesAt(*parsed.value, "airports");
  if (!codes || codes->size() * 8 < kCodes) return {std::nullopt, "no set of codes under \"airports\""};

  PlaceWords result;
  result.filter_ = *std::move(filter);
  result.probes_ = static_cast<unsigned>(*probes);
  result.codes_ = *std::move(codes);
  const Json* const ordinary = parsed.value->find("ordinary");
  const Json::Array* const words = ordinary == nullptr ? nullptr : ordinary->asArray();
  if (words == nullptr) return {std::nullopt, "no array \"ordinary\""};
  for (const Json& word : *words) {
    if (const std::string* const text = word.asString()) result.ordinary_.insert(*text);
  }
  return {std::move(result), {}};
}

bool PlaceWords::mayNamePlace(std::string_view word) const { return passesFilter(hashOfBytes(word)); }

bool PlaceWords::mayBeginPlace(std::string_view firstWord, std::string_view secondWord) const {
  return passesFilter(hashOfBytes(secondWord, hashOfBytes(" ", hashOfBytes(firstWord))));
}

bool PlaceWords::isAirportCode(std::string_view word) const {
  if (word.size() != kLettersInCode) return false;
  std::size_t index = 0;
  for (const char c : word) {
    if (c < 'a' || c > 'z') return false;
    index = index * kAlphabet + static_cast<std::size_t>(c - 'a');
  }
  return codes_.empty() || bitAt(codes_, index);
}

bool PlaceWords::passesFilter(std::uint64_t hash) const {
  if (filter_.empty()) return true;
  const std::uint64_t mask = filter_.size() * 8 - 1;
  const std::uint64_t step = hash >> 32 | 1;
  for (unsigned probe = 0; probe < probes_; ++probe, hash += step) {
    if (!bitAt(filter_, hash & mask)) return false;
  }
  return true;
}

}  // namespace tavrine
