#include <algorithm>

#include "db/recordset_impl.h"
#include "db/sqlite_util.h"

namespace kwfy::db {

bool SameName(std::string_view a, std::string_view b) {
    auto lower = [](char c) { return (c >= 'A' && c <= 'Z') ? char(c - 'A' + 'a') : c; };
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                              [&](char x, char y) { return lower(x) == lower(y); });
}

int Recordset::Impl::FieldIndex(std::string_view name) const {
    for (size_t i = 0; i < fields.size(); ++i)
        if (SameName(fields[i], name)) return int(i);
    return -1;
}

void Recordset::Impl::Load(const std::string& sql, const Params& params) {
    detail::Statement st(db, path, sql);
    st.Bind(params);
    int first = table.empty() ? 0 : 1;
    fields.clear();
    for (int i = first; i < st.ColumnCount(); ++i) fields.push_back(st.ColumnName(i));
    rows.clear();
    rowids.clear();
    while (st.Step()) {
        if (first) rowids.push_back(st.Column(0).Int());
        std::vector<Value> row;
        row.reserve(fields.size());
        for (int i = first; i < st.ColumnCount(); ++i) row.push_back(st.Column(i));
        rows.push_back(std::move(row));
    }
    pos = 0;
}

Recordset::Recordset(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

int Recordset::RecordCount() const {
    return int(impl_->rows.size());
}
bool Recordset::Eof() const {
    return impl_->pos >= impl_->rows.size();
}
void Recordset::MoveFirst() {
    impl_->pos = 0;
}
void Recordset::MoveNext() {
    if (!Eof()) ++impl_->pos;
}

bool Recordset::FieldExists(std::string_view name) const {
    return impl_->FieldIndex(name) >= 0;
}
const std::vector<std::string>& Recordset::FieldNames() const {
    return impl_->fields;
}

const Value& Recordset::operator[](std::string_view name) const {
    int i = impl_->FieldIndex(name);
    if (i < 0)
        throw Error(impl_->path,
                    "no field \"" + std::string(name) + "\" in \"" + impl_->source + "\"");
    if (Eof())
        throw Error(impl_->path, "reading field \"" + std::string(name) + "\" of \"" +
                                     impl_->source + "\" past the last row");
    return impl_->rows[impl_->pos][size_t(i)];
}

}  // namespace kwfy::db
