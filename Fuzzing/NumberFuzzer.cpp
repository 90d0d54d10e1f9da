#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Helpers/NumberDetector.h"
#include "TavrineCore/Parsing/Helpers/NumericClusterComponents.h"

namespace {

using namespace tavrine;

constexpr std::string_view kLocales[] = {"en_US", "de_DE", "fr_FR", "ru_RU", "de_CH", "en_IN", "es_ES", "zh_CN",
                                         "ar_SA", "fa_IR", "ja_JP", "pt_PT", "pl_PL", "hi_IN", "",      "xx"};
constexpr MisplacedThousandsSeparatorBehavior kBehaviors[] = {
    MisplacedThousandsSeparatorBehavior::allow, MisplacedThousandsSeparatorBehavior::disallow,
    MisplacedThousandsSeparatorBehavior::interpretAsDecimalPoint};

/// Numbers end at 38 digits and 127 zeros.
bool mayLeaveTheRange(std::string_view text) {
  return text.size() > 128 || text.find_first_of("eE") != std::string_view::npos;
}

void checkNumber(const NumberDetector& detector, std::string_view text) {
  const std::optional<Decimal> value = detector.decimalValueOf(text);
  if (value && value->isNaN() && !mayLeaveTheRange(text)) std::abort();
  const NumberDetector another(detector.locale(), detector.misplacedThousandsSeparatorBehavior());
  if (detector.decimalValueOf(text) != value || another.decimalValueOf(text) != value) std::abort();
}

/// The parts stand side by side and are the whole text.
void checkCluster(const NumberDetector& detector, std::string_view text) {
  const auto cluster = NumericClusterComponents::make(text, detector);
  if (!cluster) return;
  std::string joined;
  std::size_t location = 0;
  for (const auto& part :
       {cluster->leadingComponent, std::optional(cluster->sandwichComponent), cluster->trailingComponent}) {
    if (!part) continue;
    if (part->text.empty() || part->range.location != location) std::abort();
    if (part->range.length != utf16Length(part->text)) std::abort();
    location += part->range.length;
    joined += part->text;
  }
  if (joined != text) std::abort();
  for (const auto& name : cluster->potentialVariableNames()) {
    if (sliceUtf16(text, name.range) != name.text) std::abort();
  }
}

}  // namespace

/// Whatever the text, the locale and the behaviour: a number reads alike twice, and is finite within the range of
/// numbers, and the parts of a cluster tile it. The first byte chooses the locale and the behaviour.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const NumberDetector detector(Locale(kLocales[data[0] % std::size(kLocales)]),
                                kBehaviors[data[0] / std::size(kLocales) % std::size(kBehaviors)]);
  const std::string text = sanitizedUtf8(std::string_view(reinterpret_cast<const char*>(data) + 1, size - 1));
  checkNumber(detector, text);
  checkCluster(detector, text);
  return 0;
}
