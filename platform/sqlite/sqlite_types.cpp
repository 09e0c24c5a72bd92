// The map from SQLite declared types and storage classes to the control's type codes, and the
// readers of the value forms that get a type of their own (ISO dates, identifiers).
#include <cctype>
#include <string>
#include <string_view>

#include "sqlite_internal.h"
#include "platform/runtime/datetime.h"

namespace TabulonLib12::detail {

namespace {

struct TypeName {
    std::string_view name;
    int16_t code;
};

// Names that are Text up to a length of 255 and Memo above it.
constexpr std::string_view kSizedTextNames[] = {
    "CHAR", "VARCHAR", "NCHAR", "NVARCHAR", "CHARACTER", "VARYING CHARACTER", "CHARACTER VARYING",
    "NATIVE CHARACTER", "STRING", "TEXT",
};

constexpr TypeName kTypeNames[] = {
    {"BOOLEAN", FieldType::Boolean}, {"BOOL", FieldType::Boolean}, {"BIT", FieldType::Boolean},
    {"TINYINT", FieldType::Byte}, {"BYTE", FieldType::Byte},
    {"SMALLINT", FieldType::Integer}, {"SHORT", FieldType::Integer}, {"INT2", FieldType::Integer},
    {"INTEGER", FieldType::Long}, {"INT", FieldType::Long}, {"BIGINT", FieldType::Long},
    {"BIG INT", FieldType::Long}, {"LONG", FieldType::Long}, {"COUNTER", FieldType::Long},
    {"MEDIUMINT", FieldType::Long}, {"INT4", FieldType::Long}, {"INT8", FieldType::Long},
    {"MONEY", FieldType::Currency}, {"SMALLMONEY", FieldType::Currency}, {"CURRENCY", FieldType::Currency},
    {"DECIMAL", FieldType::Currency}, {"NUMERIC", FieldType::Currency},
    {"REAL", FieldType::Single}, {"FLOAT4", FieldType::Single}, {"SINGLE", FieldType::Single},
    {"DOUBLE", FieldType::Double}, {"DOUBLE PRECISION", FieldType::Double}, {"FLOAT", FieldType::Double},
    {"FLOAT8", FieldType::Double},
    {"DATE", FieldType::Date}, {"DATETIME", FieldType::Date}, {"TIMESTAMP", FieldType::Date},
    {"TIME", FieldType::Date},
    {"CLOB", FieldType::Memo}, {"MEMO", FieldType::Memo}, {"LONGTEXT", FieldType::Memo},
    {"MEDIUMTEXT", FieldType::Memo}, {"NTEXT", FieldType::Memo}, {"LONGCHAR", FieldType::Memo},
    {"BLOB", FieldType::LongBinary}, {"BINARY", FieldType::LongBinary}, {"VARBINARY", FieldType::LongBinary},
    {"LONGBINARY", FieldType::LongBinary}, {"IMAGE", FieldType::LongBinary},
    {"GUID", FieldType::Guid}, {"UUID", FieldType::Guid}, {"UNIQUEIDENTIFIER", FieldType::Guid},
};

constexpr int kLongestText = 255;

// Upper-cased words of the name before any "(", single blanks between them, without the
// SIGNED/UNSIGNED words that some schemas add.
std::string NormalisedTypeName(std::string_view declared) {
    std::string name;
    std::string word;
    auto flush = [&] {
        if (!word.empty() && word != "UNSIGNED" && word != "SIGNED") {
            if (!name.empty()) name += ' ';
            name += word;
        }
        word.clear();
    };
    for (char c : declared) {
        if (c == '(') break;
        if (std::isspace(static_cast<unsigned char>(c))) {
            flush();
        } else {
            word += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        }
    }
    flush();
    return name;
}

// The first number inside the parentheses, or -1.
long DeclaredLength(std::string_view declared) {
    auto open = declared.find('(');
    if (open == std::string_view::npos) return -1;
    long length = -1;
    for (size_t i = open + 1; i < declared.size(); ++i) {
        char c = declared[i];
        if (c >= '0' && c <= '9') {
            if (length < 0) length = 0;
            if (length < 1'000'000'000) length = length * 10 + (c - '0');
        } else if (length >= 0 || c == ')' || c == ',') {
            break;
        }
    }
    return length;
}

// "hh:nn[:ss[.fff]]" from `at` to the end of the text.
bool ReadIsoTime(std::string_view text, size_t at, DateParts& parts) {
    if (!ReadFixedDigits(text, at, 2, parts.hour) || at + 2 >= text.size() || text[at + 2] != ':' ||
        !ReadFixedDigits(text, at + 3, 2, parts.minute)) {
        return false;
    }
    size_t end = at + 5;
    if (end < text.size()) {
        if (text[end] != ':' || !ReadFixedDigits(text, end + 1, 2, parts.second)) return false;
        end += 3;
        if (end < text.size()) {
            if (text[end] != '.' || end + 1 == text.size()) return false;
            for (size_t i = end + 1; i < text.size(); ++i) {
                if (text[i] < '0' || text[i] > '9') return false;
            }
            end = text.size();
        }
    }
    return end == text.size() && parts.hour <= 23 && parts.minute <= 59 && parts.second <= 59;
}

}  // namespace

int16_t DeclaredTypeCode(const char* declared) {
    if (declared == nullptr) return 0;
    std::string_view text(declared);
    std::string name = NormalisedTypeName(text);
    if (name.empty()) return 0;
    for (std::string_view sized : kSizedTextNames) {
        if (name == sized) return DeclaredLength(text) > kLongestText ? FieldType::Memo : FieldType::Text;
    }
    for (const TypeName& entry : kTypeNames) {
        if (name == entry.name) return entry.code;
    }
    return 0;
}

int16_t StorageTypeCode(int storageClass) {
    switch (storageClass) {
        case SQLITE_INTEGER: return FieldType::Long;
        case SQLITE_FLOAT: return FieldType::Double;
        case SQLITE_BLOB: return FieldType::LongBinary;
        default: return FieldType::Text;  // TEXT, and NULL
    }
}

bool ReadIsoDate(std::string_view text, DateTime& out) {
    DateParts parts;
    if (text.size() >= 10 && text[4] == '-' && text[7] == '-') {
        if (!ReadFixedDigits(text, 0, 4, parts.year) || !ReadFixedDigits(text, 5, 2, parts.month) ||
            !ReadFixedDigits(text, 8, 2, parts.day)) {
            return false;
        }
        if (text.size() > 10) {
            if (text[10] != ' ' && text[10] != 'T') return false;
            if (!ReadIsoTime(text, 11, parts)) return false;
        }
    } else if (!ReadIsoTime(text, 0, parts)) {
        return false;
    }
    auto date = MakeDate(parts);
    if (!date) return false;
    out = *date;
    return true;
}

void AppendGuidText(const unsigned char* bytes, std::string& out) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    out += '{';
    for (int i = 0; i < 16; ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) out += '-';
        out += kHex[bytes[i] >> 4];
        out += kHex[bytes[i] & 0x0F];
    }
    out += '}';
}

}  // namespace TabulonLib12::detail
