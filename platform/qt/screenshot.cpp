#include "platform/qt/screenshot.h"

#include <QPixmap>

#include "platform/qt/qt_graphics.h"
#include "platform/runtime/error.h"

namespace TabulonLib12 {

void SaveWidgetPng(QWidget& widget, const std::string& path) {
    const QPixmap pixmap = widget.grab();
    if (pixmap.isNull() || !pixmap.save(ToQString(path), "PNG"))
        throw Error(ErrorKind::File, 75, "Path/File access error");
}

}  // namespace TabulonLib12
