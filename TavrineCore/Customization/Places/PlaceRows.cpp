#include "TavrineCore/Customization/Places/PlaceRows.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "Foundation/Json.h"
#include "Foundation/JsonEvents.h"
#include "Foundation/StringMap.h"
#include "TavrineCore/Customization/Engine/FlatRows.h"

namespace tavrine {

namespace {

std::uint32_t hashOfKey(std::string_view text) { return static_cast<std::uint32_t>(StringHash{}(text)); }

/// Reads the members of a row; remembers whether one that had to be there was missing.
class Members {
 public:
  explicit Members(const Json& row) : row_(row) {}

  std::optional<std::string> text(std::string_view key) const {
    const Json* const member = row_.find(key);
    const std::string* const value = member == nullptr ? nullptr : member->asString();
    return value == nullptr ? std::nullopt : std::optional(*value);
  }
  std::string requiredText(std::string_view key) {
    std::optional<std::string> value = text(key);
    if (!value) isComplete_ = false;
    return std::move(value).value_or("");
  }
  std::optional<std::vector<std::string>> texts(std::string_view key) const {
    const Json* const member = row_.find(key);
    const Json::Array* const elements = member == nullptr ? nullptr : member->asArray();
    if (elements == nullptr) return std::nullopt;
    std::vector<std::string> result;
    for (const Json& element : *elements) {
      if (const std::string* const value = element.asString()) result.push_back(*value);
    }
    return result;
  }
  double number(std::string_view key) const {
    const Json* const member = row_.find(key);
    return member == nullptr ? 0 : member->asDouble().value_or(0);
  }
  bool isComplete() const { return isComplete_; }

 private:
  const Json& row_;
  bool isComplete_ = true;
};

}  // namespace

/// Notes the places of rows and names while the text is walked.
class PlaceRows::Reading final : public JsonEventHandler {
 public:
  explicit Reading(PlaceRows& rows) : rows_(rows) {}

  void objectBegins(std::size_t at) override {
    if (depth_++ > 0) return;
    rows_.rows_.push_back({static_cast<std::uint32_t>(at), 0});
    hasName_ = false;
  }
  void objectEnds(std::size_t at) override {
    if (--depth_ > 0) return;
    Row& row = rows_.rows_.back();
    row.length = static_cast<std::uint32_t>(at) - row.offset;
    everyRowHasName_ = everyRowHasName_ && hasName_;
  }
  void key(std::string_view name) override {
    member_ = depth_ != 1                                     ? Member::other
              : name == "name"                                ? Member::name
              : name == "aliases"                             ? Member::aliases
              : (name == "identifier" || name == "iata_code") ? Member::key
                                                              : Member::other;
  }
  void string(std::string_view value, std::size_t end) override {
    if (depth_ != 1 || member_ == Member::other) return;
    const auto row = static_cast<std::uint32_t>(rows_.rows_.size() - 1);
    const std::uint32_t offset = placeOf(value, end);
    if (member_ == Member::key) {
      rows_.keys_.push_back({hashOfKey(value), row, offset, static_cast<std::uint32_t>(value.size())});
      return;
    }
    if (value.size() > std::numeric_limits<std::uint16_t>::max()) return;
    rows_.names_.push_back({offset, row, static_cast<std::uint16_t>(value.size()), member_ == Member::aliases});
    hasName_ = hasName_ || member_ == Member::name;
  }

  bool everyRowHasName() const { return everyRowHasName_; }

 private:
  enum class Member : std::uint8_t { name, aliases, key, other };

  /// Where the text of a string stands; one that is written with escapes gets its text behind the end of the file.
  std::uint32_t placeOf(std::string_view value, std::size_t end) {
    if (isPartOf(value, rows_.bytes_)) return static_cast<std::uint32_t>(end - 1 - value.size());
    const std::size_t offset = rows_.bytes_.size() + behind_.size();
    behind_.append(value);
    return static_cast<std::uint32_t>(offset);
  }

  friend class PlaceRows;
  PlaceRows& rows_;
  std::string behind_;
  int depth_ = 0;
  Member member_ = Member::other;
  bool hasName_ = false;
  bool everyRowHasName_ = true;
};

DecodedResource<PlaceRows> PlaceRows::from(std::string bytes) {
  if (bytes.size() > std::numeric_limits<std::uint32_t>::max() / 4) return {std::nullopt, "more than a gigabyte"};
  PlaceRows result;
  result.bytes_ = std::move(bytes);
  // Of most files more than they need, so that no array moves while it grows.
  constexpr std::size_t kBytesOfRow = 96;
  constexpr std::size_t kBytesOfName = 64;
  result.rows_.reserve(result.bytes_.size() / kBytesOfRow);
  result.names_.reserve(result.bytes_.size() / kBytesOfName);
  result.keys_.reserve(result.bytes_.size() / kBytesOfRow);
  Reading reading(result);
  if (std::string error = readJsonEvents(result.bytes_, reading); !error.empty())
    return {std::nullopt, std::move(error)};
  if (!reading.everyRowHasName()) return {std::nullopt, "a row has no \"name\""};
  result.bytes_.append(reading.behind_);
  result.rows_.shrink_to_fit();
  result.names_.shrink_to_fit();
  std::stable_sort(result.keys_.begin(), result.keys_.end(),
                   [](const Key& left, const Key& right) { return left.hash < right.hash; });
  result.keys_.shrink_to_fit();
  return {std::move(result), {}};
}

void PlaceRows::append(const PlaceRows& other) {
  const auto bytesBefore = static_cast<std::uint32_t>(bytes_.size());
  const auto rowsBefore = static_cast<std::uint32_t>(rows_.size());
  bytes_.append(other.bytes_);
  for (const Row& row : other.rows_) rows_.push_back({row.offset + bytesBefore, row.length});
  for (Name name : other.names_) {
    name.offset += bytesBefore;
    name.row += rowsBefore;
    names_.push_back(name);
  }
  for (Key key : other.keys_) {
    key.offset += bytesBefore;
    key.row += rowsBefore;
    keys_.push_back(key);
  }
  std::stable_sort(keys_.begin(), keys_.end(),
                   [](const Key& left, const Key& right) { return left.hash < right.hash; });
}

std::vector<std::string> PlaceRows::namesOfRow(std::size_t row) const {
  const auto first = std::lower_bound(names_.begin(), names_.end(), row,
                                      [](const Name& name, std::size_t wanted) { return name.row < wanted; });
  std::vector<std::string> result;
  for (auto name = first; name != names_.end() && name->row == row; ++name) result.emplace_back(textOf(*name));
  return result;
}

std::optional<City> PlaceRows::city(std::size_t row) const {
  const JsonParseResult parsed = Json::parse(std::string_view(bytes_).substr(rows_[row].offset, rows_[row].length));
  if (!parsed) return std::nullopt;
  Members members(*parsed.value);
  City city{.identifier = members.requiredText("identifier"),
            .name = members.requiredText("name"),
            .country = members.text("country"),
            .aliases = members.texts("aliases"),
            .elevation = static_cast<int>(std::clamp(members.number("elevation"), -1e6, 1e6)),
            .population = members.text("population").value_or(""),
            .longitude = members.text("longitude"),
            .latitude = members.text("latitude"),
            .timezone_id = members.requiredText("timezone_id")};
  if (!members.isComplete()) return std::nullopt;
  return city;
}

std::optional<Country> PlaceRows::country(std::size_t row) const {
  const JsonParseResult parsed = Json::parse(std::string_view(bytes_).substr(rows_[row].offset, rows_[row].length));
  if (!parsed) return std::nullopt;
  Members members(*parsed.value);
  Country country{.name = members.requiredText("name"),
                  .aliases = members.texts("aliases"),
                  .capital = members.text("capital").value_or(""),
                  .capitalCityTimezoneID = members.text("capitalCityTimezoneID")};
  if (!members.isComplete()) return std::nullopt;
  return country;
}

std::optional<Airport> PlaceRows::airport(std::size_t row) const {
  const JsonParseResult parsed = Json::parse(std::string_view(bytes_).substr(rows_[row].offset, rows_[row].length));
  if (!parsed) return std::nullopt;
  Members members(*parsed.value);
  Airport airport{.name = members.requiredText("name"),
                  .iata_code = members.requiredText("iata_code"),
                  .elevation = members.number("elevation"),
                  .coordinates = members.text("coordinates").value_or(""),
                  .cityIdentifier = members.requiredText("cityIdentifier"),
                  .associatedCityName = std::nullopt,
                  .associatedCountryName = std::nullopt};
  if (!members.isComplete()) return std::nullopt;
  return airport;
}

std::optional<std::size_t> PlaceRows::rowWithKey(std::string_view key) const {
  const std::uint32_t hash = hashOfKey(key);
  auto found = std::lower_bound(keys_.begin(), keys_.end(), hash,
                                [](const Key& candidate, std::uint32_t wanted) { return candidate.hash < wanted; });
  for (; found != keys_.end() && found->hash == hash; ++found) {
    if (std::string_view(bytes_).substr(found->offset, found->length) == key) return found->row;
  }
  return std::nullopt;
}

}  // namespace tavrine
