// One read-only libpq session: connecting, running statements, and telling failures in the
// server's words with every password taken out.
#include <algorithm>
#include <charconv>
#include <cctype>

#include "postgres_internal.h"

namespace TabulonLib12 {

int32_t SqlStateNumber(std::string_view sqlState) {
    if (sqlState.size() != 5) sqlState = "XX000";
    uint32_t number = 0;
    for (size_t i = 0; i < 5; ++i) {
        uint32_t bits = (static_cast<uint32_t>(static_cast<unsigned char>(sqlState[i])) - '0') & 0x3Fu;
        number |= bits << (6 * i);
    }
    return static_cast<int32_t>(number);
}

namespace pg {

namespace {

constexpr const char* kHidden = "********";

void IgnoreNotice(void*, const char*) {
    // Notices and warnings of the server are no failures, and nothing here keeps a log.
}

std::string Trimmed(std::string text) {
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.back()))) text.pop_back();
    return text;
}

}  // namespace

Error ClientError(const char* sqlState, const std::string& message) {
    return Error(ErrorKind::Database, SqlStateNumber(sqlState), message);
}

int64_t WholeNumber(const char* text) {
    if (text == nullptr) return 0;
    int64_t value = 0;
    const char* end = text + std::char_traits<char>::length(text);
    auto result = std::from_chars(text, end, value);
    return result.ec == std::errc() ? value : 0;
}

Error NoCurrentRecord() {
    return Error(ErrorKind::Database, 3021, "No current record.");
}

Error ClosedObject(const char* what) {
    return ClientError("08003", std::string(what) + " is closed");
}

Session::Session(std::shared_ptr<const ConnectParameters> parameters, PGconn* connection)
    : parameters_(std::move(parameters)), connection_(connection) {}

Session::~Session() {
    PQfinish(connection_);
}

std::shared_ptr<Session> Session::Open(std::shared_ptr<const ConnectParameters> parameters) {
    std::vector<const char*> keywords;
    std::vector<const char*> values;
    for (size_t i = 0; i < parameters->keywords.size(); ++i) {
        keywords.push_back(parameters->keywords[i].c_str());
        values.push_back(parameters->values[i].c_str());
    }
    keywords.push_back(nullptr);
    values.push_back(nullptr);
    PGconn* connection = PQconnectdbParams(keywords.data(), values.data(), 1);
    if (connection == nullptr) throw ClientError("08001", "out of memory");
    std::shared_ptr<Session> session(new Session(std::move(parameters), connection));
    if (PQstatus(connection) != CONNECTION_OK) throw session->ConnectionError("08001");
    PQsetNoticeProcessor(connection, IgnoreNotice, nullptr);
    session->MakeReadOnly();
    return session;
}

void Session::MakeReadOnly() {
    Run("SET SESSION CHARACTERISTICS AS TRANSACTION READ ONLY", PGRES_COMMAND_OK);
    ResultPtr check = Run("SHOW default_transaction_read_only", PGRES_TUPLES_OK);
    if (PQntuples(check.get()) != 1 || std::string_view(PQgetvalue(check.get(), 0, 0)) != "on") {
        throw ClientError("25006", "the session could not be made read-only");
    }
}

bool Session::IsBroken() const {
    return PQstatus(connection_) != CONNECTION_OK;
}

void Session::Repair() {
    PQreset(connection_);
    if (PQstatus(connection_) != CONNECTION_OK) throw ConnectionError("08001");
    PQsetNoticeProcessor(connection_, IgnoreNotice, nullptr);
    MakeReadOnly();
}

std::string WithoutSecrets(std::string text, const std::vector<std::string>& secrets) {
    for (const std::string& secret : secrets) {
        if (secret.empty()) continue;
        size_t at = 0;
        while ((at = text.find(secret, at)) != std::string::npos) {
            text.replace(at, secret.size(), kHidden);
            at += std::char_traits<char>::length(kHidden);
        }
    }
    return text;
}

std::string Session::Scrub(std::string text) const {
    return WithoutSecrets(std::move(text), parameters_->secrets);
}

Error Session::ConnectionError(const char* sqlState) const {
    std::string message = Trimmed(PQerrorMessage(connection_));
    if (message.empty()) message = "the connection to the server was lost";
    return ClientError(sqlState, Scrub(std::move(message)));
}

Error Session::ResultError(const PGresult* result) const {
    if (result == nullptr) return ConnectionError(IsBroken() ? "08006" : "08001");
    ExecStatusType status = PQresultStatus(result);
    if (status != PGRES_FATAL_ERROR && status != PGRES_NONFATAL_ERROR && status != PGRES_BAD_RESPONSE) {
        return ClientError("XX000", std::string("unexpected reply from the server: ") + PQresStatus(status));
    }
    const char* state = PQresultErrorField(result, PG_DIAG_SQLSTATE);
    const char* primary = PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY);
    std::string message = primary != nullptr ? primary : Trimmed(PQresultErrorMessage(result));
    if (message.empty()) message = Trimmed(PQerrorMessage(connection_));
    if (message.empty()) message = "the statement failed";
    std::string code = state != nullptr ? state : (IsBroken() ? "08006" : "XX000");
    return ClientError(code.c_str(), Scrub(std::move(message)));
}

ResultPtr Session::TryRun(const char* sql, ExecStatusType expected) {
    ResultPtr result(PQexec(connection_, sql));
    if (!result || PQresultStatus(result.get()) != expected) return nullptr;
    return result;
}

ResultPtr Session::Run(const char* sql, ExecStatusType expected) {
    ResultPtr result(PQexec(connection_, sql));
    if (!result || PQresultStatus(result.get()) != expected) throw ResultError(result.get());
    return result;
}

void Session::SendPipelined(const std::string& sql) {
    if ((PQpipelineStatus(connection_) == PQ_PIPELINE_OFF && PQenterPipelineMode(connection_) != 1) ||
        PQsendQueryParams(connection_, sql.c_str(), 0, nullptr, nullptr, nullptr, nullptr, 0) != 1 ||
        PQpipelineSync(connection_) != 1) {
        throw ConnectionError(IsBroken() ? "08006" : "08001");
    }
}

ResultPtr Session::ReceivePipelined() noexcept {
    ResultPtr result(PQgetResult(connection_));
    if (result && PQresultStatus(result.get()) != PGRES_PIPELINE_SYNC) {
        // The statement's answer ends with a null result; the sync sent after it answers next.
        while (PGresult* more = PQgetResult(connection_)) PQclear(more);
        PQclear(PQgetResult(connection_));
    }
    return result;
}

void Session::LeavePipeline() noexcept {
    if (PQpipelineStatus(connection_) != PQ_PIPELINE_OFF) PQexitPipelineMode(connection_);
}

void Session::Poll() noexcept {
    PQconsumeInput(connection_);
}

ResultPtr Session::RunExtended(const std::string& sql, ExecStatusType expected,
                               const std::vector<std::string>& params) {
    std::vector<const char*> values;
    values.reserve(params.size());
    for (const std::string& p : params) values.push_back(p.c_str());
    ResultPtr result(PQexecParams(connection_, sql.c_str(), static_cast<int>(values.size()), nullptr,
                                  values.empty() ? nullptr : values.data(), nullptr, nullptr, 0));
    if (!result || PQresultStatus(result.get()) != expected) throw ResultError(result.get());
    return result;
}

ColumnType Session::TypeOf(Oid type, int modifier) {
    // A domain over a domain: follow the chain a bounded number of steps.
    for (int depth = 0; depth < 16; ++depth) {
        ColumnType builtin = BuiltinType(type, modifier);
        if (builtin.code != 0) return builtin;
        auto found = catalog_.find(type);
        if (found == catalog_.end()) break;
        if (found->second.base == 0) return found->second.type;
        if (modifier < 0) modifier = found->second.modifier;
        type = found->second.base;
    }
    return {FieldType::Memo, ValueKind::Text};
}

void Session::LearnTypes(const std::vector<Oid>& types) {
    std::vector<Oid> wanted;
    auto want = [&](Oid type) {
        if (BuiltinType(type, -1).code == 0 && !catalog_.count(type) &&
            std::find(wanted.begin(), wanted.end(), type) == wanted.end()) {
            wanted.push_back(type);
        }
    };
    for (Oid type : types) want(type);
    for (int round = 0; round < 16 && !wanted.empty(); ++round) {
        std::string list = "{";
        for (size_t i = 0; i < wanted.size(); ++i) {
            if (i > 0) list += ',';
            list += std::to_string(wanted[i]);
        }
        list += '}';
        ResultPtr rows = RunExtended(
            "SELECT t.oid, t.typtype, t.typname, t.typbasetype, t.typtypmod FROM pg_catalog.pg_type t "
            "WHERE t.oid = ANY (($1)::pg_catalog.oid[])",
            PGRES_TUPLES_OK, {list});
        std::vector<Oid> asked = std::move(wanted);
        wanted.clear();
        for (int r = 0; r < PQntuples(rows.get()); ++r) {
            Oid oid = static_cast<Oid>(WholeNumber(PQgetvalue(rows.get(), r, 0)));
            char kind = PQgetvalue(rows.get(), r, 1)[0];
            CatalogType entry;
            if (kind == 'd') {
                entry.base = static_cast<Oid>(WholeNumber(PQgetvalue(rows.get(), r, 3)));
                entry.modifier = static_cast<int>(WholeNumber(PQgetvalue(rows.get(), r, 4)));
            } else {
                entry.type = CatalogueType(kind, PQgetvalue(rows.get(), r, 2));
            }
            catalog_[oid] = entry;
            if (entry.base != 0) want(entry.base);
        }
        // A type the catalogue does not know (dropped meanwhile) is remembered as Memo.
        for (Oid type : asked) {
            if (!catalog_.count(type)) catalog_[type] = CatalogType{{FieldType::Memo, ValueKind::Text}, 0, -1};
        }
    }
}

}  // namespace pg
}  // namespace TabulonLib12
