#include "TavrineCore/Parsing/Primitives/Datespan.h"

namespace tavrine {

std::string_view toString(DatespanType type) {
  switch (type) {
    case DatespanType::season:
      return "season";
    case DatespanType::quarter:
      return "quarter";
    case DatespanType::dateInterval:
      return "dateInterval";
  }
  return {};
}

std::string_view toString(DatespanSubtype subtype) {
  switch (subtype) {
    case DatespanSubtype::summer:
      return "summer";
    case DatespanSubtype::autumn:
      return "autumn";
    case DatespanSubtype::winter:
      return "winter";
    case DatespanSubtype::spring:
      return "spring";
    case DatespanSubtype::firstQuarter:
      return "firstQuarter";
    case DatespanSubtype::secondQuarter:
      return "secondQuarter";
    case DatespanSubtype::thirdQuarter:
      return "thirdQuarter";
    case DatespanSubtype::fourthQuarter:
      return "fourthQuarter";
    case DatespanSubtype::notSpecified:
      return "notSpecified";
  }
  return {};
}

}  // namespace tavrine
