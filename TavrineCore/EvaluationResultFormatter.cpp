#include "TavrineCore/EvaluationResultFormatter.h"

#include <utility>
#include <vector>

#include "TavrineCore/Calculator.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/EvaluationController.h"
#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

EvaluationResultFormatter::EvaluationResultFormatter(EngineCustomization customization,
                                                     std::optional<FormattingPreferences> formattingPreferences)
    : calculator_(std::make_unique<Calculator>(std::move(customization))) {
  calculator_->formattingPreferences = std::move(formattingPreferences);
}

EvaluationResultFormatter::~EvaluationResultFormatter() = default;
EvaluationResultFormatter::EvaluationResultFormatter(EvaluationResultFormatter&&) noexcept = default;
EvaluationResultFormatter& EvaluationResultFormatter::operator=(EvaluationResultFormatter&&) noexcept = default;

CalculationResult EvaluationResultFormatter::format(const EvaluationResult& result) const {
  const TokenList list(std::vector<Token>{result.tokenized()});
  return calculator_->evaluationController().resultFor(
      TokenList::frozen(list.listWithRecalculatedTokenRanges(0, /*updateParentsStrings=*/false)),
      calculator_->formattingPreferences);
}

}  // namespace tavrine
