#include "TavrineCore/Customization/Places/PlaceWords.h"

#include <array>
#include <bit>
#include <charconv>
#include <cstddef>
#include <optional>
#include <system_error>
#include <utility>

#include "TavrineCore/Customization/Engine/FlatRows.h"

namespace tavrine {

namespace {

constexpr unsigned kAlphabet = 26;
constexpr std::size_t kCodes = std::size_t{kAlphabet} * kAlphabet * kAlphabet;
constexpr unsigned kMaximumProbes = 16;

constexpr auto kBase64 = [] {
  std::array<std::int8_t, 256> values{};
  values.fill(-1);
  std::int8_t value = 0;
  for (const char c : std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/")) {
    values[static_cast<unsigned char>(c)] = value++;
  }
  return values;
}();

std::optional<std::vector<std::uint8_t>> bytesOfBase64(std::string_view text) {
  while (text.ends_with('=')) text.remove_suffix(1);
  constexpr std::size_t kGroup = 4;
  std::vector<std::uint8_t> result;
  result.reserve(text.size() * 3 / kGroup + 3);
  const std::size_t count = text.size() * 6 / 8;
  int worst = 0;
  for (std::size_t i = 0; i < text.size(); i += kGroup) {
    unsigned bits = 0;
    for (std::size_t j = i; j < i + kGroup; ++j) {
      const int value = j < text.size() ? kBase64[static_cast<unsigned char>(text[j])] : 0;
      worst |= value;
      bits = bits << 6 | (static_cast<unsigned>(value) & 0x3F);
    }
    for (const int shift : {16, 8, 0}) result.push_back(static_cast<std::uint8_t>(bits >> shift & 0xFF));
  }
  if (worst < 0) return std::nullopt;
  result.resize(count);
  return result;
}

std::optional<std::vector<std::uint8_t>> bytesAt(const FlatRow& object, std::string_view key) {
  const std::string_view* const text = object.stringOf(key);
  return text == nullptr ? std::nullopt : bytesOfBase64(*text);
}

std::optional<std::int64_t> integerAt(const FlatRow& object, std::string_view key) {
  const FlatMember* const member = object.find(key, FlatMember::Kind::number);
  if (member == nullptr) return std::nullopt;
  const std::string_view digits = member->texts.front();
  std::int64_t value = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (read.ec != std::errc() || read.ptr != digits.data() + digits.size()) return std::nullopt;
  return value;
}

bool bitAt(const std::vector<std::uint8_t>& bytes, std::size_t index) {
  return (bytes[index / 8] >> (index % 8) & 1) != 0;
}

}  // namespace

DecodedResource<PlaceWords> PlaceWords::from(std::string_view bytes) {
  PlaceWords result;
  std::string_view fault;
  std::string error = readFlatRow(bytes, [&](const FlatRow& object) {
    fault = result.takeFrom(object);
    return fault.empty();
  });
  if (!fault.empty()) return {std::nullopt, std::string(fault)};
  if (!error.empty()) return {std::nullopt, std::move(error)};
  return {std::move(result), {}};
}

std::string_view PlaceWords::takeFrom(const FlatRow& object) {
  const std::optional<std::int64_t> filterBits = integerAt(object, "filterBits");
  const std::optional<std::int64_t> probes = integerAt(object, "filterProbes");
  std::optional<std::vector<std::uint8_t>> filter = bytesAt(object, "places");
  if (!filter || filter->empty() || !std::has_single_bit(filter->size()) ||
      filterBits != static_cast<std::int64_t>(filter->size() * 8) || !probes || *probes < 1 ||
      *probes > kMaximumProbes) {
    return "no filter of \"filterBits\" and \"filterProbes\" under \"places\"";
  }
  std::optional<std::vector<std::uint8_t>> codes = bytesAt(object, "airports");
  if (!codes || codes->size() * 8 < kCodes) return "no set of codes under \"airports\"";
  const auto* const ordinary = object.stringsOf("ordinary");
  if (ordinary == nullptr) return "no array \"ordinary\"";

  filter_ = *std::move(filter);
  probes_ = static_cast<unsigned>(*probes);
  codes_ = *std::move(codes);
  ordinary_.reserve(ordinary->size());
  for (const std::string_view word : *ordinary) ordinary_.emplace(word);
  return {};
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

}  // namespace tavrine
