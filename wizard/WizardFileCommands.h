#pragma once
// The file menu commands as the main control runs them: each hands the module's dialog service
// to the toolkit-free command of the files library. A save dialog that failed becomes the
// read-only case there, except for the report, which ends as on a cancel.

#include "WizardServices.h"

namespace qdf::wizard {

class WizardFileCommands : public IFileCommands {
  public:
    bool ImportQMV(clsExGlobalVars& store, ISDKMessageService& messages,
                   IDialogService& dialogs) override;
    bool ImportPMF(clsExGlobalVars& store, ISDKMessageService& messages,
                   IDialogService& dialogs) override;
    bool ImportFlowParamUI(clsExGlobalVars& store, ISDKMessageService& messages,
                           IDialogService& dialogs) override;
    bool ImportFlowParamXmtr(clsExGlobalVars& store, ISDKMessageService& messages,
                             IDialogService& dialogs) override;
    bool ImportFlowParamMgt(clsExGlobalVars& store, ISDKMessageService& messages,
                            IDialogService& dialogs) override;
    bool ExportQMV(clsExGlobalVars& store, ISDKMessageService& messages,
                   IDialogService& dialogs) override;
    bool ExportFlowParamUI(clsExGlobalVars& store, ISDKMessageService& messages,
                           IDialogService& dialogs) override;
    bool ExportFlowParamXmtr(clsExGlobalVars& store, ISDKMessageService& messages,
                             IDialogService& dialogs) override;
    bool ExportFlowParamCalc(clsExGlobalVars& store, ISDKMessageService& messages,
                             IDialogService& dialogs) override;
    bool Report(clsExGlobalVars& store, ISDKMessageService& messages,
                IDialogService& dialogs) override;
};

// The one instance the module installs as WizardServices().files.
WizardFileCommands& StandardFileCommands();

}  // namespace qdf::wizard
