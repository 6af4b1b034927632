#include "templates/template_paths.h"

#include "db/paths.h"

namespace kwfy::templates {

namespace {

// Separators unified and ASCII letters lowered; the length stays the same,
// so a match in the folded text is a match at the same place in the original.
std::string Folded(const std::string& path) {
    std::string out = path;
    for (char& c : out) {
        if (c == '\\')
            c = '/';
        else if (c >= 'A' && c <= 'Z')
            c = char(c - 'A' + 'a');
    }
    return out;
}

}  // namespace

std::string LibraryFolder(const std::string& dataPath) {
    return db::JoinPath(dataPath, "费用文件/");
}

std::string UserLayoutPattern(const std::string& appPath) {
    return db::JoinPath(appPath, "用户数据/我的费用文件/*.RXFY");
}

std::string RelativeToLibrary(const std::string& path, const std::string& dataPath) {
    const std::string library = Folded(LibraryFolder(dataPath));
    std::string folded = Folded(path);
    std::string result = path;
    for (size_t at = folded.find(library); at != std::string::npos; at = folded.find(library, at)) {
        folded.erase(at, library.size());
        result.erase(at, library.size());
    }
    return result;
}

std::string RecordedTemplatePath(const std::string& dataPath, const std::string& recorded) {
    return db::JoinPath(LibraryFolder(dataPath), recorded);
}

}  // namespace kwfy::templates
