#include "workspace/PartLoadBar.h"

#include <QAbstractButton>
#include <QFontMetrics>
#include <QLocale>
#include <QMenu>
#include <algorithm>
#include <array>

#include "controls/AdvanceText.h"
#include "controls/FilterChip.h"
#include "controls/Icons.h"
#include "controls/Look.h"
#include "controls/NumberText.h"
#include "controls/SegmentedSelector.h"
#include "controls/ctlBtn.h"
#include "inputs/InputTexts.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

using Form = Degradation::Form;

/// What the fields take, metric.
struct Limits {
    double minimum, maximum;
};
constexpr Limits differences{0, 40};     // K
constexpr Limits temperatures{-60, 80};  // degrees Celsius

struct Loss {
    Form form;
    const char* name;
    const char* textKey;
};
constexpr std::array<Loss, 3> losses{
    {{Form::none, "none", "frmselection.partload.loss.none"},
     {Form::condensingUnit, "condensingunit", "frmselection.partload.loss.condensingunit"},
     {Form::chiller, "chiller", "frmselection.partload.loss.chiller"}}};

double inUnits(Quantity quantity, double value, UnitSystem from, UnitSystem to) {
    return conversionOf(quantity)(value, from, to);
}

QString text(const char* key) { return dictionaryText(QLatin1String(key)); }

}  // namespace

PartLoadBar::PartLoadBar(QWidget* parent) : PageBar(parent), modes_(new SegmentedSelector(this)) {
    modes_->setObjectName(QStringLiteral("partLoadCondensing"));
    add(modes_, SegmentedSelector::ring);
    difference_ = addField("partLoadDifference");
    minimum_ = addField("partLoadMinimum");
    losses_ = new FilterChip(this);
    losses_->setObjectName(QStringLiteral("partLoadLosses"));
    losses_->setOpensList();
    add(losses_, FilterChip::ring);
    copy_ = addButton("partLoadCopy", "copy");
    export_ = addButton("partLoadExport", "export");
    connect(modes_, &SegmentedSelector::chosenByUser, this, [this] {
        refresh();
        emit ruleChanged();
    });
    serve(*difference_, Quantity::temperatureDifference, *rule_.difference);
    serve(*minimum_, Quantity::temperature, *rule_.minimum);
    connect(losses_, &FilterChip::clicked, this, &PartLoadBar::openLosses);
    connect(copy_, &ctlBtn::clicked, this, &PartLoadBar::copyClicked);
    connect(export_, &ctlBtn::clicked, this, &PartLoadBar::exportClicked);
}

AdvanceText* PartLoadBar::addField(const char* name) {
    auto* field = new AdvanceText(this);
    field->setObjectName(QLatin1String(name));
    field->SetTextType(1);
    field->SetTextFormat(QStringLiteral("#0.0"));
    field->setProperty("UnitCaptionVisible", true);
    add(field, 0);  // with room in front of its caption
    return field;
}

/// Takes what is typed, as long as it is a number that the field permits.
void PartLoadBar::serve(AdvanceText& field, Quantity quantity, double& metric) {
    field.SetReader([this, quantity](const QString& typed) {
        const EnteredQuantity read = readTyped(quantity, units_, toCore(plainNumberText(typed)));
        return TypedReading{read.value, read.isPlain, read.isUnfinished};
    });
    connect(&field, &AdvanceText::TextChange, this, [this, &field, quantity, &metric] {
        if (field.isInvalid() || field.TextText().isEmpty()) return emit ruleUnfinished();
        metric = inUnits(quantity, field.number(), units_, UnitSystem::metric);
        emit ruleChanged();
    });
}

ctlBtn* PartLoadBar::addButton(const char* name, const char* picture) {
    auto* button = new ctlBtn(this);
    button->setObjectName(QLatin1String(name));
    button->setIcon(icon(QLatin1String(picture)));
    add(button, ctlBtn::ring);
    return button;
}

void PartLoadBar::translate() {
    modes_->setChoices({{QStringLiteral("fixed"), text("frmselection.partload.fixed")},
                        {QStringLiteral("falling"), text("frmselection.partload.falling")}});
    modes_->setAccessibleName(text("frmselection.partload.condensing"));
    difference_->SetCaptionText(text("frmselection.partload.difference"));
    minimum_->SetCaptionText(text("frmselection.partload.minimum"));
    copy_->setText(text("frmselection.rating.copy"));
    export_->setText(text("frmselection.rating.export"));
    refresh();
}

/// The segments are made anew with their texts, at the end of the order.
void PartLoadBar::orderTabs(QWidget* next) const {
    QList<QWidget*> order;
    for (QAbstractButton* button : modes_->findChildren<QAbstractButton*>())
        if (button->focusPolicy() != Qt::NoFocus) order += button;
    order += {difference_, minimum_, losses_, copy_, export_, next};
    for (qsizetype i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void PartLoadBar::setUnits(UnitSystem units) {
    units_ = units;
    refresh();
}

void PartLoadBar::setHasTable(bool hasTable) {
    for (QWidget* button : std::initializer_list<QWidget*>{copy_, export_}) button->setEnabled(hasTable);
}

bool PartLoadBar::isFalling() const { return modes_->chosen() == u"falling"; }

QString PartLoadBar::lossText() const {
    const auto* const loss = std::ranges::find(losses, degradation_, &Loss::form);
    return filled(text("frmselection.partload.loss"), {text(loss->textKey)});
}

PartLoadRule PartLoadBar::rule(UnitSystem units) const {
    PartLoadRule rule{.condensing = {}, .degradation = usualDegradation(degradation_), .words = {}};
    if (isFalling()) {
        const auto said = [&](const char* key, Quantity quantity, double metric) {
            const double shown = inUnits(quantity, metric, UnitSystem::metric, units);
            return text(key) + u' ' + fromCore(formatNumber(shown, "#0.0", marksOf(QLocale()))) + u' ' +
                   fromCore(unitText(quantity, units));
        };
        rule.condensing = rule_;
        rule.words = {
            text("frmselection.partload.condensing") + QStringLiteral(": ") +
                text("frmselection.partload.falling"),
            said("frmselection.partload.difference", Quantity::temperatureDifference, *rule_.difference),
            said("frmselection.partload.minimum", Quantity::temperature, *rule_.minimum)};
    } else {
        rule.words = {text("frmselection.partload.fixed")};
    }
    rule.words += lossText();
    return rule;
}

void PartLoadBar::show(AdvanceText& field, Quantity quantity, double metric, double minimum, double maximum) {
    constexpr int unitWidth = 24;
    constexpr int boxWidth = 56;
    constexpr int gap = 8;
    const auto shown = [&](double value) { return inUnits(quantity, value, UnitSystem::metric, units_); };
    const int captionWidth = QFontMetrics(lookFont()).horizontalAdvance(field.CaptionText()) + gap;
    field.setProperty("CaptionWidth", captionWidth);
    field.setProperty("UnitCaptionWidth", unitWidth);
    field.SetUnitCaptiontext(fromCore(unitText(quantity, units_)));
    field.setProperty("TextMin", shown(minimum));
    field.setProperty("TextMax", shown(maximum));
    field.SetTextValue(shown(metric));
    field.setFixedSize(captionWidth + boxWidth + unitWidth + 2 * AdvanceText::halo,
                       AdvanceText::boxHeight + 2 * AdvanceText::halo);
    field.setVisible(isFalling());
}

void PartLoadBar::refresh() {
    show(*difference_, Quantity::temperatureDifference, *rule_.difference, differences.minimum,
         differences.maximum);
    show(*minimum_, Quantity::temperature, *rule_.minimum, temperatures.minimum, temperatures.maximum);
    losses_->setFilter(lossText(), -1);
    layOut();
}

void PartLoadBar::openLosses() {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const Loss& loss : losses) {
        QAction* entry = menu->addAction(text(loss.textKey));
        entry->setObjectName(QStringLiteral("partLoadLoss_") + QLatin1String(loss.name));
        entry->setCheckable(true);
        entry->setChecked(loss.form == degradation_);
        connect(entry, &QAction::triggered, this, [this, form = loss.form] {
            degradation_ = form;
            refresh();
            emit ruleChanged();
        });
    }
    menu->popup(losses_->mapToGlobal(QPoint(0, losses_->height())));
}

}  // namespace marvello
