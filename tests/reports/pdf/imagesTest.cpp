#include <gmock/gmock.h>

#include <fstream>

#include "reports/pdf/Ascii85.h"
#include "reports/pdf/Bitmap.h"
#include "tests/reports/pdf/PdfFile.h"

namespace marvello::test {
namespace {

using namespace std::string_literals;
using ::testing::HasSubstr;

std::string number(std::uint32_t value) {
    std::string bytes;
    for (int i = 0; i < 4; ++i) bytes += static_cast<char>(value >> 8 * i & 0xFFU);
    return bytes;
}

/// A bitmap file: what stands behind its headers as it is, with the given start of the pixels and header
/// length.
std::string bitmapFile(std::uint32_t width, std::uint32_t height, std::uint32_t bits, const std::string& rest,
                       std::uint32_t pixels = 0, std::uint32_t header = 40) {
    return "BM" + number(0) + number(0) + number(pixels) + number(header) + number(width) + number(height) +
           number(1 | bits << 16) + std::string(header - 16, '\0') + rest;
}

TEST(Ascii85, GroupsOfFour) {
    // The well-known example of the encoding, and groups of zero bytes.
    EXPECT_EQ(ascii85("Man is distinguished"), "9jqo^BlbD-BleB1DJ+*+F(f,q");
    EXPECT_EQ(ascii85("\0\0\0\0"s), "z");
    EXPECT_EQ(ascii85("\0\0\0"s), "!!!!");
    EXPECT_EQ(ascii85("\0\0\0\0\0\0\0\0\0"s), "zz!!");
    EXPECT_EQ(ascii85("\xFF\xFF\xFF\xFF"), "s8W-!");
    EXPECT_EQ(ascii85(""), "");
}

TEST(Bitmap, RowsLoseTheirPaddingAndColoursTurnRound) {
    const auto two = readBitmap(bitmapFile(9, 2, 1, "bgr\0BGR\0"s + "\x12\x80\xEE\xEE\x34\x00\xEE\xEE"s));
    ASSERT_TRUE(two);
    EXPECT_EQ(two->buffer, "\x09\0\x02\0\x01\x12\x80\x34\x00"s);
    EXPECT_EQ(two->palette, "rgbRGB");

    const auto wide =
        readBitmap(bitmapFile(0x101, 1, 8, std::string(1024, 'p') + std::string(257, 'x') + "..."));
    ASSERT_TRUE(wide);
    EXPECT_EQ(wide->buffer, "\x01\x01\x01\0\x08"s + std::string(257, 'x'));

    const auto colours = readBitmap(bitmapFile(1, 2, 24, "abc.def."));
    ASSERT_TRUE(colours);
    EXPECT_EQ(colours->buffer, "\x01\0\x02\0\x18"s + "abcdef");
    EXPECT_EQ(colours->palette, "");
}

TEST(Bitmap, LongerHeaderAndShorterPalette) {
    // Three of sixteen colours, told by where the pixels begin; the others are black.
    const auto bitmap = readBitmap(bitmapFile(2, 1, 4,
                                              "bgr.BGR.123."
                                              "\x21...",
                                              14 + 124 + 12, 124));
    ASSERT_TRUE(bitmap);
    EXPECT_EQ(bitmap->palette, "rgbRGB321" + std::string(13 * 3, '\0'));
    EXPECT_EQ(bitmap->buffer, "\x02\0\x01\0\x04\x21"s);
}

TEST(Bitmap, WhatCannotBeIsRefused) {
    const std::string good = bitmapFile(2, 2, 24, std::string(16, 'x'));
    EXPECT_TRUE(readBitmap(good));
    for (std::size_t length = 0; length < good.size(); ++length) {
        if (length < 2)
            EXPECT_FALSE(readBitmap(good.substr(0, length)));
        else
            EXPECT_THROW(readBitmap(good.substr(0, length)), BitmapError) << length;
    }
    const auto changed = [&](std::size_t at, std::uint32_t value) {
        std::string bytes = good;
        return bytes.replace(at, 4, number(value));
    };
    EXPECT_FALSE(readBitmap("bm" + good.substr(2)));
    for (const std::uint32_t value : {0U, 3U, 65536U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFEU}) {
        EXPECT_THROW(readBitmap(changed(18, value)), BitmapError) << "width " << value;
        EXPECT_THROW(readBitmap(changed(22, value)), BitmapError) << "height " << value;
    }
    for (const std::uint32_t bits : {0U, 33U, 0xFFFFU})
        EXPECT_THROW(readBitmap(changed(26, 1 | bits << 16)), BitmapError) << bits;
    for (const std::uint32_t start : {55U, 0x7FFFFFFFU, 0xFFFFFFFFU})
        EXPECT_THROW(readBitmap(changed(10, start)), BitmapError) << start;
    for (const std::uint32_t header : {12U, 0xFFFFFFFFU})
        EXPECT_THROW(readBitmap(changed(14, header)), BitmapError);
    EXPECT_THROW(readBitmap(changed(30, 1)), BitmapError);  // run lengths
}

/// The objects that an image makes, from 6 on.
PdfFile withImage(const std::string& buffer, const std::string& palette, bool gray) {
    return writtenBy([](clsPDFCreator& pdf) { pdf.DrawImg("I", 10, 20, 30, 40); },
                     [&](clsPDFCreator& pdf) { pdf.LoadImgFromBuffer("I", buffer, palette, gray); });
}

TEST(PdfImages, Colours) {
    const std::string pixels = "\x64\x32\x0A\xFF\xFF\xFF\x01\x00\x00"s;
    const PdfFile file = withImage("\3\0\1\0\30"s + pixels, "", false);
    EXPECT_EQ(
        file.object(6),
        "6 0 obj\r<<\r/Type /XObject\r/Subtype /Image\r/Name /I\r/Width 3\r/Height 1\r/BitsPerComponent 8\r"
        "/ColorSpace /DeviceRGB\r/Length 9\r>>\rstream\r" +
            pixels + "\rendstream\r");
    EXPECT_EQ(file.stream(8), "q\r30 0 0 -40 10 20 cm\r/I Do\rQ");

    // 0.59*100 + 0.33*50 + 0.11*10 = 76.6; 1.03*255 is limited; 0.59 rounds up.
    const PdfFile grey = withImage("\3\0\1\0\30"s + pixels, "", true);
    EXPECT_THAT(grey.object(6),
                HasSubstr("/ColorSpace /DeviceGray\r/Length 3\r>>\rstream\rM\xFF\x01\rendstream\r"));
}

TEST(PdfImages, Palettes) {
    // Nine pixels of one bit take two bytes a row.
    const std::string buffer = "\x09\0\x02\0\x01"s + "abcd";
    const PdfFile file = withImage(buffer, "Man is", false);
    EXPECT_EQ(
        file.object(6),
        "6 0 obj\r<<\r/Type /XObject\r/Subtype /Image\r/Name /I\r/Width 9\r/Height 2\r/BitsPerComponent 1\r"
        "/ColorSpace [/Indexed /DeviceRGB 1 7 0 R]\r/Length 4\r>>\rstream\rabcd\rendstream\r");
    // "is" as a last group of two bytes: 0x69730000 is 33, 75, 64, ... in base 85.
    EXPECT_EQ(file.object(7),
              "7 0 obj\r<<\r/Filter /ASCII85Decode\r/Length 6\r>>\rstream\r9jqo^Bla>\rendstream\r");
    EXPECT_THAT(file.object(11), HasSubstr("/XObject <<\r/I 6 0 R \r\r>>\r"));

    const PdfFile grey = withImage(buffer, "\0\0\0\xFF\xFF\xFF"s, true);
    EXPECT_THAT(grey.object(6), HasSubstr("[/Indexed /DeviceGray 1 7 0 R]\r/Length 4\r"));
    // 0x00FF0000 is 0, 27, 18, ... in base 85.
    EXPECT_THAT(grey.object(7), HasSubstr("/Length 2\r>>\rstream\r!<3>\r"));

    const PdfFile sixteen = withImage("\x03\0\x01\0\x04"s + "ab", std::string(48, 'p'), false);
    EXPECT_THAT(sixteen.object(6),
                HasSubstr("/BitsPerComponent 4\r/ColorSpace [/Indexed /DeviceRGB 15 7 0 R]\r/Length 2\r"));
}

TEST(PdfImages, FromAFile) {
    const Folder folder;
    std::ofstream(folder / "a.bmp", std::ios::binary) << bitmapFile(1, 1, 24, "abc.");
    std::ofstream(folder / "deep.bmp", std::ios::binary) << bitmapFile(1, 1, 32, "abcd");
    const PdfFile file =
        writtenBy([](clsPDFCreator&) {},
                  [&](clsPDFCreator& pdf) {
                      EXPECT_TRUE(pdf.LoadImgFromBMPFile("deep", folder / "deep.bmp", false));
                      EXPECT_FALSE(pdf.LoadImgFromBMPFile("none", folder / "none.bmp", false));
                      EXPECT_FALSE(pdf.LoadImgFromBMPFile("none", folder.path(), false));
                      EXPECT_TRUE(pdf.LoadImgFromBMPFile("A", folder / "a.bmp", false));
                  });
    EXPECT_THAT(file.object(6), HasSubstr("/Name /A\r/Width 1\r/Height 1\r"));  // the others made no object
    EXPECT_EQ(file.stream(6), "abc");
}

}  // namespace
}  // namespace marvello::test
