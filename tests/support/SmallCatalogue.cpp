#include "tests/support/SmallCatalogue.h"

#include <SQLiteCpp/Database.h>

#include "data/Numbers.h"
#include "data/Texts.h"
#include "tools/catalogue/Content.h"
#include "tools/catalogue/Schema.h"

namespace marvello::testing {

SmallCatalogue::SmallCatalogue() : session(MARVELLO_APP_FOLDER) {
    std::string schema = "PRAGMA application_id=" + std::to_string(clsDatabase::applicationId) +
                         ";PRAGMA user_version=" + std::to_string(clsDatabase::schemaVersion) + ";";
    for (const Table& table : schemaTables()) schema += createStatements(table);
    exec(schema);
    exec(
        "insert into tRefrigeranti values('R134A'),('R290');"
        "insert into tFluidi values('R134A','R134A.FLD',1),('R290','PROPANE.FLD',1);");
    session.hooks.showBox = [this](BoxKind, const std::string& text) { boxes.push_back(text); };
    gDatabase().Connect("Data Source=" + folder_.string() + "/db.mdb");
}

void SmallCatalogue::exec(const std::string& sql) {
    // The file lives for a test: nothing waits for the disk.
    constexpr int patience = 5000;  // ms, while a thread of a window reads
    SQLite::Database((folder_ / "db.mdb").string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, patience)
        .exec("PRAGMA synchronous=OFF;" + sql);
    sealCatalogue(folder_ / "db.mdb");
}

void SmallCatalogue::compressor(const std::map<std::string, std::string>& changes) {
    std::map<std::string, std::string> values;
    for (const Table& table : schemaTables()) {
        if (table.name != "tCompressors") continue;
        for (const Column& column : table.columns) {
            const bool isText = column.kind == ColumnKind::name || column.kind == ColumnKind::freeText;
            values[lowered(column.name)] = isText ? "'S'" : "0";
        }
    }
    const std::map<std::string, std::string> defaults = {{"frefrigerantid", "'R134A'"},
                                                         {"fserieid", "'TK-A'"},
                                                         {"fmodelid", "'100'"},
                                                         {"fsequence", "'010'"},
                                                         {"fvi", "'2.6'"},
                                                         {"ffla", "50"},
                                                         {"flimitid", "'E'"},
                                                         {"flimiteconomizedid", "'E'"},
                                                         {"fmotorfullid", "1"},
                                                         {"fmotorsmallid", "1"},
                                                         {"foilcoolinglimit", "95"},
                                                         {"foilcoolinglimiteco", "90"}};
    for (const auto& [column, value] : defaults) values[column] = value;
    for (const auto& [column, value] : changes) values.at(lowered(column)) = value;
    std::string columns;
    std::string row;
    for (const auto& [column, value] : values) {
        columns += (columns.empty() ? "" : ",") + column;
        row += (row.empty() ? "" : ",") + value;
    }
    exec("insert into tCompressors(" + columns + ") values(" + row + ")");
}

void SmallCatalogue::surface(const std::string& id, int type, double field,
                             const std::vector<double>& coefficients) {
    std::string row = "'" + id + "'," + std::to_string(type) + "," + storedText(field);
    for (std::size_t i = 0; i < 10; ++i)
        row += "," + storedText(i < coefficients.size() ? coefficients[i] : 0);
    exec("insert into tPolynomials values(" + row + ")");
}

void SmallCatalogue::surfaces(double field, const std::vector<double>& capacity,
                              const std::vector<double>& power) {
    surface("S", 0, field, capacity);
    surface("S", 1, field, power);
}

void SmallCatalogue::motor(int id, const std::array<double, 5>& coefficients, double lra1, double lra2) {
    std::string row = std::to_string(id) + ",50";
    for (const double c : coefficients) row += "," + storedText(c);
    exec("insert into tMotors values(" + row + "," + storedText(lra1) + "," + storedText(lra2) +
         ",3,'37 kW')");
}

void SmallCatalogue::limit(const std::string& id, int type, const std::string& points) {
    exec("insert into tLimits(fLimitID,fType,fPoints) values('" + id + "'," + std::to_string(type) + ",'" +
         points + "')");
}

void SmallCatalogue::text(const std::string& key, const std::string& text, const std::string& language) {
    exec("insert into tDictionary(fLanguageID,fVariableName,fText) values('" + language + "','" + key +
         "','" + text + "')");
}

void SmallCatalogue::blendR407C() {
    exec(
        "insert into tRefrigeranti values('R407C');insert into tFluidi values('R407C','R32.FLD',0.23),"
        "('R407C','R125.FLD',0.25),('R407C','R134A.FLD',0.52)");
}

void SmallCatalogue::completeDefault() {
    surfaces(100, {100, 3, -1.2, 0.03, -0.02, 0.002, 0.0002, -0.0001, 0.00005, -0.00001}, {5, 0.1, 0.25});
    surface("S", 3, 10, {60, -0.5, 0.01, 0.8, 0.001, -0.002});
    motor(1, {2, 1.8, 0.01, 0, 0});
    limit("E", 0, "-20,20;15,20;15,60;-20,60;-20,20");
}

}  // namespace marvello::testing
