#pragma once

#include <QStringList>
#include <QWidget>
#include <functional>

namespace marvello {

class InputPanel;
class ctlBtn;

/// What the inputs of a panel are, in a few words each, the most important first. Inputs that are at their
/// neutral choice are left out.
QStringList summaryOf(const InputPanel& panel);

/// The inputs of a form in one line, with the button that opens them and the button that calculates. Shows as
/// many of the inputs as it has room for; its tool tip and its accessible description have all.
class InputSummary : public QWidget {
    Q_OBJECT

  public:
    static constexpr int barHeight = 52;

    /// `inputs` says what the inputs are now, the most important first; asked whenever the line is painted.
    InputSummary(std::function<QStringList()> inputs, QWidget* parent);

    void setTexts(const QString& title, const QString& edit, const QString& calculate);
    void setOpen(bool open);

  signals:
    void editClicked();
    void calculateClicked();

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void layOut();

    std::function<QStringList()> inputs_;
    QString editText_;
    ctlBtn* edit_;
    ctlBtn* calculate_;
};

}  // namespace marvello
