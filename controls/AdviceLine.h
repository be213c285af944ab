#pragma once

#include <QWidget>

namespace marvello {

class Link;

/// What can be done about a message, in one line: what to set, the step to it, a link that does it, and the
/// effect on other messages, which goes below if the line is too narrow. Without a link the line is a
/// sentence only. The link is its focus proxy.
class AdviceLine : public QWidget {
    Q_OBJECT

  public:
    struct Texts {
        QString text;
        QString step;
        QString use;  ///< of the link; empty for none
        QString effect;
    };
    /// The widths of the columns that the lines of a page share.
    struct Columns {
        int text = 0;
        int step = 0;
        int use = 0;
        /// Makes room for a line.
        void widenFor(const AdviceLine& line);
    };

    explicit AdviceLine(Texts texts, QWidget* parent = nullptr);

    /// Returns the height of the line in a row of `width` whose text begins at `left`.
    int heightIn(int width, int left, const Columns& columns) const;
    void setColumns(int left, const Columns& columns);

  signals:
    void used();
    /// The link has got the focus.
    void focused();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Places {
        QRect text, step, use, effect;
        int height = 0;
    };
    Places placesIn(int width, int left, const Columns& columns) const;
    void layOut();

    Texts texts_;
    Link* link_ = nullptr;
    int left_ = 0;
    Columns columns_;
    Places places_;
};

}  // namespace marvello
