// Carica: the road of a load through the control. It reads the column choice, sizes the
// columns, assembles the query and opens the database, has the grid's load copy the records
// into a new store aside, swaps that store in, sets up the scroll bar, paints, re-selects,
// redraws the totals and the count, and raises Caricato. It runs step by step: a failing
// statement is skipped and its failure stays pending for the load's own checks.
#include <new>

#include "control/tabulon12_impl.h"
#include "grid/load.h"
#include "grid/values.h"
#include "platform/runtime/steps.h"

namespace TabulonLib12 {

namespace {

constexpr const char* kLoadFailed = "Errore nel caricamento dell'elenco";

// What a load sets for its duration, put back whatever happens: the screen pointer, the heading
// band's input and the guard against the events the load itself provokes.
class LoadScope {
public:
    LoadScope(Tabulon12::Impl& control) : control_(control), wasLoading_(control.CaricamentoInCorso) {
        control_.CaricamentoInCorso = true;
    }
    ~LoadScope() { Close(); }
    LoadScope(const LoadScope&) = delete;
    LoadScope& operator=(const LoadScope&) = delete;
    // Puts everything back; a second call does nothing.
    void Close() {
        if (closed_) return;
        closed_ = true;
        control_.SetScreenPointer(Pointer::Default);
        control_.band.SetEnabled(true);
        control_.CaricamentoInCorso = wasLoading_;
    }

private:
    Tabulon12::Impl& control_;
    bool wasLoading_;
    bool closed_ = false;
};

}  // namespace

void Tabulon12::Carica(bool SoloRefresh) { impl_->Carica(SoloRefresh); }
void Tabulon12::Clear() { impl_->FG1.Clear(); }

void Tabulon12::Impl::Carica(bool soloRefresh) {
    if (QueryCaricamento.empty()) return;
    LoadScope scope(*this);
    Steps steps;
    try {
        chooser.LeggiFileScelta();
        if (!chooser.ColonneScelte().empty()) steps([&] { RidimensionaColonne(); });
        if (!soloRefresh && !ImageLista.empty()) imageList.Set(TrovaImageList(ImageLista));
        selection.ForgetForLoad();
        SetScreenPointer(Pointer::Hourglass);
        band.SetEnabled(false);
        if (!soloRefresh) {
            if (QueryCaricamento != UltimaQueryCaricata) steps([&] { SetScrollValue(0); });
            FG1.Clear();
            UltimaQueryCaricata = QueryCaricamento;
        }
        steps.Clear();
        QueryEffettiva = AssembleQuery(QueryCaricamento, band.CampoOrdinamentoAttivo(), band.OrdinamentoDiscendente());

        bool openedHere = false;
        if (!BaseDati) {
            // The open's own failure is not shown: the load says there is no database.
            Steps opening;
            BaseDati = OpenDatabase(ConnectText(Password), opening);
            openedHere = BaseDati != nullptr;
            if (!BaseDati) MessageBox("Nessun DB disponibile", MsgBoxStyle::Critical);
        }
        // Without a database the old store, RighePiene and the scroll range stay.
        if (BaseDati) LoadFrom(*BaseDati, openedHere, steps);
    } catch (const std::bad_alloc&) {
        // Memory ran out outside the copy itself: the load fails as a failed sizing does, with
        // an empty list.
        steps.Clear();
        MessageBox(std::string(kLoadFailed) + "\r\n" + Error::OutOfMemory().description(), MsgBoxStyle::Critical);
        MatriceRighe = RowStore();
        RighePiene = 0;
        Steps recovering;
        recovering([&] { MatriceRighe = RowStore(structure.MinRows(), Cols); });
        recovering([&] { FG1.Clear(); });
    }

    totals.ShowCount(RighePiene);
    scope.Close();
    steps([&] {
        events.Raise([](Tabulon12Events& e) { e.Caricato(); });
    });
    if (steps.Pending()) MessageBox(steps.Description(), MsgBoxStyle::Plain);
}

void Tabulon12::Impl::LoadFrom(Database& db, bool openedHere, Steps& steps) {
    const int16_t minRows = structure.MinRows();
    LoadResult result = LoadRecords(db, QueryEffettiva, columns, Cols, minRows);
    if (result.failure) MessageBox(std::string(kLoadFailed) + "\r\n" + result.failure->description(), MsgBoxStyle::Critical);
    if (result.opened) TotaliColonna = std::move(result.totals);
    for (size_t c = 0; c < result.detectedTypes.size() && c < columns.TipoCampoRilevato.size(); ++c)
        if (!result.detectedTypes[c].empty()) columns.TipoCampoRilevato[c] = std::move(result.detectedTypes[c]);
    // The record counter blanks the heading of the same number when that number is in the
    // column choice; a heading that does not exist is no failure of the load.
    Steps blanking;
    for (int16_t heading : HeadingsBlankedByRecords(chooser.ColonneScelte(), result.records))
        blanking([&] { band.SetCaption(heading, ""); });
    MatriceRighe = std::move(result.store);
    if (openedHere) {
        steps([&] { db.Close(); });
        BaseDati.reset();
    }

    RighePiene = result.records;
    steps([&] {
        VS1.setEnabled(!(minRows > RighePiene));
        VS1.setMin(0);
        VS1.setMax(MatriceRighe.RowBound() - minRows);
    });
    bands.DisponiImmaginiColonna(Cols);
    steps.Clear();
    ColoraSfondoRighe();
    if (RighePiene < FG1.Rows()) steps([&] { SetScrollValue(VS1.Min()); });
    RiempiFinestraRighe(true);
    selection.RiselezionaRiga();
    totals.RidisegnaTotali();
}

}  // namespace TabulonLib12
