#include "workspace/frmMenu.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QVariantAnimation>
#include <algorithm>
#include <cmath>

#include "controls/Icons.h"
#include "controls/Look.h"
#include "workspace/CompressorArt.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr double panelHeight = 404;
constexpr double margin = 28;
constexpr double cardTop = 70;
constexpr double cardWidth = 240;
constexpr double cardHeight = 280;
constexpr double cardGap = 20;
constexpr double panelWidth = 2 * margin + 4 * cardWidth + 3 * cardGap;
constexpr double hintsTop = cardTop + cardHeight + 16;
constexpr double hintHeight = 22;
constexpr double dimming = 0.28;
constexpr int fadeTime = 150;  // milliseconds

constexpr QRectF panel(0, 0, panelWidth, panelHeight);

/// What a card shows.
struct CardFace {
    frmMenu::Choice choice;
    const char* titleKey;
    const char* textKey;
    ArtAddition addition;
};
constexpr std::array faces{
    CardFace{frmMenu::selection, "frmmenu.selection", "frmmenu.selection.text", ArtAddition::none},
    CardFace{frmMenu::inverter, "frmmenu.inverter", "frmmenu.inverter.text", ArtAddition::inverter},
    CardFace{frmMenu::find, "frmmenu.find", "frmmenu.find.text", ArtAddition::search},
    CardFace{frmMenu::year, "frmmenu.year", "frmmenu.year.text", ArtAddition::bars}};

constexpr std::size_t placeIn(frmMenu::Choice choice) {
    return static_cast<std::size_t>(choice - frmMenu::selection);
}
const CardFace& faceOf(frmMenu::Choice choice) { return faces.at(placeIn(choice)); }

/// Where the card of a choice is in the panel.
QRectF cardOf(frmMenu::Choice choice) {
    return {margin + (cardWidth + cardGap) * static_cast<double>(placeIn(choice)), cardTop, cardWidth,
            cardHeight};
}

QString text(const char* key) { return dictionaryText(QLatin1String(key)); }

/// A choice as a screen reader knows it; the menu paints it and takes mouse and keys.
class Card : public QAbstractButton {
  public:
    explicit Card(QWidget* parent) : QAbstractButton(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }

  protected:
    void paintEvent(QPaintEvent*) override {}
};

}  // namespace

frmMenu::frmMenu(QWidget* frame)
    : QDialog(frame, Qt::Dialog | Qt::FramelessWindowHint), fade_(new QVariantAnimation(this)) {
    setObjectName(QStringLiteral("frmMenu"));
    setWindowTitle(text("frmmenu.caption"));
    setWindowModality(Qt::ApplicationModal);
    setMouseTracking(true);
    under_ = frame->grab();
    setGeometry(QRect(frame->mapToGlobal(QPoint(0, 0)), frame->size()));
    fade_->setStartValue(0.0);
    fade_->setEndValue(1.0);
    fade_->setDuration(fadeTime);
    connect(fade_, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    makeCards();
    turnOn(selection);
}

void frmMenu::makeCards() {
    for (const CardFace& face : faces) {
        auto* card = new Card(this);
        card->setAccessibleName(text(face.titleKey));
        card->setAccessibleDescription(text(face.textKey));
        card->setGeometry(placeOf(face.choice).toRect());
        connect(card, &QAbstractButton::clicked, this, [this, choice = face.choice] { done(choice); });
        cards_[placeIn(face.choice)] = card;
    }
}

frmMenu::Choice frmMenu::choose() {
    fade_->start();
    return static_cast<Choice>(exec());
}

// In a window that is smaller than the menu, the menu is smaller too.
QTransform frmMenu::toWindow() const {
    constexpr double around = 8;
    const double scale = std::min({1.0, (width() - around) / panelWidth, (height() - around) / panelHeight});
    const double left = std::floor((width() - scale * panelWidth) / 2);
    const double top = std::floor((height() - scale * panelHeight) / 2);
    return {scale, 0, 0, scale, left, top};
}

QRectF frmMenu::placeOf(Choice choice) const { return toWindow().mapRect(cardOf(choice)); }

frmMenu::Choice frmMenu::choiceAt(const QPointF& at) const {
    for (const CardFace& face : faces)
        if (placeOf(face.choice).contains(at)) return face.choice;
    return none;
}

void frmMenu::turnOn(Choice choice) {
    on_ = choice;
    setAccessibleDescription(text(faceOf(choice).titleKey));
    QAccessibleEvent turned(cards_.at(placeIn(choice)), QAccessible::Focus);
    QAccessible::updateAccessibility(&turned);
    update();
}

void frmMenu::mouseMoveEvent(QMouseEvent* event) {
    const Choice under = choiceAt(event->position());
    if (under != none && under != on_) turnOn(under);
    setCursor(under == none ? Qt::ArrowCursor : Qt::PointingHandCursor);
}

void frmMenu::mousePressEvent(QMouseEvent* event) {
    pressed_ = choiceAt(event->position());
    if (!toWindow().mapRect(panel).contains(event->position())) done(none);
}

void frmMenu::mouseReleaseEvent(QMouseEvent* event) {
    if (pressed_ != none && choiceAt(event->position()) == pressed_) done(pressed_);
}

void frmMenu::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
            turnOn(static_cast<Choice>(std::max<int>(on_ - 1, selection)));
            break;
        case Qt::Key_Right:
            turnOn(static_cast<Choice>(std::min<int>(on_ + 1, year)));
            break;
        case Qt::Key_Tab:
            turnOn(on_ == year ? selection : static_cast<Choice>(on_ + 1));
            break;
        case Qt::Key_Backtab:
            turnOn(on_ == selection ? year : static_cast<Choice>(on_ - 1));
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            done(on_);
            break;
        case Qt::Key_Escape:
            done(none);
            break;
        default:
            break;
    }
}

void frmMenu::paintEvent(QPaintEvent*) {
    const double shown =
        fade_->state() == QAbstractAnimation::Running ? fade_->currentValue().toDouble() : 1.0;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawPixmap(0, 0, under_);
    QColor shade(Qt::black);
    shade.setAlphaF(static_cast<float>(dimming * shown));
    painter.fillRect(rect(), shade);
    painter.setOpacity(shown);
    painter.setTransform(toWindow(), true);
    paintPanel(painter);
    for (const CardFace& face : faces) paintChoice(painter, face.choice);
    paintHints(painter);
}

void frmMenu::paintPanel(QPainter& painter) const {
    const Look& look = Look::current();
    const QRectF place = panel;
    QColor shadow(Qt::black);
    for (int ring = 6; ring > 0; --ring) {
        shadow.setAlphaF(0.025F);
        painter.setPen(Qt::NoPen);
        painter.setBrush(shadow);
        const double by = 3.0 * ring;
        painter.drawRoundedRect(place.adjusted(-by, -by + 6, by, by + 6), 8 + by, 8 + by);
    }
    painter.setBrush(look.raised);
    painter.setPen(look.isDark ? QPen(look.line) : QPen(Qt::NoPen));
    painter.drawRoundedRect(place, 8, 8);
    painter.setFont(lookFont(20));
    painter.setPen(look.text);
    painter.drawText(QRectF(place.left() + margin, place.top() + 20, cardWidth * 2 - 40, 36),
                     Qt::AlignVCenter | Qt::AlignLeft, windowTitle());
    constexpr double emblem = 22;
    paintIcon(painter, {place.right() - margin - emblem, place.top() + 28, emblem, emblem},
              QStringLiteral("emblem"), look.accent);
}

void frmMenu::paintChoice(QPainter& painter, Choice choice) const {
    const Look& look = Look::current();
    const bool isOn = choice == on_;
    const QRectF place = cardOf(choice);
    const double inset = isOn ? 1 : 0.5;
    painter.setPen(QPen(isOn ? look.accent : look.line, isOn ? 2 : 1));
    painter.setBrush(isOn ? look.accentTint : look.raised);
    painter.drawRoundedRect(place.adjusted(inset, inset, -inset, -inset), 8, 8);
    QColor soft = look.accent;
    soft.setAlphaF(0.25F);
    const ArtColours colours{isOn ? look.accent : look.controlLine, isOn ? soft : look.line,
                             look.isDark ? look.surfaceAlt : look.surface};
    paintCompressor(painter, place.adjusted(28, 24, -28, -92), colours, faceOf(choice).addition);
    const auto line = [&](const char* key, double bottom, const QFont& font, const QColor& colour) {
        painter.setFont(font);
        painter.setPen(colour);
        const QRectF room(place.left() + 8, place.bottom() - bottom, place.width() - 16, 22);
        painter.drawText(
            room, Qt::AlignCenter,
            painter.fontMetrics().elidedText(text(key), Qt::ElideRight, static_cast<int>(room.width())));
    };
    line(faceOf(choice).titleKey, 66, lookFont(15, QFont::Medium), look.text);
    line(faceOf(choice).textKey, 44, lookFont(), look.muted);
}

void frmMenu::paintHints(QPainter& painter) const {
    const Look& look = Look::current();
    double left = margin;
    const double top = hintsTop;
    const auto word = [&](const QString& what, bool isKey) {
        const QFont font = isKey ? lookFont(11, QFont::Medium) : lookFont(12);
        const double advance = QFontMetricsF(font).horizontalAdvance(what);
        const QRectF place(left, top, isKey ? advance + 12 : advance, hintHeight);
        painter.setFont(font);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(look.controlLine);
        if (isKey) painter.drawRoundedRect(place.adjusted(0.5, 2.5, -0.5, -2.5), 3, 3);
        painter.setPen(look.muted);
        painter.drawText(place.adjusted(-2, 0, 2, 0), Qt::AlignCenter, what);
        left = place.right() + (isKey ? 6 : 22);
    };
    word(QString(QChar(0x2190)), true);
    word(QString(QChar(0x2192)), true);
    word(text("frmmenu.choose"), false);
    word(QStringLiteral("Enter"), true);
    word(text("frmmenu.open"), false);
    word(QStringLiteral("Esc"), true);
    word(text("frmmenu.close"), false);
}

}  // namespace marvello
