#include "controls/ctlCombo.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QStyledItemDelegate>
#include <algorithm>

#include "controls/ApplyRow.h"
#include "controls/ChoiceList.h"
#include "controls/Grip.h"
#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int rowHeight = 26;
constexpr int padding = 4;
constexpr int keyRole = Qt::UserRole;
// In front of every key: it keeps a numeric key apart from a position.
const QString keyPrefix = QStringLiteral("@");
const QString allKey = QStringLiteral("@*");

QString keyOf(const QListWidgetItem& item) { return item.data(keyRole).toString().mid(keyPrefix.size()); }

class RowDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return {0, rowHeight}; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const Look& look = Look::current();
        const bool checks = index.data(Qt::CheckStateRole).isValid();
        const bool current = option.state & (QStyle::State_Selected | QStyle::State_HasFocus);
        if (current && !checks) {
            painter->fillRect(option.rect, look.accentTint);
            painter->fillRect(QRect(option.rect.topLeft(), QSize(3, option.rect.height())), look.accent);
        } else if (current || (option.state & QStyle::State_MouseOver)) {
            painter->fillRect(option.rect, look.hover);
        }
        QRect text = option.rect.adjusted(10, 0, -10, 0);
        if (checks) {
            QStyleOption box;
            box.rect = QRect(text.left(), text.center().y() - 6, 14, 14);
            box.state =
                index.data(Qt::CheckStateRole).toInt() == Qt::Checked ? QStyle::State_On : QStyle::State_Off;
            QApplication::style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter);
            text.setLeft(text.left() + 22);
        }
        painter->setPen(look.text);
        painter->setFont(index.data(Qt::FontRole).isValid() ? index.data(Qt::FontRole).value<QFont>()
                                                            : option.font);
        painter->drawText(text, Qt::AlignLeft | Qt::AlignVCenter, index.data().toString());
        paintRowDetail(*painter, text, option.font, index);
    }
};

}  // namespace

ctlCombo::ctlCombo(QWidget* parent)
    : QFrame(parent, Qt::Popup | Qt::FramelessWindowHint),
      list_(new ChoiceList(this)),
      apply_(new ApplyRow(this)),
      picresize_(new Grip(QSize(80, 2 * rowHeight), this)) {
    list_->setFrameShape(QFrame::NoFrame);
    list_->setItemDelegate(new RowDelegate(list_));
    list_->setUniformItemSizes(true);
    list_->setMouseTracking(true);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QPalette palette = list_->palette();
    palette.setColor(QPalette::Base, Look::current().raised);
    list_->setPalette(palette);
    list_->installEventFilter(this);
    setFocusProxy(list_);
    connect(list_, &QListWidget::itemClicked, this, &ctlCombo::clicked);
    connect(apply_, &ApplyRow::clicked, this, &ctlCombo::chooseChecked);
}

void ctlCombo::SetCaption(const QString& caption) {
    setAccessibleName(caption);
    list_->setAccessibleName(caption);
}

int ctlCombo::RowHeight() const { return rowHeight; }

int ctlCombo::ListCount() const { return list_->count(); }

bool ctlCombo::hasApplyRow() const { return checkBoxes_ && ListCount() > 0; }

void ctlCombo::setApplyText(const QString& text) { apply_->setText(text); }

void ctlCombo::search(const QString& typed) { list_->keyboardSearch(typed); }

int ctlCombo::preferredHeight() const {
    constexpr int emptyHeight = 100;
    constexpr int maxRows = 20;
    if (ListCount() == 0) return emptyHeight;
    return (std::min(ListCount(), maxRows) + (hasApplyRow() ? 2 : 1)) * rowHeight;
}

void ctlCombo::Populate(const QString& list, const QString& keys, bool inert, bool checkBoxes) {
    inert_ = inert;
    checkBoxes_ = checkBoxes;
    list_->clear();
    list_->forgetTyping();
    const QStringList chosen = keys.split(u';', Qt::SkipEmptyParts);
    for (const QString& entry : list.split(u';', Qt::SkipEmptyParts)) {
        const qsizetype mark = entry.indexOf(u'|');
        const QString key = (mark < 0 ? entry : entry.left(mark)).trimmed();
        auto* item = new QListWidgetItem(mark < 0 ? entry : entry.mid(mark + 1), list_);
        item->setData(keyRole, keyPrefix + key);
        const bool isChosen = chosen.contains(key, Qt::CaseInsensitive);
        if (checkBoxes) item->setCheckState(isChosen ? Qt::Checked : Qt::Unchecked);
        if (checkBoxes && item->data(keyRole) == allKey) item->setFont(lookFont(13, QFont::Medium));
        if (isChosen) list_->setCurrentItem(item);
    }
    if (!list_->currentItem() && list_->count() > 0 && checkBoxes) list_->setCurrentRow(0);
}

void ctlCombo::setDetails(const std::function<RowDetail(const QString& key)>& detailOf) {
    for (int row = 0; row < list_->count(); ++row)
        if (list_->item(row)->data(keyRole) != allKey)
            setRowDetail(*list_->item(row), detailOf(keyOf(*list_->item(row))));
}

void ctlCombo::openUnder(const QRect& box) {
    QRect place(box.bottomLeft() + QPoint(0, 3), QSize(box.width(), preferredHeight()));
    const QScreen* screen = QApplication::screenAt(box.center());
    if (screen && place.bottom() > screen->availableGeometry().bottom()) {
        const int below = screen->availableGeometry().bottom() - place.top();
        const int above = box.top() - 3 - screen->availableGeometry().top();
        if (above > below) {
            place.setHeight(std::min(place.height(), above));
            place.moveBottom(box.top() - 3);
        } else {
            place.setHeight(below);
        }
    }
    setGeometry(place);
    layOut();
    show();
    list_->setFocus();
    if (list_->currentItem()) list_->scrollToItem(list_->currentItem());
}

void ctlCombo::clicked(QListWidgetItem* item) {
    if (checkBoxes_)
        flip(item);
    else if (!inert_)
        choose();
}

void ctlCombo::flip(QListWidgetItem* item) {
    const bool checked = item->checkState() != Qt::Checked;
    item->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
    if (!checked) return;
    const bool isAll = item->data(keyRole) == allKey;
    for (int row = 0; row < list_->count(); ++row) {
        QListWidgetItem* other = list_->item(row);
        if (other != item && (isAll || other->data(keyRole) == allKey)) other->setCheckState(Qt::Unchecked);
    }
}

void ctlCombo::choose() {
    if (checkBoxes_) {
        chooseChecked();
        return;
    }
    const QListWidgetItem* item = list_->currentItem();
    if (item) emit Choice(keyOf(*item), item->text());
    hide();
}

void ctlCombo::chooseChecked() {
    QStringList keys;
    QStringList texts;
    for (int row = 0; row < list_->count(); ++row) {
        const QListWidgetItem* item = list_->item(row);
        if (item->checkState() != Qt::Checked) continue;
        keys += keyOf(*item);
        texts += item->text();
    }
    if (keys.isEmpty() && !noneAllowed_)
        emit Choice(QStringLiteral("*"), QStringLiteral("All"));
    else
        emit Choice(keys.join(u';'), texts.join(u';'));
    hide();
}

bool ctlCombo::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QFrame::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Tab:
            choose();
            return true;
        case Qt::Key_Escape:
            hide();
            return true;
        case Qt::Key_Space:
            if (!checkBoxes_)
                search(QStringLiteral(" "));
            else if (list_->currentItem())
                flip(list_->currentItem());
            return true;
        default:
            return false;
    }
}

void ctlCombo::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    emit Closed();
}

void ctlCombo::paintEvent(QPaintEvent*) {
    const Look& look = Look::current();
    QPainter painter(this);
    painter.fillRect(rect(), look.raised);
    painter.setPen(look.isDark ? look.controlLine : look.line);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void ctlCombo::resizeEvent(QResizeEvent*) { layOut(); }

void ctlCombo::layOut() {
    const int below = hasApplyRow() ? rowHeight : padding;
    list_->setGeometry(rect().adjusted(1, padding, -1, -below));
    apply_->setVisible(hasApplyRow());
    apply_->setGeometry(1, height() - rowHeight, width() - 2, rowHeight - 1);
    picresize_->move(width() - picresize_->width() - 1, height() - picresize_->height() - 1);
    picresize_->raise();
}

}  // namespace marvello
