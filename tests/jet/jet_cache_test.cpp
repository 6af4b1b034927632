// The cache of imported copies: reused while the file stays the same,
// refreshed when it changes, one copy per file, nothing left on failure.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "db/jet_import.h"
#include "jet/jet_test_util.h"
#include "kwfy/error.h"
#include "support/temp_dir.h"

namespace kwfy::test {
namespace {

namespace fs = std::filesystem;

ino_t Inode(const std::string& path) {
    struct stat st {};
    stat(path.c_str(), &st);
    return st.st_ino;
}

size_t FilesIn(const std::string& dir) {
    return static_cast<size_t>(std::distance(fs::directory_iterator(dir), {}));
}

TEST(JetCache, ReusedUntilTheFileChanges) {
    TempDir cache, files;
    ScopedEnv xdg("XDG_CACHE_HOME", cache.Path().c_str());
    const std::string folder = cache.Path() + "/kwfy-jet-cache", a = files.File("a.mdb");
    fs::copy_file(JetFile("testV1997.mdb"), a);
    std::string first = db::JetCachedCopy(a);
    EXPECT_EQ(first.rfind(folder + "/", 0), 0u) << first;
    ino_t inode = Inode(first);
    EXPECT_EQ(db::JetCachedCopy(a), first);
    EXPECT_EQ(Inode(first), inode) << "imported again";

    fs::copy_file(a, files.File("b.mdb"));  // same content, a copy of its own
    EXPECT_NE(db::JetCachedCopy(files.File("b.mdb")), first);

    timespec later[2] = {{0, UTIME_OMIT}, {time(nullptr) + 60, 0}};  // touched
    ASSERT_EQ(utimensat(AT_FDCWD, a.c_str(), later, 0), 0);
    std::string touched = db::JetCachedCopy(a);
    EXPECT_NE(touched, first);
    EXPECT_FALSE(fs::exists(first)) << "the stale copy is removed";

    WriteBytes(a, ReadBytes(JetFile("testUnicodeCompV2003.mdb")));  // rewritten
    std::string rewritten = db::JetCachedCopy(a);
    EXPECT_NE(rewritten, touched);
    EXPECT_EQ(Query(rewritten, "SELECT name FROM sqlite_master"), Rows{{"Table"}});
    EXPECT_EQ(FilesIn(folder), 2u);
}

TEST(JetCache, PrivateFolderUnderTmpdirAndNothingLeftOnFailure) {
    TempDir tmp, files;
    ScopedEnv xdg("XDG_CACHE_HOME", nullptr), tmpdir("TMPDIR", tmp.Path().c_str());
    const std::string user = tmp.Path() + "/kwfy-" + std::to_string(getuid());
    std::string copy = db::JetCachedCopy(JetFile("testV2007.accdb"));
    EXPECT_EQ(copy.rfind(user + "/kwfy-jet-cache/", 0), 0u) << copy;
    EXPECT_EQ(fs::status(user).permissions(), fs::perms::owner_all);

    WriteBytes(files.File("cut.mdb"), ReadBytes(JetFile("testV1997.mdb")).substr(0, 4096));
    for (const std::string& path : {files.File("missing.mdb"), files.File("cut.mdb")})
        EXPECT_THROW(
            try { db::JetCachedCopy(path); } catch (const Error& e) {
                EXPECT_EQ(std::string(e.what()).rfind(path + ": ", 0), 0u) << e.what();
                throw;
            },
            Error);
    EXPECT_EQ(FilesIn(user + "/kwfy-jet-cache"), 1u);
}

}  // namespace
}  // namespace kwfy::test
