#pragma once
// What a frame offers a hosted module: the manager object with its variables, attributes,
// parameter writer, business objects and message service.
//
// Ownership and lifetime: every object reached through a raw pointer belongs to the frame and
// stays valid from ISDKModule_Initialize until ISDKModule_QueryDisconnect has returned. The
// module never deletes them. Parameter writers are handed out as shared pointers, one fresh
// writer per request.
//
// Failures: a frame call that fails throws SDKError; no call returns an error code.
// All calls happen on the user interface thread, and a frame may call back into the module
// (observer updates) from inside any of them.

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "Value.h"

// The interfaces live in the global namespace, as the store and other plain code forward-declare
// them there; the constants are in qdf::sdk.

class ISDKAsyncStatus;
class ISDKObserverCallback;

namespace qdf::sdk {

// The single status value this module and the frame exchange for consent.
inline constexpr std::int32_t kSDKStatusOk = 4;

// Kind of a variable lookup: a parameter of the device description.
inline constexpr std::int32_t kVariableKindParameter = 1;

// Attributes of a device parameter.
inline constexpr std::int32_t kAttributeValue = 1;
inline constexpr std::int32_t kAttributeEnumeration = 9;  // array of "code:text" strings

// Style numbers and answers of ShowMessage.
inline constexpr std::int32_t kMessageKindError = 1;        // stop icon
inline constexpr std::int32_t kMessageKindInformation = 2;  // information icon
inline constexpr std::int32_t kMessageKindQuestion = 3;     // question icon
inline constexpr std::int32_t kMessageButtonsOk = 2;
inline constexpr std::int32_t kMessageButtonsYesNo = 5;
inline constexpr std::int32_t kMessageAnswerOk = 4;
inline constexpr std::int32_t kMessageAnswerYes = 6;
inline constexpr std::int32_t kMessageAnswerNo = 7;

}  // namespace qdf::sdk

// Raised by a frame call that fails.
class SDKError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// A parameter (or a parameter group, a "menu") of the device description. Opaque to the module.
class ISDKVariable {
  public:
    virtual ~ISDKVariable() = default;
    virtual std::string Name() const = 0;
};

// One observable attribute of a parameter. Advise registers a callback under the caller's id
// and returns a handle; once StartObserving runs, the frame delivers the current value at once
// (without waiting for a change) and then every change, each time through
// ISDKObserverCallback_Update with the caller's id as hObserver.
class ISDKAttribute {
  public:
    virtual ~ISDKAttribute() = default;
    virtual std::int32_t Advise(std::int32_t id, ISDKObserverCallback* callback) = 0;
    virtual void StartObserving(std::int32_t handle) = 0;
    virtual void StopObserving(std::int32_t handle) = 0;
    virtual void Unadvise(std::int32_t handle) = 0;
};

class ISDKAccessor {
  public:
    virtual ~ISDKAccessor() = default;
    // kAttributeValue or kAttributeEnumeration; null when the parameter lacks the attribute.
    virtual ISDKAttribute* GetAttribute(std::int32_t attributeId) = 0;
};

// Writes into the device's offline data held by the frame. The status argument is null for
// synchronous writes; each call throws SDKError on failure.
class ISDKParameterWriter {
  public:
    virtual ~ISDKParameterWriter() = default;
    virtual void OpenMenu(ISDKVariable* menu, ISDKAsyncStatus* status) = 0;
    virtual void BeginWrite(ISDKVariable* menu, ISDKVariable* parameter,
                            ISDKAsyncStatus* status) = 0;
    virtual void WriteValue(ISDKVariable* menu, ISDKVariable* parameter, const qdf::Value& value,
                            ISDKAsyncStatus* status) = 0;
    virtual void EndWrite(ISDKVariable* menu, ISDKVariable* parameter, ISDKAsyncStatus* status) = 0;
    virtual void CloseMenu(ISDKVariable* menu, ISDKAsyncStatus* status) = 0;
};

// Bytes kept by the frame for one module on one device.
class ISDKBusinessObject {
  public:
    virtual ~ISDKBusinessObject() = default;
    virtual std::vector<std::uint8_t> ReadData() = 0;
    virtual void WriteData(const std::vector<std::uint8_t>& data) = 0;
};

// Modal message boxes of the frame. kind, buttons and defaultButton are the style numbers
// above; the result is the answer number of the pressed button (kMessageAnswerOk for a notice).
class ISDKMessageService {
  public:
    virtual ~ISDKMessageService() = default;
    virtual std::int32_t ShowMessage(const std::string& title, const std::string& text,
                                     std::int32_t kind, std::int32_t buttons,
                                     std::int32_t defaultButton) = 0;
};

class ISDKManager {
  public:
    virtual ~ISDKManager() = default;
    // Returns at once; the frame puts the business object into status's result later (possibly
    // before this returns) or leaves the result empty when it has none.
    virtual void RequestBusinessObject(const std::string& name, ISDKAsyncStatus* status) = 0;
    // Null when the device description has no parameter of that name (an empty name included).
    virtual ISDKVariable* FindVariable(std::int32_t kind, const std::string& name) = 0;
    virtual ISDKAccessor* OpenVariable(ISDKVariable* variable) = 0;
    virtual std::shared_ptr<ISDKParameterWriter> GetParameterWriter() = 0;
    // Asks the frame to end the module; the frame then calls ISDKModule_QueryDisconnect. The
    // frame may do so after this call has returned.
    virtual void CloseModule(const std::string& moduleID) = 0;
    // The manager's second interface.
    virtual ISDKMessageService* SDKMessageService() = 0;
};
