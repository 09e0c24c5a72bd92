#pragma once
// CampiPage: the column editor page as a Qt widget. A form of the page's fields with their
// captions, the column navigator and the buttons "&Aggiungi", "&Rimuovi" and "Stampa Rap";
// every behaviour is the page logic's (pages/campi.h), which this widget feeds with the user's
// actions through Qt's editing widgets and the adapters of widgets/page_adapters.h.
//
// The frame that holds the page (the designer host) names the controls to edit, tells the page
// that the selection changed, and asks it to apply; it hears of the Changed flag through the
// signal changedStateChanged. The child widgets carry their design names as object names
// ("Text2", "Combo1", "HScroll1", "InsBtn", ...).
//
// User actions and what they become: an edit of a text box, a pick from a combo box's list and a
// click of a check box are the field's change (Campi::Change); a change of the navigator's value
// runs the navigator; F2 pressed in any field of the page moves to the next column; a double
// click on the back colour swatch opens the colour dialog, a key released in it repaints it.
// The working table is not shown: the form shows one of its rows at a time.
//
// Failures: SelectionChanged and ApplyChanges throw the page's failure (TabulonLib12::Error) to
// the frame that called them. A failure of a button's routine, which has no caller to reach, is
// shown in a message box with the critical icon (on standard error without a display).
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "pages/campi.h"
#include "platform/host/host_services.h"
#include "widgets/page_adapters.h"

namespace TabulonLib12 {

class CampiPage : public QWidget {
    Q_OBJECT

public:
    // `messages` shows the failures of the buttons (a QtMessageBox on this page when null); it
    // stays the caller's.
    explicit CampiPage(QWidget* parent = nullptr, MessageBoxService* messages = nullptr);
    ~CampiPage() override;
    CampiPage(const CampiPage&) = delete;
    CampiPage& operator=(const CampiPage&) = delete;

    // The frame's side: the controls selected (the page edits the first), the selection's
    // change, the apply, and the Changed flag.
    void setSelectedControls(const std::vector<Tabulon12*>& controls);
    void SelectionChanged();
    void ApplyChanges();
    bool Changed() const;

    // The folder of the column report "Tabulon09.log" (by default the user's home folder, or
    // the working folder without HOME).
    std::string ReportFolder() const;
    void setReportFolder(const std::string& folder);

    // The colour dialog, for a host or a test that wants it modal also without a display.
    QtColourDialog& ColourDialogOfPage();
    // The page's logic.
    Campi& Logic();

signals:
    // Every write of the page's Changed flag.
    void changedStateChanged(bool changed);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Runs a button's routine; a failure goes to the message box.
    template <class F>
    void Guarded(F&& routine);

    struct Form;
    std::unique_ptr<Form> form_;
    MessageBoxService* messages_ = nullptr;
};

}  // namespace TabulonLib12
