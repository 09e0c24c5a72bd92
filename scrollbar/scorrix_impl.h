#pragma once
// The private side of Scorrix: its elements, its fields and the routines that move the thumb.
// Geometry comes from the elements as they stand (twips, floats); whole-number arithmetic on the
// value and its bounds is 32-bit and fails with Error::Overflow where it would leave that range.
#include <cstdint>
#include <memory>
#include <string>

#include "scrollbar/scorrix.h"

namespace TabulonLib12 {

struct Scorrix::Impl {
    Impl(Scorrix& owner, Surface& surface, Element* container, const std::string& name);
    ~Impl();
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    Scorrix& owner;
    Surface& surface;

    // --- elements: the body and, inside it, back to front ---
    PictureBox* Corpo = nullptr;
    Shape* Shape1 = nullptr;           // background of the whole bar; what the others leave free is the track
    ImageElement* ImageUP = nullptr;   // up button at the top
    ImageElement* ImageDWN = nullptr;  // down button at the bottom
    ImageElement* ImageScr = nullptr;  // the thumb
    Timer* TimerUP = nullptr;          // repeat upward, 100 ms, off at start
    Timer* TimerDWN = nullptr;         // repeat downward, 100 ms, off at start

    // --- fields ---
    int32_t Value = 0;
    int32_t Max = 100;
    int32_t Min = 0;
    bool Enabled = true;
    int32_t YTraccia = 0;          // Y of the last press on the track; 0 for none
    int32_t YPresa = 0;            // Y of the press inside the thumb
    int16_t PassoVelocita = 0;     // step of a timer tick while held
    int32_t TickPremuto = 0;       // timer ticks counted while held
    int32_t ValorePrecedente = 0;  // Value before a change, to tell the direction

    // --- thumb geometry (no side effects) ---
    float W() const { return Corpo->Width(); }
    float H() const { return Corpo->Height(); }
    // Thumb height: the travel shared among the values, at least 200; the whole travel when the
    // bounds are equal; 0 when the bar is too short for it. Arithmetic failures are dropped.
    int32_t AltezzaCursore() const;
    // Free travel of the thumb, not below 0.
    int32_t CorsaCursore() const;
    // Twips per value step, at least 1.
    int32_t PassoCursore() const;

    // --- routines ---
    // Ends a track repeat that has reached the press, places the thumb by Value and raises Change.
    void AggiornaCursore();
    // ImageScr.Height := AltezzaCursore (an element has no negative height: 0 stands for it).
    void ImpostaAltezzaCursore();
    void Resize();
    void ScriviValue(int32_t& v);
    void ScriviMax(int32_t v);
    void ScriviMin(int32_t v);
    void ScriviEnabled(bool v);
    void ScendiDiUno(bool UsaVelocita);
    void SaliDiUno(bool UsaVelocita);
    void TickDWN();
    void TickUP();

    // --- mouse ---
    void PremutoUP();
    void RilasciatoUP();
    void PremutoDWN();
    void RilasciatoDWN();
    void PremutoTraccia(float y);
    void RilasciatoTraccia();
    void PremutoCursore(int16_t button, float y);
    void TrascinaCursore(int16_t button, float y);

    // --- events ---
    void RaiseChange();
    // GoDown when Value rose above ValorePrecedente, GoUp when it fell below.
    void RaiseDirection();
    void RaisePropertyChanged(const std::string& name);

private:
    void Wire();
    void Unwire();
    // Expires when the bar's elements are freed (their handlers hold the token): the body may go
    // with a container that somebody else removed, and must then not be touched again.
    std::weak_ptr<const void> corpoVivo;
};

// 32-bit results of the bar's whole-number sums; out of range fails with Error::Overflow.
int32_t CheckedI32(int64_t v);
// A length rounded to the nearest whole twip, ties to even; out of range fails with Error::Overflow.
int32_t RoundedI32(double v);

}  // namespace TabulonLib12
