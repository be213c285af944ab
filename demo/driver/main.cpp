// marvello-demo PICTURE REPORT: the real program on any screen, without a person. Prints the results of a
// selection, and leaves a picture of the window and the printed report of a compressor.

#include <QStringList>
#include <iostream>

#include "app/Application.h"
#include "app/InstallHooks.h"
#include "app/Start.h"
#include "controls/MessageBox.h"
#include "data/Session.h"
#include "demo/driver/Driver.h"

int main(int argc, char** argv) {
    // The start of the program does not wait for anyone here.
    if (!qEnvironmentVariableIsSet("MARVELLO_SPLASH_MS")) qputenv("MARVELLO_SPLASH_MS", "300");
    marvello::Session session;
    marvello::Application application(argc, argv);
    if (QCoreApplication::arguments().size() != 3) {
        std::cerr << "Usage: marvello-demo PICTURE.png REPORT.pdf\n";
        return marvello::failedStart;
    }
    marvello::installHooks(session.hooks);
    // A box would wait for someone: it ends the demonstration.
    marvello::MessageBox::setHandler([](marvello::MessageBox::Mark, const QString& text) {
        std::cerr << text.toStdString() << '\n';
        QCoreApplication::exit(1);
    });

    const QStringList files = QCoreApplication::arguments();
    const marvello::Driver driver(files.at(1), files.at(2));
    const int status = marvello::Main();
    if (status != marvello::ended) return status;
    return driver.isDone() ? 0 : 1;
}
