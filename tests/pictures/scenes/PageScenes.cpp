// The pages of a form, which know no catalogue, with more than fits or with nothing.

#include <QVBoxLayout>
#include <array>

#include "controls/Marks.h"
#include "controls/MessagesView.h"
#include "controls/Metafile.h"
#include "tests/pictures/scenes/Scenes.h"
#include "workspace/DimensionPage.h"
#include "workspace/EmptyPage.h"
#include "workspace/PolynomialsPage.h"
#include "workspace/TechnicalPage.h"

namespace marvello::scenes {

namespace {

std::unique_ptr<QWidget> pages() {
    auto whole = std::make_unique<QWidget>();
    auto* all = new QVBoxLayout(whole.get());
    const auto add = [&](QWidget* page, int height) {
        page->setFixedSize(340, height);
        all->addWidget(page);
    };
    auto* technical = new TechnicalPage(whole.get());
    technical->setEntries("TK-A-120", {{"Capacity control, with all of its steps", "100 / 75 / 50 / 25 %"},
                                       {"Supply", "A value that is too long for its half of the page"}});
    add(technical, 150);
    auto* empty = new EmptyPage(whole.get());
    empty->setTexts("Nothing calculated", "State the inputs and press {0} or {1}, since {2} was changed.",
                    "Calculate", "F5", "T. E. Dew");
    add(empty, 220);
    auto* polynomials = new PolynomialsPage(whole.get());
    polynomials->setTexts("Polynomials", "Copy");
    polynomials->addPolynomial("Q0",
                               std::array{-1.2, 3.14159265358979, 1e-7, 0.0, 5.0, 6.0, 7.0, 8.0, 9.0, 1e12});
    add(polynomials, 150);
    auto* dimension = new DimensionPage(whole.get());
    dimension->setDrawing(Metafile(), "There is no drawing of this model.");
    add(dimension, 50);
    return whole;
}

/// Messages with what to do about them, where there is room for all in a line and where there is not.
std::unique_ptr<QWidget> advice() {
    auto whole = std::make_unique<QWidget>();
    auto* all = new QVBoxLayout(whole.get());
    for (const QSize& size : {QSize(980, 270), QSize(430, 400)}) {
        auto* view = new MessagesView(whole.get());
        view->setFixedSize(size);
        view->addMessage(mark::error, "error", "The operating point lies outside of the limits.", "01", {},
                         "0.5 K beyond the limit");
        view->addMessage(mark::attention, "warning", "This is so whatever is done.", "16");
        view->addMessage(mark::information, "note", "Nothing is to be done about a note.", "30");
        view->setAdvice(
            mark::error, "01",
            {{"Motor size: Full", "", "Use",
              "then: A message of less weight that is long enough to need a second line"},
             {"Condensing temperature 50.8 °C or lower", "-6.2 K", "Use", "the other message stays"},
             {"Evaporating temperature -0.7 °C or higher", "+17.3 K", "Use", ""}});
        view->setAdvice(mark::attention, "16", {{"No single input ends this.", "", "", ""}});
        view->setNote("Each line changes one input and leaves the others as they are; what it says is long.");
        all->addWidget(view);
    }
    return whole;
}

}  // namespace

Scene adviceScene() { return {"advice", advice}; }
Scene pageScene() { return {"pages", pages}; }

}  // namespace marvello::scenes
