#pragma once
// First page: Auto Compensation or Basic mode. The mode lives in the store and changes only on
// Next; the options alone just switch the sequence shown.

#include "ctlPage.h"

class QGroupBox;
class QPushButton;
class QRadioButton;

namespace qdf::wizard {
class BlinkTimer;
}

class ctlModeSelection : public ctlPage {
    Q_OBJECT
  public:
    explicit ctlModeSelection(QWidget* parent = nullptr);

    qdf::clsExGlobalVars* Initialize(qdf::clsExGlobalVars* store) override;
    void UpdateImportedVars() override;
    void StopBlink() override;

    void cmdNext_Click();

    QRadioButton* optAutoCompMode;
    QRadioButton* optBasicMode;
    QGroupBox* frameAuto;
    QGroupBox* frameBasic;
    QPushButton* cmdNext;
    qdf::wizard::BlinkTimer* BlinkTimerAuto;
    qdf::wizard::BlinkTimer* BlinkTimerBasic;

  private:
    void ShowMode(bool basic);
};
