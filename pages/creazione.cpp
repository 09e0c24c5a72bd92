// The structure creation page: lists the sources of a database and writes the control's column
// definitions from the fields of one of them.
#include "pages/creazione.h"

#include <functional>
#include <memory>
#include <vector>

#include "control/tabulon12.h"
#include "grid/values.h"
#include "platform/db/composite_engine.h"
#include "platform/db/database.h"
#include "platform/host/host_services.h"
#include "platform/host/sequential_file.h"
#include "platform/runtime/error.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/steps.h"
#include "platform/runtime/text.h"

namespace TabulonLib12 {

namespace {

const TipoColonna* TipoDi(int16_t type) {
    for (const auto& t : kTipiColonna)
        if (t.type == type) return &t;
    return nullptr;
}

// A name as it stands in a query. The server engine lists names already in that form (quoted
// where a query needs it, with their schema outside the search path); a file's names are listed
// as they are and go in double quotes, inner ones doubled.
std::string NameInQuery(const std::string& name, bool server) {
    if (server) return name;
    std::string quoted = "\"";
    for (char c : name) {
        if (c == '"') quoted += '"';
        quoted += c;
    }
    return quoted + "\"";
}

// The query that reads a source: the whole table or view when the source is one of the
// database's names, else the source as the query text it is.
std::string QueryOfSource(Database& db, const std::string& database, const std::string& source) {
    const bool server = IsServerDatabaseName(database);
    for (auto names : {db.TableNames(), db.QueryNames()}) {
        for (const auto& name : names)
            if (EqualsInsensitive(name, source)) return "SELECT * FROM " + NameInQuery(name, server);
    }
    return source;
}

template <class T>
T& Need(const std::unique_ptr<T>& p) {
    if (!p) throw Error::MissingObject();
    return *p;
}
template <class T>
T& Need(const std::shared_ptr<T>& p) {
    if (!p) throw Error::MissingObject();
    return *p;
}

// The writes of column i from field i of the source, in their order; a column's Formato,
// Condizione, KeyID, tooltips of truth, chooser text and colours are left as they are.
// The control is asked for at each write, so that a page without one fails at each of them.
std::vector<std::function<void()>> ColumnWrites(const std::function<Tabulon12&()>& control, Recordset& rs,
                                                int16_t i) {
    const auto c = [control]() -> Tabulon12& { return control(); };
    return {
        [c, &rs, i] { c().setIntestazione(i, i == 0 ? std::string() : rs.FieldName(i)); },
        [c, &rs, i] { c().setColsWidth(i, LarghezzaPerTipo(i, rs.FieldType(i))); },
        [c, &rs, i] { c().setOrdinamento(i, rs.FieldName(i)); },
        [c, &rs, i] { c().setCampoQuery(i, rs.FieldName(i)); },
        [c, i] { c().setImmagineA(i, 0); },
        [c, i] { c().setImmagineB(i, 0); },
        [c, i] { c().setOperatoreCondizionale(i, ""); },
        [c, &rs, i] { c().setColAlignment(i, AllineamentoPerTipo(rs.FieldType(i))); },
        [c, i] { c().setToolTT(i, ""); },
        [c, i] { c().setIsIperText(i, 0); },
        [c, i] { c().setIperTextIndex(i, 0); },
        [c, i] { c().setColonnaOpzionale(i, 0); },
        [c, i] { c().setMostraTotCol(i, 0); },
        [c, i] { c().setMostraBarraVert(i, false); },
    };
}

// `work` on the database opened with the host's password; the database is closed after it, also
// when it fails (and then the work's failure is the one that goes on).
template <class Work>
std::string WithDatabase(DatabaseEngine& engine, const std::string& database, const std::string& password, Work work) {
    OpenOptions options;
    options.connect = ConnectText(password);
    std::shared_ptr<Database> db = engine.OpenDatabase(database, options);
    Database& opened = Need(db);
    std::string result;
    try {
        result = work(opened);
    } catch (...) {
        try {
            opened.Close();
        } catch (const Error&) {
        }
        throw;
    }
    opened.Close();
    return result;
}

// The first format of a column whose field is of `type`: dates and currency as such, the rest as
// they are stored.
const char* FormatoPerTipo(int16_t type) {
    switch (type) {
        case 5: return "Valuta";
        case 8: return "Data";
        default: return "Nessuno";
    }
}

}  // namespace

int16_t LarghezzaPerTipo(int index, int16_t type) {
    if (index == 0) return 0;
    const TipoColonna* t = TipoDi(type);
    return t != nullptr ? t->width : int16_t{0};
}

int16_t AllineamentoPerTipo(int16_t type) {
    const TipoColonna* t = TipoDi(type);
    return t != nullptr ? t->alignment : int16_t{0};
}

bool FileEsiste(const std::string& path) {
    try {
        return FileCanOpen(path);
    } catch (...) {
        return false;
    }
}

Creazione::Creazione(PropertyPageSite& site, const CreazioneFields& fields, DatabaseEngine& engine,
                     MessageBoxService& messages)
    : site_(site), f_(fields), engine_(engine), messages_(messages) {}

Tabulon12& Creazione::Controllo() const {
    if (controllo_ == nullptr) throw Error::MissingObject();
    return *controllo_;
}

void Creazione::TakeSelectedControl() {
    const auto selected = site_.SelectedControls();
    if (selected.empty()) throw Error::OutOfBounds();
    controllo_ = selected.front();
}

void Creazione::SelectionChanged() {
    if (!paginaCaricata_) LeggiControllo();
}

void Creazione::DBok_Click() { ElencaSorgenti(); }

void Creazione::CreaBtn_Click() {
    const std::string database = f_.TextDB.Text();
    const std::string source = f_.ComboTabella.Text();
    if (!database.empty() && !source.empty()) CreaColonne(database, source);
}

void Creazione::LeggiControllo() {
    if (paginaCaricata_) return;
    paginaCaricata_ = true;
    TakeSelectedControl();
    f_.TextDB.setText(Controllo().DataBaseName());
    f_.ComboTabella.setText(Controllo().QueryString());
}

void Creazione::ElencaSorgenti() {
    std::shared_ptr<Database> db;
    try {
        const std::string path = f_.TextDB.Text();
        if (!path.empty()) {
            if (!IsServerDatabaseName(path) && !FileEsiste(path)) return;
            OpenOptions options;
            options.connect = ConnectText(password_);
            db = engine_.OpenDatabase(path, options);
            Database& opened = Need(db);
            f_.ComboTabella.Clear();
            for (const auto& name : opened.TableNames()) f_.ComboTabella.AddItem(name);
            for (const auto& name : opened.QueryNames()) f_.ComboTabella.AddItem(name);
            opened.Close();
            db.reset();
        }
        TakeSelectedControl();
    } catch (const Error& e) {
        if (db) {
            // The database stays open no longer than the call, also after a failure.
            try {
                db->Close();
            } catch (const Error&) {
            }
        }
        if (e.number() != 0) messages_.MsgBox(e.description(), MsgBoxStyle::Critical, "");
    } catch (const std::bad_alloc&) {
        messages_.MsgBox(Error::OutOfMemory().description(), MsgBoxStyle::Critical, "");
    }
}

void Creazione::CreaColonne(const std::string& database, const std::string& source) {
    Steps steps;
    std::shared_ptr<Database> db;
    std::unique_ptr<Recordset> rs;
    steps([&] {
        OpenOptions options;
        options.connect = ConnectText(password_);
        db = engine_.OpenDatabase(database, options);
    });
    steps([&] { rs = Need(db).OpenRecordset(QueryOfSource(Need(db), database, source)); });
    steps([&] { Controllo().setCols(ToInt16(Need(rs).FieldCount())); });

    int count = 0;
    steps([&] { count = Need(rs).FieldCount(); });
    for (int n = 0; n < count; ++n)
        for (const auto& write : ColumnWrites([this]() -> Tabulon12& { return Controllo(); }, *rs, static_cast<int16_t>(n)))
            steps(write);

    steps([&] { Need(rs).Close(); });
    steps([&] { Need(db).Close(); });
    if (steps.Failure() && steps.Failure()->number() != 0)
        messages_.MsgBox(steps.Description(), MsgBoxStyle::Critical, "");
}

std::string SourceQuery(DatabaseEngine& engine, const std::string& database, const std::string& source,
                        const std::string& password) {
    return WithDatabase(engine, database, password,
                        [&](Database& opened) { return QueryOfSource(opened, database, source); });
}

std::string ColumnsFromSource(Tabulon12& control, DatabaseEngine& engine, const std::string& database,
                              const std::string& source, const std::string& password) {
    return WithDatabase(engine, database, password, [&](Database& opened) {
        std::string query = QueryOfSource(opened, database, source);
        std::unique_ptr<Recordset> rs = opened.OpenRecordset(query);
        Recordset& fields = Need(rs);
        const int count = fields.FieldCount();
        if (count == 0) throw Error(ErrorKind::InvalidValue, 380, "The source " + source + " has no fields");
        control.setCols(ToInt16(count));
        for (int n = 0; n < count; ++n) {
            const auto i = static_cast<int16_t>(n);
            for (const auto& write : ColumnWrites([&control]() -> Tabulon12& { return control; }, fields, i)) write();
            if (control.Formato(i).empty()) control.setFormato(i, FormatoPerTipo(fields.FieldType(i)));
        }
        fields.Close();
        return query;
    });
}

}  // namespace TabulonLib12
