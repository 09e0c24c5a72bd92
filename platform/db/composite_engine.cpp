// Telling a server connection string from a file path by its text.
#include "composite_engine.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "platform/runtime/text.h"

namespace TabulonLib12 {

namespace {

// The keywords of a PostgreSQL connection string.
constexpr std::array<std::string_view, 39> kConnectionKeywords{
    "host",          "hostaddr",         "port",           "dbname",            "user",
    "password",      "passfile",         "channel_binding", "connect_timeout",  "client_encoding",
    "options",       "application_name", "fallback_application_name", "keepalives", "keepalives_idle",
    "keepalives_interval", "keepalives_count", "tcp_user_timeout", "replication", "gssencmode",
    "sslmode",       "requiressl",       "sslcompression", "sslcert",           "sslkey",
    "sslpassword",   "sslrootcert",      "sslcrl",         "sslcrldir",         "sslsni",
    "requirepeer",   "ssl_min_protocol_version", "ssl_max_protocol_version", "krbsrvname", "gsslib",
    "service",       "target_session_attrs", "load_balance_hosts", "sslcertmode",
};

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

// Reads "key = value" pairs to the end; false at the first thing that is not one.
bool IsKeywordValueList(std::string_view text) {
    size_t i = 0;
    int pairs = 0;
    auto skipBlanks = [&] {
        while (i < text.size() && IsBlank(text[i])) ++i;
    };
    skipBlanks();
    while (i < text.size()) {
        size_t start = i;
        while (i < text.size() && (std::islower(static_cast<unsigned char>(text[i])) || text[i] == '_')) ++i;
        std::string_view key = text.substr(start, i - start);
        if (std::find(kConnectionKeywords.begin(), kConnectionKeywords.end(), key) == kConnectionKeywords.end()) {
            return false;
        }
        skipBlanks();
        if (i == text.size() || text[i] != '=') return false;
        ++i;
        skipBlanks();
        if (i < text.size() && text[i] == '\'') {
            ++i;
            bool closed = false;
            while (i < text.size()) {
                if (text[i] == '\\' && i + 1 < text.size()) {
                    i += 2;
                } else if (text[i] == '\'') {
                    ++i;
                    closed = true;
                    break;
                } else {
                    ++i;
                }
            }
            if (!closed) return false;
        } else {
            while (i < text.size() && !IsBlank(text[i])) {
                i += text[i] == '\\' && i + 1 < text.size() ? 2 : 1;
            }
        }
        ++pairs;
        skipBlanks();
    }
    return pairs > 0;
}

}  // namespace

bool IsServerDatabaseName(std::string_view name) {
    if (StartsWithInsensitive(name, "postgresql://") || StartsWithInsensitive(name, "postgres://")) return true;
    return IsKeywordValueList(name);
}

}  // namespace TabulonLib12
