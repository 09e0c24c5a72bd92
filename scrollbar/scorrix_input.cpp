// Scorrix: one-value steps, the repeat timers that accelerate while a button is held, and the
// mouse on the buttons, the track and the thumb.
#include "platform/runtime/rounding.h"
#include "scrollbar/scorrix_impl.h"

namespace TabulonLib12 {

// --- steps ---

void Scorrix::Impl::ScendiDiUno(bool UsaVelocita) {
    if (CheckedI32(static_cast<int64_t>(Value) + 1) > Max) return;  // at the end: no event at all
    ValorePrecedente = Value;
    // While held, the step may be 0 (the first ticks): the thumb is placed all the same.
    Value = CheckedI32(static_cast<int64_t>(Value) + (UsaVelocita ? PassoVelocita : 1));
    if (Value > Max) Value = Max;
    RaiseDirection();
    AggiornaCursore();
}

void Scorrix::Impl::SaliDiUno(bool UsaVelocita) {
    if (CheckedI32(static_cast<int64_t>(Value) - 1) < Min) return;
    ValorePrecedente = Value;
    Value = CheckedI32(static_cast<int64_t>(Value) - (UsaVelocita ? PassoVelocita : 1));
    if (Value < Min) Value = Min;
    RaiseDirection();
    AggiornaCursore();
}

// --- repeat timers: a tenth of the ticks held, rounded, is the step ---

void Scorrix::Impl::TickDWN() {
    if (!Enabled) return;
    TickPremuto = CheckedI32(static_cast<int64_t>(TickPremuto) + 1);
    PassoVelocita = ToInt16(TickPremuto / 10.0);
    ScendiDiUno(true);
}

void Scorrix::Impl::TickUP() {
    if (!Enabled) return;
    TickPremuto = CheckedI32(static_cast<int64_t>(TickPremuto) + 1);
    PassoVelocita = ToInt16(TickPremuto / 10.0);
    SaliDiUno(true);
}

// --- buttons: a press starts the repeat, the release ends it and forgets the speed; the step of
// the click itself comes from the element's Click ---

void Scorrix::Impl::PremutoUP() { TimerUP->setEnabled(true); }

void Scorrix::Impl::RilasciatoUP() {
    TimerUP->setEnabled(false);
    PassoVelocita = 0;
    TickPremuto = 0;
}

void Scorrix::Impl::PremutoDWN() { TimerDWN->setEnabled(true); }

void Scorrix::Impl::RilasciatoDWN() {
    TimerDWN->setEnabled(false);
    PassoVelocita = 0;
    TickPremuto = 0;
}

// --- track: repeats toward the press with the timer of that side ---

void Scorrix::Impl::PremutoTraccia(float y) {
    YTraccia = RoundedI32(y);
    const float top = ImageScr->Top();
    if (y < top) {
        TimerUP->setEnabled(true);
        TimerDWN->setEnabled(false);
    } else if (y > top) {
        TimerUP->setEnabled(false);
        TimerDWN->setEnabled(true);
    } else {
        TimerUP->setEnabled(false);
        TimerDWN->setEnabled(false);
    }
}

void Scorrix::Impl::RilasciatoTraccia() {
    // The counters stay: a new press on the track goes on at the speed reached.
    TimerUP->setEnabled(false);
    TimerDWN->setEnabled(false);
    YTraccia = 0;
}

// --- thumb drag ---

void Scorrix::Impl::PremutoCursore(int16_t button, float y) {
    if (button == MouseButton::Left) YPresa = RoundedI32(y);
}

void Scorrix::Impl::TrascinaCursore(int16_t button, float y) {
    ValorePrecedente = Value;
    if (button != MouseButton::Left) return;
    const int32_t t = RoundedI32(static_cast<double>(ImageScr->Top()) + y - YPresa);
    const double w = W(), h = H(), altezza = ImageScr->Height();
    // The drag stops 15 twips lower than the placement by value does; the thumb stays where the
    // mouse put it until the next write of Value puts it on the grid of the value steps.
    const double fondo = h - w - 15.0 - altezza;
    if (w + 15.0 > t) {
        ImageScr->setTop(static_cast<float>(RoundedI32(w + 15.0)));
        Value = Min;
    } else if (fondo < t) {
        ImageScr->setTop(static_cast<float>(RoundedI32(fondo)));
        Value = Max;
    } else {
        ImageScr->setTop(static_cast<float>(t));
        const int32_t passi = RoundedI32((static_cast<double>(ImageScr->Top()) - w - 15.0) / PassoCursore());
        Value = CheckedI32(static_cast<int64_t>(passi) + Min);
    }
    if (Value > Max) Value = Max;
    if (Value < Min) Value = Min;
    RaiseDirection();
    RaiseChange();
}

}  // namespace TabulonLib12
