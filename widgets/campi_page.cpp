#include "widgets/campi_page.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>
#include <new>

#include "platform/qt/qt_message_box.h"
#include "platform/runtime/error.h"

namespace TabulonLib12 {

// The Qt widgets of the form (children of the page, deleted with it), their adapters, the frame
// and the logic, declared in that order so that the logic goes first.
struct CampiPage::Form {
    // Widgets.
    QLineEdit* text1;
    QScrollBar* hscroll1;
    QLabel* label11;
    QLineEdit *text2, *text4, *text8, *text3, *text5, *text9, *text10, *textTTT, *text6, *text7, *textTTTvero,
        *textTTTfalso, *text11, *text12, *textScelta;
    QComboBox *combo1, *combo3, *combo4;
    QCheckBox *checkIT, *check1, *checkScelta, *checkMostraTotCol;
    SwatchLineEdit* labelColor;
    QPushButton *insBtn, *delBtn, *stampaBtn;

    // Adapters.
    std::unique_ptr<LineEditField> aText1, aText2, aText4, aText8, aText3, aText5, aText9, aText10, aTextTTT, aText6,
        aText7, aTextTTTvero, aTextTTTfalso, aText11, aText12, aTextScelta;
    std::unique_ptr<ComboBoxField> aCombo1, aCombo3, aCombo4;
    std::unique_ptr<CheckBoxField> aCheckIT, aCheck1, aCheckScelta, aCheckMostraTotCol;
    std::unique_ptr<SwatchEditField> aLabelColor;
    std::unique_ptr<ScrollBarField> aHScroll1;
    std::unique_ptr<LabelField> aLabel11;
    std::unique_ptr<QtColourDialog> cd1;
    std::unique_ptr<QtMessageBox> ownMessages;

    BasicPageSite site;
    std::unique_ptr<Campi> logic;
};

namespace {

template <class W>
W* Named(W* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

}  // namespace

CampiPage::CampiPage(QWidget* parent, MessageBoxService* messages) : QWidget(parent), form_(std::make_unique<Form>()) {
    Form& f = *form_;
    auto line = [this](const char* name) { return Named(new QLineEdit(this), name); };
    auto combo = [this](const char* name) { return Named(new QComboBox(this), name); };
    auto check = [this](const char* name, const char* caption) {
        return Named(new QCheckBox(QString::fromUtf8(caption), this), name);
    };

    f.text1 = line("Text1");
    // The index follows the navigator: it tells which row the fields came from.
    f.text1->setReadOnly(true);
    f.hscroll1 = Named(new QScrollBar(Qt::Horizontal, this), "HScroll1");
    f.label11 = Named(new QLabel(this), "Label11");
    f.text2 = line("Text2");
    f.text4 = line("Text4");
    f.text8 = line("Text8");
    f.combo1 = combo("Combo1");
    f.text3 = line("Text3");
    f.text5 = line("Text5");
    f.text9 = line("Text9");
    f.text10 = line("Text10");
    f.combo3 = combo("Combo3");
    f.combo4 = combo("Combo4");
    f.textTTT = line("TextTTT");
    f.text6 = line("Text6");
    f.checkIT = check("CheckIT", "Ipertesto");
    f.text7 = line("Text7");
    f.textTTTvero = line("TextTTTvero");
    f.textTTTfalso = line("TextTTTfalso");
    f.labelColor = Named(new SwatchLineEdit(this), "LabelColor");
    f.check1 = check("Check1", "Barra Vert. dx");
    f.checkScelta = check("CheckScelta", "Colonna opzionale");
    f.text11 = line("Text11");
    f.checkMostraTotCol = check("CheckMostraTotCol", "Mostra totale");
    f.text12 = line("Text12");
    f.textScelta = line("TextScelta");
    f.insBtn = Named(new QPushButton(QStringLiteral("&Aggiungi"), this), "InsBtn");
    f.delBtn = Named(new QPushButton(QStringLiteral("&Rimuovi"), this), "DelBtn");
    f.stampaBtn = Named(new QPushButton(QStringLiteral("Stampa Rap"), this), "StampaBtn");

    // The form: the navigator on top, the fields in two columns of captions and fields, the
    // buttons at the bottom.
    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("Indice"), this));
    f.text1->setMaximumWidth(60);
    top->addWidget(f.text1);
    top->addWidget(f.hscroll1, 1);
    top->addWidget(f.label11);

    auto* grid = new QGridLayout;
    struct Entry {
        const char* caption;  // null for a check box, which carries its own
        QWidget* field;
    };
    const Entry left[] = {{"Intestazione", f.text2},   {"Dimens", f.text4},        {"Ordinamento", f.text8},
                          {"Formato", f.combo1},       {"Campo della query", f.text3}, {"Condizione", f.text5},
                          {"Immagine Vero", f.text9},  {"Immagine Falso", f.text10}, {"Operatore", f.combo3},
                          {"Allineamento", f.combo4},  {"Image ToolTipText", f.textTTT}, {"Key ID", f.text6}};
    const Entry right[] = {{nullptr, f.checkIT},          {"Colonna Index IT", f.text7},
                           {"ToolTipText vero", f.textTTTvero}, {"ToolTipText falso", f.textTTTfalso},
                           {"Back Color Col", f.labelColor}, {nullptr, f.check1},
                           {nullptr, f.checkScelta},     {"Colonna Forecolor", f.text11},
                           {nullptr, f.checkMostraTotCol}, {"Colonna Immagine", f.text12},
                           {"Testo scelta", f.textScelta}};
    auto place = [&](const Entry& e, int row, int column) {
        if (e.caption != nullptr) {
            auto* caption = new QLabel(QString::fromUtf8(e.caption), this);
            caption->setBuddy(e.field);
            grid->addWidget(caption, row, column);
        }
        grid->addWidget(e.field, row, column + 1);
    };
    int row = 0;
    for (const Entry& e : left) place(e, row++, 0);
    row = 0;
    for (const Entry& e : right) place(e, row++, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(f.insBtn);
    buttons->addWidget(f.delBtn);
    buttons->addStretch(1);
    buttons->addWidget(f.stampaBtn);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(grid);
    layout->addLayout(buttons);
    layout->addStretch(1);

    // Adapters, frame and logic.
    f.aText1 = std::make_unique<LineEditField>(*f.text1);
    f.aText2 = std::make_unique<LineEditField>(*f.text2);
    f.aText4 = std::make_unique<LineEditField>(*f.text4);
    f.aText8 = std::make_unique<LineEditField>(*f.text8);
    f.aText3 = std::make_unique<LineEditField>(*f.text3);
    f.aText5 = std::make_unique<LineEditField>(*f.text5);
    f.aText9 = std::make_unique<LineEditField>(*f.text9);
    f.aText10 = std::make_unique<LineEditField>(*f.text10);
    f.aTextTTT = std::make_unique<LineEditField>(*f.textTTT);
    f.aText6 = std::make_unique<LineEditField>(*f.text6);
    f.aText7 = std::make_unique<LineEditField>(*f.text7);
    f.aTextTTTvero = std::make_unique<LineEditField>(*f.textTTTvero);
    f.aTextTTTfalso = std::make_unique<LineEditField>(*f.textTTTfalso);
    f.aText11 = std::make_unique<LineEditField>(*f.text11);
    f.aText12 = std::make_unique<LineEditField>(*f.text12);
    f.aTextScelta = std::make_unique<LineEditField>(*f.textScelta);
    f.aCombo1 = std::make_unique<ComboBoxField>(*f.combo1);
    f.aCombo3 = std::make_unique<ComboBoxField>(*f.combo3);
    f.aCombo4 = std::make_unique<ComboBoxField>(*f.combo4);
    f.aCheckIT = std::make_unique<CheckBoxField>(*f.checkIT);
    f.aCheck1 = std::make_unique<CheckBoxField>(*f.check1);
    f.aCheckScelta = std::make_unique<CheckBoxField>(*f.checkScelta);
    f.aCheckMostraTotCol = std::make_unique<CheckBoxField>(*f.checkMostraTotCol);
    f.aLabelColor = std::make_unique<SwatchEditField>(*f.labelColor);
    f.aHScroll1 = std::make_unique<ScrollBarField>(*f.hscroll1);
    f.aLabel11 = std::make_unique<LabelField>(*f.label11);
    f.cd1 = std::make_unique<QtColourDialog>(this);
    if (messages == nullptr) {
        f.ownMessages = std::make_unique<QtMessageBox>(this);
        messages = f.ownMessages.get();
    }
    messages_ = messages;
    f.site.onChanged = [this](bool changed) { emit changedStateChanged(changed); };

    f.logic = std::make_unique<Campi>(f.site, CampiFields{
                                                  .Text1 = *f.aText1,
                                                  .Text2 = *f.aText2,
                                                  .Text4 = *f.aText4,
                                                  .Text8 = *f.aText8,
                                                  .Combo1 = *f.aCombo1,
                                                  .Text3 = *f.aText3,
                                                  .Text5 = *f.aText5,
                                                  .Text9 = *f.aText9,
                                                  .Text10 = *f.aText10,
                                                  .Combo3 = *f.aCombo3,
                                                  .Combo4 = *f.aCombo4,
                                                  .TextTTT = *f.aTextTTT,
                                                  .Text6 = *f.aText6,
                                                  .CheckIT = *f.aCheckIT,
                                                  .Text7 = *f.aText7,
                                                  .TextTTTvero = *f.aTextTTTvero,
                                                  .TextTTTfalso = *f.aTextTTTfalso,
                                                  .LabelColor = *f.aLabelColor,
                                                  .Check1 = *f.aCheck1,
                                                  .CheckScelta = *f.aCheckScelta,
                                                  .Text11 = *f.aText11,
                                                  .CheckMostraTotCol = *f.aCheckMostraTotCol,
                                                  .Text12 = *f.aText12,
                                                  .TextScelta = *f.aTextScelta,
                                                  .HScroll1 = *f.aHScroll1,
                                                  .Label11 = *f.aLabel11,
                                                  .CD1 = *f.cd1,
                                              });
    Campi& logic = *f.logic;

    // The user's edits, each as the change of its field.
    const std::pair<QLineEdit*, CampoPagina> edits[] = {
        {f.text2, CampoPagina::Text2},         {f.text4, CampoPagina::Text4},
        {f.text8, CampoPagina::Text8},         {f.text3, CampoPagina::Text3},
        {f.text5, CampoPagina::Text5},         {f.text9, CampoPagina::Text9},
        {f.text10, CampoPagina::Text10},       {f.textTTT, CampoPagina::TextTTT},
        {f.text6, CampoPagina::Text6},         {f.text7, CampoPagina::Text7},
        {f.textTTTvero, CampoPagina::TextTTTvero}, {f.textTTTfalso, CampoPagina::TextTTTfalso},
        {f.text11, CampoPagina::Text11},       {f.text12, CampoPagina::Text12},
        {f.textScelta, CampoPagina::TextScelta}, {f.labelColor, CampoPagina::LabelColor}};
    for (const auto& [edit, field] : edits) {
        connect(edit, &QLineEdit::textEdited, this, [&logic, field] { logic.Change(field); });
    }
    const std::pair<QComboBox*, CampoPagina> picks[] = {
        {f.combo1, CampoPagina::Combo1}, {f.combo3, CampoPagina::Combo3}, {f.combo4, CampoPagina::Combo4}};
    for (const auto& [box, field] : picks) {
        connect(box, &QComboBox::activated, this, [&logic, field] { logic.Change(field); });
    }
    const std::pair<QCheckBox*, CampoPagina> clicks[] = {{f.checkIT, CampoPagina::CheckIT},
                                                          {f.check1, CampoPagina::Check1},
                                                          {f.checkScelta, CampoPagina::CheckScelta},
                                                          {f.checkMostraTotCol, CampoPagina::CheckMostraTotCol}};
    for (const auto& [box, field] : clicks) {
        connect(box, &QCheckBox::clicked, this, [&logic, field] { logic.Change(field); });
    }

    connect(f.hscroll1, &QScrollBar::valueChanged, this, [&logic] { logic.HScroll1_Change(); });
    connect(f.insBtn, &QPushButton::clicked, this, [this, &logic] { Guarded([&] { logic.InsBtn_Click(); }); });
    connect(f.delBtn, &QPushButton::clicked, this, [this, &logic] { Guarded([&] { logic.DelBtn_Click(); }); });
    connect(f.stampaBtn, &QPushButton::clicked, this, [this, &logic] { Guarded([&] { logic.StampaBtn_Click(); }); });
    connect(f.labelColor, &SwatchLineEdit::doubleClicked, this,
            [this, &logic] { Guarded([&] { logic.LabelColor_DblClick(); }); });
    connect(f.labelColor, &SwatchLineEdit::keyReleased, this,
            [&logic](int key, Qt::KeyboardModifiers) {
                // Letters and digits keep their codes; the page reads the text, not the key.
                logic.LabelColor_KeyUp(static_cast<int16_t>(key < 128 ? key : 0), 0);
            });

    // F2 is the page's key whichever field has the focus: every child shows its keys to the
    // page first.
    for (QWidget* child : findChildren<QWidget*>()) child->installEventFilter(this);
}

CampiPage::~CampiPage() {
    // The form's widgets go before the logic and the adapters that refer to them, so that no
    // signal of a dying widget reaches a page that is half gone.
    for (QWidget* child : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        child->removeEventFilter(this);
        delete child;
    }
}

template <class F>
void CampiPage::Guarded(F&& routine) {
    try {
        routine();
    } catch (const Error& e) {
        messages_->MsgBox(e.description(), MsgBoxStyle::Critical, "");
    } catch (const std::bad_alloc&) {
        messages_->MsgBox(Error::OutOfMemory().description(), MsgBoxStyle::Critical, "");
    }
}

bool CampiPage::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_F2) {
            Guarded([&] { form_->logic->KeyDown(kKeyF2, 0); });
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void CampiPage::setSelectedControls(const std::vector<Tabulon12*>& controls) { form_->site.selected = controls; }
void CampiPage::SelectionChanged() { form_->logic->SelectionChanged(); }
void CampiPage::ApplyChanges() { form_->logic->ApplyChanges(); }
bool CampiPage::Changed() const { return form_->site.Changed(); }
std::string CampiPage::ReportFolder() const { return form_->logic->CartellaRapporto(); }
void CampiPage::setReportFolder(const std::string& folder) { form_->logic->setCartellaRapporto(folder); }
QtColourDialog& CampiPage::ColourDialogOfPage() { return *form_->cd1; }
Campi& CampiPage::Logic() { return *form_->logic; }

}  // namespace TabulonLib12
