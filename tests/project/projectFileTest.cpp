#include "project/ProjectFile.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace marvello {
namespace {

using Reason = ProjectFault::Reason;

/// Projects at random: texts of any letters, numbers of any size, everything there or not.
class RandomProject {
  public:
    explicit RandomProject(unsigned seed) : random_(seed) {}

    Project project() {
        Project project{.program = text(),
                        .details = {text(), text(), text(), text(), text(), text(), text()}};
        fill(project.items, [&] { return item(); });
        return project;
    }

  private:
    bool maybe() { return random_() % 2 == 0; }
    int whole(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    std::string text() {
        constexpr std::array<const char*, 8> pieces{"R134A",  "Ü\"\\",  "冷库",   "\n",
                                                    "\t 1/2", "\u2028", "{}[],:", "\x01 \x7f"};
        std::string text;
        for (int i = whole(4); i > 0; --i) text += pieces[random_() % pieces.size()];
        return text;
    }
    double number() {
        const double mantissa = std::uniform_real_distribution<double>(-10, 10)(random_);
        return maybe() ? mantissa : std::ldexp(mantissa, whole(60) - 30);
    }
    template <class List, class Make>
    void fill(List& list, Make make) {
        for (int i = whole(4); i > 0; --i) list.push_back(make());
    }
    CompressorName name() { return {text(), text(), text()}; }
    clsProjectConditions conditions() {
        return {.TEvaporatingDew = number(),
                .TCondensationDew = number(),
                .SubCooling = number(),
                .SuperHeat = number(),
                .StepCapacity = whole(101),
                .SuperHeatType = static_cast<SuperheatKind>(whole(3)),
                .MotorSize = static_cast<MotorChoice>(whole(3) - 1),
                .MotorVoltage = number(),
                .MotorHz = whole(61),
                .MotorRPM = whole(5000),
                .Eco = number(),
                .EcoCalculateMode = static_cast<EconomizerMode>(whole(4)),
                .OilCooling = number(),
                .OilCoolingCalculateMode = static_cast<OilCoolingMode>(whole(3)),
                .InverterFrequency = static_cast<float>(number())};
    }
    SavedSelection selection() {
        SavedSelection saved{.form = static_cast<FormKind>(whole(3))};
        saved.inputs.units = static_cast<UnitSystem>(whole(2));
        for (int i = whole(4); i > 0; --i) saved.inputs.keys[text()] = text();
        for (int i = whole(4); i > 0; --i) saved.inputs.values[text()] = number();
        for (const Input input : {Input::condensingMid, Input::condensingPressure, Input::evaporatingMid})
            if (maybe()) saved.inputs.leaders.typed(input);
        for (int i = whole(4); i > 0; --i) saved.list.widths[text()] = whole(2000);
        fill(saved.list.switched, [&] { return text(); });
        if (maybe()) saved.list.sortedBy = "COP";
        saved.list.isDescending = maybe();
        fill(saved.list.filters, [&] { return text(); });
        saved.list.page = text();
        saved.list.map = text();
        fill(saved.chosen, [&] { return name(); });
        return saved;
    }
    SavedComparison comparison() {
        SavedComparison saved;
        fill(saved.choices, [&] { return ComparedChoice{text(), text(), text(), conditions(), whole(5)}; });
        saved.isAtSamePoint = maybe();
        if (maybe()) saved.reference = static_cast<std::size_t>(whole(4));
        saved.axis = static_cast<CurveAxis>(whole(2));
        saved.units = static_cast<UnitSystem>(whole(2));
        return saved;
    }
    PromisedResult result() {
        PromisedResult result{.compressor = name(), .conditions = conditions()};
        for (int i = whole(5); i > 0; --i) result.values[text()] = number();
        fill(result.messages, [&] { return PromisedMessage{static_cast<Severity>(whole(3)), text()}; });
        for (int i = whole(6); i > 0; --i) result.fingerprints[static_cast<CataloguePart>(whole(6))] = text();
        return result;
    }
    ProjectItem item() {
        ProjectItem item{.title = text()};
        if (maybe())
            item.content = selection();
        else
            item.content = comparison();
        if (maybe()) {
            item.promise.emplace(Promise{.date = text(), .basis = {text(), text()}});
            fill(item.promise->results, [&] { return result(); });
        }
        return item;
    }

    std::mt19937 random_;
};

TEST(ProjectFile, AThousandProjectsReadBackAsTheyWere) {
    for (unsigned seed = 0; seed < 1000; ++seed) {
        const Project project = RandomProject(seed).project();
        const std::string text = projectText(project);
        const Project read = projectIn(text);
        ASSERT_EQ(read, project) << seed << text;
        ASSERT_EQ(projectText(read), text) << seed;
    }
}

TEST(ProjectFile, IsReadableAndFitForComparingVersions) {
    Project project{.program = "1.2.0",
                    .details = {.name = "Northgate", .remarks = "Two chillers\nfor the dock"}};
    SavedSelection selection;
    selection.inputs.keys["lstSeries"] = "TK-A";
    selection.inputs.values["txtTED"] = 2.5;
    selection.inputs.leaders.typed(Input::condensingMid);
    project.items.push_back({.title = "Dock", .content = selection});
    // Written by hand.
    const std::string text = R"({
  "format": "marvello project",
  "version": 1,
  "program": "1.2.0",
  "details": {
    "name": "Northgate",
    "remarks": "Two chillers\nfor the dock"
  },
  "items": [
    {
      "title": "Dock",
      "selection": {
        "form": "selection",
        "inputs": {
          "units": "metric",
          "choices": {
            "lstSeries": "TK-A"
          },
          "numbers": {
            "txtTED": 2.5
          },
          "leading": [
            "ted",
            "tcm"
          ]
        },
        "list": {
          "descending": false
        }
      }
    }
  ]
}
)";
    EXPECT_EQ(projectText(project), text);
    EXPECT_EQ(projectIn("\xEF\xBB\xBF" + text), project);
    EXPECT_EQ(projectIn(R"({"version":1,"format":"marvello project"})"), Project());
}

TEST(ProjectFile, RefusesWithThePlace) {
    const std::string begin = R"({"format":"marvello project","version":1,)";
    const std::string dock = begin + R"("items":[{"selection":{}},)";
    for (const auto& [text, reason, place] :
         {std::tuple{std::string(), Reason::notJson, "1"},
          {std::string("PK\x03\x04\xff"), Reason::notJson, "1"},
          {begin + "\n\"details\": {\"name\": }}", Reason::notJson, "2"},
          {begin + "\n\"details\": {\"name\": \"cut", Reason::notJson, "2"},
          {std::string("[]"), Reason::notProject, ""},
          {std::string(R"({"format":"picture","version":1})"), Reason::notProject, ""},
          {std::string(R"({"format":"marvello project","version":2,"colour":1})"), Reason::newerVersion, ""},
          {std::string(R"({"format":"marvello project"})"), Reason::outOfRange, "version"},
          {std::string(R"({"format":"marvello project","version":"1"})"), Reason::wrongKind, "version"},
          {begin + R"("details":7})", Reason::wrongKind, "details"},
          {begin + R"("details":{"name":["a"]}})", Reason::wrongKind, "details.name"},
          {begin + R"("details":{"colour":"red"}})", Reason::unknownName, "details.colour"},
          {begin + R"("details":{"name":"a","name":"b"}})", Reason::repeatedName, "details.name"},
          {dock + R"({"selection":{"list":{"widths":{"Q0":1.5}}}}]})", Reason::wrongKind,
           "items[2].selection.list.widths.Q0"},
          {dock + R"({"selection":{"inputs":{"units":"stones"}}}]})", Reason::outOfRange,
           "items[2].selection.inputs.units"},
          {dock + R"({"selection":{},"comparison":{}}]})", Reason::wrongKind, "items[2]"},
          {dock + R"({"title":"nothing"}]})", Reason::wrongKind, "items[2]"},
          {dock + R"({"comparison":{"reference":-1}}]})", Reason::outOfRange,
           "items[2].comparison.reference"},
          {dock + R"({"selection":{"inputs":{"numbers":{"txtTED":1e300}}}}]})", Reason::outOfRange,
           "items[2].selection.inputs.numbers.txtTED"},
          {dock + R"({"selection":{"inputs":{"numbers":{"txtTED":1e999}}}}]})", Reason::outOfRange,
           "a number"},
          {dock + R"({"selection":{"a":1,"a":2}}]})", Reason::repeatedName, "items[2].selection.a"},
          {begin + "\"items\":" + std::string(1000, '['), Reason::tooDeep, nullptr},
          {std::string(maxProjectBytes + 1, ' '), Reason::tooLarge, ""}}) {
        try {
            projectIn(text);
            ADD_FAILURE() << "taken: " << text.substr(0, 100);
        } catch (const ProjectFault& fault) {
            EXPECT_EQ(fault.reason, reason) << fault.what();
            EXPECT_TRUE(place == nullptr || fault.place == place) << fault.what();
            EXPECT_EQ(std::string(fault.what()).back(), '.') << fault.what();
        }
    }
}

// Whatever happened to a file: it opens as a project, or is refused.
TEST(ProjectFile, AnyDamageIsRefusedOrRead) {
    const std::string text = projectText(RandomProject(7).project());
    std::mt19937 random(42);
    for (int i = 0; i < 3000; ++i) {
        std::string damaged = text;
        for (int n = 1 + static_cast<int>(random() % 3); n > 0; --n) {
            const std::size_t at = random() % damaged.size();
            switch (random() % 3) {
                case 0:
                    damaged[at] = static_cast<char>(random());
                    break;
                case 1:
                    damaged.erase(at, 1 + random() % 40);
                    break;
                default:
                    damaged.insert(at, damaged.substr(random() % damaged.size(), random() % 60));
            }
            if (damaged.empty()) damaged = " ";
        }
        try {
            const Project read = projectIn(damaged);
            EXPECT_EQ(projectIn(projectText(read)), read);
        } catch (const ProjectFault&) {
            // Refused.
        }
    }
}

}  // namespace
}  // namespace marvello
