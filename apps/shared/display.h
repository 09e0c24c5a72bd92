#pragma once
// Whether a host program has a screen to show a window on: an offscreen platform has none; a
// platform the caller chose is taken to have one; otherwise an X11 or Wayland display must be
// named. Without one a host writes its window to a PNG file instead of waiting for a user.
namespace TabulonLib12::Apps {

bool HasDisplay();

}  // namespace TabulonLib12::Apps
