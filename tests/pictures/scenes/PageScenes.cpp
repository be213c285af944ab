// The pages of a form, which know no catalogue, with more than fits or with nothing.

#include <QVBoxLayout>
#include <array>

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

}  // namespace

Scene pageScene() { return {"pages", pages}; }

}  // namespace marvello::scenes
