#pragma once

#include <optional>
#include <string>

#include "TavrineCore/Imports.h"

namespace tavrine::foundation {
class Decimal;
}

namespace tavrine {

class EvaluationResult;
struct ResultFormatterContext;

/// The formatters of kinds that are a number with something around it. Each gives nothing for a result of another kind,
/// and for what isn't a number.

/// "20%", or as the locale writes it; for percentages and sales taxes.
struct PercentageResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
  /// The same for a fraction that is part of another result: 0.2 gives "20%".
  [[nodiscard]] static std::optional<std::string> formatted(const Decimal& fraction,
                                                            const ResultFormatterContext& context);
};

/// "1 ½", "3/7", or the plain number where there is no such fraction; a blank and the unit's symbol follow if it has a
/// unit.
struct FractionResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

/// "2x".
struct MultiplierResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

/// "0xFF", "0o17", "0b101": the 64 bits as an unsigned number, without leading zeros.
///
/// Whole numbers in other bases are 64 bits wide, and negative ones two's complement: the complement of 0 is
/// "0xFFFFFFFFFFFFFFFF", and no minus is ever shown.
struct OtherBaseResultFormatter {
  [[nodiscard]] static std::optional<std::string> formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext& context);
};

}  // namespace tavrine
