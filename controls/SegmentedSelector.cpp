#include "controls/SegmentedSelector.h"

#include <QAbstractButton>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWheelEvent>
#include <algorithm>
#include <numeric>

#include "controls/Icons.h"
#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int padding = 12;
constexpr int endWidth = 20;
constexpr int radius = 5;

int widthOf(const QString& text) {
    // As wide as with the weight of the chosen one, so that nothing moves.
    return QFontMetrics(lookFont(13, QFont::Medium)).horizontalAdvance(text) + 2 * padding;
}

}  // namespace

/// One choice: a radio button, which the tab key reaches while it is chosen.
class SegmentedSelector::Segment : public QAbstractButton {
  public:
    Segment(const Choice& choice, QWidget* row) : QAbstractButton(row), key(choice.key) {
        setText(choice.text);
        setCheckable(true);
        setAutoExclusive(true);
        setFocusPolicy(Qt::ClickFocus);
        connect(this, &QAbstractButton::toggled, this,
                [this](bool isOn) { setFocusPolicy(isOn ? Qt::StrongFocus : Qt::ClickFocus); });
        setAttribute(Qt::WA_Hover);
        setObjectName(QStringLiteral("segment_") + choice.key);
    }
    const QString key;

  protected:
    void paintEvent(QPaintEvent*) override {
        const Look& look = Look::current();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        if (isChecked())
            painter.fillPath(ground(), look.accentTint);
        else if (isEnabled() && (isDown() || underMouse()))
            painter.fillPath(ground(), look.hover);
        if (x() > 0) painter.fillRect(QRect(0, 0, 1, height()), look.line);
        painter.setFont(lookFont(13, isChecked() ? QFont::Medium : QFont::Normal));
        painter.setPen(!isEnabled() ? look.disabled : isChecked() ? look.accent : look.text);
        painter.drawText(rect(), Qt::AlignCenter, text());
    }

    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
            case Qt::Key_Left:
            case Qt::Key_Up:
                return choose(parentWidget()->childAt(x() - 1, 0));
            case Qt::Key_Right:
            case Qt::Key_Down:
                return choose(parentWidget()->childAt(x() + width(), 0));
            default:
                QAbstractButton::keyPressEvent(event);
        }
    }

  private:
    static void choose(QWidget* other) {
        if (!other) return;
        other->setFocus();
        static_cast<Segment*>(other)->setChecked(true);
    }

    /// Rounded where the frame is.
    QPainterPath ground() const {
        QPainterPath path;
        const int left = x() == 0 ? 0 : -radius;
        const int right = geometry().right() + 1 == parentWidget()->width() ? 0 : radius;
        path.addRoundedRect(QRectF(rect()).adjusted(left, 0, right, 0), radius - 1, radius - 1);
        return path;
    }
};

/// The arrow at an end, while there is more behind it.
class SegmentedSelector::End : public QAbstractButton {
  public:
    End(bool isLeft, SegmentedSelector* selector) : QAbstractButton(selector), isLeft_(isLeft) {
        setFocusPolicy(Qt::NoFocus);
        setAttribute(Qt::WA_Hover);
        connect(this, &QAbstractButton::clicked, selector,
                [selector, isLeft] { selector->scrollBySegments(isLeft ? -1 : 1); });
        hide();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        const Look& look = Look::current();
        QPainter painter(this);
        painter.fillRect(rect(), isEnabled() && underMouse() ? look.hover : look.surface);
        painter.fillRect(QRect(isLeft_ ? width() - 1 : 0, 0, 1, height()), look.line);
        constexpr double side = 12;
        painter.translate(QRectF(rect()).center());
        painter.rotate(isLeft_ ? 90 : -90);
        paintIcon(painter, {-side / 2, -side / 2, side, side}, QStringLiteral("chev"),
                  isEnabled() ? look.text : look.line);
    }

  private:
    bool isLeft_;
};

SegmentedSelector::SegmentedSelector(QWidget* parent)
    : QWidget(parent),
      room_(new QWidget(this)),
      row_(new QWidget(room_)),
      before_(new End(true, this)),
      after_(new End(false, this)) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void SegmentedSelector::setChoices(const QList<Choice>& choices) {
    for (Segment* segment : segments_) delete segment;
    segments_.clear();
    for (const Choice& choice : choices) {
        auto* segment = new Segment(choice, row_);
        segment->installEventFilter(this);
        connect(segment, &QAbstractButton::toggled, this, [this, segment](bool isOn) {
            if (!isOn || chosen_ == segment->key) return;
            chosen_ = segment->key;
            bringIntoView(*segment);
            emit chosenByUser(chosen_);
        });
        segments_.push_back(segment);
        segment->show();
    }
    if (!setChosen(chosen_)) {
        chosen_ = choices.isEmpty() ? QString() : choices.front().key;
        setChosen(chosen_);
    }
    updateGeometry();
    layOut();
}

bool SegmentedSelector::setChosen(const QString& key) {
    const auto found =
        std::ranges::find_if(segments_, [&](const Segment* segment) { return segment->key == key; });
    if (found == segments_.end()) return false;
    chosen_ = key;
    (*found)->setChecked(true);
    bringIntoView(**found);
    return true;
}

int SegmentedSelector::rowWidth() const {
    return std::accumulate(segments_.begin(), segments_.end(), 0,
                           [](int sum, const Segment* segment) { return sum + widthOf(segment->text()); });
}

QSize SegmentedSelector::sizeHint() const { return {rowWidth() + 2 + 2 * ring, frameHeight + 2 * ring}; }

QSize SegmentedSelector::minimumSizeHint() const {
    int widest = 0;
    for (const Segment* segment : segments_) widest = std::max(widest, widthOf(segment->text()));
    return {std::min(widest + 2 * endWidth + 2 + 2 * ring, sizeHint().width()), frameHeight + 2 * ring};
}

bool SegmentedSelector::isCut() const { return width() < sizeHint().width(); }

void SegmentedSelector::layOut() {
    const QRect inside = rect().adjusted(ring + 1, ring + 1, -ring - 1, -ring - 1);
    const int end = isCut() ? endWidth : 0;
    room_->setGeometry(inside.adjusted(end, 0, -end, 0));
    before_->setGeometry(QRect(inside.topLeft(), QSize(endWidth, inside.height())));
    after_->setGeometry(QRect(inside.right() + 1 - endWidth, inside.top(), endWidth, inside.height()));
    before_->setVisible(end > 0);
    after_->setVisible(end > 0);
    int left = 0;
    for (Segment* segment : segments_) {
        const int width = widthOf(segment->text());
        segment->setGeometry(left, 0, width, inside.height());
        left += width;
    }
    row_->resize(left, inside.height());
    scrollTo(offset_);
    for (const Segment* segment : segments_)
        if (segment->key == chosen_) bringIntoView(*segment);
    update();
}

void SegmentedSelector::scrollTo(int offset) {
    const int last = std::max(0, row_->width() - room_->width());
    offset_ = std::clamp(offset, 0, last);
    row_->move(-offset_, 0);
    before_->setEnabled(offset_ > 0);
    after_->setEnabled(offset_ < last);
}

/// So that the first segment that is seen whole is another one.
void SegmentedSelector::scrollBySegments(int count) {
    const auto first = std::ranges::find_if(
        segments_, [this](const Segment* segment) { return segment->geometry().left() >= offset_; });
    const auto index = std::clamp<std::ptrdiff_t>(first - segments_.begin() + count, 0,
                                                  static_cast<std::ptrdiff_t>(segments_.size()) - 1);
    scrollTo(segments_[static_cast<std::size_t>(index)]->x());
}

void SegmentedSelector::bringIntoView(const Segment& segment) {
    const QRect place = segment.geometry();
    scrollTo(std::clamp(offset_, place.right() + 1 - room_->width(), std::max(place.left(), 0)));
}

bool SegmentedSelector::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        for (const Segment* segment : segments_)
            if (segment == watched) bringIntoView(*segment);
        update();
    }
    return QWidget::eventFilter(watched, event);
}

void SegmentedSelector::paintEvent(QPaintEvent*) {
    const Look& look = Look::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(ring, ring, -ring, -ring);
    const bool hasIt = std::ranges::any_of(segments_, &QWidget::hasFocus);
    if (hasIt) {
        painter.setPen(QPen(look.focusHalo, ring));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(frame.adjusted(-1.5, -1.5, 1.5, 1.5), radius + 1.5, radius + 1.5);
    }
    painter.setPen(!isEnabled() ? look.line : hasIt ? look.accent : look.controlLine);
    painter.setBrush(look.surface);
    painter.drawRoundedRect(frame.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
}

void SegmentedSelector::resizeEvent(QResizeEvent*) { layOut(); }

void SegmentedSelector::wheelEvent(QWheelEvent* event) {
    if (!isCut()) return event->ignore();
    const QPoint turn = event->angleDelta();
    const int along = turn.y() != 0 ? turn.y() : turn.x();
    if (along != 0) scrollBySegments(along > 0 ? -1 : 1);
    event->accept();
}

}  // namespace marvello
