#include "demo_window.h"

#include <QLabel>
#include <QVBoxLayout>
#include <exception>

#include "apps/shared/sample_pictures.h"
#include "grid/values.h"
#include "pages/creazione.h"
#include "platform/qt/qt_host_window.h"
#include "platform/runtime/error.h"

namespace TabulonLib12::Demo {

namespace {

constexpr const char* kFormName = "FormDemo";

}  // namespace

DemoWindow::DemoWindow(const DemoSetup& setup) : database_(setup.database) {
    const std::string formName = setup.document ? setup.document->Form().FormName() : kFormName;
    setWindowTitle(QStringLiteral("Tabulon12 demo"));
    setObjectName(QString::fromStdString(formName));
    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(6);

    // The host form is this window: it holds the image list that a design finds by name, and
    // its wheel scrolls the list wherever the pointer is. It is ready before the control reads
    // its design, which looks both up.
    form_ = std::make_shared<HostForm>(formName);
    form_->setWindow(std::make_shared<QtHostWindow>(this));
    form_->Add(Apps::SampleImageList());
    Tabulon12Widget::Services services;
    services.host.parentForm = form_;

    // The control with Qt's services, the engine for files and servers included.
    if (setup.document) {
        MemoryPropertyBag design = setup.document->DesignForHost();
        if (!setup.database.empty()) design.Set("DataBaseName", setup.database);
        if (!setup.query.empty()) design.Set("QueryString", setup.query);
        if (!setup.choices.empty()) design.Set("FileScelta", setup.choices);
        else if (DesignText(design, "FileScelta").empty() && !setup.defaultChoices.empty())
            design.Set("FileScelta", setup.defaultChoices);
        password_ = DesignText(design, "Password");
        designedQuery_ = DesignText(design, "QueryString");  // the getter answers it after a load
        services.saved = &design;
        list_ = new Tabulon12Widget(services, central);
    } else {
        query_ = setup.query;
        list_ = new Tabulon12Widget(services, central);
        Control().setFormContenitore(form_);
        Control().setWheelStatus(true);
    }
    list_->setMinimumSize(400, 300);
    list_->setEvents(this);

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

std::optional<std::string> DemoWindow::Prepare() {
    try {
        Tabulon12& c = Control();
        if (!query_.empty()) {
            c.setDataBaseName(database_);
            c.setQueryString(ColumnsFromSource(c, list_->Engine(), database_, query_));
            return std::nullopt;
        }
        OpenOptions options;
        options.connect = ConnectText(password_);
        std::shared_ptr<Database> db = list_->Engine().OpenDatabase(c.DataBaseName(), options);
        db->OpenRecordset(designedQuery_)->Close();
        db->Close();
        return std::nullopt;
    } catch (const Error& e) {
        return e.description();
    } catch (const std::exception& e) {
        return std::string(e.what());
    }
}

void DemoWindow::Load() {
    // New columns show from the next structure build; a restored design has built its own.
    if (!query_.empty()) Control().CaricaStruttura();
    Control().Carica();
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
