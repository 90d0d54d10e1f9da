#pragma once

#include <optional>

namespace tavrine {

/// US consumer prices by year, for what a dollar of then is worth now.
class InflationList {
 public:
  static constexpr int earliestYearSupported = 1913;
  static constexpr int latestYearSupported = 2024;
  /// The index that tests have for their current year, so that their answers outlive the table.
  static constexpr double todayTestingCPI = 297.71;

  /// The consumer price index of the year, 100 for 1982 to 1984; absent for years without one.
  static std::optional<double> usdCPI(int year);

  /// What the amount of one year is worth in another: amount × index(to) ÷ index(from). Absent when a year lies outside
  /// of the table. `currentYearOfTest` is the year whose index is `todayTestingCPI`.
  static std::optional<double> convertUSD(double amount, int fromYear, int toYear,
                                          std::optional<int> currentYearOfTest = std::nullopt);
};

}  // namespace tavrine
