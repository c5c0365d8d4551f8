// Hosting a module: the call order a module relies on, the deferred close, and the message
// services.

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <string>
#include <vector>

#include "FrameTestSupport.h"

namespace qdf::frame {
namespace {

using namespace qdf::sdk;

// Records the frame's calls; observes the temperature unit and asks to close on request.
class FakeModule : public StubModule, public ISDKObserverCallback {
  public:
    std::vector<std::string> calls;
    std::vector<Value> units;
    ISDKManager* manager = nullptr;
    std::string moduleId;
    std::string bus;
    bool* destroyed = nullptr;
    ISDKAttribute* attr = nullptr;
    std::int32_t handle = 0;

    void ISDKModule_Initialize(const std::string& id, std::int32_t, const std::string&,
                               ISDKManager* m) override {
        calls.push_back("Initialize " + bus);
        manager = m;
        moduleId = id;
        ISDKVariable* v = m->FindVariable(kVariableKindParameter, "et_units");
        attr = m->OpenVariable(v)->GetAttribute(kAttributeValue);
        handle = attr->Advise(43, this);
        attr->StartObserving(handle);
    }
    void ISDKModule_OnConnectionStatusChange(const std::string& b, std::int32_t) override {
        bus = b;
        calls.push_back("OnConnectionStatusChange " + b);
    }
    std::int32_t ISDKModule_QueryDisconnect() override {
        calls.push_back("QueryDisconnect");
        attr->StopObserving(handle);
        attr->Unadvise(handle);
        return kSDKStatusOk;
    }
    std::int32_t ISDKModule_QueryDestroyModule(const std::string&) override { return 4; }
    void ISDKModule_Disconnect() override { calls.push_back("Disconnect"); }
    void ISDKObserverCallback_Update(std::int32_t, const Value& v) override { units.push_back(v); }
};

TEST(FrameHost, BusBeforeInitializeAndCloseAfterTheModulesHandlerReturned) {
    // Catches Initialize before the bus is known, or a close that tears the module down inside
    // its own CloseModule call (a use after free in the module's Apply handler).
    FrameHost host;
    host.AddDevice(Demo("qdf300_ffh1.json"));
    host.AddDevice(Demo("qdf300_hart.json"));
    ScriptedMessageService msgs;
    host.SetMessageService(&msgs);
    auto* module = new FakeModule;
    std::vector<std::string> calls;
    bool destroyed = false;
    ASSERT_EQ(host.OpenModule(1, module,
                              [&](ISDKModule* m) {
                                  calls = static_cast<FakeModule*>(m)->calls;
                                  destroyed = true;
                                  delete m;
                              }),
              module);
    EXPECT_EQ(module->calls,
              (std::vector<std::string>{"OnConnectionStatusChange HART", "Initialize HART"}));
    ASSERT_EQ(module->units.size(), 1u);
    EXPECT_EQ(module->manager->SDKMessageService(), &msgs);
    EXPECT_EQ(host.HostedDevice(), &host.Device(1));

    // The device's unit changes while the module is open: it hears of it.
    host.Device(1).SetValue("et_units", Value(std::int32_t{35}));
    ASSERT_EQ(module->units.size(), 2u);
    EXPECT_EQ(module->units[1], Value(std::int32_t{35}));

    module->manager->CloseModule(module->moduleId);
    EXPECT_TRUE(host.IsModuleOpen());
    EXPECT_FALSE(destroyed);
    QApplication::processEvents();
    EXPECT_TRUE(destroyed);
    EXPECT_FALSE(host.IsModuleOpen());
    EXPECT_EQ(calls, (std::vector<std::string>{"OnConnectionStatusChange HART", "Initialize HART",
                                               "QueryDisconnect", "Disconnect"}));
}

TEST(FrameHost, CloseWithAnotherModulesIdIsIgnored) {
    // Catches a frame that closes whatever is open, whoever asks.
    FrameHost host;
    host.AddDevice(Demo("qdf300_hart.json"));
    auto* module = new FakeModule;
    host.OpenModule(0, module, [](ISDKModule* m) { delete m; });
    module->manager->CloseModule("someone else");
    QApplication::processEvents();
    EXPECT_TRUE(host.IsModuleOpen());
    host.CloseModuleNow();
    EXPECT_FALSE(host.IsModuleOpen());
}

TEST(MessageServices, ScriptedAnswersInOrderThenTheDefault) {
    // Catches answers taken out of order or a missing answer turned into yes.
    ScriptedMessageService s;
    s.answers = {kMessageAnswerYes};
    EXPECT_EQ(s.ShowMessage("QDF300 Warning", "Overwrite?", 3, 5, 7), kMessageAnswerYes);
    EXPECT_EQ(s.ShowMessage("QDF300 Warning", "Again?", 3, 5, 7), kMessageAnswerNo);
    EXPECT_EQ(s.ShowMessage("QDF300 Error", "Bad", 1, 2, 4), kMessageAnswerOk);
    ASSERT_EQ(s.shown.size(), 3u);
    EXPECT_EQ(s.shown[1].text, "Again?");
    EXPECT_EQ(s.shown[2].kind, 1);
    EXPECT_EQ(s.shown[2].title, "QDF300 Error");
}

TEST(MessageServices, DesktopBoxFollowsTheStyleNumbers) {
    // Catches a question shown without Yes and No, a wrong default button, or the answer
    // numbers of the buttons mixed up.
    QtMessageService service;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QString defaultText;
    int buttonCount = 0;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        icon = box->icon();
        buttonCount = static_cast<int>(box->buttons().size());
        defaultText = box->defaultButton() ? box->defaultButton()->text() : QString();
        box->button(QMessageBox::Yes)->click();
    });
    EXPECT_EQ(service.ShowMessage("QDF300 Warning", "Proceed?", 3, 5, 7), kMessageAnswerYes);
    EXPECT_EQ(icon, QMessageBox::Question);
    EXPECT_EQ(buttonCount, 2);
    EXPECT_EQ(defaultText.remove('&'), "No");

    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        icon = box->icon();
        buttonCount = static_cast<int>(box->buttons().size());
        box->button(QMessageBox::Ok)->click();
    });
    EXPECT_EQ(service.ShowMessage("QDF300 Error", "Bad", 1, 2, 4), kMessageAnswerOk);
    EXPECT_EQ(icon, QMessageBox::Critical);
    EXPECT_EQ(buttonCount, 1);
}

}  // namespace
}  // namespace qdf::frame
