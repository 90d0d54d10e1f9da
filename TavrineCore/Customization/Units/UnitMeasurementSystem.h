#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tavrine {

/// Which gallon, pint or ton a bare name means. Stored in documents by the raw names.
enum class UnitMeasurementSystem : std::uint8_t { customaryUS, imperial, metric };

namespace detail {
inline constexpr std::array<std::string_view, 3> kUnitMeasurementSystemNames = {"customaryUS", "imperial", "metric"};
}

constexpr std::string_view toString(UnitMeasurementSystem system) {
  return detail::kUnitMeasurementSystemNames[static_cast<std::size_t>(system)];
}

constexpr std::optional<UnitMeasurementSystem> unitMeasurementSystemNamed(std::string_view name) {
  for (std::size_t i = 0; i < detail::kUnitMeasurementSystemNames.size(); ++i) {
    if (detail::kUnitMeasurementSystemNames[i] == name) return static_cast<UnitMeasurementSystem>(i);
  }
  return std::nullopt;
}

}  // namespace tavrine
