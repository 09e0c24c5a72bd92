#pragma once
// The demo's main window: the list of orders over a log of what the user did.
#include <QMainWindow>
#include <QPlainTextEdit>
#include <memory>
#include <string>

#include "order_list.h"
#include "platform/qt/tabulon_widget.h"

namespace TabulonLib12::Demo {

class DemoWindow final : public QMainWindow {
public:
    DemoWindow();
    // Fills the list from the database; failures are Errors.
    void Load(DatabaseEngine& engine, const std::string& databasePath);
    void Log(const QString& line);

private:
    TabulonWidget* list_ = nullptr;  // owned by the window
    QPlainTextEdit* log_ = nullptr;
    std::unique_ptr<OrderList> orders_;
};

}  // namespace TabulonLib12::Demo
