// Shows every control in each of its states on one page, or saves the picture; with --metafile that drawing
// instead.
//   marvello-gallery [--dark] [--graph] [--save FILE] [--metafile FILE]
// QT_SCALE_FACTOR chooses the scaling.

#include <QApplication>
#include <QCommandLineParser>
#include <QPainter>
#include <QTimer>
#include <memory>

#include "controls/Look.h"
#include "controls/Metafile.h"
#include "tests/pictures/scenes/Scenes.h"

using namespace marvello;

namespace {

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

    const scenes::Scene scene = parser.isSet(graph) ? scenes::graphScene() : scenes::controlScene();
    const auto page = scene.make();
    page->show();
    scene.bringUp(*page);
    if (parser.isSet(save))
        QTimer::singleShot(200, page.get(),
                           [&] { QApplication::exit(page->grab().save(parser.value(save)) ? 0 : 1); });
    return QApplication::exec();
}
