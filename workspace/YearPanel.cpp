#include "workspace/YearPanel.h"

#include <QLocale>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>
#include <stdexcept>

#include "controls/AdvanceText.h"
#include "controls/CoreText.h"
#include "controls/Link.h"
#include "controls/Look.h"
#include "controls/NumberText.h"
#include "controls/ctlBtn.h"
#include "data/Session.h"
#include "engine/YearLimits.h"
#include "inputs/InputTexts.h"
#include "results/YearEntries.h"
#include "thermo/EnteredQuantity.h"
#include "workspace/DropList.h"
#include "workspace/PanelRows.h"
#include "workspace/WindowTexts.h"
#include "workspace/YearBins.h"

namespace marvello {

namespace {

using Condensing = YearInputs::Condensing;
using Form = Degradation::Form;

constexpr int captionWidth = 112;
constexpr int wideCaptionWidth = 116;
constexpr int buttonHeight = 32;
constexpr int footer = 60;
constexpr const char* twoPlaces = "#0.00";

QString text(const char* key) { return dictionaryText(QLatin1String(key)); }

/// What a number measures, for those that are no quantity of a selection.
enum class Measure : std::uint8_t { quantity, mass, plain };

}  // namespace

/// A number of the inputs and its field.
struct YearPanel::Number {
    const char* name;
    const char* captionKey;  ///< null for one next to its selector
    double YearInputs::* value;
    YearLimit limit;  ///< metric
    Measure measure = Measure::plain;
    Quantity quantity = Quantity::number;
    const char* unit = "";  ///< a text, or the key of one
    const char* format = twoPlaces;

    double shown(double metric, UnitSystem units) const { return convert(metric, UnitSystem::metric, units); }
    double convert(double from, UnitSystem fromUnits, UnitSystem units) const {
        if (measure == Measure::mass) return convertedMassFlow(from, fromUnits, units);
        // That of the quantity is the economizer's.
        if (quantity == Quantity::power) return convertedCapacity(from, fromUnits, units);
        return measure == Measure::quantity ? conversionOf(quantity)(from, fromUnits, units) : from;
    }
    QString unitIn(UnitSystem units) const {
        if (measure == Measure::mass)
            return units == UnitSystem::metric ? QStringLiteral("kg") : QStringLiteral("lb");
        if (measure == Measure::quantity) return fromCore(unitText(quantity, units));
        const QLatin1String plain(unit);
        return plain.contains(u'.') ? marvello::text(unit) : QString(plain);  // a key has a point
    }
};

namespace {

constexpr auto temperature = Quantity::temperature;
constexpr auto difference = Quantity::temperatureDifference;

}  // namespace

/// A choice of the inputs and its field.
struct YearPanel::Choices {
    const char* name;
    const char* captionKey;
    /// "key|text;key|text"
    QString (*offered)(const YearInputs& inputs, const YearTables& tables);
    QString (*key)(const YearInputs& inputs);
    /// False for a key that asks for something else.
    bool (*choose)(YearInputs& inputs, const YearTables& tables, const QString& key);
};

namespace {

/// "0|first;1|second" of the texts of dictionary keys.
QString numbered(const std::vector<const char*>& keys) {
    QStringList entries;
    for (const char* key : keys) entries += QString::number(entries.size()) + u'|' + text(key);
    return entries.join(u';');
}

QString offeredProfiles(const YearInputs& inputs, const YearTables& tables) {
    QStringList entries;
    for (const ShippedProfile& profile : tables.profiles)
        entries += fromCore(profile.name) + u'|' + profileTitle(profile);
    if (inputs.profile.empty()) entries += QStringLiteral("own|") + profileTitle(inputs).replace(u';', u',');
    entries += QStringLiteral("file|") + text("frmyear.profile.file");
    return entries.join(u';');
}

bool chooseProfile(YearInputs& inputs, const YearTables& tables, const QString& key) {
    const ShippedProfile* const found = profileOf(tables, toCore(key));
    if (!found) return false;
    takeProfile(inputs, *found);
    return true;
}

QString offeredRegions(const YearInputs&, const YearTables& tables) {
    QStringList entries;
    for (const GridIntensity& grid : tables.grids) {
        const QString region = fromCore(grid.region);
        entries += region + u'|' + (region == u"WORLD" ? text("frmyear.region.world") : region);
    }
    entries += QStringLiteral("own|") + text("frmyear.region.own");
    return entries.join(u';');
}

bool chooseRegion(YearInputs& inputs, const YearTables& tables, const QString& key) {
    if (const GridIntensity* const found = gridOf(tables, toCore(key)))
        takeRegion(inputs, *found);
    else
        inputs.region.clear();
    return true;
}

bool chooseDegradation(YearInputs& inputs, const YearTables&, const QString& key) {
    inputs.degradation.reset();
    if (key.toInt() > 0) {
        inputs.degradation = static_cast<Form>(key.toInt() - 1);
        inputs.coefficient = usualDegradation(*inputs.degradation).coefficient;
    }
    return true;
}

template <auto member>
QString numberOf(const YearInputs& inputs) {
    return QString::number(static_cast<int>(inputs.*member));
}
template <auto member>
bool take(YearInputs& inputs, const YearTables&, const QString& key) {
    inputs.*member = static_cast<std::remove_reference_t<decltype(inputs.*member)>>(key.toInt());
    return true;
}

}  // namespace

namespace {

const auto& numberDefinitions() {
    using Number = YearPanel::Number;
    namespace limits = yearLimits;
    static const std::array all{Number{"txtDesignLoad", "frmyear.designload", &YearInputs::designLoad,
                                       limits::designLoad, Measure::quantity, Quantity::power},
                                Number{"txtDifference", nullptr, &YearInputs::difference,
                                       limits::condensingDifference, Measure::quantity, difference},
                                Number{"txtMinimum", "frmselection.partload.minimum", &YearInputs::minimum,
                                       limits::condensingTemperature, Measure::quantity, temperature},
                                Number{"txtFixed", nullptr, &YearInputs::fixedCondensing,
                                       limits::condensingTemperature, Measure::quantity, temperature},
                                Number{"txtPrice", "frmyear.price", &YearInputs::price, limits::price,
                                       Measure::plain, Quantity::number, "", "#0.00##"},
                                Number{"txtGrid", "frmyear.grid", &YearInputs::grid, limits::grid,
                                       Measure::plain, Quantity::number, "kg/kWh", "#0.00#"},
                                Number{"txtCharge", "frmyear.charge", &YearInputs::charge, limits::charge,
                                       Measure::mass, Quantity::number, "", "#0.##"},
                                Number{"txtLeakage", "frmyear.leakage", &YearInputs::leakage, limits::percent,
                                       Measure::plain, Quantity::number, "frmyear.leakage.unit", "#0.0#"},
                                Number{"txtCoefficient", nullptr, &YearInputs::coefficient,
                                       limits::degradation, Measure::plain, Quantity::number, "", twoPlaces},
                                Number{"txtRecovery", "frmyear.recovery", &YearInputs::recovery,
                                       limits::percent, Measure::plain, Quantity::number, "%", "#0.#"},
                                Number{"txtLife", "frmyear.life", &YearInputs::years, limits::life,
                                       Measure::plain, Quantity::number, "frmyear.life.unit", "#0.#"}};
    return all;
}

const auto& choiceDefinitions() {
    using Choices = YearPanel::Choices;
    static const std::array all{
        Choices{"cmbCondensing", "frmyear.condensing",
                [](const YearInputs&, const YearTables&) {
                    return numbered(
                        {"frmyear.condensing.plus", "frmyear.condensing.scaled", "frmyear.condensing.fixed"});
                },
                numberOf<&YearInputs::condensing>, take<&YearInputs::condensing>},
        Choices{"cmbProfile", "frmyear.profile", offeredProfiles,
                [](const YearInputs& inputs) {
                    return inputs.profile.empty() ? QStringLiteral("own") : fromCore(inputs.profile);
                },
                chooseProfile},
        Choices{"cmbRegion", "frmyear.region", offeredRegions,
                [](const YearInputs& inputs) {
                    return inputs.region.empty() ? QStringLiteral("own") : fromCore(inputs.region);
                },
                chooseRegion},
        Choices{"cmbStaging", "frmyear.staging",
                [](const YearInputs&, const YearTables&) {
                    return numbered({"frmyear.staging.power", "frmyear.staging.sequence"});
                },
                numberOf<&YearInputs::staging>, take<&YearInputs::staging>},
        Choices{"cmbDegradation", "frmyear.degradation",
                [](const YearInputs&, const YearTables&) {
                    return numbered({"frmyear.degradation.profile", "frmyear.degradation.none",
                                     "frmyear.degradation.condensingunit", "frmyear.degradation.chiller"});
                },
                [](const YearInputs& inputs) {
                    return QString::number(inputs.degradation ? static_cast<int>(*inputs.degradation) + 1
                                                              : 0);
                },
                chooseDegradation},
        Choices{"cmbGwp", "frmyear.gwp",
                [](const YearInputs&, const YearTables&) { return QStringLiteral("0|AR4;1|AR5;2|AR6"); },
                numberOf<&YearInputs::gwp>, take<&YearInputs::gwp>}};
    return all;
}

}  // namespace

YearPanel::YearPanel(YearInputs& inputs, const YearTables& tables, QWidget* parent)
    : Container(parent),
      lnkCalculate(new ctlBtn(this)),
      lnkDefaults(new Link(QString(), this)),
      inputs_(inputs),
      tables_(tables),
      dropList_(new DropList(this)),
      scroll_(new QScrollArea(this)),
      content_(new QWidget) {
    setObjectName(QStringLiteral("yearPanel"));
    QPalette ground = content_->palette();
    ground.setColor(QPalette::Window, Look::current().surface);
    content_->setPalette(ground);
    scroll_->viewport()->setPalette(ground);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setWidget(content_);
    makeFields();
    lnkCalculate->setObjectName(QStringLiteral("lnkCalculate"));
    lnkCalculate->setProperty("Main", true);
    lnkCalculate->setProperty("KeyHint", QStringLiteral("F5"));
    lnkDefaults->setObjectName(QStringLiteral("lnkDefaults"));
    connect(this, &Container::resized, this, &YearPanel::layOut);
}

YearPanel::~YearPanel() = default;

AdvanceText* YearPanel::newField(const char* name) {
    auto* made = new AdvanceText(content_);
    made->setObjectName(QLatin1String(name));
    // A field that the tab key reaches below the edge comes into sight.
    connect(made, &AdvanceText::TextGotFocus, this,
            [this, made] { scroll_->ensureWidgetVisible(made, 0, 8); });
    return made;
}

AdvanceText* YearPanel::field(const char* name) const {
    return content_->findChild<AdvanceText*>(QLatin1String(name));
}

void YearPanel::makeNumber(const Number& number) {
    AdvanceText* const made = newField(number.name);
    const std::size_t place = numbers_.size();
    numbers_.push_back(made);
    made->SetTextType(1);
    made->SetTextFormat(QLatin1String(number.format));
    made->setProperty("UnitCaptionVisible", true);
    if (!number.captionKey) made->setProperty("CaptionVisible", false);
    if (number.measure == Measure::quantity)
        made->SetReader([this, quantity = number.quantity](const QString& typed) {
            const EnteredQuantity read = readTyped(quantity, units_, toCore(plainNumberText(typed)));
            return TypedReading{read.value, read.isPlain, read.isUnfinished};
        });
    connect(made, &AdvanceText::TextChange, this, [this, place] { typed(place); });
}

void YearPanel::makeChoice(const Choices& choice) {
    AdvanceText* const made = newField(choice.name);
    const std::size_t place = choices_.size();
    choices_.push_back(made);
    made->SetLocked(true);
    made->setProperty("ButtonVisible", true);
    dropList_->serve(made);
    connect(made, &AdvanceText::KeyChange, this, [this, place] { chosen(place); });
}

/// In the order of the tab key.
void YearPanel::makeFields() {
    for (std::size_t i = 0; i < plants_.size(); ++i) {
        AdvanceText* const made = newField(qPrintable(QStringLiteral("txtPlant%1").arg(i + 1)));
        plants_.at(i) = made;
        made->setProperty("ButtonVisible", true);
        dropList_->serve(made);
        connect(made, &AdvanceText::TextChange, this, [this, i] { emit plantEdited(i); });
        connect(made, &AdvanceText::KeyChange, this, [this, i] { emit plantEdited(i); });
    }
    evaporating_ = newField("txtEvaporating");
    evaporating_->SetTextAlignment(1);
    evaporating_->setProperty("UnitCaptionVisible", true);
    connect(evaporating_, &AdvanceText::TextChange, this, &YearPanel::typedEvaporating);
    connect(evaporating_, &AdvanceText::TextLostFocus, this, [this] {
        if (!evaporating_->isInvalid()) showEvaporating();
    });
    for (const Number& number : numberDefinitions()) makeNumber(number);
    for (const Choices& choice : choiceDefinitions()) makeChoice(choice);
    currency_ = newField("txtCurrency");
    currency_->SetTextMaxLenght(5);
    connect(currency_, &AdvanceText::TextChange, this, [this] {
        inputs_.currency = currency_->TextText().trimmed();
        field("txtPrice")->SetUnitCaptiontext(inputs_.currency);
        emit edited();
    });
    bins_ = new YearBins(content_);
    connect(bins_, &YearBins::edited, this, &YearPanel::takeBins);
    field("txtDifference")->SetNamedBy(field("cmbCondensing"));
    field("txtFixed")->SetNamedBy(field("cmbCondensing"));
    field("txtCoefficient")->SetNamedBy(field("cmbDegradation"));

    QList<QWidget*> order(plants_.begin(), plants_.end());
    order += {field("txtDesignLoad"),
              evaporating_,
              field("cmbCondensing"),
              field("txtDifference"),
              field("txtFixed"),
              field("txtMinimum"),
              field("cmbProfile"),
              bins_,
              field("txtPrice"),
              field("txtGrid"),
              field("txtCharge"),
              field("txtLeakage"),
              field("cmbStaging"),
              field("cmbDegradation"),
              field("txtCoefficient"),
              currency_,
              field("cmbRegion"),
              field("txtRecovery"),
              field("txtLife"),
              field("cmbGwp"),
              lnkCalculate,
              lnkDefaults};
    for (qsizetype i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void YearPanel::offerPlants(const QString& choices) {
    for (AdvanceText* field : plants_) field->SetTag1(choices);
}

void YearPanel::showPlants(std::size_t count) {
    for (std::size_t i = 0; i < plants_.size(); ++i) plants_.at(i)->setVisible(i < count);
    layOut();
}

std::optional<double> YearPanel::reading(std::size_t place) const {
    const Number& number = numberDefinitions().at(place);
    const QString typed = numbers_[place]->TextText();
    if (number.measure != Measure::quantity) return typedNumber(typed);
    return readTyped(number.quantity, units_, toCore(plainNumberText(typed))).value;
}

void YearPanel::typed(std::size_t place) {
    const Number& number = numberDefinitions().at(place);
    const auto value = reading(place);
    if (value && !numbers_[place]->isInvalid()) {
        const double metric = number.convert(*value, units_, UnitSystem::metric);
        inputs_.*number.value = std::clamp(metric, number.limit.minimum, number.limit.maximum);
        if (number.value == &YearInputs::grid) inputs_.region.clear();
        showChoices();
        showBins();
    }
    emit edited();
}

void YearPanel::chosen(std::size_t place) {
    const Choices& choice = choiceDefinitions().at(place);
    const QString key = choices_[place]->Key();
    if (!choice.choose(inputs_, tables_, key)) {
        showChoice(place);
        if (key == u"file") emit fileWanted();
        return;
    }
    show();
    emit edited();
}

void YearPanel::typedEvaporating() {
    try {
        inputs_.evaporating = evaporatingRuleIn(toCore(plainNumberText(evaporating_->TextText())), units_);
        shownRule_ = inputs_.evaporating;
        evaporating_->SetRefusal({});
    } catch (const std::invalid_argument&) {
        const auto shown = [this](double celsius) {
            return formatNumber(convertedTemperature(celsius, UnitSystem::metric, units_), u"#0.#");
        };
        const QString degrees = u' ' + fromCore(unitText(temperature, units_));
        evaporating_->SetRefusal(
            filled(text("frmyear.ted.fault"), {shown(yearLimits::evaporatingTemperature.minimum),
                                               shown(yearLimits::outdoorTemperature.maximum) + degrees}));
    }
    emit edited();
}

/// Bins that are changed are a profile of the user's. With other hours it still follows its rule; loads and
/// temperatures of the user's do not, and what intermittent running costs stays as it is.
void YearPanel::takeBins(bool isLoad) {
    if (!inputs_.profile.empty()) inputs_.profileName.clear();
    inputs_.load.bins = bins_->bins();
    inputs_.profile.clear();
    if (isLoad && inputs_.rule && !inputs_.degradation) {
        inputs_.degradation = inputs_.rule->degradation.form;
        inputs_.coefficient = inputs_.rule->degradation.coefficient;
    }
    if (isLoad) dropRule(inputs_);
    show();
    emit edited();
}

void YearPanel::showNumber(std::size_t place) {
    const Number& number = numberDefinitions().at(place);
    AdvanceText& of = *numbers_[place];
    const double shown = number.shown(inputs_.*number.value, units_);
    of.setProperty("TextMin", number.shown(number.limit.minimum, units_));
    of.setProperty("TextMax", number.shown(number.limit.maximum, units_));
    of.SetUnitCaptiontext(number.unitIn(units_));
    if (of.number() != shown || !typedNumber(of.TextText())) of.SetTextValue(shown);
}

void YearPanel::showChoice(std::size_t place) {
    const Choices& choice = choiceDefinitions().at(place);
    AdvanceText& of = *choices_[place];
    of.SetTag1(choice.offered(inputs_, tables_));
    const QString key = choice.key(inputs_);
    of.setkey(key);
    of.SetTextValue(fromCore(ListLookup(toCore(key), toCore(of.Tag1()))));
}

void YearPanel::showEvaporating() {
    shownRule_ = inputs_.evaporating;
    evaporating_->SetTextValue(fromCore(enteredText(inputs_.evaporating, units_, marksOf(QLocale()))));
    evaporating_->SetRefusal({});
}

void YearPanel::showChoices() {
    for (std::size_t i = 0; i < choices_.size(); ++i) showChoice(i);
}

void YearPanel::showBins() {
    bins_->setBins(inputs_.load.bins);
    bins_->setCondensing(inputs_.terms().condensing, units_);
}

void YearPanel::show() {
    for (std::size_t i = 0; i < numbers_.size(); ++i) showNumber(i);
    showChoices();
    evaporating_->SetUnitCaptiontext(fromCore(unitText(temperature, units_)));
    // What cannot be read yet stays until another rule takes its place.
    if (!evaporating_->isInvalid() || shownRule_ != inputs_.evaporating) showEvaporating();
    currency_->SetTextValue(inputs_.currency);
    field("txtPrice")->SetUnitCaptiontext(inputs_.currency);
    const bool isFixed = inputs_.condensing == Condensing::fixed;
    field("txtDifference")->setVisible(!isFixed);
    field("txtFixed")->setVisible(isFixed);
    field("txtMinimum")->setVisible(!isFixed);
    field("txtCoefficient")->setVisible(inputs_.degradation && *inputs_.degradation != Form::none);
    showBins();
    layOut();
}

AdvanceText* YearPanel::unusable() const {
    for (std::size_t i = 0; i < numbers_.size(); ++i)
        if (!numbers_[i]->isHidden() && (numbers_[i]->isInvalid() || !reading(i))) return numbers_[i];
    return evaporating_->isInvalid() ? evaporating_ : nullptr;
}

void YearPanel::translate() {
    SetCaptionText(text("formselection.year"));
    lnkCalculate->setText(text("frmselection.lnkcalculate.caption"));
    lnkDefaults->setText(text("frmselection.lnkdefaults.caption"));
    for (std::size_t i = 0; i < plants_.size(); ++i) {
        plants_.at(i)->SetCaptionText(filled(text("frmyear.compressor"), {QString::number(i + 1)}));
        plants_.at(i)->setToolTip(text("frmyear.compressor.help"));
    }
    for (std::size_t i = 0; i < numbers_.size(); ++i)
        if (const char* key = numberDefinitions().at(i).captionKey) numbers_[i]->SetCaptionText(text(key));
    for (std::size_t i = 0; i < choices_.size(); ++i)
        choices_[i]->SetCaptionText(text(choiceDefinitions().at(i).captionKey));
    evaporating_->SetCaptionText(text("frmselection.txtted.captiontext"));
    evaporating_->setToolTip(text("frmyear.ted.help"));
    currency_->SetCaptionText(text("frmyear.currency"));
    bins_->translate();
    show();
}

void YearPanel::setUnits(UnitSystem units) {
    units_ = units;
    show();
}

void YearPanel::layOutRows(PanelRows& rows, int bins) {
    for (AdvanceText* plant : plants_) rows.single(plant);
    rows.gap();
    rows.single(field("txtDesignLoad"));
    rows.single(evaporating_);
    const bool isFixed = inputs_.condensing == Condensing::fixed;
    rows.mode(field("cmbCondensing"), field(isFixed ? "txtFixed" : "txtDifference"));
    rows.single(field("txtMinimum"));
    rows.gap();
    rows.single(field("cmbProfile"));
    rows.block(bins_, YearBins::heightFor(bins), YearBins::halo);
    constexpr PanelRows::UnitWidths ofMoney{.left = 24, .right = 48};
    constexpr PanelRows::UnitWidths ofCharge{.left = 24, .right = 60};
    rows.pair(field("txtPrice"), field("txtGrid"), ofMoney);
    rows.pair(field("txtCharge"), field("txtLeakage"), ofCharge);
    rows.gap();
    rows.single(field("cmbStaging"));
    rows.mode(field("cmbDegradation"), field("txtCoefficient"));
    rows.pair(currency_, field("cmbRegion"));
    rows.pair(field("txtRecovery"), field("txtLife"));
    rows.single(field("cmbGwp"));
}

void YearPanel::layOut() {
    const int width = InternalWidth();
    const bool isChinese = gApplication().User().language == "cn-CN";
    const int captions = isChinese ? wideCaptionWidth : captionWidth;
    // What is used often is to be seen without scrolling, if there is room for some bins besides.
    constexpr int fewestBins = 5;
    constexpr int mostBins = 9;
    PanelRows rows(width, captions);
    layOutRows(rows, fewestBins);
    const int often = field("txtLeakage")->geometry().bottom();
    const int spare = (InternalHeight() - footer - often) / (YearBins::heightFor(1) - YearBins::heightFor(0));
    rows = PanelRows(width, captions);
    layOutRows(rows, std::clamp(fewestBins + spare, fewestBins, mostBins));
    content_->resize(width, rows.top());
    scroll_->setGeometry(InternalLeft(), InternalTop(), width, std::max(0, InternalHeight() - footer));
    const int ring = ctlBtn::ring;
    const int side = PanelRows::side;
    const int top =
        InternalTop() + std::min(rows.top(), InternalHeight() - footer) + (footer - buttonHeight) / 2;
    const int left = InternalLeft() + side + captions;
    lnkCalculate->setGeometry(left - ring, top - ring, width - 2 * side - captions + 2 * ring,
                              buttonHeight + 2 * ring);
    const QSize link = lnkDefaults->sizeHint();
    lnkDefaults->setGeometry(InternalLeft() + side, top + (buttonHeight - link.height()) / 2,
                             std::min(link.width(), captions), link.height());
}

}  // namespace marvello
