#include "results/CalculationSheet.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "data/DictionaryTexts.h"
#include "data/Texts.h"
#include "results/Messages.h"

namespace marvello {

namespace {

using Entry = Trace::Entry;

/// Six significant digits, which are more than any list shows.
std::string shortNumber(double value, const NumberMarks& marks) {
    constexpr int digits = 6;
    std::array<char, 32> text{};
    const auto [end, fault] = std::to_chars(text.data(), text.data() + text.size(), value == 0 ? 0.0 : value,
                                            std::chars_format::general, digits);
    std::string shown;
    for (const char sign : std::string_view(text.data(), static_cast<std::size_t>(end - text.data())))
        shown += sign == '.' ? marks.point : sign == '-' ? marks.minus : std::string(1, sign);
    return shown;
}

Formula::Style style(const NumberMarks& marks) {
    return {" \u00B7 ", marks.minus, [marks](double value) { return shortNumber(value, marks); }};
}

constexpr std::array<std::string_view, stageCount> stageKeys{"variables.stage.input",
                                                             "variables.stage.saturation",
                                                             "variables.stage.suction",
                                                             "variables.stage.liquid",
                                                             "variables.stage.surfaces",
                                                             "variables.stage.flows",
                                                             "variables.stage.currents",
                                                             "variables.stage.efficiency",
                                                             "variables.stage.discharge",
                                                             "variables.stage.oilcooling",
                                                             "variables.stage.economizerliquid",
                                                             "variables.stage.economizerefficiencies",
                                                             "variables.stage.economizerport",
                                                             "variables.stage.economizersearch",
                                                             "variables.stage.economizercycle",
                                                             "variables.stage.economizerresults",
                                                             "variables.stage.condenser"};

class Sheet {
  public:
    Sheet(const Explanation& explanation, const NumberMarks& marks)
        : explanation_(explanation),
          entries_(explanation.trace.entries()),
          marks_(marks),
          style_(style(marks)) {}

    std::vector<SheetSection> made() {
        for (std::size_t i = 0; i < entries_.size(); ++i) add(i);
        closeRule();
        addMessages();
        return std::move(sections_);
    }

  private:
    void add(std::size_t index) {
        const Entry& entry = entries_[index];
        if (entry.rule != rule_) closeRule();
        if (entry.rule != 0) {
            openRules();
        } else if (entry.kind == Entry::Kind::value) {
            openStage(index);
        } else if (sections_.empty() || areRules_) {
            open(stageAfter(index));
        }
        rule_ = entry.rule;
        sections_.back().lines.push_back(lineOf(entry));
    }

    void openRules() {
        if (!sections_.empty() && areRules_) return;
        sections_.push_back({dictionaryText("variables.sheet.rules"), {}});
        areRules_ = true;
    }

    /// A value that is written once more belongs to the stage that does so.
    void openStage(std::size_t index) {
        const Stage stage = definitionOf(entries_[index].variable).stage;
        if (stage > stage_ || sections_.empty())
            open(stage);
        else if (areRules_)
            open(stageAfter(index));
    }

    void open(Stage stage) {
        if (sections_.empty() || areRules_ || stage != stage_)
            sections_.push_back({dictionaryText(stageKeys[static_cast<std::size_t>(stage)]), {}});
        stage_ = stage;
        areRules_ = false;
    }

    /// The next stage that begins, or the last one.
    Stage stageAfter(std::size_t index) const {
        for (std::size_t i = index; i < entries_.size(); ++i) {
            if (entries_[i].kind != Entry::Kind::value) continue;
            if (const Stage stage = definitionOf(entries_[i].variable).stage; stage > stage_) return stage;
        }
        return stage_;
    }

    SheetLine lineOf(const Entry& entry) {
        SheetLine line;
        if (entry.formula) {
            line.formula = entry.formula->withNames(style_);
            line.numbers = entry.formula->withNumbers(style_);
            if (line.numbers == line.formula) line.numbers.clear();
        }
        switch (entry.kind) {
            case Entry::Kind::value:
                describe(line, entry);
                break;
            case Entry::Kind::test:
                line.kind = SheetLine::Kind::test;
                if (!entry.formula) line.formula = entry.text;
                line.meaning = entry.rule == 0 ? std::string() : ruleText(entry.rule);
                line.result = dictionaryText(entry.outcome ? "variables.sheet.yes" : "variables.sheet.no");
                break;
            case Entry::Kind::message:
                line = messageLine(entry.text, entry.severity);
                line.meaning = ruleText(entry.rule);
                hasMessage_ = true;
                break;
        }
        return line;
    }

    void describe(SheetLine& line, const Entry& entry) const {
        const VariableDefinition& definition = definitionOf(entry.variable);
        line.symbol = definition.name;
        line.meaning = dictionaryText("variables.meaning." + lowered(definition.name));
        line.unit = definition.unit;
        line.result = entry.formula ? shortNumber(entry.formula->value(), marks_) : entry.text;
        const bool isEntered = entry.formula && entry.formula->isNumber() && definition.stage == Stage::input;
        if (isEntered) line.formula = dictionaryText("variables.sheet.entered");
        if (entry.times > 1)
            line.meaning +=
                " (" + dictionaryText("variables.sheet.times", {std::to_string(entry.times)}) + ")";
    }

    std::string ruleText(int rule) const {
        return dictionaryText("variables.sheet.rule", {std::to_string(rule)});
    }

    SheetLine messageLine(const std::string& key, Severity severity) const {
        SheetLine line{.kind = SheetLine::Kind::message, .result = dictionaryText(key), .severity = severity};
        for (const ShownMessage& message : allMessagesOf(*explanation_.compressor))
            if (message.key == key && message.severity == severity) line.result = message.text;
        said_.push_back(key);
        return line;
    }

    /// A rule without a message says so.
    void closeRule() {
        if (rule_ != 0 && !hasMessage_ && !sections_.empty() && areRules_)
            sections_.back().lines.push_back({.kind = SheetLine::Kind::message,
                                              .meaning = ruleText(rule_),
                                              .result = dictionaryText("variables.sheet.nomessage")});
        hasMessage_ = false;
        rule_ = 0;
    }

    /// Those that no rule gave: the operating point is outside, or the economizer has no solution.
    void addMessages() {
        SheetSection section{dictionaryText("variables.sheet.messages"), {}};
        for (const ShownMessage& message : allMessagesOf(*explanation_.compressor)) {
            if (std::ranges::find(said_, message.key) != said_.end()) continue;
            SheetLine line = messageLine(message.key, message.severity);
            line.result = message.text;
            if (!message.causes.empty()) line.numbers = message.causes.front();
            section.lines.push_back(std::move(line));
        }
        if (!section.lines.empty()) sections_.push_back(std::move(section));
    }

    const Explanation& explanation_;
    const std::vector<Entry>& entries_;
    NumberMarks marks_;
    Formula::Style style_;
    std::vector<SheetSection> sections_;
    mutable std::vector<std::string> said_;
    Stage stage_ = Stage::input;
    bool areRules_ = false;
    int rule_ = 0;
    bool hasMessage_ = false;
};

}  // namespace

std::vector<SheetSection> calculationSheet(const Explanation& explanation, const NumberMarks& marks) {
    return Sheet(explanation, marks).made();
}

std::vector<std::string> sheetHeadings() {
    return {dictionaryText("variables.sheet.symbol"),  dictionaryText("variables.sheet.meaning"),
            dictionaryText("variables.sheet.formula"), dictionaryText("variables.sheet.numbers"),
            dictionaryText("variables.sheet.result"),  dictionaryText("variables.sheet.unit")};
}

}  // namespace marvello
