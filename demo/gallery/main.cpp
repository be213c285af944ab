// Shows every control in every state side by side, or saves the picture; with --metafile that drawing
// instead.
//   marvello-gallery [--dark] [--graph] [--save FILE] [--metafile FILE]
// QT_SCALE_FACTOR chooses the scaling.

#include <QApplication>
#include <QCommandLineParser>
#include <QGridLayout>
#include <QHoverEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QTimer>
#include <QVBoxLayout>
#include <memory>

#include "controls/AdvanceText.h"
#include "controls/ContainerOld.h"
#include "controls/GraphLegend.h"
#include "controls/Icons.h"
#include "controls/Link.h"
#include "controls/Look.h"
#include "controls/MessageBox.h"
#include "controls/MessagesView.h"
#include "controls/Metafile.h"
#include "controls/ProgressBar.h"
#include "controls/ResultsView.h"
#include "controls/Splitter.h"
#include "controls/TabStrip.h"
#include "controls/ctlBtn.h"
#include "controls/ctlCombo.h"
#include "controls/ctlGraph.h"
#include "controls/ctlLimitsGraphic.h"
#include "controls/ctlRoundRectangle.h"

using namespace marvello;

namespace {

AdvanceText* field(QWidget* parent, const QString& caption, const QString& text, const QString& unit) {
    auto* result = new AdvanceText(parent);
    result->setProperty("CaptionText", caption);
    result->setProperty("CaptionWidth", 104);
    if (unit.isNull()) {
        result->SetTextText(text);
    } else {
        result->SetTextType(1);
        result->SetTextFormat("#0.00");
        result->SetTextText(text);
        result->setProperty("UnitCaptionVisible", true);
        result->SetUnitCaptiontext(unit);
    }
    result->setFixedWidth(280);
    return result;
}

AdvanceText* list(QWidget* parent, const QString& caption, const QString& text) {
    AdvanceText* result = field(parent, caption, text, {});
    result->SetLocked(true);
    result->setProperty("ButtonVisible", true);
    return result;
}

void hover(QWidget* widget) {
    const QPointF place(widget->width() - 40, 15);
    QHoverEvent event(QEvent::HoverEnter, place, widget->mapToGlobal(place), QPointF());
    QApplication::sendEvent(widget, &event);
}

QGridLayout* fields(QWidget* page) {
    auto* grid = new QGridLayout;
    grid->setSpacing(0);
    grid->addWidget(field(page, "Normal", "2", QString::fromUtf8("°C")), 0, 0);
    AdvanceText* hovered = field(page, "Hover", "2", QString::fromUtf8("°C"));
    grid->addWidget(hovered, 1, 0);
    AdvanceText* focused = field(page, "Focus", "2", QString::fromUtf8("°C"));
    focused->setObjectName("focused");
    grid->addWidget(focused, 2, 0);
    AdvanceText* derived = field(page, "Derived", "3.15", "bar abs");
    derived->SetDerived(true);
    grid->addWidget(derived, 3, 0);
    AdvanceText* invalid = field(page, "Invalid", "1.5x", QString::fromUtf8("°C"));
    invalid->setObjectName("invalid");
    grid->addWidget(invalid, 4, 0);
    AdvanceText* disabled = field(page, "Disabled", "10", "K");
    disabled->setEnabled(false);
    grid->addWidget(disabled, 5, 0);
    grid->addWidget(list(page, "Locked list", "R134A"), 0, 1);
    AdvanceText* hoveredList = list(page, "Hover", "R134A");
    grid->addWidget(hoveredList, 1, 1);
    AdvanceText* open = list(page, "Open", "R134A");
    open->setOpen(true);
    grid->addWidget(open, 2, 1);
    AdvanceText* fixed = list(page, "Neutral, fixed", "1450");
    fixed->setEnabled(false);
    grid->addWidget(fixed, 3, 1);
    grid->addWidget(field(page, "Free text", "Project 7", {}), 4, 1);
    QTimer::singleShot(50, page, [hovered, hoveredList] {
        hover(hovered);
        hover(hoveredList);
    });
    return grid;
}

QHBoxLayout* buttons(QWidget* page) {
    auto* row = new QHBoxLayout;
    row->setSpacing(4);
    for (const bool isMain : {true, false}) {
        auto* rest = new ctlBtn(isMain ? "Calculate" : "Abort", isMain, page);
        if (isMain) rest->setProperty("KeyHint", "F5");
        row->addWidget(rest);
        auto* down = new ctlBtn(isMain ? "Calculate" : "Abort", isMain, page);
        down->setDown(true);
        row->addWidget(down);
        auto* off = new ctlBtn(isMain ? "Calculate" : "Abort", isMain, page);
        off->setEnabled(false);
        row->addWidget(off);
    }
    row->addStretch(1);
    return row;
}

/// Icons, or marks, in a row.
QHBoxLayout* pictures(QWidget* page, const QStringList& names, bool marks) {
    auto* row = new QHBoxLayout;
    row->setSpacing(14);
    for (const QString& name : names) {
        auto* label = new QLabel(page);
        const int side = marks ? 18 : 20;
        label->setPixmap(
            (marks ? markIcon(name) : icon(name)).pixmap(QSize(side, side), page->devicePixelRatioF()));
        row->addWidget(label);
    }
    row->addStretch(1);
    return row;
}

ResultsView* results(QWidget* page) {
    auto* view = new ResultsView(page);
    view->setColumns({{"compressor", "Compressor", ""},
                      {"Q0", "Capacity(kW)", "Cooling capacity"},
                      {"Pta", "Power(kW)", ""},
                      {"COP", "COP()", ""},
                      {"CA", "Current(A)", ""}});
    view->addGroup("@R134A", "R134A");
    view->addRow({"1", "", "TK-A-120", "ledgreen", "", {"68.1", "18.2", "3.74", "30.6"}});
    view->addRow({"2", "", "TK-A-140", "ledorange", "", {"79.6", "21.1", "3.77", "35.4"}});
    view->addRow({"3", "", "TK-A-410", "ledred", "", {"", "", "", ""}});
    view->fitColumns();
    view->selectRow(2);
    view->setFixedHeight(150);
    return view;
}

ctlCombo* comboList(QWidget* page, bool checkBoxes) {
    auto* combo = new ctlCombo(page);
    combo->setWindowFlags(Qt::Widget);
    combo->Populate(
        checkBoxes ? "*|ALL;120|TK-A-120;140|TK-A-140;165|TK-A-165" : "NL-H|NL-H;TK-A|TK-A;MV-A|MV-A",
        checkBoxes ? "140;165" : "TK-A", false, checkBoxes);
    combo->setFixedSize(200, combo->preferredHeight());
    return combo;
}

MessagesView* messages(QWidget* page) {
    auto* view = new MessagesView(page);
    view->addMessage("msgerror", "error", "The point lies outside of the application limits.", "");
    view->addMessage(
        "msgattention", "warning",
        "Oil cooling is needed at these conditions; a text that is long enough wraps onto a second line "
        "instead of being cut at the edge of the page.",
        "");
    view->addMessage("msginformation", "note", "Part load without economizer.", "");
    view->setFixedHeight(136);
    return view;
}

clsLimits envelope(const std::vector<std::pair<int, std::string>>& lines) {
    clsLimits limits;
    for (const auto& [type, points] : lines) {
        auto limit = std::make_shared<clsLimit>();
        limit->setType(type);
        limit->Points = parsePoints(points);
        limits.add(limit);
    }
    return limits;
}

/// A TK-A with R134A.
clsLimits fixedSpeedEnvelope() {
    return envelope({{-1, "-20,21;4,21;18,35;18,68;-8,60;-14,51;-20,41;-20,21"},
                     {0, "-15,25;4,25;15,36;15,65;-7,58;-11,52;-15,45;-15,25"},
                     {1, "-9.7,54;-5,58.5;-4.8,58.7;-7,58;-9.7,54"},
                     {2, "-15,44.1;-10,49.1;-5,53.6;0,57.6;5,61.2;7.2,62.5;-7,58;-11,52;-15,45;-15,44.1"},
                     {3, "-15,25;4,25;15,36;15,53;-12,50.3;-15,45;-15,25"},
                     {4, "-8,29;4,29;12,37;12,44;-8,44;-8,29"},
                     {5, "-10,28;4,28;13,37;13,50;-10,50;-10,28"},
                     {6, "-12.5,26.5;4,26.5;14,36.5;14,56;-7.7,56;-11,51;-12.5,48.4;-12.5,26.5"},
                     {7, "-15,25;4,25;8,29;-15,29;-15,25"}});
}

/// A TK-B with R134A.
clsLimits inverterEnvelope() {
    return envelope({{-1, "-20,21;4,21;18,35;18,68;-8,60;-14,51;-20,41;-20,21"},
                     {0, "-15,25;4,25;15,36;15,65;-7,58;-11,52;-15,45;-15,25"},
                     {11, "-2.3,21;4,21;14.1,31.1;12,29.7;8,27.1;5.6,25.6;4,24;3,24;0,22.3;-2.3,21"},
                     {14, "-15,25;4,25;10,31;10,53;-10.3,53;-11,52;-15,45;-15,25"},
                     {13, "-15,25;4,25;13,34;13,59;-3.9,59;-7,58;-11,52;-15,45;-15,25"},
                     {12, "-15,25;4,25;15,36;15,65;-7,58;-11,52;-15,45;-15,25"}});
}

clsLimits inFahrenheit(const clsLimits& limits) {
    clsLimits converted;
    for (const auto& limit : limits) {
        auto copy = std::make_shared<clsLimit>(*limit);
        copy->Points.ClearAll();
        for (const clsPoint& at : limit->Points) copy->Points.add(at.x * 1.8 + 32, at.Y * 1.8 + 32);
        converted.add(copy);
    }
    return converted;
}

ctlGraph* graph(QWidget* page, const clsLimits& limits, const clsPoint& point, const QString& unit) {
    auto* result = new ctlGraph(page);
    result->SetTextX("Evaporating temperature (dew) " + unit);
    result->SetTextY("Condensing temperature (dew) " + unit);
    result->SetPoint(point);
    result->SetLimits(limits);
    return result;
}

QWidget* graphs() {
    auto* page = new QWidget;
    page->setAutoFillBackground(true);
    page->setFixedSize(1400, 860);
    auto* all = new QGridLayout(page);
    auto* large = graph(page, fixedSpeedEnvelope(), {2, 40}, QString::fromUtf8("°C"));
    all->addWidget(large, 0, 0, 2, 1);
    auto* legend = new GraphLegend(page);
    legend->setTexts("Limits", "Point Ted/Tcd");
    legend->setLimits(fixedSpeedEnvelope(), true);
    all->addWidget(legend, 0, 1, 2, 1);
    all->addWidget(graph(page, inverterEnvelope(), {2, 40}, QString::fromUtf8("°C")), 0, 2);
    all->addWidget(graph(page, inFahrenheit(fixedSpeedEnvelope()), {35.6, 104}, QString::fromUtf8("°F")), 1,
                   2);
    auto* small = new ctlLimitsGraphic(page);
    small->DrawLimits(fixedSpeedEnvelope());
    small->setFixedHeight(100);
    all->addWidget(small, 2, 1);
    all->setColumnStretch(0, 5);
    all->setColumnStretch(2, 3);
    QTimer::singleShot(50, large, [large] {
        const QPointF at = large->drawing().toPlace({2, 40}, large->rect());
        QMouseEvent move(QEvent::MouseMove, at, large->mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(large, &move);
    });
    return page;
}

/// A hyperlink, the older panel, a rounded panel with a gradient, and a splitter between two panes.
QHBoxLayout* panels(QWidget* page) {
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(new Link("www.kestrom.example", page));
    auto* older = new ContainerOld(page);
    older->SetCaptionText("Older panel");
    older->setProperty("BorderVisible", true);
    older->setProperty("BorderColor", Look::current().line);
    older->setFixedSize(150, 84);
    row->addWidget(older);
    auto* rounded = new ctlRoundRectangle(page);
    rounded->setProperty("Gradient", true);
    rounded->setProperty("GradientColorStop", Look::current().accentTint);
    rounded->setProperty("GradientSizeValue", 40);
    rounded->setFixedSize(130, 84);
    row->addWidget(rounded);
    auto* splitter = new Splitter(page);
    for (const char* name : {"left", "right"}) {
        auto* pane = new QWidget(splitter);
        pane->setObjectName(name);
        pane->setAutoFillBackground(true);
        QPalette ground = pane->palette();
        ground.setColor(QPalette::Window, Look::current().surfaceAlt);
        pane->setPalette(ground);
    }
    splitter->SetMinSize1(20);
    splitter->SetMinSize2(20);
    splitter->SetChild1("left");
    splitter->SetChild2("right");
    splitter->SetSplitterPos(70);
    splitter->setFixedSize(180, 84);
    row->addWidget(splitter);
    row->addStretch(1);
    return row;
}

QWidget* gallery() {
    auto* page = new QWidget;
    page->setAutoFillBackground(true);
    page->setFixedWidth(720);
    QPalette palette = page->palette();
    palette.setColor(QPalette::Window, Look::current().surface);
    page->setPalette(palette);
    auto* all = new QVBoxLayout(page);
    all->setContentsMargins(24, 20, 24, 20);
    all->setSpacing(14);
    auto* container = new Container(page);
    container->SetCaptionText(" Project Conditions");
    container->setFixedHeight(Container::titleHeight);
    all->addWidget(container);
    all->addLayout(fields(page));
    all->addLayout(buttons(page));
    all->addLayout(pictures(page,
                            {"newselection", "print", "preview", "copy", "panel", "export", "up", "down",
                             "cascade", "tileh", "tilev", "form", "inverter", "chev"},
                            false));
    all->addLayout(pictures(
        page, {"ledgreen", "ledorange", "ledred", "ledblue", "msgerror", "msgattention", "msginformation"},
        true));
    auto* lists = new QHBoxLayout;
    lists->addWidget(comboList(page, false), 0, Qt::AlignTop);
    lists->addWidget(comboList(page, true), 0, Qt::AlignTop);
    lists->addStretch(1);
    all->addLayout(lists);
    all->addWidget(results(page));
    auto* forms = new TabStrip(TabStrip::Kind::forms, page);
    forms->addKeyed("1", "1 Selection", icon("form"));
    forms->addKeyed("2", "2 inverter", icon("inverter"));
    all->addWidget(forms);
    auto* pages = new TabStrip(TabStrip::Kind::pages, page);
    for (const char* text : {"Messages", "Technical data", "Limits"}) pages->addKeyed(text, text);
    all->addWidget(pages);
    all->addWidget(messages(page));
    auto* progress = new ProgressBar(page);
    progress->SetValue(62);
    all->addWidget(progress);
    all->addLayout(panels(page));
    return page;
}

/// Brings up the states that need an event.
void showStates(QWidget& page) {
    const auto boxes = MessageBox::setHandler([](MessageBox::Mark, const QString&) {});
    page.findChild<AdvanceText*>("invalid")->validate();
    MessageBox::setHandler(boxes);
    page.findChild<AdvanceText*>("focused")->setFocus();
}

/// A drawing as a page shows it: on white also in the dark look, with a margin.
class DrawingPage : public QWidget {
  public:
    explicit DrawingPage(const QString& file) : metafile_(Metafile::load(file)) { resize(720, 480); }

    bool isNull() const { return metafile_.isNull(); }

  protected:
    void paintEvent(QPaintEvent*) override {
        constexpr int margin = 16;
        QPainter painter(this);
        painter.fillRect(rect(), Qt::white);
        metafile_.draw(painter, rect().adjusted(margin, margin, -margin, -margin));
    }

  private:
    Metafile metafile_;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption dark("dark", "The dark look.");
    const QCommandLineOption save("save", "Saves the picture to FILE and ends.", "FILE");
    const QCommandLineOption graph("graph", "The envelope graph instead of the other controls.");
    const QCommandLineOption metafile("metafile", "Shows the drawing FILE instead of the controls.", "FILE");
    parser.addOptions({dark, save, graph, metafile});
    parser.addHelpOption();
    parser.process(application);
    Look::install(application, parser.isSet(dark) ? Look::dark() : Look::light());

    if (parser.isSet(metafile)) {
        DrawingPage drawing(parser.value(metafile));
        if (drawing.isNull()) {
            qCritical("%s is no placeable metafile.", qPrintable(parser.value(metafile)));
            return 1;
        }
        if (parser.isSet(save)) return drawing.grab().save(parser.value(save)) ? 0 : 1;
        drawing.show();
        return QApplication::exec();
    }

    const std::unique_ptr<QWidget> page(parser.isSet(graph) ? graphs() : gallery());
    page->show();
    if (!parser.isSet(graph)) showStates(*page);
    if (parser.isSet(save))
        QTimer::singleShot(200, page.get(),
                           [&] { QApplication::exit(page->grab().save(parser.value(save)) ? 0 : 1); });
    return QApplication::exec();
}
