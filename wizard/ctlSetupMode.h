#pragma once
// Basic mode setup: fluid type, reference temperature and static pressure with their units,
// K factor and Temp K1. No calculation runs in Basic mode; the values go to the device as
// entered.

#include "ctlPage.h"

class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

class ctlSetupMode : public ctlPage {
    Q_OBJECT
  public:
    explicit ctlSetupMode(QWidget* parent = nullptr);

    qdf::clsExGlobalVars* Initialize(qdf::clsExGlobalVars* store) override;
    void UpdateImportedVars() override;
    void ClearLists() override;

    void cmdNext_Click();
    void cmdBack_Click() override;

    QRadioButton* optLiquid;
    QRadioButton* optGas;
    QLineEdit* txtRefTemp;
    QComboBox* cboRefTemp;
    QLineEdit* txtRefStPress;
    QComboBox* cboRefStPres;
    QLineEdit* txtKFactor;
    QLineEdit* txtTempK1;
    QPushButton* cmdNext;

  private:
    // Temp K1 is a liquid's value only: closed, emptied and greyed for gas.
    void SetTempK1Open(bool open);
};
