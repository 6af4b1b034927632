#include "pricekeys/price_keys.h"

#include <optional>
#include <unordered_set>

#include "db/database.h"
#include "db/keyinfo.h"
#include "db/paths.h"
#include "pricekeys/key_forms.h"
#include "pricekeys/key_sources.h"

namespace kwfy::pricekeys {

namespace {

// How one listed key gets its value.
struct KeyPlan {
    std::string working;  // after display-name translation
    bool aggregate = false;
    std::optional<std::string> material;  // the key given to PriceDifference
};

// Opens the parameter database on first use: most categories name no
// display names and never need it.
class DisplayNames {
public:
    explicit DisplayNames(std::string path) : path_(std::move(path)) {}

    std::string Translate(const std::string& text) {
        if (!IsDisplayName(text)) return text;
        db::Database* params = Params();
        if (!params) return text;
        DisplayNameLookup lookup = LookupFor(text);
        auto link = LinkNameOf(*params, lookup.name);
        return link ? LinkedKey(*link, lookup.withCompanion) : text;
    }

private:
    db::Database* Params() {
        if (!opened_) {
            opened_ = true;
            if (db::FileExists(path_)) params_.emplace(db::Database::OpenReadOnly(path_));
        }
        return params_ ? &*params_ : nullptr;
    }

    std::string path_;
    bool opened_ = false;
    std::optional<db::Database> params_;
};

}  // namespace

calc::PriceKeyList GetPriceKeys(const std::string& dataPath, const std::string& projectDbPath,
                                int16_t workId, const std::string& category, int32_t nodeId,
                                PriceKeyResolver& resolver) {
    db::Database project = db::Database::Open(projectDbPath);
    return GetPriceKeys(dataPath, project, workId, category, nodeId, resolver);
}

calc::PriceKeyList GetPriceKeys(const std::string& dataPath, db::Database& project, int16_t workId,
                                const std::string& category, int32_t nodeId,
                                PriceKeyResolver& resolver) {
    const std::string& projectDbPath = project.Path();
    const std::string keyCategory = CategoryOrDefault(project, workId, category);
    const std::vector<std::string> names = GatherKeys(project, workId, keyCategory);

    DisplayNames displayNames(db::ParamDBPath(dataPath));
    std::vector<KeyPlan> plans;
    plans.reserve(names.size());
    std::vector<std::string> storedKeys;
    std::unordered_set<std::string> storedSeen;
    for (const std::string& name : names) {
        KeyPlan plan;
        plan.material = MaterialKey(name);
        if (!plan.material) {
            plan.working = displayNames.Translate(name);
            plan.aggregate = nodeId == 0 && IsAggregateKey(plan.working);
            if (!plan.aggregate)
                for (auto& key : StoredKeys(plan.working))
                    if (storedSeen.insert(FoldCase(key)).second) storedKeys.push_back(key);
        }
        plans.push_back(std::move(plan));
    }

    // The prices are summed over every category when the caller named none,
    // even though the key names came from the default category.
    const auto sums = SumPrices(project, storedKeys, workId, category, nodeId);

    std::vector<double> values(names.size(), 0.0);
    for (size_t i = 0; i < names.size(); ++i) {
        const KeyPlan& plan = plans[i];
        if (plan.material) continue;
        if (plan.aggregate) {
            values[i] = resolver.AggregateValue(projectDbPath, workId, plan.working);
            continue;
        }
        for (const auto& key : StoredKeys(plan.working))
            if (auto it = sums.find(FoldCase(key)); it != sums.end()) values[i] += it->second;
    }
    // Price differences come last and replace any other value of their key.
    for (size_t i = 0; i < names.size(); ++i)
        if (const auto& material = plans[i].material)
            values[i] = resolver.PriceDifference(dataPath, projectDbPath, workId, nodeId, *material,
                                                 keyCategory);

    calc::PriceKeyList list;
    for (size_t i = 0; i < names.size(); ++i) list.Add(names[i], values[i]);
    return list;
}

}  // namespace kwfy::pricekeys
