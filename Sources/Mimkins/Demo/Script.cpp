#include "Demo/Script.h"

#include "Demo/ScriptActs.h"

#include <algorithm>
#include <numeric>

namespace mimkins::demo {

namespace {

bool opens(Deed deed) {
    return deed == Deed::calls || deed == Deed::sendsSubagent || deed == Deed::subagentCalls;
}

} // namespace

double Script::length() const {
    return std::accumulate(
        acts.begin(), acts.end(), arrival.length + departure.length,
        [](double sum, const Act& act) { return sum + act.length; }
    );
}

const Script& script() {
    static const Script script{
        arrivalAct(),
        {repairAct(), permissionAct(), backgroundAct(), questionAct(), crewAct(), planAct(), compactionAct(),
         dialogAct(), stuckAct(), elicitationAct()},
        departureAct(),
    };
    return script;
}

const Step* opening(const Act& act, const std::string& key) {
    const auto found = std::find_if(act.steps.begin(), act.steps.end(), [&key](const Step& step) {
        return opens(step.deed) && step.key == key;
    });
    return found == act.steps.end() ? nullptr : &*found;
}

bool needsApproval(const Act& act, const std::string& key) {
    return std::any_of(act.steps.begin(), act.steps.end(), [&key](const Step& step) {
        return (step.deed == Deed::asks || step.deed == Deed::subagentAsks) && step.key == key;
    });
}

} // namespace mimkins::demo
