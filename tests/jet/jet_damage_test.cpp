// Damaged copies of the test files: whatever libmdb makes of them, the import
// ends within its time limit, with an Error naming the file or with what
// could be read, and leaves no temporary file behind.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <random>

#include "db/jet_import.h"
#include "jet/jet_test_util.h"
#include "kwfy/error.h"
#include "support/temp_dir.h"

namespace kwfy::test {
namespace {

constexpr int kTimeLimit = 2;

// Cut at a size, or (size 0) count random bytes flipped at or after offset
// from: from 20 keeps the header recognisable, 4096 all of page 0.
struct Damage {
    size_t size = 0;
    unsigned seed = 0;
    size_t from = 0;
    int count = 0;

    std::string Apply(std::string bytes) const {
        if (size) return bytes.substr(0, std::min(size, bytes.size()));
        std::mt19937 random(seed);
        std::uniform_int_distribution<size_t> at(from, bytes.size() - 1);
        for (int i = 0; i < count; ++i) bytes[at(random)] ^= static_cast<char>(1 + random() % 255);
        return bytes;
    }
};

class DamagedJetFile : public ::testing::TestWithParam<std::string> {};

TEST_P(DamagedJetFile, FailsCleanlyOrReadsWhatItCan) {
    const std::string original = ReadBytes(JetFile(GetParam()));
    std::vector<Damage> damages = {{20}, {2048}, {4096}, {3 * 4096 + 17}, {original.size() / 2}};
    for (unsigned seed = 1; seed <= 4; ++seed) damages.push_back({0, seed, 20, 64});
    for (unsigned seed = 5; seed <= 10; ++seed) damages.push_back({0, seed, 4096, 400});
    int failed = 0;
    for (const Damage& damage : damages) {
        SCOPED_TRACE("size " + std::to_string(damage.size) + " seed " +
                     std::to_string(damage.seed));
        TempDir in, out;
        const std::string source = in.File("damaged.mdb");
        WriteBytes(source, damage.Apply(original));
        db::JetImportOptions options{kTimeLimit, int64_t(512) << 20, {}};
        auto start = std::chrono::steady_clock::now();
        size_t expectedLeft = 0;
        try {
            for (const auto& [table, rows] :
                 db::ImportJet(source, out.File("out.db"), options).tables)
                EXPECT_EQ(Query(out.File("out.db"), "SELECT COUNT(*) FROM \"" + table + "\"")[0][0],
                          Cell(rows));
            expectedLeft = 1;
        } catch (const Error& e) {
            ++failed;
            EXPECT_EQ(std::string(e.what()).rfind(source + ": ", 0), 0u) << e.what();
        }
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(kTimeLimit + 2));
        auto left = std::filesystem::directory_iterator(out.Path());
        EXPECT_EQ(static_cast<size_t>(std::distance(left, {})), expectedLeft);
    }
    EXPECT_GE(failed, 3) << "a file cut before its catalog never imports";
}

INSTANTIATE_TEST_SUITE_P(TestFiles, DamagedJetFile,
                         ::testing::Values("testV1997.mdb", "test2V2000.mdb",
                                           "testUnicodeCompV2003.mdb", "testV2007.accdb"),
                         FileParamName);

}  // namespace
}  // namespace kwfy::test
