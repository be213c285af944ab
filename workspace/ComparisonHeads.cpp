#include "workspace/ComparisonHeads.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolButton>
#include <algorithm>
#include <optional>

#include "controls/CoreText.h"
#include "controls/Icons.h"
#include "controls/Link.h"
#include "controls/Look.h"
#include "controls/Marks.h"
#include "reports/PaintedDrawing.h"
#include "results/ComparisonCharts.h"
#include "workspace/ChartPane.h"
#include "workspace/ComparisonFigures.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int wideSide = 15;
constexpr int narrowSide = 8;
constexpr int narrowHead = 140;  // its width, below which it is narrow
constexpr int above = 14;
constexpr int photoWidth = 160;
constexpr int photoHeight = 110;
constexpr int lowPhotoHeight = 64;
constexpr int lowForm = 640;  // its height, below which photos are low
constexpr int nameTop = 12;   // below the photo
constexpr int nameHeight = 20;
constexpr int factsHeight = 18;
constexpr int below = 10;
constexpr int longSampleLength = 27;
constexpr int shortSampleLength = 14;
constexpr int closeSide = 22;

QString markOf(PointState state) {
    if (state == PointState::ok) return {};
    return state == PointState::warning ? mark::withWarnings : mark::notPossible;
}

}  // namespace

/// One head.
class ComparisonHead : public QWidget {
  public:
    ComparisonHead(ComparisonHeads& owner, std::size_t place)
        : QWidget(&owner), owner_(owner), place_(place), close_(new QToolButton(this)) {
        setFocusPolicy(Qt::StrongFocus);
        setObjectName(QStringLiteral("head%1").arg(place));
        close_->setIcon(icon(QStringLiteral("close")));
        close_->setIconSize({14, 14});
        close_->setFixedSize(closeSide, closeSide);
        close_->setAutoRaise(true);
        close_->setFocusPolicy(Qt::NoFocus);  // the key Delete does the same
        close_->hide();
        connect(close_, &QToolButton::clicked, &owner, [this] { emit owner_.takenOut(number_); });
    }

    int number() const { return number_; }
    void setHead(const ComparedHead& head, int number, const QImage& photo) {
        head_ = head;
        number_ = number;
        photo_ = photo;
        QStringList words{fromCore(head.name), fromCore(head.facts)};
        for (const ShownMessage& message : head.messages) words += fromCore(message.text);
        setAccessibleName(words.join(QStringLiteral(", ")));
        setToolTip(words.join(u'\n'));
        update();
    }
    void translate() {
        const QString text = dictionaryText(QStringLiteral("frmcomparison.takeout"));
        close_->setToolTip(text + QStringLiteral(" (Del)"));
        close_->setAccessibleName(text);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        const Look& look = Look::current();
        const int side = isNarrow() ? narrowSide : wideSide;
        QPainter painter(this);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        painter.fillRect(rect(), look.surface);
        const int bottom = height() - below;
        paintPhoto(painter, {QPoint(side, above),
                             QPoint(width() - side - 1, bottom - factsHeight - nameHeight - nameTop - 1)});
        const QRect name(side, bottom - factsHeight - nameHeight, width() - 2 * side, nameHeight);
        paintName(painter, name);
        painter.setFont(lookFont(12));
        painter.setPen(look.muted);
        const QRect facts(side, bottom - factsHeight, name.width(), factsHeight);
        painter.drawText(
            facts, Qt::AlignRight | Qt::AlignVCenter,
            painter.fontMetrics().elidedText(fromCore(head_.facts), Qt::ElideRight, facts.width()));
        if (!hasFocus()) return;
        painter.setPen(QPen(look.accent, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(rect().adjusted(3, 3, -3, -3), 4, 4);
    }
    void resizeEvent(QResizeEvent*) override { close_->move(width() - wideSide - closeSide - 2, above + 2); }
    void enterEvent(QEnterEvent*) override { close_->show(); }
    void leaveEvent(QEvent*) override { close_->setVisible(hasFocus()); }
    void focusInEvent(QFocusEvent*) override {
        close_->show();
        update();
    }
    void focusOutEvent(QFocusEvent*) override {
        close_->setVisible(underMouse());
        update();
    }
    void contextMenuEvent(QContextMenuEvent* event) override {
        const QPoint at =
            event->reason() == QContextMenuEvent::Mouse ? event->globalPos() : mapToGlobal(rect().center());
        emit owner_.menuRequested(number_, at);
    }
    void keyPressEvent(QKeyEvent* event) override {
        const bool isLeft = event->key() == Qt::Key_Left;
        if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace)
            emit owner_.takenOut(number_);
        else if (!isLeft && event->key() != Qt::Key_Right)
            QWidget::keyPressEvent(event);
        else if (event->modifiers() & Qt::AltModifier)
            emit owner_.stepped(number_, isLeft ? -1 : 1);
        else
            owner_.focusPlace(static_cast<std::ptrdiff_t>(place_) + (isLeft ? -1 : 1));
    }
    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) pressed_ = event->pos();
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        if (!pressed_) return;
        const int by = event->pos().x() - pressed_->x();
        if (!isDragged_ && std::abs(by) < QApplication::startDragDistance()) return;
        isDragged_ = true;
        raise();
        setCursor(Qt::ClosedHandCursor);
        move(x() + by, y());
    }
    void mouseReleaseEvent(QMouseEvent*) override {
        const bool wasDragged = std::exchange(isDragged_, false);
        pressed_.reset();
        unsetCursor();
        if (wasDragged) owner_.dropped(place_, geometry().center().x());
    }

  private:
    bool isNarrow() const { return width() < narrowHead; }
    void paintPhoto(QPainter& painter, const QRect& room) const {
        const QSize size = QSize(std::min(room.width(), photoWidth), room.height());
        const QRect place(QPoint(room.right() + 1 - size.width(), room.top()), size);
        if (photo_.isNull()) return;
        QPainterPath shape;
        shape.addRoundedRect(place, 4, 4);
        painter.save();
        painter.setClipPath(shape);
        QRectF of(QPointF(), photo_.size().scaled(place.size(), Qt::KeepAspectRatioByExpanding));
        of.moveCenter(QRectF(place).center());
        painter.drawImage(of, photo_);
        painter.restore();
    }

    /// Mark, sample of the line and name, set to the right.
    void paintName(QPainter& painter, const QRect& room) const {
        const int gap = isNarrow() ? 4 : 9;
        const int sampleLength = isNarrow() ? shortSampleLength : longSampleLength;
        constexpr int markSide = 14;
        const QFont font = lookFont(isNarrow() ? 13 : 15, QFont::Medium);
        const QFontMetrics metrics(font);
        const QString mark = markOf(head_.state);
        const int taken = sampleLength + gap + (mark.isEmpty() ? 0 : markSide + gap / 2);
        const QString name = metrics.elidedText(fromCore(head_.name), Qt::ElideRight, room.width() - taken);
        painter.setFont(font);
        painter.setPen(Look::current().text);
        painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, name);
        int left = room.right() + 1 - metrics.horizontalAdvance(name) - gap;
        if (!mark.isEmpty()) {
            left -= markSide;
            paintMark(painter, QRect(left, room.center().y() - markSide / 2, markSide, markSide), mark);
            left -= gap / 2;
        }
        const double y = room.center().y() + 0.5;
        Drawing sample{.ground = {.opacity = 0}};
        sample.shapes.emplace_back(DrawnLine{{{left - sampleLength + 0.0, y}, {left + 0.0, y}},
                                             strokeOf(styleOfMachine(place_), ChartPane::onScreen())});
        paintDrawing(painter, sample);
    }

    ComparisonHeads& owner_;
    std::size_t place_;
    int number_ = -1;
    QToolButton* close_;
    ComparedHead head_;
    QImage photo_;
    std::optional<QPoint> pressed_;
    bool isDragged_ = false;
};

ComparisonHeads::ComparisonHeads(const ComparisonFigures& figures, QWidget* parent)
    : QWidget(parent), figures_(figures), add_(new Link(QString(), this)) {
    setObjectName(QStringLiteral("heads"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    add_->setObjectName(QStringLiteral("lnkAdd"));
    for (std::size_t i = 0; i < maxCompared; ++i) heads_.push_back(new ComparisonHead(*this, i));
}

void ComparisonHeads::translate() {
    add_->setText(dictionaryText(QStringLiteral("frmcomparison.add")));
    for (ComparisonHead* head : heads_) head->translate();
    layOut();
}

void ComparisonHeads::setHeads(const std::vector<ComparedHead>& heads, const std::vector<int>& numbers,
                               const std::vector<QImage>& photos) {
    const auto focused = focusedPlace();
    const int inUse = focused ? heads_[*focused]->number() : -1;
    shown_ = heads.size();
    for (std::size_t i = 0; i < shown_; ++i) heads_[i]->setHead(heads[i], numbers[i], photos[i]);
    add_->setEnabled(shown_ < maxCompared);
    if (focused) {
        const auto place = std::ranges::find(numbers, inUse) - numbers.begin();
        focusPlace(place < std::ssize(numbers)
                       ? place
                       : std::min(static_cast<std::ptrdiff_t>(*focused), std::ssize(numbers) - 1));
    }
    layOut();
}

QSize ComparisonHeads::sizeHint() const {
    const bool isLow = parentWidget()->height() < lowForm;
    return {400, above + (isLow ? lowPhotoHeight : photoHeight) + nameTop + nameHeight + factsHeight + below};
}

void ComparisonHeads::layOut() {
    for (std::size_t i = 0; i < heads_.size(); ++i) {
        const int column = static_cast<int>(i) + 1;
        heads_[i]->setVisible(i < shown_);
        if (i < shown_)
            heads_[i]->setGeometry(figures_.columnViewportPosition(column), 0, figures_.columnWidth(column),
                                   height());
    }
    const QSize size = add_->sizeHint().boundedTo({figures_.columnWidth(0) - wideSide, 40});
    add_->setGeometry({QPoint(wideSide, height() - below - size.height()), size});
    add_->raise();
}

void ComparisonHeads::resizeEvent(QResizeEvent*) { layOut(); }

std::size_t ComparisonHeads::placeAt(int x) const {
    std::size_t place = 0;
    while (place + 1 < shown_ && x >= figures_.columnViewportPosition(static_cast<int>(place) + 2)) ++place;
    return place;
}

void ComparisonHeads::dropped(std::size_t place, int x) {
    const std::size_t to = placeAt(x);
    layOut();
    if (to != place) emit moved(heads_[place]->number(), heads_[to]->number());
}

std::optional<std::size_t> ComparisonHeads::focusedPlace() const {
    const auto found = std::ranges::find_if(heads_, &QWidget::hasFocus);
    if (found == heads_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - heads_.begin());
}

void ComparisonHeads::focusPlace(std::ptrdiff_t place) {
    if (place >= 0 && place < static_cast<std::ptrdiff_t>(shown_))
        heads_[static_cast<std::size_t>(place)]->setFocus();
}

}  // namespace marvello
