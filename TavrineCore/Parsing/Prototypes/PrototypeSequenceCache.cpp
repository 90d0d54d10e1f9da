#include "TavrineCore/Parsing/Prototypes/PrototypeSequenceCache.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Foundation/Environment.h"
#include "Foundation/Locale.h"
#include "Foundation/SerialQueue.h"
#include "Foundation/StringMap.h"
#include "Foundation/WordTable.h"
#include "TavrineCore/Parsing/Prototypes/PrototypeExpressionGenerator.h"
#include "TavrineCore/Parsing/Prototypes/PrototypeSequenceGenerator.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

using Mode = PrototypeSequenceGenerator::NumberInterpretationMode;

/// Phrases by their text, a null one included: that a text makes no phrase is worth remembering as well.
class PhraseCache {
 public:
  PhraseCache(std::string_view label, std::size_t maximumCount) : accessQueue_(label), maximumCount_(maximumCount) {}

  /// Two threads may make the same phrase at a time; all get the one that is kept.
  PrototypeSequenceRef phraseFor(std::string_view text, PrototypeSequenceRef (*make)(std::string_view text)) {
    const std::string key = keyOf(text);
    using Known = std::optional<PrototypeSequenceRef>;
    Known known = accessQueue_.sync([&]() -> Known {
      const auto found = phrases_.find(key);
      return found == phrases_.end() ? Known() : Known(found->second);
    });
    if (known) return *std::move(known);

    PrototypeSequenceRef made = make(text);
    return accessQueue_.sync([&] {
      if (phrases_.size() >= maximumCount_) phrases_.clear();
      return phrases_.try_emplace(key, std::move(made)).first->second;
    });
  }

  [[nodiscard]] std::size_t count() const {
    return accessQueue_.sync([&] { return phrases_.size(); });
  }

 private:
  /// Chinese text is cut in other places.
  static std::string keyOf(std::string_view text) {
    return std::string(Locale::current().isChinese() ? "zh " : "   ").append(text);
  }

  SerialQueue accessQueue_;
  StringMap<PrototypeSequenceRef> phrases_;
  std::size_t maximumCount_;
};

/// The phrases of built-in functions together with the functions that they call. A line asks for many at a time, most
/// of which it doesn't say in the end: one that is known costs a look into a table.
class CallCache {
 public:
  /// Those whose gaps the list can fill, in the order of the functions. One that isn't known yet is null, and its
  /// function is added to `unknown`.
  [[nodiscard]] std::vector<PrototypeSequenceRef> knownFor(std::span<const Function* const> functions,
                                                           const TokenList* list,
                                                           std::vector<const Function*>& unknown) const {
    const bool isChinese = Locale::current().isChinese();
    return accessQueue_.sync([&] {
      const Calls& calls = isChinese ? chineseCalls_ : calls_;
      std::vector<PrototypeSequenceRef> known;
      known.reserve(functions.size());
      for (const Function* function : functions) {
        const Calls::Entry* const found = calls.find(*function);
        if (found != nullptr && list != nullptr && !list->typesPrecheck(found->types)) continue;
        if (found == nullptr || !isCallOf(*found->call, *function)) {
          known.push_back(nullptr);
          unknown.push_back(function);
        } else if (list == nullptr || found->call->typesWereIn(*list)) {
          known.push_back(found->call);
        }
      }
      return known;
    });
  }

  void keep(const PrototypeSequenceRef& call) {
    const bool isChinese = Locale::current().isChinese();
    accessQueue_.async([&] { (isChinese ? chineseCalls_ : calls_).keep(call); });
  }

 private:
  static bool isCallOf(const PrototypeSequence& call, const Function& function) {
    return std::get<Function>(*call.metadata()) == function;
  }

  class Calls {
   public:
    struct Entry {
      const char* text = nullptr;  // lives as long as the call does
      TokenTypeSet types;          // without any of these in a line, the phrase isn't in it
      PrototypeSequenceRef call;
    };

    /// The entry of the text; its call may be another function's.
    [[nodiscard]] const Entry* find(const Function& function) const {
      const std::string_view text = function.prototypeExpression;
      if (!slots_.empty()) {
        const Entry& entry = slots_[slotOf(text.data())];
        if (entry.text != nullptr) return &entry;
      }
      // A list of functions that was made anew has its texts in another place.
      const char* const* const place = places_.find(text);
      return place == nullptr ? nullptr : &slots_[slotOf(*place)];
    }
    void keep(const PrototypeSequenceRef& call) {
      const std::string_view text = std::get<Function>(*call->metadata()).prototypeExpression;
      if (text.empty() || !places_.tryEmplace(text, text.data()).isNew) return;
      if (places_.size() * 2 > slots_.size()) grow();
      TokenTypeSet types = call->typesPresent();
      for (const TokenType takenForAnother : {TokenType::percentage, TokenType::literal}) types.remove(takenForAnother);
      slots_[slotOf(text.data())] = {text.data(), types, call};
    }

   private:
    /// Where the text at the place stands or would stand.
    [[nodiscard]] std::size_t slotOf(const char* text) const {
      constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;  // 2^64 over the golden ratio
      const std::size_t mask = slots_.size() - 1;
      std::size_t at = (reinterpret_cast<std::uintptr_t>(text) * kSpread >> 32) & mask;
      while (slots_[at].text != nullptr && slots_[at].text != text) at = (at + 1) & mask;
      return at;
    }
    void grow() {
      constexpr std::size_t kSmallest = 256;
      std::vector<Entry> old(std::max(kSmallest, slots_.size() * 2));
      old.swap(slots_);
      for (Entry& entry : old) {
        if (entry.text != nullptr) slots_[slotOf(entry.text)] = std::move(entry);
      }
    }

    WordTable<const char*> places_;
    std::vector<Entry> slots_;  // a power of two
  };

  SerialQueue accessQueue_{"wordFuctionCallAccessQueue"};
  Calls calls_;
  Calls chineseCalls_;  // Chinese text is cut in other places
};

CallCache& callCache() {
  static CallCache cache;
  return cache;
}

PhraseCache& wordFunctionSequenceCache() {
  static PhraseCache cache("wordFuctionAccessQueue", std::numeric_limits<std::size_t>::max());
  return cache;
}
PhraseCache& customFunctionSequenceCache() {
  static PhraseCache cache("customFunctionAccessQueue", PrototypeSequenceCache::kMaximumCustomPhrases);
  return cache;
}
PhraseCache& variableSequenceCache() {
  static PhraseCache cache("variableSequenceAccessQueue", PrototypeSequenceCache::kMaximumVariablePhrases);
  return cache;
}

PrototypeSequenceRef phraseOfFunction(std::string_view text) {
  return PrototypeSequenceGenerator::sequenceFor(text, Mode::arithmeticEntity);
}

PrototypeSequenceRef phraseOfVariable(std::string_view name) {
  const auto literally = [](const Token&) { return PrototypeExpressionMatchType::literally; };
  const std::optional<std::string> phrase = PrototypeExpressionGenerator::prototypeStringFrom(name, literally);
  return phrase ? PrototypeSequenceGenerator::sequenceFor(*phrase, Mode::literalNumber) : nullptr;
}

}  // namespace

std::vector<PrototypeSequenceRef> PrototypeSequenceCache::sequencesFor(std::span<const Function* const> functions,
                                                                       const TokenList* list) {
  std::vector<const Function*> unknown;
  std::vector<PrototypeSequenceRef> sequences = callCache().knownFor(functions, list, unknown);
  auto next = unknown.begin();
  for (PrototypeSequenceRef& sequence : sequences) {
    if (sequence != nullptr) continue;
    const Function& function = **next++;
    sequence =
        wordFunctionSequenceCache().phraseFor(function.prototypeExpression, phraseOfFunction)->withMetadata(function);
    callCache().keep(sequence);
  }
  if (list != nullptr && !unknown.empty()) {
    std::erase_if(sequences, [list](const PrototypeSequenceRef& sequence) { return !sequence->typesWereIn(*list); });
  }
  return sequences;
}

std::vector<PrototypeSequenceRef> PrototypeSequenceCache::sequencesFor(std::span<const CustomFunction> functions) {
  std::vector<PrototypeSequenceRef> sequences;
  const auto add = [&sequences](const CustomFunction& function, std::string_view text) {
    sequences.push_back(customFunctionSequenceCache().phraseFor(text, phraseOfFunction)->withMetadata(function));
  };
  for (const CustomFunction& function : functions) {
    add(function, function.prototypeExpression());
    if (!function.aliases()) continue;
    for (const std::string& alias : *function.aliases()) add(function, alias);
  }
  return sequences;
}

PrototypeSequenceRef PrototypeSequenceCache::sequenceFor(const Variable& variable) {
  const PrototypeSequenceRef phrase = variableSequenceCache().phraseFor(variable.name, phraseOfVariable);
  return phrase ? phrase->withMetadata(variable) : nullptr;
}

PrototypeSequenceCache::Counts PrototypeSequenceCache::counts() {
  return {wordFunctionSequenceCache().count(), customFunctionSequenceCache().count(), variableSequenceCache().count()};
}

}  // namespace tavrine
