#pragma once

#include "controls/Container.h"

class QLabel;
class QScrollArea;

namespace marvello {

class AdvanceText;
class Link;
class ctlBtn;

/// The inputs of a selection form, laid out in rows, with the button that starts the calculation and the help
/// of the field in use. Knows what stands where, and nothing of what the fields mean to one another.
class InputPanel : public Container {
    Q_OBJECT

  public:
    static constexpr int usualCaptionWidth = 112;

    /// `hasFrequency` adds the frequency of an inverter.
    InputPanel(bool hasFrequency, QWidget* parent);

    AdvanceText* lstRefrigerants;
    AdvanceText* lstSeries;
    AdvanceText* lstModels;
    AdvanceText* txtTED;
    AdvanceText* txtTEM;
    AdvanceText* txtPE;
    AdvanceText* txtTCD;
    AdvanceText* txtTCM;
    AdvanceText* txtPC;
    AdvanceText* cmbSh;
    AdvanceText* txtSH;
    AdvanceText* txtSC;
    AdvanceText* cmbEco;
    AdvanceText* txtEco;
    AdvanceText* cmbOilCooling;
    AdvanceText* txtOilCooling;
    AdvanceText* txtFrequency = nullptr;  ///< only of inverters
    AdvanceText* cmbMotorVoltage;
    AdvanceText* cmbMotorSize;
    AdvanceText* cmbMotorRPM;
    AdvanceText* cmbStepCapacity;
    ctlBtn* lnkCalculate;
    Link* lnkDefaults;  ///< gives all inputs their first values again

    /// All inputs, in the order of the panel.
    const QList<AdvanceText*>& fields() const { return fields_; }

    /// Puts values in the place of texts that say them in other words; see AdvanceText::commit.
    void commit();

    /// Sets the width of the captions and lays out.
    void ResizeControls(int captionWidth);
    /// Lays the rows out; to be called when a field was shown or hidden.
    void layOut();

    /// Shows the help of a field; an empty text shows nothing.
    void VisualizzaHelp(const QString& title, const QString& text);

  private:
    AdvanceText* list(const char* name);
    AdvanceText* number(const char* name, bool captioned = true);
    void single(AdvanceText* field);
    void pair(AdvanceText* left, AdvanceText* right);
    void mode(AdvanceText* selector, AdvanceText* value);
    void coupled(AdvanceText* dew, AdvanceText* mid, AdvanceText* pressure);
    void place(AdvanceText* field, int left, int right, int captionWidth);
    void layOutRows(int width);
    void layOutHelp(const QRect& room);
    void makeTabOrder();

    QScrollArea* scroll_;
    QWidget* PicInput_;
    QLabel* rtfHelp_;
    QString helpTitle_;
    QString helpText_;
    QList<AdvanceText*> fields_;
    int captionWidth_;
    int rowTop_ = 0;
    int rowWidth_ = 0;
};

}  // namespace marvello
