#pragma once

#include <QList>
#include <QString>
#include <QWidget>
#include <vector>

class QAbstractButton;

namespace marvello {

/// A row of choices in one frame, one of which is chosen: by a click, or with the arrow keys. In less room
/// than its segments take it scrolls, by the arrows at its ends and by the wheel; what is chosen is always
/// in view.
class SegmentedSelector : public QWidget {
    Q_OBJECT

  public:
    /// Room around the frame for the focus ring.
    static constexpr int ring = 3;
    static constexpr int frameHeight = 28;

    struct Choice {
        QString key;
        QString text;
    };

    explicit SegmentedSelector(QWidget* parent = nullptr);

    /// Takes the choices of the user. What was chosen stays chosen if it is still there, else the first is.
    void setChoices(const QList<Choice>& choices);
    /// The key of the choice; empty without choices.
    QString chosen() const { return chosen_; }
    /// Chooses without chosenByUser(). False for a key that is no choice.
    bool setChosen(const QString& key);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  signals:
    /// The user chose another one.
    void chosenByUser(const QString& key);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    class Segment;
    class End;
    void layOut();
    void scrollTo(int offset);
    void scrollBySegments(int count);
    void bringIntoView(const Segment& segment);
    int rowWidth() const;
    bool isCut() const;

    QString chosen_;
    QWidget* room_;  ///< what is seen of the row
    QWidget* row_;   ///< all segments, moved by what is scrolled
    End* before_;
    End* after_;
    std::vector<Segment*> segments_;
    int offset_ = 0;
};

}  // namespace marvello
