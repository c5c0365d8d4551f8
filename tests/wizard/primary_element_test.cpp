#include <QLabel>
#include <QTest>
#include <cstdlib>
#include <sstream>

#include "../common/DataTable.h"
#include "../common/KeepPicture.h"
#include "../common/StoreMembers.h"
#include "ModUnit.h"
#include "PageSupport.h"
#include "PageTest.h"
#include "WizardFixture.h"
#include "ctlFluidSetup.h"

using namespace qdf;
using namespace qdf::test;

namespace {

const char* kCode18 =
    "Classical Venturi tube with a machined convergent section    [ISO5167-1 1991/ ISO5167-4 2003]";

std::string BoreQuestion(const std::string& words) {
    return "The recommended primary device diameter  value shouldn't be less than " + words +
           ". Do you still want to use this value?";
}

std::string PipeQuestion(const std::string& words) {
    return "The recommended pipe diameter value should be between " + words +
           ". Do you still want to use this value?";
}

// "beta low high" as the question prints them.
std::string BetaQuestion(const std::string& triple) {
    std::istringstream in(triple);
    std::string beta, low, high;
    in >> beta >> low >> high;
    return "Currently beta is " + beta +
           ". The recommended Beta (Primary element diameter / pipe diameter) value should be "
           "between " +
           low + " and " + high + ". Do you still want to use this value?";
}

bool Editable(const QLineEdit* box) {
    return box->isEnabled() && !box->isReadOnly();
}

class PrimaryElementPage : public WizardFixture {
  protected:
    void OpenPage(const std::string& location = "Other") {
        Open("HART", 2, location);
        main->SwitchToPrimaryElementSetup();
    }
    // Focus checks need an active window.
    void ShowWindow() {
        main->show();
        App().setActiveWindow(main.get());
    }
    // A device by family and list position, then d and D with their units; temperatures and
    // materials as a user leaves them.
    void Fill(int type, int desc, const std::string& d, const std::string& dUnit,
              const std::string& D, const std::string& DUnit) {
        Primary().cboType->setCurrentIndex(type);
        Primary().cboDesc->setCurrentIndex(desc);
        SetByName(Primary(), "txtPEDiameter=" + d + ";cboPEDiameterUnit=" + dUnit +
                                 ";txtPipeDiameter=" + D + ";cboPipeDiameterUnit=" + DUnit);
        SetByName(Primary(),
                  "txtPETemp=20;cboPETempUnit=deg C;cboPEMaterial=316 Stainless Steel;"
                  "txtPipeTemp=20;cboPipeTempUnit=deg C;cboPipeMaterial=Carbon Steel");
    }
    bool OnPage() { return main->CurrentPageControl() == &Primary(); }
};

}  // namespace

// Catches a step out of order, a wrong text or focus, and any entry stored before the last step;
// the four standard values alone go ahead.
TEST_F(PrimaryElementPage, RefusesInOrderWithTheFixedModeOnTheWay) {
    OpenPage();
    ShowWindow();
    ctlPrimaryElementSetup& p = Primary();
    for (QLineEdit* box : p.findChildren<QLineEdit*>()) box->clear();
    for (QComboBox* list : p.findChildren<QComboBox*>()) list->setCurrentIndex(-1);
    struct {
        std::int32_t type;
        double d, disCoeff, pipeStandard;
        std::string material;
    } const before{s.UI_PEType, s.UI_PEDiameter, s.UI_PEDisCoeff, s.UI_PEPipeDiameterStandard,
                   s.UI_PEMaterial};

    for (const testdata::Row& r : testdata::Load("tests/wizard/data/primary_refusals.csv")) {
        QWidget* w = r.has("control") ? p.findChild<QWidget*>(r.text("control").c_str()) : nullptr;
        ASSERT_EQ(w != nullptr, r.has("control")) << r.where();
        if (auto* box = qobject_cast<QLineEdit*>(w)) box->setText(r.text("text").c_str());
        if (auto* list = qobject_cast<QComboBox*>(w)) list->setCurrentIndex(r.integer("text"));
        host.messages.clear();
        p.cmdNext->click();
        ExpectRefusals(host, {r.text("message")}, r.where());
        const QWidget* focus = p.findChild<QWidget*>(r.text("focus").c_str());
        EXPECT_TRUE(focus && focus->hasFocus()) << r.where();
        EXPECT_TRUE(OnPage()) << r.where();
        EXPECT_EQ(s.UI_PEType, before.type) << r.where();
        EXPECT_EQ(s.UI_PEDiameter, before.d) << r.where();
        EXPECT_EQ(s.UI_PEDisCoeff, before.disCoeff) << r.where();
        EXPECT_EQ(s.UI_PEMaterial, before.material) << r.where();
        if (r.text("message") == "Please make a selection for pipe diameter unit") {
            // 2 in at 68 deg F, written while later steps still refuse.
            EXPECT_DOUBLE_EQ(s.UI_PEDiameterStandard, 50.8);
            EXPECT_DOUBLE_EQ(s.UI_PETempStandard, 293.15);
            EXPECT_EQ(s.UI_PEPipeDiameterStandard, before.pipeStandard);
        }
        if (r.text("message") == "Please fill out pipe temperature") {
            EXPECT_EQ(s.UI_PEPipeDiameterStandard, 0.0);
        }
    }

    // The fixed mode has no limits: d = 2 in over D = 0 passes without a question.
    Choose(p.cboPipeMaterial, "Hastelloy C");
    host.messages.clear();
    p.cmdNext->click();
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(main->CurrentPageControl(), main->ctlFluidSetup1);
    testdata::ExpectMembers(s, "tests/wizard/data/primary_fixed_mode_store.json");
}

// Catches a wrong limit, a wrong wording (including the deliberately odd ones), a warning asked
// at the limit itself, or a device that stores the wrong code.
TEST_F(PrimaryElementPage, WarningsOfTheDeviceTableAnsweredYes) {
    OpenPage();
    for (const testdata::Row& r : testdata::Load("tests/wizard/data/primary_warnings.csv")) {
        main->SwitchToPrimaryElementSetup();
        Fill(r.integer("type"), r.integer("desc"), r.text("d"), r.text("d_unit"), r.text("D"),
             r.text("D_unit"));
        std::vector<std::string> expected;
        if (r.has("bore")) expected.push_back(BoreQuestion(r.text("bore")));
        if (r.has("pipe")) expected.push_back(PipeQuestion(r.text("pipe")));
        if (r.has("beta")) expected.push_back(BetaQuestion(r.text("beta")));
        host.messages.clear();
        host.answers.assign(expected.size(), 6);
        Primary().cmdNext->click();
        EXPECT_EQ(host.Texts(), expected) << r.where();
        for (const Message& m : host.messages) {
            EXPECT_EQ(m.title, kWizardTitle);
            EXPECT_EQ(m.kind * 100 + m.buttons * 10 + m.def, 357) << r.where();
        }
        ASSERT_EQ(main->CurrentPageControl(), main->ctlFluidSetup1) << r.where();
        EXPECT_EQ(s.UI_PEType, r.integer("type")) << r.where();
        EXPECT_EQ(s.UI_PEPrimaryDeviceCode, r.integer("code")) << r.where();
        EXPECT_EQ(s.UI_PESubCodeName, r.text("sub_name")) << r.where();
    }
}

// Catches a No that goes on, that stores, or that leaves the focus elsewhere; the beta question
// returns to the pipe box even when the bore is at fault.
TEST_F(PrimaryElementPage, NoSelectsTheBoxAndEndsTheValidator) {
    OpenPage();
    ShowWindow();
    ctlPrimaryElementSetup& p = Primary();
    Fill(0, 0, "10", "mm", "2000", "mm");
    const std::string bore = BoreQuestion("12.5 mm");
    const std::string pipe = PipeQuestion("50 mm and 1000 mm");
    // Entries changed before Next, the answers given, the questions asked, the box that then has
    // the focus, and d and D in mm as written before the question answered No.
    struct Case {
        std::string entries;
        std::vector<int> answers;
        std::vector<std::string> asked;
        QLineEdit* focus;
        double d, D;
    };
    const Case cases[] = {
        {"", {7}, {bore}, p.txtPEDiameter, 10, kNotEntered},
        {"", {6, 7}, {bore, pipe}, p.txtPipeDiameter, 10, 2000},
        {"", {6, 6, 7}, {bore, pipe, BetaQuestion("0.005 0.2 0.75")}, p.txtPipeDiameter, 10, 2000},
        // In inches: the bore question in inch words, then beta, whose No goes to D although d is
        // the entry at fault.
        {"txtPEDiameter=0.3;cboPEDiameterUnit=in;txtPipeDiameter=3;cboPipeDiameterUnit=in",
         {6, 7},
         {BoreQuestion("0.492 inch"), BetaQuestion("0.1 0.2 0.75")},
         p.txtPipeDiameter,
         7.62,
         76.2},
    };
    for (const Case& c : cases) {
        SetByName(p, c.entries);
        host.messages.clear();
        host.answers.assign(c.answers.begin(), c.answers.end());
        p.txtPEDiameter->deselect();
        p.txtPipeDiameter->deselect();
        p.cmdNext->click();
        EXPECT_EQ(host.Texts(), c.asked);
        EXPECT_TRUE(c.focus->hasFocus()) << c.asked.size();
        EXPECT_EQ(c.focus->selectedText(), c.focus->text()) << c.asked.size();
        EXPECT_TRUE(OnPage());
        EXPECT_EQ(s.UI_PEType, kNotEntered);
        EXPECT_EQ(s.UI_PEDiameter, kNotEntered);
        EXPECT_DOUBLE_EQ(s.UI_PEDiameterStandard, c.d);
        EXPECT_DOUBLE_EQ(s.UI_PEPipeDiameterStandard, c.D);
    }
}

// Catches coefficient boxes open outside the fixed mode, a list change that keeps their text,
// or empty closed boxes that overwrite the stored coefficients.
TEST_F(PrimaryElementPage, FixedCoefficientBoxesFollowTheChoice) {
    OpenPage();
    ctlPrimaryElementSetup& p = Primary();
    EXPECT_FALSE(Editable(p.txtPEDisCoeff));
    p.cboType->setCurrentIndex(3);
    EXPECT_EQ(Entries(p.cboDesc), std::vector<std::string>{"Fixed mode"});
    EXPECT_EQ(p.cboDesc->currentIndex(), -1);
    EXPECT_FALSE(Editable(p.txtPEGasExpFactor));
    p.cboDesc->setCurrentIndex(0);
    EXPECT_TRUE(Editable(p.txtPEDisCoeff));
    EXPECT_TRUE(Editable(p.txtPEGasExpFactor));
    Fill(3, 0, "50", "mm", "100", "mm");
    p.txtPEDisCoeff->setText("0.6");
    p.txtPEGasExpFactor->setText("0.95");
    p.cmdNext->click();
    ASSERT_EQ(main->CurrentPageControl(), main->ctlFluidSetup1);

    main->SwitchToPrimaryElementSetup();
    EXPECT_EQ(p.txtPEDisCoeff->text(), "0.6");
    EXPECT_EQ(p.txtPEGasExpFactor->text(), "0.95");
    EXPECT_TRUE(Editable(p.txtPEDisCoeff));

    p.cboType->setCurrentIndex(0);
    EXPECT_EQ(p.txtPEDisCoeff->text(), "");
    EXPECT_EQ(p.txtPEGasExpFactor->text(), "");
    EXPECT_FALSE(Editable(p.txtPEDisCoeff));
    EXPECT_EQ(p.cboDesc->count(), 10);
    p.cboDesc->setCurrentIndex(4);
    host.messages.clear();
    p.cmdNext->click();
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(s.UI_PEPrimaryDeviceCode, 6);
    EXPECT_EQ(s.UI_PEDisCoeff, 0.6);
    EXPECT_EQ(s.UI_PEGasExpFac, 0.95);
}

// Catches a family listing the wrong rows or order, and the code 18 text without its blanks.
TEST_F(PrimaryElementPage, DescriptionListsByFamily) {
    OpenPage();
    ctlPrimaryElementSetup& p = Primary();
    EXPECT_EQ(Entries(p.cboType),
              (std::vector<std::string>{"Orifice", "Nozzle", "Venturi", "Fix"}));
    const std::size_t sizes[] = {10, 5, 6, 1};
    for (int type = 0; type < 4; ++type) {
        p.cboType->setCurrentIndex(type);
        EXPECT_EQ(Entries(p.cboDesc).size(), sizes[type]);
    }
    p.cboType->setCurrentIndex(2);
    EXPECT_EQ(p.cboDesc->itemText(3).toStdString(), kCode18);
    p.cboType->setCurrentIndex(1);
    EXPECT_EQ(p.cboDesc->itemText(4).toStdString(),
              "ASME FLOW NOZZLES [ASME MFC-3M 1989] with throat tap flow nozzle");
    EXPECT_EQ(Entries(p.cboPEMaterial),
              (std::vector<std::string>{"304 Stainless Steel", "316 Stainless Steel",
                                        "Carbon Steel", "Hastelloy C", "Monel"}));
    EXPECT_EQ(Entries(p.cboPipeMaterial), Entries(p.cboPEMaterial));
    EXPECT_EQ(Entries(p.cboPEDiameterUnit), (std::vector<std::string>{"mm", "in"}));
    EXPECT_EQ(Entries(p.cboPipeTempUnit), (std::vector<std::string>{"deg C", "deg F", "Kelvin"}));
}

// Catches a load that picks the wrong row for a code, a missing notice for an unknown nozzle,
// or a sentinel test added to (or missing from) a box.
TEST_F(PrimaryElementPage, LoadFromStoreSelectsByCode) {
    OpenPage();
    ctlPrimaryElementSetup& p = Primary();
    for (const testdata::Row& r : testdata::Load("tests/wizard/data/primary_load_codes.csv")) {
        s.UI_PEType = r.integer("type");
        s.UI_PEPrimaryDeviceCode = r.integer("code");
        s.UI_PESubcode = r.integer("sub");
        host.messages.clear();
        main->SwitchToPrimaryElementSetup();
        ExpectByName(p, "cboType=" + r.text("typeText") + ";cboDesc=" + r.text("descText"),
                     r.where());
        ExpectInformation(host,
                          r.integer("notice") == 0
                              ? std::vector<std::string>{}
                              : std::vector<std::string>{"Primary element description is not "
                                                         "supported by this software version"},
                          r.where());
    }

    testdata::ApplyMembers(s, "tests/wizard/data/primary_fixed_inch_load.json");
    main->SwitchToPrimaryElementSetup();
    ExpectByName(p,
                 "txtPEDisCoeff=0.75;txtPEGasExpFactor=;txtPEDiameter=2.5;cboPEDiameterUnit=in;"
                 "txtPETemp=68;cboPETempUnit=deg F;cboPEMaterial=Monel;txtPipeDiameter=4;"
                 "cboPipeDiameterUnit=in;txtPipeTemp=-999999;cboPipeTempUnit=Kelvin;"
                 "cboPipeMaterial=");
    EXPECT_EQ(p.cboPipeMaterial->currentIndex(), -1);
    EXPECT_EQ(s.Gbl_ReadyToSave, kFalse);

    // A sentinel writes nothing into the other boxes: what they showed stays.
    s.UI_PEDiameter = kNotEntered;
    s.UI_PETemp = kNotEntered;
    s.UI_PEType = 0;
    main->SwitchToPrimaryElementSetup();
    EXPECT_EQ(p.txtPEDiameter->text(), "2.5");
    EXPECT_EQ(p.txtPETemp->text(), "68");
    EXPECT_EQ(p.txtPEDisCoeff->text(), "");
}

// Catches inch or Fahrenheit offered in Japan, or a stored inch unit still shown as selected.
TEST_F(PrimaryElementPage, JapanListsAndAnInchConfiguration) {
    OpenPage("Japan");
    ctlPrimaryElementSetup& p = Primary();
    EXPECT_EQ(Entries(p.cboPEDiameterUnit), std::vector<std::string>{"mm"});
    EXPECT_EQ(Entries(p.cboPipeDiameterUnit), std::vector<std::string>{"mm"});
    EXPECT_EQ(Entries(p.cboPETempUnit), (std::vector<std::string>{"deg C", "Kelvin"}));
    EXPECT_EQ(Entries(p.cboPipeTempUnit), (std::vector<std::string>{"deg C", "Kelvin"}));

    // As saved in inches and deg F elsewhere.
    testdata::ApplyMembers(s, "tests/wizard/data/primary_fixed_inch_load.json");
    s.UI_PEType = 0;
    s.UI_PEPrimaryDeviceCode = 5;
    main->SwitchToPrimaryElementSetup();
    EXPECT_EQ(p.cboPEDiameterUnit->currentIndex(), -1);
    EXPECT_EQ(p.cboPETempUnit->currentIndex(), -1);
    EXPECT_EQ(p.cboPipeDiameterUnit->currentIndex(), -1);
    EXPECT_EQ(p.cboPipeTempUnit->currentText(), "Kelvin");
    host.messages.clear();
    p.cmdNext->click();
    ExpectRefusals(host, {"Please make a selection for primary diameter unit"});
    EXPECT_TRUE(OnPage());
}

// Catches a Back that stores the page's edits or goes anywhere but the Mode page.
TEST_F(PrimaryElementPage, BackReturnsToModeWithoutStoring) {
    OpenPage();
    Fill(0, 0, "50", "mm", "100", "mm");
    Primary().cmdBack->click();
    EXPECT_EQ(main->CurrentPageControl(), &Mode());
    EXPECT_EQ(s.UI_PEType, kNotEntered);
    EXPECT_EQ(s.UI_PEDiameter, kNotEntered);
    EXPECT_TRUE(host.messages.empty());
}

// Catches a page that isn't shown in the main control, a wrong title, or a named control
// hidden; QDF_GRAB_DIR keeps a picture of the page.
TEST_F(PrimaryElementPage, WindowShowsTitleAndFields) {
    OpenPage();
    main->resize(1000, 560);
    main->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(main.get()));
    ctlPrimaryElementSetup& p = Primary();
    ExpectShown(
        p, "PRIMARY DEVICE AND PIPE SETUP",
        {"cboType", "cboDesc", "txtElementDesc", "txtPEDisCoeff", "txtPEGasExpFactor",
         "txtPEDiameter", "cboPEDiameterUnit", "txtPETemp", "cboPETempUnit", "cboPEMaterial",
         "txtPipeDiameter", "cboPipeDiameterUnit", "txtPipeTemp", "cboPipeTempUnit",
         "cboPipeMaterial", "cmdNext", "cmdBack", "cmdCancel", "lblPrimaryElement"});
    EXPECT_TRUE(p.BlinkTimer->isActive());
    Fill(1, 2, "60", "mm", "100", "mm");
    KeepPicture(*main, "primary_element");
}
