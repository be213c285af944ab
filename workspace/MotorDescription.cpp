#include "workspace/MotorDescription.h"

#include <QRegularExpression>

#include "controls/NumberText.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

QString motorSize(const clsCompressor& compressor) {
    const bool isSmall = compressor.Motor.MotorType == MotorChoice::small;
    const QString size = dictionaryText(isSmall ? QStringLiteral("frmselection.cmbmotorsize.item0")
                                                : QStringLiteral("frmselection.cmbmotorsize.item1"));
    if (!compressor.Motor.isStandard) return size;
    const QString standard = dictionaryText(QStringLiteral("technicaldata.motor.standard"));
    return compressor.hasFullSmallMotor ? QStringLiteral("%1 (%2)").arg(standard, size) : standard;
}

QString startMode(int mode) {
    if (mode == 1) return dictionaryText(QStringLiteral("technicaldata.start.stardelta"));
    return mode == 2 ? dictionaryText(QStringLiteral("technicaldata.start.partwinding"))
                     : QStringLiteral("-");
}

QString supply(const clsMotor& motor) {
    return QStringLiteral("%1/%2/%3").arg(motor.Voltage).arg(motor.Phase).arg(motor.Hz);
}

/// A variable of the calculation, or nothing: a calculation that stopped early has none.
QString shown(const clsVariables& variables, var variable, QStringView pattern) {
    if (!variables.isSet(variable)) return {};
    return formatNumber(variables[variable], pattern);
}

void replace(QString& text, const QString& token, const QString& value) {
    if (!value.isEmpty()) {
        text.replace(token, value, Qt::CaseInsensitive);
        return;
    }
    static const QString withUnit = QStringLiteral("%1(\\s+\\S+)?");
    const QRegularExpression expression(withUnit.arg(QRegularExpression::escape(token)),
                                        QRegularExpression::CaseInsensitiveOption);
    text.remove(expression);
}

}  // namespace

QString MotorDescription(QString text, const clsCompressor& compressor, bool isInverter) {
    const clsMotor& motor = compressor.Motor;
    const clsVariables& variables = compressor.Variables;
    replace(text, QStringLiteral("@cps.motorsize"), motorSize(compressor));
    replace(text, QStringLiteral("@Motor.VoltageDescription"), supply(motor));
    replace(text, QStringLiteral("@Motor.NominalPower"), fromCore(motor.NominalPower));
    replace(text, QStringLiteral("@cps.startmode"), startMode(compressor.StartMode));
    replace(text, QStringLiteral("@Motor.Lra1"), shown(variables, var::Lra1, u"#0"));
    replace(text, QStringLiteral("@Motor.Lra2"), shown(variables, var::Lra2, u"#0"));
    replace(text, QStringLiteral("@Cps.Fla"), shown(variables, var::Fla, u"#"));
    if (isInverter) replace(text, QStringLiteral("@cps.VI"), fromCore(compressor.VI));
    return text;
}

}  // namespace marvello
