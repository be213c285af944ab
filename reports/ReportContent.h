#pragma once

#include <QImage>
#include <QString>
#include <vector>

#include "controls/EnvelopeDrawing.h"
#include "results/ReportLines.h"

namespace marvello {

/// What the report says of one compressor, with all its texts in the language of the user.
struct ReportContent {
    QString title;    ///< what the page is, in a few words
    QString model;    ///< Serie-Model
    QString version;  ///< of the program
    QString address;  ///< of the maker
    QString warning;  ///< both are shown with warnings alone
    QString warning2;
    QString page;  ///< "Page 1 of 1"
    QString date;
    QImage photo;  ///< null leaves its place empty
    EnvelopeDrawing envelope;
    QString margin;  ///< how far the point is from its limit, below the envelope
    std::vector<ReportLine> lines;
    bool hasWarnings = false;
    bool showsEnvelope = true;
};

}  // namespace marvello
