// The control's rate read-outs: the shown rate of a row found by its code or
// its calculation key, and all shown rates and amounts at once.
#pragma once

#include <string>
#include <vector>

namespace kwfy {
class ControlCore;
}

namespace kwfy::rates {

// The "费率" cell of the first data row whose "编号" (or calculation key)
// equals the key exactly, case included; "" when no row does.
std::string GetFLByKey(const ControlCore& core, const std::string& key);
std::string GetFLByCalcKey(const ControlCore& core, const std::string& key);
// Both arrays get indexes 0 to the last grid row; element i holds row i's
// "费率" text and the leading number of its "金额" text. Element 0 is empty.
void GetFLKeyArray(const ControlCore& core, std::vector<std::string>& keys,
                   std::vector<double>& prices);

}  // namespace kwfy::rates
