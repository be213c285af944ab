#include "workspace/FoundFilterBar.h"

#include <QButtonGroup>
#include <algorithm>
#include <utility>

#include "controls/FilterChip.h"
#include "controls/ctlCombo.h"
#include "workspace/RefrigerantDetail.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

const QString allKey = QStringLiteral("*");

struct FilterName {
    FoundFilter filter;
    const char* name;
    const char* textKey;
};
constexpr std::array<FilterName, 6> filterNames{
    {{FoundFilter::bestOfEach, "best", "find.filter.best"},
     {FoundFilter::withoutWarnings, "nowarnings", "find.filter.nowarnings"},
     {FoundFilter::oneMachine, "onemachine", "find.filter.onemachine"},
     {FoundFilter::onInverter, "inverter", "find.filter.inverter"},
     {FoundFilter::lowGwp, "lowgwp", "find.filter.lowgwp"},
     {FoundFilter::notFlammable, "notflammable", "find.filter.notflammable"}}};

constexpr std::array<std::pair<FoundFact, const char*>, 3> facts{
    {{FoundFact::refrigerant, "find.column.refrigerant"},
     {FoundFact::safetyClass, "find.filter.safetyclass"},
     {FoundFact::series, "frmselection.lstseries.captiontext"}}};

QStringList listOf(const std::set<std::string>& values) {
    QStringList list;
    for (const std::string& value : values) list += fromCore(value);
    return list;
}

}  // namespace

FoundFilterBar::FoundFilterBar(QWidget* parent) : WrapBar(parent) {
    makeChips();
    makeChoiceChips();
}

void FoundFilterBar::makeChips() {
    auto* shown = new QButtonGroup(this);
    const auto addChip = [this](FilterChip* chip, const QString& name) {
        chip->setObjectName(QStringLiteral("chip_") + name);
        add(chip, FilterChip::ring);
        connect(chip, &FilterChip::toggled, this, &FoundFilterBar::changed);
    };
    all_ = new FilterChip(this);
    for (std::size_t i = 0; i < chips_.size(); ++i) {
        const auto& [filter, name, textKey] = filterNames.at(i);
        chips_[i] = {filter, name, textKey, new FilterChip(this)};
        addChip(chips_[i].button, QLatin1String(name));
        if (filter != FoundFilter::bestOfEach) continue;
        addChip(all_, QStringLiteral("all"));
        addSeparator();
        shown->addButton(chips_[i].button);
        shown->addButton(all_);
        chips_[i].button->setChecked(true);
    }
}

void FoundFilterBar::makeChoiceChips() {
    for (std::size_t i = 0; i < choiceChips_.size(); ++i) {
        const auto& [fact, textKey] = facts.at(i);
        ChoiceChip& chip = choiceChips_[i];
        chip = {fact, textKey, new FilterChip(this)};
        chip.button->setOpensList();
        chip.button->setObjectName(QStringLiteral("chip_fact%1").arg(i));
        add(chip.button, FilterChip::ring);
        connect(chip.button, &FilterChip::clicked, this, [this, &chip] { open(chip); });
    }
}

void FoundFilterBar::translate() {
    all_->setText(dictionaryText(QStringLiteral("find.filter.all")));
    for (const Chip& chip : chips_) chip.button->setText(dictionaryText(QLatin1String(chip.textKey)));
    refresh();
}

void FoundFilterBar::showResult(const std::shared_ptr<const FindResult>& result, UnitSystem units) {
    result_ = result;
    units_ = units;
    for (ChoiceChip& chip : choiceChips_) {
        const std::set<std::string> values = valuesOf(*result_, chip.fact);
        std::erase_if(chip.chosen, [&](const std::string& value) { return !values.contains(value); });
    }
    refresh();
}

void FoundFilterBar::refresh() {
    for (const Chip& chip : chips_)
        chip.button->setFilter(chip.button->text(), result_ ? countOf(*result_, chip.filter) : 0);
    all_->setFilter(all_->text(), result_ ? static_cast<int>(result_->candidates.size()) : 0);
    for (const ChoiceChip& chip : choiceChips_) refresh(chip);
    layOut();
}

void FoundFilterBar::refresh(const ChoiceChip& chip) {
    constexpr std::size_t maxNamed = 3;
    const bool isOn = !chip.chosen.empty();
    QString text = dictionaryText(QLatin1String(chip.textKey));
    if (isOn)
        text += QStringLiteral(": ") + (chip.chosen.size() > maxNamed
                                            ? QString::number(chip.chosen.size())
                                            : listOf(chip.chosen).join(QStringLiteral(", ")));
    chip.button->setChecked(isOn);
    chip.button->setFilter(text, isOn && result_ ? countOf(*result_, chip.fact, chip.chosen) : -1);
}

void FoundFilterBar::open(ChoiceChip& chip) {
    if (!result_) return;
    if (!values_) {
        values_ = new ctlCombo(window());
        values_->setObjectName(QStringLiteral("lstFacts"));
        connect(values_, &ctlCombo::Choice, this, [this](const QString& keys) { choose(*opened_, keys); });
        connect(values_, &ctlCombo::Closed, this,
                [this] { opened_->button->setFocus(Qt::PopupFocusReason); });
    }
    values_->hide();
    opened_ = &chip;
    const QString all = allKey + u'|' + dictionaryText(QStringLiteral("frmselection.models.all"));
    values_->Populate(all + u';' + listOf(valuesOf(*result_, chip.fact)).join(u';'),
                      chip.chosen.empty() ? allKey : listOf(chip.chosen).join(u';'), false, true);
    if (chip.fact == FoundFact::refrigerant)
        values_->setDetails([this](const QString& key) { return refrigerantDetail(key, units_); });
    values_->SetCaption(dictionaryText(QLatin1String(chip.textKey)));
    values_->setApplyText(dictionaryText(QStringLiteral("frmselection.apply")));
    constexpr int minWidth = 240;
    QRect box(chip.button->mapToGlobal(QPoint()), chip.button->size());
    box.setWidth(std::max(box.width(), minWidth));
    values_->openUnder(box);
}

void FoundFilterBar::choose(ChoiceChip& chip, const QString& keys) {
    chip.chosen.clear();
    for (const QString& key : keys.split(u';', Qt::SkipEmptyParts))
        if (key != allKey) chip.chosen.insert(toCore(key));
    refresh(chip);
    layOut();
    emit changed();
}

FoundFilters FoundFilterBar::filters() const {
    FoundFilters filters;
    for (const Chip& chip : chips_)
        if (chip.button->isChecked()) filters.insert(chip.filter);
    return filters;
}

FoundChoices FoundFilterBar::choices() const {
    FoundChoices choices;
    for (const ChoiceChip& chip : choiceChips_) choices[chip.fact] = chip.chosen;
    return choices;
}

QStringList FoundFilterBar::names() const {
    QStringList names;
    for (const Chip& chip : chips_)
        if (chip.button->isChecked()) names += QLatin1String(chip.name);
    return names;
}

void FoundFilterBar::setNames(const QStringList& names) {
    const QSignalBlocker quiet(this);
    for (const Chip& chip : chips_) chip.button->setChecked(names.contains(QLatin1String(chip.name)));
    if (!chips_.front().button->isChecked()) all_->setChecked(true);
    layOut();
}

}  // namespace marvello
