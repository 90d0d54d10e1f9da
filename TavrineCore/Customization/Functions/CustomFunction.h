#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

#include "TavrineCore/Customization/Functions/CustomType.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

class EvaluationResult;
class TokenTypeSet;

/// A word function of a host's own: a phrase, and a block that computes the answer from what stood at its
/// placeholders. Immutable, and cheap to copy.
class CustomFunction {
 public:
  /// Gives the answer at once; `pending` sends the call to the background. It may get fewer results than the phrase
  /// has placeholders: those that come to nothing are left out.
  using Handler = std::function<EvaluationResult(const std::vector<EvaluationResult>& arguments)>;
  /// The same, blocking, on a background thread. What it throws becomes `failed`.
  using BackgroundHandler =
      std::function<EvaluationResult(const std::vector<EvaluationResult>& arguments, std::stop_token stop)>;

  struct Fields {
    /// The phrase with its placeholders: "area of __length_expression by __length_expression".
    std::string prototypeExpression;
    Handler handler;
    /// Empty when there is none.
    BackgroundHandler backgroundHandler;
    /// The function's own kinds of placeholder.
    std::optional<std::vector<CustomType>> customTypes;
    /// Further phrases of the same function.
    std::optional<std::vector<std::string>> aliases;
    /// Types that a line must hold to be looked through for this function; null for any line.
    std::shared_ptr<const TokenTypeSet> prerequisiteTypes;
    /// The host's name for it.
    std::optional<std::string> identifier;
  };

  explicit CustomFunction(Fields fields) : fields_(std::make_shared<const Fields>(std::move(fields))) {}

  [[nodiscard]] const std::string& prototypeExpression() const { return fields_->prototypeExpression; }
  [[nodiscard]] const Handler& handler() const { return fields_->handler; }
  [[nodiscard]] const BackgroundHandler& backgroundHandler() const { return fields_->backgroundHandler; }
  [[nodiscard]] const std::optional<std::vector<CustomType>>& customTypes() const { return fields_->customTypes; }
  [[nodiscard]] const std::optional<std::vector<std::string>>& aliases() const { return fields_->aliases; }
  [[nodiscard]] const std::shared_ptr<const TokenTypeSet>& prerequisiteTypes() const {
    return fields_->prerequisiteTypes;
  }
  [[nodiscard]] const std::optional<std::string>& identifier() const { return fields_->identifier; }

  [[nodiscard]] std::size_t hash() const { return hashOf(fields_->prototypeExpression, fields_->identifier); }
  /// Whether both are copies of one function. Two blocks can't be compared, so functions that were made apart differ
  /// however alike they look, and a cache can't call an old block for an edited function.
  friend bool operator==(const CustomFunction& left, const CustomFunction& right) {
    return left.fields_ == right.fields_;
  }

 private:
  std::shared_ptr<const Fields> fields_;
};

}  // namespace tavrine
