// Reading Jet (.mdb / .accdb) files by importing them into SQLite.
//
// The Jet reader runs in a child process with a time limit and a memory
// limit, because the reading library is not safe on damaged or hostile files;
// any failure becomes a kwfy::Error naming the file.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace kwfy::db {

// True when the file starts with a Jet 3, Jet 4 or ACE header.
bool IsJetFile(const std::string& path);

struct JetImportOptions {
    int timeLimitSeconds = 120;
    int64_t memoryLimitBytes = int64_t(2) << 30;
    // Called with (tables done, tables in all) while importing; may be empty.
    std::function<void(int, int)> progress;
};

struct JetImportReport {
    // Each user table with the row count the reader reported.
    std::vector<std::pair<std::string, int64_t>> tables;
};

// Copies every user table of the Jet file into a new SQLite file at dest
// (which must not exist). Text columns compare without regard to case.
JetImportReport ImportJet(const std::string& source, const std::string& dest,
                          const JetImportOptions& options = {});

// The path of an up-to-date SQLite copy of a Jet file, importing it first when
// the cache (beside the user's temporary files, keyed by the file's path, size
// and modification time) has none.
std::string JetCachedCopy(const std::string& path);

}  // namespace kwfy::db
