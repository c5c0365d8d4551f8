#include "FrameManager.h"

namespace qdf::frame {

using namespace qdf::sdk;

namespace {

// Parameters that the frame itself answers, per bus: the user's level and name.
const char* UserLevelName(const std::string& bus) {
    return bus == "FFH1" ? "__DDC_ADDONS.0.__DDC__FDTUSERLEVEL" : "__DDC__FDTUserLevel";
}
const char* const kUserNameName = "__DDC__FDTUserName";

class FrameWriter : public ISDKParameterWriter {
  public:
    explicit FrameWriter(FrameManager& m) : manager_(m) {}
    void OpenMenu(ISDKVariable* menu, ISDKAsyncStatus*) override { Menu(menu); }
    void BeginWrite(ISDKVariable* menu, ISDKVariable* p, ISDKAsyncStatus*) override {
        Menu(menu);
        Param(p);
    }
    void WriteValue(ISDKVariable* menu, ISDKVariable* p, const qdf::Value& v,
                    ISDKAsyncStatus*) override {
        manager_.Write(Menu(menu), Param(p), v);
    }
    void EndWrite(ISDKVariable* menu, ISDKVariable* p, ISDKAsyncStatus*) override {
        Menu(menu);
        Param(p);
    }
    void CloseMenu(ISDKVariable* menu, ISDKAsyncStatus*) override { Menu(menu); }

  private:
    static FrameVariable* Menu(ISDKVariable* v) {
        auto* f = dynamic_cast<FrameVariable*>(v);
        if (f == nullptr || !f->IsMenu()) throw SDKError("not a parameter group of this frame");
        return f;
    }
    static FrameVariable* Param(ISDKVariable* v) {
        auto* f = dynamic_cast<FrameVariable*>(v);
        if (f == nullptr || f->IsMenu()) throw SDKError("not a parameter of this frame");
        return f;
    }
    FrameManager& manager_;
};

}  // namespace

std::int32_t FrameAttribute::Advise(std::int32_t id, ISDKObserverCallback* callback) {
    return manager_.Advise(*this, id, callback);
}
void FrameAttribute::StartObserving(std::int32_t handle) {
    manager_.StartObserving(handle);
}
void FrameAttribute::StopObserving(std::int32_t handle) {
    manager_.StopObserving(handle);
}
void FrameAttribute::Unadvise(std::int32_t handle) {
    manager_.Unadvise(handle);
}

ISDKAttribute* FrameAccessor::GetAttribute(std::int32_t attributeId) {
    if (!manager_.HasAttribute(variable_, attributeId)) return nullptr;
    auto& a = attributes_[attributeId];
    if (!a) a = std::make_unique<FrameAttribute>(manager_, variable_, attributeId);
    return a.get();
}

std::vector<std::uint8_t> FrameBusinessObject::ReadData() {
    auto it = device_.businessObjects.find(key_);
    return it == device_.businessObjects.end() ? std::vector<std::uint8_t>{} : it->second;
}

void FrameBusinessObject::WriteData(const std::vector<std::uint8_t>& data) {
    device_.businessObjects[key_] = data;
}

FrameManager::FrameManager(FrameDevice& device, FrameUser user, ISDKMessageService& messages,
                           FrameOptions options)
    : device_(device), user_(std::move(user)), messages_(messages), options_(std::move(options)) {
    listenerId_ = device_.AddListener([this](const std::string& name) { OnDeviceChanged(name); });
}

FrameManager::~FrameManager() {
    device_.RemoveListener(listenerId_);
}

void FrameManager::RequestBusinessObject(const std::string& name, ISDKAsyncStatus* status) {
    if (status == nullptr) return;
    if (options_.provideBusinessObject) {
        if (!businessObject_)
            businessObject_ = std::make_unique<FrameBusinessObject>(device_, name);
        status->ISDKAsyncStatus_result(SDKResult{{}, businessObject_.get()});
        status->ISDKAsyncStatus_Status(kSDKStatusOk);
    } else {
        status->ISDKAsyncStatus_Status(5);
    }
}

bool FrameManager::IsUserVariable(const std::string& name) const {
    return name == UserLevelName(device_.Bus()) || name == kUserNameName;
}

ISDKVariable* FrameManager::FindVariable(std::int32_t kind, const std::string& name) {
    if (kind != kVariableKindParameter || name.empty()) return nullptr;
    auto it = variables_.find(name);
    if (it != variables_.end()) return it->second.get();
    const bool menu = device_.IsMenu(name);
    if (!menu && device_.Find(name) == nullptr && !IsUserVariable(name)) return nullptr;
    auto& v = variables_[name];
    v = std::make_unique<FrameVariable>(name, menu);
    return v.get();
}

ISDKAccessor* FrameManager::OpenVariable(ISDKVariable* variable) {
    auto* v = dynamic_cast<FrameVariable*>(variable);
    if (v == nullptr || v->IsMenu()) throw SDKError("not a parameter of this frame");
    auto& a = accessors_[v];
    if (!a) a = std::make_unique<FrameAccessor>(*this, *v);
    return a.get();
}

std::shared_ptr<ISDKParameterWriter> FrameManager::GetParameterWriter() {
    return std::make_shared<FrameWriter>(*this);
}

void FrameManager::CloseModule(const std::string& moduleID) {
    if (onCloseRequested) onCloseRequested(moduleID);
}

bool FrameManager::HasAttribute(const FrameVariable& v, std::int32_t attributeId) const {
    if (attributeId == kAttributeValue) return true;
    if (attributeId == kAttributeEnumeration) {
        const FrameParameter* p = device_.Find(v.Name());
        return p != nullptr && !p->enumeration.empty();
    }
    return false;
}

qdf::Value FrameManager::CurrentValue(const FrameAttribute& a) const {
    const std::string& name = a.Variable().Name();
    if (name == UserLevelName(device_.Bus())) return qdf::Value(user_.level);
    if (name == kUserNameName) return qdf::Value(user_.name);
    const FrameParameter* p = device_.Find(name);
    if (p == nullptr) return {};
    if (a.AttributeId() == kAttributeEnumeration) return qdf::Value(p->enumeration);
    return p->value;
}

std::int32_t FrameManager::Advise(FrameAttribute& a, std::int32_t id, ISDKObserverCallback* cb) {
    const std::int32_t handle = nextHandle_++;
    observers_[handle] = Observer{&a, id, cb, false};
    return handle;
}

void FrameManager::StartObserving(std::int32_t handle) {
    auto it = observers_.find(handle);
    if (it == observers_.end()) throw SDKError("unknown observation handle");
    if (!options_.failObservingOf.empty() &&
        it->second.attribute->Variable().Name() == options_.failObservingOf)
        throw SDKError("the frame cannot observe " + options_.failObservingOf);
    it->second.observing = true;
    if (options_.firstValueAtOnce)
        Deliver(handle);
    else
        pending_.push_back(handle);
}

void FrameManager::StopObserving(std::int32_t handle) {
    auto it = observers_.find(handle);
    if (it != observers_.end()) it->second.observing = false;
}

void FrameManager::Unadvise(std::int32_t handle) {
    observers_.erase(handle);
}

int FrameManager::ObservingCount() const {
    int n = 0;
    for (const auto& [h, o] : observers_) n += o.observing ? 1 : 0;
    return n;
}

void FrameManager::Deliver(std::int32_t handle) {
    auto it = observers_.find(handle);
    if (it == observers_.end() || !it->second.observing || it->second.callback == nullptr) return;
    if (options_.neverDeliver.count(it->second.attribute->Variable().Name())) return;
    const Observer o = it->second;
    o.callback->ISDKObserverCallback_Update(o.id, CurrentValue(*o.attribute));
}

void FrameManager::DeliverPending() {
    auto pending = std::move(pending_);
    pending_.clear();
    for (std::int32_t h : pending) Deliver(h);
}

void FrameManager::OnDeviceChanged(const std::string& name) {
    std::vector<std::int32_t> handles;
    for (const auto& [h, o] : observers_) {
        if (o.observing && o.attribute->AttributeId() == kAttributeValue &&
            o.attribute->Variable().Name() == name)
            handles.push_back(h);
    }
    // The callback may unadvise others; Deliver looks each handle up again.
    for (std::int32_t h : handles) Deliver(h);
}

void FrameManager::Write(FrameVariable* menu, FrameVariable* parameter, const qdf::Value& value) {
    if (!options_.failWriteOf.empty() && parameter->Name() == options_.failWriteOf)
        throw SDKError("the frame refused to write " + parameter->Name());
    if (IsUserVariable(parameter->Name())) throw SDKError("the user settings are read-only");
    const FrameParameter* p = device_.Find(parameter->Name());
    if (p == nullptr || !ConvertToType(value, p->type))
        throw SDKError("value does not fit " + parameter->Name());
    // Logged before the value is set, so that whoever hears of the change sees the write too.
    FrameWrite w{menu->Name(), parameter->Name(), value};
    writes_.push_back(w);
    device_.writes.push_back(std::move(w));
    device_.SetValue(parameter->Name(), value);
}

}  // namespace qdf::frame
