#pragma once

#include <QWidget>

namespace marvello {

class Link;

/// What is next to the inputs while there is no list: a drawing and one sentence. In the sentence "{0}"
/// is the name of the button, "{1}" the key, which is drawn as a chip, and "{2}" the input that was edited.
class EmptyPage : public QWidget {
    Q_OBJECT

  public:
    explicit EmptyPage(QWidget* parent = nullptr);

    void setTexts(const QString& title, const QString& sentence, const QString& button, const QString& key,
                  const QString& edited = QString());
    /// Shows links below the sentence; a blank text keeps the number of a link that is not there.
    void setLinks(const QStringList& texts);

  signals:
    void linkClicked(int link);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    /// A piece of the sentence that stays on one line.
    struct Word {
        QString text;
        enum class Kind { plain, strong, key } kind;
        double width = 0;
    };
    static double widthOf(const Word& word);
    void paintDrawing(QPainter& painter, const QPointF& topLeft) const;
    void paintLine(QPainter& painter, const QList<Word>& line, double top) const;
    QList<QList<Word>> wrapped(double width) const;
    QList<QList<Word>> wrappedHere() const;
    double topOf(qsizetype lines) const;
    void placeLinks();

    QStringList texts_{QString()};  ///< that were set; the first is the title
    QList<Word> words_;
    QList<Link*> links_;
};

}  // namespace marvello
