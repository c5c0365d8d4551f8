#pragma once
// The interface every page of the wizard shares, and what every page's validator calls:
// refusals, required numbers, Yes/No warnings with the focus rule, messages through the frame,
// the Back stack in the store, the common Cancel, and the blinking step of the sequence frame.

#include <QWidget>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>

#include "SDKMessages.h"

class QGridLayout;
class QGroupBox;
class QLineEdit;
class QPushButton;
class TVRQDFFCWMain;

namespace qdf {
class clsExGlobalVars;
}
namespace qdf::wizard {
class BlinkTimer;
}

class ctlPage : public QWidget {
    Q_OBJECT
  public:
    using QWidget::QWidget;

    // Takes the store; a page may hand back a replacement, which the caller then uses.
    virtual qdf::clsExGlobalVars* Initialize(qdf::clsExGlobalVars* store);
    // Stops the page's timers and drops the store.
    virtual void Terminate();
    // Refills every field from the store; called when the page is about to be shown.
    virtual void UpdateImportedVars() {}
    virtual void ClearLists() {}
    // Stops the blinking step labels; the main control calls it on the pages it hides.
    virtual void StopBlink();
    // Back does nothing on a page with nowhere to go back to; Cancel is the common Cancel of an
    // ordinary page.
    virtual void cmdBack_Click() {}
    virtual void cmdCancel_Click();

    qdf::clsExGlobalVars* Store() const { return store_; }

    // Null on a page that does not offer the button.
    QPushButton* cmdBack = nullptr;
    QPushButton* cmdCancel = nullptr;
    // The page's step in the Auto Compensation sequence frame; null on pages with their own.
    qdf::wizard::BlinkTimer* BlinkTimer = nullptr;

  protected:
    // The foot of a page, in the grid's right column under the fields: Back, the page's
    // forward button (Next or Apply) and Cancel. Back and Cancel run their handlers, the
    // forward button runs `onForward`. Returns the forward button.
    QPushButton* AddPageButtons(QGridLayout* grid, const QString& forwardName,
                                const QString& forwardText, std::function<void()> onForward);
    // The Auto Compensation sequence frame in the grid's left column, with step `step` (2 to 7)
    // named `labelName` and blinking under the page's BlinkTimer.
    QGroupBox* AddAutoSequence(QGridLayout* grid, int step, const QString& labelName);
    // Starts the page's step blinking; a page calls it at the end of UpdateImportedVars.
    void StartBlink();

    TVRQDFFCWMain* Main() const;

    // ---- Messages ----
    // The frame's message box; 0 when there is no frame to ask.
    std::int32_t ShowMessage(const std::string& title, const std::string& text,
                             qdf::MessageStyle style) const;
    // A notice under a title; the page goes on.
    void Notify(const std::string& title, const std::string& text) const;
    // A refusal: the notice under the wizard title, then the focus to the field at fault (if
    // any). The caller ends its validator.
    void Refuse(const std::string& text, QWidget* focus = nullptr) const;
    // As Refuse, with the whole text of the box selected before the focus goes there.
    void RefuseSelecting(const std::string& text, QLineEdit* box) const;
    // The number in a box. Empty: refusal `emptyText`; not a number: refusal `badText`; in
    // both the focus goes to the box (with its text selected when `selectOnBad`) and the
    // result is empty.
    std::optional<double> RequireNumber(QLineEdit* box, const std::string& emptyText,
                                        const std::string& badText, bool selectOnBad = false) const;
    // A Yes/No warning under the wizard title, default No. Yes: true. No: the box's text is
    // selected, the focus goes there and the result is false, which ends the validator.
    bool AskToKeep(const std::string& text, QLineEdit* box,
                   qdf::MessageStyle style = qdf::kAskDefaultNo) const;
    // Selects the box's whole text and puts the focus there.
    static void SelectAndFocus(QLineEdit* box);

    // ---- Sequence ----
    // Cancel as every page does it; the Apply page also marks the configuration ready.
    void CommonCancel(bool onApplyPage);
    // Back through the stack: blanks the present entry, steps down one and switches to the
    // page named there if it is one of `from`. At the bottom of the stack, or on a name not
    // in `from`, nothing happens and the page stays.
    void GoBack(std::initializer_list<const char*> from);
    // Forward step that Back must be able to undo: records this page and the next in the
    // stack, then switches to the next.
    void GoForward(const std::string& current, const std::string& next);

    qdf::clsExGlobalVars* store_ = nullptr;
};
