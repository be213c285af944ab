#pragma once

#include <QListWidget>

namespace marvello {

/// A list of messages, each with its mark; long texts wrap. A page without messages says so in one line.
class MessagesView : public QListWidget {
    Q_OBJECT

  public:
    explicit MessagesView(QWidget* parent = nullptr);

    /// `mark` is a name of Marks.h; `tag` is kept with the row.
    /// `markText` is what the mark says, for a screen reader. `causes` are what failed: the first is a quiet
    /// line below the text, all are its tool tip.
    void addMessage(const QString& mark, const QString& markText, const QString& text, const QString& tag,
                    const QStringList& causes = {});
    void setEmptyText(const QString& text);
    QString tag(int row) const;
    QString mark(int row) const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    QString emptyText_;
};

}  // namespace marvello
