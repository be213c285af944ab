// Envelopes: the controls that show them, the drawing itself, and the page of the report with it.

#include <QApplication>
#include <QGridLayout>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "controls/GraphLegend.h"
#include "controls/ctlGraph.h"
#include "controls/ctlLimitsGraphic.h"
#include "data/Numbers.h"
#include "reports/ReportPage.h"
#include "results/EnvelopeTexts.h"
#include "tests/pictures/scenes/Scenes.h"

namespace marvello::scenes {

namespace {

clsLimits envelope(const std::vector<std::pair<int, std::string>>& lines) {
    clsLimits limits;
    for (const auto& [type, points] : lines) {
        auto limit = std::make_shared<clsLimit>();
        limit->setType(type);
        limit->Points = parsePoints(points);
        limits.add(limit);
    }
    return limits;
}

/// A TK-A with R134A.
clsLimits fixedSpeedEnvelope() {
    return envelope({{-1, "-20,21;4,21;18,35;18,68;-8,60;-14,51;-20,41;-20,21"},
                     {0, "-15,25;4,25;15,36;15,65;-7,58;-11,52;-15,45;-15,25"},
                     {1, "-9.7,54;-5,58.5;-4.8,58.7;-7,58;-9.7,54"},
                     {2, "-15,44.1;-10,49.1;-5,53.6;0,57.6;5,61.2;7.2,62.5;-7,58;-11,52;-15,45;-15,44.1"},
                     {3, "-15,25;4,25;15,36;15,53;-12,50.3;-15,45;-15,25"},
                     {4, "-8,29;4,29;12,37;12,44;-8,44;-8,29"},
                     {5, "-10,28;4,28;13,37;13,50;-10,50;-10,28"},
                     {6, "-12.5,26.5;4,26.5;14,36.5;14,56;-7.7,56;-11,51;-12.5,48.4;-12.5,26.5"},
                     {7, "-15,25;4,25;8,29;-15,29;-15,25"}});
}

/// A TK-B with R134A.
clsLimits inverterEnvelope() {
    return envelope({{-1, "-20,21;4,21;18,35;18,68;-8,60;-14,51;-20,41;-20,21"},
                     {0, "-15,25;4,25;15,36;15,65;-7,58;-11,52;-15,45;-15,25"},
                     {11, "-2.3,21;4,21;14.1,31.1;12,29.7;8,27.1;5.6,25.6;4,24;3,24;0,22.3;-2.3,21"},
                     {14, "-15,25;4,25;10,31;10,53;-10.3,53;-11,52;-15,45;-15,25"},
                     {13, "-15,25;4,25;13,34;13,59;-3.9,59;-7,58;-11,52;-15,45;-15,25"},
                     {12, "-15,25;4,25;15,36;15,65;-7,58;-11,52;-15,45;-15,25"}});
}

/// An NL-H with R22: corners that lie above each other, and no line without a neighbour.
clsLimits lowTemperatureEnvelope() {
    return envelope(
        {{-1, "-40,10;-7,10;-4,13;-3.999999,13;-3.999999,49;-4,49;-33,40;-37,34;-40,28;-40,10"},
         {0, "-38,14;-7,14;-6.999999,14;-6.999999,46;-7,46;-32,38;-38,28;-38,14"},
         {1, "-38,19.5;-35,22.8;-30,28;-25,32.7;-20,37.1;-15,41;-10,44.5;-8.2,45.6;-32,38;-38,28"},
         {2, "-38,23.1;-35,26.6;-30,32.1;-25,37.3;-20.2,41.8;-32,38;-38,28;-38,23.1"},
         {7, "-38,14;-7,14;-6.999999,14;-6.999999,18;-7,18;-38,18;-38,14"},
         {11, "-9.5,10;-7,10;-4,13;-4.8,13;-8,10.9;-9.5,10"}});
}

ctlGraph* graph(QWidget* page, const clsLimits& limits, const clsPoint& point, const QString& unit) {
    auto* result = new ctlGraph(page);
    result->SetTextX("Evaporating temperature (dew) " + unit);
    result->SetTextY("Condensing temperature (dew) " + unit);
    result->SetPoint(point);
    result->SetLimits(limits);
    return result;
}

std::unique_ptr<QWidget> graphs() {
    auto whole = std::make_unique<QWidget>();
    QWidget* const page = whole.get();
    page->setAutoFillBackground(true);
    page->setFixedSize(1400, 860);
    auto* all = new QGridLayout(page);
    auto* large = graph(page, fixedSpeedEnvelope(), {2, 40}, QString::fromUtf8("°C"));
    large->setObjectName("large");
    all->addWidget(large, 0, 0, 2, 1);
    auto* legend = new GraphLegend(page);
    legend->setTexts("Limits", "Point Ted/Tcd");
    legend->setLimits(fixedSpeedEnvelope(), true);
    all->addWidget(legend, 0, 1, 2, 1);
    all->addWidget(graph(page, inverterEnvelope(), {2, 40}, QString::fromUtf8("°C")), 0, 2);
    all->addWidget(graph(page, inFahrenheit(fixedSpeedEnvelope()), {35.6, 104}, QString::fromUtf8("°F")), 1,
                   2);
    auto* small = new ctlLimitsGraphic(page);
    small->DrawLimits(fixedSpeedEnvelope());
    small->setFixedHeight(100);
    all->addWidget(small, 2, 1);
    all->setColumnStretch(0, 5);
    all->setColumnStretch(2, 3);
    return whole;
}

/// Puts the mouse on the operating point, where a label stands then.
void pointAt(QWidget& page) {
    auto* const graph = page.findChild<ctlGraph*>("large");
    const QPointF at = graph->drawing().toPlace({2, 40}, graph->rect());
    QMouseEvent move(QEvent::MouseMove, at, graph->mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(graph, &move);
}

EnvelopeDrawing drawing(const clsLimits& limits, const clsPoint& point, const QString& unit) {
    EnvelopeDrawing result;
    result.limits = limits;
    result.point = point;
    result.textX = "Evaporating temperature (dew) " + unit;
    result.textY = "Condensing temperature (dew) " + unit;
    result.fitScale();
    return result;
}

/// What lies under the mouse, with a colour for each number that tells them apart.
void paintNumbers(QPainter& painter, const QRectF& place, const EnvelopeDrawing& envelope) {
    static constexpr std::array<QRgb, 12> shown{0xFFFFFFFF, 0xFFE6194B, 0xFF3CB44B, 0xFF4363D8,
                                                0xFFF58231, 0xFF911EB4, 0xFF42D4F4, 0xFFF032E6,
                                                0xFFBFEF45, 0xFF469990, 0xFF9A6324, 0xFF000000};
    QImage numbers(place.size().toSize(), QImage::Format_RGB32);
    numbers.fill(Qt::black);
    QPainter hits(&numbers);
    envelope.paintHits(hits, numbers.rect());
    hits.end();
    for (int y = 0; y < numbers.height(); ++y)
        for (int x = 0; x < numbers.width(); ++x)
            numbers.setPixel(x, y, shown[std::min<std::size_t>(numbers.pixel(x, y) & 0xFFFFFF, 11)]);
    painter.drawImage(place.topLeft(), numbers);
}

void paintEnvelopes(QPainter& painter, const QRectF&) {
    const QString celsius = QString::fromUtf8("°C");
    const GraphColours paper = GraphColours::onPaper();
    const EnvelopeDrawing fixedSpeed = drawing(fixedSpeedEnvelope(), {2, 40}, celsius);
    fixedSpeed.paint(painter, {0, 0, 265, 300}, paper);
    drawing(inverterEnvelope(), {-12, 62}, celsius).paint(painter, {270, 0, 265, 300}, paper);
    drawing(lowTemperatureEnvelope(), {-20, 30}, celsius).paint(painter, {540, 0, 265, 300}, paper);
    // Smaller, in other units, without a point, and with a grid of its own.
    EnvelopeDrawing imperial = drawing(inFahrenheit(fixedSpeedEnvelope()), {35.6, 104}, "°F");
    imperial.gridGap = 9;
    imperial.paint(painter, {0, 305, 180, 180}, paper);
    EnvelopeDrawing empty;
    empty.fitScale();
    empty.paint(painter, {185, 305, 150, 180}, paper);
    EnvelopeDrawing bare = drawing(inverterEnvelope(), {}, celsius);
    bare.point.reset();
    bare.gridVisible = bare.axisVisible = false;
    bare.paint(painter, {340, 305, 160, 100}, paper);
    fixedSpeed.paintLines(painter, {340, 410, 160, 75}, paper);
    paintNumbers(painter, {505, 305, 300, 180}, fixedSpeed);
}

/// Texts that are wider than their room, and more lines than there is room for.
ReportContent fullReport() {
    ReportContent report;
    report.title = "Compressor selection";
    report.model = "TK-A-120 with a name that leaves no room for the wordmark beside it";
    report.version = "Marvello v. 1.0.0";
    report.address =
        "Kestrom, a street of a town with a name that goes on for longer than the foot of the page is wide, "
        "and another hundred letters of what else there is to say of where the makers of compressors live";
    report.warning = "There are warnings on this compressor at this operating point.";
    report.warning2 =
        "Read the messages of the selection and observe them before ordering, all of them, even if they are "
        "so many that the sentence that asks for it is wider than the page.";
    report.pages = QStringList{"Page 1 of 1"};
    report.date = "Monday, 4 May 2026";
    report.photo = QImage(90, 120, QImage::Format_RGB32);
    report.photo.fill(QColor(0x7F, 0x9F, 0xAF));
    report.envelope = drawing(fixedSpeedEnvelope(), {2, 40}, QString::fromUtf8("°C"));
    report.hasWarnings = true;
    for (const char* heading : {"Project conditions", "Results", "Technical data"}) {
        report.lines.push_back({heading, {}, true});
        for (int line = 1; line <= 18; ++line)
            report.lines.push_back({"Line " + std::to_string(line), storedText(line * 12.5)});
        report.lines.push_back({"A name that is long enough to reach the value",
                                "A value that is so long that both must be smaller"});
    }
    return report;
}

std::unique_ptr<QWidget> reportPage() {
    constexpr int width = 794, height = 1123;  // A4 at 96 dots per inch
    return std::make_unique<Painted>(QSize(width, height),
                                     [report = fullReport()](QPainter& painter, const QRectF&) {
                                         paintReport(painter, {210, 297}, report);
                                     });
}

}  // namespace

Scene reportScene() { return {"report", reportPage}; }

Scene graphScene() { return {"graphs", graphs, pointAt}; }

Scene envelopeScene() {
    return {"envelopes", [] { return std::make_unique<Painted>(QSize(805, 485), paintEnvelopes); }};
}

}  // namespace marvello::scenes
