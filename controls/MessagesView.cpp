#include "controls/MessagesView.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "controls/Icons.h"
#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int markSize = 18;
constexpr int padding = 9;
constexpr int side = 16;
constexpr int gap = 10;

constexpr int textLeft = side + markSize + gap;
constexpr int adviceGap = 6;  ///< below the last line of a message
/// A row that is a line below a message, and the last row of a message with its lines.
enum Role { tagRole = Qt::UserRole, markRole, causeRole, distanceRole, lineRole, isInsideRole };

class MessageDelegate : public QStyledItemDelegate {
  public:
    explicit MessageDelegate(QListWidget* list) : QStyledItemDelegate(list), list_(list) {}

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const override {
        const int width = list_->viewport()->width();
        if (const QVariant line = index.data(lineRole); line.isValid())
            return {width, line.toInt() + (index.data(isInsideRole).toBool() ? 0 : adviceGap)};
        const int lines = textHeight(index, Qt::DisplayRole, width) + textHeight(index, causeRole, width);
        const int below = index.data(isInsideRole).toBool() ? padding / 2 : padding;
        return {width, std::max(markSize, lines) + padding + below};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const Look& look = Look::current();
        const QRect row = option.rect;
        if (option.state & QStyle::State_Selected)
            painter->fillRect(row, list_->hasFocus() ? look.accentTint : look.hover);
        if (!index.data(isInsideRole).toBool())
            painter->fillRect(QRect(row.left(), row.bottom(), row.width(), 1), look.line);
        if (index.data(lineRole).isValid()) return;
        paintMark(*painter, QRect(row.left() + side, row.top() + padding, markSize, markSize),
                  index.data(markRole).toString());
        const int causeHeight = textHeight(index, causeRole, row.width());
        const int height = std::max(markSize, textHeight(index, Qt::DisplayRole, row.width()) + causeHeight);
        QRect text(row.left() + textLeft, row.top() + padding, textWidth(index, row.width()),
                   height - causeHeight);
        painter->setFont(lookFont());
        painter->setPen(look.muted);
        painter->drawText(QRect(row.left(), text.top(), row.width() - side, markSize),
                          Qt::AlignRight | Qt::AlignVCenter, distanceIn(index, row.width()));
        painter->setPen(look.text);
        painter->drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, index.data().toString());
        painter->setPen(look.muted);
        text.setRect(text.left(), text.bottom() + 1, text.width(), row.height());
        painter->drawText(text, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                          index.data(causeRole).toString());
    }

  private:
    /// 0 for a row without that text.
    static int textHeight(const QModelIndex& index, int role, int width) {
        const QString text = index.data(role).toString();
        if (text.isEmpty()) return 0;
        const QRect room(0, 0, textWidth(index, width), 10000);
        return QFontMetrics(lookFont()).boundingRect(room, Qt::TextWordWrap, text).height();
    }

    /// A narrow page has its room for the message.
    static QString distanceIn(const QModelIndex& index, int width) {
        constexpr int minWidth = 600;
        return width < minWidth ? QString() : index.data(distanceRole).toString();
    }

    static int textWidth(const QModelIndex& index, int width) {
        const QString distance = distanceIn(index, width);
        const int taken =
            distance.isEmpty() ? 0 : QFontMetrics(lookFont()).horizontalAdvance(distance) + 2 * gap;
        return std::max(40, width - textLeft - side - taken);
    }

    QListWidget* list_;
};

}  // namespace

MessagesView::MessagesView(QWidget* parent) : QListWidget(parent) {
    setFrameShape(QFrame::NoFrame);
    setItemDelegate(new MessageDelegate(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setSelectionMode(QAbstractItemView::SingleSelection);
    // The lines go with their rows.
    connect(model(), &QAbstractItemModel::modelReset, this, [this] { columns_ = {}; });
}

// The rows go after this object, and say so.
MessagesView::~MessagesView() { disconnect(model(), nullptr, this, nullptr); }

void MessagesView::addMessage(const QString& mark, const QString& markText, const QString& text,
                              const QString& tag, const QStringList& causes, const QString& distance) {
    auto* item = new QListWidgetItem(text, this);
    item->setData(tagRole, tag);
    item->setData(markRole, mark);
    item->setData(distanceRole, distance);
    if (!causes.isEmpty()) {
        item->setData(causeRole, causes.first());
        item->setToolTip(causes.join(u'\n'));
        item->setData(Qt::AccessibleDescriptionRole, item->toolTip());
    }
    QString spoken = markText.isEmpty() ? text : QStringLiteral("%1: %2").arg(markText, text);
    if (!distance.isEmpty()) spoken += QStringLiteral(", ") + distance;
    item->setData(Qt::AccessibleTextRole, spoken);
}

void MessagesView::setAdvice(const QString& mark, const QString& tag, const QList<AdviceLine::Texts>& lines) {
    int row = 0;
    while (row < count() && (this->mark(row) != mark || this->tag(row) != tag)) ++row;
    if (row == count() || lines.isEmpty()) return;
    item(row)->setData(isInsideRole, true);
    for (int i = 0; i < lines.size(); ++i) {
        auto* line = new AdviceLine(lines[i], viewport());
        connect(line, &AdviceLine::used, this, [this, mark, tag, i] { emit used(mark, tag, i); });
        addLine(row + 1 + i, line);
        item(row + 1 + i)->setData(isInsideRole, i + 1 < lines.size());
    }
    layOutLines();
}

void MessagesView::setNote(const QString& note) {
    addLine(count(), new AdviceLine({note, {}, {}, {}}, viewport()));
    item(count() - 1)->setData(isInsideRole, true);
    layOutLines();
}

void MessagesView::addLine(int row, AdviceLine* line) {
    auto* place = new QListWidgetItem;
    place->setFlags(Qt::NoItemFlags);  // the arrow keys pass over it
    place->setData(lineRole, 0);
    place->setData(Qt::AccessibleTextRole, line->accessibleName());
    insertItem(row, place);
    setItemWidget(place, line);
    columns_.widenFor(*line);
    connect(line, &AdviceLine::focused, this, [this, place] { scrollToItem(place); });
}

void MessagesView::layOutLines() {
    QWidget* previous = this;
    for (int row = 0; row < count(); ++row) {
        auto* line = qobject_cast<AdviceLine*>(itemWidget(item(row)));
        if (!line) continue;
        if (QWidget* next = line->focusProxy()) {
            setTabOrder(previous, next);
            previous = next;
        }
        item(row)->setData(lineRole, line->heightIn(viewport()->width(), textLeft, columns_));
        line->setColumns(textLeft, columns_);
    }
}

void MessagesView::setEmptyText(const QString& text) {
    emptyText_ = text;
    viewport()->update();
}

QString MessagesView::tag(int row) const { return item(row)->data(tagRole).toString(); }

QString MessagesView::mark(int row) const { return item(row)->data(markRole).toString(); }

void MessagesView::paintEvent(QPaintEvent* event) {
    QListWidget::paintEvent(event);
    if (count() > 0 || emptyText_.isEmpty()) return;
    QPainter painter(viewport());
    painter.setPen(Look::current().muted);
    painter.setFont(lookFont());
    painter.drawText(viewport()->rect(), Qt::AlignCenter, emptyText_);
}

void MessagesView::resizeEvent(QResizeEvent* event) {
    QListWidget::resizeEvent(event);
    layOutLines();
    scheduleDelayedItemsLayout();
}

}  // namespace marvello
