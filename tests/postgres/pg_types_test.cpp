// The type codes of PostgreSQL types, the values they give, and their texts under the system's
// settings (the same texts as the SQLite engine gives for the same values).
#include <cmath>

#include "pg_fixture.h"
#include "platform/runtime/settings.h"

namespace TabulonLib12::testing {
namespace {

class PgTypes : public PgTest {
protected:
    void SetUp() override {
        PgTest::SetUp();
        if (HasFatalFailure()) return;
        Exec("CREATE TYPE mood AS ENUM ('felice', 'triste');"
             "CREATE DOMAIN amount AS numeric(10, 2); CREATE DOMAIN amount_again AS amount;"
             "CREATE DOMAIN long_text AS varchar(300); CREATE DOMAIN short_text AS varchar(20);"
             "CREATE TABLE all_types (k integer, b boolean, i2 smallint, i4 integer, i8 bigint, o oid,"
             " n numeric(14, 4), m money, f4 real, f8 double precision, d date, ts timestamp, tz timestamptz,"
             " t time, ttz timetz, tx text, nm name, ch \"char\", vc varchar(255), vcl varchar(256), vcn varchar,"
             " bp char(5), bpl char(300), by bytea, u uuid, j json, jb jsonb, x xml, iv interval, ip inet,"
             " arr integer[], e mood, da amount, dl long_text, ds short_text, dd amount_again);"
             "INSERT INTO all_types VALUES (1, true, -12, 123456, 9007199254740993, 4000000000, 1234.5000, 1234.5,"
             " 0.1, -0.125, '2024-03-05', '2023-12-31 23:59:58.75', '2024-02-29 13:45:07+00', '08:30:00',"
             " '08:30:00+02', 'Città', 'nome', 'c', 'breve', 'lunga', 'senza', 'ab', 'x', '\\x414243',"
             " '00112233-4455-6677-8899-aabbccddeeff', '{\"a\": 1}', '{\"a\": 1}', '<a>1</a>', '1 day 02:00:00',"
             " '10.0.0.1', '{1,2,3}', 'felice', 12.5, 'dominio', 'corto', 7);"
             "INSERT INTO all_types (k, b, n, m, f8, d, ts, tx, by) VALUES (2, false, 12.00, -1234567.5,"
             " 1e20, 'infinity', '0044-03-15 12:00:00 BC', '', '\\x');"
             "INSERT INTO all_types (k) VALUES (3)");
        db_ = Open();
        rs_ = db_->OpenRecordset("SELECT * FROM all_types ORDER BY k");
    }
    void TearDown() override {
        rs_.reset();
        db_.reset();
        PgTest::TearDown();
    }

    int Index(const char* field) {
        int index = rs_->FieldIndex(field);
        EXPECT_GE(index, 0) << field;
        return index;
    }
    Value At(const char* field) { return rs_->FieldValue(Index(field)); }
    std::string TextAt(const char* field) {
        std::string text;
        rs_->AppendFieldText(Index(field), text);
        return text;
    }

    std::shared_ptr<Database> db_;
    std::unique_ptr<Recordset> rs_;
};

TEST_F(PgTypes, TypeCodesFollowTheDocumentedMap) {
    const std::vector<std::pair<const char*, int16_t>> expected{
        {"b", FieldType::Boolean},  {"i2", FieldType::Integer},  {"i4", FieldType::Long},
        {"i8", FieldType::Long},    {"o", FieldType::Long},      {"n", FieldType::Currency},
        {"m", FieldType::Currency}, {"f4", FieldType::Single},   {"f8", FieldType::Double},
        {"d", FieldType::Date},     {"ts", FieldType::Date},     {"tz", FieldType::Date},
        {"t", FieldType::Date},     {"ttz", FieldType::Date},    {"tx", FieldType::Text},
        {"nm", FieldType::Text},    {"ch", FieldType::Text},     {"vc", FieldType::Text},
        {"vcl", FieldType::Memo},   {"vcn", FieldType::Text},    {"bp", FieldType::Text},
        {"bpl", FieldType::Memo},   {"by", FieldType::LongBinary}, {"u", FieldType::Guid},
        {"j", FieldType::Memo},     {"jb", FieldType::Memo},     {"x", FieldType::Memo},
        {"iv", FieldType::Memo},    {"ip", FieldType::Memo},     {"arr", FieldType::Memo},
        {"e", FieldType::Text},     {"da", FieldType::Currency}, {"dl", FieldType::Memo},
        {"ds", FieldType::Text},    {"dd", FieldType::Currency},
    };
    for (const auto& [field, code] : expected) EXPECT_EQ(rs_->FieldType(Index(field)), code) << field;
}

TEST_F(PgTypes, TheCodeOfAColumnStaysOnRecordsOfNull) {
    while (!rs_->IsEOF()) {
        EXPECT_EQ(rs_->FieldType(Index("f8")), FieldType::Double);
        EXPECT_EQ(rs_->FieldType(Index("d")), FieldType::Date);
        rs_->MoveNext();
    }
    EXPECT_EQ(rs_->FieldType(Index("u")), FieldType::Guid);  // also at EOF
}

TEST_F(PgTypes, ExpressionsTakeTheCodeOfTheirType) {
    auto rs = db_->OpenRecordset("SELECT 1 AS a, 1.5 AS b, 'x' AS c, now() AS d, NULL AS e, 2::bigint * 3 AS f,"
                                 " 1.5::float8 AS g, true AS h");
    const std::vector<int16_t> codes{FieldType::Long, FieldType::Currency, FieldType::Text, FieldType::Date,
                                     FieldType::Text, FieldType::Long,     FieldType::Double, FieldType::Boolean};
    for (int i = 0; i < rs->FieldCount(); ++i) EXPECT_EQ(rs->FieldType(i), codes[static_cast<size_t>(i)]) << i;
}

TEST_F(PgTypes, BooleansAreTruthValues) {
    EXPECT_EQ(At("b"), Value(true));
    EXPECT_EQ(TextAt("b"), "True");
    rs_->MoveNext();
    EXPECT_EQ(At("b"), Value(false));
    EXPECT_EQ(TextAt("b"), "False");
}

TEST_F(PgTypes, WholeNumbersKeepEveryDigit) {
    EXPECT_EQ(At("i2"), Value(int64_t{-12}));
    EXPECT_EQ(At("i4"), Value(int64_t{123456}));
    EXPECT_EQ(At("i8"), Value(int64_t{9007199254740993}));
    EXPECT_EQ(TextAt("i8"), "9007199254740993");
    EXPECT_EQ(At("o"), Value(int64_t{4000000000}));
    EXPECT_EQ(TextAt("o"), "4000000000");
}

TEST_F(PgTypes, NumbersUnderItalianSettings) {
    ScopedSettings italian(SystemSettings::Italian());
    EXPECT_EQ(At("n"), Value(1234.5));
    EXPECT_EQ(TextAt("n"), "1234,5");
    EXPECT_EQ(At("m"), Value(1234.5));
    EXPECT_EQ(TextAt("m"), "1234,5");
    EXPECT_EQ(At("f4"), Value(0.1));
    EXPECT_EQ(TextAt("f4"), "0,1");
    EXPECT_EQ(TextAt("f8"), "-0,125");
    EXPECT_EQ(TextAt("da"), "12,5");
    EXPECT_EQ(TextAt("dd"), "7");
    rs_->MoveNext();
    // A whole numeric is a whole number, as in a NUMERIC column of SQLite.
    EXPECT_EQ(At("n"), Value(int64_t{12}));
    EXPECT_EQ(TextAt("n"), "12");
    EXPECT_EQ(At("m"), Value(-1234567.5));
    EXPECT_EQ(TextAt("m"), "-1234567,5");
    EXPECT_EQ(TextAt("f8"), "1E+20");
}

TEST_F(PgTypes, NumbersUnderUsSettings) {
    ScopedSettings us(SystemSettings::UsEnglish());
    EXPECT_EQ(TextAt("n"), "1234.5");
    EXPECT_EQ(TextAt("m"), "1234.5");
    EXPECT_EQ(TextAt("f8"), "-0.125");
    EXPECT_EQ(TextAt("f4"), "0.1");
}

TEST_F(PgTypes, SpecialRealsAndNumericsOutsideTheRangeOfADouble) {
    auto rs = db_->OpenRecordset(
        "SELECT 'NaN'::float8 AS a, 'Infinity'::float8 AS b, '-Infinity'::float8 AS c, 1e400::numeric AS d,"
        " -1e400::numeric AS e, 1e-400::numeric AS f, 123456789012345678901234567890::numeric AS g,"
        " 'NaN'::numeric AS h");
    EXPECT_TRUE(std::isnan(std::get<double>(rs->FieldValue(0).storage())));
    EXPECT_EQ(rs->FieldValue(1), Value(HUGE_VAL));
    EXPECT_EQ(rs->FieldValue(2), Value(-HUGE_VAL));
    EXPECT_EQ(rs->FieldValue(3), Value(HUGE_VAL));
    EXPECT_EQ(rs->FieldValue(4), Value(-HUGE_VAL));
    EXPECT_EQ(rs->FieldValue(5), Value(0.0));
    EXPECT_EQ(rs->FieldValue(6), Value(1.2345678901234568e29));
    std::string text;
    rs->AppendFieldText(1, text);
    EXPECT_EQ(text, "Infinity");
    text.clear();
    rs->AppendFieldText(7, text);
    EXPECT_EQ(text, "NaN");
}

TEST_F(PgTypes, DatesAndTimesBecomeDatesInTheSystemShortForm) {
    ScopedSettings italian(SystemSettings::Italian());
    EXPECT_EQ(At("d"), Value(*MakeDate({2024, 3, 5})));
    EXPECT_EQ(TextAt("d"), "05/03/2024");
    // Fractions of a second are dropped, as the SQLite engine drops them.
    EXPECT_EQ(At("ts"), Value(*MakeDate({2023, 12, 31, 23, 59, 58})));
    EXPECT_EQ(TextAt("ts"), "31/12/2023 23:59:58");
    EXPECT_EQ(At("t"), Value(*MakeDate({1899, 12, 30, 8, 30, 0})));
    EXPECT_EQ(TextAt("t"), "08:30:00");
    EXPECT_EQ(TextAt("ttz"), "08:30:00");
    {
        ScopedSettings us(SystemSettings::UsEnglish());
        EXPECT_EQ(TextAt("d"), "03/05/2024");
        EXPECT_EQ(TextAt("ts"), "12/31/2023 23:59:58");
    }
    EXPECT_EQ(TextAt("d"), "05/03/2024");
}

TEST_F(PgTypes, ATimestampWithZoneShowsTheTimeOfTheSessionsZone) {
    auto db = Open(KeyValueForm(ServerUri(), "options='-c search_path=" + schema_->name() +
                                                 " -c TimeZone=Europe/Rome'"));
    auto rs = db->OpenRecordset("SELECT tz FROM all_types ORDER BY k");
    ScopedSettings italian(SystemSettings::Italian());
    EXPECT_EQ(rs->FieldValue(0), Value(*MakeDate({2024, 2, 29, 14, 45, 7})));
}

TEST_F(PgTypes, DatesBeyondTheCalendarOfTheControlStayText) {
    rs_->MoveNext();
    EXPECT_EQ(At("d"), Value("infinity"));
    EXPECT_EQ(TextAt("d"), "infinity");
    EXPECT_EQ(At("ts"), Value("0044-03-15 12:00:00 BC"));
    EXPECT_EQ(rs_->FieldNumber(Index("d")), 0.0);
}

TEST_F(PgTypes, TextStaysAsStored) {
    EXPECT_EQ(At("tx"), Value("Città"));
    EXPECT_EQ(TextAt("nm"), "nome");
    EXPECT_EQ(TextAt("ch"), "c");
    EXPECT_EQ(TextAt("bp"), "ab   ");  // char(n) keeps its padding
    EXPECT_EQ(TextAt("e"), "felice");
    EXPECT_EQ(TextAt("ds"), "corto");
    EXPECT_EQ(TextAt("j"), "{\"a\": 1}");
    EXPECT_EQ(TextAt("x"), "<a>1</a>");
    EXPECT_EQ(TextAt("iv"), "1 day 02:00:00");
    EXPECT_EQ(TextAt("arr"), "{1,2,3}");
    rs_->MoveNext();
    EXPECT_EQ(At("tx"), Value(""));
    EXPECT_FALSE(rs_->FieldIsNull(Index("tx")));
}

TEST_F(PgTypes, ByteaGivesItsBytes) {
    EXPECT_EQ(At("by"), Value(Blob{'A', 'B', 'C'}));
    EXPECT_EQ(TextAt("by"), "ABC");
    rs_->MoveNext();
    EXPECT_EQ(At("by"), Value(Blob{}));
    EXPECT_EQ(TextAt("by"), "");
}

TEST_F(PgTypes, UuidsShowAsTheSqliteEngineShowsAGuid) {
    EXPECT_EQ(At("u"), Value("{00112233-4455-6677-8899-AABBCCDDEEFF}"));
    EXPECT_EQ(TextAt("u"), "{00112233-4455-6677-8899-AABBCCDDEEFF}");
}

TEST_F(PgTypes, NullGivesNullValueAndEmptyText) {
    rs_->MoveNext();
    rs_->MoveNext();
    for (const char* field : {"b", "i8", "n", "m", "f8", "d", "ts", "tx", "by", "u", "e", "da"}) {
        EXPECT_TRUE(At(field).IsNull()) << field;
        EXPECT_TRUE(rs_->FieldIsNull(Index(field))) << field;
        EXPECT_EQ(TextAt(field), "") << field;
        EXPECT_EQ(rs_->FieldNumber(Index(field)), 0.0) << field;
    }
    EXPECT_FALSE(rs_->FieldIsNull(Index("k")));
}

TEST_F(PgTypes, FieldTextAndNumberAreThoseOfTheFieldValueUnderEverySetting) {
    for (const SystemSettings& settings :
         {SystemSettings::Italian(), SystemSettings::UsEnglish(), SystemSettings::C()}) {
        ScopedSettings scoped(settings);
        rs_->MoveFirst();
        while (!rs_->IsEOF()) {
            for (int i = 0; i < rs_->FieldCount(); ++i) {
                std::string text;
                rs_->AppendFieldText(i, text);
                const Value value = rs_->FieldValue(i);
                EXPECT_EQ(text, value.ToText(settings)) << rs_->FieldName(i);
                EXPECT_EQ(rs_->FieldIsNull(i), value.IsNull()) << rs_->FieldName(i);
                const double number = rs_->FieldNumber(i);
                const double expected = NumericValue(value, settings);
                if (std::isnan(expected)) {
                    EXPECT_TRUE(std::isnan(number)) << rs_->FieldName(i);
                } else {
                    EXPECT_EQ(number, expected) << rs_->FieldName(i);
                }
            }
            rs_->MoveNext();
        }
    }
}

TEST_F(PgTypes, FieldNumberGivesTheNumberForTheSums) {
    auto number = [this](const char* field) { return rs_->FieldNumber(Index(field)); };
    EXPECT_EQ(number("n"), 1234.5);
    EXPECT_EQ(number("m"), 1234.5);
    EXPECT_EQ(number("f8"), -0.125);
    EXPECT_EQ(number("b"), -1.0);
    EXPECT_EQ(number("i8"), 9007199254740992.0);
    EXPECT_EQ(number("d"), 0.0);
    EXPECT_EQ(number("tx"), 0.0);
    EXPECT_EQ(number("by"), 0.0);
    EXPECT_EQ(number("u"), 0.0);
    rs_->MoveNext();
    EXPECT_EQ(number("n"), 12.0);
    EXPECT_EQ(number("b"), 0.0);
}

TEST_F(PgTypes, FieldNumberReadsNumericTextUnderTheSettings) {
    auto rs = db_->OpenRecordset("SELECT t FROM (VALUES (1, '1.234,5'), (2, '12,5'), (3, 'abc'), (4, '')) v(k, t)"
                                 " ORDER BY k");
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

TEST_F(PgTypes, RealsAndDecimalsShowTheGeneralTextOfTheirValue) {
    // Texts made from the server's digits are those of the double read from them: across
    // magnitudes, with sixteen and seventeen digits, and under both separators.
    const char* query =
        "SELECT (random_value * power(10, e))::float8 AS r, (random_value * power(10, e))::float4 AS s,"
        " round((random_value * power(10, e))::numeric, 6) AS n"
        " FROM (SELECT (i * 0.6180339887498949) - floor(i * 0.6180339887498949) + i % 3 AS random_value,"
        " (i % 41) - 20 AS e FROM generate_series(1, 3000) i) AS t";
    for (const SystemSettings& settings : {SystemSettings::C(), SystemSettings::Italian()}) {
        ScopedSettings scoped(settings);
        auto rs = db_->OpenRecordset(query);
        int checked = 0;
        while (!rs->IsEOF()) {
            for (int field = 0; field < 3; ++field) {
                if (rs->FieldIsNull(field)) continue;
                std::string text;
                rs->AppendFieldText(field, text);
                ASSERT_EQ(text, rs->FieldValue(field).ToText(settings)) << "field " << field << " record " << checked;
            }
            ++checked;
            rs->MoveNext();
        }
        EXPECT_EQ(checked, 3000);
    }
}

}  // namespace
}  // namespace TabulonLib12::testing
