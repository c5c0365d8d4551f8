#pragma once
// The interface every page of the wizard shares, and the few rules all pages apply the same
// way: the common Cancel, the Back stack in the store, and messages through the frame.

#include <QWidget>
#include <cstdint>
#include <functional>
#include <string>

class QGridLayout;
class QPushButton;
class TVRQDFFCWMain;

namespace qdf {
class clsExGlobalVars;
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
    virtual void StopBlink() {}
    // Back does nothing on a page with nowhere to go back to; Cancel is the common Cancel of an
    // ordinary page.
    virtual void cmdBack_Click() {}
    virtual void cmdCancel_Click();

    qdf::clsExGlobalVars* Store() const { return store_; }

    // Null on a page that does not offer the button.
    QPushButton* cmdBack = nullptr;
    QPushButton* cmdCancel = nullptr;

  protected:
    // The foot of a page, in the grid's right column under the fields: Back, the page's
    // forward button (Next or Apply) and Cancel. Back and Cancel run their handlers, the
    // forward button runs `onForward`. Returns the forward button.
    QPushButton* AddPageButtons(QGridLayout* grid, const QString& forwardName,
                                const QString& forwardText, std::function<void()> onForward);

    TVRQDFFCWMain* Main() const;
    // The frame's message box; 0 when there is no frame to ask.
    std::int32_t ShowMessage(const std::string& title, const std::string& text, std::int32_t kind,
                             std::int32_t buttons, std::int32_t defaultButton) const;
    // Cancel as every page does it; the Apply page also marks the configuration ready.
    void CommonCancel(bool onApplyPage);
    // Back through the stack: blanks the present entry and returns the one before it, or ""
    // at the bottom of the stack.
    std::string PopPageList();
    // Forward step that Back must be able to undo.
    void PushPageList(const std::string& current, const std::string& next);

    qdf::clsExGlobalVars* store_ = nullptr;
};
