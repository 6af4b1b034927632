#include "support/open_counter.h"

#include <sqlite3.h>

#include <filesystem>
#include <map>
#include <stdexcept>

namespace kwfy::test {

namespace {

// The default file layer wrapped by one that notes each main database file
// it opens; everything else is passed through.
sqlite3_vfs* g_real = nullptr;
sqlite3_vfs g_counting{};
std::map<std::string, int>* g_opens = nullptr;

std::string Canonical(const std::string& path) {
    std::string p = path;
    for (char& c : p)
        if (c == '\\') c = '/';
    std::error_code ec;
    auto canonical = std::filesystem::weakly_canonical(p, ec);
    return ec ? p : canonical.string();
}

int CountingOpen(sqlite3_vfs*, sqlite3_filename name, sqlite3_file* file, int flags,
                 int* outFlags) {
    if (name && (flags & SQLITE_OPEN_MAIN_DB) && g_opens) ++(*g_opens)[Canonical(name)];
    return g_real->xOpen(g_real, name, file, flags, outFlags);
}

}  // namespace

OpenCounter::OpenCounter() {
    if (g_opens) throw std::logic_error("only one OpenCounter may live at a time");
    sqlite3_initialize();
    g_real = sqlite3_vfs_find(nullptr);
    g_counting = *g_real;
    g_counting.zName = "kwfy-open-counter";
    g_counting.pNext = nullptr;
    g_counting.xOpen = CountingOpen;
    g_opens = new std::map<std::string, int>;
    sqlite3_vfs_register(&g_counting, 1);
}

OpenCounter::~OpenCounter() {
    sqlite3_vfs_unregister(&g_counting);
    sqlite3_vfs_register(g_real, 1);
    delete g_opens;
    g_opens = nullptr;
}

int OpenCounter::Opens(const std::string& path) const {
    auto it = g_opens->find(Canonical(path));
    return it == g_opens->end() ? 0 : it->second;
}

}  // namespace kwfy::test
