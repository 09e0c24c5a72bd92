// The date engine: date patterns (the language is in format.h).
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/runtime/format_pattern.h"

namespace TabulonLib12::FormatDetail {

namespace {

enum class Field : uint8_t {
    Literal,
    Day,
    MonthOrMinute,  // settled by its neighbours once the pattern is read
    Month,
    Minute,
    Year,       // width 2 or 4
    DayOfYear,
    Hour,
    Second,
    HalfDay,    // AM/PM or A/P: the two texts in the literal store, one after the other
    DateSeparator,
    TimeSeparator,
};

struct DateToken {
    Field field = Field::Literal;
    int width = 1;       // digits: 1 (no leading zero) or 2; 2 or 4 for the year
    size_t offset = 0;   // text in DatePattern::literals: a literal, or the morning text of a HalfDay
    size_t length = 0;   // for a HalfDay, each of the two texts is `length` bytes long
};

struct DatePattern {
    std::vector<DateToken> tokens;
    std::string literals;
    bool twelveHours = false;

    void AddLiteral(std::string_view text) {
        if (text.empty()) {
            return;
        }
        if (!tokens.empty() && tokens.back().field == Field::Literal &&
            tokens.back().offset + tokens.back().length == literals.size()) {
            tokens.back().length += text.size();
        } else {
            tokens.push_back({Field::Literal, 1, literals.size(), text.size()});
        }
        literals.append(text);
    }

    std::string_view Text(size_t offset, size_t length) const {
        return std::string_view(literals).substr(offset, length);
    }
};

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// A run of one letter cut into fields from the left: dddd is dd dd, yyy is yy y.
void AddRun(DatePattern& result, char letter, size_t run) {
    while (run > 0) {
        DateToken token;
        size_t used = std::min<size_t>(run, 2);
        token.width = static_cast<int>(used);
        switch (letter) {
        case 'd': token.field = Field::Day; break;
        case 'm': token.field = Field::MonthOrMinute; break;
        case 'n': token.field = Field::Minute; break;
        case 'h': token.field = Field::Hour; break;
        case 's': token.field = Field::Second; break;
        default:  // 'y'
            used = run >= 4 ? 4 : run >= 2 ? 2 : 1;
            token.field = used == 1 ? Field::DayOfYear : Field::Year;
            token.width = static_cast<int>(used);
            break;
        }
        result.tokens.push_back(token);
        run -= used;
    }
}

bool IsValueField(Field field) {
    return field != Field::Literal && field != Field::DateSeparator && field != Field::TimeSeparator;
}

// An m is minutes right after an hour or right before seconds, with only literals and
// separators between; a month otherwise.
void SettleMonthsAndMinutes(std::vector<DateToken>& tokens) {
    std::vector<Field> next(tokens.size(), Field::Literal);
    Field following = Field::Literal;
    for (size_t i = tokens.size(); i-- > 0;) {
        next[i] = following;
        if (IsValueField(tokens[i].field)) {
            following = tokens[i].field;
        }
    }
    Field previous = Field::Literal;
    for (size_t i = 0; i < tokens.size(); ++i) {
        DateToken& token = tokens[i];
        if (token.field == Field::MonthOrMinute) {
            token.field = previous == Field::Hour || next[i] == Field::Second ? Field::Minute : Field::Month;
        }
        if (IsValueField(token.field)) {
            previous = token.field;
        }
    }
}

DatePattern ReadDatePattern(std::string_view pattern) {
    DatePattern result;
    std::string literal;
    size_t pos = 0;
    while (pos < pattern.size()) {
        literal.clear();
        if (ReadQuotedOrEscaped(pattern, pos, literal)) {
            result.AddLiteral(literal);
            continue;
        }
        const char c = pattern[pos];
        const char letter = Lower(c);
        if (letter == 'a') {
            if (const size_t length = HalfDayAt(pattern, pos)) {
                const size_t half = length / 2;  // "AM" and "PM", or "A" and "P"
                result.tokens.push_back({Field::HalfDay, 1, result.literals.size(), half});
                result.literals.append(pattern.substr(pos, half));
                result.literals.append(pattern.substr(pos + half + 1, half));
                result.twelveHours = true;
                pos += length;
                continue;
            }
        }
        if (letter == 'd' || letter == 'm' || letter == 'n' || letter == 'h' || letter == 's' || letter == 'y') {
            size_t end = pos;
            while (end < pattern.size() && Lower(pattern[end]) == letter) {
                ++end;
            }
            AddRun(result, letter, end - pos);
            pos = end;
        } else if (c == '/') {
            result.tokens.push_back({Field::DateSeparator});
            ++pos;
        } else if (c == ':') {
            result.tokens.push_back({Field::TimeSeparator});
            ++pos;
        } else {
            result.AddLiteral(pattern.substr(pos, 1));  // bytes of a character stay together in order
            ++pos;
        }
    }
    SettleMonthsAndMinutes(result.tokens);
    return result;
}

void AppendNumber(std::string& out, int value, int width) {
    const std::string digits = std::to_string(value);
    if (static_cast<int>(digits.size()) < width) {
        out.append(static_cast<size_t>(width) - digits.size(), '0');
    }
    out.append(digits);
}

int DayOfYear(const DateParts& parts) {
    namespace chr = std::chrono;
    const chr::year year(parts.year);
    const chr::sys_days day(year / chr::month(static_cast<unsigned>(parts.month)) /
                            chr::day(static_cast<unsigned>(parts.day)));
    const chr::sys_days first(year / chr::January / chr::day(1));
    return static_cast<int>((day - first).count()) + 1;
}

}  // namespace

std::string FormatDatePattern(DateTime value, std::string_view pattern, const SystemSettings& settings) {
    const DateParts parts = SplitDate(value);
    const DatePattern read = ReadDatePattern(pattern);
    std::string out;
    for (const DateToken& token : read.tokens) {
        switch (token.field) {
        case Field::Literal:
            out.append(read.Text(token.offset, token.length));
            break;
        case Field::Day:
            AppendNumber(out, parts.day, token.width);
            break;
        case Field::Month:
        case Field::MonthOrMinute:  // settled before; a month if ever left
            AppendNumber(out, parts.month, token.width);
            break;
        case Field::Minute:
            AppendNumber(out, parts.minute, token.width);
            break;
        case Field::Year:
            AppendNumber(out, token.width == 2 ? parts.year % 100 : parts.year, token.width);
            break;
        case Field::DayOfYear:
            AppendNumber(out, DayOfYear(parts), 1);
            break;
        case Field::Hour: {
            int hour = parts.hour;
            if (read.twelveHours) {
                hour = hour % 12 == 0 ? 12 : hour % 12;
            }
            AppendNumber(out, hour, token.width);
            break;
        }
        case Field::Second:
            AppendNumber(out, parts.second, token.width);
            break;
        case Field::HalfDay:
            out.append(read.Text(token.offset + (parts.hour < 12 ? 0 : token.length), token.length));
            break;
        case Field::DateSeparator:
            out.append(settings.dateSeparator);
            break;
        case Field::TimeSeparator:
            out.append(settings.timeSeparator);
            break;
        }
    }
    return out;
}

}  // namespace TabulonLib12::FormatDetail
