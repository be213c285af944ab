// From the press of the button to the list of results.

#include <QApplication>
#include <algorithm>
#include <cmath>
#include <memory>

#include "catalogue/clsInverter.h"
#include "controls/AdvanceText.h"
#include "controls/MessageBox.h"
#include "controls/ResultsView.h"
#include "controls/Splitter.h"
#include "controls/TabStrip.h"
#include "controls/ctlBtn.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "thermo/clsRefprop.h"
#include "workspace/EmptyPage.h"
#include "workspace/InputPanel.h"
#include "workspace/InputRules.h"
#include "workspace/InputsFold.h"
#include "workspace/SelectionForm.h"
#include "workspace/Settings.h"
#include "workspace/WindowTexts.h"
#include "workspace/frmpG.h"

namespace marvello {

void SelectionForm::lnkCalculate_Click() {
    if (progress_) return;
    if (allInputsValid()) Calculate();
}

bool SelectionForm::allInputsValid() {
    panel_->commit();
    for (AdvanceText* field : panel_->fields()) {
        // What was refused may have been mended meanwhile, as a missing fluid file.
        if (!field->Refusal().isEmpty()) SyncTemperatureFields(nameInCouple(field));
        if (!field->Refusal().isEmpty()) {
            MessageBox::show(this, MessageBox::Mark::critical, field->Refusal());
            fold_->show();
            field->setFocus();
            return false;
        }
        if (field->TextType() != 1 || field->isHidden() || field->validate()) continue;
        fold_->show();
        field->setFocus();
        return false;
    }
    return true;
}

// The range of an inverter; nothing is said.
void SelectionForm::limitFrequency() {
    if (AdvanceText* frequency = panel_->txtFrequency)
        frequency->SetTextValue(
            std::clamp(frequency->number(), clsInverter::minimumFrequency, clsInverter::maximumFrequency));
}

void SelectionForm::Calculate() {
    limitFrequency();
    closesplitter34();
    Selection_ = std::make_unique<clsSelections>();
    gestioneSH(true);
    AbortRequested() = false;
    panel_->txtSC->SetTextValue(std::abs(panel_->txtSC->number()));

    progress_ = std::make_unique<frmpG>(window());
    progress_->show();
    QApplication::processEvents();
    const bool isWhole = runSelection();
    progress_.reset();
    window()->activateWindow();

    keepFormState(objectName(), state());
    if (Selection_->Count() > 0)
        showResults();
    else if (isWhole && !Selection_->isAborted())
        MessageBox::show(this, MessageBox::Mark::information,
                         dictionaryText(QStringLiteral("messages.message22")));
    emit stateChanged();
}

// False when the run ended in a fault, which was shown.
bool SelectionForm::runSelection() {
    const std::string refrigerant = toCore(panel_->lstRefrigerants->Key());
    const auto [serie, market] = chosenSeries();
    Selection_->SelectionPercent = [this](int percent, int) {
        if (progress_) progress_->setPercent(percent);
        QApplication::processEvents();
    };
    QString fault;
    const CollectedBoxes said;  // what the run says in boxes is said once, after it
    try {
        if (const std::string& refused = GetRefprop(refrigerant).SetupFault(); !refused.empty())
            fault = fromCore(refused);
        else
            Selection_->Selection(conditions(), serie, toCore(panel_->lstModels->Key()), refrigerant, market);
    } catch (const std::exception& error) {
        fault = fromCore(error.what());
    }
    if (!fault.isEmpty() || !said.boxes().empty()) progress_->hide();
    for (const CollectedBoxes::Box& box : said.boxes())
        MessageBox::show(this, MessageBox::Mark::plain, fromCore(box.text));
    if (fault.isEmpty()) return true;
    Selection_->Clear();
    MessageBox::show(this, MessageBox::Mark::critical, fault);
    return false;
}

std::shared_ptr<const clsProjectConditions> SelectionForm::conditions() const {
    auto result = std::make_shared<clsProjectConditions>();
    const QString voltage = panel_->cmbMotorVoltage->Key();
    const auto temperature = [this](const AdvanceText* field) {
        return convertedTemperature(field->number(), measureUnit_, UnitSystem::metric);
    };
    const auto difference = [this](const AdvanceText* field) {
        return convertedDifference(field->number(), measureUnit_, UnitSystem::metric);
    };
    result->TEvaporatingDew = temperature(panel_->txtTED);
    result->TCondensationDew = temperature(panel_->txtTCD);
    result->SuperHeatType = static_cast<SuperheatKind>(panel_->cmbSh->Key().toInt());
    result->SuperHeat = result->SuperHeatType == SuperheatKind::difference ? difference(panel_->txtSH)
                                                                           : temperature(panel_->txtSH);
    result->SubCooling = difference(panel_->txtSC);
    result->MotorSize = static_cast<MotorChoice>(panel_->cmbMotorSize->Key().toInt());
    result->MotorVoltage = voltage.left(3).toDouble();
    result->MotorHz = voltage.right(2).toInt();
    result->MotorRPM = panel_->cmbMotorRPM->Key().toInt();
    result->EcoCalculateMode = static_cast<EconomizerMode>(panel_->cmbEco->Key().toInt());
    result->Eco = difference(panel_->txtEco);
    result->OilCoolingCalculateMode = static_cast<OilCoolingMode>(panel_->cmbOilCooling->Key().toInt());
    result->OilCooling = temperature(panel_->txtOilCooling);
    if (panel_->txtFrequency) result->InverterFrequency = static_cast<float>(panel_->txtFrequency->number());
    result->StepCapacity = panel_->cmbStepCapacity->Key().toInt();
    return result;
}

void SelectionForm::showResults() {
    populateLVCPS(static_cast<int>(groupBy_));
    Splitter1_->SetChild2(QStringLiteral("splitter2"));
    frame2_->hide();
    Splitter2_->show();
    fold_->setHasResults(true);
    TabStrip_->setCurrentIndex(0);
    lvCps_->setFocus();
    selectCompressor();
    PopulateFrame4();
}

void SelectionForm::invite(const QString& editedField) {
    const bool isFirst = editedField.isEmpty();
    const QString title = isFirst ? dictionaryText(QStringLiteral("frmselection.empty.title"))
                                  : dictionaryText(QStringLiteral("frmselection.discarded.title"));
    const QString sentence = isFirst ? dictionaryText(QStringLiteral("frmselection.empty.text"))
                                     : dictionaryText(QStringLiteral("frmselection.discarded.text"));
    frame2_->setTexts(title, sentence, panel_->lnkCalculate->text(), QStringLiteral("F5"), editedField);
}

void SelectionForm::closesplitter34() {
    invite();
    if (const int row = lvCps_->selectedRow(); row >= 0)
        keptSelection_ = resultOf(row) ? lvCps_->key(row) : QString();
    clearList();
    Splitter1_->SetChild2(QStringLiteral("Frame2"));
    frame2_->show();
    Splitter2_->hide();
    fold_->setHasResults(false);
    emit stateChanged();
}

}  // namespace marvello
