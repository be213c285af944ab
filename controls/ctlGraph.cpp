#include "controls/ctlGraph.h"

#include <QBuffer>
#include <QLabel>
#include <QPainter>
#include <QSvgGenerator>

#include "controls/Look.h"

namespace marvello {

namespace {

constexpr double paperResolution = 300.0 / 96.0;  // pixels of the picture for a logical one

QLabel* hoverLabel(QWidget* graph) {
    auto* label = new QLabel(graph);
    label->setObjectName(QStringLiteral("lblXY"));
    label->setFont(lookFont(12));
    label->setFixedHeight(24);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setStyleSheet(QStringLiteral("background: %1; color: %2; border-radius: 4px; padding: 0 9px;")
                             .arg(Look::current().text.name(), Look::current().surface.name()));
    label->hide();
    return label;
}

}  // namespace

ctlGraph::ctlGraph(QWidget* parent) : QWidget(parent), lblXY_(hoverLabel(this)) {
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(this, &ctlGraph::appearanceChanged, this, &ctlGraph::renew);
}

void ctlGraph::renew() {
    ground_ = QPixmap();
    update();
}

void ctlGraph::SetLimits(const clsLimits& limits) {
    drawing_.limits = limits;
    drawing_.fitScale();
    DrawLimit();
}

void ctlGraph::ScaleGraph(double x1, double y1, double x2, double y2) {
    drawing_.setScale({x1, y1, x2, y2});
    DrawLimit();
}

void ctlGraph::DrawLimit() {
    hits_ = QImage();
    lblXY_->hide();
    QStringList names;
    for (const clsLimit* limit : drawing_.drawingOrder())
        if (!limit->Description.empty()) names += QString::fromStdString(limit->Description);
    setAccessibleDescription(names.join(QStringLiteral(", ")));
    renew();
}

void ctlGraph::setMap(const std::shared_ptr<const EnvelopeMap>& map) {
    drawing_.map = map;
    hits_ = QImage();
    renew();
}

void ctlGraph::Clear() {
    drawing_.limits = clsLimits();
    drawing_.map.reset();
    SetPoint({});
    DrawLimit();
}

QImage ctlGraph::PictureImage() const {
    QImage image((QSizeF(size()) * paperResolution).toSize(), QImage::Format_RGB32);
    if (image.isNull()) return image;
    image.setDevicePixelRatio(paperResolution);
    QPainter painter(&image);
    drawing_.paint(painter, rect(), GraphColours::onPaper());
    return image;
}

QByteArray ctlGraph::pictureSvg() const {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator file;
    file.setOutputDevice(&buffer);
    file.setSize(size());
    file.setViewBox(rect());
    constexpr int dotsPerInch = 96;
    file.setResolution(dotsPerInch);
    file.setTitle(accessibleName());
    QPainter painter(&file);
    drawing_.paint(painter, rect(), GraphColours::onPaper());
    painter.end();
    return bytes;
}

void ctlGraph::SetScaleLeft(double left) {
    const GraphScale& now = drawing_.scale();
    ScaleGraph(left, now.top, left + ScaleWidth(), now.bottom);
}

void ctlGraph::SetScaleTop(double top) {
    const GraphScale& now = drawing_.scale();
    ScaleGraph(now.left, top, now.right, top + ScaleHeight());
}

void ctlGraph::SetScaleWidth(double width) {
    const GraphScale& now = drawing_.scale();
    ScaleGraph(now.left, now.top, now.left + width, now.bottom);
}

void ctlGraph::SetScaleHeight(double height) {
    const GraphScale& now = drawing_.scale();
    ScaleGraph(now.left, now.top, now.right, now.top + height);
}

void ctlGraph::SetAxisVisible(bool visible) {
    drawing_.axisVisible = visible;
    renew();
}

void ctlGraph::SetGridVisible(bool visible) {
    drawing_.gridVisible = visible;
    renew();
}

void ctlGraph::SetGridGap(double gap) {
    drawing_.gridGap = gap;
    renew();
}

void ctlGraph::SetTextX(const QString& text) {
    drawing_.textX = text;
    renew();
}

void ctlGraph::SetTextY(const QString& text) {
    drawing_.textY = text;
    renew();
}

GraphColours ctlGraph::colours() const {
    GraphColours colours = GraphColours::onScreen();
    if (backColor_.isValid()) colours.plot = backColor_;
    if (axisColor_.isValid()) colours.axis = axisColor_;
    if (gridColor_.isValid()) colours.grid = gridColor_;
    return colours;
}

void ctlGraph::paintEvent(QPaintEvent*) {
    const double ratio = devicePixelRatioF();
    if (ground_.isNull() || ground_.devicePixelRatio() != ratio) {
        ground_ = QPixmap((QSizeF(size()) * ratio).toSize());
        ground_.setDevicePixelRatio(ratio);
        ground_.fill(colours().plot);
        QPainter painter(&ground_);
        drawing_.paintGround(painter, rect(), colours());
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, ground_);
    if (hasFocus() && drawing_.point) {
        constexpr double halo = 11;
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Look::current().focusHalo, 4));
        painter.drawEllipse(drawing_.toPlace(*drawing_.point, rect()), halo, halo);
    }
    drawing_.paintPoint(painter, rect(), colours());
}

void ctlGraph::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    hits_ = QImage();
    ground_ = QPixmap();
}

QString ctlGraph::nameAt(const QPoint& place) {
    if (hits_.isNull()) {
        hits_ = QImage(size(), QImage::Format_RGB32);
        QPainter painter(&hits_);
        drawing_.paintHits(painter, rect());
    }
    if (!hits_.rect().contains(place)) return {};
    const auto order = drawing_.drawingOrder();
    const auto number = hits_.pixel(place) & RGB_MASK;
    if (number == order.size() + 1) return drawing_.pointText + QStringLiteral(": ");
    if (number == 0) return {};
    if (number > order.size()) {
        const EnvelopeMap::Line& line = drawing_.map->lines.at(number - order.size() - 2);
        return drawing_.map->textOf(line.level) + QStringLiteral(": ");
    }
    const clsLimit& limit = *order[number - 1];
    const std::string& name = limit.Description.empty() ? limit.Caption : limit.Description;
    return name.empty() ? QString() : QString::fromStdString(name) + QStringLiteral(": ");
}

void ctlGraph::showHover(const QPointF& place) {
    const clsPoint at = drawing_.fromPlace(place, rect());
    // "," separates the pair, whatever the decimal mark of the system is.
    lblXY_->setText(
        QStringLiteral("%1(%2,%3)")
            .arg(nameAt(place.toPoint()), QString::number(at.x, 'f', 2), QString::number(at.Y, 'f', 2)));
    placeLabel(place.toPoint());
}

void ctlGraph::placeLabel(const QPoint& place) {
    lblXY_->adjustSize();
    constexpr int away = 14;
    QPoint corner = place + QPoint(away, away);
    if (corner.x() + lblXY_->width() > width()) corner.rx() -= lblXY_->width() + 2 * away;
    if (corner.y() + lblXY_->height() > height()) corner.ry() -= lblXY_->height() + 2 * away;
    lblXY_->move(corner);
    lblXY_->show();
}

void ctlGraph::leaveEvent(QEvent* event) {
    if (!isMoved()) lblXY_->hide();
    QWidget::leaveEvent(event);
}

}  // namespace marvello
