#include "workspace/formGuide.h"

#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextList>
#include <QTextTable>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/Look.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int margin = 24;

/// Shows the pictures of a page as wide as the page at most.
class PageView : public QTextBrowser {
  public:
    PageView(const QString& file, QWidget* parent) : QTextBrowser(parent), folder_(QFileInfo(file).path()) {
        setOpenLinks(false);
        connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& target) {
            if (target.path().isEmpty()) scrollToAnchor(target.fragment());
            if (target.scheme().startsWith(u"http")) QDesktopServices::openUrl(target);
        });
        document()->setDocumentMargin(margin);
        document()->setDefaultFont(lookFont(14));
        if (QFile text(file); text.open(QIODevice::ReadOnly)) text_ = QString::fromUtf8(text.readAll());
    }

    QVariant loadResource(int type, const QUrl& name) override {
        if (type != QTextDocument::ImageResource) return QTextBrowser::loadResource(type, name);
        const QImage picture(folder_ + u'/' + name.path());
        const int room = std::max(100, shownWidth_ - 2 * margin - 4);
        if (picture.width() <= room) return picture;
        // Scaled to the points of the screen, and drawn at the size of the page.
        QImage fitting =
            picture.scaledToWidth(std::min(picture.width(), static_cast<int>(room * devicePixelRatioF())),
                                  Qt::SmoothTransformation);
        fitting.setDevicePixelRatio(fitting.width() / static_cast<double>(room));
        return fitting;
    }

  protected:
    void resizeEvent(QResizeEvent* event) override {
        QTextBrowser::resizeEvent(event);
        if (viewport()->width() == shownWidth_) return;
        shownWidth_ = viewport()->width();
        const double place =
            verticalScrollBar()->value() / std::max(1.0, 1.0 * verticalScrollBar()->maximum());
        document()->clear();
        setMarkdown(text_);
        spaceOut();
        verticalScrollBar()->setValue(static_cast<int>(place * verticalScrollBar()->maximum()));
    }

  private:
    /// Gives paragraphs and headings the room around them that Markdown says nothing of.
    void spaceOut() {
        for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
            QTextBlockFormat format = block.blockFormat();
            if (block.textList() || QTextCursor(block).currentTable()) continue;
            format.setTopMargin(format.headingLevel() > 0 ? 16 : 0);
            format.setBottomMargin(8);
            QTextCursor(block).setBlockFormat(format);
        }
    }

    QString folder_;
    QString text_;
    int shownWidth_ = 0;
};

}  // namespace

formGuide::formGuide(const QString& file, QWidget* parent)
    : DialogFrame(withoutAccessKey(dictionaryText(QStringLiteral("mdimain.menu.help.guide"))), parent) {
    setObjectName(QStringLiteral("formGuide"));
    setAttribute(Qt::WA_DeleteOnClose);
    setEdgeToEdge();
    setResizable(QSize(820, 640));
    auto* page = new PageView(file, this);
    page->setObjectName(QStringLiteral("guide"));
    page->setFrameShape(QFrame::NoFrame);
    page->setAccessibleName(windowTitle());
    body()->addWidget(page);
}

}  // namespace marvello
