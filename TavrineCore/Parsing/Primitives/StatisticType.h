#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tavrine {

/// What a list of numbers is reduced to.
enum class StatisticType : std::uint8_t { total, average, count, median, lesser, greater, lcm, gcd };

inline constexpr std::array kAllStatisticTypes = {
    StatisticType::total,  StatisticType::average, StatisticType::count, StatisticType::median,
    StatisticType::lesser, StatisticType::greater, StatisticType::lcm,   StatisticType::gcd,
};

/// "total", "average", ...
std::string_view toString(StatisticType type);

}  // namespace tavrine
