// The Excel workbook, through libxlsxwriter.
#include <xlsxwriter.h>

#include <algorithm>
#include <map>

#include "calc/number_text.h"
#include "kwfy/error.h"
#include "render.h"

namespace fytable {

namespace {

// Sheet names hold at most 31 characters and none of []:*?/\ .
std::string SheetName(const std::string& category) {
    std::string name;
    int count = 0;
    for (size_t i = 0; i < category.size() && count < 31;) {
        unsigned char c = static_cast<unsigned char>(category[i]);
        size_t len = c < 0x80 ? 1 : c < 0xE0 ? 2 : c < 0xF0 ? 3 : 4;
        std::string ch = category.substr(i, len);
        name += std::string("[]:*?/\\").find(ch) == std::string::npos || len > 1 ? ch : "_";
        i += len;
        ++count;
    }
    return name.empty() ? "费用表" : name;
}

class Workbook {
public:
    explicit Workbook(const std::string& path) : path_(path), book_(workbook_new(path.c_str())) {
        if (!book_) throw kwfy::Error(path, "cannot create the workbook");
    }
    ~Workbook() {
        if (book_) workbook_close(book_);
    }
    lxw_workbook* Get() { return book_; }
    lxw_format* Indent(int level) {
        auto& format = indents_[level];
        if (!format) {
            format = workbook_add_format(book_);
            format_set_indent(format, uint8_t(std::clamp(level, 0, 15)));
        }
        return format;
    }
    void Close() {
        lxw_error rc = workbook_close(book_);
        book_ = nullptr;
        if (rc != LXW_NO_ERROR) throw kwfy::Error(path_, lxw_strerror(rc));
    }

private:
    std::string path_;
    lxw_workbook* book_;
    std::map<int, lxw_format*> indents_;
};

}  // namespace

void WriteXlsx(const FeeView& view, const std::string& path) {
    Workbook book(path);
    lxw_worksheet* sheet = workbook_add_worksheet(book.Get(), SheetName(view.category).c_str());
    if (!sheet) throw kwfy::Error(path, "cannot add the sheet \"" + view.category + "\"");
    lxw_format* bold = workbook_add_format(book.Get());
    format_set_bold(bold);
    lxw_format* money = workbook_add_format(book.Get());
    format_set_num_format(money, "0.00");
    for (size_t c = 0; c < view.columns.size(); ++c) {
        worksheet_write_string(sheet, 0, lxw_col_t(c), view.columns[c].caption.c_str(), bold);
        worksheet_set_column(sheet, lxw_col_t(c), lxw_col_t(c), view.columns[c].outline ? 30 : 14,
                             nullptr);
    }
    lxw_row_t r = 1;
    for (const auto& row : view.rows) {
        for (size_t c = 0; c < view.columns.size(); ++c) {
            const auto& column = view.columns[c];
            const std::string& cell = row.cells[c];
            if (cell.empty()) continue;
            if (column.amount)
                worksheet_write_number(sheet, r, lxw_col_t(c), kwfy::calc::Val(cell), money);
            else
                worksheet_write_string(sheet, r, lxw_col_t(c), cell.c_str(),
                                       column.outline ? book.Indent(row.level - 1) : nullptr);
        }
        ++r;
    }
    if (view.total) {
        worksheet_write_string(sheet, r + 1, 0, "总合计", bold);
        worksheet_write_number(sheet, r + 1, 1, *view.total, money);
    }
    book.Close();
}

}  // namespace fytable
