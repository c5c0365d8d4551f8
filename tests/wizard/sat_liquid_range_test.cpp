#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QTemporaryDir>
#include <cstdlib>
#include <map>

#include "../common/DataTable.h"
#include "../common/KeepPicture.h"
#include "../common/StoreMembers.h"
#include "ComponentTables.h"
#include "PageSupport.h"
#include "PageTest.h"
#include "WizardFixture.h"
#include "ctlOperatingRangeLiquid.h"
#include "ctlOperatingRangeSatSteam.h"

using namespace qdf;
using namespace qdf::test;

namespace {
const char* kCalcError =
    "There exists calculation error with the given input of pressure and temperature. Please "
    "fill out another value";
const std::map<std::string, std::string> kSteamPage = {
    {"txtAtmPress", "101.325"}, {"cboAtmPressUnit", "0"}, {"txtPress1", "100"},
    {"txtPress2", "1000"},      {"cboPressUnit", "0"},    {"txtPressRef", "101.325"},
    {"cboPressRefUnit", "0"}};
const std::map<std::string, std::string> kLiquidPage = {{"txtTemp1", "20"},
                                                        {"txtTemp2", "100"},
                                                        {"cboTempUnit", "32"},
                                                        {"txtTempRef", "15"},
                                                        {"cboTempRefUnit", "32"}};
}  // namespace

// The store as the fluid page leaves it for a range page, behind a 50 mm orifice in a 100 mm
// pipe, with the fluid page at the top of the path.
class SatLiquidRange : public WizardFixture {
  protected:
    // The steam grid's two-phase warning is logged, and a missing log folder fails the
    // calculation: each test gets a folder of its own.
    void SetUp() override { ::setenv("QDF_LOG_DIR", logDir_.path().toLocal8Bit().data(), 1); }
    void OpenShown(const std::string& bus = "HART", const std::string& location = "Other") {
        Open(bus, 2, location);
        main->show();
        App().setActiveWindow(main.get());
        s.UI_PEPrimaryDeviceCode = 6;
        s.UI_PEDiameterStandard = 50.0;
        s.UI_PEPipeDiameterStandard = 100.0;
        s.PageList[2] = "ctlFluidSetup";
        s.CurrentPage = 2;
    }
    // Type 2 is saturated steam; type 1 a liquid of category 1 (n-HEXANE) or 3 (own tables).
    ctlPage& Fluid(int type, int cat = 5) {
        s.UI_FluidType = type;
        s.UI_FluidCat = cat;
        s.UI_FluidName = type == 2 ? "Saturated steam" : cat == 1 ? "n-HEXANE" : "Sugar Syrup";
        s.UI_ChemID = cat == 3 ? s.UI_FluidName : std::string();
        for (const CompoundRecord& row : CompoundTables().Liquid())
            if (row.Name == s.UI_FluidName) s.UI_FluidNameMethodCode = row.ID;
        s.Gbl_OperatingRangeSetupLiquid = s.UI_FluidName;
        s.Gbl_OperatingRangeSetupLiquidCategory =
            cat == 1 ? "Liquid (DIPPR)" : "Liquid (custom data table)";
        if (type == 2) {
            main->SwitchToOperatingRangeSatSteam();
            return Steam();
        }
        main->SwitchToOperatingRangeLiquid();
        return Liquid();
    }
    ctlOperatingRangeSatSteam& Steam() { return *main->ctlOperatingRangeSatSteam1; }
    ctlOperatingRangeLiquid& Liquid() { return *main->ctlOperatingRangeLiquid1; }

    // Boxes take the text, lists select the unit code; `changes` overrides `page`.
    static void Fill(ctlPage& p, std::map<std::string, std::string> page,
                     const std::map<std::string, std::string>& changes = {}) {
        for (const auto& [k, v] : changes) page[k] = v;
        for (const auto& [name, value] : page) {
            if (auto* box = p.findChild<QLineEdit*>(QString::fromStdString(name)))
                box->setText(QString::fromStdString(value));
            if (auto* list = p.findChild<QComboBox*>(QString::fromStdString(name)))
                wizard::SelectUnit(list, std::stoi(value));
        }
    }
    // A refused Next: the row's one message with its default answer, the focus on the box and
    // its text selected or not, the page still in view.
    void ExpectRefused(ctlPage& page, const testdata::Row& r, int defaultAnswer) {
        ASSERT_EQ(host.messages.size(), 1u) << r.where();
        const Message& m = host.messages[0];
        EXPECT_EQ(m.text, r.text("message")) << r.where();
        EXPECT_EQ(m.title, "QDF300 Flow Configuration Wizard") << r.where();
        const std::vector<int> style = {m.kind, m.buttons, m.def};
        const std::vector<int> expected = {defaultAnswer == 4 ? 2 : 3, defaultAnswer == 4 ? 2 : 5,
                                           defaultAnswer};
        EXPECT_EQ(style, expected) << r.where();
        auto* focus = page.findChild<QLineEdit*>(QString::fromStdString(r.text("focus")));
        ASSERT_NE(focus, nullptr) << r.where();
        EXPECT_EQ(QApplication::focusWidget(), focus) << r.where();
        const bool selected = !focus->text().isEmpty() && focus->selectedText() == focus->text();
        EXPECT_EQ(selected, r.integer("select") == 1) << r.where();
        EXPECT_EQ(main->CurrentPageControl(), &page) << r.where();
    }
    void ExpectWalkedOn(const std::string& from) {
        EXPECT_EQ(main->CurrentPageControl()->objectName(), "ctlPhysicalPropertySetup1");
        EXPECT_EQ(s.CurrentPage, 3);
        EXPECT_EQ(s.PageList[2], from);
        EXPECT_EQ(s.PageList[3], "ctlPhysicalPropertySetup");
    }

    QTemporaryDir logDir_;
};

// Catches a step out of order, a wording that differs (the doubled blank for psi, the abs
// wording of a gauge upper bound, "bar" without its blank), a wrong default answer, a missing
// focus or selection, and a refused Next that stores.
TEST_F(SatLiquidRange, SteamRefusesAndAsksInOrder) {
    OpenShown();
    ctlPage& page = Fluid(2);
    for (const testdata::Row& r : testdata::Load("tests/wizard/data/steam_range_refusals.csv")) {
        std::map<std::string, std::string> row;
        for (const auto& [name, _] : kSteamPage) row[name] = r.text(name);
        Fill(page, row);
        page.setFocus();
        host.messages.clear();
        host.answers = {7};
        Steam().cmdNext->click();
        ExpectRefused(page, r, r.integer("default"));
        EXPECT_EQ(s.UI_RangeP1, kNotEntered) << r.where();
    }
}

// Catches a temperature limit that can be overruled, wrong limits or words (" K" for the lower
// bound only, two blanks after "and"), and limits applied to a custom liquid.
TEST_F(SatLiquidRange, LiquidRefusesInOrder) {
    OpenShown();
    for (const testdata::Row& r : testdata::Load("tests/wizard/data/liquid_range_refusals.csv")) {
        ctlPage& page = Fluid(1, r.text("fluid") == "dippr" ? 1 : 3);
        std::map<std::string, std::string> row;
        for (const auto& [name, _] : kLiquidPage) row[name] = r.text(name);
        Fill(page, row);
        page.setFocus();
        host.messages.clear();
        Liquid().cmdNext->click();
        ExpectRefused(page, r, 4);
        EXPECT_EQ(s.UI_RangeT1, kNotEntered) << r.where();
    }
}

// Catches a Yes that writes the standard value anyway, a gauge value without the atmospheric
// pressure, a store that differs, a two-phase notice not shown or not cleared, a path not kept,
// an entry of the shown reference temperature that is stored.
TEST_F(SatLiquidRange, SteamNextStoresCalculatesAndWalksOn) {
    OpenShown("FFH1");
    s.UI_RangeP1Standard = 150000.0;  // from an earlier Next
    Fill(Fluid(2), kSteamPage,
         {{"txtAtmPress", "1"},
          {"cboAtmPressUnit", "1"},
          {"txtPress1", "0.5"},
          {"cboPressUnit", "3"},
          {"txtPressRef", "1.01325"},
          {"cboPressRefUnit", "1"},
          {"txtTempRef", "-40000"}});
    host.answers = {6};  // keep 0.5 kPa gauge
    Steam().cmdNext->click();
    ASSERT_EQ(host.messages.size(), 2u);
    EXPECT_EQ(host.messages[0].text,
              "The valid range of lower bound pressure value is between 0.61121 and 100000 kPa "
              "gauge. Do you still want to use this value?");
    EXPECT_EQ(host.messages[1].title + ": " + host.messages[1].text,
              "QDF300 Information: The specified operating condition includes both gas and liquid "
              "phases");
    testdata::ExpectMembers(s, "tests/wizard/data/sat_steam_next_store.json");
    // Temperatures follow from the pressures by the steam tables: 1.5 bar and 11 bar.
    EXPECT_NEAR(s.UI_RangeT1Standard, 384.5, 0.1);
    EXPECT_NEAR(s.UI_RangeT2Standard, 457.2, 0.1);
    EXPECT_NEAR(s.UI_RefDensValueStandard, 0.5977, 0.001);
    ExpectWalkedOn("ctlOperatingRangeSatSteam");
}

// Catches a failed calculation that walks on or has the wrong title, and unit lists tested
// before the calculation instead of after it.
TEST_F(SatLiquidRange, CalculationFailureAndUnitListsAfterIt) {
    OpenShown();
    s.Mgt_GasDensTempDiv = 1;  // one division: the grid step divides by zero
    Fill(Fluid(2), kSteamPage);
    Steam().cmdNext->click();
    EXPECT_EQ(host.Texts(), std::vector<std::string>{kCalcError});
    EXPECT_EQ(host.messages[0].title, "QDF300 Warning");
    EXPECT_EQ(main->CurrentPageControl(), &Steam());
    EXPECT_EQ(s.UI_RangeP2, 1000.0);  // the entries are stored all the same

    s.Mgt_GasDensTempDiv = 3;
    host.messages.clear();
    Steam().cboAtmPressUnit->setCurrentIndex(-1);
    Steam().cmdNext->click();
    EXPECT_EQ(host.messages.back().text, "Please make a selection for atmospheric pressure unit");
    EXPECT_EQ(QApplication::focusWidget(), Steam().cboAtmPressUnit);
    EXPECT_NEAR(s.UI_RangeT1Standard, 372.76, 0.01);  // the calculation has run

    s.Mgt_LqdDensTempDiv = 1;
    host.messages.clear();
    Fill(Fluid(1, 1), kLiquidPage);
    Liquid().cmdNext->click();
    EXPECT_EQ(host.Texts(), std::vector<std::string>{kCalcError});
    EXPECT_EQ(host.messages[0].title, "QDF300 Warning");
    EXPECT_EQ(s.CurrentPage, 2);

    host.messages.clear();
    Fill(Fluid(1, 3), kLiquidPage, {{"cboTempRefUnit", "-1"}});
    Liquid().cmdNext->click();
    ExpectRefusals(host, {"Please make a selection for reference temperature unit"});
    EXPECT_EQ(main->CurrentPageControl(), &Liquid());
}

// Catches a library liquid that skips the calculation, wrong standard values or store, and a
// path not kept.
TEST_F(SatLiquidRange, DipprLiquidNextCalculatesAndWalksOn) {
    OpenShown();
    s.Xmtr_ExpFac[0] = 0.5;
    Fill(Fluid(1, 1), kLiquidPage,
         {{"txtTemp1", "68"},
          {"txtTemp2", "212"},
          {"cboTempUnit", "33"},
          {"txtTempRef", "288.15"},
          {"cboTempRefUnit", "35"}});
    Liquid().cmdNext->click();
    EXPECT_TRUE(host.messages.empty());
    EXPECT_NEAR(s.UI_RangeT1Standard, 293.15, 1e-9);
    EXPECT_NEAR(s.UI_RangeT2Standard, 373.15, 1e-9);
    EXPECT_EQ(s.UI_TempRefStandard, 288.15);
    EXPECT_EQ(std::vector<double>({s.UI_RangeT1, s.UI_RangeT2, s.UI_TempRef}),
              std::vector<double>({68.0, 212.0, 288.15}));
    EXPECT_EQ(std::vector<int>({s.UI_RangeTUnit, s.UI_TempRefUnit}), std::vector<int>({33, 35}));
    // n-hexane: near 659 kg/m3 at 20 deg C, lighter when hot.
    EXPECT_NEAR(s.UI_DensStandard[0], 659.0, 5.0);
    EXPECT_GT(s.UI_DensStandard[0], s.UI_DensStandard[3]);
    EXPECT_NEAR(s.UI_RefDensValueStandard, 664.0, 5.0);
    EXPECT_EQ(s.Xmtr_ExpFac[0], 1.0);
    ExpectWalkedOn("ctlOperatingRangeLiquid");
}

// Catches a custom liquid that runs the driver (which zeroes its tables), tables spaced or
// counted by the wrong division, a conversion left out, and a reference density converted
// though never entered.
TEST_F(SatLiquidRange, CustomLiquidPreparesTheEnteredTables) {
    OpenShown();
    s.Mgt_LqdDensTempDiv = 5;  // the density step uses 5, the loops of both tables 4
    s.Mgt_LqdVisTempDiv = 4;
    s.UI_DensUnit = 94;  // lb/ft3
    s.UI_ViscUnit = 1;   // lb/(ft s)
    const double dens[] = {62.4, 61.0, 60.0, 59.0, 58.0};
    for (int i = 0; i < 5; ++i) s.UI_Dens[i] = dens[i];
    for (int i = 0; i < 4; ++i) s.UI_Visc[i] = 0.001 * (i + 1);
    s.UI_DensTemp[4] = -1.0;
    s.UI_RefDensValueStandard = 42.0;
    s.Xmtr_ExpFac[0] = 0.5;
    Fill(Fluid(1, 3), kLiquidPage, {{"txtTemp1", "100"}, {"txtTemp2", "20"}});
    Liquid().cmdNext->click();  // refused: the maximum is below the minimum
    Fill(Liquid(), kLiquidPage);
    Liquid().cmdNext->click();
    EXPECT_EQ(host.messages.size(), 1u);

    for (int i = 0; i < 4; ++i) {
        EXPECT_DOUBLE_EQ(s.UI_DensTemp[i], 20.0 + i * 20.0) << i;
        EXPECT_NEAR(s.UI_ViscTemp[i], 20.0 + i * 80.0 / 3.0, 1e-12) << i;
        EXPECT_NEAR(s.UI_ViscStandard[i], 0.001 * (i + 1) * 0.45359237 / 0.3048, 1e-15) << i;
    }
    EXPECT_EQ(s.UI_DensTemp[4], -1.0);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(s.UI_Dens[i], dens[i]) << i;
        EXPECT_NEAR(s.UI_DensStandard[i], dens[i] * 0.45359237 / 0.028316846592, 1e-9) << i;
    }
    EXPECT_EQ(s.UI_RefDensValueStandard, 42.0);
    EXPECT_EQ(s.Xmtr_ExpFac[0], 1.0);
    ExpectWalkedOn("ctlOperatingRangeLiquid");

    // An entered reference density in lb/ft3 is converted and rounded to eight places.
    main->SwitchToOperatingRangeLiquid();
    s.CurrentPage = 2;
    s.UI_RefDensValue = 62.4;
    Liquid().cmdNext->click();
    EXPECT_EQ(s.UI_RefDensValueStandard, 999.55211454);
}

// Catches a Back that stores the entries, pops the path or goes elsewhere than the fluid page.
TEST_F(SatLiquidRange, BackGoesToTheFluidPageAndStoresNothing) {
    OpenShown();
    for (int type : {2, 1}) {
        ctlPage& page = Fluid(type, type == 2 ? 5 : 3);
        Fill(page, type == 2 ? kSteamPage : kLiquidPage);
        page.cmdBack->click();
        EXPECT_EQ(main->CurrentPageControl()->objectName(), "ctlFluidSetup1");
        EXPECT_EQ(type == 2 ? s.UI_RangeP1 : s.UI_RangeT1, kNotEntered);
        EXPECT_EQ(s.CurrentPage, 2);
        EXPECT_EQ(s.PageList[2], "ctlFluidSetup");
    }
}

// Catches a page not shown in the main control, a missing title or control, lists that ignore
// the location, and fields that don't show the store.
TEST_F(SatLiquidRange, PagesShowInTheMainControl) {
    OpenShown("HART", "Japan");
    s.UI_RangeP1 = 2;
    s.UI_RangePUnit = 5;  // psi gauge is not offered in Japan
    s.UI_AtmPressUnit = 1;
    s.UI_RangeT2 = 60;
    s.UI_RangeTUnit = 32;
    const std::map<std::string, std::vector<const char*>> controls = {
        {"ctlOperatingRangeSatSteam1",
         {"lblOperatingRangeCat", "lblOperatingRangeSetupMethod", "txtPress1", "txtPress2",
          "cboPressUnit", "txtAtmPress", "cboAtmPressUnit", "txtPressRef", "cboPressRefUnit",
          "txtTempRef", "cboTempRefUnit"}},
        {"ctlOperatingRangeLiquid1",
         {"lblOperatingRangeLiquidMethod", "lblOperatingRangeCategory", "txtTemp1", "txtTemp2",
          "cboTempUnit", "txtTempRef", "cboTempRefUnit"}}};
    for (int type : {2, 1}) {
        ctlPage& page = Fluid(type, type == 2 ? 5 : 1);
        EXPECT_EQ(main->CurrentPageControl(), &page);
        std::vector<const char*> names = controls.at(page.objectName().toStdString());
        names.insert(names.end(), {"lblOperatingRange", "cmdBack", "cmdNext", "cmdCancel"});
        ExpectShown(page, "FLUID OPERATING RANGE SETUP", names);
        KeepPicture(*main, page.objectName());
    }
    ExpectByName(Steam(),
                 "lblOperatingRangeCat=Steam;lblOperatingRangeSetupMethod=Saturated Steam;"
                 "txtPress1=2;txtAtmPress=101.325;cboPressUnit=;cboAtmPressUnit=bar abs");
    ExpectByName(Liquid(),
                 "lblOperatingRangeLiquidMethod=n-HEXANE;"
                 "lblOperatingRangeCategory=Liquid (DIPPR);txtTemp2=60;cboTempUnit=deg C");
    EXPECT_EQ(Steam().cboPressUnit->count(), 4);
    EXPECT_EQ(Liquid().cboTempRefUnit->count(), 2);
}
