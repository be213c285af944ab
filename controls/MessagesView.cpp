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

enum Role { tagRole = Qt::UserRole, markRole };

class MessageDelegate : public QStyledItemDelegate {
  public:
    explicit MessageDelegate(QListWidget* list) : QStyledItemDelegate(list), list_(list) {}

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const override {
        const int width = list_->viewport()->width();
        const QRect text = QFontMetrics(lookFont())
                               .boundingRect(QRect(0, 0, textWidth(width), 10000), Qt::TextWordWrap,
                                             index.data().toString());
        return {width, std::max(markSize, text.height()) + 2 * padding};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const Look& look = Look::current();
        const QRect row = option.rect;
        if (option.state & QStyle::State_Selected)
            painter->fillRect(row, list_->hasFocus() ? look.accentTint : look.hover);
        painter->fillRect(QRect(row.left(), row.bottom(), row.width(), 1), look.line);
        paintMark(*painter, QRect(row.left() + side, row.top() + padding, markSize, markSize),
                  index.data(markRole).toString());
        painter->setPen(look.text);
        painter->setFont(lookFont());
        const QRect text(row.left() + side + markSize + gap, row.top() + padding, textWidth(row.width()),
                         row.height() - 2 * padding);
        painter->drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, index.data().toString());
    }

  private:
    static int textWidth(int width) { return std::max(40, width - 2 * side - markSize - gap); }

    QListWidget* list_;
};

}  // namespace

MessagesView::MessagesView(QWidget* parent) : QListWidget(parent) {
    setFrameShape(QFrame::NoFrame);
    setItemDelegate(new MessageDelegate(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setSelectionMode(QAbstractItemView::SingleSelection);
}

void MessagesView::addMessage(const QString& mark, const QString& markText, const QString& text,
                              const QString& tag) {
    auto* item = new QListWidgetItem(text, this);
    item->setData(tagRole, tag);
    item->setData(markRole, mark);
    if (!markText.isEmpty())
        item->setData(Qt::AccessibleTextRole, QStringLiteral("%1: %2").arg(markText, text));
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
    scheduleDelayedItemsLayout();
}

}  // namespace marvello
