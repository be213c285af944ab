#include "workspace/Frmsplash.h"

#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QTimer>
#include <initializer_list>

#include "controls/Icons.h"
#include "controls/Look.h"
#include "workspace/AlphaVersion.h"

namespace marvello {

namespace {

// The picture is dark whatever the look of the screen, so its colours are its own.
constexpr QSize pictureSize(640, 360);
constexpr int margin = 40;
constexpr qreal cornerRadius = 8;
const QColor ground(0x0D, 0x2C, 0x36);
const QColor grid(0x1B, 0x41, 0x4D);
const QColor pointColour(0x8F, 0xD6, 0xE4);

struct Envelope {
    QColor colour;
    qreal width;
    std::initializer_list<QPointF> points;
};

QLabel* label(QWidget* parent, const char* name, int pixelSize, const char* colour, int top, int height) {
    auto* const made = new QLabel(parent);
    made->setObjectName(QLatin1String(name));
    made->setFont(lookFont(pixelSize));
    QPalette palette = made->palette();
    palette.setColor(QPalette::WindowText, QColor(QLatin1String(colour)));
    made->setPalette(palette);
    made->setGeometry(margin, top, pictureSize.width() - 2 * margin, height);
    return made;
}

/// An operating envelope as the program draws it, with the operating point.
void paintDrawing(QPainter& painter) {
    constexpr int left = 280;
    constexpr int step = 60;
    painter.setPen(QPen(grid, 0));
    for (int x = left; x < pictureSize.width(); x += step) painter.drawLine(x, 0, x, pictureSize.height());
    for (int y = 0; y < pictureSize.height(); y += step) painter.drawLine(left, y, pictureSize.width(), y);

    painter.setRenderHint(QPainter::Antialiasing);
    const std::initializer_list<Envelope> envelopes{
        {QColor(0x2E, 0x7C, 0x8F),
         2.0,
         {{300, 400}, {300, 196}, {420, 96}, {610, 50}, {610, 270}, {558, 400}}},
        {QColor(0x27, 0x6A, 0x7B),
         1.5,
         {{340, 400}, {340, 216}, {444, 132}, {570, 102}, {570, 252}, {530, 400}}},
        {QColor(0x20, 0x58, 0x68),
         1.5,
         {{380, 400}, {380, 236}, {466, 170}, {532, 154}, {532, 246}, {502, 400}}}};
    for (const auto& envelope : envelopes) {
        painter.setPen(QPen(envelope.colour, envelope.width));
        painter.drawPolyline(envelope.points.begin(), static_cast<int>(envelope.points.size()));
    }
    constexpr QPointF point(466, 212);
    painter.setPen(QPen(pointColour, 2));
    painter.drawEllipse(point, 12, 12);
    painter.setPen(Qt::NoPen);
    painter.setBrush(pointColour);
    painter.drawEllipse(point, 5, 5);
}

}  // namespace

Frmsplash::Frmsplash() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setObjectName(QStringLiteral("Frmsplash"));
    setAttribute(Qt::WA_TranslucentBackground);  // for the round corners
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(QStringLiteral("Marvello"));
    resize(pictureSize);
    move(QGuiApplication::primaryScreen()->availableGeometry().center() - rect().center());

    label(this, "lblName", 40, "#FFFFFF", 224, 48)->setText(QStringLiteral("Marvello"));
    label(this, "lblPurpose", 15, "#BFDDE4", 270, 24)->setText(QStringLiteral("Compressor selection"));
    label(this, "lblVersion", 13, "#9CC5CF", 300, 20)->setText(QCoreApplication::applicationVersion());
    auto* const alpha = label(this, "lblAlphaVersion", 13, "#F0A03C", 20, 20);
    alpha->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    alpha->setText(QStringLiteral("Alpha version"));
    alpha->setVisible(isAlphaVersion());
}

void Frmsplash::hold(std::chrono::milliseconds time) {
    qApp->installEventFilter(this);
    QTimer::singleShot(time, &holding_, &QEventLoop::quit);
    holding_.exec();
    qApp->removeEventFilter(this);
}

bool Frmsplash::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress) {
        holding_.quit();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void Frmsplash::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath outline;
    outline.addRoundedRect(rect(), cornerRadius, cornerRadius);
    painter.fillPath(outline, ground);
    painter.setRenderHint(QPainter::Antialiasing, false);
    paintDrawing(painter);
    paintIcon(painter, QRectF(margin, margin, 131 * 1.5, 14 * 1.5), QStringLiteral("wordmark"), Qt::white);
}

}  // namespace marvello
