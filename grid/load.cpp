// Carica: runs the query, copies every record as text into the row store, sums the columns,
// sets up the scroll bar and paints the visible rows.
#include <charconv>

#include "grid/control_state.h"
#include "platform/runtime/rounding.h"

namespace TabulonLib12 {

namespace {

// Formats whose columns are not summed.
bool IsUnsummedFormat(const std::string& f) {
    return f == "Nessuno" || f == "Data" || f == "Ora" || f == "Data Breve";
}

std::string DecimalText(int64_t n) {
    char buf[24];
    auto [end, ec] = std::to_chars(buf, buf + sizeof buf, n);
    return std::string(buf, end);
}

}  // namespace

void Tabulon12::Carica(bool SoloRefresh) { impl_->Carica(SoloRefresh); }
void Tabulon12::Clear() { impl_->FG1->Clear(); }

void Tabulon12::Impl::Carica(bool soloRefresh) {
    if (QueryCaricamento.empty()) return;
    const bool wasLoading = CaricamentoInCorso;
    CaricamentoInCorso = true;

    LeggiFileScelta();
    if (!ColonneScelte.empty()) RidimensionaColonne();
    if (!soloRefresh && !ImageLista.empty()) OggettoImageList = TrovaImageList(ImageLista);
    IndiceSelezionato = -1;
    IndiceRigaAttiva = -1;
    SetScreenPointer(Pointer::Hourglass);
    Shape2->setEnabled(false);
    if (!soloRefresh) {
        if (QueryCaricamento != UltimaQueryCaricata) SetScrollValue(0);
        FG1->Clear();
        UltimaQueryCaricata = QueryCaricamento;
    }
    err.Clear();
    QueryEffettiva = AssembleQuery();

    bool openedHere = false;
    bool haveDatabase = true;
    if (!BaseDati) {
        BaseDati = OpenDatabase(ConnectText());
        if (BaseDati) {
            openedHere = true;
        } else {
            haveDatabase = false;
            MessageBox("Nessun DB disponibile", MsgBoxStyle::Critical);
            // The open's own failure is not shown a second time.
            err.Clear();
        }
    }

    if (haveDatabase) {
        std::unique_ptr<Recordset> rs;
        Step(err, [&] { rs = BaseDati->OpenRecordset(QueryEffettiva); });
        MatriceRighe = RowStore(0, 0);
        int32_t n = 0;
        const int32_t storeCols = Cols;
        if (rs) {
            const size_t nCampi = col.CampoQuery.size();
            TotaliColonna.assign(static_cast<size_t>(std::max<int16_t>(Cols, 0)), 0.0f);
            int32_t count = 0;
            Step(err, [&] { count = rs->RecordCount(); });
            if (count < 1) {
                MatriceRighe = RowStore(MinRows, storeCols);
            } else {
                Step(err, [&] { rs->MoveLast(); });
                Step(err, [&] { rs->MoveFirst(); });
                Step(err, [&] { count = rs->RecordCount(); });
                MatriceRighe = RowStore(std::max<int32_t>(count, MinRows), storeCols);
                if (err.IsSet())
                    MessageBox("Errore nel caricamento dell'elenco\r\n" + err.description, MsgBoxStyle::Critical);

                // Resolve each column's field once; a name the recordset lacks leaves its cells
                // empty, as a failing field lookup would.
                std::vector<int> fieldOf(nCampi, -1);
                std::vector<int8_t> decimals(nCampi, -1);  // -1: not summed
                for (size_t c = 0; c < nCampi; ++c) {
                    Step(err, [&] { fieldOf[c] = rs->FieldIndex(col.CampoQuery[c]); });
                    if (!IsUnsummedFormat(col.Formato[c]) && c < TotaliColonna.size())
                        decimals[c] = col.Formato[c] == "Numeri_4_Dec" ? 4 : 2;
                }
                const bool blankHeadings = !ColonneScelte.empty();
                std::string text;
                while (true) {
                    bool eof = true;
                    if (!Step(err, [&] { eof = rs->IsEOF(); }) || eof) break;
                    // A record beyond the counted ones has no row in the store; its cells fail
                    // to be stored, as writes beyond the bound would, and the sums go on.
                    const bool rowInStore = n <= MatriceRighe.RowBound();
                    for (size_t c = 0; c < nCampi; ++c) {
                        const int f = fieldOf[c];
                        if (f < 0) continue;
                        Step(err, [&] {
                            text.clear();
                            rs->AppendFieldText(f, text);  // a Null appends nothing
                            if (rowInStore) MatriceRighe.SetCell(n, c, text);
                            if (n == 0) col.TipoCampoRilevato[c] = DecimalText(rs->FieldType(f));
                            if (decimals[c] >= 0) {
                                const double v = RoundHalfEven(rs->FieldNumber(f), decimals[c]);
                                TotaliColonna[c] = static_cast<float>(v + TotaliColonna[c]);
                            }
                        });
                    }
                    ++n;
                    // The record counter blanks the heading of the same number when that
                    // number is in the column choice.
                    if (blankHeadings && VoceInLista(DecimalText(n), ColonneScelte))
                        Step(err, [&] { (*LabelMenu)(static_cast<int16_t>(n)).setCaption(""); });
                    if (!Step(err, [&] { rs->MoveNext(); })) break;
                }
            }
            Step(err, [&] { rs->Close(); });
        } else {
            MatriceRighe = RowStore(MinRows, storeCols);
        }
        if (openedHere) {
            Step(err, [&] { BaseDati->Close(); });
            BaseDati.reset();
        }

        RighePiene = n;
        VS1->setEnabled(!(MinRows > RighePiene));
        VS1->setMin(0);
        VS1->setMax(MatriceRighe.RowBound() - MinRows);

        DisponiImmaginiColonna();
        err.Clear();
        ColoraSfondoRighe();

        if (RighePiene < FG1->Rows()) SetScrollValue(VS1->Min());
        RiempiFinestraRighe(true);
        RiselezionaRiga();
        RidisegnaTotali();
    }

    LabelCount->setCaption(TestoCount + " " + DecimalText(RighePiene));
    LabelCount->setVisible(!TestoCount.empty());
    SetScreenPointer(Pointer::Default);
    Shape2->setEnabled(true);
    CaricamentoInCorso = wasLoading;

    if (events) {
        try {
            events->Caricato();
        } catch (const Error& e) {
            err.Set(e);
        }
    }
    if (err.IsSet()) {
        MessageBox(err.description, MsgBoxStyle::Plain);
        err.Clear();
    }
}

}  // namespace TabulonLib12
