#include "clsExGlobalVars.h"

namespace qdf {

clsExGlobalVars::clsExGlobalVars() = default;
clsExGlobalVars::~clsExGlobalVars() = default;

void clsExGlobalVars::ClearPageList() {
    PageList.fill(std::string());
}

std::string clsExGlobalVars::GetDDName(const std::string& busId, const std::string& name) const {
    if (!ddNames_) return {};
    const Value* v = ddNames_->Find(busId + "_" + name);
    return v ? v->str() : std::string();
}

void clsExGlobalVars::Terminate() {
    ClearPageList();
    SDKManager = nullptr;
    FCWParent = nullptr;
    FCWMain = nullptr;
    propertyBag.reset();
    ddNames_.reset();
    FCWBO = nullptr;
}

}  // namespace qdf
