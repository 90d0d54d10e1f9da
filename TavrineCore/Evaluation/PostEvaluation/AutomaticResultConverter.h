#pragma once

#include <optional>
#include <span>

#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Evaluation/PostEvaluation/ResultConversionRule.h"
#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/ResultFormatting/FormattingPreferences.h"

namespace tavrine {

/// Turns the lone value of a line into the form that the settings ask for: "0xFF" into 255.
class AutomaticResultConverter {
 public:
  /// Tries rules one after the other.
  class ResultConversionRuleProcessor {
   public:
    explicit ResultConversionRuleProcessor(const EngineCustomization& customization) : customization_(customization) {}

    /// What the first rule that fits makes of the token; nothing where none fits.
    [[nodiscard]] std::optional<Token> process(std::span<const ResultConversionRule> rules, const Token& token) const;

   private:
    const EngineCustomization& customization_;
  };

  AutomaticResultConverter(ResultConversionBehavior resultConversionStyle, const Token& operand,
                           const EngineCustomization& customization);

  /// Nothing where the value is to stay as it is.
  [[nodiscard]] std::optional<Token> finalValue() const;

 private:
  ResultConversionBehavior resultConversionStyle_;
  const Token& operand_;
  const EngineCustomization& customization_;
};

}  // namespace tavrine
