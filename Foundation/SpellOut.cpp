#include "Foundation/SpellOut.h"

#include <unicode/locid.h>
#include <unicode/rbnf.h>
#include <unicode/unistr.h>

namespace tavrine::foundation {

struct SpellOut::Impl {
  explicit Impl(const Locale& locale) : format(icu::URBNF_SPELLOUT, icu::Locale(locale.identifier().c_str()), status) {}

  UErrorCode status = U_ZERO_ERROR;  // before `format`, whose construction writes to it
  icu::RuleBasedNumberFormat format;
};

SpellOut::SpellOut(const Locale& locale) : impl_(std::make_unique<Impl>(locale)) {}
SpellOut::~SpellOut() = default;
SpellOut::SpellOut(SpellOut&&) noexcept = default;
SpellOut& SpellOut::operator=(SpellOut&&) noexcept = default;

std::optional<std::string> SpellOut::words(std::int64_t number) const {
  if (U_FAILURE(impl_->status)) return std::nullopt;
  icu::UnicodeString text;
  icu::FieldPosition position;
  UErrorCode status = U_ZERO_ERROR;
  impl_->format.format(number, text, position, status);
  if (U_FAILURE(status)) return std::nullopt;
  std::string words;
  text.toUTF8String(words);
  return words;
}

}  // namespace tavrine::foundation
