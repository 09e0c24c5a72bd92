#pragma once
// CreazionePage: the structure creation page as a Qt widget. The database ("DB") in a line
// edit, the button "OK" that lists its tables and views in the editable combo box ("Tabella"),
// and the button "Crea" that writes the control's columns from the source picked; every
// behaviour is the page logic's (pages/creazione.h). The child widgets carry their design names
// as object names ("TextDB", "DBok", "ComboTabella", "CreaBtn").
//
// The page opens databases through the engine it is given (for instance the one of the
// Tabulon12Widget it edits, which takes SQLite files and PostgreSQL server names) and tells
// failures in the message box it is given (a QtMessageBox on this page when none: a line on
// standard error without a display).
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "pages/creazione.h"
#include "platform/db/database.h"
#include "platform/host/host_services.h"

namespace TabulonLib12 {

class CreazionePage : public QWidget {
    Q_OBJECT

public:
    // The engine and the message box stay the caller's and must outlive the page.
    explicit CreazionePage(DatabaseEngine& engine, QWidget* parent = nullptr, MessageBoxService* messages = nullptr);
    ~CreazionePage() override;
    CreazionePage(const CreazionePage&) = delete;
    CreazionePage& operator=(const CreazionePage&) = delete;

    // The frame's side: the controls selected (the page writes into the first) and the
    // selection's change, which fills the page the first time (and throws its failure).
    void setSelectedControls(const std::vector<Tabulon12*>& controls);
    void SelectionChanged();
    // The password the page opens databases with.
    void setPassword(const std::string& password);

    Creazione& Logic();

signals:
    // "Crea" was pressed and its routine has run (it tells its own failures): the database and
    // the source the page shows, for the frame to show the control's new structure.
    void creaDone(const std::string& database, const std::string& source);

private:
    struct Form;
    std::unique_ptr<Form> form_;
};

}  // namespace TabulonLib12
