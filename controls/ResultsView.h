#pragma once

#include <QStandardItemModel>
#include <QString>
#include <QStringList>
#include <QTreeView>

namespace marvello {

/// A list of results in columns, under group rows. Rows and columns are known by their keys.
class ResultsView : public QTreeView {
    Q_OBJECT
    Q_PROPERTY(QString Tag MEMBER tag_)

  public:
    struct Column {
        QString key;
        QString text;         ///< "name(unit)"
        QString description;  ///< shown as a tool tip
    };
    struct Row {
        QString key;
        QString tag;
        QString label;
        QString mark;        ///< name of the mark, such as "ledgreen"
        QString markText;    ///< what the mark says, for a screen reader
        QStringList values;  ///< one for each column after the first
    };

    explicit ResultsView(QWidget* parent = nullptr);

    /// What the catalogue put there: the description of the columns.
    QString Tag() const { return tag_; }

    /// Takes away all rows and columns.
    void clear();
    /// The first column holds the labels.
    void setColumns(const std::vector<Column>& columns);
    void addGroup(const QString& key, const QString& text);
    void addRow(const Row& row);
    /// Widens every column until neither its header nor a value is cut.
    void fitColumns();

    int rowCount() const { return model_.rowCount(); }
    bool isGroup(int row) const;
    QString key(int row) const;
    QString tag(int row) const;
    QString text(int row, int column) const;
    QString mark(int row) const;
    QStringList columnKeys() const;
    QStringList columnTexts() const;

    /// -1 without a selected row.
    int selectedRow() const;
    /// Selects a row and scrolls to it; nothing for a row that is not there.
    void selectRow(int row);
    /// Selects the row of a key. False when there is none.
    bool selectKey(const QString& key);

  signals:
    /// The selected row changed, by mouse, key or program.
    void rowSelected();

  protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& options,
                 const QModelIndex& index) const override;
    bool viewportEvent(QEvent* event) override;

  private:
    bool isInUse() const;

    QStandardItemModel model_;
    QString tag_;
};

}  // namespace marvello
