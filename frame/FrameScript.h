#pragma once
// A wizard script played against the hosted module, so that the headless scripted run and the
// frame's own window drive the wizard the same way and print the same rows.
//
// Script form:
//   {"user": {"level": 2, "name": "..."}, "answers": [6, ...],
//    "steps": [{"page": "ctlSetupMode1", "set": "txtRefTemp", "text": "15"},
//              {"choose": "cboRefTemp", "index": 0} or {"choose": ..., "entry": "degC"},
//              {"click": "cmdNext"}, {"cell": "grd", "row": 1, "column": 2, "text": "..."},
//              {"menu": "MenuImportQMV", "path": "f.qmv"}, {"answers": [6]}]}
// A control is looked for on the page in view only; a step that names a page names that one.
// A control that is missing, hidden, disabled or read-only (a grid cell that is not editable)
// stops the run, as does a menu entry that is hidden or disabled.
//
// Rows printed: one per message shown (message,title,text,kind,buttons,default,answer), then
// one per parameter write (write,menu,parameter,type,value) and the module's state
// (module,closed or module,open,PAGE).

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>

#include "FrameMessages.h"

class QWidget;

namespace qdf::frame {

class FrameHost;

class FrameScript {
  public:
    explicit FrameScript(std::ostream& out);
    ~FrameScript();
    FrameScript(const FrameScript&) = delete;
    FrameScript& operator=(const FrameScript&) = delete;

    // False with the reason when the file cannot be read, is not JSON, or its user or
    // answers are malformed; the script loaded before stays.
    bool Load(const std::string& path, std::string* error);
    bool Parse(const std::string& text, std::string* error);

    // Before the module opens: the script's user, and the script's message service in place
    // of the host's (answers from the script's queue, every message printed). The script must
    // outlive the host's use of it.
    void Attach(FrameHost& host);

    // Where a menu step's path goes. Left empty, the Qt file dialog that the menu command
    // opens is answered with the path.
    std::function<void(const std::string& path)> fileAnswer;

    // Plays the steps on the hosted module's view, letting events run after each. False with
    // "step N: " and the reason when step N (from 1) could not be played; the steps after it
    // are left out.
    bool Play(FrameHost& host, std::string* error);

    // Prints the writes the device received and the module's state, then closes a module
    // still open.
    void Finish(FrameHost& host, int deviceIndex);

    ScriptedMessageService& Messages() { return messages_; }

    // The page in view inside the module's view, or null.
    static QWidget* PageInView(QWidget* view);

  private:
    struct Script;
    std::unique_ptr<Script> script_;
    std::ostream& out_;
    ScriptedMessageService messages_;
};

}  // namespace qdf::frame
