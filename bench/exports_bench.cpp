// What leaves the program: an export of 1,000 compressors with 20 columns, from the list to the file on the
// disk, and the report of a compressor.
#include <benchmark/benchmark.h>

#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QTemporaryDir>
#include <memory>
#include <stdexcept>
#include <string>

#include "bench/Floor.h"
#include "bench/Windows.h"
#include "controls/CoreText.h"
#include "reports/ReportOutput.h"
#include "results/ExportRecords.h"
#include "workspace/ExportFile.h"
#include "workspace/MDIMain.h"
#include "workspace/ResultsPane.h"
#include "workspace/SelectionForm.h"

using namespace marvello;

namespace {

constexpr int rows = 1000;
constexpr int columns = 20;

ResultTable longTable() {
    ResultTable table;
    for (int column = 0; column < columns; ++column) {
        const std::string name = "Q" + std::to_string(column);
        table.columns.push_back({name, name, {}, {}});
    }
    ResultGroup& group = table.groups.emplace_back(ResultGroup{"R134A", {}});
    for (int row = 0; row < rows; ++row) {
        const auto compressor = std::make_shared<clsCompressor>();
        compressor->Refrigerant = "R134A";
        compressor->Serie = "TK-A";
        compressor->Model = std::to_string(row);
        ResultRow& result = group.rows.emplace_back(ResultRow{compressor, compressor->Model, {}, {}});
        // Every tenth value is missing.
        for (int column = 0; column < columns; ++column)
            result.values.push_back(column % 10 == 9 ? ShownValue{.text = "-"}
                                                     : ShownValue{row * 1.1 + column, {}});
    }
    return table;
}

void writePlainly(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() ||
        !file.commit())
        throw std::runtime_error("The file of the floor cannot be written.");
}

void exportList(benchmark::State& state, ExportFile::Form form) {
    const QTemporaryDir folder;
    const ResultTable table = longTable();
    const ExportFile file{folder.filePath(QStringLiteral("list")), form};
    if (!writeExport(resultsRecords(table), file).isEmpty()) throw std::runtime_error("The export failed.");
    QFile written(file.path);
    if (!written.open(QIODevice::ReadOnly)) throw std::runtime_error("The export left no file.");
    const QByteArray bytes = written.readAll();
    bench::AgainstFloor(state, "writing the same bytes")
        .run([&] { writeExport(resultsRecords(table), file); },
             [&] { writePlainly(folder.filePath(QStringLiteral("floor")), bytes); });
    state.counters["kB"] = static_cast<double>(bytes.size()) / 1000;
}
BENCHMARK_CAPTURE(exportList, xml, ExportFile::Form::xml)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK_CAPTURE(exportList, csv, ExportFile::Form::csv)->Unit(benchmark::kMillisecond)->UseManualTime();

/// The report as a PDF file, next to a page of the platform with the same photo and texts, and nothing else.
void saveOneReport(benchmark::State& state) {
    const QTemporaryDir folder;
    MDIMain window(QStringLiteral("1.0.0"));
    window.show();
    SelectionForm* form = window.newSelection();
    form->lnkCalculate_Click();
    while (!form->results().canPrint()) form->results().moveSelection(1);
    const ReportContent report = *form->results().report();
    const QString file = folder.filePath(QStringLiteral("report.pdf"));
    bench::AgainstFloor(state, "a page with its photo and texts")
        .run([&] { saveReport(file, reportLayout(), report); },
             [&] {
                 QPdfWriter writer(file);
                 QPainter painter(&writer);
                 painter.drawImage(QRect(0, 0, 4000, 3000), report.photo);
                 for (const ReportLine& line : report.lines) {
                     painter.drawText(0, 4000, fromCore(line.name));
                     painter.drawText(4000, 4000, fromCore(line.value));
                 }
             });
}
BENCHMARK(saveOneReport)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace

int main(int argc, char** argv) { return bench::runInWindows(argc, argv); }
