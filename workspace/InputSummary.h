#pragma once

#include <QStringList>
#include <QWidget>

namespace marvello {

class InputPanel;
class SelectionInputs;
class ctlBtn;

/// The inputs of a form in one line, with the button that opens them and the button that calculates. Names
/// each input in a few words, the most important first, without those that have their neutral choice. Shows
/// as many as it has room for; its tool tip and its accessible description have all.
class InputSummary : public QWidget {
    Q_OBJECT

  public:
    static constexpr int barHeight = 52;

    InputSummary(const SelectionInputs& inputs, const InputPanel& panel, QWidget* parent);

    void setTexts(const QString& title, const QString& edit, const QString& calculate);
    void setOpen(bool open);
    /// Takes the inputs as they are now.
    void refresh();

  signals:
    void editClicked();
    void calculateClicked();

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void layOut();

    const SelectionInputs& inputs_;
    const InputPanel& panel_;
    QStringList texts_;
    QString editText_;
    ctlBtn* edit_;
    ctlBtn* calculate_;
};

}  // namespace marvello
