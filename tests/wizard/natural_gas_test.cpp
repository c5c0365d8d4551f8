#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QTest>
#include <cstdlib>
#include <map>
#include <sstream>

#include "../common/DataTable.h"
#include "../common/KeepPicture.h"
#include "../common/StoreMembers.h"
#include "NaturalGasGrossPage.h"
#include "PageTest.h"
#include "WizardFixture.h"
#include "ctlNaturalGasSetupAga.h"
#include "ctlNaturalGasSetupGross1.h"
#include "ctlNaturalGasSetupGross2.h"
#include "ctlNaturalGasSetupISO.h"

using namespace qdf;
using namespace qdf::test;

namespace {

const char* kAga8Detail = "AGA8 Detail Characterization Method";
const char* kIsoMolar = "ISO12213 molar-composition analysis";

// A Gulf Coast type gas, in component order, whose running sum in this order is exactly 100.
const std::map<int, double> kGulfCoast = {{0, 96.5222}, {1, 0.2597},  {2, 0.5954},  {3, 1.8186},
                                          {4, 0.4596},  {10, 0.0977}, {11, 0.1007}, {12, 0.0473},
                                          {13, 0.0324}, {14, 0.0664}};

class NaturalGasPages : public WizardFixture {
  protected:
    void OpenOnScreen(const std::string& bus = "HART", const std::string& location = "Other") {
        Open(bus, 2, location);
        main->show();
        App().setActiveWindow(main.get());
    }

    ctlNaturalGasSetupAga& Aga() { return *main->ctlNaturalGasSetupAga1; }
    NaturalGasGrossPage& Gross(const std::string& name) {
        if (name == "Gross1") return *main->ctlNaturalGasSetupGross11;
        if (name == "Gross2") return *main->ctlNaturalGasSetupGross21;
        return *main->ctlNaturalGasSetupISO1;
    }
    void SwitchToGross(const std::string& name) {
        if (name == "Gross1") main->SwitchToNaturalGasSetupGross1();
        if (name == "Gross2") main->SwitchToNaturalGasSetupGross2();
        if (name == "ISO") main->SwitchToNaturalGasSetupISO();
    }
    std::string PageInView() const {
        return main->CurrentPageControl()->objectName().toStdString();
    }

    // The detail page on a stored analysis (percent by index, the rest 0).
    void ShowAnalysis(const std::string& method, const std::map<int, double>& analysis) {
        s.UI_FluidName = method;
        s.Gbl_Aga8DetailMethodName = method;
        s.NewAgaSetup = kFalse;
        const auto moles = s.DetailMoles();
        for (std::size_t k = 0; k < moles.size(); ++k) *moles[k] = 0.0;
        for (const auto& [k, v] : analysis) *moles[static_cast<std::size_t>(k)] = v;
        main->SwitchToNaturalGasSetupAga();
    }
    QString Cell(int row, int column) { return Aga().FlexDensity->item(row, column)->text(); }
    // "row,column=text;...": what the grid's cells show.
    void ExpectCells(const std::string& cells, const std::string& where = std::string()) {
        for (const std::string& item : Split(cells, ';')) {
            int row = 0, column = 0;
            char comma = 0;
            std::istringstream(item) >> row >> comma >> column;
            EXPECT_EQ(Cell(row, column).toStdString(), item.substr(item.find('=') + 1))
                << where << " " << item;
        }
    }
    // Types into a value cell through the floating edit box and leaves it.
    void TypeCell(int row, int column, const QString& text) {
        Aga().EditCell(row, column);
        Aga().txtDataEntry->setText(text);
        Aga().CommitEdit();
    }
    // The edit box stands over that cell.
    bool EditsAt(int row, int column) {
        return Aga().txtDataEntry->isVisible() &&
               Aga().txtDataEntry->geometry() ==
                   Aga().FlexDensity->visualItemRect(Aga().FlexDensity->item(row, column));
    }
    // Component k sits in the first group's rows 1 to 11, then in the second group's.
    void TypeComponent(int k, const QString& text) {
        TypeCell(k < 11 ? k + 1 : k - 10, k < 11 ? 2 : 5, text);
    }
};

// Catches a refusal out of order or worded differently, a box left filled after a range
// fault, the heating value limits of the wrong unit, or a refusal that stores.
TEST_F(NaturalGasPages, GrossAndIsoPagesRefuseInOrder) {
    OpenOnScreen();
    std::string current;
    for (const testdata::Row& r : testdata::Load("tests/wizard/data/natural_gas_refusals.csv")) {
        NaturalGasGrossPage& page = Gross(r.text("page"));
        if (r.text("page") != current) {
            current = r.text("page");
            s.UI_RgRelDens = kNotEntered;
            SwitchToGross(current);
            for (QLineEdit* box : page.findChildren<QLineEdit*>()) box->clear();
            if (page.cboVolGrHvUnit) page.cboVolGrHvUnit->setCurrentIndex(-1);
        }
        if (r.has("control")) SetByName(page, r.text("control") + "=" + r.text("text"));
        host.messages.clear();
        page.cmdNext->click();
        if (!r.has("message")) {
            EXPECT_TRUE(host.messages.empty()) << r.where();
            EXPECT_EQ(PageInView(), "ctlOperatingRangeSetup1") << r.where();
            continue;
        }
        ExpectRefusals(host, {r.text("message")}, r.where());
        const QWidget* focus = page.findChild<QWidget*>(r.text("focus").c_str());
        EXPECT_TRUE(focus && focus->hasFocus()) << r.where();
        if (auto* box = qobject_cast<const QLineEdit*>(focus)) {
            if (r.integer("emptied") == 1) {
                EXPECT_TRUE(box->text().isEmpty()) << r.where();
            }
            if (r.text("message") == "Please enter a number") {
                EXPECT_FALSE(box->text().isEmpty()) << r.where();
                EXPECT_EQ(box->selectedText(), box->text()) << r.where();
            }
        }
        EXPECT_EQ(PageInView(), page.objectName().toStdString()) << r.where();
        EXPECT_EQ(s.UI_RgRelDens, kNotEntered) << r.where();
    }
}

// Catches members stored from the wrong box, a composition vector from the wrong routine or in
// the wrong order, a heating value kept in the entered unit, or a Back stack entry missing.
TEST_F(NaturalGasPages, GrossAndIsoPagesStoreOnNext) {
    for (const testdata::Row& r : testdata::Load("tests/wizard/data/natural_gas_store.csv")) {
        main.reset();
        host.messages.clear();
        Open();
        const std::pair<const char*, double*> fields[] = {
            {"txtRealGasDens", &s.UI_RgRelDens}, {"txtCO2Mole", &s.UI_CO2Mole},
            {"txtVolGrHv", &s.UI_VgHv},          {"txtN2Mole", &s.UI_N2Mole},
            {"txtH2Mole", &s.UI_H2Mole},         {"txtCOMole", &s.UI_COMole}};
        for (const auto& [box, member] : fields) *member = 7;
        s.UI_VgHvUnit = 7;
        for (int i = 0; i < 4; ++i) s.XAga[i] = 9.0;
        s.CurrentPage = 0;
        SwitchToGross(r.text("page"));
        NaturalGasGrossPage& page = Gross(r.text("page"));
        for (const auto& [box, member] : fields)
            if (r.has(box)) page.findChild<QLineEdit*>(box)->setText(r.text(box).c_str());
        if (r.has("unit")) page.cboVolGrHvUnit->setCurrentText(r.text("unit").c_str());
        page.cmdNext->click();
        EXPECT_TRUE(host.messages.empty()) << r.where();
        EXPECT_EQ(PageInView(), "ctlOperatingRangeSetup1") << r.where();
        for (const auto& [box, member] : fields)
            EXPECT_EQ(*member, r.has(box) ? r.num(box) : 7.0) << r.where() << " " << box;
        EXPECT_EQ(s.UI_VgHvUnit, !r.has("unit") ? 7 : r.text("unit") == "MJ/m3" ? 0 : 1);
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(s.XAga[i], r.num("xaga" + std::to_string(i))) << r.where() << " " << i;
        EXPECT_DOUBLE_EQ(s.UI_VgHvStandard, r.num("standard")) << r.where();
        EXPECT_EQ(s.PageList[0], r.text("stack")) << r.where();
        EXPECT_EQ(s.PageList[1], "ctlOperatingRangeSetup") << r.where();
        EXPECT_EQ(s.CurrentPage, 1) << r.where();
    }
}

// Catches a heating value unit offered in Japan that isn't, a stored BTU/ft3 shown anyway, or
// a load that shows the sentinel in the mandatory boxes.
TEST_F(NaturalGasPages, HeatingValueUnitsFollowLocation) {
    for (const std::string location : {"Other", "Japan"}) {
        main.reset();
        host.messages.clear();
        OpenOnScreen("HART", location);
        s.UI_RgRelDens = 0.6;
        s.UI_CO2Mole = 1;
        s.UI_VgHv = 1000;
        s.UI_VgHvUnit = 1;
        for (const char* name : {"Gross1", "ISO"}) {
            SwitchToGross(name);
            NaturalGasGrossPage& page = Gross(name);
            EXPECT_EQ(page.txtRealGasDens->text(), "0.6");
            EXPECT_EQ(page.txtH2Mole->text(), "0");
            host.messages.clear();
            if (location == "Japan") {
                EXPECT_EQ(Entries(page.cboVolGrHvUnit), std::vector<std::string>{"MJ/m3"});
                EXPECT_EQ(page.cboVolGrHvUnit->currentIndex(), -1);
                // No unit, no range test: 1000 is refused only for the missing unit.
                page.cmdNext->click();
                ExpectRefusals(host,
                               {"Please make a selection of volumetric gross heating value unit"});
                EXPECT_TRUE(page.cboVolGrHvUnit->hasFocus());
            } else {
                EXPECT_EQ(Entries(page.cboVolGrHvUnit),
                          (std::vector<std::string>{"MJ/m3", "BTU/ft3"}));
                EXPECT_EQ(page.cboVolGrHvUnit->currentText(), "BTU/ft3");
            }
        }
    }
    // A never-entered value shows as an empty mandatory box.
    s.UI_RgRelDens = kNotEntered;
    main->SwitchToNaturalGasSetupGross2();
    EXPECT_TRUE(Gross("Gross2").txtRealGasDens->text().isEmpty());
}

// Catches Back that stores or goes elsewhere than the Fluid page.
TEST_F(NaturalGasPages, BackReturnsToFluidPageWithoutStoring) {
    Open();
    for (const char* name : {"Gross1", "Gross2", "ISO"}) {
        SwitchToGross(name);
        Gross(name).txtRealGasDens->setText("0.6");
        Gross(name).cmdBack->click();
        EXPECT_EQ(PageInView(), "ctlFluidSetup1") << name;
        EXPECT_EQ(s.UI_RgRelDens, kNotEntered) << name;
    }
    s.NewAgaSetup = kTrue;
    main->SwitchToNaturalGasSetupAga();
    TypeCell(1, 2, "40");
    Aga().cmdBack->click();
    EXPECT_EQ(PageInView(), "ctlFluidSetup1");
    EXPECT_EQ(s.NewAgaSetup, kFalse);
    EXPECT_EQ(s.Y21[0], 40.0);
    EXPECT_EQ(s.UI_DtlMethaneMole, 0.0);
}

// Catches a range or text of the wrong method, a component tested out of order, a sum tested
// at the wrong member or against the wrong limit, or limits that are not inclusive.
TEST_F(NaturalGasPages, DetailPageRangeAndSumTexts) {
    Open();
    for (const testdata::Row& r : testdata::Load("tests/wizard/data/aga_detail_ranges.csv")) {
        const bool iso = r.text("method") == "ISO";
        std::map<int, double> analysis;
        double rest = 100.0;
        std::stringstream items(r.text("analysis"));
        for (std::string item; std::getline(items, item, ';');) {
            const auto eq = item.find('=');
            const double v = std::stod(item.substr(eq + 1));
            analysis[std::stoi(item.substr(0, eq))] = v;
            rest -= v;
        }
        const double fillerHigh[4] = {100, iso ? 50.0 : 100, iso ? 30.0 : 100, iso ? 20.0 : 100};
        for (int k = 0; k < 4 && rest > 0; ++k) {
            if (analysis.count(k)) continue;
            analysis[k] = std::min(rest, fillerHigh[k]);
            rest -= analysis[k];
        }
        ShowAnalysis(iso ? kIsoMolar : kAga8Detail, analysis);
        ASSERT_EQ(Aga().txtTotalMole->text(), "100") << r.where();
        s.CurrentPage = 0;
        Aga().cmdNext->click();
        EXPECT_TRUE(host.messages.empty()) << r.where();
        EXPECT_EQ(Aga().txtMessage->text().toStdString(), r.text("message")) << r.where();
        EXPECT_EQ(PageInView(),
                  r.has("message") ? "ctlNaturalGasSetupAga1" : "ctlOperatingRangeSetup1")
            << r.where();
    }
}

// Catches a total compared after rounding, the messages of the total swapped, a negative total
// refused, scaling that skips the cell under edit, rounds by the wrong pattern or leaves the
// total unsummed, and a fault text that outlives Standardize or Reset.
TEST_F(NaturalGasPages, DetailPageTotalStandardizeAndReset) {
    Open();
    for (const testdata::Row& r : testdata::Load("tests/wizard/data/aga_detail_steps.csv")) {
        const std::string step = r.text("step");
        int row = 0, column = 0;
        char comma = 0;
        std::istringstream(r.text("cell")) >> row >> comma >> column;
        std::map<int, double> analysis;
        if (step == "show" || step == "typeall")
            for (const std::string& item : Split(r.text("text"), ';'))
                analysis[std::stoi(item)] = std::stod(item.substr(item.find('=') + 1));
        if (step == "show") ShowAnalysis(kAga8Detail, analysis);
        if (step == "typeall")
            for (const auto& [k, v] : analysis) TypeComponent(k, QString::number(v, 'g', 10));
        if (step == "type") TypeCell(row, column, r.text("text").c_str());
        if (step == "edit") {
            Aga().EditCell(row, column);
            Aga().txtDataEntry->setText(r.text("text").c_str());
        }
        if (step == "fault") Aga().txtMessage->setText(r.text("text").c_str());
        if (step == "next") Aga().cmdNext->click();
        if (step == "normalize") Aga().cmdNormalize->click();
        if (step == "reset") Aga().cmdReset->click();
        ExpectByName(Aga(), r.text("expect"), r.where());
        ExpectCells(r.text("cells"), r.where());
        for (const std::string& item : Split(r.text("y21"), ';'))
            EXPECT_EQ(s.Y21[std::stoul(item)], std::stod(item.substr(item.find('=') + 1)))
                << r.where() << " " << item;
        EXPECT_EQ(r.has("view") ? PageInView() : "", r.text("view")) << r.where();
        if (r.has("stored")) {
            EXPECT_EQ(s.UI_DtlTotalMole, r.num("stored")) << r.where();
        }
        EXPECT_TRUE(host.messages.empty()) << r.where();
    }
}

// Catches the commit rules: the rounding that depends on the old value, an empty cell not
// taken as 0, a refused text that changes the value, or a total that drifts from the cells.
TEST_F(NaturalGasPages, DetailGridCommitsCells) {
    Open();
    for (const testdata::Row& r : testdata::Load("tests/wizard/data/aga_cell_commits.csv")) {
        ShowAnalysis(kAga8Detail, {{0, r.num("old")}, {1, 10}});
        host.messages.clear();
        TypeCell(1, 2, r.text("typed").c_str());
        EXPECT_EQ(s.Y21[0], r.num("stored")) << r.where();
        EXPECT_EQ(Cell(1, 2).toStdString(), r.text("cell")) << r.where();
        EXPECT_EQ(Aga().txtTotalMole->text().toStdString(), r.text("total")) << r.where();
        EXPECT_EQ(Aga().TotalMole(), std::stod(r.text("total"))) << r.where();
        const std::vector<std::string> notice = r.has("message")
                                                    ? std::vector<std::string>{r.text("message")}
                                                    : std::vector<std::string>{};
        EXPECT_EQ(host.Texts(), notice) << r.where();
        EXPECT_TRUE(Aga().txtDataEntry->isHidden()) << r.where();
    }

    // A cell written from outside the edit box (a script) commits the same way; a cell that
    // holds no value moves no data.
    ShowAnalysis(kAga8Detail, {});
    Aga().FlexDensity->item(3, 5)->setText("2.5");
    EXPECT_EQ(s.Y21[13], 2.5);
    EXPECT_EQ(Aga().txtTotalMole->text(), "2.5");
    Aga().FlexDensity->item(3, 4)->setText("9");
    Aga().FlexDensity->item(11, 5)->setText("9");
    Aga().EditCell(11, 5);
    EXPECT_FALSE(Aga().txtDataEntry->isVisible());
    EXPECT_EQ(Aga().TotalMole(), 2.5);
}

// Catches keys the cells must drop, and Enter that doesn't walk down the group and on.
TEST_F(NaturalGasPages, DetailGridKeysAndEnter) {
    OpenOnScreen();
    ShowAnalysis(kAga8Detail, {});
    Aga().EditCell(11, 2);
    ASSERT_TRUE(Aga().txtDataEntry->isVisible());
    QTest::keyClicks(Aga().txtDataEntry, "-1a2,3.4E5e+");
    EXPECT_EQ(Aga().txtDataEntry->text(), "12,3.45");
    Aga().txtDataEntry->setText("1.25");
    QTest::keyClick(Aga().txtDataEntry, Qt::Key_Return);
    EXPECT_EQ(s.Y21[10], 1.25);
    // Past the first group's last row the edit goes on at the top of the second group...
    EXPECT_TRUE(EditsAt(1, 5));
    QTest::keyClick(Aga().txtDataEntry, Qt::Key_1);
    QTest::keyClick(Aga().txtDataEntry, Qt::Key_Enter);
    EXPECT_EQ(s.Y21[11], 1.0);
    EXPECT_TRUE(EditsAt(2, 5));
    // ...and past the second group's last value back at the top.
    Aga().EditCell(10, 5);
    QTest::keyClick(Aga().txtDataEntry, Qt::Key_Return);
    EXPECT_TRUE(EditsAt(1, 2));
    Aga().CommitEdit();
    EXPECT_EQ(Aga().txtTotalMole->text(), "2.25");
}

// Catches a grid that shows values of a fresh setup, the wrong names or places, a total not
// rounded on load, or a method label that isn't refreshed.
TEST_F(NaturalGasPages, DetailPageLoadsTheStore) {
    Open();
    s.UI_DtlMethaneMole = 7.123456789;
    s.UI_DtlButaneMole = 5;
    s.UI_DtlArMole = 4.8;
    s.Gbl_Aga8DetailMethodName = kIsoMolar;
    s.NewAgaSetup = kTrue;
    main->SwitchToNaturalGasSetupAga();
    EXPECT_EQ(Aga().lblAgaDetail->text(), kIsoMolar);
    ExpectCells(
        "0,0=No;0,4=Component;0,5=Mole (%);6,1=Water (H20);11,1=Iso Butane (C4H10);"
        "1,4=n-Butane (C4H10);10,4=Argon (Ar);11,4=;1,2=");
    EXPECT_EQ(Aga().txtTotalMole->text(), "16.9234568");
    EXPECT_EQ(Aga().TotalMole(), 16.9234568);

    s.NewAgaSetup = kFalse;
    main->SwitchToNaturalGasSetupAga();
    ExpectCells("1,2=7.12345679;1,5=5;10,5=4.8;2,2=0");
    EXPECT_FALSE(Aga().txtDataEntry->isVisible());
}

// Catches a Next that stores other than the typed analysis, leaves NewAgaSetup, or misses the
// Back stack; and SetUIAgasetup taking the array instead of the grid or the raw total.
TEST_F(NaturalGasPages, DetailPageStoresTheAnalysis) {
    Open();
    s.NewAgaSetup = kTrue;
    s.UI_FluidName = kAga8Detail;
    s.Gbl_Aga8DetailMethodName = kAga8Detail;
    s.CurrentPage = 0;
    main->SwitchToNaturalGasSetupAga();
    for (const auto& [k, v] : kGulfCoast) TypeComponent(k, QString::number(v, 'g', 10));
    Aga().cmdNext->click();
    EXPECT_TRUE(Aga().txtMessage->text().isEmpty());
    EXPECT_EQ(PageInView(), "ctlOperatingRangeSetup1");
    const auto moles = s.DetailMoles();
    for (std::size_t k = 0; k < 21; ++k) {
        const auto it = kGulfCoast.find(static_cast<int>(k));
        EXPECT_EQ(*moles[k], it == kGulfCoast.end() ? 0.0 : it->second) << k;
    }
    testdata::ExpectMembers(s, "tests/wizard/data/aga_detail_next_store.json");

    ShowAnalysis(kAga8Detail, {});
    TypeCell(1, 2, "50.000000004");
    TypeCell(2, 2, "50");
    EXPECT_EQ(Cell(1, 2), "50.");
    Aga().SetUIAgasetup();
    EXPECT_EQ(s.UI_DtlMethaneMole, 50.0);
    EXPECT_EQ(s.Y21[0], 50.0);
    EXPECT_EQ(s.UI_DtlN2Mole, 50.0);
    EXPECT_EQ(s.UI_DtlTotalMole, 100.0);
}

// Shows each page in the main control as the user sees it; with QDF_GRAB_DIR set, saves it.
TEST_F(NaturalGasPages, PagesShowInTheMainControl) {
    OpenOnScreen();
    s.Gbl_Aga8DetailMethodName = kAga8Detail;
    s.NewAgaSetup = kFalse;
    const auto moles = s.DetailMoles();
    for (const auto& [k, v] : kGulfCoast) *moles[static_cast<std::size_t>(k)] = v;
    const std::vector<std::pair<std::string, std::vector<const char*>>> pages = {
        {"Aga",
         {"lblTitle", "lblAgaDetail", "FlexDensity", "txtTotalMole", "txtMessage", "cmdNormalize",
          "cmdReset", "cmdBack", "cmdNext", "cmdCancel", "lblNaturalGas"}},
        {"Gross1",
         {"lblTitle", "fraMandatory", "fraOptional", "txtRealGasDens", "txtCO2Mole", "txtVolGrHv",
          "cboVolGrHvUnit", "txtH2Mole", "txtCOMole", "lblRelDensReference", "cmdNext"}},
        {"Gross2",
         {"lblTitle", "fraMandatory", "fraOptional", "txtRealGasDens", "txtCO2Mole", "txtN2Mole",
          "txtH2Mole", "txtCOMole", "cmdNext"}},
        {"ISO",
         {"lblTitle", "fraMandatory", "fraOptional", "txtRealGasDens", "txtCO2Mole", "txtVolGrHv",
          "cboVolGrHvUnit", "txtH2Mole", "lblVolGrHvReference", "cmdNext"}},
    };
    for (const auto& [name, controls] : pages) {
        name == "Aga" ? main->SwitchToNaturalGasSetupAga() : SwitchToGross(name);
        QWidget* page = main->CurrentPageControl();
        QApplication::processEvents();
        ExpectShown(*page, "NATURAL GAS SETUP", controls);
        for (const char* control : controls) {
            // Nothing is pushed off the page.
            const QWidget* w = page->findChild<QWidget*>(control);
            ASSERT_NE(w, nullptr) << name << " " << control;
            const QRect r(w->mapTo(page, QPoint(0, 0)), w->size());
            EXPECT_TRUE(page->rect().contains(r)) << name << " " << control;
        }
        KeepPicture(*main, QString::fromStdString(name));
    }
    EXPECT_EQ(Gross("Gross2").txtVolGrHv, nullptr);
    EXPECT_EQ(Gross("ISO").txtCOMole, nullptr);
    EXPECT_EQ(Gross("Gross1").findChild<QLineEdit*>("txtN2Mole"), nullptr);
}

}  // namespace
