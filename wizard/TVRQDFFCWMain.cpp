#include "TVRQDFFCWMain.h"

#include <algorithm>

#include <QAction>
#include <QDesktopServices>
#include <QGridLayout>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

#include "CodeTables.h"
#include "ComponentTables.h"
#include "ModDefaults.h"
#include "ModUnit.h"
#include "NumberText.h"
#include "PageSupport.h"
#include "SDKFrame.h"
#include "WizardFileCommands.h"
#include "WizardServices.h"
#include "clsExGlobalVars.h"
#include "ctlAbout.h"
#include "ctlFlowCheck.h"
#include "ctlFluidSetup.h"
#include "ctlModeSelection.h"
#include "ctlNaturalGasSetupAga.h"
#include "ctlNaturalGasSetupGross1.h"
#include "ctlNaturalGasSetupGross2.h"
#include "ctlNaturalGasSetupISO.h"
#include "ctlOperatingRangeLiquid.h"
#include "ctlOperatingRangeSatSteam.h"
#include "ctlOperatingRangeSetup.h"
#include "ctlPhysicalPropertySetup.h"
#include "ctlPrimaryElementSetup.h"
#include "ctlSaveAndDownload.h"
#include "ctlSetupMode.h"

using namespace qdf::wizard;

namespace {

// An entry of a popup menu, wired to its handler.
QAction* MenuEntry(QMenu* menu, const char* name, const char* caption, TVRQDFFCWMain* main,
                   void (TVRQDFFCWMain::*onClick)()) {
    QAction* a = menu->addAction(QString::fromLatin1(caption));
    a->setObjectName(QString::fromLatin1(name));
    QObject::connect(a, &QAction::triggered, main, onClick);
    return a;
}

QMenu* PopupMenu(QWidget* parent, const char* name) {
    auto* m = new QMenu(parent);
    m->setObjectName(QString::fromLatin1(name));
    return m;
}

}  // namespace

TVRQDFFCWMain::TVRQDFFCWMain(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("TVRQDFFCWMain"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);

    Toolbar1 = new QToolBar(this);
    Toolbar1->setObjectName(QStringLiteral("Toolbar1"));
    const char* tags[] = {"Initialize", "Import", "Export", "Report", "Help"};
    for (int i = 0; i < 5; ++i) {
        const QString tag = QString::fromLatin1(tags[i]);
        QAction* b = Toolbar1->addAction(tag);
        b->setObjectName(QStringLiteral("Button") + QString::number(i + 1));
        b->setData(tag);
        connect(b, &QAction::triggered, this, [this, tag] { Toolbar1_ButtonClick(tag); });
        buttons_[static_cast<std::size_t>(i)] = b;
    }
    layout->addWidget(Toolbar1);

    MenuTopInitialize = PopupMenu(this, "MenuTopInitialize");
    MenuInitialize = MenuEntry(MenuTopInitialize, "MenuInitialize", "Initialize", this,
                               &TVRQDFFCWMain::MenuInitialize_Click);
    MenuImport = PopupMenu(this, "MenuImport");
    MenuImportQMV =
        MenuEntry(MenuImport, "MenuImportQMV", "Import QMV", this, &TVRQDFFCWMain::importQMV);
    MenuImportPMF = MenuEntry(MenuImport, "MenuImportPMF", "Import PMF", this,
                              &TVRQDFFCWMain::MenuImportPMF_Click);
    MenuImportFlowParamUI = MenuEntry(MenuImport, "MenuImportFlowParamUI", "Flow Param (UI)", this,
                                      &TVRQDFFCWMain::MenuImportFlowParamUI_Click);
    MenuImportFlowParamXmtr = MenuEntry(MenuImport, "MenuImportFlowParamXmtr", "Flow Param (Xmtr)",
                                        this, &TVRQDFFCWMain::MenuImportFlowParamXmtr_Click);
    MenuImportFlowParamMgt = MenuEntry(MenuImport, "MenuImportFlowParamMgt", "Flow Param (Mgt)",
                                       this, &TVRQDFFCWMain::MenuImportFlowParamMgt_Click);
    MenuExport = PopupMenu(this, "MenuExport");
    MenuExportQMV =
        MenuEntry(MenuExport, "MenuExportQMV", "Export QMV", this, &TVRQDFFCWMain::exportQMV);
    MenuExportFlowParamUI = MenuEntry(MenuExport, "MenuExportFlowParamUI", "Flow Param (UI)", this,
                                      &TVRQDFFCWMain::MenuExportFlowParamUI_Click);
    MenuExportFlowParamXmtr = MenuEntry(MenuExport, "MenuExportFlowParamXmtr", "Flow Param (Xmtr)",
                                        this, &TVRQDFFCWMain::MenuExportFlowParamXmtr_Click);
    MenuExportFlowParamCalc = MenuEntry(MenuExport, "MenuExportFlowParamCalc", "Flow Param (Calc)",
                                        this, &TVRQDFFCWMain::MenuExportFlowParamCalc_Click);
    MenuTopReport = PopupMenu(this, "MenuTopReport");
    MenuReport =
        MenuEntry(MenuTopReport, "MenuReport", "Report", this, &TVRQDFFCWMain::MenuReport_Click);
    MenuFlowCheck = MenuEntry(MenuTopReport, "MenuFlowCheck", "Flow Check", this,
                              &TVRQDFFCWMain::MenuFlowCheck_Click);
    MenuHelp = PopupMenu(this, "MenuHelp");
    MenuQDFSondraHelp = MenuEntry(MenuHelp, "MenuQDFSondraHelp", "QDFSondra Help", this,
                                  &TVRQDFFCWMain::MenuQDFSondraHelp_Click);
    MenuQDFSondraAbout = MenuEntry(MenuHelp, "MenuQDFSondraAbout", "QDFSondra About", this,
                                   &TVRQDFFCWMain::MenuQDFSondraAbout_Click);

    // All pages and the About view share one cell; exactly one page is shown at a time.
    auto* area = new QWidget(this);
    area->setObjectName(QStringLiteral("pageArea"));
    auto* grid = new QGridLayout(area);
    grid->setContentsMargins(0, 0, 0, 0);
    ctlFluidSetup1 = new ctlFluidSetup(area);
    ctlModeSelection1 = new ctlModeSelection(area);
    ctlNaturalGasSetupAga1 = new ctlNaturalGasSetupAga(area);
    ctlNaturalGasSetupGross11 = new ctlNaturalGasSetupGross1(area);
    ctlNaturalGasSetupGross21 = new ctlNaturalGasSetupGross2(area);
    ctlNaturalGasSetupISO1 = new ctlNaturalGasSetupISO(area);
    ctlOperatingRangeSetup1 = new ctlOperatingRangeSetup(area);
    ctlOperatingRangeSatSteam1 = new ctlOperatingRangeSatSteam(area);
    ctlOperatingRangeLiquid1 = new ctlOperatingRangeLiquid(area);
    ctlPhysicalPropertySetup1 = new ctlPhysicalPropertySetup(area);
    ctlPrimaryElementSetup1 = new ctlPrimaryElementSetup(area);
    ctlSaveAndDownload1 = new ctlSaveAndDownload(area);
    ctlSetupMode1 = new ctlSetupMode(area);
    for (ctlPage* p : Pages()) {
        grid->addWidget(p, 0, 0);
        p->hide();
    }
    ctlAbout1 = new ctlAbout(area);
    grid->addWidget(ctlAbout1, 0, 0);
    ctlAbout1->hide();
    ctlFlowCheck1 = new ctlFlowCheck(area);
    grid->addWidget(ctlFlowCheck1, 0, 0);
    ctlFlowCheck1->hide();
    layout->addWidget(area, 1);

    // The hosted area scrolls over a fixed-size wizard rather than squeezing the pages.
    setFixedSize(760, 560);
}

TVRQDFFCWMain::~TVRQDFFCWMain() = default;

std::array<ctlPage*, 13> TVRQDFFCWMain::Pages() const {
    return {ctlFluidSetup1,
            ctlModeSelection1,
            ctlNaturalGasSetupAga1,
            ctlNaturalGasSetupGross11,
            ctlNaturalGasSetupGross21,
            ctlNaturalGasSetupISO1,
            ctlOperatingRangeSetup1,
            ctlOperatingRangeSatSteam1,
            ctlOperatingRangeLiquid1,
            ctlPhysicalPropertySetup1,
            ctlPrimaryElementSetup1,
            ctlSaveAndDownload1,
            ctlSetupMode1};
}

QAction* TVRQDFFCWMain::ToolbarButton(int index) const {
    return buttons_.at(static_cast<std::size_t>(index - 1));
}

ctlPage* TVRQDFFCWMain::CurrentPageControl() const {
    for (ctlPage* p : Pages())
        if (!p->isHidden()) return p;
    return nullptr;
}

qdf::clsExGlobalVars* TVRQDFFCWMain::Initialize(qdf::clsExGlobalVars* store) {
    store_ = store;
    if (store_) store_->FCWMain = this;
    for (ctlPage* p : Pages()) store_ = p->Initialize(store_);
    ctlAbout1->Initialize(this);

    ToolbarButton(1)->setEnabled(true);
    ToolbarButton(2)->setEnabled(true);
    ToolbarButton(3)->setEnabled(false);
    ToolbarButton(4)->setEnabled(false);
    // PMF files exist for HART devices only.
    if (store_ && store_->BusID == "FFH1") MenuImportPMF->setVisible(false);
    ApplyDebugRule();

    FillCompoundTables();

    for (ctlPage* p : Pages()) p->setVisible(p == ctlModeSelection1);
    ctlModeSelection1->raise();
    return store_;
}

void TVRQDFFCWMain::FillCompoundTables() {
    // Range statuses are ignored while building; a failure leaves the tables reset.
    qdf::CompoundTables().Build();
}

void TVRQDFFCWMain::Terminate() {
    for (int i = 1; i <= 4; ++i) ToolbarButton(i)->setEnabled(false);
    for (ctlPage* p : Pages()) p->Terminate();
    ctlAbout1->Terminate();
    for (ctlPage* p : Pages()) p->hide();
    ctlAbout1->hide();
    ctlFlowCheck1->hide();
    store_ = nullptr;
}

void TVRQDFFCWMain::UpdateImportedVars() {
    for (ctlPage* p : Pages()) p->UpdateImportedVars();
    // Only the page in view keeps its label blinking.
    for (ctlPage* p : Pages())
        if (p->isHidden()) p->StopBlink();
}

void TVRQDFFCWMain::ClearLists() {
    for (ctlPage* p : Pages()) p->ClearLists();
}

void TVRQDFFCWMain::SwitchTo(ctlPage* target) {
    const bool first = target == ctlModeSelection1;
    const bool last = target == ctlSaveAndDownload1;
    ToolbarButton(1)->setEnabled(first);
    ToolbarButton(2)->setEnabled(first);
    ToolbarButton(3)->setEnabled(last);
    ToolbarButton(4)->setEnabled(last);
    target->UpdateImportedVars();
    for (ctlPage* p : Pages()) {
        if (p == target) continue;
        p->StopBlink();
        p->hide();
    }
    target->show();
    target->raise();
}

void TVRQDFFCWMain::SwitchToFluidSetup() {
    SwitchTo(ctlFluidSetup1);
}
void TVRQDFFCWMain::SwitchToModeSelection() {
    SwitchTo(ctlModeSelection1);
}
void TVRQDFFCWMain::SwitchToNaturalGasSetupAga() {
    SwitchTo(ctlNaturalGasSetupAga1);
}
void TVRQDFFCWMain::SwitchToNaturalGasSetupGross1() {
    SwitchTo(ctlNaturalGasSetupGross11);
}
void TVRQDFFCWMain::SwitchToNaturalGasSetupGross2() {
    SwitchTo(ctlNaturalGasSetupGross21);
}
void TVRQDFFCWMain::SwitchToNaturalGasSetupISO() {
    SwitchTo(ctlNaturalGasSetupISO1);
}
void TVRQDFFCWMain::SwitchToOperatingRangeSetup() {
    SwitchTo(ctlOperatingRangeSetup1);
}
void TVRQDFFCWMain::SwitchToOperatingRangeSatSteam() {
    SwitchTo(ctlOperatingRangeSatSteam1);
}
void TVRQDFFCWMain::SwitchToOperatingRangeLiquid() {
    SwitchTo(ctlOperatingRangeLiquid1);
}
void TVRQDFFCWMain::SwitchToPhysicalPropertySetup() {
    SwitchTo(ctlPhysicalPropertySetup1);
}
void TVRQDFFCWMain::SwitchToPrimaryElementSetup() {
    SwitchTo(ctlPrimaryElementSetup1);
}
void TVRQDFFCWMain::SwitchToSaveAndDownload() {
    SwitchTo(ctlSaveAndDownload1);
}
void TVRQDFFCWMain::SwitchToSetupMode() {
    SwitchTo(ctlSetupMode1);
}

bool TVRQDFFCWMain::SwitchToPageNamed(const std::string& name) {
    using Switch = void (TVRQDFFCWMain::*)();
    static const std::pair<const char*, Switch> kPages[] = {
        {"ctlFluidSetup", &TVRQDFFCWMain::SwitchToFluidSetup},
        {"ctlModeSelection", &TVRQDFFCWMain::SwitchToModeSelection},
        {"ctlNaturalGasSetupAga", &TVRQDFFCWMain::SwitchToNaturalGasSetupAga},
        {"ctlNaturalGasSetupGross1", &TVRQDFFCWMain::SwitchToNaturalGasSetupGross1},
        {"ctlNaturalGasSetupGross2", &TVRQDFFCWMain::SwitchToNaturalGasSetupGross2},
        {"ctlNaturalGasSetupISO", &TVRQDFFCWMain::SwitchToNaturalGasSetupISO},
        {"ctlOperatingRangeSetup", &TVRQDFFCWMain::SwitchToOperatingRangeSetup},
        {"ctlOperatingRangeSatSteam", &TVRQDFFCWMain::SwitchToOperatingRangeSatSteam},
        {"ctlOperatingRangeLiquid", &TVRQDFFCWMain::SwitchToOperatingRangeLiquid},
        {"ctlPhysicalPropertySetup", &TVRQDFFCWMain::SwitchToPhysicalPropertySetup},
        {"ctlPrimaryElementSetup", &TVRQDFFCWMain::SwitchToPrimaryElementSetup},
        {"ctlSaveAndDownload", &TVRQDFFCWMain::SwitchToSaveAndDownload},
        {"ctlSetupMode", &TVRQDFFCWMain::SwitchToSetupMode},
    };
    for (const auto& [pageName, to] : kPages)
        if (name == pageName) {
            (this->*to)();
            return true;
        }
    return false;
}

void TVRQDFFCWMain::Toolbar1_ButtonClick(const QString& tag) {
    if (!store_ || store_->varsInitialized == qdf::kFalse) return;
    QMenu* menu = nullptr;
    QAction* button = nullptr;
    if (tag == QLatin1String("Initialize")) {
        menu = MenuTopInitialize;
        button = ToolbarButton(1);
    } else if (tag == QLatin1String("Import")) {
        menu = MenuImport;
        button = ToolbarButton(2);
    } else if (tag == QLatin1String("Export")) {
        menu = MenuExport;
        button = ToolbarButton(3);
    } else if (tag == QLatin1String("Report")) {
        menu = MenuTopReport;
        button = ToolbarButton(4);
    } else if (tag == QLatin1String("Help")) {
        menu = MenuHelp;
        button = ToolbarButton(5);
    }
    if (!menu) return;
    openedMenu_ = menu;
    // Directly below the button, at its left edge and the toolbar's height.
    QWidget* w = Toolbar1->widgetForAction(button);
    const int left = w ? w->x() : 0;
    menu->popup(Toolbar1->mapToGlobal(QPoint(left, Toolbar1->height())));
}

void TVRQDFFCWMain::ApplyDebugRule() {
    const bool debug = store_ && store_->Mgt_DebugModeFlag == 1;
    for (QAction* a : {MenuImportFlowParamMgt, MenuImportFlowParamUI, MenuImportFlowParamXmtr,
                       MenuExportFlowParamUI, MenuExportFlowParamXmtr, MenuExportFlowParamCalc})
        a->setVisible(debug);
}

std::int32_t TVRQDFFCWMain::Ask(const std::string& title, const std::string& text,
                                qdf::MessageStyle style) {
    if (!store_ || !store_->SDKManager) return 0;
    return qdf::ShowStyledMessage(store_->SDKManager->SDKMessageService(), title, text, style);
}

void TVRQDFFCWMain::MenuInitialize_Click() {
    if (!store_) return;
    if (Ask(kTitleWarning,
            "Flow configuration data will be reset! Are you sure you want to proceed?",
            qdf::kAskDefaultNo) != qdf::sdk::kMessageAnswerYes)
        return;
    qdf::SetUserInputDefaults(*store_);
    qdf::SetCalculationOptionDefaults(*store_);
    UpdateImportedVars();
}

bool TVRQDFFCWMain::RunFileCommand(bool (IFileCommands::*command)(qdf::clsExGlobalVars&,
                                                                  ISDKMessageService&,
                                                                  IDialogService&)) {
    Services& services = WizardServices();
    if (!store_ || !store_->SDKManager) return false;
    IFileCommands& files = services.files ? *services.files : StandardFileCommands();
    ISDKMessageService* messages = store_->SDKManager->SDKMessageService();
    if (!messages) return false;
    QtDialogService desktop;
    IDialogService& dialogs = services.dialogs ? *services.dialogs : desktop;
    // A failing command stays at the command: the wizard keeps its page.
    try {
        return (files.*command)(*store_, *messages, dialogs);
    } catch (...) {
        return false;
    }
}

void TVRQDFFCWMain::importQMV() {
    if (RunFileCommand(&IFileCommands::ImportQMV)) UpdateImportedVars();
}

void TVRQDFFCWMain::exportQMV() {
    RunFileCommand(&IFileCommands::ExportQMV);
}

void TVRQDFFCWMain::MenuImportPMF_Click() {
    if (RunFileCommand(&IFileCommands::ImportPMF)) UpdateImportedVars();
}

void TVRQDFFCWMain::MenuImportFlowParamUI_Click() {
    if (RunFileCommand(&IFileCommands::ImportFlowParamUI)) UpdateImportedVars();
}

void TVRQDFFCWMain::MenuImportFlowParamXmtr_Click() {
    if (RunFileCommand(&IFileCommands::ImportFlowParamXmtr)) UpdateImportedVars();
}

void TVRQDFFCWMain::MenuImportFlowParamMgt_Click() {
    if (!RunFileCommand(&IFileCommands::ImportFlowParamMgt)) return;
    // The file can switch the debug mode and the display option.
    ApplyDebugRule();
    store_->Gbl_InitialDisplayCurrentValueFlag = store_->Mgt_DisplayCurrentValueFlag;
}

void TVRQDFFCWMain::MenuExportFlowParamUI_Click() {
    RunFileCommand(&IFileCommands::ExportFlowParamUI);
}

void TVRQDFFCWMain::MenuExportFlowParamXmtr_Click() {
    RunFileCommand(&IFileCommands::ExportFlowParamXmtr);
}

void TVRQDFFCWMain::MenuExportFlowParamCalc_Click() {
    RunFileCommand(&IFileCommands::ExportFlowParamCalc);
}

void TVRQDFFCWMain::MenuReport_Click() {
    RunFileCommand(&IFileCommands::Report);
}

void TVRQDFFCWMain::MenuFlowCheck_Click() {
    if (!store_) return;
    ctlFlowCheck1->Run(*store_);
    ctlFlowCheck1->show();
    ctlFlowCheck1->raise();
}

void TVRQDFFCWMain::MenuQDFSondraHelp_Click() {
    if (!store_) return;
    const std::string path = store_->Mgt_HelpFilePath + "QDFSondra_Manual.pdf";
    auto& open = WizardServices().openDocument;
    // Issued twice in a row, as the program always did.
    for (int i = 0; i < 2; ++i) {
        if (open)
            open(path);
        else
            QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(path)));
    }
}

void TVRQDFFCWMain::MenuQDFSondraAbout_Click() {
    ctlAbout1->show();
    ctlAbout1->raise();
}

void TVRQDFFCWMain::DisableAbout() {
    ctlAbout1->hide();
}

void TVRQDFFCWMain::CheckCompatible() {
    if (!store_ || !qdf::IsGaugePressureCode(store_->UI_PressRefUnit)) return;
    const std::string text =
        "\nThe reference pressure must be entered as the absolute pressure.\nPlease reenter the "
        "absolute pressure equivalent to the following gauge pressure.\n\nReference pressure : " +
        qdf::wizard::UserNumberText(store_->UI_PressRef) + " " +
        qdf::CodeToText(qdf::kProcessPressureUnits, store_->UI_PressRefUnit);
    Ask(kTitleWizard, text, qdf::kPageNotice);
    store_->UI_PressRef = qdf::kNotEntered;
    store_->UI_PressRefUnit = 0;
}
