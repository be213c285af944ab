#include "workspace/frmRefrigerant.h"

#include <QListWidget>
#include <QStringList>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include "catalogue/CatalogueLists.h"
#include "controls/ctlBtn.h"
#include "workspace/RefrigerantDetail.h"
#include "workspace/Settings.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

/// A row with its check box and, after the name, its detail.
class DetailDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        const QRect room = row.widget->style()->subElementRect(QStyle::SE_ItemViewItemText, &row, row.widget);
        paintRowDetail(*painter, room, row.font, index);
    }
};

}  // namespace

frmRefrigerant::frmRefrigerant(QWidget* parent)
    : DialogFrame(dictionaryText(QStringLiteral("frmrefrigerant.caption")), parent),
      lv_(new QListWidget(this)) {
    setObjectName(QStringLiteral("frmRefrigerant"));
    lv_->setObjectName(QStringLiteral("lv"));
    lv_->setAccessibleName(windowTitle());
    lv_->setFrameShape(QFrame::NoFrame);
    lv_->setItemDelegate(new DetailDelegate(lv_));
    lv_->setMinimumHeight(300);
    body()->addWidget(lv_);
    auto* cmdOK = new ctlBtn(QStringLiteral("OK"), true, this);
    auto* cmdExit = new ctlBtn(dictionaryText(QStringLiteral("frmrefrigerant.cmdexit.caption")), false, this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdExit->setObjectName(QStringLiteral("cmdExit"));
    connect(cmdOK, &ctlBtn::clicked, this, &QDialog::accept);
    connect(cmdExit, &ctlBtn::clicked, this, &QDialog::reject);
    addButton(cmdExit);
    addButton(cmdOK);
    lv_->setFocus();
}

std::optional<clsParametersForm> frmRefrigerant::OpenForm(clsParametersForm choice) {
    fill(fromCore(choice.Parameter));
    if (exec() != QDialog::Accepted) return std::nullopt;
    choice.Parameter = toCore(checkedKeys());
    return choice;
}

void frmRefrigerant::fill(const QString& chosen) {
    const auto units = static_cast<UnitSystem>(settings::measureUnit.value());
    const QStringList keys = chosen.split(u';', Qt::SkipEmptyParts);
    lv_->clear();
    for (const std::string& name : refrigerantsOf()) {
        const QString key = fromCore(name);
        auto* item = new QListWidgetItem(key, lv_);
        setRowDetail(*item, refrigerantDetail(key, units));
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(keys.contains(key, Qt::CaseInsensitive) ? Qt::Checked : Qt::Unchecked);
    }
    if (lv_->count() > 0) lv_->setCurrentRow(0);
}

QString frmRefrigerant::checkedKeys() const {
    QStringList keys;
    for (int row = 0; row < lv_->count(); ++row)
        if (lv_->item(row)->checkState() == Qt::Checked) keys += lv_->item(row)->text();
    return keys.join(u';');
}

}  // namespace marvello
