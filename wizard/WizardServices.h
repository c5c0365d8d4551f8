#pragma once
// What the wizard needs from outside besides the store: file dialogs, the file format commands,
// the component catalogue and the shell's document open. All are replaceable so that tests and
// the scripted command line run the real pages without a desktop.

#include <deque>
#include <functional>
#include <string>
#include <vector>

class ISDKMessageService;

namespace qdf {
class clsExGlobalVars;
}  // namespace qdf

namespace qdf::wizard {

// Filters of the file dialogs, as the menu commands name them.
inline constexpr const char* kFilterQMV = "QMV File (*.QMV) | *.QMV";
inline constexpr const char* kFilterPMF = "PMF File (*.PMF) | *.PMF";
inline constexpr const char* kFilterCSV = "CSV File (*.CSV) | *.CSV";

// The outcome of an open or save dialog: an empty path means the user chose nothing; error is
// set when the dialog itself failed (a read-only file chosen for saving, for instance).
struct FileDialogResult {
    std::string path;
    bool error = false;
};

class IDialogService {
  public:
    virtual ~IDialogService() = default;
    virtual FileDialogResult OpenFile(const std::string& filter, const std::string& initial) = 0;
    virtual FileDialogResult SaveFile(const std::string& filter, const std::string& offered) = 0;
};

// Modal Qt file dialogs.
class QtDialogService : public IDialogService {
  public:
    FileDialogResult OpenFile(const std::string& filter, const std::string& initial) override;
    FileDialogResult SaveFile(const std::string& filter, const std::string& offered) override;
};

// Answers from a queue and records each request as "open FILTER" or "save FILTER OFFERED". An
// empty queue answers with an empty path (the user cancelled).
class ScriptedDialogService : public IDialogService {
  public:
    std::deque<FileDialogResult> answers;
    std::vector<std::string> requests;

    FileDialogResult OpenFile(const std::string& filter, const std::string& initial) override;
    FileDialogResult SaveFile(const std::string& filter, const std::string& offered) override;

  private:
    FileDialogResult Next();
};

// The file menu commands. Each runs the whole command: its dialog through `dialogs`, its
// questions and notices through `messages`, the file format, and the store updates. The return
// value tells the main control that the store was changed from a file, so the pages refill
// (QMV, PMF, Flow Param imports) or the debug rule is applied again (Flow Param (Mgt)).
class IFileCommands {
  public:
    virtual ~IFileCommands() = default;
    virtual bool ImportQMV(clsExGlobalVars& store, ISDKMessageService& messages,
                           IDialogService& dialogs) = 0;
    virtual bool ImportPMF(clsExGlobalVars& store, ISDKMessageService& messages,
                           IDialogService& dialogs) = 0;
    virtual bool ImportFlowParamUI(clsExGlobalVars& store, ISDKMessageService& messages,
                                   IDialogService& dialogs) = 0;
    virtual bool ImportFlowParamXmtr(clsExGlobalVars& store, ISDKMessageService& messages,
                                     IDialogService& dialogs) = 0;
    virtual bool ImportFlowParamMgt(clsExGlobalVars& store, ISDKMessageService& messages,
                                    IDialogService& dialogs) = 0;
    virtual bool ExportQMV(clsExGlobalVars& store, ISDKMessageService& messages,
                           IDialogService& dialogs) = 0;
    virtual bool ExportFlowParamUI(clsExGlobalVars& store, ISDKMessageService& messages,
                                   IDialogService& dialogs) = 0;
    virtual bool ExportFlowParamXmtr(clsExGlobalVars& store, ISDKMessageService& messages,
                                     IDialogService& dialogs) = 0;
    virtual bool ExportFlowParamCalc(clsExGlobalVars& store, ISDKMessageService& messages,
                                     IDialogService& dialogs) = 0;
    virtual bool Report(clsExGlobalVars& store, ISDKMessageService& messages,
                        IDialogService& dialogs) = 0;
};

// Module-wide services. Each main control takes them at construction; null members fall back
// to the defaults (Qt dialogs, the file commands of the files library, the desktop's document
// open).
struct Services {
    IDialogService* dialogs = nullptr;
    IFileCommands* files = nullptr;
    std::function<void(const std::string& path)> openDocument;
};
Services& WizardServices();

}  // namespace qdf::wizard
