#include "controls/NumberText.h"

#include <string>

namespace marvello {

QString plainNumberText(QStringView text) {
    QString plain;
    for (const char32_t sign : text.toUcs4()) {
        if (QChar::category(sign) == QChar::Other_Format) continue;
        if (QChar::category(sign) == QChar::Number_DecimalDigit)
            plain += QChar(u'0' + QChar::digitValue(sign));
        else if (sign == U'\u2212' || sign == U'\uFE63' || sign == U'\uFF0D')
            plain += u'-';
        else if (sign == U'\u066B')
            plain += u'.';
        else
            plain += QChar::isSpace(sign) ? QString(u' ') : QString::fromUcs4(&sign, 1);
    }
    return plain.trimmed();
}

std::optional<double> typedNumber(QStringView text) {
    return localNumber(plainNumberText(text).toStdString());
}

NumberMarks marksOf(const QLocale& locale) {
    return {.minus = locale.negativeSign().toStdString(),
            .point = locale.decimalPoint().toStdString(),
            .group = locale.groupSeparator().toStdString()};
}

QString formatNumber(double value, QStringView pattern, const QLocale& locale) {
    return QString::fromStdString(formatNumber(value, pattern.toString().toStdString(), marksOf(locale)));
}

QString exponentText(double value, const QLocale& locale) {
    return QString::fromStdString(exponentText(value, marksOf(locale)));
}

}  // namespace marvello
