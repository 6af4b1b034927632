#include <charconv>
#include <optional>
#include <string_view>

#include "db/database.h"
#include "kwfy/price_key_resolver.h"
#include "pricekeys/key_forms.h"

namespace kwfy {

namespace {

// The node ID of "<[123]>", nullopt for any other text.
std::optional<int64_t> NodeIdOf(std::string_view key) {
    if (!pricekeys::IsAggregateKey(key)) return std::nullopt;
    std::string_view digits = key.substr(2, key.size() - 4);
    if (digits.empty()) return std::nullopt;
    for (char c : digits)
        if (c < '0' || c > '9') return std::nullopt;
    int64_t id = 0;
    auto [end, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), id);
    if (ec != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    return id;
}

}  // namespace

double DefaultPriceKeyResolver::AggregateValue(const std::string& projectDbPath, int16_t /*workId*/,
                                               const std::string& key) {
    auto id = NodeIdOf(key);
    if (!id) return 0;
    db::Database project = db::Database::Open(projectDbPath);
    auto rs = project.Query("SELECT TotalPrice FROM WorkStruct WHERE ID=?", {*id});
    return rs.Eof() ? 0 : rs["TotalPrice"].Number();
}

double DefaultPriceKeyResolver::PriceDifference(const std::string& /*dataPath*/,
                                                const std::string& /*projectDbPath*/,
                                                int16_t /*workId*/, int32_t /*nodeId*/,
                                                const std::string& /*key*/,
                                                const std::string& /*category*/) {
    return 0;
}

}  // namespace kwfy
