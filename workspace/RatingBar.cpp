#include "workspace/RatingBar.h"

#include <QLocale>
#include <QMenu>
#include <memory>
#include <span>

#include "controls/FilterChip.h"
#include "controls/Icons.h"
#include "controls/NumberText.h"
#include "controls/SegmentedSelector.h"
#include "controls/ctlBtn.h"
#include "results/FigureTexts.h"
#include "thermo/EnteredQuantity.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr std::array metricSteps{1.0, 2.0, 2.5, 5.0, 10.0};  // K
constexpr std::array imperialSteps{2.0, 5.0, 10.0, 20.0};    // degrees Fahrenheit
constexpr std::array frequencySteps{2.0, 5.0, 10.0};         // Hz

struct FileEntry {
    RatingFile file;
    const char* name;
    const char* textKey;
};
constexpr std::array<FileEntry, 4> fileEntries{
    {{RatingFile::table, "table", "frmselection.rating.export.table"},
     {RatingFile::en12900, "en12900", "frmselection.rating.export.en12900"},
     {RatingFile::ahri540, "ahri540", "frmselection.rating.export.ahri540"},
     {RatingFile::energyPlus, "energyplus", "frmselection.rating.export.energyplus"}}};

std::size_t indexOf(UnitSystem units) { return units == UnitSystem::imperial ? 1 : 0; }

QString keyOf(Figure figure) { return fromCore(nameOf(figure)); }

}  // namespace

RatingBar::RatingBar(QWidget* parent) : PageBar(parent), figures_(new SegmentedSelector(this)) {
    figures_->setObjectName(QStringLiteral("ratingFigure"));
    add(figures_, SegmentedSelector::ring);
    across_ = addChip(QStringLiteral("ratingAcross"));
    down_ = addChip(QStringLiteral("ratingDown"));
    copy_ = new ctlBtn(this);
    copy_->setObjectName(QStringLiteral("ratingCopy"));
    copy_->setIcon(icon(QStringLiteral("copy")));
    export_ = new ctlBtn(this);
    export_->setObjectName(QStringLiteral("ratingExport"));
    export_->setIcon(icon(QStringLiteral("export")));
    for (ctlBtn* button : {copy_, export_}) add(button, ctlBtn::ring);
    connect(figures_, &SegmentedSelector::chosenByUser, this, &RatingBar::figureChanged);
    connect(across_, &FilterChip::clicked, this, [this] { openSteps(across_, true); });
    connect(down_, &FilterChip::clicked, this, [this] { openSteps(down_, false); });
    connect(copy_, &ctlBtn::clicked, this, &RatingBar::copyClicked);
    connect(export_, &ctlBtn::clicked, this, &RatingBar::openExports);
}

FilterChip* RatingBar::addChip(const QString& name) {
    auto* chip = new FilterChip(this);
    chip->setObjectName(name);
    chip->setOpensList();
    add(chip, FilterChip::ring);
    return chip;
}

void RatingBar::translate() {
    QList<SegmentedSelector::Choice> choices;
    for (const Figure figure : figures())
        choices.append({keyOf(figure), dictionaryText(fromCore(marvello::textOf(figure).name))});
    figures_->setChoices(choices);
    figures_->setAccessibleName(dictionaryText(QStringLiteral("frmselection.rating.figure")));
    copy_->setText(dictionaryText(QStringLiteral("frmselection.rating.copy")));
    export_->setText(dictionaryText(QStringLiteral("frmselection.rating.export")));
    refresh();
}

void RatingBar::setSubject(UnitSystem units, bool hasInverter) {
    units_ = units;
    hasInverter_ = hasInverter;
    refresh();
}

void RatingBar::setHasTable(bool hasTable) {
    for (QWidget* button : std::initializer_list<QWidget*>{copy_, export_}) button->setEnabled(hasTable);
}

Figure RatingBar::figure() const {
    for (const Figure figure : figures())
        if (keyOf(figure) == figures_->chosen()) return figure;
    return Figure::capacity;
}

RatingStyle RatingBar::tableStyle() const {
    const bool hasFrequencies = hasInverter_ && hasFrequencies_;
    return {.units = units_,
            .across = hasFrequencies ? RatingAcross::frequency : RatingAcross::evaporating,
            .acrossStep = hasFrequencies ? frequencyStep_ : acrossStep_.at(indexOf(units_)),
            .downStep = downStep_.at(indexOf(units_))};
}

QString RatingBar::textOf(const Step& step, bool isAcross) const {
    const bool isFrequency = step.across == RatingAcross::frequency;
    const char* const axis = isFrequency ? "frmselection.txtfrequency.captiontext"
                             : isAcross  ? "frmselection.txtted.captiontext"
                                         : "frmselection.txttcd.captiontext";
    const auto quantity = isFrequency ? Quantity::frequency : Quantity::temperatureDifference;
    return filled(
        dictionaryText(QStringLiteral("frmselection.rating.step")),
        {dictionaryText(QLatin1String(axis)), fromCore(formatNumber(step.size, "#0.##", marksOf(QLocale()))) +
                                                  u' ' + fromCore(unitText(quantity, units_))});
}

void RatingBar::refresh() {
    const RatingStyle shown = tableStyle();
    across_->setFilter(textOf({shown.across, shown.acrossStep}, true), -1);
    down_->setFilter(textOf({RatingAcross::evaporating, shown.downStep}, false), -1);
    layOut();
}

void RatingBar::addSteps(QMenu& menu, RatingAcross across, bool isAcross) {
    const RatingStyle shown = tableStyle();
    const bool isFrequency = across == RatingAcross::frequency;
    const std::span<const double> sizes = isFrequency ? std::span<const double>(frequencySteps)
                                          : units_ == UnitSystem::imperial
                                              ? std::span<const double>(imperialSteps)
                                              : std::span<const double>(metricSteps);
    for (const double size : sizes) {
        QAction* entry = menu.addAction(textOf({across, size}, isAcross));
        entry->setCheckable(true);
        entry->setChecked(isAcross ? shown.across == across && shown.acrossStep == size
                                   : shown.downStep == size);
        connect(entry, &QAction::triggered, this, [this, isFrequency, isAcross, size] {
            if (isAcross) hasFrequencies_ = isFrequency;
            (isFrequency ? frequencyStep_
             : isAcross  ? acrossStep_.at(indexOf(units_))
                         : downStep_.at(indexOf(units_))) = size;
            refresh();
            emit styleChanged();
        });
    }
}

void RatingBar::openSteps(FilterChip* chip, bool isAcross) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addSteps(*menu, RatingAcross::evaporating, isAcross);
    if (isAcross && hasInverter_) {
        menu->addSeparator();
        addSteps(*menu, RatingAcross::frequency, isAcross);
    }
    menu->popup(chip->mapToGlobal(QPoint(0, chip->height())));
}

void RatingBar::openExports() {
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("ratingExports"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const FileEntry& each : fileEntries) {
        QAction* entry = menu->addAction(dictionaryText(QLatin1String(each.textKey)));
        entry->setObjectName(QStringLiteral("ratingExport_") + QLatin1String(each.name));
        connect(entry, &QAction::triggered, this, [this, file = each.file] { emit exportClicked(file); });
        if (each.file == RatingFile::table) menu->addSeparator();
    }
    menu->popup(export_->mapToGlobal(QPoint(ctlBtn::ring, export_->height())));
}

}  // namespace marvello
