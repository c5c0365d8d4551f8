#pragma once
// Demo devices and a module that does nothing, for the frame tests.

#include <gtest/gtest.h>

#include <QString>
#include <string>

#include "FrameHost.h"

namespace qdf::frame {

inline FrameDevice Demo(const char* file) {
    QString error;
    auto d = FrameDevice::Load(QString(QDF_SOURCE_DIR "/data/devices/") + file, &error);
    if (!d) ADD_FAILURE() << error.toStdString();
    return d ? std::move(*d) : FrameDevice{};
}

// Every call answered as a willing module does; tests override what they observe.
class StubModule : public ISDKModule {
  public:
    void ISDKModule_Initialize(const std::string&, std::int32_t, const std::string&,
                               ISDKManager*) override {}
    void ISDKModule_OnConnectionStatusChange(const std::string&, std::int32_t) override {}
    std::int32_t ISDKModule_QueryDisconnect() override { return qdf::sdk::kSDKStatusOk; }
    std::int32_t ISDKModule_QueryDestroyModule(const std::string&) override { return 0; }
    void ISDKModule_Disconnect() override {}
    Value ISDKModule_GetModuleKey() override { return {}; }
    void ISDKModule_SetPersistentData(const Value&) override {}
    Value ISDKModule_GetPersistentData() override { return {}; }
    void ISDKModule_LockGUI() override {}
    void ISDKModule_UnlockGUI() override {}
    std::int16_t ISDKModule_OnIdle(std::int32_t) override { return 0; }
    std::int16_t ISDKModule_OnFdtPrint(const std::string&) override { return 0; }
    std::int16_t ISDKModule_OnPrint(const Value&, std::int32_t) override { return 0; }
    void ISDKModule_OnLanguageIDChange(const std::string&) override {}
    void* View() override { return nullptr; }
};

}  // namespace qdf::frame
