#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Customization/Engine/ResourceReader.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// A table of places as it stands in a resource file: an array of objects. It keeps the text, and where in it each row
/// and each name stands; a place is made of a row when it is wanted, since of ten thousand a process wants a handful.
class PlaceRows {
 public:
  /// A name or an alias.
  struct Name {
    std::uint32_t offset = 0;
    std::uint32_t row = 0;
    std::uint16_t length = 0;
    bool isAlias = false;
  };

  /// Takes the text of a file apart. Every row needs a "name".
  static DecodedResource<PlaceRows> from(std::string bytes);

  /// The rows of another file behind these.
  void append(const PlaceRows& other);

  [[nodiscard]] std::size_t count() const noexcept { return rows_.size(); }
  /// In the order of the rows; of each the name and then the aliases.
  [[nodiscard]] const std::vector<Name>& names() const noexcept { return names_; }
  [[nodiscard]] std::string_view textOf(const Name& name) const {
    return std::string_view(bytes_).substr(name.offset, name.length);
  }
  /// The names of one row.
  [[nodiscard]] std::vector<std::string> namesOfRow(std::size_t row) const;

  /// The row as what the file holds; absent where members are missing or of another kind.
  [[nodiscard]] std::optional<City> city(std::size_t row) const;
  [[nodiscard]] std::optional<Country> country(std::size_t row) const;
  [[nodiscard]] std::optional<Airport> airport(std::size_t row) const;

  /// The first row whose "identifier" or "iata_code" that is.
  [[nodiscard]] std::optional<std::size_t> rowWithKey(std::string_view key) const;

 private:
  struct Row {
    std::uint32_t offset = 0;
    std::uint32_t length = 0;
  };
  // Of the rows that have one, in the order of the hashes.
  struct Key {
    std::uint32_t hash = 0;
    std::uint32_t row = 0;
    std::uint32_t offset = 0;
    std::uint32_t length = 0;
  };
  class Reading;

  std::string bytes_;
  std::vector<Row> rows_;
  std::vector<Name> names_;
  std::vector<Key> keys_;
};

}  // namespace tavrine
