#include "workspace/YearTop.h"

#include <QGridLayout>
#include <QHelpEvent>
#include <QLabel>
#include <QPainter>
#include <QToolTip>
#include <QVBoxLayout>

#include "controls/CoreText.h"
#include "controls/Look.h"
#include "controls/Marks.h"
#include "controls/MessagesView.h"
#include "workspace/ComparisonFigures.h"
#include "workspace/ResultMarks.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int side = 15;
constexpr int wideSide = 20;

QString text(const char* key) { return dictionaryText(QLatin1String(key)); }

QLabel* newLabel(QWidget* parent, const QFont& font, const QColor& colour) {
    auto* label = new QLabel(parent);
    label->setFont(font);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, colour);
    label->setPalette(palette);
    return label;
}

}  // namespace

YearHeads::YearHeads(const ComparisonFigures& figures, QWidget* parent) : QWidget(parent), figures_(figures) {
    setFixedHeight(height);
    connect(&figures, &ComparisonFigures::columnsChanged, this, qOverload<>(&QWidget::update));
}

void YearHeads::setHeads(const std::vector<ComparedHead>& heads) {
    heads_ = heads;
    QStringList words;
    for (const ComparedHead& head : heads) words += fromCore(head.label());
    setAccessibleName(words.join(QStringLiteral(", ")));
    update();
}

QRect YearHeads::columnOf(std::size_t head) const {
    const int column = static_cast<int>(head) + 1;
    return {figures_.columnViewportPosition(column) + side / 2, 0,
            figures_.columnWidth(column) - side * 3 / 2, height};
}

void YearHeads::paintEvent(QPaintEvent*) {
    const Look& look = Look::current();
    QPainter painter(this);
    painter.fillRect(rect(), look.surface);
    painter.fillRect(QRect(0, height - 1, width(), 1), look.line);
    const auto line = [&](const QRect& room, const QFont& font, const QColor& colour,
                          const std::string& words) {
        painter.setFont(font);
        painter.setPen(colour);
        painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(fromCore(words), Qt::ElideRight, room.width()));
    };
    for (std::size_t i = 0; i < heads_.size(); ++i) {
        const QRect column = columnOf(i);
        line(column.adjusted(0, 8, 0, -28), lookFont(13, QFont::Medium), look.text, heads_[i].name);
        line(column.adjusted(0, 28, 0, -8), lookFont(12), look.muted, heads_[i].facts);
    }
}

bool YearHeads::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    for (std::size_t i = 0; i < heads_.size(); ++i)
        if (columnOf(i).contains(help->pos()))
            QToolTip::showText(help->globalPos(), fromCore(heads_[i].name + '\n' + heads_[i].facts), this);
    return true;
}

YearSide::YearSide(QWidget* parent)
    : QWidget(parent),
      title_(newLabel(this, lookFont(13, QFont::Medium), Look::current().text)),
      rows_(new QWidget(this)),
      grid_(new QGridLayout(rows_)),
      against_(newLabel(this, lookFont(12), Look::current().muted)),
      note_(newLabel(this, lookFont(12), Look::current().muted)),
      warnings_(new MessagesView(this)) {
    setMinimumWidth(220);
    grid_->setContentsMargins(wideSide, 0, wideSide, 0);
    grid_->setHorizontalSpacing(16);
    grid_->setVerticalSpacing(6);
    warnings_->setObjectName(QStringLiteral("yearWarnings"));
    for (QLabel* label : {title_, against_, note_}) {
        label->setWordWrap(true);
        label->setContentsMargins(wideSide, 0, wideSide, 0);
    }
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 14, 0, 0);
    column->setSpacing(8);
    column->addWidget(title_);
    column->addWidget(rows_);
    column->addWidget(against_);
    column->addWidget(note_);
    column->addStretch(1);
    column->addWidget(warnings_, 3);
}

QWidget* YearSide::warnings() const { return warnings_; }

void YearSide::showDifferences(const YearTable& table) {
    while (QLayoutItem* item = grid_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    const auto add = [&](int row, int column, const QString& words, bool isValue) {
        QLabel* const label =
            newLabel(rows_, lookFont(), isValue ? Look::current().text : Look::current().muted);
        label->setText(words);
        label->setAlignment(isValue ? Qt::AlignRight : Qt::AlignLeft);
        grid_->addWidget(label, row, column);
    };
    const auto& heads = table.figures.heads;
    if (heads.size() > 2)
        for (std::size_t i = 1; i < heads.size(); ++i)
            add(0, static_cast<int>(i), fromCore(heads[i].name), true);
    int row = 1;
    for (const YearDifference& difference : table.differences) {
        add(row, 0, fromCore(difference.caption), false);
        for (std::size_t i = 0; i < difference.values.size(); ++i)
            add(row, static_cast<int>(i) + 1, fromCore(difference.values[i]), true);
        ++row;
    }
    grid_->setColumnStretch(static_cast<int>(heads.size()), 0);
    grid_->setColumnStretch(static_cast<int>(heads.size()) + 1, 1);
}

void YearSide::show(const YearTable& table, const QStringList& assumptions) {
    const bool hasDifferences = !table.differences.empty();
    showDifferences(table);
    title_->setText(text("frmyear.difference"));
    const auto& heads = table.figures.heads;
    QStringList others;
    for (std::size_t i = 1; i < heads.size(); ++i) others += fromCore(heads[i].name);
    if (hasDifferences)
        against_->setText(filled(text("frmyear.difference.against"),
                                 {others.join(QStringLiteral(", ")), fromCore(heads.front().name)}));
    for (QWidget* part : std::initializer_list<QWidget*>{title_, rows_, against_})
        part->setVisible(hasDifferences);
    note_->setText(assumptions.isEmpty() ? QString() : assumptions.last());
    warnings_->setAccessibleName(text("frmyear.warnings"));
    warnings_->clear();
    for (const std::string& warning : table.warnings)
        warnings_->addMessage(mark::attention, markText(mark::attention), fromCore(warning), QString());
    warnings_->setVisible(!table.warnings.empty());
}

}  // namespace marvello
