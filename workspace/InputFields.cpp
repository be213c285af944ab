#include "workspace/InputFields.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "controls/AdvanceText.h"
#include "controls/MessageBox.h"
#include "controls/NumberText.h"
#include "controls/TagBox.h"
#include "data/Texts.h"
#include "inputs/InputTexts.h"
#include "workspace/InputPanel.h"
#include "workspace/RefrigerantDetail.h"
#include "workspace/UnitTexts.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

/// The fields of a temperature at both sides, which the tab key walks together.
constexpr std::array pairs{std::pair{Input::evaporatingDew, Input::condensingDew},
                           std::pair{Input::evaporatingMid, Input::condensingMid},
                           std::pair{Input::evaporatingPressure, Input::condensingPressure}};

/// True for the lists that follow from the catalogue.
bool isCatalogueList(Input input) {
    return input == Input::refrigerant || input == Input::series || input == Input::models ||
           input == Input::refrigerants || input == Input::allSeries;
}

QString listText(const std::vector<Choice>& choices) {
    QStringList pairs;
    for (const Choice& choice : choices) pairs += fromCore(choice.key + '|' + choice.caption);
    return pairs.join(u';');
}

/// The key of a field's help, empty for a field that has none.
QString helpKeyOf(Input input) {
    switch (input) {
        case Input::refrigerant:
            return QStringLiteral("formselection.help.refrigerants.caption");
        case Input::refrigerants:
            return QStringLiteral("find.help.refrigerants");
        case Input::capacity:
            return helpKeyOf(Input::capacityKind);
        case Input::toleranceAbove:
            return helpKeyOf(Input::toleranceBelow);
        case Input::maxMachines:
            return helpKeyOf(Input::minMachines);
        case Input::condensingMid:
            return QStringLiteral("frmselections.help.txttcm.caption");
        case Input::economizer:
            return helpKeyOf(Input::economizerMode);
        case Input::models:
            return {};
        default:
            return QStringLiteral("frmselection.help.%1.caption")
                .arg(fromCore(lowered(definitionOf(input).name)));
    }
}

/// Empty for a field without help.
QString helpOf(Input input, UnitSystem system) {
    const QString key = helpKeyOf(input);
    return key.isEmpty() ? QString() : inUnits(dictionaryTextIfAny(key), system);
}

}  // namespace

InputFields::InputFields(SelectionInputs& inputs, InputPanel& panel, QWidget& form, bool hasHelp)
    : QObject(&form),
      inputs_(inputs),
      panel_(panel),
      form_(form),
      hasHelp_(hasHelp),
      dropList_(new DropList(&form)) {
    for (const InputDefinition& definition : allInputs())
        if (panel_[definition.input]) connectField(definition.input);
    for (const Input input : {Input::capacityStep, Input::minMachines, Input::maxMachines})
        if (panel_[input]) panel_[input]->SetTag1(listText(inputs_[input].choices));
    if (panel_.refrigerants()) connectRefrigerants();
    walkPair(Input::evaporatingDew);
    show();
}

DropList::Details InputFields::detailsOf(Input input) const {
    if (input != Input::refrigerant && input != Input::refrigerants) return {};
    return [this](const QString& key) { return refrigerantDetail(key, inputs_.units()); };
}

void InputFields::connectField(Input input) {
    AdvanceText* const field = panel_[input];
    const auto edit = [this, input] { emit edited(panel_.captionOf(input)); };
    connect(field, &AdvanceText::KeyPress, this, edit);
    connect(field, &AdvanceText::TextChange, this, edit);
    connect(field, &AdvanceText::KeyChange, this, edit);
    connect(field, &AdvanceText::TextGotFocus, this, [this, input] {
        helped_ = input;
        showFieldHelp();
        walkPair(input);
    });
    if (definitionOf(input).isChoice) {
        dropList_->serve(field, definitionOf(input).isSeveral, detailsOf(input));
        connect(field, &AdvanceText::KeyChange, this, [this, input] { chosen(input); });
        return;
    }
    field->SetReader([this, input](const QString& text) {
        const EnteredQuantity read = readInput(inputs_, input, toCore(plainNumberText(text)));
        return TypedReading{read.value, read.isPlain, read.isUnfinished};
    });
    connect(field, &AdvanceText::TextChange, this, [this, input] { typed(input); });
    connect(field, &AdvanceText::TextValidate, this, [this, input] { left(input); });
    connect(field, &AdvanceText::KeyPress, this, [this, input](int key) {
        if (key != AdvanceText::enterCode) return;
        inputs_.follow(input);
        show();
    });
    if (input == Input::superheat)
        connect(field, &AdvanceText::TextLostFocus, this, [this] { sayReplaced(inputs_.limitSuperheat()); });
}

void InputFields::connectRefrigerants() {
    TagBox* const box = panel_.refrigerants();
    connect(box, &TagBox::chosenByUser, this, [this, box] {
        inputs_.choose(Input::refrigerants, toCore(box->chosen().join(u';')));
        walkPair(Input::evaporatingDew);
        show();
        emit edited(box->caption());
        emit subjectChanged();
    });
    connect(box, &TagBox::gotFocus, this, [this] {
        helped_ = Input::refrigerants;
        showFieldHelp();
    });
}

void InputFields::showRefrigerants() {
    TagBox* const box = panel_.refrigerants();
    if (!box) return;
    QStringList choices;
    for (const Choice& choice : inputs_[Input::refrigerants].choices) choices += fromCore(choice.key);
    box->setChoices(choices, detailsOf(Input::refrigerants));
    const int before = box->heightForWidth(box->width());
    box->setChosen(fromCore(inputs_.key(Input::refrigerants)).split(u';', Qt::SkipEmptyParts));
    if (box->heightForWidth(box->width()) != before || box->height() != before) panel_.layOut();
}

void InputFields::chosen(Input input) {
    inputs_.choose(input, toCore(panel_[input]->Key()));
    if (input == Input::refrigerant) walkPair(Input::evaporatingDew);
    show();
    if (input == Input::refrigerant || input == Input::series || input == Input::allSeries)
        emit subjectChanged();
}

void InputFields::typed(Input input) {
    const AdvanceText& field = *panel_[input];
    inputs_.type(input, typedNumber(field.TextText()) ? std::optional(field.number()) : std::nullopt);
    show();
}

void InputFields::left(Input input) {
    const AdvanceText& field = *panel_[input];
    // A text that is no number counts as 0 in these.
    const bool takesAny =
        input == Input::subcooling || input == Input::economizer || input == Input::frequency;
    const bool isNumber = typedNumber(field.TextText()).has_value();
    if (!takesAny && !isNumber) return;
    const std::optional<double> before = inputs_[input].number;
    inputs_.settle(input, field.number());
    if (!isNumber || inputs_[input].number != before) show();
}

void InputFields::prepareRun() { sayReplaced(inputs_.prepareRun()); }

void InputFields::sayReplaced(bool isSuperheat) {
    show();
    if (isSuperheat)
        MessageBox::show(
            &form_, MessageBox::Mark::critical,
            QStringLiteral("SuperHeat value out of range. The default value has been set instead."));
}

void InputFields::read() {
    for (const InputDefinition& definition : allInputs()) {
        const Input input = definition.input;
        const AdvanceText* const field = panel_[input];
        if (!field) continue;
        if (definition.isChoice && toCore(field->Key()) != inputs_.key(input))
            inputs_.choose(input, toCore(field->Key()));
        if (!definition.isChoice && !field->isUnknown() && field->number() != inputs_.number(input))
            inputs_.type(input, field->number());
    }
    show();
}

void InputFields::translate() {
    for (const InputDefinition& definition : allInputs())
        if (definition.isChoice && !isCatalogueList(definition.input) && panel_[definition.input])
            inputs_.offer(definition.input, choicesIn(toCore(panel_[definition.input]->Tag1())));
    inputs_.translate();
    if (TagBox* box = panel_.refrigerants()) {
        box->setCaption(dictionaryText(QStringLiteral("find.refrigerants")), InputPanel::usualCaptionWidth);
        box->setAllText(dictionaryText(QStringLiteral("frmselection.models.all")));
        box->setEmptyText(dictionaryText(QStringLiteral("find.refrigerants.none")));
        box->setApplyText(dictionaryText(QStringLiteral("frmselection.apply")));
    }
    show();
    showFieldHelp();
}

void InputFields::commit() {
    for (const InputDefinition& definition : allInputs())
        if (AdvanceText* const field = panel_[definition.input]) field->commit();
}

void InputFields::setUnits(UnitSystem units) {
    commit();
    inputs_.setUnits(units);
    show();
    showFieldHelp();
}

bool InputFields::refuseRun(QWidget& field) {
    emit wantsRoom();
    field.setFocus();
    return false;
}

bool InputFields::check() {
    commit();
    for (const InputDefinition& definition : allInputs()) {
        AdvanceText* const field = panel_[definition.input];
        if (!field) continue;
        if (inputs_[definition.input].refusal) {
            inputs_.follow(definition.input);  // it may have been mended meanwhile, as a missing fluid file
            show();
        }
        if (!field->Refusal().isEmpty()) {
            MessageBox::show(&form_, MessageBox::Mark::critical, field->Refusal());
            return refuseRun(*field);
        }
        if (!definition.isChoice && !field->isHidden() && !field->validate()) return refuseRun(*field);
    }
    TagBox* const box = panel_.refrigerants();
    return !box || !box->isInvalid() || refuseRun(*box);
}

void InputFields::show() {
    bool isOther = false;
    showRefrigerants();
    for (const InputDefinition& definition : allInputs()) {
        const Input input = definition.input;
        AdvanceText* const field = panel_[input];
        if (!field) continue;
        definition.isChoice ? showChoice(input) : showNumber(input);
        if (const bool isShown = inputs_.isShown(input); field->isHidden() == isShown) {
            field->setVisible(isShown);
            isOther = true;
        }
    }
    if (isOther) panel_.layOut();
}

void InputFields::showChoice(Input input) {
    AdvanceText& field = *panel_[input];
    if (isCatalogueList(input)) field.SetTag1(listText(inputs_[input].choices));
    if (const QString key = fromCore(inputs_.key(input)); field.Key() != key) field.setkey(key);
    if (const QString text = fromCore(inputs_.caption(input)); field.TextText() != text)
        field.SetTextValue(text);
    field.setEnabled(inputs_[input].isEnabled);
}

void InputFields::showNumber(Input input) {
    AdvanceText& field = *panel_[input];
    const InputValue& value = inputs_[input];
    if (value.isUnknown) {
        if (!field.isUnknown()) field.SetUnknown();
    } else if (value.number && (field.number() != *value.number || !typedNumber(field.TextText()))) {
        field.SetTextValue(*value.number);
    }
    if (const QString unit = unitOf(input) + u' ';
        input != Input::frequency && field.UnitCaptiontext() != unit)
        field.SetUnitCaptiontext(unit);
    if (inputs_.leaderOf(input)) showCouple(input);
    if (const QString refusal = refusalText(input); field.Refusal() != refusal) field.SetRefusal(refusal);
    field.SetRemark(remarkOn(input));
}

void InputFields::showCouple(Input input) {
    AdvanceText& field = *panel_[input];
    const Input leader = *inputs_.leaderOf(input);
    const bool isDerived = leader != input;
    if (field.Derived() != isDerived) field.SetDerived(isDerived);
    field.setToolTip(
        isDerived ? filled(dictionaryText(QStringLiteral("frmselection.derived")), {panel_.captionOf(leader)})
                  : QString());
}

QString InputFields::unitOf(Input input) const { return fromCore(unitText(inputs_, input)); }

QString InputFields::refusalText(Input input) const {
    const std::optional<Refusal>& refusal = inputs_[input].refusal;
    if (!refusal) return {};
    if (!refusal->saturation) return fromCore(refusal->sentence);
    const auto inUnit = [this](double t) {
        return convertedTemperature(t, UnitSystem::metric, inputs_.units());
    };
    const auto [minimum, maximum] =
        inTenths({inUnit(refusal->saturation->minimum), inUnit(refusal->saturation->maximum)});
    return filled(
        dictionaryText(QStringLiteral("frmselection.nosaturation")),
        {formatNumber(minimum, u"#0.0"), formatNumber(maximum, u"#0.0"), unitOf(Input::evaporatingDew)});
}

QString InputFields::remarkOn(Input input) const {
    if (const auto bounds = inputs_.exceededBounds(input)) {
        const auto shown = [](double bound) {
            return formatNumber(std::round(bound * 100) / 100, QStringView());
        };
        return filled(dictionaryText(QStringLiteral("frmselection.range")),
                      {shown(bounds->low), shown(bounds->high), unitOf(input)});
    }
    // Next to the fields that were typed in.
    if (inputs_.leaderOf(input) != input || !inputs_.temperaturesCross()) return {};
    return filled(
        dictionaryText(QStringLiteral("frmselection.evaporatingabove")),
        {formatNumber(inputs_.number(Input::evaporatingDew), u"#0.0#"),
         formatNumber(inputs_.number(Input::condensingDew), u"#0.0#"), unitOf(Input::evaporatingDew)});
}

void InputFields::walkPair(Input input) {
    const auto isOf = [input](const auto& pair) { return pair.first == input || pair.second == input; };
    if (std::ranges::none_of(pairs, isOf)) return;
    for (const auto& pair : pairs)
        for (const Input member : {pair.first, pair.second}) panel_[member]->setTabStop(isOf(pair));
}

void InputFields::showFieldHelp() {
    if (hasHelp_ && helped_)
        panel_.VisualizzaHelp(panel_.captionOf(*helped_), helpOf(*helped_, inputs_.units()));
}

bool InputFields::showHelp() {
    for (const InputDefinition& definition : allInputs()) {
        const Input input = definition.input;
        if (!hasHelp_ || !panel_[input] || !panel_[input]->hasFocus()) continue;
        const QString help = helpOf(input, inputs_.units());
        if (help.isEmpty()) return false;
        MessageBox::show(&form_, MessageBox::Mark::information, panel_.captionOf(input) + u'\n' + help);
        return true;
    }
    return false;
}

bool InputFields::turnWheel(int step) {
    for (const Input input :
         {Input::evaporatingDew, Input::evaporatingMid, Input::evaporatingPressure, Input::condensingPressure,
          Input::subcooling, Input::superheat, Input::condensingDew, Input::condensingMid}) {
        AdvanceText* const field = panel_[input];
        if (!field->hasFocus() || !field->underMouse()) continue;
        const bool isWhole = input == Input::condensingDew || input == Input::condensingMid;
        if (step != 0) {
            field->SetTextValue(field->number() + (isWhole ? step : step / 10.0));
            emit field->TextChange();
        }
        return true;
    }
    return false;
}

}  // namespace marvello
