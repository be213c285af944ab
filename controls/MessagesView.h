#pragma once

#include <QListWidget>

#include "controls/AdviceLine.h"

namespace marvello {

/// A list of messages, each with its mark; long texts wrap. A page without messages says so in one line.
/// Below a message may be lines of what can be done about it; their links follow the list in the order of
/// the tab key.
class MessagesView : public QListWidget {
    Q_OBJECT

  public:
    explicit MessagesView(QWidget* parent = nullptr);
    ~MessagesView() override;

    /// `mark` is a name of Marks.h; `tag` is kept with the row.
    /// `markText` is what the mark says, for a screen reader. `causes` are what failed: the first is a quiet
    /// line below the text, all are its tool tip. `distance` is by how much it is missed, at the right.
    void addMessage(const QString& mark, const QString& markText, const QString& text, const QString& tag,
                    const QStringList& causes = {}, const QString& distance = {});
    /// Shows lines below the message with this mark and tag. The link of line i emits used(mark, tag, i).
    void setAdvice(const QString& mark, const QString& tag, const QList<AdviceLine::Texts>& lines);
    /// Shows a quiet sentence below all messages.
    void setNote(const QString& note);
    void setEmptyText(const QString& text);
    QString tag(int row) const;
    QString mark(int row) const;

  signals:
    void used(const QString& mark, const QString& tag, int line);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void addLine(int row, AdviceLine* line);
    void layOutLines();

    QString emptyText_;
    AdviceLine::Columns columns_;
};

}  // namespace marvello
