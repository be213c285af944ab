// marvello-demo PICTURE REPORT: the real program on any screen, without a person. Prints the results of a
// selection, and leaves a picture of the window and the printed report of a compressor.

#include <QStringList>
#include <iostream>

#include "app/Application.h"
#include "app/InstallHooks.h"
#include "app/Start.h"
#include "controls/MessageBox.h"
#include "data/Globals.h"
#include "demo/driver/Driver.h"

int main(int argc, char** argv) {
    // The start of the program does not wait for anyone here.
    if (!qEnvironmentVariableIsSet("MARVELLO_SPLASH_MS")) qputenv("MARVELLO_SPLASH_MS", "300");
    marvello::Application application(argc, argv);
    if (QCoreApplication::arguments().size() != 3) {
        std::cerr << "Usage: marvello-demo PICTURE.png REPORT.pdf\n";
        return marvello::failedStart;
    }
    marvello::installHooks();
    // A box would wait for someone: it ends the demonstration.
    marvello::MessageBox::setHandler([](marvello::MessageBox::Mark, const QString& text) {
        std::cerr << text.toStdString() << '\n';
        QCoreApplication::exit(1);
    });

    int status = marvello::ended;
    bool done = false;
    {
        const QStringList files = QCoreApplication::arguments();
        const marvello::Driver driver(files.at(1), files.at(2));
        status = marvello::Main();
        done = driver.isDone();
    }
    marvello::releaseGlobals();
    if (status != marvello::ended) return status;
    return done ? 0 : 1;
}
