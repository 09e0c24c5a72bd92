// The column editor page: the working table FG between the control and the form, the navigator
// that moves the form from row to row, and the apply that writes FG into the control.
#include "pages/campi.h"

#include <string_view>

#include "control/tabulon12.h"
#include "pages/column_report.h"
#include "pages/page_values.h"
#include "platform/runtime/conversions.h"
#include "platform/runtime/error.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/settings.h"
#include "platform/runtime/steps.h"

namespace TabulonLib12 {

namespace {

// The cells with rules of their own.
constexpr int kCellWidth = PageCellOf("ColsWidth");
constexpr int kCellImmagineA = PageCellOf("ImmagineA");
constexpr int kCellKeyID = PageCellOf("KeyID");
constexpr int kCellIperTextIndex = PageCellOf("IperTextIndex");
constexpr int kCellBarraVert = PageCellOf("MostraBarraVert");
constexpr int kCellForeColor = PageCellOf("ColonnaForeColor");
constexpr int kCellImmagine = PageCellOf("ColonnaImmagine");
static_assert(kCellWidth >= 0 && kCellImmagineA >= 0 && kCellKeyID >= 0 && kCellIperTextIndex >= 0 &&
              kCellBarraVert >= 0 && kCellForeColor >= 0 && kCellImmagine >= 0);

// Runs a statement as a step of `steps`, or plainly (a failure passes) when there is none.
template <class F>
void Statement(Steps* steps, F&& statement) {
    if (steps != nullptr)
        (*steps)(std::forward<F>(statement));
    else
        statement();
}

}  // namespace

Campi::Campi(PropertyPageSite& site, const CampiFields& fields)
    : site_(site), f_(fields), fg_(kPageCellCount), cartellaRapporto_(CartellaRapportoPredefinita()) {
    auto place = [this](std::string_view property, CellField field) {
        const int cell = PageCellOf(property);
        if (cell < 0) throw Error(ErrorKind::MissingObject, 91, "the working table has no cell for " + std::string(property));
        cells_[static_cast<size_t>(cell)] = field;
    };
    place("Intestazione", {.text = &f_.Text2});
    place("ColsWidth", {.text = &f_.Text4});
    place("Ordinamento", {.text = &f_.Text8});
    place("Formato", {.combo = &f_.Combo1});
    place("CampoQuery", {.text = &f_.Text3});
    place("Condizione", {.text = &f_.Text5});
    place("ImmagineA", {.text = &f_.Text9});
    place("ImmagineB", {.text = &f_.Text10});
    place("OperatoreCondizionale", {.combo = &f_.Combo3});
    place("ColAlignment", {.combo = &f_.Combo4});
    place("ToolTT", {.text = &f_.TextTTT});
    place("KeyID", {.text = &f_.Text6});
    place("IsIperText", {.check = &f_.CheckIT});
    place("IperTextIndex", {.text = &f_.Text7});
    place("ToolTTvero", {.text = &f_.TextTTTvero});
    place("ToolTTfalso", {.text = &f_.TextTTTfalso});
    place("BackColorCol", {.swatch = &f_.LabelColor});
    place("MostraBarraVert", {.check = &f_.Check1});
    place("ColonnaOpzionale", {.check = &f_.CheckScelta});
    place("ColonnaForeColor", {.text = &f_.Text11});
    place("MostraTotCol", {.check = &f_.CheckMostraTotCol});
    place("ColonnaImmagine", {.text = &f_.Text12});
    place("TestoScelta", {.text = &f_.TextScelta});
    for (const CellField& c : cells_) {
        if (c.text == nullptr && c.combo == nullptr && c.check == nullptr && c.swatch == nullptr)
            throw Error(ErrorKind::MissingObject, 91, "a cell of the working table has no field");
    }

    f_.Combo1.Clear();
    for (const char* item : kElencoFormati) f_.Combo1.AddItem(item);
    f_.Combo3.Clear();
    for (const char* item : kElencoOperatori) f_.Combo3.AddItem(item);
    f_.Combo4.Clear();
    for (const char* item : kElencoAllineamenti) f_.Combo4.AddItem(item);
    f_.Text1.setText("0");
    f_.Label11.setCaption("(0)");
}

Tabulon12& Campi::Controllo() const {
    if (controllo_ == nullptr) throw Error::MissingObject();
    return *controllo_;
}

// --- The frame's events ---

void Campi::SelectionChanged() {
    if (!paginaCaricata_) CaricaPagina();
}

void Campi::ApplyChanges() {
    ApplicaModifiche();
    // What the frame does once the page has applied: nothing is left to apply.
    site_.setChanged(false);
}

// --- The form's events ---

void Campi::KeyDown(int16_t KeyCode, int16_t /*Shift*/) {
    if (KeyCode != kKeyF2) return;
    if (f_.HScroll1.Max() > f_.HScroll1.Value()) {
        f_.HScroll1.setValue(static_cast<int16_t>(f_.HScroll1.Value() + 1));
        f_.Text2.SetFocus();
    }
}

void Campi::HScroll1_Change() {
    Steps steps;
    if (!eliminazioneInCorso_) SalvaCampi(&steps, Save::Navigator);
    int16_t value = 0;
    if (steps([&] { value = f_.HScroll1.Value(); })) {
        MostraRiga(value, &steps, Show::Navigator);
        steps([&] { f_.Text1.setText(std::to_string(value)); });
    }
    CalcolaSpazioLibero();
}

void Campi::InsBtn_Click() {
    InserisciColonna(IntegerFromText(f_.Text1.Text()));
    f_.Text2.SetFocus();
}

void Campi::DelBtn_Click() {
    if (fg_.Rows() >= 2) RimuoviColonna(IntegerFromText(f_.Text1.Text()));
}

void Campi::StampaBtn_Click() { ScriviRapporto(fg_, cartellaRapporto_); }

void Campi::LabelColor_DblClick() {
    f_.CD1.setColor(f_.LabelColor.BackColor());
    f_.CD1.ShowColor();
    f_.LabelColor.setBackColor(f_.CD1.Color());
    f_.LabelColor.setText(ColourText(f_.CD1.Color()));
}

void Campi::LabelColor_KeyUp(int16_t /*KeyCode*/, int16_t /*Shift*/) {
    Steps steps;
    steps([&] {
        const std::string text = f_.LabelColor.Text();
        // Only a text that is a number as a whole: "12abc" reads 12 at its start but is no number.
        if (!text.empty() && Val(text) == ValoreNumericoTesto(text)) f_.LabelColor.setBackColor(ColourFromText(text));
    });
}

void Campi::Change(CampoPagina field) {
    switch (field) {
        case CampoPagina::Text4:
            CalcolaSpazioLibero();
            site_.setChanged(true);
            break;
        case CampoPagina::Text2:
        case CampoPagina::Text3:
        case CampoPagina::Text5:
        case CampoPagina::Text6:
        case CampoPagina::Text8:
        case CampoPagina::Text9:
        case CampoPagina::Text10:
        case CampoPagina::TextTTT:
        case CampoPagina::TextTTTvero:
        case CampoPagina::TextTTTfalso:
        case CampoPagina::Text11:
        case CampoPagina::Text12:
        case CampoPagina::TextScelta:
        case CampoPagina::Combo1:
        case CampoPagina::Combo3:
        case CampoPagina::Combo4: site_.setChanged(true); break;
        // Deliberately silent: a change in these alone leaves nothing to apply.
        case CampoPagina::CheckIT:
        case CampoPagina::Text7:
        case CampoPagina::LabelColor:
        case CampoPagina::Check1:
        case CampoPagina::CheckScelta:
        case CampoPagina::CheckMostraTotCol: break;
    }
}

// --- The page's routines ---

void Campi::CaricaPagina() {
    paginaCaricata_ = true;
    const auto selected = site_.SelectedControls();
    if (selected.empty()) throw Error::OutOfBounds();
    controllo_ = selected.front();
    Tabulon12& control = Controllo();

    const int16_t cols = control.Cols();
    f_.HScroll1.setMax(static_cast<int16_t>(cols - 1));
    fg_.setRows(cols);
    const auto& bindings = PageCellBindings();
    for (int16_t i = 0; i < fg_.Rows(); ++i) {
        for (const PageCellBinding& b : bindings) fg_.setTextMatrix(i, b.cell, b.read(control, i));
    }
    MostraRiga(0, nullptr, Show::Load);
    CalcolaSpazioLibero();
}

void Campi::CalcolaSpazioLibero() {
    Steps steps;
    double sum = 0;
    for (int r = 0; r < fg_.Rows(); ++r) {
        steps([&] {
            const std::string& width = fg_.TextMatrix(r, kCellWidth);
            if (!width.empty()) sum += ValoreNumericoTesto(width);
        });
    }
    steps([&] {
        const double free = static_cast<double>(Controllo().Superficie().Width()) - sum;
        f_.Label11.setCaption("(" + NumberText(free) + ")");
    });
    steps.Clear();
}

void Campi::InserisciColonna(int16_t index) {
    Tabulon12& control = Controllo();
    control.setCols(ToInt16(static_cast<double>(control.Cols()) + 1));
    fg_.AddItem("", index);

    f_.Text4.setText("1000");
    f_.Combo1.setText("Nessuno");
    f_.Combo3.setText("=");
    f_.Combo4.setText("Sinistra");
    f_.CheckIT.setValue(0);
    f_.CheckScelta.setValue(0);
    for (TextField* t : {&f_.Text2, &f_.Text8, &f_.Text3, &f_.Text5, &f_.Text9, &f_.Text10, &f_.TextTTT, &f_.Text6,
                         &f_.Text7, &f_.TextTTTvero, &f_.TextTTTfalso})
        t->setText("");

    // The value normally stays where it is: the new row keeps the reset fields until the next save.
    f_.HScroll1.setMax(static_cast<int16_t>(control.Cols() - 1));
    f_.HScroll1.setValue(index);

    f_.LabelColor.setBackColor(0xFFFFFF);
    f_.Check1.setValue(0);
    f_.CheckMostraTotCol.setValue(0);
    f_.Text11.setText("0");
    f_.Text12.setText("0");
    f_.TextScelta.setText("");
    site_.setChanged(true);
}

void Campi::RimuoviColonna(int16_t index) {
    // While the row goes, the navigator that the value's change runs must not save the fields
    // into the row that now stands at Text1. The flag drops again also when a step fails.
    struct Removal {
        bool& flag;
        explicit Removal(bool& f) : flag(f) { flag = true; }
        ~Removal() { flag = false; }
    } removal(eliminazioneInCorso_);

    fg_.RemoveItem(index);
    const int16_t oldMax = f_.HScroll1.Max();
    f_.HScroll1.setValue(index > 0 ? static_cast<int16_t>(index - 1) : int16_t{0});
    f_.HScroll1.setMax(static_cast<int16_t>(oldMax - 1));
    MostraRiga(f_.HScroll1.Value(), nullptr, Show::Load);
    eliminazioneInCorso_ = false;
    site_.setChanged(true);
}

void Campi::ApplicaModifiche() {
    Tabulon12& control = Controllo();
    if (!IsNumeric(f_.Text4.Text(), CurrentSettings())) f_.Text4.setText("0");
    SalvaCampi(nullptr, Save::Apply);

    control.setCols(ToInt16(fg_.Rows()));
    const auto& bindings = PageCellBindings();
    for (int16_t i = 0; i < fg_.Rows(); ++i) {
        for (const PageCellBinding& b : bindings) {
            if (b.cell == kCellImmagineA && fg_.TextMatrix(i, b.cell).empty()) fg_.setTextMatrix(i, b.cell, "0");
            b.write(control, i, fg_.TextMatrix(i, b.cell));
        }
    }
    control.CaricaStruttura(false);
}

// --- Between the form and FG ---

void Campi::MostraRiga(int row, Steps* steps, Show mode) {
    for (int cell = 0; cell < kPageCellCount; ++cell) {
        const CellField& c = cells_[static_cast<size_t>(cell)];
        if (c.swatch != nullptr && mode == Show::Navigator) {
            // The navigator shows the colour's number in the swatch as well.
            Statement(steps, [&] { c.swatch->setBackColor(ColourFromText(fg_.TextMatrix(row, cell))); });
            Statement(steps, [&] { c.swatch->setText(ColourText(c.swatch->BackColor())); });
            continue;
        }
        Statement(steps, [&] { MostraCella(row, cell); });
    }
}

void Campi::MostraCella(int row, int cell) {
    const std::string& text = fg_.TextMatrix(row, cell);
    const CellField& c = cells_[static_cast<size_t>(cell)];
    if (c.text != nullptr) {
        c.text->setText(text);
    } else if (c.combo != nullptr) {
        c.combo->setText(text);
    } else if (c.check != nullptr) {
        c.check->setValue(cell == kCellBarraVert ? (BooleanFromText(text) ? 1 : 0) : IntegerFromText(text));
    } else {
        // An empty colour cell shows the control's own back colour; the swatch's text stays.
        c.swatch->setBackColor(text.empty() ? Controllo().BackColor() : ColourFromText(text));
    }
}

void Campi::SalvaCampi(Steps* steps, Save mode) {
    for (int cell = 0; cell < kPageCellCount; ++cell) Statement(steps, [&] { SalvaCella(cell, mode); });
}

void Campi::SalvaCella(int cell, Save mode) {
    const CellField& c = cells_[static_cast<size_t>(cell)];
    std::string value;
    if (c.swatch != nullptr) {
        value = ColourText(c.swatch->BackColor());
    } else if (c.check != nullptr) {
        value = cell == kCellBarraVert ? BooleanText(c.check->Value() != 0) : std::to_string(c.check->Value());
    } else if (c.combo != nullptr) {
        value = c.combo->Text();
    } else {
        TextField& field = *c.text;
        // A column's key defaults to its index, at the moment the navigator leaves it only.
        if (cell == kCellKeyID && mode == Save::Navigator && field.Text().empty()) field.setText(f_.Text1.Text());
        if (cell == kCellIperTextIndex)
            value = mode == Save::Navigator ? NumberText(Val(field.Text())) : field.Text();
        else if (cell == kCellForeColor || cell == kCellImmagine)
            value = NumberText(ValoreNumericoTesto(field.Text()));
        else
            value = field.Text();
    }
    fg_.setTextMatrix(IntegerFromText(f_.Text1.Text()), cell, value);
}

}  // namespace TabulonLib12
