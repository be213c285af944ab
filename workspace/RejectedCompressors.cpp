#include "workspace/RejectedCompressors.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "controls/ctlBtn.h"
#include "workspace/WindowTexts.h"

namespace marvello {

RejectedCompressors::RejectedCompressors(const std::vector<RejectedGroup>& groups, QWidget* parent)
    : DialogFrame(dictionaryText(QStringLiteral("find.rejected.title")), parent) {
    setObjectName(QStringLiteral("RejectedCompressors"));
    auto* tree = new QTreeWidget(this);
    tree->setObjectName(QStringLiteral("rejected"));
    tree->setAccessibleName(windowTitle());
    tree->setHeaderHidden(true);
    tree->setFrameShape(QFrame::NoFrame);
    tree->setUniformRowHeights(false);
    tree->setWordWrap(true);
    for (const RejectedGroup& group : groups) {
        auto* reason = new QTreeWidgetItem(
            tree, {QStringLiteral("%1: %2").arg(fromCore(group.reason)).arg(group.compressors.size())});
        for (const std::string& compressor : group.compressors)
            reason->addChild(new QTreeWidgetItem({fromCore(compressor)}));
    }
    if (groups.size() == 1) tree->topLevelItem(0)->setExpanded(true);
    if (!groups.empty()) tree->setCurrentItem(tree->topLevelItem(0));
    body()->addWidget(tree);
    auto* close = new ctlBtn(QStringLiteral("OK"), true, this);
    connect(close, &ctlBtn::clicked, this, &QDialog::accept);
    addButton(close);
    setResizable({560, 420});
    tree->setFocus();
}

}  // namespace marvello
