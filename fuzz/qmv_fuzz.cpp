// Any byte string read as a QMV file: the reader must end with 0 or 1, fail exactly when the
// bytes don't hold nine whole blocks (or the revision is refused), and what it loads must
// write back into a file that reads again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

#include "ModBinary.h"
#include "ModDefaults.h"
#include "clsExGlobalVars.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // No log folder: a format error's entry fails and is dropped, as on a machine without one.
    setenv("QDF_LOG_DIR", "/nonexistent/qdf-fuzz/", 1);
    const std::span<const std::uint8_t> bytes(data, size);
    std::vector<qdf::QmvMemberValue> values;
    const bool whole = qdf::ParseBinaryBytes(bytes, values);

    qdf::clsExGlobalVars store;
    qdf::InitializeDefaults(store);
    const std::int32_t rc = qdf::OpenBinaryBytes(store, bytes);
    if (rc != 0 && rc != 1) std::abort();
    if (!whole && rc != 1) std::abort();
    if (rc == 0) {
        const std::vector<std::uint8_t> again = qdf::BinaryFileBytes(store);
        std::vector<qdf::QmvMemberValue> back;
        if (!qdf::ParseBinaryBytes(again, back)) std::abort();
    }
    return 0;
}
