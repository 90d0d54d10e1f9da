#include <cstdio>

#include "TavrineCore/TavrineCore.h"

int main() {
  tavrine::Calculator calculator{tavrine::EngineCustomization::standard()};
  std::puts(calculator.calculate("1 + 2").stringValue.c_str());
}
