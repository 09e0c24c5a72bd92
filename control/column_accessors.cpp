// The per-column properties. A read of a missing Index answers 0 or "", a write skips the store
// and still notifies the host (the ColAlignment read alone fails). The plain ones only store and
// notify; the others reach the elements that show them.
#include "control/tabulon12_impl.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/steps.h"

namespace TabulonLib12 {

#define TABULON_PLAIN_COLUMN(Name, Type, ArgType)                                  \
    Type Tabulon12::Name(int16_t Index) const { return ColumnValue(impl_->columns.Name, Index); } \
    void Tabulon12::set##Name(int16_t Index, ArgType New_##Name) {                 \
        SetColumnValue(impl_->columns.Name, Index, New_##Name);                    \
        impl_->PropertyChanged(#Name);                                             \
    }

TABULON_PLAIN_COLUMN(Ordinamento, std::string, const std::string&)
TABULON_PLAIN_COLUMN(Formato, std::string, const std::string&)
TABULON_PLAIN_COLUMN(CampoQuery, std::string, const std::string&)
TABULON_PLAIN_COLUMN(ImmagineB, int16_t, int16_t)
TABULON_PLAIN_COLUMN(Condizione, std::string, const std::string&)
TABULON_PLAIN_COLUMN(OperatoreCondizionale, std::string, const std::string&)
TABULON_PLAIN_COLUMN(ColonnaImmagine, int16_t, int16_t)
TABULON_PLAIN_COLUMN(ColonnaForeColor, int16_t, int16_t)
TABULON_PLAIN_COLUMN(ToolTTvero, std::string, const std::string&)
TABULON_PLAIN_COLUMN(ToolTTfalso, std::string, const std::string&)
TABULON_PLAIN_COLUMN(IsIperText, uint8_t, uint8_t)
TABULON_PLAIN_COLUMN(IperTextIndex, int16_t, int16_t)
TABULON_PLAIN_COLUMN(KeyID, std::string, const std::string&)
TABULON_PLAIN_COLUMN(ColonnaOpzionale, uint8_t, uint8_t)
TABULON_PLAIN_COLUMN(TestoScelta, std::string, const std::string&)
#undef TABULON_PLAIN_COLUMN

std::string Tabulon12::Intestazione(int16_t Index) const { return ColumnValue(impl_->columns.Intestazione, Index); }
void Tabulon12::setIntestazione(int16_t Index, const std::string& New_Intestazione) {
    auto& s = *impl_;
    SetColumnValue(s.columns.Intestazione, Index, New_Intestazione);
    Steps steps;
    steps([&] { s.band.SetCaption(Index, New_Intestazione); });
    s.PropertyChanged("Intestazione");
}

std::string Tabulon12::ToolTT(int16_t Index) const { return ColumnValue(impl_->columns.ToolTT, Index); }
void Tabulon12::setToolTT(int16_t Index, const std::string& New_ToolTT) {
    auto& s = *impl_;
    SetColumnValue(s.columns.ToolTT, Index, New_ToolTT);
    Steps steps;
    steps([&] { s.bands.SetPictureToolTip(Index, New_ToolTT); });
    s.PropertyChanged("ToolTT");
}

int16_t Tabulon12::ImmagineA(int16_t Index) const { return ColumnValue(impl_->columns.ImmagineA, Index); }
void Tabulon12::setImmagineA(int16_t Index, int16_t New_ImmagineA) {
    auto& s = *impl_;
    SetColumnValue(s.columns.ImmagineA, Index, New_ImmagineA);
    // The heading picture shows the picture of the holding condition; ImmagineB has none.
    Steps steps;
    steps([&] { s.bands.SetPicture(Index, s.imageList.Item(New_ImmagineA)); });
    s.PropertyChanged("ImmagineA");
}

int16_t Tabulon12::ColsWidth(int16_t Index) const {
    const auto& s = *impl_;
    if (!s.columns.Has(Index) || Index >= s.FG1.Cols()) return 0;
    return s.FG1.ColWidth(Index) >= 1 ? s.columns.ColsWidth[static_cast<size_t>(Index)] : 0;
}
void Tabulon12::setColsWidth(int16_t Index, int16_t New_ColsWidth) {
    auto& s = *impl_;
    if (s.columns.Has(Index)) {
        const bool changed = s.columns.ColsWidth[static_cast<size_t>(Index)] != New_ColsWidth;
        s.columns.ColsWidth[static_cast<size_t>(Index)] = New_ColsWidth;
        if (changed) s.CaricaStruttura();
    }
    s.PropertyChanged("ColsWidth");
}

int16_t Tabulon12::ColsWidthMemorizzata(int16_t Index) const { return ColumnValue(impl_->columns.ColsWidth, Index); }

int16_t Tabulon12::ColsWidthEff(int16_t Index) const {
    auto& s = *impl_;
    const int16_t stored = ColumnValue(s.columns.ColsWidth, Index);
    // A scaled width beyond 32767 twips overflows to the caller.
    return ToInt16(static_cast<float>(stored) * s.structure.FattoreAdattamento());
}

int16_t Tabulon12::ColAlignment(int16_t Index) const {
    if (!impl_->columns.Has(Index)) throw Error::OutOfBounds();
    return impl_->columns.ColAlignment[static_cast<size_t>(Index)];
}
void Tabulon12::setColAlignment(int16_t Index, int16_t New_ColAlignment) {
    auto& s = *impl_;
    SetColumnValue(s.columns.ColAlignment, Index, New_ColAlignment);
    Steps steps;
    steps([&] {
        switch (New_ColAlignment) {
            case 0: s.FG1.setColAlignment(Index, CellAlign::LeftCentre); break;
            case 1: s.FG1.setColAlignment(Index, CellAlign::RightCentre); break;
            case 2: s.FG1.setColAlignment(Index, CellAlign::CentreCentre); break;
            default: break;
        }
    });
    s.PropertyChanged("ColAlignment");
}

Colour Tabulon12::BackColorCol(int16_t Index) const { return ColumnValue(impl_->columns.BackColorCol, Index); }
void Tabulon12::setBackColorCol(int16_t Index, Colour New_BackColorCol) {
    auto& s = *impl_;
    SetColumnValue(s.columns.BackColorCol, Index, New_BackColorCol);
    s.ColoraSfondoRighe();
    s.PropertyChanged("BackColorCol");
}

bool Tabulon12::MostraBarraVert(int16_t Index) const { return ColumnValue(impl_->columns.MostraBarraVert, Index) != 0; }
void Tabulon12::setMostraBarraVert(int16_t Index, bool New_MostraBarraVert) {
    SetColumnValue(impl_->columns.MostraBarraVert, Index, New_MostraBarraVert ? VbTrue : VbFalse);
    impl_->PropertyChanged("MostraBarraVert");
}

uint8_t Tabulon12::MostraTotCol(int16_t Index) const { return ColumnValue(impl_->columns.MostraTotCol, Index); }
void Tabulon12::setMostraTotCol(int16_t Index, uint8_t New_MostraTotCol) {
    auto& s = *impl_;
    SetColumnValue(s.columns.MostraTotCol, Index, New_MostraTotCol);
    s.totals.RidisegnaTotali();
    s.PropertyChanged("MostraTotCol");
}

int16_t Tabulon12::Cols() const { return impl_->Cols; }

void Tabulon12::setCols(int16_t New_Cols) {
    auto& s = *impl_;
    // A count below one cannot size the arrays; the write fails as a bad bound would.
    if (New_Cols < 1) throw Error::OutOfBounds();
    s.Cols = New_Cols;
    if (s.painter.ColonnaColore() > New_Cols - 1) s.painter.setColonnaColore(-1);
    // Added columns get a width, left alignment and a white back; their Formato stays empty, so
    // they show nothing until a format is chosen.
    s.columns.Resize(New_Cols);
    s.MatriceRighe.ResizeColumns(New_Cols);
    s.PropertyChanged("Cols");
    s.ScaricaElementiColonna();
    s.CaricaStruttura();
}

}  // namespace TabulonLib12
