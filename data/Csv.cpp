#include "data/Csv.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace marvello {

namespace {

class Reader {
  public:
    Reader(std::string_view text, const std::string& file, Faults& faults, char separator)
        : text_(text), file_(file), faults_(faults), separator_(separator) {}

    std::vector<CsvRecord> read() {
        std::vector<CsvRecord> records;
        while (!ended()) {
            const bool isEmptyLine = atLineEnd();
            CsvRecord record = readRecord();
            if (!isEmptyLine) records.push_back(std::move(record));
        }
        return records;
    }

  private:
    bool ended() const { return at_ == text_.size(); }
    bool at(char c) const { return !ended() && text_[at_] == c; }
    bool atLineEnd() const { return ended() || at('\n') || text_.substr(at_, 2) == "\r\n"; }

    void addFault(int line, const std::string& reason) {
        faults_.add(file_, line, reason);
        if (fault_.empty()) fault_ = reason;
    }

    CsvRecord readRecord() {
        CsvRecord record{line_, {}};
        fault_.clear();
        record.fields.push_back(readField());
        while (at(separator_)) {
            ++at_;
            record.fields.push_back(readField());
        }
        if (at('\r')) ++at_;
        if (at('\n')) ++at_;
        ++line_;
        record.fault = fault_;
        return record;
    }

    std::string readField() {
        if (at('"')) return readQuotedField();
        const auto start = at_;
        while (!at(separator_) && !atLineEnd()) {
            if (at('"')) addFault(line_, "a quote is inside a field that does not begin with one");
            ++at_;
        }
        return std::string(text_.substr(start, at_ - start));
    }

    std::string readQuotedField() {
        const int begun = line_;
        std::string field;
        for (++at_; !ended(); ++at_) {
            if (at('"') && text_.substr(at_, 2) != "\"\"") break;
            if (at('"')) ++at_;
            if (at('\n')) ++line_;
            field += text_[at_];
        }
        if (ended()) {
            addFault(begun, "a field in quotes has no end");
            return field;
        }
        ++at_;
        if (at(separator_) || atLineEnd()) return field;
        addFault(line_, "text comes after the closing quote of a field");
        while (!at(separator_) && !atLineEnd()) ++at_;
        return field;
    }

    std::string_view text_;
    const std::string& file_;
    Faults& faults_;
    char separator_;
    std::size_t at_ = 0;
    int line_ = 1;
    std::string fault_;  ///< Of the record that is read.
};

/// The length of the well-formed character at the head of `bytes`, or 0. The ranges are those of table 3-7 of
/// the Unicode Standard, chapter 3.
std::size_t characterLength(std::string_view bytes) {
    const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(bytes[index]); };
    const unsigned char first = byte(0);
    if (first < 0x80) return 1;

    std::size_t length = 0;
    if (first >= 0xC2 && first <= 0xDF) length = 2;
    if (first >= 0xE0 && first <= 0xEF) length = 3;
    if (first >= 0xF0 && first <= 0xF4) length = 4;
    if (length == 0 || bytes.size() < length) return 0;

    const unsigned char lowest = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    const unsigned char highest = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    if (byte(1) < lowest || byte(1) > highest) return 0;
    for (std::size_t index = 2; index < length; ++index)
        if (byte(index) < 0x80 || byte(index) > 0xBF) return 0;
    return length;
}

/// How many bytes at the head are well-formed.
std::size_t wellFormedLength(std::string_view bytes) {
    std::size_t at = 0;
    while (at < bytes.size()) {
        const auto length = characterLength(bytes.substr(at));
        if (length == 0) break;
        at += length;
    }
    return at;
}

}  // namespace

std::string csvQuoted(const std::string& text) {
    std::string field = "\"";
    for (const char letter : text) {
        if (letter == '"') field += '"';
        field += letter;
    }
    return field + '"';
}

std::string csvField(const std::string& text) {
    return text.find_first_of(",\"\r\n") == std::string::npos ? text : csvQuoted(text);
}

std::string csvJoined(const std::vector<std::string>& written, char separator) {
    std::string line;
    for (const std::string& field : written) line += field + separator;
    if (!line.empty()) line.pop_back();
    return line + '\n';
}

std::string csvLine(const std::vector<std::string>& fields) {
    if (fields.size() == 1 && fields.front().empty()) return "\"\"\n";
    std::vector<std::string> written;
    std::ranges::transform(fields, std::back_inserter(written), csvField);
    return csvJoined(written, ',');
}

bool isUtf8(std::string_view bytes) { return wellFormedLength(bytes) == bytes.size(); }

std::vector<CsvRecord> readCsv(std::string_view text, const std::string& file, Faults& faults,
                               char separator) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());

    const auto wellFormed = wellFormedLength(text);
    if (wellFormed != text.size()) {
        const auto lineEnds = std::ranges::count(text.substr(0, wellFormed), '\n');
        faults.add(file, static_cast<int>(lineEnds) + 1, "the text is not valid UTF-8");
        return {};
    }
    return Reader(text, file, faults, separator).read();
}

}  // namespace marvello
