// Shows every control in each of its states on one page, or saves the picture.
//   marvello-gallery [--dark] [--graph] [--save FILE]
// QT_SCALE_FACTOR chooses the scaling.

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>
#include <memory>

#include "controls/Look.h"
#include "tests/pictures/scenes/Scenes.h"

using namespace marvello;

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption dark("dark", "The dark look.");
    const QCommandLineOption save("save", "Saves the picture to FILE and ends.", "FILE");
    const QCommandLineOption graph("graph", "The envelope graph instead of the other controls.");
    parser.addOptions({dark, save, graph});
    parser.addHelpOption();
    parser.process(application);
    Look::install(application, parser.isSet(dark) ? Look::dark() : Look::light());

    const scenes::Scene scene = parser.isSet(graph) ? scenes::graphScene() : scenes::controlScene();
    const auto page = scene.make();
    page->show();
    scene.bringUp(*page);
    if (parser.isSet(save))
        QTimer::singleShot(200, page.get(),
                           [&] { QApplication::exit(page->grab().save(parser.value(save)) ? 0 : 1); });
    return QApplication::exec();
}
