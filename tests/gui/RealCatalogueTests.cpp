// The windows on the catalogue that is shipped, in each of its languages.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QFontMetricsF>
#include <QLabel>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSet>
#include <QTabBar>
#include <QTest>
#include <cstdint>
#include <cstdio>
#include <memory>

#include "controls/Marks.h"
#include "controls/MessagesView.h"
#include "controls/TwoLineHeader.h"
#include "controls/ctlBtn.h"
#include "engine/clsSelections.h"
#include "tests/gui/RealForm.h"

using namespace marvello;

namespace {

class RealCatalogueTest : public ::testing::TestWithParam<const char*>, public marvello::testing::RealForm {
  protected:
    RealCatalogueTest() : RealForm(GetParam()) {}

    static void chooseRow(AdvanceText* selector, int row) {
        QTest::keyClick(selector->findChild<QLineEdit*>(), Qt::Key_Down);
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr);
        auto* rows = popup->findChild<QListWidget*>();
        rows->setCurrentRow(row);
        QTest::keyClick(rows, Qt::Key_Return);
    }
    static int choices(const AdvanceText* selector) {
        return static_cast<int>(selector->Tag1().split(';', Qt::SkipEmptyParts).size());
    }
};

/// All texts that the window shows or says.
QStringList textsOf(const QWidget& window) {
    QStringList texts;
    for (const auto* label : window.findChildren<QLabel*>()) texts += label->text();
    for (const auto* action : window.findChildren<QAction*>()) texts += {action->text(), action->toolTip()};
    for (const auto* menu : window.findChildren<QMenu*>()) texts += menu->title();
    for (const auto* button : window.findChildren<ctlBtn*>()) texts += button->text();
    for (const auto* tabs : window.findChildren<QTabBar*>())
        for (int tab = 0; tab < tabs->count(); ++tab) texts += tabs->tabText(tab);
    for (const auto* field : window.findChildren<AdvanceText*>())
        texts += {field->CaptionText(), field->TextText(), field->toolTip(), field->Tag1(),
                  field->UnitCaptiontext()};
    for (const auto* list : window.findChildren<ResultsView*>()) texts += list->columnTexts();
    for (const auto* list : window.findChildren<MessagesView*>())
        for (int row = 0; row < list->count(); ++row) texts += list->item(row)->text();
    for (const auto* widget : window.findChildren<QWidget*>()) texts += widget->accessibleName();
    return texts;
}

/// Captions, values and units of all fields that are shown have room.
void expectWholeFields(const QWidget& window) {
    for (const auto* input : window.findChildren<AdvanceText*>()) {
        if (!input->isVisible()) continue;
        const QFontMetricsF metrics(input->property("CaptionFont").value<QFont>());
        if (input->property("CaptionVisible").toBool()) {
            EXPECT_LE(metrics.horizontalAdvance(input->CaptionText()),
                      input->property("CaptionWidth").toInt() - 7)
                << input->CaptionText().toStdString();
        }
        const auto* edit = input->findChild<QLineEdit*>();
        EXPECT_LE(QFontMetricsF(edit->font()).horizontalAdvance(edit->text()), edit->width() - 3)
            << input->objectName().toStdString() << " shows " << edit->text().toStdString();
        const QFontMetricsF units(input->property("UnitCaptionFont").value<QFont>());
        if (input->property("UnitCaptionVisible").toBool()) {
            EXPECT_LE(units.horizontalAdvance(input->UnitCaptiontext().trimmed()),
                      input->property("UnitCaptionWidth").toInt());
        }
    }
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Languages, RealCatalogueTest,
                         ::testing::Values("en-EN", "it-IT", "de-DE", "fr-FR", "es-ES", "cn-CN"),
                         [](const auto& info) { return std::string(info.param, 2); });

TEST_P(RealCatalogueTest, EverySeriesIsListedWithTheValuesOfTheEngine) {
    for (int refrigerant = 0; refrigerant < choices(field("lstRefrigerants")); ++refrigerant) {
        chooseRow(field("lstRefrigerants"), refrigerant);
        for (int serie = 0; serie < choices(field("lstSeries")); ++serie) {
            chooseRow(field("lstSeries"), serie);
            SCOPED_TRACE(form->subject().toStdString());
            calculate();
            ASSERT_TRUE(boxes.isEmpty()) << boxes.join("|").toStdString();
            ASSERT_TRUE(form->hasResults());

            // The same run without a window, at the defaults of the form.
            auto conditions = std::make_shared<clsProjectConditions>(conditionsAt(2, 40));
            conditions->InverterFrequency = 0;  // the form has no field for it
            clsSelections expected;
            const std::string key = field("lstSeries")->Key().toStdString();
            const int market = key == "DZ1" ? 1 : key == "DZ2" ? 2 : 0;
            expected.Selection(conditions, market == 0 ? key : "DZ", "*",
                               field("lstRefrigerants")->Key().toStdString(),
                               static_cast<std::uint8_t>(market));
            ASSERT_EQ(list()->rowCount(), expected.Count() + 1);
            const int column = static_cast<int>(list()->columnKeys().indexOf("Q0"));
            for (int row = 1; row < list()->rowCount(); ++row) {
                const clsCompressor& compressor = expected.Item(list()->key(row).toStdString());
                if (compressor.Messages.Error.Count() > 0) {
                    EXPECT_EQ(list()->mark(row), mark::notPossible);
                    EXPECT_TRUE(list()->text(row, column).trimmed().isEmpty());
                } else {
                    char text[32];
                    std::snprintf(text, sizeof text, "%.1f", compressor.Variables("Q0"));
                    EXPECT_EQ(list()->text(row, column).toStdString(), text);
                }
            }
        }
    }
}

TEST_P(RealCatalogueTest, NoTextIsMissing) {
    calculate();
    const QRegularExpression key(
        QStringLiteral("\\b(frm|mdi|general|messages|variables|formselection)[a-z]*\\.[a-z]"));
    for (const QString& text : textsOf(*window)) {
        EXPECT_FALSE(text.contains(key)) << text.toStdString();
        EXPECT_FALSE(text.contains('{') && !text.contains("{0}")) << text.toStdString();
    }
    for (const auto* input : form->findChildren<AdvanceText*>())
        EXPECT_FALSE(input->Locked() && input->TextText().isEmpty()) << input->objectName().toStdString();
}

TEST_P(RealCatalogueTest, TooltipsOfCommandsShowNoAccessKey) {
    const QRegularExpression accessKey(QStringLiteral("&|\\([A-Z]\\)"));
    int tooltips = 0;
    for (const auto* action :
         window->findChildren<QAction*>(QRegularExpression(QStringLiteral("^mnu_file_")))) {
        ++tooltips;
        EXPECT_FALSE(action->toolTip().contains(accessKey)) << action->toolTip().toStdString();
    }
    EXPECT_GE(tooltips, 4);  // new, close, close all, exit
}

TEST_P(RealCatalogueTest, EntriesOfAMenuHaveAccessKeysOfTheirOwn) {
    window->newFind();
    const QRegularExpression accessKey(QStringLiteral("&(.)"));
    const auto expectApart = [&](const QList<QAction*>& entries, const QString& where) {
        QMap<QString, QString> texts;
        for (const QAction* entry : entries) {
            const QString key = accessKey.match(entry->text()).captured(1).toLower();
            if (key.isEmpty()) continue;
            EXPECT_FALSE(texts.contains(key))
                << qPrintable(where + ": " + texts.value(key) + ", " + entry->text());
            texts[key] = entry->text();
        }
    };
    int menus = 0;
    expectApart(window->menuBar()->actions(), QStringLiteral("menu bar"));
    for (const auto* menu : window->findChildren<QMenu*>()) {
        if (menu->objectName().isEmpty()) continue;  // those of the platform
        expectApart(menu->actions(), menu->objectName());
        if (menu->objectName() != u"mnu_cpspopup") continue;
        ++menus;
        for (const QAction* entry : menu->actions()) {
            if (!entry->isCheckable()) continue;  // what the pages are
            EXPECT_TRUE(entry->text().contains(accessKey)) << qPrintable(entry->text());
        }
    }
    EXPECT_EQ(menus, 2) << "of a selection and of a search";
}

TEST_P(RealCatalogueTest, TheHelpOfEachInputHasRoom) {
    const auto* help = form->findChild<QLabel*>(QStringLiteral("rtfHelp"));
    const auto helps = [&] {
        QStringList texts;
        for (auto* input : form->findChild<QWidget*>("Frame1")->findChildren<AdvanceText*>()) {
            if (input->objectName() == u"lstModels") continue;  // the one without help
            emit input->TextGotFocus();
            EXPECT_TRUE(help->isVisible()) << input->objectName().toStdString();
            EXPECT_LE(help->geometry().bottom(), help->parentWidget()->height());
            texts += help->text();
        }
        return texts;
    };
    const QStringList shown = helps();
    EXPECT_EQ(QSet<QString>(shown.begin(), shown.end()).size(), 18);  // economizer and its value share theirs
    window->resize(1440, 1200);
    EXPECT_EQ(helps().join('\n').toStdString(),
              shown.join('\n').toStdString());  // nothing was left out for want of room

    // A blend with glide takes two more rows: the help gives way, by whole sentences.
    window->resize(1440, 870);
    choose("lstRefrigerants", "R407C");  // whose mid temperatures are shown
    ASSERT_TRUE(field("txtTEM")->isVisible());
    const QStringList shortened = helps();
    for (qsizetype i = 0; i < shown.size(); ++i) {
        EXPECT_TRUE(shown[i].startsWith(shortened[i])) << shortened[i].toStdString();
        EXPECT_TRUE(QStringLiteral(".。").contains(shortened[i].back())) << shortened[i].toStdString();
    }
}

TEST_P(RealCatalogueTest, NoTextIsCut) {
    choose("cmbOilCooling", "2");
    choose("cmbEco", "1");
    ASSERT_TRUE(field("txtOilCooling")->isVisible() && field("txtEco")->isVisible());
    calculate();
    ASSERT_TRUE(form->hasResults());
    expectWholeFields(*window);
    for (int column = 0; column < list()->columnKeys().size(); ++column)
        EXPECT_LE(TwoLineHeader::widthOf(list()->columnTexts()[column]), list()->columnWidth(column));

    choose("lstRefrigerants", "R407C");  // whose mid temperatures are shown
    ASSERT_TRUE(field("txtTEM")->isVisible());
    expectWholeFields(*window);
}
