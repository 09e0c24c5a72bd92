#pragma once
// The pieces that the number and date engines of format.h share: reading literal text out of a
// pattern, telling number patterns from date patterns, the named formats, and the two engines
// on plain patterns. Not part of the public interface: include format.h.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "datetime.h"
#include "settings.h"

namespace TabulonLib12::FormatDetail {

// Bytes of the character at `pos`: a whole well-formed UTF-8 sequence, or 1 for any other byte,
// so that a stray byte is kept as it is and a character is never cut.
size_t CharacterLength(std::string_view text, size_t pos);

// A quoted text or a backslash escape starting at `pos`: appends its text to `out`, moves `pos`
// past it and answers true; answers false and changes nothing at any other character. An
// unclosed quote runs to the end; a backslash at the very end stands for itself.
bool ReadQuotedOrEscaped(std::string_view pattern, size_t& pos, std::string& out);

// The pattern cut at every ';' outside quotes and escapes; always at least one section.
std::vector<std::string_view> SplitSections(std::string_view pattern);

bool EqualsIgnoringCase(std::string_view a, std::string_view b);

// "am/pm" or "a/p" in any case at `pos`: its length, or 0.
size_t HalfDayAt(std::string_view pattern, size_t pos);

enum class PatternKind { Number, Date };

// Number or date, by the rule in format.h: digit placeholders make a number pattern, date letters
// or a half-day mark without them a date pattern, and anything else is a number pattern.
PatternKind KindOf(std::string_view pattern);

enum class NamedFormat {
    GeneralNumber,
    Currency,
    Fixed,
    Standard,
    Percent,
    Scientific,
    GeneralDate,
    ShortDate,
    ShortTime,
};

std::optional<NamedFormat> NamedFormatOf(std::string_view pattern);
PatternKind KindOf(NamedFormat name);

// The number engine on a plain number pattern (not a name). `value` is finite.
std::string FormatNumberPattern(double value, std::string_view pattern, const SystemSettings& settings);
// The system's currency; `value` is finite.
std::string FormatCurrency(double value, const SystemSettings& settings);
// The date engine on a plain date pattern. Throws Error::Overflow() outside years 100 to 9999.
std::string FormatDatePattern(DateTime value, std::string_view pattern, const SystemSettings& settings);

}  // namespace TabulonLib12::FormatDetail
