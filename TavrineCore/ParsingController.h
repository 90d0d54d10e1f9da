#pragma once

#include <memory>
#include <utility>

#include "TavrineCore/Parsing/Squad/Parser.h"

namespace tavrine {

/// Holds the parser of a calculator.
class ParsingController {
 public:
  explicit ParsingController(Parser parser) : parser_(std::move(parser)) {}

  const Parser& parser() const { return parser_; }

 private:
  Parser parser_;
};

}  // namespace tavrine
