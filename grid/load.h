#pragma once
// The load of one query into a new row store: every record of a snapshot recordset copied as
// text, cell by cell, into a store of (records or MinRows, whichever is larger) + 1 rows by
// Cols + 1 columns, the columns summed, the field types of the first record noted. The store is
// built aside and handed back whole; the control swaps it in when the load is done, so a failed
// or refused load never leaves half a list behind.
//
// Failures go as the load's failure table says: a failing field leaves its cell empty and the
// load goes on; a failure of the count or of the moves before the loop, or an exhausted memory
// anywhere, is the load's failure, which the control shows as "Errore nel caricamento
// dell'elenco". After an exhausted memory the list is empty.
#include <optional>
#include <string>
#include <vector>

#include "grid/column_properties.h"
#include "grid/row_store.h"
#include "platform/db/database.h"
#include "platform/runtime/error.h"

namespace TabulonLib12 {

struct LoadResult {
    bool opened = false;         // the recordset opened
    RowStore store;              // rows 0 to max(records, MinRows), columns 0 to Cols
    int32_t records = 0;         // records copied
    std::vector<float> totals;   // per column, when the recordset opened; empty otherwise
    // The decimal type code of each column's field on the first record, an empty text for a
    // column whose field was not found (its old code stands); no element with no record.
    std::vector<std::string> detectedTypes;
    std::optional<Error> failure;  // the load's failure, shown to the user
};

// Runs `query` on `db` and copies it by the column definitions: column c takes the field
// CampoQuery(c); it is summed unless its Formato is "Nessuno", "Data", "Ora" or "Data Breve",
// each value rounded to 4 decimals for "Numeri_4_Dec" and 2 otherwise, half to even, into a
// single. `cols` is the control's Cols (the store's marker column), `minRows` its MinRows.
LoadResult LoadRecords(Database& db, const std::string& query, const ColumnDefinitions& columns, int16_t cols,
                       int16_t minRows);

// The heading numbers that a load of `records` records blanks through the column choice: the
// load tests its record counter, after each record, against the list of hidden columns, so
// every listed number from 1 to `records` blanks the heading of that number.
std::vector<int16_t> HeadingsBlankedByRecords(std::string_view columnChoice, int32_t records);

}  // namespace TabulonLib12
