#include "TavrineCore/Customization/Engine/LocaleMetadata.h"

#include <optional>
#include <string>

namespace tavrine {

LocaleMetadata::LocaleMetadata(const Locale& l) : locale(l) {
  const std::optional<std::string> format = l.dateFormatFromTemplate("yMMMMd");
  usesUnitedStatesDateFormat = format.has_value() && format->starts_with("MMMM");
}

}  // namespace tavrine
