#include "db/paths.h"

#include <filesystem>

#include "kwfy/error.h"

namespace kwfy::db {

namespace {

size_t LastSeparator(const std::string& path) {
    return path.find_last_of("\\/");
}
bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

}  // namespace

std::string GetFileName(const std::string& path) {
    size_t i = LastSeparator(path);
    return i == std::string::npos ? std::string() : path.substr(i + 1);
}

std::string GetFilePath(const std::string& path) {
    size_t i = LastSeparator(path);
    return i == std::string::npos ? std::string() : path.substr(0, i + 1);
}

std::string GetFileTitle(const std::string& path) {
    size_t i = LastSeparator(path);
    std::string name = i == std::string::npos ? path : path.substr(i + 1);
    return name.substr(0, name.find('.'));
}

std::string GetParentPath(const std::string& path) {
    std::string trimmed = path;
    if (!trimmed.empty() && IsSeparator(trimmed.back())) trimmed.pop_back();
    return GetFilePath(trimmed);
}

void MakeDirs(const std::string& path) {
    if (path.empty()) return;
    std::string native = path;
    for (auto& c : native)
        if (c == '\\') c = '/';
    std::error_code ec;
    std::filesystem::create_directories(native, ec);
    if (ec || !std::filesystem::is_directory(native, ec))
        throw Error(path, "cannot create the folder" + (ec ? ": " + ec.message() : std::string()));
}

std::string JoinPath(const std::string& folder, const std::string& rel) {
    std::string tail = rel;
    for (auto& c : tail)
        if (c == '\\') c = '/';
    if (folder.empty()) return tail;
    size_t start = 0;
    while (start < tail.size() && tail[start] == '/') ++start;
    std::string head = folder;
    while (!head.empty() && IsSeparator(head.back())) head.pop_back();
    return head + "/" + tail.substr(start);
}

bool FileExists(const std::string& path) {
    std::error_code ec;
    return std::filesystem::is_regular_file(path, ec);
}

bool DirExists(const std::string& path) {
    std::error_code ec;
    return std::filesystem::is_directory(path, ec);
}

}  // namespace kwfy::db
