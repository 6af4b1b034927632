// ImportJet: the child process that reads a Jet file and writes SQLite, and
// the parent that watches it.
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstring>
#include <new>

#include "db/jet_child.h"
#include "db/jet_import_internal.h"
#include "db/jet_reader.h"
#include "db/jet_sqlite_writer.h"
#include "kwfy/error.h"

namespace kwfy::db {

namespace {

// Exit statuses of the child besides 0.
constexpr int kFailed = 1;
constexpr int kOutOfMemory = 3;

bool Exists(const std::string& path) {
    struct stat st;
    return lstat(path.c_str(), &st) == 0;
}

std::string UniqueSibling(const std::string& dest) {
    static std::atomic<unsigned> counter{0};
    return dest + ".part-" + std::to_string(getpid()) + "-" + std::to_string(++counter);
}

void CheckSource(const std::string& source) {
    if (access(source.c_str(), R_OK) != 0)
        throw Error(source, std::string("cannot be read: ") + std::strerror(errno));
    if (!IsJetFile(source)) throw Error(source, "is not a Jet (.mdb / .accdb) database");
}

// Runs in the child: every user table into the SQLite file at tmp. Messages:
// "P done all" progress, "T rows name" a table read, "E text" the failure,
// "OK" at the end.
int ImportInChild(const std::string& source, const std::string& tmp, int out) {
    try {
        JetReader reader(source);
        std::vector<std::string> names = reader.TableNames();
        JetSqliteWriter writer(tmp);
        const std::string all = std::to_string(names.size());
        SendLine(out, "P 0 " + all);
        for (size_t i = 0; i < names.size(); ++i) {
            int64_t rows = reader.ReadTable(names[i], writer);
            SendLine(out, "T " + std::to_string(rows) + " " + names[i]);
            SendLine(out, "P " + std::to_string(i + 1) + " " + all);
        }
        writer.Commit();
        SendLine(out, "OK");
        return 0;
    } catch (const std::bad_alloc&) {
        SendLine(out, "E out of memory");
        return kOutOfMemory;
    } catch (const std::exception& e) {
        SendLine(out, std::string("E ") + e.what());
        return kFailed;
    }
}

// The tail of the child's diagnostics on one line.
std::string DiagnosticsTail(std::string text) {
    constexpr size_t kShown = 600;
    if (text.size() > kShown) text = "..." + text.substr(text.size() - kShown);
    for (char& c : text)
        if (c == '\n' || c == '\r') c = ' ';
    while (!text.empty() && text.back() == ' ') text.pop_back();
    return text;
}

class TempFile {
  public:
    explicit TempFile(std::string path) : path_(std::move(path)) {}
    ~TempFile() {
        if (!path_.empty()) unlink(path_.c_str());
    }
    const std::string& Path() const { return path_; }
    void Keep() { path_.clear(); }

  private:
    std::string path_;
};

JetImportReport ImportToTemp(const std::string& source, const TempFile& tmp,
                             const std::string& dest, const JetImportOptions& options) {
    ChildLimits limits{options.timeLimitSeconds, options.memoryLimitBytes};
    JetImportReport report;
    std::string failure;
    bool finished = false;
    auto onLine = [&](const std::string& line) {
        if (line == "OK") {
            finished = true;
        } else if (line.rfind("E ", 0) == 0) {
            failure = line.substr(2);
        } else if (line.rfind("T ", 0) == 0) {
            size_t space = line.find(' ', 2);
            if (space == std::string::npos) return;
            report.tables.emplace_back(line.substr(space + 1),
                                       std::stoll(line.substr(2, space - 2)));
        } else if (line.rfind("P ", 0) == 0 && options.progress) {
            int done = 0, all = 0;
            if (std::sscanf(line.c_str(), "P %d %d", &done, &all) == 2) options.progress(done, all);
        }
    };
    ChildOutcome outcome =
        RunInChild([&](int out) { return ImportInChild(source, tmp.Path(), out); }, limits, onLine);
    if (outcome.status == ChildOutcome::Status::Exited && outcome.code == 0 && finished)
        return report;

    std::string message;
    if (!failure.empty()) {
        // The reader's own errors already start with the file name.
        const std::string prefix = source + ": ";
        message = failure.rfind(prefix, 0) == 0 ? failure.substr(prefix.size()) : failure;
        // The temporary file is ours; the caller knows the file as dest.
        if (size_t at = message.find(tmp.Path()); at != std::string::npos)
            message.replace(at, tmp.Path().size(), dest);
        if (outcome.code == kOutOfMemory)
            message += " (the limit is " + std::to_string(options.memoryLimitBytes >> 20) + " MB)";
    } else {
        message = DescribeOutcome(outcome, limits) + "; the file may be damaged";
    }
    std::string tail = DiagnosticsTail(outcome.diagnostics);
    if (!tail.empty()) message += " [" + tail + "]";
    throw Error(source, message);
}

}  // namespace

JetImportReport ImportJetReplacing(const std::string& source, const std::string& dest,
                                   const JetImportOptions& options) {
    CheckSource(source);
    TempFile tmp(UniqueSibling(dest));
    JetImportReport report = ImportToTemp(source, tmp, dest, options);
    if (rename(tmp.Path().c_str(), dest.c_str()) != 0)
        throw Error(dest, std::string("cannot be written: ") + std::strerror(errno));
    tmp.Keep();
    return report;
}

JetImportReport ImportJet(const std::string& source, const std::string& dest,
                          const JetImportOptions& options) {
    if (Exists(dest)) throw Error(dest, "already exists");
    CheckSource(source);
    TempFile tmp(UniqueSibling(dest));
    JetImportReport report = ImportToTemp(source, tmp, dest, options);
    // link() fails when dest appeared meanwhile; rename() would replace it.
    // Where the file system has no hard links, fall back to rename().
    if (link(tmp.Path().c_str(), dest.c_str()) != 0) {
        int error = errno;
        bool noLinks = error == EPERM || error == ENOTSUP || error == EMLINK;
        if (!noLinks || Exists(dest) || rename(tmp.Path().c_str(), dest.c_str()) != 0)
            throw Error(dest, std::string("cannot be written: ") + std::strerror(error));
        tmp.Keep();
    }
    return report;
}

}  // namespace kwfy::db
