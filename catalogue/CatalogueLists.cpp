#include "catalogue/CatalogueLists.h"

#include "data/Session.h"
#include "data/Texts.h"

namespace marvello {

namespace {

std::string conditionOf(const ModelFilter& filter) {
    std::string condition = "True";
    if (filter.onInverter)
        condition += std::string(" and fHasInverter=") + (*filter.onInverter ? "True" : "False");
    if (filter.refrigerant) condition += " and fRefrigerantID=" + sqlText(*filter.refrigerant);
    if (filter.series) condition += " and fSerieID=" + sqlText(*filter.series);
    if (!filter.models.empty() && filter.models != "*") {
        // Kept: as they are, and a quote in one makes the statement fail: the lists that hand models over
        // have none.
        std::string models;
        for (const std::string& model : splitText(filter.models, ';'))
            models += (models.empty() ? "'" : ",'") + model + '\'';
        condition += " and fModelID in(" + models + ")";
    }
    if (filter.market) condition += " and ((fMarket & " + std::to_string(*filter.market) + ")=fMarket)";
    return condition;
}

std::vector<std::string> namesOf(const std::string& column, const ModelFilter& filter) {
    std::vector<std::string> names;
    for (RecordSet row = gDatabase().Execute("Select distinct " + column + " from tCompressors where " +
                                             conditionOf(filter) + " order by " + column);
         !row.eof(); row.moveNext())
        names.push_back(row.text(column));
    return names;
}

constexpr const char* inOrder = " order by fRefrigerantID, fSerieID, fSequence, fModelID";

}  // namespace

std::vector<std::string> refrigerantsOf(const ModelFilter& filter) {
    return namesOf("fRefrigerantID", filter);
}

std::vector<std::string> seriesOf(const ModelFilter& filter) { return namesOf("fSerieID", filter); }

std::vector<ModelName> modelsOf(const ModelFilter& filter) {
    std::vector<ModelName> models;
    for (RecordSet row =
             gDatabase().Execute("Select fRefrigerantID, fSerieID, fModelID from tCompressors where " +
                                 conditionOf(filter) + inOrder);
         !row.eof(); row.moveNext())
        models.push_back({row.text("fRefrigerantID"), row.text("fSerieID"), row.text("fModelID")});
    return models;
}

std::string selectionSql(const ModelFilter& filter) {
    return "Select * from tCompressors where " + conditionOf(filter) + inOrder;
}

}  // namespace marvello
