// Any text as the assignments of a parameter set, applied to controls of the program, and as the lists they
// read.
#include <QApplication>
#include <QLabel>
#include <cstddef>
#include <cstdint>

#include "controls/AdvanceText.h"
#include "controls/Container.h"
#include "controls/Link.h"
#include "controls/ProgressBar.h"
#include "controls/ResultsView.h"
#include "controls/Splitter.h"
#include "controls/ctlBtn.h"
#include "controls/ctlCombo.h"
#include "controls/ctlGraph.h"
#include "data/Session.h"
#include "data/clsDatabase.h"
#include "results/Columns.h"
#include "results/TechnicalData.h"
#include "tests/support/SmallCatalogue.h"
#include "workspace/ApplyFormParameters.h"
#include "workspace/TechnicalPage.h"

namespace {

using namespace marvello;

marvello::testing::SmallCatalogue& catalogue() {
    static marvello::testing::SmallCatalogue small;
    return small;
}

void apply(const std::string& assignments) {
    catalogue().exec(
        "PRAGMA journal_mode=OFF;PRAGMA synchronous=OFF;update tParametersRows set fObjectPropertyValue=" +
        sqlText(assignments));
    QWidget form;
    auto* const field = new AdvanceText(&form);
    auto* const list = new ResultsView(&form);
    TechnicalPage page(&form);
    int number = 0;
    for (QWidget* const control :
         {static_cast<QWidget*>(field), static_cast<QWidget*>(list), static_cast<QWidget*>(new QLabel(&form)),
          static_cast<QWidget*>(new Splitter(&form)), static_cast<QWidget*>(new ctlGraph(&form)),
          static_cast<QWidget*>(new ctlBtn(&form)), static_cast<QWidget*>(new Link(QString(), &form)),
          static_cast<QWidget*>(new Container(&form)), static_cast<QWidget*>(new ProgressBar(&form))})
        control->setObjectName(QString::number(number++));
    ApplyFormParameters("frm", "frmTest", "populate", form);
    const std::string technical = MotorDescription(assignments, clsCompressor());
    page.setEntries(QStringLiteral("a model"), {{technical, technicalInImperial(assignments)}});
    form.resize(300, 200);
    (void)form.grab();
    (void)readOutputs(list->property("Tag").toString().toStdString());
    ctlCombo combo;
    combo.Populate(QString::fromStdString(assignments), field->Tag1(), false, true);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QApplication application(*count, *arguments);
    catalogue().text("a", "{b}");
    catalogue().text("b", "{a}x");
    catalogue().text("c", "Text: with = marks");
    catalogue().exec("insert into tParametersHead values('frm','frmTest','populate',1)");
    for (const char* name : {"0", "1", "2", "3", "4", "5", "6", "7", "8", "picTecnic", "imagecps"})
        catalogue().exec("insert into tParametersRows values(1,'" + std::string(name) + "','','x')");
    gApplication().populateDictionary("en-EN", "");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);
    std::erase(text, '\0');  // ends a statement
    apply(text);
    return 0;
}
