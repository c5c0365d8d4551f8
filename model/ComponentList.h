#pragma once
// The catalogue of pure components as the property library offers it: names, component numbers
// and the temperature limits of gas and liquid use. The property engine serves it from its
// component tables; the model only reads it, so it depends on nothing below it.

#include <cstdint>
#include <string>

namespace qdf {

class IComponentList {
  public:
    virtual ~IComponentList() = default;
    // Number of components; positions run from 0 to Count() - 1 in catalogue order.
    virtual int Count() const = 0;
    virtual std::string Name(int i) const = 0;
    // The component number the library knows the component by.
    virtual int32_t Id(int i) const = 0;
    // Whole-name lookups in catalogue order. A name not found returns false and leaves both
    // limits alone; a name found returns true with the limits in K.
    virtual bool FindGasLimits(const std::string& name, double& tLow, double& tHigh) const = 0;
    virtual bool FindLiquidLimits(const std::string& name, double& tLow, double& tHigh) const = 0;
};

}  // namespace qdf
