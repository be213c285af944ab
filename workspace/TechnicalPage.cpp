#include "workspace/TechnicalPage.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>

#include "controls/CoreText.h"
#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int photoWidth = 270;
constexpr int margin = 16;
/// Above a block of lines.
constexpr int blockGap = 14;
/// Below this width the text needs all the room.
constexpr int minWidthWithPhoto = 580;

}  // namespace

/// Shows a picture as large as it fits, sharp at any device pixel ratio.
class PhotoLabel : public QLabel {
  public:
    using QLabel::QLabel;

    void setImage(const QImage& image) {
        image_ = image;
        update();
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QLabel::paintEvent(event);
        if (image_.isNull()) return;
        QRectF place(QPointF(), QSizeF(image_.size()).scaled(size(), Qt::KeepAspectRatio));
        place.moveCenter(QRectF(rect()).center());
        QPainter painter(this);
        // Scaled before it is drawn: drawing alone takes too few of the points into account.
        const QSize points = (place.size() * devicePixelRatioF()).toSize();
        painter.drawImage(place, image_.scaled(points, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }

  private:
    QImage image_;
};

TechnicalPage::TechnicalPage(QWidget* parent) : QWidget(parent) {
    PicScroll_ = new QScrollArea(this);
    PicScroll_->setObjectName(QStringLiteral("PicScroll"));
    PicScroll_->setFrameShape(QFrame::NoFrame);
    PicScroll_->setWidgetResizable(true);
    PicScroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    PicScroll_->viewport()->setAutoFillBackground(false);
    picTecnic_ = new QLabel;
    picTecnic_->setObjectName(QStringLiteral("picTecnic"));
    picTecnic_->setTextFormat(Qt::RichText);
    picTecnic_->setWordWrap(true);
    picTecnic_->setAlignment(Qt::AlignTop);
    picTecnic_->setContentsMargins(margin, 12, margin, 12);
    PicScroll_->setWidget(picTecnic_);
    picTecnic_->setAutoFillBackground(false);
    ImageCPS_ = new PhotoLabel(this);
    ImageCPS_->setObjectName(QStringLiteral("ImageCPS"));
    ImageCPS_->setFixedWidth(photoWidth);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(PicScroll_, 1);
    row->addSpacing(margin);
    row->addWidget(ImageCPS_);
    row->addSpacing(margin);
}

void TechnicalPage::setCaption(const QString& caption) { PicScroll_->setAccessibleName(caption); }

void TechnicalPage::clear() {
    picTecnic_->clear();
    // An empty text is no stop of the tab key.
    picTecnic_->setTextInteractionFlags(Qt::NoTextInteraction);
    ImageCPS_->setImage(QImage());
    ImageCPS_->setAccessibleName(QString());
}

void TechnicalPage::setEntries(const QString& title, const std::vector<TechnicalEntry>& entries) {
    // Two halves: the captions end, and the values begin, at one line down the middle under the title.
    QString text =
        QStringLiteral(
            "<table width='100%' cellspacing='0' cellpadding='0'><tr>"
            "<td colspan='2' align='center' style='font-size: 20px; padding-bottom: 10px'>%1</td></tr>")
            .arg(title.toHtmlEscaped());
    const QString row = QStringLiteral(
        "<tr><td width='50%' align='right' style='color: %1; padding: %2px 6px 2px 0'>%3</td>"
        "<td width='50%' style='font-weight: 500; padding: %2px 0 2px 6px'>%4</td></tr>");
    for (const TechnicalEntry& entry : entries)
        text += row.arg(Look::current().muted.name(), QString::number(entry.beginsBlock ? blockGap : 2),
                        fromCore(entry.caption).toHtmlEscaped(), fromCore(entry.value).toHtmlEscaped());
    picTecnic_->setText(text + QStringLiteral("</table>"));
    picTecnic_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    QStringList plain{title};
    for (const TechnicalEntry& entry : entries)
        plain += fromCore(entry.caption) + u' ' + fromCore(entry.value);
    picTecnic_->setAccessibleName(plain.join(QStringLiteral(", ")));
    ImageCPS_->setAccessibleName(title);
}

void TechnicalPage::setPhoto(const QImage& photo) { ImageCPS_->setImage(photo); }

void TechnicalPage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ImageCPS_->setVisible(width() >= minWidthWithPhoto);
}

}  // namespace marvello
