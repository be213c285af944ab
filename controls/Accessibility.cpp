#include "controls/Accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QLineEdit>
#include <QStringList>
#include <memory>
#include <vector>

#include "controls/AdvanceText.h"
#include "controls/FieldNote.h"
#include "controls/ProgressBar.h"
#include "controls/TagBox.h"
#include "controls/ctlGraph.h"

namespace marvello {

namespace {

/// An entry of the list of a field. The list itself exists only while it is open.
class ChoiceEntry : public QAccessibleInterface {
  public:
    ChoiceEntry(QAccessibleInterface* choice, const AdvanceText* field, const QString& key,
                const QString& description)
        : choice_(choice), field_(field), key_(key), description_(description) {}

    bool isValid() const override { return choice_ && choice_->isValid(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return choice_->window(); }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return choice_; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? description_ : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override { return {}; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.selectable = true;
        state.selected = field_->Key().split(u';').contains(key_, Qt::CaseInsensitive);
        state.invisible = true;
        return state;
    }

  private:
    QAccessibleInterface* choice_;
    const AdvanceText* field_;
    QString key_;
    QString description_;
};

/// The line edit of a field with a list.
class Choice : public QAccessibleWidget {
  public:
    Choice(QLineEdit* edit, AdvanceText* field)
        : QAccessibleWidget(edit, QAccessible::ComboBox), edit_(edit), field_(field) {}
    ~Choice() override { forget(); }
    Choice(const Choice&) = delete;
    Choice& operator=(const Choice&) = delete;

    int childCount() const override {
        refresh();
        return static_cast<int>(entries_.size());
    }
    QAccessibleInterface* child(int index) const override {
        refresh();
        if (index < 0 || index >= static_cast<int>(entries_.size())) return nullptr;
        return QAccessible::accessibleInterface(entries_[static_cast<std::size_t>(index)]);
    }
    int indexOfChild(const QAccessibleInterface* entry) const override {
        for (int index = 0; index < childCount(); ++index)
            if (child(index) == entry) return index;
        return -1;
    }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? edit_->text() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = field_->state().isOpen();
        state.collapsed = !state.expanded;
        return state;
    }
    QStringList actionNames() const override { return {showMenuAction(), setFocusAction()}; }
    void doAction(const QString& name) override {
        if (name == showMenuAction() && edit_->isEnabled())
            emit field_->ButtonClick();
        else
            QAccessibleWidget::doAction(name);
    }

  private:
    // The entries change with the choices of the field and with the language.
    void refresh() const {
        if (choices_ == field_->Tag1()) return;
        forget();
        choices_ = field_->Tag1();
        for (const QString& pair : choices_.split(u';', Qt::SkipEmptyParts)) {
            const qsizetype mark = pair.indexOf(u'|');
            auto entry = std::make_unique<ChoiceEntry>(const_cast<Choice*>(this), field_,
                                                       (mark < 0 ? pair : pair.left(mark)).trimmed(),
                                                       mark < 0 ? pair : pair.mid(mark + 1));
            entries_.push_back(QAccessible::registerAccessibleInterface(entry.release()));
        }
    }
    void forget() const {
        for (const QAccessible::Id entry : entries_) QAccessible::deleteAccessibleInterface(entry);
        entries_.clear();
    }

    QLineEdit* edit_;
    AdvanceText* field_;
    mutable QString choices_;
    mutable std::vector<QAccessible::Id> entries_;  // owned by the cache of the platform
};

/// A widget that has nothing but another role.
class Plain : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;
    ~Plain() override = default;
    Plain(const Plain&) = delete;
    Plain& operator=(const Plain&) = delete;
};

class Progress : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit Progress(ProgressBar* bar) : QAccessibleWidget(bar, QAccessible::ProgressBar), bar_(bar) {}
    ~Progress() override = default;
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QVariant currentValue() const override { return bar_->Value(); }
    void setCurrentValue(const QVariant&) override {}
    QVariant maximumValue() const override { return 100; }
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return 1; }

  private:
    ProgressBar* bar_;
};

/// A field that holds several choices.
class Tags : public QAccessibleWidget {
  public:
    explicit Tags(TagBox* box) : QAccessibleWidget(box, QAccessible::ComboBox), box_(box) {}
    ~Tags() override = default;
    Tags(const Tags&) = delete;
    Tags& operator=(const Tags&) = delete;

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? box_->chosen().join(QStringLiteral(", "))
                                          : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = box_->isOpen();
        state.collapsed = !state.expanded;
        state.invalid = box_->isInvalid();
        return state;
    }
    QStringList actionNames() const override { return {showMenuAction(), setFocusAction()}; }
    void doAction(const QString& name) override {
        if (name == showMenuAction())
            box_->open();
        else
            QAccessibleWidget::doAction(name);
    }

  private:
    TagBox* box_;
};

/// The caller owns what is returned; null for a control that Qt knows itself.
QAccessibleInterface* interfaceOf(const QString& className, QObject* object) {
    if (className == u"QLineEdit") {
        auto* edit = qobject_cast<QLineEdit*>(object);
        auto* field = edit ? qobject_cast<AdvanceText*>(edit->parent()) : nullptr;
        return field && field->isChoice() ? std::make_unique<Choice>(edit, field).release() : nullptr;
    }
    const auto plain = [object](QAccessible::Role role) {
        return std::make_unique<Plain>(qobject_cast<QWidget*>(object), role).release();
    };
    if (className == QLatin1String(ctlGraph::staticMetaObject.className())) return plain(QAccessible::Chart);
    if (className == QLatin1String(FieldNote::staticMetaObject.className()))
        return plain(QAccessible::AlertMessage);
    if (className == QLatin1String(TagBox::staticMetaObject.className()))
        return std::make_unique<Tags>(qobject_cast<TagBox*>(object)).release();
    if (className == QLatin1String(ProgressBar::staticMetaObject.className()))
        return std::make_unique<Progress>(qobject_cast<ProgressBar*>(object)).release();
    return nullptr;
}

}  // namespace

void installAccessibility() {
    [[maybe_unused]] static const bool isInstalled = [] {
        QAccessible::installFactory(interfaceOf);
        return true;
    }();
}

void renewAccessibility(QObject* control) {
    if (QAccessibleInterface* known = QAccessible::queryAccessibleInterface(control))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(known));
}

}  // namespace marvello
