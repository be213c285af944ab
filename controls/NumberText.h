#pragma once

#include <QLocale>
#include <QString>
#include <QStringView>
#include <optional>

#include "data/Numbers.h"

namespace marvello {

/// Returns `text` with the digits, decimal marks and minus signs of every script as those of ASCII, and
/// without the invisible marks that say in which direction a text is read.
QString plainNumberText(QStringView text);

/// Reads with localNumber what a person typed in the digits and signs of any script, such as all that
/// formatNumber writes in any locale without grouping.
std::optional<double> typedNumber(QStringView text);

/// Returns the marks that a locale writes in a number.
NumberMarks marksOf(const QLocale& locale);

/// formatNumber and exponentText of data/Numbers.h with the marks of a locale.
QString formatNumber(double value, QStringView pattern, const QLocale& locale = QLocale());
QString exponentText(double value, const QLocale& locale = QLocale());

}  // namespace marvello
