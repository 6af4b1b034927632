// The aligned text table.
#include <utf8.h>
#include <algorithm>

#include "calc/number_text.h"
#include "render.h"

namespace fytable {

namespace {

bool IsWide(uint32_t cp) {
    return (cp >= 0x1100 && cp <= 0x115F) || (cp >= 0x2E80 && cp <= 0x303E) ||
           (cp >= 0x3041 && cp <= 0x33FF) || (cp >= 0x3400 && cp <= 0x4DBF) ||
           (cp >= 0x4E00 && cp <= 0x9FFF) || (cp >= 0xA000 && cp <= 0xA4CF) ||
           (cp >= 0xAC00 && cp <= 0xD7A3) || (cp >= 0xF900 && cp <= 0xFAFF) ||
           (cp >= 0xFE30 && cp <= 0xFE4F) || (cp >= 0xFF00 && cp <= 0xFF60) ||
           (cp >= 0xFFE0 && cp <= 0xFFE6) || (cp >= 0x20000 && cp <= 0x3FFFD);
}

std::string Indented(const ViewRow& row, const ViewColumn& column, const std::string& cell) {
    if (!column.outline) return cell;
    return std::string(size_t(std::max(0, row.level - 1) * 2), ' ') + cell;
}

void Pad(std::string& line, const std::string& text, int width, bool right) {
    std::string blanks(size_t(std::max(0, width - DisplayWidth(text))), ' ');
    line += right ? blanks + text : text + blanks;
}

}  // namespace

int DisplayWidth(std::string_view text) {
    if (utf8::find_invalid(text.begin(), text.end()) != text.end()) return int(text.size());
    int width = 0;
    for (auto it = text.begin(); it != text.end();)
        width += IsWide(utf8::next(it, text.end())) ? 2 : 1;
    return width;
}

void WriteTable(const FeeView& view, std::ostream& out) {
    std::vector<int> widths;
    for (const auto& column : view.columns) widths.push_back(DisplayWidth(column.caption));
    for (const auto& row : view.rows)
        for (size_t c = 0; c < view.columns.size(); ++c)
            widths[c] =
                std::max(widths[c], DisplayWidth(Indented(row, view.columns[c], row.cells[c])));
    auto emit = [&](auto cellOf) {
        std::string line;
        for (size_t c = 0; c < view.columns.size(); ++c) {
            if (c) line += "  ";
            Pad(line, cellOf(c), widths[c], view.columns[c].numeric);
        }
        line.erase(line.find_last_not_of(' ') + 1);
        out << line << '\n';
    };
    emit([&](size_t c) { return view.columns[c].caption; });
    for (const auto& row : view.rows)
        emit([&](size_t c) { return Indented(row, view.columns[c], row.cells[c]); });
    if (view.total)
        out << "总合计: " << kwfy::calc::FormatNumber(*view.total, "0.00") << '\n';
    else if (!view.amountsShown)
        out << "(amounts are not calculated for the class view; choose a node with --node)\n";
}

}  // namespace fytable
