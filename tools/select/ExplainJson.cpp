#include "tools/select/ExplainJson.h"

#include <nlohmann/json.hpp>

#include "data/Numbers.h"
#include "tools/select/MessagesJson.h"

namespace marvello::select {

namespace {

using Json = nlohmann::ordered_json;
using Entry = Trace::Entry;

const Formula::Style exact{" * ", "-", [](double value) { return storedText(value); }};

Json testOf(const Entry& entry) {
    Json test;
    test["test"] = entry.formula ? entry.formula->withNames(exact) : entry.text;
    if (entry.formula) test["numbers"] = entry.formula->withNumbers(exact);
    test["outcome"] = entry.outcome;
    return test;
}

Json stepOf(const Entry& entry) {
    if (entry.kind == Entry::Kind::test) return testOf(entry);
    const VariableDefinition& definition = definitionOf(entry.variable);
    Json step{{"stage", nameOf(definition.stage)},
              {"symbol", definition.name},
              {"meaning", definition.meaning},
              {"unit", definition.unit}};
    if (!entry.formula) {
        step["result"] = entry.text;
        return step;
    }
    step["formula"] = entry.formula->withNames(exact);
    step["numbers"] = entry.formula->withNumbers(exact);
    step["result"] = entry.formula->value();
    if (entry.times > 1) step["times"] = entry.times;
    return step;
}

}  // namespace

std::string explanationJson(const Explanation& explanation) {
    const clsCompressor& compressor = *explanation.compressor;
    Json steps = Json::array();
    Json rules = Json::array();
    for (const Entry& entry : explanation.trace.entries()) {
        if (entry.rule == 0) {
            steps.push_back(stepOf(entry));
            continue;
        }
        if (rules.empty() || rules.back()["rule"] != entry.rule)
            rules.push_back({{"rule", entry.rule}, {"tests", Json::array()}, {"messages", Json::array()}});
        if (entry.kind == Entry::Kind::message)
            rules.back()["messages"].push_back({{"severity", wordOf(entry.severity)}, {"name", entry.text}});
        else
            rules.back()["tests"].push_back(testOf(entry));
    }
    const Json all{{"refrigerant", compressor.Refrigerant},
                   {"series", compressor.Serie},
                   {"model", compressor.Model},
                   {"steps", std::move(steps)},
                   {"rules", std::move(rules)},
                   {"messages", messagesJson(allMessagesOf(compressor))}};
    return all.dump(2) + '\n';
}

}  // namespace marvello::select
