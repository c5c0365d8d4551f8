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

class WizardFileCommands : public IFileCommands {
  public:
    bool ImportQMV(clsExGlobalVars& s, ISDKMessageService& m, IDialogService& d) override {
        return ImportQMVCommand(s, m, Opener(d));
    }
    bool ImportPMF(clsExGlobalVars& s, ISDKMessageService& m, IDialogService& d) override {
        return ImportPMFCommand(s, m, Opener(d));
    }
    bool ImportFlowParamUI(clsExGlobalVars& s, ISDKMessageService& m, IDialogService& d) override {
        return ImportFlowParamUICommand(s, m, Opener(d));
    }
    bool ImportFlowParamXmtr(clsExGlobalVars& s, ISDKMessageService& m,
                             IDialogService& d) override {
        return ImportFlowParamXmtrCommand(s, m, Opener(d));
    }
    bool ImportFlowParamMgt(clsExGlobalVars& s, ISDKMessageService& m, IDialogService& d) override {
        return ImportFlowParamMgtCommand(s, m, Opener(d));
    }
    bool ExportQMV(clsExGlobalVars& s, ISDKMessageService& m, IDialogService& d) override {
        return ExportQMVCommand(s, m, Saver(d));
    }
    bool ExportFlowParamUI(clsExGlobalVars& s, ISDKMessageService& m, IDialogService& d) override {
        return ExportFlowParamUICommand(s, m, Saver(d));
    }
    bool ExportFlowParamXmtr(clsExGlobalVars& s, ISDKMessageService& m,
                             IDialogService& d) override {
        return ExportFlowParamXmtrCommand(s, m, Saver(d));
    }
    bool ExportFlowParamCalc(clsExGlobalVars& s, ISDKMessageService& m,
                             IDialogService& d) override {
        return ExportFlowParamCalcCommand(s, m, Saver(d));
    }
    bool Report(clsExGlobalVars& s, ISDKMessageService& m, IDialogService& d) override {
        return ReportCommand(s, m, ReportSaver(d));
    }
};

}  // namespace

IFileCommands& StandardFileCommands() {
    static WizardFileCommands commands;
    return commands;
}

}  // namespace qdf::wizard
