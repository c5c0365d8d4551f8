#include "WizardFileCommands.h"

#include "FileErrors.h"
#include "FileMenuCommands.h"
#include "ModImportPMF.h"
#include "ModReport.h"

namespace qdf::wizard {

namespace {

ChooseFile Opener(IDialogService& dialogs) {
    return [&dialogs](const std::string& filter, const std::string& offered) {
        return dialogs.OpenFile(filter, offered).path;
    };
}

ChooseFile Saver(IDialogService& dialogs) {
    return [&dialogs](const std::string& filter, const std::string& offered) {
        FileDialogResult r = dialogs.SaveFile(filter, offered);
        if (r.path.empty() && r.error) throw FileAccessError(offered);
        return r.path;
    };
}

// The report has no read-only case: a save dialog that fails yields no path, and the command
// ends as on a cancel.
ChooseFile ReportSaver(IDialogService& dialogs) {
    return [&dialogs](const std::string& filter, const std::string& offered) {
        return dialogs.SaveFile(filter, offered).path;
    };
}

}  // namespace

bool WizardFileCommands::ImportQMV(clsExGlobalVars& store, ISDKMessageService& messages,
                                   IDialogService& dialogs) {
    return ImportQMVCommand(store, messages, Opener(dialogs));
}

bool WizardFileCommands::ImportPMF(clsExGlobalVars& store, ISDKMessageService& messages,
                                   IDialogService& dialogs) {
    return ImportPMFCommand(store, messages, Opener(dialogs));
}

bool WizardFileCommands::ImportFlowParamUI(clsExGlobalVars& store, ISDKMessageService& messages,
                                           IDialogService& dialogs) {
    return ImportFlowParamUICommand(store, messages, Opener(dialogs));
}

bool WizardFileCommands::ImportFlowParamXmtr(clsExGlobalVars& store, ISDKMessageService& messages,
                                             IDialogService& dialogs) {
    return ImportFlowParamXmtrCommand(store, messages, Opener(dialogs));
}

bool WizardFileCommands::ImportFlowParamMgt(clsExGlobalVars& store, ISDKMessageService& messages,
                                            IDialogService& dialogs) {
    return ImportFlowParamMgtCommand(store, messages, Opener(dialogs));
}

bool WizardFileCommands::ExportQMV(clsExGlobalVars& store, ISDKMessageService& messages,
                                   IDialogService& dialogs) {
    return ExportQMVCommand(store, messages, Saver(dialogs));
}

bool WizardFileCommands::ExportFlowParamUI(clsExGlobalVars& store, ISDKMessageService& messages,
                                           IDialogService& dialogs) {
    return ExportFlowParamUICommand(store, messages, Saver(dialogs));
}

bool WizardFileCommands::ExportFlowParamXmtr(clsExGlobalVars& store, ISDKMessageService& messages,
                                             IDialogService& dialogs) {
    return ExportFlowParamXmtrCommand(store, messages, Saver(dialogs));
}

bool WizardFileCommands::ExportFlowParamCalc(clsExGlobalVars& store, ISDKMessageService& messages,
                                             IDialogService& dialogs) {
    return ExportFlowParamCalcCommand(store, messages, Saver(dialogs));
}

bool WizardFileCommands::Report(clsExGlobalVars& store, ISDKMessageService& messages,
                                IDialogService& dialogs) {
    return ReportCommand(store, messages, ReportSaver(dialogs));
}

WizardFileCommands& StandardFileCommands() {
    static WizardFileCommands commands;
    return commands;
}

}  // namespace qdf::wizard
