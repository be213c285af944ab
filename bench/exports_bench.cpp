// An export of 1,000 compressors with 20 columns, from the list to the file on the disk, against writing the
// same bytes to a file in the same way. "ratio" is the time of the export over that floor.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QSaveFile>
#include <QSettings>
#include <QTemporaryDir>
#include <chrono>
#include <cstdio>
#include <stdexcept>

#include "controls/ResultsView.h"
#include "workspace/ExportFile.h"
#include "workspace/ExportRecords.h"

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

double secondsOf(const auto& work) {
    const auto begun = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
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
    double work = 0;
    double floor = 0;
    for ([[maybe_unused]] auto turn : state) {
        const double seconds = secondsOf([&] { writeExport(resultsRecords(list), file); });
        state.SetIterationTime(seconds);
        work += seconds;
        floor += secondsOf([&] { writePlainly(folder.filePath(QStringLiteral("floor")), bytes); });
    }
    state.counters["ratio"] = work / floor;
    state.counters["kB"] = static_cast<double>(bytes.size()) / 1000;
}
BENCHMARK_CAPTURE(exportList, xml, ExportFile::Form::xml)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK_CAPTURE(exportList, csv, ExportFile::Form::csv)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace

int main(int argc, char** argv) try {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
}
