#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace marvello {

/// Records in memory, each with the same typed fields, to be written to a file that other programs read. The
/// forms of the files are described in docs/exports.md.
class RowSet {
  public:
    /// A value of a record: null, a text or a number.
    using Value = std::variant<std::monostate, std::string, double>;
    enum class Type { text, number };
    struct Field {
        std::string name;
        Type type;
        int size;  ///< maximum length of a text in units of UTF-16; bytes of a number
    };

    /// A text field. A longer text that comes with a row widens it, so that nothing is cut.
    void addText(const std::string& name, int size);
    /// A field of double precision.
    void addNumber(const std::string& name);
    /// Values in the order of the fields. A number that is not finite is taken as null. Throws
    /// std::invalid_argument unless their count and types are those of the fields.
    void addRow(std::vector<Value> values);

    const std::vector<Field>& fields() const { return fields_; }
    int rowCount() const { return static_cast<int>(rows_.size()); }

    /// The persistence form of a rowset in XML ([MS-PRSTFR]): its schema, then an element for each record.
    /// Numbers have "." as decimal mark.
    std::string toXml() const;
    /// The names of the fields in a line, then a line for each record, separated by ";", in UTF-8. Texts are
    /// in quotes; numbers have the decimal mark `point` if that is a comma, otherwise ".". Lines end with LF.
    std::string toCsv(std::string_view point = ".") const;

  private:
    std::vector<Field> fields_;
    std::vector<std::vector<Value>> rows_;
};

}  // namespace marvello
