#pragma once
// The Report and Import PMF menu commands over the wizard's dialog service. The commands
// themselves live in the files library; these only hand them the dialogs. An IFileCommands
// implementation forwards its Report and ImportPMF members here.

class ISDKMessageService;

namespace qdf {
class clsExGlobalVars;
}

namespace qdf::wizard {

class IDialogService;

bool RunImportPMF(clsExGlobalVars& store, ISDKMessageService& messages, IDialogService& dialogs);
bool RunReport(clsExGlobalVars& store, ISDKMessageService& messages, IDialogService& dialogs);

}  // namespace qdf::wizard
