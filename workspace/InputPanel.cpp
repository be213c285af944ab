#include "workspace/InputPanel.h"

#include <QLabel>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "controls/AdvanceText.h"
#include "controls/CoreText.h"
#include "controls/Link.h"
#include "controls/Look.h"
#include "controls/TagBox.h"
#include "controls/ctlBtn.h"
#include "inputs/InputTexts.h"

namespace marvello {

namespace {

// All measures of the panel, in logical pixels.
constexpr int side = PanelRows::side;
constexpr int buttonGap = 14;
constexpr int buttonHeight = 32;
constexpr int helpGap = 16;

/// The numbers next to the selector that says how they are meant; they have no caption of their own.
constexpr std::array besideSelectors{
    std::pair{Input::capacity, Input::capacityKind}, std::pair{Input::superheat, Input::superheatKind},
    std::pair{Input::economizer, Input::economizerMode}, std::pair{Input::oilCooling, Input::oilCoolingMode}};

/// Empty where there is but one sentence.
QString withoutLastSentence(const QString& text) {
    static const QRegularExpression endInside(QStringLiteral("\\. |。."));
    return text.left(text.lastIndexOf(endInside) + 1);
}

}  // namespace

InputPanel::InputPanel(const SelectionInputs& inputs, QWidget* parent)
    : Container(parent),
      scroll_(new QScrollArea(this)),
      PicInput_(new QWidget),
      captionWidth_(usualCaptionWidth) {
    setObjectName(QStringLiteral("CoolFrame1"));
    PicInput_->setObjectName(QStringLiteral("PicInput"));
    QPalette ground = PicInput_->palette();
    ground.setColor(QPalette::Window, Look::current().surface);
    PicInput_->setPalette(ground);
    scroll_->viewport()->setPalette(ground);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setWidget(PicInput_);

    for (const InputDefinition& definition : allInputs())
        if (inputs.has(definition.input) && definition.input != Input::refrigerants)
            fields_[static_cast<std::size_t>(definition.input)] = newField(definition);
    if (inputs.has(Input::refrigerants)) {
        refrigerants_ = new TagBox(PicInput_);
        refrigerants_->setObjectName(fromCore(definitionOf(Input::refrigerants).name));
    }
    if (AdvanceText* frequency = (*this)[Input::frequency])
        frequency->SetUnitCaptiontext(QStringLiteral(" Hz"));
    for (const auto& [value, selector] : besideSelectors) {
        if (!(*this)[value]) continue;
        (*this)[value]->SetNamedBy((*this)[selector]);
        (*this)[value]->setProperty("CaptionVisible", false);
    }

    lnkCalculate = new ctlBtn(this);
    lnkCalculate->setObjectName(QStringLiteral("lnkCalculate"));
    lnkCalculate->setProperty("Main", true);
    lnkCalculate->setProperty("KeyHint", QStringLiteral("F5"));
    lnkDefaults = new Link(QString(), this);
    lnkDefaults->setObjectName(QStringLiteral("lnkDefaults"));

    rtfHelp_ = new QLabel(this);
    rtfHelp_->setObjectName(QStringLiteral("rtfHelp"));
    rtfHelp_->setWordWrap(true);
    rtfHelp_->setTextFormat(Qt::RichText);
    rtfHelp_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    const Look& look = Look::current();
    rtfHelp_->setStyleSheet(
        QStringLiteral("background: %1; color: %2; border-radius: 4px; padding: 10px 12px; font-size: 12px")
            .arg(look.surfaceAlt.name(), look.muted.name()));
    makeTabOrder();
    connect(this, &Container::resized, this, &InputPanel::layOut);
}

AdvanceText* InputPanel::newField(const InputDefinition& definition) {
    auto* field = new AdvanceText(PicInput_);
    field->setObjectName(fromCore(definition.name));
    if (definition.isChoice) {
        field->SetLocked(true);
        field->setProperty("ButtonVisible", true);
    } else {
        field->SetTextType(1);
        field->SetTextFormat(fromCore(inputPattern));
        field->setProperty("UnitCaptionVisible", true);
    }
    return field;
}

QString InputPanel::captionOf(Input input) const {
    for (const auto& [value, selector] : besideSelectors)
        if (value == input) return captionOf(selector);
    return input == Input::refrigerants ? refrigerants_->caption() : (*this)[input]->CaptionText();
}

void InputPanel::makeTabOrder() {
    QWidget* previous = nullptr;
    for (const InputDefinition& definition : allInputs()) {
        QWidget* next = (*this)[definition.input];
        if (definition.input == Input::refrigerants) next = refrigerants_;
        if (!next) continue;
        if (previous) QWidget::setTabOrder(previous, next);
        previous = next;
    }
    QWidget::setTabOrder(previous, lnkCalculate);
    QWidget::setTabOrder(lnkCalculate, lnkDefaults);
}

void InputPanel::ResizeControls(int captionWidth) {
    captionWidth_ = captionWidth;
    layOut();
}

void InputPanel::single(Input input) { rows_.single((*this)[input]); }

void InputPanel::pair(Input first, Input second) { rows_.pair((*this)[first], (*this)[second]); }

void InputPanel::mode(Input kind, Input number) { rows_.mode((*this)[kind], (*this)[number]); }

void InputPanel::coupled(Input dew, Input mid, Input pressure) {
    if ((*this)[pressure]->isHidden()) {
        single(dew);
        return;
    }
    if ((*this)[mid]->isHidden()) {
        pair(dew, pressure);
        return;
    }
    pair(dew, mid);
    single(pressure);
}

// The tags take as many lines as they need.
void InputPanel::tags() {
    if (!refrigerants_) return;
    const int halo = FieldFrame::halo;
    refrigerants_->setCaption(refrigerants_->caption(), captionWidth_);
    rows_.block(refrigerants_, refrigerants_->heightForWidth(rows_.width() - 2 * side + 2 * halo), halo);
}

void InputPanel::layOutSubject() {
    single(Input::refrigerant);
    single(Input::series);
    single(Input::models);
    mode(Input::capacityKind, Input::capacity);
    pair(Input::toleranceBelow, Input::toleranceAbove);
    if (refrigerants_) rows_.gap();
    tags();
    single(Input::allSeries);
    single(Input::market);
}

void InputPanel::layOutDrive() {
    single(Input::frequency);
    single(Input::motorVoltage);
    single(Input::motorSize);
    single(Input::motorSpeed);
    single(Input::capacityStep);
    if (refrigerants_) rows_.gap();
    pair(Input::minMachines, Input::maxMachines);
    single(Input::usesSteps);
    single(Input::inverterUse);
}

void InputPanel::layOutRows(int width) {
    rows_ = PanelRows(width, captionWidth_);
    layOutSubject();
    rows_.gap();
    coupled(Input::evaporatingDew, Input::evaporatingMid, Input::evaporatingPressure);
    coupled(Input::condensingDew, Input::condensingMid, Input::condensingPressure);
    rows_.gap();
    mode(Input::superheatKind, Input::superheat);
    single(Input::subcooling);
    mode(Input::economizerMode, Input::economizer);
    mode(Input::oilCoolingMode, Input::oilCooling);
    rows_.gap();
    layOutDrive();
}

void InputPanel::layOut() {
    const int width = InternalWidth();
    layOutRows(width);
    const int rowsHeight = rows_.top();
    const int ring = ctlBtn::ring;
    const int footer = buttonGap + buttonHeight;
    const int rowsShown =
        std::max(PanelRows::pitch, std::min(rowsHeight, InternalHeight() - footer - helpGap));
    // A bar next to the fields takes nothing of their width: it stands in the margin.
    PicInput_->resize(width, rowsHeight);
    scroll_->setGeometry(InternalLeft(), InternalTop(), width, rowsShown);

    const int top = InternalTop() + rowsShown + footer - buttonHeight;
    const int left = InternalLeft() + side + captionWidth_;
    lnkCalculate->setGeometry(left - ring, top - ring, width - side - captionWidth_ - side + 2 * ring,
                              buttonHeight + 2 * ring);
    const QSize link = lnkDefaults->sizeHint();
    lnkDefaults->setGeometry(InternalLeft() + side, top + (buttonHeight - link.height()) / 2,
                             std::min(link.width(), captionWidth_), link.height());
    layOutHelp({InternalLeft() + side, top + buttonHeight + helpGap, width - 2 * side,
                InternalTop() + InternalHeight() - top - buttonHeight - helpGap});
}

// As many whole sentences as there is room for: the first tells what the value is.
void InputPanel::layOutHelp(const QRect& room) {
    if (Help help{helpTitle_, helpText_, room.size()}; help != fittedHelp_) {
        fittedHelp_ = std::move(help);
        QString shown = helpText_;
        const auto height = [&] {
            rtfHelp_->setText(
                QStringLiteral("<span style=\"color:%1; font-weight:500\">%2</span><br>%3")
                    .arg(Look::current().text.name(), helpTitle_.toHtmlEscaped(), shown.toHtmlEscaped()));
            return rtfHelp_->heightForWidth(room.width());
        };
        helpHeight_ = shown.isEmpty() ? 0 : height();
        while (!shown.isEmpty() && helpHeight_ > room.height()) {
            shown = withoutLastSentence(shown);
            helpHeight_ = shown.isEmpty() ? 0 : height();
        }
        rtfHelp_->setVisible(!shown.isEmpty());
    }
    if (helpHeight_ > 0) rtfHelp_->setGeometry(room.left(), room.top(), room.width(), helpHeight_);
}

void InputPanel::VisualizzaHelp(const QString& title, const QString& text) {
    helpTitle_ = title;
    helpText_ = text;
    layOut();
}

}  // namespace marvello
