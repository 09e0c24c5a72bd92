#pragma once
// The demo's main window: the control over the sample database's orders, and a log pane where
// every event the control raises is written.
#include <QMainWindow>
#include <QPlainTextEdit>
#include <memory>
#include <optional>
#include <string>

#include "control/tabulon12.h"
#include "widgets/tabulon12_widget.h"

namespace TabulonLib12::Demo {

class DemoWindow final : public QMainWindow, private Tabulon12Events {
public:
    // `choiceFile` keeps the user's choice of columns (none kept when empty).
    DemoWindow(const std::string& databasePath, const std::string& choiceFile);
    ~DemoWindow() override;
    // Why the orders cannot be read, in the engine's own words, or nothing when they can: opens
    // the database through the control's engine and a recordset on the list's query, then closes
    // both.
    std::optional<std::string> ReadProblem();
    // Defines the columns and loads the orders.
    void Load();
    void Log(const QString& line);
    Tabulon12& Control() { return list_->Control(); }

private:
    // The control's events, written to the log.
    void KeyDown(int16_t& KeyCode, int16_t& Shift) override;
    void KeyPress(int16_t& KeyAscii) override;
    void KeyUp(int16_t& KeyCode, int16_t& Shift) override;
    void MouseMove(int16_t& Button, int16_t& Shift, float& x, float& y) override;
    void GoDown() override;
    void GoUp() override;
    void Caricato() override;
    void Click() override;
    void DblClick() override;
    void MouseDown(int16_t& Button, int16_t& Shift, float& x, float& y) override;
    void MouseUp(int16_t& Button, int16_t& Shift, float& x, float& y) override;
    void EnterCell() override;
    void LeaveCell() override;
    void CellClick(int32_t& RigaClick, int16_t& ColonnaClick) override;
    void CellDblClick(int32_t& RigaClick, int16_t& ColonnaClick) override;
    void CellRightClick(int32_t& RigaClick, int16_t& ColonnaClick) override;
    void CellMouseMove(int32_t& RigaClick, int16_t& ColonnaClick) override;
    void IperTextClick(int32_t& RigaClick, int16_t& ColonnaClick, int32_t& IdAssociato,
                       std::string& TestoIperTxt) override;
    void Resize() override;

    std::string databasePath_;
    std::string choiceFile_;
    std::shared_ptr<HostForm> form_;
    Tabulon12Widget* list_ = nullptr;  // owned by the window, with its control and services
    QPlainTextEdit* log_ = nullptr;
};

}  // namespace TabulonLib12::Demo
