// Opening a PostgreSQL database read-only, and the database object over its session.
#include <algorithm>
#include <cctype>

#include "platform/db/composite_engine.h"
#include "platform/runtime/text.h"
#include "postgres_internal.h"

namespace TabulonLib12 {

namespace {

using pg::ClientError;

// What every session sets, after the name's own options, so that value texts read the same
// whatever the server's or the role's defaults are.
constexpr const char* kSessionOptions =
    "-c default_transaction_read_only=on -c DateStyle=ISO,YMD -c IntervalStyle=postgres -c bytea_output=hex "
    "-c lc_monetary=C -c standard_conforming_strings=on -c extra_float_digits=3";

// libpq knows its URI schemes in lower case only.
std::string WithLowerScheme(const std::string& name) {
    std::string result = name;
    for (std::string_view scheme : {std::string_view("postgresql://"), std::string_view("postgres://")}) {
        if (StartsWithInsensitive(name, scheme)) {
            result.replace(0, scheme.size(), scheme);
            break;
        }
    }
    return result;
}

// The password of a connect text: whatever follows "pwd=" (in any case) at the start of the
// text or after a ';', to the end of the text, so that it may itself hold a ';'.
bool PasswordOf(const std::string& connect, std::string& password) {
    size_t segment = 0;
    while (segment <= connect.size()) {
        size_t i = segment;
        while (i < connect.size() && (connect[i] == ' ' || connect[i] == '\t')) ++i;
        if (StartsWithInsensitive(std::string_view(connect).substr(i), "pwd=")) {
            password = connect.substr(i + 4);
            return true;
        }
        size_t next = connect.find(';', segment);
        if (next == std::string::npos) break;
        segment = next + 1;
    }
    return false;
}

std::string PercentEncoded(const std::string& text, bool upper) {
    const char* digits = upper ? "0123456789ABCDEF" : "0123456789abcdef";
    std::string out;
    for (unsigned char c : text) {
        if (std::isalnum(c) || c == '-' || c == '.' || c == '_' || c == '~') {
            out += static_cast<char>(c);
        } else {
            out += '%';
            out += digits[c >> 4];
            out += digits[c & 0x0F];
        }
    }
    return out;
}

void AddSecret(pg::ConnectParameters& parameters, const std::string& secret) {
    if (secret.empty()) return;
    for (const std::string& form : {secret, PercentEncoded(secret, true), PercentEncoded(secret, false)}) {
        if (std::find(parameters.secrets.begin(), parameters.secrets.end(), form) == parameters.secrets.end()) {
            parameters.secrets.push_back(form);
        }
    }
    // Longer forms first, so that no part of one is left behind by a shorter one.
    std::sort(parameters.secrets.begin(), parameters.secrets.end(),
              [](const std::string& a, const std::string& b) { return a.size() > b.size(); });
}

std::shared_ptr<const pg::ConnectParameters> BuildParameters(const std::string& name, const std::string& connect) {
    auto parameters = std::make_shared<pg::ConnectParameters>();
    std::string password;
    bool hasPassword = PasswordOf(connect, password);
    if (hasPassword) AddSecret(*parameters, password);

    std::string dbname = WithLowerScheme(name);
    char* failure = nullptr;
    PQconninfoOption* parsed = PQconninfoParse(dbname.c_str(), &failure);
    if (parsed == nullptr) {
        std::string message = failure != nullptr ? failure : "the connection string cannot be read";
        PQfreemem(failure);
        while (!message.empty() && std::isspace(static_cast<unsigned char>(message.back()))) message.pop_back();
        throw ClientError("08001", pg::WithoutSecrets(std::move(message), parameters->secrets));
    }
    std::string options;
    for (PQconninfoOption* option = parsed; option->keyword != nullptr; ++option) {
        if (option->val == nullptr) continue;
        std::string_view keyword(option->keyword);
        if (keyword == "options") options = option->val;
        if (keyword == "password") AddSecret(*parameters, option->val);
    }
    PQconninfoFree(parsed);
    if (!options.empty()) options += ' ';
    options += kSessionOptions;

    auto add = [&](const char* keyword, std::string value) {
        parameters->keywords.emplace_back(keyword);
        parameters->values.push_back(std::move(value));
    };
    // Before the name, so that the name may change them; after it, what must hold.
    add("connect_timeout", "10");
    add("fallback_application_name", "Tabulon12");
    add("dbname", dbname);
    if (hasPassword) add("password", password);
    add("options", options);
    add("client_encoding", "UTF8");
    return parameters;
}

}  // namespace

std::shared_ptr<Database> PostgresEngine::OpenDatabase(const std::string& name, const OpenOptions& options) {
    if (!options.readOnly) throw ClientError("25006", "a database can only be opened read-only");
    if (name.find('\0') != std::string::npos || !IsServerDatabaseName(name)) {
        throw ClientError("08001", "not a PostgreSQL connection: give a postgresql:// URI or key=value parameters");
    }
    auto parameters = BuildParameters(name, options.connect);
    auto session = pg::Session::Open(parameters);
    return std::make_shared<PostgresDatabase>(name, std::move(parameters), std::move(session));
}

PostgresDatabase::PostgresDatabase(std::string name, std::shared_ptr<const pg::ConnectParameters> parameters,
                                   std::shared_ptr<pg::Session> session)
    : name_(std::move(name)), parameters_(std::move(parameters)), session_(std::move(session)) {}

PostgresDatabase::~PostgresDatabase() = default;

std::shared_ptr<pg::Session> PostgresDatabase::FreeSession() {
    if (!session_) throw pg::ClosedObject("the database");
    if (session_->leased) return pg::Session::Open(parameters_);
    if (session_->IsBroken()) session_->Repair();
    return session_;
}

std::unique_ptr<Recordset> PostgresDatabase::OpenRecordset(const std::string& query) {
    if (!session_) throw pg::ClosedObject("the database");
    std::string sql = pg::SingleStatement(query);
    std::shared_ptr<pg::Session> session = FreeSession();
    try {
        return std::make_unique<PostgresRecordset>(session, sql);
    } catch (const Error&) {
        // A session that the server ended meanwhile shows it only at its next use: once more on
        // a new connection.
        if (!session->IsBroken()) throw;
        session->Repair();
        return std::make_unique<PostgresRecordset>(session, sql);
    }
}

std::vector<std::string> PostgresDatabase::RelationNames(const char* kinds) {
    std::shared_ptr<pg::Session> session = FreeSession();
    try {
        return RelationNames(*session, kinds);
    } catch (const Error&) {
        if (!session->IsBroken()) throw;
        session->Repair();
        return RelationNames(*session, kinds);
    }
}

std::vector<std::string> PostgresDatabase::RelationNames(pg::Session& session, const char* kinds) {
    // A name outside the search path comes with its schema; both parts quoted where a query
    // would need it, so that the name can stand in a query as it is.
    pg::ResultPtr rows = session.RunExtended(
        "SELECT name FROM ("
        " SELECT c.relname AS sortname, n.nspname AS sortschema,"
        " CASE WHEN pg_catalog.pg_table_is_visible(c.oid) THEN pg_catalog.quote_ident(c.relname)"
        " ELSE pg_catalog.quote_ident(n.nspname) || '.' || pg_catalog.quote_ident(c.relname) END AS name"
        " FROM pg_catalog.pg_class c JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace"
        " WHERE c.relkind = ANY (($1)::pg_catalog.\"char\"[]) AND NOT c.relispartition"
        " AND n.nspname <> 'information_schema' AND n.nspname NOT LIKE 'pg\\_%') AS names "
        "ORDER BY lower(sortname), sortname, sortschema",
        PGRES_TUPLES_OK, {kinds});
    std::vector<std::string> names;
    names.reserve(static_cast<size_t>(PQntuples(rows.get())));
    for (int r = 0; r < PQntuples(rows.get()); ++r) names.emplace_back(PQgetvalue(rows.get(), r, 0));
    return names;
}

std::vector<std::string> PostgresDatabase::TableNames() {
    return RelationNames("{r,p}");
}

std::vector<std::string> PostgresDatabase::QueryNames() {
    return RelationNames("{v,m}");
}

void PostgresDatabase::Close() {
    // Recordsets still open keep their session until they close.
    session_.reset();
}

}  // namespace TabulonLib12
