#pragma once

#include <functional>
#include <string_view>

namespace tavrine::foundation {

/// Receives one line, without its line end. May be called from any thread, one call at a time; it must not change the
/// sink itself, and what it throws is dropped.
using DiagnosticSink = std::function<void(std::string_view line)>;

/// Where diagnostic lines go; an empty function stands for standard output again. Returns the sink set before.
DiagnosticSink setDiagnosticSink(DiagnosticSink sink);

/// Prints one diagnostic line. Diagnostics are for the eyes of a developer and never part of an answer.
void diagnose(std::string_view line);

/// Is told the message of a fatal error; if it returns, the process ends with status 1. A handler may throw to get
/// away, as tests do.
using FatalErrorHandler = std::function<void(std::string_view message)>;

/// Returns the handler set before. An empty function stands for: diagnose and exit with status 1.
FatalErrorHandler setFatalErrorHandler(FatalErrorHandler handler);

/// Ends the process in an orderly way, with a message: for what no answer can be given without, such as missing
/// resources. Never for bad input.
[[noreturn]] void fatalError(std::string_view message);

}  // namespace tavrine::foundation
