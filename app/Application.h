#pragma once

#include <QApplication>

namespace marvello {

/// The application object of every program with windows: name and version, look, and a net under the event
/// handlers.
class Application : public QApplication {
    Q_OBJECT

  public:
    Application(int& argumentCount, char** arguments);

    /// An exception that leaves an event handler ends in a box, and the program goes on.
    bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace marvello
