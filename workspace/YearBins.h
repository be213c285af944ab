#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <QWidget>
#include <optional>

#include "engine/CondensingRule.h"
#include "engine/LoadProfile.h"
#include "results/YearEntries.h"

class QLabel;

namespace marvello {

class FieldNote;

/// The bins of a load profile with the condensing temperature of each, and an empty row at the end that makes
/// a new one.
class BinsModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    /// The column after those that are entered.
    static constexpr int condensingColumn = binColumns;

    using QAbstractTableModel::QAbstractTableModel;

    void setBins(const std::vector<LoadBin>& bins);
    const std::vector<LoadBin>& bins() const { return bins_; }
    void setCondensing(const CondensingRule& rule, UnitSystem units);
    UnitSystem units() const { return units_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  signals:
    /// The user entered a value; its bin is in a row then.
    void entered(const QModelIndex& now);
    /// What was entered is refused.
    void refused(const QString& sentence);

  private:
    QString text(const QModelIndex& index) const;
    void put(const LoadBin& bin, std::size_t row);

    std::vector<LoadBin> bins_;
    std::size_t rowOf_ = 0;  ///< where the bin that was put last is
    CondensingRule condensing_{.minimum = 0};
    UnitSystem units_ = UnitSystem::metric;
};

/// The table of a load profile, edited in place: Tab goes to the next value, Enter to the next row. Rows are
/// pasted from a spreadsheet, inserted and deleted.
class YearBins : public QWidget {
    Q_OBJECT

  public:
    static constexpr int halo = 3;  ///< around the frame

    explicit YearBins(QWidget* parent);

    void translate();
    void setBins(const std::vector<LoadBin>& bins);
    const std::vector<LoadBin>& bins() const { return model_.bins(); }
    void setCondensing(const CondensingRule& rule, UnitSystem units);
    /// The bin of the row in use; none for that of a new one.
    std::optional<std::size_t> chosen() const;
    void choose(std::size_t bin);

    /// The height that shows so many bins at once.
    static int heightFor(int bins);

  signals:
    /// The user changed bins. `isLoad` is false if only hours were entered.
    void edited(bool isLoad);
    void chosenByUser();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    class Table;

    void refused(const QString& sentence);
    void showSum();
    void layOut();
    void copy() const;
    void paste();
    void insertRow();
    void removeRows();
    void openMenu(const QPoint& place);

    BinsModel model_;
    Table* table_;
    QLabel* sum_;
    FieldNote* note_ = nullptr;
    bool isFilling_ = false;
};

}  // namespace marvello
