#pragma once

#include <QString>

#include "controls/WrapBar.h"

class QLabel;

namespace marvello {

/// The bar above a page: a caption, its controls, and at the right, if there is room left, a sentence.
class PageBar : public WrapBar {
    Q_OBJECT

  public:
    explicit PageBar(QWidget* parent = nullptr);

    void setCaption(const QString& text);
    /// A sentence that does not fit is cut, with a tool tip.
    void setSentence(const QString& text);
    QString sentence() const { return sentence_; }
    void layOut() override;

  private:
    bool captionFits() const;

    QLabel* caption_;
    QLabel* shown_;
    QString sentence_;
};

}  // namespace marvello
