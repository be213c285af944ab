#include "controls/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace marvello {

namespace {

struct Pattern {
    int decimals = 0;          // most decimals
    int requiredDecimals = 0;  // decimals written even when they are zero
    bool leadingZero = false;
    bool grouped = false;
};

Pattern parsed(QStringView text) {
    Pattern pattern;
    const qsizetype mark = text.indexOf(u'.');
    const QStringView whole = mark < 0 ? text : text.left(mark);
    pattern.leadingZero = whole.contains(u'0');
    pattern.grouped = whole.contains(u',');
    if (mark < 0) return pattern;
    for (const QChar sign : text.mid(mark + 1)) {
        if (sign != u'0' && sign != u'#') continue;
        ++pattern.decimals;
        if (sign == u'0') pattern.requiredDecimals = pattern.decimals;
    }
    return pattern;
}

/// A magnitude as decimal digits: 0.d1d2d3... times ten to `exponent`.
struct Decimal {
    std::string digits;
    int exponent = 0;
};

Decimal decimalOf(double magnitude) {
    std::array<char, 40> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                   std::chars_format::scientific, 14)
                         .ptr;
    const std::string text(buffer.data(), end);  // d.dddddddddddddde+XX
    const std::size_t mark = text.find('e');
    return {text.substr(0, 1) + text.substr(2, mark - 2), std::stoi(text.substr(mark + 1)) + 1};
}

/// The digits of round(value * 10^decimals), half away from zero.
std::string scaledDigits(const Decimal& value, int decimals) {
    const int kept = value.exponent + decimals;
    if (kept < 0) return "0";
    std::string digits = value.digits;
    if (kept >= static_cast<int>(digits.size()))
        return digits.append(static_cast<std::size_t>(kept) - digits.size(), '0');
    const bool up = digits[static_cast<std::size_t>(kept)] >= '5';
    digits = "0" + digits.substr(0, static_cast<std::size_t>(kept));
    for (std::size_t i = digits.size(); up && i-- > 0;) {
        if (digits[i] != '9') {
            ++digits[i];
            break;
        }
        digits[i] = '0';
    }
    return digits;
}

/// `value` as std::to_chars writes its magnitude with `form`, with the marks of `locale`: the same in every
/// locale but for its decimal mark and minus sign.
template <class... Form>
QString plainText(double value, const QLocale& locale, Form... form) {
    std::array<char, 40> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value), form...).ptr;
    QString text = QString::fromLatin1(buffer.data(), end - buffer.data());
    text.replace(u'.', locale.decimalPoint());
    return value < 0 ? locale.negativeSign() + text : text;
}

QString grouped(const QString& whole, const QLocale& locale) {
    QString result;
    for (qsizetype i = 0; i < whole.size(); ++i) {
        if (i > 0 && (whole.size() - i) % 3 == 0) result += locale.groupSeparator();
        result += whole[i];
    }
    return result;
}

bool isDigit(QChar sign) { return sign >= u'0' && sign <= u'9'; }

/// Appends the digits of a whole number that may be grouped in threes; false for any other text.
bool appendUngrouped(QStringView whole, const QString& mark, std::string& digits) {
    qsizetype inGroup = 0;
    bool isGrouped = false;
    for (qsizetype i = 0; i < whole.size();) {
        if (isDigit(whole[i])) {
            digits += static_cast<char>(whole[i].unicode());
            ++inGroup;
            ++i;
            continue;
        }
        if (!whole.mid(i).startsWith(mark)) return false;
        const bool fits = isGrouped ? inGroup == 3 : inGroup >= 1 && inGroup <= 3;
        if (!fits) return false;
        isGrouped = true;
        inGroup = 0;
        i += mark.size();
    }
    return !isGrouped || inGroup == 3;
}

}  // namespace

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
    QString plain = plainNumberText(text);
    plain.replace(u',', u'.');
    if (plain.startsWith(u'+') && !plain.startsWith(u"+-")) plain.remove(0, 1);
    for (const QChar sign : plain)
        if (!isDigit(sign) && !QStringView(u".-+eE").contains(sign)) return std::nullopt;
    const std::string digits = plain.toStdString();
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

QString formatNumber(double value, QStringView pattern, const QLocale& locale) {
    if (!std::isfinite(value)) return {};
    if (pattern.trimmed().isEmpty()) return plainText(value, locale, std::chars_format::general, 15);

    const Pattern shape = parsed(pattern);
    std::string digits = scaledDigits(decimalOf(std::abs(value)), shape.decimals);
    const auto decimals = static_cast<std::size_t>(shape.decimals);
    if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
    std::string whole = digits.substr(0, digits.size() - decimals);
    std::string fraction = digits.substr(digits.size() - decimals);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    while (static_cast<int>(fraction.size()) > shape.requiredDecimals && fraction.back() == '0')
        fraction.pop_back();
    if (whole.empty() && shape.leadingZero) whole = "0";

    const bool isZero = (whole + fraction).find_first_not_of('0') == std::string::npos;
    QString result =
        shape.grouped ? grouped(QString::fromStdString(whole), locale) : QString::fromStdString(whole);
    if (!fraction.empty()) result += locale.decimalPoint() + QString::fromStdString(fraction);
    return value < 0 && !isZero ? locale.negativeSign() + result : result;
}

QString exponentText(double value, const QLocale& locale) {
    return plainText(value, locale, std::chars_format::scientific).toUpper();
}

std::optional<double> shownNumber(QStringView text, const NumberMarks& marks) {
    QStringView shown = text.trimmed();
    std::string plain;  // as from_chars reads it
    if (shown.startsWith(marks.minus)) {
        plain += '-';
        shown = shown.mid(marks.minus.size());
    }
    const qsizetype mark = shown.indexOf(marks.point);
    if (!appendUngrouped(mark < 0 ? shown : shown.left(mark), marks.group, plain)) return std::nullopt;
    plain += '.';
    if (mark >= 0) {
        for (const QChar sign : shown.mid(mark + marks.point.size())) {
            if (!isDigit(sign)) return std::nullopt;
            plain += static_cast<char>(sign.unicode());
        }
    }
    double value = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (error != std::errc() || end != plain.data() + plain.size()) return std::nullopt;
    return value;
}

}  // namespace marvello
