#include "tools/select/CompareQuestion.h"

#include <algorithm>
#include <array>
#include <utility>

#include "catalogue/SearchRange.h"
#include "data/Texts.h"
#include "tools/select/Run.h"

namespace marvello::select {

namespace {

constexpr std::string_view machinesName = "machines";

const RequestOption& optionOf(const std::string& name) {
    const auto options = requestOptions();
    const auto found = std::ranges::find_if(
        options, [&](const RequestOption& option) { return equalIgnoringCase(option.name, name); });
    if (found != options.end()) return *found;
    std::vector<std::string> names{std::string(machinesName)};
    for (const RequestOption& option : options) names.emplace_back(option.name);
    throw BadRequest(notOneOf("name", name, names));
}

/// A choice with the request that names its compressor.
struct Asked {
    Request request;
    int machines = 1;
};

Asked askedIn(const std::string& text, const Request& common, const Choices& choices) {
    Asked asked{common};
    for (const std::string& pair : splitText(text, ',')) {
        const auto equals = pair.find('=');
        if (equals == std::string::npos)
            throw BadRequest("\"" + pair + "\" is not a name and a value such as models=255");
        const std::string name = trimmed(std::string_view(pair).substr(0, equals));
        const std::string value = trimmed(std::string_view(pair).substr(equals + 1));
        if (equalIgnoringCase(name, machinesName)) try {
                asked.machines = static_cast<int>(wholeNumberIn(value, 1, searchRange::maxMachines));
            } catch (const BadRequest& fault) {
                throw BadRequest(std::string(machinesName) + ": " + fault.what());
            }
        else
            readOption(asked.request, optionOf(name), value, choices);
    }
    return asked;
}

ComparedChoice choiceIn(const std::string& text, const CompareQuestion& question,
                        const PreparedCatalogue& catalogue, const Choices& choices) {
    Asked asked = askedIn(text, question.common, choices);
    const PreparedCompressor& compressor = oneCompressor(asked.request, catalogue);
    checkTemperatures(asked.request, saturationRange(asked.request.refrigerant));
    return {compressor.Refrigerant, compressor.Serie, compressor.Model, asked.request.conditions,
            asked.machines};
}

}  // namespace

std::optional<std::size_t> referenceIn(const std::string& text, std::size_t choices) try {
    const auto number = wholeNumberIn(text, 0, static_cast<long long>(choices));
    return number == 0 ? std::nullopt : std::optional(static_cast<std::size_t>(number) - 1);
} catch (const BadRequest& fault) {
    throw BadRequest("reference: " + std::string(fault.what()) +
                     "; it is the number of a choice, 0 for none");
}

CompareFormat compareFormatOf(const std::string& word) {
    constexpr std::array formats{std::pair{"table", CompareFormat::table},
                                 std::pair{"csv", CompareFormat::csv},
                                 std::pair{"json", CompareFormat::json}};
    std::vector<std::string> names;
    for (const auto& [name, format] : formats) {
        if (equalIgnoringCase(trimmed(word), name)) return format;
        names.emplace_back(name);
    }
    throw BadRequest(notOneOf("format", word, names));
}

std::vector<ComparedChoice> choicesOf(const CompareQuestion& question, const PreparedCatalogue& catalogue,
                                      const Choices& choices) {
    const std::size_t count = question.choices.size();
    if (count < 2 || count > maxCompared)
        throw BadRequest("choice: 2 to " + std::to_string(maxCompared) +
                         " compressors can be compared, not " + std::to_string(count));
    std::vector<ComparedChoice> compared;
    for (const std::string& text : question.choices) {
        const std::string number = "choice " + std::to_string(compared.size() + 1) + ": ";
        try {
            compared.push_back(choiceIn(text, question, catalogue, choices));
        } catch (const BadRequest& fault) {
            throw BadRequest(number + fault.what());
        } catch (const NothingMatches& fault) {
            throw NothingMatches(number + fault.what());
        }
    }
    return compared;
}

}  // namespace marvello::select
