#pragma once
// A frame reduced to what the pages use: messages answered from a queue and recorded, close
// requests, a business object and a writer that records parameter writes.

#include <QApplication>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "SDK.h"
#include "clsExGlobalVars.h"

namespace qdf::test {

struct Message {
    std::string title, text;
    int kind, buttons, def;
};

class FakeHost : public ISDKManager, public ISDKMessageService, public ISDKBusinessObject {
  public:
    struct Var : ISDKVariable {
        explicit Var(std::string n) : name(std::move(n)) {}
        std::string Name() const override { return name; }
        std::string name;
    };
    struct Writer : ISDKParameterWriter {
        explicit Writer(FakeHost& h) : host(h) {}
        void OpenMenu(ISDKVariable*, ISDKAsyncStatus*) override {}
        void BeginWrite(ISDKVariable*, ISDKVariable*, ISDKAsyncStatus*) override {}
        void WriteValue(ISDKVariable*, ISDKVariable* p, const qdf::Value& v,
                        ISDKAsyncStatus*) override {
            host.writes.emplace_back(p->Name(), v);
        }
        void EndWrite(ISDKVariable*, ISDKVariable*, ISDKAsyncStatus*) override {}
        void CloseMenu(ISDKVariable*, ISDKAsyncStatus*) override {}
        FakeHost& host;
    };

    std::deque<int> answers;
    std::vector<Message> messages;
    std::vector<std::string> closed;
    std::vector<std::pair<std::string, qdf::Value>> writes;
    std::vector<std::uint8_t> stored;
    int dataWrites = 0;

    // ISDKManager
    void RequestBusinessObject(const std::string&, ISDKAsyncStatus*) override {}
    ISDKVariable* FindVariable(std::int32_t, const std::string& name) override {
        if (name.empty()) return nullptr;
        auto& v = vars_[name];
        if (!v) v = std::make_unique<Var>(name);
        return v.get();
    }
    ISDKAccessor* OpenVariable(ISDKVariable*) override { return nullptr; }
    std::shared_ptr<ISDKParameterWriter> GetParameterWriter() override {
        return std::make_shared<Writer>(*this);
    }
    void CloseModule(const std::string& id) override { closed.push_back(id); }
    ISDKMessageService* SDKMessageService() override { return this; }

    // ISDKMessageService: the queued answer, else the default one.
    std::int32_t ShowMessage(const std::string& title, const std::string& text, std::int32_t kind,
                             std::int32_t buttons, std::int32_t def) override {
        messages.push_back({title, text, kind, buttons, def});
        if (answers.empty()) return buttons == 2 ? 4 : def;
        const int a = answers.front();
        answers.pop_front();
        return a;
    }

    // ISDKBusinessObject
    std::vector<std::uint8_t> ReadData() override { return stored; }
    void WriteData(const std::vector<std::uint8_t>& d) override {
        stored = d;
        ++dataWrites;
    }

    std::vector<std::string> Texts() const {
        std::vector<std::string> t;
        for (const auto& m : messages) t.push_back(m.text);
        return t;
    }

  private:
    std::map<std::string, std::unique_ptr<Var>> vars_;
};

// A store as the module hands it over: linked to the host, unit lists of the bus, a user level.
inline void PrepareStore(clsExGlobalVars& s, FakeHost& host, const std::string& bus, int level,
                         const std::string& location = "Other") {
    s.Initialize();
    s.SDKManager = &host;
    s.moduleID = "M1";
    s.BusID = bus;
    s.strCorvanePCLocation = location;
    // A HART device delivers its full enumeration wherever it stands; the location only
    // decides what the pages offer of it.
    const std::vector<std::string> press = {"1:inH2O @ 68degF",
                                            "2:inHg",
                                            "3:ftH2O @ 68degF",
                                            "4:mmH2O @ 68degF",
                                            "5:mmHg",
                                            "6:psi",
                                            "7:bar",
                                            "8:mbar",
                                            "9:g/cm2",
                                            "10:kg/cm2",
                                            "11:Pa",
                                            "12:kPa",
                                            "13:torr",
                                            "14:atm",
                                            "237:MPa",
                                            "238:inH2O",
                                            "239:mmH2O",
                                            "240:ftH2O",
                                            "241:hPa"};
    const std::vector<std::string> temp = {"32:degC", "33:degF", "35:Kelvin"};
    // On HART the lists come from the device as given; other buses use the fixed lists.
    s.InitializeUnits(Value(press), Value(temp), Value("TAG"), Value(std::int32_t(level)),
                      Value("someone"));
    s.varsInitialized = kTrue;
}

}  // namespace qdf::test
