#include "workspace/CalculationPage.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QMenu>
#include <QMimeData>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QScrollBar>
#include <QTextBrowser>
#include <QTextDocument>
#include <QVBoxLayout>
#include <utility>

#include "catalogue/PreparedCatalogue.h"
#include "controls/Icons.h"
#include "controls/Look.h"
#include "controls/NumberText.h"
#include "controls/PageBar.h"
#include "controls/SearchField.h"
#include "controls/ctlBtn.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "results/SheetFiles.h"
#include "workspace/ExportFile.h"
#include "workspace/SelectionExports.h"
#include "workspace/SheetDocument.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int margin = 12;

QString text(const char* key) { return dictionaryText(QLatin1String(key)); }

/// "TK-A-255, R134A, 2.00 / 40.00 °C".
QString titleOf(const clsCompressor& compressor, const clsProjectConditions& conditions) {
    const auto shown = [](double value) { return formatNumber(value, u"#0.00"); };
    return fromCore(compressor.Serie + '-' + compressor.Model + ", " + compressor.Refrigerant) +
           QStringLiteral(", ") + shown(conditions.TEvaporatingDew) + QStringLiteral(" / ") +
           shown(conditions.TCondensationDew) + QStringLiteral(" \u00B0C");
}

}  // namespace

CalculationPage::CalculationPage(QWidget* parent)
    : QWidget(parent), bar_(new PageBar(this)), sheet_(new QTextBrowser(this)) {
    makeBar();
    sheet_->setObjectName(QStringLiteral("calculationSheet"));
    sheet_->setFrameShape(QFrame::NoFrame);
    sheet_->setOpenLinks(false);
    sheet_->document()->setDocumentMargin(margin);
    sheet_->document()->setDefaultFont(lookFont());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(bar_);
    column->addWidget(sheet_, 1);
    setFocusProxy(sheet_);
    clear();
}

void CalculationPage::focusSearch() {
    field_->setFocus();
    field_->selectAll();
}

void CalculationPage::makeBar() {
    field_ = new SearchField(bar_);
    field_->setObjectName(QStringLiteral("calculationSearch"));
    bar_->add(field_, 0);
    const auto button = [this](const char* name, const char* picture) {
        auto* made = new ctlBtn(bar_);
        made->setObjectName(QLatin1String(name));
        made->setIcon(icon(QLatin1String(picture)));
        bar_->add(made, ctlBtn::ring);
        return made;
    };
    copy_ = button("calculationCopy", "copy");
    export_ = button("calculationExport", "export");
    print_ = button("calculationPrint", "print");
    connect(field_, &QLineEdit::textChanged, this, &CalculationPage::search);
    connect(field_, &SearchField::nextWanted, this, [this] { go(1); });
    connect(field_, &SearchField::previousWanted, this, [this] { go(-1); });
    connect(copy_, &ctlBtn::clicked, this, &CalculationPage::copy);
    connect(export_, &ctlBtn::clicked, this, &CalculationPage::openExports);
    connect(print_, &ctlBtn::clicked, this, &CalculationPage::print);
}

void CalculationPage::translate() {
    field_->setPlaceholderText(text("frmselection.calculation.search"));
    field_->setAccessibleName(field_->placeholderText());
    copy_->setText(text("frmselection.rating.copy"));
    export_->setText(text("frmselection.rating.export"));
    print_->setText(text("frmselection.calculation.print"));
    sheet_->setAccessibleName(text("frmselection.tabstrip.tabs.calculation"));
    bar_->layOut();
}

void CalculationPage::clear() {
    if (!sections_.empty()) scrolled_ = sheet_->verticalScrollBar()->value();
    sections_.clear();
    found_.clear();
    sheet_->setExtraSelections({});
    sheet_->clear();
    bar_->setVisible(false);
}

void CalculationPage::showCompressor(const clsCompressor& compressor,
                                     const clsProjectConditions& conditions) {
    clear();
    const auto catalogue = preparedCatalogue(gDatabase());
    const PreparedCompressor* const prepared =
        catalogue->find(compressor.Refrigerant, compressor.Serie, compressor.Model);
    if (prepared == nullptr) return;
    const CollectedBoxes said;  // by the calculation of the list
    sections_ = calculationSheet(explain(*prepared, conditions), marksOf(QLocale()));
    title_ = titleOf(compressor, conditions);
    sheet_->setHtml(sheetHtml(sections_, Look::current()));
    bar_->setVisible(true);
    search();
    sheet_->verticalScrollBar()->setValue(scrolled_);
}

void CalculationPage::search() {
    found_.clear();
    current_ = 0;
    const QString wanted = field_->text();
    QTextCursor place(sheet_->document());
    while (!wanted.isEmpty()) {
        place = sheet_->document()->find(wanted, place);
        if (place.isNull()) break;
        found_ += place;
    }
    go(0);
}

void CalculationPage::go(int places) {
    if (!found_.isEmpty()) {
        const auto count = static_cast<int>(found_.size());
        current_ = (current_ + places + count) % count;
        QTextCursor place = found_.at(current_);
        place.clearSelection();
        sheet_->setTextCursor(place);
        sheet_->ensureCursorVisible();
    }
    mark();
}

void CalculationPage::mark() {
    QList<QTextEdit::ExtraSelection> marked;
    for (int i = 0; i < found_.size(); ++i) {
        QTextEdit::ExtraSelection place;
        place.cursor = found_.at(i);
        const bool isCurrent = i == current_;
        place.format.setBackground(isCurrent ? Look::current().accent : Look::current().accentTint);
        if (isCurrent) place.format.setForeground(Look::current().onAccent);
        marked += place;
    }
    sheet_->setExtraSelections(marked);
    if (field_->text().isEmpty())
        bar_->setSentence(title_);
    else if (found_.isEmpty())
        bar_->setSentence(text("frmselection.calculation.nothing"));
    else
        bar_->setSentence(filled(text("frmselection.calculation.found"),
                                 {QString::number(current_ + 1), QString::number(found_.size())}));
}

void CalculationPage::copy() const {
    auto* data = new QMimeData;
    data->setText(fromCore(sheetAsText(toCore(title_), sections_)));
    data->setHtml(fromCore(sheetAsHtml(toCore(title_), sections_)));
    QApplication::clipboard()->setMimeData(data);
}

void CalculationPage::openExports() {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    connect(menu->addAction(QStringLiteral("HTML\u2026")), &QAction::triggered, this,
            [this] { write(true); });
    connect(menu->addAction(QStringLiteral("Markdown\u2026")), &QAction::triggered, this,
            [this] { write(false); });
    menu->popup(export_->mapToGlobal(QPoint(ctlBtn::ring, export_->height())));
}

void CalculationPage::write(bool isHtml) {
    const auto form = isHtml ? ExportFile::Form::html : ExportFile::Form::markdown;
    QString name = title_;
    const auto chosen =
        chooseExportFile(this, {form}, name.replace(QStringLiteral(" / "), QStringLiteral("_")));
    if (!chosen) return;
    const auto write = isHtml ? sheetAsHtml : sheetAsMarkdown;
    const QString path = QDir::toNativeSeparators(chosen->path);
    if (const QString failure = writeExport(write(toCore(title_), sections_), *chosen); !failure.isEmpty())
        return sayNotWritten(path, failure, this);
    emit exported(filled(text("frmselection.rating.export.done"), {path}));
}

void CalculationPage::print() {
    QPrinter printer(QPrinter::HighResolution);
    // The document has margins of its own.
    printer.setPageLayout({QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()});
    printer.setDocName(title_);
    QPrintPreviewDialog dialog(&printer, window());
    dialog.setWindowTitle(title_);
    connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [this](QPrinter* to) {
        QTextDocument document;
        QFont font = lookFont();
        font.setPointSizeF(8.5);
        document.setDefaultFont(font);
        document.setHtml(QStringLiteral("<h2>") + title_.toHtmlEscaped() + QStringLiteral("</h2>") +
                         sheetHtml(sections_, Look::light()));
        document.print(to);
    });
    dialog.exec();
}

}  // namespace marvello
