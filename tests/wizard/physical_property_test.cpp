// The physical property page on stores as the range pages leave them after their calculation:
// a library gas, saturated steam, a library liquid, pressurised water and a custom gas.

#include <QLabel>
#include <QRegularExpression>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <cmath>
#include <functional>

#include "../common/DataTable.h"
#include "../common/KeepPicture.h"
#include "../common/StoreMembers.h"
#include "../flowcalc/CalcFixture.h"
#include "Fits.h"
#include "ModUnit.h"
#include "MvConfig.h"
#include "NumberText.h"
#include "PageSupport.h"
#include "PageTest.h"
#include "SND.h"
#include "WizardFixture.h"
#include "ctlPhysicalPropertySetup.h"

using namespace qdf;
using namespace qdf::test;

namespace {

double Number(const QString& text) {
    const auto v = ParseNumber(text.toStdString());
    EXPECT_TRUE(v.has_value()) << text.toStdString();
    return v.value_or(std::nan(""));
}

class PhysicalPage : public WizardFixture {
  protected:
    void SetUp() override {
        ASSERT_TRUE(logs.isValid());
        ::setenv("QDF_LOG_DIR", logs.path().toLocal8Bit().constData(), 1);
    }

    ctlPhysicalPropertySetup& Page() { return *main->ctlPhysicalPropertySetup1; }

    // The store as the pages before leave it for one of the arrivals under data/ (Ethane,
    // SaturatedSteam, Methanol, Water, CustomGas), then the page.
    void Arrive(const std::string& fluid, const std::string& location = "Other") {
        Open("HART", 2, location);
        testdata::ApplyMembers(s, "tests/wizard/data/physical_arrival.json");
        testdata::ApplyMembers(s, "tests/wizard/data/physical_arrival_" + fluid + ".json");
        if (s.UI_FluidCat == 1 || s.UI_FluidCat == 6)
            s.UI_FluidNameMethodCode = CatalogueId(s.UI_FluidName);
        s.UI_RangeT1Standard = DegCToK(s.UI_RangeT1);
        s.UI_RangeT2Standard = DegCToK(s.UI_RangeT2);
        s.UI_RangeP1Standard = s.UI_RangeP1 * 1000.0;
        s.UI_RangeP2Standard = s.UI_RangeP2 * 1000.0;
        if (s.UI_FluidCat == 7) {
            // No driver for custom tables: the range page prepares the grid points only.
            ASSERT_EQ(CalcDischargeCoefficient(s), 0);
            ASSERT_EQ(CalcGasExpansionGrid(s), 0);
            for (int k = 0; k < 12; ++k) {
                s.UI_DensTemp[k] = (k / 4) * 30.0;
                s.UI_DensAbsPress[k] = 200.0 + (k % 4) * 200.0;
                s.UI_Dens[k] = s.UI_DensStandard[k] = 0.0;
            }
            for (int i = 0; i < 4; ++i) s.UI_ViscTemp[i] = i * 20.0;
        } else {
            ASSERT_EQ(RunCalculation(s), 0);
        }
        s.Gbl_ErrorCode = s.Gbl_ErrorSubCode = -999999;
        main->SwitchToPhysicalPropertySetup();
    }

    static QStringList Headings(const QTableWidget* grid) {
        QStringList h;
        for (int c = 0; c < grid->columnCount(); ++c) {
            h << grid->item(0, c)->text();
            EXPECT_EQ(grid->horizontalHeaderItem(c)->text(), h.back());
        }
        return h;
    }
    static QString Text(const QTableWidget* grid, int row, int column) {
        const QTableWidgetItem* item = grid->item(row, column);
        return item ? item->text() : QStringLiteral("<none>");
    }
    // A click on a grid cell, as the user gives it.
    void ClickCell(QTableWidget* grid, int row, int column) {
        const QRect r = grid->visualRect(grid->model()->index(row, column));
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, r.center());
    }
    void Type(QLineEdit* box, const QString& text, Qt::Key key = Qt::Key_Return) {
        box->clear();
        QTest::keyClicks(box, text);
        QTest::keyClick(box, key);
    }
    void Show() {
        main->show();
        QApplication::processEvents();
    }

    QTemporaryDir logs;
};

class PhysicalClasses : public PhysicalPage, public ::testing::WithParamInterface<testdata::Row> {};

QStringList Column(const testdata::Row& r, const std::string& column) {
    return QString::fromStdString(r.text(column)).split('|');
}

}  // namespace

// Catches a class shown with the wrong columns, row count or lists, and numbers shown in other
// formats than the grids' (eight places, viscosities with their exponent).
TEST_P(PhysicalClasses, GridsHeadingsAndFormats) {
    const testdata::Row& c = GetParam();
    Arrive(c.text("arrival"));
    ctlPhysicalPropertySetup& p = Page();
    EXPECT_EQ(main->CurrentPageControl(), &p);
    EXPECT_EQ(p.lblPhysicalPropertyCategory->text().toStdString(), s.Gbl_PhysicalPropertyCategory);
    EXPECT_EQ(p.lblPhysicalPropertyName->text().toStdString(), s.Gbl_PhysicalPropertyName);
    EXPECT_EQ(p.dataPointCount, c.integer("rows"));
    EXPECT_EQ(Headings(p.FlexDensity), Column(c, "density"));
    EXPECT_EQ(p.FlexDensity->rowCount(), c.integer("rows") + 1);
    EXPECT_TRUE(p.FlexDensity->isRowHidden(0));
    EXPECT_EQ(Headings(p.FlexViscosity), Column(c, "viscosity"));
    EXPECT_EQ(p.FlexViscosity->rowCount(), 5);
    EXPECT_EQ(!p.cboTempUnit->isHidden(), (c.integer("tempUnit") == 1));
    EXPECT_EQ(!p.lblTempUnit->isHidden(), (c.integer("tempUnit") == 1));
    EXPECT_EQ(!p.cboDataPoint->isHidden(), (c.integer("dataPoints") == 1));
    EXPECT_EQ(!p.LblDataPoint->isHidden(), (c.integer("dataPoints") == 1));
    EXPECT_EQ(p.txtIsenExp->isEnabled(), (c.integer("isentropic") == 1));
    EXPECT_EQ(p.txtIsenExp->isReadOnly(), (c.integer("isentropic") == 0));
    EXPECT_TRUE(p.txtDataEntry->isHidden());
    EXPECT_TRUE(p.txtDataEntryVis->isHidden());

    const int last = c.integer("rows");
    const int densityColumn = static_cast<int>(Column(c, "density").size()) - 1;
    for (int col = 0; col < densityColumn; ++col) {
        EXPECT_EQ(Text(p.FlexDensity, 1, col), Column(c, "first")[col]) << col;
        EXPECT_EQ(Text(p.FlexDensity, last, col), Column(c, "last")[col]) << col;
    }
    const QRegularExpression eightPlaces(QStringLiteral("^-?\\d+(\\.\\d{0,8})?$"));
    for (int r = 1; r <= last; ++r) {
        const QString t = Text(p.FlexDensity, r, densityColumn);
        EXPECT_TRUE(eightPlaces.match(t).hasMatch()) << t.toStdString();
        EXPECT_NEAR(Number(t), s.UI_DensStandard[r - 1], 5e-9) << r;
    }
    // A viscosity whose plain text has an exponent keeps it with eight places; one in fixed
    // form (from 1E-04 up) has eight places after the point.
    const QRegularExpression exponent(QStringLiteral("^\\d\\.\\d{1,8}E-0\\d$"));
    for (int r = 1; r <= 4; ++r) {
        const QString t = Text(p.FlexViscosity, r, 2);
        const double v = s.UI_ViscStandard[r - 1];
        if (t.contains('E')) {
            EXPECT_LT(v, 1e-4);
            EXPECT_TRUE(exponent.match(t).hasMatch()) << t.toStdString();
            EXPECT_NEAR(Number(t) / v, 1.0, 1e-8);
        } else {
            EXPECT_TRUE(v == 0.0 || v >= 1e-4) << t.toStdString();
            EXPECT_TRUE(eightPlaces.match(t).hasMatch()) << t.toStdString();
            EXPECT_NEAR(Number(t), v, 5e-9);
        }
    }
    if (s.UI_FluidCat == 7) {
        EXPECT_EQ(p.txtRefDensity->text(), "");
        EXPECT_EQ(p.txtMolWeight->text(), "");
    } else {
        EXPECT_NEAR(Number(p.txtRefDensity->text()), s.UI_RefDensValueStandard, 5e-9);
    }
}

INSTANTIATE_TEST_SUITE_P(
    ByClass, PhysicalClasses,
    ::testing::ValuesIn(testdata::Load("tests/wizard/data/physical_classes.csv")),
    testdata::RowName);

// Catches a unit change that relabels without converting, converts from the shown rather than
// the standard values, or leaves the store's unit codes behind.
TEST_F(PhysicalPage, UnitChangesRebuildTheGridsFromStandardValues) {
    Arrive("Ethane");
    ctlPhysicalPropertySetup& p = Page();
    const double density = s.UI_DensStandard[4];
    const double reference = s.UI_RefDensValueStandard;
    const double viscosity = s.UI_ViscStandard[0];
    EXPECT_EQ(p.lblRefDens->text(), "kg/m3");

    p.cboDensUnit->setCurrentIndex(p.cboDensUnit->findText("lb/ft3"));
    EXPECT_EQ(Headings(p.FlexDensity).back(), "Density (lb/ft3)");
    EXPECT_NEAR(Number(Text(p.FlexDensity, 5, 3)), KgM3ToLbFt3(density), 5e-9);
    EXPECT_NEAR(Number(p.txtRefDensity->text()), KgM3ToLbFt3(reference), 5e-9);
    EXPECT_EQ(p.lblRefDens->text(), "lb/ft3");
    EXPECT_EQ(s.UI_DensUnit, 94);
    EXPECT_EQ(s.UI_RefDensUnit, 94);

    p.cboTempUnit->setCurrentIndex(p.cboTempUnit->findText("Kelvin"));
    EXPECT_EQ(Headings(p.FlexDensity).at(2), "Temperature (K)");
    EXPECT_EQ(Text(p.FlexDensity, 1, 2), "300.15");
    EXPECT_EQ(Text(p.FlexViscosity, 4, 1), "360.15");
    p.cboTempUnit->setCurrentIndex(p.cboTempUnit->findText("deg F"));
    EXPECT_EQ(Headings(p.FlexDensity).at(2), "Temperature (deg F)");
    EXPECT_EQ(Headings(p.FlexViscosity).at(1), "Temperature(deg F)");
    EXPECT_EQ(Text(p.FlexDensity, 12, 2), "188.6");

    p.cboVisUnit->setCurrentIndex(p.cboVisUnit->findText("lb/ft sec"));
    EXPECT_EQ(Headings(p.FlexViscosity).at(2), "Viscosity  (lb/ft sec)");
    EXPECT_NEAR(Number(Text(p.FlexViscosity, 1, 2)) / PaSToLbFtS(viscosity), 1.0, 1e-8);
    EXPECT_EQ(s.UI_ViscUnit, 1);

    // Back to the first units: the grids read as they did, with nothing lost on the way.
    p.cboDensUnit->setCurrentIndex(p.cboDensUnit->findText("kg/m3"));
    EXPECT_NEAR(Number(Text(p.FlexDensity, 5, 3)), density, 5e-9);
    EXPECT_NEAR(Number(p.txtRefDensity->text()), reference, 5e-9);
    EXPECT_TRUE(host.messages.empty());
}

// Catches lists that offer what "Japan" does not, and headings that keep a unit nothing selects.
TEST_F(PhysicalPage, JapanOffersMetricUnitsOnlyAndStoredOthersShowNoSelection) {
    Arrive("Ethane", "Japan");
    ctlPhysicalPropertySetup& p = Page();
    EXPECT_EQ(Entries(p.cboDensUnit), std::vector<std::string>{"kg/m3"});
    EXPECT_EQ(Entries(p.cboVisUnit), std::vector<std::string>{"Pa sec"});
    EXPECT_EQ(p.cboTempUnit->count(), 2);

    // Stored units that are not offered show as no selection.
    s.UI_DensUnit = 94;
    s.UI_ViscUnit = 1;
    s.UI_RangeTUnit = 33;
    main->SwitchToPhysicalPropertySetup();
    EXPECT_EQ(p.cboDensUnit->currentIndex(), -1);
    EXPECT_EQ(p.cboVisUnit->currentIndex(), -1);
    EXPECT_EQ(p.cboTempUnit->currentIndex(), -1);
    EXPECT_EQ(Headings(p.FlexDensity),
              (QStringList{"No", "Pressure ( )", "Temperature ( )", "Density ( )"}));
    EXPECT_EQ(Headings(p.FlexViscosity), (QStringList{"No", "Temperature( )", "Viscosity ( )"}));

    // Both unit refusals come after the fit, which has run.
    s.Xmtr_DensCoeff.fill(0.0);
    p.cmdNext->click();
    p.cboDensUnit->setCurrentIndex(0);
    p.cmdNext->click();
    ExpectRefusals(host, {"Please make a selection for density unit",
                          "Please make a selection for viscosity unit"});
    EXPECT_NE(s.Xmtr_DensCoeff[0], 0.0);
    EXPECT_EQ(main->CurrentPageControl(), &p);
}

// Catches a commit that misses the store or its unit, a bad number that is kept, an Escape that
// writes, and keys that move to the wrong cell.
TEST_F(PhysicalPage, CellEditingCommitsByKeyAndEscapeDropsTheEntry) {
    Arrive("CustomGas");
    Show();
    ctlPhysicalPropertySetup& p = Page();
    QLineEdit* box = p.txtDataEntry;
    ClickCell(p.FlexDensity, 2, 3);
    ASSERT_TRUE(box->isVisible());
    EXPECT_EQ(box->text(), "0");
    EXPECT_EQ(box->geometry(), p.FlexDensity->visualRect(p.FlexDensity->model()->index(2, 3)));
    Type(box, "1.23456789012");  // Enter: commits, moves down and opens there
    EXPECT_EQ(s.UI_DensStandard[1], 1.23456789012);
    EXPECT_EQ(Text(p.FlexDensity, 2, 3), "1.23456789");
    EXPECT_TRUE(box->isVisible());
    EXPECT_EQ(p.FlexDensity->currentRow(), 3);
    Type(box, "2.5", Qt::Key_Escape);
    EXPECT_TRUE(box->isHidden());
    EXPECT_EQ(Text(p.FlexDensity, 3, 3), "0");

    ClickCell(p.FlexDensity, 3, 3);
    Type(box, "1e");
    ExpectRefusals(host, {"Please enter a number"});
    EXPECT_TRUE(box->isVisible());
    EXPECT_EQ(s.UI_Dens[2], 0.0);
    Type(box, "3", Qt::Key_Up);
    EXPECT_EQ(s.UI_Dens[2], 3.0);
    EXPECT_EQ(p.FlexDensity->currentRow(), 2);
    // Left of the density is a temperature, which takes no entry.
    Type(box, "4", Qt::Key_Left);
    EXPECT_EQ(s.UI_Dens[1], 4.0);
    EXPECT_EQ(p.FlexDensity->currentColumn(), 2);
    EXPECT_TRUE(box->isHidden());
    ClickCell(p.FlexDensity, 1, 1);
    Type(box, "250", Qt::Key_Right);
    EXPECT_EQ(s.UI_DensAbsPress[0], 250.0);

    // Typing a digit on a cell starts an entry with it; lb/ft3 goes to the store converted.
    p.cboDensUnit->setCurrentIndex(p.cboDensUnit->findText("lb/ft3"));
    p.FlexDensity->setCurrentCell(5, 3);
    QTest::keyClick(p.FlexDensity, Qt::Key_7);
    EXPECT_EQ(box->text(), "7");
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(s.UI_Dens[4], 7.0);
    EXPECT_DOUBLE_EQ(s.UI_DensStandard[4], LbFt3ToKgM3(7.0));

    p.cboVisUnit->setCurrentIndex(p.cboVisUnit->findText("lb/ft sec"));
    ClickCell(p.FlexViscosity, 2, 2);
    Type(p.txtDataEntryVis, "1.2E-05");
    EXPECT_DOUBLE_EQ(s.UI_ViscStandard[1], LbFtSToPaS(1.2e-5));
    EXPECT_EQ(Text(p.FlexViscosity, 2, 2), "1.2E-05");

    // A script's edit goes through the same rules.
    p.FlexDensity->item(8, 3)->setText("9.5");
    EXPECT_EQ(s.UI_Dens[7], 9.5);
    p.FlexDensity->item(9, 3)->setText("x");
    EXPECT_EQ(host.Texts().back(), "Please enter a number");
    EXPECT_EQ(Text(p.FlexDensity, 9, 3), "0");
}

// Catches a step out of order, a wording change, and a refusal that goes on to the fit.
TEST_F(PhysicalPage, NextRefusesInOrder) {
    Arrive("CustomGas");
    ctlPhysicalPropertySetup& p = Page();
    struct Step {
        const char *ref, *isen, *mw;
    };
    const Step steps[] = {{"", "1.3", "20"},   {"1e", "1.3", "20"}, {"1.2", "", "20"},
                          {"1.2", "1e", "20"}, {"1.2", "1.3", ""},  {"1.2", "1.3", "1e"}};
    for (const Step& st : steps) {
        p.txtRefDensity->setText(st.ref);
        p.txtIsenExp->setText(st.isen);
        p.txtMolWeight->setText(st.mw);
        p.cmdNext->click();
    }
    ExpectRefusals(host, {"Please fill out reference density value!",
                          "Please enter a correct number for reference density value!",
                          "Please fill out isentropic exponent value!",
                          "Please enter a correct number for isentropic exponent value!",
                          "Please fill out molecular weight value",
                          "Please enter a correct number for molecular weight value!"});
    EXPECT_EQ(s.UI_MolWeight, -999999);
    EXPECT_EQ(main->CurrentPageControl(), &p);

    // A liquid has no isentropic exponent to ask for.
    host.messages.clear();
    Arrive("Methanol");
    Page().txtRefDensity->setText("790");
    Page().txtIsenExp->setText("");
    Page().txtMolWeight->setText("");
    Page().cmdNext->click();
    ExpectRefusals(host, {"Please fill out molecular weight value"});
}

// Catches a failed fit that goes on, or tells the wrong cause.
TEST_F(PhysicalPage, FitFailuresAreToldAndThePageStays) {
    struct Case {
        const char* name;
        std::function<void(clsExGlobalVars&)> spoil;
        std::string text;
    };
    const Case cases[] = {
        {"one temperature",
         [](clsExGlobalVars& st) { st.UI_RangeT2Standard = st.UI_RangeT1Standard; },
         "The range that specified in the step of Fluid Operating Range Setup is too narrow. "
         "Expand the range of pressure or temperature"},
        {"viscosity table beyond its bounds",
         [](clsExGlobalVars& st) { st.Mgt_GasVisTempDiv = 40; },
         "Transmitter parameter calculation error has occured. Please redefine pressure and "
         "output ranges"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        host.messages.clear();
        Arrive("Ethane");
        c.spoil(s);
        Page().cmdNext->click();
        ExpectInformation(host, {c.text});
        EXPECT_EQ(main->CurrentPageControl(), &Page());
        EXPECT_EQ(s.Mgt_ConfigCompleteFlag, 0);
        EXPECT_EQ(s.CurrentPage, 4);
    }
}

// Catches a Next that rounds the computed values through the boxes' text, stores other
// coefficients than the fit of the tables, or leaves by another path.
TEST_F(PhysicalPage, NextFitsTheLibraryTablesAndGoesToApply) {
    Arrive("Ethane");
    // The fit of the tables as the calculation left them, then the page's own.
    ASSERT_EQ(RunFits(s), 0);
    const auto density = s.Xmtr_DensCoeff;
    const auto viscosity = s.Xmtr_VisCoeff;
    const auto expansion = s.Xmtr_ExpFac;
    s.Xmtr_DensCoeff.fill(0.0);
    s.Xmtr_VisCoeff.fill(0.0);
    s.Xmtr_ExpFac.fill(0.0);
    const double reference = s.UI_RefDensValue;
    const double isentropic = s.UI_IsenExpValue;
    Page().cmdNext->click();
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(s.UI_RefDensValue, reference);
    EXPECT_EQ(s.UI_IsenExpValue, isentropic);
    EXPECT_NEAR(s.UI_MolWeight, 30.069, 0.01);
    EXPECT_EQ(s.Xmtr_DensCoeff, density);
    EXPECT_EQ(s.Xmtr_VisCoeff, viscosity);
    EXPECT_EQ(s.Xmtr_ExpFac, expansion);
    testdata::ExpectMembers(s, "tests/wizard/data/physical_next_store.json");
    EXPECT_EQ(main->CurrentPageControl(), &Apply());
}

// Catches entered tables that do not reach the fit: the transmitter's density must give back
// what the user typed at the grid's points.
TEST_F(PhysicalPage, EnteredCustomTablesAreFitted) {
    Arrive("CustomGas");
    Show();
    ctlPhysicalPropertySetup& p = Page();
    // An ideal gas of molecular weight 20, entered cell by cell with Enter.
    auto ideal = [](double tC, double pKPa) { return pKPa * 20.0 / (8.3143 * (tC + 273.15)); };
    ClickCell(p.FlexDensity, 1, 3);
    for (int k = 0; k < 12; ++k) {
        const double t = s.UI_DensTemp[k], pr = s.UI_DensAbsPress[k];
        Type(p.txtDataEntry, QString::fromStdString(FormatNumber(ideal(t, pr), "0.##########")));
    }
    p.txtRefDensity->setText("0.845");
    p.txtIsenExp->setText("1.31");
    p.txtMolWeight->setText("20");
    p.cmdNext->click();
    EXPECT_TRUE(host.messages.empty()) << host.Texts().front();
    EXPECT_EQ(s.UI_RefDensValue, 0.845);
    EXPECT_EQ(s.UI_RefDensValueStandard, 0.845);
    EXPECT_EQ(s.UI_IsenExpValue, 1.31);
    EXPECT_EQ(s.UI_MolWeight, 20.0);
    for (int k = 0; k < 12; ++k) {
        const double t = s.UI_DensTemp[k], pr = s.UI_DensAbsPress[k];
        EXPECT_NEAR(GasDensityPoly(s.Xmtr_DensCoeff, t + 273.15, pr), ideal(t, pr), 1e-8) << k;
    }
    EXPECT_EQ(main->CurrentPageControl(), &Apply());
}

// Catches a data point choice that changes the divisions without recalculating, or a grid that
// keeps its old size.
TEST_F(PhysicalPage, DataPointChoiceRecalculatesTheFinerGrid) {
    Arrive("Ethane");
    ctlPhysicalPropertySetup& p = Page();
    EXPECT_EQ(Entries(p.cboDataPoint), (std::vector<std::string>{"12 (3 x 4)", "63 (7 x 9)"}));
    EXPECT_EQ(p.cboDataPoint->currentIndex(), 0);

    p.cboDataPoint->setCurrentIndex(1);
    EXPECT_EQ(s.Mgt_GasDensDiv, 63);
    EXPECT_EQ(s.Mgt_GasDensTempDiv, 7);
    EXPECT_EQ(s.Mgt_GasDensPressDiv, 9);
    EXPECT_EQ(p.dataPointCount, 63);
    EXPECT_EQ(p.FlexDensity->rowCount(), 64);
    EXPECT_EQ(Text(p.FlexDensity, 63, 1), "2000");
    EXPECT_EQ(Text(p.FlexDensity, 63, 2), "87");
    EXPECT_EQ(Text(p.FlexDensity, 10, 2), "37");
    EXPECT_GT(s.UI_DensStandard[62], s.UI_DensStandard[54]);
    // The overdetermined fit has run over the 63 points.
    EXPECT_NEAR(GasDensityPoly(s.Xmtr_DensCoeff, s.UI_DensTempStandard[30],
                               s.UI_DensAbsPressStandard[30] / 1000.0),
                s.UI_DensStandard[30], 1e-3 * s.UI_DensStandard[30]);
    EXPECT_TRUE(host.messages.empty());

    p.cboDataPoint->setCurrentIndex(0);
    EXPECT_EQ(p.FlexDensity->rowCount(), 13);
    EXPECT_EQ(s.Mgt_GasDensDiv, 12);
}

// Catches a Back that returns elsewhere than the range page on the path, or moves on a name
// that is none of them.
TEST_F(PhysicalPage, BackReturnsToTheRangePageOnThePath) {
    const std::pair<const char*, const char*> paths[] = {
        {"Ethane", "ctlOperatingRangeSetup1"},
        {"SaturatedSteam", "ctlOperatingRangeSatSteam1"},
        {"Methanol", "ctlOperatingRangeLiquid1"}};
    for (const auto& [fluid, page] : paths) {
        Arrive(fluid);
        Page().cmdBack->click();
        EXPECT_EQ(main->CurrentPageControl()->objectName().toStdString(), page);
        EXPECT_EQ(s.CurrentPage, 3);
        EXPECT_EQ(s.PageList[4], "");
    }
    Arrive("Ethane");
    s.PageList[3] = "ctlFluidSetup";
    Page().cmdBack->click();
    EXPECT_EQ(main->CurrentPageControl(), &Page());
}

// Catches a page that is not shown in the frame, or named controls that are missing or hidden.
TEST_F(PhysicalPage, ShownInTheMainControl) {
    Arrive("Ethane");
    Show();
    ctlPhysicalPropertySetup& p = Page();
    ExpectShown(p, "FLUID PHYSICAL PROPERTY SETUP",
                {"lblPhysicalPropertyCategory", "lblPhysicalPropertyName", "FlexDensity",
                 "cboDensUnit", "cboTempUnit", "lblTempUnit", "cboDataPoint", "LblDataPoint",
                 "FlexViscosity", "cboVisUnit", "txtRefDensity", "lblRefDens", "txtIsenExp",
                 "txtMolWeight", "lblPhysicalProperty", "cmdBack", "cmdNext", "cmdCancel"});
    EXPECT_TRUE(p.BlinkTimer->isActive());
    // A library fluid's grids take no entries, not even from a script.
    const double density = s.UI_DensStandard[0];
    ClickCell(p.FlexDensity, 1, 3);
    EXPECT_TRUE(p.txtDataEntry->isHidden());
    p.FlexDensity->item(1, 3)->setText("5");
    EXPECT_NEAR(Number(Text(p.FlexDensity, 1, 3)), density, 5e-9);
    EXPECT_EQ(s.UI_DensStandard[0], density);
    KeepPicture(*main, "physical_property");
}
