// What leaves the form for other programs.

#include <QClipboard>
#include <QGuiApplication>

#include "controls/ResultsView.h"
#include "workspace/SelectionForm.h"

namespace marvello {

void SelectionForm::CopyToClipBoard() {
    const QString lineEnd = QStringLiteral("\r\n");
    const QStringList head{QStringLiteral("Refrigerant"), QStringLiteral("Serie"), QStringLiteral("Model")};
    QString text = (head + lvCps_->columnTexts().mid(1)).join(u'\t') + lineEnd;
    for (const int row : lvCps_->selectedRows()) {
        // Kept: the mark is compared with a name that no row bears, so models in error are copied as well.
        if (lvCps_->tag(row).isEmpty() || lvCps_->mark(row) == u"redled" || !compressorOf(row)) continue;
        const QStringList name = lvCps_->tag(row).split(u';');
        text += (name + lvCps_->rowTexts(row).mid(1)).join(u'\t') + lineEnd;
    }
    QGuiApplication::clipboard()->setText(text);
}

}  // namespace marvello
