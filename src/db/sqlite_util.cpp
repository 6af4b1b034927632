#include "db/sqlite_util.h"

namespace kwfy::db::detail {

void Fail(sqlite3* db, const std::string& path, const std::string& what) {
    std::string message = what;
    if (db) message += ": " + std::string(sqlite3_errmsg(db));
    throw Error(path, message);
}

std::string Quote(std::string_view name) {
    std::string out = "\"";
    for (char c : name) {
        if (c == '"') out += '"';
        out += c;
    }
    return out + "\"";
}

Param ToParam(const Value& value) {
    const auto& raw = value.Raw();
    if (auto* i = std::get_if<int64_t>(&raw)) return *i;
    if (auto* d = std::get_if<double>(&raw)) return *d;
    if (auto* s = std::get_if<std::string>(&raw)) return *s;
    return nullptr;
}

Statement::Statement(sqlite3* db, const std::string& path, const std::string& sql)
    : db_(db), path_(path), sql_(sql) {
    if (sqlite3_prepare_v2(db_, sql.c_str(), int(sql.size()), &stmt_, nullptr) != SQLITE_OK) {
        sqlite3_finalize(stmt_);
        stmt_ = nullptr;
        Fail(db_, path_, "cannot prepare \"" + sql + "\"");
    }
    if (!stmt_) throw Error(path_, "empty statement \"" + sql + "\"");
}

Statement::~Statement() {
    sqlite3_finalize(stmt_);
}

void Statement::Bind(const Params& params) {
    if (int(params.size()) != sqlite3_bind_parameter_count(stmt_))
        throw Error(path_, "\"" + sql_ + "\" expects " +
                               std::to_string(sqlite3_bind_parameter_count(stmt_)) +
                               " parameters, got " + std::to_string(params.size()));
    for (size_t i = 0; i < params.size(); ++i) Bind(int(i) + 1, params[i]);
}

void Statement::Bind(int index, const Param& value) {
    int rc = SQLITE_OK;
    if (std::holds_alternative<std::nullptr_t>(value))
        rc = sqlite3_bind_null(stmt_, index);
    else if (auto* i = std::get_if<int64_t>(&value))
        rc = sqlite3_bind_int64(stmt_, index, *i);
    else if (auto* d = std::get_if<double>(&value))
        rc = sqlite3_bind_double(stmt_, index, *d);
    else {
        const auto& s = std::get<std::string>(value);
        rc = sqlite3_bind_text(stmt_, index, s.data(), int(s.size()), SQLITE_TRANSIENT);
    }
    if (rc != SQLITE_OK) Fail(db_, path_, "cannot bind a value of \"" + sql_ + "\"");
}

bool Statement::Step() {
    int rc = sqlite3_step(stmt_);
    if (rc == SQLITE_ROW) return true;
    if (rc == SQLITE_DONE) return false;
    Fail(db_, path_, "\"" + sql_ + "\" failed");
}

void Statement::Reset() {
    sqlite3_reset(stmt_);
    sqlite3_clear_bindings(stmt_);
}

int Statement::ColumnCount() const {
    return sqlite3_column_count(stmt_);
}

std::string Statement::ColumnName(int i) const {
    const char* name = sqlite3_column_name(stmt_, i);
    return name ? name : "";
}

Value Statement::Column(int i) const {
    switch (sqlite3_column_type(stmt_, i)) {
        case SQLITE_INTEGER:
            return Value(int64_t(sqlite3_column_int64(stmt_, i)));
        case SQLITE_FLOAT:
            return Value(sqlite3_column_double(stmt_, i));
        case SQLITE_NULL:
            return Value();
        default: {
            auto* text = reinterpret_cast<const char*>(sqlite3_column_text(stmt_, i));
            return Value(std::string(text ? text : "", size_t(sqlite3_column_bytes(stmt_, i))));
        }
    }
}

}  // namespace kwfy::db::detail
