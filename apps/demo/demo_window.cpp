#include "demo_window.h"

#include <QLabel>
#include <QVBoxLayout>
#include <exception>

#include "platform/runtime/error.h"
#include "status_pictures.h"

namespace TabulonLib12::Demo {

namespace {

struct ColumnDesign {
    const char* heading;
    const char* field;
    const char* format;
    int16_t width;      // twips, for the design width of the control
    int16_t alignment;  // 0 left, 1 right, 2 centred
    const char* choice = nullptr;  // the column chooser's caption of an optional column
};

// The orders as the demo shows them: the key, the customer and city, the date, the quantity
// and the amount (both totalled under the list), whether it is paid, and the customer's row
// colour, kept in a column of width 0.
constexpr ColumnDesign kColumns[] = {
    {"N.", "id", "Nessuno", 900, 1},
    {"Cliente", "customer", "Nessuno", 3900, 0},
    {"Città", "city", "Nessuno", 2100, 0, "Mostra la città"},
    {"Data", "order_date", "Data", 1400, 2, "Mostra la data"},
    {"Quantità", "quantity", "Numerico", 1200, 1, "Mostra la quantità"},
    {"Importo", "amount", "Valuta", 1800, 1},
    {"", "paid", "Nessuno", 1000, 2},  // headed by its picture, whose tooltip names it
    {"Colore", "colour", "Nessuno", 0, 0},
};
constexpr int16_t kQuantityColumn = 4;
constexpr int16_t kAmountColumn = 5;
constexpr int16_t kPaidColumn = 6;
constexpr int16_t kColourColumn = 7;
constexpr const char* kQuery =
    "SELECT id, customer, city, order_date, quantity, amount, paid, colour FROM v_orders ORDER BY id";

}  // namespace

DemoWindow::DemoWindow(const std::string& databasePath, const std::string& choiceFile)
    : databasePath_(databasePath), choiceFile_(choiceFile) {
    setWindowTitle(QStringLiteral("Tabulon12 demo"));
    setObjectName(QStringLiteral("FormDemo"));
    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(6);

    // The control with Qt's services, the engine for files and servers included.
    list_ = new Tabulon12Widget(central);
    list_->setMinimumSize(400, 300);
    list_->setEvents(this);
    // The host form is this window: it holds the image list that the control finds by name, and
    // its wheel scrolls the list wherever the pointer is.
    form_ = list_->WindowForm();
    form_->Add(std::make_shared<ImageList>("ImmaginiStato", std::vector<Picture>{PaidPicture(), OpenPicture()}));
    Control().setFormContenitore(form_);

    layout->addWidget(list_, 1);
    layout->addWidget(new QLabel(QStringLiteral("Eventi del controllo"), central));
    log_ = new QPlainTextEdit(central);
    log_->setReadOnly(true);
    log_->setFixedHeight(130);
    layout->addWidget(log_);
    setCentralWidget(central);
    resize(1000, 700);
}

DemoWindow::~DemoWindow() {
    // The control raises no more events into this window; then the widget goes with the control
    // and its services, before the window's own members.
    list_->setEvents(nullptr);
    delete takeCentralWidget();
    list_ = nullptr;
    log_ = nullptr;
}

std::optional<std::string> DemoWindow::ReadProblem() {
    try {
        std::shared_ptr<Database> db = list_->Engine().OpenDatabase(databasePath_, OpenOptions{});
        db->OpenRecordset(kQuery)->Close();
        db->Close();
        return std::nullopt;
    } catch (const Error& e) {
        return e.description();
    } catch (const std::exception& e) {
        return std::string(e.what());
    }
}

void DemoWindow::Load() {
    Tabulon12& c = Control();
    const int16_t count = static_cast<int16_t>(std::size(kColumns));
    c.setCols(count);
    for (int16_t i = 0; i < count; ++i) {
        c.setIntestazione(i, kColumns[i].heading);
        c.setCampoQuery(i, kColumns[i].field);
        c.setFormato(i, kColumns[i].format);
        c.setColsWidth(i, kColumns[i].width);
        c.setColAlignment(i, kColumns[i].alignment);
        if (kColumns[i].choice) {
            c.setColonnaOpzionale(i, 1);
            c.setTestoScelta(i, kColumns[i].choice);
            c.setBackColorCol(i, 0xFFFFFF);
        }
    }
    // The user hides the optional columns with the chooser at the top right; the choice lives
    // in its file.
    c.setConsentiSceltaColonne(true);
    c.setFileScelta(choiceFile_);
    c.setWheelStatus(true);
    // The payment column shows a picture by a condition on its truth value.
    c.setCondizione(kPaidColumn, "True");
    c.setOperatoreCondizionale(kPaidColumn, "=");
    c.setImageLista("ImmaginiStato");
    c.setImmagineA(kPaidColumn, 1);
    c.setImmagineB(kPaidColumn, 2);
    c.setToolTT(kPaidColumn, "Pagato");
    c.setStileTesta(StileTestaType::Ice);
    c.setStileTestaOver(StileTestaType::Sky);
    c.setColonnaColore(kColourColumn);
    c.setMostraTotCol(kQuantityColumn, 1);
    c.setMostraTotCol(kAmountColumn, 1);
    c.setTestoCount("Righe visualizzate:");
    c.setDataBaseName(databasePath_);
    c.setQueryString(kQuery);
    c.Carica();
}

void DemoWindow::Log(const QString& line) { log_->appendPlainText(line); }

void DemoWindow::KeyDown(int16_t& KeyCode, int16_t& Shift) {
    Log(QStringLiteral("KeyDown %1 %2").arg(KeyCode).arg(Shift));
}
void DemoWindow::KeyPress(int16_t& KeyAscii) { Log(QStringLiteral("KeyPress %1").arg(KeyAscii)); }
void DemoWindow::KeyUp(int16_t& KeyCode, int16_t& Shift) { Log(QStringLiteral("KeyUp %1 %2").arg(KeyCode).arg(Shift)); }
void DemoWindow::MouseMove(int16_t&, int16_t&, float&, float&) {}  // too many to log
void DemoWindow::GoDown() { Log(QStringLiteral("GoDown")); }
void DemoWindow::GoUp() { Log(QStringLiteral("GoUp")); }
void DemoWindow::Caricato() {
    Log(QStringLiteral("Caricato: %1 righe").arg(Control().RighePiene()));
}
void DemoWindow::Click() { Log(QStringLiteral("Click")); }
void DemoWindow::DblClick() { Log(QStringLiteral("DblClick")); }
void DemoWindow::MouseDown(int16_t& Button, int16_t& Shift, float& x, float& y) {
    Log(QStringLiteral("MouseDown %1 %2 %3 %4").arg(Button).arg(Shift).arg(x).arg(y));
}
void DemoWindow::MouseUp(int16_t& Button, int16_t& Shift, float& x, float& y) {
    Log(QStringLiteral("MouseUp %1 %2 %3 %4").arg(Button).arg(Shift).arg(x).arg(y));
}
void DemoWindow::EnterCell() {}  // raised for every painted cell move; not logged
void DemoWindow::LeaveCell() {}
void DemoWindow::CellClick(int32_t& RigaClick, int16_t& ColonnaClick) {
    Log(QStringLiteral("CellClick riga %1 colonna %2").arg(RigaClick).arg(ColonnaClick));
}
void DemoWindow::CellDblClick(int32_t& RigaClick, int16_t& ColonnaClick) {
    Log(QStringLiteral("CellDblClick riga %1 colonna %2").arg(RigaClick).arg(ColonnaClick));
}
void DemoWindow::CellRightClick(int32_t& RigaClick, int16_t& ColonnaClick) {
    Log(QStringLiteral("CellRightClick riga %1 colonna %2").arg(RigaClick).arg(ColonnaClick));
}
void DemoWindow::CellMouseMove(int32_t&, int16_t&) {}
void DemoWindow::IperTextClick(int32_t& RigaClick, int16_t& ColonnaClick, int32_t& IdAssociato,
                               std::string& TestoIperTxt) {
    Log(QStringLiteral("IperTextClick riga %1 colonna %2 id %3 %4")
            .arg(RigaClick)
            .arg(ColonnaClick)
            .arg(IdAssociato)
            .arg(QString::fromStdString(TestoIperTxt)));
}
void DemoWindow::Resize() {
    Log(QStringLiteral("Resize %1 x %2").arg(list_->width()).arg(list_->height()));
    // A taller list has rows that nothing painted yet: writing the top row repaints the window.
    if (Control().RighePiene() > 0) Control().setTopRow(Control().TopRow());
}

}  // namespace TabulonLib12::Demo
