// The scalar settings, colours and font of the control, and the members of the current cell.
// Each setting is held by the component it governs; a write stores it there, reaches what shows
// it, and notifies the host.
#include "control/tabulon12_impl.h"
#include "platform/runtime/steps.h"

namespace TabulonLib12 {

// A setting that a component holds and nothing else shows: stored there and notified.
#define TABULON_COMPONENT_SETTING(Name, Type, Owner)          \
    Type Tabulon12::Name() const { return impl_->Owner.Name(); } \
    void Tabulon12::set##Name(Type New_##Name) {              \
        impl_->Owner.set##Name(New_##Name);                   \
        impl_->PropertyChanged(#Name);                        \
    }

// A setting that only the host and the property store read.
#define TABULON_HOST_SETTING(Name, Type)                      \
    Type Tabulon12::Name() const { return impl_->Name; }      \
    void Tabulon12::set##Name(Type New_##Name) {              \
        impl_->Name = New_##Name;                             \
        impl_->PropertyChanged(#Name);                        \
    }

TABULON_HOST_SETTING(ActiveCol, int16_t)
TABULON_HOST_SETTING(IperTextEnabled, bool)
TABULON_HOST_SETTING(BackColor2, Colour)
TABULON_HOST_SETTING(BackColorSel, Colour)
TABULON_HOST_SETTING(ForeColorSel, Colour)
TABULON_COMPONENT_SETTING(ColonnaColore, int16_t, painter)
TABULON_COMPONENT_SETTING(BackColorSelected, Colour, painter)
TABULON_COMPONENT_SETTING(IperTextColor, Colour, painter)
TABULON_COMPONENT_SETTING(SelezioneMultiplaImmediata, bool, selection)
TABULON_COMPONENT_SETTING(StileArrow, ColorArrowType, band)
TABULON_COMPONENT_SETTING(ForeColorOrd, Colour, band)
#undef TABULON_COMPONENT_SETTING
#undef TABULON_HOST_SETTING

bool Tabulon12::WheelStatus() const { return impl_->keys.WheelStatus(); }
// True hooks the wheel of the form's window (a form without a window hooks nothing); without a
// form the write fails after storing the value. False takes the hook away.
void Tabulon12::setWheelStatus(bool New_WheelStatus) {
    auto& s = *impl_;
    s.keys.setWheelStatus(New_WheelStatus);
    if (New_WheelStatus) {
        if (!s.ParentForm) throw Error::MissingObject();
        s.keys.AgganciaRotella(s.ParentForm->Window());
    } else {
        s.keys.SganciaRotella();
    }
    s.PropertyChanged("WheelStatus");
}

void Tabulon12::Terminate() { impl_->keys.SganciaRotella(); }

std::string Tabulon12::FileScelta() const { return impl_->chooser.FileScelta(); }
void Tabulon12::setFileScelta(const std::string& New_FileScelta) {
    impl_->chooser.setFileScelta(New_FileScelta);
    impl_->PropertyChanged("FileScelta");
}

std::string Tabulon12::TestoCount() const { return impl_->totals.TestoCount(); }
void Tabulon12::setTestoCount(const std::string& New_TestoCount) {
    impl_->totals.setTestoCount(New_TestoCount);
    impl_->totals.ShowCount(impl_->RighePiene);
    impl_->PropertyChanged("TestoCount");
}

float Tabulon12::TotaleColonna(int16_t Colonna) const {
    const auto& totals = impl_->TotaliColonna;
    if (Colonna < 0 || static_cast<size_t>(Colonna) >= totals.size()) throw Error::OutOfBounds();
    return totals[static_cast<size_t>(Colonna)];
}

std::string Tabulon12::StringaTotCol() const { return TotalsAndCount::StringaTotCol(impl_->columns); }

int16_t Tabulon12::MinRows() const { return impl_->structure.MinRows(); }
void Tabulon12::setMinRows(int16_t) { impl_->PropertyChanged("MinRows"); }

std::string Tabulon12::QueryString() const { return impl_->QueryString; }
void Tabulon12::setQueryString(const std::string& New_QueryString) {
    impl_->QueryCaricamento = New_QueryString;
    impl_->QueryString = New_QueryString;
    impl_->PropertyChanged("QueryString");
}

int32_t Tabulon12::BottomHeight() const { return impl_->structure.BottomHeight(); }
void Tabulon12::setBottomHeight(int32_t New_BottomHeight) {
    impl_->structure.setBottomHeight(New_BottomHeight);
    impl_->LayoutRidimensionamento();
    impl_->PropertyChanged("BottomHeight");
}

bool Tabulon12::MultiSel() const { return impl_->selection.MultiSel(); }
void Tabulon12::setMultiSel(bool New_MultiSel) {
    impl_->selection.setMultiSel(New_MultiSel, impl_->Cols);
    impl_->PropertyChanged("MultiSel");
}

bool Tabulon12::ConsentiSceltaColonne() const { return impl_->chooser.ConsentiSceltaColonne(); }
void Tabulon12::setConsentiSceltaColonne(bool New_ConsentiSceltaColonne) {
    impl_->chooser.setConsentiSceltaColonne(New_ConsentiSceltaColonne);
    impl_->PropertyChanged("ConsentiSceltaColonne");
}

bool Tabulon12::AdattamentoColonneDisattivato() const { return impl_->structure.AdattamentoColonneDisattivato(); }
void Tabulon12::setAdattamentoColonneDisattivato(bool New_AdattamentoColonneDisattivato) {
    // Rebuilds at once and, unlike the other settings, notifies nobody.
    impl_->structure.setAdattamentoColonneDisattivato(New_AdattamentoColonneDisattivato);
    impl_->CaricaStruttura();
}

Colour Tabulon12::BackColor() const { return impl_->surface.BackColor(); }
void Tabulon12::setBackColor(Colour New_BackColor) {
    impl_->surface.setBackColor(New_BackColor);
    impl_->BackColor = New_BackColor;
    impl_->ColoraSfondoRighe();
    impl_->PropertyChanged("BackColor");
}

Colour Tabulon12::BackColorSfondo() const { return impl_->surface.BackColor(); }
void Tabulon12::setBackColorSfondo(Colour New_BackColorSfondo) {
    impl_->surface.setBackColor(New_BackColorSfondo);
    impl_->FG1.setBackColorBkg(impl_->surface.BackColor());
    impl_->PropertyChanged("BackColorSfondo");
}

Colour Tabulon12::BackColorTopScheda() const { return impl_->band.BackColorTopScheda(); }
void Tabulon12::setBackColorTopScheda(Colour New_BackColorTopScheda) {
    impl_->band.setBackColorTopScheda(New_BackColorTopScheda);
    impl_->PropertyChanged("BackColorTopScheda");
}

Colour Tabulon12::BorderColor() const { return impl_->elements.Shape1->BorderColor(); }
void Tabulon12::setBorderColor(Colour New_BorderColor) {
    impl_->elements.Shape1->setBorderColor(New_BorderColor);
    impl_->PropertyChanged("BorderColor");
}

Colour Tabulon12::ForeColor() const { return impl_->painter.ForeColor(); }
void Tabulon12::setForeColor(Colour New_ForeColor) {
    impl_->painter.setForeColor(New_ForeColor);
    impl_->PropertyChanged("ForeColor");
}

Colour Tabulon12::ForeColorHead() const { return impl_->band.ForeColorHead(); }
void Tabulon12::setForeColorHead(Colour New_ForeColorHead) {
    impl_->band.setForeColorHead(New_ForeColorHead);
    impl_->PropertyChanged("ForeColorHead");
}

Colour Tabulon12::ColorGridHead() const { return impl_->band.ColorGridHead(); }
void Tabulon12::setColorGridHead(Colour New_ColorGridHead) {
    impl_->band.setColorGridHead(New_ColorGridHead);
    impl_->PropertyChanged("ColorGridHead");
}

Colour Tabulon12::GridColor() const { return impl_->FG1.GridColor(); }
void Tabulon12::setGridColor(Colour New_GridColor) {
    impl_->FG1.setGridColor(New_GridColor);
    impl_->PropertyChanged("GridColor");
}

Colour Tabulon12::VerticalGridColor() const { return impl_->bands.VerticalGridColor(); }
// A line not built yet fails the write with error 340, after the lines before it took the colour.
void Tabulon12::setVerticalGridColor(Colour New_VerticalGridColor) {
    impl_->bands.setVerticalGridColor(New_VerticalGridColor, impl_->Cols);
    impl_->PropertyChanged("VerticalGridColor");
}

bool Tabulon12::VerticalGrid() const { return impl_->bands.VerticalGrid(); }
// A line not built yet fails the write with error 340, after the switch is stored.
void Tabulon12::setVerticalGrid(bool New_VerticalGrid) {
    impl_->bands.setVerticalGrid(New_VerticalGrid, impl_->Cols);
    impl_->PropertyChanged("VerticalGrid");
}

StileTestaType Tabulon12::StileTesta() const { return impl_->band.StileTesta(); }
// A style without a texture (50, say) fails with error 340 after it is stored, and notifies nobody.
void Tabulon12::setStileTesta(StileTestaType New_StileTesta) {
    impl_->band.setStileTesta(New_StileTesta);
    impl_->PropertyChanged("StileTesta");
}

StileTestaType Tabulon12::StileTestaOver() const { return impl_->band.StileTestaOver(); }
void Tabulon12::setStileTestaOver(StileTestaType New_StileTestaOver) {
    impl_->band.setStileTestaOver(New_StileTestaOver);
    impl_->PropertyChanged("StileTestaOver");
}

void Tabulon12::setCustomPictureStyle(Picture New_CustomPictureStyle) {
    impl_->pictures.setCustomStyle(New_CustomPictureStyle);
    impl_->band.CustomTextureChanged(New_CustomPictureStyle);
}
void Tabulon12::setCustomPicArrowUp(Picture New_CustomPicArrowUp) {
    impl_->pictures.setCustomArrowUp(std::move(New_CustomPicArrowUp));
}
void Tabulon12::setCustomPicArrowDown(Picture New_CustomPicArrowDown) {
    impl_->pictures.setCustomArrowDown(std::move(New_CustomPicArrowDown));
}

Font Tabulon12::GetFont() const { return impl_->FG1.GetFont(); }
void Tabulon12::setFont(const Font& New_Font) {
    impl_->FG1.setFont(New_Font);
    impl_->PropertyChanged("Font");
}

int32_t Tabulon12::CellTop() const { return impl_->FG1.CellTop(); }
int32_t Tabulon12::CellLeft() const { return impl_->FG1.CellLeft(); }
bool Tabulon12::CellFontUnderline() const { return impl_->FG1.CellFontUnderline(); }
void Tabulon12::setCellFontUnderline(bool New_CellFontUnderline) {
    impl_->FG1.setCellFontUnderline(New_CellFontUnderline);
    impl_->PropertyChanged("CellFontUnderline");
}
Colour Tabulon12::CellBackColor() const { return impl_->FG1.CellBackColor(); }
void Tabulon12::setCellBackColor(Colour New_CellBackColor) {
    impl_->FG1.setCellBackColor(New_CellBackColor);
    impl_->PropertyChanged("CellBackColor");
}
Colour Tabulon12::CellForeColor() const { return impl_->FG1.CellForeColor(); }
void Tabulon12::setCellForeColor(Colour New_CellForeColor) {
    impl_->FG1.setCellForeColor(New_CellForeColor);
    impl_->PropertyChanged("CellForeColor");
}
Picture Tabulon12::CellPicture() const { return impl_->FG1.CellPicture(); }
void Tabulon12::setCellPicture(Picture New_CellPicture) { impl_->FG1.setCellPicture(std::move(New_CellPicture)); }

std::shared_ptr<HostForm> Tabulon12::ParentForm() const { return impl_->ParentForm; }
void Tabulon12::setFormContenitore(std::shared_ptr<HostForm> New_FormContenitore) {
    impl_->ParentForm = std::move(New_FormContenitore);
}
void Tabulon12::setBaseDati(std::shared_ptr<Database> vTabDB) { impl_->BaseDati = std::move(vTabDB); }

std::string Tabulon12::QueryEffettiva() const { return impl_->QueryEffettiva; }
int32_t Tabulon12::RighePiene() const { return impl_->RighePiene; }
int32_t Tabulon12::Rows() const { return impl_->MatriceRighe.RowBound(); }
int16_t Tabulon12::IndiceordinamentoAttivo() const { return impl_->band.IndiceordinamentoAttivo(); }

void Tabulon12::OrdinaColonna(int16_t Index) { impl_->band.Click(Index); }
int32_t Tabulon12::IndiceSelezionato() const { return impl_->selection.IndiceSelezionato(); }
int32_t Tabulon12::DeltaWidth() const { return impl_->structure.DeltaWidth(); }

}  // namespace TabulonLib12
