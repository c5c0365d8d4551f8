#pragma once
// The gas and liquid component tables: the library's catalogue with the temperature limits of
// each component's gas and liquid use, built once at start and shared module-wide by the fluid
// and range pages. Lookups by name serve the translators of the model through IComponentList.

#include <cstdint>
#include <string>

#include "ComponentList.h"
#include "ModDefaults.h"

namespace qdf {

class ComponentTables : public IComponentList {
  public:
    static constexpr int kRows = static_cast<int>(kCompoundRows);
    // Limits of "AIR" in the gas table, set by hand: they reach beyond the correlations.
    static constexpr double kAirLowK = 194.67;
    static constexpr double kAirHighK = 772.9;

    // The rows live in the model's module-wide tables (LiquidCompoundTable, GasCompoundTable),
    // which the pages read; this class fills them and answers lookups over them.
    ComponentTables() = default;

    // Empty rows: no name, id 0, 0 to 100 K, pressure 0 to 1000 (liquid) or 10000 (gas).
    void Reset();
    // Reset, then one row of each table per catalogue component, at most kRows. The liquid
    // limits are the narrowest of the liquid viscosity, liquid density and vapour pressure
    // ranges; the gas limits the narrowest of vapour density, heat capacity and vapour viscosity
    // ranges. Range statuses are ignored. Returns 0, or 1 on a numeric failure.
    int32_t Build();

    const CompoundTable& Gas() const { return GasCompoundTable(); }
    const CompoundTable& Liquid() const { return LiquidCompoundTable(); }

    // IComponentList over the filled rows; lookups walk every row in table order.
    int Count() const override { return count_; }
    std::string Name(int i) const override;
    int32_t Id(int i) const override;
    bool FindGasLimits(const std::string& name, double& tLow, double& tHigh) const override;
    bool FindLiquidLimits(const std::string& name, double& tLow, double& tHigh) const override;

  private:
    int count_ = 0;
};

// The module-wide tables, built by the main control at start.
ComponentTables& CompoundTables();

}  // namespace qdf
