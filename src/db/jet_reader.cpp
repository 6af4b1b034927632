// JetReader over libmdb.
//
// Rows are walked with mdb_fetch_row, but no column is bound: libmdb's bound
// text is cut at the bind size and cannot tell Null from the empty text.
// Instead each fetched row is cracked again and every field converted here.
#include "db/jet_reader.h"

#include <mdbtools.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "kwfy/error.h"

namespace kwfy::db {

namespace {

constexpr int kOffsetMask = 0x1fff;
constexpr int kLongValueHeader = MDB_MEMO_OVERHEAD;  // length + flags, page/row, unused

// Copies a glib-allocated string and frees it.
std::string TakeGString(char* text) {
    std::string result = text ? text : "";
    g_free(text);
    return result;
}

JetColumnKind KindOf(int colType) {
    switch (colType) {
        case MDB_BOOL:
        case MDB_BYTE:
        case MDB_INT:
        case MDB_LONGINT:
        case MDB_COMPLEX:
            return JetColumnKind::Integer;
        case MDB_FLOAT:
        case MDB_DOUBLE:
            return JetColumnKind::Real;
        case MDB_MONEY:
        case MDB_NUMERIC:
            return JetColumnKind::Decimal;
        case MDB_DATETIME:
            return JetColumnKind::DateTime;
        case MDB_TEXT:
        case MDB_MEMO:
            return JetColumnKind::Text;
        case MDB_REPID:
            return JetColumnKind::Guid;
        default:
            return JetColumnKind::Binary;
    }
}

// The bytes a fixed-size column needs, 0 for variable ones.
int FixedSize(int colType) {
    switch (colType) {
        case MDB_BYTE:
            return 1;
        case MDB_INT:
            return 2;
        case MDB_LONGINT:
        case MDB_COMPLEX:
        case MDB_FLOAT:
            return 4;
        case MDB_DOUBLE:
        case MDB_DATETIME:
        case MDB_MONEY:
            return 8;
        case MDB_REPID:
            return 16;
        case MDB_NUMERIC:
            return 17;
        default:
            return 0;
    }
}

// A Single widened to the double its shortest decimal text denotes, so that
// 444.555f reads as 444.555 and not 444.55499267578125.
double WidenSingle(float value) {
    char text[32];
    auto [end, ec] = std::to_chars(text, text + sizeof text - 1, value);
    if (ec != std::errc()) return value;
    *end = '\0';
    return std::strtod(text, nullptr);
}

// Sets (or with nullptr removes) an environment variable for the life of
// the object.
class ScopedEnv {
  public:
    ScopedEnv(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        if (value)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }
    ~ScopedEnv() {
        if (old_)
            setenv(name_, old_->c_str(), 1);
        else
            unsetenv(name_);
    }

  private:
    const char* name_;
    std::optional<std::string> old_;
};

bool CharsetKnown(const std::string& charset) {
    iconv_t probe = iconv_open("UTF-8", charset.c_str());
    if (probe == (iconv_t)-1) return false;
    iconv_close(probe);
    return true;
}

}  // namespace

struct JetReader::State {
    std::string path;
    MdbHandle* mdb = nullptr;
    bool catalogRead = false;

    [[noreturn]] void Fail(const std::string& message) const { throw Error(path, message); }
    const unsigned char* Page() const { return mdb->pg_buf; }
    int PageSize() const { return static_cast<int>(mdb->fmt->pg_size); }

    // libmdb decodes text with iconv descriptors opened from the
    // environment; reopen them so the output is UTF-8 and Jet 3 text uses
    // the file's code page unless the user named one.
    void SetUpCharsets() {
        std::optional<std::string> jet3;
        if (IS_JET3(mdb) && !std::getenv("MDB_JET3_CHARSET") && mdb->f->code_page != 0) {
            std::string fromHeader = "CP" + std::to_string(mdb->f->code_page);
            if (CharsetKnown(fromHeader)) jet3 = fromHeader;
        }
        ScopedEnv utf8("MDB_ICONV", "UTF-8");
        ScopedEnv jet3Env("MDB_JET3_CHARSET",
                          jet3 ? jet3->c_str() : std::getenv("MDB_JET3_CHARSET"));
        mdb_iconv_close(mdb);
        mdb_iconv_init(mdb);
    }

    void ReadCatalog() {
        if (catalogRead) return;
        if (!mdb_read_catalog(mdb, MDB_ANY)) Fail("its catalog of tables cannot be read");
        catalogRead = true;
    }

    MdbCatalogEntry* Entry(unsigned i) const {
        return static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb->catalog, i));
    }

    std::string Decode(const unsigned char* bytes, size_t size) const {
        if (size == 0) return {};
        // One source byte never yields more than three bytes of UTF-8.
        std::string text(size * 3 + 8, '\0');
        int length = mdb_unicode2ascii(mdb, reinterpret_cast<const char*>(bytes), size, text.data(),
                                       text.size());
        text.resize(length > 0 ? static_cast<size_t>(length) : 0);
        return text;
    }

    // The bytes of a Memo or OLE value whose 12-byte header is at start:
    // stored in the row itself, in one row of another page, or in a chain
    // of rows over several pages. A damaged chain gives what could be read.
    std::string ReadLongValue(int start, int size, const std::string& where) const {
        if (size < kLongValueHeader) return {};
        const unsigned char* pg = Page();
        uint32_t head = static_cast<uint32_t>(mdb_get_int32(const_cast<unsigned char*>(pg), start));
        uint32_t declared = head & 0x3fffffff;
        if (head & 0x80000000u) {
            return std::string(reinterpret_cast<const char*>(pg) + start + kLongValueHeader,
                               size - kLongValueHeader);
        }
        int pgRow = static_cast<int>(mdb_get_int32(const_cast<unsigned char*>(pg), start + 4));
        void* buf = nullptr;
        int off = 0;
        size_t len = 0;
        if (head & 0x40000000u) {
            if (mdb_find_pg_row(mdb, pgRow, &buf, &off, &len) != 0) return {};
            len = std::min<size_t>(len, declared);
            return std::string(static_cast<const char*>(buf) + off, len);
        }
        if ((head & 0xff000000u) != 0) {
            std::fprintf(stderr, "%s: long value with unknown flags %02x left empty\n",
                         where.c_str(), head >> 24);
            return {};
        }
        std::string bytes;
        while (pgRow != 0 && bytes.size() < declared) {
            if (mdb_find_pg_row(mdb, pgRow, &buf, &off, &len) != 0 || len <= 4) break;
            const char* row = static_cast<const char*>(buf) + off;
            pgRow = static_cast<int>(mdb_get_int32(const_cast<char*>(row), 0));
            bytes.append(row + 4, len - 4);
        }
        if (bytes.size() > declared) bytes.resize(declared);
        return bytes;
    }

    JetValue Convert(const MdbColumn& col, const MdbField& field, const std::string& where) const {
        if (col.col_type == MDB_BOOL)
            return int64_t(field.is_null ? 0 : 1);  // kept in the null bit
        if (field.is_null) return std::monostate{};
        int start = field.start;
        int size = field.siz;
        if (start < 0 || size < 0 || start + size > PageSize() || size < FixedSize(col.col_type))
            return std::monostate{};
        auto* pg = const_cast<unsigned char*>(Page());
        switch (col.col_type) {
            case MDB_BYTE:
                return int64_t(mdb_get_byte(pg, start));
            case MDB_INT:
                return int64_t(static_cast<int16_t>(mdb_get_int16(pg, start)));
            case MDB_LONGINT:
            case MDB_COMPLEX:
                return int64_t(static_cast<int32_t>(mdb_get_int32(pg, start)));
            case MDB_FLOAT:
                return WidenSingle(mdb_get_single(pg, start));
            case MDB_DOUBLE:
                return mdb_get_double(pg, start);
            case MDB_MONEY:
                return TakeGString(mdb_money_to_string(mdb, start));
            case MDB_NUMERIC:
                return TakeGString(mdb_numeric_to_string(mdb, start, col.col_scale, col.col_prec));
            case MDB_DATETIME: {
                double days = mdb_get_double(pg, start);
                std::string text = JetDateText(days);
                if (text.empty()) return days;
                return text;
            }
            case MDB_TEXT:
                return Decode(pg + start, size);
            case MDB_MEMO: {
                std::string raw = ReadLongValue(start, size, where);
                return Decode(reinterpret_cast<const unsigned char*>(raw.data()), raw.size());
            }
            case MDB_REPID:
                return TakeGString(mdb_uuid_to_string(pg, start));
            case MDB_OLE:
                return JetBlob{ReadLongValue(start, size, where)};
            default:
                return JetBlob{std::string(reinterpret_cast<const char*>(pg) + start, size)};
        }
    }
};

JetReader::JetReader(const std::string& path) : state_(std::make_unique<State>()) {
    state_->path = path;
    state_->mdb = mdb_open(path.c_str(), MDB_NOFLAGS);
    if (!state_->mdb) state_->Fail("libmdb cannot open it as a Jet database");
    state_->SetUpCharsets();
}

JetReader::~JetReader() {
    if (state_->mdb) mdb_close(state_->mdb);
}

std::vector<std::string> JetReader::TableNames() {
    state_->ReadCatalog();
    std::vector<std::string> names;
    for (unsigned i = 0; i < state_->mdb->num_catalog; ++i) {
        MdbCatalogEntry* entry = state_->Entry(i);
        if (entry->object_type == MDB_TABLE && !mdb_is_system_table(entry))
            names.emplace_back(entry->object_name);
    }
    return names;
}

int64_t JetReader::ReadTable(const std::string& name, JetTableSink& sink) {
    state_->ReadCatalog();
    MdbHandle* mdb = state_->mdb;
    MdbCatalogEntry* entry = nullptr;
    for (unsigned i = 0; i < mdb->num_catalog && !entry; ++i) {
        MdbCatalogEntry* e = state_->Entry(i);
        if (e->object_type == MDB_TABLE && name == e->object_name) entry = e;
    }
    const std::string where = state_->path + ": table " + name;
    if (!entry) throw Error(where + ": no such table");
    std::unique_ptr<MdbTableDef, void (*)(MdbTableDef*)> table(mdb_read_table(entry),
                                                               mdb_free_tabledef);
    if (!table || !mdb_read_columns(table.get()))
        throw Error(where + ": its definition cannot be read");

    const unsigned columnCount = table->num_cols;
    std::vector<const MdbColumn*> columns;
    std::vector<JetColumn> described;
    for (unsigned i = 0; i < columnCount; ++i) {
        auto* col = static_cast<const MdbColumn*>(g_ptr_array_index(table->columns, i));
        columns.push_back(col);
        described.push_back({col->name, KindOf(col->col_type)});
    }
    sink.BeginTable(name, described);

    std::vector<MdbField> fields(columnCount);
    std::vector<JetValue> values(columnCount);
    int64_t rows = 0;
    mdb_rewind_table(table.get());
    while (columnCount > 0 && mdb_fetch_row(table.get())) {
        // mdb_fetch_row leaves the row's page in pg_buf and cur_row one past it.
        int start = 0;
        size_t size = 0;
        if (mdb_find_row(mdb, static_cast<int>(table->cur_row) - 1, &start, &size) != 0) continue;
        int cracked = mdb_crack_row(table.get(), start & kOffsetMask, size, fields.data());
        if (cracked < 0) continue;
        std::fill(values.begin(), values.end(), JetValue{});
        for (unsigned i = 0; i < columnCount; ++i) {
            int colnum = fields[i].colnum;
            if (colnum < 0 || static_cast<unsigned>(colnum) >= columnCount) continue;
            values[colnum] = state_->Convert(*columns[colnum], fields[i], where);
        }
        sink.Row(values);
        ++rows;
    }
    return rows;
}

}  // namespace kwfy::db
