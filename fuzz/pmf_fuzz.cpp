// Any byte string read as a device parameter file and imported into a frame that knows every
// name: the import must finish, fail only for a file with sections but no "Parameters", and
// write no more than one well-formed value per entry, each into one of the known groups.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "IniSection.h"
#include "ModImportPMF.h"
#include "SDKFrame.h"
#include "clsExGlobalVars.h"

namespace {

class Variable : public ISDKVariable {
  public:
    explicit Variable(std::string n) : name_(std::move(n)) {}
    std::string Name() const override { return name_; }

  private:
    std::string name_;
};

class CountingFrame : public ISDKManager, public ISDKParameterWriter {
  public:
    int writes = 0;
    std::vector<std::unique_ptr<Variable>> vars;

    void RequestBusinessObject(const std::string&, ISDKAsyncStatus*) override {}
    ISDKVariable* FindVariable(std::int32_t, const std::string& name) override {
        if (name.empty()) return nullptr;
        vars.push_back(std::make_unique<Variable>(name));
        return vars.back().get();
    }
    ISDKAccessor* OpenVariable(ISDKVariable*) override { return nullptr; }
    std::shared_ptr<ISDKParameterWriter> GetParameterWriter() override {
        return std::shared_ptr<ISDKParameterWriter>(std::shared_ptr<void>(), this);
    }
    void CloseModule(const std::string&) override {}
    ISDKMessageService* SDKMessageService() override { return nullptr; }

    void OpenMenu(ISDKVariable*, ISDKAsyncStatus*) override {}
    void BeginWrite(ISDKVariable*, ISDKVariable*, ISDKAsyncStatus*) override {}
    void WriteValue(ISDKVariable* menu, ISDKVariable*, const qdf::Value& v,
                    ISDKAsyncStatus*) override {
        const std::string group = menu->Name();
        if (group != "qdf_menu_dummy" && group != "upload_variables" &&
            group != "qdf_menu_sp_setup")
            std::abort();
        if (v.isEmpty() || v.isStringArray()) std::abort();
        ++writes;
    }
    void EndWrite(ISDKVariable*, ISDKVariable*, ISDKAsyncStatus*) override {}
    void CloseMenu(ISDKVariable*, ISDKAsyncStatus*) override {}
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    qdf::IniSections sections;
    if (!qdf::ReadIniText(in, sections)) std::abort();

    CountingFrame frame;
    qdf::clsExGlobalVars store;
    store.SDKManager = &frame;
    const std::int32_t rc = qdf::ImportPMFSections(store, sections);
    const qdf::clsIniSection* parameters = sections.Find("Parameters");
    const bool shouldFail = sections.Count() > 0 && parameters == nullptr;
    if (rc != (shouldFail ? 1 : 0)) std::abort();
    if (frame.writes > (parameters != nullptr ? parameters->Count() : 0)) std::abort();
    return 0;
}
