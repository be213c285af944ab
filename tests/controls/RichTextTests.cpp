#include <gtest/gtest.h>

#include <QFile>
#include <QTextBlock>
#include <QTextDocument>

#include "controls/RichText.h"

using namespace marvello;

namespace {

class RichTextTest : public testing::Test {
  protected:
    QString plain(const QByteArray& text) {
        readRichText(text, document);
        return document.toPlainText();
    }
    /// The format in which `letters` stand.
    QTextCharFormat formatOf(const QString& letters) const { return document.find(letters).charFormat(); }

    QTextDocument document;
};

TEST_F(RichTextTest, ReadsLettersOfEveryKind) {
    EXPECT_EQ(plain("{\\rtf1\\ansi caf\\'e9 \\'80 \\u8217?\\u-10179?\\u-8704? \\{\\\\\\}}"),
              QString::fromUtf8("café € ’😀 {\\}"));
    EXPECT_EQ(plain("{\\rtf1 a\\emdash b\\~c\\tab d\\line e}"), QString::fromUtf8("a—b c\td\ne"));
    // "\uc2" has two letters behind each "\u" for readers without Unicode, "\uc0" none.
    EXPECT_EQ(plain("{\\rtf1\\uc2\\u20013\\'d6\\'d0{\\uc0\\u25991}x}"), QString::fromUtf8("中文x"));
}

TEST_F(RichTextTest, KeepsFormatsWithinTheirGroup) {
    plain("{\\rtf1\\fs20 plain {\\b bold \\i both} {\\ul line\\ul0  none} \\fs40 large\\plain  again\\par}");
    EXPECT_EQ(formatOf("plain").fontWeight(), QFont::Normal);
    EXPECT_EQ(formatOf("bold").fontWeight(), QFont::Bold);
    EXPECT_FALSE(formatOf("bold").fontItalic());
    EXPECT_TRUE(formatOf("both").fontItalic());
    EXPECT_TRUE(formatOf("line").fontUnderline());
    EXPECT_FALSE(formatOf("none").fontUnderline());
    // 20 half points are 10 points, 13.3 pixels at 96 pixels an inch; 40 are 26.7; "\plain" is 12 points.
    EXPECT_EQ(formatOf("plain").intProperty(QTextFormat::FontPixelSize), 13);
    EXPECT_EQ(formatOf("large").intProperty(QTextFormat::FontPixelSize), 27);
    EXPECT_EQ(formatOf("again").intProperty(QTextFormat::FontPixelSize), 16);
}

TEST_F(RichTextTest, OpensNoParagraphAfterTheLast) {
    EXPECT_EQ(plain("{\\rtf1 one\\par}"), "one");
    EXPECT_EQ(plain("{\\rtf1 one\\par x}"), "one\nx");
    EXPECT_EQ(plain("{\\rtf1 one\\par\\par}"), "one\n");
    EXPECT_EQ(plain("{\\rtf1 }"), "");
}

TEST_F(RichTextTest, KeepsColoursAndParagraphs) {
    EXPECT_EQ(plain("{\\rtf1{\\colortbl;\\red200\\green16\\blue0;}one\\par\\pard\\qc\\li300\\fi-150\\sa60 "
                    "{\\cf1 two}\\par\\pard three\\par}"),
              "one\ntwo\nthree");
    EXPECT_EQ(formatOf("two").foreground().color(), QColor(200, 16, 0));
    EXPECT_FALSE(formatOf("three").hasProperty(QTextFormat::ForegroundBrush));
    const QTextBlockFormat second = document.findBlockByNumber(1).blockFormat();
    EXPECT_EQ(second.alignment(), Qt::AlignHCenter);
    // 15 twips are a pixel.
    EXPECT_EQ(second.leftMargin(), 20);
    EXPECT_EQ(second.textIndent(), -10);
    EXPECT_EQ(second.bottomMargin(), 4);
    EXPECT_EQ(document.findBlockByNumber(2).blockFormat().leftMargin(), 0);
}

TEST_F(RichTextTest, LeavesOutWhatItDoesNotKnow) {
    EXPECT_EQ(plain("{\\rtf1{\\stylesheet{\\s0 Normal;}}{\\info{\\title X}}{\\fonttbl{\\f0 Arial;}}"
                    "{\\*\\generator Y;}a{\\pict\\bin3 }}{b}c{\\unknown9 d}"
                    "{\\field{\\*\\fldinst HYPERLINK}{\\fldrslt e}}}"),
              "acde");
}

TEST_F(RichTextTest, EndsWhereTheTextEnds) {
    QFile file(QStringLiteral(MARVELLO_SOURCE_FOLDER) + "/content/thelp.cn-CN.rtfeula.rtf");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    const QString text = plain(whole);
    EXPECT_TRUE(text.startsWith(QString::fromUtf8("使用条款\n1. 软件用途\n")));
    EXPECT_TRUE(text.endsWith(QString::fromUtf8("其余条款仍然有效。")));
    for (qsizetype length = 6; length < whole.size(); length += 7) {
        const QString cut = plain(whole.left(length));
        // A cut within a control word may leave another letter at the very end.
        EXPECT_TRUE(text.startsWith(cut.chopped(std::min<qsizetype>(cut.size(), 1)))) << length;
    }
    EXPECT_EQ(plain("{\\rtf1 a" + QByteArray(100000, '{') + "b" + QByteArray(100000, '}') + "c}}}}d"), "acd");
    EXPECT_EQ(plain("{\\rtf1 a{\\bin2147483647 b"), "a");
    EXPECT_EQ(plain("{\\rtf1\\u99999999999?\\fs-5 \\cf77 \\f9 a\\'"), "a");
    EXPECT_EQ(plain("no rich text"), "no rich text");
    EXPECT_EQ(plain(""), "");
}

}  // namespace
