#include "workspace/ExportRecords.h"

#include <QStringList>
#include <utility>

#include "controls/NumberText.h"
#include "controls/ResultsView.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int textSize = 10;

/// Records with the fields that name a compressor.
RowSet namedRecords() {
    RowSet records;
    for (const auto* name : {"Refrigerant", "Serie", "Model"}) records.addText(QLatin1String(name), textSize);
    return records;
}

}  // namespace

RowSet resultsRecords(const ResultsView& list, const QLocale& locale) {
    RowSet records = namedRecords();
    const auto named = records.fields().size();
    for (const QString& key : list.columnKeys().mid(1)) records.addNumber(key);
    const NumberMarks marks(locale);
    for (int row = 0; row < list.rowCount(); ++row) {
        // Kept: models that are not possible stay out of this file, for their columns are blank.
        if (list.tag(row).isEmpty() || list.mark(row) == u"ledred") continue;
        std::vector<RowSet::Value> values(records.fields().size());
        const QStringList name = list.tag(row).split(u';');
        for (std::size_t i = 0; i < named; ++i) values[i] = name.value(static_cast<qsizetype>(i));
        for (std::size_t i = named; i < values.size(); ++i) {
            const int column = static_cast<int>(i - named) + 1;
            if (const auto number = shownNumber(list.text(row, column), marks)) values[i] = *number;
        }
        records.addRow(std::move(values));
    }
    return records;
}

RowSet polynomialsRecords(const std::vector<const clsCompressor*>& compressors) {
    RowSet records = namedRecords();
    records.addText(QStringLiteral("Type"), textSize);
    for (std::size_t i = 1; i <= clsPolynomial().c.size(); ++i)
        records.addNumber(QStringLiteral("C%1").arg(i));
    for (const clsCompressor* compressor : compressors) {
        const auto add = [&](const char* type, const clsPolynomial& polynomial) {
            std::vector<RowSet::Value> values{fromCore(compressor->Refrigerant), fromCore(compressor->Serie),
                                              fromCore(compressor->Model), QString(QLatin1String(type))};
            values.insert(values.end(), polynomial.c.begin(), polynomial.c.end());
            records.addRow(std::move(values));
        };
        add("Pta", compressor->polynomialPta);
        add("Q0", compressor->PolynomialQ0);
    }
    return records;
}

}  // namespace marvello
