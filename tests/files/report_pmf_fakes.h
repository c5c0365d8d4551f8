#pragma once
// A frame for the report and PMF tests: a manager that knows every name except those listed,
// records the values written, and a message service that records each box and answers from a
// queue (Yes when the queue is empty is never assumed: an empty queue answers No).

#include <cstdint>
#include <deque>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

#include "SDKFrame.h"

namespace qdf::test {

struct ShownMessage {
    std::string title;
    std::string text;
    std::int32_t kind;
    std::int32_t buttons;
    std::int32_t defaultButton;
};

class RecordingMessages : public ISDKMessageService {
  public:
    std::deque<std::int32_t> answers;
    std::vector<ShownMessage> shown;

    std::int32_t ShowMessage(const std::string& title, const std::string& text, std::int32_t kind,
                             std::int32_t buttons, std::int32_t defaultButton) override {
        shown.push_back({title, text, kind, buttons, defaultButton});
        if (buttons == qdf::sdk::kMessageButtonsOk) return qdf::sdk::kMessageAnswerOk;
        if (answers.empty()) return qdf::sdk::kMessageAnswerNo;
        const std::int32_t a = answers.front();
        answers.pop_front();
        return a;
    }
};

struct WrittenParameter {
    std::string menu;
    std::string parameter;
    qdf::Value value;
};

class NamedVariable : public ISDKVariable {
  public:
    explicit NamedVariable(std::string n) : name(std::move(n)) {}
    std::string Name() const override { return name; }
    std::string name;
};

class RecordingManager;

class RecordingWriter : public ISDKParameterWriter {
  public:
    explicit RecordingWriter(RecordingManager& m) : manager(m) {}
    void OpenMenu(ISDKVariable*, ISDKAsyncStatus*) override {}
    void BeginWrite(ISDKVariable*, ISDKVariable*, ISDKAsyncStatus*) override {}
    void WriteValue(ISDKVariable* menu, ISDKVariable* p, const qdf::Value& v,
                    ISDKAsyncStatus*) override;
    void EndWrite(ISDKVariable*, ISDKVariable*, ISDKAsyncStatus*) override {}
    void CloseMenu(ISDKVariable*, ISDKAsyncStatus*) override {}
    RecordingManager& manager;
};

class RecordingManager : public ISDKManager {
  public:
    std::set<std::string> unknown;  // names the device description lacks
    std::set<std::string> refused;  // parameters whose write the frame refuses
    std::vector<WrittenParameter> writes;
    RecordingMessages messages;

    void RequestBusinessObject(const std::string&, ISDKAsyncStatus*) override {}
    ISDKVariable* FindVariable(std::int32_t kind, const std::string& name) override {
        if (kind != qdf::sdk::kVariableKindParameter || name.empty() || unknown.count(name))
            return nullptr;
        auto& v = vars_[name];
        if (!v) v = std::make_unique<NamedVariable>(name);
        return v.get();
    }
    ISDKAccessor* OpenVariable(ISDKVariable*) override { return nullptr; }
    std::shared_ptr<ISDKParameterWriter> GetParameterWriter() override {
        return std::make_shared<RecordingWriter>(*this);
    }
    void CloseModule(const std::string&) override {}
    ISDKMessageService* SDKMessageService() override { return &messages; }

  private:
    std::map<std::string, std::unique_ptr<NamedVariable>> vars_;
};

inline void RecordingWriter::WriteValue(ISDKVariable* menu, ISDKVariable* p, const qdf::Value& v,
                                        ISDKAsyncStatus*) {
    if (manager.refused.count(p->Name())) throw SDKError("refused");
    manager.writes.push_back({menu->Name(), p->Name(), v});
}

// A folder of its own under the system's temporary folder, removed with the object.
class ScratchDir {
  public:
    explicit ScratchDir(const std::string& tag) {
        path_ =
            std::filesystem::temp_directory_path() /
            ("qdf_" + tag + "_" + std::to_string(::getpid()) + "_" + std::to_string(counter_++));
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~ScratchDir() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    std::string File(const std::string& name) const { return (path_ / name).string(); }

  private:
    static inline int counter_ = 0;
    std::filesystem::path path_;
};

inline std::string ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

inline void WriteBytes(const std::string& path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << bytes;
}

}  // namespace qdf::test
