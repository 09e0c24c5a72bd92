#pragma once
// A sheet of the heading styles: one small list of the sample's orders per style, named, in a
// window of its own, to look at the styles side by side or to write them to a picture.
#include <QWidget>
#include <string>

namespace TabulonLib12::Demo {

class StyleSheet final : public QWidget {
public:
    // The lists read the orders of `databasePath`.
    explicit StyleSheet(const std::string& databasePath, QWidget* parent = nullptr);
};

}  // namespace TabulonLib12::Demo
