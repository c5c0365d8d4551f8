// The persisted store as the frame hands it back: any byte block must be rejected or restored
// without a crash, and what is restored must write back to the same block.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "PropertyBag.h"
#include "store_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span<const std::uint8_t> bytes(data, size);
    auto bag = qdf::PropertyBag::FromBytes(bytes);
    if (!bag) return 0;
    if (!std::ranges::equal(bag->Contents(), bytes)) std::abort();
    // As at start-up: the persisted members go over the defaults.
    qdf::clsExGlobalVars& store = FreshStore();
    store.propertyBag = std::make_shared<qdf::PropertyBag>(std::move(*bag));
    store.InitializeVarsFromPropertyBag();
    store.InitializePropertyBagFromVars();
    // Compared as bytes: a restored NaN is written back bit for bit, yet equals no value.
    const std::vector<std::uint8_t> written = store.propertyBag->Contents();
    const auto again = qdf::PropertyBag::FromBytes(written);
    if (!again || again->Contents() != written) std::abort();
    return 0;
}
