#pragma once
// Operating range of a liquid from the component library or from the user's own tables: the
// properties depend on temperature alone, so the page asks for the temperature range and the
// reference temperature, then runs the calculation or prepares the custom tables.

#include <cstdint>

#include "ctlPage.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

class ctlOperatingRangeLiquid : public ctlPage {
    Q_OBJECT
  public:
    explicit ctlOperatingRangeLiquid(QWidget* parent = nullptr);

    qdf::clsExGlobalVars* Initialize(qdf::clsExGlobalVars* store) override;
    void UpdateImportedVars() override;
    void ClearLists() override;

    void cmdNext_Click();
    void cmdBack_Click() override;

    // The tables of a custom liquid, in the order Next runs them. Each returns 0, or 1 on a
    // numeric failure (a division count of 1, a table bound), which leaves the rest undone.
    static std::int32_t PrepareLiquidDensityTemperatures(qdf::clsExGlobalVars& s);
    static std::int32_t PrepareLiquidViscosityTemperatures(qdf::clsExGlobalVars& s);
    static std::int32_t ConvertLiquidDensityTable(qdf::clsExGlobalVars& s);
    static std::int32_t ConvertLiquidViscosityTable(qdf::clsExGlobalVars& s);

    QLabel* lblOperatingRangeLiquidMethod;
    QLabel* lblOperatingRangeCategory;
    QLineEdit* txtTemp1;
    QLineEdit* txtTemp2;
    QComboBox* cboTempUnit;
    QLineEdit* txtTempRef;
    QComboBox* cboTempRefUnit;
    QPushButton* cmdNext;

  private:
    void ShowLabels();
    void LoadStaticLists();
    void LoadFromStore();
    // The range test of one temperature box; false ends the validator. Without limits, or
    // inside them, the value in Kelvin goes to `standard`.
    bool TestTemperature(int step, QLineEdit* box, QComboBox* unitList, double& standard);
    void PrepareCustomTables();

    bool withLimits_ = true;
    double lowK_ = 0.0;
    double highK_ = 0.0;
};
