// What the check of a catalogue takes for the program's windows, against the windows.

#include <QAction>
#include <QColor>
#include <QMenu>
#include <QMetaProperty>
#include <algorithm>
#include <set>

#include "data/Globals.h"
#include "tests/workspace/WorkspaceFixture.h"
#include "tools/catalogue/Program.h"
#include "workspace/ApplyFormParameters.h"
#include "workspace/InputRules.h"
#include "workspace/MDIMain.h"
#include "workspace/WindowTexts.h"
#include "workspace/frmSelection.h"
#include "workspace/frmselectionInverter.h"

using namespace marvello;
using namespace marvello::testing;

namespace {

QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

class CatalogueControls : public WorkspaceFixture {
  protected:
    CatalogueControls() { gApplication().populateDictionary("en-EN", ""); }

    static QObject* controlOf(QWidget& window, std::string_view name) {
        for (QObject* child : window.findChildren<QObject*>())
            if (child->objectName().compare(toQt(name), Qt::CaseInsensitive) == 0) return child;
        return nullptr;
    }

    /// A text that the kind takes, and one that it refuses; none where it takes any.
    static std::pair<QString, QString> textsOf(PropertyKind kind) {
        switch (kind) {
            case PropertyKind::boolean:
                return {"False", "perhaps"};
            case PropertyKind::whole:
                return {"3", "wide"};
            case PropertyKind::real:
                return {"1.5", "1,5"};
            case PropertyKind::colour:
                return {"&H102030&", "-5"};
            case PropertyKind::text:
                break;
        }
        return {"a text", ""};
    }

    static void expectAssignable(QObject& control, const ControlProperty& property) {
        const auto [fitting, refused] = textsOf(property.kind);
        EXPECT_TRUE(convertsTo(property.kind, fitting.toStdString()));
        EXPECT_TRUE(assignProperty(control, toQt(property.name), fitting)) << property.name;
        if (refused.isEmpty()) return;
        EXPECT_FALSE(convertsTo(property.kind, refused.toStdString()));
        EXPECT_FALSE(assignProperty(control, toQt(property.name), refused)) << property.name;
    }

    /// Every property of a class of ours that takes a text is told.
    static void expectAllTold(const QObject& control, ControlKind kind) {
        std::set<QString> told;
        for (const auto& property : propertiesOf(kind)) told.insert(toQt(property.name).toLower());
        const std::set<int> convertible{QMetaType::Bool,   QMetaType::Int,     QMetaType::Float,
                                        QMetaType::Double, QMetaType::QString, QMetaType::QColor};
        const QMetaObject* meta = control.metaObject();
        if (!QString(meta->className()).startsWith("marvello::")) return;
        for (int index = meta->propertyOffset(); index < meta->propertyCount(); ++index) {
            const QMetaProperty property = meta->property(index);
            if (!property.isWritable() || !convertible.contains(property.metaType().id())) continue;
            EXPECT_TRUE(told.contains(QString(property.name()).toLower())) << property.name();
        }
    }

    static void expectTrue(QWidget& window, const Window& told) {
        for (const auto& property : propertiesOf(ControlKind::window)) expectAssignable(window, property);
        for (const Control& control : told.controls) {
            SCOPED_TRACE(std::string(told.name) + " " + std::string(control.name));
            QObject* const found = controlOf(window, control.name);
            if (!found) {
                ADD_FAILURE() << "the window has no such control";
                continue;
            }
            expectAllTold(*found, control.kind);
            for (const auto& property : propertiesOf(control.kind)) expectAssignable(*found, property);
        }
    }
};

const Window& toldOf(std::string_view name) {
    return *std::ranges::find(programWindows(), name, &Window::name);
}

}  // namespace

TEST_F(CatalogueControls, AreThoseOfTheWindows) {
    MDIMain frame("1.0.0");
    expectTrue(frame, toldOf("MDIMain"));
    frmSelection form;
    expectTrue(form, toldOf("frmSelection"));
    frmselectionInverter inverterForm;
    expectTrue(inverterForm, toldOf("frmselectionInverter"));
}

TEST_F(CatalogueControls, NoFieldOrCommandIsForgotten) {
    const auto expectTold = [](QWidget& window, const char* name) {
        std::set<QString> known;
        for (const auto& control : toldOf(name).controls) known.insert(toQt(control.name));
        for (const AdvanceText* field : window.findChildren<AdvanceText*>())
            EXPECT_TRUE(known.contains(field->objectName())) << field->objectName().toStdString();
        for (const QAction* action : window.findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly))
            EXPECT_TRUE(action->objectName().isEmpty() || known.contains(action->objectName()))
                << action->objectName().toStdString();
    };
    MDIMain frame("1.0.0");
    expectTold(frame, "MDIMain");
    frmSelection form;
    expectTold(form, "frmSelection");
    frmselectionInverter inverterForm;
    expectTold(inverterForm, "frmselectionInverter");
}
