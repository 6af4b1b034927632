#include <algorithm>

#include "control/control_core.h"

namespace kwfy {

void EventRaiser::Add(FYTableListener* l) {
    if (l && std::find(listeners_.begin(), listeners_.end(), l) == listeners_.end())
        listeners_.push_back(l);
}

void EventRaiser::Remove(FYTableListener* l) {
    listeners_.erase(std::remove(listeners_.begin(), listeners_.end(), l), listeners_.end());
}

// A listener may add or remove listeners from inside an event, so each raise
// walks a copy of the list.
void EventRaiser::CallFL() {
    for (auto* l : std::vector(listeners_)) l->CallFL();
}
void EventRaiser::AfterEdit() {
    for (auto* l : std::vector(listeners_)) l->AfterEdit();
}
void EventRaiser::EditClass() {
    for (auto* l : std::vector(listeners_)) l->EditClass();
}
void EventRaiser::ReCalc(double& sum) {
    for (auto* l : std::vector(listeners_)) l->ReCalc(sum);
}
void EventRaiser::ChangeQFClass(std::string& qfClass) {
    for (auto* l : std::vector(listeners_)) l->ChangeQFClass(qfClass);
}

}  // namespace kwfy
