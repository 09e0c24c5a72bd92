// ValutaCondizione and FormattaValore: the condition test by type class and operator, and the
// display text of each format key.
#include <gtest/gtest.h>

#include "grid/conditions.h"
#include "grid_fixture.h"
#include "platform/runtime/settings.h"

namespace TabulonLib12::testing {
namespace {

class ConditionTest : public GridTest {
protected:
    bool Holds(const std::string& op, const std::string& right, const std::string& cell, const std::string& type) {
        control->setOperatoreCondizionale(0, op);
        control->setCondizione(0, right);
        return ValutaCondizione(control->OperatoreCondizionale(0), control->Condizione(0), cell, type);
    }
};

TEST_F(ConditionTest, TextWithLessThanIsFalseForAnyValueWithoutError) {
    for (const char* v : {"a", "z", "", "123"}) EXPECT_FALSE(Holds("<", "m", v, "10")) << v;
}

TEST_F(ConditionTest, MemoIsFalseForEveryOperatorEqualsToo) {
    for (const char* op : {"=", "<>", "<", ">", "<=", ">="}) EXPECT_FALSE(Holds(op, "x", "x", "12")) << op;
}

TEST_F(ConditionTest, LongGreaterOrEqualHoldsForSevenAndSeven) { EXPECT_TRUE(Holds(">=", "7", "7", "4")); }

TEST_F(ConditionTest, AnEmptyCellInAnIntegerColumnFailsToConvert) {
    try {
        Holds("=", "1", "", "4");
        FAIL() << "no conversion error";
    } catch (const Error& e) {
        EXPECT_EQ(e.kind(), ErrorKind::TypeMismatch);
        EXPECT_EQ(e.number(), 13);
    }
    EXPECT_THROW(Holds("<", "01/01/2024", "", "8"), Error);
    EXPECT_THROW(Holds("=", "1", "abc", "7"), Error);
}

TEST_F(ConditionTest, DatesCompareAsDatesNotAsText) {
    ScopedSettings italian(SystemSettings::Italian());
    // As text "05/03/2024" < "10/01/2024"; as dates 5 March is after 10 January.
    EXPECT_FALSE(Holds("<", "10/01/2024", "05/03/2024", "8"));
    EXPECT_TRUE(Holds(">", "10/01/2024", "05/03/2024", "8"));
    EXPECT_TRUE(Holds("=", "2024-03-05", "05/03/2024", "8"));
}

TEST_F(ConditionTest, TextEqualityIsExactAndCaseSensitive) {
    EXPECT_FALSE(Holds("=", "ABC", "abc", "10"));
    EXPECT_TRUE(Holds("=", "abc", "abc", "10"));
    EXPECT_TRUE(Holds("<>", "ABC", "abc", "10"));
    EXPECT_FALSE(Holds("=", "abc", "abc ", "10"));
}

TEST_F(ConditionTest, AnOperatorOutsideTheSixIsFalse) {
    for (const char* op : {"", "==", "!=", "=<", "LIKE", " ="}) EXPECT_FALSE(Holds(op, "1", "1", "4")) << op;
}

TEST_F(ConditionTest, OrderingOperatorsOnTruthAreFalse) {
    for (const char* op : {"<", ">", "<=", ">="}) EXPECT_FALSE(Holds(op, "True", "False", "1")) << op;
    EXPECT_TRUE(Holds("=", "True", "True", "1"));
    EXPECT_TRUE(Holds("<>", "True", "False", "1"));
    EXPECT_TRUE(Holds("=", "-1", "True", "1"));
}

TEST_F(ConditionTest, EveryOperatorByEveryNumericClass) {
    struct Case {
        const char* op;
        const char* cell;
        const char* right;
        bool holds;
    };
    const Case cases[] = {{"=", "5", "5", true},   {"=", "5", "6", false}, {"<>", "5", "6", true},
                          {"<>", "5", "5", false}, {"<", "4", "5", true},  {"<", "5", "5", false},
                          {">", "6", "5", true},   {">", "5", "5", false}, {"<=", "5", "5", true},
                          {"<=", "6", "5", false}, {">=", "5", "5", true}, {">=", "4", "5", false}};
    for (const char* type : {"2", "3", "4", "5", "6", "7"})
        for (const auto& c : cases) EXPECT_EQ(Holds(c.op, c.right, c.cell, type), c.holds) << type << c.op << c.cell;
}

TEST_F(ConditionTest, IntegerClassRoundsHalfToEvenRealClassDoesNot) {
    EXPECT_TRUE(Holds("=", "2", "2.5", "4"));
    EXPECT_FALSE(Holds("=", "2", "2.5", "7"));
}

TEST_F(ConditionTest, NoTypeMatchesBeforeTheFirstLoad) {
    EXPECT_FALSE(Holds("=", "1", "1", ""));
    EXPECT_FALSE(Holds("=", "1", "1", "99"));
}

class FormatTest : public GridTest {
protected:
    std::string Show(const std::string& format, const std::string& value) {
        control->setFormato(0, format);
        return FormattaValore(control->Formato(0), value);
    }
};

TEST_F(FormatTest, TheEmptyValueIsEmptyUnderEveryFormat) {
    for (const char* f : {"Nessuno", "Data", "Ora", "Valuta", "Single", "Data Breve", "Numeri_4_Dec", "Numerico", ""})
        EXPECT_EQ(Show(f, ""), "") << f;
}

TEST_F(FormatTest, NumericoOfTextIsZeroWhileNessunoAndDataPassItThrough) {
    EXPECT_EQ(Show("Numerico", "abc"), "0");
    EXPECT_EQ(Show("Nessuno", "abc"), "abc");
    EXPECT_EQ(Show("Data", "abc"), "abc");
    EXPECT_EQ(Show("Sconosciuto", "abc"), "");
    EXPECT_EQ(Show("", "abc"), "");
}

TEST_F(FormatTest, EveryKeyUnderItalianSettings) {
    ScopedSettings italian(SystemSettings::Italian());
    EXPECT_EQ(Show("Data", "2024-03-05"), "05/03/2024");
    EXPECT_EQ(Show("Data", "05/03/2024"), "05/03/2024");
    EXPECT_EQ(Show("Data Breve", "05/03/2024"), "05/03/24");
    EXPECT_EQ(Show("Ora", "05/03/2024 14:30:59"), "14:30");
    EXPECT_EQ(Show("Single", "1234,567"), "1.234,57");
    EXPECT_EQ(Show("Numeri_4_Dec", "1234567,891"), "1.234.567,8910");
    EXPECT_EQ(Show("Numerico", "1.234,5"), "1234,5");
    EXPECT_NE(Show("Valuta", "1234,5").find("1.234,50"), std::string::npos);
}

TEST_F(FormatTest, EveryKeyUnderUsSettings) {
    ScopedSettings us(SystemSettings::UsEnglish());
    EXPECT_EQ(Show("Data", "2024-03-05"), "05/03/2024");  // the pattern fixes day first
    EXPECT_EQ(Show("Data", "03/05/2024"), "05/03/2024");  // read in the system's order
    EXPECT_EQ(Show("Single", "1234.567"), "1,234.57");
    EXPECT_EQ(Show("Numeri_4_Dec", "0.5"), "0.5000");
    EXPECT_EQ(Show("Valuta", "1234.5"), "$1,234.50");
}

TEST_F(FormatTest, DateColumnsLoadedFromSqliteShowAsDates) {
    ScopedSettings italian(SystemSettings::Italian());
    MakeDatabase(
        "CREATE TABLE d(id INTEGER, day DATE, amount DECIMAL(10,2));"
        "INSERT INTO d VALUES(1, '2024-03-05', 1234.5), (2, '2023-12-31 08:15:00', -2);");
    control->setCols(3);
    control->setCampoQuery(0, "id");
    control->setCampoQuery(1, "day");
    control->setCampoQuery(2, "amount");
    control->setFormato(0, "Nessuno");
    control->setFormato(1, "Data");
    control->setFormato(2, "Single");
    control->setDataBaseName(dir.File("test.db"));
    control->setQueryString("SELECT * FROM d ORDER BY id");
    control->Carica();
    EXPECT_EQ(FG1().TextMatrix(0, 1), "05/03/2024");
    EXPECT_EQ(FG1().TextMatrix(1, 1), "31/12/2023");
    EXPECT_EQ(FG1().TextMatrix(0, 2), "1.234,50");
    EXPECT_EQ(FG1().TextMatrix(1, 2), "-2,00");
    EXPECT_EQ(control->TextMatrix(0, 2), "1234,5");  // the store keeps the engine's text
    control->setFormato(1, "Data Breve");
    control->Carica();
    EXPECT_EQ(FG1().TextMatrix(1, 1), "31/12/23");
}

}  // namespace
}  // namespace TabulonLib12::testing
