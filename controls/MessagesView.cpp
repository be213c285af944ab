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

enum Role { tagRole = Qt::UserRole, markRole, causeRole };

class MessageDelegate : public QStyledItemDelegate {
  public:
    explicit MessageDelegate(QListWidget* list) : QStyledItemDelegate(list), list_(list) {}

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const override {
        const int width = list_->viewport()->width();
        const int lines = textHeight(index, Qt::DisplayRole, width) + textHeight(index, causeRole, width);
        return {width, std::max(markSize, lines) + 2 * padding};
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
        QRect text(row.left() + side + markSize + gap, row.top() + padding, textWidth(row.width()),
                   row.height() - 2 * padding);
        text.setHeight(text.height() - textHeight(index, causeRole, row.width()));
        painter->setPen(look.text);
        painter->setFont(lookFont());
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
        const QRect room(0, 0, textWidth(width), 10000);
        return QFontMetrics(lookFont()).boundingRect(room, Qt::TextWordWrap, text).height();
    }

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
                              const QString& tag, const QStringList& causes) {
    auto* item = new QListWidgetItem(text, this);
    item->setData(tagRole, tag);
    item->setData(markRole, mark);
    if (!causes.isEmpty()) {
        item->setData(causeRole, causes.first());
        item->setToolTip(causes.join(u'\n'));
        item->setData(Qt::AccessibleDescriptionRole, item->toolTip());
    }
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
