// What a person does with the search for a compressor, on the catalogue that is shipped.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>
#include <cmath>

#include "controls/FilterChip.h"
#include "controls/Link.h"
#include "controls/ResultsView.h"
#include "controls/TabStrip.h"
#include "controls/TagBox.h"
#include "controls/ctlCombo.h"
#include "data/Csv.h"
#include "tests/gui/RealWindow.h"
#include "tests/support/Controls.h"
#include "tests/support/Person.h"
#include "workspace/SelectionForm.h"
#include "workspace/frmFind.h"

using namespace marvello;
using marvello::testing::control;
using marvello::testing::field;

namespace {

class FindFormTest : public ::testing::Test, public marvello::testing::RealWindow {
  protected:
    FindFormTest() : RealWindow("en-EN"), form(window->newFind()) {
        EXPECT_TRUE(found());
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    ~FindFormTest() override { EXPECT_TRUE(boxes.isEmpty()) << boxes.join('\n').toStdString(); }

    bool found() const {
        constexpr int most = 60000;  // milliseconds; under a sanitizer on a busy machine
        return QTest::qWaitFor([this] { return !form->isSearching(); }, most);
    }
    ResultsView* list() const { return control<ResultsView>(*form, "lvCps"); }
    TagBox* refrigerants() const { return form->findChild<TagBox*>(); }
    FilterChip* chip(const char* name) const {
        return form->findChild<FilterChip*>(QStringLiteral("chip_") + QLatin1String(name));
    }
    QWidget* page() const { return control<QWidget>(*form, "frame2"); }
    QString spokenPage() const { return page()->accessibleName(); }
    void type(const char* name, const QString& text) {
        marvello::testing::type(*form, name, text);
        EXPECT_TRUE(found());
    }
    void chooseRefrigerants(const QStringList& keys) {
        refrigerants()->setChosen(keys);
        emit refrigerants() -> chosenByUser();
        EXPECT_TRUE(found());
    }
    int column(const char* key) const { return static_cast<int>(list()->columnKeys().indexOf(key)); }
    QList<double> numbers(const char* key) const {
        QList<double> values;
        for (int row = 0; row < list()->rowCount(); ++row)
            values += list()->text(row, column(key)).toDouble();
        return values;
    }
    void sortBy(const char* key) { emit list() -> headingClicked(QLatin1String(key)); }
    int countOf(const FilterChip& of) const { return of.accessibleName().section(", ", -1).toInt(); }

    frmFind* form;
};

}  // namespace

TEST_F(FindFormTest, OldSolutionsNeverLookValidNextToNewInputs) {
    ASSERT_TRUE(form->hasResults());
    const int before = list()->rowCount();
    QAction* const copy = window->findChild<QAction*>("mnu_tools_copytoclipboard");
    EXPECT_TRUE(copy->isEnabled());
    QSignalSpy opened(form, &frmFind::opened);
    marvello::testing::type(*form, "txtCapacity", "400");
    EXPECT_FALSE(form->hasResults());
    EXPECT_EQ(list()->rowCount(), before) << "they stay, dimmed";
    EXPECT_FALSE(copy->isEnabled());
    QTest::keyClick(list(), Qt::Key_Return);
    EXPECT_EQ(opened.count(), 0);
    ASSERT_TRUE(found());
    EXPECT_TRUE(form->hasResults());
    EXPECT_TRUE(copy->isEnabled());
    for (const double capacity : numbers("capacity")) {
        EXPECT_GE(capacity, 400 * 0.95 - 0.05);
        EXPECT_LE(capacity, 400 * 1.20 + 0.05);
    }
}

TEST_F(FindFormTest, ASolutionOpensAsTheSelectionThatCalculatesItsFigures) {
    chip("all")->click();
    QSet<int> kinds;
    for (int row = 0; row < list()->rowCount() && kinds.size() < 2; ++row) {
        list()->selectRow(row);
        const Candidate& candidate = *form->results().selected();
        if (kinds.contains(candidate.compressor->hasInvert)) continue;
        kinds += candidate.compressor->hasInvert;
        const Candidate expected = candidate;
        QTest::keyClick(list(), Qt::Key_Return);
        auto* selection = qobject_cast<SelectionForm*>(window->ActiveForm());
        ASSERT_TRUE(selection);
        ASSERT_TRUE(selection->hasResults());
        EXPECT_EQ(selection->TypeForm(), expected.compressor->hasInvert ? 1 : 0);
        const ResultRow* shown = selection->results().selected();
        ASSERT_TRUE(shown);
        EXPECT_EQ(shown->compressor->Model, expected.compressor->Model);
        EXPECT_EQ(shown->compressor->Refrigerant, expected.compressor->Refrigerant);
        // All digits, and not those that are shown: the frequency is not rounded on the way.
        EXPECT_EQ(shown->compressor->Variables[var::Q0] * expected.machines, expected.capacity);
        EXPECT_EQ(shown->compressor->Variables[var::Pta] * expected.machines, expected.power);
        selection->Quit();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_EQ(kinds.size(), 2) << "a compressor on the mains and one on an inverter";
}

TEST_F(FindFormTest, FiltersAddUpAndTheirCountsStandStill) {
    chip("all")->click();
    EXPECT_EQ(list()->rowCount(), countOf(*chip("all")));
    EXPECT_LT(countOf(*chip("best")), countOf(*chip("all")));
    const int single = countOf(*chip("onemachine"));
    chip("onemachine")->click();
    EXPECT_EQ(list()->rowCount(), single);
    for (int row = 0; row < list()->rowCount(); ++row)
        EXPECT_TRUE(list()->text(row, 0).startsWith(QString::fromUtf8("1 ×")));
    chip("nowarnings")->click();
    EXPECT_LT(list()->rowCount(), single);
    EXPECT_EQ(countOf(*chip("onemachine")), single);
    for (int row = 0; row < list()->rowCount(); ++row) EXPECT_EQ(list()->mark(row), "ledgreen");
    chip("best")->click();
    EXPECT_TRUE(chip("onemachine")->isChecked());
    EXPECT_FALSE(chip("all")->isChecked());
    // Of a refrigerant at most the best on the mains and the best on an inverter: there are no sets here.
    QHash<QString, int> ofRefrigerant;
    for (int row = 0; row < list()->rowCount(); ++row) ++ofRefrigerant[list()->text(row, 1)];
    for (const int count : ofRefrigerant) EXPECT_LE(count, 2);
}

TEST_F(FindFormTest, IsRankedByCopAndSortsByAnyColumnBothWays) {
    chip("all")->click();
    QList<double> cops = numbers("cop");
    EXPECT_TRUE(std::is_sorted(cops.rbegin(), cops.rend()));
    sortBy("capacity");
    QList<double> capacities = numbers("capacity");
    EXPECT_TRUE(std::is_sorted(capacities.begin(), capacities.end()));
    sortBy("capacity");
    capacities = numbers("capacity");
    EXPECT_TRUE(std::is_sorted(capacities.rbegin(), capacities.rend()));
}

TEST_F(FindFormTest, BadInputsHaveAStateOfTheirOwn) {
    for (const char* text : {"abc", "", "0", "-5", "1000000"}) {
        type("txtCapacity", text);
        EXPECT_FALSE(form->hasResults()) << text;
        EXPECT_TRUE(page()->isVisible()) << text;
        EXPECT_TRUE(spokenPage().contains("Capacity needed")) << spokenPage().toStdString();
    }
    type("txtCapacity", "150");
    EXPECT_TRUE(form->hasResults());
    chooseRefrigerants({});
    EXPECT_FALSE(form->hasResults());
    EXPECT_TRUE(spokenPage().contains("Refrigerants")) << spokenPage().toStdString();
    chooseRefrigerants({"R134A", "R290"});
    EXPECT_TRUE(form->hasResults());
}

TEST_F(FindFormTest, WhereNothingIsFoundTheNearestIsNamedAndAWiderToleranceHasIt) {
    chooseRefrigerants({"R134A"});
    type("txtCapacity", "3000");
    EXPECT_FALSE(form->hasResults());
    EXPECT_TRUE(control<QLabel>(*window, "statusCounts")->text().startsWith("0 "));
    // The largest of R134A, four at a time, in a plain search of the shipped catalogue.
    EXPECT_TRUE(spokenPage().contains(QString::fromUtf8("4\u00A0×\u00A0"))) << spokenPage().toStdString();
    auto* widen = control<Link>(*form, "link0");
    ASSERT_TRUE(widen->isVisible());
    widen->click();
    ASSERT_TRUE(found());
    ASSERT_TRUE(form->hasResults());
    EXPECT_GE(list()->rowCount(), 1);
    EXPECT_LT(field(*form, "txtBelow")->number(), -5);
}

TEST_F(FindFormTest, SaysWhyCompressorsAreNotPossible) {
    int counted = 0;
    const marvello::testing::Person person({[&counted](QWidget& dialog) {
        auto* tree = dialog.findChild<QTreeWidget*>();
        for (int i = 0; i < tree->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* reason = tree->topLevelItem(i);
            EXPECT_TRUE(reason->text(0).endsWith(QString::number(reason->childCount())));
            counted += reason->childCount();
        }
        dialog.close();
    }});
    control<Link>(*form, "lnkRejected")->click();
    EXPECT_GT(counted, 0);
    EXPECT_EQ(counted, static_cast<int>(form->results().result()->rejections.size()));
}

TEST_F(FindFormTest, OneRefrigerantHasItsPressures) {
    EXPECT_TRUE(field(*form, "txtPE")->isHidden());
    chooseRefrigerants({"R407C"});
    EXPECT_FALSE(field(*form, "txtPE")->isHidden());
    EXPECT_FALSE(field(*form, "txtTEM")->isHidden());
    type("txtTCM", "42");
    const double dew = field(*form, "txtTCD")->number();
    EXPECT_GT(dew, 42) << "above the middle of the glide";
    chooseRefrigerants({"R407C", "R134A"});
    EXPECT_TRUE(field(*form, "txtTCM")->isHidden());
    EXPECT_EQ(field(*form, "txtTCD")->number(), dew);
}

TEST_F(FindFormTest, TheSystemOfUnitsChangesFiguresAndNotSolutions) {
    const QString first = list()->key(0);
    const int rows = list()->rowCount();
    const double capacity = numbers("capacity").front();
    form->MeasureUnits(1, true);
    EXPECT_NEAR(field(*form, "txtCapacity")->number(), 150 / 3.516853, 0.005);
    EXPECT_EQ(list()->key(0), first);
    EXPECT_EQ(list()->rowCount(), rows);
    EXPECT_NEAR(numbers("capacity").front(), capacity / 3.516853, 0.06);
    form->MeasureUnits(0, true);
    EXPECT_EQ(field(*form, "txtCapacity")->number(), 150);
}

TEST_F(FindFormTest, ColumnsAreHiddenAndCopiedAsShown) {
    form->results().setSwitchedColumns({"margin", "nearestLimit"});
    EXPECT_EQ(column("margin"), -1);
    list()->selectRow(0);
    form->CopyToClipBoard();
    const QStringList lines = QApplication::clipboard()->text().split("\r\n");
    ASSERT_GE(lines.size(), 2);
    EXPECT_EQ(lines[0].split('\t').size(), list()->columnKeys().size());
    EXPECT_EQ(lines[1].split('\t').first(), list()->text(0, 0));
    EXPECT_TRUE(lines[0].contains("Capacity(kW)"));
}

TEST_F(FindFormTest, TheNextSearchGoesOnWithInputsAndList) {
    type("txtCapacity", "80");
    chooseRefrigerants({"R290", "R513A"});
    chip("inverter")->click();
    form->results().setSwitchedColumns({"speed"});
    form->Quit();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    SelectionForm* selection = window->newSelection();
    marvello::testing::type(*selection, "txtTED", "-3");
    form = window->newFind();
    ASSERT_TRUE(found());
    EXPECT_EQ(field(*form, "txtCapacity")->number(), 80);
    EXPECT_EQ(refrigerants()->chosen(), (QStringList{"R290", "R513A"}));
    EXPECT_EQ(field(*form, "txtTED")->number(), -3) << "the operating point is that of the form at hand";
    EXPECT_TRUE(chip("inverter")->isChecked());
    EXPECT_EQ(column("speed"), -1);
}

TEST_F(FindFormTest, F6GoesRoundInputsListTabsAndPage) {
    list()->selectRow(0);
    field(*form, "txtCapacity")->setFocus();
    const auto part = [this]() -> QString {
        const QWidget* now = QApplication::focusWidget();
        if (now == list()) return "list";
        return qobject_cast<const TabStrip*>(now)                       ? "tabs"
               : form->findChild<QWidget*>("Frame4")->isAncestorOf(now) ? "page"
                                                                        : "inputs";
    };
    QStringList parts;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6);
        parts += part();
    }
    EXPECT_EQ(parts, (QStringList{"list", "tabs", "page", "inputs"}));
}

TEST_F(FindFormTest, CtrlPageDownGoesRoundThePages) {
    list()->selectRow(0);
    list()->setFocus();
    auto* const tabs = form->findChild<TabStrip*>("TabStrip");
    QStringList pages;
    for (int i = 0; i < tabs->count(); ++i) {
        pages += tabs->currentKey();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown, Qt::ControlModifier);
    }
    EXPECT_EQ(pages.removeDuplicates(), 0);
    EXPECT_EQ(tabs->currentIndex(), 0);
    EXPECT_TRUE(list()->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(tabs->currentIndex(), tabs->count() - 1);
    EXPECT_TRUE(form->findChild<QWidget*>("Frame4")->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(FindFormTest, AChipLimitsTheListToChosenValues) {
    chip("all")->click();
    const int all = list()->rowCount();
    FilterChip* const series = chip("fact2");
    series->click();
    auto* const values = window->findChild<ctlCombo*>(QStringLiteral("lstFacts"));
    ASSERT_TRUE(values && values->isVisible());
    EXPECT_FALSE(series->isChecked());
    emit values->Choice(QStringLiteral("TK-D;TK-B"), {});
    values->hide();
    EXPECT_TRUE(series->isChecked());
    EXPECT_TRUE(series->hasFocus());
    const int chosen = list()->rowCount();
    EXPECT_GT(chosen, 0);
    EXPECT_LT(chosen, all);
    EXPECT_TRUE(series->accessibleName().endsWith(QStringLiteral("TK-B, TK-D, %1").arg(chosen)))
        << series->accessibleName().toStdString();
    series->click();
    emit values->Choice(QStringLiteral("*"), {});
    values->hide();
    EXPECT_FALSE(series->isChecked());
    EXPECT_EQ(list()->rowCount(), all);
}

TEST_F(FindFormTest, EveryLanguageHasItsTexts) {
    for (const char* language : {"de-DE", "fr-FR", "it-IT", "es-ES", "cn-CN", "en-EN"}) {
        window->chooseLanguage(language);
        for (const auto* label : form->findChildren<FilterChip*>())
            EXPECT_FALSE(label->text().contains("find.")) << language;
        for (const QString& text : list()->columnTexts()) EXPECT_FALSE(text.contains("find.")) << language;
        EXPECT_TRUE(form->hasResults());
    }
}

TEST_F(FindFormTest, TheTabKeyGoesFromTheFiltersToTheListAndItsReasons) {
    control<Link>(*form, "lnkDefaults")->setFocus();
    QStringList names;
    for (int i = 0; i < 14; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const QWidget* now = QApplication::focusWidget();
        names += now->objectName().isEmpty() ? QString(now->metaObject()->className()) : now->objectName();
    }
    const QStringList expected{"chip_best",
                               "chip_nowarnings",
                               "chip_onemachine",
                               "chip_inverter",
                               "chip_lowgwp",
                               "chip_notflammable",
                               "chip_fact0",
                               "chip_fact1",
                               "chip_fact2",
                               "lvCps",
                               "marvello::TwoLineHeader",
                               "lnkRejected",
                               "TabStrip",
                               "lvMessages"};
    EXPECT_EQ(names.join(' ').toStdString(), expected.join(' ').toStdString());
}
