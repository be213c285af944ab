// The pages of the selected compressor.

#include <algorithm>
#include <memory>
#include <utility>

#include "controls/AdvanceText.h"
#include "controls/MessagesView.h"
#include "controls/Metafile.h"
#include "controls/ResultsView.h"
#include "controls/Splitter.h"
#include "controls/TabStrip.h"
#include "workspace/ApplyFormParameters.h"
#include "workspace/CompressorFiles.h"
#include "workspace/DimensionPage.h"
#include "workspace/InputPanel.h"
#include "workspace/LimitTexts.h"
#include "workspace/LimitsPage.h"
#include "workspace/MotorDescription.h"
#include "workspace/PolynomialsPage.h"
#include "workspace/ResultsList.h"
#include "workspace/SelectionForm.h"
#include "workspace/TechnicalPage.h"
#include "workspace/UnitTexts.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

/// The limits with every point in degrees Fahrenheit.
clsLimits inFahrenheit(const clsLimits& limits) {
    const auto converted = [](double value) {
        return convertedTemperature(value, MeasureSystem::metric, MeasureSystem::imperial);
    };
    clsLimits result;
    for (const auto& limit : limits) {
        auto copy = std::make_shared<clsLimit>(*limit);
        copy->Points = clsPoints();
        for (const clsPoint& point : limit->Points) copy->Points.add(converted(point.x), converted(point.Y));
        result.add(std::move(copy));
    }
    return result;
}

}  // namespace

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
    const auto list = [this](const clsMessages& messages, const QString& mark) {
        struct Row {
            QString text, name;
            QStringList causes;
        };
        QList<Row> rows;
        for (const clsMessage& message : messages) {
            QString text;
            try {
                text = fromCore(message.Description());
            } catch (const std::exception&) {
                text =
                    fromCore(message.Name);  // The catalogue lacks the text; its key says more than nothing.
            }
            if (text.isEmpty()) text = dictionaryText(QStringLiteral("messages.failedstep"));
            // A search may end in the same message twice; to a person it is one.
            auto row = std::ranges::find(rows, text, &Row::text);
            if (row == rows.end()) row = rows.insert(row, {text, fromCore(message.Name), {}});
            if (!message.Cause.empty()) row->causes += fromCore(message.Cause);
        }
        const QString markText = dictionaryTextIfAny(QStringLiteral("general.") + mark);
        for (const Row& row : rows) lvMessages_->addMessage(mark, markText, row.text, row.name, row.causes);
    };
    lvMessages_->setEmptyText(dictionaryText(QStringLiteral("frmselection.messages.empty")));
    list(compressor.Messages.Error, QStringLiteral("msgerror"));
    if (compressor.Messages.Error.Count() > 0) return;
    list(compressor.Messages.Attention, QStringLiteral("msgattention"));
    list(compressor.Messages.Information, QStringLiteral("msginformation"));
}

QList<TechnicalPage::Entry> SelectionForm::technicalEntries(const clsCompressor& compressor) {
    ApplyFormParameters(QStringLiteral("catalog"), nameOf(compressor), QStringLiteral("eng"), *this);
    QList<TechnicalPage::Entry> entries;
    for (auto [caption, value] : technical_->catalogueEntries()) {
        if (value.contains(u'@')) value = MotorDescription(value, compressor, kind_.hasInverter).trimmed();
        if (measureUnit_ == MeasureSystem::imperial) value = technicalInImperial(value);
        entries.append({caption, value});
    }
    return entries;
}

void SelectionForm::populateTechnical(const clsCompressor& compressor) {
    technical_->setEntries(nameOf(compressor), technicalEntries(compressor));
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
    const bool isImperial = measureUnit_ == MeasureSystem::imperial;
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
