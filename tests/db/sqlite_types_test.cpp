// Type codes from declared types and storage classes, values, and their text under the system's
// settings.
#include "platform/runtime/settings.h"
#include "sqlite_fixture.h"

namespace TabulonLib12::testing {
namespace {

struct DeclaredCase {
    const char* declared;
    int16_t code;
};

const DeclaredCase kDeclaredCases[] = {
    {"BOOLEAN", FieldType::Boolean},
    {"bool", FieldType::Boolean},
    {"Bit", FieldType::Boolean},
    {"TINYINT", FieldType::Byte},
    {"BYTE", FieldType::Byte},
    {"SMALLINT", FieldType::Integer},
    {"SHORT", FieldType::Integer},
    {"INT2", FieldType::Integer},
    {"INTEGER", FieldType::Long},
    {"int", FieldType::Long},
    {"BIGINT", FieldType::Long},
    {"UNSIGNED BIG INT", FieldType::Long},
    {"INT UNSIGNED", FieldType::Long},
    {"LONG", FieldType::Long},
    {"COUNTER", FieldType::Long},
    {"MEDIUMINT", FieldType::Long},
    {"INT8", FieldType::Long},
    {"INT4", FieldType::Long},
    {"BIG INT", FieldType::Long},
    {"MONEY", FieldType::Currency},
    {"CURRENCY", FieldType::Currency},
    {"SMALLMONEY", FieldType::Currency},
    {"DECIMAL(10,2)", FieldType::Currency},
    {"decimal ( 18 , 4 )", FieldType::Currency},
    {"NUMERIC", FieldType::Currency},
    {"REAL", FieldType::Single},
    {"FLOAT4", FieldType::Single},
    {"SINGLE", FieldType::Single},
    {"DOUBLE", FieldType::Double},
    {"DOUBLE PRECISION", FieldType::Double},
    {"double   precision", FieldType::Double},
    {"FLOAT", FieldType::Double},
    {"FLOAT8", FieldType::Double},
    {"DATE", FieldType::Date},
    {"DATETIME", FieldType::Date},
    {"TIMESTAMP", FieldType::Date},
    {"TIME", FieldType::Date},
    {"CHAR(10)", FieldType::Text},
    {"VARCHAR", FieldType::Text},
    {"VARCHAR(60)", FieldType::Text},
    {"varchar(255)", FieldType::Text},
    {"VARCHAR(256)", FieldType::Memo},
    {"NVARCHAR(40)", FieldType::Text},
    {"NCHAR(2)", FieldType::Text},
    {"NATIVE CHARACTER(70)", FieldType::Text},
    {"CHARACTER VARYING(30)", FieldType::Text},
    {"CHARACTER(20)", FieldType::Text},
    {"VARYING CHARACTER(20)", FieldType::Text},
    {"STRING", FieldType::Text},
    {"TEXT", FieldType::Text},
    {"TEXT(50)", FieldType::Text},
    {"TEXT(1000)", FieldType::Memo},
    {"CLOB", FieldType::Memo},
    {"MEMO", FieldType::Memo},
    {"LONGTEXT", FieldType::Memo},
    {"MEDIUMTEXT", FieldType::Memo},
    {"NTEXT", FieldType::Memo},
    {"LONGCHAR", FieldType::Memo},
    {"NVARCHAR(4000)", FieldType::Memo},
    {"BLOB", FieldType::LongBinary},
    {"BINARY(16)", FieldType::LongBinary},
    {"LONGBINARY", FieldType::LongBinary},
    {"VARBINARY(100)", FieldType::LongBinary},
    {"IMAGE", FieldType::LongBinary},
    {"GUID", FieldType::Guid},
    {"UUID", FieldType::Guid},
    {"UNIQUEIDENTIFIER", FieldType::Guid},
};

using SqliteTypes = SqliteFileTest;

TEST_F(SqliteTypes, DeclaredTypesGiveTheirTypeCodes) {
    std::string columns;
    for (size_t i = 0; i < std::size(kDeclaredCases); ++i) {
        if (i > 0) columns += ", ";
        columns += "c" + std::to_string(i) + " " + kDeclaredCases[i].declared;
    }
    std::string path = WriteTestDatabase("CREATE TABLE t (" + columns + "); INSERT INTO t DEFAULT VALUES;");
    auto db = Open(path);
    auto rs = db->OpenRecordset("SELECT * FROM t");
    ASSERT_EQ(rs->FieldCount(), static_cast<int>(std::size(kDeclaredCases)));
    for (size_t i = 0; i < std::size(kDeclaredCases); ++i) {
        EXPECT_EQ(rs->FieldType(static_cast<int>(i)), kDeclaredCases[i].code) << kDeclaredCases[i].declared;
    }
}

TEST_F(SqliteTypes, DeclaredTypeHoldsAtEofToo) {
    std::string path = WriteTestDatabase("CREATE TABLE t (d DATE, m MONEY);");
    auto db = Open(path);
    auto rs = db->OpenRecordset("SELECT d, m FROM t");
    ASSERT_TRUE(rs->IsEOF());
    EXPECT_EQ(rs->FieldType(0), FieldType::Date);
    EXPECT_EQ(rs->FieldType(1), FieldType::Currency);
}

TEST_F(SqliteTypes, ExpressionsTakeTheTypeOfTheirValue) {
    std::string path = WriteTestDatabase("CREATE TABLE t (x);");
    auto db = Open(path);
    auto rs = db->OpenRecordset("SELECT 1 + 1, 1.5 * 2, 'a' || 'b', x'00ff', NULL");
    EXPECT_EQ(rs->FieldType(0), FieldType::Long);
    EXPECT_EQ(rs->FieldType(1), FieldType::Double);
    EXPECT_EQ(rs->FieldType(2), FieldType::Text);
    EXPECT_EQ(rs->FieldType(3), FieldType::LongBinary);
    EXPECT_EQ(rs->FieldType(4), FieldType::Text);
}

TEST_F(SqliteTypes, ColumnsWithoutOrWithUnknownTypeTakeTheTypeOfTheCurrentValue) {
    std::string path = WriteTestDatabase(
        "CREATE TABLE t (k INTEGER, x, j JSONISH);"
        "INSERT INTO t VALUES (1, 7, 2.5), (2, 'seven', 'text'), (3, NULL, x'01');");
    auto db = Open(path);
    auto rs = db->OpenRecordset("SELECT x, j FROM t ORDER BY k");
    EXPECT_EQ(rs->FieldType(0), FieldType::Long);
    EXPECT_EQ(rs->FieldType(1), FieldType::Double);
    rs->MoveNext();
    EXPECT_EQ(rs->FieldType(0), FieldType::Text);
    EXPECT_EQ(rs->FieldType(1), FieldType::Text);
    rs->MoveNext();
    EXPECT_EQ(rs->FieldType(0), FieldType::Text);
    EXPECT_EQ(rs->FieldType(1), FieldType::LongBinary);
    rs->MoveNext();
    EXPECT_EQ(rs->FieldType(0), FieldType::Text);  // no current record: as for NULL
}

class SqliteValues : public SqliteFileTest {
protected:
    void SetUp() override {
        path_ = WriteTestDatabase(
            "CREATE TABLE v (id INTEGER PRIMARY KEY, flag BOOLEAN, amount DECIMAL(10,2), ratio DOUBLE,"
            " born DATE, seen DATETIME, at TIME, name VARCHAR(40), data BLOB, tag GUID, big BIGINT);"
            "INSERT INTO v VALUES (1, 1, 1234.5, -0.125, '2024-03-05', '2023-12-31 23:59:58', '08:30',"
            " 'Città', x'414243', x'00112233445566778899AABBCCDDEEFF', 9007199254740993);"
            "INSERT INTO v VALUES (2, 0, 12, 1e20, '2024-02-30', 'yesterday', '25:00', '', x'', 'not a guid',"
            " -5);"
            "INSERT INTO v (id) VALUES (3);");
        db_ = Open(path_);
        rs_ = db_->OpenRecordset("SELECT * FROM v ORDER BY id");
    }

    Value At(const char* field) { return rs_->FieldValue(rs_->FieldIndex(field)); }

    std::string TextAt(const char* field) {
        std::string out;
        rs_->AppendFieldText(rs_->FieldIndex(field), out);
        return out;
    }

    // AppendFieldText and FieldNumber give, for every field, what ToText and NumericValue of
    // FieldValue give.
    void ExpectTextAndNumberMatchValues() {
        for (int i = 0; i < rs_->FieldCount(); ++i) {
            std::string out;
            rs_->AppendFieldText(i, out);
            Value value = rs_->FieldValue(i);
            EXPECT_EQ(out, value.ToText(CurrentSettings())) << rs_->FieldName(i);
            EXPECT_EQ(rs_->FieldNumber(i), NumericValue(value, CurrentSettings())) << rs_->FieldName(i);
        }
    }

    std::string path_;
    std::shared_ptr<Database> db_;
    std::unique_ptr<Recordset> rs_;
};

TEST_F(SqliteValues, BooleanColumnsGiveTruthValues) {
    EXPECT_EQ(At("flag"), Value(true));
    EXPECT_EQ(TextAt("flag"), "True");
    rs_->MoveNext();
    EXPECT_EQ(At("flag"), Value(false));
    EXPECT_EQ(TextAt("flag"), "False");
}

TEST_F(SqliteValues, NumbersUnderItalianSettings) {
    ScopedSettings italian(SystemSettings::Italian());
    EXPECT_EQ(At("amount"), Value(1234.5));
    EXPECT_EQ(TextAt("amount"), "1234,5");
    EXPECT_EQ(TextAt("ratio"), "-0,125");
    EXPECT_EQ(TextAt("id"), "1");
    rs_->MoveNext();
    // A whole amount is stored as an integer by the column's numeric affinity.
    EXPECT_EQ(At("amount"), Value(int64_t{12}));
    EXPECT_EQ(TextAt("amount"), "12");
    EXPECT_EQ(TextAt("ratio"), "1E+20");
    EXPECT_EQ(TextAt("big"), "-5");
}

TEST_F(SqliteValues, NumbersUnderUsSettings) {
    ScopedSettings us(SystemSettings::UsEnglish());
    EXPECT_EQ(TextAt("amount"), "1234.5");
    EXPECT_EQ(TextAt("ratio"), "-0.125");
}

TEST_F(SqliteValues, LargeIntegersKeepEveryDigit) {
    EXPECT_EQ(At("big"), Value(int64_t{9007199254740993}));
    EXPECT_EQ(TextAt("big"), "9007199254740993");
}

TEST_F(SqliteValues, IsoDatesBecomeDatesInTheSystemShortForm) {
    ScopedSettings italian(SystemSettings::Italian());
    EXPECT_EQ(At("born"), Value(*MakeDate({2024, 3, 5})));
    EXPECT_EQ(TextAt("born"), "05/03/2024");
    EXPECT_EQ(At("seen"), Value(*MakeDate({2023, 12, 31, 23, 59, 58})));
    EXPECT_EQ(TextAt("seen"), "31/12/2023 23:59:58");
    EXPECT_EQ(At("at"), Value(*MakeDate({1899, 12, 30, 8, 30, 0})));
    EXPECT_EQ(TextAt("at"), "08:30:00");
    {
        ScopedSettings us(SystemSettings::UsEnglish());
        EXPECT_EQ(TextAt("born"), "03/05/2024");
        EXPECT_EQ(TextAt("seen"), "12/31/2023 23:59:58");
    }
    EXPECT_EQ(TextAt("born"), "05/03/2024");
}

TEST_F(SqliteValues, TextInDateColumnsThatIsNoDateStaysText) {
    rs_->MoveNext();
    EXPECT_EQ(At("born"), Value("2024-02-30"));
    EXPECT_EQ(TextAt("born"), "2024-02-30");
    EXPECT_EQ(At("seen"), Value("yesterday"));
    EXPECT_EQ(At("at"), Value("25:00"));
}

TEST_F(SqliteValues, IsoDateForms) {
    std::string path = WriteTestDatabase(
        "CREATE TABLE d (k INTEGER, v DATETIME);"
        "INSERT INTO d VALUES (1, '2025-01-02T03:04:05'), (2, '2025-01-02 03:04:05.678'),"
        " (3, '2025-01-02 03:04'), (4, '2025-1-2'), (5, '2025-01-02Z'), (6, '12:00:00'), (7, 45000);",
        "dates.db");
    auto db = Open(path);
    auto rs = db->OpenRecordset("SELECT v FROM d ORDER BY k");
    std::vector<Value> values;
    while (!rs->IsEOF()) {
        values.push_back(rs->FieldValue(0));
        rs->MoveNext();
    }
    ASSERT_EQ(values.size(), 7u);
    EXPECT_EQ(values[0], Value(*MakeDate({2025, 1, 2, 3, 4, 5})));
    EXPECT_EQ(values[1], Value(*MakeDate({2025, 1, 2, 3, 4, 5})));
    EXPECT_EQ(values[2], Value(*MakeDate({2025, 1, 2, 3, 4, 0})));
    EXPECT_EQ(values[3], Value("2025-1-2"));
    EXPECT_EQ(values[4], Value("2025-01-02Z"));
    EXPECT_EQ(values[5], Value(*MakeDate({1899, 12, 30, 12, 0, 0})));
    EXPECT_EQ(values[6], Value(int64_t{45000}));  // numbers in a date column stay numbers
}

TEST_F(SqliteValues, TextStaysAsStored) {
    EXPECT_EQ(At("name"), Value("Città"));
    EXPECT_EQ(TextAt("name"), "Città");
    rs_->MoveNext();
    EXPECT_EQ(At("name"), Value(""));
    EXPECT_FALSE(rs_->FieldIsNull(rs_->FieldIndex("name")));
}

TEST_F(SqliteValues, BlobsGiveTheirBytes) {
    EXPECT_EQ(At("data"), Value(Blob{'A', 'B', 'C'}));
    EXPECT_EQ(TextAt("data"), "ABC");
    rs_->MoveNext();
    EXPECT_EQ(At("data"), Value(Blob{}));
    EXPECT_EQ(TextAt("data"), "");
}

TEST_F(SqliteValues, GuidColumnsShowSixteenBytesAsAnIdentifier) {
    EXPECT_EQ(At("tag"), Value("{00112233-4455-6677-8899-AABBCCDDEEFF}"));
    EXPECT_EQ(TextAt("tag"), "{00112233-4455-6677-8899-AABBCCDDEEFF}");
    rs_->MoveNext();
    EXPECT_EQ(At("tag"), Value("not a guid"));
}

TEST_F(SqliteValues, NullGivesNullValueAndEmptyText) {
    rs_->MoveNext();
    rs_->MoveNext();
    for (const char* field : {"flag", "amount", "ratio", "born", "name", "data", "tag", "big"}) {
        EXPECT_TRUE(At(field).IsNull()) << field;
        EXPECT_TRUE(rs_->FieldIsNull(rs_->FieldIndex(field))) << field;
        EXPECT_EQ(TextAt(field), "") << field;
    }
    EXPECT_FALSE(rs_->FieldIsNull(rs_->FieldIndex("id")));
}

TEST_F(SqliteValues, FieldTextAndNumberAreThoseOfTheFieldValueUnderEverySetting) {
    for (const SystemSettings& settings :
         {SystemSettings::Italian(), SystemSettings::UsEnglish(), SystemSettings::C()}) {
        ScopedSettings scoped(settings);
        rs_->MoveFirst();
        while (!rs_->IsEOF()) {
            ExpectTextAndNumberMatchValues();
            rs_->MoveNext();
        }
    }
}

TEST_F(SqliteValues, FieldNumberGivesTheNumberForTheSums) {
    auto number = [this](const char* field) { return rs_->FieldNumber(rs_->FieldIndex(field)); };
    EXPECT_EQ(number("amount"), 1234.5);
    EXPECT_EQ(number("ratio"), -0.125);
    EXPECT_EQ(number("flag"), -1.0);
    EXPECT_EQ(number("born"), 0.0);
    EXPECT_EQ(number("name"), 0.0);
    EXPECT_EQ(number("data"), 0.0);
    rs_->MoveNext();
    EXPECT_EQ(number("amount"), 12.0);
    EXPECT_EQ(number("flag"), 0.0);
    rs_->MoveNext();
    EXPECT_EQ(number("amount"), 0.0);  // NULL
}

TEST_F(SqliteValues, FieldNumberReadsNumericTextUnderTheSettings) {
    std::string path = WriteTestDatabase(
        "CREATE TABLE n (k INTEGER, t TEXT); INSERT INTO n VALUES (1, '1.234,5'), (2, '12,5'), (3, 'abc'), (4, '');",
        "numbers.db");
    auto db = Open(path);
    auto rs = db->OpenRecordset("SELECT t FROM n ORDER BY k");
    ScopedSettings italian(SystemSettings::Italian());
    EXPECT_EQ(rs->FieldNumber(0), 1234.5);
    rs->MoveNext();
    EXPECT_EQ(rs->FieldNumber(0), 12.5);
    rs->MoveNext();
    EXPECT_EQ(rs->FieldNumber(0), 0.0);
    rs->MoveNext();
    EXPECT_EQ(rs->FieldNumber(0), 0.0);
    rs->MoveNext();
    EXPECT_THROW(rs->FieldNumber(0), Error);
}

}  // namespace
}  // namespace TabulonLib12::testing
