#include "workspace/ResultsList.h"

#include <QStringList>
#include <cmath>
#include <stdexcept>

#include "controls/NumberText.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

/// True when the economised cycle found no solution for the compressor.
bool isStoppedByEconomiser(const clsCompressor& compressor) {
    if (!compressor.Variables.Exist("EcoOK")) return false;
    const clsVariable& variable = compressor.Variables.Item("EcoOK");
    return variable.isNumber() && variable.number() == -1;
}

QString patternOf(const QString& key) {
    if (key == u"cop" || key == u"copeco") return QStringLiteral("#0.00");
    if (key == u"eer" || key == u"ikw/ton") return QStringLiteral("#0.000");
    if (key == u"q0btu" || key == u"qecobtu") return QStringLiteral("#,#");
    return QStringLiteral("#0.0");
}

bool needsEconomiserPort(const QString& key) {
    static const QStringList keys{"qeco", "qecobtu", "ptaeco", "copeco", "caeco", "meco", "peco"};
    return keys.contains(key);
}

double valueOf(clsCompressor& compressor, const QString& key) {
    const clsVariables& variables = compressor.Variables;
    if (needsEconomiserPort(key) && !compressor.Economizer.hasPort()) return 0;
    if (key == u"q0btu") return variables("q0");
    if (key == u"qeco" || key == u"qecobtu") return variables("Q0") + variables("qeco");
    if (key == u"@fla") return compressor.Fla;
    if (key == u"@lra1") return variables("lra1");
    if (key == u"@lra2") return variables("lra2");
    return variables(toCore(key));
}

}  // namespace

clsOutputs readOutputs(const QString& text) {
    clsOutputs outputs;
    for (const QString& piece : text.split(u';', Qt::SkipEmptyParts)) {
        const QStringList parts = piece.split(u'|');
        if (parts.size() < 5) continue;
        const std::string key = toCore(parts[0].trimmed());
        if (key.empty() || outputs.Exist(key)) continue;
        outputs.add(key, toCore(parts[1].trimmed()), toCore(parts[3].trimmed()), toCore(parts[2].trimmed()),
                    {}, parts[4].trimmed().toInt());
    }
    return outputs;
}

bool isShown(int visibility, bool isImperial, bool hasEconomiser) {
    switch (visibility) {
        case 1:
            return hasEconomiser;
        case 2:
            return !hasEconomiser;
        case 3:
            return isImperial;
        case 4:
            return isImperial && hasEconomiser;
        default:
            return true;
    }
}

QString markOf(const clsCompressor& compressor) {
    QString mark = QStringLiteral("ledgreen");
    if (compressor.Messages.Attention.Count() > 0) mark = QStringLiteral("ledorange");
    if (isBlank(compressor)) mark = QStringLiteral("ledred");
    return mark;
}

bool isBlank(const clsCompressor& compressor) {
    return compressor.Messages.Error.Count() > 0 || isStoppedByEconomiser(compressor);
}

QString resultText(clsCompressor& compressor, const QString& key, const QLocale& locale) {
    const QString name = key.toLower();
    if (compressor.Variables.Exist(toCore(name))) {
        const clsVariable& variable = compressor.Variables.Item(toCore(name));
        if (!variable.isNumber()) return fromCore(variable.text());
    }
    const double value = valueOf(compressor, name);
    if (value == 0) return name == u"pra" ? QStringLiteral("0") : QStringLiteral("-");
    return formatNumber(value, patternOf(name), locale);
}

QString nameOf(const clsCompressor& compressor) {
    return fromCore(compressor.Serie) + u'-' + fromCore(compressor.Model);
}

QString nameWithRefrigerant(const clsCompressor& compressor) {
    return nameOf(compressor) + u'-' + fromCore(compressor.Refrigerant);
}

}  // namespace marvello
