// Damaged copies of the test files: whatever libmdb makes of them, the import
// ends within its time limit with an Error naming the file or with what could
// be read, and leaves no temporary file behind.
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

struct Damage {
    std::string name;
    std::function<std::string(std::string)> apply;
};

Damage Truncate(size_t size) {
    return {"truncated to " + std::to_string(size),
            [size](std::string bytes) { return bytes.substr(0, std::min(size, bytes.size())); }};
}

Damage TruncateHalf() {
    return {"truncated to half",
            [](std::string bytes) { return bytes.substr(0, bytes.size() / 2); }};
}

// Flips count random bytes at or after from; from 20 keeps the Jet header
// recognisable, from 4096 also keeps libmdb's page 0 intact.
Damage Flip(unsigned seed, size_t from, int count) {
    return {"seed " + std::to_string(seed) + " flips " + std::to_string(count) + " bytes from " +
                std::to_string(from),
            [=](std::string bytes) {
                std::mt19937 random(seed);
                std::uniform_int_distribution<size_t> at(from, bytes.size() - 1);
                for (int i = 0; i < count; ++i)
                    bytes[at(random)] ^= static_cast<char>(1 + random() % 255);
                return bytes;
            }};
}

std::vector<Damage> Damages() {
    std::vector<Damage> damages = {Truncate(20), Truncate(2048), Truncate(4096),
                                   Truncate(3 * 4096 + 17), TruncateHalf()};
    for (unsigned seed = 1; seed <= 4; ++seed) damages.push_back(Flip(seed, 20, 64));
    for (unsigned seed = 5; seed <= 10; ++seed) damages.push_back(Flip(seed, 4096, 400));
    return damages;
}

class DamagedJetFile : public ::testing::TestWithParam<std::string> {};

TEST_P(DamagedJetFile, FailsCleanlyOrReadsWhatItCan) {
    const std::string original = ReadBytes(JetFile(GetParam()));
    int failed = 0;
    for (const Damage& damage : Damages()) {
        SCOPED_TRACE(damage.name);
        TempDir in, out;
        const std::string source = in.File("damaged.mdb");
        WriteBytes(source, damage.apply(original));
        db::JetImportOptions options;
        options.timeLimitSeconds = kTimeLimit;
        options.memoryLimitBytes = int64_t(512) << 20;
        auto start = std::chrono::steady_clock::now();
        bool imported = false;
        try {
            db::JetImportReport report = db::ImportJet(source, out.File("out.db"), options);
            imported = true;
            for (const auto& [table, rows] : report.tables) {
                QueryResult count =
                    Query(out.File("out.db"), "SELECT COUNT(*) FROM \"" + table + "\"");
                EXPECT_EQ(std::get<int64_t>(count.rows.at(0).at(0)), rows) << table;
            }
        } catch (const Error& e) {
            ++failed;
            EXPECT_EQ(std::string(e.what()).rfind(source + ": ", 0), 0u) << e.what();
        }
        double seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        EXPECT_LT(seconds, kTimeLimit + 2.0);
        std::vector<std::string> left;
        for (const auto& entry : std::filesystem::directory_iterator(out.Path()))
            left.push_back(entry.path().filename().string());
        EXPECT_EQ(left, imported ? std::vector<std::string>{"out.db"} : std::vector<std::string>{});
    }
    // A file cut short before its catalog can never import.
    EXPECT_GE(failed, 3);
}

INSTANTIATE_TEST_SUITE_P(TestFiles, DamagedJetFile,
                         ::testing::Values("testV1997.mdb", "test2V2000.mdb",
                                           "testUnicodeCompV2003.mdb", "testV2007.accdb"),
                         [](const auto& info) {
                             std::string name = info.param;
                             for (char& c : name)
                                 if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
                             return name;
                         });

}  // namespace
}  // namespace kwfy::test
