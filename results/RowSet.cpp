#include "results/RowSet.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "data/Csv.h"
#include "data/Numbers.h"
#include "data/Texts.h"

namespace marvello {

namespace {

constexpr int sizeOfDouble = 8;
constexpr int digitsOfDouble = 15;  // those that any decimal number keeps

/// The length of a text as the form of the files counts it: in units of UTF-16.
int lengthOf(std::string_view text) {
    int length = 0;
    for (const char sign : text) {
        const auto byte = static_cast<unsigned char>(sign);
        if ((byte & 0xC0U) != 0x80U) length += byte >= 0xF0U ? 2 : 1;
    }
    return length;
}

/// Whether a field may go by its own name in XML. Narrower than the rules of XML, for readers that are.
bool isPlainName(std::string_view name) {
    const auto isLetter = [](char sign) { return (lower(sign) >= 'a' && lower(sign) <= 'z') || sign == '_'; };
    if (name.empty() || !isLetter(name.front())) return false;
    if (equalIgnoringCase(name.substr(0, 3), "xml")) return false;  // reserved
    return std::ranges::all_of(name, [&](char sign) {
        return isLetter(sign) || (sign >= '0' && sign <= '9') || sign == '-' || sign == '.';
    });
}

/// The names of the attributes of a record: that of the field, or "c" and its number where that will not do.
std::vector<std::string> attributeNames(const std::vector<RowSet::Field>& fields) {
    std::vector<std::string> names;
    const auto isTaken = [&names](const std::string& name) {
        return std::ranges::find(names, name) != names.end();
    };
    for (const auto& field : fields)
        names.push_back(isPlainName(field.name) && !isTaken(field.name) ? field.name : std::string());
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (!names[i].empty()) continue;
        std::string name = "c" + std::to_string(i + 1);
        while (isTaken(name)) name += '_';
        names[i] = name;
    }
    return names;
}

/// ` name="value"`, with a replacement character for what XML cannot hold.
std::string attribute(std::string_view name, std::string_view value) {
    constexpr std::string_view replacement = "\uFFFD";
    std::string text = ' ' + std::string(name) + "=\"";
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char sign = value[i];
        if (value.substr(i, 3) == "\uFFFE" || value.substr(i, 3) == "\uFFFF") {
            text += replacement;
            i += 2;
        } else if (sign == '<') {
            text += "&lt;";
        } else if (sign == '>') {
            text += "&gt;";
        } else if (sign == '&') {
            text += "&amp;";
        } else if (sign == '"') {
            text += "&quot;";
        } else if (sign == '\t' || sign == '\n' || sign == '\r') {
            text += "&#" + std::to_string(static_cast<int>(sign)) + ';';
        } else if (sign >= 0 && sign < ' ') {
            text += replacement;
        } else {
            text += sign;
        }
    }
    return text + '"';
}

std::string schemaOf(const RowSet::Field& field, const std::string& name, std::size_t number) {
    const bool isText = field.type == RowSet::Type::text;
    std::string xml = "\t\t\t<s:AttributeType" + attribute("name", name);
    if (name != field.name) xml += attribute("rs:name", field.name);
    xml += attribute("rs:number", std::to_string(number)) + attribute("rs:nullable", "true") +
           attribute("rs:write", "true") + ">\n\t\t\t\t<s:datatype" +
           attribute("dt:type", isText ? "string" : "float");
    if (isText) xml += attribute("rs:dbtype", "str");
    xml += attribute("dt:maxLength", std::to_string(field.size)) +
           attribute("rs:precision", std::to_string(isText ? 0 : digitsOfDouble));
    if (!isText) xml += attribute("rs:fixedlength", "true");
    return xml + "/>\n\t\t\t</s:AttributeType>\n";
}

std::string recordOf(const std::vector<RowSet::Value>& row, const std::vector<std::string>& names) {
    std::string xml = "\t\t<z:row";
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (const auto* text = std::get_if<std::string>(&row[i])) xml += attribute(names[i], *text);
        if (const auto* number = std::get_if<double>(&row[i])) xml += attribute(names[i], plainText(*number));
    }
    return xml + "/>\n";
}

/// A value as a field of CSV; null is empty.
std::string csvOf(const RowSet::Value& value, std::string_view point) {
    if (const auto* text = std::get_if<std::string>(&value)) return csvQuoted(*text);
    const auto* number = std::get_if<double>(&value);
    return number ? plainText(*number, point) : std::string();
}

}  // namespace

void RowSet::addText(const std::string& name, int size) { fields_.push_back({name, Type::text, size}); }

void RowSet::addNumber(const std::string& name) { fields_.push_back({name, Type::number, sizeOfDouble}); }

void RowSet::addRow(std::vector<Value> values) {
    if (values.size() != fields_.size())
        throw std::invalid_argument("A record has not as many values as there are fields.");
    for (std::size_t i = 0; i < values.size(); ++i) {
        Field& field = fields_[i];
        if (const auto* text = std::get_if<std::string>(&values[i])) {
            if (field.type != Type::text) throw std::invalid_argument("A field of numbers takes no text.");
            field.size = std::max(field.size, lengthOf(*text));
        } else if (const auto* number = std::get_if<double>(&values[i])) {
            if (field.type != Type::number) throw std::invalid_argument("A field of texts takes no number.");
            if (!std::isfinite(*number)) values[i] = std::monostate();
        }
    }
    rows_.push_back(std::move(values));
}

std::string RowSet::toXml() const {
    const std::vector<std::string> names = attributeNames(fields_);
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xml" +
                      attribute("xmlns:s", "uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882") +
                      attribute("xmlns:dt", "uuid:C2F41010-65B3-11d1-A29F-00AA00C14882") +
                      attribute("xmlns:rs", "urn:schemas-microsoft-com:rowset") +
                      attribute("xmlns:z", "#RowsetSchema") +
                      ">\n\t<s:Schema id=\"RowsetSchema\">\n"
                      "\t\t<s:ElementType name=\"row\" content=\"eltOnly\">\n";
    for (std::size_t i = 0; i < fields_.size(); ++i) xml += schemaOf(fields_[i], names[i], i + 1);
    xml += "\t\t\t<s:extends type=\"rs:rowbase\"/>\n\t\t</s:ElementType>\n\t</s:Schema>\n";
    if (rows_.empty()) return xml + "\t<rs:data/>\n</xml>\n";
    xml += "\t<rs:data>\n";
    for (const auto& row : rows_) xml += recordOf(row, names);
    return xml + "\t</rs:data>\n</xml>\n";
}

std::string RowSet::toCsv(std::string_view point) const {
    // A mark that no reader of CSV takes for one is not written.
    const std::string_view written = point == "," ? "," : ".";
    constexpr char separator = ';';
    std::vector<std::string> line;
    for (const Field& field : fields_) line.push_back(field.name);
    std::string text = csvJoined(line, separator);
    for (const auto& row : rows_) {
        line.clear();
        for (const Value& value : row) line.push_back(csvOf(value, written));
        text += csvJoined(line, separator);
    }
    return text;
}

}  // namespace marvello
