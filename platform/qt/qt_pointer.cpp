#include "platform/qt/qt_pointer.h"

#include <QApplication>
#include <QPixmap>
#include <algorithm>

#include "platform/qt/hand_pointer.h"
#include "platform/qt/qt_graphics.h"

namespace TabulonLib12 {

QCursor CursorForPointer(int16_t pointer, const Picture& icon, ElementKind kind) {
    switch (pointer) {
        case 0: return QCursor(kind == ElementKind::TextBox ? Qt::IBeamCursor : Qt::ArrowCursor);
        case 1: return QCursor(Qt::ArrowCursor);
        case 2: return QCursor(Qt::CrossCursor);
        case 3: return QCursor(Qt::IBeamCursor);
        case 4: return QCursor(Qt::ArrowCursor);  // the "icon" pointer has no Qt shape: the arrow
        case 5: return QCursor(Qt::SizeAllCursor);
        case 6: return QCursor(Qt::SizeBDiagCursor);
        case 7: return QCursor(Qt::SizeVerCursor);
        case 8: return QCursor(Qt::SizeFDiagCursor);
        case 9: return QCursor(Qt::SizeHorCursor);
        case 10: return QCursor(Qt::UpArrowCursor);
        case 11: return QCursor(Qt::WaitCursor);
        case 12: return QCursor(Qt::ForbiddenCursor);
        case 13: return QCursor(Qt::BusyCursor);
        case 14: return QCursor(Qt::WhatsThisCursor);
        case 15: return QCursor(Qt::SizeAllCursor);
        case 99: {
            if (icon) {
                const QImage image = ToQImage(*icon);
                if (!image.isNull()) {
                    // The picture's own hot spot (kept inside it), or its centre.
                    int x = image.width() / 2, y = image.height() / 2;
                    if (icon->hotSpot) {
                        x = std::clamp(icon->hotSpot->x, 0, image.width() - 1);
                        y = std::clamp(icon->hotSpot->y, 0, image.height() - 1);
                    }
                    return QCursor(QPixmap::fromImage(image), x, y);
                }
            }
            return HandPointerCursor();
        }
        default: return QCursor(Qt::ArrowCursor);
    }
}

OverrideCursor::~OverrideCursor() {
    if (pushed_ && QApplication::instance()) QApplication::restoreOverrideCursor();
}

void OverrideCursor::Set(int16_t pointer) {
    pointer_ = pointer;
    if (pointer == 0) {
        if (pushed_) QApplication::restoreOverrideCursor();
        pushed_ = false;
        return;
    }
    const QCursor cursor = CursorForPointer(pointer, nullptr, ElementKind::Surface);
    if (pushed_) {
        QApplication::changeOverrideCursor(cursor);
    } else {
        QApplication::setOverrideCursor(cursor);
        pushed_ = true;
    }
}

}  // namespace TabulonLib12
