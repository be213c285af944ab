#include "engine/Tracing.h"

#include "engine/Margins.h"

namespace marvello {

bool Tracer::test(std::string_view fact, bool outcome) const {
    trace_->test(fact, outcome);
    return outcome;
}

bool Tracer::inside(int limitType, bool outcome) const {
    return test("inside(" + std::string(limitName(limitType)) + ")", outcome);
}

bool Tracer::hasLimit(int limitType, bool outcome) const {
    return test("has(" + std::string(limitName(limitType)) + ")", outcome);
}

}  // namespace marvello
