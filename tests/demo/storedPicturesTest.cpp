// The pictures of the demonstration catalogue: there for each series, and as its plans give them.
#include <gmock/gmock.h>

#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <filesystem>
#include <memory>
#include <set>
#include <string>

#include "controls/Metafile.h"
#include "data/FileText.h"
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

TEST(Pictures, HasADrawingOfEachSeriesAsThePlansGiveIt) {
    const auto plans = pictures::readBodies(source / "demo/generate/plans");
    EXPECT_EQ(plans.size(), catalogueSeries().size());
    for (const auto& series : plans) {
        const auto file = application / "Images/Dimensions" / (series.serie + ".wmf");
        const auto bytes = pictures::dimensionDrawing(series);
        EXPECT_EQ(fileText(file), std::string(bytes.begin(), bytes.end()))
            << series.serie << ": draw again with marvello-pictures drawings content/pictures/dimensions";
        const auto drawn = Metafile::load(QString::fromStdString(file.string())).texts();
        for (const auto& body : series.bodies)
            for (const auto& model : body.models)
                EXPECT_TRUE(drawn.filter(QString::fromStdString(model)).size() > 0) << series.serie << model;
    }
}

}  // namespace
}  // namespace marvello
