// CSV and JSON.
#include <nlohmann/json.hpp>

#include "calc/number_text.h"
#include "render.h"

namespace fytable {

namespace {

std::string CsvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

nlohmann::json Amount(const FeeView& view, const std::string& cell) {
    if (!view.amountsShown) return nullptr;
    return kwfy::calc::Val(cell);
}

}  // namespace

void WriteCsv(const FeeView& view, std::ostream& out) {
    std::string line;
    for (const auto& column : view.columns) line += CsvField(column.caption) + ",";
    out << line << "层次\r\n";
    for (const auto& row : view.rows) {
        line.clear();
        for (const auto& cell : row.cells) line += CsvField(cell) + ",";
        out << line << row.level << "\r\n";
    }
}

void WriteJson(const FeeView& view, std::ostream& out) {
    nlohmann::json doc;
    doc["category"] = view.category;
    doc["columns"] = nlohmann::json::array();
    for (const auto& column : view.columns) doc["columns"].push_back(column.caption);
    doc["rows"] = nlohmann::json::array();
    for (const auto& row : view.rows) {
        nlohmann::json r{{"key", row.fields.code},
                         {"name", row.fields.name},
                         {"rate", row.fields.rate},
                         {"explanation", row.explanation},
                         {"amount", Amount(view, row.amount)},
                         {"formula", row.fields.formula},
                         {"level", row.level},
                         {"calcKey", row.calcKey},
                         {"rateSpec", row.fields.rateEntry}};
        if (!row.classRates.empty()) {
            r["classRates"] = nlohmann::json::object();
            for (const auto& [cls, rate] : row.classRates) r["classRates"][cls] = rate;
        }
        doc["rows"].push_back(std::move(r));
    }
    doc["total"] = view.total ? nlohmann::json(*view.total) : nlohmann::json(nullptr);
    out << doc.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

}  // namespace fytable
