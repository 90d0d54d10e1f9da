#include "TavrineCore/Parsing/Helpers/VariableDeclarationDetector.h"

#include "Foundation/Text.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

bool VariableDeclarationDetector::isVariableDeclaration(std::string_view text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos || trimmedStart(text).starts_with('=')) return false;
  const std::size_t address = text.find(urlIndicator);
  return address == std::string_view::npos || equals <= address;
}

}  // namespace tavrine
