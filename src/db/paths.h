// Path helpers. Both "\" and "/" are accepted as separators; new paths are
// joined with "/".
#pragma once

#include <string>

namespace kwfy::db {

// The text after the last separator; "" when there is none.
std::string GetFileName(const std::string& path);
// The text up to and including the last separator; "" when there is none.
std::string GetFilePath(const std::string& path);
// The file name without folder, cut before its first dot.
std::string GetFileTitle(const std::string& path);
// Drops one trailing separator, then returns the text up to and including the
// last separator.
std::string GetParentPath(const std::string& path);
// Creates the folder and, first, any missing parents. Throws Error on failure.
void MakeDirs(const std::string& path);

// Joins a folder and a relative path with "/" (no doubled separator);
// "\" inside rel is turned into "/". An empty folder gives rel.
std::string JoinPath(const std::string& folder, const std::string& rel);
bool FileExists(const std::string& path);  // a regular file
bool DirExists(const std::string& path);

}  // namespace kwfy::db
