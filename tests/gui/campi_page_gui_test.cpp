// The column editor page as a real Qt form on the offscreen platform: typing a heading and a
// width and picking a format, then applying, reaches a real Tabulon12Widget and its screen; F2,
// the navigator, the buttons, the swatch and the colour dialog work through real input; the
// report written by the button reads back line by line.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QDir>
#include <QColorDialog>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTimer>
#include <stdexcept>

#include "gui_test_support.h"
#include "pages/column_report.h"
#include "platform/host/sequential_file.h"
#include "tests/db/sqlite_fixture.h"
#include "tests/support/test_doubles.h"
#include "widgets/campi_page.h"
#include "widgets/tabulon12_widget.h"

namespace TabulonLib12::GuiTest {
namespace {

class CampiPageGuiTest : public ::testing::Test {
protected:
    void SetUp() override {
        const std::string path = dir.File("list.db");
        testing::WriteDatabase(path,
                               "CREATE TABLE t(id INTEGER, name VARCHAR(30));"
                               "INSERT INTO t VALUES (1, 'Uno'), (2, 'Due'), (3, 'Tre');");
        control = std::make_unique<Tabulon12Widget>();
        control->resize(600, 240);
        Tabulon12& c = control->Control();
        c.setAdattamentoColonneDisattivato(true);
        c.setCols(2);
        const char* fields[] = {"id", "name"};
        const char* headings[] = {"Vecchio", "Nome"};
        for (int16_t i = 0; i < 2; ++i) {
            c.setCampoQuery(i, fields[i]);
            c.setFormato(i, "Nessuno");
            c.setIntestazione(i, headings[i]);
            c.setColsWidth(i, 1500);
        }
        c.setDataBaseName(path);
        c.setQueryString("SELECT id, name FROM t ORDER BY id");
        control->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(control.get()));
        c.Carica();

        page = std::make_unique<CampiPage>(nullptr, &messages);
        page->setReportFolder(dir.path().string());
        page->setSelectedControls({&c});
        page->resize(700, 520);
        page->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(page.get()));
        page->SelectionChanged();
    }

    template <class W>
    W* Child(const char* name) {
        return ChildNamed<W>(*page, name);
    }

    QImage Shot() {
        QApplication::processEvents();
        return Grab(*control);
    }

    testing::TempDir dir;
    RecordingMessageBox messages;
    std::unique_ptr<Tabulon12Widget> control;
    std::unique_ptr<CampiPage> page;
};

TEST_F(CampiPageGuiTest, TheFormCarriesItsCaptionsAndStartsOnColumn0) {
    std::vector<QString> captions;
    for (QLabel* label : page->findChildren<QLabel*>()) captions.push_back(label->text());
    for (const char* caption : {"Indice", "Intestazione", "Dimens", "Ordinamento", "Formato", "Campo della query",
                                "Condizione", "Immagine Vero", "Immagine Falso", "Operatore", "Allineamento",
                                "Image ToolTipText", "Key ID", "Colonna Index IT", "ToolTipText vero",
                                "ToolTipText falso", "Back Color Col", "Colonna Forecolor", "Colonna Immagine",
                                "Testo scelta"})
        EXPECT_NE(std::find(captions.begin(), captions.end(), QString::fromUtf8(caption)), captions.end()) << caption;
    EXPECT_EQ(Child<QCheckBox>("CheckIT")->text(), "Ipertesto");
    EXPECT_EQ(Child<QCheckBox>("Check1")->text(), "Barra Vert. dx");
    EXPECT_EQ(Child<QCheckBox>("CheckScelta")->text(), "Colonna opzionale");
    EXPECT_EQ(Child<QCheckBox>("CheckMostraTotCol")->text(), "Mostra totale");
    EXPECT_EQ(Child<QPushButton>("InsBtn")->text(), "&Aggiungi");
    EXPECT_EQ(Child<QPushButton>("DelBtn")->text(), "&Rimuovi");
    EXPECT_EQ(Child<QPushButton>("StampaBtn")->text(), "Stampa Rap");
    EXPECT_EQ(Child<QComboBox>("Combo1")->count(), 8);
    EXPECT_EQ(Child<QComboBox>("Combo3")->itemText(5), "<>");
    EXPECT_EQ(Child<QComboBox>("Combo4")->itemText(2), "Centro");

    EXPECT_EQ(Child<QLineEdit>("Text1")->text(), "0");
    EXPECT_EQ(Child<QLineEdit>("Text2")->text(), "Vecchio");
    EXPECT_EQ(Child<QLineEdit>("Text4")->text(), "1500");
    EXPECT_EQ(Child<QComboBox>("Combo1")->currentText(), "Nessuno");
    EXPECT_EQ(Child<QScrollBar>("HScroll1")->maximum(), 1);
    EXPECT_EQ(Child<QLabel>("Label11")->text(), "(" + QString::number(control->Control().Superficie().Width() - 3000) + ")");
    EXPECT_FALSE(page->Changed());
}

TEST_F(CampiPageGuiTest, AHeadingAWidthAndAFormatTypedAndAppliedShowOnTheControl) {
    const Label* old = HeadingCaption(*control, "Vecchio");
    ASSERT_NE(old, nullptr);
    const QRect headingArea = AreaOf(*old);
    const QImage before = Shot();
    QSignalSpy changed(page.get(), &CampiPage::changedStateChanged);

    Retype(Child<QLineEdit>("Text2"), "Numero");
    Retype(Child<QLineEdit>("Text4"), "2400");
    QComboBox* formats = Child<QComboBox>("Combo1");
    formats->setFocus();
    QTest::keyClick(formats, Qt::Key_Down);  // from "Nessuno" to the next item of the list
    EXPECT_EQ(formats->currentText(), "Data");
    ASSERT_FALSE(changed.isEmpty());
    EXPECT_TRUE(changed.last().at(0).toBool());
    EXPECT_TRUE(page->Changed());

    page->ApplyChanges();
    EXPECT_FALSE(page->Changed());
    EXPECT_FALSE(changed.last().at(0).toBool());

    Tabulon12& c = control->Control();
    EXPECT_EQ(c.Intestazione(0), "Numero");
    EXPECT_EQ(c.ColsWidthMemorizzata(0), 2400);
    EXPECT_EQ(c.Formato(0), "Data");
    EXPECT_EQ(GridOf(*control).ColWidth(0), 2400);
    const Label* heading = HeadingCaption(*control, "Numero");
    ASSERT_NE(heading, nullptr);
    EXPECT_EQ(HeadingCaption(*control, "Vecchio"), nullptr);
    EXPECT_GE(heading->Width(), 1500.0f);

    // The screen shows it: the heading's pixels changed, and the second column now starts 160
    // pixels (2400 twips) after the first.
    const QImage after = Shot();
    int differing = 0;
    for (int y = headingArea.top(); y <= headingArea.bottom(); ++y)
        for (int x = headingArea.left(); x <= headingArea.right(); ++x)
            if (before.pixel(x, y) != after.pixel(x, y)) ++differing;
    EXPECT_GT(differing, 10);
    CellGrid& grid = GridOf(*control);
    EXPECT_EQ(grid.ColPos(1) - grid.ColPos(0), 2400);
}

TEST_F(CampiPageGuiTest, F2InAFieldMovesToTheNextColumnAndTheFocusToTheHeading) {
    QLineEdit* condition = Child<QLineEdit>("Text5");
    condition->setFocus();
    QTest::keyClick(condition, Qt::Key_F2);
    EXPECT_EQ(Child<QLineEdit>("Text1")->text(), "1");
    EXPECT_EQ(Child<QLineEdit>("Text2")->text(), "Nome");
    EXPECT_EQ(Child<QScrollBar>("HScroll1")->value(), 1);
    EXPECT_TRUE(Child<QLineEdit>("Text2")->hasFocus());
    QTest::keyClick(Child<QLineEdit>("Text2"), Qt::Key_F2);  // the last column: nothing moves
    EXPECT_EQ(Child<QScrollBar>("HScroll1")->value(), 1);
}

TEST_F(CampiPageGuiTest, TheNavigatorKeepsWhatWasTypedInTheColumnItLeaves) {
    Retype(Child<QLineEdit>("Text2"), "Codice");
    QScrollBar* navigator = Child<QScrollBar>("HScroll1");
    QTest::keyClick(navigator, Qt::Key_PageDown);
    EXPECT_EQ(navigator->value(), 1);
    EXPECT_EQ(Child<QLineEdit>("Text2")->text(), "Nome");
    QTest::keyClick(navigator, Qt::Key_PageUp);
    EXPECT_EQ(Child<QLineEdit>("Text2")->text(), "Codice");
    EXPECT_EQ(page->Logic().FG().TextMatrix(1, 0), "Nome");
}

TEST_F(CampiPageGuiTest, CheckBoxClicksAndTheLinkIndexRaiseNoChangedAndTheComboTextNeither) {
    QSignalSpy changed(page.get(), &CampiPage::changedStateChanged);
    // A click on the box itself, at its left end.
    for (const char* name : {"CheckIT", "Check1"}) {
        QCheckBox* box = Child<QCheckBox>(name);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(6, box->height() / 2));
    }
    Retype(Child<QLineEdit>("Text7"), "3");
    QComboBox* combo = Child<QComboBox>("Combo3");
    QTest::keyClicks(combo->lineEdit(), "<>");
    EXPECT_TRUE(Child<QCheckBox>("CheckIT")->isChecked());
    EXPECT_TRUE(changed.isEmpty());
    EXPECT_FALSE(page->Changed());
}

TEST_F(CampiPageGuiTest, TheAddButtonRaisesTheControlsColumnsAtOnceAndResetsTheForm) {
    Retype(Child<QLineEdit>("Text2"), "typed");
    QTest::mouseClick(Child<QPushButton>("InsBtn"), Qt::LeftButton);
    EXPECT_EQ(control->Control().Cols(), 3);
    EXPECT_EQ(Child<QLineEdit>("Text2")->text(), "");
    EXPECT_EQ(Child<QLineEdit>("Text4")->text(), "1000");
    EXPECT_EQ(Child<QComboBox>("Combo3")->currentText(), "=");
    EXPECT_EQ(Child<QScrollBar>("HScroll1")->maximum(), 2);
    EXPECT_TRUE(Child<QLineEdit>("Text2")->hasFocus());
    EXPECT_TRUE(page->Changed());
}

TEST_F(CampiPageGuiTest, TheRemoveButtonDropsTheColumnOnShowAndApplyLowersTheColumns) {
    QTest::keyClick(Child<QLineEdit>("Text2"), Qt::Key_F2);
    QTest::mouseClick(Child<QPushButton>("DelBtn"), Qt::LeftButton);
    EXPECT_EQ(Child<QLineEdit>("Text1")->text(), "0");
    EXPECT_EQ(Child<QLineEdit>("Text2")->text(), "Vecchio");
    QTest::mouseClick(Child<QPushButton>("DelBtn"), Qt::LeftButton);  // one row left: nothing
    EXPECT_EQ(page->Logic().FG().Rows(), 1);
    EXPECT_EQ(control->Control().Cols(), 2);
    page->ApplyChanges();
    EXPECT_EQ(control->Control().Cols(), 1);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(CampiPageGuiTest, ThePrintButtonWritesTheReportThatReadsBackLineByLine) {
    QTest::keyClick(Child<QLineEdit>("Text2"), Qt::Key_F2);  // column 0 saved with its key
    QTest::mouseClick(Child<QPushButton>("StampaBtn"), Qt::LeftButton);
    const auto lines = ReadLines(PercorsoRapporto(dir.path().string()));
    const std::vector<std::string> expected = {
        "****** Colonna N\xC2\xB0 0 ********************",
        " Intestazione: Vecchio", " colswidth: 1500", " Ordinamento: ", " Formato: Nessuno", " CampoQuery: id",
        " Condizione: ", " ImmagineA: 0", " ImmagineB: 0", " Operatore Condizionale: ", " Allineamento: Sinistra",
        " Tool Tip text: ", " Key ID: 0", " Ipertext: 0", " Index iperText: 0", " TTT true: ", " TTT false: ",
        " Scelta Opzionale: 0", " Colonna Forecolor: 0", " Mostra Totale: 0", " Colonna Immagine: 0",
        " Testo scelta: ", "",
        "****** Colonna N\xC2\xB0 1 ********************",
        " Intestazione: Nome", " colswidth: 1500", " Ordinamento: ", " Formato: Nessuno", " CampoQuery: name",
        " Condizione: ", " ImmagineA: 0", " ImmagineB: 0", " Operatore Condizionale: ", " Allineamento: Sinistra",
        " Tool Tip text: ", " Key ID: ", " Ipertext: 0", " Index iperText: 0", " TTT true: ", " TTT false: ",
        " Scelta Opzionale: 0", " Colonna Forecolor: 0", " Mostra Totale: 0", " Colonna Immagine: 0",
        " Testo scelta: ", "",
        "****** FINE ********************"};
    ASSERT_EQ(lines.size(), expected.size());
    for (size_t i = 0; i < lines.size(); ++i) EXPECT_EQ(lines[i], expected[i]) << "line " << i;
    const auto bytes = testing::ReadBytes(PercorsoRapporto(dir.path().string()));
    EXPECT_EQ(std::string(bytes.end() - 2, bytes.end()), "\r\n");
}

TEST_F(CampiPageGuiTest, TypingAColourNumberInTheSwatchRepaintsIt) {
    QLineEdit* swatch = Child<QLineEdit>("LabelColor");
    Retype(swatch, "255");
    EXPECT_EQ(swatch->palette().color(QPalette::Base), QColor(255, 0, 0));
    Retype(swatch, "red");
    EXPECT_EQ(swatch->palette().color(QPalette::Base), QColor(255, 0, 0));
    EXPECT_FALSE(page->Changed());
}

TEST_F(CampiPageGuiTest, WithoutADisplayTheColourDialogWritesALineAndKeepsTheColour) {
    QLineEdit* swatch = Child<QLineEdit>("LabelColor");
    Retype(swatch, "65280");
    ::testing::internal::CaptureStderr();
    QTest::mouseDClick(swatch, Qt::LeftButton);
    const std::string err = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(err.find("the colour dialog needs a display"), std::string::npos) << err;
    EXPECT_EQ(swatch->palette().color(QPalette::Base), QColor(0, 255, 0));
    EXPECT_EQ(swatch->text(), "65280");
}

TEST_F(CampiPageGuiTest, TheColourChosenInTheDialogPaintsTheSwatchAndShowsItsNumber) {
    page->ColourDialogOfPage().setPresentation(QtColourDialog::Presentation::Modal);
    bool seen = false;
    QTimer::singleShot(50, [&] {
        auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) return;
        seen = true;
        dialog->setCurrentColor(QColor(0, 128, 255));
        dialog->accept();
    });
    QLineEdit* swatch = Child<QLineEdit>("LabelColor");
    QTest::mouseDClick(swatch, Qt::LeftButton);
    ASSERT_TRUE(seen);
    EXPECT_EQ(swatch->palette().color(QPalette::Base), QColor(0, 128, 255));
    EXPECT_EQ(swatch->text(), QString::number(Rgb(0, 128, 255)));
    EXPECT_FALSE(page->Changed());
}

TEST_F(CampiPageGuiTest, AFailingButtonRoutineIsShownInACriticalBox) {
    // After a removal the control keeps its columns, so an insertion sets the navigator's end
    // one past the table: the index shown there is no row, and removing it fails.
    QTest::mouseClick(Child<QPushButton>("DelBtn"), Qt::LeftButton);
    QTest::mouseClick(Child<QPushButton>("InsBtn"), Qt::LeftButton);
    QScrollBar* navigator = Child<QScrollBar>("HScroll1");
    QTest::keyClick(navigator, Qt::Key_End);
    ASSERT_EQ(Child<QLineEdit>("Text1")->text(), "2");
    ASSERT_EQ(page->Logic().FG().Rows(), 2);
    QTest::mouseClick(Child<QPushButton>("DelBtn"), Qt::LeftButton);
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].style, MsgBoxStyle::Critical);
    EXPECT_EQ(messages.shown[0].prompt, Error::OutOfBounds().description());
    EXPECT_EQ(page->Logic().FG().Rows(), 2);
}

TEST_F(CampiPageGuiTest, TheFormRendersItsFieldsAndCaptionsToAPicture) {
    QApplication::processEvents();
    const QImage shot = page->grab().toImage();
    ASSERT_FALSE(shot.isNull());
    // Every field stands inside the page, none over another.
    std::vector<QRect> areas;
    for (QWidget* w : page->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (!w->isVisible()) continue;
        const QRect area = w->geometry();
        EXPECT_TRUE(page->rect().contains(area)) << w->objectName().toStdString();
        for (const QRect& other : areas) EXPECT_FALSE(area.intersects(other)) << w->objectName().toStdString();
        areas.push_back(area);
    }
    // 20 captions, the free width, 23 fields, the index, the navigator and 3 buttons.
    EXPECT_EQ(areas.size(), 49u);
    // The picture of the form goes next to the test binary, for a person to look at.
    const QString path = QDir(QStringLiteral(TABULON_TEST_OUTPUT_DIR)).filePath(QStringLiteral("campi_page.png"));
    ASSERT_TRUE(shot.save(path, "PNG")) << path.toStdString();
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
