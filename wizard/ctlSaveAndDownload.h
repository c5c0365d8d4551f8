#pragma once
// Last page of both sequences: Apply writes the parameters into the frame's device data,
// keeps the store in the business object and closes the module.

#include "ctlPage.h"

class QGroupBox;
class QPushButton;

namespace qdf::wizard {
class BlinkTimer;
}

class ctlSaveAndDownload : public ctlPage {
    Q_OBJECT
  public:
    explicit ctlSaveAndDownload(QWidget* parent = nullptr);

    qdf::clsExGlobalVars* Initialize(qdf::clsExGlobalVars* store) override;
    void UpdateImportedVars() override;
    void StopBlink() override;

    void cmdSave_Click();
    void cmdBack_Click() override;
    // The common Cancel as the Apply page does it: the configuration counts as ready.
    void cmdCancel_Click() override;

    QPushButton* cmdSave;
    QGroupBox* frameAuto;
    QGroupBox* frameBasic;
    // BlinkTimer (of the base) blinks the Auto Compensation frame's last step.
    qdf::wizard::BlinkTimer* BlinkTimerBasic;
};
