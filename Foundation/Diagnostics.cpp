#include "Foundation/Diagnostics.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <utility>

namespace tavrine::foundation {

namespace {

/// Made on first use and never destroyed: threads may still have something to say while the process ends.
struct Outlets {
  std::mutex mutex;
  DiagnosticSink sink;
  std::mutex fatalMutex;
  FatalErrorHandler fatalHandler;
};

Outlets& outlets() {
  static Outlets* const shared = new Outlets;
  return *shared;
}

void printLine(std::string_view line) {
  std::fwrite(line.data(), 1, line.size(), stdout);
  std::fputc('\n', stdout);
  std::fflush(stdout);
}

}  // namespace

DiagnosticSink setDiagnosticSink(DiagnosticSink sink) {
  const std::lock_guard lock(outlets().mutex);
  return std::exchange(outlets().sink, std::move(sink));
}

void diagnose(std::string_view line) {
  const std::lock_guard lock(outlets().mutex);
  if (!outlets().sink) return printLine(line);
  try {
    outlets().sink(line);
  } catch (...) {
    // A host's sink that fails must not fail a calculation.
  }
}

FatalErrorHandler setFatalErrorHandler(FatalErrorHandler handler) {
  const std::lock_guard lock(outlets().fatalMutex);
  return std::exchange(outlets().fatalHandler, std::move(handler));
}

void fatalError(std::string_view message) {
  FatalErrorHandler handler;
  {
    const std::lock_guard lock(outlets().fatalMutex);
    handler = outlets().fatalHandler;
  }
  if (handler) {
    handler(message);
  } else {
    diagnose(message);
  }
  std::exit(EXIT_FAILURE);
}

}  // namespace tavrine::foundation
