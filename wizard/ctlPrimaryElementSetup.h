#pragma once
// Primary device and pipe: the device by family and standard, bore and pipe diameters with the
// temperatures they were measured at and their materials, and for the fixed mode the two
// coefficients themselves. The recommended limits of the device table are warnings the user
// may overrule; only empty, non-numeric or unselected fields block Next.

#include "ctlPage.h"

class QComboBox;
class QLineEdit;
class QPushButton;

class ctlPrimaryElementSetup : public ctlPage {
    Q_OBJECT
  public:
    explicit ctlPrimaryElementSetup(QWidget* parent = nullptr);

    qdf::clsExGlobalVars* Initialize(qdf::clsExGlobalVars* store) override;
    void UpdateImportedVars() override;
    void ClearLists() override;

    void cmdNext_Click();
    void cmdBack_Click() override;

    // The family's rows into cboDesc, then the rule of the coefficient boxes.
    void cboType_Click();
    // Fixed coefficients are live only for "Fix" with "Fixed mode".
    void ApplyFixedCoefficientRule();
    void EnableFixedCoefficients();
    // Closes and empties the boxes; the store keeps its coefficients.
    void DisableFixedCoefficients();

    QComboBox* cboType;
    QComboBox* cboDesc;
    QLineEdit* txtElementDesc;
    QLineEdit* txtPEDisCoeff;
    QLineEdit* txtPEGasExpFactor;
    QLineEdit* txtPEDiameter;
    QComboBox* cboPEDiameterUnit;
    QLineEdit* txtPETemp;
    QComboBox* cboPETempUnit;
    QComboBox* cboPEMaterial;
    QLineEdit* txtPipeDiameter;
    QComboBox* cboPipeDiameterUnit;
    QLineEdit* txtPipeTemp;
    QComboBox* cboPipeTempUnit;
    QComboBox* cboPipeMaterial;
    QPushButton* cmdNext;

  private:
    void LoadStaticLists();
    void LoadFromStore();
    // The family by position, with the cascade run even when the position doesn't change, so
    // cboDesc always holds the family's rows afterwards.
    void SelectType(int position);
    bool FixedModeChosen() const;
    void SetFixedCoefficientsOpen(bool open);
};
