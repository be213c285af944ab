#pragma once

#include <QLineEdit>

namespace marvello {

/// A field for words that are looked for on a page. Enter goes to the next place, with Shift to the one
/// before, Escape empties it.
class SearchField : public QLineEdit {
    Q_OBJECT

  public:
    explicit SearchField(QWidget* parent = nullptr);

    QSize sizeHint() const override;

  signals:
    void nextWanted();
    void previousWanted();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace marvello
