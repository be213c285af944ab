// The pages of the selected compressor.

#include "controls/AdvanceText.h"
#include "controls/MessagesView.h"
#include "controls/Metafile.h"
#include "controls/NumberText.h"
#include "controls/ResultsView.h"
#include "controls/Splitter.h"
#include "controls/TabStrip.h"
#include "results/EnvelopeTexts.h"
#include "workspace/CompressorFiles.h"
#include "workspace/DimensionPage.h"
#include "workspace/InputPanel.h"
#include "workspace/LimitsPage.h"
#include "workspace/PolynomialsPage.h"
#include "workspace/ResultMarks.h"
#include "workspace/SelectionForm.h"
#include "workspace/TechnicalPage.h"
#include "workspace/WindowTexts.h"

namespace marvello {

void SelectionForm::clearPages() {
    lvMessages_->clear();
    lvMessages_->setEmptyText(QString());
    technical_->clear();
    polynomials_->clear();
    dimension_->clear();
    limits_->clear();
    TabStrip_->setToolTip(QString());
}

void SelectionForm::PopulateFrame4() {
    if (Splitter2_->isHidden()) return;
    clearPages();
    const int row = lvCps_->selectedRow();
    if (row < 0) return;
    if (lvCps_->isGroup(row)) TabStrip_->setToolTip(lvCps_->text(row, 0));
    const clsCompressor* const compressor = compressorOf(row);
    if (!compressor) return;
    const QString page = TabStrip_->currentKey();
    if (page == u"messages") populateMessages(*compressor);
    if (page == u"tecnic") populateTechnical(*compressor);
    if (page == u"polynomials") populatePolynomials(*compressor);
    if (page == u"dimension") populateDimension(*compressor);
    if (page == u"limits") populateLimits(*compressor);
}

void SelectionForm::populateMessages(const clsCompressor& compressor) {
    lvMessages_->setEmptyText(dictionaryText(QStringLiteral("frmselection.messages.empty")));
    for (const ShownMessage& message : messagesOf(compressor)) {
        const QString mark = markOf(message.severity);
        QStringList causes;
        for (const std::string& cause : message.causes) causes += fromCore(cause);
        lvMessages_->addMessage(mark, markText(mark), fromCore(message.text), fromCore(message.key), causes);
    }
}

std::vector<TechnicalEntry> SelectionForm::technicalEntries(const clsCompressor& compressor) const {
    return technicalData(compressor, measureUnit_, marksOf(QLocale()));
}

void SelectionForm::populateTechnical(const clsCompressor& compressor) {
    technical_->setEntries(fromCore(nameOf(compressor)), technicalEntries(compressor));
    technical_->setPhoto(readPhoto(fromCore(compressor.Serie), fromCore(compressor.Model)));
}

void SelectionForm::populatePolynomials(const clsCompressor& compressor) {
    polynomials_->addPolynomial(QStringLiteral("Pta"), compressor.polynomialPta.c);
    polynomials_->addPolynomial(QStringLiteral("Q0"), compressor.PolynomialQ0.c);
}

void SelectionForm::populateDimension(const clsCompressor& compressor) {
    const QString file = drawingFile(fromCore(compressor.Serie), fromCore(compressor.Model));
    dimension_->setDrawing(file.isEmpty() ? Metafile() : Metafile::load(file),
                           dictionaryText(QStringLiteral("frmselection.dimension.empty")));
}

EnvelopeDrawing SelectionForm::envelopeOf(const clsCompressor& compressor) const {
    const auto title = [](const char* key, const AdvanceText* field) {
        return dictionaryText(QLatin1String(key)) + u' ' + field->UnitCaptiontext().trimmed();
    };
    const bool isImperial = measureUnit_ == UnitSystem::imperial;
    EnvelopeDrawing drawing;
    drawing.textX = title("frmselection.limitreport.xaxis.caption", panel_->txtTED);
    drawing.textY = title("frmselection.limitreport.yaxis.caption", panel_->txtTCD);
    drawing.limits = namedLimits(isImperial ? inFahrenheit(compressor.limits) : compressor.limits);
    drawing.point = clsPoint{panel_->txtTED->number(), panel_->txtTCD->number()};
    drawing.fitScale();
    return drawing;
}

void SelectionForm::populateLimits(const clsCompressor& compressor) {
    const EnvelopeDrawing drawing = envelopeOf(compressor);
    limits_->setTexts(drawing.textX, drawing.textY,
                      dictionaryText(QStringLiteral("frmselection.tabstrip.tabs.limits")),
                      dictionaryText(QStringLiteral("frmselection.limitreport.point")));
    limits_->setLimits(drawing.limits, *drawing.point);
}

}  // namespace marvello
