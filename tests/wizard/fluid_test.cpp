#include <QLabel>
#include <cctype>
#include <functional>

#include "../common/DataTable.h"
#include "../common/StoreMembers.h"
#include "CodeTables.h"
#include "ComponentTables.h"
#include "PageTest.h"
#include "WizardFixture.h"

using namespace qdf;
using namespace qdf::test;

namespace {

// A code cell: a number, or a catalogue name standing for that component's number.
std::int32_t CodeCell(const testdata::Row& r, const std::string& column) {
    const std::string& t = r.text(column);
    if (!t.empty() && (std::isdigit(static_cast<unsigned char>(t[0])) || t[0] == '-'))
        return r.integer(column);
    const ComponentTables& tables = CompoundTables();
    for (int i = 0; i < tables.Count(); ++i)
        if (tables.Name(i) == t) return tables.Id(i);
    ADD_FAILURE() << r.where() << ": no component " << t;
    return 0;
}

class FluidPage : public WizardFixture {
  protected:
    // The page in view on the store as it stands.
    ctlFluidSetup& Show() {
        host.messages.clear();
        main->SwitchToFluidSetup();
        return Fluid();
    }
    std::string InView() const {
        const ctlPage* p = main->CurrentPageControl();
        return p ? p->objectName().toStdString() : std::string();
    }
};

}  // namespace

// Catches a refusal out of order or with another text, a refusal that stores or leaves the page.
TEST_F(FluidPage, NextRefusesInOrder) {
    Open();
    main->show();
    App().setActiveWindow(main.get());
    s.UI_FluidType = 0;  // no option on
    ctlFluidSetup& f = Show();
    const struct {
        std::function<void()> fix;
        const char* message;
        QWidget* focus;
    } steps[] = {
        {[] {}, "Please make a selection of fluid type", nullptr},
        {[&] { f.optLiquid->click(); }, "Please make a selection of fluid category", f.cboCategory},
        {[&] { Choose(f.cboCategory, "Liquid (DIPPR)"); }, "Please make a selection of fluid name",
         f.cboName},
        {[&] { Choose(f.cboCategory, "Liquid (custom data table)"); },
         "Please fill out method name", f.txtMethod},
    };
    for (const auto& step : steps) {
        step.fix();
        host.messages.clear();
        f.cmdNext->click();
        ExpectRefusals(host, {step.message});
        if (step.focus) {
            EXPECT_TRUE(step.focus->hasFocus()) << step.message;
        }
        EXPECT_EQ(InView(), "ctlFluidSetup1");
        EXPECT_EQ(s.UI_FluidType, 0);
        EXPECT_EQ(s.UI_FluidCat, kNotEntered);
    }
    f.txtMethod->setText("Heat transfer oil");
    host.messages.clear();
    f.cmdNext->click();
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(InView(), "ctlOperatingRangeLiquid1");
    EXPECT_EQ(s.UI_FluidType, 1);
    EXPECT_EQ(s.UI_FluidCat, 3);
}

// Catches pressurised water offered to users, categories in another order, or lists of the
// wrong kind behind a category.
TEST_F(FluidPage, CategoriesAndNameListsByTypeAndDebugFlag) {
    const std::vector<std::string> gas = {"Natural Gas", "Steam", "Gas (DIPPR)",
                                          "Gas (custom data table)"};
    for (int debug : {0, 1}) {
        Open();
        s.Mgt_DebugModeFlag = debug;
        ctlFluidSetup& f = Show();
        EXPECT_EQ(Entries(f.cboCategory), gas);
        f.optLiquid->click();
        std::vector<std::string> liquid = {"Liquid (DIPPR)", "Liquid (custom data table)"};
        if (debug == 1) liquid.insert(liquid.begin() + 1, "Pressurised Water");
        EXPECT_EQ(Entries(f.cboCategory), liquid) << "debug " << debug;
        EXPECT_EQ(f.cboCategory->currentIndex(), -1);
    }

    ctlFluidSetup& f = Fluid();
    f.optGasSteam->click();
    Choose(f.cboCategory, "Natural Gas");
    EXPECT_EQ(Entries(f.cboName),
              (std::vector<std::string>{
                  "AGA8 Detail Characterization Method", "AGA8 Gross Characterization Method 1",
                  "AGA8 Gross Characterization Method 2", "ISO12213 molar-composition analysis",
                  "ISO12213 physical properties"}));
    EXPECT_EQ(f.cboName->currentIndex(), -1);
    Choose(f.cboCategory, "Steam");
    EXPECT_EQ(Entries(f.cboName),
              (std::vector<std::string>{"Superheated and Saturated Steam", "Saturated steam"}));
    Choose(f.cboCategory, "Gas (DIPPR)");
    const std::vector<std::string> components = Entries(f.cboName);
    ASSERT_EQ(static_cast<int>(components.size()), CompoundTables().Count());
    ASSERT_GT(components.size(), 20u);
    EXPECT_EQ(components[13], "METHANE");  // catalogue order
    EXPECT_FALSE(f.cboName->isHidden());
    EXPECT_TRUE(f.txtMethod->isHidden());
    Choose(f.cboCategory, "Gas (custom data table)");
    EXPECT_TRUE(f.cboName->isHidden());
    EXPECT_FALSE(f.txtMethod->isHidden());
    EXPECT_EQ(f.txtMethod->text(), "");

    // A change of option empties name and method; the shown one stays until a category is chosen.
    f.txtMethod->setText("Flue gas");
    f.optLiquid->click();
    EXPECT_EQ(f.txtMethod->text(), "");
    EXPECT_EQ(f.cboName->count(), 0);
    EXPECT_FALSE(f.txtMethod->isHidden());
    EXPECT_FALSE(f.optGasSteam->isChecked());
}

// Catches a stored fluid shown wrongly, a notice missing, extra or under another title.
TEST_F(FluidPage, LoadFromStoreShowsTheStoredFluid) {
    for (const testdata::Row& r : testdata::Load("tests/wizard/data/fluid_load.csv")) {
        Open();
        s.Mgt_DebugModeFlag = r.integer("debug");
        s.UI_FluidType = r.integer("type");
        s.UI_FluidCat = r.integer("category");
        s.UI_FluidNameMethodCode = CodeCell(r, "code");
        s.UI_ChemID = r.text("chemId");
        s.UI_FluidName = r.text("fluidName");
        ctlFluidSetup& f = Show();

        ExpectInformation(host, Split(r.text("notices"), '|'), r.where());
        EXPECT_EQ(f.optGasSteam->isChecked(), r.integer("gas") == 1) << r.where();
        EXPECT_EQ(f.optLiquid->isChecked(), r.integer("liquid") == 1) << r.where();
        EXPECT_EQ(f.cboCategory->currentText().toStdString(), r.text("categoryText")) << r.where();
        const bool method = r.text("shown") == "txtMethod";
        EXPECT_EQ(f.txtMethod->isHidden(), !method) << r.where();
        EXPECT_EQ(f.cboName->isHidden(), method) << r.where();
        EXPECT_EQ(f.cboName->currentText().toStdString(), r.text("nameText")) << r.where();
        EXPECT_EQ(f.txtMethod->text().toStdString(), r.text("methodText")) << r.where();
        EXPECT_EQ(f.m_LoadedCategory, s.UI_FluidCat) << r.where();
    }
}

// Catches a category or method sent to the wrong page, strings the later pages read left unset
// or set wrongly, and a Back stack entry where none belongs or missing where one does.
TEST_F(FluidPage, NextForksByNameThenCategory) {
    const std::string old = "(old)";
    for (const testdata::Row& r : testdata::Load("tests/wizard/data/fluid_fork.csv")) {
        Open();
        s.Mgt_DebugModeFlag = r.integer("debug");
        s.ClearPageList();
        s.CurrentPage = 1;
        s.PageList[0] = "ctlModeSelection";
        s.PageList[1] = "ctlPrimaryElementSetup";
        for (std::string* v :
             {&s.Gbl_Aga8DetailMethodName, &s.Gbl_PhysicalPropertyName,
              &s.Gbl_OperatingRangeSetupMethod, &s.Gbl_OperatingRangeSetupCategory,
              &s.Gbl_OperatingRangeSetupLiquid, &s.Gbl_OperatingRangeSetupLiquidCategory})
            *v = old;
        s.UI_ChemID = "stale";
        ctlFluidSetup& f = Show();
        f.findChild<QRadioButton*>(r.text("option").c_str())->click();
        Choose(f.cboCategory, r.text("category"));
        if (r.has("name")) Choose(f.cboName, r.text("name"));
        if (r.has("method")) f.txtMethod->setText(r.text("method").c_str());
        host.messages.clear();
        f.cmdNext->click();

        EXPECT_EQ(InView(), r.text("page")) << r.where();
        EXPECT_EQ(s.UI_FluidType, r.text("option") == "optLiquid" ? 1 : 2) << r.where();
        EXPECT_EQ(s.UI_FluidCat, ctlFluidSetup::CategoryCode(r.text("category"))) << r.where();
        EXPECT_EQ(s.Gbl_PhysicalPropertyCategory, r.text("category")) << r.where();
        EXPECT_EQ(s.UI_FluidNameMethodCode, CodeCell(r, "code")) << r.where();
        EXPECT_EQ(s.UI_ChemID, r.text("chemId")) << r.where();
        EXPECT_EQ(s.Gbl_Aga8DetailMethodName, r.text("aga")) << r.where();
        EXPECT_EQ(s.Gbl_PhysicalPropertyName, r.text("propertyName")) << r.where();
        EXPECT_EQ(s.Gbl_OperatingRangeSetupMethod, r.text("rangeMethod")) << r.where();
        EXPECT_EQ(s.Gbl_OperatingRangeSetupCategory, r.text("rangeCategory")) << r.where();
        EXPECT_EQ(s.Gbl_OperatingRangeSetupLiquid, r.text("rangeLiquid")) << r.where();
        EXPECT_EQ(s.Gbl_OperatingRangeSetupLiquidCategory, r.text("rangeLiquidCategory"))
            << r.where();
        if (r.text("stack") == "yes") {
            EXPECT_EQ(s.CurrentPage, 2) << r.where();
            EXPECT_EQ(s.PageList[1], "ctlFluidSetup") << r.where();
            EXPECT_EQ(s.PageList[2], "ctlOperatingRangeSetup") << r.where();
        } else {
            EXPECT_EQ(s.CurrentPage, 1) << r.where();
            EXPECT_EQ(s.PageList[1], "ctlPrimaryElementSetup") << r.where();
            EXPECT_EQ(s.PageList[2], "") << r.where();
        }
    }
}

// Catches ranges and tables of one custom kind carried into the other, a reset that waits for
// Next, or a reset where the kind does not change.
TEST_F(FluidPage, SwitchingCustomKindResetsTheStoreAtTheClick) {
    const auto Group = [](const std::string& group, bool reset) {
        return "tests/wizard/data/fluid_kind_" + group + (reset ? "_reset.json" : "_kept.json");
    };
    const struct Case {
        int loadedType, loadedCat;
        const char* option;
        const char* category;
        bool pressuresReset, temperaturesReset, propertiesReset;
    } cases[] = {
        {1, 3, "optGasSteam", "Gas (custom data table)", true, true, true},
        {1, 1, "optGasSteam", "Gas (custom data table)", true, true, true},
        {2, 6, "optLiquid", "Liquid (custom data table)", false, true, true},
        {2, 7, "optLiquid", "Liquid (custom data table)", false, true, true},
        {2, 6, "optGasSteam", "Gas (custom data table)", false, false, false},
        {1, 1, "optLiquid", "Liquid (custom data table)", false, false, false},
        {1, 3, "optGasSteam", "Gas (DIPPR)", false, false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.loadedCat) + " to " + c.category);
        Open();
        s.UI_FluidType = c.loadedType;
        s.UI_FluidCat = c.loadedCat;
        s.UI_FluidNameMethodCode = kNotEntered;
        s.UI_ChemID = c.loadedCat == 3 || c.loadedCat == 7 ? "Custom" : "";
        for (const char* group : {"pressures", "temperatures", "properties"})
            testdata::ApplyMembers(s, Group(group, false));
        // Table cells at both ends of the arrays.
        double* const cells[] = {&s.UI_Dens[0], &s.UI_Dens[256], &s.UI_DensStandard[5],
                                 &s.UI_Visc[31], &s.UI_ViscStandard[0]};
        const double values[] = {800, 801, 802, 0.001, 0.002};
        for (int i = 0; i < 5; ++i) *cells[i] = values[i];
        ctlFluidSetup& f = Show();
        f.findChild<QRadioButton*>(c.option)->click();
        Choose(f.cboCategory, c.category);

        const std::pair<const char*, bool> groups[] = {{"pressures", c.pressuresReset},
                                                       {"temperatures", c.temperaturesReset},
                                                       {"properties", c.propertiesReset}};
        for (const auto& [group, reset] : groups) testdata::ExpectMembers(s, Group(group, reset));
        for (int i = 0; i < 5; ++i) EXPECT_EQ(*cells[i], c.propertiesReset ? 0.0 : values[i]) << i;

        // Back after the click keeps the reset and stores nothing of the page.
        f.cmdBack->click();
        EXPECT_EQ(InView(), "ctlPrimaryElementSetup1");
        EXPECT_EQ(s.UI_FluidCat, c.loadedCat);
        testdata::ExpectMembers(s, Group("temperatures", c.temperaturesReset));
    }
}

// Catches the page not shown in the main control, or its title and controls missing from view.
TEST_F(FluidPage, WindowShowsTitleAndControls) {
    Open();
    main->show();
    ctlFluidSetup& f = Show();
    ExpectShown(f, "FLUID TYPE SETUP",
                {"optGasSteam", "optLiquid", "cboCategory", "cboName", "cmdNext", "cmdBack",
                 "cmdCancel", "lblFluidType"});
    EXPECT_FALSE(f.txtMethod->isVisible());
    Choose(f.cboCategory, "Gas (custom data table)");
    EXPECT_TRUE(f.txtMethod->isVisible());
    EXPECT_FALSE(f.cboName->isVisible());
    // Both stand in one place.
    EXPECT_EQ(f.txtMethod->x(), f.cboName->x());
    EXPECT_EQ(f.txtMethod->width(), f.cboName->width());
}
