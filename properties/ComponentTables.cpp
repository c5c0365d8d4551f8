#include "ComponentTables.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "SND.h"

namespace qdf {

namespace {

// Narrows [low, high] to the intersection of three ranges. Locals start at 0 as the range
// calls may leave them untouched on failure.
template <class F1, class F2, class F3>
void Narrowest(int32_t id, F1 first, F2 second, F3 third, double& low, double& high) {
    double l1 = 0.0, h1 = 0.0, l2 = 0.0, h2 = 0.0, l3 = 0.0, h3 = 0.0;
    first(id, l1, h1);
    second(id, l2, h2);
    third(id, l3, h3);
    low = std::max({l1, l2, l3});
    high = std::min({h1, h2, h3});
}

bool Find(const CompoundTable& table, const std::string& name, double& tLow, double& tHigh) {
    for (const auto& row : table) {
        if (row.Name == name) {
            tLow = row.MinTemp;
            tHigh = row.MaxTemp;
            return true;
        }
    }
    return false;
}

}  // namespace

void ComponentTables::Reset() {
    ResetCompoundTables();
    count_ = 0;
}

int32_t ComponentTables::Build() {
    Reset();
    CompoundTable& liquid = LiquidCompoundTable();
    CompoundTable& gas = GasCompoundTable();
    try {
        std::vector<std::string> names;
        std::vector<int32_t> ids;
        const int32_t count = SND::DprGetClist(names, ids);
        const int n = std::min<int>(count, kRows);
        for (int i = 0; i < n; ++i) {
            const auto& name = names.at(static_cast<std::size_t>(i));
            const int32_t id = ids.at(static_cast<std::size_t>(i));
            liquid[i].Name = name;
            liquid[i].ID = id;
            gas[i].Name = name;
            gas[i].ID = id;
            Narrowest(id, SND::DprLvsRng, SND::DprLdnRng, SND::DprVpRng, liquid[i].MinTemp,
                      liquid[i].MaxTemp);
            if (name == "AIR") {
                gas[i].MinTemp = kAirLowK;
                gas[i].MaxTemp = kAirHighK;
            } else {
                Narrowest(id, SND::DprVdnRng, SND::DprIcpRng, SND::DprVvsRng, gas[i].MinTemp,
                          gas[i].MaxTemp);
            }
            count_ = i + 1;
        }
    } catch (const std::exception&) {
        return 1;
    }
    return 0;
}

std::string ComponentTables::Name(int i) const {
    return GasCompoundTable().at(i).Name;
}

int32_t ComponentTables::Id(int i) const {
    return GasCompoundTable().at(i).ID;
}

bool ComponentTables::FindGasLimits(const std::string& name, double& tLow, double& tHigh) const {
    return Find(GasCompoundTable(), name, tLow, tHigh);
}

bool ComponentTables::FindLiquidLimits(const std::string& name, double& tLow, double& tHigh) const {
    return Find(LiquidCompoundTable(), name, tLow, tHigh);
}

ComponentTables& CompoundTables() {
    static ComponentTables tables;
    return tables;
}

}  // namespace qdf
