// The persisted store as the frame hands it back: any byte block must be rejected or restored
// without a crash, and what is restored must write back to the same block.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "PropertyBag.h"
#include "clsExGlobalVars.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<std::uint8_t> bytes(data, data + size);
    auto bag = qdf::PropertyBag::FromBytes(bytes);
    if (!bag) return 0;
    if (bag->Contents() != bytes) std::abort();
    qdf::clsExGlobalVars store;
    store.propertyBag = std::make_shared<qdf::PropertyBag>(*bag);
    store.InitializeVarsFromPropertyBag();
    store.InitializePropertyBagFromVars();
    const auto again = qdf::PropertyBag::FromBytes(store.propertyBag->Contents());
    if (!again || !(*again == *store.propertyBag)) std::abort();
    return 0;
}
