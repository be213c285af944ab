#include "tools/catalogue/Schema.h"

#include <algorithm>

#include "data/Texts.h"

namespace marvello {

namespace {

using enum ColumnKind;

// clang-format off
const std::vector<Table>& tables() {
    static const std::vector<Table> all{
        {.name = "tCompressors",
         .columns = {
             {"fRefrigerantID", name}, {"fSerieID", name}, {"fModelID", name},
             {"fSequence", nullable}, {"fVI", nullable},
             {"fFla", real}, {"fFla2", real},
             {"fPolynomialQ0ID", name}, {"fPolynomialPassID", name}, {"fPolynomialShID", name},
             {"fhasInverter", boolean},
             {"fInverterQ0C1", real}, {"fInverterQ0C2", real}, {"fInverterQ0C3", real},
             {"fInverterPtaC1", real}, {"fInverterPtaC2", real}, {"fInverterPtaC3", real},
             {"fInverterCaC1", real}, {"fInverterCaC2", real}, {"fInverterCaC3", real},
             {"fhasFullSmallMotor", boolean}, {"fisSmallMotorStandard", boolean},
             {"fStartMode", integer}, {"fCtsca", real},
             {"fKForo", real}, {"fKPerdita", real}, {"fSez", real},
             {"fOilCoolingLimit", real}, {"fOilCoolingLimitEco", real}, {"fValue1", real},
             {"fMotorFullID", integer}, {"fMotorSmallID", integer},
             {"fLimitID", name}, {"fLimitEconomizedID", freeText}, {"fMarket", byte}},
         .key = {"fRefrigerantID", "fSerieID", "fModelID"},
         .index = {"fRefrigerantID", "fSerieID", "fSequence", "fModelID"},
         .lookup = {"fModelID", "fSerieID", "fRefrigerantID"},
         .keepsOrder = true},
        {.name = "tPolynomials",
         .columns = {
             {"fPolynomialID", name}, {"fType", integer}, {"fField", real},
             {"fC1", real}, {"fC2", real}, {"fC3", real}, {"fC4", real}, {"fC5", real},
             {"fC6", real}, {"fC7", real}, {"fC8", real}, {"fC9", real}, {"fC10", real}},
         .key = {"fPolynomialID", "fType", "fField"}},
        {.name = "tMotors",
         .columns = {
             {"fMotorID", integer}, {"fhz", integer},
             {"fC1", real}, {"fC2", real}, {"fC3", real}, {"fC4", real}, {"fC5", real},
             {"fLra1", real}, {"fLra2", real}, {"fPhase", integer}, {"FNominalPower", nullable}},
         .key = {"fMotorID", "fhz"}},
        {.name = "tLimits",
         .columns = {{"fLimitID", name}, {"fType", integer}, {"fPoints", points}},
         .naming = {"fLimitID", "fType"},
         .index = {"fLimitID"},
         .keepsOrder = true},
        {.name = "tRefrigeranti",
         .columns = {{"fRefrigeranteId", name}},
         .key = {"fRefrigeranteId"}},
        {.name = "tFluidi",
         .columns = {{"fRefrigeranteId", name}, {"fFluido", name}, {"fPFluido", real}},
         .key = {"fRefrigeranteId", "fFluido"},
         .index = {"fRefrigeranteId"},
         .keepsOrder = true},
        {.name = "tRefrigerantFacts",
         .columns = {
             {"fRefrigeranteId", name},
             {"fSafetyClass", nullable}, {"fSafetyClassSource", nullable},
             {"fOdp", optionalReal}, {"fOdpSource", nullable},
             {"fGwpAr4", optionalReal}, {"fGwpAr4Source", nullable},
             {"fGwpAr5", optionalReal}, {"fGwpAr5Source", nullable},
             {"fGwpAr6", optionalReal}, {"fGwpAr6Source", nullable},
             {"fBoilingPoint", optionalReal}, {"fGlide", optionalReal}, {"fCriticalTemperature", optionalReal}},
         .key = {"fRefrigeranteId"},
         .isOptional = true},
        {.name = "tSources",
         .columns = {{"fSourceId", name}, {"fCitation", text}},
         .key = {"fSourceId"},
         .isOptional = true},
        {.name = "tLanguages",
         .columns = {{"fLanguage", name}, {"fDescription", text}},
         .key = {"fLanguage"}},
        {.name = "tDictionary",
         .columns = {{"fLanguageID", name}, {"fVariableName", name}, {"fText", freeText}},
         .key = {"fLanguageID", "fVariableName"},
         .languageColumn = "fLanguageID"},
        {.name = "thelp",
         .columns = {{"flanguage", name}, {"ffield", name}, {"fhelp", text}},
         .key = {"flanguage", "ffield"},
         .languageColumn = "flanguage"},
        {.name = "tParametersHead",
         .columns = {{"fType", name}, {"fTypeKey", name}, {"fKey", name}, {"fParametersRowsID", integer}},
         .key = {"fType", "fTypeKey", "fKey"}},
        {.name = "tParametersRows",
         .columns = {
             {"fParametersRowsID", integer}, {"fObjectName", name},
             {"fObjectType", freeText}, {"fObjectPropertyValue", text}},
         .naming = {"fParametersRowsID", "fObjectName"},
         .index = {"fParametersRowsID"},
         .keepsOrder = true},
    };
    return all;
}
// clang-format on

std::string declaration(ColumnKind kind) {
    switch (kind) {
        case name:
            return "TEXT NOT NULL COLLATE NOCASE";
        case text:
        case freeText:
        case points:
            return "TEXT NOT NULL";
        case nullable:
            return "TEXT";
        case integer:
        case byte:
        case boolean:
            return "INTEGER NOT NULL";
        case real:
            return "REAL NOT NULL";
        case optionalReal:
            return "REAL";
    }
    return {};
}

std::string joined(const std::vector<std::string_view>& names) {
    std::string list;
    for (const auto name : names) list += (list.empty() ? "" : ", ") + std::string(name);
    return list;
}

}  // namespace

std::size_t Table::columnIndex(std::string_view column) const {
    const auto found = std::ranges::find_if(
        columns, [&](const Column& candidate) { return equalIgnoringCase(candidate.name, column); });
    return static_cast<std::size_t>(found - columns.begin());
}

std::span<const Table> schemaTables() { return tables(); }

std::string createStatements(const Table& table) {
    std::string columns;
    for (const auto& column : table.columns)
        columns += (columns.empty() ? "" : ", ") + std::string(column.name) + " " + declaration(column.kind);
    const std::string tableName(table.name);
    // Where the order of the files counts, an index over the key could replace it, so the key is not
    // declared.
    const bool keyed = !table.key.empty() && !table.keepsOrder;
    std::string sql =
        "CREATE TABLE " + tableName + " (" + columns +
        (keyed ? ", PRIMARY KEY (" + joined(table.key) + ")) STRICT, WITHOUT ROWID;" : ") STRICT;");
    if (!table.index.empty())
        sql += "CREATE INDEX " + tableName + "Index ON " + tableName + " (" + joined(table.index) + ");";
    if (!table.lookup.empty())
        sql += "CREATE INDEX " + tableName + "Lookup ON " + tableName + " (" + joined(table.lookup) + ");";
    return sql;
}

}  // namespace marvello
