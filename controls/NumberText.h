#pragma once

#include <QLocale>
#include <QString>
#include <QStringView>
#include <optional>

namespace marvello {

/// Returns `text` with the digits, decimal marks and minus signs of every script as those of ASCII, and
/// without the invisible marks that say in which direction a text is read.
QString plainNumberText(QStringView text);

/// Reads a number that a person typed. "." and "," are both decimal marks whatever the locale, as is the
/// Arabic one, so there is no grouping and two marks are no number; the minus sign may be U+2212, and digits
/// may be those of any script. Reads all that formatNumber writes in any locale without grouping. Returns no
/// value for anything else and for what is not finite.
std::optional<double> typedNumber(QStringView text);

/// `value` through a pattern such as "#0.00" or "#,#": the digits after "." are the decimals ("#" drops
/// trailing zeros), a "0" before it is a digit that is always written, "," asks for grouping. Rounds half
/// away from zero on the 15 digits that a person would see. Writes the marks of `locale` and the digits 0 to
/// 9. A blank pattern gives the value with at most 15 significant digits, with an exponent such as "5e-05"
/// if that is shorter.
QString formatNumber(double value, QStringView pattern, const QLocale& locale = QLocale());

/// `value` with as many digits as tell it from every other double, and always with an exponent: "-1.2E+00".
/// Writes the marks of `locale`.
QString exponentText(double value, const QLocale& locale = QLocale());

/// The marks that a locale writes in a number. Made once for many numbers: each is a text of the locale's.
struct NumberMarks {
    // NOLINTNEXTLINE(google-explicit-constructor): a locale stands for its marks.
    NumberMarks(const QLocale& locale)
        : minus(locale.negativeSign()), point(locale.decimalPoint()), group(locale.groupSeparator()) {}
    QString minus;
    QString point;
    QString group;
};

/// Reads back what formatNumber writes through a pattern, with the marks of the locale and its grouping in
/// threes. Nothing for any other text, such as "-" or a blank.
std::optional<double> shownNumber(QStringView text, const NumberMarks& marks);

}  // namespace marvello
