// The control object: creation, the host's notices, the fresh-instance defaults.
#include "grid/control_state.h"

namespace TabulonLib12 {

Tabulon12::Impl::Impl(Tabulon12& owner_, const HostServices& host_, const TextMetrics& metrics, TimerService& timers)
    : owner(owner_), host(host_), surface(metrics, timers) {
    CreaComposizione();
    VS1->onChange = [this] { ReazioneCambioVS1(); };
    VS1->onGoDown = [this] {
        if (events) events->GoDown();
    };
    VS1->onGoUp = [this] {
        if (events) events->GoUp();
    };
    LarghezzaRiferimento = static_cast<int32_t>(surface.Width());
    // A resize from the host lays the control out again; a failure there reaches the host
    // as an error box, since no caller of the control's own is waiting for it.
    surface.onResize = [this](Surface&) {
        try {
            LayoutRidimensionamento();
        } catch (const Error& e) {
            MessageBox(e.description(), MsgBoxStyle::Critical);
        }
    };
    col.Resize(1);
}

Tabulon12::Tabulon12(const HostServices& host, const TextMetrics& metrics, TimerService& timers)
    : impl_(std::make_unique<Impl>(*this, host, metrics, timers)) {
    InitProperties();
}

Tabulon12::~Tabulon12() = default;

void Tabulon12::setEvents(Tabulon12Events* events) { impl_->events = events; }
Surface& Tabulon12::Superficie() { return impl_->surface; }

void Tabulon12::InitProperties() {
    auto& s = *impl_;
    s.Cols = 1;
    s.col = ColumnArrays{};
    s.col.Resize(1);
    s.col.ColsWidth[0] = static_cast<int16_t>(s.LarghezzaColonnaDefault);
    s.col.Formato[0] = "Nessuno";
    s.col.TipoCampo[0] = 10;
    s.col.BackColorCol[0] = 0xFFFFFF;
    s.MatriceRighe = RowStore(0, 0);
    s.MinRows = 10;
    s.ActiveCol = 1;
    s.ColonnaColore = -1;
    s.BackStyle = 0;
    s.BackColor2 = 0xFF8080;
    s.BackColorSelected = 0xFF8080;
    s.ForeColorOrd = 0x0000FF;
    s.IperTextColor = 0xFF0000;
    s.ForeColorHead = 0;
    s.ColorGridHead = 0xF5DDCD;
    s.Shape2->setBackColor(s.ColorGridHead);
    s.StileTesta = StileTestaType::Ice;
    s.StileTestaOver = StileTestaType::Sky;
    s.StileArrow = ColorArrowType::Blue;
    s.Shape1->setBorderColor(0xCEAB8E);
    s.LabelTopSk->setBackColor(0xFFFFFF);
    s.ImageTools->setVisible(s.ConsentiSceltaColonne);
}

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
