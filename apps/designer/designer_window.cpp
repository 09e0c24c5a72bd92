#include "designer_window.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <new>

#include "apps/shared/sample_pictures.h"
#include "pages/creazione.h"
#include "platform/qt/qt_host_window.h"
#include "platform/runtime/error.h"

namespace TabulonLib12::Designer {

namespace {

QString Q(const std::string& text) { return QString::fromStdString(text); }

}  // namespace

DesignerWindow::DesignerWindow(FormDocument document, const std::string& database, const std::string& query,
                               MessageBoxService* messages)
    : document_(std::move(document)), ownMessages_(this), messages_(messages ? messages : &ownMessages_) {
    setObjectName(Q(document_.Form().FormName()));
    resize(1400, 800);

    // The form the list sits on: this window, with the sample's image list for designs that
    // name it, ready before the list reads its design.
    form_ = std::make_shared<HostForm>(document_.Form().FormName());
    form_->setWindow(std::make_shared<QtHostWindow>(this));
    form_->Add(Apps::SampleImageList());
    Tabulon12Widget::Services services;
    services.host.parentForm = form_;
    services.host.messages = messages_;
    const MemoryPropertyBag design = document_.DesignForHost();
    password_ = DesignText(design, "Password");
    if (document_.HasDesign()) services.saved = &design;

    auto* splitter = new QSplitter(Qt::Horizontal, this);
    list_ = new Tabulon12Widget(services, splitter);
    list_->setObjectName(Q(document_.ControlName()));
    list_->setMinimumSize(480, 320);
    Tabulon12& c = list_->Control();
    if (!document_.HasDesign()) c.setFormContenitore(form_);
    if (!database.empty()) c.setDataBaseName(database);
    if (!query.empty()) {
        c.setQueryString(document_.HasDesign() ? query
                                               : ColumnsFromSource(c, list_->Engine(), c.DataBaseName(), query, password_));
    }
    if (!document_.HasDesign() || !database.empty() || !query.empty()) c.CaricaStruttura();

    side_ = new QWidget(splitter);
    QWidget* side = side_;
    auto* sideLayout = new QVBoxLayout(side);
    sideLayout->setContentsMargins(6, 0, 0, 0);
    auto* data = new QGroupBox(QStringLiteral("Dati"), side);
    auto* dataLayout = new QFormLayout(data);
    database_ = new QLineEdit(data);
    database_->setObjectName(QStringLiteral("DataBaseName"));
    query_ = new QLineEdit(data);
    query_->setObjectName(QStringLiteral("QueryString"));
    dataLayout->addRow(QStringLiteral("Database"), database_);
    dataLayout->addRow(QStringLiteral("Query"), query_);
    sideLayout->addWidget(data);

    auto* tabs = new QTabWidget(side);
    campi_ = new CampiPage(tabs, messages_);
    creazione_ = new CreazionePage(list_->Engine(), tabs, messages_);
    creazione_->setPassword(password_);
    tabs->addTab(campi_, QStringLiteral("Campi"));
    tabs->addTab(creazione_, QStringLiteral("Creazione"));
    sideLayout->addWidget(tabs, 1);

    auto* buttons = new QHBoxLayout();
    apply_ = new QPushButton(QStringLiteral("&Applica"), side);
    apply_->setObjectName(QStringLiteral("Applica"));
    auto* save = new QPushButton(QStringLiteral("&Salva"), side);
    save->setObjectName(QStringLiteral("Salva"));
    auto* saveAs = new QPushButton(QStringLiteral("Salva &come..."), side);
    saveAs->setObjectName(QStringLiteral("SalvaCome"));
    buttons->addStretch(1);
    buttons->addWidget(apply_);
    buttons->addWidget(save);
    buttons->addWidget(saveAs);
    sideLayout->addLayout(buttons);

    splitter->addWidget(list_);
    splitter->addWidget(side);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    splitter->setSizes({870, 530});
    setCentralWidget(splitter);

    // Both pages edit the list.
    campi_->setSelectedControls({&list_->Control()});
    creazione_->setSelectedControls({&list_->Control()});
    try {
        campi_->SelectionChanged();
        creazione_->SelectionChanged();
    } catch (const Error& e) {
        Fail(e.description());
    }
    database_->setText(Q(c.DataBaseName()));
    query_->setText(Q(query.empty() ? DesignText(design, "QueryString") : c.QueryString()));

    connect(apply_, &QPushButton::clicked, this, [this] { Apply(); });
    connect(save, &QPushButton::clicked, this, [this] { Save(); });
    connect(saveAs, &QPushButton::clicked, this, [this] { SaveAs(); });
    connect(creazione_, &CreazionePage::creaDone, this,
            [this](const std::string& database, const std::string& source) { OnCreaDone(database, source); });
    connect(campi_, &CampiPage::changedStateChanged, this, [this](bool changed) {
        if (changed) setModified(true);
    });
    connect(database_, &QLineEdit::textEdited, this, [this] { setModified(true); });
    connect(query_, &QLineEdit::textEdited, this, [this] { setModified(true); });
    setModified(false);
}

DesignerWindow::~DesignerWindow() {
    // The pages edit the list: they go first, then the list with its control.
    delete side_;
    delete takeCentralWidget();
}

void DesignerWindow::LoadList() {
    Tabulon12& c = list_->Control();
    if (database_->text().isEmpty() || query_->text().isEmpty()) return;
    c.Carica();
    statusBar()->showMessage(QStringLiteral("%1 righe").arg(c.RighePiene()));
}

bool DesignerWindow::Apply() {
    Tabulon12& c = list_->Control();
    try {
        if (campi_->Changed()) campi_->ApplyChanges();
        c.setDataBaseName(database_->text().toStdString());
        c.setQueryString(query_->text().toStdString());
        c.CaricaStruttura();
    } catch (const Error& e) {
        Fail(e.description());
        return false;
    } catch (const std::bad_alloc&) {
        Fail(Error::OutOfMemory().description());
        return false;
    }
    setModified(true);
    LoadList();
    return true;
}

void DesignerWindow::OnCreaDone(const std::string& database, const std::string& source) {
    if (database.empty() || source.empty()) return;
    Tabulon12& c = list_->Control();
    try {
        const std::string query = SourceQuery(list_->Engine(), database, source, password_);
        database_->setText(Q(database));
        query_->setText(Q(query));
        c.setDataBaseName(database);
        c.setQueryString(query);
        campi_->Logic().CaricaPagina();
        campi_->Logic().ApplicaModifiche();
    } catch (const Error& e) {
        Fail(e.description());
        return;
    } catch (const std::bad_alloc&) {
        Fail(Error::OutOfMemory().description());
        return;
    }
    setModified(true);
    LoadList();
}

bool DesignerWindow::Save(const std::string& path) {
    try {
        document_.Save(*list_, path);
    } catch (const Error& e) {
        Fail(e.description());
        return false;
    }
    setModified(false);
    statusBar()->showMessage(QStringLiteral("Salvato in %1").arg(Q(document_.Path())));
    return true;
}

void DesignerWindow::SaveAs() {
    if (QtMessageBox::Headless()) {
        Fail("Salva come needs a display to ask for the file");
        return;
    }
    const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Salva come"), Q(document_.Path()),
                                                      QStringLiteral("Form file (*.form.json *.json)"));
    if (!path.isEmpty()) Save(path.toStdString());
}

void DesignerWindow::setModified(bool modified) {
    modified_ = modified;
    const QString name = QFileInfo(Q(document_.Path())).fileName();
    setWindowTitle(QStringLiteral("Tabulon12 designer - %1%2").arg(name, modified ? QStringLiteral(" *") : QString()));
}

void DesignerWindow::Fail(const std::string& description) {
    messages_->MsgBox(description, MsgBoxStyle::Critical, "");
}

}  // namespace TabulonLib12::Designer
