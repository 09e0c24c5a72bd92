#pragma once
// Whether a host program has a screen to show a window on: an offscreen platform has none; a
// platform the caller chose is taken to have one; otherwise an X11 or Wayland display must be
// named. Without one a host writes its window to a PNG file instead of waiting for a user.
#include <string>

class QWidget;

namespace TabulonLib12::Apps {

bool HasDisplay();

// Writes `widget` as a PNG file at `path` and says so on standard output ("<what> written to
// <absolute path>"), or says why not on standard error. Answers the exit code, 0 or 1.
int WritePng(QWidget& widget, const std::string& path, const char* what);

}  // namespace TabulonLib12::Apps
