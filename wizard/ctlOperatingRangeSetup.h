#pragma once
// Operating range of gases, superheated steam and pressurised water: pressure and temperature
// ranges, atmospheric pressure and reference conditions, tested against the validity range of
// the fluid's property method, turned into absolute SI values, then the calculation. A fluid
// with custom tables runs no driver; its grids are prepared for the user's own entries.

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "ctlPage.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

class ctlOperatingRangeSetup : public ctlPage {
    Q_OBJECT
  public:
    explicit ctlOperatingRangeSetup(QWidget* parent = nullptr);

    qdf::clsExGlobalVars* Initialize(qdf::clsExGlobalVars* store) override;
    void UpdateImportedVars() override;
    void ClearLists() override;

    void cmdNext_Click();
    void cmdBack_Click() override;

    // Tables of a fluid with custom data, prepared from the range instead of the driver. Each
    // returns 0, or 1 on a numeric failure (a division count of 1, a table bound).
    static std::int32_t PrepareDensityGrid(qdf::clsExGlobalVars& s);
    static std::int32_t PrepareViscosityTemperatures(qdf::clsExGlobalVars& s);
    static std::int32_t ConvertDensityGrid(qdf::clsExGlobalVars& s);
    static std::int32_t ConvertReferenceDensity(qdf::clsExGlobalVars& s);
    static std::int32_t ConvertViscosityTable(qdf::clsExGlobalVars& s);

    QLabel* lblOperatingRangeSetupMethod;
    QLabel* lblOperatingRangeCat;
    QLineEdit* txtPress1;
    QLineEdit* txtPress2;
    QComboBox* cboPressUnit;
    QLineEdit* txtAtmPress;
    QComboBox* cboAtmPressUnit;
    QLineEdit* txtTemp1;
    QLineEdit* txtTemp2;
    QComboBox* cboTempUnit;
    QLineEdit* txtPressRef;
    QComboBox* cboPressRefUnit;
    QLineEdit* txtTempRef;
    QComboBox* cboTempRefUnit;
    QPushButton* cmdNext;

  private:
    // Inclusive limits of the fluid's property method; an empty side means no limit.
    struct Limits {
        std::optional<std::pair<double, double>> kPa;
        std::optional<std::pair<double, double>> kelvin;
        // The DIPPR rule words every temperature range with two blanks after "and".
        bool dippr = false;
    };
    enum class Bound { Lower, Upper, Reference };
    // The numbers of the boxes as the validator read them.
    struct Entries {
        double atm, p1, p2, t1, t2, pRef, tRef;
    };

    // The words of a range question or refusal, limits in the box's unit.
    static std::string PressureRangeText(Bound bound, std::int32_t code,
                                         const std::pair<double, double>& kPa);
    static std::string TemperatureRangeText(Bound bound, std::int32_t code,
                                            const std::pair<double, double>& kelvin, bool dippr);

    void ShowLabels();
    void LoadStaticLists();
    void LoadFromStore();
    Limits MethodLimits() const;
    // The validator's steps; nothing when one ended it.
    std::optional<Entries> Validate(const Limits& limits);
    // A pressure inside the limits writes its standard value; outside, a question whose Yes
    // goes on without writing it. Without a unit the test does not run.
    bool TestPressure(const Limits& limits, Bound bound, QLineEdit* box, double value,
                      const QComboBox* unitList, double& standard);
    // A temperature inside the limits writes its standard value; outside, a refusal.
    bool TestTemperature(const Limits& limits, Bound bound, QLineEdit* box, double value,
                         const QComboBox* unitList, double& standard);
    void StoreEntries(const Entries& e);
    // False when the page stays.
    bool Calculate();
    bool UnitsSelected();
};
