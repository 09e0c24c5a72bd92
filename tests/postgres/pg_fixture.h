#pragma once
// The PostgreSQL server of the tests is the one scripts/test.sh starts: its URI and password
// come in TABULON_PG_URI and TABULON_PG_PASSWORD. Test data is written over an admin
// connection (libpq directly, read-write) into a schema of the test's own, dropped at its end;
// the engine under test reaches that schema through the search_path in its connection options.
#include <gtest/gtest.h>
#include <libpq-fe.h>
#include <unistd.h>

#include <cctype>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/postgres/postgres_engine.h"
#include "platform/runtime/error.h"

namespace TabulonLib12::testing {

inline const char* kRunThroughScript =
    "TABULON_PG_URI is not set: the PostgreSQL tests need the server that scripts/test.sh starts. "
    "Run them through scripts/test.sh (or start one with scripts/postgres.sh start DIR and source DIR/env).";

inline std::string EnvOrEmpty(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

inline std::string ServerUri() { return EnvOrEmpty("TABULON_PG_URI"); }
inline std::string ServerPassword() { return EnvOrEmpty("TABULON_PG_PASSWORD"); }

// "%XX" for every character that a URI query value cannot hold as it is.
inline std::string UriEncoded(const std::string& text) {
    static const char* kHex = "0123456789ABCDEF";
    std::string out;
    for (unsigned char c : text) {
        if (std::isalnum(c) || c == '-' || c == '.' || c == '_' || c == '~') {
            out += static_cast<char>(c);
        } else {
            out += '%';
            out += kHex[c >> 4];
            out += kHex[c & 15];
        }
    }
    return out;
}

// The server's URI with one more query parameter.
inline std::string UriWith(const std::string& uri, const std::string& key, const std::string& value) {
    return uri + (uri.find('?') == std::string::npos ? "?" : "&") + key + "=" + UriEncoded(value);
}

// The parameters of a URI as a key=value connection string, with `extra` appended.
inline std::string KeyValueForm(const std::string& uri, const std::string& extra = "") {
    char* failure = nullptr;
    PQconninfoOption* options = PQconninfoParse(uri.c_str(), &failure);
    if (options == nullptr) {
        std::string message = failure != nullptr ? failure : "?";
        PQfreemem(failure);
        ADD_FAILURE() << "cannot read the server URI: " << message;
        return {};
    }
    std::string text;
    for (PQconninfoOption* o = options; o->keyword != nullptr; ++o) {
        if (o->val == nullptr || *o->val == '\0') continue;
        std::string value;
        for (const char* c = o->val; *c != '\0'; ++c) {
            if (*c == '\'' || *c == '\\') value += '\\';
            value += *c;
        }
        if (!text.empty()) text += ' ';
        text += std::string(o->keyword) + "='" + value + "'";
    }
    PQconninfoFree(options);
    if (!extra.empty()) text += " " + extra;
    return text;
}

// A read-write libpq connection for writing and checking the test data.
class AdminConnection {
public:
    AdminConnection() {
        const char* keywords[] = {"dbname", "password", "options", nullptr};
        const std::string uri = ServerUri();
        const std::string password = ServerPassword();
        const char* values[] = {uri.c_str(), password.c_str(), "-c lock_timeout=10s -c client_min_messages=warning",
                                nullptr};
        connection_ = PQconnectdbParams(keywords, values, 1);
        if (PQstatus(connection_) != CONNECTION_OK) {
            ADD_FAILURE() << "admin connection failed: " << PQerrorMessage(connection_);
        }
    }
    ~AdminConnection() { PQfinish(connection_); }
    AdminConnection(const AdminConnection&) = delete;
    AdminConnection& operator=(const AdminConnection&) = delete;

    bool Ok() const { return PQstatus(connection_) == CONNECTION_OK; }

    // Runs a script (several statements allowed); fails the test when it fails.
    void Exec(const std::string& sql) {
        PGresult* result = PQexec(connection_, sql.c_str());
        ExecStatusType status = PQresultStatus(result);
        if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) {
            ADD_FAILURE() << "admin statement failed: " << PQresultErrorMessage(result) << "\n" << sql;
        }
        PQclear(result);
    }

    // The rows of a query, every value as text ("<null>" for NULL).
    std::vector<std::vector<std::string>> Rows(const std::string& sql) {
        std::vector<std::vector<std::string>> rows;
        PGresult* result = PQexec(connection_, sql.c_str());
        if (PQresultStatus(result) != PGRES_TUPLES_OK) {
            ADD_FAILURE() << "admin query failed: " << PQresultErrorMessage(result) << "\n" << sql;
        } else {
            for (int r = 0; r < PQntuples(result); ++r) {
                std::vector<std::string> row;
                for (int c = 0; c < PQnfields(result); ++c) {
                    row.emplace_back(PQgetisnull(result, r, c) ? "<null>" : PQgetvalue(result, r, c));
                }
                rows.push_back(std::move(row));
            }
        }
        PQclear(result);
        return rows;
    }

    std::string Scalar(const std::string& sql) {
        auto rows = Rows(sql);
        if (rows.empty() || rows[0].empty()) return "<none>";
        return rows[0][0];
    }

private:
    PGconn* connection_ = nullptr;
};

// A schema of the test's own, and the URI that puts the engine into it.
class TestSchema {
public:
    explicit TestSchema(AdminConnection& admin) : admin_(admin) {
        static int counter = 0;
        name_ = "tabulon_test_" + std::to_string(getpid()) + "_" + std::to_string(++counter);
        admin_.Exec("DROP SCHEMA IF EXISTS " + name_ + " CASCADE; CREATE SCHEMA " + name_);
    }
    ~TestSchema() { admin_.Exec("DROP SCHEMA IF EXISTS " + name_ + " CASCADE"); }
    TestSchema(const TestSchema&) = delete;
    TestSchema& operator=(const TestSchema&) = delete;

    const std::string& name() const { return name_; }
    // Runs the script with the schema first in the search path.
    void Exec(const std::string& script) {
        admin_.Exec("SET search_path TO " + name_ + "; " + script + "; RESET search_path");
    }
    std::string Uri() const { return UriWith(ServerUri(), "options", "-c search_path=" + name_); }
    std::string KeyValue() const { return KeyValueForm(ServerUri(), "options='-c search_path=" + name_ + "'"); }

private:
    AdminConnection& admin_;
    std::string name_;
};

inline OpenOptions WithPassword(const std::string& password) {
    OpenOptions options;
    options.connect = "; pwd=" + password;
    return options;
}

// Fails loudly, never skips, when the server of the test script is not there.
class PgTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_FALSE(ServerUri().empty()) << kRunThroughScript;
        admin_ = std::make_unique<AdminConnection>();
        ASSERT_TRUE(admin_->Ok()) << "the server in TABULON_PG_URI does not answer; " << kRunThroughScript;
        schema_ = std::make_unique<TestSchema>(*admin_);
    }
    void TearDown() override {
        schema_.reset();
        admin_.reset();
    }

    std::shared_ptr<Database> Open(const std::string& name) {
        return engine_.OpenDatabase(name, WithPassword(ServerPassword()));
    }
    std::shared_ptr<Database> Open() { return Open(schema_->Uri()); }
    void Exec(const std::string& script) { schema_->Exec(script); }
    AdminConnection& Admin() { return *admin_; }

    PostgresEngine engine_;
    std::unique_ptr<AdminConnection> admin_;
    std::unique_ptr<TestSchema> schema_;
};

}  // namespace TabulonLib12::testing
