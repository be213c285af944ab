#include "controls/RichText.h"

#include <QFontDatabase>
#include <QHash>
#include <QStringList>
#include <QTextBlock>
#include <QTextBlockFormat>
#include <QTextBrowser>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QVector>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/Look.h"
#include "controls/Windows1252.h"

namespace marvello {

namespace {

constexpr std::size_t maxDepth = 256;  // groups in groups; what lies deeper is skipped
constexpr double pixelsPerTwip = 1 / 15.0;

/// One piece of a rich text.
struct Token {
    enum class Kind { open, close, word, symbol, byte, letter, end };
    Kind kind = Kind::end;
    std::string_view word{};      ///< of a control word
    std::optional<int> number{};  ///< behind a control word, or the value of "\'hh"
    char letter = 0;
};

class Tokens {
  public:
    explicit Tokens(std::string_view text) : rest_(text) {}

    Token next() {
        // Line ends of the file mean nothing.
        while (!rest_.empty() && (rest_.front() == '\r' || rest_.front() == '\n')) rest_.remove_prefix(1);
        if (rest_.empty()) return {};
        const char first = take();
        if (first == '{') return {.kind = Token::Kind::open};
        if (first == '}') return {.kind = Token::Kind::close};
        if (first != '\\') return {.kind = Token::Kind::letter, .letter = first};
        return control();
    }

    /// Binary data of a picture.
    void skip(int count) {
        if (count > 0) rest_.remove_prefix(std::min(static_cast<std::size_t>(count), rest_.size()));
    }

  private:
    static bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

    char take() {
        const char first = rest_.front();
        rest_.remove_prefix(1);
        return first;
    }

    Token control() {
        if (rest_.empty()) return {};
        if (!isLetter(rest_.front())) {
            const char symbol = take();
            return symbol == '\'' ? hexByte() : Token{.kind = Token::Kind::symbol, .letter = symbol};
        }
        std::size_t length = 0;
        while (length < rest_.size() && isLetter(rest_[length])) ++length;
        Token token{.kind = Token::Kind::word, .word = rest_.substr(0, length)};
        rest_.remove_prefix(length);
        int value = 0;
        const auto read = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
        if (read.ptr != rest_.data()) {
            token.number = value;  // 0 for one that is too large
            rest_.remove_prefix(static_cast<std::size_t>(read.ptr - rest_.data()));
        }
        if (!rest_.empty() && rest_.front() == ' ') rest_.remove_prefix(1);
        return token;
    }

    Token hexByte() {
        const std::string_view digits = rest_.substr(0, 2);
        int value = 0;
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
        rest_.remove_prefix(static_cast<std::size_t>(read.ptr - digits.data()));
        return {.kind = Token::Kind::byte, .number = value};
    }

    std::string_view rest_;
};

/// What a group sets, and what its end takes back.
struct Group {
    enum class Content { text, fonts, colours, skipped };
    Content content = Content::text;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool struckOut = false;
    int halfPoints = 24;
    int colour = 0;
    int font = 0;
    int fallbackLetters = 1;  ///< how many letters follow "\u" for readers without Unicode
};

/// Reads a whole text into a document.
class RichTextReader {
  public:
    RichTextReader(std::string_view text, QTextDocument& document) : tokens_(text), cursor_(&document) {
        groups_.push_back({});
    }

    void read() {
        for (Token token = tokens_.next(); token.kind != Token::Kind::end; token = tokens_.next())
            take(token);
        flush();
    }

  private:
    Group& group() { return groups_.back(); }

    void take(const Token& token) {
        switch (token.kind) {
            case Token::Kind::open:
                flush();
                open();
                break;
            case Token::Kind::close:
                flush();
                close();
                break;
            case Token::Kind::word:
                if (group().content != Group::Content::skipped || token.word == "bin") takeWord(token);
                break;
            case Token::Kind::symbol:
                takeSymbol(token.letter);
                break;
            case Token::Kind::byte:
                add(fromWindows1252(static_cast<unsigned char>(*token.number)));
                break;
            case Token::Kind::letter:
                add(fromWindows1252(static_cast<unsigned char>(token.letter)));
                break;
            case Token::Kind::end:
                break;
        }
    }

    void open() {
        pendingFallback_ = 0;
        if (groups_.size() >= maxDepth)
            ++tooDeep_;
        else
            groups_.push_back(group());
    }

    void close() {
        pendingFallback_ = 0;
        if (group().content == Group::Content::fonts) endFontName();
        if (tooDeep_ > 0)
            --tooDeep_;
        else if (groups_.size() > 1)
            groups_.pop_back();
    }

    void add(QChar letter) {
        if (tooDeep_ > 0 || letter.isNull()) return;
        if (pendingFallback_ > 0) {
            --pendingFallback_;
            return;
        }
        switch (group().content) {
            case Group::Content::text:
                text_ += letter;
                break;
            case Group::Content::fonts:
                if (letter == u';')
                    endFontName();
                else
                    fontName_ += letter;
                break;
            case Group::Content::colours:
                if (letter == u';') endColour();
                break;
            case Group::Content::skipped:
                break;
        }
    }

    void takeSymbol(char symbol) {
        switch (symbol) {
            case '*':  // a group that only some readers know
                group().content = Group::Content::skipped;
                break;
            case '~':
                add(QChar(QChar::Nbsp));
                break;
            case '_':
                add(QChar(0x2011));
                break;
            case '-':
                add(QChar(QChar::SoftHyphen));
                break;
            case '\r':
            case '\n':
                endParagraph();
                break;
            default:
                if (symbol == '\\' || symbol == '{' || symbol == '}') add(QLatin1Char(symbol));
        }
    }

    void takeWord(const Token& token) {
        const int number = token.number.value_or(0);
        const bool on = token.number != 0;  // "\b" and "\b1" switch on, "\b0" off
        const std::string_view word = token.word;
        if (word == "bin") {
            tokens_.skip(number);
        } else if (takeDestination(word) || takeTable(word, number) || takeLetter(word, number)) {
        } else if (word == "uc") {
            group().fallbackLetters = std::max(number, 0);
        } else if (!takeParagraph(word, number)) {
            flush();
            if (word == "b")
                group().bold = on;
            else if (word == "i")
                group().italic = on;
            else if (word == "ul")
                group().underline = on;
            else if (word == "ulnone")
                group().underline = false;
            else if (word == "strike")
                group().struckOut = on;
            else if (word == "fs")
                group().halfPoints = std::clamp(number, 8, 144);
            else if (word == "cf")
                group().colour = number;
            else if (word == "f")
                group().font = number;
            else if (word == "plain")
                plain();
        }
    }

    void plain() {
        const Group kept = group();
        group() = Group{};
        group().content = kept.content;
        group().fallbackLetters = kept.fallbackLetters;
    }

    bool takeDestination(std::string_view word) {
        static constexpr std::array<std::string_view, 12> skipped{
            "stylesheet", "info",    "pict",    "header", "footer",   "headerl",
            "headerr",    "footerl", "footerr", "object", "footnote", "xe"};
        if (word == "fonttbl")
            group().content = Group::Content::fonts;
        else if (word == "colortbl")
            group().content = Group::Content::colours;
        else if (std::ranges::find(skipped, word) != skipped.end())
            group().content = Group::Content::skipped;
        else
            return false;
        return true;
    }

    bool takeTable(std::string_view word, int number) {
        if (group().content == Group::Content::fonts) {
            if (word == "f") fontNumber_ = number;
            return true;
        }
        if (group().content != Group::Content::colours) return false;
        const int part = std::clamp(number, 0, 255);
        if (word == "red") colour_.setRed(part);
        if (word == "green") colour_.setGreen(part);
        if (word == "blue") colour_.setBlue(part);
        colourIsGiven_ = true;
        return true;
    }

    bool takeLetter(std::string_view word, int number) {
        static constexpr std::array<std::pair<std::string_view, char16_t>, 10> letters{
            {{"tab", u'\t'},
             {"bullet", 0x2022},
             {"emdash", 0x2014},
             {"endash", 0x2013},
             {"lquote", 0x2018},
             {"rquote", 0x2019},
             {"ldblquote", 0x201C},
             {"rdblquote", 0x201D},
             {"line", QChar::LineSeparator},
             {"emspace", 0x2003}}};
        if (word == "u") {
            pendingFallback_ = 0;
            add(QChar(static_cast<char16_t>(number)));  // negative above 32767, as 16-bit numbers are
            pendingFallback_ = group().fallbackLetters;
            return true;
        }
        for (const auto& [name, letter] : letters) {
            if (word != name) continue;
            add(QChar(letter));
            return true;
        }
        return false;
    }

    bool takeParagraph(std::string_view word, int number) {
        const double pixels = std::clamp(number * pixelsPerTwip, -200.0, 600.0);
        if (word == "par")
            endParagraph();
        else if (word == "pard")
            block_ = QTextBlockFormat();
        else if (word == "ql")
            block_.setAlignment(Qt::AlignLeft);
        else if (word == "qr")
            block_.setAlignment(Qt::AlignRight);
        else if (word == "qc")
            block_.setAlignment(Qt::AlignHCenter);
        else if (word == "qj")
            block_.setAlignment(Qt::AlignJustify);
        else if (word == "li")
            block_.setLeftMargin(pixels);
        else if (word == "ri")
            block_.setRightMargin(pixels);
        else if (word == "fi")
            block_.setTextIndent(pixels);
        else if (word == "sb")
            block_.setTopMargin(pixels);
        else if (word == "sa")
            block_.setBottomMargin(pixels);
        else
            return false;
        // The text of a list's line follows its sign, on the left margin.
        if (block_.textIndent() < 0)
            block_.setTabPositions({QTextOption::Tab(block_.leftMargin(), QTextOption::LeftTab)});
        return true;
    }

    void endParagraph() {
        if (group().content != Group::Content::text || tooDeep_ > 0) return;
        flush();
        cursor_.setBlockFormat(block_);
        cursor_.insertBlock();
        cursor_.setBlockFormat(block_);
    }

    void endFontName() {
        const QString name = fontName_.trimmed();
        if (!name.isEmpty() && QFontDatabase::hasFamily(name)) fonts_[fontNumber_] = name;
        fontName_.clear();
    }

    void endColour() {
        // The first entry, an empty one, is the colour of the look.
        colours_ += colourIsGiven_ ? Look::current().adapted(colour_) : QColor();
        colour_ = QColor(Qt::black);
        colourIsGiven_ = false;
    }

    /// Writes what has come in with the format that holds for it.
    void flush() {
        if (text_.isEmpty()) return;
        const Group& now = group();
        QTextCharFormat format;
        format.setFontWeight(now.bold ? QFont::Bold : QFont::Normal);
        format.setFontItalic(now.italic);
        format.setFontUnderline(now.underline);
        format.setFontStrikeOut(now.struckOut);
        // 96 pixels and 144 half points are an inch.
        format.setProperty(QTextFormat::FontPixelSize, static_cast<int>(std::lround(now.halfPoints / 1.5)));
        if (const auto font = fonts_.constFind(now.font); font != fonts_.constEnd())
            format.setFontFamilies(QStringList{*font} + lookFont().families());
        if (now.colour > 0 && now.colour < colours_.size() && colours_[now.colour].isValid())
            format.setForeground(colours_[now.colour]);
        cursor_.setBlockFormat(block_);
        cursor_.insertText(text_, format);
        text_.clear();
    }

    Tokens tokens_;
    QTextCursor cursor_;
    std::vector<Group> groups_;
    std::size_t tooDeep_ = 0;
    QString text_;
    int pendingFallback_ = 0;
    QTextBlockFormat block_;
    QHash<int, QString> fonts_;
    QString fontName_;
    int fontNumber_ = 0;
    QVector<QColor> colours_;
    QColor colour_ = Qt::black;
    bool colourIsGiven_ = false;
};

}  // namespace

void readRichText(const QByteArray& text, QTextDocument& document) {
    document.clear();
    document.setDefaultFont(lookFont());
    if (!text.startsWith("{\\rtf")) {
        document.setPlainText(QString::fromUtf8(text));
        return;
    }
    RichTextReader({text.constData(), static_cast<std::size_t>(text.size())}, document).read();
    // The end of the last paragraph opens none.
    if (QTextCursor last(document.lastBlock());
        document.lastBlock().length() <= 1 && document.blockCount() > 1)
        last.deletePreviousChar();
}

void showRichText(const QByteArray& text, QTextBrowser& browser) {
    browser.setFrameShape(QFrame::NoFrame);
    browser.setOpenLinks(false);
    browser.viewport()->setAutoFillBackground(false);
    readRichText(text, *browser.document());
    browser.moveCursor(QTextCursor::Start);
}

}  // namespace marvello
