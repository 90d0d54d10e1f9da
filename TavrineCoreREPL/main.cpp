#include <cstdio>
#include <memory>
#include <string>

#include "LineReader.h"
#include "TavrineCore/Calculator.h"

/// The console: a prompt, a line, its answer, until the input ends. Each line gets a calculator of its own, so nothing
/// is remembered from line to line.
int main() {
  const std::unique_ptr<LineReader> reader = LineReader::forStandardInput(">>> ");
  std::string line;
  while (reader->read(line)) {
    tavrine::Calculator calculator(tavrine::EngineCustomization::standard());
    const std::string answer = calculator.calculate(line).stringValue;
    std::fwrite(answer.data(), 1, answer.size(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
  }
  return 0;
}
