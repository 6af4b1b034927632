// PriceKeyResolver: values of the price keys that are not plain sums of the
// project's item prices.
//
// Two key families are handed to the host:
//   - project aggregates, written "<[" + name + "]>", asked only when the
//     table belongs to the whole project (no node set);
//   - material price differences, keys whose text begins "$JC", "<Rc", "<Cc"
//     or "<Jc". Display names ("<Rc>", "<Cc1>" ...) are mapped to their
//     "$JC_..." keys before the call; the answer replaces whatever value the
//     key had from the item prices.
// The control calls the resolver synchronously, once per key and
// calculation, on the host's thread. An exception thrown by a resolver ends
// the calculation and reaches the caller unchanged.
#pragma once

#include <cstdint>
#include <string>

namespace kwfy {

class PriceKeyResolver {
public:
    virtual ~PriceKeyResolver() = default;

    // The value of a project aggregate key. key is the text as the formula
    // writes it, after display-name translation ("<[12]>").
    virtual double AggregateValue(const std::string& projectDbPath, int16_t workId,
                                  const std::string& key) = 0;

    // The material price difference of key ("$JC_R_S_Q$" ...) for one node
    // (0: the whole project) and fee category. category is the category the
    // keys were gathered for: the node's default category when the caller
    // gave none.
    virtual double PriceDifference(const std::string& dataPath, const std::string& projectDbPath,
                                   int16_t workId, int32_t nodeId, const std::string& key,
                                   const std::string& category) = 0;
};

// The resolver used when the host sets none.
//
// AggregateValue: "<[" + ID + "]>" with ID a decimal number gives the
// TotalPrice of the WorkStruct row with that ID (this is how change-order
// items refer to project nodes); 0 when the row is missing or its TotalPrice
// is Null. Any other aggregate key gives 0. Opens the project database for
// the look-up and throws kwfy::Error when it cannot be read.
//
// PriceDifference: always 0 (material price differences need the host's
// price libraries).
class DefaultPriceKeyResolver : public PriceKeyResolver {
public:
    double AggregateValue(const std::string& projectDbPath, int16_t workId,
                          const std::string& key) override;
    double PriceDifference(const std::string& dataPath, const std::string& projectDbPath,
                           int16_t workId, int32_t nodeId, const std::string& key,
                           const std::string& category) override;
};

}  // namespace kwfy
