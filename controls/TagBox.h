#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <vector>

#include "controls/FieldFrame.h"
#include "controls/RowDetail.h"

namespace marvello {

class ctlCombo;

/// A field that holds several of a list of choices, each as a tag that its cross takes off. Backspace takes
/// the last one off; the chevron, Space and the down key open the list with check boxes. Without a tag the
/// field is invalid. It has `FieldFrame::halo` around its parts, as other fields do.
class TagBox : public QWidget {
    Q_OBJECT

  public:
    /// More lines of tags than this end in a tag with the number of the others.
    static constexpr int maxLines = 3;

    explicit TagBox(QWidget* parent = nullptr);

    void setCaption(const QString& caption, int width);
    QString caption() const { return caption_; }
    /// The text of the row of the list that takes what is checked.
    void setApplyText(const QString& text) { applyText_ = text; }
    /// The text of the row of the list that stands for all choices.
    void setAllText(const QString& text) { allText_ = text; }
    /// The text in the box while it has no tag.
    void setEmptyText(const QString& text);
    using Details = std::function<RowDetail(const QString& key)>;
    /// The keys, which are the texts too, and what the rows of the list say besides.
    void setChoices(const QStringList& keys, const Details& details = {});
    /// The keys of the tags. Keys that are not offered have no tag.
    void setChosen(const QStringList& keys);
    QStringList chosen() const { return chosen_; }
    bool isInvalid() const { return chosen_.isEmpty(); }
    bool isOpen() const;
    /// Opens the list.
    void open();

    int heightForWidth(int width) const override;
    QSize sizeHint() const override;

  signals:
    /// The user took tags off or chose others.
    void chosenByUser();
    void gotFocus();

  protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    struct Tag {
        QString text;
        QRect place;
        bool isRest;  ///< says how many more there are
    };
    QRect boxFor(int width, int height) const;
    QRect box() const { return boxFor(width(), height()); }
    std::vector<Tag> tagsIn(int width) const;
    QRect crossOf(const Tag& tag) const;
    /// The tag whose cross is at a place, -1 without one.
    int crossAt(const QPoint& at) const;
    RowDetail detailOf(const QString& key) const;
    void takeOff(qsizetype tag);
    void choose(const QStringList& keys);
    void fillList();

    QString caption_;
    int captionWidth_ = 0;
    QString applyText_;
    QString allText_;
    QString emptyText_;
    QStringList choices_;
    Details details_;
    QStringList chosen_;
    ctlCombo* combo_ = nullptr;  ///< made at its first opening
    int hovered_ = -1;           ///< the tag whose cross is under the mouse
    int pressed_ = -1;
};

}  // namespace marvello
