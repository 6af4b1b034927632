// JetCachedCopy: SQLite copies of Jet files, kept beside the user's
// temporary files and named by a hash of the file's identity.
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "db/jet_import_internal.h"
#include "kwfy/error.h"

namespace kwfy::db {

namespace {

namespace fs = std::filesystem;

class Fnv1a {
  public:
    Fnv1a& Add(const void* data, size_t size) {
        auto* bytes = static_cast<const unsigned char*>(data);
        for (size_t i = 0; i < size; ++i) hash_ = (hash_ ^ bytes[i]) * 0x100000001b3ull;
        return *this;
    }
    template <typename T>
    Fnv1a& Add(const T& value) {
        return Add(&value, sizeof value);
    }
    std::string Hex() const {
        char text[17];
        std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash_));
        return text;
    }

  private:
    uint64_t hash_ = 0xcbf29ce484222325ull;
};

// A folder that must be ours alone: a shared temporary folder could hold a
// planted folder or link of the same name.
void RequireOwnFolder(const std::string& dir) {
    struct stat st;
    if (lstat(dir.c_str(), &st) != 0 || !S_ISDIR(st.st_mode) || st.st_uid != getuid())
        throw Error(dir, "cannot be used as the Jet cache folder (not a folder of this user)");
}

std::string CacheFolder() {
    std::error_code ec;
    const char* xdg = std::getenv("XDG_CACHE_HOME");
    std::string dir;
    if (xdg && xdg[0] == '/') {
        dir = std::string(xdg) + "/kwfy-jet-cache";
        fs::create_directories(dir, ec);
    } else {
        const char* tmp = std::getenv("TMPDIR");
        std::string user =
            std::string(tmp && tmp[0] ? tmp : "/tmp") + "/kwfy-" + std::to_string(getuid());
        if (mkdir(user.c_str(), 0700) != 0 && errno != EEXIST)
            throw Error(user, std::string("cannot be created: ") + std::strerror(errno));
        RequireOwnFolder(user);
        dir = user + "/kwfy-jet-cache";
        mkdir(dir.c_str(), 0700);
    }
    RequireOwnFolder(dir);
    return dir;
}

// Removes the copies of the same file made for earlier versions of it.
void RemoveStaleCopies(const std::string& dir, const std::string& prefix,
                       const std::string& current) {
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(dir, ec)) {
        std::string name = entry.path().filename().string();
        if (name != current && name.rfind(prefix, 0) == 0 && name.size() > 3 &&
            name.compare(name.size() - 3, 3, ".db") == 0)
            unlink(entry.path().c_str());
    }
}

}  // namespace

std::string JetCachedCopy(const std::string& path) {
    struct stat st;
    if (stat(path.c_str(), &st) != 0)
        throw Error(path, std::string("cannot be opened: ") + std::strerror(errno));
    std::error_code ec;
    std::string absolute = fs::weakly_canonical(fs::absolute(path), ec).string();
    if (ec) absolute = fs::absolute(path).lexically_normal().string();

    const std::string prefix = Fnv1a().Add(absolute.data(), absolute.size()).Hex() + "-";
    Fnv1a version;
    version.Add(st.st_size)
        .Add(st.st_mtim.tv_sec)
        .Add(st.st_mtim.tv_nsec)
        .Add(st.st_ino)
        .Add(st.st_dev);
    const std::string name = prefix + version.Hex() + ".db";
    const std::string dir = CacheFolder();
    const std::string copy = dir + "/" + name;

    struct stat cached;
    if (stat(copy.c_str(), &cached) == 0 && S_ISREG(cached.st_mode)) return copy;
    ImportJetReplacing(path, copy, {});
    RemoveStaleCopies(dir, prefix, name);
    return copy;
}

}  // namespace kwfy::db
