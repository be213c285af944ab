#include "workspace/formBuilds.h"

#include <QFile>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "controls/RichText.h"
#include "workspace/WindowTexts.h"

namespace marvello {

formBuilds::formBuilds(const QString& file, QWidget* parent)
    : DialogFrame(withoutAccessKey(dictionaryText(QStringLiteral("mdimain.menu.help.builds"))), parent) {
    setObjectName(QStringLiteral("formBuilds"));
    setEdgeToEdge();
    setResizable(QSize(620, 420));
    auto* rtf = new QTextBrowser(this);
    rtf->setObjectName(QStringLiteral("rtf"));
    rtf->setAccessibleName(windowTitle());
    if (QFile text(file); text.open(QIODevice::ReadOnly)) showRichText(text.readAll(), *rtf);
    rtf->document()->setDocumentMargin(16);
    body()->addWidget(rtf);
}

}  // namespace marvello
