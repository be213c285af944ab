#include "workspace/MappedLimits.h"

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <QTimer>
#include <algorithm>
#include <array>

#include "controls/NumberText.h"
#include "controls/PageBar.h"
#include "controls/ReadOut.h"
#include "controls/SegmentedSelector.h"
#include "controls/ctlGraph.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "results/FigureTexts.h"
#include "results/MarginTexts.h"
#include "results/Messages.h"
#include "results/PerformanceRows.h"
#include "results/ResultTable.h"
#include "results/ShownMap.h"
#include "thermo/EnteredQuantity.h"
#include "workspace/DrawnMap.h"
#include "workspace/ExportFile.h"
#include "workspace/LimitsPage.h"
#include "workspace/ResultMarks.h"
#include "workspace/SelectionExports.h"
#include "workspace/SelectionReport.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int beforeBusy = 300;  // milliseconds

/// In the order of the choices.
constexpr std::array mapFigures{Figure::cop,      Figure::capacity,
                                Figure::power,    Figure::dischargeTemperature,
                                Figure::massFlow, Figure::current};

QString text(const char* key) { return dictionaryText(QLatin1String(key)); }

QString nameOfFigure(Figure figure) { return fromCore(std::string(nameOf(figure))); }

QString plainNumber(double value) { return fromCore(formatNumber(value, "#0.##", marksOf(QLocale()))); }

QString aboutText(const clsCompressor& compressor, const clsProjectConditions& conditions, UnitSystem units) {
    const bool isSuperheat = conditions.SuperHeatType == SuperheatKind::difference;
    const auto difference = [units](double kelvin) {
        return plainNumber(convertedDifference(kelvin, UnitSystem::metric, units)) + u' ' +
               fromCore(unitText(Quantity::temperatureDifference, units));
    };
    const QString gas =
        isSuperheat ? difference(conditions.SuperHeat)
                    : plainNumber(convertedTemperature(conditions.SuperHeat, UnitSystem::metric, units)) +
                          u' ' + fromCore(unitText(Quantity::temperature, units));
    QString about =
        filled(isSuperheat ? text("frmselection.map.superheat") : text("frmselection.map.suction"),
               {fromCore(nameOf(compressor)), gas, difference(conditions.SubCooling)});
    if (compressor.hasInvert)
        about += QStringLiteral(", ") + plainNumber(static_cast<double>(conditions.InverterFrequency)) +
                 QStringLiteral(" Hz");
    return about;
}

}  // namespace

MappedLimits::MappedLimits(LimitsPage& page, const SelectionInputs& inputs)
    : QObject(&page),
      page_(page),
      inputs_(inputs),
      search_(new MapSearch(this)),
      patience_(new QTimer(this)) {
    patience_->setSingleShot(true);
    patience_->setInterval(beforeBusy);
    connect(patience_, &QTimer::timeout, this, &MappedLimits::showSentence);
    connect(search_, &MapSearch::found, this, &MappedLimits::takeMap);
    connect(&page_.selector(), &SegmentedSelector::chosenByUser, this, &MappedLimits::followQuantity);
    ctlGraph& graph = page_.graph();
    connect(&graph, &ctlGraph::pointMoved, this, &MappedLimits::readOutMoved);
    connect(&graph, &ctlGraph::pointPutBack, this, &MappedLimits::readOutPoint);
    connect(&graph, &ctlGraph::pointTaken, this,
            [this](double x, double y) { emit pointUsed({.evaporating = x, .condensing = y}); });
    graph.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&graph, &QWidget::customContextMenuRequested, this, &MappedLimits::openMenu);
}

void MappedLimits::setFollowed() {
    isFollowed_ = true;
    page_.graph().setMovable(true);
}

void MappedLimits::translate() {
    QList<SegmentedSelector::Choice> choices{{QString(), text("frmselection.map.none")}};
    for (const Figure figure : mapFigures)
        choices += {nameOfFigure(figure), dictionaryText(fromCore(std::string(textOf(figure).name)))};
    page_.selector().setChoices(choices);
    page_.bar().setCaption(text("frmselection.map.show"));
    page_.readOut().setTitle(text("frmselection.map.point"));
}

QString MappedLimits::quantity() const { return page_.selector().chosen(); }

void MappedLimits::setQuantity(const QString& name) {
    if (page_.selector().setChosen(name)) followQuantity();
}

std::optional<Figure> MappedLimits::figure() const {
    const auto* const found =
        std::ranges::find(mapFigures, quantity(), [](Figure each) { return nameOfFigure(each); });
    return found == mapFigures.end() ? std::nullopt : std::optional(*found);
}

void MappedLimits::clear() {
    search_->stop();
    patience_->stop();
    compressor_ = nullptr;
    conditions_.reset();
    page_.clear();
    page_.bar().setSentence(QString());
}

void MappedLimits::show(const clsCompressor& compressor,
                        const std::shared_ptr<const clsProjectConditions>& conditions) {
    const EnvelopeDrawing drawing = envelopeOf(compressor, inputs_);
    page_.setTexts(drawing.textX, drawing.textY, text("frmselection.tabstrip.tabs.limits"),
                   text("frmselection.limitreport.point"));
    page_.setLimits(drawing.limits, *drawing.point);
    if (!conditions) return;
    conditions_ = conditions;
    catalogue_ = preparedCatalogue(gDatabase());
    compressor_ = catalogue_->find(compressor.Refrigerant, compressor.Serie, compressor.Model);
    isPossible_ = compressor.Messages.Error.Count() == 0;
    about_ = aboutText(compressor, *conditions_, inputs_.units());
    readOutPoint();
    followQuantity();
}

void MappedLimits::followQuantity() {
    if (!compressor_) return;
    if (figure() && isPossible_) {
        MapSearch::Question question{compressor_->Refrigerant, compressor_->Serie, compressor_->Model,
                                     *conditions_};
        question.conditions.TEvaporatingDew = 0;
        question.conditions.TCondensationDew = 0;
        const bool isKnown = map_ && question == question_;
        if (!isKnown) map_.reset();
        if (!(isKnown && isWhole_) && !(search_->isSearching() && question == question_)) {
            question_ = question;
            search_->ask(question);
            patience_->start();
        }
    } else {
        search_->stop();
        patience_->stop();
    }
    showMap();
    readOutPoint();
}

void MappedLimits::takeMap(const std::shared_ptr<const PerformanceMap>& map, bool isLast) {
    if (isLast) patience_->stop();
    map_ = map;
    isWhole_ = isLast && map;
    showMap();
}

void MappedLimits::showMap() {
    const auto chosen = figure();
    std::optional<ShownMap> shown;
    if (chosen && compressor_ && isPossible_ && map_) {
        const clsLimits& limits = compressor_->envelopeFor(conditions_->EcoCalculateMode)->limits;
        shown = shownMap(*map_, limits, *chosen, inputs_.units(), marksOf(QLocale()));
    }
    isMapless_ = chosen && !search_->isSearching() && !shown;
    page_.setMap(shown ? drawnMap(*shown) : nullptr);
    showSentence();
}

void MappedLimits::showSentence() {
    QString sentence = about_;
    if (page_.graph().isMoved())
        sentence = text("frmselection.map.move");
    else if (figure() && !isPossible_)
        sentence = text("frmselection.map.error");
    else if (isMapless_)
        sentence = text("frmselection.map.novalues");
    else if (search_->isSearching() && !patience_->isActive())
        sentence = text("frmselection.map.busy");
    page_.bar().setSentence(sentence);
}

void MappedLimits::readOutPoint() {
    if (!conditions_) return;
    const std::optional<clsPoint>& point = page_.graph().Point();
    if (point) readOut(*conditions_, point->x, point->Y);
    showSentence();
}

void MappedLimits::readOutMoved(double x, double y) {
    if (!conditions_) return;
    clsProjectConditions conditions = *conditions_;
    conditions.TEvaporatingDew = convertedTemperature(x, inputs_.units(), UnitSystem::metric);
    conditions.TCondensationDew = convertedTemperature(y, inputs_.units(), UnitSystem::metric);
    readOut(conditions, x, y);
    showSentence();
}

void MappedLimits::readOut(const clsProjectConditions& conditions, double x, double y) {
    if (!compressor_) return;
    const UnitSystem units = inputs_.units();
    const NumberMarks marks = marksOf(QLocale());
    const auto temperature = [&](double value) { return fromCore(formatNumber(value, "#0.0", marks)); };
    const QString degrees = fromCore(unitText(Quantity::temperature, units));
    const CollectedBoxes said;  // the note says it
    const clsCompressor* calculated = nullptr;
    try {
        calculated = &calculator_.calculate(*compressor_, conditions);
    } catch (const std::exception& failure) {
        page_.readOut().setValues({}, fromCore(failure.what()), markOf(Severity::error));
        return;
    }
    const Performance performance = performanceOf(*calculated);
    const auto shown = [&](Figure figure) {
        const QString value = fromCore(shownFigure(figure, valueOf(performance, figure), units, marks).text);
        const QString unit = fromCore(unitOf(figure, units));
        return unit.isEmpty() || !performance.hasValues() ? value : value + u' ' + unit;
    };
    std::vector<ReadOut::Row> rows{
        {text("frmselection.txtted.captiontext"), temperature(x) + u' ' + degrees},
        {text("frmselection.txttcd.captiontext"), temperature(y) + u' ' + degrees}};
    std::vector<Figure> figures{Figure::capacity, Figure::power, Figure::cop};
    const auto chosen = figure();
    if (chosen && std::ranges::find(figures, *chosen) == figures.end()) figures.push_back(*chosen);
    for (const Figure each : figures)
        rows.push_back({dictionaryText(fromCore(std::string(textOf(each).name))), shown(each)});
    const std::string margin = marginText(*calculated, units, marks);
    rows.push_back({text("find.column.margin"), margin.empty() ? QStringLiteral("-") : fromCore(margin)});

    const std::vector<ShownMessage> messages = messagesOf(*calculated);
    const bool hasNote = !messages.empty() && messages.front().severity != Severity::information;
    page_.readOut().setValues(std::move(rows), hasNote ? fromCore(messages.front().text) : QString(),
                              hasNote ? markOf(messages.front().severity) : QString());
    std::vector<LimitDistances::Row> distances;
    for (const ShownMargin& each : shownMargins(*calculated, conditions, units, marks))
        distances.push_back(
            {each.limitType, fromCore(each.name), fromCore(each.distance), fromCore(each.direction)});
    page_.setDistances(text("frmselection.limits.distance"), std::move(distances));
    const Figure labelled = chosen.value_or(Figure::cop);
    page_.graph().setMovedText(QStringLiteral("%1 / %2 %3   %4 %5")
                                   .arg(temperature(x), temperature(y), degrees,
                                        dictionaryText(fromCore(std::string(textOf(labelled).name))),
                                        shown(labelled)));
}

void MappedLimits::openMenu(const QPoint& place) {
    QMenu menu(&page_);
    menu.setObjectName(QStringLiteral("mnu_map"));
    menu.addAction(text("frmselection.map.copy"), this, &MappedLimits::copyPicture);
    QAction* const exporting =
        menu.addAction(text("frmselection.map.export"), this, &MappedLimits::exportMap);
    exporting->setEnabled(map_ && isWhole_ && page_.hasMap());
    if (isFollowed_)
        menu.addAction(text("frmselection.calculation.print"), this, &MappedLimits::printWanted)
            ->setEnabled(isPossible_);
    menu.exec(page_.graph().mapToGlobal(place));
}

void MappedLimits::copyPicture() const {
    auto* data = new QMimeData;
    data->setImageData(page_.graph().PictureImage());
    data->setData(QStringLiteral("image/svg+xml"), page_.graph().pictureSvg());
    QGuiApplication::clipboard()->setMimeData(data);
}

void MappedLimits::exportMap() {
    if (!map_) return;
    const auto map = map_;  // it may be replaced while the dialog is open
    const bool hasEconomizer = conditions_->EcoCalculateMode != EconomizerMode::none;
    const auto file = chooseExportFile(&page_, {ExportFile::Form::csv},
                                       fromCore(compressor_->Serie + '-' + compressor_->Model));
    if (!file) return;
    std::vector<PerformanceRow> rows;
    for (int point = 0; point < map->grid.count(); ++point)
        rows.push_back(
            {map->grid.ted(point), map->grid.tcd(point), map->points[static_cast<std::size_t>(point)]});
    const QString path = QDir::toNativeSeparators(file->path);
    if (const QString failure = writeExport(performanceCsv(rows, hasEconomizer), *file); !failure.isEmpty())
        sayNotWritten(path, failure, &page_);
    else
        emit exported(filled(text("frmselection.map.exported"), {QString::number(rows.size()), path}));
}

}  // namespace marvello
