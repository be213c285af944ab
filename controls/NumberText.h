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

/// Reads a number that a person typed. "." and "," are both decimal marks whatever the locale, as is the
/// Arabic one, so there is no grouping and two marks are no number; the minus sign may be U+2212, and digits
/// may be those of any script. Reads all that formatNumber writes in any locale without grouping. Returns no
/// value for anything else and for what is not finite.
std::optional<double> typedNumber(QStringView text);

/// Returns the marks that a locale writes in a number.
NumberMarks marksOf(const QLocale& locale);

/// formatNumber and exponentText of data/Numbers.h with the marks of a locale.
QString formatNumber(double value, QStringView pattern, const QLocale& locale = QLocale());
QString exponentText(double value, const QLocale& locale = QLocale());

}  // namespace marvello
