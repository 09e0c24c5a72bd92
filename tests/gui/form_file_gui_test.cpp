// The Qt widget and the form file: a widget restored from a control of a form file shows the
// saved design on screen, sits on its window for the wheel, and saves the same design back.
#include <gtest/gtest.h>

#include <QVBoxLayout>

#include "gui_test_support.h"
#include "persistence/form_file.h"
#include "tests/db/sqlite_fixture.h"
#include "tests/support/probe.h"
#include "widgets/tabulon12_widget.h"

namespace TabulonLib12::GuiTest {
namespace {

class FormFileGuiTest : public ::testing::Test {
protected:
    void SetUp() override {
        database = dir.File("clienti.db");
        testing::WriteDatabase(database,
                               "CREATE TABLE c(id INTEGER, nome TEXT, saldo DOUBLE);"
                               "INSERT INTO c VALUES (1, 'Anna', 10.5), (2, 'Bruno', 20), (3, 'Carla', 30.25);");
        // A design made on a new widget and saved into the form.
        Tabulon12Widget designer;
        Tabulon12& c = designer.Control();
        c.setCols(3);
        const char* fields[] = {"id", "nome", "saldo"};
        const char* headings[] = {"N.", "Cliente", "Saldo"};
        for (int16_t i = 0; i < 3; ++i) {
            c.setCampoQuery(i, fields[i]);
            c.setIntestazione(i, headings[i]);
            c.setFormato(i, i == 2 ? "Valuta" : "Nessuno");
            c.setColsWidth(i, static_cast<int16_t>(1100 + 600 * i));
        }
        c.setStileTesta(StileTestaType::Orange);
        c.setTestoCount("Clienti:");
        c.setDataBaseName(database);
        c.setQueryString("SELECT id, nome, saldo FROM c ORDER BY id");
        designer.SaveTo(form, "ListaClienti");
    }

    testing::TempDir dir;
    std::string database;
    FormFile form{"Clienti"};
};

TEST_F(FormFileGuiTest, ARestoredWidgetShowsTheSavedDesignAndLoadsItsData) {
    QWidget window;
    window.setObjectName("Clienti");
    auto* layout = new QVBoxLayout(&window);
    auto* list = new Tabulon12Widget(form, "listaclienti", &window);
    layout->addWidget(list);
    window.resize(600, 300);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    Tabulon12& c = list->Control();
    EXPECT_EQ(c.Cols(), 3);
    EXPECT_EQ(c.Intestazione(1), "Cliente");
    EXPECT_EQ(c.ParentForm(), list->WindowForm());
    EXPECT_EQ(c.ParentForm()->Name(), "Clienti");
    c.Carica();
    QApplication::processEvents();
    EXPECT_EQ(c.RighePiene(), 3);
    EXPECT_EQ(c.TextMatrix(1, 1), "Bruno");
    const Label& heading = testing::FindElement<Label>(Tabulon12Probe::Of(c).surface, "LabelMenu", 1);
    EXPECT_EQ(heading.Caption(), "Cliente");
    const QImage shot = Grab(list->Painter());
    const QRect area = AreaOf(heading);
    // The orange band's texture and the caption's text over it.
    EXPECT_GT(CountPixels(shot, area, [](const QColor& p) { return p.red() > 200 && p.blue() < 140; }), 20);
    EXPECT_EQ(Tabulon12Probe::Of(c).elements.LabelCount->Caption(), "Clienti: 3");
}

TEST_F(FormFileGuiTest, ARestoredWidgetSavesTheSameDesignBack) {
    Tabulon12Widget list(form, "ListaClienti");
    FormFile again("Clienti");
    list.SaveTo(again, "ListaClienti");
    EXPECT_TRUE(again.Properties("ListaClienti") == form.Properties("ListaClienti"))
        << again.ToText() << "\n---\n" << form.ToText();
    // Saved to a file and read back, the form is the same.
    const std::string path = dir.File("clienti.form.json");
    again.Save(path);
    EXPECT_TRUE(FormFile::Load(path) == again);
}

TEST_F(FormFileGuiTest, SavingReplacesTheControlOfThatNameInItsPlace) {
    form.AddOrReplace(FormControl("Altro", "Scorrix"));
    Tabulon12Widget list(form, "ListaClienti");
    list.Control().setIntestazione(1, "Ragione sociale");
    list.SaveTo(form, "LISTACLIENTI");
    EXPECT_EQ(form.ControlNames(), (std::vector<std::string>{"LISTACLIENTI", "Altro"}));
    EXPECT_TRUE(SameStoredValue(form.Properties("ListaClienti").ReadProperty("Intestazione1", std::string()),
                                std::string("Ragione sociale")));
}

TEST_F(FormFileGuiTest, AControlTheFormDoesNotHoldIsRefusedByName) {
    try {
        Tabulon12Widget list(form, "Ordini");
        FAIL() << "a widget was made of a control the form does not hold";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 380);
        EXPECT_NE(e.description().find("Ordini"), std::string::npos) << e.description();
    }
}

TEST_F(FormFileGuiTest, ADesignWithTheWheelOnHooksTheWidgetsWindow) {
    form.Properties("ListaClienti").Set("WheelStatus", true);
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* list = new Tabulon12Widget(form, "ListaClienti", &window);
    layout->addWidget(list);
    int heard = 0;
    const int id = list->WindowForm()->Window()->AddWheelListener([&](int32_t, int32_t) { ++heard; });
    EXPECT_TRUE(list->Control().WheelStatus());
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QWheelEvent event(QPointF(5, 5), list->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&list->Painter(), &event);
    EXPECT_EQ(heard, 1);
    list->WindowForm()->Window()->RemoveWheelListener(id);
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
