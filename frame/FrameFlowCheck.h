#pragma once
// The flow check against what a device holds: the parameters the wizard wrote into the device's
// offline data, read back and evaluated with the device's own equation over the envelope of a
// saved configuration. A parameter that was never written, was cut or carries a code the
// device does not know shows up in the result as an error.

#include <QDialog>
#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "CheckInput.h"
#include "DeviceEquation.h"

class QLabel;
class ctlFlowCheck;

namespace qdf {
class clsExGlobalVars;
}

namespace qdf::frame {

class FrameDevice;

// The device's numeric values by name and its bus, as a device file saved from it would give.
flowcheck::DeviceData CheckDataOf(const FrameDevice& device);

// What the device's set cannot give the equation, naming the device's parameters: values
// missing or not numbers, unit codes the device does not know. Empty when the set is usable.
std::vector<std::string> ReadBackProblems(const flowcheck::DeviceParameters& params,
                                          const std::string& bus);

// Used when the device holds no DP range the check can read.
inline constexpr double kDefaultDpMaxPa = 25000.0;

// The Flow Check view on the device's read-back set; owns the configuration it checks against.
class FrameFlowCheckDialog : public QDialog {
    Q_OBJECT

  public:
    // `store` holds the saved configuration as LoadConfigurationForCheck leaves it.
    FrameFlowCheckDialog(const FrameDevice& device, std::unique_ptr<clsExGlobalVars> store,
                         const QString& qmvPath, QWidget* parent = nullptr);
    ~FrameFlowCheckDialog() override;

    ctlFlowCheck* View() const { return view_; }
    // What the device's set cannot give, one line each; hidden when nothing.
    QLabel* ReadBackLabel() const { return problems_; }
    // Where the DP range came from, as the view's note says it.
    bool DpRangeFromDevice() const { return dpFromDevice_; }

  private:
    std::unique_ptr<clsExGlobalVars> store_;
    QLabel* problems_;
    ctlFlowCheck* view_;
    bool dpFromDevice_ = false;
};

}  // namespace qdf::frame
