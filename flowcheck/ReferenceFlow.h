#pragma once
// The reference side of the flow check: the same point with the full property library (density,
// viscosity and isentropic exponent of the fluid, got as the calculation gets them), the
// standard's full discharge coefficient at the point's geometry, and the standard's
// expansibility. Diameters come from the entered values and materials, not from the Xmtr_ set.
//
// Custom fluids have no library: their entered tables, interpolated, are the reference.

#include <cstdint>
#include <memory>
#include <string>

#include "FlowEquation.h"

namespace qdf {
class clsExGlobalVars;
}

namespace qdf::flowcheck {

struct ReferenceProperties {
    double density = 0.0;    // kg/m3
    double viscosity = 0.0;  // Pa s
    double kappa = 0.0;
    // The worst library status of the three calls: 0, 5 two-phase (value stands), or a
    // failure status with ok false.
    int32_t status = 0;
    bool ok = true;
    std::string what;  // which property failed
};

class ReferenceModel {
  public:
    // Takes what it needs from the store; the store is not changed.
    explicit ReferenceModel(const clsExGlobalVars& store);
    ~ReferenceModel();
    ReferenceModel(const ReferenceModel&) = delete;
    ReferenceModel& operator=(const ReferenceModel&) = delete;

    ReferenceProperties Properties(double tempK, double pressPa);
    double Bore(double tempK) const;  // m
    double Pipe(double tempK) const;  // m
    DischargeLaw Discharge(double tempK) const;
    double Expansion(double x, double kappa, double tempK) const;

    // The whole reference point.
    FlowSolution Flow(double dpPa, double pressPa, double tempK);

    int32_t Code() const { return code_; }
    bool Liquid() const { return liquid_; }
    bool CustomFluid() const { return custom_; }

  private:
    double TableDensity(double tempK, double pressPa) const;
    double TableViscosity(double tempK) const;

    const clsExGlobalVars& source_;
    std::unique_ptr<clsExGlobalVars> scratch_;
    int32_t code_ = 0;
    bool liquid_ = false;
    bool custom_ = false;
    double fixedC_ = 0.0, fixedEps_ = 1.0;
    double boreMm_ = 0.0, pipeMm_ = 0.0, boreT_ = 0.0, pipeT_ = 0.0;
    double alphaBore_ = 0.0, alphaPipe_ = 0.0;
};

}  // namespace qdf::flowcheck
