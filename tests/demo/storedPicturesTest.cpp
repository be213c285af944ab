// The pictures of the demonstration catalogue: there for each series, and with the lengths of its plans.
#include <gmock/gmock.h>

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <filesystem>
#include <memory>
#include <set>
#include <string>

#include "controls/Metafile.h"
#include "data/TextTable.h"
#include "demo/pictures/Bodies.h"
#include "demo/pictures/DimensionDrawing.h"

namespace marvello {
namespace {

namespace fs = std::filesystem;

const fs::path source = MARVELLO_SOURCE_FOLDER;
const fs::path application = MARVELLO_APP_FOLDER;

std::set<std::string> catalogueSeries() {
    std::set<std::string> series;
    const TextTable compressors(source / "content/tCompressors.csv");
    for (const auto& row : compressors.rows()) series.insert(row.text("fSerieID"));
    return series;
}

QString drawingOf(const std::string& serie) {
    return QString::fromStdString((application / "Images/Dimensions" / (serie + ".wmf")).string());
}

TEST(Pictures, HasAPhotoOfEachSeriesInTheShapeOfItsFrame) {
    auto names = catalogueSeries();
    EXPECT_EQ(names.size(), 18U);
    names.insert("Kestrom");  // the stand-in
    for (const auto& name : names) {
        const fs::path file = application / "images/photos" / (name + ".jpg");
        QImageReader reader(QString::fromStdString(file.string()));
        EXPECT_EQ(reader.format(), "jpeg") << file;
        const QImage photo = reader.read();
        ASSERT_FALSE(photo.isNull()) << file << reader.errorString().toStdString();
        EXPECT_GE(photo.width(), 800) << file;
        // 84 x 58 mm on the report; half a mm is not seen.
        EXPECT_NEAR(photo.height() * 84.0 / photo.width(), 58, 0.5) << file;
        EXPECT_LT(fs::file_size(file), 100 * 1024U) << file;
    }
}

TEST(Pictures, HasADrawingOfEachSeriesWithTheLengthsOfItsBodies) {
    for (const auto& name : catalogueSeries()) {
        const QStringList texts = Metafile::load(drawingOf(name)).texts();
        ASSERT_TRUE(texts.contains(QString::fromStdString(name))) << name;
        const TextTable bodies(source / "demo/generate/plans/bodies.csv");
        for (const auto& row : bodies.rows()) {
            if (row.text("serie") != name) continue;
            // The row of the table: five lengths one after the other, then height of the shaft and
            // connections.
            bool found = false;
            for (qsizetype i = 0; i + 7 < texts.size() && !found; ++i) {
                qsizetype at = i;
                found = true;
                for (const char* column : {"length", "width", "height", "feet_length", "feet_width"})
                    found = found && texts[at++] == QString::fromStdString(row.text(column));
                found = found && texts[i + 6] == QString::fromStdString(row.text("suction")) &&
                        texts[i + 7] == QString::fromStdString(row.text("discharge"));
            }
            EXPECT_TRUE(found) << name << ' ' << row.text("body");
        }
    }
}

TEST(Pictures, NamesEachModelInTheDrawingOfItsSeries) {
    const TextTable models(source / "demo/generate/plans/models.csv");
    for (const auto& row : models.rows()) {
        const QString all = "  " + Metafile::load(drawingOf(row.text("serie"))).texts().join("  ") + "  ";
        EXPECT_TRUE(all.contains("  " + QString::fromStdString(row.text("model")) + "  "))
            << row.text("serie") << ' ' << row.text("model");
    }
}

TEST(Pictures, AreWhatThePlansGive) {
    for (const auto& series : pictures::readBodies(source / "demo/generate/plans")) {
        QFile file(drawingOf(series.serie));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const auto bytes = pictures::dimensionDrawing(series);
        EXPECT_EQ(file.readAll(), QByteArray(reinterpret_cast<const char*>(bytes.data()),
                                             static_cast<qsizetype>(bytes.size())))
            << series.serie << ": draw again with marvello-pictures drawings content/pictures/dimensions";
    }
}

}  // namespace
}  // namespace marvello
