#include "workspace/RowSet.h"

#include <QStringList>
#include <QXmlStreamWriter>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <stdexcept>
#include <string>
#include <utility>

namespace marvello {

namespace {

constexpr int sizeOfDouble = 8;
constexpr int digitsOfDouble = 15;  // those that any decimal number keeps

const QString schemaSpace = QStringLiteral("uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882");
const QString typeSpace = QStringLiteral("uuid:C2F41010-65B3-11d1-A29F-00AA00C14882");
const QString rowsetSpace = QStringLiteral("urn:schemas-microsoft-com:rowset");
const QString rowSpace = QStringLiteral("#RowsetSchema");

/// The shortest text that reads back as the same number, with an exponent for the very small and large.
std::string numberText(double value) {
    const double magnitude = std::abs(value);
    const bool isPlain = magnitude == 0 || (magnitude >= 1e-5 && magnitude < 1e15);
    std::array<char, 32> buffer{};
    const char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                          isPlain ? std::chars_format::fixed : std::chars_format::scientific)
                                .ptr;
    return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
}

/// Whether a field may go by its own name in XML. Narrower than the rules of XML, for readers that are.
bool isPlainName(const QString& name) {
    const auto isLetter = [](QChar sign) {
        return (sign >= u'A' && sign <= u'Z') || (sign >= u'a' && sign <= u'z') || sign == u'_';
    };
    if (name.isEmpty() || !isLetter(name.front())) return false;
    if (name.startsWith(u"xml", Qt::CaseInsensitive)) return false;  // reserved
    return std::ranges::all_of(name, [&](QChar sign) {
        return isLetter(sign) || (sign >= u'0' && sign <= u'9') || sign == u'-' || sign == u'.';
    });
}

/// The names of the attributes of a record: that of the field, or "c" and its number where that will not do.
QStringList attributeNames(const std::vector<RowSet::Field>& fields) {
    QStringList names;
    for (const auto& field : fields)
        names += isPlainName(field.name) && !names.contains(field.name) ? field.name : QString();
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (!names[i].isEmpty()) continue;
        QString name = QStringLiteral("c%1").arg(i + 1);
        while (names.contains(name)) name += u'_';
        names[i] = name;
    }
    return names;
}

/// The text without the control characters that XML cannot hold, and without halves of surrogate pairs.
QString xmlText(QString text) {
    const QChar unknown(QChar::ReplacementCharacter);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar sign = text[i];
        const bool isPair = sign.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        const bool isControl = sign < u' ' && sign != u'\t' && sign != u'\n' && sign != u'\r';
        if (isPair)
            ++i;
        else if (isControl || sign.isSurrogate() || sign > QChar(0xFFFD))
            text[i] = unknown;
    }
    return text;
}

void writeField(QXmlStreamWriter& xml, const RowSet::Field& field, const QString& name, int number) {
    const bool isText = field.type == RowSet::Type::text;
    xml.writeStartElement(schemaSpace, QStringLiteral("AttributeType"));
    xml.writeAttribute(QStringLiteral("name"), name);
    if (name != field.name) xml.writeAttribute(rowsetSpace, QStringLiteral("name"), xmlText(field.name));
    xml.writeAttribute(rowsetSpace, QStringLiteral("number"), QString::number(number));
    xml.writeAttribute(rowsetSpace, QStringLiteral("nullable"), QStringLiteral("true"));
    xml.writeAttribute(rowsetSpace, QStringLiteral("write"), QStringLiteral("true"));
    xml.writeEmptyElement(schemaSpace, QStringLiteral("datatype"));
    xml.writeAttribute(typeSpace, QStringLiteral("type"),
                       isText ? QStringLiteral("string") : QStringLiteral("float"));
    if (isText) xml.writeAttribute(rowsetSpace, QStringLiteral("dbtype"), QStringLiteral("str"));
    xml.writeAttribute(typeSpace, QStringLiteral("maxLength"), QString::number(field.size));
    xml.writeAttribute(rowsetSpace, QStringLiteral("precision"),
                       QString::number(isText ? 0 : digitsOfDouble));
    if (!isText) xml.writeAttribute(rowsetSpace, QStringLiteral("fixedlength"), QStringLiteral("true"));
    xml.writeEndElement();
}

void writeSchema(QXmlStreamWriter& xml, const std::vector<RowSet::Field>& fields, const QStringList& names) {
    xml.writeStartElement(schemaSpace, QStringLiteral("Schema"));
    xml.writeAttribute(QStringLiteral("id"), QStringLiteral("RowsetSchema"));
    xml.writeStartElement(schemaSpace, QStringLiteral("ElementType"));
    xml.writeAttribute(QStringLiteral("name"), QStringLiteral("row"));
    xml.writeAttribute(QStringLiteral("content"), QStringLiteral("eltOnly"));
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const int index = static_cast<int>(i);
        writeField(xml, fields[i], names[index], index + 1);
    }
    xml.writeEmptyElement(schemaSpace, QStringLiteral("extends"));
    xml.writeAttribute(QStringLiteral("type"), QStringLiteral("rs:rowbase"));
    xml.writeEndElement();
    xml.writeEndElement();
}

/// Appends a value to a line. Quotes in a text are doubled, as readers of CSV expect.
void appendCsv(QByteArray& line, const RowSet::Value& value, const QByteArray& decimalPoint) {
    if (const auto* text = std::get_if<QString>(&value)) {
        line += '"';
        line += text->toUtf8().replace('"', "\"\"");
        line += '"';
    } else if (const auto* number = std::get_if<double>(&value)) {
        for (const char sign : numberText(*number)) {
            if (sign == '.')
                line += decimalPoint;
            else
                line += sign;
        }
    }
}

}  // namespace

void RowSet::addText(const QString& name, int size) { fields_.push_back({name, Type::text, size}); }

void RowSet::addNumber(const QString& name) { fields_.push_back({name, Type::number, sizeOfDouble}); }

void RowSet::addRow(std::vector<Value> values) {
    if (values.size() != fields_.size())
        throw std::invalid_argument("A record has not as many values as there are fields.");
    for (std::size_t i = 0; i < values.size(); ++i) {
        Field& field = fields_[i];
        if (const auto* text = std::get_if<QString>(&values[i])) {
            if (field.type != Type::text) throw std::invalid_argument("A field of numbers takes no text.");
            field.size = std::max(field.size, static_cast<int>(text->size()));
        } else if (const auto* number = std::get_if<double>(&values[i])) {
            if (field.type != Type::number) throw std::invalid_argument("A field of texts takes no number.");
            if (!std::isfinite(*number)) values[i] = std::monostate();
        }
    }
    rows_.push_back(std::move(values));
}

QByteArray RowSet::toXml() const {
    const QStringList names = attributeNames(fields_);
    QByteArray result;
    QXmlStreamWriter xml(&result);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(-1);
    xml.writeStartDocument();
    xml.writeNamespace(schemaSpace, QStringLiteral("s"));
    xml.writeNamespace(typeSpace, QStringLiteral("dt"));
    xml.writeNamespace(rowsetSpace, QStringLiteral("rs"));
    xml.writeNamespace(rowSpace, QStringLiteral("z"));
    xml.writeStartElement(QStringLiteral("xml"));
    writeSchema(xml, fields_, names);
    xml.writeStartElement(rowsetSpace, QStringLiteral("data"));
    for (const auto& row : rows_) {
        xml.writeEmptyElement(rowSpace, QStringLiteral("row"));
        for (std::size_t i = 0; i < row.size(); ++i) {
            const QString& name = names[static_cast<qsizetype>(i)];
            if (const auto* text = std::get_if<QString>(&row[i]))
                xml.writeAttribute(name, xmlText(*text));
            else if (const auto* number = std::get_if<double>(&row[i]))
                xml.writeAttribute(name, QString::fromStdString(numberText(*number)));
        }
    }
    xml.writeEndDocument();
    return result;
}

QByteArray RowSet::toCsv(const QLocale& locale) const {
    // A mark that no reader of CSV takes for one is not written.
    const QByteArray decimalPoint = locale.decimalPoint() == u"," ? "," : ".";
    QByteArray text;
    for (std::size_t i = 0; i < fields_.size(); ++i) text += (i == 0 ? "" : ";") + fields_[i].name.toUtf8();
    text += '\n';
    for (const auto& row : rows_) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0) text += ';';
            appendCsv(text, row[i], decimalPoint);
        }
        text += '\n';
    }
    return text;
}

}  // namespace marvello
