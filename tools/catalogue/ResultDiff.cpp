#include "tools/catalogue/ResultDiff.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <utility>

#include "catalogue/FirstConditions.h"
#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "data/Texts.h"
#include "data/clsApplication.h"
#include "engine/Calculator.h"
#include "engine/Margins.h"
#include "engine/Performance.h"
#include "platform/Files.h"
#include "tools/catalogue/ChangeReasons.h"
#include "tools/catalogue/UsualPoints.h"

namespace marvello {

namespace {

namespace fs = std::filesystem;

/// A content as a catalogue file that the engine can read, for as long as this lives.
class TemporaryCatalogue {
  public:
    explicit TemporaryCatalogue(const Content& content) { writeCatalogue(content, file()); }

    fs::path file() const { return folder_.path / "db.mdb"; }

  private:
    /// Goes also if the catalogue cannot be written.
    struct Folder {
        Folder() = default;
        ~Folder() {
            std::error_code ignored;
            fs::remove(path / "db.mdb", ignored);
            fs::remove(path, ignored);
        }
        Folder(const Folder&) = delete;
        Folder& operator=(const Folder&) = delete;

        const fs::path path = makeFreshFolder(fs::temp_directory_path() / "marvello-diff-");
    };
    Folder folder_;
};

struct NamedFigure {
    std::string figure;
    std::string unit;
    double value;
};

/// What a compressor comes to at an operating point.
struct Result {
    std::string state;
    std::vector<NamedFigure> figures;
    std::vector<NamedMessage> messages;

    std::optional<double> value(const std::string& figure) const {
        const auto found = std::ranges::find(figures, figure, &NamedFigure::figure);
        return found == figures.end() ? std::nullopt : std::optional(found->value);
    }
};

void addFigures(const clsCompressor& calculated, std::vector<NamedFigure>& figures) {
    struct Shown {
        Figure figure;
        const char* name;
        const char* unit;
    };
    static constexpr std::array shown{Shown{Figure::capacity, "capacity", "kW"},
                                      Shown{Figure::power, "power input", "kW"},
                                      Shown{Figure::cop, "COP", ""},
                                      Shown{Figure::current, "current", "A"},
                                      Shown{Figure::massFlow, "mass flow", "kg/h"},
                                      Shown{Figure::dischargeTemperature, "discharge temperature", "°C"}};
    const Performance performance = performanceOf(calculated);
    for (const Shown& each : shown)
        if (const auto value = valueOf(performance, each.figure))
            figures.push_back({each.name, each.unit, *value});
    if (!performance.hasValues()) return;
    for (const auto& [variable, name] : {std::pair{var::Fla, "full-load current"},
                                         {var::Lra1, "locked-rotor current, first stage"},
                                         {var::Lra2, "locked-rotor current, second stage"}})
        if (calculated.Variables.isSet(variable))
            figures.push_back({name, "A", calculated.Variables[variable]});
}

/// The areas of the lines; of several lines of a type their sum.
void addAreas(const clsLimits& limits, std::vector<NamedFigure>& figures) {
    std::map<int, double> areas;
    for (const auto& limit : limits) areas[limit->LimitType] += areaOf(limit->Points);
    for (const auto& [type, area] : areas)
        figures.push_back({type == limitType::application
                               ? "envelope area"
                               : "area of the limit " + std::string(limitName(type)),
                           "K²", area});
}

std::string textOf(const clsMessage& message) try {
    return message.Description();
} catch (const std::exception&) {
    return {};  // a key without a text
}

std::vector<NamedMessage> messagesOf(const clsCompressor& calculated) {
    std::vector<NamedMessage> messages;
    const auto add = [&](const clsMessages& list, const char* severity) {
        for (const clsMessage& message : list) messages.push_back({severity, message.Name, textOf(message)});
    };
    add(calculated.Messages.Error, "error");
    add(calculated.Messages.Attention, "attention");
    add(calculated.Messages.Information, "information");
    return messages;
}

Result resultOf(Calculator& calculator, const PreparedCompressor& compressor,
                const clsProjectConditions& conditions) try {
    const clsCompressor& calculated = calculator.calculate(compressor, conditions);
    Result result{std::string(nameOf(performanceOf(calculated).state)), {}, messagesOf(calculated)};
    addFigures(calculated, result.figures);
    addAreas(calculated.limits, result.figures);
    return result;
} catch (const FluidLibraryError&) {
    throw;
} catch (const std::exception& failure) {
    return {"error", {}, {{"error", "failure", failure.what()}}};
}

/// A compressor of either catalogue, by what tells it from all others.
struct Identity {
    std::string refrigerant, serie, model;
    bool economized = false;

    auto operator<=>(const Identity&) const = default;
};

/// One catalogue, calculated.
struct Side {
    std::shared_ptr<const PreparedCatalogue> catalogue;
    std::map<Identity, std::pair<const PreparedCompressor*, Result>> results;
};

Identity identityOf(const PreparedCompressor& compressor, bool economized) {
    return {lowered(compressor.Refrigerant), lowered(compressor.Serie), lowered(compressor.Model),
            economized};
}

clsProjectConditions conditionsOf(const clsPoint& point, bool economized) {
    clsProjectConditions conditions = conditionsAt(point.x, point.Y);
    conditions.EcoCalculateMode = economized ? EconomizerMode::approach : EconomizerMode::none;
    return conditions;
}

/// The session of a catalogue, current while this lives.
struct OpenCatalogue {
    explicit OpenCatalogue(const fs::path& file) : session(Session::current().applicationFolder) {
        openCatalogue("Data Source=" + file.string());
        gApplication().populateDictionary(defaultLanguage, defaultLanguage);
        prepared = preparedCatalogue(gDatabase());
    }
    Session session;
    std::shared_ptr<const PreparedCatalogue> prepared;
};

/// Whether the change is more than what the order of calculations can do to a result.
bool isAnother(std::optional<double> before, std::optional<double> after) {
    constexpr double hair = 1e-9;
    if (!before || !after) return before.has_value() != after.has_value();
    return std::abs(*before - *after) > hair * std::max(std::abs(*before), std::abs(*after));
}

std::vector<NamedMessage> without(const std::vector<NamedMessage>& all,
                                  const std::vector<NamedMessage>& others) {
    std::vector<NamedMessage> rest;
    for (const NamedMessage& message : all)
        if (std::ranges::none_of(others, [&](const NamedMessage& other) { return other.isSame(message); }))
            rest.push_back(message);
    return rest;
}

std::vector<FigureChange> figureChanges(const Result& before, const Result& after) {
    std::vector<FigureChange> changes;
    std::set<std::string> seen;
    for (const Result* side : {&before, &after})
        for (const NamedFigure& figure : side->figures) {
            if (!seen.insert(figure.figure).second) continue;
            const auto from = before.value(figure.figure);
            const auto to = after.value(figure.figure);
            if (isAnother(from, to)) changes.push_back({figure.figure, figure.unit, from, to});
        }
    return changes;
}

class ResultComparison {
  public:
    ResultComparison(const CatalogueDiff& rows, const DiffProgress& progress)
        : reasons_(rows), progress_(progress) {}

    ResultDiff run(const Content& before, const Content& after) {
        const TemporaryCatalogue fileBefore(before);
        const TemporaryCatalogue fileAfter(after);
        before_.catalogue = OpenCatalogue(fileBefore.file()).prepared;
        after_.catalogue = OpenCatalogue(fileAfter.file()).prepared;
        points_ = usualPoints(*before_.catalogue);
        points_.merge(usualPoints(*after_.catalogue));
        all_ = countOf(before_) + countOf(after_);
        calculate(before_, fileBefore.file());
        calculate(after_, fileAfter.file());
        for (const Side* side : {&before_, &after_})
            for (const PreparedCompressor& compressor : side->catalogue->compressors())
                for (const bool economized : {false, true}) compare(identityOf(compressor, economized));
        diff_.calculations = done_;
        return std::move(diff_);
    }

  private:
    static std::size_t countOf(const Side& side) {
        std::size_t count = 0;
        for (const PreparedCompressor& compressor : side.catalogue->compressors())
            count += hasEconomizer(compressor) ? 2 : 1;
        return count;
    }

    void calculate(Side& side, const fs::path& file) {
        const OpenCatalogue open(file);
        const CollectedBoxes said;  // a state beyond the range of a refrigerant is a message as well
        Calculator calculator;
        for (const PreparedCompressor& compressor : side.catalogue->compressors())
            for (const bool economized : {false, true}) {
                if (economized && !hasEconomizer(compressor)) continue;
                const clsPoint& point = points_.at(seriesChoiceOf(compressor, economized));
                side.results[identityOf(compressor, economized)] = {
                    &compressor, resultOf(calculator, compressor, conditionsOf(point, economized))};
                ++done_;
                if (progress_) progress_(done_, all_);
            }
    }

    void compare(const Identity& identity) {
        if (!compared_.insert(identity).second) return;
        const auto before = before_.results.find(identity);
        const auto after = after_.results.find(identity);
        const bool was = before != before_.results.end();
        const bool is = after != after_.results.end();
        if (!was && !is) return;
        const PreparedCompressor& compressor = is ? *after->second.first : *before->second.first;
        static const Result none;
        const Result& from = was ? before->second.second : none;
        const Result& to = is ? after->second.second : none;
        ResultChange change{.kind = was && is ? ChangeKind::changed
                                    : is      ? ChangeKind::added
                                              : ChangeKind::removed,
                            .refrigerant = compressor.Refrigerant,
                            .serie = compressor.Serie,
                            .model = compressor.Model,
                            .economized = identity.economized,
                            .point = points_.at(seriesChoiceOf(compressor, identity.economized)),
                            .stateBefore = from.state,
                            .stateAfter = to.state};
        change.figures = figureChanges(from, to);
        change.lost = without(from.messages, to.messages);
        change.gained = without(to.messages, from.messages);
        const bool isSame =
            change.figures.empty() && change.lost.empty() && change.gained.empty() && from.state == to.state;
        if (isSame) return;
        std::set<std::size_t> reasons;
        for (const auto* side : {was ? before->second.first : nullptr, is ? after->second.first : nullptr})
            if (side)
                for (const std::size_t row : reasons_.of(*side, identity.economized)) reasons.insert(row);
        change.reasons.assign(reasons.begin(), reasons.end());
        diff_.changes.push_back(std::move(change));
    }

    const ChangeReasons reasons_;
    const DiffProgress& progress_;
    Side before_, after_;
    UsualPoints points_;
    std::size_t all_ = 0;
    std::size_t done_ = 0;
    std::set<Identity> compared_;
    ResultDiff diff_;
};

}  // namespace

std::optional<double> FigureChange::percent() const {
    if (!before || !after || *before == 0) return std::nullopt;
    return (*after - *before) / std::abs(*before) * 100;
}

ResultDiff compareResults(const Content& before, const Content& after, const CatalogueDiff& rows,
                          const DiffProgress& progress) {
    return ResultComparison(rows, progress).run(before, after);
}

}  // namespace marvello
