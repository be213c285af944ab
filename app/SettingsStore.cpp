#include "app/SettingsStore.h"

#include <QSettings>
#include <QString>
#include <stdexcept>

#include "workspace/UserSettings.h"

namespace marvello {

namespace {

QString keyOf(const std::string& section, const std::string& name) {
    return QString::fromStdString(section + "/" + name);
}

void raiseFailure(const QSettings& settings) {
    if (settings.status() == QSettings::NoError) return;
    const std::string reason =
        settings.status() == QSettings::AccessError ? "cannot be opened" : "is damaged";
    throw std::runtime_error(std::to_string(static_cast<int>(settings.status())) + " - The settings file " +
                             settings.fileName().toStdString() + " " + reason + ".");
}

}  // namespace

std::optional<std::string> readSetting(const std::string& product, const std::string& section,
                                       const std::string& name) {
    const QSettings settings = userSettings(QString::fromStdString(product));
    raiseFailure(settings);
    const QVariant value = settings.value(keyOf(section, name));
    return value.isValid() ? std::optional(value.toString().toStdString()) : std::nullopt;
}

void writeSetting(const std::string& product, const std::string& section, const std::string& name,
                  const std::string& value) {
    QSettings settings = userSettings(QString::fromStdString(product));
    settings.setValue(keyOf(section, name), QString::fromStdString(value));
    settings.sync();
    raiseFailure(settings);
}

}  // namespace marvello
