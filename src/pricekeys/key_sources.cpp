#include "pricekeys/key_sources.h"

#include <algorithm>
#include <unordered_set>

#include "calc/formula_text.h"
#include "pricekeys/key_forms.h"

namespace kwfy::pricekeys {

namespace {

// Stays below the engine's smallest limit on bound parameters.
constexpr size_t kKeysPerQuery = 500;

std::string Placeholders(size_t n) {
    std::string list;
    list.reserve(n * 2);
    for (size_t i = 0; i < n; ++i) list += i ? ",?" : "?";
    return list;
}

}  // namespace

std::string CategoryOrDefault(db::Database& project, int16_t workId, const std::string& category) {
    if (!category.empty()) return category;
    auto rs = project.Query("SELECT DefaultQFClass FROM WorkStruct WHERE ID=?", {int64_t{workId}});
    return rs.Eof() ? std::string() : rs.Text("DefaultQFClass");
}

std::vector<std::string> GatherKeys(db::Database& project, int16_t workId,
                                    const std::string& category) {
    auto rs = project.Query("SELECT Wffs FROM FY WHERE WorkID=? AND QFClass=?",
                            {int64_t{workId}, category});
    std::vector<std::string> keys;
    std::unordered_set<std::string> seen;
    for (; !rs.Eof(); rs.MoveNext()) {
        std::string formula = rs.Text("Wffs");
        if (formula.empty()) continue;
        for (auto& item : calc::SplitFormula(formula))
            if (IsPriceKeyItem(item) && seen.insert(item).second) keys.push_back(std::move(item));
    }
    return keys;
}

std::optional<std::string> LinkNameOf(db::Database& params, const std::string& name) {
    auto rs = params.Query("SELECT LinkName FROM BaseLink WHERE Name=?", {name});
    if (rs.Eof()) return std::nullopt;
    return rs.Text("LinkName");
}

std::unordered_map<std::string, double> SumPrices(db::Database& project,
                                                  const std::vector<std::string>& keys,
                                                  int16_t workId, const std::string& category,
                                                  int32_t nodeId) {
    std::unordered_map<std::string, double> sums;
    for (size_t first = 0; first < keys.size(); first += kKeysPerQuery) {
        size_t count = std::min(kKeysPerQuery, keys.size() - first);
        // The parameters are built in one piece: growing a vector of them
        // trips a false "maybe uninitialized" warning in GCC 12.
        std::vector<std::string> texts;
        std::string sql;
        int64_t id = 0;
        if (nodeId == 0) {
            // The unary "+" keeps the engine from checking the project and
            // category through the Items_Work index for every price row: the
            // item found by its ID tells them, at a third of the cost.
            sql =
                "SELECT Items_Price.Key AS Key, Sum(Items_Price.Price) AS SumPrice FROM Items_Price"
                " JOIN Items ON Items_Price.ItemsID=Items.ID WHERE +Items.WorkID=?";
            id = workId;
            if (!category.empty()) {
                sql += " AND +Items.QFClass=?";
                texts.push_back(category);
            }
        } else {
            sql = "SELECT Key, Sum(Price) AS SumPrice FROM Items_Price WHERE ItemsID=?";
            id = nodeId;
        }
        sql += " AND Items_Price.Key IN (" + Placeholders(count) + ") GROUP BY Items_Price.Key";
        texts.insert(texts.end(), keys.begin() + ptrdiff_t(first),
                     keys.begin() + ptrdiff_t(first + count));
        db::Params params(texts.size() + 1);
        params[0] = id;
        for (size_t i = 0; i < texts.size(); ++i) params[i + 1] = std::move(texts[i]);
        for (auto rs = project.Query(sql, params); !rs.Eof(); rs.MoveNext())
            sums[FoldCase(rs.Text("Key"))] += rs["SumPrice"].Number();
    }
    return sums;
}

}  // namespace kwfy::pricekeys
