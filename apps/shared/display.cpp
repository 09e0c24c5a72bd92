#include "apps/shared/display.h"

#include <QFileInfo>
#include <QWidget>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/qt/screenshot.h"
#include "platform/runtime/error.h"

namespace TabulonLib12::Apps {

bool HasDisplay() {
    const char* platform = std::getenv("QT_QPA_PLATFORM");
    if (platform && std::strncmp(platform, "offscreen", 9) == 0) return false;
    if (platform && *platform) return true;  // the caller chose a platform
    auto set = [](const char* name) {
        const char* v = std::getenv(name);
        return v && *v;
    };
    return set("DISPLAY") || set("WAYLAND_DISPLAY");
}

int WritePng(QWidget& widget, const std::string& path, const char* what) {
    try {
        SaveWidgetPng(widget, path);
    } catch (const Error& e) {
        std::fprintf(stderr, "%s not written to %s: %s\n", what, path.c_str(), e.description().c_str());
        return 1;
    }
    const QString where = QFileInfo(QString::fromStdString(path)).absoluteFilePath();
    std::printf("%s written to %s\n", what, where.toLocal8Bit().constData());
    return 0;
}

}  // namespace TabulonLib12::Apps
