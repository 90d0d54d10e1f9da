#include "TavrineCore/Calculator.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "Foundation/OperationQueue.h"
#include "Foundation/SerialQueue.h"
#include "Foundation/StillMoment.h"
#include "Foundation/Text.h"
#include "TavrineCore/Customization/Functions/CustomFunction.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Evaluation/WordFunctionEvaluation.h"
#include "TavrineCore/EvaluationController.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Tokens/FunctionMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/ParsingController.h"

namespace tavrine {

namespace {

constexpr std::size_t kBackgroundWidth = 4;

/// The text as UTF-8: itself, or a mended copy that `storage` keeps.
std::string_view validText(std::string_view text, std::string& storage) {
  if (isValidUtf8(text)) return text;
  storage = sanitizedUtf8(text);
  return storage;
}

const VariableList& emptyVariables() {
  static const VariableList empty;
  return empty;
}

}  // namespace

/// The declarations that a calculator remembers. A parse holds on to the list that it began with, so a list that
/// somebody reads is copied before it changes.
struct Calculator::HistoricalVariables {
  SerialQueue queue{"Historical Variables"};
  std::shared_ptr<VariableList> list = std::make_shared<VariableList>();

  /// Null while nothing is remembered.
  std::shared_ptr<const VariableList> current() {
    return queue.sync([this]() -> std::shared_ptr<const VariableList> {
      if (list->isEmpty()) return nullptr;
      // Given back inside the queue, so that what was read there has been read before the next change.
      const auto giveBack = [this, held = list](const VariableList*) mutable { queue.sync([&held] { held.reset(); }); };
      return {list.get(), giveBack};
    });
  }

  void remember(const Variable& variable) {
    queue.async([this, &variable] {
      if (list.use_count() > 1) list = list->copy();
      list->setVariable(variable);
    });
  }
};

struct Calculator::BackgroundWork {
  OperationQueue queue{"Background Calculations", kBackgroundWidth};
};

Calculator::Calculator(EngineCustomization customization)
    : historicalVariables_(std::make_unique<HistoricalVariables>()) {
  Parser parser(customization);
  parsingController_ = std::make_shared<const ParsingController>(std::move(parser));
  evaluationController_ = std::make_shared<const EvaluationController>(std::move(customization), nullptr);
}

Calculator::~Calculator() = default;

std::unique_ptr<Calculator> Calculator::basic() { return std::make_unique<Calculator>(EngineCustomization::basic()); }

const EngineCustomization& Calculator::customization() const {
  return parsingController_->parser().engineCustomization();
}

CalculationResult Calculator::calculate(std::string_view expression, const std::shared_ptr<VariableList>& variables) {
  std::shared_ptr<const VariableList> all = finalVariableListFor(variables, historicalVariables_->current());
  return calculationResultFor(expression, std::move(all));
}

std::shared_ptr<const VariableList> Calculator::finalVariableListFor(
    const std::shared_ptr<VariableList>& explicitList, const std::shared_ptr<const VariableList>& historicalList) {
  if (!explicitList) return historicalList;
  if (!explicitList->isFullyDefined()) {
    explicitList->provideDefinitionsForValuesWith([this](const std::string& value) {
      return std::make_shared<const EvaluationResult>(calculationResultFor(value, nullptr).evaluationResult);
    });
  }
  if (!historicalList) return explicitList;

  const std::shared_ptr<VariableList> both = historicalList->copy();
  explicitList->forEach([&both](const Variable& variable) { both->setVariable(variable); });
  return both;
}

CalculationResult Calculator::calculationResultFor(std::string_view expression,
                                                   std::shared_ptr<const VariableList> variables) {
  const StillMoment moment;
  std::string storage;
  auto tokens = std::make_shared<const TokenList>(parsingController_->parser().tokensFor(
      validText(expression, storage), variables ? *variables : emptyVariables()));
  // Held on to, the list of the calculator would have to be copied for what this line declares.
  variables.reset();
  const EvaluationResult result = evaluationController_->evaluationResultFor(*tokens, formattingPreferences);
  const bool remembers = retainsHistoricalVariables && customization().featureFlags().variableDeclarations;
  // Looked for before formatting, which puts the value in the place of its variable.
  if (const Variable* declared = result.variableValue(); remembers && declared != nullptr) {
    historicalVariables_->remember(*declared);
  }
  return evaluationController_->formattedResultFor(result, std::move(tokens), formattingPreferences);
}

std::future<CalculationResult> Calculator::calculateInBackground(std::string expression,
                                                                 std::shared_ptr<VariableList> variables) {
  std::string storage;
  const std::string text(validText(expression, storage));
  std::shared_ptr<const VariableList> all = finalVariableListFor(variables, historicalVariables_->current());
  auto promise = std::make_shared<std::promise<CalculationResult>>();
  std::future<CalculationResult> future = promise->get_future();
  std::call_once(backgroundWorkOnce_, [this] { backgroundWork_ = std::make_unique<BackgroundWork>(); });
  backgroundWork_->queue.add([promise, text, all, parsing = parsingController_, evaluation = evaluationController_,
                              preferences = formattingPreferences](const Operation& self) {
    try {
      auto tokens = std::make_shared<const TokenList>(parsing->parser().tokensFor(text, all ? *all : emptyVariables()));
      promise->set_value(evaluation->evaluateInBackground(std::move(tokens), preferences, self.stopToken()));
    } catch (...) {
      promise->set_exception(std::current_exception());
    }
  });
  return future;
}

std::optional<Calculator::DateAndResult> Calculator::dateFor(std::string_view expression,
                                                             const std::shared_ptr<VariableList>& variables) {
  CalculationResult result = calculate(expression, variables);
  const Datestamp* datestamp = result.evaluationResult.datestampValue();
  if (datestamp == nullptr) return std::nullopt;
  const Date date = datestamp->date;
  return DateAndResult{date, std::move(result)};
}

std::optional<std::vector<EvaluationResult>> Calculator::functionParametersIn(std::string_view expression,
                                                                              std::vector<std::string> prototypes,
                                                                              EngineCustomization customization) {
  if (prototypes.empty()) return std::nullopt;
  CustomFunction::Fields fields;
  fields.prototypeExpression = std::move(prototypes.front());
  prototypes.erase(prototypes.begin());
  fields.aliases = std::move(prototypes);
  fields.handler = [](const std::vector<EvaluationResult>&) { return EvaluationResult::none(); };
  std::vector<CustomFunction> functions = customization.customFunctions();
  functions.insert(functions.begin(), CustomFunction(std::move(fields)));
  customization.setCustomFunctions(std::move(functions));

  const Calculator calculator(std::move(customization));
  std::string storage;
  const TokenList tokens =
      calculator.parsingController_->parser().tokensFor(validText(expression, storage), emptyVariables());
  const auto call =
      std::find_if(tokens.begin(), tokens.end(), [](const Token& token) { return token.is(TokenType::wordFunction); });
  if (call == tokens.end() || call->metadataAs<CustomFunctionTokenMetadata>() == nullptr) return std::nullopt;
  return customArgumentsOf(*call);
}

}  // namespace tavrine
