// The designer host as a developer uses it: a form's list live beside the column editor and the
// structure page; typed changes applied show on the list, a structure made from a query loads at
// once, and the saved form opens as it was designed.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <filesystem>

#include "designer_window.h"
#include "gui_test_support.h"
#include "tests/db/sqlite_fixture.h"
#include "tests/support/test_doubles.h"

namespace TabulonLib12::GuiTest {
namespace {

using Designer::DesignerWindow;

class DesignerGuiTest : public ::testing::Test {
protected:
    void SetUp() override {
        database = dir.File("clienti.db");
        testing::WriteDatabase(database,
                               "CREATE TABLE clienti(id INTEGER, nome VARCHAR(40), citta VARCHAR(40), fido DOUBLE,"
                               " dal DATE);"
                               "INSERT INTO clienti VALUES (1, 'Anna', 'Lecce', 1500, '2021-03-04'),"
                               " (2, 'Bruno', 'Asti', 250.5, '2022-11-30'), (3, 'Carla', 'Bari', 0, '2020-01-15'),"
                               " (4, 'Dario', 'Como', 9000, '2023-07-01');");
        // A form with a list of two columns over the database beside it.
        FormFile form("Clienti");
        MemoryPropertyBag design;
        design.Set("QueryString", std::string("SELECT id, nome, fido FROM clienti ORDER BY id"));
        design.Set("DataBaseName", std::string("clienti.db"));
        design.Set("Intestazione0", std::string("N."));
        design.Set("ColsWidth0", int16_t{700});
        design.Set("Formato0", std::string("Nessuno"));
        design.Set("CampoQuery0", std::string("id"));
        design.Set("Intestazione1", std::string("Nome"));
        design.Set("ColsWidth1", int16_t{2000});
        design.Set("Formato1", std::string("Nessuno"));
        design.Set("CampoQuery1", std::string("nome"));
        design.Set("Intestazione2", std::string("Fido"));
        design.Set("ColsWidth2", int16_t{1400});
        design.Set("Formato2", std::string("Nessuno"));
        design.Set("CampoQuery2", std::string("fido"));
        design.Set("Cols", int16_t{3});
        form.AddOrReplace(FormControl("ListaClienti", "Tabulon12", design));
        path = dir.File("clienti.form.json");
        form.Save(path);
    }

    DesignerWindow& Open(FormDocument document, const std::string& db = {}, const std::string& query = {}) {
        window = std::make_unique<DesignerWindow>(std::move(document), db, query, &messages);
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        window->LoadList();
        QApplication::processEvents();
        return *window;
    }

    template <class W>
    W* Child(const char* name) {
        return ChildNamed<W>(*window, name);
    }

    void Click(const char* button) {
        QTest::mouseClick(Child<QPushButton>(button), Qt::LeftButton);
        QApplication::processEvents();
    }

    testing::TempDir dir;
    std::string database;
    std::string path;
    RecordingMessageBox messages;
    std::unique_ptr<DesignerWindow> window;
};

TEST_F(DesignerGuiTest, TheFormsListShowsLiveWithItsDatabaseAndQueryBesideThePages) {
    DesignerWindow& w = Open(FormDocument::Open(path));
    Tabulon12& c = w.List().Control();
    EXPECT_EQ(c.RighePiene(), 4);
    EXPECT_EQ(c.TextMatrix(1, 1), "Bruno");
    EXPECT_EQ(w.DatabaseField().text().toStdString(), database);
    EXPECT_EQ(w.QueryField().text(), "SELECT id, nome, fido FROM clienti ORDER BY id");
    EXPECT_NE(HeadingCaption(w.List(), "Nome"), nullptr);
    // The column editor shows column 0, the structure page the list's database.
    EXPECT_EQ(Child<QLineEdit>("Text2")->text(), "N.");
    EXPECT_EQ(Child<QScrollBar>("HScroll1")->maximum(), 2);
    EXPECT_EQ(Child<QLineEdit>("TextDB")->text().toStdString(), database);
    EXPECT_FALSE(w.Modified());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DesignerGuiTest, AHeadingAWidthAndAFormatTypedAndAppliedShowOnTheListAtOnce) {
    DesignerWindow& w = Open(FormDocument::Open(path));
    Tabulon12& c = w.List().Control();
    Child<QScrollBar>("HScroll1")->setValue(1);
    Retype(Child<QLineEdit>("Text2"), "Cliente");
    Retype(Child<QLineEdit>("Text4"), "2600");
    Child<QScrollBar>("HScroll1")->setValue(2);
    QComboBox* formats = Child<QComboBox>("Combo1");
    formats->setFocus();
    for (int i = 0; i < 3; ++i) QTest::keyClick(formats, Qt::Key_Down);  // Nessuno, Data, Ora, Valuta
    EXPECT_EQ(formats->currentText(), "Valuta");
    EXPECT_TRUE(w.Campi().Changed());
    EXPECT_TRUE(w.Modified());

    Click("Applica");
    EXPECT_EQ(c.Intestazione(1), "Cliente");
    EXPECT_EQ(c.ColsWidthMemorizzata(1), 2600);
    EXPECT_EQ(c.Formato(2), "Valuta");
    EXPECT_FALSE(w.Campi().Changed());
    // On screen: the new heading, the old one gone, the rows loaded again.
    const Label* heading = HeadingCaption(w.List(), "Cliente");
    ASSERT_NE(heading, nullptr);
    EXPECT_EQ(HeadingCaption(w.List(), "Nome"), nullptr);
    EXPECT_EQ(c.RighePiene(), 4);
    const QImage shot = Grab(w.List().Painter());
    EXPECT_GT(CountPixels(shot, AreaOf(*heading), [](const QColor& p) { return p.lightness() < 100; }), 10);  // its text
    EXPECT_TRUE(w.windowTitle().endsWith(" *"));
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DesignerGuiTest, AStructureCreatedFromAQueryMakesAThreeColumnListThatLoadsAtOnce) {
    DesignerWindow& w = Open(FormDocument::Open(path));
    Tabulon12& c = w.List().Control();
    QComboBox* sources = Child<QComboBox>("ComboTabella");
    Retype(sources->lineEdit(), "SELECT id, citta, dal FROM clienti ORDER BY citta");
    Click("CreaBtn");
    ASSERT_EQ(c.Cols(), 3);
    EXPECT_EQ(c.CampoQuery(1), "citta");
    EXPECT_EQ(c.Intestazione(2), "dal");
    EXPECT_EQ(c.ColsWidthMemorizzata(2), 900);  // a date, by the type table
    for (int16_t i = 0; i < 3; ++i) EXPECT_EQ(c.Formato(i), "Nessuno");
    EXPECT_EQ(w.QueryField().text(), "SELECT id, citta, dal FROM clienti ORDER BY citta");
    EXPECT_EQ(c.RighePiene(), 4);
    EXPECT_EQ(c.TextMatrix(0, 1), "Asti");
    EXPECT_NE(HeadingCaption(w.List(), "citta"), nullptr);
    // The column editor follows the new columns.
    EXPECT_EQ(Child<QScrollBar>("HScroll1")->maximum(), 2);
    EXPECT_TRUE(w.Modified());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(DesignerGuiTest, AStructureCreatedFromATableReadsItWhole) {
    DesignerWindow& w = Open(FormDocument::Open(path));
    Retype(Child<QComboBox>("ComboTabella")->lineEdit(), "CLIENTI");
    Click("CreaBtn");
    EXPECT_EQ(w.List().Control().Cols(), 5);
    EXPECT_EQ(w.QueryField().text(), "SELECT * FROM \"clienti\"");
    EXPECT_EQ(w.List().Control().RighePiene(), 4);
}

TEST_F(DesignerGuiTest, TheSavedFormOpensAsDesignedWithItsDatabaseStillBesideIt) {
    DesignerWindow& w = Open(FormDocument::Open(path));
    Retype(Child<QComboBox>("ComboTabella")->lineEdit(), "SELECT id, nome, citta FROM clienti ORDER BY id");
    Click("CreaBtn");
    Child<QScrollBar>("HScroll1")->setValue(1);
    Retype(Child<QLineEdit>("Text2"), "Ragione sociale");
    Click("Applica");
    Click("Salva");
    EXPECT_FALSE(w.Modified());
    ASSERT_TRUE(messages.shown.empty()) << messages.shown[0].prompt;

    // As the demo opens it.
    const FormDocument saved = FormDocument::Open(path);
    EXPECT_EQ(std::get<std::string>(saved.Form().Properties("ListaClienti").ReadProperty("DataBaseName", std::string())),
              "clienti.db");
    const MemoryPropertyBag design = saved.DesignForHost();
    Tabulon12Widget::Services services;
    services.saved = &design;
    Tabulon12Widget list(services);
    list.resize(600, 300);
    list.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
    Tabulon12& c = list.Control();
    EXPECT_EQ(c.Cols(), 3);
    EXPECT_EQ(c.Intestazione(1), "Ragione sociale");
    EXPECT_EQ(c.CampoQuery(2), "citta");
    c.Carica();
    EXPECT_EQ(c.RighePiene(), 4);
    EXPECT_EQ(c.TextMatrix(3, 2), "Como");
    EXPECT_NE(HeadingCaption(list, "Ragione sociale"), nullptr);
}

TEST_F(DesignerGuiTest, AFailedSaveSaysWhyAndLeavesTheFormFileAsItWas) {
    DesignerWindow& w = Open(FormDocument::Open(path));
    const std::string before = ReadAll(path);
    w.List().Control().setIntestazione(1, "Altro");
    EXPECT_FALSE(w.Save("/dev/full"));
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].style, MsgBoxStyle::Critical);
    EXPECT_NE(messages.shown[0].prompt.find("/dev/full"), std::string::npos) << messages.shown[0].prompt;
    EXPECT_EQ(ReadAll(path), before);
    EXPECT_EQ(w.Document().Path(), path);
}

TEST_F(DesignerGuiTest, WithoutADisplaySaveAsSaysItNeedsOneAndWritesNothing) {
    DesignerWindow& w = Open(FormDocument::Open(path));
    const std::string before = ReadAll(path);
    w.List().Control().setIntestazione(1, "Altro");
    Click("SalvaCome");
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_NE(messages.shown[0].prompt.find("display"), std::string::npos) << messages.shown[0].prompt;
    EXPECT_EQ(ReadAll(path), before);
    EXPECT_EQ(w.Document().Path(), path);
}

TEST_F(DesignerGuiTest, ANewFormTakesItsColumnsFromTheQueryGiven) {
    const std::string fresh = dir.File("nuovo.form.json");
    DesignerWindow& w = Open(FormDocument(fresh, "Nuovo", "Lista1"), database, "clienti");
    Tabulon12& c = w.List().Control();
    EXPECT_EQ(c.Cols(), 5);
    EXPECT_EQ(c.Formato(4), "Data");
    EXPECT_EQ(c.RighePiene(), 4);
    EXPECT_EQ(w.QueryField().text(), "SELECT * FROM \"clienti\"");
    EXPECT_EQ(Child<QScrollBar>("HScroll1")->maximum(), 4);
    ASSERT_TRUE(w.Save());
    EXPECT_EQ(FormDocument::Open(fresh).ControlName(), "Lista1");
}

TEST_F(DesignerGuiTest, AQueryThatCannotMakeColumnsStopsTheNewFormWithTheEnginesWords) {
    try {
        DesignerWindow w(FormDocument(dir.File("nuovo.form.json"), "Nuovo", "Lista1"), database, "SELECT x FROM y",
                         &messages);
        FAIL() << "a window was made of a query that does not run";
    } catch (const Error& e) {
        EXPECT_NE(e.description().find("no such table"), std::string::npos) << e.description();
    }
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
