#include "TavrineCore/Parsing/Primitives/DateWord.h"

namespace tavrine {

std::string_view toString(DateWordType type) {
  switch (type) {
    case DateWordType::am:
      return "am";
    case DateWordType::pm:
      return "pm";
    case DateWordType::month:
      return "month";
    case DateWordType::dayOfWeek:
      return "dayOfWeek";
    case DateWordType::quarter:
      return "quarter";
  }
  return {};
}

}  // namespace tavrine
