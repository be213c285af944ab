// Drawings as SVG files, read back by a parser that is not ours.

#include "results/Svg.h"

#include <gtest/gtest.h>

#include <QXmlStreamReader>
#include <map>

using namespace marvello;

namespace {

/// The texts and the attributes of a file, by the name of the element.
struct Element {
    QString name;
    std::map<QString, QString> attributes;
    QString text;
};

std::vector<Element> elementsOf(const std::string& file) {
    QXmlStreamReader reader(QByteArray::fromStdString(file));
    std::vector<Element> elements;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            elements.push_back({reader.name().toString(), {}, {}});
            for (const auto& each : reader.attributes())
                elements.back().attributes[each.name().toString()] = each.value().toString();
        }
        if (reader.isCharacters() && !elements.empty() && !reader.isWhitespace())
            elements.back().text += reader.text();
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    return elements;
}

}  // namespace

TEST(Svg, KeepsShapesInTheirOrder) {
    Drawing drawing{.width = 200, .height = 100.5, .ground = {255, 255, 255}, .title = "a<b> & \"c\""};
    drawing.shapes.push_back(DrawnArea{{{0, 0}, {10, 0}, {5, 7.125}}, {1, 2, 3, 0.5}});
    drawing.shapes.push_back(
        DrawnLine{{{1, 2}, {-0.001, 4}}, {.colour = {14, 106, 128}, .width = 2.5, .dashes = {4, 2}}});
    drawing.shapes.push_back(DrawnRing{{50, 60}, 3.5, {.colour = {0, 0, 0}}, {255, 255, 255}});
    drawing.shapes.push_back(DrawnText{.at = {20, 30},
                                       .text = "5 < 6 & \x01 压缩机",
                                       .colour = {0, 0, 0},
                                       .anchor = DrawnText::Anchor::middle,
                                       .angle = -90,
                                       .halo = {255, 255, 255}});
    const std::vector<Element> elements = elementsOf(svgOf(drawing));
    ASSERT_EQ(elements.size(), 7U);
    EXPECT_EQ(elements[0].attributes.at("viewBox"), "0 0 200 100.5");
    EXPECT_EQ(elements[1].text, "a<b> & \"c\"");
    EXPECT_EQ(elements[3].name, "polygon");
    EXPECT_EQ(elements[3].attributes.at("points"), "0,0 10,0 5,7.13");
    EXPECT_EQ(elements[3].attributes.at("fill"), "#010203");
    EXPECT_EQ(elements[3].attributes.at("fill-opacity"), "0.5");
    EXPECT_EQ(elements[4].attributes.at("points"), "1,2 0,4");
    EXPECT_EQ(elements[4].attributes.at("stroke-dasharray"), "4 2");
    EXPECT_EQ(elements[5].attributes.at("r"), "3.5");
    EXPECT_EQ(elements[6].text, "5 < 6 &  压缩机");
    EXPECT_EQ(elements[6].attributes.at("transform"), "rotate(-90 20 30)");
    EXPECT_EQ(elements[6].attributes.at("text-anchor"), "middle");
}
