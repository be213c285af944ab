#include "engine/AbortRequested.h"

namespace marvello {

bool& AbortRequested() {
    static bool requested = false;
    return requested;
}

}  // namespace marvello
