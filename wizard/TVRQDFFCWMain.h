#pragma once
// The wizard's main control: thirteen pages of which one is visible, the About view, the
// toolbar with its popup menus. Pages decide the sequence and ask it to switch; it fits the
// toolbar to the page and dispatches the menu commands.

#include <QWidget>
#include <array>
#include <cstdint>
#include <string>

#include "SDKMessages.h"

class ISDKMessageService;
class QAction;
class QMenu;
class QToolBar;
class ctlAbout;
class ctlFlowCheck;
class ctlFluidSetup;
class ctlModeSelection;
class ctlNaturalGasSetupAga;
class ctlNaturalGasSetupGross1;
class ctlNaturalGasSetupGross2;
class ctlNaturalGasSetupISO;
class ctlOperatingRangeSetup;
class ctlOperatingRangeSatSteam;
class ctlOperatingRangeLiquid;
class ctlPage;
class ctlPhysicalPropertySetup;
class ctlPrimaryElementSetup;
class ctlSaveAndDownload;
class ctlSetupMode;

namespace qdf {
class clsExGlobalVars;
}
namespace qdf::wizard {
class IDialogService;
class IFileCommands;
}  // namespace qdf::wizard

class TVRQDFFCWMain : public QWidget {
    Q_OBJECT
  public:
    explicit TVRQDFFCWMain(QWidget* parent = nullptr);
    ~TVRQDFFCWMain() override;

    // Hands the store to every page (each may replace it) and sets up toolbar, menus and the
    // component tables; the Mode page is the one in view afterwards.
    qdf::clsExGlobalVars* Initialize(qdf::clsExGlobalVars* store);
    void Terminate();
    void UpdateImportedVars();
    void ClearLists();

    void SwitchToFluidSetup();
    void SwitchToModeSelection();
    void SwitchToNaturalGasSetupAga();
    void SwitchToNaturalGasSetupGross1();
    void SwitchToNaturalGasSetupGross2();
    void SwitchToNaturalGasSetupISO();
    void SwitchToOperatingRangeSetup();
    void SwitchToOperatingRangeSatSteam();
    void SwitchToOperatingRangeLiquid();
    void SwitchToPhysicalPropertySetup();
    void SwitchToPrimaryElementSetup();
    void SwitchToSaveAndDownload();
    void SwitchToSetupMode();
    // The SwitchTo of a page by its control name as the Back stack holds it ("ctlFluidSetup",
    // ...); false for a name that is no page.
    bool SwitchToPageNamed(const std::string& name);

    // Menu commands.
    void MenuInitialize_Click();
    void importQMV();
    void exportQMV();
    void MenuImportPMF_Click();
    void MenuImportFlowParamUI_Click();
    void MenuImportFlowParamXmtr_Click();
    void MenuImportFlowParamMgt_Click();
    void MenuExportFlowParamUI_Click();
    void MenuExportFlowParamXmtr_Click();
    void MenuExportFlowParamCalc_Click();
    void MenuReport_Click();
    // The flow check of the parameters about to be written, in its own view.
    void MenuFlowCheck_Click();
    void MenuQDFSondraHelp_Click();
    void MenuQDFSondraAbout_Click();
    void DisableAbout();
    // A gauge reference pressure is refused with a notice and cleared.
    void CheckCompatible();

    // A toolbar click by the button's tag: opens its popup menu below the button.
    void Toolbar1_ButtonClick(const QString& tag);
    // Toolbar button 1 to 5.
    QAction* ToolbarButton(int index) const;
    // The page in view, null when none is.
    ctlPage* CurrentPageControl() const;
    qdf::clsExGlobalVars* Store() const { return store_; }
    // The popup menu that the last toolbar click opened.
    QMenu* OpenedMenu() const { return openedMenu_; }

    ctlFluidSetup* ctlFluidSetup1;
    ctlModeSelection* ctlModeSelection1;
    ctlNaturalGasSetupAga* ctlNaturalGasSetupAga1;
    ctlNaturalGasSetupGross1* ctlNaturalGasSetupGross11;
    ctlNaturalGasSetupGross2* ctlNaturalGasSetupGross21;
    ctlNaturalGasSetupISO* ctlNaturalGasSetupISO1;
    ctlOperatingRangeSetup* ctlOperatingRangeSetup1;
    ctlOperatingRangeSatSteam* ctlOperatingRangeSatSteam1;
    ctlOperatingRangeLiquid* ctlOperatingRangeLiquid1;
    ctlPhysicalPropertySetup* ctlPhysicalPropertySetup1;
    ctlPrimaryElementSetup* ctlPrimaryElementSetup1;
    ctlSaveAndDownload* ctlSaveAndDownload1;
    ctlSetupMode* ctlSetupMode1;
    ctlAbout* ctlAbout1;
    ctlFlowCheck* ctlFlowCheck1;
    QToolBar* Toolbar1;

    QMenu* MenuTopInitialize;
    QMenu* MenuImport;
    QMenu* MenuExport;
    QMenu* MenuTopReport;
    QMenu* MenuHelp;
    QAction* MenuInitialize;
    QAction* MenuImportQMV;
    QAction* MenuImportPMF;
    QAction* MenuImportFlowParamUI;
    QAction* MenuImportFlowParamXmtr;
    QAction* MenuImportFlowParamMgt;
    QAction* MenuExportQMV;
    QAction* MenuExportFlowParamUI;
    QAction* MenuExportFlowParamXmtr;
    QAction* MenuExportFlowParamCalc;
    QAction* MenuReport;
    QAction* MenuFlowCheck;
    QAction* MenuQDFSondraHelp;
    QAction* MenuQDFSondraAbout;

  private:
    // The thirteen pages in the order of their table: the order of Initialize and refills.
    std::array<ctlPage*, 13> Pages() const;
    void SwitchTo(ctlPage* target);
    void ApplyDebugRule();
    void FillCompoundTables();
    std::int32_t Ask(const std::string& title, const std::string& text, qdf::MessageStyle style);
    // Runs a file command if there is an implementation and a frame to talk through.
    bool RunFileCommand(bool (qdf::wizard::IFileCommands::*command)(qdf::clsExGlobalVars&,
                                                                    ISDKMessageService&,
                                                                    qdf::wizard::IDialogService&));

    qdf::clsExGlobalVars* store_ = nullptr;
    std::array<QAction*, 5> buttons_{};
    QMenu* openedMenu_ = nullptr;
};
