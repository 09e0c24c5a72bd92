// The structure creation page as a real Qt form on the offscreen platform: the database typed,
// its sources listed by "OK", one picked and created by "Crea", and a real Tabulon12Widget shows
// the new columns at its next structure build; failures reach the message box, or standard
// error without a display.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <stdexcept>

#include "gui_test_support.h"
#include "tests/db/sqlite_fixture.h"
#include "tests/support/test_doubles.h"
#include "widgets/creazione_page.h"
#include "widgets/tabulon12_widget.h"

namespace TabulonLib12::GuiTest {
namespace {

std::vector<std::string> VisibleHeadings(Tabulon12Widget& widget) {
    std::vector<std::string> captions;
    for (Element* e : widget.Control().Superficie().PaintOrder()) {
        if (e->Kind() != ElementKind::Label || e->Name() != "LabelMenu" || !e->Visible()) continue;
        const auto* label = static_cast<const Label*>(e);
        if (!label->Caption().empty()) captions.push_back(label->Caption());
    }
    return captions;
}

class CreazionePageGuiTest : public ::testing::Test {
protected:
    void SetUp() override {
        path = dir.File("shop.db");
        testing::WriteDatabase(path,
                               "CREATE TABLE ordini(id INTEGER, cliente VARCHAR(40), data DATE, importo CURRENCY);"
                               "CREATE TABLE clienti(nome VARCHAR(40));"
                               "CREATE VIEW recenti AS SELECT id, data FROM ordini;"
                               "INSERT INTO ordini VALUES (1, 'Rossi', '2024-03-01', 12.5);");
        control = std::make_unique<Tabulon12Widget>();
        control->resize(700, 240);
        control->Control().setAdattamentoColonneDisattivato(true);
        control->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(control.get()));
    }

    void OpenPage(MessageBoxService* box) {
        page = std::make_unique<CreazionePage>(control->Engine(), nullptr, box);
        page->setSelectedControls({&control->Control()});
        page->resize(500, 120);
        page->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(page.get()));
        page->SelectionChanged();
    }

    template <class W>
    W* Child(const char* name) {
        return ChildNamed<W>(*page, name);
    }

    void TypeDatabase(const std::string& text) {
        QLineEdit* edit = Child<QLineEdit>("TextDB");
        edit->setFocus();
        QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, QString::fromStdString(text));
    }

    testing::TempDir dir;
    std::string path;
    RecordingMessageBox messages;
    std::unique_ptr<Tabulon12Widget> control;
    std::unique_ptr<CreazionePage> page;
};

TEST_F(CreazionePageGuiTest, TheFormShowsItsCaptionsAndTheControlsDatabaseAndQuery) {
    control->Control().setDataBaseName(path);
    control->Control().setQueryString("SELECT id FROM ordini");
    OpenPage(&messages);
    std::vector<QString> captions;
    for (QLabel* label : page->findChildren<QLabel*>()) captions.push_back(label->text());
    EXPECT_NE(std::find(captions.begin(), captions.end(), "DB"), captions.end());
    EXPECT_NE(std::find(captions.begin(), captions.end(), "Tabella"), captions.end());
    EXPECT_EQ(Child<QPushButton>("DBok")->text(), "OK");
    EXPECT_EQ(Child<QPushButton>("CreaBtn")->text(), "Crea");
    EXPECT_EQ(Child<QLineEdit>("TextDB")->text().toStdString(), path);
    EXPECT_EQ(Child<QComboBox>("ComboTabella")->currentText(), "SELECT id FROM ordini");
}

TEST_F(CreazionePageGuiTest, ATableListedPickedAndCreatedShowsItsColumnsOnTheControl) {
    OpenPage(&messages);
    TypeDatabase(path);
    QTest::mouseClick(Child<QPushButton>("DBok"), Qt::LeftButton);
    QComboBox* sources = Child<QComboBox>("ComboTabella");
    ASSERT_EQ(sources->count(), 3);
    EXPECT_EQ(sources->itemText(0), "clienti");
    EXPECT_EQ(sources->itemText(1), "ordini");
    EXPECT_EQ(sources->itemText(2), "recenti");
    EXPECT_EQ(sources->currentText(), "");

    sources->setFocus();
    QTest::keyClicks(sources->lineEdit(), "ordini");
    QTest::mouseClick(Child<QPushButton>("CreaBtn"), Qt::LeftButton);
    EXPECT_TRUE(messages.shown.empty());

    Tabulon12& c = control->Control();
    ASSERT_EQ(c.Cols(), 4);
    c.CaricaStruttura();
    QApplication::processEvents();
    EXPECT_EQ(VisibleHeadings(*control), (std::vector<std::string>{"cliente", "data", "importo"}));
    CellGrid& grid = GridOf(*control);
    EXPECT_EQ(grid.ColWidth(0), 0);
    EXPECT_EQ(grid.ColWidth(1), 2000);
    EXPECT_EQ(grid.ColWidth(2), 900);
    EXPECT_EQ(grid.ColWidth(3), 1200);
}

TEST_F(CreazionePageGuiTest, CreaWithNoSourceDoesNothing) {
    OpenPage(&messages);
    TypeDatabase(path);
    QTest::mouseClick(Child<QPushButton>("CreaBtn"), Qt::LeftButton);
    EXPECT_EQ(control->Control().Cols(), 1);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(CreazionePageGuiTest, AFileThatIsNoDatabaseIsToldInTheEnginesWords) {
    OpenPage(&messages);
    TypeDatabase("/etc/passwd");
    QTest::mouseClick(Child<QPushButton>("DBok"), Qt::LeftButton);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].prompt, "file is not a database");
    EXPECT_EQ(messages.shown[0].style, MsgBoxStyle::Critical);
}

TEST_F(CreazionePageGuiTest, WithoutADisplayAFailureIsWrittenToStandardError) {
    OpenPage(nullptr);
    TypeDatabase(dir.File("missing.db"));
    QComboBox* sources = Child<QComboBox>("ComboTabella");
    QTest::keyClicks(sources->lineEdit(), "ordini");
    ::testing::internal::CaptureStderr();
    QTest::mouseClick(Child<QPushButton>("CreaBtn"), Qt::LeftButton);
    const std::string err = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(err.find("unable to open database file"), std::string::npos) << err;
    EXPECT_EQ(control->Control().Cols(), 1);
}

TEST_F(CreazionePageGuiTest, TheFormRendersItsFieldsAndCaptionsToAPicture) {
    OpenPage(&messages);
    TypeDatabase(path);
    QTest::mouseClick(Child<QPushButton>("DBok"), Qt::LeftButton);
    QApplication::processEvents();
    const QImage shot = page->grab().toImage();
    ASSERT_FALSE(shot.isNull());
    std::vector<QRect> areas;
    for (QWidget* w : page->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        const QRect area = w->geometry();
        EXPECT_TRUE(page->rect().contains(area)) << w->objectName().toStdString();
        for (const QRect& other : areas) EXPECT_FALSE(area.intersects(other)) << w->objectName().toStdString();
        areas.push_back(area);
    }
    EXPECT_EQ(areas.size(), 6u);  // two captions, two fields, two buttons
    const QString file = QDir(QStringLiteral(TABULON_TEST_OUTPUT_DIR)).filePath(QStringLiteral("creazione_page.png"));
    ASSERT_TRUE(shot.save(file, "PNG")) << file.toStdString();
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
