#include "demo/duties/Duties.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>

#include "data/CollectedBoxes.h"
#include "data/Numbers.h"
#include "engine/clsSelections.h"

namespace marvello::duties {
namespace {

using generate::SeriesPlan;

std::vector<int> marketsOf(const SeriesPlan& plan) {
    return plan.serie == "DZ" ? std::vector{1, 2} : std::vector{0};
}

using Message = std::pair<std::string, std::string>;

Message message(const char* list, const char* number) {
    return {std::string("messages.message") + number, list};
}

/// An input of the form other than the temperatures.
struct Setting {
    std::string name;
    std::vector<Message> gives;  ///< what it is tried for; none: always tried
    std::function<void(clsProjectConditions&)> apply;
};

const std::vector<Setting>& settings() {
    using C = clsProjectConditions;
    static const std::vector<Setting> all{
        {"", {}, [](C&) {}},
        {"step 75",
         {message("error", "29"), message("information", "30"), message("error", "31")},
         [](C& c) { c.StepCapacity = 75; }},
        {"small motor", {message("error", "05")}, [](C& c) { c.MotorSize = MotorChoice::small; }},
        {"superheat 40 K", {message("error", "13")}, [](C& c) { c.SuperHeat = 40; }},
        {"superheat 20 K, oil cooling to 60 C",
         {message("attention", "07"), message("attention", "17")},
         [](C& c) {
             c.SuperHeat = 20;
             c.OilCoolingCalculateMode = OilCoolingMode::givenLimit;
             c.OilCooling = 60;
         }},
        {"subcooling 90 K", {message("error", "12")}, [](C& c) { c.SubCooling = 90; }},
        {"economizer 10 K",
         {message("error", "25")},
         [](C& c) { c.EcoCalculateMode = EconomizerMode::approach; }},
        {"economizer 60 K",
         {message("error", "25"), message("error", "26")},
         [](C& c) {
             c.EcoCalculateMode = EconomizerMode::approach;
             c.Eco = 60;
         }},
        {"economizer 5 kW",
         {message("error", "23")},
         [](C& c) {
             c.EcoCalculateMode = EconomizerMode::capacity;
             c.Eco = 5;
         }},
        {"economizer 5000 kW",
         {message("error", "24")},
         [](C& c) {
             c.EcoCalculateMode = EconomizerMode::capacity;
             c.Eco = 5000;
         }},
        {"75 Hz", {message("error", "35")}, [](C& c) { c.InverterFrequency = 75; }},
        {"70 Hz, economizer 10 K",
         {message("error", "37")},
         [](C& c) {
             c.InverterFrequency = 70;
             c.EcoCalculateMode = EconomizerMode::approach;
         }},
    };
    return all;
}

/// Points over the width and height of a plan and a little beyond.
std::vector<generate::Point> walk(const generate::RangePlan& range) {
    std::vector<generate::Point> points;
    constexpr double beyond = 4;
    constexpr int parts = 5;
    for (int i = 0; i <= parts; ++i) {
        for (int j = 0; j <= parts; ++j) {
            const double width = range.evaporatingTo - range.evaporatingFrom + 2 * beyond;
            const double height = range.condensingTo - range.condensingFrom + 2 * beyond;
            const auto toTenth = [](double value) { return std::nearbyint(10 * value) / 10; };
            points.push_back({toTenth(range.evaporatingFrom - beyond + width * i / parts),
                              toTenth(range.condensingFrom - beyond + height * j / parts)});
        }
    }
    return points;
}

}  // namespace

void runSeries(const SeriesPlan& plan, const clsProjectConditions& conditions,
               const std::function<void(const clsCompressor&)>& look) {
    const CollectedBoxes said;  // states beyond the refrigerant's range are told by messages as well
    for (const int market : marketsOf(plan)) {
        clsSelections selections;
        selections.Selection(std::make_shared<clsProjectConditions>(conditions), plan.serie, "*",
                             plan.refrigerant, static_cast<std::uint8_t>(market));
        for (const auto& compressor : selections) look(*compressor);
    }
}

std::vector<UsualRun> usualRuns(const std::vector<SeriesPlan>& plans, bool economized) {
    std::vector<UsualRun> found;
    for (const SeriesPlan& plan : plans) {
        if (economized && !plan.hasEconomizer()) continue;
        UsualRun one{plan.serie, plan.refrigerant, 0, 0, {}};
        clsProjectConditions conditions = conditionsAt(plan.range.typical.x, plan.range.typical.y);
        conditions.EcoCalculateMode = economized ? EconomizerMode::approach : EconomizerMode::none;
        runSeries(plan, conditions, [&one](const clsCompressor& compressor) {
            ++one.compressors;
            if (compressor.Messages.Error.Count() == 0) ++one.withoutError;
            for (const clsMessage& message : compressor.Messages.Error) {
                if (std::ranges::find(one.errors, message.Name) == one.errors.end())
                    one.errors.push_back(message.Name);
            }
        });
        found.push_back(std::move(one));
    }
    return found;
}

std::map<Message, Provocation> provocations(const std::vector<SeriesPlan>& plans) {
    std::map<Message, Provocation> found;
    const auto isSettled = [&found](const Setting& setting) {
        return !setting.gives.empty() &&
               std::ranges::all_of(setting.gives, [&](const Message& one) { return found.contains(one); });
    };
    const auto tryPoint = [&found](const SeriesPlan& plan, const Setting& setting,
                                   const generate::Point& point) {
        clsProjectConditions conditions = conditionsAt(point.x, point.y);
        setting.apply(conditions);
        const std::string duty = storedText(point.x) + "/" + storedText(point.y) + " C" +
                                 (setting.name.empty() ? "" : ", " + setting.name);
        runSeries(plan, conditions, [&](const clsCompressor& compressor) {
            const Provocation here{plan.serie, plan.refrigerant, compressor.Model, duty};
            const auto keep = [&](const clsMessages& messages, const char* list) {
                for (const clsMessage& one : messages) found.try_emplace({one.Name, list}, here);
            };
            keep(compressor.Messages.Error, "error");
            keep(compressor.Messages.Attention, "attention");
            keep(compressor.Messages.Information, "information");
        });
    };
    for (const SeriesPlan& plan : plans) {
        for (const Setting& setting : settings()) {
            for (const generate::Point& point : walk(plan.range)) {
                if (!isSettled(setting)) tryPoint(plan, setting, point);
            }
        }
    }
    return found;
}

const std::vector<Message>& messagesOfTheRules() {
    static const std::vector<Message> all = [] {
        std::vector<Message> messages;
        const auto add = [&messages](const char* list, const std::vector<const char*>& numbers) {
            for (const char* number : numbers) messages.push_back(message(list, number));
        };
        add("error",
            {"01", "02", "05", "12", "13", "23", "24", "25", "26", "29", "31", "32", "33", "35", "37"});
        add("attention", {"02", "03", "06", "07", "14", "15", "16", "17", "18", "20", "36"});
        add("information", {"04", "08", "09", "10", "19", "28", "30", "34", "35"});
        std::ranges::sort(messages);
        return messages;
    }();
    return all;
}

}  // namespace marvello::duties
