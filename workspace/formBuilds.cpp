#include "workspace/formBuilds.h"

#include <QFile>
#include <QFileInfo>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "controls/RichText.h"
#include "workspace/Settings.h"
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

bool formBuilds::hasNews(const QString& file) {
    const qint64 length = QFileInfo(file).size();
    if (const auto seen = settings::buildsLength.stored()) return length > *seen;
    // Who has used the program before it kept this has not seen the list either.
    const bool isFirstStart = !settings::frame.stored();
    if (isFirstStart) markSeen(file);
    return !isFirstStart && length > 0;
}

void formBuilds::markSeen(const QString& file) {
    settings::buildsLength.keep(static_cast<int>(QFileInfo(file).size()));
}

}  // namespace marvello
