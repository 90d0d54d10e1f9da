#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"
#include "TavrineCore/Utility/EnumSet.h"

namespace tavrine {

/// What to make of "1,00", whose separator stands where no thousands end.
enum class MisplacedThousandsSeparatorBehavior : std::uint8_t { allow, disallow, interpretAsDecimalPoint };

/// Which time zone codes follow the season: whether "PST" in July means "PDT".
enum class TimezoneCodeCorrectionBehavior : std::uint8_t { automatic, onlyNonSummerCodes, never };

/// What a host may switch on beyond the usual.
struct AdditionalOptions {
  bool includeVariableReferencingPreviousLine = false;
  bool includeVariablesReferencingLineNumbers = false;
  bool rawStringVariableDefinitions = false;
  bool unitDeclarations = false;
  bool remoteQueries = false;
  bool tripPlanning = false;
  bool generateTagVariablesFromLabels = false;

  friend bool operator==(const AdditionalOptions&, const AdditionalOptions&) = default;
};

/// Which ways of writing a comment are understood.
struct CommentingOptions {
  bool bracketComments = false;
  bool quotationMarkComments = true;
  bool slashComments = false;
  bool labelComments = false;
  bool hashTags = false;

  static constexpr CommentingOptions all() { return {true, true, true, true, true}; }
  static constexpr CommentingOptions none() { return {false, false, false, false, false}; }

  friend bool operator==(const CommentingOptions&, const CommentingOptions&) = default;
};

/// The switches of the engine, each with its default.
struct EngineFeatureFlags {
  bool units = true;
  bool calendarCalculations = true;
  bool wordFunctions = true;
  /// "x = 5" declares x.
  bool variableDeclarations = false;
  /// Functions left out of the vocabulary.
  std::optional<FunctionIdentifierSet> disabledFunctions;
  /// "sin 5" needs its brackets.
  bool functionsRequireParentheses = false;
  MisplacedThousandsSeparatorBehavior misplacedThousandsSeparatorBehavior = MisplacedThousandsSeparatorBehavior::allow;
  TimezoneCodeCorrectionBehavior timezoneCodeAutocorrectionBehavior = TimezoneCodeCorrectionBehavior::automatic;
  /// A date without a year is the next one to come.
  bool seeksFutureDate = false;
  bool inAmbiguityPreferSomethingToNothing = true;
  AdditionalOptions additionalOptions;
  CommentingOptions commentingOptions;
  /// Tokens that nothing used keep their types instead of becoming words.
  bool preserveAllParsedTokenTypes = false;
  /// Brackets form tokens of their own.
  bool subexpressions = true;
  bool bitwiseOperators = true;
  bool hexAndBinary = true;
  bool octal = true;
  /// The constants phi and tau; pi is always there.
  bool phiAndTau = true;
  bool cookingSubstances = true;
  bool musicalConversions = true;
  bool GPSAndDMS = true;
  bool specialDays = true;
  bool dateTemplateFormatStrings = true;
  bool shortFormUSTimezones = true;
  /// Units left out of the vocabulary.
  std::optional<UnitIdentifierSet> disabledUnits;
  bool dynamicPlaceLookup = false;

  bool allowMisplacedThousandsSeparators() const {
    return misplacedThousandsSeparatorBehavior == MisplacedThousandsSeparatorBehavior::allow;
  }
  bool preferActiveTimeZoneAbbreviations() const {
    return timezoneCodeAutocorrectionBehavior == TimezoneCodeCorrectionBehavior::automatic;
  }
  bool hashTags() const { return commentingOptions.hashTags; }
  bool quotationMarkComments() const { return commentingOptions.quotationMarkComments; }
  bool bracketComments() const { return commentingOptions.bracketComments; }
  bool labelComments() const { return commentingOptions.labelComments; }
  bool slashComments() const { return commentingOptions.slashComments; }

  bool disables(FunctionIdentifier identifier) const {
    return disabledFunctions.has_value() && disabledFunctions->contains(identifier);
  }
  bool disables(UnitIdentifier identifier) const {
    return disabledUnits.has_value() && disabledUnits->contains(identifier);
  }

  /// Leaves only what documents of the third version knew.
  void limitToLegacyFeatureSet();

  static const FunctionIdentifierSet& functionIdentifiersDisabledInTavrine3();
  static const UnitIdentifierSet& unitIdentifiersDisabledInTavrine3();

  std::size_t hash() const;
  friend bool operator==(const EngineFeatureFlags&, const EngineFeatureFlags&) = default;
};

}  // namespace tavrine
