// What leaves the program: an export of 1,000 compressors with 20 columns, from the list to the file on the
// disk, and the report of a compressor.
#include <benchmark/benchmark.h>

#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QTemporaryDir>
#include <cstring>
#include <stdexcept>

#include "bench/Floor.h"
#include "bench/Windows.h"
#include "controls/ResultsView.h"
#include "reports/ReportOutput.h"
#include "workspace/ExportFile.h"
#include "workspace/ExportRecords.h"
#include "workspace/MDIMain.h"
#include "workspace/SelectionForm.h"

using namespace marvello;

namespace {

constexpr int rows = 1000;
constexpr int columns = 20;

void fill(ResultsView& list) {
    std::vector<ResultsView::Column> heads{{"compressor", "Compressor", ""}};
    for (int column = 0; column < columns; ++column) {
        const QString name = QStringLiteral("Q%1").arg(column);
        heads.push_back({name, name, ""});
    }
    list.setColumns(heads);
    for (int row = 0; row < rows; ++row) {
        const QString model = QString::number(row);
        QStringList values;
        // Every tenth value is missing.
        for (int column = 0; column < columns; ++column)
            values += column % 10 == 9 ? QStringLiteral("-") : QString::number(row * 1.1 + column, 'f', 1);
        list.addRow({model, "R134A;TK-A;" + model, model, "ledgreen", "", values});
    }
}

void writePlainly(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() ||
        !file.commit())
        throw std::runtime_error("The file of the floor cannot be written.");
}

void exportList(benchmark::State& state, ExportFile::Form form) {
    const QTemporaryDir folder;
    ResultsView list;
    fill(list);
    const ExportFile file{folder.filePath(QStringLiteral("list")), form};
    if (!writeExport(resultsRecords(list), file).isEmpty()) throw std::runtime_error("The export failed.");
    QFile written(file.path);
    if (!written.open(QIODevice::ReadOnly)) throw std::runtime_error("The export left no file.");
    const QByteArray bytes = written.readAll();
    bench::AgainstFloor(state, "writing the same bytes")
        .run([&] { writeExport(resultsRecords(list), file); },
             [&] { writePlainly(folder.filePath(QStringLiteral("floor")), bytes); });
    state.counters["kB"] = static_cast<double>(bytes.size()) / 1000;
}
BENCHMARK_CAPTURE(exportList, xml, ExportFile::Form::xml)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK_CAPTURE(exportList, csv, ExportFile::Form::csv)->Unit(benchmark::kMillisecond)->UseManualTime();

/// The text of a file alone, beside what the memory gives.
void makeText(benchmark::State& state, bool isXml) {
    ResultsView list;
    fill(list);
    const RowSet records = resultsRecords(list);
    const auto make = [&] { return isXml ? records.toXml() : records.toCsv(); };
    const QByteArray bytes = make();
    constexpr int copies = 100;
    QByteArray copy(bytes.size(), ' ');
    bench::AgainstFloor against(state, "copying the same bytes in memory");
    for ([[maybe_unused]] auto turn : state) {
        const double taken = bench::processorSecondsOf([&] { benchmark::DoNotOptimize(make()); });
        const double copied = bench::processorSecondsOf([&] {
            for (int i = 0; i < copies; ++i) {
                std::memcpy(copy.data(), bytes.data(), static_cast<std::size_t>(bytes.size()));
                benchmark::ClobberMemory();
            }
        });
        against.add(taken, copied / copies);
    }
}
BENCHMARK_CAPTURE(makeText, xml, true)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK_CAPTURE(makeText, csv, false)->Unit(benchmark::kMillisecond)->UseManualTime();

/// The report as a PDF file, beside a page of the platform with the same photo and texts, and nothing else.
void saveOneReport(benchmark::State& state) {
    const QTemporaryDir folder;
    MDIMain window(QStringLiteral("1.0.0"));
    window.show();
    SelectionForm* form = window.newSelection();
    form->lnkCalculate_Click();
    while (!form->canPrint()) form->moveSelection(1);
    const ReportContent report = *form->selectedReport();
    const QString file = folder.filePath(QStringLiteral("report.pdf"));
    bench::AgainstFloor(state, "a page with its photo and texts")
        .run([&] { saveReport(file, reportLayout(), report); },
             [&] {
                 QPdfWriter writer(file);
                 QPainter painter(&writer);
                 painter.drawImage(QRect(0, 0, 4000, 3000), report.photo);
                 for (const ReportLine& line : report.lines) {
                     painter.drawText(0, 4000, line.name);
                     painter.drawText(4000, 4000, line.value);
                 }
             });
}
BENCHMARK(saveOneReport)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace

int main(int argc, char** argv) { return bench::runInWindows(argc, argv); }
