#include "Benchmarks/Allocations.h"

#include <cstdlib>
#include <new>

namespace {

thread_local std::size_t count = 0;

void* counted(void* memory) {
  if (memory == nullptr) throw std::bad_alloc();
  ++count;
  return memory;
}

}  // namespace

namespace tavrine::benchmarks {

std::size_t allocations() { return count; }

}  // namespace tavrine::benchmarks

// The other forms end in these.
void* operator new(std::size_t size) { return counted(std::malloc(size)); }
void* operator new(std::size_t size, std::align_val_t alignment) {
  const auto step = static_cast<std::size_t>(alignment);
  return counted(std::aligned_alloc(step, (size + step - 1) / step * step));
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
