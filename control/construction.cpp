// The control object: its creation from the designed assembly, the new-instance state, the
// notices to the host, and the components' neighbours.
#include "control/tabulon12_impl.h"

namespace TabulonLib12 {

Tabulon12::Impl::Impl(const HostServices& host_, const TextMetrics& metrics, TimerService& timers)
    : host(host_),
      surface(metrics, timers),
      elements(ComposeControl(surface)),
      VS1(*elements.VS1),
      FG1(*elements.FG1),
      painter(FG1, VS1, columns, MatriceRighe, imageList),
      selection(FG1, VS1, MatriceRighe, *this),
      structure(surface, FG1, VS1, *elements.Shape1, columns, *this, host_.containedControls),
      band(*elements.Shape2, *elements.Image1, *elements.LabelMenu, *elements.ImageZ, *elements.LabelTopSk,
           *elements.ImageOrd, *elements.LblMisuraTitolo, FG1, VS1, columns, *this),
      bands(*elements.FrameLine, *elements.PicCol, FG1, columns, imageList),
      totals(*elements.LabelTOT, *elements.LabelCount, FG1, columns, TotaliColonna),
      chooser(*elements.ImageTools, *elements.FrameSceltaColonne, *elements.CheckScelta, FG1, columns, *this),
      mouse(*elements.PictureTTT, *elements.LabelTTT, *elements.LabelMisTxt, FG1, VS1, MatriceRighe, columns, imageList,
            events, *this),
      keys(*elements.TextKey, FG1, VS1, events, *this, host_.clock),
      pictures(*elements.ImageStyle, *elements.ImageUP, *elements.ImageDown) {
    VS1.onChange = [this] { ReazioneCambioVS1(); };
    VS1.onGoDown = [this] { events.Raise([](Tabulon12Events& e) { e.GoDown(); }); };
    VS1.onGoUp = [this] { events.Raise([](Tabulon12Events& e) { e.GoUp(); }); };
    // A resize from the host lays the control out again; a failure there reaches the host as an
    // error box, since no caller of the control's own is waiting for it.
    surface.onResize = [this](Surface&) {
        try {
            LayoutRidimensionamento();
        } catch (const Error& e) {
            MessageBox(e.description(), MsgBoxStyle::Critical);
        }
    };
    columns.ResetToNewInstance();
}

Tabulon12::Impl::~Impl() {
    // The scroll bar's events reach back into this object: none may run while it goes.
    VS1.onChange = nullptr;
    VS1.onGoDown = nullptr;
    VS1.onGoUp = nullptr;
    surface.onResize = nullptr;
}

Tabulon12::Tabulon12(const HostServices& host, const TextMetrics& metrics, TimerService& timers)
    : impl_(std::make_unique<Impl>(host, metrics, timers)) {
    InitProperties();
}

Tabulon12::~Tabulon12() { Terminate(); }

void Tabulon12::setEvents(Tabulon12Events* events) { impl_->events.setHandler(events); }
Surface& Tabulon12::Superficie() { return impl_->surface; }

void Tabulon12::Impl::PropertyChanged(const std::string& name) const {
    if (host.propertyChanged) host.propertyChanged(name);
}

void Tabulon12::Impl::MessageBox(const std::string& text, int16_t style) const {
    if (host.messages) host.messages->MsgBox(text, style, "");
}

// The screen's pointer is the host's where it offers one, otherwise the surface's realisation
// sets it.
void Tabulon12::Impl::SetScreenPointer(int16_t pointer) {
    if (host.screen) host.screen->setMousePointer(pointer);
    else surface.setScreenPointer(pointer);
}

}  // namespace TabulonLib12
