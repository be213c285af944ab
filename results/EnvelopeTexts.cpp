#include "results/EnvelopeTexts.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "data/DictionaryTexts.h"
#include "thermo/UnitSystem.h"

namespace marvello {

namespace {

struct LimitName {
    int type;
    const char* key;
};
constexpr std::array<LimitName, 9> limitNames{{{limitType::over, "frmselection.limits.over"},
                                               {limitType::application, "frmselection.limits.application"},
                                               {limitType::injection, "frmselection.limits.injection"},
                                               {limitType::oilCooling, "frmselection.limits.oilcooling"},
                                               {limitType::smallMotor, "frmselection.limits.smallmotor"},
                                               {limitType::oilFilter, "frmselection.limits.oilfilter"},
                                               {limitType::hOnly, "frmselection.limits.honly"},
                                               {limitType::hSuggested, "frmselection.limits.hsuggested"},
                                               {limitType::sSuggested, "frmselection.limits.ssuggested"}}};

}  // namespace

std::string nameOfLimit(const clsLimit& limit) {
    if (limit.LimitType == limitType::forbidden) return dictionaryText("frmselection.limits.forbidden");
    if (limit.Description.empty()) return dictionaryText("report.stepcapacity.caption") + ' ' + limit.Caption;
    const auto* const name = std::ranges::find(limitNames, limit.LimitType, &LimitName::type);
    const std::string text = name == limitNames.end() ? std::string() : dictionaryTextIfAny(name->key);
    return text.empty() ? limit.Description : text;
}

clsLimits namedLimits(const clsLimits& limits) {
    clsLimits result;
    for (const auto& limit : limits) {
        auto copy = std::make_shared<clsLimit>(*limit);
        if (!copy->Description.empty()) copy->Description = nameOfLimit(*limit);
        result.add(std::move(copy));
    }
    return result;
}

clsLimits inFahrenheit(const clsLimits& limits) {
    const auto converted = [](double value) {
        return convertedTemperature(value, UnitSystem::metric, UnitSystem::imperial);
    };
    clsLimits result;
    for (const auto& limit : limits) {
        auto copy = std::make_shared<clsLimit>(*limit);
        copy->Points = clsPoints();
        for (const clsPoint& point : limit->Points) copy->Points.add(converted(point.x), converted(point.Y));
        result.add(std::move(copy));
    }
    return result;
}

}  // namespace marvello
