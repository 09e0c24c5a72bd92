#include "platform/runtime/format_pattern.h"

#include <array>
#include <initializer_list>

namespace TabulonLib12::FormatDetail {

namespace {

bool IsContinuation(unsigned char c) { return c >= 0x80 && c <= 0xBF; }

// Where a quoted text or an escape starting at `pos` has its text, and where it ends.
struct LiteralSpan {
    size_t start = 0;
    size_t length = 0;
    size_t end = 0;
};

std::optional<LiteralSpan> LiteralAt(std::string_view pattern, size_t pos) {
    if (pos >= pattern.size()) {
        return std::nullopt;
    }
    if (pattern[pos] == '"') {
        const size_t close = pattern.find('"', pos + 1);
        if (close == std::string_view::npos) {
            return LiteralSpan{pos + 1, pattern.size() - pos - 1, pattern.size()};
        }
        return LiteralSpan{pos + 1, close - pos - 1, close + 1};
    }
    if (pattern[pos] == '\\') {
        if (pos + 1 == pattern.size()) {
            return LiteralSpan{pos, 1, pos + 1};  // nothing to escape: the backslash itself
        }
        const size_t length = CharacterLength(pattern, pos + 1);
        return LiteralSpan{pos + 1, length, pos + 1 + length};
    }
    return std::nullopt;
}

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool IsDateLetter(char c) {
    switch (LowerAscii(c)) {
    case 'd':
    case 'm':
    case 'y':
    case 'h':
    case 'n':
    case 's':
        return true;
    default:
        return false;
    }
}

}  // namespace

size_t CharacterLength(std::string_view text, size_t pos) {
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(pos);
    size_t length = 1;
    unsigned char low = 0x80;  // the range of the second byte, narrower after some leads
    unsigned char high = 0xBF;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        low = lead == 0xE0 ? 0xA0 : 0x80;  // no overlong forms
        high = lead == 0xED ? 0x9F : 0xBF;  // no surrogates
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        low = lead == 0xF0 ? 0x90 : 0x80;
        high = lead == 0xF4 ? 0x8F : 0xBF;
    } else {
        return 1;
    }
    if (text.size() - pos < length || byte(pos + 1) < low || byte(pos + 1) > high) {
        return 1;
    }
    for (size_t i = 2; i < length; ++i) {
        if (!IsContinuation(byte(pos + i))) {
            return 1;
        }
    }
    return length;
}

bool ReadQuotedOrEscaped(std::string_view pattern, size_t& pos, std::string& out) {
    const auto span = LiteralAt(pattern, pos);
    if (!span) {
        return false;
    }
    out.append(pattern.substr(span->start, span->length));
    pos = span->end;
    return true;
}

std::vector<std::string_view> SplitSections(std::string_view pattern) {
    std::vector<std::string_view> sections;
    size_t start = 0;
    size_t pos = 0;
    while (pos < pattern.size()) {
        if (const auto span = LiteralAt(pattern, pos)) {
            pos = span->end;
        } else if (pattern[pos] == ';') {
            sections.push_back(pattern.substr(start, pos - start));
            start = ++pos;
        } else {
            ++pos;
        }
    }
    sections.push_back(pattern.substr(start));
    return sections;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (size_t i = 0; i < a.size(); ++i) {
        if (LowerAscii(a[i]) != LowerAscii(b[i])) {
            return false;
        }
    }
    return true;
}

size_t HalfDayAt(std::string_view pattern, size_t pos) {
    for (std::string_view form : {std::string_view("am/pm"), std::string_view("a/p")}) {
        if (EqualsIgnoringCase(pattern.substr(pos, form.size()), form)) {
            return form.size();
        }
    }
    return 0;
}

PatternKind KindOf(std::string_view pattern) {
    bool dateLetter = false;
    size_t pos = 0;
    while (pos < pattern.size()) {
        if (const auto span = LiteralAt(pattern, pos)) {
            pos = span->end;
            continue;
        }
        if (const size_t length = HalfDayAt(pattern, pos)) {
            dateLetter = true;
            pos += length;
            continue;
        }
        const char c = pattern[pos++];
        if (c == '0' || c == '#') {
            return PatternKind::Number;
        }
        dateLetter = dateLetter || IsDateLetter(c);
    }
    return dateLetter ? PatternKind::Date : PatternKind::Number;
}

std::optional<NamedFormat> NamedFormatOf(std::string_view pattern) {
    struct Entry {
        std::string_view name;
        NamedFormat format;
    };
    static constexpr std::array<Entry, 9> kNames = {{
        {"general number", NamedFormat::GeneralNumber},
        {"currency", NamedFormat::Currency},
        {"fixed", NamedFormat::Fixed},
        {"standard", NamedFormat::Standard},
        {"percent", NamedFormat::Percent},
        {"scientific", NamedFormat::Scientific},
        {"general date", NamedFormat::GeneralDate},
        {"short date", NamedFormat::ShortDate},
        {"short time", NamedFormat::ShortTime},
    }};
    for (const Entry& entry : kNames) {
        if (EqualsIgnoringCase(pattern, entry.name)) {
            return entry.format;
        }
    }
    return std::nullopt;
}

PatternKind KindOf(NamedFormat name) {
    switch (name) {
    case NamedFormat::GeneralDate:
    case NamedFormat::ShortDate:
    case NamedFormat::ShortTime:
        return PatternKind::Date;
    default:
        return PatternKind::Number;
    }
}

}  // namespace TabulonLib12::FormatDetail
