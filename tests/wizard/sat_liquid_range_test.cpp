#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QTemporaryDir>
#include <cstdlib>

#include "../common/DataTable.h"
#include "ComponentTables.h"
#include "PageSupport.h"
#include "WizardFixture.h"
#include "ctlOperatingRangeLiquid.h"
#include "ctlOperatingRangeSatSteam.h"

using namespace qdf;
using namespace qdf::test;

namespace {

const char* kWizardTitle = "QDF300 Flow Configuration Wizard";
const char* kCalcError =
    "There exists calculation error with the given input of pressure and temperature. Please "
    "fill out another value";

void SetBox(QLineEdit* box, const std::string& text) {
    box->setText(QString::fromStdString(text));
}

}  // namespace

// The main control with the store as the fluid page leaves it for one of the two range pages,
// behind an orifice of 50 mm in a 100 mm pipe.
class SatLiquidRange : public WizardFixture {
  protected:
    // The two-phase warning of the steam grid is logged, and a missing log folder would fail
    // the calculation: each test gets a folder of its own.
    void SetUp() override {
        ASSERT_TRUE(logDir_.isValid());
        ::setenv("QDF_LOG_DIR", logDir_.path().toLocal8Bit().constData(), 1);
    }
    void OpenShown(const std::string& bus = "HART", const std::string& location = "Other") {
        Open(bus, 2, location);
        main->show();
        App().setActiveWindow(main.get());
        s.UI_PEName = "Orifice Flange Taps [ISO5167-2 2003]";
        s.UI_PEPrimaryDeviceCode = 6;
        s.UI_PEDiameterStandard = 50.0;
        s.UI_PEPipeDiameterStandard = 100.0;
        // The path so far: the fluid page is the entry at CurrentPage.
        s.PageList[0] = "ctlModeSelection";
        s.PageList[1] = "ctlPrimaryElementSetup";
        s.PageList[2] = "ctlFluidSetup";
        s.CurrentPage = 2;
    }
    void SaturatedSteam() {
        s.UI_FluidType = 2;
        s.UI_FluidCat = 5;
        s.UI_FluidName = "Saturated steam";
        s.UI_FluidNameMethodCode = -102;
        s.UI_ChemID.clear();
        s.Gbl_PhysicalPropertyCategory = "Steam";
        s.Gbl_PhysicalPropertyName = "Saturated steam";
        main->SwitchToOperatingRangeSatSteam();
    }
    void DipprLiquid() {
        s.UI_FluidType = 1;
        s.UI_FluidCat = 1;
        s.UI_FluidName = "n-HEXANE";
        for (const CompoundRecord& row : CompoundTables().Liquid())
            if (row.Name == "n-HEXANE") s.UI_FluidNameMethodCode = row.ID;
        s.UI_ChemID.clear();
        s.Gbl_PhysicalPropertyCategory = "Liquid (DIPPR)";
        s.Gbl_PhysicalPropertyName = "n-HEXANE";
        s.Gbl_OperatingRangeSetupLiquid = "n-HEXANE";
        s.Gbl_OperatingRangeSetupLiquidCategory = "Liquid (DIPPR)";
        main->SwitchToOperatingRangeLiquid();
    }
    void CustomLiquid() {
        s.UI_FluidType = 1;
        s.UI_FluidCat = 3;
        s.UI_FluidName = "Sugar Syrup";
        s.UI_ChemID = "Sugar Syrup";
        s.Gbl_PhysicalPropertyCategory = "Liquid (custom data table)";
        s.Gbl_PhysicalPropertyName = "Sugar Syrup";
        s.Gbl_OperatingRangeSetupLiquid = "Sugar Syrup";
        s.Gbl_OperatingRangeSetupLiquidCategory = "Liquid (custom data table)";
        main->SwitchToOperatingRangeLiquid();
    }
    QTemporaryDir logDir_;

    ctlOperatingRangeSatSteam& Steam() { return *main->ctlOperatingRangeSatSteam1; }
    ctlOperatingRangeLiquid& Liquid() { return *main->ctlOperatingRangeLiquid1; }

    void FillSteam(const std::string& atm, int atmUnit, const std::string& p1,
                   const std::string& p2, int pUnit, const std::string& pRef, int pRefUnit) {
        ctlOperatingRangeSatSteam& p = Steam();
        SetBox(p.txtAtmPress, atm);
        wizard::SelectUnit(p.cboAtmPressUnit, atmUnit);
        SetBox(p.txtPress1, p1);
        SetBox(p.txtPress2, p2);
        wizard::SelectUnit(p.cboPressUnit, pUnit);
        SetBox(p.txtPressRef, pRef);
        wizard::SelectUnit(p.cboPressRefUnit, pRefUnit);
    }
    void FillLiquid(const std::string& t1, const std::string& t2, int tUnit,
                    const std::string& tRef, int tRefUnit) {
        ctlOperatingRangeLiquid& p = Liquid();
        SetBox(p.txtTemp1, t1);
        SetBox(p.txtTemp2, t2);
        wizard::SelectUnit(p.cboTempUnit, tUnit);
        SetBox(p.txtTempRef, tRef);
        wizard::SelectUnit(p.cboTempRefUnit, tRefUnit);
    }
    // The one message a refused Next showed, the focus on `focus` and its text selected or not.
    void ExpectRefused(const ctlPage& page, const testdata::Row& r, int defaultAnswer) {
        ASSERT_EQ(host.messages.size(), 1u) << r.where();
        const Message& m = host.messages[0];
        EXPECT_EQ(m.text, r.text("message")) << r.where();
        EXPECT_EQ(m.title, kWizardTitle) << r.where();
        EXPECT_EQ(m.def, defaultAnswer) << r.where();
        EXPECT_EQ(m.kind, defaultAnswer == 4 ? 2 : 3) << r.where();
        EXPECT_EQ(m.buttons, defaultAnswer == 4 ? 2 : 5) << r.where();
        auto* focus = page.findChild<QLineEdit*>(QString::fromStdString(r.text("focus")));
        ASSERT_NE(focus, nullptr) << r.where();
        EXPECT_EQ(QApplication::focusWidget(), focus) << r.where();
        const bool selected = !focus->text().isEmpty() && focus->selectedText() == focus->text();
        EXPECT_EQ(selected, r.integer("select") == 1) << r.where();
        EXPECT_EQ(main->CurrentPageControl(), &page) << r.where();
    }
};

// Catches a step out of order, a wording that differs (the doubled blank for psi, the abs
// wording of a gauge upper bound, "bar" without its blank), a wrong default answer, a missing
// focus or selection, and a refused Next that stores or walks on.
TEST_F(SatLiquidRange, SteamRefusesAndAsksInOrder) {
    OpenShown();
    SaturatedSteam();
    s.UI_RangeP1 = 777;
    for (const testdata::Row& r : testdata::Load("tests/wizard/data/steam_range_refusals.csv")) {
        FillSteam(r.text("atm"), r.integer("atmUnit"), r.text("p1"), r.text("p2"),
                  r.integer("pUnit"), r.text("pRef"), r.integer("pRefUnit"));
        Steam().setFocus();
        host.messages.clear();
        host.answers = {7};
        Steam().cmdNext->click();
        ExpectRefused(Steam(), r, r.integer("default"));
        EXPECT_EQ(s.UI_RangeP1, 777) << r.where();
        EXPECT_EQ(s.CurrentPage, 2) << r.where();
    }
}

// Catches a temperature limit that can be overruled, the wrong limits or words (" K" for the
// lower bound only, two blanks after "and"), and limits applied to a custom liquid.
TEST_F(SatLiquidRange, LiquidRefusesInOrder) {
    OpenShown();
    s.UI_RangeT1 = 777;
    for (const testdata::Row& r : testdata::Load("tests/wizard/data/liquid_range_refusals.csv")) {
        if (r.text("fluid") == "dippr")
            DipprLiquid();
        else
            CustomLiquid();
        FillLiquid(r.text("t1"), r.text("t2"), r.integer("tUnit"), r.text("tRef"),
                   r.integer("tRefUnit"));
        Liquid().setFocus();
        host.messages.clear();
        host.answers = {6};
        Liquid().cmdNext->click();
        ExpectRefused(Liquid(), r, 4);
        EXPECT_EQ(s.UI_RangeT1, 777) << r.where();
    }
}

// Catches a Yes that writes the standard value anyway, a gauge value without the atmospheric
// pressure, and a store or path that differs after a Next that went through.
TEST_F(SatLiquidRange, SteamNextStoresCalculatesAndWalksOn) {
    OpenShown("FFH1");
    SaturatedSteam();
    s.UI_RangeP1Standard = 150000.0;  // from an earlier Next
    FillSteam("1", 1, "0.5", "1000", 3, "1.01325", 1);
    SetBox(Steam().txtTempRef, "-40000");  // the box is shown, but nothing reads it
    const double tempRefBefore = s.UI_TempRef;
    host.answers = {6};  // keep 0.5 kPa gauge
    Steam().cmdNext->click();

    ASSERT_GE(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].text,
              "The valid range of lower bound pressure value is between 0.61121 and 100000 kPa "
              "gauge. Do you still want to use this value?");
    EXPECT_EQ(s.UI_AtmPressStandard, 100000.0);
    EXPECT_EQ(s.UI_RangeP1Standard, 150000.0);
    EXPECT_EQ(s.UI_RangeP2Standard, 1100000.0);
    EXPECT_EQ(s.UI_PressRefStandard, 101325.0);
    EXPECT_EQ(s.UI_RangeP1, 0.5);
    EXPECT_EQ(s.UI_RangeP2, 1000.0);
    EXPECT_EQ(s.UI_RangePUnit, 3);
    EXPECT_EQ(s.UI_AtmPress, 1.0);
    EXPECT_EQ(s.UI_AtmPressUnit, 1);
    EXPECT_EQ(s.UI_PressRef, 1.01325);
    EXPECT_EQ(s.UI_PressRefUnit, 1);
    EXPECT_EQ(s.UI_TempRef, tempRefBefore);

    // The temperatures follow from the pressures by the steam tables: 1.5 bar and 11 bar.
    EXPECT_NEAR(s.UI_RangeT1Standard, 384.5, 0.1);
    EXPECT_NEAR(s.UI_RangeT2Standard, 457.2, 0.1);
    EXPECT_NEAR(s.UI_RefDensValueStandard, 0.5977, 0.001);  // saturated at 1 atm
    for (int k = 0; k < s.Mgt_GasDensDiv; ++k) EXPECT_GT(s.UI_DensStandard[k], 0.0) << k;

    // The grid reaches below the saturation line of its higher pressures, which the driver
    // reports as a two-phase warning: shown once, then cleared.
    ASSERT_EQ(host.messages.size(), 2u);
    EXPECT_EQ(host.messages[1].title, "QDF300 Information");
    EXPECT_EQ(host.messages[1].text,
              "The specified operating condition includes both gas and liquid phases");
    EXPECT_EQ(s.Gbl_ErrorCode, kNotEntered);
    EXPECT_EQ(s.Gbl_ErrorSubCode, kNotEntered);

    EXPECT_EQ(main->CurrentPageControl()->objectName(), "ctlPhysicalPropertySetup1");
    EXPECT_EQ(s.CurrentPage, 3);
    EXPECT_EQ(s.PageList[2], "ctlOperatingRangeSatSteam");
    EXPECT_EQ(s.PageList[3], "ctlPhysicalPropertySetup");
}

// Catches a calculation failure that walks on or is worded under the wrong title, and unit
// lists tested before the calculation instead of after it.
TEST_F(SatLiquidRange, SteamCalculationFailureAndUnitListsAfterIt) {
    OpenShown();
    SaturatedSteam();
    s.Mgt_GasDensTempDiv = 1;  // one division: the grid step divides by zero
    FillSteam("101.325", 0, "100", "1000", 0, "101.325", 0);
    Steam().cmdNext->click();
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].title, "QDF300 Warning");
    EXPECT_EQ(host.messages[0].text, kCalcError);
    EXPECT_EQ(main->CurrentPageControl(), &Steam());
    EXPECT_EQ(s.UI_RangeP2, 1000.0);  // the entries are stored all the same
    EXPECT_EQ(s.CurrentPage, 2);

    s.Mgt_GasDensTempDiv = 3;
    for (const auto& [list, text] : std::vector<std::pair<QComboBox*, std::string>>{
             {Steam().cboPressUnit, "Please make a selection for static pressure unit"},
             {Steam().cboAtmPressUnit, "Please make a selection for atmospheric pressure unit"},
             {Steam().cboPressRefUnit,
              "Please make a selection for reference static pressure unit"}}) {
        FillSteam("101.325", 0, "100", "1000", 0, "101.325", 0);
        list->setCurrentIndex(-1);
        s.UI_RangeT1Standard = kNotEntered;
        host.messages.clear();
        Steam().cmdNext->click();
        ASSERT_FALSE(host.messages.empty());
        EXPECT_EQ(host.messages.back().text, text);
        EXPECT_EQ(QApplication::focusWidget(), list);
        EXPECT_NE(s.UI_RangeT1Standard, kNotEntered) << text;  // the calculation has run
        EXPECT_EQ(main->CurrentPageControl(), &Steam());
    }
}

// Catches a library liquid that skips the calculation, the wrong standard values, and a
// page path or store that differs.
TEST_F(SatLiquidRange, DipprLiquidNextCalculatesAndWalksOn) {
    OpenShown();
    DipprLiquid();
    EXPECT_EQ(Liquid().lblOperatingRangeLiquidMethod->text(), "n-HEXANE");
    EXPECT_EQ(Liquid().lblOperatingRangeCategory->text(), "Liquid (DIPPR)");
    s.Xmtr_ExpFac[0] = 0.5;
    FillLiquid("68", "212", 33, "288.15", 35);
    Liquid().cmdNext->click();
    EXPECT_TRUE(host.messages.empty()) << host.messages[0].text;
    EXPECT_NEAR(s.UI_RangeT1Standard, 293.15, 1e-9);
    EXPECT_NEAR(s.UI_RangeT2Standard, 373.15, 1e-9);
    EXPECT_EQ(s.UI_TempRefStandard, 288.15);
    EXPECT_EQ(s.UI_RangeT1, 68.0);
    EXPECT_EQ(s.UI_RangeT2, 212.0);
    EXPECT_EQ(s.UI_RangeTUnit, 33);
    EXPECT_EQ(s.UI_TempRef, 288.15);
    EXPECT_EQ(s.UI_TempRefUnit, 35);
    // n-hexane is near 660 kg/m3 at 20 deg C and lighter when hot.
    EXPECT_NEAR(s.UI_DensStandard[0], 659.0, 5.0);
    EXPECT_GT(s.UI_DensStandard[0], s.UI_DensStandard[3]);
    EXPECT_NEAR(s.UI_RefDensValueStandard, 664.0, 5.0);
    EXPECT_EQ(s.Xmtr_ExpFac[0], 1.0);
    EXPECT_EQ(main->CurrentPageControl()->objectName(), "ctlPhysicalPropertySetup1");
    EXPECT_EQ(s.CurrentPage, 3);
    EXPECT_EQ(s.PageList[2], "ctlOperatingRangeLiquid");
    EXPECT_EQ(s.PageList[3], "ctlPhysicalPropertySetup");

    // A failed calculation keeps the page and says so under the warning title.
    main->SwitchToOperatingRangeLiquid();
    s.CurrentPage = 2;
    s.Mgt_LqdDensTempDiv = 1;
    host.messages.clear();
    Liquid().cmdNext->click();
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].title, "QDF300 Warning");
    EXPECT_EQ(host.messages[0].text, kCalcError);
    EXPECT_EQ(main->CurrentPageControl(), &Liquid());
}

// Catches a custom liquid that runs the driver (which would zero its tables), tables spaced or
// counted by the wrong division, a unit conversion left out, and a reference density that is
// converted though it was never entered.
TEST_F(SatLiquidRange, CustomLiquidPreparesTheEnteredTables) {
    OpenShown();
    CustomLiquid();
    s.Mgt_LqdDensTempDiv = 5;  // the density step uses 5, the loops of both tables 4
    s.Mgt_LqdVisTempDiv = 4;
    s.UI_DensUnit = 94;  // lb/ft3
    s.UI_ViscUnit = 1;   // lb/(ft s)
    const double dens[] = {62.4, 61.0, 60.0, 59.0, 58.0};
    for (int i = 0; i < 5; ++i) s.UI_Dens[i] = dens[i];
    for (int i = 0; i < 4; ++i) s.UI_Visc[i] = 0.001 * (i + 1);
    s.UI_DensTemp[4] = -1.0;
    s.UI_RefDensValue = kNotEntered;
    s.UI_RefDensValueStandard = 42.0;
    s.Xmtr_ExpFac[0] = 0.5;

    FillLiquid("100", "20", 32, "15", 32);  // refused: the maximum is below the minimum
    Liquid().cmdNext->click();
    ASSERT_EQ(host.Texts(), std::vector<std::string>{"The value of minimum temperature value "
                                                     "must be less than the maximum temperature "
                                                     "value"});
    host.messages.clear();
    FillLiquid("20", "100", 32, "15", 32);
    Liquid().cmdNext->click();
    EXPECT_TRUE(host.messages.empty());

    const double densTemps[] = {20.0, 40.0, 60.0, 80.0};
    for (int i = 0; i < 4; ++i) EXPECT_DOUBLE_EQ(s.UI_DensTemp[i], densTemps[i]) << i;
    EXPECT_EQ(s.UI_DensTemp[4], -1.0);
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(s.UI_ViscTemp[i], 20.0 + i * 80.0 / 3.0, 1e-12) << i;
    const double lbft3 = 0.45359237 / (0.3048 * 0.3048 * 0.3048);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(s.UI_Dens[i], dens[i]) << i;
        EXPECT_NEAR(s.UI_DensStandard[i], dens[i] * lbft3, 1e-9) << i;
    }
    for (int i = 0; i < 4; ++i)
        EXPECT_NEAR(s.UI_ViscStandard[i], 0.001 * (i + 1) * 0.45359237 / 0.3048, 1e-15) << i;
    EXPECT_EQ(s.UI_RefDensValueStandard, 42.0);
    EXPECT_EQ(s.Xmtr_ExpFac[0], 1.0);
    EXPECT_NEAR(s.UI_RangeT1Standard, 293.15, 1e-9);
    EXPECT_EQ(main->CurrentPageControl()->objectName(), "ctlPhysicalPropertySetup1");
    EXPECT_EQ(s.PageList[2], "ctlOperatingRangeLiquid");

    // An entered reference density in lb/ft3 is converted and rounded to eight places.
    main->SwitchToOperatingRangeLiquid();
    s.CurrentPage = 2;
    s.UI_RefDensValue = 62.4;
    Liquid().cmdNext->click();
    EXPECT_EQ(s.UI_RefDensValueStandard, 999.55211454);
    // In kg/m3 the tables stand as entered.
    main->SwitchToOperatingRangeLiquid();
    s.CurrentPage = 2;
    s.UI_DensUnit = 92;
    s.UI_ViscUnit = 0;
    Liquid().cmdNext->click();
    EXPECT_EQ(s.UI_RefDensValueStandard, 62.4);
    EXPECT_EQ(s.UI_DensStandard[1], 61.0);
    EXPECT_EQ(s.UI_ViscStandard[2], 0.003);
}

// Catches a Back that stores the page's entries, pops the stack or goes elsewhere than the
// fluid page, and a missing refusal of an empty temperature list after the tables.
TEST_F(SatLiquidRange, BackGoesToTheFluidPageAndStoresNothing) {
    OpenShown();
    SaturatedSteam();
    FillSteam("101.325", 0, "100", "1000", 0, "101.325", 0);
    Steam().cmdBack->click();
    EXPECT_EQ(main->CurrentPageControl()->objectName(), "ctlFluidSetup1");
    EXPECT_EQ(s.UI_RangeP1, kNotEntered);
    EXPECT_EQ(s.CurrentPage, 2);
    EXPECT_EQ(s.PageList[2], "ctlFluidSetup");

    CustomLiquid();
    FillLiquid("20", "100", 32, "15", 32);
    Liquid().cmdBack->click();
    EXPECT_EQ(main->CurrentPageControl()->objectName(), "ctlFluidSetup1");
    EXPECT_EQ(s.UI_RangeT1, kNotEntered);
    EXPECT_EQ(s.CurrentPage, 2);
    EXPECT_TRUE(host.messages.empty());

    CustomLiquid();
    FillLiquid("20", "100", 32, "15", 32);
    Liquid().cboTempRefUnit->setCurrentIndex(-1);
    Liquid().cmdNext->click();
    EXPECT_EQ(host.Texts(),
              std::vector<std::string>{"Please make a selection for reference temperature unit"});
    EXPECT_EQ(main->CurrentPageControl(), &Liquid());
}

// Catches a page that is not shown in the main control, a missing title or control, lists
// that ignore the location, and a reload that does not show the store.
TEST_F(SatLiquidRange, PagesShowInTheMainControl) {
    OpenShown("HART", "Japan");
    s.UI_RangeP1 = 2;
    s.UI_RangeP2 = 20;
    s.UI_RangePUnit = 5;  // psi gauge is not offered in Japan
    s.UI_AtmPressUnit = 1;
    s.UI_PressRefUnit = 0;
    SaturatedSteam();
    ctlOperatingRangeSatSteam& st = Steam();
    EXPECT_EQ(main->CurrentPageControl(), &st);
    EXPECT_TRUE(st.isVisible());
    EXPECT_EQ(st.findChild<QLabel*>("lblTitle")->text(), "FLUID OPERATING RANGE SETUP");
    for (const char* name :
         {"lblTitle", "lblOperatingRangeCat", "lblOperatingRangeSetupMethod", "txtPress1",
          "txtPress2", "cboPressUnit", "txtAtmPress", "cboAtmPressUnit", "txtPressRef",
          "cboPressRefUnit", "txtTempRef", "cboTempRefUnit", "cmdBack", "cmdNext", "cmdCancel",
          "lblOperatingRange"}) {
        auto* w = st.findChild<QWidget*>(name);
        ASSERT_NE(w, nullptr) << name;
        EXPECT_TRUE(w->isVisible()) << name;
    }
    EXPECT_EQ(st.lblOperatingRangeCat->text(), "Steam");
    EXPECT_EQ(st.lblOperatingRangeSetupMethod->text(), "Saturated Steam");
    EXPECT_EQ(st.txtPress1->text(), "2");
    EXPECT_EQ(st.txtAtmPress->text(), "101.325");
    EXPECT_EQ(st.txtPressRef->text(), "");
    EXPECT_EQ(st.cboPressUnit->count(), 4);
    EXPECT_EQ(st.cboPressUnit->currentIndex(), -1);
    EXPECT_EQ(st.cboAtmPressUnit->currentText(), "bar abs");
    EXPECT_EQ(st.cboPressRefUnit->currentText(), "kPa abs");
    EXPECT_EQ(st.cboTempRefUnit->count(), 2);
    if (const char* dir = std::getenv("QDF_SCREENSHOT_DIR"))
        main->grab().save(QDir(dir).filePath("ctlOperatingRangeSatSteam.png"));

    s.UI_RangeT1 = 20;
    s.UI_RangeT2 = 60;
    s.UI_RangeTUnit = 32;
    s.UI_TempRef = 15;
    s.UI_TempRefUnit = 33;  // deg F is not offered in Japan
    DipprLiquid();
    ctlOperatingRangeLiquid& lq = Liquid();
    EXPECT_EQ(main->CurrentPageControl(), &lq);
    EXPECT_FALSE(st.isVisible());
    for (const char* name :
         {"lblTitle", "lblOperatingRangeLiquidMethod", "lblOperatingRangeCategory", "txtTemp1",
          "txtTemp2", "cboTempUnit", "txtTempRef", "cboTempRefUnit", "cmdBack", "cmdNext",
          "cmdCancel", "lblOperatingRange"}) {
        auto* w = lq.findChild<QWidget*>(name);
        ASSERT_NE(w, nullptr) << name;
        EXPECT_TRUE(w->isVisible()) << name;
    }
    EXPECT_EQ(lq.lblOperatingRangeLiquidMethod->text(), "n-HEXANE");
    EXPECT_EQ(lq.txtTemp2->text(), "60");
    EXPECT_EQ(lq.cboTempUnit->currentText(), "deg C");
    EXPECT_EQ(lq.cboTempRefUnit->currentIndex(), -1);
    EXPECT_EQ(lq.cboTempUnit->count(), 2);
    if (const char* dir = std::getenv("QDF_SCREENSHOT_DIR"))
        main->grab().save(QDir(dir).filePath("ctlOperatingRangeLiquid.png"));

    // Cancel is the common one: the module closes.
    lq.cmdCancel->click();
    EXPECT_EQ(host.closed, std::vector<std::string>{"M1"});
}
