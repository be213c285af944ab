#pragma once

#include <QElapsedTimer>
#include <QListWidget>

namespace marvello {

/// The rows of a drop list; typing goes to the row that is meant.
class ChoiceList : public QListWidget {
    Q_OBJECT

  public:
    using QListWidget::QListWidget;

    void keyboardSearch(const QString& text) override;
    /// Starts a new word.
    void forgetTyping() { typed_.clear(); }

  private:
    QString typed_;
    QElapsedTimer lastKey_;
};

}  // namespace marvello
