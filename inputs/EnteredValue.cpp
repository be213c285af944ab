#include "inputs/EnteredValue.h"

namespace marvello {

double EnteredValue::shownIn(UnitSystem to, double shown, UnitSystem from, UnitRule rule) {
    const bool isConversion = rule == rule_ && from == shownIn_ && shown == shown_;
    if (!isConversion) {
        rule_ = rule;
        entered_ = shown;
        enteredIn_ = from;
    }
    shown_ = rule(entered_, enteredIn_, to);
    shownIn_ = to;
    return shown_;
}

}  // namespace marvello
