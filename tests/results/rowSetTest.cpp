// The files of record sets, read back by parsers that are not ours.

#include "results/RowSet.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <limits>
#include <stdexcept>

#include "tests/support/ReadExport.h"

using namespace marvello;
using namespace marvello::testing;

namespace {

class RowSetTest : public ::testing::Test {
  protected:
    QJsonObject read(const RowSet& records, const char* name, const char* point = ".") {
        QFile file(QDir(folder.path()).filePath(QLatin1String(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray::fromStdString(file.fileName().endsWith(".xml") ? records.toXml()
                                                                              : records.toCsv(point)));
        file.close();
        return readExport(file.fileName());
    }

    QTemporaryDir folder;
};

const std::string awkward("a<b> & \"c\"; 'd'\té\n压缩机 😀");
const QString awkwardText = QString::fromStdString(awkward);

}  // namespace

TEST_F(RowSetTest, XmlKeepsFieldsTypesAndTexts) {
    RowSet records;
    records.addText("Model", 10);
    records.addNumber("ikw/ton");
    records.addNumber("c2");      // the name that the field before it would get
    records.addText("Model", 3);  // twice the same name
    records.addNumber("@Fla");
    records.addNumber("Größe <1>");
    records.addRow({awkward, 0.939, 1.0, std::string("abcdef"), 53.0, 2.0});
    records.addRow({std::string(), std::monostate(), -0.5, std::monostate(), 0.0, std::monostate()});
    const QJsonObject file = read(records, "a.xml");
    const int length = static_cast<int>(awkwardText.size());
    EXPECT_EQ(shown(fieldsOf(file)),
              shown(QJsonArray{QJsonArray{"Model", "string", length}, QJsonArray{"ikw/ton", "float", 8},
                               QJsonArray{"c2", "float", 8}, QJsonArray{"Model", "string", 6},
                               QJsonArray{"@Fla", "float", 8},
                               QJsonArray{QString::fromUtf8("Größe <1>"), "float", 8}}));
    EXPECT_EQ(shown(rowsOf(file)),
              shown(QJsonArray{QJsonArray{awkwardText, 0.939, 1.0, "abcdef", 53.0, 2.0},
                               QJsonArray{"", QJsonValue(), -0.5, QJsonValue(), 0.0, QJsonValue()}}));

    // What XML cannot hold at all is replaced, and the file can still be read.
    RowSet broken;
    broken.addText("Model", 10);
    broken.addRow(
        {std::string("1\x01\x0b"
                     "2\uFFFF")});
    EXPECT_EQ(rowsOf(read(broken, "b.xml"))[0][0].toString(), QStringLiteral("1\uFFFD\uFFFD2\uFFFD"));
}

TEST_F(RowSetTest, NumbersReadBackExactly) {
    using Limits = std::numeric_limits<double>;
    // clang-format off
    const std::vector<double> numbers{0.0, -0.1, 300000, 1.0 / 3, 123456789.123456, 5e-05, -1.25e-7, 1e15, 2.5e22,
                                      0.1 + 0.2, 999999999999999.0, Limits::max(), Limits::denorm_min()};
    // clang-format on
    RowSet records;
    records.addNumber("Q0");
    for (const double number : numbers) records.addRow({number});
    records.addRow({Limits::quiet_NaN()});
    records.addRow({-Limits::infinity()});
    const QJsonArray xml = rowsOf(read(records, "a.xml"));
    const QJsonArray csv = rowsOf(read(records, "a.csv"));
    const QJsonArray german = rowsOf(read(records, "b.csv", ","));
    for (int i = 0; i < static_cast<int>(numbers.size()); ++i) {
        const double number = numbers[static_cast<std::size_t>(i)];
        EXPECT_EQ(xml[i][0].toDouble(), number);
        EXPECT_EQ(csv[i][0].toString().toDouble(), number) << csv[i][0].toString().toStdString();
        EXPECT_EQ(german[i][0].toString(), csv[i][0].toString().replace(".", ","));
    }
    EXPECT_EQ(csv[2][0].toString(), "300000") << "no exponent where a person writes none";
    const int notFinite = static_cast<int>(numbers.size());
    EXPECT_TRUE(xml[notFinite][0].isNull() && xml[notFinite + 1][0].isNull());
}

TEST_F(RowSetTest, CsvIsWrittenAsItIsTold) {
    RowSet records;
    records.addText("Serie", 10);
    records.addNumber("ikw/ton");
    records.addText("Model", 10);
    EXPECT_EQ(records.toCsv(), "Serie;ikw/ton;Model\n");
    records.addRow({std::string("TK-A"), 0.5, std::string("2\"-12")});
    records.addRow({std::monostate(), std::monostate(), std::string()});
    EXPECT_EQ(records.toCsv(","), "Serie;ikw/ton;Model\n\"TK-A\";0,5;\"2\"\"-12\"\n;;\"\"\n");

    EXPECT_EQ(records.toCsv("\u066B"), records.toCsv(".")) << "the mark of Arabic";

    RowSet odd;
    odd.addText("Model", 10);
    odd.addRow({awkward});
    EXPECT_EQ(rowsOf(read(odd, "a.csv"))[0][0].toString(), awkwardText);
}

TEST_F(RowSetTest, RefusesRecordsOfAnotherShape) {
    RowSet records;
    records.addText("Model", 10);
    records.addNumber("Q0");
    EXPECT_THROW(records.addRow({std::string("100")}), std::invalid_argument);
    EXPECT_THROW(records.addRow({1.0, 1.0}), std::invalid_argument);
    EXPECT_THROW(records.addRow({std::string("100"), std::string("1")}), std::invalid_argument);
    EXPECT_EQ(records.rowCount(), 0);
}
