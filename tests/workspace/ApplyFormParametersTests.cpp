#include "workspace/ApplyFormParameters.h"

#include <QLabel>
#include <QLocale>

#include "controls/ResultsView.h"
#include "data/Session.h"
#include "tests/workspace/WorkspaceFixture.h"

using namespace marvello;
using namespace marvello::testing;

namespace {

class ApplyFormParametersTest : public WorkspaceFixture {
  protected:
    ApplyFormParametersTest() {
        gApplication().populateDictionary("en-EN", "");
        input->setObjectName("txtOne");
        label->setObjectName("Label1");
        list->setObjectName("lvOne");
        catalogue.exec("insert into tParametersHead values('frm','frmTest','populate',900)");
    }
    void row(const std::string& object, const std::string& values) {
        catalogue.exec("insert into tParametersRows values(900,'" + object + "','','" + values + "')");
    }
    void apply() { ApplyFormParameters("frm", "frmTest", "populate", form); }

    QWidget form;
    AdvanceText* input = new AdvanceText(&form);
    QLabel* label = new QLabel(&form);
    ResultsView* list = new ResultsView(&form);
};

}  // namespace

TEST_F(ApplyFormParametersTest, AssignsByNameWithoutRegardToCase) {
    row("TXTONE",
        "captiontext = {variables.q0.name} x "
        "{variables.cop.name}:CaptionWidth=84.5:Enabled=False:TextMax=1.5");
    row("label1", "Caption=Hello:ToolTipText=A tip:Visible=False");
    row("lvOne", "Tag=Q0|{variables.q0.name}|kW|d|0");
    apply();
    EXPECT_EQ(input->CaptionText(), "Capacity x COP");
    EXPECT_EQ(input->property("CaptionWidth"), 84);  // half to even
    EXPECT_FALSE(input->isEnabled());
    EXPECT_EQ(input->property("TextMax"), 1.5);
    EXPECT_EQ(label->text(), "Hello");
    EXPECT_EQ(label->toolTip(), "A tip");
    EXPECT_TRUE(label->isHidden());
    EXPECT_EQ(list->property("Tag"), "Q0|Capacity|kW|d|0");
}

TEST_F(ApplyFormParametersTest, SkipsWhatDoesNotFitAndGoesOn) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    row("nobody", "CaptionText=x");
    row("txtOne",
        "NoSuchProperty=1:CaptionWidth=wide:CaptionWidth=1,5:CaptionText={no.such.key}:TextMin=-2.5");
    apply();
    EXPECT_EQ(input->property("CaptionWidth"), 112);
    EXPECT_EQ(input->CaptionText(), "");
    EXPECT_EQ(input->property("TextMin"), -2.5);
    EXPECT_TRUE(boxes.isEmpty());
    QLocale::setDefault(QLocale::c());
}

TEST_F(ApplyFormParametersTest, ReadsColoursInBothNotations) {
    row("txtOne", "TextForeColor=255:TextBackColor=#102030:CaptionForeColor=&HFF0000&:CaptionBackColor=-5");
    apply();
    EXPECT_EQ(input->property("TextForeColor").value<QColor>(), QColor(255, 0, 0));
    EXPECT_EQ(input->property("TextBackColor").value<QColor>(), QColor(0x10, 0x20, 0x30));
    EXPECT_EQ(input->property("CaptionForeColor").value<QColor>(), QColor(0, 0, 255));
    EXPECT_FALSE(input->property("CaptionBackColor").value<QColor>().isValid());
}

TEST_F(ApplyFormParametersTest, EveryControlHasTheStandardProperties) {
    QLabel plain(&form);
    plain.setObjectName("plain");
    const auto assign = [&](const char* property, const char* value) {
        return assignProperty(plain, property, value);
    };
    for (const auto& [property, value] : {std::pair{"caption", "Text"},
                                          {"ToolTipText", "Tip"},
                                          {"tag", "a;b"},
                                          {"Enabled", "False"},
                                          {"Left", "150"},
                                          {"top", "-30"},
                                          {"Width", "1500"},
                                          {"Height", "450"},
                                          {"FontSize", "9"},
                                          {"ForeColor", "255"},
                                          {"BackColor", "#102030"}})
        EXPECT_TRUE(assign(property, value)) << property;
    EXPECT_EQ(plain.text(), "Text");
    EXPECT_EQ(plain.toolTip(), "Tip");
    EXPECT_EQ(plain.property("Tag").toString(), "a;b");
    EXPECT_FALSE(plain.isEnabled());
    // 15 twips are a pixel, 72 points 96 pixels; the lowest byte of a colour is red.
    EXPECT_EQ(plain.geometry(), QRect(10, -2, 100, 30));
    EXPECT_EQ(plain.font().pixelSize(), 12);
    EXPECT_EQ(plain.palette().color(QPalette::WindowText), QColor(255, 0, 0));
    EXPECT_EQ(plain.palette().color(QPalette::Window), QColor(16, 32, 48));
    for (const auto& [property, value] : {std::pair{"Width", "wide"},
                                          {"Width", "-15"},
                                          {"Height", "1e99"},
                                          {"FontSize", "0"},
                                          {"BackColor", "red?"},
                                          {"NoSuch", "1"}})
        EXPECT_FALSE(assign(property, value)) << property;
    EXPECT_EQ(plain.size(), QSize(100, 30));
}
