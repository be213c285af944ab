#pragma once

#include <QByteArray>
#include <QLocale>
#include <QString>
#include <variant>
#include <vector>

namespace marvello {

/// Records in memory, each with the same typed fields, to be written to a file that other programs read. The
/// forms of the files are described in docs/exports.md.
class RowSet {
  public:
    /// A value of a record: null, a text or a number.
    using Value = std::variant<std::monostate, QString, double>;
    enum class Type { text, number };
    struct Field {
        QString name;
        Type type;
        int size;  ///< most characters of a text; bytes of a number
    };

    /// A text field. A longer text that comes with a row widens it, so that nothing is cut.
    void addText(const QString& name, int size);
    /// A field of double precision.
    void addNumber(const QString& name);
    /// Values in the order of the fields. A number that is not finite is taken as null. Raises
    /// std::invalid_argument when their count or types are not those of the fields.
    void addRow(std::vector<Value> values);

    const std::vector<Field>& fields() const { return fields_; }
    int rowCount() const { return static_cast<int>(rows_.size()); }

    /// The persistence form of a rowset in XML ([MS-PRSTFR]): its schema, then an element for each record.
    /// Numbers have "." as decimal mark.
    QByteArray toXml() const;
    /// The names of the fields in a line, then a line for each record, separated by ";", in UTF-8. Texts
    /// stand in quotes; numbers have the decimal mark of `locale`, or "." if that is no comma. Lines end with
    /// LF.
    QByteArray toCsv(const QLocale& locale = QLocale()) const;

  private:
    std::vector<Field> fields_;
    std::vector<std::vector<Value>> rows_;
};

}  // namespace marvello
