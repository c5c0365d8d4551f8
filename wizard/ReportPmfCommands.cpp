#include "ReportPmfCommands.h"

#include "ModImportPMF.h"
#include "ModReport.h"
#include "WizardServices.h"

namespace qdf::wizard {

bool RunImportPMF(clsExGlobalVars& store, ISDKMessageService& messages, IDialogService& dialogs) {
    return ImportPMFCommand(store, messages,
                            [&dialogs](const std::string& filter, const std::string& initial) {
                                return dialogs.OpenFile(filter, initial).path;
                            });
}

bool RunReport(clsExGlobalVars& store, ISDKMessageService& messages, IDialogService& dialogs) {
    // A save dialog that fails yields no path; the command then ends as on a cancel.
    return ReportCommand(store, messages,
                         [&dialogs](const std::string& filter, const std::string& offered) {
                             return dialogs.SaveFile(filter, offered).path;
                         });
}

}  // namespace qdf::wizard
