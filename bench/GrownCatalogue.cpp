#include "bench/GrownCatalogue.h"

#include <unistd.h>

#include <stdexcept>

#include "catalogue/Globals.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/Content.h"

namespace marvello::bench {

namespace {

TableContent& tableOf(Content& content, std::string_view name) {
    for (TableContent& table : content.tables) {
        if (table.table->name == name) return table;
    }
    throw std::logic_error("The schema has no table " + std::string(name) + ".");
}

void append(const Table& table, Record& record, std::string_view column, const std::string& ending) {
    auto* const text = std::get_if<std::string>(&record.values[table.columnIndex(column)]);
    if (text != nullptr) *text += ending;
}

/// Copy `number` of the compressors: every other one in a series of its own, but for those on an inverter and
/// open drives, whose series are known by name.
void appendCopy(TableContent& compressors, std::size_t originals, int number) {
    const Table& table = *compressors.table;
    const std::string ending = "/" + std::to_string(number);
    for (std::size_t i = 0; i < originals; ++i) {
        Record copy = compressors.records[i];
        const bool isKnownByName =
            compressors.integer(copy, "fhasInverter") != 0 ||
            std::get<std::string>(copy.values[table.columnIndex("fSerieID")]) == "NL-H";
        for (const char* column :
             {"fModelID", "fSequence", "fPolynomialQ0ID", "fPolynomialPassID", "fPolynomialShID"}) {
            append(table, copy, column, ending);
        }
        if (!isKnownByName && number % 2 == 1) append(table, copy, "fSerieID", ending);
        compressors.records.push_back(std::move(copy));
    }
}

void appendSurfaces(TableContent& surfaces, std::size_t originals, int number) {
    for (std::size_t i = 0; i < originals; ++i) {
        Record copy = surfaces.records[i];
        append(*surfaces.table, copy, "fPolynomialID", "/" + std::to_string(number));
        surfaces.records.push_back(std::move(copy));
    }
}

Content grownContent(int least) {
    Faults faults;
    Content content = readContent(MARVELLO_CONTENT_FOLDER, faults);
    TableContent& compressors = tableOf(content, "tCompressors");
    TableContent& surfaces = tableOf(content, "tPolynomials");
    const std::size_t originalCompressors = compressors.records.size();
    const std::size_t originalSurfaces = surfaces.records.size();
    if (!faults.empty() || originalCompressors == 0) {
        throw std::runtime_error("The text tables of the catalogue cannot be read.");
    }
    for (int number = 1; compressors.records.size() < static_cast<std::size_t>(least); ++number) {
        appendCopy(compressors, originalCompressors, number);
        appendSurfaces(surfaces, originalSurfaces, number);
    }
    checkReferences(content, std::nullopt, faults);
    if (!faults.empty())
        throw std::runtime_error("The grown catalogue is at fault: " + faults.lines().front());
    return content;
}

}  // namespace

GrownCatalogue::GrownCatalogue(int least)
    : session_(MARVELLO_APP_FOLDER),
      folder_(std::filesystem::temp_directory_path() / ("marvello-grown-" + std::to_string(getpid()))) {
    std::filesystem::create_directories(folder_);
    writeCatalogue(grownContent(least), file());
    openCatalogue("Data Source=" + file());
}

GrownCatalogue::~GrownCatalogue() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::vector<Series> seriesOfCatalogue() {
    std::vector<Series> series;
    for (RecordSet row = gDatabase().Execute("Select distinct fRefrigerantID, fSerieID from tCompressors "
                                             "order by fRefrigerantID, fSerieID");
         !row.eof(); row.moveNext()) {
        series.push_back({row.text("fRefrigerantID"), row.text("fSerieID")});
    }
    return series;
}

}  // namespace marvello::bench
