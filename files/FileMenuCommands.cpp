#include "FileMenuCommands.h"

#include <filesystem>
#include <string>

#include "FileErrors.h"
#include "FileMessages.h"
#include "ModBinary.h"
#include "ModCalcValue.h"
#include "ModUserInput.h"
#include "ModXmtrParam.h"
#include "SDKFrame.h"
#include "clsExGlobalVars.h"

#ifdef QDF_HAVE_FLOWCALC
#include "Fits.h"
#include "MvConfig.h"
#endif

namespace qdf {

namespace {

// The save dialog, then the write. A dialog that failed and a file that can't be opened for
// writing are the read-only case; any other failure ends the command in silence.
bool ChooseAndSave(clsExGlobalVars& store, ISDKMessageService& messages, const ChooseFile& save,
                   const char* filter, const std::string& offered, std::string& pathMember,
                   void (*write)(clsExGlobalVars&, const std::string&)) {
    try {
        const std::string path = save(filter, offered);
        if (path.empty()) return false;
        pathMember = path;
        write(store, path);
    } catch (const FileAccessError&) {
        ShowNotice(messages, kTitleError, kReadOnlyText);
    } catch (const std::exception&) {
    }
    return false;
}

void RunCalculationEntry(clsExGlobalVars& store) {
    const auto& run = ExportCalculationEntries().runCalculation;
    // The export writes whatever the tables hold, as the menu always has.
    try {
        if (run) run(store);
    } catch (const std::exception&) {
    }
}

void RunFitsEntry(clsExGlobalVars& store) {
    const auto& run = ExportCalculationEntries().runFits;
    try {
        if (run) run(store);
    } catch (const std::exception&) {
    }
}

}  // namespace

ExportCalculation& ExportCalculationEntries() {
    static ExportCalculation entries = [] {
        ExportCalculation e;
#ifdef QDF_HAVE_FLOWCALC
        e.runCalculation = [](clsExGlobalVars& s) { return RunCalculation(s); };
        e.runFits = [](clsExGlobalVars& s) { return RunFits(s); };
#endif
        return e;
    }();
    return entries;
}

bool ImportQMVCommand(clsExGlobalVars& store, ISDKMessageService& messages, const ChooseFile& open,
                      const IComponentList* components) {
    store.Gbl_SaveBinaryFilePath = open(kQmvFilter, "");
    const std::string path = store.Gbl_SaveBinaryFilePath;
    if (path.empty()) return false;
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec)) {
        ShowNotice(messages, kTitleError, kOpenFailedText);
        store.Gbl_SaveBinaryFilePath.clear();
        return false;
    }
    if (!AskYesNo(messages, kTitleWarning, kOverwriteQuestion)) return false;
    if (OpenBinaryFile(store, path, components) != 0) {
        // After a format error or a failed translation this is the second message.
        store.Gbl_SaveBinaryFilePath.clear();
        ShowNotice(messages, kTitleError, kOpenFailedText);
        return false;
    }
    store.ClickViaFile = kTrue;
    store.Gbl_ReadyToSave = kTrue;
    store.Gbl_ReadyToDownload = kTrue;
    return true;
}

bool ExportQMVCommand(clsExGlobalVars& store, ISDKMessageService& messages,
                      const ChooseFile& save) {
    return ChooseAndSave(store, messages, save, kQmvFilter, store.Gbl_SaveBinaryFilePath,
                         store.Gbl_SaveBinaryFilePath, &SaveBinaryFile);
}

bool ImportFlowParamUICommand(clsExGlobalVars& store, ISDKMessageService&, const ChooseFile& open) {
    store.Gbl_OpenUIFilePath = open(kCsvFilter, "");
    if (store.Gbl_OpenUIFilePath.empty()) return false;
    // A failed import keeps what it stored and says nothing.
    ImportUIFile(store, store.Gbl_OpenUIFilePath);
    store.Gbl_ReadyToSave = kTrue;
    return true;
}

bool ImportFlowParamXmtrCommand(clsExGlobalVars& store, ISDKMessageService&,
                                const ChooseFile& open) {
    store.Gbl_OpenXmtrFilePath = open(kCsvFilter, "");
    if (store.Gbl_OpenXmtrFilePath.empty()) {
        store.Mgt_ConfigCompleteFlag = 0;
        return false;
    }
    ImportXmtrFile(store, store.Gbl_OpenXmtrFilePath);
    store.Mgt_ConfigCompleteFlag = 1;
    store.Gbl_ReadyToDownload = kTrue;
    return true;
}

bool ImportFlowParamMgtCommand(clsExGlobalVars& store, ISDKMessageService&,
                               const ChooseFile& open) {
    store.Gbl_OpenMgtFilePath = open(kCsvFilter, "");
    if (store.Gbl_OpenMgtFilePath.empty()) return false;
    ImportMgtFile(store, store.Gbl_OpenMgtFilePath);
    store.Gbl_InitialDisplayCurrentValueFlag = store.Mgt_DisplayCurrentValueFlag;
    return true;
}

bool ExportFlowParamUICommand(clsExGlobalVars& store, ISDKMessageService& messages,
                              const ChooseFile& save) {
    RunCalculationEntry(store);
    return ChooseAndSave(store, messages, save, kCsvFilter, store.Gbl_SaveUIFilePath,
                         store.Gbl_SaveUIFilePath, &ExportUIFile);
}

bool ExportFlowParamXmtrCommand(clsExGlobalVars& store, ISDKMessageService& messages,
                                const ChooseFile& save) {
    RunFitsEntry(store);
    // The dialog offers the QMV file's path, as it always has.
    return ChooseAndSave(store, messages, save, kCsvFilter, store.Gbl_SaveBinaryFilePath,
                         store.Gbl_SaveXmtrFilePath, &ExportXmtrFile);
}

bool ExportFlowParamCalcCommand(clsExGlobalVars& store, ISDKMessageService& messages,
                                const ChooseFile& save) {
    RunCalculationEntry(store);
    RunFitsEntry(store);
    return ChooseAndSave(store, messages, save, kCsvFilter, store.Gbl_SaveCalcFilePath,
                         store.Gbl_SaveCalcFilePath, &ExportCalcFile);
}

}  // namespace qdf
