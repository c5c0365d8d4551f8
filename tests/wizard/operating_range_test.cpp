#include <QLabel>
#include <cmath>
#include <sstream>

#include "../common/DataTable.h"
#include "CodeTables.h"
#include "ComponentTables.h"
#include "PageTest.h"
#include "WizardFixture.h"
#include "ctlFluidSetup.h"
#include "ctlNaturalGasSetupAga.h"
#include "ctlNaturalGasSetupGross1.h"
#include "ctlNaturalGasSetupGross2.h"
#include "ctlNaturalGasSetupISO.h"
#include "ctlOperatingRangeSetup.h"
#include "ctlPhysicalPropertySetup.h"

using namespace qdf;
using namespace qdf::test;

namespace {

const auto kNotice = std::make_tuple(2, 2, 4);
const auto kQuestion = std::make_tuple(3, 5, 7);

auto Style(const Message& m) {
    return std::make_tuple(m.kind, m.buttons, m.def);
}

class OperatingRangeTest : public WizardFixture {
  protected:
    void OpenShown(const std::string& location = "Other") {
        // Two-phase warnings write the log; keep it out of the user's folder.
        ::setenv("QDF_LOG_DIR", ::testing::TempDir().c_str(), 1);
        Open("HART", 2, location);
        // An orifice with flange taps, as the primary element page leaves it.
        s.UI_PEPrimaryDeviceCode = 6;
        s.UI_PEDiameterStandard = 50.0;
        s.UI_PEPipeDiameterStandard = 100.0;
        main->show();
        App().setActiveWindow(main.get());
    }
    ctlOperatingRangeSetup& Range() { return *main->ctlOperatingRangeSetup1; }

    // The store as the fluid page leaves it for this page, then the page in view.
    void Arrive(std::int32_t type, std::int32_t cat, const std::string& name,
                const std::string& chemId = std::string(), const std::string& catText = "Gas") {
        s.UI_FluidType = type;
        s.UI_FluidCat = cat;
        s.UI_FluidName = name;
        s.UI_ChemID = chemId;
        s.UI_FluidNameMethodCode = GetMethodCode(name, &CompoundTables());
        s.Gbl_OperatingRangeSetupMethod = chemId.empty() ? name : chemId;
        s.Gbl_OperatingRangeSetupCategory = catText;
        s.PageList[0] = "ctlFluidSetup";
        s.CurrentPage = 1;
        s.PageList[1] = "ctlOperatingRangeSetup";
        main->SwitchToOperatingRangeSetup();
    }
    void Set(const std::string& entries) { SetByName(Range(), entries); }
    // Passes every method's limits.
    void FillValid() {
        Set("txtPress1=500;txtPress2=2000;cboPressUnit=kPa abs;txtAtmPress=101.325;"
            "cboAtmPressUnit=kPa abs;txtTemp1=20;txtTemp2=40;cboTempUnit=deg C;"
            "txtPressRef=101.325;cboPressRefUnit=kPa abs;txtTempRef=15;cboTempRefUnit=deg C");
    }
    void Next() {
        host.messages.clear();
        Range().cmdNext->click();
    }
    QLineEdit* Box(const std::string& name) {
        return Range().findChild<QLineEdit*>(QString::fromStdString(name));
    }
    bool OnRangePage() const { return main->CurrentPageControl() == main->ctlOperatingRangeSetup1; }
    bool OnPhysicalPage() const {
        return main->CurrentPageControl() == main->ctlPhysicalPropertySetup1;
    }
};

}  // namespace

// Catches a validator step out of order, a wrong text, focus or selection, or a refusal that
// stores the entries.
TEST_F(OperatingRangeTest, RefusesInOrder) {
    OpenShown();
    Arrive(2, 6, "ETHANE", "", "Gas (DIPPR)");
    FillValid();
    Set("txtAtmPress=;txtPress1=;txtPress2=;txtTemp1=;txtTemp2=;txtPressRef=;txtTempRef=");
    for (const testdata::Row& r :
         testdata::Load("tests/wizard/data/operating_range_refusals.csv")) {
        if (r.has("control")) Set(r.text("control") + "=" + r.text("text"));
        Next();
        ExpectRefusals(host, {r.text("message")}, r.where());
        QLineEdit* focus = Box(r.text("focus"));
        EXPECT_TRUE(focus->hasFocus()) << r.where();
        if (r.has("selected")) {
            EXPECT_EQ(focus->selectedText(), focus->text()) << r.where();
        }
        EXPECT_TRUE(OnRangePage()) << r.where();
        EXPECT_EQ(s.UI_RangeP1, kNotEntered) << r.where();
    }
    Set("txtTempRef=15");
    Next();
    EXPECT_TRUE(host.messages.empty());
    EXPECT_TRUE(OnPhysicalPage());
}

// Catches a wrong limit, conversion, single-precision wording, blank or unit text in the range
// messages, a question where a refusal belongs (or the reverse), and a wrong focus.
TEST_F(OperatingRangeTest, RangeMessagesWordedByMethodAndUnit) {
    OpenShown();
    for (const testdata::Row& r :
         testdata::Load("tests/wizard/data/operating_range_messages.csv")) {
        Arrive(r.integer("type"), r.integer("cat"), r.text("fluid"));
        FillValid();
        Set(r.text("entries"));
        Next();  // a question is answered No
        ASSERT_EQ(host.messages.size(), 1u) << r.where();
        EXPECT_EQ(host.messages[0].text, r.text("message")) << r.where();
        EXPECT_EQ(host.messages[0].title, kWizardTitle) << r.where();
        const bool question = r.text("box").find("Press") != std::string::npos;
        EXPECT_EQ(Style(host.messages[0]), question ? kQuestion : kNotice) << r.where();
        QLineEdit* box = Box(r.text("box"));
        EXPECT_TRUE(box->hasFocus()) << r.where();
        EXPECT_EQ(box->selectedText(), box->text()) << r.where();
        EXPECT_TRUE(OnRangePage()) << r.where();
    }
}

// Catches a Yes that writes the out-of-range standard value or stops the validator, and a No
// that goes on.
TEST_F(OperatingRangeTest, PressureQuestionYesKeepsEarlierStandardValue) {
    OpenShown();
    Arrive(2, 5, "Superheated and Saturated Steam", "", "Steam");
    FillValid();
    Set("txtPress1=1000;txtPress2=3000;txtTemp1=250;txtTemp2=350;txtTempRef=150");
    Next();
    ASSERT_TRUE(OnPhysicalPage());
    main->SwitchToOperatingRangeSetup();
    Set("txtPress1=0.5;txtPressRef=0.1");
    Next();  // No
    EXPECT_EQ(host.messages.size(), 1u);
    EXPECT_TRUE(OnRangePage());
    EXPECT_EQ(s.UI_RangeP1, 1000.0);

    host.answers = {6, 6};
    Next();
    ASSERT_EQ(host.messages.size(), 2u);
    EXPECT_EQ(host.messages[1].text,
              "The valid range of reference pressure value is between 0.61121 and 100000 kPa "
              "abs. Do you still want to use this value?");
    EXPECT_TRUE(OnPhysicalPage());
    EXPECT_EQ(s.UI_RangeP1, 0.5);
    EXPECT_EQ(s.UI_RangeP1Standard, 1e6);
    EXPECT_EQ(s.UI_PressRef, 0.1);
    EXPECT_EQ(s.UI_PressRefStandard, 101325.0);
}

// Catches a wrong conversion of a standard value, gauge pressure without the atmospheric
// pressure, a unit code not stored, a calculation that did not see the new values, or a wrong
// page path.
TEST_F(OperatingRangeTest, NextStoresUnitsAndStandardValues) {
    OpenShown();
    for (const testdata::Row& r : testdata::Load("tests/wizard/data/operating_range_store.csv")) {
        Arrive(2, 6, "ETHANE", "", "Gas (DIPPR)");
        FillValid();
        Set(r.text("entries"));
        Next();
        ASSERT_TRUE(host.messages.empty()) << r.where() << host.messages[0].text;
        EXPECT_EQ(std::make_tuple(s.UI_RangePUnit, std::int32_t{s.UI_RangeTUnit}, s.UI_AtmPressUnit,
                                  s.UI_PressRefUnit, s.UI_TempRefUnit),
                  std::make_tuple(r.integer("pUnit"), r.integer("tUnit"), r.integer("atmUnit"),
                                  r.integer("refPUnit"), r.integer("refTUnit")))
            << r.where();
        const std::pair<double, const char*> standards[] = {
            {s.UI_AtmPressStandard, "atm"}, {s.UI_RangeP1Standard, "p1"},
            {s.UI_RangeP2Standard, "p2"},   {s.UI_RangeT1Standard, "t1"},
            {s.UI_RangeT2Standard, "t2"},   {s.UI_PressRefStandard, "refP"},
            {s.UI_TempRefStandard, "refT"}};
        for (const auto& [value, column] : standards)
            EXPECT_NEAR(value, r.num(column), 1e-9 * r.num(column)) << r.where() << column;
        // The driver ran on the new range: its grid starts at the standard limits.
        EXPECT_EQ(s.UI_DensTempStandard[0], s.UI_RangeT1Standard);
        EXPECT_EQ(s.UI_DensAbsPressStandard[0], s.UI_RangeP1Standard);
        EXPECT_TRUE(OnPhysicalPage());
        EXPECT_EQ(s.CurrentPage, 2);
        EXPECT_EQ(s.PageList[2], "ctlPhysicalPropertySetup");
    }
}

// Catches psi or deg F offered in "Japan", or a stored code that is not offered showing as some
// other entry.
TEST_F(OperatingRangeTest, JapanListsOfferNoPsiNorDegF) {
    using Texts = std::vector<std::string>;
    OpenShown("Japan");
    s.UI_RangePUnit = 5;
    s.UI_AtmPressUnit = 1;
    s.UI_RangeTUnit = 33;
    s.UI_TempRefUnit = 35;
    Arrive(2, 6, "ETHANE");
    ctlOperatingRangeSetup& p = Range();
    EXPECT_EQ(Entries(p.cboPressUnit), (Texts{"kPa abs", "bar abs", "kPa gauge", "bar gauge"}));
    for (const QComboBox* list : {p.cboAtmPressUnit, p.cboPressRefUnit})
        EXPECT_EQ(Entries(list), (Texts{"kPa abs", "bar abs"}));
    for (const QComboBox* list : {p.cboTempUnit, p.cboTempRefUnit})
        EXPECT_EQ(Entries(list), (Texts{"deg C", "Kelvin"}));
    EXPECT_EQ(p.cboPressUnit->currentIndex(), -1);
    EXPECT_EQ(p.cboAtmPressUnit->currentText(), "bar abs");
    EXPECT_EQ(p.cboTempUnit->currentIndex(), -1);
    EXPECT_EQ(p.cboTempRefUnit->currentText(), "Kelvin");
}

// Catches a page that shows a gauge reference pressure instead of refusing and clearing it.
TEST_F(OperatingRangeTest, GaugeReferencePressureClearedOnLoad) {
    OpenShown();
    s.UI_PressRef = 1.5;
    s.UI_PressRefUnit = 4;
    host.messages.clear();
    Arrive(2, 6, "ETHANE");
    ExpectRefusals(host, {"\nThe reference pressure must be entered as the absolute pressure.\n"
                          "Please reenter the absolute pressure equivalent to the following "
                          "gauge pressure.\n\nReference pressure : 1.5 bar gauge"});
    EXPECT_EQ(Range().txtPressRef->text(), "");
    EXPECT_EQ(Range().cboPressRefUnit->currentText(), "kPa abs");
}

// Catches a failed calculation that goes on, a two-phase warning that stops or stays in the
// store, and a library report of 600 with sub-code 1 that is not cleared.
TEST_F(OperatingRangeTest, CalculationOutcomes) {
    OpenShown();
    Arrive(2, 6, "ETHANE", "", "Gas (DIPPR)");
    FillValid();
    s.Mgt_GasDensTempDiv = 1;  // a division count that the grids cannot use
    Next();
    ExpectInformation(host, {"There exists calculation error with the given input of pressure "
                             "and temperature. Please fill out another value"});
    EXPECT_TRUE(OnRangePage());
    EXPECT_EQ(s.UI_RangeP1, 500.0);  // stored before the calculation

    s.Mgt_GasDensTempDiv = 3;
    s.Gbl_ErrorCode = 600;  // a report the run leaves standing
    s.Gbl_ErrorSubCode = 1;
    Next();
    EXPECT_TRUE(host.messages.empty());
    EXPECT_TRUE(OnPhysicalPage());
    EXPECT_EQ(std::make_pair(s.Gbl_ErrorCode, s.Gbl_ErrorSubCode),
              std::make_pair(kNotEntered, kNotEntered));

    // Steam at 20 to 40 deg C lies on the liquid side: a warning, and the page goes on.
    Arrive(2, 5, "Superheated and Saturated Steam", "", "Steam");
    FillValid();
    Next();
    ExpectInformation(host,
                      {"The specified operating condition includes both gas and liquid phases"});
    EXPECT_TRUE(OnPhysicalPage());
    EXPECT_EQ(std::make_pair(s.Gbl_ErrorCode, s.Gbl_ErrorSubCode),
              std::make_pair(kNotEntered, kNotEntered));
}

// Catches a unit refusal before the calculation, out of order or with the wrong focus, and a
// range test that runs without its unit.
TEST_F(OperatingRangeTest, UnitRefusalsComeAfterTheCalculation) {
    OpenShown();
    Arrive(2, 6, "ETHANE", "", "Gas (DIPPR)");
    FillValid();
    Next();
    main->SwitchToOperatingRangeSetup();
    ctlOperatingRangeSetup& p = Range();
    const std::pair<QComboBox*, const char*> lists[] = {
        {p.cboPressUnit, "Please make a selection for static pressure unit"},
        {p.cboAtmPressUnit, "Please make a selection for atmospheric pressure unit"},
        {p.cboTempUnit, "Please make a selection for temperature unit"},
        {p.cboPressRefUnit, "Please make a selection for reference static pressure unit"},
        {p.cboTempRefUnit, "Please make a selection for reference temperature unit"}};
    for (const auto& [list, text] : lists) list->setCurrentIndex(-1);
    Set("txtPress1=600");
    s.UI_DensStandard[0] = 0.0;
    for (const auto& [list, text] : lists) {
        Next();
        ASSERT_EQ(host.messages.size(), 1u) << text;
        EXPECT_EQ(host.messages[0].text, text);
        EXPECT_TRUE(list->hasFocus()) << text;
        EXPECT_TRUE(OnRangePage());
        if (list == p.cboPressUnit) {
            // The driver ran, on the standard value that the untested box left alone.
            EXPECT_GT(s.UI_DensStandard[0], 0.0);
            EXPECT_EQ(s.UI_RangeP1, 600.0);
            EXPECT_EQ(s.UI_RangeP1Standard, 500000.0);
        }
        list->setCurrentIndex(0);
    }
    Next();
    EXPECT_TRUE(OnPhysicalPage());
}

// Catches a custom gas that runs the driver or gets range questions, gauge grids without the
// atmospheric pressure, the count mix-up of the viscosity temperatures put right, and
// conversions that round or run past their counts.
TEST_F(OperatingRangeTest, CustomGasPreparesTablesWithoutDriver) {
    OpenShown();
    s.Mgt_LqdVisTempDiv = 5;  // the gas count stays 4
    s.UI_DensUnit = 94;
    s.UI_ViscUnit = 1;
    for (int k = 0; k < 12; ++k) s.UI_Dens[k] = 1.0 + k;
    for (int i = 0; i < 5; ++i) s.UI_Visc[i] = 1e-5 * (i + 1);
    s.UI_ViscStandard[4] = 123.0;
    s.UI_RefDensValue = 2.0;
    Arrive(2, 7, "MY GAS", "MY GAS", "Gas (custom data table)");
    FillValid();
    // Without limits even -300 deg C passes.
    Set("txtPress1=50;txtPress2=350;cboPressUnit=kPa gauge;txtAtmPress=100;txtTemp1=-300;"
        "txtTemp2=60");
    Next();
    ASSERT_TRUE(host.messages.empty()) << host.messages[0].text;
    EXPECT_TRUE(OnPhysicalPage());
    EXPECT_EQ(s.UI_RangeP1Standard, 50000.0 + 100000.0);
    for (int k = 0; k < 12; ++k) {
        const double p = 50.0 + (k % 4) * 100.0;
        EXPECT_DOUBLE_EQ(s.UI_DensAbsPress[k], p) << k;
        EXPECT_DOUBLE_EQ(s.UI_DensAbsPressStandard[k], p * 1000.0 + 100000.0) << k;
        EXPECT_DOUBLE_EQ(s.UI_DensTemp[k], -300.0 + (k / 4) * 180.0) << k;
        EXPECT_EQ(s.UI_Dens[k], 1.0 + k) << k;  // the entered table, untouched by a driver
        EXPECT_DOUBLE_EQ(s.UI_DensStandard[k], (1.0 + k) * 0.45359237 / std::pow(0.3048, 3)) << k;
    }
    // Five temperatures (the liquid count) in steps of the gas count's.
    for (int i = 0; i < 5; ++i) EXPECT_DOUBLE_EQ(s.UI_ViscTemp[i], -300.0 + i * 120.0) << i;
    EXPECT_EQ(s.UI_RefDensValueStandard, 32.03692675);
    for (int i = 0; i < 4; ++i)
        EXPECT_DOUBLE_EQ(s.UI_ViscStandard[i], 1e-5 * (i + 1) * (0.45359237 / 0.3048)) << i;
    EXPECT_EQ(s.UI_ViscStandard[4], 123.0);
}

// Catches Back to a page this one cannot come from, or a stack not unwound.
TEST_F(OperatingRangeTest, BackByThePageList) {
    OpenShown();
    const std::pair<const char*, QWidget*> from[] = {
        {"ctlNaturalGasSetupAga", main->ctlNaturalGasSetupAga1},
        {"ctlNaturalGasSetupGross1", main->ctlNaturalGasSetupGross11},
        {"ctlNaturalGasSetupGross2", main->ctlNaturalGasSetupGross21},
        {"ctlNaturalGasSetupISO", main->ctlNaturalGasSetupISO1},
        {"ctlFluidSetup", main->ctlFluidSetup1},
        {"ctlPrimaryElementSetup", main->ctlOperatingRangeSetup1}};
    for (const auto& [name, page] : from) {
        Arrive(2, 4, "AGA8 Detail Characterization Method");
        s.PageList[0] = name;
        Range().cmdBack->click();
        EXPECT_EQ(main->CurrentPageControl(), page) << name;
        EXPECT_EQ(std::make_pair(s.CurrentPage, s.PageList[1]), std::make_pair(0, std::string()));
    }
    Range().cmdBack->click();  // at the bottom of the stack: nothing
    EXPECT_TRUE(OnRangePage());
}

// Catches a page not shown in the main control, a missing title, or a hidden named control.
TEST_F(OperatingRangeTest, WindowShowsPageAndNamedControls) {
    OpenShown();
    Arrive(2, 6, "ETHANE", "", "Gas (DIPPR)");
    FillValid();
    ctlOperatingRangeSetup& page = Range();
    ExpectByName(page, "lblOperatingRangeSetupMethod=ETHANE;lblOperatingRangeCat=Gas (DIPPR)");
    ExpectShown(page, "FLUID OPERATING RANGE SETUP",
                {"lblOperatingRangeSetupMethod", "lblOperatingRangeCat", "txtPress1", "txtPress2",
                 "cboPressUnit", "txtAtmPress", "cboAtmPressUnit", "txtTemp1", "txtTemp2",
                 "cboTempUnit", "txtPressRef", "cboPressRefUnit", "txtTempRef", "cboTempRefUnit",
                 "cmdNext", "cmdBack", "cmdCancel", "lblOperatingRange"});
    if (const char* shot = std::getenv("QDF_SCREENSHOT")) main->grab().save(shot);
}
