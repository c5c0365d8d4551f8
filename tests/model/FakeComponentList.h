#pragma once
// A small catalogue standing in for the property library's component list.

#include <string>
#include <vector>

#include "ComponentList.h"

namespace qdf::test {

struct FakeComponent {
    std::string name;
    int32_t id;
    double gasLow, gasHigh, liquidLow, liquidHigh;
};

class FakeComponentList : public IComponentList {
  public:
    explicit FakeComponentList(std::vector<FakeComponent> rows) : rows_(std::move(rows)) {}
    int Count() const override { return static_cast<int>(rows_.size()); }
    std::string Name(int i) const override { return rows_.at(static_cast<size_t>(i)).name; }
    int32_t Id(int i) const override { return rows_.at(static_cast<size_t>(i)).id; }
    bool FindGasLimits(const std::string& name, double& lo, double& hi) const override {
        for (const auto& r : rows_) {
            if (r.name == name) {
                lo = r.gasLow;
                hi = r.gasHigh;
                return true;
            }
        }
        return false;
    }
    bool FindLiquidLimits(const std::string& name, double& lo, double& hi) const override {
        for (const auto& r : rows_) {
            if (r.name == name) {
                lo = r.liquidLow;
                hi = r.liquidHigh;
                return true;
            }
        }
        return false;
    }

  private:
    std::vector<FakeComponent> rows_;
};

// Two entries share a name on purpose: lookups must take the first in catalogue order.
inline FakeComponentList SmallCatalogue() {
    return FakeComponentList({{"AIR", 914, 194.67, 772.9, 59.15, 140.0},
                              {"METHANE", 101, 90.0, 1500.0, 90.7, 188.0},
                              {"Water", 1921, 273.16, 1073.15, 273.16, 647.0},
                              {"METHANE", 999, 1.0, 2.0, 3.0, 4.0}});
}

}  // namespace qdf::test
