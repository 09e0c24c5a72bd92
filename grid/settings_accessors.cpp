// The scalar settings, colours and font of the control, and the members of the current cell.
#include "grid/control_state.h"

namespace TabulonLib12 {

#define TABULON_PLAIN_SCALAR(Name, Type, ArgType)                     \
    Type Tabulon12::Name() const { return impl_->Name; }              \
    void Tabulon12::set##Name(ArgType New_##Name) {                   \
        impl_->Name = New_##Name;                                     \
        impl_->PropertyChanged(#Name);                                \
    }

TABULON_PLAIN_SCALAR(ActiveCol, int16_t, int16_t)
TABULON_PLAIN_SCALAR(FileScelta, std::string, const std::string&)
TABULON_PLAIN_SCALAR(TestoCount, std::string, const std::string&)
TABULON_PLAIN_SCALAR(ColonnaColore, int16_t, int16_t)
TABULON_PLAIN_SCALAR(SelezioneMultiplaImmediata, bool, bool)
TABULON_PLAIN_SCALAR(VerticalGrid, bool, bool)
TABULON_PLAIN_SCALAR(IperTextEnabled, bool, bool)
TABULON_PLAIN_SCALAR(WheelStatus, bool, bool)
TABULON_PLAIN_SCALAR(StileTesta, StileTestaType, StileTestaType)
TABULON_PLAIN_SCALAR(StileTestaOver, StileTestaType, StileTestaType)
TABULON_PLAIN_SCALAR(StileArrow, ColorArrowType, ColorArrowType)
TABULON_PLAIN_SCALAR(BackColor2, Colour, Colour)
TABULON_PLAIN_SCALAR(BackColorSel, Colour, Colour)
TABULON_PLAIN_SCALAR(ForeColorSel, Colour, Colour)
TABULON_PLAIN_SCALAR(BackColorSelected, Colour, Colour)
TABULON_PLAIN_SCALAR(ForeColorOrd, Colour, Colour)
TABULON_PLAIN_SCALAR(IperTextColor, Colour, Colour)
#undef TABULON_PLAIN_SCALAR

int16_t Tabulon12::MinRows() const { return impl_->MinRows; }
void Tabulon12::setMinRows(int16_t) { impl_->PropertyChanged("MinRows"); }

std::string Tabulon12::QueryString() const { return impl_->QueryString; }
void Tabulon12::setQueryString(const std::string& New_QueryString) {
    impl_->QueryCaricamento = New_QueryString;
    impl_->QueryString = New_QueryString;
    impl_->PropertyChanged("QueryString");
}

int32_t Tabulon12::BottomHeight() const { return impl_->BottomHeight; }
void Tabulon12::setBottomHeight(int32_t New_BottomHeight) {
    impl_->BottomHeight = New_BottomHeight;
    impl_->LayoutRidimensionamento();
    impl_->PropertyChanged("BottomHeight");
}

bool Tabulon12::MultiSel() const { return impl_->MultiSel; }
void Tabulon12::setMultiSel(bool New_MultiSel) {
    auto& s = *impl_;
    if (!New_MultiSel) {
        // Leaving multiple selection drops every pick before the field changes.
        const int32_t marker = s.MatriceRighe.ColBound();
        for (int32_t r = 0; r <= s.MatriceRighe.RowBound(); ++r) s.MatriceRighe.SetCell(r, marker, "");
    }
    s.ColoraSfondoRighe();
    s.MultiSel = New_MultiSel;
    s.AncoraMultipla = -1;
    s.PropertyChanged("MultiSel");
}

bool Tabulon12::ConsentiSceltaColonne() const { return impl_->ConsentiSceltaColonne; }
void Tabulon12::setConsentiSceltaColonne(bool New_ConsentiSceltaColonne) {
    impl_->ConsentiSceltaColonne = New_ConsentiSceltaColonne;
    impl_->ImageTools->setVisible(New_ConsentiSceltaColonne);
    impl_->PropertyChanged("ConsentiSceltaColonne");
}

bool Tabulon12::AdattamentoColonneDisattivato() const { return impl_->AdattamentoColonneDisattivato; }
void Tabulon12::setAdattamentoColonneDisattivato(bool New_AdattamentoColonneDisattivato) {
    // Rebuilds at once and, unlike the other settings, notifies nobody.
    impl_->AdattamentoColonneDisattivato = New_AdattamentoColonneDisattivato;
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
    impl_->FG1->setBackColorBkg(impl_->surface.BackColor());
    impl_->PropertyChanged("BackColorSfondo");
}

Colour Tabulon12::BackColorTopScheda() const { return impl_->LabelTopSk->BackColor(); }
void Tabulon12::setBackColorTopScheda(Colour New_BackColorTopScheda) {
    impl_->LabelTopSk->setBackColor(New_BackColorTopScheda);
    impl_->PropertyChanged("BackColorTopScheda");
}

Colour Tabulon12::BorderColor() const { return impl_->Shape1->BorderColor(); }
void Tabulon12::setBorderColor(Colour New_BorderColor) {
    impl_->Shape1->setBorderColor(New_BorderColor);
    impl_->PropertyChanged("BorderColor");
}

Colour Tabulon12::ForeColor() const { return impl_->ForeColor; }
void Tabulon12::setForeColor(Colour New_ForeColor) {
    impl_->ForeColor = New_ForeColor;
    impl_->FG1->setForeColor(New_ForeColor);
    impl_->PropertyChanged("ForeColor");
}

Colour Tabulon12::ForeColorHead() const { return impl_->ForeColorHead; }
void Tabulon12::setForeColorHead(Colour New_ForeColorHead) {
    impl_->ForeColorHead = New_ForeColorHead;
    for (auto& [index, label] : impl_->LabelMenu->Items()) label->setForeColor(New_ForeColorHead);
    impl_->PropertyChanged("ForeColorHead");
}

Colour Tabulon12::ColorGridHead() const { return impl_->ColorGridHead; }
void Tabulon12::setColorGridHead(Colour New_ColorGridHead) {
    impl_->ColorGridHead = New_ColorGridHead;
    impl_->Shape2->setBackColor(New_ColorGridHead);
    impl_->PropertyChanged("ColorGridHead");
}

Colour Tabulon12::GridColor() const { return impl_->FG1->GridColor(); }
void Tabulon12::setGridColor(Colour New_GridColor) {
    impl_->FG1->setGridColor(New_GridColor);
    impl_->PropertyChanged("GridColor");
}

Colour Tabulon12::VerticalGridColor() const {
    Colour c = 0;
    Step(impl_->err, [&] { c = (*impl_->FrameLine)(0).BackColor(); });
    return c;
}
void Tabulon12::setVerticalGridColor(Colour New_VerticalGridColor) {
    auto& s = *impl_;
    for (int16_t i = 0; i < s.Cols; ++i) Step(s.err, [&] { (*s.FrameLine)(i).setBackColor(New_VerticalGridColor); });
    s.PropertyChanged("VerticalGridColor");
}

Font Tabulon12::GetFont() const { return impl_->FG1->GetFont(); }
void Tabulon12::setFont(const Font& New_Font) {
    impl_->FG1->setFont(New_Font);
    impl_->PropertyChanged("Font");
}

int32_t Tabulon12::CellTop() const { return impl_->FG1->CellTop(); }
int32_t Tabulon12::CellLeft() const { return impl_->FG1->CellLeft(); }
bool Tabulon12::CellFontUnderline() const { return impl_->FG1->CellFontUnderline(); }
void Tabulon12::setCellFontUnderline(bool New_CellFontUnderline) {
    impl_->FG1->setCellFontUnderline(New_CellFontUnderline);
    impl_->PropertyChanged("CellFontUnderline");
}
Colour Tabulon12::CellBackColor() const { return impl_->FG1->CellBackColor(); }
void Tabulon12::setCellBackColor(Colour New_CellBackColor) {
    impl_->FG1->setCellBackColor(New_CellBackColor);
    impl_->PropertyChanged("CellBackColor");
}
Colour Tabulon12::CellForeColor() const { return impl_->FG1->CellForeColor(); }
void Tabulon12::setCellForeColor(Colour New_CellForeColor) {
    impl_->FG1->setCellForeColor(New_CellForeColor);
    impl_->PropertyChanged("CellForeColor");
}
Picture Tabulon12::CellPicture() const { return impl_->FG1->CellPicture(); }
void Tabulon12::setCellPicture(Picture New_CellPicture) { impl_->FG1->setCellPicture(std::move(New_CellPicture)); }

std::shared_ptr<HostForm> Tabulon12::ParentForm() const { return impl_->ParentForm; }
void Tabulon12::setFormContenitore(std::shared_ptr<HostForm> New_FormContenitore) {
    impl_->ParentForm = std::move(New_FormContenitore);
}
void Tabulon12::setBaseDati(std::shared_ptr<Database> vTabDB) { impl_->BaseDati = std::move(vTabDB); }

std::string Tabulon12::QueryEffettiva() const { return impl_->QueryEffettiva; }
int32_t Tabulon12::RighePiene() const { return impl_->RighePiene; }
int32_t Tabulon12::Rows() const { return impl_->MatriceRighe.RowBound(); }
int16_t Tabulon12::IndiceordinamentoAttivo() const { return impl_->IndiceordinamentoAttivo; }
int32_t Tabulon12::IndiceSelezionato() const { return impl_->IndiceSelezionato; }
int32_t Tabulon12::DeltaWidth() const { return impl_->DeltaWidth; }

}  // namespace TabulonLib12
