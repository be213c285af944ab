#include "workspace/RatingPage.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStackedLayout>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/Hairline.h"
#include "controls/Look.h"
#include "controls/NumberText.h"
#include "controls/RatingGrid.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "engine/Verdict.h"
#include "results/FigureTexts.h"
#include "results/Messages.h"
#include "workspace/CopiedTable.h"
#include "workspace/RatingBar.h"
#include "workspace/RatingExports.h"
#include "workspace/RatingSide.h"
#include "workspace/UnitTexts.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int beforeProgress = 300;  // milliseconds

QString text(const char* key) { return dictionaryText(QLatin1String(key)); }

RatingGrid::Kind kindOf(const Performance& cell) {
    if (!cell.hasValues()) return RatingGrid::Kind::none;
    return cell.state == PointState::warning ? RatingGrid::Kind::warning : RatingGrid::Kind::plain;
}

QString spokenOf(const Performance& cell) {
    if (cell.state == PointState::ok) return {};
    if (cell.state == PointState::warning) return text("frmselection.rating.legend.warning");
    return text(cell.state == PointState::outside ? "frmselection.rating.cell.outside"
                                                  : "frmselection.rating.cell.error");
}

}  // namespace

RatingPage::RatingPage(const SelectionInputs& inputs, QWidget* parent)
    : QWidget(parent),
      inputs_(inputs),
      bar_(new RatingBar(this)),
      grid_(new RatingGrid(this)),
      between_(new Hairline(this)),
      side_(new RatingSide(this)),
      sentence_(new QLabel(this)),
      patience_(new QTimer(this)) {
    grid_->setObjectName(QStringLiteral("ratingGrid"));
    grid_->setToolTips([this](int row, int column) { return tipOf(row, column); });
    sentence_->setAlignment(Qt::AlignCenter);
    sentence_->setWordWrap(true);
    QPalette quiet = sentence_->palette();
    quiet.setColor(QPalette::WindowText, Look::current().muted);
    sentence_->setPalette(quiet);
    sentence_->setAttribute(Qt::WA_TransparentForMouseEvents);
    // The sentence is over the grid, which keeps the focus while its table is calculated.
    auto* table = new QStackedLayout;
    table->setStackingMode(QStackedLayout::StackAll);
    table->addWidget(sentence_);
    table->addWidget(grid_);
    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    row->addLayout(table, 1);
    row->addWidget(between_);
    row->addWidget(side_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(bar_);
    column->addLayout(row, 1);
    patience_->setSingleShot(true);
    patience_->setInterval(beforeProgress);
    setFocusProxy(grid_);
    connect(patience_, &QTimer::timeout, this, [this] { say(text("frmpg.label1.caption") + u'\u2026'); });
    connect(bar_, &RatingBar::figureChanged, this, &RatingPage::refill);
    connect(bar_, &RatingBar::styleChanged, this, &RatingPage::start);
    connect(bar_, &RatingBar::copyClicked, this, [this] { copy(true); });
    connect(bar_, &RatingBar::exportClicked, this, &RatingPage::write);
    connect(grid_, &RatingGrid::chosen, this, &RatingPage::choose);
    connect(grid_, &RatingGrid::copyRequested, this, [this] { copy(false); });
    connect(&run_, &RatingRun::rated, this, &RatingPage::show);
    connect(&run_, &RatingRun::failed, this, [this](const QString& reason) {
        patience_->stop();
        say(reason);
    });
    clear();
}

void RatingPage::translate() {
    bar_->translate();
    grid_->setAccessibleName(text("frmselection.tabstrip.tabs.rating"));
    refill();
}

void RatingPage::clear() {
    run_.stop();
    patience_->stop();
    compressor_ = nullptr;
    sheet_.reset();
    cells_.clear();
    say({});
}

void RatingPage::showCompressor(const clsCompressor& compressor, const clsProjectConditions& conditions) {
    catalogue_ = preparedCatalogue(gDatabase());
    compressor_ = catalogue_->find(compressor.Refrigerant, compressor.Serie, compressor.Model);
    conditions_ = conditions;
    if (compressor_ == nullptr || verdictOf(compressor) == Verdict::notPossible) {
        compressor_ = nullptr;
        say(text("frmselection.rating.empty"));
        return;
    }
    bar_->setSubject(inputs_.units(), compressor_->hasInvert);
    start();
}

void RatingPage::start() {
    if (compressor_ == nullptr) return;
    cells_.clear();
    sheet_ = ratingSheet(*compressor_, conditions_, bar_->tableStyle());
    if (!sheet_) return say(text("frmselection.rating.empty"));
    patience_->start();
    run_.start(catalogue_, sheet_->plan);
}

void RatingPage::show(const std::vector<Performance>& cells) {
    patience_->stop();
    cells_ = cells;
    refill();
}

void RatingPage::refill() {
    if (!sheet_ || cells_.empty()) return;
    const Figure figure = bar_->figure();
    const NumberMarks marks = marksOf(QLocale());
    RatingGrid::Table table;
    table.corner = text("frmselection.txttcd.captiontext") + u' ' +
                   fromCore(unitText(Quantity::temperature, inputs_.units()));
    for (const double value : sheet_->columns) table.columns += fromCore(axisText(value, marks));
    for (const double value : sheet_->rows) table.rows += fromCore(axisText(value, marks));
    for (const Performance& cell : cells_) {
        const ShownValue shown = shownFigure(figure, valueOf(cell, figure), inputs_.units(), marks);
        table.cells.push_back(
            {cell.hasValues() ? fromCore(shown.text) : QString(), kindOf(cell), spokenOf(cell)});
    }
    table.currentColumn = static_cast<int>(sheet_->currentColumn);
    table.currentRow = static_cast<int>(sheet_->currentRow);
    grid_->setTable(std::move(table));
    const auto without =
        std::ranges::count_if(cells_, [](const Performance& cell) { return !cell.hasValues(); });
    bar_->setSentence(filled(text("frmselection.rating.points"),
                             {QString::number(cells_.size()), QString::number(without)}));
    refreshSide();
    sentence_->clear();
    grid_->setAccessibleDescription({});
    showParts();
}

void RatingPage::refreshSide() {
    const Figure figure = bar_->figure();
    const QString unit = fromCore(unitOf(figure, inputs_.units()));
    RatingSide::Facts facts;
    facts.title = text(std::string(textOf(figure).description).c_str()) +
                  (unit.isEmpty() ? QString() : QStringLiteral(", ") + unit);
    const bool hasFrequencies = sheet_->plan.across == RatingAcross::frequency;
    facts.axes = filled(
        text("frmselection.rating.axes"),
        {text(hasFrequencies ? "frmselection.txtfrequency.captiontext" : "frmselection.txtted.captiontext"),
         text("frmselection.txttcd.captiontext")});
    facts.compressor =
        fromCore(compressor_->Serie + '-' + compressor_->Model + ", " + compressor_->Refrigerant);
    const auto add = [&](const QString& name, const QString& value) {
        facts.conditions.append({name, value});
    };
    add(fromCore(inputs_.caption(Input::superheatKind)), withUnit(inputs_, Input::superheat));
    add(text("frmselection.txtsc.captiontext"), withUnit(inputs_, Input::subcooling));
    if (!compressor_->hasInvert && inputs_.has(Input::capacityStep))
        add(text("frmselection.cmbstepcapacity.captiontext"), fromCore(inputs_.caption(Input::capacityStep)));
    if (compressor_->hasInvert && !hasFrequencies)
        add(text("frmselection.txtfrequency.captiontext"),
            fromCore(formatNumber(static_cast<double>(conditions_.InverterFrequency), "#0.0",
                                  marksOf(QLocale()))) +
                QStringLiteral(" Hz"));
    if (conditions_.EcoCalculateMode != EconomizerMode::none)
        add(text("frmselection.cmbeco.captiontext"), fromCore(inputs_.caption(Input::economizerMode)));
    side_->setFacts(facts);
}

void RatingPage::say(const QString& sentence) {
    sentence_->setText(sentence);
    grid_->setAccessibleDescription(sentence);
    bar_->setSentence({});
    grid_->clear();
    showParts();
}

// In a narrow page the table needs the room more than what is next to it.
void RatingPage::showParts() {
    constexpr int minimumWidthWithSide = 560;
    const bool hasTable = !cells_.empty();
    bar_->setVisible(compressor_ != nullptr);
    bar_->setHasTable(hasTable);
    for (QWidget* part : std::initializer_list<QWidget*>{between_, side_})
        part->setVisible(hasTable && width() >= minimumWidthWithSide);
}

void RatingPage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    showParts();
}

std::size_t RatingPage::cellAt(int row, int column) const {
    return static_cast<std::size_t>(row) * sheet_->columns.size() + static_cast<std::size_t>(column);
}

void RatingPage::choose(int row, int column) {
    if (!takesPoints_ || cells_.empty()) return;
    UsedPoint point{.evaporating = inputs_.number(Input::evaporatingDew),
                    .condensing = sheet_->rows.at(static_cast<std::size_t>(row))};
    const double across = sheet_->columns.at(static_cast<std::size_t>(column));
    if (sheet_->plan.across == RatingAcross::frequency)
        point.frequency = across;
    else
        point.evaporating = across;
    emit pointUsed(point);
}

void RatingPage::copy(bool isWhole) const {
    if (cells_.empty()) return;
    QList<QStringList> rows = isWhole ? grid_->texts() : grid_->selectedTexts();
    if (rows.isEmpty()) return;
    QString plain;
    for (const QStringList& row : rows) plain += row.join(u'\t') + QStringLiteral("\r\n");
    const bool hasCaptions = rows.size() > static_cast<qsizetype>(sheet_->rows.size());
    CopiedTable table;
    if (hasCaptions) table.columns = rows.takeFirst();
    table.rows = rows;
    copyTable(plain, table);
}

void RatingPage::write(RatingFile file) {
    if (cells_.empty()) return;
    if (const QString note = exportRating(file, *sheet_, cells_, this); !note.isEmpty()) emit exported(note);
}

/// The point, and what its calculation says.
QString RatingPage::tipOf(int row, int column) {
    if (cells_.empty()) return {};
    const NumberMarks marks = marksOf(QLocale());
    QStringList lines{fromCore(axisText(sheet_->columns.at(static_cast<std::size_t>(column)), marks)) +
                      QStringLiteral(" / ") +
                      fromCore(axisText(sheet_->rows.at(static_cast<std::size_t>(row)), marks))};
    const std::size_t cell = cellAt(row, column);
    if (cells_.at(cell).state == PointState::ok) return lines.front();
    try {
        const CollectedBoxes said;
        for (const ShownMessage& message :
             messagesOf(calculator_.calculate(*compressor_, sheet_->plan.conditionsOf(cell))))
            if (message.severity != Severity::information) lines += fromCore(message.text);
    } catch (const std::exception&) {
        lines += text("frmselection.rating.cell.error");
    }
    return QStringLiteral("<p>%1</p>")
        .arg(lines.join(u'\n').toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")));
}

}  // namespace marvello
