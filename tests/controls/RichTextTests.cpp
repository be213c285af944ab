#include <gtest/gtest.h>

#include <QFile>
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

    QTextDocument document;
};

TEST_F(RichTextTest, ReadsLettersOfEveryKind) {
    EXPECT_EQ(plain("{\\rtf1\\ansi caf\\'e9 \\'80 \\u8217?\\u-10179?\\u-8704? \\{\\\\\\}}"),
              QString::fromUtf8("café € ’😀 {\\}"));
    EXPECT_EQ(plain("{\\rtf1 a\\emdash b\\~c\\tab d\\line e}"), QString::fromUtf8("a—b c\td\ne"));
    // "\uc2" has two letters behind each "\u" for readers without Unicode, "\uc0" none.
    EXPECT_EQ(plain("{\\rtf1\\uc2\\u20013\\'d6\\'d0{\\uc0\\u25991}x}"), QString::fromUtf8("中文x"));
}

TEST_F(RichTextTest, OpensNoParagraphAfterTheLast) {
    EXPECT_EQ(plain("{\\rtf1 one\\par}"), "one");
    EXPECT_EQ(plain("{\\rtf1 one\\par x}"), "one\nx");
    EXPECT_EQ(plain("{\\rtf1 one\\par\\par}"), "one\n");
    EXPECT_EQ(plain("{\\rtf1 }"), "");
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
