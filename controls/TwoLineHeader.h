#pragma once

#include <QHeaderView>

namespace marvello {

/// Paints a column text "name(unit)" in two lines, the name above the unit; an empty "()" is dropped,
/// and a name without a unit is on the line of the other names, or in the middle if no column has a unit. The
/// text of the model stays whole. The first column stays in place when the others scroll sideways. An arrow
/// and a line mark the column that the rows are sorted by.
class TwoLineHeader : public QHeaderView {
    Q_OBJECT

  public:
    static constexpr int headerHeight = 40;

    explicit TwoLineHeader(QWidget* parent = nullptr);

    /// The width at which neither line of `text` is cut.
    static int widthOf(const QString& text);
    /// The first column holds numbers, too, in place of labels.
    void setFirstNumbers() { isFirstNumbers_ = true; }
    /// Lets the headings be clicked, and chosen with the keys once the focus is on them: left and right go
    /// from one to the other, Space and Enter click.
    void setSortable();
    /// Marks the section that the rows are sorted by, -1 for none.
    void setSortMark(int section, bool descending);

    QSize sizeHint() const override;

    /// The two lines of a column text.
    static std::pair<QString, QString> lines(const QString& text);

  signals:
    /// The keys went to a section.
    void sectionReached(int section);

  protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void goTo(int section);
    int sectionInUse() const;

    bool hasUnits() const;
    bool isLeftAligned(int section) const;
    bool isOverFirst(const QMouseEvent& event) const;
    QMouseEvent inSections(const QMouseEvent& event) const;

    bool isFirstHeld_ = false;  ///< a button went down on the first column
    bool isFirstNumbers_ = false;
    int sortSection_ = -1;
    bool isDescending_ = false;
    int keySection_ = 0;  ///< that of the keys
};

}  // namespace marvello
