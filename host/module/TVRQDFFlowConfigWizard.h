#pragma once
// The module as a frame hosts it. It reads the device values the wizard needs, loads the
// persisted state, and only then shows the wizard; until then the load screen stands (or, with
// no installation, the error screen for good).

#include <QWidget>
#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "SDK.h"
#include "Value.h"

class QLabel;
class QScrollBar;
class TVRQDFFCWMain;

namespace qdf {
class clsExGlobalVars;
}
namespace qdf::host {
class clsAsyncStatus;
}

class ctlLoadScreen : public QWidget {
    Q_OBJECT
  public:
    explicit ctlLoadScreen(QWidget* parent = nullptr);
    QLabel* Label1;
};

class ctlErrorScreen : public QWidget {
    Q_OBJECT
  public:
    explicit ctlErrorScreen(QWidget* parent = nullptr);
    QLabel* Label1;
};

// One observed device value, with what each step of its lookup gave.
struct ObservedVariable {
    std::int32_t id = 0;
    std::int32_t handle = 0;
    qdf::Value value;
    ISDKVariable* variable = nullptr;
    ISDKAccessor* accessor = nullptr;
    ISDKAttribute* attribute = nullptr;
    // The parameter name looked up ("" when the bus has none for this entry).
    std::string name;
    // What went wrong between finding the variable and observing it, "" when nothing did. Such
    // an entry never delivers, so the load does not wait for it; its value stays empty.
    std::string failure;
    // True while the load waits for this value.
    bool Pending() const { return variable && failure.empty() && value.isEmpty(); }
};

// Horizontal and vertical bar over the hosted area.
struct StdScrollBars {
    QScrollBar* horizontal = nullptr;
    QScrollBar* vertical = nullptr;
};

class TVRQDFFlowConfigWizard : public QWidget, public ISDKModule, public ISDKObserverCallback {
    Q_OBJECT
  public:
    static constexpr int kEntryCount = 24;
    static constexpr const char* kBusinessObjectName = "TVRQDFFCWBO";

    explicit TVRQDFFlowConfigWizard(QWidget* parent = nullptr);
    ~TVRQDFFlowConfigWizard() override;

    // ISDKModule
    void ISDKModule_Initialize(const std::string& moduleID, std::int32_t lFunctionId,
                               const std::string& bstrInitialization,
                               ISDKManager* pSDKManager) override;
    void ISDKModule_OnConnectionStatusChange(const std::string& BusID,
                                             std::int32_t iStatus) override;
    std::int32_t ISDKModule_QueryDisconnect() override;
    std::int32_t ISDKModule_QueryDestroyModule(const std::string& name) override;
    void ISDKModule_Disconnect() override {}
    qdf::Value ISDKModule_GetModuleKey() override { return {}; }
    void ISDKModule_SetPersistentData(const qdf::Value& varData) override;
    qdf::Value ISDKModule_GetPersistentData() override { return {}; }
    void ISDKModule_LockGUI() override {}
    void ISDKModule_UnlockGUI() override {}
    std::int16_t ISDKModule_OnIdle(std::int32_t) override { return 0; }
    std::int16_t ISDKModule_OnFdtPrint(const std::string&) override { return 0; }
    std::int16_t ISDKModule_OnPrint(const qdf::Value&, std::int32_t) override { return 0; }
    // The wizard has one language.
    void ISDKModule_OnLanguageIDChange(const std::string&) override {}
    void* View() override { return static_cast<QWidget*>(this); }

    // ISDKObserverCallback
    void ISDKObserverCallback_Update(std::int32_t hObserver,
                                     const qdf::Value& varNewValue) override;

    // State, for the frame's and tests' eyes.
    qdf::clsExGlobalVars* Store() const { return store_.get(); }
    TVRQDFFCWMain* MainControl() const { return main_; }
    ctlLoadScreen* LoadScreen() const { return loadScreen_; }
    ctlErrorScreen* ErrorScreen() const { return errorScreen_; }
    const ObservedVariable& Entry(int index) const {
        return entries_.at(static_cast<std::size_t>(index));
    }
    bool AllRequested() const { return allRequested_ != 0; }
    // How often the load completion ran (once per opening at most).
    int CompletionCount() const { return completions_; }
    const StdScrollBars& Scroller() const { return scroller_; }
    const std::string& BusID() const { return busID_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void CompleteLoad();
    void CopyDeviceValues();
    void ApplyResizeRule();
    void StopObserver(ObservedVariable& e);
    void Observe(ObservedVariable& e, const char* logical, std::int32_t attributeId);
    void LogFailure(const std::string& text) const;
    ObservedVariable* Find(std::int32_t id);

    std::unique_ptr<qdf::clsExGlobalVars> store_;
    ISDKManager* SDKManager_ = nullptr;
    std::unique_ptr<qdf::host::clsAsyncStatus> asyncStatus_;
    std::string moduleID_;
    std::int32_t lFunctionId_ = 0;
    std::string bstrInitialization_;
    std::string busID_;
    std::string helpPath_;
    std::int16_t allRequested_ = 0;
    int savedLeft_ = 0;
    int savedTop_ = 0;
    std::array<ObservedVariable, kEntryCount> entries_;
    StdScrollBars scroller_;
    int completions_ = 0;

    ctlLoadScreen* loadScreen_;
    ctlErrorScreen* errorScreen_;
    TVRQDFFCWMain* main_;
};
