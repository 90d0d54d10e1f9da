#pragma once

#include <gtest/gtest.h>

#include <concepts>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "Foundation/Calendar.h"
#include "Foundation/Decimal.h"
#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Parsing/Primitives/DatestampType.h"
#include "TavrineCore/Parsing/Primitives/SIThreshold.h"
#include "TavrineCore/Parsing/Primitives/SpecialDay.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"
#include "TavrineCore/Parsing/Tokens/TokenType.h"

namespace tavrine {
enum class CharacterType : std::uint8_t;
enum class DateWordType : std::uint8_t;
enum class Fixture : std::uint8_t;
enum class MisplacedThousandsSeparatorBehavior : std::uint8_t;
enum class UnitMeasurementSystem : std::uint8_t;
}  // namespace tavrine
namespace tavrine::foundation {
enum class MeasurementSystem : std::uint8_t;
enum class NumberStyle : std::uint8_t;
enum class PluralCategory : std::uint8_t;
}  // namespace tavrine::foundation

/// The cases of tests as data: in "Tests/Parsing/LexerTests.tsv" each "@name" begins a table, each further line is a
/// row of it, its cells parted by tabs and escaped as in the corpus. "#" begins a comment.
namespace tavrine::testing {

inline void readCell(std::string_view text, std::string_view& value) { value = text; }
inline void readCell(std::string_view text, std::string& value) { value = text; }
inline void readCell(std::string_view text, const char*& value) { value = text.data(); }
void readCell(std::string_view text, bool& value);
void readCell(std::string_view text, foundation::Decimal& value);
void readCell(std::string_view text, std::integral auto& value) {
  value = static_cast<std::remove_cvref_t<decltype(value)>>(std::stoll(std::string(text)));
}
void readCell(std::string_view text, UnitIdentifier& value);
void readCell(std::string_view text, FunctionIdentifier& value);
void readCell(std::string_view text, DatestampType& value);
void readCell(std::string_view text, TokenType& value);
void readCell(std::string_view text, TokenSubType& value);
void readCell(std::string_view text, SIThreshold& value);
void readCell(std::string_view text, SpecialDay::SpecialDayType& value);
void readCell(std::string_view text, CharacterType& value);
void readCell(std::string_view text, DateWordType& value);
void readCell(std::string_view text, Fixture& value);
void readCell(std::string_view text, MisplacedThousandsSeparatorBehavior& value);
void readCell(std::string_view text, UnitMeasurementSystem& value);
void readCell(std::string_view text, foundation::MeasurementSystem& value);
void readCell(std::string_view text, foundation::NumberStyle& value);
void readCell(std::string_view text, foundation::PluralCategory& value);
/// "year=2024; month=3", or "-".
void readCell(std::string_view text, foundation::DateComponents& value);
/// Several texts, with "; " between, or "-".
void readCell(std::string_view text, std::vector<std::string_view>& value);
void readCell(std::string_view text, std::vector<std::string>& value);
/// A cell, as whatever type the row wants there. Its text lives as long as the program.
struct Cell {
  std::string_view text;

  template <class T>
  operator T() const {  // NOLINT(google-explicit-constructor): the row names the type
    T value{};
    readCell(text, value);
    return value;
  }
  // An optional would take a cell for its content, were there no conversion that goes before its own.
  operator std::optional<std::string_view>() const { return ifAny<std::string_view>(); }
  operator std::optional<std::string>() const { return ifAny<std::string>(); }
  operator std::optional<int>() const { return ifAny<int>(); }
  operator std::optional<std::int64_t>() const { return ifAny<std::int64_t>(); }
  operator std::optional<UnitIdentifier>() const { return ifAny<UnitIdentifier>(); }
  operator std::optional<DateWordType>() const { return ifAny<DateWordType>(); }
  operator std::optional<Fixture>() const { return ifAny<Fixture>(); }

 private:
  /// "-" stands for none.
  template <class T>
  std::optional<T> ifAny() const {
    if (text == "-") return std::nullopt;
    T value{};
    readCell(text, value);
    return value;
  }
};

/// The members that a cell names: "dp=2; groups=false".
template <class Take>
void eachMember(std::string_view text, Take take) {
  std::vector<std::string_view> parts;
  if (text != "-") readCell(text, parts);
  for (const std::string_view part : parts) {
    const std::size_t sign = part.find('=');
    take(part.substr(0, sign), Cell{part.substr(sign + 1)});
  }
}

using Cells = std::vector<Cell>;

/// The rows of one table of "Tests/<file>.tsv". A table that isn't there, or is empty, fails the running test.
const std::deque<Cells>& cellsOf(std::string_view file, std::string_view table);

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"  // that is what the defaults are for

/// The rows as aggregates. Cells that a row leaves away take the defaults of the members.
template <class Row>
std::vector<Row> rowsOf(std::string_view file, std::string_view table) {
  std::vector<Row> rows;
  const auto take = [&rows](const auto&... cells) {
    if constexpr (requires { Row{cells...}; }) {
      rows.push_back(Row{cells...});
    } else {
      ADD_FAILURE() << "more cells than the row has members";
    }
  };
  for (const Cells& c : cellsOf(file, table)) {
    switch (c.size()) {
      case 1:
        take(c[0]);
        break;
      case 2:
        take(c[0], c[1]);
        break;
      case 3:
        take(c[0], c[1], c[2]);
        break;
      case 4:
        take(c[0], c[1], c[2], c[3]);
        break;
      case 5:
        take(c[0], c[1], c[2], c[3], c[4]);
        break;
      case 6:
        take(c[0], c[1], c[2], c[3], c[4], c[5]);
        break;
      default:
        take(c[0], c[1], c[2], c[3], c[4], c[5], c[6]);
        break;
    }
  }
  return rows;
}

#pragma GCC diagnostic pop

}  // namespace tavrine::testing
