// What a form leaves to the next one, and what it takes over from the one before.

#include <QCloseEvent>
#include <algorithm>

#include "controls/AdvanceText.h"
#include "controls/NumberText.h"
#include "controls/ResultsView.h"
#include "workspace/InputPanel.h"
#include "workspace/InputRules.h"
#include "workspace/SelectionForm.h"
#include "workspace/Settings.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

bool offersAll(const AdvanceText& field, const QString& keys) {
    QStringList offered;
    for (const QString& pair : field.Tag1().split(u';')) offered += pair.section(u'|', 0, 0);
    const QStringList asked = keys.split(u';');
    return std::all_of(asked.begin(), asked.end(), [&](const QString& key) { return offered.contains(key); });
}

/// The name of a mode's own value among the values of a form.
QString economizerEntry(QStringView mode) { return QStringLiteral("cmbEco_K%1").arg(mode); }

}  // namespace

FormState SelectionForm::state() const {
    FormState state;
    state.measureUnit = MeasureUnit();
    for (const AdvanceText* field : panel_->fields()) {
        if (field->Locked())
            state.keys[field->objectName()] = field->Key();
        else if (!field->isUnknown() && typedNumber(field->TextText()))
            state.values[field->objectName()] = field->number();
    }
    EconomizerValues economizer = economizerValues_;
    if (const QString mode = panel_->cmbEco->Key(); mode != noEconomizer)
        economizer.keep(toCore(mode), panel_->txtEco->number(), measureUnit_);
    for (const QStringView mode : {approachMode, capacityMode})
        state.values[economizerEntry(mode)] = economizer.valueOf(toCore(mode.toString()), measureUnit_);
    state.columnWidths = lvCps_->chosenWidths();
    state.leaders = leaders_;
    return state;
}

void SelectionForm::takeOver(const FormState& state) {
    if (state.isEmpty()) return;
    inputsChanged(nullptr);
    const int unit = MeasureUnit();
    MeasureUnits(state.measureUnit, false);
    // In the order of the panel: a refrigerant offers its series, a series its models and its selectors. What
    // the catalogue does not offer any more is left as it is.
    for (AdvanceText* field : panel_->fields()) {
        const auto key = state.keys.find(field->objectName());
        if (!field->Locked() || !field->isEnabled() || key == state.keys.end()) continue;
        if (*key == field->Key() || !offersAll(*field, *key)) continue;
        field->SetKey(*key);
        showChoice(field);
    }
    for (AdvanceText* field : panel_->fields())
        if (const auto value = state.values.find(field->objectName()); value != state.values.end())
            field->SetTextValue(*value);
    for (const QStringView mode : {approachMode, capacityMode})
        if (const auto value = state.values.find(economizerEntry(mode)); value != state.values.end()) {
            economizerValues_.keep(toCore(mode.toString()), *value, measureUnit_);
            if (mode == panel_->cmbEco->Key()) panel_->txtEco->SetTextValue(*value);
        }
    // What another refrigerant has at the same pressure is another operating point.
    const bool isSameFluid =
        state.keys.value(panel_->lstRefrigerants->objectName()) == panel_->lstRefrigerants->Key();
    leaders_ = isSameFluid ? state.leaders : CoupleLeaders();
    markLeaders();
    followLeaders();
    MeasureUnits(unit, true);
    gestioneSH(false);
    lvCps_->setChosenWidths(state.columnWidths);
    emit stateChanged();
}

void SelectionForm::closeEvent(QCloseEvent* event) {
    keepFormState(objectName(), state());
    QWidget::closeEvent(event);
}

}  // namespace marvello
