#pragma once
// The frame side of one module hosting on one device: variables and their observation, the
// parameter writer, the business object, the message service and the close request.

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "FrameDevice.h"
#include "SDK.h"

namespace qdf::frame {

class FrameManager;

class FrameVariable : public ISDKVariable {
  public:
    FrameVariable(std::string name, bool menu) : name_(std::move(name)), menu_(menu) {}
    std::string Name() const override { return name_; }
    bool IsMenu() const { return menu_; }

  private:
    std::string name_;
    bool menu_;
};

class FrameAttribute : public ISDKAttribute {
  public:
    FrameAttribute(FrameManager& m, FrameVariable& v, std::int32_t id)
        : manager_(m), variable_(v), attributeId_(id) {}
    std::int32_t Advise(std::int32_t id, ISDKObserverCallback* callback) override;
    void StartObserving(std::int32_t handle) override;
    void StopObserving(std::int32_t handle) override;
    void Unadvise(std::int32_t handle) override;

    const FrameVariable& Variable() const { return variable_; }
    std::int32_t AttributeId() const { return attributeId_; }

  private:
    FrameManager& manager_;
    FrameVariable& variable_;
    std::int32_t attributeId_;
};

class FrameAccessor : public ISDKAccessor {
  public:
    FrameAccessor(FrameManager& m, FrameVariable& v) : manager_(m), variable_(v) {}
    ISDKAttribute* GetAttribute(std::int32_t attributeId) override;

  private:
    FrameManager& manager_;
    FrameVariable& variable_;
    std::map<std::int32_t, std::unique_ptr<FrameAttribute>> attributes_;
};

class FrameBusinessObject : public ISDKBusinessObject {
  public:
    FrameBusinessObject(FrameDevice& d, std::string key) : device_(d), key_(std::move(key)) {}
    std::vector<std::uint8_t> ReadData() override;
    void WriteData(const std::vector<std::uint8_t>& data) override;

  private:
    FrameDevice& device_;
    std::string key_;
};

// What the frame knows of its user; delivered as the parameters of the user level and name.
struct FrameUser {
    std::int32_t level = 2;
    std::string name;
};

// Knobs for tests and scripted runs; the defaults behave like a real frame.
struct FrameOptions {
    // Deliver the first value inside StartObserving (else only on DeliverPending()).
    bool firstValueAtOnce = true;
    // Names whose value is never delivered.
    std::set<std::string> neverDeliver;
    // Whether RequestBusinessObject hands out the business object.
    bool provideBusinessObject = true;
    // A parameter whose WriteValue fails.
    std::string failWriteOf;
    // A parameter whose StartObserving fails.
    std::string failObservingOf;
};

class FrameManager : public ISDKManager {
  public:
    FrameManager(FrameDevice& device, FrameUser user, ISDKMessageService& messages,
                 FrameOptions options = {});
    ~FrameManager() override;

    void RequestBusinessObject(const std::string& name, ISDKAsyncStatus* status) override;
    ISDKVariable* FindVariable(std::int32_t kind, const std::string& name) override;
    ISDKAccessor* OpenVariable(ISDKVariable* variable) override;
    std::shared_ptr<ISDKParameterWriter> GetParameterWriter() override;
    void CloseModule(const std::string& moduleID) override;
    ISDKMessageService* SDKMessageService() override { return &messages_; }

    // Called with the module id when the module asks to be closed.
    std::function<void(const std::string&)> onCloseRequested;

    // Deliveries held back when firstValueAtOnce is off.
    void DeliverPending();

    // Registrations still alive (advised and not unadvised), and those observing.
    int AdvisedCount() const { return static_cast<int>(observers_.size()); }
    int ObservingCount() const;
    // Every WriteValue this manager carried out, in order.
    const std::vector<FrameWrite>& Writes() const { return writes_; }

    FrameDevice& Device() { return device_; }
    const FrameOptions& Options() const { return options_; }

    // Used by the objects above.
    std::int32_t Advise(FrameAttribute& a, std::int32_t id, ISDKObserverCallback* cb);
    void StartObserving(std::int32_t handle);
    void StopObserving(std::int32_t handle);
    void Unadvise(std::int32_t handle);
    bool HasAttribute(const FrameVariable& v, std::int32_t attributeId) const;
    void Write(FrameVariable* menu, FrameVariable* parameter, const qdf::Value& value);

  private:
    struct Observer {
        FrameAttribute* attribute;
        std::int32_t id;
        ISDKObserverCallback* callback;
        bool observing = false;
    };
    qdf::Value CurrentValue(const FrameAttribute& a) const;
    void Deliver(std::int32_t handle);
    void OnDeviceChanged(const std::string& name);
    bool IsUserVariable(const std::string& name) const;

    FrameDevice& device_;
    FrameUser user_;
    ISDKMessageService& messages_;
    FrameOptions options_;
    int listenerId_ = 0;
    std::map<std::string, std::unique_ptr<FrameVariable>> variables_;
    std::map<const FrameVariable*, std::unique_ptr<FrameAccessor>> accessors_;
    std::map<std::int32_t, Observer> observers_;
    std::vector<std::int32_t> pending_;
    std::int32_t nextHandle_ = 1;
    std::unique_ptr<FrameBusinessObject> businessObject_;
    std::vector<FrameWrite> writes_;
};

}  // namespace qdf::frame
