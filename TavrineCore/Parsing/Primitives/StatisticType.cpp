#include "TavrineCore/Parsing/Primitives/StatisticType.h"

namespace tavrine {

std::string_view toString(StatisticType type) {
  switch (type) {
    case StatisticType::total:
      return "total";
    case StatisticType::average:
      return "average";
    case StatisticType::count:
      return "count";
    case StatisticType::median:
      return "median";
    case StatisticType::lesser:
      return "lesser";
    case StatisticType::greater:
      return "greater";
    case StatisticType::lcm:
      return "lcm";
    case StatisticType::gcd:
      return "gcd";
  }
  return {};
}

}  // namespace tavrine
