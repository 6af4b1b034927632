// AddNew / Edit / Set / Update of table recordsets.
#include "db/recordset_impl.h"
#include "db/sqlite_util.h"

namespace kwfy::db {

void Recordset::Impl::RequireTable(const char* what) const {
    const Impl& impl = *this;
    if (impl.table.empty())
        throw Error(impl.path,
                    std::string(what) + " needs a table recordset, not \"" + impl.source + "\"");
}

// Reads one row back by rowid so the recordset shows what the engine stored
// (defaults, counters, type conversions).
std::vector<Value> Recordset::Impl::ReadRow(int64_t rowid) const {
    const Impl& impl = *this;
    detail::Statement st(impl.db, impl.path,
                         "SELECT * FROM " + detail::Quote(impl.table) + " WHERE rowid=?");
    st.Bind({rowid});
    std::vector<Value> row(impl.fields.size());
    if (st.Step())
        for (int i = 0; i < st.ColumnCount() && size_t(i) < row.size(); ++i) row[i] = st.Column(i);
    return row;
}

void Recordset::AddNew() {
    impl_->RequireTable("AddNew");
    impl_->pending = Impl::Pending::Adding;
    impl_->changes.assign(impl_->fields.size(), std::nullopt);
}

void Recordset::Edit() {
    impl_->RequireTable("Edit");
    if (Eof()) throw Error(impl_->path, "Edit past the last row of \"" + impl_->table + "\"");
    impl_->pending = Impl::Pending::Editing;
    impl_->changes.assign(impl_->fields.size(), std::nullopt);
}

void Recordset::Set(std::string_view field, Param value) {
    if (impl_->pending == Impl::Pending::None)
        throw Error(impl_->path, "Set of \"" + std::string(field) +
                                     "\" without AddNew or Edit on \"" + impl_->source + "\"");
    int i = impl_->FieldIndex(field);
    if (i < 0)
        throw Error(impl_->path,
                    "no field \"" + std::string(field) + "\" in table \"" + impl_->table + "\"");
    impl_->changes[size_t(i)] = std::move(value);
}

void Recordset::Update() {
    auto& impl = *impl_;
    if (impl.pending == Impl::Pending::None)
        throw Error(impl.path, "Update without AddNew or Edit on \"" + impl.source + "\"");
    std::string columns, placeholders;
    Params values;
    for (size_t i = 0; i < impl.fields.size(); ++i) {
        if (!impl.changes[i]) continue;
        if (!values.empty()) {
            columns += ",";
            placeholders += ",";
        }
        if (impl.pending == Impl::Pending::Adding) {
            columns += detail::Quote(impl.fields[i]);
            placeholders += "?";
        } else {
            columns += detail::Quote(impl.fields[i]) + "=?";
        }
        values.push_back(*impl.changes[i]);
    }
    auto pending = impl.pending;
    impl.pending = Impl::Pending::None;
    const std::string table = detail::Quote(impl.table);
    if (pending == Impl::Pending::Adding) {
        std::string sql = values.empty() ? "INSERT INTO " + table + " DEFAULT VALUES"
                                         : "INSERT INTO " + table + " (" + columns + ") VALUES (" +
                                               placeholders + ")";
        detail::Statement st(impl.db, impl.path, sql);
        st.Bind(values);
        st.Step();
        impl.lastId = sqlite3_last_insert_rowid(impl.db);
        bool atEnd = impl.pos >= impl.rows.size();
        impl.rows.push_back(impl.ReadRow(impl.lastId));
        impl.rowids.push_back(impl.lastId);
        if (atEnd) impl.pos = impl.rows.size();
    } else {
        if (values.empty()) return;
        if (impl.pos >= impl.rowids.size())
            throw Error(impl.path, "Update past the last row of \"" + impl.table + "\"");
        int64_t rowid = impl.rowids[impl.pos];
        values.emplace_back(std::in_place_type<int64_t>, rowid);
        detail::Statement st(impl.db, impl.path,
                             "UPDATE " + table + " SET " + columns + " WHERE rowid=?");
        st.Bind(values);
        st.Step();
        impl.rows[impl.pos] = impl.ReadRow(rowid);
    }
}

int64_t Recordset::LastID() const {
    return impl_->lastId;
}

}  // namespace kwfy::db
