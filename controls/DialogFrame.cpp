#include "controls/DialogFrame.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QRegion>
#include <QToolButton>
#include <QVBoxLayout>

#include "controls/Grip.h"
#include "controls/Icons.h"
#include "controls/Look.h"
#include "controls/ctlBtn.h"

namespace marvello {

namespace {

constexpr int titleHeight = 40;
constexpr int radius = 8;
constexpr int dialogWidth = 420;

}  // namespace

DialogFrame::DialogFrame(const QString& title, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint),
      body_(new QVBoxLayout),
      buttons_(new QHBoxLayout),
      close_(new QToolButton(this)) {
    setWindowTitle(title);
    auto* button = static_cast<QToolButton*>(close_);
    button->setIcon(icon(QStringLiteral("close")));
    button->setIconSize(QSize(14, 14));
    button->setAutoRaise(true);
    button->setAccessibleName(QCoreApplication::translate("QMdiSubWindow", "Close"));
    button->setFocusPolicy(Qt::NoFocus);
    button->setFixedSize(28, 28);
    button->setStyleSheet(QStringLiteral("QToolButton { border: 0; border-radius: 6px; }"
                                         "QToolButton:hover { background: %1; }")
                              .arg(Look::current().hover.name()));
    connect(button, &QToolButton::clicked, this, &QDialog::reject);

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(24, titleHeight + 20, 24 - ctlBtn::ring, 20 - ctlBtn::ring);
    all->setSpacing(16 - ctlBtn::ring);
    body_->setContentsMargins(0, 0, ctlBtn::ring, 0);
    all->addLayout(body_);
    buttons_->addStretch(1);
    buttons_->setSpacing(0);
    all->addLayout(buttons_);
}

void DialogFrame::addButton(ctlBtn* button) {
    // Where the content reaches the edges, the buttons do not.
    if (layout()->contentsMargins().left() == 1)
        buttons_->setContentsMargins(24, 0, 24 - ctlBtn::ring, 20 - ctlBtn::ring);
    buttons_->addWidget(button);
    if (button->property("Main").toBool()) main_ = button;
}

void DialogFrame::Transparency(int alpha) { setWindowOpacity(alpha / 255.0); }

void DialogFrame::setEdgeToEdge() {
    layout()->setContentsMargins(1, titleHeight, 1, 1);
    body_->setContentsMargins(0, 0, 0, 0);
    body_->setSpacing(0);
}

void DialogFrame::setResizable(const QSize& initial) {
    grip_ = new Grip(QSize(dialogWidth / 2, titleHeight * 3), this);
    resize(initial);
}

void DialogFrame::fitContent() {
    // A wrapped text needs its height at the width of the window.
    const bool wraps = layout()->hasHeightForWidth();
    setFixedSize(dialogWidth,
                 wraps ? layout()->totalHeightForWidth(dialogWidth) : layout()->totalSizeHint().height());
}

void DialogFrame::showEvent(QShowEvent* event) {
    if (!grip_) fitContent();
    if (const QWidget* over = parentWidget()) {
        const QRect frame = over->window()->frameGeometry();
        move(frame.center() - QPoint(width() / 2, height() / 2));
    }
    QDialog::showEvent(event);
}

void DialogFrame::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    close_->move(width() - close_->width() - 6, (titleHeight - close_->height()) / 2);
    if (grip_) grip_->moveToCorner();
    QPainterPath outline;
    outline.addRoundedRect(rect(), radius, radius);
    setMask(QRegion(outline.toFillPolygon().toPolygon()));
}

void DialogFrame::paintEvent(QPaintEvent*) {
    const Look& look = Look::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), look.raised);
    painter.fillRect(QRect(0, 0, width(), titleHeight), look.surfaceAlt);
    painter.fillRect(QRect(0, titleHeight - 1, width(), 1), look.line);
    painter.setPen(look.text);
    painter.setFont(lookFont(13, QFont::Medium));
    painter.drawText(QRect(16, 0, width() - 60, titleHeight), Qt::AlignVCenter, windowTitle());
    painter.setPen(look.controlLine);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

void DialogFrame::keyPressEvent(QKeyEvent* event) {
    if (main_ && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
        main_->click();
    else
        QDialog::keyPressEvent(event);
}

void DialogFrame::mousePressEvent(QMouseEvent* event) {
    moving_ = event->button() == Qt::LeftButton && event->position().y() < titleHeight;
    grabbed_ = event->globalPosition().toPoint() - pos();
}

void DialogFrame::mouseMoveEvent(QMouseEvent* event) {
    if (moving_ && (event->buttons() & Qt::LeftButton)) move(event->globalPosition().toPoint() - grabbed_);
}

}  // namespace marvello
