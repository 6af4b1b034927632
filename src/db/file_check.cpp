#include "db/file_check.h"

#include <cstring>
#include <filesystem>
#include <fstream>

#include "db/jet_import.h"
#include "kwfy/error.h"

namespace kwfy::db::detail {

namespace {

uint32_t BigEndian(const unsigned char* p, int bytes) {
    uint32_t v = 0;
    for (int i = 0; i < bytes; ++i) v = (v << 8) | p[i];
    return v;
}

}  // namespace

void CheckDatabaseFile(const std::string& path, bool forWriting) {
    namespace fs = std::filesystem;
    std::error_code ec;
    auto status = fs::status(path, ec);
    if (!fs::exists(status)) throw Error(path, "database file not found");
    if (!fs::is_regular_file(status)) throw Error(path, "not a database file (not a regular file)");
    auto size = fs::file_size(path, ec);
    if (ec) throw Error(path, "cannot read the file size: " + ec.message());
    if (size == 0) throw Error(path, "empty file, not a database");
    if (IsJetFile(path))
        throw Error(path, std::string("a Jet (.mdb/.accdb) database cannot be ") +
                              (forWriting ? "written" : "opened directly") +
                              "; convert it first with \"fytable import-mdb SOURCE DEST.db\"");

    std::ifstream in(path, std::ios::binary);
    if (!in) throw Error(path, "cannot read the file");
    unsigned char header[100] = {};
    in.read(reinterpret_cast<char*>(header), sizeof header);
    if (in.gcount() < 100 || std::memcmp(header, "SQLite format 3", 16) != 0)
        throw Error(path, "file is not a database");

    // The header's page count is only trustworthy when its change counter is
    // current; a pending write-ahead log may legitimately hold newer pages.
    uint32_t pageSize = BigEndian(header + 16, 2);
    if (pageSize == 1) pageSize = 65536;
    uint32_t pages = BigEndian(header + 28, 4);
    bool countValid = BigEndian(header + 24, 4) == BigEndian(header + 92, 4);
    if (countValid && pages > 0 && !fs::exists(path + "-wal", ec) &&
        uint64_t(pageSize) * pages > size)
        throw Error(path, "database file is truncated (" + std::to_string(size) +
                              " bytes, header says " + std::to_string(uint64_t(pageSize) * pages) +
                              ")");
}

}  // namespace kwfy::db::detail
