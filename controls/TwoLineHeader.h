#pragma once

#include <QHeaderView>

namespace marvello {

/// Paints a column text "name(unit)" in two lines, the name above the unit; an empty "()" is dropped,
/// and a name without a unit stands in the middle. The text of the model stays whole. The
/// first column stays in place when the others scroll sideways.
class TwoLineHeader : public QHeaderView {
    Q_OBJECT

  public:
    static constexpr int headerHeight = 40;

    explicit TwoLineHeader(QWidget* parent = nullptr);

    /// The width at which neither line of `text` is cut.
    static int widthOf(const QString& text);
    /// The two lines of a column text.
    static std::pair<QString, QString> lines(const QString& text);

  protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    QSize sectionSizeFromContents(int section) const override;
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;

  private:
    bool isOverFirst(const QMouseEvent& event) const;
    QMouseEvent inSections(const QMouseEvent& event) const;

    bool isFirstHeld_ = false;  ///< a button went down on the first column
};

}  // namespace marvello
