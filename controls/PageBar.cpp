#include "controls/PageBar.h"

#include <QFontMetrics>
#include <QLabel>

#include "controls/Look.h"

namespace marvello {

namespace {

QLabel* mutedLabel(int size, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setFont(lookFont(size));
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, Look::current().muted);
    label->setPalette(palette);
    label->setTextFormat(Qt::PlainText);
    label->hide();
    return label;
}

}  // namespace

PageBar::PageBar(QWidget* parent)
    : WrapBar(parent), caption_(mutedLabel(13, this)), shown_(mutedLabel(12, this)) {
    shown_->setObjectName(QStringLiteral("sentence"));
    add(caption_, 0);
}

void PageBar::setCaption(const QString& text) {
    caption_->setText(text);
    layOut();
}

void PageBar::setSentence(const QString& text) {
    if (text == sentence_) return;
    sentence_ = text;
    shown_->setAccessibleName(text);
    layOut();
}

/// On one line with the control that it belongs to.
bool PageBar::captionFits() const {
    const QList<QWidget*> all = controls();
    constexpr int around = 36;
    return !caption_->text().isEmpty() &&
           (all.size() < 2 || caption_->sizeHint().width() + all[1]->sizeHint().width() + around <= width());
}

void PageBar::layOut() {
    caption_->setVisible(captionFits());
    WrapBar::layOut();
    constexpr int away = 12;  // from the controls
    constexpr int minRoom = 64;
    const QRect room = freeRoom().adjusted(away, 0, 0, 0);
    shown_->setVisible(!sentence_.isEmpty() && room.width() >= minRoom);
    const QFontMetrics metrics(shown_->font());
    const QString text = metrics.elidedText(sentence_, Qt::ElideRight, room.width());
    shown_->setText(text);
    shown_->setToolTip(text == sentence_ ? QString() : sentence_);
    shown_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    shown_->setGeometry(room);
}

}  // namespace marvello
