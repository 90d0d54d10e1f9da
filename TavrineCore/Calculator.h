#pragma once

#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Foundation/Date.h"
#include "TavrineCore/CalculationResult.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/ResultFormatting/FormattingPreferences.h"

namespace tavrine {

class EvaluationController;
class ParsingController;
class VariableList;

/// Calculates lines of text: `Calculator(EngineCustomization::standard()).calculate("10 + 20%").stringValue` is "12".
///
/// No line is refused. What can't be read is a comment and gives an empty text; what can't be computed gives the text
/// of its error. Any bytes may be passed: what is no UTF-8 is read as U+FFFD.
///
/// With the feature flag `variableDeclarations` on, a calculator remembers what lines declare. Several threads may
/// calculate on one calculator; its two properties are to be set before that.
class Calculator {
 public:
  explicit Calculator(EngineCustomization customization);
  ~Calculator();
  Calculator(const Calculator&) = delete;
  Calculator& operator=(const Calculator&) = delete;

  /// A new calculator on `EngineCustomization::basic()`.
  static std::unique_ptr<Calculator> basic();

  /// The answer to `expression`. A variable of `variables` wins over a remembered one of the same name; values that
  /// `variables` holds as text only are calculated, and kept in it.
  CalculationResult calculate(std::string_view expression, const std::shared_ptr<VariableList>& variables = nullptr);

  /// The same on a thread of its own, where live data (currency rates, weather, places, remote queries) may be waited
  /// for. Declarations are not remembered.
  std::future<CalculationResult> calculateInBackground(std::string expression,
                                                       std::shared_ptr<VariableList> variables = nullptr);

  /// The moment that `expression` names, and the whole answer; absent when it names none.
  struct DateAndResult {
    Date date;
    CalculationResult result;
  };
  std::optional<DateAndResult> dateFor(std::string_view expression,
                                       const std::shared_ptr<VariableList>& variables = nullptr);

  /// What stands in `expression` at the gaps of the first phrase of `prototypes` that it holds, in order: "move 5 km to
  /// 7 km" holds "move __length_expression to __length_expression". Absent where it holds none of them.
  static std::optional<std::vector<EvaluationResult>> functionParametersIn(std::string_view expression,
                                                                           std::vector<std::string> prototypes,
                                                                           EngineCustomization customization);

  const EngineCustomization& customization() const;

  /// How results are displayed; absent: the defaults of `FormattingPreferences`.
  std::optional<FormattingPreferences> formattingPreferences;
  /// Whether declarations are remembered from line to line.
  bool retainsHistoricalVariables = true;

  const ParsingController& parsingController() const { return *parsingController_; }
  const EvaluationController& evaluationController() const { return *evaluationController_; }

 private:
  struct HistoricalVariables;
  struct BackgroundWork;

  std::shared_ptr<const VariableList> finalVariableListFor(const std::shared_ptr<VariableList>& explicitList,
                                                           const std::shared_ptr<const VariableList>& historicalList);
  /// Null for no variables. The list is given back as soon as the line is parsed.
  CalculationResult calculationResultFor(std::string_view expression, std::shared_ptr<const VariableList> variables);

  std::shared_ptr<const ParsingController> parsingController_;
  std::shared_ptr<const EvaluationController> evaluationController_;
  std::unique_ptr<HistoricalVariables> historicalVariables_;
  std::once_flag backgroundWorkOnce_;
  std::unique_ptr<BackgroundWork> backgroundWork_;  // last: its threads end before what they use
};

}  // namespace tavrine
