#pragma once

#include <QString>
#include <QWidget>
#include <vector>

namespace marvello {

/// Values of a point below one another, and a sentence if there is something to say about it.
class ReadOut : public QWidget {
    Q_OBJECT

  public:
    struct Row {
        QString caption;
        QString value;
    };

    explicit ReadOut(QWidget* parent = nullptr);

    void setTitle(const QString& title);
    /// `itsMark`: the mark in front of the note, by its name in Marks.h.
    void setValues(std::vector<Row> rows, const QString& note = QString(),
                   const QString& itsMark = QString());
    const std::vector<Row>& rows() const { return rows_; }
    QString note() const { return note_; }

    /// The width in which no line is cut.
    int fittingWidth() const;
    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QRect noteRoom(int width) const;

    QString title_;
    std::vector<Row> rows_;
    QString note_;
    QString mark_;
};

}  // namespace marvello
