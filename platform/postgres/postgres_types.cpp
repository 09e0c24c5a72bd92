// The map from PostgreSQL types to the control's type codes, and the readers of the server's
// value texts (in the forms the session fixes: ISO dates, hex bytea, C money, exact floats).
#include <algorithm>
#include <charconv>
#include <cmath>

#include "platform/runtime/datetime.h"
#include "platform/runtime/conversions.h"
#include "postgres_internal.h"

namespace TabulonLib12::pg {

namespace {

// Type OIDs of the built-in types, fixed in every server.
enum : Oid {
    kBool = 16, kBytea = 17, kChar = 18, kName = 19, kInt8 = 20, kInt2 = 21, kInt4 = 23, kText = 25, kOid = 26,
    kJson = 114, kXml = 142, kFloat4 = 700, kFloat8 = 701, kMoney = 790, kBpchar = 1042, kVarchar = 1043,
    kDate = 1082, kTime = 1083, kTimestamp = 1114, kTimestampTz = 1184, kTimeTz = 1266, kNumeric = 1700,
    kUuid = 2950, kJsonb = 3802,
};

// Types below this OID come with the server; those above it (and the information_schema ones
// among the highest built-in numbers) may be domains or enums, which the catalogue tells.
constexpr Oid kFirstCatalogueOid = 10000;

constexpr int kLongestText = 255;
constexpr int kVarHeader = 4;  // the modifier of char(n) and varchar(n) is n + 4

ColumnType SizedText(int modifier) {
    if (modifier >= kVarHeader && modifier - kVarHeader > kLongestText) return {FieldType::Memo, ValueKind::Text};
    return {FieldType::Text, ValueKind::Text};
}

// "hh:nn:ss[.f...][(+|-)hh[:nn[:ss]]]" from `at` to the end.
bool ReadTime(std::string_view text, size_t at, DateParts& parts) {
    if (!ReadFixedDigits(text, at, 2, parts.hour) || at + 2 >= text.size() || text[at + 2] != ':' ||
        !ReadFixedDigits(text, at + 3, 2, parts.minute) || at + 5 >= text.size() || text[at + 5] != ':' ||
        !ReadFixedDigits(text, at + 6, 2, parts.second)) {
        return false;
    }
    size_t i = at + 8;
    if (i < text.size() && text[i] == '.') {
        ++i;
        size_t digits = i;
        while (i < text.size() && text[i] >= '0' && text[i] <= '9') ++i;
        if (i == digits) return false;
    }
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
        // The zone offset: the time is already the session's local time.
        ++i;
        size_t digits = i;
        while (i < text.size() && ((text[i] >= '0' && text[i] <= '9') || text[i] == ':')) ++i;
        if (i == digits) return false;
    }
    return i == text.size();
}

bool ReadWhole(std::string_view text, int64_t& value) {
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    return ec == std::errc() && end == text.data() + text.size();
}

// Whether a decimal text that does not fit a double lies above its range (else below it): the
// place of its first significant digit, moved by any exponent.
bool AboveRange(std::string_view text) {
    size_t i = 0;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
    int64_t magnitude = 0;  // digits before the point, counted from the first significant one
    bool significant = false;
    bool fraction = false;
    for (; i < text.size(); ++i) {
        char c = text[i];
        if (c == '.') {
            fraction = true;
        } else if (c >= '0' && c <= '9') {
            if (c != '0') significant = true;
            if (!fraction && significant) ++magnitude;
            if (fraction && !significant) --magnitude;
        } else {
            break;
        }
    }
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        int64_t exponent = 0;
        std::string_view rest = text.substr(i + 1);
        if (!rest.empty() && rest[0] == '+') rest.remove_prefix(1);
        auto [end, ec] = std::from_chars(rest.data(), rest.data() + rest.size(), exponent);
        if (ec == std::errc::result_out_of_range) exponent = rest[0] == '-' ? -1'000'000 : 1'000'000;
        magnitude += std::clamp<int64_t>(exponent, -1'000'000, 1'000'000);
    }
    return magnitude > 0;
}

// A real in the server's text; beyond the range of a double it is the infinity of its sign, or
// zero below it. NaN and the infinities are read as the server writes them.
double ReadReal(std::string_view text) {
    double value = 0.0;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec == std::errc::result_out_of_range) {
        if (!AboveRange(text)) return 0.0;
        return !text.empty() && text[0] == '-' ? -HUGE_VAL : HUGE_VAL;
    }
    return value;
}

// A numeric text whose value is whole and fits 64 bits: that value. Any other is read as a real.
bool ReadWholeNumeric(std::string_view text, int64_t& whole) {
    const size_t point = text.find('.');
    if (point != std::string_view::npos && text.find_first_not_of('0', point + 1) != std::string_view::npos) {
        return false;
    }
    return ReadWhole(text.substr(0, point), whole);
}

// The amount of a money text in the C locale ("-$1,234.50"): its digits, point and sign.
double ReadMoney(std::string_view text) {
    std::string plain;
    for (char c : text) {
        if ((c >= '0' && c <= '9') || c == '.' || c == '-') plain += c;
    }
    return ReadReal(plain);
}

int HexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// bytea text: hex "\x0a1b..." (what the session asks for) or the older escape form.
template <class Out>
void ReadBytes(std::string_view text, Out& out) {
    if (text.size() >= 2 && text[0] == '\\' && text[1] == 'x') {
        for (size_t i = 2; i + 1 < text.size(); i += 2) {
            int high = HexValue(text[i]);
            int low = HexValue(text[i + 1]);
            if (high < 0 || low < 0) break;
            out.push_back(static_cast<typename Out::value_type>(high * 16 + low));
        }
        return;
    }
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size() && text[i + 1] == '\\') {
            out.push_back(static_cast<typename Out::value_type>('\\'));
            ++i;
        } else if (text[i] == '\\' && i + 3 < text.size() && text[i + 1] >= '0' && text[i + 1] <= '3') {
            int value = ((text[i + 1] - '0') << 6) | ((text[i + 2] - '0') << 3) | (text[i + 3] - '0');
            out.push_back(static_cast<typename Out::value_type>(value & 0xFF));
            i += 3;
        } else {
            out.push_back(static_cast<typename Out::value_type>(text[i]));
        }
    }
}

void AppendGuid(std::string_view text, std::string& out) {
    out += '{';
    for (char c : text) out += (c >= 'a' && c <= 'f') ? static_cast<char>(c - 'a' + 'A') : c;
    out += '}';
}

// The text of a real as the server wrote it: made from the server's digits, the number read
// only if it is asked for (false); otherwise through the number, which is given (true).
bool AppendRealText(std::string_view text, std::string& out, double& number) {
    const SystemSettings& settings = CurrentSettings();
    if (AppendDecimalAsNumberText(text, settings, out)) return false;
    number = ReadReal(text);
    AppendNumberText(number, settings, out);
    return true;
}

void AppendWhole(int64_t value, std::string& out) {
    char buffer[24];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    out.append(buffer, result.ptr);
}

}  // namespace

ColumnType BuiltinType(Oid type, int modifier) {
    switch (type) {
        case kBool: return {FieldType::Boolean, ValueKind::Bool};
        case kInt2: return {FieldType::Integer, ValueKind::Integer};
        case kInt4:
        case kInt8:
        case kOid: return {FieldType::Long, ValueKind::Integer};
        case kNumeric: return {FieldType::Currency, ValueKind::Numeric};
        case kMoney: return {FieldType::Currency, ValueKind::Money};
        case kFloat4: return {FieldType::Single, ValueKind::Float};
        case kFloat8: return {FieldType::Double, ValueKind::Float};
        case kDate: return {FieldType::Date, ValueKind::Date};
        case kTimestamp:
        case kTimestampTz: return {FieldType::Date, ValueKind::Timestamp};
        case kTime:
        case kTimeTz: return {FieldType::Date, ValueKind::Time};
        case kText:
        case kName:
        case kChar: return {FieldType::Text, ValueKind::Text};
        case kVarchar:
        case kBpchar: return SizedText(modifier);
        case kBytea: return {FieldType::LongBinary, ValueKind::Bytes};
        case kUuid: return {FieldType::Guid, ValueKind::Uuid};
        case kJson:
        case kJsonb:
        case kXml: return {FieldType::Memo, ValueKind::Text};
        default:
            if (type < kFirstCatalogueOid) return {FieldType::Memo, ValueKind::Text};
            return {};
    }
}

ColumnType CatalogueType(char typtype, std::string_view name) {
    if (typtype == 'e' || name == "citext") return {FieldType::Text, ValueKind::Text};
    return {FieldType::Memo, ValueKind::Text};
}

bool ReadDateParts(ValueKind kind, std::string_view text, DateParts& parts) {
    if (kind == ValueKind::Time) return ReadTime(text, 0, parts);
    if (text.size() < 10 || text[4] != '-' || text[7] != '-' || !ReadFixedDigits(text, 0, 4, parts.year) ||
        !ReadFixedDigits(text, 5, 2, parts.month) || !ReadFixedDigits(text, 8, 2, parts.day)) {
        return false;
    }
    if (kind == ValueKind::Date) return text.size() == 10;
    return text.size() >= 11 && text[10] == ' ' && ReadTime(text, 11, parts);
}

bool ReadDateTime(ValueKind kind, std::string_view text, DateTime& out) {
    DateParts parts;
    if (!ReadDateParts(kind, text, parts)) return false;
    auto date = MakeDate(parts);
    if (!date) return false;
    out = *date;
    return true;
}

Value DecodeValue(ValueKind kind, std::string_view text) {
    switch (kind) {
        case ValueKind::Bool:
            return Value(!text.empty() && text[0] == 't');
        case ValueKind::Integer: {
            int64_t value = 0;
            if (ReadWhole(text, value)) return Value(value);
            return Value(std::string(text));
        }
        case ValueKind::Numeric: {
            int64_t whole = 0;
            if (ReadWholeNumeric(text, whole)) return Value(whole);
            return Value(ReadReal(text));
        }
        case ValueKind::Money:
            return Value(ReadMoney(text));
        case ValueKind::Float:
            return Value(ReadReal(text));
        case ValueKind::Date:
        case ValueKind::Timestamp:
        case ValueKind::Time: {
            DateTime date;
            if (ReadDateTime(kind, text, date)) return Value(date);
            return Value(std::string(text));
        }
        case ValueKind::Bytes: {
            Blob bytes;
            ReadBytes(text, bytes);
            return Value(std::move(bytes));
        }
        case ValueKind::Uuid: {
            std::string guid;
            AppendGuid(text, guid);
            return Value(std::move(guid));
        }
        case ValueKind::Text:
            break;
    }
    return Value(std::string(text));
}

bool AppendValueText(ValueKind kind, std::string_view text, std::string& out, double& number) {
    switch (kind) {
        case ValueKind::Bool:
            out += !text.empty() && text[0] == 't' ? "True" : "False";
            return false;
        case ValueKind::Integer:
            // The server writes whole numbers as plain digits, as the general text does.
            out += text;
            return false;
        case ValueKind::Numeric: {
            int64_t whole = 0;
            if (ReadWholeNumeric(text, whole)) {
                AppendWhole(whole, out);
                number = static_cast<double>(whole);
                return true;
            }
            return AppendRealText(text, out, number);
        }
        case ValueKind::Money:
            number = ReadMoney(text);
            AppendNumberText(number, CurrentSettings(), out);
            return true;
        case ValueKind::Float:
            return AppendRealText(text, out, number);
        case ValueKind::Date:
        case ValueKind::Timestamp:
        case ValueKind::Time: {
            DateParts parts;
            if (ReadDateParts(kind, text, parts) && MakeDate(parts)) {
                AppendDatePartsText(parts, CurrentSettings(), out);
            } else {
                out += text;
            }
            return false;
        }
        case ValueKind::Bytes:
            ReadBytes(text, out);
            return false;
        case ValueKind::Uuid:
            AppendGuid(text, out);
            return false;
        case ValueKind::Text:
            out += text;
            return false;
    }
    return false;
}

double DecodeNumber(ValueKind kind, std::string_view text) {
    switch (kind) {
        case ValueKind::Bool:
            return !text.empty() && text[0] == 't' ? -1.0 : 0.0;
        case ValueKind::Integer: {
            int64_t value = 0;
            if (ReadWhole(text, value)) return static_cast<double>(value);
            return 0.0;
        }
        case ValueKind::Numeric: {
            int64_t whole = 0;
            return ReadWholeNumeric(text, whole) ? static_cast<double>(whole) : ReadReal(text);
        }
        case ValueKind::Money:
            return ReadMoney(text);
        case ValueKind::Float:
            return ReadReal(text);
        case ValueKind::Date:
        case ValueKind::Timestamp:
        case ValueKind::Time: {
            DateTime date;
            if (ReadDateTime(kind, text, date)) return 0.0;  // a date is no number for the sums
            return ParseNumber(text, CurrentSettings()).value_or(0.0);
        }
        case ValueKind::Bytes:
        case ValueKind::Uuid:
            return 0.0;
        case ValueKind::Text:
            break;
    }
    return ParseNumber(text, CurrentSettings()).value_or(0.0);
}

}  // namespace TabulonLib12::pg
