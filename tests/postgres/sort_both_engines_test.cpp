// A click on a heading reorders the rows as the database itself orders them: texts, numbers,
// dates and NULLs, ascending and descending, on a SQLite file and on the PostgreSQL server of
// the tests. The expected order is asked of the same database with the same ORDER BY.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "load_rig.h"

namespace TabulonLib12::testing {
namespace {

class SortOnBothEngines : public ::testing::TestWithParam<Backend> {
protected:
    void SetUp() override {
        ASSERT_TRUE(rig_.Start());
        // Each column with a NULL somewhere, texts of mixed case, dates across years.
        database_ = rig_.MakeDatabase(
            "CREATE TABLE p(id INTEGER, name VARCHAR(20), price DOUBLE PRECISION, day DATE);"
            "INSERT INTO p VALUES (1, 'pera', 2.5, '2024-03-01'), (2, 'Mela', NULL, '2023-12-31'),"
            " (3, 'arancia', -1.25, NULL), (4, NULL, 10, '2024-01-15'), (5, 'Banana', 2.5, '2022-06-30'),"
            " (6, 'kiwi', 0, '2024-03-01');");
        Tabulon12& c = *rig_.control;
        c.setCols(4);
        const char* fields[] = {"id", "name", "price", "day"};
        for (int16_t i = 0; i < 4; ++i) {
            c.setCampoQuery(i, fields[i]);
            c.setFormato(i, "Nessuno");
            c.setOrdinamento(i, fields[i]);
        }
        c.setDataBaseName(database_);
        c.setQueryString("SELECT id, name, price, day FROM p");
        c.Carica();
    }

    // The keys in the order the control shows them.
    std::vector<std::string> Shown() {
        std::vector<std::string> ids;
        for (int32_t r = 0; r < rig_.control->RighePiene(); ++r) ids.push_back(rig_.control->TextMatrix(r, 0));
        return ids;
    }

    // The keys in the order the database gives for the same query.
    std::vector<std::string> DatabaseOrder(const std::string& orderBy) {
        OpenOptions options;
        options.connect = "; pwd=" + ServerPassword();
        auto db = rig_.engine.composite.OpenDatabase(database_, options);
        auto rs = db->OpenRecordset("SELECT id FROM p ORDER BY " + orderBy);
        std::vector<std::string> ids;
        while (!rs->IsEOF()) {
            std::string text;
            rs->AppendFieldText(0, text);
            ids.push_back(text);
            rs->MoveNext();
        }
        rs->Close();
        db->Close();
        return ids;
    }

    LoadRig rig_{GetParam()};
    std::string database_;
};

TEST_P(SortOnBothEngines, EachHeadingSortsAscendingThenDescendingAsTheDatabaseDoes) {
    const char* fields[] = {"id", "name", "price", "day"};
    for (int16_t k = 0; k < 4; ++k) {
        SCOPED_TRACE(fields[k]);
        rig_.control->OrdinaColonna(k);
        EXPECT_EQ(Shown(), DatabaseOrder(fields[k]));
        EXPECT_EQ(rig_.control->QueryEffettiva(), std::string("SELECT id, name, price, day FROM p ORDER BY ") + fields[k]);
        rig_.control->OrdinaColonna(k);
        EXPECT_EQ(Shown(), DatabaseOrder(std::string(fields[k]) + " DESC"));
        rig_.control->OrdinaColonna(k);  // back to no sort
        EXPECT_EQ(rig_.control->IndiceordinamentoAttivo(), -1);
    }
    EXPECT_TRUE(rig_.messages.shown.empty());
}

TEST_P(SortOnBothEngines, NullsStandWhereTheDatabasePutsThem) {
    rig_.control->OrdinaColonna(2);
    const std::vector<std::string> ascending = Shown();
    // SQLite puts NULL first when ascending, PostgreSQL last.
    if (GetParam() == Backend::Sqlite) EXPECT_EQ(ascending.front(), "2");
    else EXPECT_EQ(ascending.back(), "2");
}

INSTANTIATE_TEST_SUITE_P(Engines, SortOnBothEngines, ::testing::Values(Backend::Sqlite, Backend::Postgres),
                         [](const ::testing::TestParamInfo<Backend>& info) {
                             return info.param == Backend::Sqlite ? "Sqlite" : "Postgres";
                         });

}  // namespace
}  // namespace TabulonLib12::testing
