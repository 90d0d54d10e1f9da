#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Foundation/Date.h"
#include "Foundation/Locale.h"
#include "Foundation/TimeZone.h"

namespace tavrine::foundation {

/// Writes moments as a locale does, on the Gregorian calendar whatever calendar the locale prefers. A plain value: copy
/// it, change its fields, use it on any thread. What is slow to make is kept per thread and used again.
///
/// Blanks are plain or no-break ones; the narrow blank that some locales put before "PM" becomes a plain one, so that a
/// text can be compared with what people type.
class DateFormatter {
 public:
  enum class Style : std::uint8_t { none, short_, medium, long_, full };

  DateFormatter(Locale locale, TimeZone timeZone) : locale_(std::move(locale)), timeZone_(std::move(timeZone)) {}

  /// Which parts to show: "March 10, 2024" is `long_`, "3:00 PM" `short_`. Both `none` give an empty text.
  Style dateStyle = Style::none;
  Style timeStyle = Style::none;
  /// Writes "Yesterday", "Today" or "Tomorrow" for the date, and words for two days in languages that have some; the
  /// word begins as it does in a list of its own. By the clock of the environment, in the zone of this formatter.
  bool doesRelativeDateFormatting = false;

  /// A fixed pattern of Unicode date fields, "d MMMM", that replaces the styles. Of a relative formatter it doesn't
  /// replace the words for yesterday, today and tomorrow. An empty one gives an empty text.
  std::optional<std::string> dateFormat;
  /// Takes the locale's best pattern for the fields of the template: "dd.MM.yyyy" is "MM/dd/yyyy" in en_US. Where there
  /// is none, or the template is too long to be one, the pattern becomes empty.
  void setLocalizedDateFormatFromTemplate(std::string_view dateTemplate);

  /// A moment beyond the calendar reads as the nearest one within it.
  [[nodiscard]] std::string string(Date date) const;

 private:
  Locale locale_;
  TimeZone timeZone_;
};

}  // namespace tavrine::foundation
