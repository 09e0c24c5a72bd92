#include "widgets/creazione_page.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <new>

#include "platform/qt/qt_message_box.h"
#include "platform/runtime/error.h"
#include "widgets/page_adapters.h"

namespace TabulonLib12 {

struct CreazionePage::Form {
    QLineEdit* textDB;
    QPushButton* dbOk;
    QComboBox* comboTabella;
    QPushButton* creaBtn;

    std::unique_ptr<LineEditField> aTextDB;
    std::unique_ptr<ComboBoxField> aComboTabella;
    std::unique_ptr<QtMessageBox> ownMessages;
    MessageBoxService* messages = nullptr;
    BasicPageSite site;
    std::unique_ptr<Creazione> logic;
};

CreazionePage::CreazionePage(DatabaseEngine& engine, QWidget* parent, MessageBoxService* messages)
    : QWidget(parent), form_(std::make_unique<Form>()) {
    Form& f = *form_;
    f.textDB = new QLineEdit(this);
    f.textDB->setObjectName(QStringLiteral("TextDB"));
    f.dbOk = new QPushButton(QStringLiteral("OK"), this);
    f.dbOk->setObjectName(QStringLiteral("DBok"));
    f.comboTabella = new QComboBox(this);
    f.comboTabella->setObjectName(QStringLiteral("ComboTabella"));
    f.creaBtn = new QPushButton(QStringLiteral("Crea"), this);
    f.creaBtn->setObjectName(QStringLiteral("CreaBtn"));

    auto* grid = new QGridLayout;
    auto* dbCaption = new QLabel(QStringLiteral("DB"), this);
    dbCaption->setBuddy(f.textDB);
    grid->addWidget(dbCaption, 0, 0);
    grid->addWidget(f.textDB, 0, 1);
    grid->addWidget(f.dbOk, 0, 2);
    auto* sourceCaption = new QLabel(QStringLiteral("Tabella"), this);
    sourceCaption->setBuddy(f.comboTabella);
    grid->addWidget(sourceCaption, 1, 0);
    grid->addWidget(f.comboTabella, 1, 1);
    grid->addWidget(f.creaBtn, 1, 2);
    grid->setColumnStretch(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch(1);

    f.aTextDB = std::make_unique<LineEditField>(*f.textDB);
    f.aComboTabella = std::make_unique<ComboBoxField>(*f.comboTabella);
    if (messages == nullptr) {
        f.ownMessages = std::make_unique<QtMessageBox>(this);
        messages = f.ownMessages.get();
    }
    f.messages = messages;
    f.logic = std::make_unique<Creazione>(
        f.site, CreazioneFields{.TextDB = *f.aTextDB, .ComboTabella = *f.aComboTabella}, engine, *messages);

    // The routines tell their own failures; what could still escape them goes to the box too.
    auto guarded = [&f](auto routine) {
        return [&f, routine] {
            try {
                routine(*f.logic);
            } catch (const Error& e) {
                f.messages->MsgBox(e.description(), MsgBoxStyle::Critical, "");
            } catch (const std::bad_alloc&) {
                f.messages->MsgBox(Error::OutOfMemory().description(), MsgBoxStyle::Critical, "");
            }
        };
    };
    connect(f.dbOk, &QPushButton::clicked, this, guarded([](Creazione& c) { c.DBok_Click(); }));
    connect(f.creaBtn, &QPushButton::clicked, this, guarded([](Creazione& c) { c.CreaBtn_Click(); }));
    // After the page's own routine, whatever its outcome: the frame shows the new structure.
    connect(f.creaBtn, &QPushButton::clicked, this, [this] {
        emit creaDone(form_->aTextDB->Text(), form_->aComboTabella->Text());
    });
}

CreazionePage::~CreazionePage() {
    for (QWidget* child : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) delete child;
}

void CreazionePage::setSelectedControls(const std::vector<Tabulon12*>& controls) { form_->site.selected = controls; }
void CreazionePage::SelectionChanged() { form_->logic->SelectionChanged(); }
void CreazionePage::setPassword(const std::string& password) { form_->logic->setPassword(password); }
Creazione& CreazionePage::Logic() { return *form_->logic; }

}  // namespace TabulonLib12
