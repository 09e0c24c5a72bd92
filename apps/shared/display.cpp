#include "apps/shared/display.h"

#include <cstdlib>
#include <cstring>

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

}  // namespace TabulonLib12::Apps
