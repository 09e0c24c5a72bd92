#pragma once
// Helpers shared by the files of the SQLite engine; not part of its public face.
#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/runtime/datetime.h"
#include "platform/runtime/error.h"
#include "sqlite_engine.h"

namespace TabulonLib12::detail {

// Errors in the engine's own words.
Error EngineError(sqlite3* db);               // the connection's last failure
Error EngineError(int code);                  // the engine's text for a result code
Error EngineError(int code, const std::string& message);
Error NoCurrentRecord();                      // 3021
Error ClosedObject(const char* what);

// Guards that keep a read-only connection from writing by any statement: query_only, no
// ATTACH, defensive mode, untrusted schema, and the authorizer that admits reads only.
void InstallReadOnlyGuards(sqlite3* db);

// Prepares the one statement of `query`. Anything after it other than blanks, semicolons and
// comments is refused, as is a statement that could write. `statementText` receives the text of
// the statement without its trailing semicolons.
StatementPtr PrepareSingleStatement(sqlite3* db, std::string_view query, std::string* statementText);


// Type code of a declared column type; 0 when there is none or the name is not in the map.
int16_t DeclaredTypeCode(const char* declared);
// Type code of a storage class (SQLITE_INTEGER ... SQLITE_NULL).
int16_t StorageTypeCode(int storageClass);

// Reads ISO text "yyyy-mm-dd[( |T)hh:nn[:ss[.fff]]]" or "hh:nn[:ss]" into a date.
bool ReadIsoDate(std::string_view text, DateTime& out);

// A 16-byte identifier as "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}".
void AppendGuidText(const unsigned char* bytes, std::string& out);

}  // namespace TabulonLib12::detail
