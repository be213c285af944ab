#include "workspace/frmAbout.h"

#include <QDesktopServices>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QStackedWidget>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include "controls/Icons.h"
#include "controls/Link.h"
#include "controls/Look.h"
#include "controls/RichText.h"
#include "controls/TabStrip.h"
#include "controls/ctlBtn.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int emblemSide = 46;

class Emblem : public QWidget {
  public:
    explicit Emblem(QWidget* parent) : QWidget(parent) { setFixedSize(emblemSide, emblemSide); }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        paintIcon(painter, rect(), QStringLiteral("emblem"), Look::current().accent);
    }
};

QLabel* line(const QString& text, const QFont& font, const QColor& colour) {
    auto* label = new QLabel(text);
    label->setFont(font);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, colour);
    label->setPalette(palette);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

/// A link whose target is its own caption behind a scheme.
Link* link(const char* name, const char* key, const QString& scheme) {
    auto* result = new Link(dictionaryText(QLatin1String(key)));
    result->setObjectName(QLatin1String(name));
    QObject::connect(result, &Link::clicked, result,
                     [result, scheme] { QDesktopServices::openUrl(QUrl(scheme + result->text())); });
    return result;
}

}  // namespace

frmAbout::frmAbout(const QString& version, QWidget* parent)
    : DialogFrame(withoutAccessKey(dictionaryText(QStringLiteral("mdimain.menu.help.about"))), parent) {
    setObjectName(QStringLiteral("frmAbout"));
    setEdgeToEdge();
    auto* band = new TabBand(TabStrip::Kind::pages, this);
    TabStrip* tabs = band->strip();
    tabs->setObjectName(QStringLiteral("TabStrip"));
    tabs->addKeyed(QStringLiteral("CntInfo"), dictionaryText(QStringLiteral("frmabout.tabstrip.tabs.info")));
    tabs->addKeyed(QStringLiteral("cnteula"), dictionaryText(QStringLiteral("frmabout.tabstrip.tabs.eula")));
    auto* pages = new QStackedWidget(this);
    pages->addWidget(makeInformation(version));
    pages->addWidget(makeTerms());
    connect(tabs, &QTabBar::currentChanged, pages, &QStackedWidget::setCurrentIndex);
    body()->addWidget(band);
    body()->addWidget(pages);
    auto* cmdOK = new ctlBtn(QStringLiteral("OK"), true, this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    connect(cmdOK, &ctlBtn::clicked, this, &QDialog::accept);
    addButton(cmdOK);
    cmdOK->setFocus();
}

QWidget* frmAbout::makeInformation(const QString& version) {
    const Look& look = Look::current();
    auto* page = new QWidget(this);
    page->setObjectName(QStringLiteral("CntInfo"));
    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(28, 24, 24, 8);
    grid->setHorizontalSpacing(24);
    grid->setVerticalSpacing(2);
    grid->addWidget(new Emblem(page), 0, 0, 2, 1, Qt::AlignTop);
    int row = 0;
    const auto add = [&](QWidget* widget) { grid->addWidget(widget, row++, 1, Qt::AlignLeft); };
    const auto gap = [&] { grid->setRowMinimumHeight(row++, 12); };
    add(line(QStringLiteral("Marvello"), lookFont(20), look.text));
    add(line(filled(dictionaryText(QStringLiteral("frmabout.version")), {version}), lookFont(), look.muted));
    gap();
    for (const char* key : {"frmabout.address1", "frmabout.address2", "frmabout.address3"})
        add(line(dictionaryText(QLatin1String(key)), lookFont(), look.text));
    for (const char* key : {"frmabout.department", "frmabout.phone"})
        add(line(dictionaryText(QLatin1String(key)), lookFont(), look.muted));
    gap();
    add(link("Link1", "frmabout.link1", QStringLiteral("https://")));
    add(link("Link2", "frmabout.link2", QStringLiteral("mailto:")));
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(row, 1);
    return page;
}

QWidget* frmAbout::makeTerms() {
    auto* page = new QWidget(this);
    page->setObjectName(QStringLiteral("cnteula"));
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(16, 12, 0, 0);
    auto* rtfeula = new QTextBrowser(page);
    rtfeula->setObjectName(QStringLiteral("rtfeula"));
    rtfeula->setAccessibleName(dictionaryText(QStringLiteral("frmabout.tabstrip.tabs.eula")));
    showRichText(dictionaryTextIfAny(QStringLiteral("help.rtfeula.rtf")).toUtf8(), *rtfeula);
    column->addWidget(rtfeula);
    return page;
}

}  // namespace marvello
