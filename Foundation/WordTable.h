#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "Foundation/StringMap.h"

namespace tavrine::foundation {

/// A map from words that live elsewhere, for vocabularies of thousands that are made at the start of a process and only
/// grow: two arrays, where a map would allocate for each word.
template <class Value>
class WordTable {
 public:
  struct Entry {
    std::string_view word;
    Value value;
  };

  void reserve(std::size_t count) {
    entries_.reserve(count);
    if (count * kSlotsPerEntry > slots_.size()) resizeSlots(count);
  }

  /// The value of the word, and whether it is new, with `value`.
  struct Insertion {
    Value& value;
    bool isNew;
  };
  Insertion tryEmplace(std::string_view word, Value value) {
    if ((entries_.size() + 1) * kSlotsPerEntry > slots_.size()) resizeSlots((entries_.size() + 1) * 2);
    const std::uint64_t hash = hashOfText(word);
    Slot& slot = slots_[slotOf(word, hash)];
    if (slot.entry != kNone) return {entries_[slot.entry].value, false};
    slot = {tagOf(hash), static_cast<std::uint32_t>(entries_.size())};
    entries_.push_back({word, std::move(value)});
    return {entries_.back().value, true};
  }
  void insertOrAssign(std::string_view word, Value value) {
    const Insertion place = tryEmplace(word, value);
    if (!place.isNew) place.value = std::move(value);
  }

  /// Null for a word that isn't there.
  [[nodiscard]] const Value* find(std::string_view word) const {
    if (slots_.empty()) return nullptr;
    const std::uint32_t entry = slots_[slotOf(word, hashOfText(word))].entry;
    return entry == kNone ? nullptr : &entries_[entry].value;
  }

  [[nodiscard]] std::size_t size() const noexcept { return entries_.size(); }
  /// In the order in which the words came.
  [[nodiscard]] auto begin() const noexcept { return entries_.begin(); }
  [[nodiscard]] auto end() const noexcept { return entries_.end(); }

 private:
  static constexpr std::size_t kSlotsPerEntry = 2;  // at least, so that a probe rarely meets a neighbour
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;
  struct Slot {
    std::uint32_t tag = 0;
    std::uint32_t entry = kNone;
  };

  static std::uint32_t tagOf(std::uint64_t hash) { return static_cast<std::uint32_t>(hash >> 32); }

  /// Where the word stands or would stand.
  [[nodiscard]] std::size_t slotOf(std::string_view word, std::uint64_t hash) const {
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
      const Slot& slot = slots_[at];
      if (slot.entry == kNone || (slot.tag == tagOf(hash) && entries_[slot.entry].word == word)) return at;
    }
  }

  void resizeSlots(std::size_t count) {
    slots_.assign(std::bit_ceil(count * kSlotsPerEntry), Slot());
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      const std::uint64_t hash = hashOfText(entries_[i].word);
      slots_[slotOf(entries_[i].word, hash)] = {tagOf(hash), static_cast<std::uint32_t>(i)};
    }
  }

  std::vector<Slot> slots_;  // a power of two, probed one after the other
  std::vector<Entry> entries_;
};

}  // namespace tavrine::foundation
