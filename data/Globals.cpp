#include "data/Globals.h"

#include <memory>

namespace marvello {

namespace {

template <class T>
std::unique_ptr<T>& holder() {
    static std::unique_ptr<T> object;
    return object;
}

template <class T>
T& madeOnUse() {
    if (!holder<T>()) holder<T>() = std::make_unique<T>();
    return *holder<T>();
}

}  // namespace

clsDatabase& gDatabase() { return madeOnUse<clsDatabase>(); }

clsApplication& gApplication() { return madeOnUse<clsApplication>(); }

void releaseGlobals() {
    holder<clsApplication>().reset();
    holder<clsDatabase>().reset();
}

}  // namespace marvello
