#pragma once

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QPointer>
#include <QVariant>
#include <QWidget>
#include <functional>
#include <optional>

#include "controls/FieldFrame.h"
#include "controls/FieldState.h"

class QLineEdit;

namespace marvello {

class FieldNote;

/// What a text that is being typed comes to.
struct TypedReading {
    std::optional<double> value{};  ///< in the unit of the field; none if the text is no number yet
    bool isPlain = true;            ///< a bare number, which says itself what it means
    bool isUnfinished = true;       ///< no number, but more typing may make it one
};

/// The program's one input: a caption, a box with a value and its unit, and an optional button that opens a
/// list.
///
/// Sizes are logical pixels. The widget is `halo` wider than its parts on every side, which is where the
/// focus halo is painted. Colours and fonts that are not set follow the look.
class AdvanceText : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString Help MEMBER help_)
    Q_PROPERTY(QString HelpKey MEMBER helpKey_)
    Q_PROPERTY(bool Locked READ Locked WRITE SetLocked)
    Q_PROPERTY(WId hWnd READ winId)
    Q_PROPERTY(QString Tag1 READ Tag1 WRITE SetTag1)
    Q_PROPERTY(bool Enabled READ isEnabled WRITE setEnabled)
    Q_PROPERTY(QString Key READ Key WRITE SetKey)
    Q_PROPERTY(QString OldKey READ OldKey)
    Q_PROPERTY(bool CaptionVisible MEMBER captionVisible_ NOTIFY partsChanged)
    Q_PROPERTY(QString CaptionText READ CaptionText WRITE SetCaptionText)
    Q_PROPERTY(QColor CaptionForeColor MEMBER captionForeColor_ NOTIFY partsChanged)
    Q_PROPERTY(QColor CaptionBackColor MEMBER captionBackColor_ NOTIFY partsChanged)
    Q_PROPERTY(QFont CaptionFont MEMBER captionFont_ NOTIFY partsChanged)
    Q_PROPERTY(int CaptionAlignment MEMBER captionAlignment_ NOTIFY partsChanged)
    Q_PROPERTY(int CaptionWidth MEMBER captionWidth_ NOTIFY partsChanged)
    Q_PROPERTY(bool UnitCaptionVisible MEMBER unitCaptionVisible_ NOTIFY partsChanged)
    Q_PROPERTY(QString UnitCaptiontext READ UnitCaptiontext WRITE SetUnitCaptiontext)
    Q_PROPERTY(QColor UnitCaptionForeColor MEMBER unitCaptionForeColor_ NOTIFY partsChanged)
    Q_PROPERTY(QColor UnitCaptionBackColor MEMBER unitCaptionBackColor_ NOTIFY partsChanged)
    Q_PROPERTY(QFont UnitCaptionFont MEMBER unitCaptionFont_ NOTIFY partsChanged)
    Q_PROPERTY(int UnitCaptionAlignment MEMBER unitCaptionAlignment_ NOTIFY partsChanged)
    Q_PROPERTY(int UnitCaptionWidth MEMBER unitCaptionWidth_ NOTIFY partsChanged)
    Q_PROPERTY(bool ButtonVisible MEMBER buttonVisible_ NOTIFY partsChanged)
    Q_PROPERTY(QColor ButtonBackCOlor MEMBER buttonBackColor_ NOTIFY partsChanged)
    Q_PROPERTY(QColor ButtonForeColor MEMBER buttonForeColor_ NOTIFY partsChanged)
    Q_PROPERTY(QColor ButtonBackColorOnCLick MEMBER buttonBackColorOnClick_ NOTIFY partsChanged)
    Q_PROPERTY(QPixmap ButtonPicture READ ButtonPicture WRITE SetButtonPicture)
    Q_PROPERTY(int ButtonWidth MEMBER buttonWidth_ NOTIFY partsChanged)
    Q_PROPERTY(QFont TextFont MEMBER textFont_ NOTIFY partsChanged)
    Q_PROPERTY(QColor TextForeColor MEMBER textForeColor_ NOTIFY partsChanged)
    Q_PROPERTY(QColor TextBackColor MEMBER textBackColor_ NOTIFY partsChanged)
    Q_PROPERTY(QColor TextBordersColor MEMBER textBordersColor_ NOTIFY partsChanged)
    Q_PROPERTY(QVariant TextValue READ TextValue WRITE SetTextValue)
    Q_PROPERTY(QString TextText READ TextText WRITE SetTextText)
    Q_PROPERTY(QString TextFormat READ TextFormat WRITE SetTextFormat)
    Q_PROPERTY(int TextType READ TextType WRITE SetTextType)
    Q_PROPERTY(double TextMax MEMBER textMax_)
    Q_PROPERTY(double TextMin MEMBER textMin_)
    Q_PROPERTY(int TextMaxLenght READ TextMaxLenght WRITE SetTextMaxLenght)
    Q_PROPERTY(double TextLeft READ TextLeft)
    Q_PROPERTY(double TextWidth READ TextWidth)
    Q_PROPERTY(int TextAlignment READ TextAlignment WRITE SetTextAlignment)
    Q_PROPERTY(bool Derived READ Derived WRITE SetDerived)

  public:
    static constexpr int halo = FieldFrame::halo;
    static constexpr int boxHeight = 28;
    /// What KeyPress reports for both Enter keys: the carriage return.
    static constexpr int enterCode = 13;

    explicit AdvanceText(QWidget* parent = nullptr);
    ~AdvanceText() override;

    bool Locked() const { return locked_; }
    /// A locked field takes no typing: a key opens its list instead.
    void SetLocked(bool locked);

    /// True if values are chosen from a list.
    bool isChoice() const { return locked_ && buttonVisible_; }
    /// Takes the name for a screen reader from the selector that says how the value is meant.
    void SetNamedBy(AdvanceText* selector);

    /// The choices, "key|description;key|description".
    QString Tag1() const { return tag1_; }
    void SetTag1(const QString& choices) { tag1_ = choices; }

    QString Key() const { return key_; }
    QString OldKey() const { return oldKey_; }
    /// Sets the key and emits KeyChange.
    void SetKey(const QString& key);
    /// Sets the key without raising KeyChange; OldKey keeps the one before.
    void setkey(const QString& key);

    QString CaptionText() const { return captionText_; }
    void SetCaptionText(const QString& text);
    QString UnitCaptiontext() const { return unitCaptionText_; }
    void SetUnitCaptiontext(const QString& text);

    QPixmap ButtonPicture() const { return buttonPicture_; }
    void SetButtonPicture(const QPixmap& picture);

    /// The value: for TextType 1 a double, 0 when the stored text is no number; otherwise what was stored.
    QVariant TextValue() const;
    /// Stores the value, as a double when TextType is 1 and it is numeric, and shows it through TextFormat.
    /// Never emits TextChange.
    void SetTextValue(const QVariant& value);
    /// The value as a double, 0 when it is no number.
    double number() const;

    /// What the box shows.
    QString TextText() const;
    void SetTextText(const QString& text);

    QString TextFormat() const { return textFormat_; }
    void SetTextFormat(const QString& format);
    /// 1 is numeric, anything else free text.
    int TextType() const { return textType_; }
    void SetTextType(int type);
    int TextMaxLenght() const;
    void SetTextMaxLenght(int length);
    double TextLeft() const;
    double TextWidth() const;
    /// 0 left, 1 right, 2 centre.
    int TextAlignment() const { return textAlignment_; }
    void SetTextAlignment(int alignment);

    /// A value that the program worked out from another field; shown quieter.
    bool Derived() const { return derived_; }
    void SetDerived(bool derived);

    /// The list of the field is open: the button is shown pressed.
    void setOpen(bool open);
    /// How the field looks in use, by mouse, list and focus.
    const FieldState& state() const { return state_; }

    /// Reads what is typed, for fields that take more than a bare number.
    using Reader = std::function<TypedReading(const QString& text)>;
    void SetReader(Reader reader) { reader_ = std::move(reader); }
    /// Puts the value in the place of a text that says it in other words, such as one with another unit, and
    /// emits TextChange for it. Does nothing for a bare number and for a text that is no number.
    void commit();

    /// Painted as invalid: no number, out of its range, or refused by the owner.
    bool isInvalid() const { return !complaint().isEmpty(); }
    /// The owner's reason why the value cannot be used; blank takes it back, and so does typing.
    void SetRefusal(const QString& reason);
    const QString& Refusal() const { return fault_.text(FieldFault::Reason::refused); }
    /// What the owner has to say against the value, which will be put right before it is used; blank takes it
    /// back.
    void SetRemark(const QString& text);
    /// What is wrong with the value, as said next to the field while it is in use, and in its tool tip.
    QString complaint() const { return fault_.text(); }
    /// A derived value that cannot be had: shown as a dash, and no fault of the field.
    void SetUnknown();
    bool isUnknown() const { return unknown_; }

    /// Whether the tab key stops here.
    void setTabStop(bool stop);
    /// The box with its button, in global coordinates.
    QRect globalBox() const;

    /// Lays out the parts.
    void Refresh();

    /// Checks the value as on leaving the box, with the same messages. False when leaving is refused.
    bool validate();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  signals:
    void ButtonClick();
    void TextGotFocus();
    /// The focus went to another control of the same form, and the check of the value let it go. A menu,
    /// another window or program and the closing of the form only borrow the focus.
    void TextLostFocus();
    /// Emitted at the end of a check; the owner sets `cancel` to refuse the value.
    void TextValidate(bool& cancel);
    /// Emitted for the user's typing only, never by a write of the program.
    void TextChange();
    void KeyChange(const QString& oldKey, const QString& newKey);
    void KeyPress(int keyAscii);
    void KeyUp(int keyCode, int shift);
    void UnitCaptionTextChange(const QString& text);
    void partsChanged();
    /// The caption, or what the box shows, is another.
    void described();

  protected:
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    bool handleKeyPress(int key, const QString& text, Qt::KeyboardModifiers modifiers);
    void gotFocus(Qt::FocusReason reason);
    void leave();
    void takeTyping(const QString& text);
    TypedReading read(const QString& text) const;
    void apply(FieldState::Event event);
    bool isUnderPointer() const;
    bool checkNumber();
    void showText(const QString& text);
    void showValue();
    void selectText();
    /// TextMin and TextMax both 0: no limits.
    bool isLimited() const { return textMin_ != 0 || textMax_ != 0; }
    bool isInRange(double value) const;
    void checkRange();
    void applyColours();
    void describe();
    void showNote();
    QString limitsText() const;
    /// What a text in other words comes to, as "45 F = 7.22 °C"; empty for a bare number.
    QString readingText() const;

    QRectF boxRect() const;
    QRectF buttonRect() const;
    QRectF unitRect() const;
    QRectF captionRect() const;
    std::optional<double> storedNumber() const;
    void paintBox(QPainter& painter) const;
    void paintCaption(QPainter& painter) const;
    void paintUnit(QPainter& painter) const;
    void paintButton(QPainter& painter) const;

    QLineEdit* edit_;
    QString help_;
    QString helpKey_;
    QString tag1_;
    QString key_;
    QString oldKey_;
    QString captionText_;
    QString unitCaptionText_;
    QString textFormat_;
    QVariant value_ = QString();
    QColor captionForeColor_;
    QColor captionBackColor_;
    QColor unitCaptionForeColor_;
    QColor unitCaptionBackColor_;
    QColor buttonBackColor_;
    QColor buttonForeColor_;
    QColor buttonBackColorOnClick_;
    QColor textForeColor_;
    QColor textBackColor_;
    QColor textBordersColor_;
    QFont captionFont_;
    QFont unitCaptionFont_;
    QFont textFont_;
    QPixmap buttonPicture_;
    double textMax_ = 0;
    double textMin_ = 0;
    int captionWidth_ = 112;
    int captionAlignment_ = 0;
    int unitCaptionWidth_ = 48;
    int unitCaptionAlignment_ = 0;
    int buttonWidth_ = 26;
    int textType_ = 0;
    int textAlignment_ = 0;
    bool captionVisible_ = true;
    bool unitCaptionVisible_ = false;
    bool buttonVisible_ = false;
    bool locked_ = false;
    bool derived_ = false;
    bool wasChoice_ = false;  // as screen readers know the field
    bool unknown_ = false;
    bool isInUse_ = false;  // from gaining the focus until leaving for another control of the form
    Reader reader_;
    FieldState state_;
    FieldFault fault_;
    QPointer<AdvanceText> namedBy_;
    QPointer<FieldNote> note_;  // belongs to the window of the field
};

}  // namespace marvello
