#pragma once
// Screenshots of widgets for the demo host and the tests.
#include <QWidget>
#include <string>

namespace TabulonLib12 {

// Renders the widget (grab) and writes it as a PNG file. A file that cannot be written fails
// with Error 75 "Path/File access error".
void SaveWidgetPng(QWidget& widget, const std::string& path);

}  // namespace TabulonLib12
