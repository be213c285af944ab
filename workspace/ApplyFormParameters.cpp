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
#include <utility>

#include "data/Globals.h"
#include "data/Numbers.h"
#include "data/ParameterSets.h"
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
    for (const auto& [told, own] : otherNames)
        if (name.compare(QLatin1String(told), Qt::CaseInsensitive) == 0)
            if (const int index = meta->indexOfProperty(own); index >= 0) return meta->property(index);
    return {};
}

std::optional<bool> asBoolean(const QString& text) {
    if (text.compare(u"True", Qt::CaseInsensitive) == 0) return true;
    if (text.compare(u"False", Qt::CaseInsensitive) == 0) return false;
    const auto number = storedNumber(toCore(text));
    return number ? std::optional(*number != 0) : std::nullopt;
}

/// "#RRGGBB", or a number whose lowest byte is red.
std::optional<QColor> asColour(const QString& text) {
    if (text.startsWith(u'#')) {
        const QColor colour(text);
        return colour.isValid() ? std::optional(colour) : std::nullopt;
    }
    bool isNumber = false;
    const QString digits = text.startsWith(u"&H", Qt::CaseInsensitive) ? text.mid(2).remove(u'&') : text;
    const uint value = digits.toUInt(&isNumber, digits.size() == text.size() ? 10 : 16);
    if (!isNumber || value > 0xFFFFFF) return std::nullopt;
    return QColor(static_cast<int>(value & 0xFF), static_cast<int>((value >> 8) & 0xFF),
                  static_cast<int>((value >> 16) & 0xFF));
}

QVariant converted(const QMetaProperty& property, const QString& text) {
    switch (property.metaType().id()) {
        case QMetaType::Bool: {
            const auto value = asBoolean(text);
            return value ? QVariant(*value) : QVariant();
        }
        case QMetaType::Int: {
            const auto value = storedNumber(toCore(text));
            constexpr double most = 2147483647.0;
            if (!value || std::abs(*value) > most) return {};
            return static_cast<int>(std::nearbyint(*value));
        }
        case QMetaType::Float:
        case QMetaType::Double: {
            const auto value = storedNumber(toCore(text));
            return value ? QVariant(*value) : QVariant();
        }
        case QMetaType::QColor: {
            const auto value = asColour(text);
            return value ? QVariant(*value) : QVariant();
        }
        case QMetaType::QString:
            return text;
        default:
            // A property of any type takes the text as it is.
            return property.metaType().id() == QMetaType::QVariant ? QVariant(text) : QVariant();
    }
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
bool assignStandard(QWidget& control, const QString& name, const QString& text) {
    const auto is = [&name](const char* known) {
        return name.compare(QLatin1String(known), Qt::CaseInsensitive) == 0;
    };
    if (is("Tag")) return control.setProperty("Tag", text), true;
    if (is("BackColor") || is("ForeColor")) {
        const auto colour = asColour(text);
        if (!colour) return false;
        if (is("ForeColor")) {
            paintWith(control, {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}, *colour);
        } else {
            paintWith(control, {QPalette::Window, QPalette::Base, QPalette::Button}, *colour);
            control.setAutoFillBackground(true);
        }
        return true;
    }
    const auto number = storedNumber(toCore(text));
    constexpr double most = 1e6;
    if (!number || std::abs(*number) > most) return false;
    constexpr double twips = 15;  // to a pixel
    const auto length = static_cast<int>(std::nearbyint(*number / twips));
    if (is("Left"))
        control.move(length, control.y());
    else if (is("Top"))
        control.move(control.x(), length);
    else if (is("Width") && length >= 0)
        control.setFixedWidth(length);
    else if (is("Height") && length >= 0)
        control.setFixedHeight(length);
    else if (is("FontSize") && *number > 0) {
        constexpr double pixelsPerPoint = 96.0 / 72.0;
        QFont font = control.font();
        font.setPixelSize(std::max(1, static_cast<int>(std::nearbyint(*number * pixelsPerPoint))));
        control.setFont(font);
    } else {
        return false;
    }
    return true;
}

}  // namespace

bool assignProperty(QObject& control, const QString& property, const QString& value) {
    const QMetaProperty found = propertyOf(control, property);
    if (found.isValid() && found.isWritable()) {
        const QVariant fitting = converted(found, value);
        return fitting.isValid() && found.write(&control, fitting);
    }
    auto* const widget = qobject_cast<QWidget*>(&control);
    return widget && assignStandard(*widget, property, value);
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
