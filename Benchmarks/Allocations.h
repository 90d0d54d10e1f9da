#pragma once

#include <cstddef>

namespace tavrine::benchmarks {

/// How often this thread has asked for memory since it began, by any form of `new`.
std::size_t allocations();

}  // namespace tavrine::benchmarks
