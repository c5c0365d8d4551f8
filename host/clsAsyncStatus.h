#pragma once
// Completion object of an asynchronous frame request. The frame fills it through
// ISDKAsyncStatus; the module reads the plain members.

#include <cstdint>
#include <string>

#include "SDKModule.h"

namespace qdf::host {

class clsAsyncStatus : public ISDKAsyncStatus {
  public:
    std::int32_t Status = 0;
    std::int32_t ProcessID = 0;
    SDKResult result;

    // The frame's final states: aborted (-1), done (4), failed (5), cancelled (6).
    bool IsFinished() const;

    void ISDKAsyncStatus_Status(std::int32_t status) override { Status = status; }
    std::int32_t ISDKAsyncStatus_Status() const override { return Status; }
    void ISDKAsyncStatus_result(const SDKResult& r) override { result = r; }
    SDKResult ISDKAsyncStatus_result() const override { return result; }
    void ISDKAsyncStatus_ErrorInformation(const std::string& text) override { errorInfo_ = text; }
    std::string ISDKAsyncStatus_ErrorInformation() const override { return errorInfo_; }
    void ISDKAsyncStatus_OwnerData(const qdf::Value& v) override { ownerData_ = v; }
    qdf::Value ISDKAsyncStatus_OwnerData() const override { return ownerData_; }
    void ISDKAsyncStatus_WorkerData(const qdf::Value& v) override { workerData_ = v; }
    qdf::Value ISDKAsyncStatus_WorkerData() const override { return workerData_; }

  private:
    // Kept for the frame's sake; nothing here evaluates them.
    std::string errorInfo_;
    qdf::Value ownerData_;
    qdf::Value workerData_;
};

}  // namespace qdf::host
