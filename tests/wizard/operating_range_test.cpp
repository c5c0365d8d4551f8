#include <unistd.h>

#include <QLabel>
#include <QTest>
#include <cmath>
#include <filesystem>
#include <sstream>

#include "../common/DataTable.h"
#include "CodeTables.h"
#include "ComponentTables.h"
#include "ModUnit.h"
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

const char* kWizardTitle = "QDF300 Flow Configuration Wizard";
const char* kCalcError =
    "There exists calculation error with the given input of pressure and temperature. Please "
    "fill out another value";

class OperatingRangeTest : public WizardFixture {
  protected:
    void SetUp() override {
        // Property failures write the log; keep it out of the user's folder.
        logDir_ = std::filesystem::temp_directory_path() /
                  ("qdf_range_" + std::to_string(::getpid()) + "_" +
                   ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(logDir_);
        ::setenv("QDF_LOG_DIR", logDir_.c_str(), 1);
    }
    void TearDown() override {
        std::error_code ec;
        std::filesystem::remove_all(logDir_, ec);
    }

    void OpenShown(const std::string& location = "Other") {
        Open("HART", 2, location);
        // An orifice with flange taps, as the primary element page leaves it.
        s.UI_PEName = "Orifice Flange Taps [ISO5167-2 2003]";
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

    // A box gets the text, a list the entry of that text (an unknown text clears it).
    void Set(const std::string& control, const std::string& value) {
        QWidget* w = Range().findChild<QWidget*>(QString::fromStdString(control));
        ASSERT_NE(w, nullptr) << control;
        if (auto* box = qobject_cast<QLineEdit*>(w)) box->setText(QString::fromStdString(value));
        if (auto* list = qobject_cast<QComboBox*>(w))
            list->setCurrentIndex(list->findText(QString::fromStdString(value)));
    }
    // "name=value;name=value".
    void SetAll(const std::string& entries) {
        std::istringstream in(entries);
        std::string item;
        while (std::getline(in, item, ';')) {
            const auto eq = item.find('=');
            ASSERT_NE(eq, std::string::npos) << item;
            Set(item.substr(0, eq), item.substr(eq + 1));
        }
    }
    // A page that passes every test of the methods in the message table.
    void FillValid() {
        SetAll(
            "txtPress1=500;txtPress2=2000;cboPressUnit=kPa abs;txtAtmPress=101.325;"
            "cboAtmPressUnit=kPa abs;txtTemp1=20;txtTemp2=40;cboTempUnit=deg C;"
            "txtPressRef=101.325;cboPressRefUnit=kPa abs;txtTempRef=15;cboTempRefUnit=deg C");
    }
    void Next() {
        host.messages.clear();
        Range().cmdNext->click();
    }
    bool OnRangePage() const { return main->CurrentPageControl() == main->ctlOperatingRangeSetup1; }
    bool OnPhysicalPage() const {
        return main->CurrentPageControl() == main->ctlPhysicalPropertySetup1;
    }
    QLineEdit* Box(const std::string& name) {
        return Range().findChild<QLineEdit*>(QString::fromStdString(name));
    }

  private:
    std::filesystem::path logDir_;
};

std::vector<std::string> ListTexts(const QComboBox* list) {
    std::vector<std::string> texts;
    for (int i = 0; i < list->count(); ++i) texts.push_back(list->itemText(i).toStdString());
    return texts;
}

}  // namespace

// Catches a validator step out of order, a wrong text, focus or selection, or a refusal that
// stores the entries.
TEST_F(OperatingRangeTest, RefusesInOrder) {
    OpenShown();
    Arrive(2, 6, "ETHANE", "", "Gas (DIPPR)");
    FillValid();
    for (const char* name : {"txtAtmPress", "txtPress1", "txtPress2", "txtTemp1", "txtTemp2",
                             "txtPressRef", "txtTempRef"})
        Box(name)->clear();

    for (const testdata::Row& r :
         testdata::Load("tests/wizard/data/operating_range_refusals.csv")) {
        if (r.has("control")) Set(r.text("control"), r.text("text"));
        Next();
        ASSERT_EQ(host.messages.size(), 1u) << r.where();
        const Message& m = host.messages[0];
        EXPECT_EQ(m.text, r.text("message")) << r.where();
        EXPECT_EQ(m.title, kWizardTitle);
        EXPECT_EQ(std::tie(m.kind, m.buttons, m.def), std::make_tuple(2, 2, 4)) << r.where();
        QLineEdit* focus = Box(r.text("focus"));
        EXPECT_TRUE(focus->hasFocus()) << r.where();
        if (r.has("selected")) {
            EXPECT_FALSE(focus->text().isEmpty()) << r.where();
            EXPECT_EQ(focus->selectedText(), focus->text()) << r.where();
        }
        EXPECT_TRUE(OnRangePage()) << r.where();
        EXPECT_EQ(s.UI_RangeP1, kNotEntered) << r.where();
        EXPECT_EQ(s.CurrentPage, 1);
    }
    Set("txtTempRef", "15");
    Next();
    EXPECT_TRUE(host.messages.empty());
    EXPECT_TRUE(OnPhysicalPage());
}

// Catches a wrong limit, unit conversion, single-precision wording, blank or unit text in the
// range messages, a question where a refusal belongs (or the reverse), and a wrong focus.
TEST_F(OperatingRangeTest, RangeMessagesWordedByMethodAndUnit) {
    OpenShown();
    for (const testdata::Row& r :
         testdata::Load("tests/wizard/data/operating_range_messages.csv")) {
        Arrive(r.integer("type"), r.integer("cat"), r.text("fluid"));
        FillValid();
        SetAll(r.text("entries"));
        Next();  // a question is answered No
        ASSERT_EQ(host.messages.size(), 1u) << r.where();
        const Message& m = host.messages[0];
        EXPECT_EQ(m.text, r.text("message")) << r.where();
        EXPECT_EQ(m.title, kWizardTitle) << r.where();
        const bool question = r.text("box").find("Press") != std::string::npos;
        EXPECT_EQ(std::tie(m.kind, m.buttons, m.def),
                  question ? std::make_tuple(3, 5, 7) : std::make_tuple(2, 2, 4))
            << r.where();
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
    SetAll("txtPress1=1000;txtPress2=3000;txtTemp1=250;txtTemp2=350;txtTempRef=150");
    Next();
    ASSERT_TRUE(host.messages.empty()) << host.messages[0].text;
    ASSERT_TRUE(OnPhysicalPage());
    EXPECT_EQ(s.UI_RangeP1Standard, 1e6);

    main->SwitchToOperatingRangeSetup();
    Set("txtPress1", "0.5");
    Set("txtPressRef", "0.1");
    Next();  // No
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_TRUE(OnRangePage());
    EXPECT_EQ(s.UI_RangeP1, 1000.0);
    EXPECT_TRUE(Box("txtPress1")->hasFocus());

    host.answers = {6, 6};
    Next();
    ASSERT_EQ(host.messages.size(), 2u);
    EXPECT_EQ(host.messages[0].text,
              "The valid range of lower bound pressure value is between 0.61121 and 100000 kPa "
              "abs. Do you still want to use this value?");
    EXPECT_EQ(host.messages[1].text,
              "The valid range of reference pressure value is between 0.61121 and 100000 kPa "
              "abs. Do you still want to use this value?");
    EXPECT_TRUE(OnPhysicalPage());
    EXPECT_EQ(s.UI_RangeP1, 0.5);
    EXPECT_EQ(s.UI_RangeP1Standard, 1e6);
    EXPECT_EQ(s.UI_PressRef, 0.1);
    EXPECT_EQ(s.UI_PressRefStandard, 101325.0);
}

// Catches a wrong unit conversion of a standard value, gauge pressure without the atmospheric
// pressure, a member or unit code not stored, a calculation that did not see the new values, or
// a wrong page path.
TEST_F(OperatingRangeTest, NextStoresEntriesAndStandardValues) {
    struct Case {
        const char* entries;
        std::int32_t pUnit, tUnit, atmUnit, refPUnit, refTUnit;
        double atmStd, p1Std, p2Std, t1Std, t2Std, refPStd, refTStd;
    };
    const Case cases[] = {
        {"txtTemp1=27;txtTemp2=87", 0, 32, 0, 0, 32, 101325, 500000, 2e6, 300.15, 360.15, 101325,
         288.15},
        {"txtPress1=5;txtPress2=20;cboPressUnit=bar gauge;txtAtmPress=1;cboAtmPressUnit=bar abs;"
         "txtTemp1=80.6;txtTemp2=188.6;cboTempUnit=deg F;txtPressRef=14.7;cboPressRefUnit=psi abs;"
         "txtTempRef=59;cboTempRefUnit=deg F",
         4, 33, 1, 2, 33, 100000, 600000, 2.1e6, 300.15, 360.15, 14.7 * 6894.757, 288.15},
        {"txtPress1=50;txtPress2=200;cboPressUnit=psi gauge;txtAtmPress=100;txtTemp1=300;"
         "txtTemp2=360;cboTempUnit=Kelvin;txtPressRef=1;cboPressRefUnit=bar abs;"
         "txtTempRef=288.15;cboTempRefUnit=Kelvin",
         5, 35, 0, 1, 35, 100000, 50 * 6894.757 + 100000, 200 * 6894.757 + 100000, 300, 360, 100000,
         288.15},
    };
    OpenShown();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.entries);
        Arrive(2, 6, "ETHANE", "", "Gas (DIPPR)");
        FillValid();
        SetAll(c.entries);
        Next();
        ASSERT_TRUE(host.messages.empty()) << host.messages[0].text;
        EXPECT_EQ(s.UI_RangeP1, Range().txtPress1->text().toDouble());
        EXPECT_EQ(s.UI_RangeP2, Range().txtPress2->text().toDouble());
        EXPECT_EQ(s.UI_AtmPress, Range().txtAtmPress->text().toDouble());
        EXPECT_EQ(s.UI_RangeT1, Range().txtTemp1->text().toDouble());
        EXPECT_EQ(s.UI_RangeT2, Range().txtTemp2->text().toDouble());
        EXPECT_EQ(s.UI_PressRef, Range().txtPressRef->text().toDouble());
        EXPECT_EQ(s.UI_TempRef, Range().txtTempRef->text().toDouble());
        EXPECT_EQ(s.UI_RangePUnit, c.pUnit);
        EXPECT_EQ(s.UI_RangeTUnit, c.tUnit);
        EXPECT_EQ(s.UI_AtmPressUnit, c.atmUnit);
        EXPECT_EQ(s.UI_PressRefUnit, c.refPUnit);
        EXPECT_EQ(s.UI_TempRefUnit, c.refTUnit);
        EXPECT_DOUBLE_EQ(s.UI_AtmPressStandard, c.atmStd);
        EXPECT_DOUBLE_EQ(s.UI_RangeP1Standard, c.p1Std);
        EXPECT_DOUBLE_EQ(s.UI_RangeP2Standard, c.p2Std);
        EXPECT_DOUBLE_EQ(s.UI_RangeT1Standard, c.t1Std);
        EXPECT_DOUBLE_EQ(s.UI_RangeT2Standard, c.t2Std);
        EXPECT_DOUBLE_EQ(s.UI_PressRefStandard, c.refPStd);
        EXPECT_DOUBLE_EQ(s.UI_TempRefStandard, c.refTStd);
        // The driver ran on the new range: its grid starts at the standard limits.
        EXPECT_DOUBLE_EQ(s.UI_DensTempStandard[0], c.t1Std);
        EXPECT_DOUBLE_EQ(s.UI_DensAbsPressStandard[0], c.p1Std);
        EXPECT_GT(s.UI_DensStandard[0], 0.0);
        EXPECT_TRUE(OnPhysicalPage());
        EXPECT_EQ(s.CurrentPage, 2);
        EXPECT_EQ(s.PageList[1], "ctlOperatingRangeSetup");
        EXPECT_EQ(s.PageList[2], "ctlPhysicalPropertySetup");
    }
}

// Catches psi or deg F offered in "Japan", a list in the wrong order, or a stored code that is
// not offered showing as some other entry.
TEST_F(OperatingRangeTest, UnitListsByLocation) {
    using Texts = std::vector<std::string>;
    OpenShown("Other");
    EXPECT_EQ(ListTexts(Range().cboPressUnit),
              (Texts{"kPa abs", "bar abs", "psi abs", "kPa gauge", "bar gauge", "psi gauge"}));
    EXPECT_EQ(ListTexts(Range().cboAtmPressUnit), (Texts{"kPa abs", "bar abs", "psi abs"}));
    EXPECT_EQ(ListTexts(Range().cboPressRefUnit), (Texts{"kPa abs", "bar abs", "psi abs"}));
    EXPECT_EQ(ListTexts(Range().cboTempUnit), (Texts{"deg C", "deg F", "Kelvin"}));
    EXPECT_EQ(ListTexts(Range().cboTempRefUnit), (Texts{"deg C", "deg F", "Kelvin"}));

    OpenShown("Japan");
    s.UI_RangePUnit = 5;
    s.UI_AtmPressUnit = 1;
    s.UI_PressRefUnit = 2;
    s.UI_RangeTUnit = 33;
    s.UI_TempRefUnit = 35;
    Arrive(2, 6, "ETHANE");
    EXPECT_EQ(ListTexts(Range().cboPressUnit),
              (Texts{"kPa abs", "bar abs", "kPa gauge", "bar gauge"}));
    EXPECT_EQ(ListTexts(Range().cboAtmPressUnit), (Texts{"kPa abs", "bar abs"}));
    EXPECT_EQ(ListTexts(Range().cboPressRefUnit), (Texts{"kPa abs", "bar abs"}));
    EXPECT_EQ(ListTexts(Range().cboTempUnit), (Texts{"deg C", "Kelvin"}));
    EXPECT_EQ(ListTexts(Range().cboTempRefUnit), (Texts{"deg C", "Kelvin"}));
    EXPECT_EQ(Range().cboPressUnit->currentIndex(), -1);
    EXPECT_EQ(Range().cboAtmPressUnit->currentText(), "bar abs");
    EXPECT_EQ(Range().cboPressRefUnit->currentIndex(), -1);
    EXPECT_EQ(Range().cboTempUnit->currentIndex(), -1);
    EXPECT_EQ(Range().cboTempRefUnit->currentText(), "Kelvin");
}

// Catches a page that shows a gauge reference pressure instead of refusing and clearing it.
TEST_F(OperatingRangeTest, GaugeReferencePressureClearedOnLoad) {
    OpenShown();
    s.UI_PressRef = 1.5;
    s.UI_PressRefUnit = 4;
    s.UI_RangeP1 = 300;
    host.messages.clear();
    Arrive(2, 6, "ETHANE");
    ASSERT_EQ(host.messages.size(), 1u);
    const Message& m = host.messages[0];
    EXPECT_EQ(m.text,
              "\nThe reference pressure must be entered as the absolute pressure.\nPlease reenter "
              "the absolute pressure equivalent to the following gauge pressure.\n\nReference "
              "pressure : 1.5 bar gauge");
    EXPECT_EQ(m.title, kWizardTitle);
    EXPECT_EQ(std::tie(m.kind, m.buttons, m.def), std::make_tuple(2, 2, 4));
    EXPECT_EQ(Range().txtPressRef->text(), "");
    EXPECT_EQ(Range().cboPressRefUnit->currentText(), "kPa abs");
    EXPECT_EQ(Range().txtPress1->text(), "300");
    EXPECT_EQ(s.UI_PressRef, kNotEntered);
}

// Catches a failed calculation that goes on, a two-phase warning that stops or stays in the
// store, and a library report of code 600/1 that is not cleared.
TEST_F(OperatingRangeTest, CalculationOutcomes) {
    OpenShown();
    Arrive(2, 6, "ETHANE", "", "Gas (DIPPR)");
    FillValid();
    s.Mgt_GasDensTempDiv = 1;  // a division count that the grids cannot use
    Next();
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].text, kCalcError);
    EXPECT_EQ(host.messages[0].title, "QDF300 Information");
    EXPECT_TRUE(OnRangePage());
    EXPECT_EQ(s.UI_RangeP1, 500.0);  // stored before the calculation
    EXPECT_EQ(s.CurrentPage, 1);

    s.Mgt_GasDensTempDiv = 3;
    // A report that the run leaves in the store: 600 with sub-code 1 is cleared, others stay.
    s.Gbl_ErrorCode = 600;
    s.Gbl_ErrorSubCode = 2;
    Next();
    EXPECT_TRUE(host.messages.empty());
    EXPECT_TRUE(OnPhysicalPage());
    EXPECT_EQ(s.Gbl_ErrorCode, 600);
    EXPECT_EQ(s.Gbl_ErrorSubCode, 2);
    main->SwitchToOperatingRangeSetup();
    s.Gbl_ErrorSubCode = 1;
    Next();
    EXPECT_TRUE(host.messages.empty());
    EXPECT_TRUE(OnPhysicalPage());
    EXPECT_EQ(s.Gbl_ErrorCode, kNotEntered);
    EXPECT_EQ(s.Gbl_ErrorSubCode, kNotEntered);

    // Steam at 20 to 40 deg C lies on the liquid side: a warning, and the page goes on.
    Arrive(2, 5, "Superheated and Saturated Steam", "", "Steam");
    FillValid();
    Next();
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].text,
              "The specified operating condition includes both gas and liquid phases");
    EXPECT_EQ(host.messages[0].title, "QDF300 Information");
    EXPECT_EQ(std::tie(host.messages[0].kind, host.messages[0].buttons, host.messages[0].def),
              std::make_tuple(2, 2, 4));
    EXPECT_TRUE(OnPhysicalPage());
    EXPECT_EQ(s.Gbl_ErrorCode, kNotEntered);
    EXPECT_EQ(s.Gbl_ErrorSubCode, kNotEntered);
}

// Catches a unit refusal before the calculation, out of order, or with the wrong focus, and a
// range test that runs without its unit.
TEST_F(OperatingRangeTest, UnitRefusalsComeAfterTheCalculation) {
    OpenShown();
    Arrive(2, 6, "ETHANE", "", "Gas (DIPPR)");
    FillValid();
    Next();
    ASSERT_TRUE(OnPhysicalPage());
    main->SwitchToOperatingRangeSetup();
    ASSERT_EQ(s.UI_RangeP1Standard, 500000.0);

    const std::pair<QComboBox*, const char*> lists[] = {
        {Range().cboPressUnit, "Please make a selection for static pressure unit"},
        {Range().cboAtmPressUnit, "Please make a selection for atmospheric pressure unit"},
        {Range().cboTempUnit, "Please make a selection for temperature unit"},
        {Range().cboPressRefUnit, "Please make a selection for reference static pressure unit"},
        {Range().cboTempRefUnit, "Please make a selection for reference temperature unit"},
    };
    for (const auto& [list, text] : lists) list->setCurrentIndex(-1);
    Set("txtPress1", "600");
    s.UI_DensStandard[0] = 0.0;
    for (const auto& [list, text] : lists) {
        Next();
        ASSERT_EQ(host.messages.size(), 1u) << text;
        EXPECT_EQ(host.messages[0].text, text);
        EXPECT_EQ(host.messages[0].title, kWizardTitle);
        EXPECT_TRUE(list->hasFocus()) << text;
        EXPECT_TRUE(OnRangePage());
        if (list == lists[0].first) {
            // The driver ran first, on the standard value that the untested box left alone.
            EXPECT_GT(s.UI_DensStandard[0], 0.0);
            EXPECT_EQ(s.UI_RangeP1, 600.0);
            EXPECT_EQ(s.UI_RangeP1Standard, 500000.0);
        }
        list->setCurrentIndex(0);
    }
    Next();
    EXPECT_TRUE(host.messages.empty());
    EXPECT_TRUE(OnPhysicalPage());
}

// Catches a custom gas that runs the driver or gets range questions, gauge grids without the
// atmospheric pressure, the count mix-up of the viscosity temperatures put right, and density or
// viscosity conversions that round or run past their counts.
TEST_F(OperatingRangeTest, CustomGasPreparesTablesWithoutDriver) {
    OpenShown();
    s.Mgt_GasVisTempDiv = 4;
    s.Mgt_LqdVisTempDiv = 5;
    s.UI_DensUnit = 94;
    s.UI_ViscUnit = 1;
    for (int k = 0; k < 12; ++k) s.UI_Dens[k] = 1.0 + k;
    for (int i = 0; i < 5; ++i) s.UI_Visc[i] = 1e-5 * (i + 1);
    s.UI_ViscStandard[4] = 123.0;
    s.UI_RefDensValue = 2.0;
    Arrive(2, 7, "MY GAS", "MY GAS", "Gas (custom data table)");
    FillValid();
    // Without limits even -300 deg C passes.
    SetAll(
        "txtPress1=50;txtPress2=350;cboPressUnit=kPa gauge;txtAtmPress=100;txtTemp1=-300;"
        "txtTemp2=60");
    Next();
    ASSERT_TRUE(host.messages.empty()) << host.messages[0].text;
    EXPECT_TRUE(OnPhysicalPage());
    EXPECT_EQ(s.UI_RangeP1Standard, 50000.0 + 100000.0);
    EXPECT_NEAR(s.UI_RangeT1Standard, -26.85, 1e-9);

    for (int k = 0; k < 12; ++k) {
        SCOPED_TRACE(k);
        const double p = 50.0 + (k % 4) * 100.0;
        EXPECT_DOUBLE_EQ(s.UI_DensAbsPress[k], p);
        EXPECT_DOUBLE_EQ(s.UI_DensAbsPressStandard[k], p * 1000.0 + 100000.0);
        EXPECT_DOUBLE_EQ(s.UI_DensTemp[k], -300.0 + (k / 4) * 180.0);
        EXPECT_EQ(s.UI_Dens[k], 1.0 + k);  // the entered table, untouched by a driver
        EXPECT_DOUBLE_EQ(s.UI_DensStandard[k], (1.0 + k) * 0.45359237 / std::pow(0.3048, 3));
    }
    // Five temperatures (the liquid count) in steps of the gas count's.
    for (int i = 0; i < 5; ++i) EXPECT_DOUBLE_EQ(s.UI_ViscTemp[i], -300.0 + i * 120.0) << i;
    EXPECT_EQ(s.UI_RefDensValueStandard, 32.03692675);
    for (int i = 0; i < 4; ++i)
        EXPECT_DOUBLE_EQ(s.UI_ViscStandard[i], 1e-5 * (i + 1) * (0.45359237 / 0.3048)) << i;
    EXPECT_EQ(s.UI_ViscStandard[4], 123.0);

    // Tables already in the internal units are taken as they stand.
    main->SwitchToOperatingRangeSetup();
    s.UI_DensUnit = 92;
    s.UI_ViscUnit = 0;
    Next();
    EXPECT_EQ(s.UI_DensStandard[5], 6.0);
    EXPECT_EQ(s.UI_RefDensValueStandard, 2.0);
    EXPECT_EQ(s.UI_ViscStandard[3], 4e-5);
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
        {"ctlPrimaryElementSetup", main->ctlOperatingRangeSetup1},
    };
    for (const auto& [name, page] : from) {
        Arrive(2, 4, "AGA8 Detail Characterization Method");
        s.PageList[0] = name;
        Range().cmdBack->click();
        EXPECT_EQ(main->CurrentPageControl(), page) << name;
        EXPECT_EQ(s.CurrentPage, 0) << name;
        EXPECT_EQ(s.PageList[1], "") << name;
    }
    // At the bottom of the stack Back does nothing.
    Arrive(2, 4, "AGA8 Detail Characterization Method");
    s.CurrentPage = 0;
    s.PageList[0] = "ctlFluidSetup";
    Range().cmdBack->click();
    EXPECT_TRUE(OnRangePage());
    EXPECT_TRUE(host.messages.empty());
}

// Catches a page that is not shown in the main control, a missing title, or a named control
// that is hidden.
TEST_F(OperatingRangeTest, WindowShowsPageAndNamedControls) {
    OpenShown();
    main->resize(1000, 640);
    Arrive(2, 6, "ETHANE", "", "Gas (DIPPR)");
    FillValid();
    QApplication::processEvents();
    ctlOperatingRangeSetup& page = Range();
    ASSERT_TRUE(page.isVisible());
    const auto* title = page.findChild<QLabel*>("lblTitle");
    ASSERT_NE(title, nullptr);
    EXPECT_EQ(title->text(), "FLUID OPERATING RANGE SETUP");
    EXPECT_TRUE(title->isVisible());
    EXPECT_EQ(page.lblOperatingRangeSetupMethod->text(), "ETHANE");
    EXPECT_EQ(page.lblOperatingRangeCat->text(), "Gas (DIPPR)");
    for (const char* name :
         {"lblOperatingRangeSetupMethod", "lblOperatingRangeCat", "txtPress1", "txtPress2",
          "cboPressUnit", "txtAtmPress", "cboAtmPressUnit", "txtTemp1", "txtTemp2", "cboTempUnit",
          "txtPressRef", "cboPressRefUnit", "txtTempRef", "cboTempRefUnit", "cmdNext", "cmdBack",
          "cmdCancel", "lblOperatingRange"}) {
        const QWidget* w = page.findChild<QWidget*>(name);
        ASSERT_NE(w, nullptr) << name;
        EXPECT_TRUE(w->isVisible()) << name;
    }
    main->grab().save("/tmp/operating_range_page.png");
}
