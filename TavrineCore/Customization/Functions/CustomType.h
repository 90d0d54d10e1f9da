#pragma once

#include <any>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A placeholder of a host's own: the words in `symbols` fit where its functions' phrases say `prototypePlaceholder`.
/// Cheap to copy.
struct CustomType {
 public:
  /// What a placeholder begins with.
  static constexpr std::string_view requiredPrefix = "__";

  /// A placeholder without the prefix is a programming error of the host's, and fatal.
  CustomType(std::string prototypePlaceholder, std::vector<std::string> symbols, std::any associatedObject = {});

  [[nodiscard]] const std::string& prototypePlaceholder() const { return fields_->prototypePlaceholder; }
  [[nodiscard]] const std::vector<std::string>& symbols() const { return fields_->symbols; }
  /// Anything that the host wants to find again; no part of equality.
  [[nodiscard]] const std::any& associatedObject() const { return fields_->associatedObject; }

  [[nodiscard]] std::size_t hash() const;
  friend bool operator==(const CustomType& left, const CustomType& right);

 private:
  struct Fields {
    std::string prototypePlaceholder;
    std::vector<std::string> symbols;
    std::any associatedObject;
  };

  std::shared_ptr<const Fields> fields_;
};

}  // namespace tavrine
