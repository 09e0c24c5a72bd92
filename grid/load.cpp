#include "grid/load.h"

#include <algorithm>
#include <new>

#include "grid/values.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/steps.h"
#include "platform/runtime/text.h"

namespace TabulonLib12 {

namespace {

// Formats whose columns are not summed.
bool IsUnsummedFormat(const std::string& f) { return f == "Nessuno" || f == "Data" || f == "Ora" || f == "Data Breve"; }

// Copies the records from the first to the end into `result`, which holds a store of the
// counted size. Failures of single fields and moves are the routine's own and stay in `steps`.
void CopyRecords(Recordset& rs, const ColumnDefinitions& columns, LoadResult& result, Steps& steps) {
    const size_t nCampi = columns.CampoQuery.size();
    // Each column's field is resolved once; a name the recordset lacks leaves its cells empty,
    // as a failing field lookup would.
    std::vector<int> fieldOf(nCampi, -1);
    std::vector<int8_t> decimals(nCampi, -1);  // -1: not summed
    for (size_t c = 0; c < nCampi; ++c) {
        steps([&] { fieldOf[c] = rs.FieldIndex(columns.CampoQuery[c]); });
        if (!IsUnsummedFormat(columns.Formato[c]) && c < result.totals.size())
            decimals[c] = columns.Formato[c] == "Numeri_4_Dec" ? 4 : 2;
    }
    RowStore& store = result.store;
    int32_t n = 0;
    std::string text;
    while (true) {
        bool eof = true;
        if (!steps([&] { eof = rs.IsEOF(); }) || eof) break;
        // A record beyond the counted ones has no row in the store; its cells fail to be stored,
        // as writes beyond the bound would, and the sums go on.
        const bool rowInStore = n <= store.RowBound();
        if (n == 0) result.detectedTypes.assign(nCampi, std::string());
        for (size_t c = 0; c < nCampi; ++c) {
            const int f = fieldOf[c];
            if (f < 0) continue;
            steps([&] {
                text.clear();
                rs.AppendFieldText(f, text);  // a Null appends nothing
                if (rowInStore) store.SetCell(n, static_cast<int64_t>(c), text);
                if (n == 0) result.detectedTypes[c] = DecimalText(rs.FieldType(f));
                if (decimals[c] >= 0) {
                    const double v = RoundHalfEven(rs.FieldNumber(f), decimals[c]);
                    result.totals[c] = static_cast<float>(v + result.totals[c]);
                }
            });
            // Memory that runs out is no failure of one field: it ends the load.
            if (steps.RanOutOfMemory()) throw std::bad_alloc();
        }
        ++n;
        if (!steps([&] { rs.MoveNext(); })) break;
    }
    if (steps.RanOutOfMemory()) throw std::bad_alloc();
    result.records = n;
}

}  // namespace

LoadResult LoadRecords(Database& db, const std::string& query, const ColumnDefinitions& columns, int16_t cols,
                       int16_t minRows) {
    LoadResult result;
    Steps steps;
    std::unique_ptr<Recordset> rs;
    steps([&] { rs = db.OpenRecordset(query); });
    if (!rs) {
        // A query that fails to open gives an empty list in silence.
        result.store = RowStore(minRows, cols);
        return result;
    }
    result.opened = true;
    try {
        result.totals.assign(static_cast<size_t>(std::max<int16_t>(cols, 0)), 0.0f);
        int32_t count = 0;
        steps([&] { count = rs->RecordCount(); });
        if (count < 1) {
            result.store = RowStore(minRows, cols);
        } else {
            Steps counting;  // the count and the moves that make it exact: the load's failure
            counting([&] { rs->MoveLast(); });
            counting([&] { rs->MoveFirst(); });
            counting([&] { count = rs->RecordCount(); });
            result.store = RowStore(std::max<int32_t>(count, minRows), cols);
            result.failure = counting.Failure();
            CopyRecords(*rs, columns, result, steps);
        }
    } catch (const std::bad_alloc&) {
        // The memory ran out while the store was sized or filled: what was built goes, and the
        // list is empty.
        result.store = RowStore();
        result.totals.assign(result.totals.size(), 0.0f);
        result.detectedTypes.clear();
        result.records = 0;
        result.failure = Error::OutOfMemory();
        result.store = RowStore(minRows, cols);
    }
    steps([&] { rs->Close(); });
    return result;
}

std::vector<int16_t> HeadingsBlankedByRecords(std::string_view columnChoice, int32_t records) {
    std::vector<int16_t> headings;
    if (columnChoice.empty() || records < 1) return headings;
    const int32_t last = std::min<int32_t>(records, INT16_MAX);
    for (int32_t k = 1; k <= last; ++k)
        if (ListHolds(columnChoice, DecimalText(k))) headings.push_back(static_cast<int16_t>(k));
    return headings;
}

}  // namespace TabulonLib12
