#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "Foundation/StringMap.h"
#include "TavrineCore/Customization/Functions/CustomFunction.h"
#include "TavrineCore/Customization/Functions/Function.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/UnitType.h"
#include "TavrineCore/Parsing/Prototypes/TokenPrototype.h"
#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

class TokenList;
struct TokenSlice;

/// What a phrase stands for: a built-in function, a host's function, or a variable of several words.
using PrototypeSequenceMetadata = std::variant<Function, CustomFunction, Variable>;

/// A phrase with typed gaps, position by position: "half", white space, "of", white space, a number. Immutable, shared
/// between threads, and compared by identity.
class PrototypeSequence {
 public:
  using Prototypes = std::vector<std::shared_ptr<const TokenPrototype>>;

  explicit PrototypeSequence(Prototypes prototypes, std::optional<PrototypeSequenceMetadata> metadata = std::nullopt);
  PrototypeSequence(const PrototypeSequence&) = delete;
  PrototypeSequence& operator=(const PrototypeSequence&) = delete;

  /// The same phrase for another use. The prototypes are shared, so this costs the metadata alone.
  [[nodiscard]] std::shared_ptr<const PrototypeSequence> withMetadata(PrototypeSequenceMetadata metadata) const;

  [[nodiscard]] const Prototypes& prototypes() const { return phrase_->prototypes; }
  [[nodiscard]] const std::optional<PrototypeSequenceMetadata>& metadata() const { return metadata_; }
  /// The built-in function that the phrase calls, if it calls one.
  [[nodiscard]] std::optional<FunctionIdentifier> functionIdentifier() const {
    if (!metadata_) return std::nullopt;
    const auto* function = std::get_if<Function>(&*metadata_);
    return function != nullptr ? std::optional(function->identifier) : std::nullopt;
  }

  /// The literal words of the phrase, in lower case: a line without all of them can't hold it.
  [[nodiscard]] const StringSet& wordsPresent() const { return phrase_->words; }
  /// False only where the token can't be the first literal word of the phrase; that word stands at `firstWordIndex`.
  /// Told from hashes, so that most places where a phrase doesn't stand cost no comparison of texts.
  [[nodiscard]] bool mayBeFirstWord(const Token& token) const {
    if (phrase_->firstWordHash == 0) return true;
    return token.textHash == 0 ? !token.is(TokenType::whitespace) : token.textHash == phrase_->firstWordHash;
  }
  [[nodiscard]] std::size_t firstWordIndex() const { return phrase_->firstWordIndex; }
  /// The types that a line must have held, as far as the gaps name types.
  [[nodiscard]] const TokenTypeSet& typesPresent() const { return phrase_->types; }
  /// Whether a gap takes the name of a place that only a host knows, and with it as many words as the name has.
  [[nodiscard]] bool asksForPlaceOfProvider() const { return phrase_->asksForPlaceOfProvider; }
  /// Whether the list has held what the gaps want. A fraction will do for a percentage.
  [[nodiscard]] bool typesWereIn(const TokenList& list) const;

  /// Whether the slice is the phrase, from its first token to its last.
  [[nodiscard]] bool matches(const TokenSlice& slice) const;
  [[nodiscard]] bool matches(const TokenList& list) const;

  /// One position against one token. Brackets are tested as brackets and by what they come to: "(1 + 2)" is a number.
  [[nodiscard]] static bool performMatchCheck(const TokenPrototype& prototype, const Token& token);
  /// Whether a token of brackets has to be evaluated to be tested against the prototype.
  [[nodiscard]] static bool wantsEvaluated(const TokenPrototype& prototype, const Token& token);
  /// That test, with what the brackets come to: what has to be waited for is known as brackets only.
  [[nodiscard]] static bool valueMatches(const TokenPrototype& prototype, const Token& brackets, const Token& value);

  [[nodiscard]] std::string debugDescription() const;

 private:
  struct Phrase {
    Prototypes prototypes;
    StringSet words;
    TokenTypeSet types;
    std::vector<UnitType> unitTypes;  // of the units that a line must have held
    std::size_t firstWordIndex = 0;
    std::uint64_t firstWordHash = 0;  // 0 where there is no word, or none of ASCII letters
    bool asksForPlaceOfProvider = false;
  };

  PrototypeSequence(std::shared_ptr<const Phrase> phrase, PrototypeSequenceMetadata metadata)
      : phrase_(std::move(phrase)), metadata_(std::move(metadata)) {}

  std::shared_ptr<const Phrase> phrase_;
  std::optional<PrototypeSequenceMetadata> metadata_;
};

using PrototypeSequenceRef = std::shared_ptr<const PrototypeSequence>;

}  // namespace tavrine
