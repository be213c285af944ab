#include "workspace/CompressorPages.h"

#include <QStackedWidget>
#include <QVBoxLayout>
#include <array>
#include <memory>

#include "controls/MessagesView.h"
#include "controls/Metafile.h"
#include "controls/NumberText.h"
#include "controls/TabStrip.h"
#include "results/ResultTable.h"
#include "results/TechnicalData.h"
#include "workspace/AdvisedMessages.h"
#include "workspace/CalculationPage.h"
#include "workspace/CompressorFiles.h"
#include "workspace/CycleContent.h"
#include "workspace/CyclePage.h"
#include "workspace/DimensionPage.h"
#include "workspace/LimitsPage.h"
#include "workspace/MappedLimits.h"
#include "workspace/PartLoadPage.h"
#include "workspace/PolynomialsPage.h"
#include "workspace/RatingPage.h"
#include "workspace/TechnicalPage.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr std::array<CompressorPages::Page, 9> allPages{{
    {"messages", "frmselection.tabstrip.tabs.messages", "mdimain.menu.cpspopup.messages"},
    {"tecnic", "frmselection.tabstrip.tabs.tecnic", "mdimain.menu.cpspopup.tecnicaldata"},
    {"polynomials", "frmselection.tabstrip.tabs.polynomials", "mdimain.menu.cpspopup.polynomials"},
    {"dimension", "frmselection.tabstrip.tabs.dimension", "mdimain.menu.cpspopup.dimesion"},
    {"limits", "frmselection.tabstrip.tabs.limits", "mdimain.menu.cpspopup.limits", true},
    {"rating", "frmselection.tabstrip.tabs.rating", "mdimain.menu.cpspopup.rating", true},
    {"cycle", "frmselection.tabstrip.tabs.cycle", "mdimain.menu.cpspopup.cycle", true},
    {"calculation", "frmselection.tabstrip.tabs.calculation", "mdimain.menu.cpspopup.calculation", true},
    {"partload", "frmselection.tabstrip.tabs.partload", "mdimain.menu.cpspopup.partload", true},
}};

}  // namespace

std::span<const CompressorPages::Page> CompressorPages::all() { return allPages; }

CompressorPages::CompressorPages(const SelectionInputs& inputs, QWidget* parent)
    : QWidget(parent), inputs_(inputs) {
    auto* band = new TabBand(TabStrip::Kind::pages, this);
    TabStrip_ = band->strip();
    TabStrip_->setObjectName(QStringLiteral("TabStrip"));
    for (const Page& page : allPages) TabStrip_->addKeyed(QLatin1String(page.key), QString());

    pages_ = new QStackedWidget(this);
    lvMessages_ = new MessagesView(pages_);
    lvMessages_->setObjectName(QStringLiteral("lvMessages"));
    messages_ = new AdvisedMessages(*lvMessages_);
    connect(messages_, &AdvisedMessages::used, this, &CompressorPages::adviceUsed);
    technical_ = new TechnicalPage(pages_);
    polynomials_ = new PolynomialsPage(pages_);
    dimension_ = new DimensionPage(pages_);
    dimension_->setObjectName(QStringLiteral("picDimension"));
    limits_ = new LimitsPage(pages_);
    mappedLimits_ = new MappedLimits(*limits_, inputs_);
    connect(mappedLimits_, &MappedLimits::pointUsed, this, &CompressorPages::pointUsed);
    connect(mappedLimits_, &MappedLimits::exported, this, &CompressorPages::exported);
    connect(mappedLimits_, &MappedLimits::printWanted, this,
            [this] { emit printWanted(QStringLiteral("limits")); });
    rating_ = new RatingPage(inputs_, pages_);
    connect(rating_, &RatingPage::pointUsed, this, &CompressorPages::pointUsed);
    connect(rating_, &RatingPage::exported, this, &CompressorPages::exported);
    cycle_ = new CyclePage(pages_);
    connect(cycle_, &CyclePage::printWanted, this, [this] { emit printWanted(QStringLiteral("cycle")); });
    calculation_ = new CalculationPage(pages_);
    connect(calculation_, &CalculationPage::exported, this, &CompressorPages::exported);
    partLoad_ = new PartLoadPage(inputs_, pages_);
    connect(partLoad_, &PartLoadPage::exported, this, &CompressorPages::exported);
    for (QWidget* page : std::initializer_list<QWidget*>{lvMessages_, technical_, polynomials_, dimension_,
                                                         limits_, rating_, cycle_, calculation_, partLoad_})
        pages_->addWidget(page);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(band);
    column->addWidget(pages_, 1);
    connect(TabStrip_, &QTabBar::currentChanged, this, [this](int tab) {
        pages_->setCurrentIndex(tab);
        emit pageChanged();
    });
}

void CompressorPages::translate() {
    for (int tab = 0; tab < TabStrip_->count(); ++tab)
        TabStrip_->setTabText(
            tab, dictionaryText(QLatin1String(allPages.at(static_cast<std::size_t>(tab)).textKey)));
    TabStrip_->setAccessibleName(dictionaryText(QStringLiteral("frmselection.pages")));
    lvMessages_->setAccessibleName(tabText(lvMessages_));
    technical_->setCaption(tabText(technical_));
    dimension_->setAccessibleName(tabText(dimension_));
    polynomials_->setTexts(dictionaryText(QStringLiteral("frmselection.labelPoly.Caption")),
                           dictionaryText(QStringLiteral("frmselection.lctlCopyPolynomials.caption")));
    mappedLimits_->translate();
    rating_->translate();
    calculation_->translate();
    partLoad_->translate();
}

QString CompressorPages::tabText(QWidget* page) const { return TabStrip_->tabText(pages_->indexOf(page)); }

bool CompressorPages::select(const QString& key) {
    const int tab = TabStrip_->indexOf(key);
    if (tab >= 0) TabStrip_->setCurrentIndex(tab);
    return tab >= 0;
}

void CompressorPages::step(int by) {
    const bool hadFocus = page()->isAncestorOf(focusWidget());
    const int count = TabStrip_->count();
    TabStrip_->setCurrentIndex((current() + by + count) % count);
    if (hadFocus) focusPage();
}

int CompressorPages::current() const { return TabStrip_->currentIndex(); }

QWidget* CompressorPages::tabs() const { return TabStrip_; }
QWidget* CompressorPages::page() const { return pages_->currentWidget(); }

void CompressorPages::clear() {
    messages_->clear();
    technical_->clear();
    polynomials_->clear();
    dimension_->clear();
    mappedLimits_->clear();
    rating_->clear();
    cycle_->clear();
    calculation_->clear();
    partLoad_->clear();
}

void CompressorPages::setFollowed() {
    isAdvised_ = true;
    mappedLimits_->setFollowed();
    cycle_->setPrintable();
    rating_->setTakesPoints();
}

void CompressorPages::findOnPage() {
    if (page() == calculation_) calculation_->focusSearch();
}

SectionChoices CompressorPages::sectionChoices() const {
    return {.mapped = mappedLimits_->figure().value_or(Figure::cop), .partLoad = partLoad_->rule()};
}

QString CompressorPages::mapQuantity() const { return mappedLimits_->quantity(); }
void CompressorPages::setMapQuantity(const QString& name) { mappedLimits_->setQuantity(name); }

void CompressorPages::focusPage() { pages_->currentWidget()->setFocus(); }

void CompressorPages::showCompressor(const clsCompressor* compressor, const QString& group,
                                     const std::shared_ptr<const clsProjectConditions>& conditions) {
    clear();
    TabStrip_->setToolTip(group);
    if (!compressor) return;
    const QString page = TabStrip_->currentKey();
    if (page == u"messages") messages_->show(*compressor, isAdvised_ ? conditions : nullptr, inputs_.units());
    if (page == u"tecnic") fillTechnical(*compressor);
    if (page == u"polynomials") {
        polynomials_->addPolynomial(QStringLiteral("Pta"), compressor->polynomialPta.c);
        polynomials_->addPolynomial(QStringLiteral("Q0"), compressor->PolynomialQ0.c);
    }
    if (page == u"dimension") fillDimension(*compressor);
    if (page == u"limits") mappedLimits_->show(*compressor, conditions);
    if (page == u"calculation" && conditions) calculation_->showCompressor(*compressor, *conditions);
    if (page == u"rating" && conditions) rating_->showCompressor(*compressor, *conditions);
    if (page == u"cycle") fillCycle(*compressor);
    if (page == u"partload" && conditions) partLoad_->showCompressor(*compressor, *conditions);
}

void CompressorPages::fillTechnical(const clsCompressor& compressor) {
    technical_->setEntries(fromCore(nameOf(compressor)),
                           technicalData(compressor, inputs_.units(), marksOf(QLocale())));
    technical_->setPhoto(readPhoto(fromCore(compressor.Serie), fromCore(compressor.Model)));
}

void CompressorPages::fillDimension(const clsCompressor& compressor) {
    const QString file = drawingFile(fromCore(compressor.Serie), fromCore(compressor.Model));
    dimension_->setDrawing(file.isEmpty() ? Metafile() : Metafile::load(file),
                           dictionaryText(QStringLiteral("frmselection.dimension.empty")));
}

void CompressorPages::fillCycle(const clsCompressor& compressor) {
    if (const auto content = cycleContent(compressor, inputs_.units()))
        cycle_->setCycle(*content);
    else
        cycle_->clear(dictionaryText(QStringLiteral("frmselection.cycle.empty")));
}

}  // namespace marvello
