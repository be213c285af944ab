#include "tools/select/PerformanceJson.h"

#include <nlohmann/json.hpp>

namespace marvello::select {

std::string performanceJson(std::span<const PerformanceRow> rows,
                            std::span<const PerformanceColumn> figures) {
    std::string text;
    for (const PerformanceRow& row : rows) {
        nlohmann::ordered_json object{
            {"ted", row.ted}, {"tcd", row.tcd}, {"state", nameOf(row.performance.state)}};
        for (const PerformanceColumn& column : figures) {
            const auto value = column.value(row.performance);
            object[std::string(column.name)] = value ? nlohmann::ordered_json(*value) : nullptr;
        }
        text += (text.empty() ? "[" : ",\n ") + object.dump();
    }
    return text.empty() ? "[]\n" : text + "]\n";
}

}  // namespace marvello::select
