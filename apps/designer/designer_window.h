#pragma once
// The designer's main window: the list of one form file, live on its database, beside the two
// design pages. The developer edits the columns on "Campi" and applies them, or makes a first
// structure from a table or query on "Creazione"; the list shows each change at once. The
// "Dati" fields name the list's database and query. "Salva" writes the form file back (atomic:
// a failed save leaves the old file and says why), "Salva come..." to another file.
//
// What the buttons run:
//   Applica   the column editor's changes (when it has any) into the control, which builds its
//             structure again, then the database and query of "Dati", then a new load
//   Crea      (on "Creazione") the page writes the columns; then the list takes the page's
//             database and the query of its source (a table read whole), the column editor is
//             filled again from the new columns and applied (so that the new columns, which
//             the page leaves without a format, show their values as "Nessuno"), and the list
//             loads
//   Salva     the list's design into the form file
// A failure is told in a message box with the critical icon (on standard error without a
// display); the list's own load failures are the control's messages.
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <memory>
#include <string>

#include "platform/qt/qt_message_box.h"
#include "widgets/campi_page.h"
#include "widgets/creazione_page.h"
#include "widgets/form_document.h"
#include "widgets/tabulon12_widget.h"

namespace TabulonLib12::Designer {

class DesignerWindow final : public QMainWindow {
    Q_OBJECT

public:
    // The list of `document`, restored from its design (a new list when the form has none yet).
    // A `database` or `query` given takes the place of the design's; on a new list the query's
    // fields become the columns (ColumnsFromSource), whose failure is thrown (Error) before the
    // window is made.
    // `messages` tells the failures of the window, the pages and the list (a QtMessageBox on
    // this window when null); it stays the caller's.
    explicit DesignerWindow(FormDocument document, const std::string& database = {}, const std::string& query = {},
                            MessageBoxService* messages = nullptr);
    ~DesignerWindow() override;

    // Loads the list when it names a database and a query (the start and every change).
    void LoadList();
    // The buttons, for the host and the tests. Answer whether they went through.
    bool Apply();
    bool Save(const std::string& path = {});

    Tabulon12Widget& List() { return *list_; }
    CampiPage& Campi() { return *campi_; }
    CreazionePage& Creazione() { return *creazione_; }
    QLineEdit& DatabaseField() { return *database_; }
    QLineEdit& QueryField() { return *query_; }
    const FormDocument& Document() const { return document_; }
    // Whether the design changed since it was opened or saved.
    bool Modified() const { return modified_; }

private:
    void OnCreaDone(const std::string& database, const std::string& source);
    void SaveAs();
    void setModified(bool modified);
    void Fail(const std::string& description);

    FormDocument document_;
    std::string password_;  // of the design, for the structure page
    QtMessageBox ownMessages_;
    MessageBoxService* messages_;
    std::shared_ptr<HostForm> form_;
    Tabulon12Widget* list_ = nullptr;
    QWidget* side_ = nullptr;  // the data fields, the pages and the buttons
    CampiPage* campi_ = nullptr;
    CreazionePage* creazione_ = nullptr;
    QLineEdit* database_ = nullptr;
    QLineEdit* query_ = nullptr;
    QPushButton* apply_ = nullptr;
    bool modified_ = false;
};

}  // namespace TabulonLib12::Designer
