// The cache of imported copies: reused while the file stays the same,
// refreshed when it changes, one copy per file.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "db/jet_import.h"
#include "jet/jet_test_util.h"
#include "kwfy/error.h"
#include "support/temp_dir.h"

namespace kwfy::test {
namespace {

namespace fs = std::filesystem;

class ScopedEnvVar {
  public:
    ScopedEnvVar(const char* name, const std::string& value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old, had_ = true;
        setenv(name, value.c_str(), 1);
    }
    ~ScopedEnvVar() {
        if (had_)
            setenv(name_, old_.c_str(), 1);
        else
            unsetenv(name_);
    }

  private:
    const char* name_;
    std::string old_;
    bool had_ = false;
};

ino_t Inode(const std::string& path) {
    struct stat st {};
    stat(path.c_str(), &st);
    return st.st_ino;
}

std::vector<std::string> TableNames(const std::string& db) {
    std::vector<std::string> names;
    for (const auto& row :
         Query(db, "SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name").rows)
        names.push_back(std::get<std::string>(row[0]));
    return names;
}

size_t FilesIn(const std::string& dir) {
    size_t count = 0;
    for (auto it = fs::directory_iterator(dir); it != fs::directory_iterator(); ++it) ++count;
    return count;
}

class JetCache : public ::testing::Test {
  protected:
    TempDir cache_, files_;
    ScopedEnvVar xdg_{"XDG_CACHE_HOME", cache_.Path()};
    std::string folder_ = cache_.Path() + "/kwfy-jet-cache";
};

TEST_F(JetCache, ReusedWhileTheFileStaysTheSame) {
    const std::string a = files_.File("a.mdb");
    fs::copy_file(JetFile("testV1997.mdb"), a);
    std::string first = db::JetCachedCopy(a);
    EXPECT_EQ(first.rfind(folder_ + "/", 0), 0u) << first;
    EXPECT_EQ(TableNames(first),
              (std::vector<std::string>{"Table1", "Table2", "Table3", "Table4"}));
    ino_t inode = Inode(first);
    EXPECT_EQ(db::JetCachedCopy(a), first);
    EXPECT_EQ(Inode(first), inode) << "imported again";

    // A second file with the same content has a copy of its own.
    const std::string b = files_.File("b.mdb");
    fs::copy_file(a, b);
    EXPECT_NE(db::JetCachedCopy(b), first);
    EXPECT_EQ(FilesIn(folder_), 2u);
}

TEST_F(JetCache, RefreshedWhenTheFileChanges) {
    const std::string a = files_.File("a.mdb");
    fs::copy_file(JetFile("testV1997.mdb"), a);
    std::string first = db::JetCachedCopy(a);

    // Touched: same content, later modification time.
    timespec later[2] = {{0, UTIME_OMIT}, {time(nullptr) + 60, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, a.c_str(), later, 0), 0);
    std::string touched = db::JetCachedCopy(a);
    EXPECT_NE(touched, first);
    EXPECT_FALSE(fs::exists(first)) << "the stale copy is removed";

    // Rewritten with other content.
    WriteBytes(a, ReadBytes(JetFile("testUnicodeCompV2003.mdb")));
    std::string rewritten = db::JetCachedCopy(a);
    EXPECT_NE(rewritten, touched);
    EXPECT_EQ(TableNames(rewritten), std::vector<std::string>{"Table"});
    EXPECT_EQ(FilesIn(folder_), 1u);
}

TEST_F(JetCache, FallsBackToTheTemporaryFolder) {
    ScopedEnvVar noXdg("XDG_CACHE_HOME", "");
    ScopedEnvVar tmp("TMPDIR", cache_.Path());
    const std::string a = files_.File("a.mdb");
    fs::copy_file(JetFile("testV2007.accdb"), a);
    std::string copy = db::JetCachedCopy(a);
    std::string expected = cache_.Path() + "/kwfy-" + std::to_string(getuid()) + "/kwfy-jet-cache/";
    EXPECT_EQ(copy.rfind(expected, 0), 0u) << copy;
    struct stat st {};
    ASSERT_EQ(stat((cache_.Path() + "/kwfy-" + std::to_string(getuid())).c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0700u) << "private to the user";
}

TEST_F(JetCache, FailuresNameTheFile) {
    WriteBytes(files_.File("broken.mdb"), ReadBytes(JetFile("testV1997.mdb")).substr(0, 4096));
    for (const char* name : {"missing.mdb", "broken.mdb"}) {
        try {
            db::JetCachedCopy(files_.File(name));
            ADD_FAILURE() << name;
        } catch (const Error& e) {
            EXPECT_EQ(std::string(e.what()).rfind(files_.File(name) + ": ", 0), 0u) << e.what();
        }
    }
    EXPECT_EQ(FilesIn(folder_), 0u) << "nothing half-written is left in the cache";
}

}  // namespace
}  // namespace kwfy::test
