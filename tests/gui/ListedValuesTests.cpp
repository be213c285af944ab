// What the list of a form shows, against what the program without a window says of the same operating point.

#include <gtest/gtest.h>

#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <cmath>
#include <nlohmann/json.hpp>
#include <string>
#include <tuple>
#include <vector>

#include "controls/Marks.h"
#include "controls/ResultsView.h"
#include "tests/gui/RealWindow.h"
#include "tests/support/Controls.h"
#include "tests/support/Person.h"
#include "tests/tools/CallProgram.h"
#include "workspace/SelectionForm.h"

using namespace marvello;
using marvello::testing::field;
using marvello::testing::Person;
using marvello::testing::saveAs;
using marvello::testing::type;
using nlohmann::json;

namespace {

/// A number typed into a field, in both systems of units, and the option that says the same.
struct Typed {
    const char* field;
    const char* metric;
    const char* imperial;
    const char* option;
};
/// A chosen key and what says the same.
struct Chosen {
    const char* field;
    const char* key;
    const char* arguments;
};
struct Duty {
    const char* name;
    const char* refrigerant;
    const char* series;
    bool hasInverter;
    std::vector<Chosen> chosen;
    std::vector<Typed> typed;
};

const Typed evaporating2{"txtTED", "2", "35.6", "--ted"};
const Typed condensing40{"txtTCD", "40", "104", "--tcd"};

// Temperatures (F - 32) / 1.8; differences, and the economizer in every mode, F / 1.8.
// clang-format off
const std::vector<Duty> duties{
    {"plain", "R134A", "TK-A", false, {}, {evaporating2, condensing40}},
    {"approach", "R134A", "MV-A", false, {{"cmbEco", "1", "--eco-mode 1"}},
     {{"txtTED", "-10", "14", "--ted"}, {"txtTCD", "45", "113", "--tcd"}, {"txtEco", "5", "9", "--eco"}}},
    {"power", "R134A", "TK-A", false, {{"cmbEco", "2", "--eco-mode 2"}},
     {{"txtTED", "-5", "23", "--ted"}, {"txtTCD", "50", "122", "--tcd"}, {"txtEco", "100", "180", "--eco"}}},
    {"cooled", "R22", "TK-A", false, {{"cmbOilCooling", "2", "--oc-mode 2"}},
     {{"txtTED", "-15", "5", "--ted"}, {"txtTCD", "50", "122", "--tcd"}, {"txtOilCooling", "80", "176", "--oc"}}},
    {"glide", "R407C", "MV-A", false, {},
     {{"txtTED", "5", "41", "--ted"}, {"txtTCD", "45", "113", "--tcd"}, {"txtSC", "10", "18", "--sc"}}},
    {"propane", "R290", "TK-A", false, {},
     {{"txtTED", "0", "32", "--ted"}, {"txtTCD", "45", "113", "--tcd"}, {"txtSH", "30", "54", "--sh"}}},
    {"suction", "R134A", "TK-E", false, {{"cmbSh", "1", "--sh-type 1"}},
     {{"txtTED", "0", "32", "--ted"}, condensing40, {"txtSH", "15", "59", "--sh"}}},
    {"sixty hertz", "R404A", "MV-A", false, {{"cmbMotorVoltage", "460_60", "--voltage 460 --hz 60"}},
     {{"txtTED", "-20", "-4", "--ted"}, {"txtTCD", "35", "95", "--tcd"}}},
    // On the line of a limit.
    {"three quarters", "R134A", "TK-A", false, {{"cmbStepCapacity", "75", "--step 75"}},
     {evaporating2, {"txtTCD", "50", "122", "--tcd"}}},
    {"inverter", "R134A", "TK-B", true, {},
     {evaporating2, condensing40, {"txtFrequency", "60", "60", "--frequency"}}},
};
// clang-format on

/// How a column is read from the values of a compressor: the variable, what is added to it, its imperial
/// value and its digits.
struct Rule {
    const char* variable;
    const char* added;
    double (*imperial)(double);
    int digits;
    bool needsPort;
};

double same(double value) { return value; }
double tons(double kilowatts) { return kilowatts / 3.517; }
double pounds(double kilograms) { return kilograms / 0.45359237; }
double fahrenheit(double celsius) { return celsius * 1.8 + 32; }
double btu(double kilowatts) { return std::round(tons(kilowatts) * 10) / 10 * 12000; }

const std::map<QString, Rule> rules{
    {"Q0", {"Q0", nullptr, tons, 1, false}},           {"Q0Btu", {"Q0", nullptr, btu, 0, false}},
    {"Qeco", {"Q0", "qeco", tons, 1, true}},           {"QecoBtu", {"Q0", "qeco", btu, 0, true}},
    {"Pta", {"Pta", nullptr, same, 1, false}},         {"PtaEco", {"PtaEco", nullptr, same, 1, true}},
    {"COP", {"COP", nullptr, same, 2, false}},         {"CopEco", {"CopEco", nullptr, same, 2, true}},
    {"EER", {"EER", nullptr, same, 3, false}},         {"CA", {"CA", nullptr, same, 1, false}},
    {"CAECO", {"CAEco", nullptr, same, 1, true}},      {"meco", {"meco", nullptr, pounds, 1, true}},
    {"@Lra1", {"Lra1", nullptr, same, 1, false}},      {"@Lra2", {"Lra2", nullptr, same, 1, false}},
    {"Tsca", {"Tsca", nullptr, fahrenheit, 1, false}}, {"Pra", {"Pra", nullptr, tons, 1, false}},
    {"mBase", {"Mbase", nullptr, pounds, 1, false}},   {"Qc", {"Qc", nullptr, tons, 1, false}},
    {"T21", {"T21", nullptr, fahrenheit, 1, false}},
};

bool isSame(const std::string& left, const std::string& right) {
    return QString::fromStdString(left).compare(QString::fromStdString(right), Qt::CaseInsensitive) == 0;
}

json variableOf(const json& compressor, const std::string& name) {
    for (const json& variable : compressor["variables"])
        if (isSame(variable["name"], name)) return variable["value"];
    ADD_FAILURE() << "no " << name;
    return 0;
}

/// The text that a cell has to show.
std::string cellOf(const json& compressor, const QString& key, bool isImperial) {
    const auto shown = [](double value, int digits) {
        return value == 0 ? std::string("-") : QLocale::c().toString(value, 'f', digits).toStdString();
    };
    if (key == u"@Fla") return shown(compressor["fla"], 1);
    const auto number = [&](const char* name) { return variableOf(compressor, name).get<double>(); };
    if (key == u"ikw/ton") return shown(number("Pta") / tons(number("Q0")), 3);
    const auto rule = rules.find(key);
    if (rule == rules.end()) return "column " + key.toStdString() + " has no rule here";
    const json& port = compressor["economizer"];
    if (rule->second.needsPort &&
        port["KForo"].get<double>() + port["KPerdita"].get<double>() + port["Sez"].get<double>() == 0)
        return "-";
    const json value = variableOf(compressor, rule->second.variable);
    if (value.is_string()) return value;
    const double sum = value.get<double>() + (rule->second.added ? number(rule->second.added) : 0);
    const std::string text = shown(isImperial ? rule->second.imperial(sum) : sum, rule->second.digits);
    return key == u"Pra" && text == "-" ? "0" : text;
}

class ListedDuty : public ::testing::Test, public marvello::testing::RealWindow {
  protected:
    ListedDuty() : RealWindow("en-EN") {}

    SelectionForm* calculated(const Duty& duty, bool isImperial) {
        SelectionForm* form = duty.hasInverter ? window->newInverterSelection() : window->newSelection();
        fill(*form, duty, isImperial);
        form->lnkCalculate_Click();
        return form;
    }

    void fill(SelectionForm& form, const Duty& duty, bool isImperial) {
        form.MeasureUnits(isImperial ? 1 : 0, true);
        field(form, "lstRefrigerants")->SetKey(duty.refrigerant);
        field(form, "lstSeries")->SetKey(duty.series);
        for (const Chosen& choice : duty.chosen) field(form, choice.field)->SetKey(choice.key);
        for (const Typed& input : duty.typed)
            type(form, input.field, isImperial ? input.imperial : input.metric);
    }

    static std::string askWithoutWindow(const Duty& duty, const std::string& format) {
        std::string arguments =
            "--format " + format + " --refrigerant " + duty.refrigerant + " --series '" + duty.series + "'";
        if (duty.hasInverter) arguments += " --inverter";
        for (const Chosen& choice : duty.chosen) arguments += std::string(" ") + choice.arguments;
        for (const Typed& input : duty.typed)
            arguments += std::string(" ") + input.option + "=" + input.metric;
        const marvello::testing::Answer answer = marvello::testing::callProgram("marvello-select", arguments);
        EXPECT_EQ(answer.status, 0) << arguments;
        return answer.out;
    }
};

class ListedValuesTest : public ListedDuty, public ::testing::WithParamInterface<std::tuple<int, bool>> {};
class ExportedListTest : public ListedDuty, public ::testing::WithParamInterface<int> {};

constexpr auto everyDuty = [] { return ::testing::Range(0, static_cast<int>(duties.size())); };

}  // namespace

INSTANTIATE_TEST_SUITE_P(Duties, ListedValuesTest, ::testing::Combine(everyDuty(), ::testing::Bool()));
INSTANTIATE_TEST_SUITE_P(Duties, ExportedListTest, everyDuty());

TEST_P(ListedValuesTest, AreThoseOfTheProgramWithoutWindow) {
    const auto [index, isImperial] = GetParam();
    const Duty& duty = duties[static_cast<std::size_t>(index)];
    SCOPED_TRACE(duty.name);
    const SelectionForm* form = calculated(duty, isImperial);
    ASSERT_TRUE(boxes.isEmpty()) << boxes.join("|").toStdString();

    const auto* list = form->findChild<ResultsView*>(QStringLiteral("lvCps"));
    const json expected = json::parse(askWithoutWindow(duty, "json"))["compressors"];
    ASSERT_EQ(list->rowCount(), static_cast<int>(expected.size()) + 1);
    const QStringList columns = list->columnKeys();
    int compared = 0;
    for (int row = 1; row < list->rowCount(); ++row) {
        const std::string key = list->key(row).toStdString();
        const auto found = std::find_if(expected.begin(), expected.end(), [&](const json& compressor) {
            return isSame(compressor["key"], key);
        });
        ASSERT_NE(found, expected.end()) << key;
        const bool isStopped = !(*found)["messages"]["error"].empty();
        EXPECT_EQ(isStopped, list->mark(row) == mark::notPossible) << key;
        for (int column = 1; column < columns.size(); ++column) {
            const std::string shown = list->text(row, column).trimmed().remove(u',').toStdString();
            EXPECT_EQ(shown, isStopped ? "" : cellOf(*found, columns[column], isImperial))
                << key << " " << columns[column].toStdString();
            compared += !isStopped;
        }
    }
    EXPECT_GT(compared, 30) << "hardly a value was compared";
}

// In metric units, which the program without window writes.
TEST_P(ExportedListTest, IsByteForByteThatOfTheProgramWithoutWindow) {
    const Duty& duty = duties[static_cast<std::size_t>(GetParam())];
    SCOPED_TRACE(duty.name);
    SelectionForm* form = calculated(duty, false);
    const QTemporaryDir folder;
    for (const auto& [extension, filter, format] :
         {std::tuple{".xml", "XML (*.xml)", "xml"}, std::tuple{".csv", "CSV (*.csv)", "list-csv"}}) {
        QFile file(folder.filePath(QStringLiteral("list") + QLatin1String(extension)));
        const Person person({saveAs(file.fileName(), QLatin1String(filter))});
        form->ExportCPS();
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << extension;
        EXPECT_EQ(file.readAll().toStdString(), askWithoutWindow(duty, format)) << extension;
    }
}
