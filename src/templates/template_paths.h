// Where fee templates and user layouts live, and how a template's path is
// recorded for its category and formed again from that record.
#pragma once

#include <string>

namespace kwfy::templates {

// The file-name filter of the fee file dialogs.
inline constexpr char kFeeFileFilter[] = "费用文件(*.RXFY)|*.RXFY";
// The extension of fee templates and layouts; matched exactly (case-sensitive).
inline constexpr char kFeeFileExtension[] = ".RXFY";

// The template library: dataPath + "费用文件/".
std::string LibraryFolder(const std::string& dataPath);
// The preset name of the layout dialogs: appPath + "用户数据/我的费用文件/*.RXFY".
std::string UserLayoutPattern(const std::string& appPath);

// The path as recorded for a category: every occurrence of the library
// folder removed, so that a library template is kept relative to the library
// and the record survives a move of the data folder. The folder is matched
// without regard to ASCII case, either separator matching either; the rest
// of the path keeps its own separators. A path outside the library comes back
// unchanged.
std::string RelativeToLibrary(const std::string& path, const std::string& dataPath);

// The path of a recorded template: the library folder joined with the record.
std::string RecordedTemplatePath(const std::string& dataPath, const std::string& recorded);

}  // namespace kwfy::templates
