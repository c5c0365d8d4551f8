#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QToolBar>

#include "WizardFixture.h"
#include "WizardServices.h"
#include "ctlAbout.h"

using namespace qdf;
using namespace qdf::test;

namespace {

std::vector<std::string> VisibleEntries(QMenu* menu) {
    std::vector<std::string> v;
    for (QAction* a : menu->actions())
        if (a->isVisible()) v.push_back(a->objectName().toStdString());
    return v;
}

// Records which command ran and with which services; the QMV import chooses Basic mode, the Mgt
// import turns debug mode on.
#define RECORD(Command, ...)                                                                    \
    bool Command(clsExGlobalVars& s, ISDKMessageService&, wizard::IDialogService& d) override { \
        __VA_ARGS__;                                                                            \
        calls.push_back(#Command);                                                              \
        dialogsSeen = &d;                                                                       \
        return true;                                                                            \
    }
class RecordingFiles : public wizard::IFileCommands {
  public:
    std::vector<std::string> calls;
    wizard::IDialogService* dialogsSeen = nullptr;
    RECORD(ImportQMV, s.Xmtr_SimpleFlowCalcMode = 1)
    RECORD(ImportPMF, (void)s)
    RECORD(ImportFlowParamUI, (void)s)
    RECORD(ImportFlowParamXmtr, (void)s)
    RECORD(ImportFlowParamMgt, s.Mgt_DebugModeFlag = 1, s.Mgt_DisplayCurrentValueFlag = 0)
    RECORD(ExportQMV, (void)s)
    RECORD(ExportFlowParamUI, (void)s)
    RECORD(ExportFlowParamXmtr, (void)s)
    RECORD(ExportFlowParamCalc, (void)s)
    RECORD(Report, (void)s)
};
#undef RECORD

}  // namespace

// Catches toolbar buttons live on the wrong pages, or more than one page in view.
TEST_F(WizardFixture, ToolbarFollowsThePage) {
    Open();
    auto enabled = [&] {
        std::string e;
        for (int i = 1; i <= 5; ++i) e += main->ToolbarButton(i)->isEnabled() ? '1' : '0';
        return e;
    };
    EXPECT_EQ(main->CurrentPageControl(), &Mode());
    EXPECT_EQ(enabled(), "11001");
    main->SwitchToSetupMode();
    EXPECT_EQ(enabled(), "00001");
    main->SwitchToSaveAndDownload();
    EXPECT_EQ(enabled(), "00111");
    int shown = 0;
    for (ctlPage* p : main->findChildren<ctlPage*>()) shown += p->isHidden() ? 0 : 1;
    EXPECT_EQ(shown, 1);
    main->SwitchToModeSelection();
    EXPECT_EQ(enabled(), "11001");
}

// Catches the PMF import offered on Fieldbus, or Flow Param entries shown outside debug mode.
TEST_F(WizardFixture, MenusByBusAndDebugMode) {
    Open("FFH1");
    EXPECT_EQ(VisibleEntries(main->MenuImport), std::vector<std::string>{"MenuImportQMV"});
    EXPECT_EQ(VisibleEntries(main->MenuExport), std::vector<std::string>{"MenuExportQMV"});

    FakeHost host2;
    clsExGlobalVars s2;
    InitializeDefaults(s2);
    PrepareStore(s2, host2, "HART", 2);
    s2.Mgt_DebugModeFlag = 1;
    TVRQDFFCWMain m2;
    m2.Initialize(&s2);
    EXPECT_EQ(VisibleEntries(m2.MenuImport),
              (std::vector<std::string>{"MenuImportQMV", "MenuImportPMF", "MenuImportFlowParamUI",
                                        "MenuImportFlowParamXmtr", "MenuImportFlowParamMgt"}));
    EXPECT_EQ(VisibleEntries(m2.MenuExport).size(), 4u);
}

// Catches a toolbar that opens menus before start-up has finished.
TEST_F(WizardFixture, ToolbarIgnoredUntilVariablesAreInitialized) {
    Open();
    s.varsInitialized = kFalse;
    main->Toolbar1_ButtonClick("Import");
    EXPECT_EQ(main->OpenedMenu(), nullptr);
    s.varsInitialized = kTrue;
    main->Toolbar1_ButtonClick("Import");
    EXPECT_EQ(main->OpenedMenu(), main->MenuImport);
    main->MenuImport->hide();
}

// Catches a reset without asking, or one that ignores the answer.
TEST_F(WizardFixture, MenuInitializeAsksThenResets) {
    Open();
    s.Xmtr_SimpleFlowCalcMode = 1;
    s.UI_PEMaterial = "Monel";
    host.answers = {7};
    main->MenuInitialize->trigger();
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].text,
              "Flow configuration data will be reset! Are you sure you want to proceed?");
    EXPECT_EQ(host.messages[0].title, "QDF300 Warning");
    EXPECT_EQ(host.messages[0].buttons, 5);
    EXPECT_EQ(host.messages[0].def, 7);
    EXPECT_EQ(s.Xmtr_SimpleFlowCalcMode, 1);

    host.answers = {6};
    main->MenuInitialize->trigger();
    EXPECT_EQ(s.Xmtr_SimpleFlowCalcMode, 0);
    EXPECT_EQ(s.UI_PEMaterial, "304 Stainless Steel");
    EXPECT_TRUE(Mode().optAutoCompMode->isChecked());
}

// Catches the help document opened once, or under the wrong path.
TEST_F(WizardFixture, HelpOpensTheManualTwice) {
    Open();
    std::vector<std::string> opened;
    wizard::WizardServices().openDocument = [&](const std::string& p) { opened.push_back(p); };
    s.Mgt_HelpFilePath = "inst/";
    main->MenuQDFSondraHelp->trigger();
    wizard::WizardServices().openDocument = nullptr;
    EXPECT_EQ(opened,
              (std::vector<std::string>{"inst/QDFSondra_Manual.pdf", "inst/QDFSondra_Manual.pdf"}));
}

// Catches a wrong About title line or a close button that leaves the view up.
TEST_F(WizardFixture, AboutShowsTitleAndCloses) {
    Open();
    main->MenuQDFSondraAbout->trigger();
    EXPECT_FALSE(main->ctlAbout1->isHidden());
    EXPECT_EQ(main->ctlAbout1->lblTitle->text(),
              "QDFSondra    Flow Configuration Wizard    R1.05.00");
    main->ctlAbout1->cmdOK->click();
    EXPECT_TRUE(main->ctlAbout1->isHidden());
}

// Catches a gauge reference pressure kept, or a notice text that differs.
TEST_F(WizardFixture, CheckCompatibleClearsGaugeReferencePressure) {
    Open();
    s.UI_PressRef = 2.5;
    s.UI_PressRefUnit = 1;
    main->CheckCompatible();
    EXPECT_TRUE(host.messages.empty());
    s.UI_PressRefUnit = 4;
    main->CheckCompatible();
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].text,
              "\nThe reference pressure must be entered as the absolute pressure.\nPlease reenter "
              "the absolute pressure equivalent to the following gauge pressure.\n\nReference "
              "pressure : 2.5 bar gauge");
    EXPECT_EQ(host.messages[0].title, "QDF300 Flow Configuration Wizard");
    EXPECT_EQ(s.UI_PressRef, kNotEntered);
    EXPECT_EQ(s.UI_PressRefUnit, 0);
}

// Catches component tables left empty or stale rows kept beyond the catalogue.
TEST_F(WizardFixture, CompoundTablesFilledFromCatalogue) {
    GasCompoundTable()[2].Name = "STALE";
    GasCompoundTable()[240].Name = "STALE";
    Open();
    EXPECT_NE(GasCompoundTable()[2].Name, "STALE");
    EXPECT_EQ(GasCompoundTable()[13].Name, "METHANE");
    EXPECT_EQ(LiquidCompoundTable()[14].ID, 905);
    int air = -1;
    for (int i = 0; i < 200; ++i)
        if (GasCompoundTable()[i].Name == "AIR") air = i;
    ASSERT_GE(air, 0);
    EXPECT_EQ(GasCompoundTable()[air].MinTemp, 194.67);
    EXPECT_EQ(GasCompoundTable()[air].MaxTemp, 772.9);
    EXPECT_LT(LiquidCompoundTable()[13].MinTemp, LiquidCompoundTable()[13].MaxTemp);
    EXPECT_EQ(GasCompoundTable()[240].Name, "");
    EXPECT_EQ(GasCompoundTable()[240].MaxPress, 10000.0);
    EXPECT_EQ(LiquidCompoundTable()[240].MaxPress, 1000.0);
}

// Catches file commands not dispatched, or the pages and debug rule not refreshed after import.
TEST_F(WizardFixture, FileCommandsDispatchAndRefresh) {
    Open();
    RecordingFiles files;
    wizard::ScriptedDialogService dialogs;
    wizard::WizardServices().files = &files;
    wizard::WizardServices().dialogs = &dialogs;
    s.Xmtr_SimpleFlowCalcMode = 0;
    main->MenuImportQMV->trigger();
    EXPECT_TRUE(Mode().optBasicMode->isChecked());
    s.Mgt_DebugModeFlag = 0;
    s.Gbl_InitialDisplayCurrentValueFlag = 1;
    main->MenuImportFlowParamMgt->trigger();
    EXPECT_TRUE(main->MenuExportFlowParamCalc->isVisible());
    EXPECT_EQ(s.Gbl_InitialDisplayCurrentValueFlag, 0);
    main->MenuReport->trigger();
    main->MenuExportFlowParamXmtr->trigger();
    wizard::WizardServices().files = nullptr;
    wizard::WizardServices().dialogs = nullptr;
    EXPECT_EQ(files.calls, (std::vector<std::string>{"ImportQMV", "ImportFlowParamMgt", "Report",
                                                     "ExportFlowParamXmtr"}));
    EXPECT_EQ(files.dialogsSeen, &dialogs);
}

// Catches pages that keep the store or stay visible after the main control is terminated.
TEST_F(WizardFixture, TerminateReleasesPages) {
    Open();
    main->Terminate();
    for (ctlPage* p : main->findChildren<ctlPage*>()) {
        EXPECT_TRUE(p->isHidden());
        EXPECT_EQ(p->Store(), nullptr);
    }
    EXPECT_FALSE(main->ToolbarButton(1)->isEnabled());
    EXPECT_FALSE(main->ToolbarButton(3)->isEnabled());
    EXPECT_EQ(main->Store(), nullptr);
}
