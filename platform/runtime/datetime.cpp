#include "platform/runtime/datetime.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <initializer_list>

#include "platform/runtime/error.h"
#include "platform/runtime/rounding.h"

namespace TabulonLib12 {

namespace {

namespace chr = std::chrono;

constexpr int kSecondsPerDay = 86400;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

// Serial 0 is 30 December 1899.
constexpr chr::sys_days kSerialZero = chr::sys_days(chr::year(1899) / chr::December / chr::day(30));

constexpr long long SerialOfDay(const chr::year_month_day& date) {
    return (chr::sys_days(date) - kSerialZero).count();
}

constexpr long long kFirstSerialDay = SerialOfDay(chr::year(kFirstYear) / chr::January / chr::day(1));
constexpr long long kLastSerialDay = SerialOfDay(chr::year(kLastYear) / chr::December / chr::day(31));

}  // namespace

std::optional<DateTime> MakeDate(const DateParts& parts) {
    if (parts.year < kFirstYear || parts.year > kLastYear || parts.month < 1 || parts.month > 12 ||
        parts.day < 1 || parts.day > 31) {
        return std::nullopt;
    }
    if (parts.hour < 0 || parts.hour > 23 || parts.minute < 0 || parts.minute > 59 || parts.second < 0 ||
        parts.second > 59) {
        return std::nullopt;
    }
    const chr::year_month_day date(chr::year(parts.year), chr::month(static_cast<unsigned>(parts.month)),
                                   chr::day(static_cast<unsigned>(parts.day)));
    if (!date.ok()) {
        return std::nullopt;
    }
    const double day = static_cast<double>(SerialOfDay(date));
    const double time = (parts.hour * 3600 + parts.minute * 60 + parts.second) / double(kSecondsPerDay);
    // Before serial 0 the whole part counts days back while the time still runs forward from
    // the start of that day: 29/12/1899 06:00 is -1.25, not -0.75.
    return DateTime{day < 0 ? day - time : day + time};
}

DateParts SplitDate(DateTime value) {
    const double serial = value.serial;
    // The whole part, truncated toward zero, is the day; the fraction, whatever its sign, the time.
    if (!std::isfinite(serial) || serial <= double(kFirstSerialDay - 1) || serial >= double(kLastSerialDay + 1)) {
        throw Error::Overflow();
    }
    const double wholeDay = std::trunc(serial);
    long long day = static_cast<long long>(wholeDay);
    long long seconds = static_cast<long long>(RoundHalfEven(std::fabs(serial - wholeDay) * kSecondsPerDay));
    if (seconds >= kSecondsPerDay) {
        // A time that rounds to midnight is the start of the next day, for either sign.
        seconds -= kSecondsPerDay;
        day += 1;
    }
    if (day > kLastSerialDay) {
        throw Error::Overflow();
    }
    const chr::year_month_day date(kSerialZero + chr::days(day));
    DateParts parts;
    parts.year = static_cast<int>(date.year());
    parts.month = static_cast<int>(static_cast<unsigned>(date.month()));
    parts.day = static_cast<int>(static_cast<unsigned>(date.day()));
    parts.hour = static_cast<int>(seconds / 3600);
    parts.minute = static_cast<int>(seconds / 60 % 60);
    parts.second = static_cast<int>(seconds % 60);
    return parts;
}

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// A left-to-right reader over the text; every step consumes what it matched or nothing.
class Reader {
public:
    explicit Reader(std::string_view text) : text_(text) {}

    bool AtEnd() const { return pos_ == text_.size(); }

    // A run of 1 to maxDigits digits; a longer run fails, so that "123/1/2024" is no date.
    std::optional<int> Number(int maxDigits, int* digitCount = nullptr) {
        size_t end = pos_;
        while (end < text_.size() && IsDigit(text_[end])) {
            ++end;
        }
        const size_t count = end - pos_;
        if (count == 0 || count > static_cast<size_t>(maxDigits)) {
            return std::nullopt;
        }
        int value = 0;
        for (size_t i = pos_; i < end; ++i) {
            value = value * 10 + (text_[i] - '0');
        }
        pos_ = end;
        if (digitCount != nullptr) {
            *digitCount = static_cast<int>(count);
        }
        return value;
    }

    // Skips a run of digits of any length; false when there is none.
    bool SkipDigits() {
        const size_t start = pos_;
        while (pos_ < text_.size() && IsDigit(text_[pos_])) {
            ++pos_;
        }
        return pos_ > start;
    }

    bool Literal(std::string_view literal) {
        if (literal.empty() || text_.substr(pos_).substr(0, literal.size()) != literal) {
            return false;
        }
        pos_ += literal.size();
        return true;
    }

    // The first of the candidates found at the current position.
    std::optional<std::string_view> OneOf(std::initializer_list<std::string_view> candidates) {
        for (std::string_view candidate : candidates) {
            if (Literal(candidate)) {
                return candidate;
            }
        }
        return std::nullopt;
    }

    bool SkipBlanks() {
        const size_t start = pos_;
        while (pos_ < text_.size() && IsBlank(text_[pos_])) {
            ++pos_;
        }
        return pos_ > start;
    }

private:
    std::string_view text_;
    size_t pos_ = 0;
};

// One or two-digit years fall in 1930 to 2029; longer ones are taken as written.
int FullYear(int year, int digits) {
    if (digits > 2) {
        return year;
    }
    return year < 30 ? 2000 + year : 1900 + year;
}

// "hh:nn" or "hh:nn:ss", the seconds optionally with a fraction, which is dropped: the control
// keeps whole seconds, and dropping rather than rounding keeps 23:59:59.9 on its own day.
bool ReadTime(Reader& reader, const SystemSettings& settings, DateParts& parts) {
    const auto hour = reader.Number(2);
    if (!hour) {
        return false;
    }
    const auto separator = reader.OneOf({":", settings.timeSeparator});
    if (!separator) {
        return false;
    }
    const auto minute = reader.Number(2);
    if (!minute) {
        return false;
    }
    parts.hour = *hour;
    parts.minute = *minute;
    parts.second = 0;
    if (reader.Literal(*separator)) {
        const auto second = reader.Number(2);
        if (!second) {
            return false;
        }
        parts.second = *second;
        if (reader.Literal(".") && !reader.SkipDigits()) {
            return false;
        }
    }
    return true;
}

// A date, optionally followed by a time, filling `parts`; false unless the whole text matched.
bool ReadDateAndTime(std::string_view text, const SystemSettings& settings, DateParts& parts) {
    Reader reader(text);
    int firstDigits = 0;
    const auto first = reader.Number(4, &firstDigits);
    if (!first) {
        return false;
    }
    const auto separator = reader.OneOf({settings.dateSeparator, "/", "-", "."});
    if (!separator) {
        return false;
    }
    const bool yearFirst = firstDigits == 4 || settings.dateOrder == DateOrder::YearMonthDay;
    int secondDigits = 0;
    const auto second = reader.Number(2, &secondDigits);
    if (!second || !reader.Literal(*separator)) {
        return false;
    }
    int thirdDigits = 0;
    const auto third = reader.Number(yearFirst ? 2 : 4, &thirdDigits);
    if (!third) {
        return false;
    }
    if (yearFirst) {
        parts.year = FullYear(*first, firstDigits);
        parts.month = *second;
        parts.day = *third;
    } else {
        if (firstDigits > 2) {
            return false;
        }
        parts.year = FullYear(*third, thirdDigits);
        const bool dayFirst = settings.dateOrder == DateOrder::DayMonthYear;
        parts.day = dayFirst ? *first : *second;
        parts.month = dayFirst ? *second : *first;
    }
    parts.hour = parts.minute = parts.second = 0;
    if (reader.AtEnd()) {
        return true;
    }
    // The ISO form joins date and time with a 'T'; every form may join them with blanks.
    if (!reader.SkipBlanks() && !(firstDigits == 4 && reader.Literal("T"))) {
        return false;
    }
    return ReadTime(reader, settings, parts) && reader.AtEnd();
}

bool ReadTimeAlone(std::string_view text, const SystemSettings& settings, DateParts& parts) {
    Reader reader(text);
    parts = DateParts{};
    return ReadTime(reader, settings, parts) && reader.AtEnd();
}

std::string FourDigits(int value) {
    if (value < 0 || value > 9999) return std::to_string(value);
    return std::string{static_cast<char>('0' + value / 1000), static_cast<char>('0' + value / 100 % 10),
                       static_cast<char>('0' + value / 10 % 10), static_cast<char>('0' + value % 10)};
}

}  // namespace

std::optional<DateTime> ParseDate(std::string_view text, const SystemSettings& settings) {
    while (!text.empty() && IsBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsBlank(text.back())) {
        text.remove_suffix(1);
    }
    if (text.empty()) {
        return std::nullopt;
    }
    DateParts parts;
    if (ReadDateAndTime(text, settings, parts)) {
        if (auto date = MakeDate(parts)) {
            return date;
        }
    }
    // Where times and dates share a separator, "10.30.15" is no date (no month 30) but a time.
    if (ReadTimeAlone(text, settings, parts)) {
        return MakeDate(parts);
    }
    return std::nullopt;
}

bool ReadFixedDigits(std::string_view text, size_t at, size_t count, int& value) {
    if (at > text.size() || count > text.size() - at) return false;
    value = 0;
    for (size_t i = at; i < at + count; ++i) {
        const char c = text[i];
        if (c < '0' || c > '9') return false;
        value = value * 10 + (c - '0');
    }
    return true;
}

void AppendDatePartsText(const DateParts& parts, const SystemSettings& settings, std::string& text) {
    const bool midnight = parts.hour == 0 && parts.minute == 0 && parts.second == 0;
    const bool dayZero = parts.year == 1899 && parts.month == 12 && parts.day == 30;
    auto two = [&text](int v) {
        if (v < 0 || v > 99) text += std::to_string(v);
        else text += {static_cast<char>('0' + v / 10), static_cast<char>('0' + v % 10)};
    };
    auto year = [&text, &parts] { text += FourDigits(parts.year); };
    const std::string& sep = settings.dateSeparator;
    if (!dayZero || midnight) {
        switch (settings.dateOrder) {
        case DateOrder::DayMonthYear:
            two(parts.day), text += sep, two(parts.month), text += sep, year();
            break;
        case DateOrder::MonthDayYear:
            two(parts.month), text += sep, two(parts.day), text += sep, year();
            break;
        case DateOrder::YearMonthDay:
            year(), text += sep, two(parts.month), text += sep, two(parts.day);
            break;
        }
        if (midnight) return;
        text += ' ';
    }
    two(parts.hour), text += settings.timeSeparator, two(parts.minute), text += settings.timeSeparator,
        two(parts.second);
}

std::string DateToText(DateTime value, const SystemSettings& settings) {
    std::string text;
    AppendDatePartsText(SplitDate(value), settings, text);
    return text;
}

}  // namespace TabulonLib12
