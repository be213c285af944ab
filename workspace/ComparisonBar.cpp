#include "workspace/ComparisonBar.h"

#include <QActionGroup>
#include <QMenu>
#include <cmath>

#include "controls/AdvanceText.h"
#include "controls/CoreText.h"
#include "controls/FilterChip.h"
#include "controls/NumberText.h"
#include "thermo/EnteredQuantity.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

struct FieldDefinition {
    const char* name;
    const char* captionKey;
    double OperatingPoint::* value;
    Quantity quantity;
};
constexpr std::array<FieldDefinition, 4> definitions{
    {{"txtTED", "frmselection.txtted.captiontext", &OperatingPoint::ted, Quantity::temperature},
     {"txtTCD", "frmselection.txttcd.captiontext", &OperatingPoint::tcd, Quantity::temperature},
     {"txtSH", "frmselection.cmbsh.captiontext", &OperatingPoint::superheat, Quantity::temperatureDifference},
     {"txtSC", "frmselection.txtsc.captiontext", &OperatingPoint::subcooling,
      Quantity::temperatureDifference}}};

constexpr std::size_t gasField = 2;

/// A suction gas may be stated as a temperature.
Quantity quantityOf(std::size_t field, const OperatingPoint& point) {
    const bool isTemperature = field == gasField && point.superheatKind != SuperheatKind::difference;
    return isTemperature ? Quantity::temperature : definitions.at(field).quantity;
}

/// What can be entered, in metric units.
struct Range {
    double low, high;
};
Range rangeOf(Quantity quantity) {
    return quantity == Quantity::temperature ? Range{-100, 150} : Range{0, 100};
}

/// The name under which readQuantity() knows the unit.
const char* unitName(UnitSystem units, Quantity quantity) {
    if (units == UnitSystem::imperial) return "F";
    return quantity == Quantity::temperature ? "C" : "K";
}

}  // namespace

ComparisonBar::ComparisonBar(QWidget* parent)
    : PageBar(parent), same_(new FilterChip(this)), differences_(new FilterChip(this)) {
    same_->setObjectName(QStringLiteral("samePoint"));
    add(same_, FilterChip::ring);
    for (std::size_t i = 0; i < fieldCount; ++i) {
        auto* field = new AdvanceText(this);
        field->setObjectName(QLatin1String(definitions.at(i).name));
        field->SetTextType(1);
        field->SetTextFormat(QStringLiteral("#0.0"));
        field->setProperty("UnitCaptionVisible", true);
        field->SetReader([this, i](const QString& text) {
            const Quantity quantity = quantityOf(i, point_);
            const EnteredQuantity read =
                readQuantity(toCore(plainNumberText(text)), quantity, unitName(units_, quantity));
            return TypedReading{read.value, read.isPlain, read.isUnfinished};
        });
        connect(field, &AdvanceText::TextChange, this, [this, i] { typed(i); });
        add(field, AdvanceText::halo);
        fields_.at(i) = field;
    }
    differences_->setObjectName(QStringLiteral("reference"));
    differences_->setOpensList();
    add(differences_, FilterChip::ring);
    connect(same_, &FilterChip::toggled, this, &ComparisonBar::sameChosen);
    connect(differences_, &FilterChip::clicked, this, &ComparisonBar::openReferences);
}

void ComparisonBar::translate() {
    same_->setFilter(dictionaryText(QStringLiteral("frmcomparison.samepoint")), -1);
    for (std::size_t i = 0; i < fieldCount; ++i)
        fields_.at(i)->SetCaptionText(dictionaryText(QLatin1String(definitions.at(i).captionKey)));
    refresh();
}

void ComparisonBar::showPoint(const OperatingPoint& point, bool isSame, UnitSystem units) {
    const QSignalBlocker quiet(same_);
    same_->setChecked(isSame);
    point_ = point;
    units_ = units;
    refresh();
}

void ComparisonBar::showReference(const std::vector<ComparedHead>& heads, const std::vector<int>& numbers,
                                  std::optional<std::size_t> reference) {
    heads_ = heads;
    numbers_ = numbers;
    reference_ = reference;
    refresh();
}

void ComparisonBar::refresh() {
    constexpr int boxWidth = 64;
    constexpr int unitWidth = 24;
    constexpr int gap = 10;
    for (std::size_t i = 0; i < fieldCount; ++i) {
        AdvanceText* const field = fields_.at(i);
        const Quantity quantity = quantityOf(i, point_);
        const UnitRule convert = conversionOf(quantity);
        const double value = convert(point_.*definitions.at(i).value, UnitSystem::metric, units_);
        field->SetUnitCaptiontext(fromCore(unitText(quantity, units_)));
        const auto [low, high] = rangeOf(quantity);
        field->setProperty("TextMin", convert(low, UnitSystem::metric, units_));
        field->setProperty("TextMax", convert(high, UnitSystem::metric, units_));
        field->setProperty("UnitCaptionWidth", unitWidth);
        const int caption = field->fontMetrics().horizontalAdvance(field->CaptionText()) + gap;
        field->setProperty("CaptionWidth", caption);
        field->setFixedSize(caption + boxWidth + unitWidth + 2 * AdvanceText::halo,
                            AdvanceText::boxHeight + 2 * AdvanceText::halo);
        const bool isOwn = field->isAncestorOf(focusWidget()) && field->number() == value;
        if (!isOwn) field->SetTextValue(value);  // not below the cursor
        field->setVisible(same_->isChecked());
    }
    const QString from = reference_ ? filled(dictionaryText(QStringLiteral("frmcomparison.reference")),
                                             {fromCore(heads_.at(*reference_).name)})
                                    : dictionaryText(QStringLiteral("frmcomparison.noreference"));
    differences_->setFilter(from, -1);
    layOut();
}

void ComparisonBar::typed(std::size_t index) {
    constexpr double noise = 1e-9;  // of a conversion there and back
    const AdvanceText* const field = fields_.at(index);
    if (field->isInvalid() || field->TextText().isEmpty()) return;
    const UnitRule convert = conversionOf(quantityOf(index, point_));
    const double metric = convert(field->number(), units_, UnitSystem::metric);
    double& value = point_.*definitions.at(index).value;
    if (std::abs(metric - value) <= noise) return;
    value = metric;
    emit pointTyped(point_);
}

void ComparisonBar::openReferences() {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    auto* group = new QActionGroup(menu);
    const auto addChoice = [&](const QString& text, bool isChosen, std::optional<int> number) {
        QAction* entry = menu->addAction(text);
        entry->setCheckable(true);
        entry->setChecked(isChosen);
        group->addAction(entry);
        connect(entry, &QAction::triggered, this, [this, number] { emit referenceChosen(number); });
    };
    addChoice(dictionaryText(QStringLiteral("frmcomparison.noreference")), !reference_, std::nullopt);
    for (std::size_t i = 0; i < heads_.size(); ++i)
        addChoice(
            filled(dictionaryText(QStringLiteral("frmcomparison.reference")), {fromCore(heads_[i].label())}),
            reference_ == i, numbers_[i]);
    menu->popup(differences_->mapToGlobal(QPoint(0, differences_->height())));
}

}  // namespace marvello
