#include "workspace/CyclePage.h"

#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/CoreText.h"
#include "controls/Hairline.h"
#include "controls/Look.h"
#include "controls/NumberText.h"
#include "controls/ResultsView.h"
#include "controls/TwoLineHeader.h"
#include "reports/PaintedDrawing.h"
#include "results/CycleTexts.h"
#include "results/Svg.h"
#include "workspace/CopiedTable.h"
#include "workspace/CycleKey.h"
#include "workspace/ExportFile.h"
#include "workspace/SelectionExports.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int sideWidth = 584;
constexpr int leastSide = 300;
constexpr int margin = 16;
constexpr int rowHeight = 26;

QString labelOf(const CycleTable::Row& row) {
    // Numbers of one and of two digits leave the names in line.
    const QString number = fromCore(row.number);
    return number + (number.size() < 2 ? QStringLiteral("\u2007  ") : QStringLiteral("  ")) +
           fromCore(row.name);
}

/// A text that ends in an ellipsis where it has no room; the tool tip has all of it.
class ShortenedLabel : public QLabel {
  public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override { return {40, QLabel::minimumSizeHint().height()}; }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(rect(), static_cast<int>(alignment()),
                         painter.fontMetrics().elidedText(text(), Qt::ElideRight, width()));
    }
};

QLabel* labelWith(const QString& text, bool isValue, QWidget* parent) {
    QLabel* label = isValue ? new QLabel(text, parent) : new ShortenedLabel(text, parent);
    label->setToolTip(text);  // what a narrow page cuts
    label->setFont(lookFont());
    label->setAlignment(isValue ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
    QPalette colours = label->palette();
    colours.setColor(QPalette::WindowText, isValue ? Look::current().text : Look::current().muted);
    label->setPalette(colours);
    return label;
}

}  // namespace

CyclePage::CyclePage(QWidget* parent) : QWidget(parent) {
    sentence_ = labelWith({}, false, this);
    sentence_->setAlignment(Qt::AlignCenter);
    diagram_ = new CycleDiagram(this);
    diagram_->setObjectName(QStringLiteral("picCycle"));
    between_ = new Hairline(this);
    side_ = new QWidget(this);
    states_ = new ResultsView(side_);
    states_->setObjectName(QStringLiteral("lvStates"));
    states_->installEventFilter(this);
    figures_ = new QWidget(side_);
    figureCells_ = new QGridLayout(figures_);
    figureCells_->setContentsMargins(margin, 6, margin, 2);
    figureCells_->setHorizontalSpacing(8);
    figureCells_->setVerticalSpacing(2);
    key_ = new CycleKey(side_);
    auto* keyRow = new QHBoxLayout;
    keyRow->setContentsMargins(margin, 2, margin, 6);
    keyRow->addWidget(key_);
    auto* column = new QVBoxLayout(side_);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(states_, 1);
    column->addWidget(figures_);
    column->addLayout(keyRow);
    column->addStretch(0);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(sentence_, 1);
    row->addWidget(diagram_, 1);
    row->addWidget(between_);
    row->addWidget(side_);
    setFocusProxy(states_);

    connect(diagram_, &CycleDiagram::stateChosen, this, &CyclePage::choose);
    connect(states_, &ResultsView::rowSelected, this, [this] {
        const int state = states_->selectedRow();
        diagram_->choose(state < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(state)));
    });
    connect(states_, &ResultsView::copyRequested, this, &CyclePage::copyTable);
    for (QWidget* part : std::initializer_list<QWidget*>{diagram_, states_}) {
        part->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(part, &QWidget::customContextMenuRequested, this,
                [this, part](const QPoint& place) { showMenu(part->mapToGlobal(place)); });
    }
    clear();
}

void CyclePage::clear(const QString& sentence) {
    content_ = {};
    diagram_->setContent({});
    states_->clear();
    sentence_->setText(sentence);
    sentence_->show();
    for (QWidget* part : std::initializer_list<QWidget*>{diagram_, between_, side_}) part->hide();
}

void CyclePage::setCycle(const CycleDiagram::Content& content) {
    content_ = content;
    diagram_->setContent(content);
    fillTable();
    fillFigures();
    fillKey();
    sentence_->hide();
    diagram_->show();
    arrange();
}

void CyclePage::fillTable() {
    constexpr int leastColumn = 52;
    const CycleTable table = tableOf(*content_.cycle, content_.units, marksOf(QLocale()));
    std::vector<ResultsView::Column> columns{{QStringLiteral("state"), fromCore(table.state), QString()}};
    for (const CycleTable::Column& column : table.columns) {
        const QString unit = column.unit.empty() ? QString() : u'(' + fromCore(column.unit) + u')';
        columns.push_back({fromCore(column.symbol), fromCore(column.symbol) + unit, fromCore(column.name)});
        columns.back().minWidth = leastColumn;
    }
    states_->clear();
    states_->setColumns(columns);
    for (const CycleTable::Row& row : table.rows) {
        QStringList values;
        for (const std::string& value : row.values) values += fromCore(value);
        states_->addRow({fromCore(row.number), labelOf(row), QString(), QString(), values});
    }
    states_->fitColumns();
    states_->setAccessibleName(content_.title);
    states_->setMaximumHeight(TwoLineHeader::headerHeight + rowHeight * static_cast<int>(table.rows.size()) +
                              14);
}

void CyclePage::fillFigures() {
    while (QLayoutItem* cell = figureCells_->takeAt(0)) {
        delete cell->widget();
        delete cell;
    }
    constexpr int gapColumn = 2;
    int place = 0;
    for (const CaptionedValue& figure : figuresOf(*content_.cycle, content_.units, marksOf(QLocale()))) {
        const int row = place / 2;
        const int column = place % 2 == 0 ? 0 : gapColumn + 1;
        figureCells_->addWidget(labelWith(fromCore(figure.caption), false, figures_), row, column);
        figureCells_->addWidget(labelWith(fromCore(figure.value), true, figures_), row, column + 1);
        ++place;
    }
    figureCells_->setColumnMinimumWidth(gapColumn, margin);
    figureCells_->setColumnStretch(0, 1);
    figureCells_->setColumnStretch(gapColumn + 1, 1);
}

void CyclePage::fillKey() {
    const auto text = [this](const char* key, StateProperty property) {
        return filled(dictionaryText(QLatin1String(key)), {fromCore(unitOf(property, content_.units))});
    };
    key_->setEntries(
        {{PhLine::Kind::temperature, text("frmselection.cycle.key.temperature", StateProperty::temperature)},
         {PhLine::Kind::entropy, text("frmselection.cycle.key.entropy", StateProperty::entropy)},
         {PhLine::Kind::density, text("frmselection.cycle.key.density", StateProperty::density)},
         {PhLine::Kind::quality, text("frmselection.cycle.key.quality", StateProperty::quality)}});
}

void CyclePage::choose(std::size_t state) { states_->selectRow(static_cast<int>(state)); }

/// The first state follows the last one.
bool CyclePage::eventFilter(QObject* watched, QEvent* event) {
    if (watched == states_ && event->type() == QEvent::KeyPress && states_->rowCount() > 0) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const int last = states_->rowCount() - 1;
        const int row = states_->selectedRow();
        if (key->modifiers() == Qt::NoModifier && key->key() == Qt::Key_Down && row == last) {
            states_->selectRow(0);
            return true;
        }
        if (key->modifiers() == Qt::NoModifier && key->key() == Qt::Key_Up && row == 0) {
            states_->selectRow(last);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void CyclePage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

void CyclePage::arrange() {
    const bool hasRoom = content_.cycle && width() >= 2 * leastSide;
    between_->setVisible(hasRoom);
    side_->setVisible(hasRoom);
    constexpr int scrollBar = 12;
    const int wanted = std::max(sideWidth, states_->header()->length() + scrollBar);
    const int leastDiagram = std::max(leastSide, width() * 4 / 11);
    side_->setFixedWidth(std::clamp(width() - leastDiagram, leastSide, wanted));
}

void CyclePage::copyTable() const {
    CopiedTable table{states_->columnTexts(), {}, 1};
    for (int row = 0; row < states_->rowCount(); ++row) table.rows += states_->rowTexts(row);
    marvello::copyTable(fromCore(copiedText(*content_.cycle, content_.units, marksOf(QLocale()))), table);
}

void CyclePage::exportPicture() {
    const auto file = chooseExportFile(this, {ExportFile::Form::svg});
    if (!file) return;
    const QString failure = writeExport(svgOf(diagram_->onPaper()), *file);
    if (!failure.isEmpty()) sayNotWritten(QDir::toNativeSeparators(file->path), failure, this);
}

void CyclePage::showMenu(const QPoint& place) {
    QMenu menu(this);
    const auto add = [&](const char* key, auto act) {
        connect(menu.addAction(dictionaryText(QLatin1String(key))), &QAction::triggered, this, act);
    };
    add("frmselection.cycle.copypicture", [this] { copyDrawing(diagram_->onPaper()); });
    add("frmselection.cycle.exportpicture", [this] { exportPicture(); });
    add("frmselection.cycle.copytable", [this] { copyTable(); });
    if (isPrintable_) add("frmselection.calculation.print", [this] { emit printWanted(); });
    menu.exec(place);
}

}  // namespace marvello
