// Every control in every state.

#include <QApplication>
#include <QGridLayout>
#include <QHoverEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>
#include <QScrollBar>
#include <QVBoxLayout>

#include "controls/AdvanceText.h"
#include "controls/ContainerOld.h"
#include "controls/FieldNote.h"
#include "controls/FilterChip.h"
#include "controls/Icons.h"
#include "controls/Link.h"
#include "controls/Look.h"
#include "controls/Marks.h"
#include "controls/MessageBox.h"
#include "controls/MessagesView.h"
#include "controls/PageBar.h"
#include "controls/ProgressBar.h"
#include "controls/ResultsView.h"
#include "controls/SegmentedSelector.h"
#include "controls/Splitter.h"
#include "controls/TabStrip.h"
#include "controls/TagBox.h"
#include "controls/WrapBar.h"
#include "controls/ctlBtn.h"
#include "controls/ctlCombo.h"
#include "controls/ctlRoundRectangle.h"
#include "tests/pictures/scenes/Scenes.h"

namespace marvello::scenes {

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
    hovered->setObjectName("hovered");
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
    hoveredList->setObjectName("hoveredList");
    grid->addWidget(hoveredList, 1, 1);
    AdvanceText* open = list(page, "Open", "R134A");
    open->setOpen(true);
    grid->addWidget(open, 2, 1);
    AdvanceText* fixed = list(page, "Neutral, fixed", "1450");
    fixed->setEnabled(false);
    grid->addWidget(fixed, 3, 1);
    grid->addWidget(field(page, "Free text", "Project 7", {}), 4, 1);
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
    view->addRow({"1", "TK-A-120", mark::possible, "", {"68.1", "18.2", "3.74", "30.6"}});
    view->addRow({"2", "TK-A-140", mark::withWarnings, "", {"79.6", "21.1", "3.77", "35.4"}});
    view->addRow({"3", "TK-A-410", mark::notPossible, "", {"", "", "", ""}});
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
    view->addMessage(mark::error, "error", "The point lies outside of the application limits.", "");
    view->addMessage(
        mark::attention, "warning",
        "Oil cooling is needed at these conditions; a text that is long enough wraps onto a second line "
        "instead of being cut at the edge of the page.",
        "");
    view->addMessage(mark::information, "note", "Part load without economizer.", "");
    view->setFixedHeight(136);
    return view;
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

std::unique_ptr<QWidget> controls() {
    auto whole = std::make_unique<QWidget>();
    QWidget* const page = whole.get();
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
    all->addLayout(pictures(page,
                            {mark::possible, mark::withWarnings, mark::notPossible, mark::group, mark::error,
                             mark::attention, mark::information},
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
    return whole;
}

/// Brings up the states that need an event.
void showStates(QWidget& page) {
    const auto boxes = MessageBox::setHandler([](MessageBox::Mark, const QString&) {});
    page.findChild<AdvanceText*>("invalid")->validate();
    MessageBox::setHandler(boxes);
    page.findChild<AdvanceText*>("focused")->setFocus();
    for (const char* name : {"hovered", "hoveredList"}) hover(page.findChild<AdvanceText*>(name));
}

/// Lists in the states that a form brings: values scrolled under the labels, a sorted column, a row chosen
/// while the keys are elsewhere; a page without messages; a column without unit.
std::unique_ptr<QWidget> lists() {
    auto whole = std::make_unique<QWidget>();
    QWidget* const page = whole.get();
    page->setFixedWidth(420);
    auto* all = new QVBoxLayout(page);
    ResultsView* scrolled = results(page);
    scrolled->setObjectName("scrolled");
    scrolled->setSortable();
    scrolled->addGroup("@R290", "R290");
    scrolled->addRow(
        {"4", "TK-A-90-with-a-long-name", mark::possible, "", {"68.1", "1234567.8", "3.74", "30.6"}});
    scrolled->fitColumns();
    scrolled->setFixedHeight(210);
    all->addWidget(scrolled);
    auto* plain = new ResultsView(page);
    plain->setColumns({{"name", "Name", ""}, {"value", "Value", ""}});
    plain->addRow({"1", "Without a mark", "", "", {"1"}});
    plain->selectRow(0);
    plain->setFixedHeight(80);
    all->addWidget(plain);
    auto* empty = new MessagesView(page);
    empty->setEmptyText("There is nothing to say about this compressor.");
    empty->setFixedHeight(40);
    all->addWidget(empty);
    auto* tabs = new TabStrip(TabStrip::Kind::forms, page);
    tabs->setObjectName("hovered");
    for (const char* text : {"One", "Two", "Three"}) tabs->addKeyed(text, text, icon("form"));
    all->addWidget(tabs);
    for (const int percent : {0, 100}) {
        auto* progress = new ProgressBar(page);
        progress->SetValue(percent);
        all->addWidget(progress);
    }
    return whole;
}

void scroll(QWidget& page) {
    auto* const view = page.findChild<ResultsView*>("scrolled");
    view->markSorted("Pta", true);
    view->horizontalScrollBar()->setValue(60);
    view->setFocus();
    auto* const tabs = page.findChild<TabStrip*>("hovered");
    const QPointF at = tabs->tabRect(2).center();
    QMouseEvent move(QEvent::MouseMove, at, tabs->mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(tabs, &move);
}

/// Fields with parts left out, with more than fits, and with notes next to and below.
std::unique_ptr<QWidget> moreFields() {
    auto whole = std::make_unique<QWidget>();
    QWidget* const page = whole.get();
    page->setFixedSize(440, 350);
    const auto place = [](AdvanceText* made, int x, int y, int width) {
        made->setFixedWidth(width);
        made->move(x, y);
        return made;
    };
    AdvanceText* number = place(field(page, "Number", "12.5", "K"), 10, 10, 200);
    number->setProperty("UnitCaptionVisible", false);
    AdvanceText* bare = place(field(page, "", "7.25", "bar"), 220, 10, 100);
    bare->setProperty("CaptionVisible", false);
    place(field(page, "Cut", "A text that is much longer than its field", {}), 10, 50, 200);
    place(list(page, "Cut", "A choice that is longer than its field"), 220, 50, 200);
    place(field(page, "A caption that is too long", "1234567.891", "kg/h"), 10, 90, 200);
    AdvanceText* coloured = place(field(page, "Colours", "1", "kW"), 220, 90, 200);
    coloured->setProperty("TextForeColor", QColor("#C3271D"));
    coloured->setProperty("TextBackColor", QColor("#FBEAE8"));
    coloured->setProperty("CaptionForeColor", QColor("#2B62C4"));
    coloured->setProperty("UnitCaptionForeColor", QColor("#1B7F45"));
    coloured->setProperty("TextBordersColor", QColor("#C96A00"));
    int y = 140;
    for (const auto kind : {FieldNote::Kind::fault, FieldNote::Kind::reading})
        for (const int width : {180, 420}) {
            auto* holder = new QWidget(page);
            holder->setGeometry(10, y, width, 30);
            AdvanceText* said = place(field(holder, "Said", "1", "K"), 0, 0, width);
            auto* note = new FieldNote(*said);
            note->setObjectName("note");
            note->say(width == 180 ? "A word beside the field." : "A word below.", *said,
                      QRect(110, 1, width - 112, 28), kind);
            y += width == 180 ? 36 : 66;
        }
    return whole;
}

FilterChip* chip(WrapBar* bar, const char* caption, int count, bool isOn) {
    auto* result = new FilterChip(bar);
    result->setFilter(caption, count);
    result->setChecked(isOn);
    bar->add(result, FilterChip::ring);
    return result;
}

TagBox* tags(QWidget* page, const char* caption, const QStringList& chosen) {
    auto* box = new TagBox(page);
    box->setCaption(caption, 112);
    box->setEmptyText("Choose at least one");
    box->setChoices({"R134A", "R513A", "R450A", "R1234ZE", "R1234YF", "R290"});
    box->setChosen(chosen);
    box->setFixedSize(374, box->heightForWidth(374));
    return box;
}

ResultsView* found(QWidget* page) {
    using Kind = ResultsModel::Kind;
    auto* view = new ResultsView(page);
    view->setColumns({{"compressor", "Compressor", ""},
                      {"refrigerant", "Refrigerant(safety class, GWP)", "", Kind::words},
                      {"capacity", "Capacity(kW)", ""},
                      {"deviation", "Deviation(from 150 kW)", "", Kind::deviation, 0.05, 0.20},
                      {"cop", "COP()", ""},
                      {"speed", "Speed(Hz)", ""},
                      {"limit", "Nearest limit()", "", Kind::words}});
    const auto row = [view](const char* key, const char* label, const QString& itsMark,
                            const char* refrigerant, const char* note, const QStringList& values,
                            double deviation, bool isInverter) {
        ResultsView::Row made{
            key, label, itsMark, "", {refrigerant, values[0], values[1], values[2], values[3], values[4]}};
        made.asides[1].note = note;
        made.asides[3].deviation = deviation;
        if (isInverter) made.asides[5].icon = "inverter";
        view->addRow(made);
    };
    row("1", "1 \u00D7 GH4-240S", mark::possible, "R134A", "A1 \u00B7 GWP 1430",
        {"143.5", "-4.4 %", "4.33", "50.0", "T. E. higher"}, -0.044, false);
    row("2", "1 \u00D7 TK-E-335", mark::withWarnings, "R450A", "A1 \u00B7 GWP 605",
        {"175.8", "+17.2 %", "4.28", "50.0", "T. E. higher"}, 0.172, false);
    row("3", "1 \u00D7 TK-D-190", mark::possible, "R290", "A3 \u00B7 GWP 3",
        {"150.0", "0.0 %", "4.21", "43.7", "T. C. lower"}, 0, true);
    view->markSorted("cop", true);
    view->fitColumns();
    view->selectRow(1);
    view->setFixedHeight(120);
    return view;
}

/// What a search over refrigerants has besides: filters, tags, and a list with bars and quieter words.
std::unique_ptr<QWidget> filters() {
    auto whole = std::make_unique<QWidget>();
    QWidget* const page = whole.get();
    page->setFixedSize(800, 440);
    auto* all = new QVBoxLayout(page);
    for (const int width : {776, 420}) {
        auto* bar = new WrapBar(page);
        bar->setFixedWidth(width);
        chip(bar, "Best of each refrigerant", 18, true)->setObjectName("focusedChip");
        chip(bar, "All", 271, false);
        bar->addSeparator();
        chip(bar, "Without warnings", 241, true);
        chip(bar, "One machine", 129, false);
        chip(bar, "Inverter", 132, false)->setEnabled(false);
        bar->layOut();
        all->addWidget(bar);
    }
    all->addWidget(tags(page, "Refrigerants", {"R134A", "R513A", "R450A", "R1234ZE", "R1234YF", "R290"}));
    all->addWidget(tags(page, "Refrigerants", {}));
    all->addWidget(found(page));
    all->addStretch(1);
    return whole;
}

PageBar* pageBar(QWidget* page, int width) {
    auto* bar = new PageBar(page);
    bar->setFixedWidth(width);
    auto* selector = new SegmentedSelector(bar);
    selector->setChoices({{"limits", "Limits only"},
                          {"cop", "COP"},
                          {"capacity", "Capacity"},
                          {"power", "Power"},
                          {"discharge", "Discharge"},
                          {"flow", "Mass flow"}});
    bar->add(selector, SegmentedSelector::ring);
    bar->setCaption("Show");
    bar->setSentence("TK-A-220 \u00B7 superheat 10 K, subcooling 5 K");
    return bar;
}

/// Bars above a page: with room, with a sentence that is cut, narrower than the choices, switched off.
std::unique_ptr<QWidget> pageBars() {
    auto whole = std::make_unique<QWidget>();
    QWidget* const page = whole.get();
    page->setFixedSize(900, 320);
    auto* all = new QVBoxLayout(page);
    for (const int width : {876, 700, 330}) all->addWidget(pageBar(page, width));
    page->findChildren<SegmentedSelector*>()[2]->setChosen("discharge");
    PageBar* off = pageBar(page, 876);
    off->setEnabled(false);
    all->addWidget(off);
    all->addStretch(1);
    return whole;
}

}  // namespace

Scene pageBarScene() {
    return {"page-bars", pageBars, [](QWidget& page) {
                QList<SegmentedSelector*> all = page.findChildren<SegmentedSelector*>();
                all[1]->setChosen("cop");
                all[1]->findChild<QWidget*>("segment_cop")->setFocus();
            }};
}

Scene filterScene() {
    return {"filters", filters,
            [](QWidget& page) { page.findChild<FilterChip*>("focusedChip")->setFocus(); }};
}

Scene fieldScene() { return {"fields", moreFields}; }

Scene listScene() { return {"lists", lists, scroll}; }

Scene controlScene() { return {"controls", controls, showStates}; }

}  // namespace marvello::scenes
