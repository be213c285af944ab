// The inputs of a selection form: what they offer, and how they follow one another.

#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/CatalogueLists.h"
#include "catalogue/Globals.h"
#include "catalogue/clsInverter.h"
#include "controls/AdvanceText.h"
#include "controls/MessageBox.h"
#include "controls/NumberText.h"
#include "controls/Splitter.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "data/Texts.h"
#include "thermo/clsRefprop.h"
#include "workspace/CoupledFields.h"
#include "workspace/DropList.h"
#include "workspace/InputPanel.h"
#include "workspace/InputRules.h"
#include "workspace/SelectionForm.h"
#include "workspace/TypedQuantities.h"
#include "workspace/UnitTexts.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

QString descriptionOf(const QString& key, const QString& list) {
    return fromCore(ListLookup(toCore(key), toCore(list)));
}

/// What a selector stands at in a new form, and where a series does not offer it.
struct NeutralKey {
    const char* field;
    const char* key;
};
constexpr std::array<NeutralKey, 7> neutralKeys{{{"cmbStepCapacity", "100"},
                                                 {"cmbMotorVoltage", "400_50"},
                                                 {"cmbMotorSize", "-1"},
                                                 {"cmbEco", "0"},
                                                 {"cmbMotorRPM", "1450"},
                                                 {"cmbOilCooling", "1"},
                                                 {"cmbSh", "0"}}};

/// Empty for a field that has none.
QString neutralKeyOf(const AdvanceText* field) {
    for (const auto& [name, key] : neutralKeys)
        if (field->objectName() == QLatin1String(name)) return QLatin1String(key);
    return {};
}

/// Names as a list in which each is its own caption.
QString pairsOf(const std::vector<std::string>& names) {
    QStringList pairs;
    for (const std::string& name : names) pairs += fromCore(name + '|' + name);
    return pairs.join(u';');
}

QString allModels() {
    return QStringLiteral("*|") + dictionaryText(QStringLiteral("frmselection.models.all"));
}

/// The key of a field's help, empty for a field that has none.
QString helpKeyOf(const QString& name) {
    if (name == u"lstRefrigerants") return QStringLiteral("formselection.help.refrigerants.caption");
    if (name == u"txtTCM") return QStringLiteral("frmselections.help.txttcm.caption");
    if (name == u"txtEco") return QStringLiteral("frmselection.help.cmbeco.caption");
    if (name == u"lstModels") return {};
    return QStringLiteral("frmselection.help.%1.caption").arg(name.toLower());
}

/// Empty for a field without help.
QString helpOf(const AdvanceText* field, UnitSystem system) {
    const QString key = helpKeyOf(field->objectName());
    return key.isEmpty() ? QString() : inUnits(dictionaryTextIfAny(key), system);
}

}  // namespace

void SelectionForm::writeDefaults() {
    for (AdvanceText* field : panel_->fields())
        if (const QString key = neutralKeyOf(field); !key.isEmpty()) field->setkey(key);
    panel_->cmbStepCapacity->SetTag1(QStringLiteral("100|100%;75|75%;50|50%;25|Start/Stop(25%)"));
    panel_->txtTED->SetTextValue(2.0);
    panel_->txtTCD->SetTextValue(40.0);
    panel_->txtSC->SetTextValue(5.0);
    panel_->txtEco->SetTextValue(10.0);
    panel_->txtSH->SetTextValue(10.0);
    panel_->txtOilCooling->SetTextValue(110.0);
    if (panel_->txtFrequency) panel_->txtFrequency->SetTextValue(50.0);
}

void SelectionForm::connectInputs() {
    for (AdvanceText* field : panel_->fields()) {
        connect(field, &AdvanceText::TextGotFocus, this, [this, field] {
            VisualizeHelp(field);
            walkPair(field);
        });
        const auto changed = [this, field] { inputsChanged(field); };
        connect(field, &AdvanceText::KeyPress, this, changed);
        connect(field, &AdvanceText::TextChange, this, changed);
        connect(field, &AdvanceText::KeyChange, this, changed);
        if (field->Locked()) dropList_->serve(field, field == panel_->lstModels);
    }
    takeOtherUnits(*panel_, [this] { return measureUnit_; });
    connectCoupledFields();
    connectModes();
    for (AdvanceText* field : panel_->fields())
        connect(field, &AdvanceText::TextChange, this, &SelectionForm::sayRanges);
}

void SelectionForm::connectCoupledFields() {
    for (AdvanceText* field : {panel_->txtTED, panel_->txtTEM, panel_->txtPE, panel_->txtTCD, panel_->txtTCM,
                               panel_->txtPC, panel_->txtSC}) {
        connect(field, &AdvanceText::TextChange, this, [this, field] { typedIn(field); });
        connect(field, &AdvanceText::KeyPress, this, [this, field](int key) {
            if (key != AdvanceText::enterCode) return;
            SyncTemperatureFields(field == panel_->txtSC ? QStringLiteral("ted") : nameInCouple(field));
        });
    }
    connect(panel_->txtSC, &AdvanceText::TextValidate, this,
            [this] { panel_->txtSC->SetTextValue(std::abs(panel_->txtSC->number())); });
    connect(panel_->txtEco, &AdvanceText::TextValidate, this, [this] {
        const QString mode = panel_->cmbEco->Key();
        const double value = panel_->txtEco->number();
        panel_->txtEco->SetTextValue(mode == approachMode || mode == capacityMode ? std::abs(value) : value);
    });
    if (AdvanceText* frequency = panel_->txtFrequency)
        connect(frequency, &AdvanceText::TextValidate, this,
                [frequency] { frequency->SetTextValue(frequency->number()); });
    connect(panel_->txtSH, &AdvanceText::TextLostFocus, this, [this] { gestioneSH(true); });
}

void SelectionForm::connectModes() {
    connect(panel_->lstRefrigerants, &AdvanceText::KeyChange, this, [this] {
        PopulateInputObject(2);
        for (AdvanceText* mid : {panel_->txtTEM, panel_->txtTCM}) mid->setVisible(hasMidTemperatures());
        panel_->layOut();
        leadByDew();
        emit stateChanged();
    });
    connect(panel_->lstSeries, &AdvanceText::KeyChange, this, [this] {
        PopulateInputObject(3);
        ApplySeriesRules();
        emit stateChanged();
    });
    connect(panel_->cmbEco, &AdvanceText::KeyChange, this, &SelectionForm::economizerModeChanged);
    connect(panel_->cmbOilCooling, &AdvanceText::KeyChange, this, [this] {
        panel_->txtOilCooling->setVisible(panel_->cmbOilCooling->Key().toInt() >= 2);
        panel_->layOut();
        showUnits();
    });
    connect(panel_->cmbSh, &AdvanceText::KeyChange, this, [this] {
        panel_->layOut();
        showUnits();
        gestioneSH(false);
    });
}

void SelectionForm::economizerModeChanged(const QString& before, const QString& mode) {
    if (before != noEconomizer)
        economizerValues_.keep(toCore(before), panel_->txtEco->number(), measureUnit_);
    if (mode != noEconomizer)
        panel_->txtEco->SetTextValue(economizerValues_.valueOf(toCore(mode), measureUnit_));
    panel_->txtEco->setVisible(mode != noEconomizer);
    panel_->layOut();
    showUnits();
}

void SelectionForm::keepEconomizerValue() {
    const QString mode = panel_->cmbEco->Key();
    economizerValues_.keep(toCore(mode == noEconomizer ? approachMode : mode), panel_->txtEco->number(),
                           measureUnit_);
}

bool SelectionForm::hasMidTemperatures() const {
    return refrigerantTraits(toCore(panel_->lstRefrigerants->Key())).hasMidTemperatures();
}

void SelectionForm::showChoice(AdvanceText* field) {
    const QString text = descriptionOf(field->Key(), field->Tag1());
    // Several models stand there by their keys.
    field->SetTextValue(text.isEmpty() ? field->Key() : text);
}

void SelectionForm::PopulateInputObject(int level, const QString& value) {
    if (level == 1) populateRefrigerants(value);
    if (level == 2) populateSeries(value);
    if (level == 3) populateModels();
}

void SelectionForm::populateRefrigerants(const QString& value) {
    AdvanceText* field = panel_->lstRefrigerants;
    field->SetTag1(pairsOf(refrigerantsOf({.onInverter = kind_.hasInverter})));
    if (!value.isEmpty() && value != field->Key()) field->setkey(value);
    showChoice(field);
    PopulateInputObject(2);
}

void SelectionForm::populateSeries(const QString& value) {
    QStringList pairs;
    for (const std::string& serie :
         seriesOf({.onInverter = kind_.hasInverter, .refrigerant = toCore(panel_->lstRefrigerants->Key())})) {
        const QString name = fromCore(serie);
        pairs += kind_.hasMarkets ? seriesChoices(name) : name + u'|' + name;
    }
    AdvanceText* field = panel_->lstSeries;
    field->SetTag1(pairs.join(u';'));
    if (descriptionOf(field->Key(), field->Tag1()).isEmpty()) {
        const bool isOffered = !descriptionOf(value, field->Tag1()).isEmpty();
        field->setkey(isOffered ? value : pairs.join(u';').section(u'|', 0, 0));
        showChoice(field);
        PopulateInputObject(3);
    }
    ApplySeriesRules();
}

SeriesOfMarket SelectionForm::chosenSeries() const {
    const QString key = panel_->lstSeries->Key();
    return kind_.hasMarkets ? seriesOfMarket(key) : SeriesOfMarket{toCore(key)};
}

void SelectionForm::populateModels() {
    const auto [serie, market] = chosenSeries();
    std::vector<std::string> models;
    for (const ModelName& name :
         modelsOf({.onInverter = kind_.hasInverter,
                   .refrigerant = toCore(panel_->lstRefrigerants->Key()),
                   .series = serie,
                   .market = kind_.hasMarkets ? std::optional<int>(static_cast<int>(market)) : std::nullopt}))
        models.push_back(name.model);
    AdvanceText* field = panel_->lstModels;
    field->SetTag1(models.empty() ? allModels() : allModels() + u';' + pairsOf(models));
    field->setkey(QStringLiteral("*"));
    showChoice(field);
}

void SelectionForm::translateModels() {
    AdvanceText* field = panel_->lstModels;
    QStringList entries = field->Tag1().split(u';', Qt::SkipEmptyParts);
    if (!entries.isEmpty()) entries.front() = allModels();
    field->SetTag1(entries.join(u';'));
}

void SelectionForm::ApplySeriesRules() {
    if (!kind_.hasSeriesRules) return;
    ApplyInputMask(seriesMask(panel_->lstSeries->Key(), panel_->lstRefrigerants->Key()));
}

void SelectionForm::ApplyInputMask(unsigned mask) {
    for (const auto& [field, selector] : {std::pair{panel_->cmbMotorSize, Selector::motorSize},
                                          {panel_->cmbMotorVoltage, Selector::motorVoltage},
                                          {panel_->cmbStepCapacity, Selector::stepCapacity},
                                          {panel_->cmbEco, Selector::economizer},
                                          {panel_->cmbOilCooling, Selector::oilCooling},
                                          {panel_->cmbMotorRPM, Selector::motorRpm}}) {
        const bool enabled = allows(mask, selector);
        field->setEnabled(enabled);
        if (enabled) continue;
        if (const QString key = neutralKeyOf(field); field->Key() != key) field->SetKey(key);
        showChoice(field);
    }
}

void SelectionForm::SyncTemperatureFields(const QString& leader) {
    struct Entry {
        AdvanceText* field;
        double CoupledFields::* value;
        UnitRule rule;
    };
    const std::array<Entry, 7> entries{{{panel_->txtTED, &CoupledFields::TED, convertedTemperature},
                                        {panel_->txtTEM, &CoupledFields::TEM, convertedTemperature},
                                        {panel_->txtPE, &CoupledFields::PE, convertedPressure},
                                        {panel_->txtTCD, &CoupledFields::TCD, convertedTemperature},
                                        {panel_->txtTCM, &CoupledFields::TCM, convertedTemperature},
                                        {panel_->txtPC, &CoupledFields::PC, convertedPressure},
                                        {panel_->txtSC, &CoupledFields::SC, convertedDifference}}};
    CoupledFields fields;
    for (const auto& [field, value, rule] : entries)
        fields.*value = rule(field->number(), measureUnit_, UnitSystem::metric);
    const CoupledFields before = fields;
    const std::string refrigerant = toCore(panel_->lstRefrigerants->Key());
    QString fault;
    {
        const CollectedBoxes said;  // a key stroke opens no box; the field says it
        try {
            clsRefprop& refprop = GetRefprop(refrigerant);
            fault = fromCore(refprop.SetupFault());
            if (fault.isEmpty()) {
                marvello::SyncTemperatureFields(toCore(leader), fields, refrigerant, refprop,
                                                gPolynomialTEM(), gPolynomialTCM());
                if (!said.boxes().empty()) fault = noSaturation(refprop);
            }
        } catch (const std::exception& error) {
            fault = fromCore(error.what());
        }
    }
    refuseLeader(leader, fault);
    if (!fault.isEmpty()) return;
    for (const auto& [field, value, rule] : entries)
        if (fields.*value != before.*value || field->isUnknown())
            field->SetTextValue(rule(fields.*value, UnitSystem::metric, measureUnit_));
}

QString SelectionForm::noSaturation(clsRefprop& refprop) const {
    const auto inUnit = [this](double t) {
        return convertedTemperature(t, UnitSystem::metric, measureUnit_);
    };
    const SaturationRange& range = refprop.DewRange();
    const SaturationRange shown = inTenths({inUnit(range.minimum), inUnit(range.maximum)});
    return filled(dictionaryText(QStringLiteral("frmselection.nosaturation")),
                  {formatNumber(shown.minimum, u"#0.0"), formatNumber(shown.maximum, u"#0.0"),
                   panel_->txtTED->UnitCaptiontext().trimmed()});
}

QString SelectionForm::nameInCouple(const AdvanceText* field) {
    return field->objectName().mid(QStringLiteral("txt").size()).toLower();
}

QList<AdvanceText*> SelectionForm::coupleOf(const QString& name) const {
    if (name == u"ted" || name == u"tem" || name == u"pe")
        return {panel_->txtTED, panel_->txtTEM, panel_->txtPE};
    return {panel_->txtTCD, panel_->txtTCM, panel_->txtPC};
}

void SelectionForm::refuseLeader(const QString& leader, const QString& reason) {
    const QString name = leader.toLower();
    for (AdvanceText* field : coupleOf(name)) {
        const bool leads = nameInCouple(field) == name;
        field->SetRefusal(leads ? reason : QString());
        if (!leads && !reason.isEmpty()) field->SetUnknown();
    }
}

void SelectionForm::typedIn(AdvanceText* field) {
    // A number that is typed half follows nothing yet.
    if (!typedNumber(field->TextText())) return;
    const QString name = nameInCouple(field);
    if (name == u"sc") {
        if (hasMidTemperatures()) SyncTemperatureFields(fromCore(leaders_.evaporating()));
        return;
    }
    leaders_.typed(toCore(name));
    markDerived(name);
    SyncTemperatureFields(name);
    const bool isCondensing = name == u"tcd" || name == u"tcm" || name == u"pc";
    if (isCondensing && hasMidTemperatures()) SyncTemperatureFields(fromCore(leaders_.evaporating()));
}

void SelectionForm::markDerived(const QString& leader) {
    const QList<AdvanceText*> couple = coupleOf(leader);
    QString origin;
    for (const AdvanceText* field : couple)
        if (nameInCouple(field) == leader) origin = field->CaptionText();
    for (AdvanceText* field : couple) {
        const bool leads = nameInCouple(field) == leader;
        field->SetDerived(!leads);
        field->setToolTip(leads ? QString()
                                : filled(dictionaryText(QStringLiteral("frmselection.derived")), {origin}));
    }
}

void SelectionForm::walkPair(const AdvanceText* field) {
    const QList<QList<AdvanceText*>> pairs{
        {panel_->txtTED, panel_->txtTCD}, {panel_->txtTEM, panel_->txtTCM}, {panel_->txtPE, panel_->txtPC}};
    bool isCoupled = false;
    for (const auto& pair : pairs) isCoupled = isCoupled || pair.contains(field);
    if (!isCoupled) return;
    for (const auto& pair : pairs)
        for (AdvanceText* member : pair) member->setTabStop(pair.contains(field));
}

void SelectionForm::markLeaders() {
    markDerived(fromCore(leaders_.evaporatingField()));
    markDerived(fromCore(leaders_.condensingField()));
}

void SelectionForm::followLeaders() {
    SyncTemperatureFields(fromCore(leaders_.condensingField()));
    SyncTemperatureFields(fromCore(leaders_.evaporatingField()));
}

void SelectionForm::leadByDew() {
    leaders_.reset();
    markLeaders();
    walkPair(panel_->txtTED);
    followLeaders();
    sayOrder();
}

void SelectionForm::sayRange(AdvanceText* field, double low, double high) {
    const auto value = typedNumber(field->TextText());
    const auto shown = [](double bound) {
        return formatNumber(std::round(bound * 100) / 100, QStringView());
    };
    const bool isBeyond = value && (*value < low || *value > high);
    field->SetRemark(isBeyond ? filled(dictionaryText(QStringLiteral("frmselection.range")),
                                       {shown(low), shown(high), field->UnitCaptiontext().trimmed()})
                              : QString());
}

void SelectionForm::sayRanges() {
    const SuperheatRange superheat = superheatRange();
    sayRange(panel_->txtSH, superheat.low, superheat.high);
    if (panel_->txtFrequency)
        sayRange(panel_->txtFrequency, clsInverter::minimumFrequency, clsInverter::maximumFrequency);
    sayOrder();
}

void SelectionForm::sayOrder() {
    const AdvanceText* evaporating = panel_->txtTED;
    const AdvanceText* condensing = panel_->txtTCD;
    QString remark;
    if (!evaporating->isUnknown() && !condensing->isUnknown() && typedNumber(evaporating->TextText()) &&
        typedNumber(condensing->TextText()) && evaporating->number() > condensing->number())
        remark =
            filled(dictionaryText(QStringLiteral("frmselection.evaporatingabove")),
                   {formatNumber(evaporating->number(), u"#0.0#"),
                    formatNumber(condensing->number(), u"#0.0#"), evaporating->UnitCaptiontext().trimmed()});
    // Next to the fields that were typed in.
    for (const auto& [name, couple] :
         {std::pair{fromCore(leaders_.evaporatingField()), coupleOf(QStringLiteral("ted"))},
          {fromCore(leaders_.condensingField()), coupleOf(QStringLiteral("tcd"))}})
        for (AdvanceText* field : couple) field->SetRemark(nameInCouple(field) == name ? remark : QString());
}

SuperheatRange SelectionForm::superheatRange() const {
    return marvello::superheatRange(panel_->lstRefrigerants->Key(), measureUnit_ == UnitSystem::imperial,
                                    panel_->cmbSh->Key() == u"0", panel_->txtTED->number());
}

bool SelectionForm::gestioneSH(bool showMessage) {
    const double asked = panel_->txtSH->number();
    const double permitted = permittedSuperheat(asked, superheatRange());
    if (permitted != asked) panel_->txtSH->SetTextValue(permitted);
    sayRanges();
    if (permitted == asked) return true;
    if (showMessage)
        MessageBox::show(
            this, MessageBox::Mark::critical,
            QStringLiteral("SuperHeat value out of range. The default value has been set instead."));
    return false;
}

void SelectionForm::showUnits() {
    const bool isImperial = measureUnit_ == UnitSystem::imperial;
    const QString temperature = dictionaryText(QStringLiteral("general.variable03")) +
                                (isImperial ? QStringLiteral("F") : QStringLiteral("C"));
    const QString pressure = isImperial ? QStringLiteral("psia") : QStringLiteral("bar abs");
    const QString difference = isImperial ? temperature : QStringLiteral("K");
    const QString power = isImperial ? QStringLiteral("Tons") : QStringLiteral("kW");
    const auto unit = [](AdvanceText* field, const QString& text) { field->SetUnitCaptiontext(text + u' '); };
    for (AdvanceText* field :
         {panel_->txtTED, panel_->txtTEM, panel_->txtTCD, panel_->txtTCM, panel_->txtOilCooling})
        unit(field, temperature);
    for (AdvanceText* field : {panel_->txtPE, panel_->txtPC}) unit(field, pressure);
    unit(panel_->txtSC, difference);
    unit(panel_->txtSH, panel_->cmbSh->Key() == u"0" ? difference : temperature);
    unit(panel_->txtEco, panel_->cmbEco->Key() == capacityMode ? power : difference);
}

void SelectionForm::MeasureUnits(int unit, bool refresh) {
    panel_->commit();
    const UnitSystem before = measureUnit_;
    measureUnit_ = unit == 1 ? UnitSystem::imperial : UnitSystem::metric;
    if (measureUnit_ != before) ConvertInputs(before, measureUnit_);
    showUnits();
    sayRanges();
    sayAgain();
    if (measureUnit_ != before && refresh) relistResults();
}

void SelectionForm::sayAgain() {
    if (helped_) VisualizeHelp(helped_);
    for (const AdvanceText* field : panel_->fields())
        if (!field->Refusal().isEmpty()) SyncTemperatureFields(nameInCouple(field));
}

void SelectionForm::ConvertInputs(UnitSystem from, UnitSystem to) {
    for (AdvanceText* field :
         {panel_->txtTCD, panel_->txtTCM, panel_->txtTED, panel_->txtTEM, panel_->txtOilCooling})
        convert(field, from, to, convertedTemperature);
    convert(panel_->txtSH, from, to,
            panel_->cmbSh->Key() == u"0" ? convertedDifference : convertedTemperature);
    convert(panel_->txtSC, from, to, convertedDifference);
    // As a difference in every mode; a run takes it back in the same way.
    convert(panel_->txtEco, from, to, convertedDifference);
    for (AdvanceText* field : {panel_->txtPE, panel_->txtPC}) convert(field, from, to, convertedPressure);
}

void SelectionForm::convert(AdvanceText* field, UnitSystem from, UnitSystem to, UnitRule rule) {
    // What is unknown or no number has nothing to convert.
    if (field->isUnknown() || !typedNumber(field->TextText())) return;
    field->SetTextValue(enteredValues_[field].shownIn(to, field->number(), from, rule));
}

void SelectionForm::VisualizeHelp(const AdvanceText* field) {
    if (!kind_.hasFieldHelp) return;
    helped_ = field;
    panel_->VisualizzaHelp(captionOf(field), helpOf(field, measureUnit_));
}

void SelectionForm::showHelp() {
    for (const AdvanceText* field : panel_->fields())
        if (const QString help = kind_.hasFieldHelp ? helpOf(field, measureUnit_) : QString();
            field->hasFocus() && !help.isEmpty()) {
            MessageBox::show(this, MessageBox::Mark::information, captionOf(field) + u'\n' + help);
            return;
        }
    emit guideRequested();
}

// A field next to the selector of its mode has no caption of its own.
QString SelectionForm::captionOf(const AdvanceText* field) const {
    const AdvanceText* named = field == panel_->txtSH           ? panel_->cmbSh
                               : field == panel_->txtEco        ? panel_->cmbEco
                               : field == panel_->txtOilCooling ? panel_->cmbOilCooling
                                                                : field;
    return named->CaptionText();
}

void SelectionForm::inputsChanged(const AdvanceText* field) {
    if (Splitter2_->isHidden()) return;
    closesplitter34();
    if (field) invite(captionOf(field));
}

void SelectionForm::resetInputs() { takeOver(defaults_); }

bool SelectionForm::WheelMoved(int step) {
    for (AdvanceText* field : {panel_->txtTED, panel_->txtTEM, panel_->txtPE, panel_->txtPC, panel_->txtSC,
                               panel_->txtSH, panel_->txtTCD, panel_->txtTCM}) {
        if (!field->hasFocus() || !field->underMouse()) continue;
        const bool isWhole = field == panel_->txtTCD || field == panel_->txtTCM;
        if (step != 0) {
            field->SetTextValue(field->number() + (isWhole ? step : step / 10.0));
            emit field->TextChange();
        }
        return true;
    }
    return false;
}

}  // namespace marvello
