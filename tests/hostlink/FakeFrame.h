#pragma once
// A frame that knows a fixed set of names and records every writer call, in order.

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "SDK.h"

namespace qdf::test {

struct RecordedWrite {
    std::string menu;
    std::string parameter;
    qdf::Value value;
};

class FakeVariable : public ISDKVariable {
  public:
    explicit FakeVariable(std::string n) : name(std::move(n)) {}
    std::string Name() const override { return name; }
    std::string name;
};

class FakeFrame;

class FakeWriter : public ISDKParameterWriter {
  public:
    explicit FakeWriter(FakeFrame& f) : frame(f) {}
    void OpenMenu(ISDKVariable* menu, ISDKAsyncStatus* status) override;
    void BeginWrite(ISDKVariable* menu, ISDKVariable* p, ISDKAsyncStatus* status) override;
    void WriteValue(ISDKVariable* menu, ISDKVariable* p, const qdf::Value& v,
                    ISDKAsyncStatus* status) override;
    void EndWrite(ISDKVariable* menu, ISDKVariable* p, ISDKAsyncStatus* status) override;
    void CloseMenu(ISDKVariable* menu, ISDKAsyncStatus* status) override;
    FakeFrame& frame;
    int calls = 0;
};

class FakeFrame : public ISDKManager {
  public:
    // Every name is known unless listed as unknown.
    std::set<std::string> unknown;
    // A call "Step parameter" (e.g. "WriteValue density_coef_03") that throws.
    std::string failAt;

    std::vector<RecordedWrite> writes;  // one per WriteValue
    std::vector<std::string> calls;     // every writer call, "Step menu [parameter]"
    std::vector<std::shared_ptr<FakeWriter>> writers;
    bool writerReused = false;  // some writer got more than one call
    bool nullStatusOnly = true;

    void RequestBusinessObject(const std::string&, ISDKAsyncStatus*) override {}
    ISDKVariable* FindVariable(std::int32_t kind, const std::string& name) override {
        if (kind != 1 || name.empty() || unknown.count(name)) return nullptr;
        auto& v = vars_[name];
        if (!v) v = std::make_unique<FakeVariable>(name);
        return v.get();
    }
    ISDKAccessor* OpenVariable(ISDKVariable*) override { return nullptr; }
    std::shared_ptr<ISDKParameterWriter> GetParameterWriter() override {
        writers.push_back(std::make_shared<FakeWriter>(*this));
        return writers.back();
    }
    void CloseModule(const std::string&) override {}
    ISDKMessageService* SDKMessageService() override { return nullptr; }

    void record(FakeWriter& w, const std::string& step, ISDKVariable* menu, ISDKVariable* p,
                ISDKAsyncStatus* status) {
        if (++w.calls > 1) writerReused = true;
        if (status != nullptr) nullStatusOnly = false;
        std::string line = step + " " + menu->Name();
        if (p != nullptr) line += " " + p->Name();
        calls.push_back(line);
        if (p != nullptr && step + " " + p->Name() == failAt) throw SDKError("refused");
    }

  private:
    std::map<std::string, std::unique_ptr<FakeVariable>> vars_;
};

inline void FakeWriter::OpenMenu(ISDKVariable* menu, ISDKAsyncStatus* status) {
    frame.record(*this, "OpenMenu", menu, nullptr, status);
}
inline void FakeWriter::BeginWrite(ISDKVariable* menu, ISDKVariable* p, ISDKAsyncStatus* status) {
    frame.record(*this, "BeginWrite", menu, p, status);
}
inline void FakeWriter::WriteValue(ISDKVariable* menu, ISDKVariable* p, const qdf::Value& v,
                                   ISDKAsyncStatus* status) {
    frame.record(*this, "WriteValue", menu, p, status);
    frame.writes.push_back({menu->Name(), p->Name(), v});
}
inline void FakeWriter::EndWrite(ISDKVariable* menu, ISDKVariable* p, ISDKAsyncStatus* status) {
    frame.record(*this, "EndWrite", menu, p, status);
}
inline void FakeWriter::CloseMenu(ISDKVariable* menu, ISDKAsyncStatus* status) {
    frame.record(*this, "CloseMenu", menu, nullptr, status);
}

}  // namespace qdf::test
