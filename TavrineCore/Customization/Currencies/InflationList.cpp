#include "TavrineCore/Customization/Currencies/InflationList.h"

#include <array>
#include <cstddef>

namespace tavrine {

namespace {

struct YearAndIndex {
  int year;
  double index;
};

constexpr auto kConsumerPrices = std::to_array<YearAndIndex>({
#include "TavrineCore/Customization/Currencies/ConsumerPriceIndex.inc"
});

constexpr bool yearsFollowOneAnother() {
  for (std::size_t i = 0; i < kConsumerPrices.size(); ++i) {
    if (kConsumerPrices[i].year != InflationList::earliestYearSupported + static_cast<int>(i)) return false;
  }
  return kConsumerPrices.back().year == InflationList::latestYearSupported;
}
static_assert(yearsFollowOneAnother());

}  // namespace

std::optional<double> InflationList::usdCPI(int year) {
  if (year < earliestYearSupported || year > latestYearSupported) return std::nullopt;
  return kConsumerPrices[static_cast<std::size_t>(year - earliestYearSupported)].index;
}

std::optional<double> InflationList::convertUSD(double amount, int fromYear, int toYear,
                                                std::optional<int> currentYearOfTest) {
  const auto indexOf = [currentYearOfTest](int year) {
    const std::optional<double> index = usdCPI(year);
    return index && year == currentYearOfTest ? todayTestingCPI : index;
  };
  const std::optional<double> from = indexOf(fromYear);
  const std::optional<double> to = indexOf(toYear);
  if (!from || !to) return std::nullopt;
  return amount * *to / *from;
}

}  // namespace tavrine
