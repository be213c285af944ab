#pragma once

#include <QByteArray>

class QTextBrowser;
class QTextDocument;

namespace marvello {

/// Puts a rich text (RTF) in place of what `document` holds: paragraphs with alignment, indents and spacing,
/// bold, italic, underline, size, colour, fonts that the system has, "\'hh" in Windows-1252, "\u", bullets
/// and tabs. What it does not know is left out, and a text that is cut off ends where it ends. Colours that
/// would not stand out from the ground of the look are moved until they do. Bytes that are no rich text
/// appear as plain text (UTF-8).
void readRichText(const QByteArray& text, QTextDocument& document);

/// Shows a rich text from its beginning, on the ground of its window and without a frame.
void showRichText(const QByteArray& text, QTextBrowser& browser);

}  // namespace marvello
