#pragma once
// What a hosted module implements, and the one C entry point through which a frame creates it
// from the module's shared library.

#include <cstdint>
#include <string>

#include "SDKFrame.h"
#include "Value.h"

class ISDKBusinessObject;

// The outcome of an asynchronous request: empty, a plain value, or one of the frame's objects
// (held by reference: the object stays the frame's).
struct SDKResult {
    qdf::Value value;
    ISDKBusinessObject* object = nullptr;

    bool isEmpty() const { return object == nullptr && value.isEmpty(); }
};

// The completion object that the frame fills in when an asynchronous request ends.
class ISDKAsyncStatus {
  public:
    virtual ~ISDKAsyncStatus() = default;
    virtual void ISDKAsyncStatus_Status(std::int32_t status) = 0;
    virtual std::int32_t ISDKAsyncStatus_Status() const = 0;
    virtual void ISDKAsyncStatus_result(const SDKResult& result) = 0;
    virtual SDKResult ISDKAsyncStatus_result() const = 0;
    virtual void ISDKAsyncStatus_ErrorInformation(const std::string& text) = 0;
    virtual std::string ISDKAsyncStatus_ErrorInformation() const = 0;
    virtual void ISDKAsyncStatus_OwnerData(const qdf::Value& value) = 0;
    virtual qdf::Value ISDKAsyncStatus_OwnerData() const = 0;
    virtual void ISDKAsyncStatus_WorkerData(const qdf::Value& value) = 0;
    virtual qdf::Value ISDKAsyncStatus_WorkerData() const = 0;
};

// Receives observed values; hObserver is the id the module gave to ISDKAttribute::Advise.
class ISDKObserverCallback {
  public:
    virtual ~ISDKObserverCallback() = default;
    virtual void ISDKObserverCallback_Update(std::int32_t hObserver,
                                             const qdf::Value& varNewValue) = 0;
};

// The module as the frame calls it. Status results are qdf::sdk::kSDKStatusOk; 16-bit booleans are
// 0 or -1. The frame calls ISDKModule_OnConnectionStatusChange before ISDKModule_Initialize.
class ISDKModule {
  public:
    virtual ~ISDKModule() = default;

    virtual void ISDKModule_Initialize(const std::string& moduleID, std::int32_t lFunctionId,
                                       const std::string& bstrInitialization,
                                       ISDKManager* pSDKManager) = 0;
    virtual void ISDKModule_OnConnectionStatusChange(const std::string& BusID,
                                                     std::int32_t iStatus) = 0;
    virtual std::int32_t ISDKModule_QueryDisconnect() = 0;
    virtual std::int32_t ISDKModule_QueryDestroyModule(const std::string& name) = 0;
    virtual void ISDKModule_Disconnect() = 0;
    virtual qdf::Value ISDKModule_GetModuleKey() = 0;
    virtual void ISDKModule_SetPersistentData(const qdf::Value& varData) = 0;
    virtual qdf::Value ISDKModule_GetPersistentData() = 0;
    virtual void ISDKModule_LockGUI() = 0;
    virtual void ISDKModule_UnlockGUI() = 0;
    virtual std::int16_t ISDKModule_OnIdle(std::int32_t lCount) = 0;
    virtual std::int16_t ISDKModule_OnFdtPrint(const std::string& xmlDocument) = 0;
    virtual std::int16_t ISDKModule_OnPrint(const qdf::Value& PrintData, std::int32_t lType) = 0;
    virtual void ISDKModule_OnLanguageIDChange(const std::string& bstrNewLanguageID) = 0;

    // The module's top-level view, a QWidget* as void* so that this header stays free of the
    // toolkit. It is the widget created by the factory, already a child of the given parent.
    virtual void* View() = 0;
};

// The module's shared library exports these two functions with C linkage. A frame resolves them
// by name (kCreateModuleSymbol, kDestroyModuleSymbol), creates one module per hosting, with
// parentWidget a QWidget* (or null) passed as void*, and hands the module back to
// qdf_destroy_module after ISDKModule_QueryDisconnect; the frame never deletes it itself.
extern "C" {
ISDKModule* qdf_create_module(void* parentWidget);
void qdf_destroy_module(ISDKModule* module);
}

namespace qdf::sdk {
using CreateModuleFn = ISDKModule* (*)(void* parentWidget);
using DestroyModuleFn = void (*)(ISDKModule* module);
inline constexpr const char* kCreateModuleSymbol = "qdf_create_module";
inline constexpr const char* kDestroyModuleSymbol = "qdf_destroy_module";
// Base name of the module's shared library (libqdfsondra.so on this platform).
inline constexpr const char* kModuleLibraryName = "qdfsondra";
}  // namespace qdf::sdk
