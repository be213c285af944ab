#pragma once

#include <QHeaderView>

namespace marvello {

/// Paints a column text "name(unit)" in two lines, the name above the unit; an empty "()" is dropped,
/// and a name without a unit is on the line of the other names, or in the middle if no column has a unit. The
/// text of the model stays whole.
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
    QSize sectionSizeFromContents(int section) const override;
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;

  private:
    bool hasUnits() const;
};

}  // namespace marvello
