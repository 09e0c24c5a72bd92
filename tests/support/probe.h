#pragma once
// The tests' one window on private state: the private parts of the control and of its scroll
// bar, and the elements of a surface by their design names. Production code never includes it.
#include <stdexcept>
#include <string>
#include <string_view>

#include "control/tabulon12_impl.h"
#include "scrollbar/scorrix_impl.h"

namespace TabulonLib12 {

struct Tabulon12Probe {
    static Tabulon12::Impl& Of(Tabulon12& control) { return *control.impl_; }
    static const Tabulon12::Impl& Of(const Tabulon12& control) { return *control.impl_; }
    // The heading band's caption items.
    static ControlArray<Label>& Captions(Tabulon12& control) { return control.impl_->band.labelMenu_; }
    // The tick of the last wheel notch this thread's hook saw.
    static uint32_t LastWheelTick() { return KeysAndWheel::LastWheelTick(); }
};

struct ScorrixProbe {
    static Scorrix::Impl& Of(Scorrix& bar) { return *bar.impl_; }
    static const Scorrix::Impl& Of(const Scorrix& bar) { return *bar.impl_; }
};

namespace testing {

// The element named `name` (with `index`, the item of that index of a control array) anywhere
// in `root`'s tree, or null.
inline Element* FindElementIn(Element& root, std::string_view name, int16_t index) {
    for (Element* child : root.Children()) {
        if (child->Name() == name && child->Index() == index) return child;
        if (Element* found = FindElementIn(*child, name, index)) return found;
    }
    return nullptr;
}

// The element of that name and index, of kind T; a missing one fails the test's step.
template <class T = Element>
T& FindElement(Element& root, std::string_view name, int16_t index = -1) {
    Element* found = FindElementIn(root, name, index);
    if (found == nullptr) throw std::runtime_error("no element " + std::string(name) + "(" + std::to_string(index) + ")");
    T* typed = dynamic_cast<T*>(found);
    if (typed == nullptr) throw std::runtime_error("element " + std::string(name) + " is of another kind");
    return *typed;
}

}  // namespace testing
}  // namespace TabulonLib12
