#pragma once
// Operating range of saturated steam: temperature follows from pressure, so the page asks for
// the pressure range, the atmospheric and the reference pressure only, then runs the
// calculation.

#include "ctlPage.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

class ctlOperatingRangeSatSteam : public ctlPage {
    Q_OBJECT
  public:
    explicit ctlOperatingRangeSatSteam(QWidget* parent = nullptr);

    qdf::clsExGlobalVars* Initialize(qdf::clsExGlobalVars* store) override;
    void UpdateImportedVars() override;
    void ClearLists() override;

    void cmdNext_Click();
    void cmdBack_Click() override;

    QLabel* lblOperatingRangeSetupMethod;
    QLabel* lblOperatingRangeCat;
    QLineEdit* txtPress1;
    QLineEdit* txtPress2;
    QComboBox* cboPressUnit;
    QLineEdit* txtAtmPress;
    QComboBox* cboAtmPressUnit;
    QLineEdit* txtPressRef;
    QComboBox* cboPressRefUnit;
    // Shown for the look of the reference frame only: nothing reads or stores them.
    QLineEdit* txtTempRef;
    QComboBox* cboTempRefUnit;
    QPushButton* cmdNext;

  private:
    void LoadStaticLists();
    void LoadFromStore();
    // The range question of one pressure box; false ends the validator. Inside the range the
    // standard value (Pa absolute) goes to `standard`; a Yes to a value outside leaves it.
    bool TestPressure(int step, QLineEdit* box, QComboBox* unitList, double& standard);
};
