#include "workspace/EmptyPage.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "controls/Link.h"
#include "controls/Look.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr double drawingWidth = 168;
constexpr double drawingHeight = 112;
constexpr double sentenceWidth = 380;
constexpr double lineHeight = 18;
constexpr double chipPadding = 5;
constexpr double textTop = drawingHeight + 16 + 20 + 4;  // of the sentence, below the drawing and the title
constexpr double linkHeight = 34;
constexpr int linkGap = 24;

QFont fontOf(bool strong, bool key) {
    if (key) return lookFont(11, QFont::Medium);
    return lookFont(13, strong ? QFont::Medium : QFont::Normal);
}

}  // namespace

EmptyPage::EmptyPage(QWidget* parent) : QWidget(parent) {}

void EmptyPage::setTexts(const QString& title, const QString& sentence, const QString& button,
                         const QString& key, const QString& edited) {
    const QStringList texts{title, sentence, button, key, edited};
    if (texts == texts_) return;
    texts_ = texts;
    words_.clear();
    for (const QString& word : sentence.split(u' ', Qt::SkipEmptyParts)) {
        // A mark of punctuation behind a placeholder stays with it.
        if (word.startsWith(u"{0}"))
            words_ += Word{button + word.mid(3), Word::Kind::strong};
        else if (word.startsWith(u"{1}"))
            words_ += {Word{key, Word::Kind::key}, Word{word.mid(3), Word::Kind::plain}};
        else if (word.startsWith(u"{2}"))
            words_ += Word{edited + word.mid(3), Word::Kind::strong};
        else
            words_ += Word{word, Word::Kind::plain};
    }
    for (Word& word : words_) word.width = widthOf(word);
    setAccessibleName(title + QStringLiteral(". ") + filled(sentence, {button, key, edited}));
    update();
}

double EmptyPage::widthOf(const Word& word) {
    const bool isKey = word.kind == Word::Kind::key;
    const double text =
        QFontMetricsF(fontOf(word.kind == Word::Kind::strong, isKey)).horizontalAdvance(word.text);
    return isKey ? text + 2 * chipPadding + 2 : text;
}

QList<QList<EmptyPage::Word>> EmptyPage::wrapped(double width) const {
    const double blank = QFontMetricsF(lookFont()).horizontalAdvance(u' ');
    QList<QList<Word>> lines{{}};
    double used = 0;
    for (const Word& word : words_) {
        const double advance = word.width + blank;
        if (used + advance > width && !lines.back().isEmpty()) {
            lines.append(QList<Word>{});
            used = 0;
        }
        lines.back() += word;
        used += advance;
    }
    return lines;
}

void EmptyPage::paintEvent(QPaintEvent*) {
    const Look& look = Look::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), look.surface);
    const auto lines = wrappedHere();
    double top = topOf(lines.size());
    paintDrawing(painter, {std::round((width() - drawingWidth) / 2), std::round(top)});
    top += drawingHeight + 16;
    painter.setFont(lookFont(15, QFont::Medium));
    painter.setPen(look.text);
    painter.drawText(QRectF(0, top, width(), 20), Qt::AlignCenter, texts_.front());
    top += 24;
    for (const auto& line : lines) {
        paintLine(painter, line, top);
        top += lineHeight;
    }
}

QList<QList<EmptyPage::Word>> EmptyPage::wrappedHere() const {
    return wrapped(std::min(sentenceWidth, width() - 32.0));
}

// The whole is in the middle of the page.
double EmptyPage::topOf(qsizetype lines) const {
    const double whole =
        textTop + lineHeight * static_cast<double>(lines) + (links_.isEmpty() ? 0 : linkHeight);
    return std::max(8.0, (height() - whole) / 2);
}

void EmptyPage::setLinks(const QStringList& texts) {
    while (links_.size() > texts.size()) links_.takeLast()->deleteLater();
    while (links_.size() < texts.size()) {
        const auto number = static_cast<int>(links_.size());
        links_ += new Link(QString(), this);
        links_.back()->setObjectName(QStringLiteral("link%1").arg(number));
        connect(links_.back(), &Link::clicked, this, [this, number] { emit linkClicked(number); });
    }
    for (qsizetype i = 0; i < texts.size(); ++i) {
        links_[i]->setText(texts[i]);
        links_[i]->setVisible(!texts[i].isEmpty());
    }
    placeLinks();
    update();
}

// In a row below the sentence.
void EmptyPage::placeLinks() {
    int whole = 0;
    for (const Link* link : links_)
        if (!link->text().isEmpty()) whole += link->sizeHint().width() + (whole > 0 ? linkGap : 0);
    const qsizetype lines = wrappedHere().size();
    int left = (width() - whole) / 2;
    const int top =
        static_cast<int>(topOf(lines) + textTop + lineHeight * static_cast<double>(lines)) + linkGap / 2;
    for (Link* link : links_) {
        if (link->text().isEmpty()) continue;
        link->setGeometry(QRect({left, top}, link->sizeHint()));
        left += link->width() + linkGap;
    }
}

void EmptyPage::resizeEvent(QResizeEvent*) { placeLinks(); }

void EmptyPage::paintLine(QPainter& painter, const QList<Word>& line, double top) const {
    const Look& look = Look::current();
    const double blank = QFontMetricsF(lookFont()).horizontalAdvance(u' ');
    const auto gapAfter = [&](qsizetype i) {
        // Nothing between a key chip and its punctuation.
        return line[i].kind == Word::Kind::key ? 2.0 : line[i].text.isEmpty() ? blank - 2.0 : blank;
    };
    double whole = 0;
    for (qsizetype i = 0; i < line.size(); ++i)
        whole += line[i].width + (i + 1 < line.size() ? gapAfter(i) : 0);
    double left = (width() - whole) / 2;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const Word& word = line[i];
        const bool isKey = word.kind == Word::Kind::key;
        const QRectF place(left, top, word.width, lineHeight);
        painter.setFont(fontOf(word.kind == Word::Kind::strong, isKey));
        painter.setPen(word.kind == Word::Kind::strong ? look.text : look.muted);
        if (isKey) {
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(place.adjusted(0.5, 1.5, -0.5, -1.5), 3, 3);
        }
        painter.drawText(place.adjusted(0, 0, 1, 0),
                         static_cast<int>(Qt::AlignVCenter | (isKey ? Qt::AlignHCenter : Qt::AlignLeft)),
                         word.text);
        left += place.width() + gapAfter(i);
    }
}

void EmptyPage::paintDrawing(QPainter& painter, const QPointF& topLeft) const {
    const Look& look = Look::current();
    painter.save();
    painter.translate(topLeft);
    painter.setPen(QPen(look.line, 1));
    for (const double y : {30.5, 52.5, 74.5}) painter.drawLine(QPointF(20, y), QPointF(160, y));
    for (const double x : {55.5, 90.5, 125.5}) painter.drawLine(QPointF(x, 8), QPointF(x, 96));
    painter.setPen(QPen(look.controlLine, 1.5));
    painter.drawPolyline(QPolygonF({{20, 8}, {20, 96}, {160, 96}}));
    QColor inside = look.accentTint;
    inside.setAlphaF(0.6F);
    painter.setPen(QPen(look.accent, 2, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    painter.setBrush(inside);
    painter.drawPolygon(QPolygonF({{40, 84}, {40, 52}, {76, 22}, {132, 14}, {132, 58}, {116, 84}}));
    painter.setPen(QPen(look.accent, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(92, 52), 8, 8);
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.accent);
    painter.drawEllipse(QPointF(92, 52), 3.5, 3.5);
    painter.restore();
}

}  // namespace marvello
