#pragma once
// The demo's main window: a list and a log pane where every event the control raises is
// written. The list is either the design of a form file (the sample's orders by default) or, for
// a query given on the command line, a new list whose columns come from the query's fields.
#include <QMainWindow>
#include <QPlainTextEdit>
#include <memory>
#include <optional>
#include <string>

#include "control/tabulon12.h"
#include "widgets/form_document.h"
#include "widgets/tabulon12_widget.h"

namespace TabulonLib12::Demo {

// What the window shows: the list `controlName` of the form `document`, with the database and
// the query given on the command line (when not empty) in place of the design's; or, without a
// document, a new list of `query` (a table, a view or a query text) on `database`.
struct DemoSetup {
    const FormDocument* document = nullptr;
    std::string database;
    std::string query;
    // The file of the user's choice of columns: `choices` when given, else `defaultChoices`
    // where the design names none (none kept when both are empty).
    std::string choices;
    std::string defaultChoices;
};

class DemoWindow final : public QMainWindow, private Tabulon12Events {
public:
    explicit DemoWindow(const DemoSetup& setup);
    ~DemoWindow() override;
    // Makes the list ready to load and answers why it cannot be read, in the engine's own words,
    // or nothing when it can: a new list takes its columns from the query's fields; a designed
    // one opens its database and a recordset on its query through the control's engine and
    // closes both.
    std::optional<std::string> Prepare();
    // Loads the list.
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

    std::string database_;
    std::string query_;     // of a new list; empty for a designed one
    std::string password_;       // of a designed list, for the check of Prepare
    std::string designedQuery_;  // likewise
    std::shared_ptr<HostForm> form_;
    Tabulon12Widget* list_ = nullptr;  // owned by the window, with its control and services
    QPlainTextEdit* log_ = nullptr;
};

}  // namespace TabulonLib12::Demo
