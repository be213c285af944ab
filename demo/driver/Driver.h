#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

namespace marvello {

class MDIMain;
class SelectionForm;

/// Works the running program through one selection as a user would, by key strokes in its own windows: types
/// the conditions, starts the calculation with F5 and walks to a result. Then it prints the results list on
/// standard output, saves a picture of the window and the report of that result as a PDF file, and closes the
/// program.
class Driver : public QObject {
    Q_OBJECT

  public:
    Driver(QString pictureFile, QString reportFile);

    /// Whether the list was printed, and the picture and the report saved.
    bool isDone() const { return done_; }

  private:
    enum class Stage { awaitWindow, typeConditions, calculating, finish };

    /// Carries out the present stage once the program is ready for it.
    void step();
    bool findForm();
    void typeConditions();
    void finish();
    void fail(const QString& reason);

    QString pictureFile_;
    QString reportFile_;
    QTimer timer_;
    QElapsedTimer elapsed_;
    MDIMain* window_ = nullptr;
    SelectionForm* form_ = nullptr;
    Stage stage_ = Stage::awaitWindow;
    bool done_ = false;
};

}  // namespace marvello
