// What a long document costs: pages of text and paths as a report has them. The memory is the most that the
// process ever held, so the shorter document comes first: a writer that kept its pages would show in the
// second.

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <cstdint>
#include <filesystem>
#include <string>

#include "reports/pdf/clsPDFCreator.h"

namespace {

using namespace marvello;

double peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

/// 60 lines of text in two columns, a table's rules and a curve of 200 points: about 10 kB.
void drawPage(clsPDFCreator& pdf) {
    for (int line = 0; line < 60; ++line) {
        const double y = 280 - 4.25 * line;
        pdf.DrawText(20, y, "Evaporating temperature, row " + std::to_string(line), "Text", 9);
        pdf.DrawText(190, y, std::to_string(line * 12345 % 9973), "Text", 9, alignRight);
        pdf.MoveTo(20, y - 1);
        pdf.LineTo(190, y - 1, strokePath);
    }
    pdf.MoveTo(20, 15);
    for (int i = 1; i <= 200; ++i)
        pdf.LineTo(20 + 0.85 * i, 15 + i * (200 - i) / 1000.0, i == 200 ? strokePath : 0);
}

void pages(benchmark::State& state) {
    const std::string file = (std::filesystem::temp_directory_path() / "marvello-pdf-bench.pdf").string();
    std::int64_t bytes = 0;
    for (auto _ : state) {
        clsPDFCreator pdf;
        pdf.SetScaleMode(2);
        pdf.InitPDFFile(file);
        pdf.LoadFont("Text", "Arial", 1);
        for (std::int64_t page = 0; page < state.range(0); ++page) {
            pdf.StartPage();
            drawPage(pdf);
            pdf.EndPage();
        }
        pdf.ClosePDFFile();
        bytes += static_cast<std::int64_t>(std::filesystem::file_size(file));
    }
    std::filesystem::remove(file);
    state.SetBytesProcessed(bytes);
    state.counters["file_MB"] = static_cast<double>(bytes) / static_cast<double>(state.iterations()) / 1e6;
    state.counters["peak_MB"] = peakMegabytes();
}
BENCHMARK(pages)->Arg(100)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
