#include "workspace/TypedQuantities.h"

#include <string_view>

#include "controls/AdvanceText.h"
#include "controls/NumberText.h"
#include "workspace/InputPanel.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

std::string_view unitOf(Quantity quantity, UnitSystem system) {
    const bool isImperial = system == UnitSystem::imperial;
    switch (quantity) {
        case Quantity::temperature:
            return isImperial ? "F" : "C";
        case Quantity::temperatureDifference:
            return isImperial ? "F" : "K";
        case Quantity::pressure:
            return isImperial ? "psi" : "bar";
        case Quantity::power:
            return isImperial ? "tons" : "kW";
        case Quantity::frequency:
            return "Hz";
        case Quantity::number:
            break;
    }
    return {};
}

}  // namespace

Quantity quantityOf(const InputPanel& panel, const AdvanceText* field) {
    if (field == panel.txtPE || field == panel.txtPC) return Quantity::pressure;
    if (field == panel.txtSC) return Quantity::temperatureDifference;
    if (field == panel.txtSH)
        return panel.cmbSh->Key() == u"0" ? Quantity::temperatureDifference : Quantity::temperature;
    if (field == panel.txtEco) return Quantity::number;
    if (field == panel.txtFrequency) return Quantity::frequency;
    return Quantity::temperature;
}

void takeOtherUnits(InputPanel& panel, const std::function<UnitSystem()>& system) {
    for (AdvanceText* field : panel.fields()) {
        if (field->TextType() != 1) continue;
        field->SetReader([&panel, field, system](const QString& text) {
            const Quantity quantity = quantityOf(panel, field);
            const EnteredQuantity read =
                readQuantity(toCore(plainNumberText(text)), quantity, unitOf(quantity, system()));
            return TypedReading{read.value, read.isPlain, read.isUnfinished};
        });
    }
}

}  // namespace marvello
