#pragma once

#include <QString>
#include <QWidget>
#include <vector>

#include "engine/PhDiagram.h"

namespace marvello {

/// Says what the lines of a diagram are: a sample of each with its text, in as many lines as the width asks
/// for.
class CycleKey : public QWidget {
    Q_OBJECT

  public:
    struct Entry {
        PhLine::Kind kind;
        QString text;
    };

    explicit CycleKey(QWidget* parent = nullptr);

    void setEntries(std::vector<Entry> entries);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    /// Calls `with` each entry and where it begins; returns the height of all.
    template <class With>
    int place(int width, With with) const;

    std::vector<Entry> entries_;
};

}  // namespace marvello
