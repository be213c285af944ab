#include "workspace/InputSummary.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "controls/Icons.h"
#include "controls/Look.h"
#include "controls/NumberText.h"
#include "controls/ctlBtn.h"
#include "inputs/InputTexts.h"
#include "workspace/InputPanel.h"
#include "workspace/SearchTexts.h"
#include "workspace/UnitTexts.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int side = 12;
constexpr int gap = 8;
constexpr int around = 10;  // at each side of a separator
constexpr int minWidthWithWords = 560;
constexpr int iconButtonWidth = 40;

/// What a selection asks for and its operating point.
QStringList selectionTexts(const SelectionInputs& inputs) {
    const NumberMarks marks = marksOf(QLocale());
    const auto text = [&](Input input) { return fromCore(inputText(inputs, input, marks)); };
    const auto entry = [&](const char* key, Input input) {
        return filled(dictionaryText(QLatin1String(key)), {withUnit(inputs, input)});
    };
    const bool isDifference = inputs.quantity(Input::superheat) == Quantity::temperatureDifference;
    return {text(Input::refrigerant), text(Input::series),
            text(Input::evaporatingDew) + QStringLiteral(" / ") + withUnit(inputs, Input::condensingDew),
            entry(isDifference ? "frmselection.summary.superheat" : "frmselection.summary.suction",
                  Input::superheat),
            entry("frmselection.summary.subcooling", Input::subcooling)};
}

QStringList summaryOf(const SelectionInputs& inputs, const InputPanel& panel) {
    const NumberMarks marks = marksOf(QLocale());
    const auto text = [&](Input input) { return fromCore(inputText(inputs, input, marks)); };
    QStringList summary = inputs.has(Input::capacity) ? searchTexts(inputs) : selectionTexts(inputs);
    if (inputs.isShown(Input::frequency)) summary += withUnit(inputs, Input::frequency);
    summary += text(Input::motorVoltage);
    if (inputs.has(Input::models) && !inputs.isNeutral(Input::models)) summary += text(Input::models);
    for (const auto& [mode, value] :
         {std::pair{Input::economizerMode, Input::economizer}, {Input::oilCoolingMode, Input::oilCooling}})
        if (inputs.isShown(value)) summary += panel.captionOf(mode) + u' ' + withUnit(inputs, value);
    if (inputs.has(Input::capacityStep) && !inputs.isNeutral(Input::capacityStep))
        summary += text(Input::capacityStep);
    return summary;
}

}  // namespace

InputSummary::InputSummary(const SelectionInputs& inputs, const InputPanel& panel, QWidget* parent)
    : QWidget(parent),
      inputs_(inputs),
      panel_(panel),
      edit_(new ctlBtn(this)),
      calculate_(new ctlBtn(QString(), true, this)) {
    setObjectName(QStringLiteral("inputSummary"));
    edit_->setObjectName(QStringLiteral("btnEditInputs"));
    edit_->setCheckable(true);
    edit_->setIcon(icon(QStringLiteral("edit")));
    calculate_->setObjectName(QStringLiteral("btnCalculate"));
    calculate_->setProperty("KeyHint", QStringLiteral("F5"));
    connect(edit_, &ctlBtn::clicked, this, &InputSummary::editClicked);
    connect(calculate_, &ctlBtn::clicked, this, &InputSummary::calculateClicked);
}

void InputSummary::setTexts(const QString& title, const QString& edit, const QString& calculate) {
    setAccessibleName(title);
    edit_->setAccessibleName(edit);
    edit_->setToolTip(edit);
    editText_ = edit;
    calculate_->setText(calculate);
    refresh();
    layOut();
}

void InputSummary::refresh() {
    texts_ = summaryOf(inputs_, panel_);
    setAccessibleDescription(texts_.join(QStringLiteral(", ")));
    update();
}

void InputSummary::setOpen(bool open) { edit_->setChecked(open); }

void InputSummary::layOut() {
    // The inputs need the room more than the words on the button.
    edit_->setText(width() < minWidthWithWords ? QString() : editText_);
    int right = width() - side + ctlBtn::ring;
    for (ctlBtn* button : {calculate_, edit_}) {
        QSize size = button->sizeHint();
        if (button->text().isEmpty()) size.setWidth(iconButtonWidth + 2 * ctlBtn::ring);
        button->setGeometry(right - size.width(), (barHeight - size.height()) / 2, size.width(),
                            size.height());
        right = button->x() + 2 * ctlBtn::ring - gap;
    }
    update();
}

void InputSummary::resizeEvent(QResizeEvent*) { layOut(); }

bool InputSummary::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), texts_.join(QStringLiteral("\n")), this);
    return true;
}

void InputSummary::paintEvent(QPaintEvent*) {
    const Look& look = Look::current();
    QPainter painter(this);
    painter.fillRect(rect(), look.surface);
    painter.fillRect(QRect(0, height() - 1, width(), 1), look.line);
    painter.setFont(lookFont(13));
    const QFontMetrics metrics(painter.font());
    const int end = edit_->x() - gap;
    int left = side;
    for (const QString& input : texts_) {
        const bool isFirst = &input == &texts_.front();
        const int start = isFirst ? left : left + 2 * around + 1;
        const int width = metrics.horizontalAdvance(input);
        // Only the first one is cut where even that is too long.
        if (!isFirst && start + width > end) break;
        if (!isFirst) painter.fillRect(QRect(left + around, (height() - 18) / 2, 1, 18), look.line);
        const QRect place(start, 0, std::min(width + 1, end - start), height());
        painter.setPen(look.text);
        painter.drawText(place, Qt::AlignVCenter | Qt::AlignLeft,
                         metrics.elidedText(input, Qt::ElideRight, place.width()));
        left = start + width;
    }
}

}  // namespace marvello
