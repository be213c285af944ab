#include "tools/catalogue/Program.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "data/Texts.h"

namespace marvello {

namespace {

using enum ControlKind;
using enum PropertyKind;

std::vector<Control> selectionControls() {
    return {
        {"Splitter1", splitter},
        {"Splitter2", splitter},
        {"Frame1", pane},
        {"frame2", pane},
        {"frame3", pane},
        {"Frame4", pane},
        {"CoolFrame1", container},
        {"PicInput", pane},
        {"lstRefrigerants", field},
        {"lstSeries", field},
        {"lstModels", field},
        {"txtTED", field},
        {"txtTEM", field},
        {"txtPE", field},
        {"txtTCD", field},
        {"txtTCM", field},
        {"txtPC", field},
        {"cmbSh", field},
        {"txtSH", field},
        {"txtSC", field},
        {"cmbEco", field},
        {"txtEco", field},
        {"cmbOilCooling", field},
        {"txtOilCooling", field},
        {"cmbMotorVoltage", field},
        {"cmbMotorSize", field},
        {"cmbMotorRPM", field},
        {"cmbStepCapacity", field},
        {"lnkCalculate", button},
        {"rtfHelp", label},
        {"lvCps", results},
        {"TabStrip", pane},
        {"lvMessages", pane},
        {"PicScroll", pane},
        {"picTecnic", technical},
        {"ImageCPS", label},
        {"lvPolynomials", pane},
        {"labelPoly", label},
        {"ctlCopyPolynomials", button},
        {"picDimension", pane},
        {"limitgraph", graph},
        {"picGraphLbl", pane},
        {"mnu_cpspopup", pane},
        {"mnu_cpspopup_messages", command},
        {"mnu_cpspopup_tecnic", command},
        {"mnu_cpspopup_polynomials", command},
        {"mnu_cpspopup_dimension", command},
        {"mnu_cpspopup_limits", command},
        {"mnu_cpspopup_copyclipboard", command},
    };
}

std::vector<Control> inverterControls() {
    std::vector<Control> controls = selectionControls();
    controls.push_back({"txtFrequency", field});
    return controls;
}

std::vector<Window> windows() {
    return {
        {"MDIMain",
         {
             {"mnu_file", pane},
             {"mnu_file_new_selection", command},
             {"mnu_file_close", command},
             {"mnu_file_closeall", command},
             {"mnu_file_printpreview", command},
             {"mnu_file_print", command},
             {"mnu_file_exit", command},
             {"mnu_tools", pane},
             {"mnu_tools_export", pane},
             {"mnu_tools_export_cps", command},
             {"mnu_tools_export_polynomials", command},
             {"mnu_tools_copytoclipboard", command},
             {"mnu_tools_language", pane},
             {"mnuWindow", pane},
             {"mnu_help", pane},
             {"mnu_help_guide", command},
             {"mnu_help_Builds", command},
             {"mnu_help_About", command},
             {"mnu_Window_Cascade", command},
             {"mnu_Window_TileHorizontal", command},
             {"mnu_Window_TileVertical", command},
             {"mnu_Window_ArrangeIcons", command},
             {"export", command},
             {"frameresize", command},
             {"frecciaup", command},
             {"frecciadown", command},
             {"CoolBar1", pane},
             {"ToolbarSelection", pane},
             {"ToolbarWindows", pane},
             {"cmbmeasureunits", field},
             {"cmbGroupBy", field},
             {"TabStrip", pane},
             {"StatusBar1", pane},
             {"statusCounts", label},
             {"lAlphaVersion", label},
         }},
        {"frmSelection", selectionControls()},
        {"frmselectionInverter", inverterControls()},
    };
}

const std::vector<ControlProperty>& ofEachWidget() {
    static const std::vector<ControlProperty> properties{
        {"Enabled", boolean},    {"Visible", boolean},    {"ToolTip", text},        {"ToolTipText", text},
        {"MinimumWidth", whole}, {"MaximumWidth", whole}, {"MinimumHeight", whole}, {"MaximumHeight", whole},
        {"Tag", text},           {"BackColor", colour},   {"ForeColor", colour},    {"Left", real},
        {"Top", real},           {"Width", real},         {"Height", real},         {"FontSize", real},
    };
    return properties;
}

const std::vector<ControlProperty>& ownProperties(ControlKind kind) {
    static const std::vector<ControlProperty> none;
    static const std::vector<ControlProperty> ofWindow{{"Caption", text}, {"WindowTitle", text}};
    static const std::vector<ControlProperty> ofLabel{
        {"Caption", text}, {"Text", text}, {"WordWrap", boolean}};
    static const std::vector<ControlProperty> withTag{{"Tag", text}};
    static const std::vector<ControlProperty> ofCommand{
        {"Caption", text},     {"Text", text},       {"IconText", text},   {"ToolTip", text},
        {"ToolTipText", text}, {"Enabled", boolean}, {"Visible", boolean}, {"Checked", boolean}};
    static const std::vector<ControlProperty> ofButton{
        {"Caption", text},       {"Text", text},        {"ForeColor", colour},
        {"BorderColor", colour}, {"BackColor", colour}, {"BorderColorMouseMove", colour},
        {"Main", boolean},       {"KeyHint", text}};
    static const std::vector<ControlProperty> ofField{
        {"Help", text},
        {"HelpKey", text},
        {"Locked", boolean},
        {"Tag1", text},
        {"Key", text},
        {"CaptionVisible", boolean},
        {"CaptionText", text},
        {"CaptionForeColor", colour},
        {"CaptionBackColor", colour},
        {"CaptionAlignment", whole},
        {"CaptionWidth", whole},
        {"UnitCaptionVisible", boolean},
        {"UnitCaptiontext", text},
        {"UnitCaptionForeColor", colour},
        {"UnitCaptionBackColor", colour},
        {"UnitCaptionAlignment", whole},
        {"UnitCaptionWidth", whole},
        {"ButtonVisible", boolean},
        {"ButtonBackCOlor", colour},
        {"ButtonForeColor", colour},
        {"ButtonBackColorOnCLick", colour},
        {"ButtonWidth", whole},
        {"TextForeColor", colour},
        {"TextBackColor", colour},
        {"TextBordersColor", colour},
        {"TextValue", text},
        {"TextText", text},
        {"TextFormat", text},
        {"TextType", whole},
        {"TextMax", real},
        {"TextMin", real},
        {"TextMaxLenght", whole},
        {"TextAlignment", whole},
        {"Derived", boolean},
    };
    static const std::vector<ControlProperty> ofContainer{
        {"BackColor", colour},        {"CaptionForeColor", colour},  {"BorderVisible", boolean},
        {"CaptionText", text},        {"CaptionVisible", boolean},   {"CaptionAlignment", whole},
        {"Border3D", boolean},        {"BorderLeftColor", colour},   {"BorderTopColor", colour},
        {"BorderRightColor", colour}, {"BorderBottomColor", colour}, {"BordersColor", colour},
        {"BorderRightGap", whole},    {"BorderBottomGap", whole}};
    static const std::vector<ControlProperty> ofSplitter{{"BorderStyle", whole},
                                                         {"SplitterDragColor", colour},
                                                         {"SplitterBackColor", colour},
                                                         {"Orientation", whole},
                                                         {"SplitterSize", whole},
                                                         {"Maintain", whole},
                                                         {"SplitterPos", whole},
                                                         {"RatioFromTop", real},
                                                         {"Child1", text},
                                                         {"Child2", text},
                                                         {"MaxSize", whole},
                                                         {"MaxSizeAppliesTo", whole},
                                                         {"MinSize1", whole},
                                                         {"MinSize2", whole},
                                                         {"MinSizeAux", whole},
                                                         {"AllowResize", boolean},
                                                         {"LiveUpdate", boolean},
                                                         {"ClipCursor", boolean}};
    static const std::vector<ControlProperty> ofGraph{
        {"BackColor", colour}, {"ScaleLeft", real},      {"ScaleTop", real},    {"ScaleWidth", real},
        {"ScaleHeight", real}, {"AxisVisible", boolean}, {"AxisColor", colour}, {"GridVisible", boolean},
        {"GridGap", real},     {"GridColor", colour},    {"TextX", text},       {"TextY", text}};
    switch (kind) {
        case window:
            return ofWindow;
        case field:
            return ofField;
        case button:
            return ofButton;
        case label:
            return ofLabel;
        case results:
        case technical:
            return withTag;
        case splitter:
            return ofSplitter;
        case container:
            return ofContainer;
        case graph:
            return ofGraph;
        case command:
            return ofCommand;
        case pane:
            break;
    }
    return none;
}

bool isColour(std::string_view text) {
    const auto isNumber = [](std::string_view digits, int base) {
        unsigned value = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
        return error == std::errc() && end == digits.data() + digits.size() && value <= 0xFFFFFF;
    };
    if (text.starts_with('#')) return text.size() == 7 && isNumber(text.substr(1), 16);
    if (lowered(text).starts_with("&h")) {
        std::string digits(text.substr(2));
        std::erase(digits, '&');
        return isNumber(digits, 16);
    }
    return isNumber(text, 10);
}

}  // namespace

std::span<const Window> programWindows() {
    static const std::vector<Window> all = windows();
    return all;
}

std::vector<ControlProperty> propertiesOf(ControlKind kind) {
    std::vector<ControlProperty> properties = ownProperties(kind);
    if (kind != command) properties.insert(properties.end(), ofEachWidget().begin(), ofEachWidget().end());
    return properties;
}

bool convertsTo(PropertyKind kind, std::string_view text) {
    const auto number = storedNumber(text);
    switch (kind) {
        case boolean:
            return equalIgnoringCase(text, "true") || equalIgnoringCase(text, "false") || number.has_value();
        case whole:
            return number && std::abs(*number) <= 2147483647.0;
        case real:
            return number.has_value();
        case colour:
            return isColour(text);
        case PropertyKind::text:
            break;
    }
    return true;
}

std::span<const AppliedSet> appliedSets() {
    static const std::vector<AppliedSet> all{
        {"MDIMain", "eng", true, {"MDIMain"}, true},
        {"frmSelection", "populate", true, {"frmSelection", "frmselectionInverter"}},
        {"frmSelection", "Init", true, {"frmselectionInverter"}},
        {"frmSelection", "refresh", false, {"frmSelection", "frmselectionInverter"}},
    };
    return all;
}

std::span<const NeutralChoice> neutralChoices() {
    static constexpr std::array<NeutralChoice, 6> all{{
        {"cmbMotorSize", "-1"},
        {"cmbMotorVoltage", "400_50"},
        {"cmbEco", "0"},
        {"cmbOilCooling", "1"},
        {"cmbMotorRPM", "1450"},
        {"cmbSh", "0"},
    }};
    return all;
}

bool isOwnColumn(std::string_view key) {
    constexpr std::array<std::string_view, 6> own{"Q0Btu", "QecoBtu", "ikw/ton", "@Fla", "@Lra1", "@Lra2"};
    return std::ranges::any_of(own, [key](auto each) { return equalIgnoringCase(each, key); });
}

std::vector<std::string> CompletedKey::keys() const {
    std::vector<std::string> whole;
    for (const auto& ending : endings) {
        std::string key(pattern);
        const auto gap = key.find("%1");
        if (gap == std::string::npos)
            key += ending;
        else
            key.replace(gap, 2, ending);
        whole.push_back(key);
    }
    return whole;
}

std::span<const CompletedKey> completedKeys() {
    static const std::vector<CompletedKey> all = [] {
        std::vector<std::string> fields;
        for (const auto& control : inverterControls())
            if (control.kind == field) fields.push_back(lowered(control.name));
        return std::vector<CompletedKey>{
            {"frmselection.tabstrip.tabs.", {"messages", "tecnic", "polynomials", "dimension", "limits"}},
            {"general.", {"ledgreen", "ledorange", "ledred", "msgerror", "msgattention", "msginformation"}},
            {"frmselection.help.%1.caption", fields, false},
            {"help.", {}, false},  // the documents of thelp, whose names are the catalogue's own
        };
    }();
    return all;
}

}  // namespace marvello
