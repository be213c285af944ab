#pragma once

#include <QWidget>
#include <memory>
#include <optional>
#include <vector>

#include "catalogue/PreparedCatalogue.h"
#include "inputs/SelectionInputs.h"
#include "results/RatingSheet.h"
#include "workspace/RatingRun.h"
#include "workspace/UsedPoint.h"

class QLabel;
class QTimer;

namespace marvello {

class Hairline;
class RatingBar;
class RatingGrid;
class RatingSide;
enum class RatingFile : std::uint8_t;

/// The rating table of a compressor. It is calculated out of the way of the window and shown when it is
/// whole.
class RatingPage : public QWidget {
    Q_OBJECT

  public:
    explicit RatingPage(const SelectionInputs& inputs, QWidget* parent = nullptr);

    void translate();
    /// Empties the page.
    void clear();
    /// Shows the table of a compressor about the operating point of its calculation. One that is not possible
    /// has none.
    void showCompressor(const clsCompressor& compressor, const clsProjectConditions& conditions);
    /// Lets the user choose an operating point, which pointUsed() says.
    void setTakesPoints() { takesPoints_ = true; }

  signals:
    void pointUsed(const marvello::UsedPoint& point);
    /// A file was written; the note says which.
    void exported(const QString& note);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void start();
    void show(const std::vector<Performance>& cells);
    void refill();
    void refreshSide();
    void say(const QString& sentence);
    void showParts();
    void choose(int row, int column);
    void copy(bool isWhole) const;
    void write(RatingFile file);
    QString tipOf(int row, int column);
    std::size_t cellAt(int row, int column) const;

    const SelectionInputs& inputs_;
    RatingBar* bar_;
    RatingGrid* grid_;
    Hairline* between_;
    RatingSide* side_;
    QLabel* sentence_;  ///< in place of a table
    QTimer* patience_;
    bool takesPoints_ = false;
    std::shared_ptr<const PreparedCatalogue> catalogue_;
    const PreparedCompressor* compressor_ = nullptr;
    clsProjectConditions conditions_;
    std::optional<RatingSheet> sheet_;
    std::vector<Performance> cells_;  ///< empty while they are calculated
    Calculator calculator_;           ///< of what a tool tip says
    RatingRun run_;
};

}  // namespace marvello
