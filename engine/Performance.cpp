#include "engine/Performance.h"

#include <algorithm>
#include <array>
#include <exception>

#include "engine/Statements.h"
#include "engine/Verdict.h"
#include "thermo/RefpropLibrary.h"

namespace marvello {

namespace {

constexpr std::array allFigures{Figure::capacity, Figure::power,    Figure::cop,
                                Figure::current,  Figure::massFlow, Figure::dischargeTemperature};

std::optional<double> ifSet(const clsVariables& v, var variable) {
    return v.isSet(variable) ? std::optional(v[variable]) : std::nullopt;
}

Performance::Duty plainDuty(const clsVariables& v) {
    return {.capacity = v[var::Q0],
            .power = v[var::Pta],
            .condenserLoad = v[var::Qc],
            .cop = v[var::COP],
            .current = ifSet(v, var::CA),
            .dischargeTemperature = v.isSet(var::Tsca) ? v[var::Tsca] : v[var::T21]};
}

Performance::Duty economizedDuty(const clsVariables& v) {
    const bool isCooled = v[var::OCCalculateMode] != codeOf(OilCoolingMode::none);
    return {.capacity = v[var::Q0] + v[var::Qeco],
            .power = v[var::PtaEco],
            .condenserLoad = v[var::QcEco],
            .cop = v[var::CopEco],
            .current = ifSet(v, var::CAECO),
            .dischargeTemperature = isCooled ? std::min(v[var::T2], v[var::OC]) : v[var::T2]};
}

Performance withError(std::string_view key) {
    return {.state = key == outsideEnvelope ? PointState::outside : PointState::error,
            .error = std::string(key)};
}

}  // namespace

std::string_view nameOf(PointState state) {
    constexpr std::array<std::string_view, 4> names{"ok", "warning", "error", "outside"};
    return names[static_cast<std::size_t>(state)];
}

Performance performanceOf(const clsCompressor& calculated) {
    const Verdict verdict = verdictOf(calculated);
    if (verdict == Verdict::notPossible) {
        const clsMessages& errors = calculated.Messages.Error;
        return withError(errors.Count() > 0 ? std::string_view(errors.Item(1).Name)
                                            : std::string_view("messages.message26"));
    }
    const clsVariables& v = calculated.Variables;
    Performance performance{.state = verdict == Verdict::possible ? PointState::ok : PointState::warning,
                            .plain = plainDuty(v),
                            .massFlow = v[var::Mbase]};
    if (v.isSet(var::CopEco)) performance.economized = economizedDuty(v);
    return performance;
}

Performance performanceAt(Calculator& calculator, const PreparedCompressor& compressor,
                          const clsProjectConditions& conditions) {
    try {
        return performanceOf(calculator.calculate(compressor, conditions));
    } catch (const FluidLibraryError&) {
        throw;
    } catch (const std::exception&) {
        return withError(failureName);
    }
}

std::span<const Figure> figures() { return allFigures; }

std::optional<double> valueOf(const Performance& performance, Figure figure) {
    if (!performance.hasValues()) return std::nullopt;
    const Performance::Duty& duty = performance.duty();
    switch (figure) {
        case Figure::capacity:
            return duty.capacity;
        case Figure::power:
            return duty.power;
        case Figure::cop:
            return duty.cop;
        case Figure::current:
            return duty.current;
        case Figure::massFlow:
            return performance.massFlow;
        case Figure::dischargeTemperature:
            return duty.dischargeTemperature;
    }
    return std::nullopt;
}

}  // namespace marvello
