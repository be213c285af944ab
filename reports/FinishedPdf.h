#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <vector>

namespace marvello {

/// What a PDF file says of itself.
struct PdfFacts {
    /// An entry of the contents next to the pages.
    struct Bookmark {
        QString title;
        int page = 1;  ///< From 1.
    };
    QString title;
    QString creator;   ///< The program.
    QString language;  ///< Of the texts, such as "de-DE".
    QDateTime created;
    std::vector<Bookmark> bookmarks{};  ///< Shown from two on.
};

/// Returns a PDF file as Qt writes it, with facts in place of what Qt says: equal pages and facts give equal
/// bytes, whenever they were written. Throws std::runtime_error with the reason for what is no PDF file.
QByteArray finishedPdf(const QByteArray& file, const PdfFacts& facts);

}  // namespace marvello
