#include "Foundation/WordFilter.h"

#include <bit>

namespace tavrine::foundation {

namespace {

constexpr std::size_t kBitsPerWord = 16;

}  // namespace

WordFilter::WordFilter(std::size_t expectedWords) {
  if (expectedWords > 0) bits_.resize(std::bit_ceil(expectedWords * kBitsPerWord / kBitsPerEntry + 1));
}

void WordFilter::insert(const HashedWord& word) {
  if (word.hash != 0) set(word.hash);
}

void WordFilter::insertPair(const HashedWord& first, const HashedWord& second) {
  if (first.hash != 0 && second.hash != 0) set(hashOfPair(first, second));
}

void WordFilter::set(std::uint64_t hash) {
  if (bits_.empty()) bits_.resize(1);
  for (const std::uint64_t half : {hash >> 32, hash & 0xFFFFFFFF}) {
    bits_[half / kBitsPerEntry & (bits_.size() - 1)] |= std::uint64_t{1} << half % kBitsPerEntry;
  }
}

}  // namespace tavrine::foundation
