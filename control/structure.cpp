// The structure build, the fitting rule and the resize layout run by the structure component,
// with the control as its neighbour: it hands each step that belongs to another component to
// that component.
#include "control/tabulon12_impl.h"

namespace TabulonLib12 {

void Tabulon12::CaricaStruttura(bool /*SoloRefresh: the build is the same either way*/) { impl_->CaricaStruttura(); }
void Tabulon12::RidimensionaColonne() { impl_->RidimensionaColonne(); }

void Tabulon12::Impl::CaricaStruttura() { structure.CaricaStruttura(Cols, chooser.ColonneScelte()); }
void Tabulon12::Impl::RidimensionaColonne() { structure.RidimensionaColonne(chooser.ColonneScelte()); }
void Tabulon12::Impl::LayoutRidimensionamento() { structure.LayoutRidimensionamento(chooser.ColonneScelte()); }

void Tabulon12::Impl::SetHeadingCaption(int16_t column, const std::string& caption) { band.SetCaption(column, caption); }

void Tabulon12::Impl::BuildBand() {
    band.DisponiSfondiTesta();
    band.DisponiTestate(Cols, chooser.ColonneScelte());
    bands.DisponiLinee(Cols);
}

void Tabulon12::Impl::PlaceColumnPictures() { bands.DisponiImmaginiColonna(Cols); }

void Tabulon12::Impl::ScaricaElementiColonna() { bands.ScaricaElementiColonna(band.UnloadCaptions()); }

Picture Tabulon12::Impl::Texture(int16_t style) const { return pictures.Style(style); }
Picture Tabulon12::Impl::ArrowUp(int16_t colour) const { return pictures.ArrowUp(colour); }
Picture Tabulon12::Impl::ArrowDown(int16_t colour) const { return pictures.ArrowDown(colour); }
void Tabulon12::Impl::ReloadSorted() { Carica(true); }

void Tabulon12::Impl::RefreshImageList() {
    if (!ImageLista.empty()) imageList.Set(TrovaImageList(ImageLista));
}

void Tabulon12::Impl::HideHoverTile() { band.HideHoverTile(); }
void Tabulon12::Impl::SetBandWidth(float width) { band.SetWidth(width); }
void Tabulon12::Impl::StretchLines(float height) { bands.StretchLines(height, FG1.Cols()); }
void Tabulon12::Impl::PlaceChooserButton(float left) { chooser.PlaceButton(left); }
void Tabulon12::Impl::PlaceCount(float top) { totals.PlaceCount(top); }
void Tabulon12::Impl::RedrawTotals() { totals.RidisegnaTotali(); }
void Tabulon12::Impl::RaiseResize() { events.Raise([](Tabulon12Events& e) { e.Resize(); }); }

// The chooser's boxes are critical boxes; the width is the host's width of the control; a new
// choice fits the columns again and loads the list again.
void Tabulon12::Impl::ChooserMessage(const std::string& text, const std::string& title) {
    if (host.messages) host.messages->MsgBox(text, MsgBoxStyle::Critical, title);
}
float Tabulon12::Impl::ControlWidth() const { return surface.Width(); }
void Tabulon12::Impl::ApplyColumnChoice() {
    RidimensionaColonne();
    Carica(false);
}

}  // namespace TabulonLib12
