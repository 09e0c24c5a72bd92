// The column definition arrays, their accessors and the Cols write.
#include <cmath>

#include "grid/control_state.h"
#include "platform/runtime/rounding.h"

namespace TabulonLib12 {

void ColumnArrays::Resize(size_t n) {
    for (auto* v : {&Intestazione, &Ordinamento, &Formato, &CampoQuery, &TipoCampoRilevato, &Condizione,
                    &OperatoreCondizionale, &ToolTT, &ToolTTvero, &ToolTTfalso, &KeyID, &TestoScelta})
        v->resize(n);
    for (auto* v : {&ColsWidth, &ColAlignment, &TipoCampo, &ImmagineA, &ImmagineB, &ColonnaImmagine,
                    &ColonnaForeColor, &IperTextIndex, &MostraBarraVert})
        v->resize(n);
    for (auto* v : {&IsIperText, &MostraTotCol, &ColonnaOpzionale}) v->resize(n);
    BackColorCol.resize(n);
}

namespace {

// A per-column read: the element, or the type's zero when Index is out of range.
template <class T>
T Read(const ColumnArrays& col, const std::vector<T>& array, int16_t index) {
    return col.Has(index) ? array[static_cast<size_t>(index)] : T{};
}

// A per-column write: stores when Index is in range; the caller's later steps run either way.
template <class T, class V>
void Write(const ColumnArrays& col, std::vector<T>& array, int16_t index, V&& value) {
    if (col.Has(index)) array[static_cast<size_t>(index)] = std::forward<V>(value);
}

}  // namespace

#define TABULON_PLAIN_COLUMN(Name, Type, ArgType)                            \
    Type Tabulon12::Name(int16_t Index) const {                              \
        return Read(impl_->col, impl_->col.Name, Index);                     \
    }                                                                        \
    void Tabulon12::set##Name(int16_t Index, ArgType New_##Name) {           \
        Write(impl_->col, impl_->col.Name, Index, New_##Name);               \
        impl_->PropertyChanged(#Name);                                       \
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

std::string Tabulon12::Intestazione(int16_t Index) const { return Read(impl_->col, impl_->col.Intestazione, Index); }
void Tabulon12::setIntestazione(int16_t Index, const std::string& New_Intestazione) {
    auto& s = *impl_;
    Write(s.col, s.col.Intestazione, Index, New_Intestazione);
    Step(s.err, [&] { (*s.LabelMenu)(Index).setCaption(New_Intestazione); });
    s.PropertyChanged("Intestazione");
}

std::string Tabulon12::ToolTT(int16_t Index) const { return Read(impl_->col, impl_->col.ToolTT, Index); }
void Tabulon12::setToolTT(int16_t Index, const std::string& New_ToolTT) {
    auto& s = *impl_;
    Write(s.col, s.col.ToolTT, Index, New_ToolTT);
    Step(s.err, [&] { (*s.PicCol)(Index).setToolTipText(New_ToolTT); });
    s.PropertyChanged("ToolTT");
}

int16_t Tabulon12::ImmagineA(int16_t Index) const { return Read(impl_->col, impl_->col.ImmagineA, Index); }
void Tabulon12::setImmagineA(int16_t Index, int16_t New_ImmagineA) {
    auto& s = *impl_;
    Write(s.col, s.col.ImmagineA, Index, New_ImmagineA);
    // The heading picture shows the picture of the holding condition; ImmagineB has none.
    Step(s.err, [&] { (*s.PicCol)(Index).setPicture(s.ListImage(New_ImmagineA)); });
    s.PropertyChanged("ImmagineA");
}

int16_t Tabulon12::ColsWidth(int16_t Index) const {
    const auto& s = *impl_;
    if (!s.col.Has(Index) || Index >= s.FG1->Cols()) return 0;
    return s.FG1->ColWidth(Index) >= 1 ? s.col.ColsWidth[static_cast<size_t>(Index)] : 0;
}
void Tabulon12::setColsWidth(int16_t Index, int16_t New_ColsWidth) {
    auto& s = *impl_;
    if (s.col.Has(Index)) {
        const bool changed = s.col.ColsWidth[static_cast<size_t>(Index)] != New_ColsWidth;
        s.col.ColsWidth[static_cast<size_t>(Index)] = New_ColsWidth;
        if (changed) s.CaricaStruttura();
    }
    s.PropertyChanged("ColsWidth");
}

int16_t Tabulon12::ColsWidthEff(int16_t Index) const {
    auto& s = *impl_;
    const int16_t stored = Read(s.col, s.col.ColsWidth, Index);
    int16_t result = 0;
    Step(s.err, [&] { result = ToInt16(static_cast<float>(stored) * s.FattoreAdattamento()); });
    return result;
}

int16_t Tabulon12::ColAlignment(int16_t Index) const {
    if (!impl_->col.Has(Index)) throw Error::OutOfBounds();
    return impl_->col.ColAlignment[static_cast<size_t>(Index)];
}
void Tabulon12::setColAlignment(int16_t Index, int16_t New_ColAlignment) {
    auto& s = *impl_;
    Write(s.col, s.col.ColAlignment, Index, New_ColAlignment);
    Step(s.err, [&] {
        switch (New_ColAlignment) {
            case 0: s.FG1->setColAlignment(Index, CellAlign::LeftCentre); break;
            case 1: s.FG1->setColAlignment(Index, CellAlign::RightCentre); break;
            case 2: s.FG1->setColAlignment(Index, CellAlign::CentreCentre); break;
            default: break;
        }
    });
    s.PropertyChanged("ColAlignment");
}

Colour Tabulon12::BackColorCol(int16_t Index) const { return Read(impl_->col, impl_->col.BackColorCol, Index); }
void Tabulon12::setBackColorCol(int16_t Index, Colour New_BackColorCol) {
    auto& s = *impl_;
    Write(s.col, s.col.BackColorCol, Index, New_BackColorCol);
    s.ColoraSfondoRighe();
    s.PropertyChanged("BackColorCol");
}

bool Tabulon12::MostraBarraVert(int16_t Index) const { return Read(impl_->col, impl_->col.MostraBarraVert, Index) != 0; }
void Tabulon12::setMostraBarraVert(int16_t Index, bool New_MostraBarraVert) {
    Write(impl_->col, impl_->col.MostraBarraVert, Index, New_MostraBarraVert ? VbTrue : VbFalse);
    impl_->PropertyChanged("MostraBarraVert");
}

uint8_t Tabulon12::MostraTotCol(int16_t Index) const { return Read(impl_->col, impl_->col.MostraTotCol, Index); }
void Tabulon12::setMostraTotCol(int16_t Index, uint8_t New_MostraTotCol) {
    auto& s = *impl_;
    Write(s.col, s.col.MostraTotCol, Index, New_MostraTotCol);
    s.RidisegnaTotali();
    s.PropertyChanged("MostraTotCol");
}

int16_t Tabulon12::Cols() const { return impl_->Cols; }

void Tabulon12::setCols(int16_t New_Cols) {
    auto& s = *impl_;
    // A count below one cannot size the arrays; the write fails as a bad bound would.
    if (New_Cols < 1) throw Error::OutOfBounds();
    const int16_t old = s.Cols;
    s.Cols = New_Cols;
    if (s.ColonnaColore > New_Cols - 1) s.ColonnaColore = -1;
    s.col.Resize(static_cast<size_t>(New_Cols));
    s.MatriceRighe.ResizeColumns(New_Cols);
    for (int16_t c = old; c < New_Cols; ++c) {
        // A new column gets a width, left alignment and a white back; its Formato stays empty,
        // so it shows nothing until a format is chosen.
        s.col.ColsWidth[static_cast<size_t>(c)] = 1000;
        s.col.ColAlignment[static_cast<size_t>(c)] = 0;
        s.col.BackColorCol[static_cast<size_t>(c)] = 0xFFFFFF;
    }
    s.PropertyChanged("Cols");
    s.RicostruisciControlliColonna();
    s.CaricaStruttura();
}

}  // namespace TabulonLib12
