#include "workspace/ApplyFormParameters.h"

#include <QColor>
#include <QFont>
#include <QMetaProperty>
#include <QPalette>
#include <QVariant>
#include <QWidget>
#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

#include "data/ParameterSets.h"
#include "data/Session.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

/// The names under which a set knows properties of the window library.
constexpr std::array<std::pair<const char*, const char*>, 4> otherNames{{
    {"ToolTipText", "toolTip"},
    {"Caption", "text"},
    {"Caption", "title"},
    {"Caption", "windowTitle"},
}};

QMetaProperty propertyOf(const QObject& control, const QString& name) {
    const QMetaObject* meta = control.metaObject();
    // From the last one on: a property of the control itself hides one of the library that differs in case.
    for (int index = meta->propertyCount() - 1; index >= 0; --index)
        if (name.compare(QLatin1String(meta->property(index).name()), Qt::CaseInsensitive) == 0)
            return meta->property(index);
    for (const auto& [alias, own] : otherNames)
        if (name.compare(QLatin1String(alias), Qt::CaseInsensitive) == 0)
            if (const int index = meta->indexOfProperty(own); index >= 0) return meta->property(index);
    return {};
}

/// Nothing for a property that takes no text, such as an icon.
std::optional<ValueKind> kindOf(const QMetaProperty& property) {
    switch (property.metaType().id()) {
        case QMetaType::Bool:
            return ValueKind::boolean;
        case QMetaType::Int:
            return ValueKind::whole;
        case QMetaType::Float:
        case QMetaType::Double:
            return ValueKind::real;
        case QMetaType::QColor:
            return ValueKind::colour;
        case QMetaType::QString:
        case QMetaType::QVariant:  // takes the text as it is
            return ValueKind::text;
        default:
            return {};
    }
}

QColor toQt(const AssignedColour& colour) { return QColor(colour.red, colour.green, colour.blue); }

QVariant toQt(const AssignedValue& value) {
    return std::visit(
        [](const auto& held) -> QVariant {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, AssignedColour>)
                return toQt(held);
            else if constexpr (std::is_same_v<Held, std::string>)
                return fromCore(held);
            else
                return held;
        },
        value);
}

QObject* controlOf(QWidget& form, const QString& name) {
    if (form.objectName().compare(name, Qt::CaseInsensitive) == 0) return &form;
    for (QObject* child : form.findChildren<QObject*>())
        if (child->objectName().compare(name, Qt::CaseInsensitive) == 0) return child;
    return nullptr;
}

void paintWith(QWidget& control, std::initializer_list<QPalette::ColorRole> roles, const QColor& colour) {
    QPalette palette = control.palette();
    for (const QPalette::ColorRole role : roles) palette.setColor(role, colour);
    control.setPalette(palette);
}

/// Properties that every control has, by the names that sets know. Lengths are twips, font sizes points.
constexpr std::array<std::pair<const char*, ValueKind>, 8> standardProperties{{
    {"Tag", ValueKind::text},
    {"BackColor", ValueKind::colour},
    {"ForeColor", ValueKind::colour},
    {"Left", ValueKind::real},
    {"Top", ValueKind::real},
    {"Width", ValueKind::real},
    {"Height", ValueKind::real},
    {"FontSize", ValueKind::real},
}};

bool assignLength(QWidget& control, const QString& name, double number) {
    constexpr double limit = 1e6;
    if (std::abs(number) > limit) return false;
    constexpr double twips = 15;  // to a pixel
    const auto length = static_cast<int>(std::nearbyint(number / twips));
    if (name == u"Left")
        control.move(length, control.y());
    else if (name == u"Top")
        control.move(control.x(), length);
    else if (name == u"Width" && length >= 0)
        control.setFixedWidth(length);
    else if (name == u"Height" && length >= 0)
        control.setFixedHeight(length);
    else if (name == u"FontSize" && number > 0) {
        constexpr double pixelsPerPoint = 96.0 / 72.0;
        QFont font = control.font();
        font.setPixelSize(std::max(1, static_cast<int>(std::nearbyint(number * pixelsPerPoint))));
        control.setFont(font);
    } else {
        return false;
    }
    return true;
}

bool assignStandard(QWidget& control, const QString& property, const QString& text) {
    for (const auto& [known, kind] : standardProperties) {
        const QLatin1String name(known);
        if (property.compare(name, Qt::CaseInsensitive) != 0) continue;
        const auto value = convertedValue(kind, toCore(text));
        if (!value) return false;
        if (kind == ValueKind::real) return assignLength(control, name, std::get<double>(*value));
        if (kind == ValueKind::text) return control.setProperty(known, text), true;
        const QColor colour = toQt(std::get<AssignedColour>(*value));
        if (name == u"ForeColor") {
            paintWith(control, {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}, colour);
        } else {
            paintWith(control, {QPalette::Window, QPalette::Base, QPalette::Button}, colour);
            control.setAutoFillBackground(true);
        }
        return true;
    }
    return false;
}

}  // namespace

bool assignProperty(QObject& control, const QString& property, const QString& value) {
    const QMetaProperty found = propertyOf(control, property);
    if (found.isValid() && found.isWritable()) {
        const auto kind = kindOf(found);
        const auto fitting = kind ? convertedValue(*kind, toCore(value)) : std::nullopt;
        return fitting && found.write(&control, toQt(*fitting));
    }
    auto* const widget = qobject_cast<QWidget*>(&control);
    return widget && assignStandard(*widget, property, value);
}

std::map<QString, ValueKind> assignableProperties(const QObject& control) {
    QStringList names;
    const QMetaObject* meta = control.metaObject();
    for (int index = meta->propertyCount() - 1; index >= 0; --index)
        names += QLatin1String(meta->property(index).name());
    for (const auto& [alias, own] : otherNames) names += QLatin1String(alias);
    std::map<QString, ValueKind> found;
    for (const QString& name : names)
        if (const QMetaProperty property = propertyOf(control, name); property.isWritable())
            if (const auto kind = kindOf(property)) found.emplace(name.toLower(), *kind);
    if (!control.isWidgetType()) return found;
    for (const auto& [name, kind] : standardProperties)
        if (!propertyOf(control, QLatin1String(name)).isWritable())
            found.emplace(QString::fromLatin1(name).toLower(), kind);
    return found;
}

void ApplyFormParameters(const QString& type, const QString& typeKey, const QString& key, QWidget& form) {
    const auto text = [](const std::string& textKey) { return gApplication().DictionaryRead(textKey); };
    std::vector<ParameterAssignment> assignments;
    try {
        assignments = readParameterSet(toCore(type), toCore(typeKey), toCore(key), text);
    } catch (const DatabaseError&) {
        return;  // A set that cannot be read changes nothing.
    }
    for (const ParameterAssignment& assignment : assignments)
        if (QObject* control = controlOf(form, fromCore(assignment.object)))
            assignProperty(*control, fromCore(assignment.property), fromCore(assignment.value));
}

}  // namespace marvello
