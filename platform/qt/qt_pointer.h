#pragma once
// Pointer shapes: the MousePointer codes of the elements as Qt cursors, and the pointer over the
// whole screen (the hourglass of a long load) as Qt's override cursor.
#include <QCursor>
#include <cstdint>

#include "platform/host/host_services.h"
#include "platform/ui/element.h"

namespace TabulonLib12 {

// The cursor of a MousePointer code over an element of `kind`. 99 takes `icon` (hot spot at
// the picture's own Image::hotSpot, or at its centre when it has none) or, without an icon, the
// hand drawn with Qt in hand_pointer.cpp; 0 is the element's own default: the I-beam over a
// text box, the arrow elsewhere.
QCursor CursorForPointer(int16_t pointer, const Picture& icon, ElementKind kind);

// Holds one entry on Qt's override-cursor stack while the pointer is not 0: 11 the wait cursor,
// other codes their cursor, 0 restores. Destruction restores too.
class OverrideCursor {
public:
    OverrideCursor() = default;
    ~OverrideCursor();
    OverrideCursor(const OverrideCursor&) = delete;
    OverrideCursor& operator=(const OverrideCursor&) = delete;

    int16_t Pointer() const { return pointer_; }
    void Set(int16_t pointer);

private:
    int16_t pointer_ = 0;
    bool pushed_ = false;
};

// The host's screen pointer on the override cursor.
class QtScreenPointer final : public ScreenPointer {
public:
    int16_t MousePointer() const override { return cursor_.Pointer(); }
    void setMousePointer(int16_t pointer) override { cursor_.Set(pointer); }

private:
    OverrideCursor cursor_;
};

}  // namespace TabulonLib12
