#include "results/ExportRecords.h"

#include <string>
#include <utility>

namespace marvello {

namespace {

constexpr int textSize = 10;

/// Records with the fields that name a compressor.
RowSet namedRecords() {
    RowSet records;
    for (const auto* name : {"Refrigerant", "Serie", "Model"}) records.addText(name, textSize);
    return records;
}

std::vector<RowSet::Value> namesOf(const clsCompressor& compressor) {
    return {compressor.Refrigerant, compressor.Serie, compressor.Model};
}

}  // namespace

RowSet resultsRecords(const ResultTable& table) {
    RowSet records = namedRecords();
    for (const ResultColumn& column : table.columns) records.addNumber(column.key);
    for (const ResultGroup& group : table.groups) {
        for (const ResultRow& row : group.rows) {
            // Kept: models that are not possible stay out of this file, for their columns are blank.
            if (row.verdict == Verdict::notPossible) continue;
            std::vector<RowSet::Value> values = namesOf(*row.compressor);
            for (const ShownValue& value : row.values) {
                values.emplace_back();
                if (value.number) values.back() = *value.number;
            }
            records.addRow(std::move(values));
        }
    }
    return records;
}

RowSet polynomialsRecords(const ResultTable& table) {
    RowSet records = namedRecords();
    records.addText("Type", textSize);
    for (std::size_t i = 1; i <= clsPolynomial().c.size(); ++i) records.addNumber("C" + std::to_string(i));
    const auto add = [&records](const clsCompressor& compressor, const char* type,
                                const clsPolynomial& polynomial) {
        std::vector<RowSet::Value> values = namesOf(compressor);
        values.emplace_back(type);
        values.insert(values.end(), polynomial.c.begin(), polynomial.c.end());
        records.addRow(std::move(values));
    };
    for (const ResultGroup& group : table.groups) {
        for (const ResultRow& row : group.rows) {
            // Kept: models that are not possible are exported, as their surfaces are valid.
            add(*row.compressor, "Pta", row.compressor->polynomialPta);
            add(*row.compressor, "Q0", row.compressor->PolynomialQ0);
        }
    }
    return records;
}

}  // namespace marvello
